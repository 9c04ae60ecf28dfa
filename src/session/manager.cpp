#include "ormelix/session/manager.h"

#include "ormelix/basevalues/basisdaten.h"
#include "ormelix/countries/laender.h"
#include "ormelix/employee/mitarbeiter_list.h"
#include "ormelix/employee/lohn.h"
#include "ormelix/employer/mandant.h"
#include "ormelix/error.h"
#include "ormelix/session/settings.h"
#include "ormelix/session/user_settings.h"
#include "ormelix/session/zeitraum.h"
#include "ormelix/store/date_helpers.h"
#include "ormelix/store/value_helpers.h"

namespace ormelix {

std::shared_ptr<clsManager> ManagerRef::Get() const {
  auto manager = manager_.lock();
  if (!manager) throw Error("the session (clsManager) has ended or was never given");
  return manager;
}

std::shared_ptr<clsManager> clsManager::Create() {
  auto manager = std::make_shared<clsManager>(Token{});
  manager->settings_ = std::make_shared<clsSettings>();
  manager->mitarbeiter_ = std::make_shared<clsMitarbeiter>();
  manager->mitarbeiter_->SetManager(manager);
  manager->basis_ = std::make_shared<clsBasisdaten>();
  manager->basis_->SetManager(manager);
  manager->laender_ = std::make_shared<clsLänder>();
  manager->laender_->SetManager(manager);
  return manager;
}

clsManager::clsManager(Token) {}

clsManager::~clsManager() {
  settings_.reset();  // its own end closes the settings table
  akt_mandant_.reset();
  mitarbeiter_.reset();
  basis_.reset();
  laender_.reset();
  try {
    TeardownStore();
  } catch (...) {
    // A store that cannot be closed at the end of the session has nothing left to lose.
  }
}

void clsManager::TeardownStore() {
  if (settings_) settings_->CloseSettings();
  if (akt_db_) akt_db_->Session().CloseStore();
  akt_db_.reset();
  import_db_.reset();
}

void clsManager::TakeSettingsDatabase() {
  settings_->SetSettingsDatabase(akt_db_);
  settings_->OpenSettings();
}

void clsManager::SetAktDB(StoreConnectionPtr pDB) {
  TeardownStore();
  akt_db_ = std::move(pDB);
  TakeSettingsDatabase();
}

void clsManager::OpenAktDB(StoreConnectionPtr pDB) {
  CloseAktDB();
  if (!pDB) {
    if (!akt_db_) throw Error("OpenAktDB: there is no database to reopen; hand over a StoreConnection first");
    akt_db_->Session().OpenStore(stored_path_, stored_connect_);
  } else {
    akt_db_ = std::move(pDB);
    stored_path_ = akt_db_->Session().StorePath();
    stored_connect_ = akt_db_->Session().StoreConnect();
  }
  TakeSettingsDatabase();
}

void clsManager::CloseAktDB() {
  if (akt_db_ && akt_db_->Session().IsOpen()) {
    settings_->CloseSettings();
    akt_db_->Session().CloseStore();
  }
}

std::int16_t clsManager::DevelopmentMode() const {
  std::string value = GetUserSetting("Ormelix", "Debug", "Entwicklungsmodus", "0");
  try {
    return ValueHelpers::ToInteger(Variant(value));
  } catch (const std::exception&) {
    throw ConversionError("the setting Entwicklungsmodus in [Debug] of " + UserSettingsPath("Ormelix") +
                          " is no number: " + value);
  }
}

std::string clsManager::ImportDBPath() const {
  if (!import_db_) throw Error("ImportDBPath: no reference database (ImportDB) is set");
  return import_db_->Session().IsOpen() ? import_db_->Session().StorePath() : "";
}

std::int32_t clsManager::GetZeitraum(std::int16_t pAnderesMonat) const {
  return ComposeZeitraum(AktJahr, pAnderesMonat == 0 ? AktMonat : pAnderesMonat);
}

std::string clsManager::AktDBPath() const {
  if (!akt_db_ || !akt_db_->Session().IsOpen()) return "";
  return akt_db_->Session().StorePath();
}

bool clsManager::IsOpenDatabase() const { return akt_db_ && akt_db_->Session().IsOpen(); }

Variant clsManager::ChangeAktMandant(const std::string& pID) {
  if (DateHelpers::IsID(Variant(pID))) {
    if (!akt_mandant_) {
      akt_mandant_ = std::make_shared<clsMandant>();
      akt_mandant_->InitImportDB(import_db_);
    }
    akt_mandant_->InitLohnDB(akt_db_);
    akt_mandant_->LoadMandant(pID, false);
  } else {
    akt_mandant_.reset();
  }
  return {};
}

Variant clsManager::ChangeAktMitarbeiter(const std::string& pID) {
  if (DateHelpers::IsID(Variant(pID))) {
    AktMitarbeiterID = pID;
    AktMitarbeiterIndex = mitarbeiter_->Item(Variant(pID))->Index();
  } else {
    AktMitarbeiterID.clear();
    AktMitarbeiterIndex = 0;
  }
  return {};
}

}  // namespace ormelix
