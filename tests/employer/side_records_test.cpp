// The employer's bank, tax office, municipal office and provision fund: the shared
// load and save idiom, its two ways with a missing row, and the crossings.
#include <functional>

#include "employer_fixture.h"
#include "ormelix/error.h"
#include "ormelix/store/date_helpers.h"

using namespace ormelix;
using namespace ormelix::ValueHelpers;

namespace {

class SideRecordTest : public test::EmployerTest {};

TEST_F(SideRecordTest, TaxOfficeAndMunicipalOfficeComeBackThroughANewSession) {
  auto session = Session(first);
  auto& m = *session->AktMandant();
  auto& fa = *m.Finanzamt();
  fa.Finanzamt = "Finanzamt Österreich";
  fa.FinanzamtNr = "07";
  fa.SteuerNr = "123/4567";
  fa.Bank = "Demobank";
  fa.IBAN = "AT00 0100 0000 0555 0000";
  fa.BIC = "DEMOATWWXXX";
  auto& k = *m.Kommunal();
  k.Kommunal = 3;
  k.Name = "Magistrat";
  k.Zusatz = "Abgaben";
  k.Strasse = "Platz 1";
  k.PLZ = "1010";
  k.Ort = "Wien";
  k.Telefon = "+43 1 4000";
  k.DVR = "0000191";
  k.KommStNr = "K-77";
  k.Abgabenkonto_KommSt = "KS-1";
  k.Abgabenkonto_UBahn = "UB-2";
  k.Betriebsort = "Wien 7";
  k.Bank = "Stadtbank";
  k.IBAN = "AT00 1200 0000 0000 0001";
  k.BIC = "STADATWWXXX";
  ASSERT_TRUE(m.Update());

  auto later = Session(first);
  const auto& fa2 = *later->AktMandant()->Finanzamt();
  EXPECT_EQ(fa2.ID, fa.ID);
  EXPECT_EQ(std::tie(fa2.Finanzamt, fa2.FinanzamtNr, fa2.SteuerNr, fa2.Bank, fa2.IBAN, fa2.BIC),
            std::tie(fa.Finanzamt, fa.FinanzamtNr, fa.SteuerNr, fa.Bank, fa.IBAN, fa.BIC));
  const auto& k2 = *later->AktMandant()->Kommunal();
  EXPECT_EQ(k2.ID, k.ID);
  EXPECT_EQ(k2.Kommunal, 3);
  EXPECT_EQ(std::tie(k2.Name, k2.Zusatz, k2.Strasse, k2.PLZ, k2.Ort, k2.Telefon, k2.DVR, k2.KommStNr),
            std::tie(k.Name, k.Zusatz, k.Strasse, k.PLZ, k.Ort, k.Telefon, k.DVR, k.KommStNr));
  EXPECT_EQ(std::tie(k2.Abgabenkonto_KommSt, k2.Abgabenkonto_UBahn, k2.Betriebsort, k2.Bank, k2.IBAN, k2.BIC),
            std::tie(k.Abgabenkonto_KommSt, k.Abgabenkonto_UBahn, k.Betriebsort, k.Bank, k.IBAN, k.BIC));
  EXPECT_EQ(Stored("Mandanten_Finanzamt", Of(first), "FinanzamtNr"), Variant("07"));
}

TEST_F(SideRecordTest, TheBankRecordIsSavedIntoTheFundTableAndReadFromItsOwn) {
  auto session = Session(first);
  auto& bank = *session->AktMandant()->Bankverbindung();
  bank.Bank = "Erste Bank";
  bank.Kommentar = "Lohnkonto";
  bank.EmpfKennung = "E1";
  bank.AbsKennung = "A1";
  bank.BIC = "GIBAATWWXXX";
  bank.IBAN = "AT00 2011 1000 0000 0001";
  ASSERT_TRUE(bank.Update(session->AktMandant().get()));
  EXPECT_EQ(test::CountRows(db, "Mandanten_Bankverbindung"), 0);
  EXPECT_EQ(Stored("Mandanten_BMVG_Kasse", Of(first), "IBAN"), Variant("AT00 2011 1000 0000 0001"));
  EXPECT_EQ(Stored("Mandanten_BMVG_Kasse", Of(first), "ID"), Variant(bank.ID));
  EXPECT_EQ(Session(first)->AktMandant()->Bankverbindung()->Bank, "");  // the save is not seen by a load

  // What a host writes into Mandanten_Bankverbindung is what the employer shows.
  std::string row = test::AddRow(db, "Mandanten_Bankverbindung",
                                 {{"MandantenID", first}, {"Bank", "Hausbank"}, {"IBAN", "AT00 1"}, {"BIC", "HAUSATWW"},
                                  {"Kommentar", "k"}, {"EmpfKennung", "e"}, {"AbsKennung", "a"}});
  auto later = Session(first);
  const auto& loaded = *later->AktMandant()->Bankverbindung();
  EXPECT_EQ(loaded.ID, SqlID(row));
  EXPECT_EQ(std::tie(loaded.Bank, loaded.IBAN, loaded.BIC, loaded.Kommentar, loaded.EmpfKennung, loaded.AbsKennung),
            std::make_tuple("Hausbank", "AT00 1", "HAUSATWW", "k", "e", "a"));
}

TEST_F(SideRecordTest, AnEmployerWithoutARowShowsAndSavesThePreviousEmployersRecord) {
  test::AddRow(db, "Mandanten_Finanzamt", {{"MandantenID", first}, {"Finanzamt", "Amt der Ersten"}});
  auto session = Session(first);
  auto finanzamt = session->AktMandant()->Finanzamt();
  std::string first_row = finanzamt->ID;
  session->ChangeAktMandant(second);
  EXPECT_EQ(finanzamt->ID, first_row);
  EXPECT_EQ(finanzamt->Finanzamt, "Amt der Ersten");
  finanzamt->Finanzamt = "Geändert bei der Zweiten";
  ASSERT_TRUE(finanzamt->Update(session->AktMandant().get()));
  EXPECT_EQ(test::CountRows(db, "Mandanten_Finanzamt"), 1);
  EXPECT_EQ(Stored("Mandanten_Finanzamt", Of(first), "Finanzamt"), Variant("Geändert bei der Zweiten"));
}

TEST_F(SideRecordTest, ARecordWithoutKeyInsertsIntoAnEmptyTableAndOverwritesTheFirstRowOtherwise) {
  auto session = Session(second);
  clsMandant_Finanzamt fresh;
  fresh.InitLohnDB(session->AktDB());
  EXPECT_FALSE(fresh.LoadMandantFinanzamt(second));
  EXPECT_EQ(fresh.ID, "");
  fresh.Finanzamt = "Neu";
  ASSERT_TRUE(fresh.Update(session->AktMandant().get()));
  EXPECT_EQ(Stored("Mandanten_Finanzamt", "[ID]=" + fresh.ID, "MandantenID"), Variant(second));

  clsMandant_Finanzamt stray;
  stray.InitLohnDB(session->AktDB());
  stray.Finanzamt = "Überschrieben";
  session->ChangeAktMandant(first);
  ASSERT_TRUE(stray.Update(session->AktMandant().get()));
  EXPECT_EQ(test::CountRows(db, "Mandanten_Finanzamt"), 1);
  EXPECT_EQ(stray.ID, fresh.ID);  // the first row, and it still belongs to the second employer
  EXPECT_EQ(Stored("Mandanten_Finanzamt", Of(second), "Finanzamt"), Variant("Überschrieben"));
}

TEST_F(SideRecordTest, ARecordWhoseRowHasGoneIsInsertedForTheEmployerUnderANewKey) {
  test::AddRow(db, "Mandanten_Kommunal", {{"MandantenID", first}, {"Name", "Alt"}});
  auto session = Session(first);
  auto kommunal = session->AktMandant()->Kommunal();
  std::string old_id = kommunal->ID;
  db->Session().ExecuteSql("DELETE * FROM [Mandanten_Kommunal]", true);
  EXPECT_EQ(kommunal->Update(session->AktMandant().get()), "True");
  EXPECT_NE(kommunal->ID, old_id);
  EXPECT_TRUE(DateHelpers::IsID(Variant(kommunal->ID)));
  EXPECT_EQ(Stored("Mandanten_Kommunal", Of(first), "Name"), Variant("Alt"));
}

TEST_F(SideRecordTest, NoSaveWithoutEmployerWithoutAnyKeyOrWithoutStore) {
  auto session = Session(first);
  clsMandant keyless;  // never saved: no ID
  clsMandant& employer = *session->AktMandant();
  struct Case {
    const char* record;
    std::function<bool(const clsMandant*, bool with_store)> save;
  };
  const Case cases[] = {
      {"Bankverbindung",
       [&](const clsMandant* m, bool s) {
         clsMandant_Bankverbindung r;
         if (s) r.InitLohnDB(db);
         return r.Update(m);
       }},
      {"Finanzamt",
       [&](const clsMandant* m, bool s) {
         clsMandant_Finanzamt r;
         if (s) r.InitLohnDB(db);
         return r.Update(m);
       }},
      {"Kommunal",
       [&](const clsMandant* m, bool s) {
         clsMandant_Kommunal r;
         if (s) r.InitLohnDB(db);
         std::string result = r.Update(m);
         EXPECT_TRUE(result == "True" || result == "False") << result;
         return result == "True";
       }},
      {"BMVG_Kasse",
       [&](const clsMandant* m, bool s) {
         clsMandant_BMVG_Kasse r;
         if (s) r.InitLohnDB(db);
         return r.Update(m);
       }},
      {"PDFEncrypt",
       [&](const clsMandant* m, bool s) {
         clsMandant_PDFEncrypt r;
         if (s) r.InitLohnDB(db);
         return r.Update(m);
       }},
      {"Jahresdaten",
       [&](const clsMandant* m, bool s) {
         clsMandant_Jahresdaten r;
         if (s) r.InitLohnDB(db);
         return r.Update(m);
       }},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.record);
    EXPECT_FALSE(c.save(nullptr, true));
    EXPECT_FALSE(c.save(&keyless, true));
    EXPECT_FALSE(c.save(&employer, false));
  }
  for (const char* table : {"Mandanten_BMVG_Kasse", "Mandanten_Finanzamt", "Mandanten_Kommunal",
                            "Mandanten_PDFEncrypt", "Mandanten_Jahresdaten"})
    EXPECT_EQ(test::CountRows(db, table), 0) << table;
  EXPECT_FALSE(clsMandant_Finanzamt{}.LoadMandantFinanzamt(first));
}

