// Document protection: the password transformation and the two records that keep
// a password, the employer's and the employee's.
#include <random>

#include "employer_fixture.h"
#include "ormelix/employee/lohn.h"
#include "ormelix/employer/encrypt.h"

using namespace ormelix;

namespace {

std::string RandomBytes(std::mt19937& random, std::size_t max_length) {
  std::uniform_int_distribution<std::size_t> length(0, max_length);
  std::uniform_int_distribution<int> byte(0, 255);
  std::string text(length(random), '\0');
  for (char& c : text) c = static_cast<char>(byte(random));
  return text;
}

TEST(Encrypt, IsItsOwnInverseKeepsTheLengthAndMakesNoNul) {
  std::mt19937 random(20240501);
  for (int round = 0; round < 5000; ++round) {
    std::string original = RandomBytes(random, 64);
    std::string text = original;
    Encrypt(text, kEncryptKey);
    ASSERT_EQ(text.size(), original.size());
    for (std::size_t i = 0; i < text.size(); ++i)
      ASSERT_EQ(text[i] == '\0', original[i] == '\0') << "round " << round << ", byte " << i;
    Encrypt(text, kEncryptKey);
    ASSERT_EQ(text, original) << "round " << round;
  }
  std::string plain = "passwort";
  std::string once = plain;
  Encrypt(once, kEncryptKey);
  EXPECT_NE(once, plain);
}

TEST(Encrypt, EveryWindows1252TextComesBackAndOtherCharactersBecomeAQuestionMark) {
  std::mt19937 random(7);
  for (int round = 0; round < 2000; ++round) {
    std::string text = FromWindows1252(RandomBytes(random, 24));
    ASSERT_EQ(EncryptPassword(EncryptPassword(text)), text) << "round " << round;
  }
  EXPECT_EQ(ToWindows1252("Grüße €"), "Gr\xFC\xDF" "e \x80");
  EXPECT_EQ(EncryptPassword(EncryptPassword("Ωmega✓")), "?mega?");
  EXPECT_EQ(EncryptPassword(""), "");
}

class PasswordTest : public test::EmployerTest {};

TEST_F(PasswordTest, TheEmployersPasswordIsStoredTransformedAndComesBackPlain) {
  struct Case {
    std::string password, comes_back;
  };
  const Case cases[] = {
      {"Geheim-2025", "Geheim-2025"},
      {"Grüße€ßÄ", "Grüße€ßÄ"},
      {"kern84", "kern84"},  // every byte equals its key byte
      {"", ""},
      {"Ωmega", "?mega"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.password);
    auto session = Session(first);
    auto& protection = *session->AktMandant()->PDFEncrypt();
    protection.EncryptVS = true;
    protection.VSPasswordOption = eVSPOSIndividual;
    protection.VSPassword = c.password;
    ASSERT_TRUE(session->AktMandant()->Update());
    EXPECT_EQ(protection.VSPassword, c.password);  // the object stays plain
    Variant stored = Stored("Mandanten_PDFEncrypt", Of(first), "VSPassword");
    if (!c.password.empty() && c.password != "kern84") {
      EXPECT_NE(ValueHelpers::ToText(stored), c.password);
    }
    EXPECT_EQ(ValueHelpers::ToLong(Stored("Mandanten_PDFEncrypt", Of(first), "VSPasswordOption")), 1);
    auto later = Session(first);
    const auto& loaded = *later->AktMandant()->PDFEncrypt();
    EXPECT_EQ(loaded.VSPassword, c.comes_back);
    EXPECT_TRUE(loaded.EncryptVS);
    EXPECT_EQ(loaded.VSPasswordOption, eVSPOSIndividual);
  }
  EXPECT_EQ(test::CountRows(db, "Mandanten_PDFEncrypt"), 1);
}

TEST_F(PasswordTest, EveryCharacterOfWindows1252ReadsBackFromTheStore) {
  std::string all;
  for (int byte = 1; byte < 256; ++byte) all += static_cast<char>(byte);
  auto session = Session(first);
  session->AktMandant()->PDFEncrypt()->VSPassword = FromWindows1252(all);
  session->AktMandant()->Update();
  EXPECT_EQ(ToWindows1252(Session(first)->AktMandant()->PDFEncrypt()->VSPassword), all);
}

TEST_F(PasswordTest, AnEmployeesPasswordIsInsertedOnceThenChangedAndReadWithTheEmployee) {
  std::string employee = test::AddRow(db, "Mitarbeiter", {{"MandantenID", first}, {"Familienname", "Huber"}});
  auto session = Session(first);
  session->AktJahr = 2025;
  session->AktMonat = 1;
  auto lohn = std::make_shared<LLohn>();
  lohn->LoadMitarbeiter(*session, employee, 1);
  EXPECT_EQ(lohn->PDFEncrypt()->VSPassword, "");
  lohn->Update(*session, ucTablePDFEncrypt);  // an empty password is written too
  EXPECT_EQ(test::CountRows(db, "Mitarbeiter_PDFEncrypt"), 1);
  lohn->PDFEncrypt()->VSPassword = "Anna-1986!";
  lohn->Update(*session, ucTablePDFEncrypt);
  EXPECT_EQ(lohn->PDFEncrypt()->VSPassword, "Anna-1986!");
  EXPECT_EQ(test::CountRows(db, "Mitarbeiter_PDFEncrypt"), 1);
  Variant stored = Stored("Mitarbeiter_PDFEncrypt", "[MitarbeiterID]=" + employee, "VSPassword");
  EXPECT_EQ(stored, Variant(EncryptPassword("Anna-1986!")));

  auto reread = std::make_shared<LLohn>();
  reread->LoadMitarbeiter(*Session(first), employee, 1);
  EXPECT_EQ(reread->PDFEncrypt()->VSPassword, "Anna-1986!");
  reread->PDFEncrypt()->VSPassword = "bleibt";
  reread->Refresh(*Session(first), ucTableMitarbeiter);  // another table: the password stays
  EXPECT_EQ(reread->PDFEncrypt()->VSPassword, "bleibt");
  reread->Refresh(*Session(first), ucTablePDFEncrypt);
  EXPECT_EQ(reread->PDFEncrypt()->VSPassword, "Anna-1986!");
}

}  // namespace
