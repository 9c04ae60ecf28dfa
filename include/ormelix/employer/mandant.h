// clsMandant: one employer, a row of Mandanten, with the side records that hang
// from it. The session keeps one as AktMandant and reuses it for every employer it
// selects, so that references a caller holds see the new data.
//
// Two columns are crossed on purpose and stay so: Update writes the property
// Homepage to the column EMail and EMail to Homepage, while a load reads each column
// into the property of its own name; and the start of the second relief is read
// from NeufögV_Von but written to NeufögV_Neu.
#pragma once

#include <cstdint>
#include <string>

#include "ormelix/store/store.h"
#include "ormelix/store/variant.h"

namespace ormelix {

class clsMandant {
 public:
  clsMandant() = default;

  // The key, filled by the store; a caller gets it from a load or an Update.
  const std::string& ID() const { return id_; }

  std::string Name;
  std::string Zusatz;
  std::string Strasse;
  std::string KFZ;
  std::string PLZ;
  std::string Ort;
  std::string Telefon;
  std::string Telefax;
  std::string EMail;
  std::string Homepage;
  std::string DVR;
  bool Neufög = false;
  Date Neufög_Von = 0;
  Date Neufög_Bis = 0;
  bool NeufögV = false;
  Date NeufögV_Von = 0;
  std::string Betriebsart;
  bool BuchungslisteELGesamt = false;

  // Library-internal: the two stores, handed on to the side records.
  Variant InitLohnDB(const StoreConnectionPtr& pLohnDatabase);
  Variant InitImportDB(const StoreConnectionPtr& pImportDatabase);

  // Stores the year, then loads the year data of the employer for it.
  Variant ChangeYear(std::int16_t pJahr);
  // A full load, then a load of the year data if a year was chosen (else a second
  // full load); the result is that of the second load.
  bool Refresh();
  // Writes the employer's row (inserting it when it is not there; an employer
  // without an ID selects the whole table, so the first row of a table that has
  // rows is overwritten). With pRekursiv the side records are saved too.
  bool Update(bool pRekursiv = true);
  // Library-internal. Loads the employer pID (as it stands, no SqlID): the row and
  // the side records, or with pNurJahresdaten only the year data. False when there
  // is no pay store or no such row; then nothing changes.
  bool LoadMandant(const std::string& pID, bool pNurJahresdaten);

  // The year chosen by ChangeYear, 0 until then.
  std::int16_t Jahr() const { return jahr_; }

 private:
  void LoadSideRecords();
  void SaveSideRecords();
  void LoadYearData();

  std::string id_;
  std::int16_t jahr_ = 0;
  StoreConnectionPtr lohn_db_;
  StoreConnectionPtr import_db_;
};

}  // namespace ormelix
