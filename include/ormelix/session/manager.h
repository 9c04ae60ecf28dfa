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
///
/// It makes Settings (clsSettings, table Settings), Mitarbeiter (clsMitarbeiter),
/// Basis (clsBasisdaten) and Länder (clsLänder) at Create; AktMandant (clsMandant)
/// comes with the first ChangeAktMandant. Employers, employees and base values are
/// read from AktDB, the catalogues (Gemeinden, BMVG_Kassen, DM_Austrittsgründe,
/// Länder, Länder_Indikatoren) from ImportDB. The session's children hold it by a
/// non-owning back reference: drop the last reference to it when the session ends.
class clsManager : public std::enable_shared_from_this<clsManager> {
  struct Token {};

 public:
  /// Creates the session with its settings, employee list, base values and
  /// countries, in that order. No database is touched.
  static std::shared_ptr<clsManager> Create();
  /// For Create only (the token is private): a host calls Create.
  explicit clsManager(Token);
  /// Closes the settings table, then the payroll store.
  ~clsManager();
  /// Not copyable: one session, one root.
  clsManager(const clsManager&) = delete;
  /// Not assignable.
  clsManager& operator=(const clsManager&) = delete;

  /// The payroll database. Setting it first tears down the store held so far
  /// (closing it and dropping ImportDB), then opens the settings table on the new one.
  /// \name The payroll store
  ///@{

  /// The payroll database (employers, base values, employees, Settings). Setting it
  /// first tears down the store held so far (closing it and dropping ImportDB), then
  /// opens the settings table on the new one.
  const StoreConnectionPtr& AktDB() const { return akt_db_; }
  void SetAktDB(StoreConnectionPtr pDB);
  ///@}
  /// Closes the current store, then takes pDB (keeping its path and connect text),
  /// or with no pDB reopens the database held in AktDB by the kept path and text.
  void OpenAktDB(StoreConnectionPtr pDB = nullptr);
  /// Closes the settings table and the store if it is open; AktDB stays set.
  void CloseAktDB();

  /// The reference database; setting it stores the reference and nothing else.
  /// \name The reference store
  ///@{

  /// The reference database.
  ///
  /// The reference database (the catalogues Gemeinden, BMVG_Kassen,
  /// DM_Austrittsgründe, Länder, Länder_Indikatoren); setting it stores the
  /// reference and nothing else. It may stay unset, with these consequences: the
  /// career has no exit reasons, the employer's municipality is not found, and
  /// clsLänder::Load fails, as does the load of an employer that has a row in
  /// Mandanten_BMVG_Kasse (clsBMVG_Kasse::Load).
  const StoreConnectionPtr& ImportDB() const { return import_db_; }
  void SetImportDB(StoreConnectionPtr pDB) { import_db_ = std::move(pDB); }
  ///@}

  /// The countries (clsLänder), made with the session, empty until Länder()->Load().
  const std::shared_ptr<clsLänder>& Länder() const { return laender_; }
  /// The per-user setting Ormelix/Debug/Entwicklungsmodus (default 0).
  std::int16_t DevelopmentMode() const;
  /// StorePath of the reference database if it is open, else "". Fails when no
  /// reference database is set at all.
  std::string ImportDBPath() const;

  /// \name The current employer
  ///@{

  /// The current employer.
  ///
  /// The current employer: unset until the first ChangeAktMandant, then one object
  /// reused for every employer selected. Setting it replaces the object and loads
  /// nothing.
  const std::shared_ptr<clsMandant>& AktMandant() const { return akt_mandant_; }
  void SetAktMandant(std::shared_ptr<clsMandant> pMandant) { akt_mandant_ = std::move(pMandant); }
  ///@}

  /// \name The current employee
  ///@{

  /// Current employee: its ID ("" when none) and its Index in Mitarbeiter (0 when none).
  std::string AktMitarbeiterID;
  std::int16_t AktMitarbeiterIndex = 0;
  ///@}

  /// The employees of the current employer (clsMitarbeiter), made with the session;
  /// filled by Mitarbeiter()->Load().
  const std::shared_ptr<clsMitarbeiter>& Mitarbeiter() const { return mitarbeiter_; }
  /// The folders of base values (clsBasisdaten), made with the session; filled by
  /// Basis()->Load().
  const std::shared_ptr<clsBasisdaten>& Basis() const { return basis_; }

  /// \name Current year and month
  ///@{

  /// Current year and month: plain numbers, no range check, no reload. 0 until set.
  /// AktJahr is the year of every later load; AktMonat the default month of a save.
  std::int16_t AktJahr = 0;
  std::int16_t AktMonat = 0;
  ///@}

  /// The period of AktJahr and AktMonat, or of another month of AktJahr.
  std::int32_t GetZeitraum(std::int16_t pAnderesMonat = 0) const;
  /// StorePath of AktDB; "" when there is none or it is not open.
  std::string AktDBPath() const;
  /// The settings table of the payroll store (clsSettings), made with the session.
  const std::shared_ptr<clsSettings>& Settings() const { return settings_; }
  /// True when AktDB is set and open.
  bool IsOpenDatabase() const;

  /// Selects an employer: with an ID, loads it into AktMandant (created on first
  /// use and reused afterwards); with anything else, drops AktMandant.
  /// Reads the row of Mandanten and the side records (Mandanten_Bankverbindung,
  /// Mandanten_BMVG_Kasse with BMVG_Kassen, Mandanten_Finanzamt, Mandanten_Kommunal
  /// with Gemeinden, Mandanten_Beitragskonten with Versicherungsträger,
  /// Mandanten_PDFEncrypt); not the year data, which clsMandant::ChangeYear loads.
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

/// The session as the host holds it.
using ManagerPtr = std::shared_ptr<clsManager>;

/// The back reference of the session's children: not owning, so that no cycle
/// keeps the session alive. Using it after the session has ended is an Error.
class ManagerRef {
 public:
  /// Points at the session (not owning it).
  void Set(const std::shared_ptr<clsManager>& manager) { manager_ = manager; }
  /// True while the session lives.
  bool IsSet() const { return !manager_.expired(); }
  /// The session; an Error when it was never set or has ended.
  std::shared_ptr<clsManager> Get() const;

 private:
  std::weak_ptr<clsManager> manager_;
};

}  // namespace ormelix