TEST_F(SideRecordTest, TheMunicipalityColumnIsWrittenWithTheCatalogueKeyAndReadAsANumber) {
  std::string wien = test::AddRow(reference, "Gemeinden", {{"Gemeinde", "Wien"}, {"Gemeindenummer", "90001"}});
  test::AddRow(db, "Mandanten_Kommunal", {{"MandantenID", first}, {"Gemeinde", "90001"}});
  auto session = Session(first);
  auto kommunal = session->AktMandant()->Kommunal();
  EXPECT_EQ(kommunal->Gemeinde()->ID(), wien);
  EXPECT_EQ(kommunal->Gemeinde()->Gemeinde(), "Wien");

  // A save without a municipality leaves the column; one with a municipality
  // writes the catalogue row's key, which the next load cannot look up.
  session->AktMandant()->Update();
  EXPECT_EQ(Stored("Mandanten_Kommunal", Of(first), "Gemeinde"), Variant("90001"));
  EXPECT_EQ(kommunal->Update(session->AktMandant().get(), kommunal->Gemeinde().get()), "True");
  EXPECT_EQ(Stored("Mandanten_Kommunal", Of(first), "Gemeinde"), Variant(wien));
  session->AktMandant()->Refresh();
  EXPECT_EQ(kommunal->Gemeinde()->Gemeinde(), "Wien");  // not found, so kept
  EXPECT_EQ(Session(first)->AktMandant()->Kommunal()->Gemeinde()->Gemeinde(), "");
}

