// A host that knows the library only through its installed package.
#include <cstdio>
#include <ormelix/store/schema.h>
#include <ormelix/store/value_helpers.h>

int main(int argc, char** argv) {
  if (argc < 2) return 2;
  std::remove(argv[1]);
  auto db = ormelix::CreateStore(argv[1], ormelix::StoreKind::Payroll);
  auto rs = db->Session().OpenRecordset("SELECT * FROM [Basiswerte]", ormelix::adOpenDynamic, ormelix::adLockOptimistic);
  rs->AddNew();
  rs->Collect("Bezeichnung", "Standard");
  rs->Update();
  std::string id = ormelix::ValueHelpers::ToText(rs->Fields("ID"));
  rs->Close();
  auto check = db->Session().OpenRecordset("SELECT * FROM [Basiswerte] WHERE [ID]=" + ormelix::ValueHelpers::SqlID(id));
  bool found = !check->Eof() && ormelix::ValueHelpers::ToText(check->Fields("Bezeichnung")) == "Standard";
  std::printf("host: folder %s %s\n", id.c_str(), found ? "found" : "missing");
  return found ? 0 : 1;
}
