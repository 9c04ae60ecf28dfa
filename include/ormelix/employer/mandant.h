#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "ormelix/employer/mandant_bankverbindung.h"
#include "ormelix/employer/mandant_beitragskonten.h"
#include "ormelix/employer/mandant_bmvg_kasse.h"
#include "ormelix/employer/mandant_finanzamt.h"
#include "ormelix/employer/mandant_jahresdaten.h"
#include "ormelix/employer/mandant_kommunal.h"
#include "ormelix/employer/mandant_pdf_encrypt.h"
#include "ormelix/store/store.h"
#include "ormelix/store/variant.h"

namespace ormelix {

/// One employer, a row of Mandanten, with the side records that hang
/// from it. The session keeps one as AktMandant and reuses it for every employer it
/// selects, so that references a caller holds see the new data.
///
/// Two columns are crossed on purpose and stay so: Update writes the property
/// Homepage to the column EMail and EMail to Homepage, while a load reads each column
/// into the property of its own name; and the start of the second relief is read
/// from NeufögV_Von but written to NeufögV_Neu.
///
/// The side records keep crossings of their own that a host must know: the bank
/// details are read from Mandanten_Bankverbindung but saved into
/// Mandanten_BMVG_Kasse (clsMandant_Bankverbindung); the provision fund and the
/// municipality are saved with the catalogue row's ID but looked up by Leitzahl and
/// municipality number (clsMandant_BMVG_Kasse, clsMandant_Kommunal); and the year
/// data are loaded only by ChangeYear and can be saved only without a key
/// (clsMandant_Jahresdaten).
class clsMandant {
 public:
  /// A blank employer with its side records; clsManager::ChangeAktMandant loads one.
  clsMandant() = default;

  /// The key, filled by the store; a caller gets it from a load or an Update.
  const std::string& ID() const { return id_; }

  /// \name The row of Mandanten
  ///@{

  /// A column of the employer's row of Mandanten.
  ///
  /// Columns of Mandanten of the property's name (texts as they stand, flags -1/0,
  /// dates as day counts), but for the crossings: Update writes EMail to the column
  /// Homepage and Homepage to EMail, and NeufögV_Von (read from the column
  /// NeufögV_Von) to the column NeufögV_Neu. Neufög... and NeufögV... are the two
  /// reliefs for new businesses with their periods.
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
  ///@}

  /// \name Side records
  ///@{

  /// The side records, created with the employer. Each getter hands out the object
  /// itself, so that edits are seen by the employer; the first five can be
  /// replaced, the accounts and the document protection cannot.
  ///
  /// Bankverbindung: bank details (read from Mandanten_Bankverbindung, saved into
  /// Mandanten_BMVG_Kasse); BMVG_Kasse: the provision fund (Mandanten_BMVG_Kasse);
  /// Finanzamt: the tax office (Mandanten_Finanzamt); Kommunal: the municipal office
  /// (Mandanten_Kommunal); Jahresdaten: the year data (Mandanten_Jahresdaten, loaded
  /// by ChangeYear); Beitragskonten: the contribution accounts
  /// (Mandanten_Beitragskonten, read-only); PDFEncrypt: the document protection
  /// (Mandanten_PDFEncrypt).
  const std::shared_ptr<clsMandant_Bankverbindung>& Bankverbindung() const { return bankverbindung_; }
  void SetBankverbindung(std::shared_ptr<clsMandant_Bankverbindung> p) { bankverbindung_ = std::move(p); }
  const std::shared_ptr<clsMandant_BMVG_Kasse>& BMVG_Kasse() const { return bmvg_kasse_; }
  void SetBMVG_Kasse(std::shared_ptr<clsMandant_BMVG_Kasse> p) { bmvg_kasse_ = std::move(p); }
  const std::shared_ptr<clsMandant_Finanzamt>& Finanzamt() const { return finanzamt_; }
  void SetFinanzamt(std::shared_ptr<clsMandant_Finanzamt> p) { finanzamt_ = std::move(p); }
  const std::shared_ptr<clsMandant_Kommunal>& Kommunal() const { return kommunal_; }
  void SetKommunal(std::shared_ptr<clsMandant_Kommunal> p) { kommunal_ = std::move(p); }
  const std::shared_ptr<clsMandant_Jahresdaten>& Jahresdaten() const { return jahresdaten_; }
  void SetJahresdaten(std::shared_ptr<clsMandant_Jahresdaten> p) { jahresdaten_ = std::move(p); }
  const std::shared_ptr<clsMandant_Beitragskonten>& Beitragskonten() const { return beitragskonten_; }
  const std::shared_ptr<clsMandant_PDFEncrypt>& PDFEncrypt() const { return pdf_encrypt_; }
  ///@}

