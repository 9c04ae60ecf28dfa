#include "ormelix/store/csv.h"

namespace ormelix {

CsvError::CsvError(std::size_t line, std::size_t field, const std::string& message)
    : Error("line " + std::to_string(line) + ", field " + std::to_string(field) + ": " + message),
      line_(line),
      field_(field),
      message_(message) {}

CsvReader::CsvReader(std::string_view text) : text_(text) {
  if (text_.substr(0, 3) == "\xEF\xBB\xBF") at_ = 3;
}

bool CsvReader::AtRecordEnd() const { return at_ >= text_.size() || text_[at_] == '\n' || text_[at_] == '\r'; }

void CsvReader::SkipRecordEnd() {
  if (at_ >= text_.size()) return;
  if (text_[at_] == '\r' && at_ + 1 < text_.size() && text_[at_ + 1] == '\n') ++at_;
  ++at_;
  ++line_;
}

bool CsvReader::Next(std::vector<CsvField>& fields) {
  fields.clear();
  while (at_ < text_.size() && (text_[at_] == '\n' || text_[at_] == '\r')) SkipRecordEnd();
  if (at_ >= text_.size()) return false;
  record_line_ = line_;
  for (;;) {
    CsvField& field = fields.emplace_back();
    if (at_ < text_.size() && text_[at_] == '"')
      ReadQuoted(field, fields.size());
    else
      ReadBare(field);
    if (AtRecordEnd()) break;
    ++at_;  // the comma
  }
  SkipRecordEnd();
  return true;
}

void CsvReader::ReadQuoted(CsvField& field, std::size_t number) {
  const std::size_t opened = line_;
  field.quoted = true;
  ++at_;
  for (;;) {
    std::size_t quote = text_.find('"', at_);
    if (quote == std::string_view::npos)
      throw CsvError(opened, number, "the quoted field that begins here is never closed");
    for (std::size_t i = at_; i < quote; ++i)
      if (text_[i] == '\n' || (text_[i] == '\r' && (i + 1 >= text_.size() || text_[i + 1] != '\n'))) ++line_;
    field.text.append(text_, at_, quote - at_);
    at_ = quote + 1;
    if (at_ < text_.size() && text_[at_] == '"') {
      field.text += '"';
      ++at_;
      continue;
    }
    if (AtRecordEnd() || text_[at_] == ',') return;
    throw CsvError(line_, number, "text follows the closing quote of the field (a quote within a field is written twice)");
  }
}

void CsvReader::ReadBare(CsvField& field) {
  std::size_t end = at_;
  while (end < text_.size() && text_[end] != ',' && text_[end] != '\n' && text_[end] != '\r') ++end;
  field.text.assign(text_, at_, end - at_);
  at_ = end;
}

void AppendCsvQuoted(std::string& out, std::string_view text) {
  out += '"';
  for (char c : text) {
    if (c == '"') out += '"';
    out += c;
  }
  out += '"';
}

}  // namespace ormelix
