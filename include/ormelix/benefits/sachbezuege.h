#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "ormelix/session/manager.h"

namespace ormelix {

/// An employee's benefits in kind for one period, one row
/// of Mitarbeiter_Sachbezüge (one row per employee and Zeitraum): board and lodging,
/// housing, a company car, and deputates such as firewood, coal, flour, grain and
/// meat. A pure store of what the user enters: the values of the benefits are
/// worked out by the calling program from these inputs.
///
/// The caller creates the object, hands it the session (Init) and works with Load
/// and Update. Its only logic: the defaults of a period without a row, and the
/// choice of the row at a save.
class clsMitarbeiter_Sachbezüge {
 public:
  /// Keeps the session (not owning it); Load and Update go through it to the store
  /// and fail with Error before it is given or after it has ended.
  void Init(const std::shared_ptr<clsManager>& pManager) { manager_.Set(pManager); }

  /// Fills the object with the row of the employee and the period, and keeps both.
  /// Without a row, ID becomes "" and the values their defaults: everything 0 or
  /// False but Zehntelregelung 10, Baujahr this year, and Bundesland the employee's
  /// DZBundesland of the year data less 1, the employee taken from the session's
  /// employee list (Mitarbeiter.Item; KeyNotFound for an ID the list does not hold).
  /// The result is always False, row or not: a found row shows as a non-empty ID.
  /// A period that is no yyyymm (year 1000..9999, month 1..12) is std::out_of_range
  /// before anything is read or changed. Reads table Mitarbeiter_Sachbezüge (and,
  /// without a row, the year data of the session's employee list).
  bool Load(const std::string& pMitarbeiterID, std::int32_t pZeitraum);

  /// Writes all value columns to a row of the kept employee, chosen by pNewPeriod:
  /// - 0 (save in place): the object's own row, by ID. An object without a row gets
  ///   a new one under the kept period, and its key becomes the object's ID.
  /// - a period (save under another period): the employee's row of that period, or
  ///   a new one under it. The object's ID and kept period stay those of its Load:
  ///   the row under the other period is reached again only by a Load.
  /// A new row is made only where the employee has none for that period: if
  /// another session has written one since the Load (or removed the object's own),
  /// the employee's row of the period is the one written, so that the table keeps
  /// one row per employee and period. pRetID is taken by value: a new key does not
  /// reach the caller. A pNewPeriod other than 0, or the kept period, that is no
  /// yyyymm is std::out_of_range before anything is written (an object never
  /// loaded has no kept period). Writes the row of Mitarbeiter_Sachbezüge, in one
  /// write transaction.
  void Update(std::int32_t pNewPeriod = 0, std::string pRetID = "");

  /// The key of the loaded row; "" when the period had none.
  const std::string& ID() const { return id_; }

  /// \name Board and lodging (Mitarbeiter_Sachbezüge)
  ///@{

  /// Board and lodging. Columns of their own name in the row of the employee and period:
  /// flags by ToFlag, 16-bit numbers by ToInteger, amounts by ToAmount (as they stand).
  bool Volle_freie_Station = false;
  bool für_Ehegatten = false;
  bool für_Kinder_bis_6_Lj = false;
  std::int16_t Anzahl_Kinder_6_Lj = 0;
  bool für_nicht_volljährige_Kinder = false;
  std::int16_t Anzahl_Kinder_nicht_volljährig = 0;
  bool für_volljährige_Kinder = false;
  std::int16_t Anzahl_Kinder_volljährig = 0;
  ///@}

  /// \name Housing (Mitarbeiter_Sachbezüge)
  ///@{

  /// Housing: Zehntelregelung counts tenths.
  ///
  /// Housing: Zehntelregelung counts tenths; Bundesland is an index from 0, one less than
  /// eBasisBundesländer; Baujahr a four-digit year. Columns of their own name in the row
  /// of the employee and period: flags by ToFlag, 16-bit numbers by ToInteger, amounts by
  /// ToAmount (as they stand).
  std::int16_t Zehntelregelung = 0;
  bool Eigenheim = false;
  bool Hausbetreuer = false;
  bool Keine_Normwohnung = false;
  bool dienstnahe_Wohnung = false;
  std::int16_t Bundesland = 0;
  double Mittelpreis_Verbrauchsortes = 0;
  double Wohnungsfläche = 0;
  std::int16_t Baujahr = 0;
  bool angemietete_Wohnung = false;
  double Miete = 0;
  double Betriebskosten = 0;
  bool Betriebskosten_werden_getragen = false;
  bool Heizkosten_werden_getragen = false;
  double Heizkosten = 0;
  double Kostenbeitrag = 0;
  double Dienst_bezahlt_Überlassungspreis = 0;
  bool Einschleifregelung = false;
  ///@}

  /// \name Company car and parking (Mitarbeiter_Sachbezüge)
  ///@{

