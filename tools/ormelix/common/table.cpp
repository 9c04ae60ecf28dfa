#include "common/table.h"

#include <cstdio>

#include "ormelix/store/rounding_helpers.h"
#include "ormelix/store/variant.h"

namespace cli {

void TextTable::Column(std::string header, Align align) {
  headers_.push_back(std::move(header));
  aligns_.push_back(align);
}

void TextTable::Row(std::vector<std::string> cells) {
  cells.resize(headers_.size());
  rows_.push_back(std::move(cells));
}

void TextTable::Print(std::ostream& out, const std::string& indent) const {
  std::vector<std::size_t> widths(headers_.size());
  for (std::size_t c = 0; c < headers_.size(); ++c) {
    widths[c] = DisplayWidth(headers_[c]);
    for (const auto& row : rows_) widths[c] = std::max(widths[c], DisplayWidth(row[c]));
  }
  auto line = [&](const std::vector<std::string>& cells) {
    std::string text = indent;
    for (std::size_t c = 0; c < cells.size(); ++c) {
      std::string pad(widths[c] - DisplayWidth(cells[c]), ' ');
      text += aligns_[c] == Right ? pad + cells[c] : cells[c] + (c + 1 < cells.size() ? pad : "");
      if (c + 1 < cells.size()) text += "  ";
    }
    out << text << '\n';
  };
  line(headers_);
  std::vector<std::string> rule;
  for (std::size_t width : widths) rule.push_back(std::string(width, '-'));
  line(rule);
  for (const auto& row : rows_) line(row);
}

std::string Amount(double value) {
  char buffer[48];
  std::snprintf(buffer, sizeof buffer, "%.2f", ormelix::RoundingHelpers::RoundTo(value, 2));
  return buffer;
}

std::string Number(double value) {
  // Two decimals at least, four where the value has them (a tax rate of 36.5125).
  char buffer[48];
  std::snprintf(buffer, sizeof buffer, "%.4f", ormelix::RoundingHelpers::RoundTo(value, 4));
  std::string text = buffer;
  while (text.size() > 3 && text.back() == '0' && text[text.size() - 3] != '.') text.pop_back();
  return text;
}

std::size_t DisplayWidth(const std::string& text) {
  std::size_t width = 0;
  for (unsigned char c : text)
    if ((c & 0xC0) != 0x80) ++width;
  return width;
}

}  // namespace cli
