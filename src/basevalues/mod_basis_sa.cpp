// The contribution rates: Basiswerte_Zeittabelle_SA (one row per dated table) and
// Basiswerte_Zeittabelle_SA_Werte (16 rows, by VGruppe). The value rows are read
// from one recordset over the whole value table, picked by Filter. The three flat
// values are the only values of the base values read without rounding.
#include <string>

#include "basis_rows.h"
#include "basis_store.h"
#include "ormelix/basevalues/basis_columns.h"
#include "ormelix/basevalues/mod_basiswerte.h"
#include "ormelix/store/value_helpers.h"

namespace ormelix::modBasiswerte {

using namespace ValueHelpers;

namespace {

constexpr const char* kHead = "Basiswerte_Zeittabelle_SA";
constexpr const char* kAllValues = "SELECT * FROM [Basiswerte_Zeittabelle_SA_Werte]";

detail::GroupRow ValueRow(const std::string& parent_id, int group) { return {"SAID", parent_id, "VGruppe", group}; }

}  // namespace

const ColumnSet<LBasis_SA>& SAColumns() {
  using S = LBasis_SA;
  static const ColumnSet<S> columns{
      {"ServiceEntgelt", Member<&S::ServiceEntgelt>, LoadAs::Amount, SaveAs::Direct},
      {"Auflösungsabgabe", Member<&S::Auflösungsabgabe>, LoadAs::Amount, SaveAs::Direct},
      {"BeitragssatzAÜG", Member<&S::BeitragssatzAÜG>, LoadAs::Amount, SaveAs::Direct},
  };
  return columns;
}

const ColumnSet<LBasis_SA_Wert>& SAWerteColumns() {
  using W = LBasis_SA_Wert;
  static const ColumnSet<W> columns{
      {"Prozent_DN", Member<&W::Prozent>, LoadAs::Round2, SaveAs::Direct},
      {"Prozent_DG", Member<&W::Prozent_DG>, LoadAs::Round2, SaveAs::Direct},
      {"Obergrenze", Member<&W::Obergrenze>, LoadAs::Round2, SaveAs::Direct},
      {"Sonderzahlung", Member<&W::Sonderzahlung>, LoadAs::Round2, SaveAs::Direct},
  };
  return columns;
}

const std::array<eBasisSAVersicherungsgruppe, 16>& SAGruppen() {
  static const std::array<eBasisSAVersicherungsgruppe, 16> groups{
      eBasisSAArbeitslosenversicherung,        eBasisSAArbeitslosenversicherungLehrlinge2016,
      eBasisSAKrankenversicherung,             eBasisSAKrankenversicherungArbeiter,
      eBasisSAKrankenversicherungAngestellte,  eBasisSAKrankenversicherungFreierMitarbeiter,
      eBasisSAKrankenversicherungLehrlinge2016, eBasisSAKrankenversicherungLehrlingeBis2016,
      eBasisSAPensionsversicherung,            eBasisSAKammerumlage,
      eBasisSALandArbeiterKammerumlage,        eBasisSAWohnbaufoederung,
      eBasisSASchlechtwetter,                  eBasisSAUnfallversicherung,
      eBasisSAIESGZuschlag,                    eBasisSANachtschwerarbeit};
  return groups;
}

void LoadBasisSA(clsManager& pManager, LBasis_SA& pSA, const std::string& pZeittabellenID) {
  auto head = detail::OpenRead(pManager, detail::RowOfTable(kHead, pZeittabellenID));
  auto values = detail::OpenRead(pManager, kAllValues);
  if (!head->Eof()) {
    std::string parent_id = ToText(head->Fields("ID"));
    std::vector<int> bound = SAWerteColumns().Bind(*values);
    for (eBasisSAVersicherungsgruppe group : SAGruppen())
      detail::LoadGroupRow(*values, ValueRow(parent_id, group), SAWerteColumns(), *pSA.Gruppe(group), bound);
  }
  // Read whether or not there is a row: without one they read as 0.
  SAColumns().Load(pSA, *head);
  head->Close();
  values->Close();
}

void SaveBasisSA(clsManager& pManager, LBasis_SA& pSA, const std::string& pZeittabellenID) {
  StoreWriteTransaction save(detail::PayrollStore(pManager), StoreWriteTransaction::KeepWritten);
  auto head = detail::OpenWrite(pManager, detail::RowOfTable(kHead, pZeittabellenID));
  auto values = detail::OpenWrite(pManager, kAllValues);
  std::string parent_id = detail::SaveHeadRow(*head, SAColumns(), pSA, pZeittabellenID);
  for (eBasisSAVersicherungsgruppe group : SAGruppen())
    detail::SaveGroupRow(*values, ValueRow(parent_id, group), SAWerteColumns(), *pSA.Gruppe(group));
  head->Close();
  values->Close();
  save.Commit();
}

}  // namespace ormelix::modBasiswerte