  /// \cond INTERNAL
  // Library-internal: the two stores, handed on to the side records.
  Variant InitLohnDB(const StoreConnectionPtr& pLohnDatabase);
  Variant InitImportDB(const StoreConnectionPtr& pImportDatabase);
  /// \endcond

  /// Stores the year, then loads the year data of the employer for it. Reads table
  /// Mandanten_Jahresdaten (the row of the employer and the year).
  Variant ChangeYear(std::int16_t pJahr);
  /// A full load, then a load of the year data if a year was chosen (else a second
  /// full load); the result is that of the second load. Reads the tables that
  /// clsManager::ChangeAktMandant reads, and Mandanten_Jahresdaten.
  bool Refresh();
  /// Writes the employer's row (inserting it when it is not there; an employer
  /// without an ID selects the whole table, so the first row of a table that has
  /// rows is overwritten). With pRekursiv the side records are saved too.
  ///
  /// Writes the row of Mandanten, and with pRekursiv the rows of the bank details
  /// (into Mandanten_BMVG_Kasse!), the provision fund (Mandanten_BMVG_Kasse), the
  /// tax office (Mandanten_Finanzamt), the municipal office (Mandanten_Kommunal) and
  /// the document protection (Mandanten_PDFEncrypt); never the year data nor the
  /// accounts. Each record's save is one write transaction.
  bool Update(bool pRekursiv = true);
  /// \cond INTERNAL
  // Library-internal. Loads the employer pID (as it stands, no SqlID): the row and
  // the side records, or with pNurJahresdaten only the year data. False when there
  // is no pay store or no such row; then nothing changes.
  bool LoadMandant(const std::string& pID, bool pNurJahresdaten);
  /// \endcond

  /// The year chosen by ChangeYear, 0 until then.
  std::int16_t Jahr() const { return jahr_; }

 private:
  void LoadSideRecords();
  void SaveSideRecords();
  void LoadYearData();

  std::string id_;
  /// In the order of their creation.
  std::shared_ptr<clsMandant_Bankverbindung> bankverbindung_ = std::make_shared<clsMandant_Bankverbindung>();
  std::shared_ptr<clsMandant_BMVG_Kasse> bmvg_kasse_ = std::make_shared<clsMandant_BMVG_Kasse>();
  std::shared_ptr<clsMandant_Finanzamt> finanzamt_ = std::make_shared<clsMandant_Finanzamt>();
  std::shared_ptr<clsMandant_Kommunal> kommunal_ = std::make_shared<clsMandant_Kommunal>();
  std::shared_ptr<clsMandant_Jahresdaten> jahresdaten_ = std::make_shared<clsMandant_Jahresdaten>();
  std::shared_ptr<clsMandant_Beitragskonten> beitragskonten_ = std::make_shared<clsMandant_Beitragskonten>();
  std::shared_ptr<clsMandant_PDFEncrypt> pdf_encrypt_ = std::make_shared<clsMandant_PDFEncrypt>();
  std::int16_t jahr_ = 0;
  StoreConnectionPtr lohn_db_;
  StoreConnectionPtr import_db_;
};

}  // namespace ormelix
