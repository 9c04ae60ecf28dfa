#include "show/month_benefits.h"

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "cli.h"
#include "common/properties.h"
#include "common/values.h"
#include "ormelix/benefits/sachbezuege.h"
#include "ormelix/benefits/sachbezuege_columns.h"
#include "ormelix/employee/mitarbeiter_list.h"
#include "ormelix/employee/mod_database.h"
#include "ormelix/error.h"
#include "show/show.h"

namespace cli {

using namespace ormelix;

namespace {

// The computed figures of a short-time record, by property (or function) name.
std::vector<std::pair<const char*, double>> ShortTimeFigures(const LLohn_Kurzarbeit& k) {
  return {{"SVBGAliquot", k.SVBGAliquot()},
          {"BVBGAliquot", k.BVBGAliquot()},
          {"Referenzentgelt", k.Referenzentgelt()},
          {"MindestentgeltBruttoAufschlag", k.MindestentgeltBruttoAufschlag()},
          {"MindestentgeltBruttoAliquot", k.MindestentgeltBruttoAliquot()},
          {"MindestentgeltBruttoMitAufschlagAliquot", k.MindestentgeltBruttoMitAufschlagAliquot()},
          {"KurzarbeitsbonusAliquot", k.KurzarbeitsbonusAliquot().AsDouble()},
          {"GesamtStunden", k.GesamtStunden()},
          {"ErmittleMaxTage", k.ErmittleMaxTage()},
          {"ErmittleMaxTageSV", k.ErmittleMaxTageSV()},
          {"ErmittleMaxTageSVKurzareit", k.ErmittleMaxTageSVKurzareit()},
          {"ErmittleMaxTageSVOhneKurzareit", k.ErmittleMaxTageSVOhneKurzareit()}};
}

std::vector<std::pair<const char*, double>> Sums(const LLohn_Ersatzleistungen& list) {
  return {{"ALV_Basis_Gesamt", list.ALV_Basis_Gesamt()},
          {"ALV_Gesamt", list.ALV_Gesamt()},
          {"SV_Laufend_Basis_Gesamt", list.SV_Laufend_Basis_Gesamt()},
          {"SV_Laufend_DN_Gesamt", list.SV_Laufend_DN_Gesamt()},
          {"SV_N70_Laufend_DN_Gesamt", list.SV_N70_Laufend_DN_Gesamt()},
          {"SV_N70_Laufend_DG_Gesamt", list.SV_N70_Laufend_DG_Gesamt()},
          {"SV_Laufend_DG_Gesamt", list.SV_Laufend_DG_Gesamt()},
          {"NeuFög_Laufend_Gesamt", list.NeuFög_Laufend_Gesamt()},
          {"SV_Laufend_DGA_Gesamt", list.SV_Laufend_DGA_Gesamt()}};
}

bool AllBlank(const std::vector<ColumnValue>& values) {
  for (const ColumnValue& value : values)
    if (!IsBlank(value)) return false;
  return true;
}

// The benefits in kind as a host gets them through Load. For a period without a
// row the defaults take the federal state from the employee in the session's
// list, so the list of the year is loaded for that case only; an employee it does
// not hold (one who left before the year) has no defaults.
std::optional<clsMitarbeiter_Sachbezüge> LoadBenefits(clsManager& manager, const std::string& employee,
                                                      std::int32_t period) {
  clsMitarbeiter_Sachbezüge benefits;
  benefits.Init(manager.shared_from_this());
  try {
    benefits.Load(employee, period);
    return benefits;
  } catch (const KeyNotFound&) {
  }
  {
    Progress progress("loading employees for the defaults of the benefits in kind");
    manager.Mitarbeiter()->SetProgress([&progress](long done, long total) { progress.Step(done, total); });
    manager.Mitarbeiter()->Load(manager.AktJahr);
    manager.Mitarbeiter()->SetProgress(nullptr);
  }
  try {
    benefits.Load(employee, period);
    return benefits;
  } catch (const KeyNotFound&) {
    return std::nullopt;
  }
}

json::Value BenefitsJson(clsMitarbeiter_Sachbezüge& benefits) {
  json::Value object = json::Value::MakeObject();
  object.Set("ID", benefits.ID());
  AddColumns(object, SachbezuegeColumns(), benefits);
  return object;
}

}  // namespace

void AddShortTimeAndBenefits(json::Value& document, clsManager& manager, LLohn& lohn, int month, std::int32_t period) {
  LLohn_Kurzarbeit& k = *lohn.Kurzarbeit(month);
  json::Value& shorttime = document.Set("Kurzarbeit", ColumnsJson(modDatabase::KurzarbeitColumns(), k));
  for (const auto& [name, value] : ShortTimeFigures(k)) shorttime.Set(name, value);

  const LLohn_Ersatzleistungen& list = *lohn.SV_EL_Laufend(month);
  json::Value& benefits = document.Set("SV_EL_Laufend", json::Value::MakeObject());
  benefits.Set("Count", list.Count());
  for (const auto& [name, value] : Sums(list)) benefits.Set(name, value);
  json::Value& entries = benefits.Set("Col", json::Value::MakeArray());
  for (const auto& entry : list) {
    json::Value& object = entries.Push(ColumnsJson(modDatabase::ErsatzleistungColumns(), *entry));
    object.Set("SV_Laufend_Gesamt", entry->SV_Laufend_Gesamt());
  }

  auto in_kind = LoadBenefits(manager, lohn.ID(), period);
  document.Set("Sachbezüge", in_kind ? BenefitsJson(*in_kind) : json::Value());
}

void PrintShortTimeAndBenefits(std::ostream& out, clsManager& manager, LLohn& lohn, int month, std::int32_t period) {
  LLohn_Kurzarbeit& k = *lohn.Kurzarbeit(month);
  const auto stored = ColumnValues(modDatabase::KurzarbeitColumns(), k);
  if (AllBlank(stored)) {
    out << "\nKurzarbeit\n  keine Kurzarbeit in diesem Monat\n";
  } else {
    PrintPairs(out, "Kurzarbeit (leere Felder ausgelassen; alle mit --json)", stored, true);
    Properties figures;
    for (const auto& [name, value] : ShortTimeFigures(k)) figures.Decimal(name, value);
    out << "\n";
    figures.Print(out, "Kurzarbeit, berechnet", "");
  }

  const LLohn_Ersatzleistungen& list = *lohn.SV_EL_Laufend(month);
  if (list.Count() == 0) out << "\nErsatzleistungen (SV_EL_Laufend)\n  keine Ersatzleistung in diesem Monat\n";
  for (const auto& entry : list)
    PrintPairs(out, "Ersatzleistung für " + std::to_string(entry->Zeitraum) + " (leere Felder ausgelassen)",
               ColumnValues(modDatabase::ErsatzleistungColumns(), *entry), true);
  if (list.Count() > 0) {
    Properties sums;
    for (const auto& [name, value] : Sums(list)) sums.Decimal(name, value);
    out << "\n";
    sums.Print(out, "Ersatzleistungen, Summen (" + std::to_string(list.Count()) + ")", "");
  }

  auto in_kind = LoadBenefits(manager, lohn.ID(), period);
  if (!in_kind) {
    out << "\nSachbezüge " << period << "\n  keine Zeile, und ohne Zeile keine Vorgaben: der Mitarbeiter ist nicht "
        << "in der Liste des Jahres\n";
    return;
  }
  const std::string title = "Sachbezüge " + std::to_string(period) +
                            (in_kind->ID().empty() ? ": keine Zeile gespeichert, die Vorgaben von Load"
                                                   : " (leere Felder ausgelassen; alle mit --json)");
  PrintPairs(out, title, ColumnValues(SachbezuegeColumns(), *in_kind), true);
}

}  // namespace cli
