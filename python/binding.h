// The Python module over the library: what every area of the binding shares.
//
// The binding adds no logic of its own. Every object crosses as the library's
// shared pointer, so an object Python holds lives as long as Python holds it,
// whatever becomes of its list or session. What it does add is the checking a
// Python caller expects at the boundary: a property set with a value of the wrong
// kind raises TypeError (or ValueError, for a number beyond its range) naming the
// property, before anything is written; a month outside 1..12 raises IndexError
// naming the property.
#pragma once

#include <pybind11/functional.h>
#include <pybind11/pybind11.h>

#include <array>
#include <cstdint>
#include <functional>
#include <limits>
#include <memory>
#include <string>
#include <type_traits>
#include <utility>

#include "ormelix/indexed_array.h"
#include "ormelix/store/columns.h"
#include "ormelix/store/variant.h"

namespace py = pybind11;

namespace ormelix::python {

// ---- Values at the boundary

// Text as it crosses: UTF-8 both ways; bytes of the store that are no UTF-8 come
// to Python as surrogate escapes and go back as the same bytes, so nothing read
// and written again is changed.
struct Text {
  std::string value;
};

py::str ToStr(const std::string& text);
std::string FromStr(py::handle text);

// The value of a property of type T from Python, or TypeError / ValueError
// naming the property (`name`) and what it got. Nothing is assigned here: the
// caller assigns the result, so a refused value writes nothing.
[[noreturn]] void WrongType(const char* name, const char* expected, py::handle got);
std::string TextFrom(py::handle value, const char* name);
bool FlagFrom(py::handle value, const char* name);
long long WholeFrom(py::handle value, const char* name, long long low, long long high);
double NumberFrom(py::handle value, const char* name);
float SingleFrom(py::handle value, const char* name);
Variant VariantFrom(py::handle value, const char* name);
py::object VariantTo(const Variant& value);

template <class T>
T ValueFrom(py::handle value, const char* name) {
  if constexpr (std::is_same_v<T, std::string>) return TextFrom(value, name);
  else if constexpr (std::is_same_v<T, bool>) return FlagFrom(value, name);
  else if constexpr (std::is_same_v<T, float>) return SingleFrom(value, name);
  else if constexpr (std::is_same_v<T, double>) return NumberFrom(value, name);
  else if constexpr (std::is_same_v<T, Variant>) return VariantFrom(value, name);
  else if constexpr (std::is_enum_v<T> || std::is_integral_v<T>) {
    using U = std::conditional_t<std::is_enum_v<T>, std::underlying_type<T>, std::type_identity<T>>::type;
    return static_cast<T>(WholeFrom(value, name, std::numeric_limits<U>::min(), std::numeric_limits<U>::max()));
  } else static_assert(sizeof(T) == 0, "no conversion from Python for this type");
}

// A single-precision amount as the decimal it stands for: the shortest decimal
// that reads back as the same float (3831.12f is 3831.12, not 3831.1201171875).
double Decimal(float value);

// A value on its way out: text as Text (its caster keeps bytes that are no UTF-8),
// a float as its decimal, everything else as it is (its own caster knows it).
inline Text Out(const std::string& value) { return Text{value}; }
inline double Out(float value) { return Decimal(value); }
template <class T>
  requires(!std::is_same_v<std::decay_t<T>, std::string> && !std::is_same_v<std::decay_t<T>, float>)
std::decay_t<T> Out(T&& value) {
  return std::forward<T>(value);
}

// The cell a PropertyRef points at, read and written.
py::object ReadRef(const PropertyRef& ref);
void WriteRef(const PropertyRef& ref, py::handle value, const char* name);

// ---- Enumerations: Python's IntEnum (IntFlag for the update flags), one class
// per enumeration of the library, its members also at module level as in C++.

// The Python class of an enumeration, once made.
template <class E>
struct EnumClass {
  static inline PyObject* cls = nullptr;  // kept for the life of the process
};

template <class E>
struct EnumCaster {
  E value{};

