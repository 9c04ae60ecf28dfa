#include "ormelix/session/settings.h"

#include <optional>

#include "ormelix/error.h"
#include "ormelix/session/messages.h"
#include "ormelix/store/date_helpers.h"
#include "ormelix/store/value_helpers.h"

namespace ormelix {

namespace {

void ReportFailure(const char* headline, const std::exception& error) {
  int number = 0;
  std::string description = error.what();
  if (auto* store = dynamic_cast<const StoreError*>(&error)) {
    number = store->Code();
    if (!store->BackendMessage().empty()) description = store->BackendMessage();
  }
  ShowMessage(std::string(headline) + "\n\nFehler: " + std::to_string(number) + ", " + description);
}

// A change of the table is one write transaction from the read of the rows on, so
// that two programs setting one new value give one row. Without an open store
// there is nothing to write, and OpenSettings tells why.
void BeginChange(std::optional<StoreWriteTransaction>& change, const StoreConnectionPtr& database) {
  if (database && database->Session().IsOpen())
    change.emplace(database->Session(), StoreWriteTransaction::KeepWritten);
}

}  // namespace

clsSettings::~clsSettings() {
  CloseSettings();
  settings_database_.reset();
}

void clsSettings::SetSettingsDatabase(StoreConnectionPtr database) { settings_database_ = std::move(database); }

bool clsSettings::OpenSettings() {
  try {
    CloseSettings();
    if (!settings_recordset_ && settings_database_) {
      settings_recordset_ =
          settings_database_->Session().OpenRecordset("SELECT * FROM [Settings]", adOpenDynamic, adLockOptimistic);
      return true;
    }
    if (!settings_database_) return false;
    return true;
  } catch (const std::exception& error) {
    ReportFailure("Beim Öffnen der Settings Tabelle ist ein Fehler aufgetreten.", error);
    return false;
  }
}

void clsSettings::CloseSettings() {
  if (!settings_recordset_) return;
  try {
    settings_recordset_->Close();
    settings_recordset_.reset();
  } catch (const std::exception& error) {
    // The recordset stays set, as the close did not come through.
    ReportFailure("Beim Schließen der Settings Tabelle ist ein Fehler aufgetreten.", error);
  }
}

bool clsSettings::Select(const std::string& section, const std::string& field, const std::string& sub_field) {
  if (!OpenSettings()) return false;
  std::string criteria = "[Sections]='" + section + "' AND [Fields]='" + field;
  if (!DateHelpers::IsEmptyText(Variant(sub_field))) criteria += "' AND [SubFields]='" + sub_field;
  settings_recordset_->Filter(criteria + "'");
  return true;
}

Variant clsSettings::GetValue(const std::string& pSection, const std::string& pField, const Variant& pDefaultValue,
                              const std::string& pSubField) {
  if (!Select(pSection, pField, pSubField)) return {};
  if (settings_recordset_->Eof()) return pDefaultValue;
  return ValueHelpers::ToVariantValue(settings_recordset_->Fields("Values"), true);
}

bool clsSettings::ExistValue(const std::string& pSection, const std::string& pField, const std::string& pSubField) {
  if (!Select(pSection, pField, pSubField)) return false;
  return !settings_recordset_->Eof();
}

void clsSettings::SetValue(const std::string& pSection, const std::string& pField, const Variant& pValue,
                           const std::string& pSubField) {
  std::optional<StoreWriteTransaction> change;
  BeginChange(change, settings_database_);
  if (!Select(pSection, pField, pSubField)) return;
  Recordset& rs = *settings_recordset_;
  if (rs.Eof()) {
    rs.AddNew();
    rs.Collect("Sections", pSection);
    rs.Collect("Fields", pField);
    if (!DateHelpers::IsEmptyText(Variant(pSubField))) rs.Collect("SubFields", pSubField);
  }
  rs.Collect("Values", pValue.IsEmpty() ? Variant::NullValue() : pValue);
  rs.Update();
  if (change) change->Commit();
}

void clsSettings::DeleteValue(const std::string& pSection, const std::string& pField, const std::string& pSubField) {
  std::optional<StoreWriteTransaction> change;
  BeginChange(change, settings_database_);
  if (!Select(pSection, pField, pSubField)) return;
  if (!settings_recordset_->Eof()) settings_recordset_->Delete();
  if (change) change->Commit();
}

}  // namespace ormelix
