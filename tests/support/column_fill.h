// Column declarations walked by the tests: a distinct value for every property of
// a declaration, what each column must then hold, and checks that every column is
// declared, read back and mapped to a property of its own.
#pragma once

#include <gtest/gtest.h>

#include <map>
#include <set>
#include <string>
#include <variant>

#include "ormelix/store/columns.h"
#include "ormelix/store/recordset.h"
#include "ormelix/store/store.h"

namespace ormelix::test {

template <class Target>
bool IsFlag(const ColumnDecl<Target>& decl) {
  return decl.load == LoadAs::Flag || decl.save == SaveAs::Flag;
}

// A distinct value for entry i, of the property's type and in the range its
// conversions give back unchanged (whole numbers where a conversion rounds to
// them, -1/0 where a column is a flag, at most two decimals for amounts).
template <class Target>
void Fill(const ColumnDecl<Target>& decl, Target& target, int i, int phase) {
  const bool on = (i + phase) % 2 == 0;
  std::visit(Overloaded{[&](std::string* p) { *p = "Wert " + std::to_string(i) + (phase ? " ä" : " ß"); },
                        [&](bool* p) { *p = on; },
                        [&](std::int16_t* p) {
                          *p = static_cast<std::int16_t>(IsFlag(decl) ? (on ? -1 : 0) : 100 + i + 300 * phase);
                        },
                        [&](std::int32_t* p) { *p = 100000 + i + 1000 * phase; },
                        [&](float* p) { *p = static_cast<float>(i + 1000 * phase) + 0.25f; },
                        [&](double* p) { *p = 45000.0 + i + 1000 * phase + (decl.load == LoadAs::Date ? 0 : 0.75); },
                        [&](Variant* p) { *p = Variant(i); }},
             decl.property(target));
}

// The value a column must hold for a property: the value itself, True as -1.
inline Variant AsStored(PropertyRef ref) {
  return std::visit(Overloaded{[](std::string* p) { return Variant(*p); },
                               [](bool* p) { return Variant(*p ? -1 : 0); },
                               [](std::int16_t* p) { return Variant(*p); },
                               [](std::int32_t* p) { return Variant(*p); },
                               [](float* p) { return Variant(static_cast<double>(*p)); },
                               [](double* p) { return Variant(*p); },
                               [](Variant* p) { return *p; }},
                    ref);
}

// Equal as texts, or equal as numbers whatever the number's kind.
inline ::testing::AssertionResult Same(const Variant& actual, const Variant& expected) {
  double a = 0;
  double b = 0;
  bool equal = expected.IsText() ? actual.IsText() && actual.AsText() == expected.AsText()
                                 : !actual.IsText() && actual.TryNumber(a) && expected.TryNumber(b) && a == b;
  if (equal) return ::testing::AssertionSuccess();
  return ::testing::AssertionFailure() << "holds '" << actual.Describe() << "', expected '" << expected.Describe() << "'";
}

// Fills every property of the declaration and gives, per written column, the value
// its property held.
template <class Target>
void FillAll(const ColumnSet<Target>& columns, Target& target, int phase) {
  const auto& decls = columns.Columns();
  for (std::size_t i = 0; i < decls.size(); ++i)
    if (decls[i].property) Fill(decls[i], target, static_cast<int>(i), phase);
}

template <class Target>
std::map<std::string, Variant> Written(const ColumnSet<Target>& columns, Target& target) {
  std::map<std::string, Variant> written;
  for (const auto& decl : columns.Columns())
    if (decl.column && decl.property && decl.save != SaveAs::None && decl.save != SaveAs::Custom)
      written[decl.column] = AsStored(decl.save_property ? decl.save_property(target) : decl.property(target));
  return written;
}

// Every property read by the declaration holds what was written to the column it
// is read from.
template <class Target>
void ExpectLoaded(const ColumnSet<Target>& columns, Target& target, const std::map<std::string, Variant>& written) {
  int compared = 0;
  for (const auto& decl : columns.Columns()) {
    if (!decl.column || !decl.property || decl.load == LoadAs::None) continue;
    EXPECT_TRUE(Same(AsStored(decl.property(target)), written.at(decl.column))) << "property read from " << decl.column;
    ++compared;
  }
  EXPECT_GT(compared, 0);
}

// Every column of the table but the keys is written by the declaration.
template <class Target>
void ExpectEveryColumnDeclared(const ColumnSet<Target>& columns, Recordset& rs, std::set<std::string> keys) {
  std::set<std::string> declared;
  for (const auto& decl : columns.Columns())
    if (decl.column && decl.save != SaveAs::None) declared.insert(decl.column);
  for (int i = 0; i < rs.FieldCount(); ++i) {
    if (keys.count(rs.FieldName(i))) continue;
    EXPECT_TRUE(declared.count(rs.FieldName(i))) << rs.FieldName(i) << " is not written";
  }
}

// No two columns that are both read and written share a property: a column mapped
// to the wrong member would leave that member's own column doubled.
template <class Target>
void ExpectDistinctProperties(const ColumnSet<Target>& columns, Target& target) {
  std::map<const void*, std::string> seen;
  for (const auto& decl : columns.Columns()) {
    if (!decl.property || decl.load == LoadAs::None || decl.save == SaveAs::None) continue;
    const void* address = std::visit([](auto* p) { return static_cast<const void*>(p); }, decl.property(target));
    auto [it, fresh] = seen.emplace(address, decl.column);
    EXPECT_TRUE(fresh) << decl.column << " and " << it->second << " share a property";
  }
}

// The row of the table that the condition picks holds each written value.
inline void ExpectStored(const StoreConnectionPtr& db, const std::map<std::string, Variant>& written,
                         const std::string& table, const std::string& where) {
  auto rs = db->Session().OpenRecordset("SELECT * FROM [" + table + "] WHERE " + where);
  ASSERT_FALSE(rs->Eof()) << "no row of " << table << " where " << where;
  for (const auto& [column, value] : written) EXPECT_TRUE(Same(rs->Fields(column).Value(), value)) << column;
}

}  // namespace ormelix::test