  bool load(py::handle src, bool) {
    if (!src || PyBool_Check(src.ptr()) || !PyLong_Check(src.ptr())) return false;
    using U = std::underlying_type_t<E>;
    long long number = PyLong_AsLongLong(src.ptr());
    if (PyErr_Occurred()) {
      PyErr_Clear();
      return false;
    }
    if (number < std::numeric_limits<U>::min() || number > std::numeric_limits<U>::max()) return false;
    value = static_cast<E>(number);
    return true;
  }
  // The member of the value, or the plain number for a value the enumeration
  // lacks (a stored value outside it stays what it is).
  static py::handle cast(E src, py::return_value_policy, py::handle) {
    py::int_ number(static_cast<long long>(src));
    if (!EnumClass<E>::cls) return number.release();
    try {
      return py::reinterpret_borrow<py::object>(EnumClass<E>::cls)(number).release();
    } catch (py::error_already_set&) {
      return number.release();
    }
  }
  operator E&() { return value; }
  template <class T>
  using cast_op_type = E&;
};

// ---- Objects at the boundary

template <class T>
using Class = py::class_<T, std::shared_ptr<T>>;

// The class an earlier declaration made (every class is declared before any is
// defined, so that each signature names the classes it uses).
template <class T>
Class<T> ClassOf(py::module_& m, const char* name) {
  return Class<T>(m.attr(name));
}

// ---- Properties of plain members, named as the library names them

template <auto M>
using MemberType =
    std::remove_cvref_t<decltype(std::declval<typename detail::MemberClass<decltype(M)>::type&>().*M)>;

// A data member, read and written with the checks above.
template <auto M, class C>
void Member(Class<C>& cls) {
  using T = MemberType<M>;
  cls.def_property(
      kMemberName<M>, [](const C& self) { return Out(self.*M); },
      [](C& self, py::handle value) { self.*M = ValueFrom<T>(value, kMemberName<M>); });
}
template <auto... Ms, class C>
void Members(Class<C>& cls) {
  (Member<Ms>(cls), ...);
}

// ---- Methods, named as the library names them

// An object argument (a shared pointer) may not be None unless the library gives
// None a meaning (those methods are bound on their own): the library would hold
// an unset object and fail later.
template <class T>
struct IsSharedPtr : std::false_type {};
template <class T>
struct IsSharedPtr<std::shared_ptr<T>> : std::true_type {};

template <class T>
T&& CheckArgument(T&& argument, const char* method) {
  if constexpr (IsSharedPtr<std::remove_cvref_t<T>>::value) {
    if (!argument) throw py::type_error(std::string(method) + ": an object is required, not None; nothing was done");
  }
  return std::forward<T>(argument);
}

template <auto F, class C, class R, class... A>
auto MethodLambda(R (C::*)(A...) const) {
  return [](const C& self, A... args) {
    if constexpr (std::is_void_v<R>) (self.*F)(CheckArgument(std::forward<A>(args), kMemberName<F>)...);
    else return Out((self.*F)(CheckArgument(std::forward<A>(args), kMemberName<F>)...));
  };
}
template <auto F, class C, class R, class... A>
auto MethodLambda(R (C::*)(A...)) {
  return [](C& self, A... args) {
    if constexpr (std::is_void_v<R>) (self.*F)(CheckArgument(std::forward<A>(args), kMemberName<F>)...);
    else return Out((self.*F)(CheckArgument(std::forward<A>(args), kMemberName<F>)...));
  };
}

// A member function as a method of its name; extra are its py::arg names and
// defaults. Text comes back as Text, so no stored byte makes it fail.
template <auto F, class C, class... Extra>
void Method(Class<C>& cls, const Extra&... extra) {
  cls.def(kMemberName<F>, MethodLambda<F>(F), extra...);
}
// Several member functions, each with the same arguments (none by default).
template <auto... Fs, class C, class... Extra>
void Methods(Class<C>& cls, const Extra&... extra) {
  (Method<Fs>(cls, extra...), ...);
}

// A monthly child object (Kurzarbeit(m), Sechstel(m), ...): the month must be
// 1..12 (IndexError naming the property); the library's month 0 is no object.
void RequireMonth(const char* name, int month);
template <auto G, class C>
void MonthlyChild(Class<C>& cls) {
  cls.def(
      kMemberName<G>,
      [](const C& self, int pIndex) {
        RequireMonth(kMemberName<G>, pIndex);
        return (self.*G)(pIndex);
      },
      py::arg("pIndex"));
}
template <auto... Gs, class C>
void MonthlyChildren(Class<C>& cls) {
  (MonthlyChild<Gs>(cls), ...);
}

// ---- Indexed properties (month arrays, grids, bands)

// One indexed property of one object: the object kept alive, and how to reach a
// cell by its indices. The last index is a month (1..12) where `months` is set,
// else the range the library checks. Python sees it as ormelix.IndexedArray:
// x[i] and x(i) read, x[i] = v writes; grids take x[a, b, month] and x(a, b, month).
class IndexedValues {
 public:
  using Indices = std::array<int, 3>;
  using Access = std::function<PropertyRef(const Indices&)>;

