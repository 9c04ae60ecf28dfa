#pragma once

#include <cstdint>
#include <string>

#include "ormelix/store/store.h"

namespace ormelix {

class clsMandant;

/// The employer's way of accounting with the social insurance: the column
/// Abrechnungsart of Mandanten_Jahresdaten.
enum eMandantAbrechnungsart {
  eMANone = 0,               ///< none chosen
  eMASelbstabrechner = 1,    ///< the employer reckons its contributions itself
  eMAVorschreibebetrieb = 2  ///< the carrier prescribes the contributions
};

/// What an employer settles for one calendar year, a row of
/// Mandanten_Jahresdaten per employer and year.
///
/// It is the one side record that hangs on a year: clsMandant::ChangeYear loads it,
/// and neither a full load of the employer nor its recursive Update touches it. A
/// change into a year without a row keeps the values and the ID of the year before,
/// under the new Jahr.
///
/// Update keeps its long-standing statement: for a record with a key it is
/// "SELECT * FROM [Mandanten_Jahresdaten] WHERE [ID]=<ID> [Jahr]=<Jahr>", with no AND
/// between the two terms, which the store refuses. So only a record without a key
/// can be saved (selecting the whole table, as every side record does: a row is
/// added to an empty table, otherwise the first row is overwritten); the save of a
/// loaded row fails with a StoreError that names the statement.
class clsMandant_Jahresdaten {
 public:
  std::string ID;  ///< the key of the row (of the year loaded last)
  /// \name Levies of marginal employees
  ///@{

  /// Levies of marginal employees paid at the end of the year.
  ///
  /// Provision-fund contribution and social-insurance levy of marginal employees
  /// paid at the end of the year: columns MVAbgabe_Geringfuegig_am_Jahresende and
  /// SVAbgabe_Geringfuegig_am_Jahresende.
  bool MVAbgabe_GF_am_Jahresende = false;
  bool SVAbgabe_GF_am_Jahresende = false;
  ///@}
  /// The federal state of the levy DZ.
  std::int16_t DZBundesland = 0;
  /// A reduced DB rate applies.
  bool DBSenkung = false;
  eMandantAbrechnungsart Abrechnungsart = eMANone;  ///< the kind of accounting

  /// The year of the last load (no property of its own; written on a new row only).
  std::int16_t Jahr() const { return jahr_; }

  /// \cond INTERNAL
  // Library-internal: clsMandant hands over the pay store.
  void InitLohnDB(const StoreConnectionPtr& pDatabase) { lohn_db_ = pDatabase; }
  // Keeps pJahr and reads the employer's row of that year. False when there is no
  // store (Jahr stays as it was) or no row (everything else stays as it was).
  bool LoadMandantJahresdaten(const std::string& pID, std::int16_t pJahr);
  /// \endcond

  /// Writes the record for the employer pMandant into Mandanten_Jahresdaten; see the
  /// class note on its statement: a loaded row (one with an ID) is refused by the
  /// store with a StoreError. False, touching nothing, without an employer, without a key on
  /// either side, or without a store. A new row gets MandantenID and Jahr.
  bool Update(const clsMandant* pMandant = nullptr);

 private:
  std::int16_t jahr_ = 0;
  StoreConnectionPtr lohn_db_;
};

}  // namespace ormelix
