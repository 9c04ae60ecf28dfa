// The shared part of the binding: values at the boundary, the indexed properties
// and the exceptions.
#include "binding.h"

#include <charconv>
#include <cmath>
#include <cstdlib>

#include "ormelix/error.h"

namespace ormelix::python {

// ---- Text and values

py::str ToStr(const std::string& text) {
  PyObject* str = PyUnicode_DecodeUTF8(text.data(), static_cast<Py_ssize_t>(text.size()), "surrogateescape");
  if (!str) throw py::error_already_set();
  return py::reinterpret_steal<py::str>(str);
}

std::string FromStr(py::handle text) {
  py::object bytes = py::reinterpret_steal<py::object>(PyUnicode_AsEncodedString(text.ptr(), "utf-8", "surrogateescape"));
  if (!bytes) throw py::error_already_set();
  return std::string(PyBytes_AS_STRING(bytes.ptr()), static_cast<std::size_t>(PyBytes_GET_SIZE(bytes.ptr())));
}

double Decimal(float value) {
  char text[32];
  auto [end, error] = std::to_chars(text, text + sizeof text - 1, value);
  if (error != std::errc()) return value;
  *end = '\0';
  return std::strtod(text, nullptr);
}

void WrongType(const char* name, const char* expected, py::handle got) {
  std::string type = got.is_none() ? "None" : py::str(py::type::handle_of(got).attr("__name__")).cast<std::string>();
  throw py::type_error(std::string(name) + ": expected " + expected + ", got " + type + "; nothing was written");
}

namespace {

bool IsWhole(py::handle value) { return PyLong_Check(value.ptr()) && !PyBool_Check(value.ptr()); }
bool IsNumber(py::handle value) { return IsWhole(value) || PyFloat_Check(value.ptr()); }

}  // namespace

std::string TextFrom(py::handle value, const char* name) {
  if (!PyUnicode_Check(value.ptr())) WrongType(name, "a text (str)", value);
  return FromStr(value);
}

bool FlagFrom(py::handle value, const char* name) {
  if (PyBool_Check(value.ptr())) return value.ptr() == Py_True;
  if (IsWhole(value)) return PyObject_IsTrue(value.ptr()) == 1;
  WrongType(name, "True or False (bool)", value);
}

long long WholeFrom(py::handle value, const char* name, long long low, long long high) {
  if (!IsWhole(value)) {
    WrongType(name,
              PyBool_Check(value.ptr()) ? "a whole number (int; a flag of this kind holds True as -1)"
                                        : "a whole number (int)",
              value);
  }
  int overflow = 0;
  long long number = PyLong_AsLongLongAndOverflow(value.ptr(), &overflow);
  if (overflow != 0 || number < low || number > high) {
    throw py::value_error(std::string(name) + ": " + py::str(value).cast<std::string>() + " is outside " +
                          std::to_string(low) + ".." + std::to_string(high) + "; nothing was written");
  }
  return number;
}

double NumberFrom(py::handle value, const char* name) {
  if (!IsNumber(value)) WrongType(name, "a number (int or float)", value);
  double number = PyFloat_AsDouble(value.ptr());
  if (PyErr_Occurred()) throw py::error_already_set();  // an int too large for a double
  return number;
}

float SingleFrom(py::handle value, const char* name) {
  double number = NumberFrom(value, name);
  if (std::isfinite(number) && std::fabs(number) > std::numeric_limits<float>::max()) {
    throw py::value_error(std::string(name) + ": " + py::str(value).cast<std::string>() +
                          " is outside the range of a single-precision amount; nothing was written");
  }
  return static_cast<float>(number);
}

Variant VariantFrom(py::handle value, const char* name) {
  if (value.is_none()) return Variant::NullValue();
  if (PyBool_Check(value.ptr())) return Variant(value.ptr() == Py_True);
  if (IsWhole(value)) return Variant(static_cast<std::int64_t>(WholeFrom(value, name, LLONG_MIN, LLONG_MAX)));
  if (PyFloat_Check(value.ptr())) return Variant(PyFloat_AsDouble(value.ptr()));
  if (PyUnicode_Check(value.ptr())) return Variant(FromStr(value));
  WrongType(name, "None, a bool, a number or a text", value);
}

py::object VariantTo(const Variant& value) {
  switch (value.kind()) {
    case Variant::Empty:
    case Variant::Null:
      return py::none();
    case Variant::Boolean:
      return py::bool_(value.AsBool());
    case Variant::Integer:
      return py::int_(value.AsInteger());
    case Variant::Double:
      return py::float_(value.AsDouble());
    case Variant::Text:
      return ToStr(value.AsText());
  }
  return py::none();
}

py::object ReadRef(const PropertyRef& ref) {
  return std::visit(Overloaded{[](std::string* p) -> py::object { return ToStr(*p); },
                               [](bool* p) -> py::object { return py::bool_(*p); },
                               [](std::int16_t* p) -> py::object { return py::int_(*p); },
                               [](std::int32_t* p) -> py::object { return py::int_(*p); },
                               [](float* p) -> py::object { return py::float_(Decimal(*p)); },
                               [](double* p) -> py::object { return py::float_(*p); },
                               [](Variant* p) -> py::object { return VariantTo(*p); }},
                    ref);
}

void WriteRef(const PropertyRef& ref, py::handle value, const char* name) {
  std::visit([&](auto* p) { *p = ValueFrom<std::remove_pointer_t<decltype(p)>>(value, name); }, ref);
}

// ---- Indexed properties

void RequireMonth(const char* name, int month) {
  if (month < 1 || month > 12)
    throw py::index_error(std::string(name) + "(" + std::to_string(month) + "): the month must be 1 to 12");
}

IndexedValues::Indices IndexedValues::Parse(py::handle index) const {
  Indices indices{0, 0, 0};
  auto take = [&](py::handle item, int at) {
    if (!IsWhole(item)) WrongType(name_, "whole-number indices (int)", item);
    indices[static_cast<std::size_t>(at)] = static_cast<int>(WholeFrom(item, name_, INT_MIN, INT_MAX));
  };
  if (arity_ == 1) {
    take(index, 0);
  } else {
    if (!PyTuple_Check(index.ptr()) || PyTuple_GET_SIZE(index.ptr()) != arity_)
      throw py::type_error(std::string(name_) + ": expected " + std::to_string(arity_) + " indices, as [" +
                           (arity_ == 2 ? "line, month" : "group, line, month") + "]");
    for (int i = 0; i < arity_; ++i) take(PyTuple_GET_ITEM(index.ptr(), i), i);
  }
  const int last = indices[static_cast<std::size_t>(arity_ - 1)];
  if (months_ && (last < 1 || last > 12)) {
    std::string shown;
    for (int i = 0; i < arity_; ++i) shown += (i ? ", " : "") + std::to_string(indices[static_cast<std::size_t>(i)]);
    throw py::index_error(std::string(name_) + "(" + shown + "): the month must be 1 to 12");
  }
  return indices;
}

py::object IndexedValues::Get(py::handle index) const { return ReadRef(access_(Parse(index))); }

void IndexedValues::Set(py::handle index, py::handle value) const { WriteRef(access_(Parse(index)), value, name_); }

py::object IndexedValues::Call(py::args indices) const {
  return Get(indices.size() == 1 ? py::handle(indices[0]) : py::handle(indices));
}

int IndexedValues::Arity1() const {
  if (arity_ != 1)
    throw py::type_error(std::string(name_) + " has " + std::to_string(arity_) +
                         " indices: read its cells by index, not as a sequence");
  return arity_;
}

long IndexedValues::Length() const {
  Arity1();
  return high_ - low_ + 1;
}

py::list IndexedValues::Keys() const {
  Arity1();
  py::list keys;
  for (int i = low_; i <= high_; ++i) keys.append(i);
  return keys;
}

py::list IndexedValues::Values() const {
  Arity1();
  py::list values;
  for (int i = low_; i <= high_; ++i) values.append(ReadRef(access_({i, 0, 0})));
  return values;
}

py::str IndexedValues::Repr() const {
  if (arity_ != 1) return py::str("<" + std::string(name_) + ": " + std::to_string(arity_) + " indices>");
  py::dict cells;
  for (int i = low_; i <= high_; ++i) cells[py::int_(i)] = ReadRef(access_({i, 0, 0}));
  return py::str("<{} {}>").format(name_, cells);
}

const char* CellTypeName(const PropertyRef& ref) {
  return std::visit(Overloaded{[](std::string*) { return "str"; }, [](bool*) { return "bool"; },
                               [](std::int16_t*) { return "int"; }, [](std::int32_t*) { return "int"; },
                               [](float*) { return "float"; }, [](double*) { return "float"; },
                               [](Variant*) { return "int | float | str | bool | None"; }},
                    ref);
}

std::string IndexedDoc(const PropertyRef& sample) { return std::string("IndexedArray[") + CellTypeName(sample) + "]"; }

void DefineIndexedValues(py::module_& m) {
  py::class_<IndexedValues>(m, "IndexedArray",
                            "An indexed property of one object (a month array, a grid of lines, a band): "
                            "x[i] or x(i) reads, x[i] = v writes; grids take x[a, b, month]. Months run "
                            "from 1 to 12.")
      .def("__getitem__", &IndexedValues::Get)
      .def("__setitem__", &IndexedValues::Set)
      .def("__call__", &IndexedValues::Call)
      .def("__len__", &IndexedValues::Length)
      .def("__iter__", [](const IndexedValues& self) { return py::iter(self.Values()); })
      .def("keys", &IndexedValues::Keys, "The indices, in order.")
      .def("values", &IndexedValues::Values, "The values, in the order of the indices.")
      .def("items", [](const IndexedValues& self) {
        py::list items;
        py::list keys = self.Keys();
        py::list values = self.Values();
        for (std::size_t i = 0; i < keys.size(); ++i) items.append(py::make_tuple(keys[i], values[i]));
        return items;
      }, "(index, value) pairs, in order.")
      .def("__repr__", &IndexedValues::Repr)
      .def_property_readonly("Name", &IndexedValues::Name);
}

// ---- Exceptions: ormelix.Error and its subclasses, with the library's message

namespace {

PyObject* g_error = nullptr;
PyObject* g_store_error = nullptr;
PyObject* g_key_not_found = nullptr;
PyObject* g_conversion_error = nullptr;

PyObject* NewError(py::module_& m, const char* name, PyObject* base, const char* doc) {
  PyObject* error = PyErr_NewExceptionWithDoc((std::string("ormelix.") + name).c_str(), doc, base, nullptr);
  if (!error) throw py::error_already_set();
  m.add_object(name, py::handle(error));  // takes a reference; ours stays for the life of the process
  Py_INCREF(error);
  return error;
}

void Raise(PyObject* type, const std::exception& error, std::initializer_list<std::pair<const char*, py::object>> attrs) {
  py::object instance = py::reinterpret_borrow<py::object>(type)(ToStr(error.what()));
  for (const auto& [name, value] : attrs) instance.attr(name) = value;
  PyErr_SetObject(type, instance.ptr());
}

}  // namespace

void DefineErrors(py::module_& m) {
  g_error = NewError(m, "Error", PyExc_Exception, "A failure of the library; its message is the library's.");
  g_store_error = NewError(m, "StoreError", g_error,
                           "The store could not serve a statement, filter, field or file. Subject is what was "
                           "being worked on, BackendMessage what the backend said, Code its error number.");
  py::tuple lookup = py::make_tuple(py::handle(g_error), py::handle(PyExc_LookupError));
  g_key_not_found = NewError(m, "KeyNotFound", lookup.ptr(),
                             "A failed lookup in a keyed collection, by key or position; Key is what was looked for.");
  py::tuple value = py::make_tuple(py::handle(g_error), py::handle(PyExc_ValueError));
  g_conversion_error = NewError(m, "ConversionError", value.ptr(),
                                "A value that cannot be turned into the wanted type.");
  py::register_exception_translator([](std::exception_ptr failure) {
    try {
      if (failure) std::rethrow_exception(failure);
    } catch (const StoreError& e) {
      Raise(g_store_error, e,
            {{"Subject", ToStr(e.Subject())}, {"BackendMessage", ToStr(e.BackendMessage())}, {"Code", py::int_(e.Code())}});
    } catch (const KeyNotFound& e) {
      Raise(g_key_not_found, e, {{"Key", ToStr(e.Key())}});
    } catch (const ConversionError& e) {
      Raise(g_conversion_error, e, {});
    } catch (const Error& e) {
      Raise(g_error, e, {});
    }
  });
}

}  // namespace ormelix::python
