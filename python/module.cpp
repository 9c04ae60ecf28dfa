// The extension module ormelix: the library's object model in Python.
#include "binding.h"

PYBIND11_MODULE(ormelix, m) {
  using namespace ormelix::python;
  m.doc() =
      "OrmelixCore, the data library of an Austrian payroll application: stores, the session clsManager, "
      "employers, base values, employees with their monthly pay records, careers, children, short-time work, "
      "benefits and countries, with the names the library has.";
  m.attr("__version__") = ORMELIX_VERSION;
  DefineErrors(m);
  DefineEnums(m);
  DefineIndexedValues(m);
  // Every class first, so that each signature names the classes it uses.
  DeclareStore(m);
  DeclareEmployer(m);
  DeclareBasevalues(m);
  DeclareEmployee(m);
  DeclareResults(m);
  DeclareCareerChildren(m);
  DeclareOthers(m);
  DefineStore(m);
  DefineEmployer(m);
  DefineBasevalues(m);
  DefineEmployee(m);
  DefineResults(m);
  DefineCareerChildren(m);
  DefineOthers(m);
}
