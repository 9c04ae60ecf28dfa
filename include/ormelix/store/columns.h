/// \file
/// Column declarations: each table routine declares its columns once, in order, as
/// (column, property, how it is read, how it is written), and that one list drives
/// load, save and copy. Crossings and exceptions of the domain are entries of the
/// list (a column read into one property and written from another, a column that is
/// only written), not second copies of a routine.
#pragma once

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>
#include <type_traits>
#include <variant>
#include <vector>

#include "ormelix/error.h"
#include "ormelix/store/recordset.h"
#include "ormelix/store/variant.h"

namespace ormelix {

/// How a column is read into its property.
enum class LoadAs {
  None,      ///< not read
  Text,      ///< ToText
  Flag,      ///< ToFlag (a 16-bit property holds True as -1)
  Long,      ///< ToLong
  Integer,   ///< ToInteger
  Single,    ///< ToSingle
  Amount,    ///< ToAmount (into a 16-bit property: rounded half to even)
  Date,      ///< ToDate
  Round2,    ///< RoundTo(field, 2)
  Round4,    ///< RoundTo(field, 4)
  AsVariant, ///< ToVariantValue
  Custom     // by the entry's own function (load_with)
};

/// How a property is written to its column.
enum class SaveAs {
  None,     ///< not written
  Direct,   ///< the value as it is
  Round2,   ///< RoundTo(value, 2)
  Round3,   ///< RoundTo(value, 3)
  Flag,     ///< ToFlag(value)
  Integer,  ///< ToInteger(value)
  Date,     ///< ToDate(value)
  SqlID,    ///< SqlID(value)
  IDOrNull, ///< the value if it is an ID, else Null
  Custom    // by the entry's own function (save_with)
};

/// A reference to a property of one of the types the domain stores.
using PropertyRef = std::variant<std::string*, bool*, std::int16_t*, std::int32_t*, float*, double*, Variant*>;

/// A set of lambdas as one visitor, for std::visit over a PropertyRef.
template <class... F>
struct Overloaded : F... {
  using F::operator()...;
};
/// \cond INTERNAL
template <class... F>
Overloaded(F...) -> Overloaded<F...>;
/// \endcond

/// Reads a field (or a stored value, Empty for no row) into a property; writes a
/// property as a column value.
void LoadProperty(const Field& field, LoadAs how, PropertyRef into);
/// The same from a stored value (Empty for no row).
void LoadProperty(const Variant& value, LoadAs how, PropertyRef into);
/// The property's value as the column takes it, converted as `how` says.
Variant SaveProperty(PropertyRef from, SaveAs how);

/// Called while a failure to read a stored value is handled: raises it again (a
/// ConversionError or std::out_of_range) naming where the value lies, the column,
/// its table and row (Field::Where); any other failure as it is.
[[noreturn]] void RethrowUnreadable(const Field& field);

/// The name of a member (data or function) or of an enumerator given as a template
/// argument, as the compiler spells it: NameOf<&LLohn::Gehalt> is "Gehalt",
/// NameOf<eBasisWien> is "eBasisWien". Read from the compiler's own spelling of the
/// function's signature (g++ and clang write "... M = &ns::Class::Name ..."); a
/// compiler that spells it otherwise fails to compile here rather than give wrong
/// names.
template <auto M>
constexpr std::string_view NameOf() {
  constexpr std::string_view signature = __PRETTY_FUNCTION__;
  constexpr std::size_t start = signature.find("M = ") + 4;
  constexpr std::string_view spelled = signature.substr(start, signature.find_first_of(";]", start) - start);
  constexpr std::size_t colon = spelled.rfind("::");
  constexpr std::string_view name = colon == std::string_view::npos ? spelled : spelled.substr(colon + 2);
  static_assert(signature.find("M = ") != std::string_view::npos && !name.empty() &&
                    name.find_first_of(" &()<>,:*") == std::string_view::npos,
                "NameOf: this compiler spells template arguments in a way not understood here");
  return name;
}

namespace detail {
/// A key no other column declaration set of the process has.
std::uint64_t NewColumnSetKey();

template <auto M>
inline constexpr std::string_view kNameOf = NameOf<M>();
inline constexpr std::string_view kDot = ".";
inline constexpr std::string_view kOpen = "(";
inline constexpr std::string_view kClose = ")";

/// Names joined at compile time, kept as a C string.
template <const std::string_view&... Parts>
struct JoinedName {
  static constexpr auto kText = [] {
    std::array<char, (Parts.size() + ... + 0) + 1> text{};
    std::size_t at = 0;
    ((std::copy(Parts.begin(), Parts.end(), text.begin() + static_cast<std::ptrdiff_t>(at)), at += Parts.size()), ...);
    return text;
  }();
};
}  // namespace detail

/// The name of a member, or of a member of a member object ("Sechstel.JahresSumme"),
/// or of an indexed property ("DZBL(eBasisWien)"), as a C string.
template <auto M>
inline constexpr const char* kMemberName = detail::JoinedName<detail::kNameOf<M>>::kText.data();
/// The name of a member of a member object, "Outer.Inner".
template <auto Outer, auto Inner>
inline constexpr const char* kMemberPath =
    detail::JoinedName<detail::kNameOf<Outer>, detail::kDot, detail::kNameOf<Inner>>::kText.data();
/// The name of an indexed property, "Member(Index)".
template <auto M, auto Index>
inline constexpr const char* kIndexedName =
    detail::JoinedName<detail::kNameOf<M>, detail::kOpen, detail::kNameOf<Index>, detail::kClose>::kText.data();

/// A property of the target of a declaration: how to reach it, and its name as the
/// object model has it, relative to the target ("Gehalt", "Mitarbeiter.FName" for a
/// property of a member object, "DZBL(eBasisWien)" for an indexed one). A tool that
/// shows a record keys its values by these names. Made from a plain function (or a
/// lambda) it has no name, and the column's name stands for it.
template <class Target>
struct Property {
  /// The function that reaches the property of a target.
  using Getter = PropertyRef (*)(Target&);
  Getter get = nullptr;        ///< how to reach the property; nullptr for none
  const char* name = nullptr;  ///< its name in the object model; nullptr for none

