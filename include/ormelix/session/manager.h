#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "ormelix/store/store.h"
#include "ormelix/store/variant.h"

namespace ormelix {

class clsSettings;
class clsMandant;
class clsMitarbeiter;
class clsBasisdaten;
class clsLänder;

/// The session and the root of the object graph. A host creates exactly
/// one, hands it an open payroll store (and a reference store, if it has one),
/// selects year, month, employer and employee, and reaches everything else through
/// it. Selecting a year or a month only records a number: nothing is reloaded.
class clsManager : public std::enable_shared_from_this<clsManager> {
  struct Token {};

 public:
  /// Creates the session with its settings, employee list, base values and
  /// countries, in that order. No database is touched.
  static std::shared_ptr<clsManager> Create();
  explicit clsManager(Token);
  ~clsManager();
  clsManager(const clsManager&) = delete;
  clsManager& operator=(const clsManager&) = delete;

  /// The payroll database. Setting it first tears down the store held so far
  /// (closing it and dropping ImportDB), then opens the settings table on the new one.
  const StoreConnectionPtr& AktDB() const { return akt_db_; }
  void SetAktDB(StoreConnectionPtr pDB);
  /// Closes the current store, then takes pDB (keeping its path and connect text),
  /// or with no pDB reopens the database held in AktDB by the kept path and text.
  void OpenAktDB(StoreConnectionPtr pDB = nullptr);
  /// Closes the settings table and the store if it is open; AktDB stays set.
  void CloseAktDB();

  /// The reference database; setting it stores the reference and nothing else.
  const StoreConnectionPtr& ImportDB() const { return import_db_; }
  void SetImportDB(StoreConnectionPtr pDB) { import_db_ = std::move(pDB); }

  const std::shared_ptr<clsLänder>& Länder() const { return laender_; }
  /// The per-user setting Ormelix/Debug/Entwicklungsmodus (default 0).
  std::int16_t DevelopmentMode() const;
  /// StorePath of the reference database if it is open, else "". Fails when no
  /// reference database is set at all.
  std::string ImportDBPath() const;

  const std::shared_ptr<clsMandant>& AktMandant() const { return akt_mandant_; }
  void SetAktMandant(std::shared_ptr<clsMandant> pMandant) { akt_mandant_ = std::move(pMandant); }

  /// Current employee: its ID ("" when none) and its Index in Mitarbeiter (0 when none).
  std::string AktMitarbeiterID;
  std::int16_t AktMitarbeiterIndex = 0;

  const std::shared_ptr<clsMitarbeiter>& Mitarbeiter() const { return mitarbeiter_; }
  const std::shared_ptr<clsBasisdaten>& Basis() const { return basis_; }

  /// Current year and month: plain numbers, no range check, no reload. 0 until set.
  std::int16_t AktJahr = 0;
  std::int16_t AktMonat = 0;

  /// The period of AktJahr and AktMonat, or of another month of AktJahr.
  std::int32_t GetZeitraum(std::int16_t pAnderesMonat = 0) const;
  /// StorePath of AktDB; "" when there is none or it is not open.
  std::string AktDBPath() const;
  const std::shared_ptr<clsSettings>& Settings() const { return settings_; }
  bool IsOpenDatabase() const;

  /// Selects an employer: with an ID, loads it into AktMandant (created on first
  /// use and reused afterwards); with anything else, drops AktMandant.
  Variant ChangeAktMandant(const std::string& pID);
  /// Selects an employee of the loaded list: with an ID, stores it and its Index;
  /// with anything else, clears both. An ID that is not in the list fails with
  /// KeyNotFound after AktMitarbeiterID has been set.
  Variant ChangeAktMitarbeiter(const std::string& pID);

 private:
  void TeardownStore();
  void TakeSettingsDatabase();

  std::shared_ptr<clsSettings> settings_;
  std::shared_ptr<clsMandant> akt_mandant_;
  std::shared_ptr<clsMitarbeiter> mitarbeiter_;
  std::shared_ptr<clsBasisdaten> basis_;
  std::shared_ptr<clsLänder> laender_;
  std::string stored_path_;
  std::string stored_connect_;
  StoreConnectionPtr akt_db_;
  StoreConnectionPtr import_db_;
};

using ManagerPtr = std::shared_ptr<clsManager>;

/// The back reference of the session's children: not owning, so that no cycle
/// keeps the session alive. Using it after the session has ended is an Error.
class ManagerRef {
 public:
  void Set(const std::shared_ptr<clsManager>& manager) { manager_ = manager; }
  bool IsSet() const { return !manager_.expired(); }
  std::shared_ptr<clsManager> Get() const;

 private:
  std::weak_ptr<clsManager> manager_;
};

}  // namespace ormelix
