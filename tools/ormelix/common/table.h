// Aligned text tables for the terminal: texts to the left, numbers to the right,
// widths counted in characters (so that umlauts do not shift the columns).
#pragma once

#include <ostream>
#include <string>
#include <vector>

namespace cli {

class TextTable {
 public:
  enum Align { Left, Right };

  void Column(std::string header, Align align = Left);
  void Row(std::vector<std::string> cells);
  void Print(std::ostream& out, const std::string& indent = "") const;

 private:
  std::vector<std::string> headers_;
  std::vector<Align> aligns_;
  std::vector<std::vector<std::string>> rows_;
};

// An amount with two decimals ("1234.50"); a rate with two to four ("3.87", "36.5125").
std::string Amount(double value);
std::string Number(double value);
// Characters of a UTF-8 text.
std::size_t DisplayWidth(const std::string& text);

}  // namespace cli