  /// \name Construction
  ///@{

  /// Makes a property reference.
  ///
  /// No property (also from nullptr), a getter with an optional name, or a lambda
  /// without capture (no name).
  constexpr Property() = default;
  constexpr Property(std::nullptr_t) {}
  constexpr Property(Getter getter, const char* property_name = nullptr) : get(getter), name(property_name) {}
  template <class F>
    requires(std::is_convertible_v<F, Getter> && !std::is_same_v<std::decay_t<F>, Getter>)
  constexpr Property(F getter) : get(getter) {}
  ///@}

  /// The property of the target.
  PropertyRef operator()(Target& target) const { return get(target); }
  /// True for a property, false for none.
  explicit constexpr operator bool() const { return get != nullptr; }
};

/// A property reached by a function of its own, with its name.
template <class Target, class F>
constexpr Property<Target> Named(const char* name, F getter) {
  return Property<Target>(static_cast<typename Property<Target>::Getter>(getter), name);
}

/// One entry of a column declaration: a column, its property, how it is read and
/// how it is written.
template <class Target>
struct ColumnDecl {
  const char* column;  ///< nullptr marks a checkpoint (see ColumnSet::Save)
  Property<Target> property;  ///< the property read and written (nullptr for a custom entry)
  LoadAs load;  ///< how the column is read
  SaveAs save;  ///< how it is written
  /// Where a column is written from another property than it is read into.
  Property<Target> save_property = nullptr;
  /// The entry's own conversions, for LoadAs::Custom and SaveAs::Custom: a column
  /// that stands for no single property (a text of day numbers that fills 31 flags)
  /// or whose read depends on a property read before it.
  void (*load_with)(Target&, const Field&) = nullptr;
  /// The entry's own save conversion (SaveAs::Custom).
  Variant (*save_with)(Target&) = nullptr;
  /// For an entry of its own conversions with no single property: the name of what
  /// it stands for.
  const char* custom_name = nullptr;

