#include "ormelix/basevalues/basisdaten.h"

#include <string>

#include "basis_store.h"
#include "ormelix/basevalues/mod_basiswerte.h"
#include "ormelix/store/date_helpers.h"
#include "ormelix/store/value_helpers.h"

namespace ormelix {

using namespace ValueHelpers;

namespace {

std::string ByName(const std::string& name) {
  return "SELECT [ID] FROM [Basiswerte] WHERE LCASE([Bezeichnung])=LCASE('" + name + "')";
}

bool IsNumeric(const Variant& value) {
  double number = 0;
  return value.IsNumber() || (value.IsText() && ParseNumber(value.AsText(), number));
}

}  // namespace

std::shared_ptr<clsBasisordner> clsBasisdaten::Item(const Variant& pIndex) const {
  if (DateHelpers::IsID(pIndex) || IsNumeric(pIndex)) return folders_.Item(pIndex);
  auto rs = modBasiswerte::detail::OpenRead(*manager_.Get(), ByName(ToText(pIndex)));
  if (rs->Eof()) return nullptr;
  std::string id = ToText(rs->Fields("ID"));
  rs->Close();
  return folders_.Item(Variant(id));
}

void clsBasisdaten::Clear() {
  auto manager = manager_.Get();
  for (long n = folders_.Count(); n > 0; --n) {
    modBasiswerte::DeleteBasisordner(*manager, folders_.Item(Variant(1))->ID());
    folders_.Remove(Variant(1));
  }
}

void clsBasisdaten::Remove(const std::string& pID) {
  if (!Exist(pID)) return;
  modBasiswerte::DeleteBasisordner(*manager_.Get(), pID);
  folders_.Remove(Variant(pID));
}

bool clsBasisdaten::Exist(const std::string& pID) const {
  try {
    return folders_.HasKey(pID) && folders_.Item(Variant(pID))->ID() == pID;
  } catch (const std::exception&) {
    return false;
  }
}

bool clsBasisdaten::ExistBezeichnung(const std::string& pBezeichnung) const {
  auto rs = modBasiswerte::detail::OpenRead(*manager_.Get(), ByName(pBezeichnung));
  bool found = !rs->Eof();
  rs->Close();
  return found;
}

void clsBasisdaten::Load() {
  auto manager = manager_.Get();
  folders_.Clear();
  // Every folder as of one moment; the value tables that the routine of each dated
  // table reads whole are read once for the load.
  const ormelix::detail::LoadSnapshot snapshot(*manager);
  StoreSharedReads shared(ormelix::detail::SessionOf(manager->AktDB()));
  auto rs = modBasiswerte::detail::OpenRead(
      *manager,
      "SELECT [ID] FROM [Basiswerte] ORDER BY [Standardordner] ASC, [Wiederherstellung] DESC, [Bezeichnung] ASC");
  for (; !rs->Eof(); rs->MoveNext()) {
    auto folder = std::make_shared<clsBasisordner>();
    modBasiswerte::LoadBasisordner(*manager, *folder, ToText(rs->Fields("ID")));
    folder->LoadZeittabellen(*manager);
    folders_.Add(folder, folder->ID());
  }
  rs->Close();
}

void clsBasisdaten::AddItem(const std::shared_ptr<clsBasisordner>& pBasisordner) {
  modBasiswerte::detail::RequireObject(pBasisordner, "clsBasisdaten.AddItem");
  auto manager = manager_.Get();
  modBasiswerte::SaveBasisordner(*manager, *pBasisordner);
  modBasiswerte::InsertBasisordnerSorted(*manager, folders_, pBasisordner);
}

std::shared_ptr<clsBasisordner> clsBasisdaten::AddNew(const std::string& pBezeichnung) {
  if (DateHelpers::IsEmptyText(Variant(pBezeichnung))) return nullptr;
  auto folder = std::make_shared<clsBasisordner>();
  folder->Bezeichnung = pBezeichnung;
  AddItem(folder);
  return folder;
}

std::shared_ptr<clsBasisordner> clsBasisdaten::Copy(const std::shared_ptr<clsBasisordner>& pBasisorder,
                                                    const std::string& pBezeichnung) {
  modBasiswerte::detail::RequireObject(pBasisorder, "clsBasisdaten.Copy");
  auto manager = manager_.Get();
  auto copy = modBasiswerte::CopyBasisordner(*manager, pBasisorder->ID(), pBezeichnung);
  if (!copy)
    throw Error("Copy: the base-value folder '" + pBasisorder->Bezeichnung + "' " + pBasisorder->ID() +
                " is not in the store, so there is nothing to copy");
  modBasiswerte::InsertBasisordnerSorted(*manager, folders_, copy);
  return copy;
}

std::string clsBasisdaten::GetStandardBOrdnerID() const {
  std::string id;
  for (const auto& folder : folders_)
    if (folder->Standardordner) id = folder->ID();
  return id;
}

std::shared_ptr<clsBasisordner> clsBasisdaten::GetStandardBOrdner() const {
  std::string id = GetStandardBOrdnerID();
  if (id.empty()) throw KeyNotFound("", "the base-value folders, none of which is flagged Standardordner");
  return folders_.Item(Variant(id));
}

std::string clsBasisdaten::GetWiederherstellungsBOrdnerID() const {
  std::string id;
  for (long position = folders_.Count(); position >= 1; --position) {
    const auto& folder = folders_.Item(Variant(position));
    if (folder->Wiederherstellung) id = folder->ID();
  }
  return id;
}

std::shared_ptr<clsBasisordner> clsBasisdaten::GetWiederherstellungsBOrdner() const {
  std::string id = GetWiederherstellungsBOrdnerID();
  if (id.empty()) throw KeyNotFound("", "the base-value folders, none of which is flagged Wiederherstellung");
  return folders_.Item(Variant(id));
}

}  // namespace ormelix
