#pragma once

#include <memory>
#include <string>

#include "ormelix/store/store.h"
#include "ormelix/store/variant.h"

namespace ormelix {

/// A small key-value store in the table Settings of the payroll store,
/// addressed by section, field and an optional sub-field, so that options travel
/// with the payroll data. Each access reads the table afresh. Failures to open or
/// close the table are shown through the message sink and never stop the operation.
class clsSettings {
 public:
  /// A settings table without a database; the session gives it one.
  clsSettings() = default;
  ~clsSettings();
  clsSettings(const clsSettings&) = delete;
  clsSettings& operator=(const clsSettings&) = delete;

  /// The stored value in its own type, or pDefaultValue when no row matches;
  /// Empty when there is no database. Without a sub-field any row of the section
  /// and field matches, and the first one counts. Reads table Settings.
  Variant GetValue(const std::string& pSection, const std::string& pField, const Variant& pDefaultValue = {},
                   const std::string& pSubField = "");
  /// True if a row of the section, field (and sub-field) exists. Reads table Settings.
  bool ExistValue(const std::string& pSection, const std::string& pField, const std::string& pSubField = "");
  /// Writes the value (Empty as Null) to the first row that matches, or to a new row
  /// (one write transaction). Writes table Settings.
  void SetValue(const std::string& pSection, const std::string& pField, const Variant& pValue,
                const std::string& pSubField = "");
  /// Deletes the first row that matches, if any. Writes table Settings.
  void DeleteValue(const std::string& pSection, const std::string& pField, const std::string& pSubField = "");

  /// \cond INTERNAL
  // Library-internal, for clsManager.
  void SetSettingsDatabase(StoreConnectionPtr database);
  bool OpenSettings();
  void CloseSettings();
  /// \endcond

 private:
  /// Opens the table afresh and stands on the first matching row; false without
  /// a database.
  bool Select(const std::string& section, const std::string& field, const std::string& sub_field);

  std::unique_ptr<Recordset> settings_recordset_;
  StoreConnectionPtr settings_database_;
};

}  // namespace ormelix