  /// The name a view keys the entry's value by: its property's, else the column's.
  const char* Name() const {
    if (property.name) return property.name;
    if (!property && custom_name) return custom_name;
    return column;
  }
};

namespace detail {
template <class T>
struct MemberClass;
template <class C, class T>
struct MemberClass<T C::*> {
  using type = C;
};
}  // namespace detail

/// The getter behind Member: the member M of the target.
template <auto M, class Target>
PropertyRef MemberGet(Target& target) {
  return &(target.*M);
}
/// A plain member of the target: Member<&clsMandant::Name>, named "Name" (the
/// target may be given, for a member of a base class: Member<&Base::x, Target>).
template <auto M, class Target = typename detail::MemberClass<decltype(M)>::type>
inline constexpr Property<Target> Member{&MemberGet<M, Target>, kMemberName<M>};

/// A member stored in the column of its own name, read through `load`:
/// Plain<&LLohn_Kurzarbeit::SVBG>(LoadAs::Amount) is the column SVBG, written as the
/// member stands.
template <auto M, class Target = typename detail::MemberClass<decltype(M)>::type>
ColumnDecl<Target> Plain(LoadAs load, SaveAs save = SaveAs::Direct) {
  return {kMemberName<M>, Member<M, Target>, load, save};
}

/// \brief The columns of one table, declared once in table order: the one list that
/// drives load, save and copy of a table routine.
///
/// The table routines (modDatabase, modBasiswerte and the employer classes) hand out
/// their sets, so that a tool can walk every stored value of a record.
template <class Target>
class ColumnSet {
 public:
  /// An entry.
  using Decl = ColumnDecl<Target>;

  /// The entries in table order.
  ColumnSet(std::initializer_list<Decl> columns) : columns_(columns), key_(detail::NewColumnSetKey()) {}

  /// A checkpoint entry: during a save of a wide row, the part written so far is
  /// stored at once if the row already has an ID (that is, it is no new row).
  static Decl Checkpoint() { return Decl{nullptr, nullptr, LoadAs::None, SaveAs::None}; }

  /// A column read and written by functions of its own; name is what it stands
  /// for in the object model (the column's name if none is given).
  static Decl Custom(const char* column, void (*load_with)(Target&, const Field&), Variant (*save_with)(Target&),
                     const char* name = nullptr) {
    return Decl{column, nullptr, LoadAs::Custom, SaveAs::Custom, nullptr, load_with, save_with, name};
  }

  /// The entries in table order.
  const std::vector<Decl>& Columns() const { return columns_; }

  /// Column indices of the recordset, for repeated loads from one recordset. A
  /// SELECT * gives the table's columns in the order the declaration has them, so
  /// each column is first looked for right after the one before, by its exact
  /// name, and only where it is not there by a lookup of the name.
  std::vector<int> Bind(const Recordset& recordset) const {
    // Kept per statement's columns: the recordsets of one statement, one per
    // employee, bind once.
    return recordset.Binding(key_, [&] {
      std::vector<int> bound;
      bound.reserve(columns_.size());
      const int count = recordset.FieldCount();
      int next = -1;
      for (const Decl& decl : columns_) {
        if (!decl.column || decl.load == LoadAs::None) {
          bound.push_back(-1);
          continue;
        }
        const bool in_order = next >= 0 && next < count && recordset.FieldName(next) == decl.column;
        bound.push_back(in_order ? next : recordset.FieldIndex(decl.column));
        next = bound.back() + 1;
      }
      return bound;
    });
  }

