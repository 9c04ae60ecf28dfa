// Values on their way to the server and back: the text form of a parameter, the
// form a column of each affinity holds, and a result's cell as a Variant.
#pragma once

#include <libpq-fe.h>

#include <string>
#include <string_view>
#include <vector>

#include "../backend.h"

namespace ormelix::detail::postgres {

// Type numbers of pg_type that the store's columns and expressions give.
constexpr Oid kBool = 16, kInt8 = 20, kInt2 = 21, kInt4 = 23, kText = 25, kFloat4 = 700, kFloat8 = 701,
              kBpchar = 1042, kVarchar = 1043, kNumeric = 1700, kUnknown = 0;

Affinity AffinityOf(Oid type);

// A value as a column of that affinity holds it: a whole number in an integer
// column (rounded half to even, as PostgreSQL rounds), a double in a real one, a
// text in a text column. What cannot be converted stays, for the server to refuse.
Variant StoredForm(const Variant& value, Affinity affinity);

// A column of no fixed type is a text column on PostgreSQL. A number goes in as
// text that reads back as that number in its kind: a whole number as "3", a
// double always with a point or exponent ("3.0", "1.25"), to every digit.
std::string UntypedText(const Variant& value);
// What a text of such a column was (see UntypedText).
Variant UntypedValue(std::string_view text);

// The text form of a value that is not Null: booleans as -1/0, numbers to every digit.
std::string TextForm(const Variant& value);

// $1,$2,$3 for as many parameters.
std::string Placeholders(std::size_t count);

// The text form of parameters (Null as no text at all).
struct ParamTexts {
  std::vector<std::string> texts;
  std::vector<const char*> values;

  void Set(const std::vector<Variant>& params);
  // The same for the columns the values go into: a number for a column of no
  // fixed type in its own text form.
  void Set(const std::vector<Variant>& params, const std::vector<Affinity>& affinities);
};

// The type a statement's parameter is declared with: numbers as what they are,
// so that "[Gehalt]=100" compares numbers; texts and Null as unknown, which the
// server reads as the type the place of the parameter wants.
Oid DeclaredType(const Variant& value);

// A cell in text form as the column's type gives it (kUnknown: a column of no
// fixed type).
Variant Cell(const PGresult* result, int row, int column, Oid type);

// A cell in binary form (the result asked for so), for the types HasBinaryForm
// names; kUnknown as for Cell.
bool HasBinaryForm(Oid type);
Variant BinaryCell(const PGresult* result, int row, int column, Oid type);

// A value in COPY's text form, appended to out.
void AppendCopyText(const Variant& value, std::string& out);

}  // namespace ormelix::detail::postgres