  IndexedValues(const char* name, int arity, int low, int high, bool months, Access access)
      : name_(name), arity_(arity), low_(low), high_(high), months_(months), access_(std::move(access)) {}

  py::object Get(py::handle index) const;
  void Set(py::handle index, py::handle value) const;
  py::object Call(py::args indices) const;
  long Length() const;
  py::list Keys() const;
  py::list Values() const;
  py::str Repr() const;
  const char* Name() const { return name_; }

 private:
  Indices Parse(py::handle index) const;
  int Arity1() const;

  const char* name_;
  int arity_;
  int low_;
  int high_;
  bool months_;
  Access access_;
};

void DefineIndexedValues(py::module_& m);

// The Python type of a cell ("float", "str", ...), and the doc of an indexed
// property, "IndexedArray[float]", which the stubs take as its type.
const char* CellTypeName(const PropertyRef& ref);
std::string IndexedDoc(const PropertyRef& sample);
template <class T>
std::string IndexedDocOf() {
  T sample{};
  return IndexedDoc(PropertyRef(&sample));
}

// An IndexedArray<T, Low, High> member: the whole range of the library, or 1..12
// for a month array (0..12 or 1..12: element 0 is never loaded or saved).
template <auto M, class C>
void ArrayMember(Class<C>& cls) {
  using A = MemberType<M>;
  constexpr bool months = A::kHigh == 12 && A::kLow <= 1;
  using T = std::remove_cvref_t<decltype(std::declval<A&>()(A::kLow))>;
  cls.def_property_readonly(
      kMemberName<M>,
      [](const std::shared_ptr<C>& self) {
        return IndexedValues(kMemberName<M>, 1, months ? 1 : A::kLow, A::kHigh, months,
                             [self](const IndexedValues::Indices& i) -> PropertyRef { return &((*self).*M)(i[0]); });
      },
      py::doc(IndexedDocOf<T>().c_str()));
}
template <auto... Ms, class C>
void ArrayMembers(Class<C>& cls) {
  (ArrayMember<Ms>(cls), ...);
}

// A grid member: MonthGrid (a, month) or MonthGrid3 (a, b, month).
template <class G>
struct GridArity;
template <class T, int A, int B>
struct GridArity<MonthGrid<T, A, B>> : std::integral_constant<int, 2> {
  using Cell = T;
};
template <class T, int A, int B, int C, int D>
struct GridArity<MonthGrid3<T, A, B, C, D>> : std::integral_constant<int, 3> {
  using Cell = T;
};

template <auto M, class C>
void GridMember(Class<C>& cls) {
  using G = MemberType<M>;
  constexpr int arity = GridArity<G>::value;
  using T = typename GridArity<G>::Cell;
  cls.def_property_readonly(
      kMemberName<M>,
      [](const std::shared_ptr<C>& self) {
        return IndexedValues(kMemberName<M>, arity, 1, 12, true,
                             [self](const IndexedValues::Indices& i) -> PropertyRef {
                               if constexpr (arity == 2) return &((*self).*M)(i[0], i[1]);
                               else return &((*self).*M)(i[0], i[1], i[2]);
                             });
      },
      py::doc(IndexedDocOf<T>().c_str()));
}
template <auto... Ms, class C>
void GridMembers(Class<C>& cls) {
  (GridMember<Ms>(cls), ...);
}

// ---- Collections: len(), iteration, `in`, and Item / [] by position or key

// `in`: the object itself is an item, or Item(key) finds one of the items.
template <class List, class Item>
bool Contains(const List& list, py::handle wanted, const std::function<std::shared_ptr<Item>(const Variant&)>& item) {
  std::shared_ptr<Item> found;
  if (py::isinstance<Item>(wanted)) {
    found = wanted.cast<std::shared_ptr<Item>>();
  } else {
    try {
      found = item(VariantFrom(wanted, "in"));
    } catch (const std::exception&) {
      return false;
    }
  }
  for (const auto& entry : list)
    if (entry == found) return true;
  return false;
}

// Binds Count, len(), iteration (over a snapshot of the items, so that a list
// changed meanwhile cannot invalidate it), `in`, and Item with [] beside it.
template <class C, class Item>
void CollectionProtocol(Class<C>& cls, std::function<std::shared_ptr<Item>(const C&, const Variant&)> item) {
  cls.def("Count", [](const C& self) { return static_cast<long>(self.Count()); });
  cls.def("__len__", [](const C& self) { return static_cast<long>(self.Count()); });
  cls.def("__iter__", [](const C& self) {
    py::list items;
    for (const auto& entry : self) items.append(std::shared_ptr<Item>(entry));
    return py::iter(items);
  });
  cls.def("__contains__", [item](const C& self, py::handle wanted) {
    return Contains<C, Item>(self, wanted, [&](const Variant& key) { return item(self, key); });
  });
  cls.def("Item", [item](const C& self, const Variant& pIndex) { return item(self, pIndex); }, py::arg("pIndex"));
  cls.def("__getitem__", [item](const C& self, const Variant& pIndex) { return item(self, pIndex); });
}

// ---- The areas, each declaring its classes first and defining them after.

void DefineErrors(py::module_& m);
void DefineEnums(py::module_& m);
void DeclareStore(py::module_& m);
void DefineStore(py::module_& m);
void DeclareEmployer(py::module_& m);
void DefineEmployer(py::module_& m);
void DeclareBasevalues(py::module_& m);
void DefineBasevalues(py::module_& m);
void DeclareEmployee(py::module_& m);
void DefineEmployee(py::module_& m);
void DeclareResults(py::module_& m);
void DefineResults(py::module_& m);
void DeclareCareerChildren(py::module_& m);
void DefineCareerChildren(py::module_& m);
void DeclareOthers(py::module_& m);
void DefineOthers(py::module_& m);

}  // namespace ormelix::python

