// Stores and the session: StoreConnection (a file or a connection string),
// its StoreSession and recordsets, new stores from the schema, the helper
// singletons, and clsManager with its settings and period key.
#include "binding.h"
#include "ormelix/basevalues/basisdaten.h"
#include "ormelix/countries/laender.h"
#include "ormelix/employee/mitarbeiter_list.h"
#include "ormelix/employer/mandant.h"
#include "ormelix/session/manager.h"
#include "ormelix/session/settings.h"
#include "ormelix/session/zeitraum.h"
#include "ormelix/store/date_helpers.h"
#include "ormelix/store/location.h"
#include "ormelix/store/rounding_helpers.h"
#include "ormelix/store/schema.h"
#include "ormelix/store/store.h"
#include "ormelix/store/value_helpers.h"

namespace ormelix::python {

namespace {

// A session is owned by its connection (Python holds the connection while it
// holds the session); a recordset is Python's own; a field keeps its recordset.
using SessionClass = py::class_<StoreSession>;
using RecordsetClass = py::class_<Recordset, std::shared_ptr<Recordset>>;
using FieldClass = py::class_<Field>;

void DefineConnection(py::module_& m) {
  ClassOf<StoreConnection>(m, "StoreConnection")
      .def_static("Open", &StoreConnection::Open, py::arg("path"), py::arg("connect") = "",
                  "Opens an existing store: an SQLite file, or a PostgreSQL database named by a connection "
                  "string. connect \"readonly\" opens it without writing; StoreError when it cannot be opened.")
      .def("Session", &StoreConnection::Session, py::return_value_policy::reference_internal);
  m.def("CreateStore", &CreateStore, py::arg("path"), py::arg("kind"), py::arg("connect") = "",
        "Creates a new store from the schema and opens it; StoreError for one that exists already.");
  m.def("SchemaDdl", &SchemaDdl, py::arg("kind"), py::arg("dialect") = "sqlite");
  m.def("IsServerLocation", &IsServerLocation, py::arg("location"));
  m.def("ShownLocation", &ShownLocation, py::arg("location"));
  m.def("LocationParameter", &LocationParameter, py::arg("location"), py::arg("key"));
  m.def("WithLocationParameter", &WithLocationParameter, py::arg("location"), py::arg("key"), py::arg("value"));
  m.def("LibpqConnectionString", &LibpqConnectionString, py::arg("location"));
}

void DefineSession(py::module_& m) {
  SessionClass(m.attr("StoreSession"))
      .def(
          "OpenRecordset",
          [](StoreSession& self, const std::string& sql, CursorTypeEnum cursor, LockTypeEnum lock) {
            return std::shared_ptr<Recordset>(self.OpenRecordset(sql, cursor, lock));
          },
          py::arg("sql"), py::arg("cursor") = adOpenForwardOnly, py::arg("lock") = adLockReadOnly)
      .def("ExecuteSql", &StoreSession::ExecuteSql, py::arg("sql"), py::arg("flag") = true)
      .def("IsOpen", &StoreSession::IsOpen)
      .def("OpenStore", &StoreSession::OpenStore, py::arg("path"), py::arg("connect"))
      .def("CloseStore", &StoreSession::CloseStore)
      .def("StorePath", [](const StoreSession& self) { return Out(self.StorePath()); })
      .def("StoreConnect", [](const StoreSession& self) { return Out(self.StoreConnect()); });
}

void DefineRecordset(py::module_& m) {
  RecordsetClass(m.attr("Recordset"))
      .def("Eof", &Recordset::Eof)
      .def("Bof", &Recordset::Bof)
      .def("MoveNext", &Recordset::MoveNext)
      .def("MovePrevious", &Recordset::MovePrevious)
      .def("MoveFirst", &Recordset::MoveFirst)
      .def("MoveLast", &Recordset::MoveLast)
      .def("RecordCount", &Recordset::RecordCount)
      .def("Fields", [](const Recordset& self, std::string_view name) { return self.Fields(name); },
           py::arg("name"), py::keep_alive<0, 1>())
      // The library takes a column's index on trust; Python gets an IndexError.
      .def(
          "Fields",
          [](const Recordset& self, int index) {
            if (index < 0 || index >= self.FieldCount())
              throw py::index_error("Fields(" + std::to_string(index) + "): the recordset has " +
                                    std::to_string(self.FieldCount()) + " fields");
            return self.Fields(index);
          },
          py::arg("index"), py::keep_alive<0, 1>())
      .def("FieldCount", &Recordset::FieldCount)
      .def("FieldName", [](const Recordset& self, int index) { return Out(self.FieldName(index)); },
           py::arg("index"))
      .def("Collect", [](Recordset& self, std::string_view name, const Variant& value) { self.Collect(name, value); },
           py::arg("name"), py::arg("value"))
      .def("AddNew", &Recordset::AddNew)
      .def("Update", &Recordset::Update)
      .def("Delete", &Recordset::Delete)
      .def("Filter", [](Recordset& self, std::string_view criteria) { self.Filter(criteria); }, py::arg("criteria"))
      .def("Find", &Recordset::Find, py::arg("criteria"))
      .def("Requery", &Recordset::Requery)
      .def("Close", &Recordset::Close)
      .def("IsOpen", &Recordset::IsOpen)
      .def("Sql", [](const Recordset& self) { return Out(self.Sql()); });
  FieldClass(m.attr("Field"))
      .def("HasCurrentRow", &Field::HasCurrentRow)
      .def("Value", &Field::Value)
      .def("ValueOrEmpty", &Field::ValueOrEmpty)
      .def("Name", [](const Field& self) { return Out(self.Name()); })
      .def("Index", &Field::Index)
      .def("Where", &Field::Where);
}

// The stateless helpers, as submodules of their C++ names.
void DefineHelpers(py::module_& m) {
  py::module_ date = m.def_submodule("DateHelpers", "Day counts (day 0 = 30 December 1899) and periods (yyyymm).");
  date.def("IsEmptyText", [](const Variant& value) { return DateHelpers::IsEmptyText(value); }, py::arg("value"));
  date.def("IsID", [](const Variant& value) { return DateHelpers::IsID(value); }, py::arg("value"));
  date.def("DateSerial", &DateHelpers::DateSerial, py::arg("year"), py::arg("month"), py::arg("day"));
  date.def("Year", &DateHelpers::Year, py::arg("date"));
  date.def("Month", &DateHelpers::Month, py::arg("date"));
  date.def("Day", &DateHelpers::Day, py::arg("date"));
  date.def("LastDayOfMonth", &DateHelpers::LastDayOfMonth, py::arg("date"));
  date.def("ZeitraumMonth", &DateHelpers::ZeitraumMonth, py::arg("zeitraum"));
  date.def("ZeitraumYear", &DateHelpers::ZeitraumYear, py::arg("zeitraum"));
  date.def("ZeitraumToDate", &DateHelpers::ZeitraumToDate, py::arg("zeitraum"), py::arg("day") = 1);
  date.def("ZeitraumAddYears", &DateHelpers::ZeitraumAddYears, py::arg("zeitraum"), py::arg("years"));
  date.def("Today", &DateHelpers::Today);
  date.def("FormatDate", &DateHelpers::FormatDate, py::arg("date"));

  py::module_ value = m.def_submodule("ValueHelpers", "Store values to plain values and plain values to SQL.");
  value.def("SqlID", [](std::string_view id) { return Out(ValueHelpers::SqlID(id)); }, py::arg("id"));
  value.def("SqlDate", &ValueHelpers::SqlDate, py::arg("date"), py::arg("flag") = false);
  value.def("NewID", &ValueHelpers::NewID);
  value.def("MakeZeitraum", &ValueHelpers::MakeZeitraum, py::arg("month"), py::arg("year"));
  value.def("DateToZeitraum", &ValueHelpers::DateToZeitraum, py::arg("date"));

  py::module_ rounding = m.def_submodule("RoundingHelpers", "Commercial rounding, half away from zero.");
  rounding.def("RoundTo", [](double value, int digits) { return RoundingHelpers::RoundTo(value, digits); },
               py::arg("value"), py::arg("digits"));
  rounding.def("DivideExact", &RoundingHelpers::DivideExact, py::arg("a"), py::arg("b"), py::arg("digits"));
  rounding.def("MultiplyExact", &RoundingHelpers::MultiplyExact, py::arg("a"), py::arg("b"), py::arg("digits"));

  m.def("ComposeZeitraum", &ComposeZeitraum, py::arg("year"), py::arg("month"));
  // Day counts and datetime.date, through the library's own calendar.
  m.def(
      "date_from_days",
      [](double days) -> py::object {
        if (days == 0) return py::none();
        return py::module_::import("datetime").attr("date")(DateHelpers::Year(days), DateHelpers::Month(days),
                                                            DateHelpers::Day(days));
      },
      py::arg("days"), "The datetime.date of a day count (the library's dates); None for 0, which is no date.");
  m.def(
      "days_from_date",
      [](py::handle date) -> double {
        if (date.is_none()) return 0;
        if (!py::isinstance(date, py::module_::import("datetime").attr("date")))
          WrongType("days_from_date", "a datetime.date or None", date);
        return DateHelpers::DateSerial(date.attr("year").cast<int>(), date.attr("month").cast<int>(),
                                       date.attr("day").cast<int>());
      },
      py::arg("date"), "The day count of a datetime.date (of a datetime, its day); 0 for None.");
}

void DefineManager(py::module_& m) {
  auto cls = ClassOf<clsManager>(m, "clsManager");
  cls.def(py::init(&clsManager::Create), "A new session with its settings, employee list, base values and countries.")
      .def_static("Create", &clsManager::Create)
      .def("AktDB", [](const clsManager& self) { return self.AktDB(); })
      .def("SetAktDB", &clsManager::SetAktDB, py::arg("pDB"))
      .def("OpenAktDB", &clsManager::OpenAktDB, py::arg("pDB") = StoreConnectionPtr())
      .def("ImportDB", [](const clsManager& self) { return self.ImportDB(); })
      .def("SetImportDB", &clsManager::SetImportDB, py::arg("pDB"))
      .def("AktMandant", [](const clsManager& self) { return self.AktMandant(); })
      .def("SetAktMandant", &clsManager::SetAktMandant, py::arg("pMandant"))
      .def("ChangeAktMandant", &clsManager::ChangeAktMandant, py::arg("pID"))
      .def("ChangeAktMitarbeiter", &clsManager::ChangeAktMitarbeiter, py::arg("pID"))
      .def("GetZeitraum", &clsManager::GetZeitraum, py::arg("pAnderesMonat") = 0);
  Methods<&clsManager::CloseAktDB, &clsManager::Länder, &clsManager::DevelopmentMode, &clsManager::ImportDBPath,
          &clsManager::Mitarbeiter, &clsManager::Basis, &clsManager::AktDBPath, &clsManager::Settings,
          &clsManager::IsOpenDatabase>(cls);
  Members<&clsManager::AktMitarbeiterID, &clsManager::AktMitarbeiterIndex, &clsManager::AktJahr,
          &clsManager::AktMonat>(cls);

  auto settings = ClassOf<clsSettings>(m, "clsSettings");
  settings.def("GetValue", &clsSettings::GetValue, py::arg("pSection"), py::arg("pField"),
               py::arg("pDefaultValue") = Variant(), py::arg("pSubField") = "")
      .def("ExistValue", &clsSettings::ExistValue, py::arg("pSection"), py::arg("pField"), py::arg("pSubField") = "")
      .def("SetValue", &clsSettings::SetValue, py::arg("pSection"), py::arg("pField"), py::arg("pValue"),
           py::arg("pSubField") = "")
      .def("DeleteValue", &clsSettings::DeleteValue, py::arg("pSection"), py::arg("pField"),
           py::arg("pSubField") = "");

  auto zeitraum = ClassOf<clsZeitraum>(m, "clsZeitraum");
  zeitraum.def(py::init<>());
  Members<&clsZeitraum::Item>(zeitraum);
  Method<&clsZeitraum::Add>(zeitraum, py::arg("pMonth"), py::arg("pYear"));
  Method<&clsZeitraum::AddDate>(zeitraum, py::arg("pDate"));
  Methods<&clsZeitraum::GetMonth, &clsZeitraum::GetYear, &clsZeitraum::GetDate>(zeitraum);
}

}  // namespace

void DeclareStore(py::module_& m) {
  Class<StoreConnection>(m, "StoreConnection", "An open store: a file (SQLite) or a PostgreSQL database.");
  SessionClass(m, "StoreSession", "The statements of one store; handed out by StoreConnection.Session().");
  RecordsetClass(m, "Recordset", "A scrollable snapshot of one statement's rows.");
  FieldClass(m, "Field", "A column of a recordset's current row.");
  Class<clsManager>(m, "clsManager", "The session, root of the object graph.");
  Class<clsSettings>(m, "clsSettings", "Settings kept in the table Settings of the payroll store.");
  Class<clsZeitraum>(m, "clsZeitraum", "A period key (yyyymm) of a dated table.");
}

void DefineStore(py::module_& m) {
  DefineConnection(m);
  DefineSession(m);
  DefineRecordset(m);
  DefineHelpers(m);
  DefineManager(m);
}

}  // namespace ormelix::python
