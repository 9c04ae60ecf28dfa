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
  // Handed on, in this order, to Bankverbindung, BMVG_Kasse, Finanzamt, Kommunal,
  // Jahresdaten, Beitragskonten and PDFEncrypt as those records come in.
  return {};
}

Variant clsMandant::InitImportDB(const StoreConnectionPtr& pImportDatabase) {
  import_db_ = pImportDatabase;
  // Handed on to BMVG_Kasse and Kommunal, the two records that look up catalogues.
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
  if (pRekursiv) SaveSideRecords();
  rs->Close();
  return true;
}

void clsMandant::LoadSideRecords() {
  // The side records load with the employer's ID, in this order: Bankverbindung,
  // BMVG_Kasse, Finanzamt, Kommunal, Beitragskonten, PDFEncrypt. The year data
  // (Jahresdaten) is not among them: it has a load of its own (ChangeYear).
}

void clsMandant::SaveSideRecords() {
  // Saved with the employer, in this order: Bankverbindung, BMVG_Kasse (without a
  // fund), Finanzamt, Kommunal (without a municipality), PDFEncrypt. Jahresdaten
  // has an Update of its own; Beitragskonten cannot be written.
}

void clsMandant::LoadYearData() {
  // Jahresdaten: LoadMandantJahresdaten(ID, Jahr), and nothing else.
}

}  // namespace ormelix
