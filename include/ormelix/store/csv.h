/// \file
/// Comma-separated values as RFC 4180 has them, which is also the form mdbtools'
/// mdb-export writes by default: fields separated by commas, records by a line
/// break (CR LF or LF), a field in double quotes where it holds a comma, a quote
/// or a line break, a quote within it doubled. The store's exports quote every
/// text, so that a file tells Null (an empty field without quotes) from the empty
/// text ("") and a text "12" from the number 12.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "ormelix/error.h"

namespace ormelix {

/// One field of a record.
struct CsvField {
  std::string text;     ///< its characters, without the quotes around them
  bool quoted = false;  ///< it stood in quotes (an empty field without them is Null)
};

/// A text that is no CSV, at a line (from 1) and a field of its record (from 1).
class CsvError : public Error {
 public:
  /// The fault `message` at that line and field; what() names all three.
  CsvError(std::size_t line, std::size_t field, const std::string& message);
  /// The line, from 1.
  std::size_t Line() const noexcept { return line_; }
  /// The field of its record, from 1.
  std::size_t Field() const noexcept { return field_; }
  /// The fault alone, without line and field.
  const std::string& Message() const noexcept { return message_; }

 private:
  std::size_t line_;
  std::size_t field_;
  std::string message_;
};

/// Reads the records of a CSV text one at a time. A byte-order mark at its start
/// (as spreadsheets write one) is skipped, and so are lines that hold nothing.
/// A quoted field may hold line breaks, kept as they stand; a quote within a field
/// that did not begin with one is taken as it stands. CsvError for a quoted field
/// that is never closed or that has more than a field separator after its closing quote.
class CsvReader {
 public:
  /// A reader of the text, which must outlive it.
  explicit CsvReader(std::string_view text);

  /// The next record; false when the text has none left.
  bool Next(std::vector<CsvField>& fields);
  /// The line on which the record read last begins.
  std::size_t Line() const noexcept { return record_line_; }

 private:
  void ReadQuoted(CsvField& field, std::size_t number);
  void ReadBare(CsvField& field);
  bool AtRecordEnd() const;
  void SkipRecordEnd();

  std::string_view text_;
  std::size_t at_ = 0;
  std::size_t line_ = 1;
  std::size_t record_line_ = 0;
};

/// Appends a text as a quoted field (its quotes doubled).
void AppendCsvQuoted(std::string& out, std::string_view text);

}  // namespace ormelix
