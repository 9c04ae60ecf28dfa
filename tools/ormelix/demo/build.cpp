#include <iostream>

#include "demo/demo.h"
#include "demo/employer.h"
#include "ormelix/employer/mandant.h"
#include "ormelix/store/date_helpers.h"

namespace cli {

using ormelix::DateHelpers::DateSerial;

void BuildDemo(ormelix::clsManager& manager, int extra_employees, std::ostream& out) {
  out << "Reference catalogues\n";
  BuildReference(manager, out);
  out << "Base values\n";
  auto folder = BuildBaseValues(manager, out);
  auto employer = std::make_shared<ormelix::clsMandant>();
  employer->InitLohnDB(manager.AktDB());
  employer->InitImportDB(manager.ImportDB());
  employer->Name = "Alpenblick Gastronomie GmbH";
  employer->Zusatz = "Hotel und Restaurant";
  employer->Strasse = "Mariahilfer Straße 88";
  employer->KFZ = "A";
  employer->PLZ = "1070";
  employer->Ort = "Wien";
  employer->Telefon = "+43 1 523 44 00";
  employer->Telefax = "+43 1 523 44 09";
  // Update writes EMail to the column Homepage and Homepage to EMail; a host hands
  // them over crosswise so that the columns (and every later load) come out right.
  employer->EMail = "www.alpenblick.example";
  employer->Homepage = "lohn@alpenblick.example";
  employer->DVR = "0815470";
  employer->Betriebsart = "Beherbergung und Gastronomie";
  employer->Update();
  out << "Employer " << employer->Name << " (" << employer->ID() << ")\n";
  BuildEmployerRecords(manager, *employer, out);
  manager.ChangeAktMandant(employer->ID());
  out << "Employees\n";
  BuildEmployees(manager, folder, extra_employees, out);
  SetEmployeePassword(manager, 1001, "Huber-1986", out);
}


}  // namespace cli
