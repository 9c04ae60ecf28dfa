// The statements an employee's load runs once per employee (or per child, per
// pay row), each made by the one function here that the routine running it
// uses. The employee list reads them ahead for many employees at once, by the
// same functions, so that it answers exactly the texts the routines run.
#pragma once

#include <cstdint>
#include <string>

namespace ormelix::detail {

// By the employee's ID, as LLohn.LoadMitarbeiter hands it on.
std::string CareerLoadSql(const std::string& employee_id);     // Mitarbeiter_Laufbahn
std::string ChildrenLoadSql(const std::string& employee_id);   // Mitarbeiter_Kinder
std::string MasterLoadSql(const std::string& employee_id);     // Mitarbeiter
std::string BankLoadSql(const std::string& employee_id);       // Mitarbeiter_Bankverbindung
std::string LinesLoadSql(const std::string& employee_id);      // Mitarbeiter_Lohnarten
std::string PayLoadSql(const std::string& employee_id);        // Mitarbeiter_Lohnzettel
std::string TransfersLoadSql(const std::string& employee_id);  // Mitarbeiter_Übertritte
std::string YearDataLoadSql(const std::string& employee_id, std::int16_t year);  // Mitarbeiter_Jahresdaten
std::string PasswordLoadSql(const std::string& employee_id);   // Mitarbeiter_PDFEncrypt

// By a child's ID, as the child's load hands it on.
std::string ChildEntriesLoadSql(const std::string& child_id);  // Mitarbeiter_Kinder_ZB

// By a pay row's key, as the pay record's load hands it on (its ID in SqlID form).
std::string BenefitsLoadSql(const std::string& pay_row);   // Mitarbeiter_Lohnzettel_EL
std::string ShortTimeLoadSql(const std::string& pay_row);  // Mitarbeiter_Lohnzettel_Kurzarbeit

}  // namespace ormelix::detail
