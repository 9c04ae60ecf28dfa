#include "ormelix/basevalues/basis_zeittabellen.h"

#include <string>

#include "basis_store.h"
#include "ormelix/basevalues/basisdaten.h"
#include "ormelix/basevalues/mod_basiswerte.h"
#include "ormelix/store/value_helpers.h"

namespace ormelix {

using namespace ValueHelpers;

void clsBasisZeittabellen::Clear() {
  auto manager = manager_.Get();
  for (long n = tables_.Count(); n > 0; --n) {
    modBasiswerte::DeleteZeittabelle(*manager, tables_.Item(Variant(1))->ID());
    tables_.Remove(Variant(1));
  }
}

void clsBasisZeittabellen::Remove(const std::string& pID) {
  if (!Exist(pID)) return;
  modBasiswerte::DeleteZeittabelle(*manager_.Get(), pID);
  tables_.Remove(Variant(pID));
}

bool clsBasisZeittabellen::Exist(const std::string& pID) const {
  try {
    return tables_.HasKey(pID) && tables_.Item(Variant(pID))->ID() == pID;
  } catch (const std::exception&) {
    return false;
  }
}

bool clsBasisZeittabellen::ExistZeitraum(std::int32_t pZeitraum) const {
  auto rs = modBasiswerte::detail::OpenRead(*manager_.Get(), "SELECT [ID] FROM [Basiswerte_Zeittabelle] WHERE [BasisID]=" +
                                                                   SqlID(basis_id_) +
                                                                   " AND [Datum]=" + std::to_string(pZeitraum));
  bool found = !rs->Eof();
  rs->Close();
  return found;
}

void clsBasisZeittabellen::AddItem(const std::shared_ptr<LBasis>& pBasis) {
  modBasiswerte::detail::RequireObject(pBasis, "clsBasisZeittabellen.AddItem");
  auto manager = manager_.Get();
  modBasiswerte::SaveZeittabelle(*manager, *pBasis, basis_id_);
  modBasiswerte::InsertZeittabelleSorted(*manager, tables_, pBasis, basis_id_);
}

std::shared_ptr<LBasis> clsBasisZeittabellen::AddNew(std::int32_t pZeitraum, const std::string& pBezeichnung) {
  if (pZeitraum <= 0) return nullptr;
  auto manager = manager_.Get();
  auto table = std::make_shared<LBasis>();
  table->Zeitraum()->Item = pZeitraum;
  table->Bezeichnung = pBezeichnung;
  modBasiswerte::SaveZeittabelle(*manager, *table, basis_id_);
  modBasiswerte::InsertZeittabelleSorted(*manager, tables_, table, basis_id_);
  return table;
}

std::shared_ptr<LBasis> clsBasisZeittabellen::Copy(const std::shared_ptr<LBasis>& pBasis, std::int32_t pNewZeitraum,
                                                   const std::string& pBezeichnung) {
  modBasiswerte::detail::RequireObject(pBasis, "clsBasisZeittabellen.Copy");
  auto manager = manager_.Get();
  auto copy = modBasiswerte::CopyZeittabelle(*manager, pBasis->ID(), basis_id_, pNewZeitraum, pBezeichnung);
  if (!copy)
    throw Error("Copy: the dated table '" + pBasis->Bezeichnung + "' " + pBasis->ID() +
                " is not in the store, so there is nothing to copy");
  modBasiswerte::InsertZeittabelleSorted(*manager, tables_, copy, basis_id_);
  return copy;
}

std::shared_ptr<LBasis> clsBasisZeittabellen::GetZeittabelle(std::int32_t pZeitraum) const {
  auto manager = manager_.Get();
  auto folder = manager->Basis()->Item(Variant(basis_id_));
  if (!folder) throw KeyNotFound(basis_id_, "the base-value folders of the session");
  auto rs = modBasiswerte::detail::OpenRead(*manager, "SELECT [ID], [Datum] FROM [Basiswerte_Zeittabelle] WHERE [BasisID]=" +
                                                          SqlID(folder->ID()) + " ORDER BY [Datum] DESC");
  rs->Filter("[Datum]<=" + std::to_string(pZeitraum));
  std::string id;
  if (!rs->Eof()) {
    rs->MoveFirst();
    id = ToText(rs->Fields("ID"));
  } else {
    // A period before every table gets the newest table of the folder.
    rs->Filter("");
    if (!rs->Eof()) {
      rs->MoveFirst();
      id = ToText(rs->Fields("ID"));
    }
  }
  rs->Filter("");
  rs->Close();
  if (id.empty())
    throw KeyNotFound("", "the dated tables of the base-value folder '" + folder->Bezeichnung + "' " + folder->ID() +
                              ", which has no table for period " + std::to_string(pZeitraum) + " or any other");
  return manager->Basis()->Item(Variant(basis_id_))->Zeittabellen()->Item(Variant(id));
}

void clsBasisZeittabellen::LoadZeittabellen(clsManager& pManager, const std::string& pBasisID) {
  manager_.Set(modBasiswerte::detail::Shared(pManager));
  basis_id_ = pBasisID;
  auto rs = modBasiswerte::detail::OpenRead(
      pManager, "SELECT [ID] FROM [Basiswerte_Zeittabelle] WHERE [BasisID]=" + SqlID(pBasisID) + " ORDER BY [Datum] ASC");
  tables_.Clear();
  for (; !rs->Eof(); rs->MoveNext()) {
    auto table = std::make_shared<LBasis>();
    std::string id = ToText(rs->Fields("ID"));
    modBasiswerte::LoadZeittabelle(pManager, *table, id, pBasisID);
    tables_.Add(table, id);
  }
  rs->Close();
}

}  // namespace ormelix