TEST_F(SideRecordTest, TheFundIsFoundByItsLeitzahlAndAFundSavedByKeyBreaksTheNextLoad) {
  std::string fund = test::AddRow(reference, "BMVG_Kassen", {{"Leitzahl", "71300"}, {"Name", "Demo Vorsorgekasse"}});
  std::string row = test::AddRow(db, "Mandanten_BMVG_Kasse", {{"MandantenID", first}, {"BMVG_Kasse", "71300"}});
  auto session = Session(first);
  auto record = session->AktMandant()->BMVG_Kasse();
  EXPECT_EQ(record->ID, row);
  EXPECT_EQ(record->Kasse()->ID(), fund);
  EXPECT_EQ(record->Kasse()->Name(), "Demo Vorsorgekasse");

  session->AktMandant()->Update();  // recursive: the fund column stays
  EXPECT_EQ(Stored("Mandanten_BMVG_Kasse", Of(first), "BMVG_Kasse"), Variant("71300"));
  ASSERT_TRUE(record->Update(session->AktMandant().get(), record->Kasse().get()));
  EXPECT_EQ(Stored("Mandanten_BMVG_Kasse", Of(first), "BMVG_Kasse"), Variant(fund));
  EXPECT_THROW(Session(first), ConversionError);
}

}  // namespace