  /// Reads every column that is read, in order, from the current row. The row is
  /// looked up once, not once per column: a pay row has some two hundred.
  void Load(Target& target, const Recordset& recordset, const std::vector<int>& bound) const {
    static const Variant kNoRow;
    const Variant* row = recordset.CurrentRow();
    std::size_t i = 0;
    try {
      for (; i < columns_.size(); ++i) {
        const Decl& decl = columns_[i];
        if (bound[i] < 0) continue;
        if (decl.load == LoadAs::Custom) decl.load_with(target, recordset.Fields(bound[i]));
        else LoadProperty(row ? row[bound[i]] : kNoRow, decl.load, decl.property(target));
      }
    } catch (...) {
      RethrowUnreadable(recordset.Fields(bound[i]));
    }
  }
  /// The same, binding the columns first.
  void Load(Target& target, const Recordset& recordset) const { Load(target, recordset, Bind(recordset)); }

  /// The same from a row's cells as Recordset::CurrentRow gives them, for a routine
  /// that sorts rows first and reads them later. An entry of its own conversion
  /// needs the recordset and is refused here.
  void Load(Target& target, const Variant* row, const std::vector<int>& bound) const {
    for (std::size_t i = 0; i < columns_.size(); ++i) {
      const Decl& decl = columns_[i];
      if (bound[i] < 0) continue;
      // (LoadProperty refuses LoadAs::Custom with a ConversionError.)
      LoadProperty(row[bound[i]], decl.load, decl.load == LoadAs::Custom ? PropertyRef{} : decl.property(target));
    }
  }

  /// The first column that would be written with a number that is no number (NaN)
  /// or infinite, or nullptr when there is none. A save checks its row with it
  /// before it writes anything: the store keeps neither (SQLite would turn NaN into
  /// Null, which reads back as 0).
  const char* NonFiniteColumn(Target& target) const {
    auto finite = [](const Variant& value) { return value.kind() != Variant::Double || std::isfinite(value.AsDouble()); };
    for (const Decl& decl : columns_) {
      if (!decl.column || decl.save == SaveAs::None) continue;
      if (decl.save == SaveAs::Custom) {
        if (!finite(decl.save_with(target))) return decl.column;
        continue;
      }
      PropertyRef from = decl.save_property ? decl.save_property(target) : decl.property(target);
      const bool ok = std::visit(Overloaded{[](double* p) { return std::isfinite(*p); },
                                            [](float* p) { return std::isfinite(*p); },
                                            [&](Variant* p) { return finite(*p); },
                                            [](auto*) { return true; }},
                                 from);
      if (!ok) return decl.column;
    }
    return nullptr;
  }

  /// Sets every column that is written, in order, on the current or new row.
  /// Checkpoints call Update where the row has an ID already. The final Update is
  /// the caller's.
  void Save(Target& target, Recordset& recordset) const {
    for (const Decl& decl : columns_) {
      if (!decl.column) {
        if (!recordset.Fields("ID").ValueOrEmpty().IsMissing()) recordset.Update();
        continue;
      }
      if (decl.save == SaveAs::None) continue;
      if (decl.save == SaveAs::Custom) {
        recordset.Collect(decl.column, decl.save_with(target));
        continue;
      }
      PropertyRef from = decl.save_property ? decl.save_property(target) : decl.property(target);
      recordset.Collect(decl.column, SaveProperty(from, decl.save));
    }
  }

 private:
  std::vector<Decl> columns_;
  std::uint64_t key_;  ///< tells this set's bindings apart from every other set's
};

/// Refuses, before anything is written, a row of which a column would be written
/// with NaN or an infinite number: ConversionError naming the table, the column and
/// the row.
template <class Target>
void RequireFinite(const ColumnSet<Target>& columns, Target& target, const std::string& table,
                   const std::string& row) {
  if (const char* column = columns.NonFiniteColumn(target))
    throw ConversionError(table + ": " + column + " of " + row + " is no finite number; nothing was written");
}

}  // namespace ormelix