  /// Company car and parking: Anschaffungsjahr a four-digit year, Anschaffungsmonat a
  /// month. Fahrzeug_mit_Chaffeur is spelt so in the column too. Columns of their own
  /// name in the row of the employee and period: flags by ToFlag, 16-bit numbers by
  /// ToInteger, amounts by ToAmount (as they stand).
  double privat_gefahrene_KM = 0;
  double Anschaffungskosten = 0;
  double Verkehrskostenersatz = 0;
  bool Fahrzeug_mit_Chaffeur = false;
  bool Fahrtenbuch = false;
  bool einmaliger_Kostenbeitrag = false;
  double einmaliger_Kostenbeitrag_Betrag = 0;
  bool monatl_lfd_Kostenbeitrag = false;
  double monatl_lfd_Kostenbeitrag_Betrag = 0;
  std::int16_t Anzahl_Garagenplätze = 0;
  std::int16_t CO2Emissionswert = 0;
  bool Co2Emissionswert_unbekannt = false;
  std::int16_t Anschaffungsjahr = 0;
  std::int16_t Anschaffungsmonat = 0;
  bool Auslaufmodell = false;
  ///@}

  /// \name Firewood (Mitarbeiter_Sachbezüge)
  ///@{

  /// Firewood. Columns of their own name in the row of the employee and period: flags by
  /// ToFlag, 16-bit numbers by ToInteger, amounts by ToAmount (as they stand).
  bool Brennholzdeputate = false;
  double Hartholz = 0;
  double Weichholz = 0;
  double Sägeabfallholz_und_Astholz = 0;
  bool Übertragung_am_Stamm = false;
  ///@}

  /// \name Coal and coke (Mitarbeiter_Sachbezüge)
  ///@{

  /// Coal and coke. Columns of their own name in the row of the employee and period:
  /// flags by ToFlag, 16-bit numbers by ToInteger, amounts by ToAmount (as they stand).
  bool Kohle_und_Koks = false;
  double Steinkohle = 0;
  double Briketts = 0;
  double Hüttenkoks = 0;
  bool Selbstabholung = false;
  ///@}

  /// \name Electricity (Mitarbeiter_Sachbezüge)
  ///@{

  /// Electricity. Columns of their own name in the row of the employee and period: flags
  /// by ToFlag, 16-bit numbers by ToInteger, amounts by ToAmount (as they stand).
  double Strom = 0;
  ///@}

  /// \name Flour (Mitarbeiter_Sachbezüge)
  ///@{

  /// Flour. Columns of their own name in the row of the employee and period: flags by
  /// ToFlag, 16-bit numbers by ToInteger, amounts by ToAmount (as they stand).
  bool Mahlprodukte = false;
  double Roggenmehl = 0;
  double Weizenmehl = 0;
  double Weizen_und_Maisgrieß = 0;
  ///@}

  /// \name Grain (Mitarbeiter_Sachbezüge)
  ///@{

  /// Grain. Columns of their own name in the row of the employee and period: flags by
  /// ToFlag, 16-bit numbers by ToInteger, amounts by ToAmount (as they stand).
  bool Getreide = false;
  double Roggen = 0;
  double Weizen_und_Futtergerste = 0;
  double Mais = 0;
  ///@}

  /// \name Meat (Mitarbeiter_Sachbezüge)
  ///@{

  /// Meat. Columns of their own name in the row of the employee and period: flags by
  /// ToFlag, 16-bit numbers by ToInteger, amounts by ToAmount (as they stand).
  bool Fleisch = false;
  double Schweinefleisch = 0;
  double Kalbfleisch = 0;
  double Rindfleisch = 0;
  double Schweinehälfte_im_Ganzen = 0;
  double Ferkel = 0;
  ///@}

  /// \name Other food (Mitarbeiter_Sachbezüge)
  ///@{

  /// Other food. Columns of their own name in the row of the employee and period: flags
  /// by ToFlag, 16-bit numbers by ToInteger, amounts by ToAmount (as they stand).
  bool Sonstige_Lebensmittel = false;
  double Eier = 0;
  double Käse = 0;
  double Butter = 0;
  double Kartoffel = 0;
  double Vollmilch = 0;
  ///@}

  /// \name Other (Mitarbeiter_Sachbezüge)
  ///@{

  /// Other. Columns of their own name in the row of the employee and period: flags by
  /// ToFlag, 16-bit numbers by ToInteger, amounts by ToAmount (as they stand).
  double Maschinenselbstkosten = 0;
  double Sonstige_Sachbezüge = 0;
  ///@}



 private:
  void ResetToDefaults();

  ManagerRef manager_;
  std::string id_;
  std::string mitarbeiter_id_;
  std::int32_t zeitraum_ = 0;
};

}  // namespace ormelix
