// LLohn_Kind: the child's load and the three questions of the current period.
#include "ormelix/children/kind.h"

#include "../session/store_access.h"
#include "entry_reader.h"
#include "ormelix/children/kind_zeitbezug.h"
#include "ormelix/error.h"
#include "ormelix/store/recordset.h"
#include "ormelix/store/value_helpers.h"

namespace ormelix {

namespace {

// "SELECT * FROM [Mitarbeiter_Kinder_ZB] WHERE [KID]=" with the child's key.
std::string EntriesOf(const std::string& child_id) {
  return "SELECT * FROM [Mitarbeiter_Kinder_ZB] WHERE [KID]=" + ValueHelpers::SqlID(child_id);
}

std::string UpTo(std::int32_t period) { return "[Zeitraum]<=" + std::to_string(period); }

// The child's entries whose FB_Bezieher compares to 0 as `fb` says ("<>" or "="),
// or that have no AVAB, newest first.
std::unique_ptr<Recordset> OpenEntriesWhere(const clsManager& manager, const std::string& child_id, const char* fb) {
  return detail::OpenRead(manager, EntriesOf(child_id) + " AND ([FB_Bezieher]" + fb + "0" +
                                       " OR [AVAB]=FALSE) ORDER BY [Zeitraum] DESC");
}

}  // namespace

void LLohn_Kind::LoadKind(const std::shared_ptr<clsManager>& pManager) {
  manager_.Set(pManager);
  zeitbezuege_->InitZeitbezuege(pManager, ID);
  zeitbezuege_->Load();
}

std::string LLohn_Kind::Name() const { return ValueHelpers::TrimText(VorName + " " + Nachname); }

std::shared_ptr<clsManager> LLohn_Kind::Session(const char* operation) const {
  if (!manager_.IsSet())
    throw Error(std::string("LLohn_Kind.") + operation + ": the child " + (ID.empty() ? "(no ID)" : ID) +
                " has no session; only the children of a loaded LLohn_Kinder can ask the store");
  return manager_.Get();
}

std::int32_t LLohn_Kind::Eingang(bool& retIsAVAE) const {
  const auto manager = Session("Eingang");
  const std::int32_t period = manager->GetZeitraum(0);
  auto rs = detail::OpenRead(*manager, EntriesOf(ID) + " ORDER BY [Zeitraum] DESC");
  const detail::EntryReader entry(*rs, ID);
  retIsAVAE = true;
  std::int32_t result = 0;
  if (!rs->Eof()) {
    rs->Filter(UpTo(period));
    if (rs->Eof()) {
      // Every entry lies after the period: the earliest one decides.
      rs->Filter("");
      rs->MoveLast();
      if (entry.Flag("AVAB")) result = entry.Long("Zeitraum");
      else retIsAVAE = false;
    } else {
      // Back from the entry in force to the last loss of the entitlement; the
      // earliest entry with AVAB on the way is the beginning.
      retIsAVAE = false;
      for (; !rs->Eof() && entry.Integer("FB_Bezieher") != eFBB_Wegfall; rs->MoveNext()) {
        if (!entry.Flag("AVAB")) continue;
        result = entry.Long("Zeitraum");
        retIsAVAE = true;
      }
    }
  }
  rs->Close();
  return result;
}

std::int32_t LLohn_Kind::ZUab() const {
  const auto manager = Session("ZUab");
  auto rs = OpenEntriesWhere(*manager, ID, "<>");
  std::int32_t result = 0;
  if (!rs->Eof()) {
    rs->Filter(UpTo(manager->GetZeitraum(0)));
    if (rs->Eof()) {
      rs->Filter("");
      rs->MoveLast();
    }
    result = detail::EntryReader(*rs, ID).Long("Kinderzuschlag_ab");
  }
  rs->Close();
  return result;
}

std::int32_t LLohn_Kind::Abgang() const {
  const auto manager = Session("Abgang");
  auto rs = OpenEntriesWhere(*manager, ID, "=");
  std::int32_t result = 0;
  if (!rs->Eof()) {
    rs->Filter(UpTo(manager->GetZeitraum(0)));
    if (!rs->Eof()) result = detail::EntryReader(*rs, ID).Long("Zeitraum");
  }
  rs->Close();
  return result;
}

}  // namespace ormelix
