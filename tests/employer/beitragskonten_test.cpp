// The employer's contribution accounts, joined with their carriers.
#include <cctype>
#include <vector>

#include "employer_fixture.h"
#include "ormelix/error.h"

using namespace ormelix;

namespace {

class BeitragskontenTest : public test::EmployerTest {
 protected:
  std::string Carrier(const std::string& code, const std::string& name = "") {
    return test::AddRow(db, "Versicherungsträger",
                        {{"Code", code}, {"Bezeichnung", name}, {"Kurzbezeichnung", "K" + code},
                         {"Straße", "Straße " + code}, {"PLZ", "1100"}, {"Ort", "Wien"}, {"Bank", "Bank " + code},
                         {"IBAN", "IBAN " + code}, {"BIC", "BIC " + code}});
  }
  std::string Account(const std::string& employer, const std::string& carrier, const std::string& number,
                      bool standard = false) {
    return test::AddRow(db, "Mandanten_Beitragskonten",
                        {{"MandantenID", employer}, {"VTID", carrier}, {"BKNR", number},
                         {"Anmerkung", "zu " + number}, {"StandardBKNR", standard}});
  }
  std::shared_ptr<clsMandant_Beitragskonten> Accounts(const std::string& employer) {
    session_ = Session(employer);
    return session_->AktMandant()->Beitragskonten();
  }
  ManagerPtr session_;
};

TEST_F(BeitragskontenTest, AccountsComeInTheOrderEnteredWithTheirCarriersData) {
  std::string wien = Carrier("W", "Landesstelle Wien");
  std::string noe = Carrier("N", "Landesstelle Niederösterreich");
  std::string a = Account(first, noe, "222", true);
  std::string b = Account(first, wien, "111");
  Account(second, wien, "999");
  Account(first, test::AddRow(db, "Mandanten"), "ohne Träger");  // no carrier row: not listed
  auto accounts = Accounts(first);
  ASSERT_EQ(accounts->Count(), 2);
  const auto& one = *accounts->Item(Variant(1));
  EXPECT_EQ(one.ID(), a);
  EXPECT_EQ(one.VTID(), noe);
  EXPECT_EQ(std::tie(one.VT_Code(), one.VT_Bezeichnung(), one.VT_KurzBezeichnung(), one.VT_Straße(), one.VT_PLZ(),
                     one.VT_Ort(), one.VT_Bank(), one.VT_IBAN(), one.VT_BIC(), one.BKNR(), one.Anmerkung()),
            std::make_tuple("N", "Landesstelle Niederösterreich", "KN", "Straße N", "1100", "Wien", "Bank N",
                            "IBAN N", "BIC N", "222", "zu 222"));
  EXPECT_TRUE(one.Standard());
  EXPECT_EQ(accounts->Item(Variant(b))->BKNR(), "111");
  EXPECT_FALSE(accounts->Item(Variant(2))->Standard());
  std::vector<std::string> walked;
  for (const auto& account : *accounts) walked.push_back(account->BKNR());
  EXPECT_EQ(walked, (std::vector<std::string>{"222", "111"}));
}

TEST_F(BeitragskontenTest, ItemAndExistByPositionKeyAndEmptyIndex) {
  auto none = Accounts(first);
  EXPECT_EQ(none->Count(), 0);
  EXPECT_FALSE(none->Exist(Variant(ValueHelpers::NewID())));
  EXPECT_FALSE(none->IsMoreSVTraeger());
  EXPECT_EQ(none->Item(Variant(1))->ID(), "");  // a new empty account, no failure

  std::string carrier = Carrier("W");
  std::string key = Account(first, carrier, "1");
  Account(first, carrier, "2");
  Account(first, carrier, "3");
  auto accounts = Accounts(first);
  auto empty = accounts->Item(Variant(""));
  EXPECT_EQ(empty->ID(), "");
  EXPECT_NE(empty, accounts->Item(Variant("")));  // each call a new one, in no list
  EXPECT_THROW(accounts->Item(Variant(5)), KeyNotFound);
  EXPECT_THROW(accounts->Item(Variant(ValueHelpers::NewID())), KeyNotFound);
  EXPECT_TRUE(accounts->Exist(Variant(key)));
  EXPECT_FALSE(accounts->Exist(Variant(1)));
  EXPECT_FALSE(accounts->Exist(Variant(5)));
  std::string lower = key;
  for (char& c : lower) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  EXPECT_FALSE(accounts->Exist(Variant(lower)));
}

TEST_F(BeitragskontenTest, MoreThanOneCarrierIsToldBetweenNeighbours) {
  struct Case {
    std::vector<std::string> codes;
    bool more;
  };
  const Case cases[] = {
      {{}, false},          {{"W"}, false},     {{"W", "W"}, false}, {{"W", "N"}, true},
      {{"W", ""}, true},    {{"", "W"}, false}, {{"", "", "W"}, false}, {{"", "W", "N"}, true},
      {{"W", "W", "N"}, true},
  };
  int n = 0;
  for (const Case& c : cases) {
    std::string employer = test::AddRow(db, "Mandanten", {{"Name", "Fall " + std::to_string(++n)}});
    for (const std::string& code : c.codes) Account(employer, Carrier(code), code);
    auto accounts = Accounts(employer);
    ASSERT_EQ(accounts->Count(), static_cast<long>(c.codes.size()));
    EXPECT_EQ(accounts->IsMoreSVTraeger(), c.more) << "case " << n;
  }
}

TEST_F(BeitragskontenTest, ALoadEmptiesTheListAndRefreshReloadsTheLastEmployer) {
  clsMandant_Beitragskonten unloaded;
  EXPECT_FALSE(unloaded.Refresh());
  std::string carrier = Carrier("W");
  Account(first, carrier, "1");
  auto accounts = Accounts(first);
  ASSERT_EQ(accounts->Count(), 1);
  session_->ChangeAktMandant(second);
  EXPECT_EQ(accounts->Count(), 0);  // none of the first employer's stay
  Account(second, carrier, "2");
  Account(second, carrier, "3");
  EXPECT_TRUE(accounts->Refresh());
  EXPECT_EQ(accounts->Count(), 2);
  clsMandant_Beitragskonten without_store;
  EXPECT_FALSE(without_store.LoadMandantBeitragskonten(first));
  EXPECT_FALSE(without_store.Refresh());  // it kept the key, but has no store
}

}  // namespace
