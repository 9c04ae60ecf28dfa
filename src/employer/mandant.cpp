#include "ormelix/employer/mandant.h"

#include "ormelix/store/columns.h"
#include "ormelix/store/date_helpers.h"
#include "ormelix/store/value_helpers.h"

namespace ormelix {

namespace {

using M = clsMandant;

// The columns of Mandanten in the order they are written; the two crossings are
// entries with a property of their own for the save, and the start of the second
// relief is read from one column and written to another.
const ColumnSet<M>& MandantenColumns() {
  static const ColumnSet<M> columns{
      {"Name", Member<&M::Name>, LoadAs::Text, SaveAs::Direct},
      {"Zusatz", Member<&M::Zusatz>, LoadAs::Text, SaveAs::Direct},
      {"Strasse", Member<&M::Strasse>, LoadAs::Text, SaveAs::Direct},
      {"KFZ", Member<&M::KFZ>, LoadAs::Text, SaveAs::Direct},
      {"PLZ", Member<&M::PLZ>, LoadAs::Text, SaveAs::Direct},
      {"Ort", Member<&M::Ort>, LoadAs::Text, SaveAs::Direct},
      {"Telefon", Member<&M::Telefon>, LoadAs::Text, SaveAs::Direct},
      {"Telefax", Member<&M::Telefax>, LoadAs::Text, SaveAs::Direct},
      {"EMail", Member<&M::EMail>, LoadAs::Text, SaveAs::Direct, Member<&M::Homepage>},
      {"Homepage", Member<&M::Homepage>, LoadAs::Text, SaveAs::Direct, Member<&M::EMail>},
      {"DVR", Member<&M::DVR>, LoadAs::Text, SaveAs::Direct},
      {"Neufög", Member<&M::Neufög>, LoadAs::Flag, SaveAs::Direct},
      {"Neufög_Von", Member<&M::Neufög_Von>, LoadAs::Date, SaveAs::Direct},
      {"Neufög_Bis", Member<&M::Neufög_Bis>, LoadAs::Date, SaveAs::Direct},
      {"NeufögV", Member<&M::NeufögV>, LoadAs::Flag, SaveAs::Direct},
      {"NeufögV_Von", Member<&M::NeufögV_Von>, LoadAs::Date, SaveAs::None},
      {"NeufögV_Neu", Member<&M::NeufögV_Von>, LoadAs::None, SaveAs::Direct},
      {"Betriebsart", Member<&M::Betriebsart>, LoadAs::Text, SaveAs::Direct},
      {"BuchungslisteELGesamt", Member<&M::BuchungslisteELGesamt>, LoadAs::Flag, SaveAs::Direct},
  };
  return columns;
}

}  // namespace

Variant clsMandant::InitLohnDB(const StoreConnectionPtr& pLohnDatabase) {
  lohn_db_ = pLohnDatabase;
  bankverbindung_->InitLohnDB(pLohnDatabase);
  bmvg_kasse_->InitLohnDB(pLohnDatabase);
  finanzamt_->InitLohnDB(pLohnDatabase);
  kommunal_->InitLohnDB(pLohnDatabase);
  jahresdaten_->InitLohnDB(pLohnDatabase);
  beitragskonten_->InitLohnDB(pLohnDatabase);
  pdf_encrypt_->InitLohnDB(pLohnDatabase);
  return {};
}

Variant clsMandant::InitImportDB(const StoreConnectionPtr& pImportDatabase) {
  import_db_ = pImportDatabase;
  // Only the two records that look up catalogues need it.
  bmvg_kasse_->InitImportDB(pImportDatabase);
  kommunal_->InitImportDB(pImportDatabase);
  return {};
}

Variant clsMandant::ChangeYear(std::int16_t pJahr) {
  jahr_ = pJahr;
  LoadMandant(id_, true);
  return {};
}

bool clsMandant::Refresh() {
  LoadMandant(id_, false);
  return LoadMandant(id_, jahr_ != 0);
}

bool clsMandant::LoadMandant(const std::string& pID, bool pNurJahresdaten) {
  if (DateHelpers::IsNothingObject(lohn_db_)) return false;
  auto rs = lohn_db_->Session().OpenRecordset("SELECT * FROM [Mandanten] WHERE [ID]=" + pID, adOpenForwardOnly,
                                              adLockReadOnly);
  if (rs->Eof()) {
    rs->Close();
    return false;
  }
  id_ = ValueHelpers::ToText(rs->Fields("ID"));
  if (pNurJahresdaten) {
    LoadYearData();
  } else {
    MandantenColumns().Load(*this, *rs);
    LoadSideRecords();
  }
  rs->Close();
  return true;
}

bool clsMandant::Update(bool pRekursiv) {
  if (DateHelpers::IsNothingObject(lohn_db_)) return false;
  std::string sql = "SELECT * FROM [Mandanten]";
  if (DateHelpers::IsID(Variant(id_))) sql += " WHERE [ID]=" + id_;
  // The employer's row is one save; each side record is one more.
  StoreWriteTransaction save(lohn_db_->Session(), StoreWriteTransaction::KeepWritten);
  auto rs = lohn_db_->Session().OpenRecordset(sql, adOpenDynamic, adLockOptimistic);
  bool added = rs->Eof();
  if (added) rs->AddNew();
  MandantenColumns().Save(*this, *rs);
  rs->Update();
  if (added) {
    // The key of a new row becomes the employer's ID. A store that does not show
    // it yet is read again and the row found by its Nr.
    if (DateHelpers::IsEmptyText(rs->Fields("ID"))) {
      std::int32_t nr = ValueHelpers::ToLong(rs->Fields("Nr"));
      rs->Requery();
      rs->Filter("[Nr]=" + std::to_string(nr));
    }
    id_ = ValueHelpers::ToText(rs->Fields("ID"));
  }
  rs->Close();
  save.Commit();
  if (pRekursiv) SaveSideRecords();
  return true;
}

void clsMandant::LoadSideRecords() {
  // The year data is not among them: it has a load of its own (ChangeYear).
  bankverbindung_->LoadMandantBankverbindung(id_);
  bmvg_kasse_->Load(id_);
  finanzamt_->LoadMandantFinanzamt(id_);
  kommunal_->LoadMandantKommunal(id_);
  beitragskonten_->LoadMandantBeitragskonten(id_);
  pdf_encrypt_->LoadMandantPDFEncrypt(id_);
}

void clsMandant::SaveSideRecords() {
  // The fund and the municipality are left out, so their columns stay as they
  // are. Jahresdaten has an Update of its own; Beitragskonten cannot be written.
  bankverbindung_->Update(this);
  bmvg_kasse_->Update(this);
  finanzamt_->Update(this);
  kommunal_->Update(this);
  pdf_encrypt_->Update(this);
}

void clsMandant::LoadYearData() { jahresdaten_->LoadMandantJahresdaten(id_, jahr_); }

}  // namespace ormelix