// ---- Casters: Text, Variant and each enumeration of the library

namespace pybind11::detail {

template <>
struct type_caster<ormelix::python::Text> {
  PYBIND11_TYPE_CASTER(ormelix::python::Text, const_name("str"));
  bool load(handle src, bool) {
    if (!src || !PyUnicode_Check(src.ptr())) return false;
    value.value = ormelix::python::FromStr(src);
    return true;
  }
  static handle cast(const ormelix::python::Text& src, return_value_policy, handle) {
    return ormelix::python::ToStr(src.value).release();
  }
};

// A store value: None (Null; Empty comes out as None too), bool, int, float or str.
template <>
struct type_caster<ormelix::Variant> {
  PYBIND11_TYPE_CASTER(ormelix::Variant, const_name("int | float | str | bool | None"));
  bool load(handle src, bool) {
    if (!src) return false;
    if (!src.is_none() && !PyBool_Check(src.ptr()) && !PyLong_Check(src.ptr()) && !PyFloat_Check(src.ptr()) &&
        !PyUnicode_Check(src.ptr()))
      return false;
    value = ormelix::python::VariantFrom(src, "value");
    return true;
  }
  static handle cast(const ormelix::Variant& src, return_value_policy, handle) {
    return ormelix::python::VariantTo(src).release();
  }
};

}  // namespace pybind11::detail

#define ORMELIX_PYTHON_ENUM(E)                                                          \
  namespace pybind11::detail {                                                          \
  template <>                                                                           \
  struct type_caster<ormelix::E> : ormelix::python::EnumCaster<ormelix::E> {           \
    static constexpr auto name = const_name("ormelix." #E);                             \
  };                                                                                    \
  }

#include "enum_list.h"
