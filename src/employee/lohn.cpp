#include "ormelix/employee/lohn.h"

#include "ormelix/employee/mod_database.h"
#include "ormelix/session/manager.h"
#include "ormelix/store/rounding_helpers.h"
#include "ormelix/store/value_helpers.h"
#include "month_check.h"
#include "store_access.h"

namespace ormelix {

namespace {

using namespace modDatabase;

// A step of Update and Refresh is on when pUpdate is 0 (all tables) or has its bit.
bool On(int pUpdate, eUpdateConstants bit) { return pUpdate == ucAllTables || (pUpdate & bit) != 0; }

// Reads the flagged tables in the fixed order of a load.
void LoadTables(clsManager& manager, LLohn& lohn, const std::string& id, int pUpdate) {
  if (On(pUpdate, ucTableMitarbeiter)) LoadMitarbeiterRecord(manager, lohn, id);
  if (On(pUpdate, ucTableBankverbindung)) LoadBankverbindung(manager, lohn, id);
  if (On(pUpdate, ucTableLohnarten)) LoadLohnarten(manager, lohn, id);
  if (On(pUpdate, ucTableLohnzettel)) LoadLohnzettel(manager, lohn, id);
  if (On(pUpdate, ucTableÜbertritte)) LoadUebertritte(manager, lohn, id);
  if (On(pUpdate, uctableJahresdaten)) LoadJahresdaten(manager, lohn, id);
  if (On(pUpdate, ucTablePDFEncrypt)) LoadPDFEncrypt(manager, lohn, id);
}

// The months that the flagged saves write must be 1..12, checked before the first
// of them writes: the wage-type lines and the transfer take AktMonat, the pay
// record pMonat (AktMonat for 0).
void RequireSaveMonths(const clsManager& manager, int pUpdate, std::int16_t pMonat) {
  if (On(pUpdate, ucTableLohnarten) || On(pUpdate, ucTableÜbertritte))
    RequireSaveMonth("LLohn.Update", "AktMonat", manager.AktMonat);
  if (On(pUpdate, ucTableLohnzettel))
    RequireSaveMonth("LLohn.Update", pMonat == 0 ? "AktMonat" : "pMonat", pMonat == 0 ? manager.AktMonat : pMonat);
}

// The part of the month's lines of group t that carries the marking, when the
// month's lines add up to the base amount; else 0. The result is not rounded.
double MarkedPart(const LLohn& lohn, int t, float base, const MonthGrid<bool, 1, 5>& marking, int month) {
  double total = 0;
  double marked = 0;
  if (base > 0) {
    for (int line = 1; line <= 5; ++line) {
      double amount = RoundingHelpers::MultiplyExact(lohn.ZSL_Anzahl(t, line, month),
                                                     Variant(lohn.ZSL_Satz(t, line, month)), 2) +
                      lohn.ZSL_Betrag(t, line, month);
      total += amount;
      if (marking(line, month)) marked += amount;
    }
  }
  return RoundingHelpers::RoundTo(total, 2) == RoundingHelpers::RoundTo(base, 2) ? marked : 0;
}

}  // namespace

LLohn::LLohn() = default;

void LLohn::LoadMitarbeiter(clsManager& Manager, const std::string& pMitarbeiterID, std::int16_t pIndex) {
  id_ = pMitarbeiterID;
  index_ = pIndex;
  const std::shared_ptr<clsManager> session = Manager.shared_from_this();
  const detail::LoadSnapshot snapshot(Manager);  // all tables of the employee as of one moment
  laufbahn_->InitLaufbahnen(session, pMitarbeiterID);
  laufbahn_->Load();
  kinder_->InitKinder(session, pMitarbeiterID);
  kinder_->Load();
  LoadTables(Manager, *this, id_, ucAllTables);
}

void LLohn::Update(clsManager& Manager, int pUpdate, std::int16_t pMonat) {
  RequireSaveMonths(Manager, pUpdate, pMonat);
  if (On(pUpdate, ucTableMitarbeiter)) SaveMitarbeiterRecord(Manager, *this, id_);
  if (On(pUpdate, ucTableBankverbindung)) SaveBankverbindung(Manager, *this, id_);
  if (On(pUpdate, ucTableLohnarten)) SaveLohnarten(Manager, *this, id_);
  if (On(pUpdate, ucTableLohnzettel)) SaveLohnzettel(Manager, *this, id_, pMonat);
  if (On(pUpdate, ucTableÜbertritte)) SaveUebertritte(Manager, *this, id_);
  if (On(pUpdate, uctableJahresdaten)) SaveJahresdaten(Manager, *this, id_);
  if (On(pUpdate, ucTablePDFEncrypt)) SavePDFEncrypt(Manager, *this, id_);
}

void LLohn::Refresh(clsManager& Manager, int pUpdate) {
  const detail::LoadSnapshot snapshot(Manager);
  LoadTables(Manager, *this, id_, pUpdate);
}

std::string LLohn::BeitragskontoID(clsManager& Manager, std::int32_t pZeitraum) const {
  auto rs = PayrollStore(Manager).OpenRecordset("SELECT * FROM [Mitarbeiter_Beitragskonto] WHERE [MitarbeiterID]=" +
                                                ValueHelpers::SqlID(id_) + " ORDER BY [Zeitraum] DESC");
  std::string result;
  if (!rs->Eof()) {
    // Newest first: the first row not after the period is the entry in force. When
    // all rows are later, the filter finds none and the conversion gives "".
    rs->Filter("[Zeitraum]<=" + std::to_string(pZeitraum));
    result = ValueHelpers::ToText(rs->Fields("BeitragskontoID"));
  }
  rs->Close();
  return result;
}

double LLohn::GetDBDZKST_frei(std::int16_t pMonat) const {
  return MarkedPart(*this, 1, LFD_Bezuege(pMonat), ZSL_DBDZKST_frei, pMonat);
}

double LLohn::GetTeuerungsprämie(std::int16_t pMonat) const {
  return MarkedPart(*this, 2, LFD_Bezuege_LS_frei(pMonat), ZSL_Teuerungsprämie, pMonat);
}

double LLohn::GetTeuerungsprämieKV(std::int16_t pMonat) const {
  return MarkedPart(*this, 2, LFD_Bezuege_LS_frei(pMonat), ZSL_TeuerungsprämieKV, pMonat);
}

double LLohn::GetMitarbeitergewinnbeteiligung(std::int16_t pMonat) const {
  return MarkedPart(*this, 3, LFD_Bezuege_LS_frei_pfl(pMonat), ZSL_Mitarbeitergewinnbeteiligung, pMonat);
}

}  // namespace ormelix
