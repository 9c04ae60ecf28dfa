// Column declarations: each table routine declares its columns once, in order, as
// (column, property, how it is read, how it is written), and that one list drives
// load, save and copy. Crossings and exceptions of the domain are entries of the
// list (a column read into one property and written from another, a column that is
// only written), not second copies of a routine.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <string>
#include <variant>
#include <vector>

#include "ormelix/store/recordset.h"
#include "ormelix/store/variant.h"

namespace ormelix {

// How a column is read into its property.
enum class LoadAs {
  None,      // not read
  Text,      // ToText
  Flag,      // ToFlag (a 16-bit property holds True as -1)
  Long,      // ToLong
  Integer,   // ToInteger
  Single,    // ToSingle
  Amount,    // ToAmount (into a 16-bit property: rounded half to even)
  Date,      // ToDate
  Round2,    // RoundTo(field, 2)
  Round4,    // RoundTo(field, 4)
  AsVariant, // ToVariantValue
  Custom     // by the entry's own function (load_with)
};

// How a property is written to its column.
enum class SaveAs {
  None,     // not written
  Direct,   // the value as it is
  Round2,   // RoundTo(value, 2)
  Round3,   // RoundTo(value, 3)
  Flag,     // ToFlag(value)
  Integer,  // ToInteger(value)
  Date,     // ToDate(value)
  SqlID,    // SqlID(value)
  IDOrNull, // the value if it is an ID, else Null
  Custom    // by the entry's own function (save_with)
};

// A reference to a property of one of the types the domain stores.
using PropertyRef = std::variant<std::string*, bool*, std::int16_t*, std::int32_t*, float*, double*, Variant*>;

// A set of lambdas as one visitor, for std::visit over a PropertyRef.
template <class... F>
struct Overloaded : F... {
  using F::operator()...;
};
template <class... F>
Overloaded(F...) -> Overloaded<F...>;

// Reads a field into a property; writes a property as a column value.
void LoadProperty(const Field& field, LoadAs how, PropertyRef into);
Variant SaveProperty(PropertyRef from, SaveAs how);

template <class Target>
struct ColumnDecl {
  const char* column;  // nullptr marks a checkpoint (see ColumnSet::Save)
  PropertyRef (*property)(Target&);
  LoadAs load;
  SaveAs save;
  // Where a column is written from another property than it is read into.
  PropertyRef (*save_property)(Target&) = nullptr;
  // The entry's own conversions, for LoadAs::Custom and SaveAs::Custom: a column
  // that stands for no single property (a text of day numbers that fills 31 flags)
  // or whose read depends on a property read before it.
  void (*load_with)(Target&, const Field&) = nullptr;
  Variant (*save_with)(Target&) = nullptr;
};

// The accessor of a plain member: Member<&clsMandant::Name>.
template <auto M, class Target>
PropertyRef Member(Target& target) {
  return &(target.*M);
}

template <class Target>
class ColumnSet {
 public:
  using Decl = ColumnDecl<Target>;

  ColumnSet(std::initializer_list<Decl> columns) : columns_(columns) {}

  // A checkpoint entry: during a save of a wide row, the part written so far is
  // stored at once if the row already has an ID (that is, it is no new row).
  static Decl Checkpoint() { return Decl{nullptr, nullptr, LoadAs::None, SaveAs::None}; }

  // A column read and written by functions of its own.
  static Decl Custom(const char* column, void (*load_with)(Target&, const Field&), Variant (*save_with)(Target&)) {
    return Decl{column, nullptr, LoadAs::Custom, SaveAs::Custom, nullptr, load_with, save_with};
  }

  const std::vector<Decl>& Columns() const { return columns_; }

  // Column indices of the recordset, for repeated loads from one recordset.
  std::vector<int> Bind(const Recordset& recordset) const {
    std::vector<int> bound;
    bound.reserve(columns_.size());
    for (const Decl& decl : columns_)
      bound.push_back(decl.column && decl.load != LoadAs::None ? recordset.FieldIndex(decl.column) : -1);
    return bound;
  }

  // Reads every column that is read, in order, from the current row.
  void Load(Target& target, const Recordset& recordset, const std::vector<int>& bound) const {
    for (std::size_t i = 0; i < columns_.size(); ++i) {
      const Decl& decl = columns_[i];
      if (bound[i] < 0) continue;
      if (decl.load == LoadAs::Custom) decl.load_with(target, recordset.Fields(bound[i]));
      else LoadProperty(recordset.Fields(bound[i]), decl.load, decl.property(target));
    }
  }
  void Load(Target& target, const Recordset& recordset) const { Load(target, recordset, Bind(recordset)); }

  // Sets every column that is written, in order, on the current or new row.
  // Checkpoints call Update where the row has an ID already. The final Update is
  // the caller's.
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
};

}  // namespace ormelix
