// The CSV reader: RFC 4180 and mdb-export's form, Null and the empty text apart,
// line breaks within quotes, and the line and field of every fault.
#include <gtest/gtest.h>

#include "ormelix/store/csv.h"

using namespace ormelix;

namespace {

// Each record as its fields, a Null (empty, unquoted) shown as <null>, a quoted
// field in quotes, fields separated by '|', records by '/'.
std::string Read(std::string_view text) {
  CsvReader reader(text);
  std::vector<CsvField> fields;
  std::string out;
  while (reader.Next(fields)) {
    if (!out.empty()) out += "/";
    out += std::to_string(reader.Line()) + ":";
    for (std::size_t i = 0; i < fields.size(); ++i) {
      if (i) out += "|";
      out += fields[i].quoted ? "\"" + fields[i].text + "\"" : fields[i].text.empty() ? "<null>" : fields[i].text;
    }
  }
  return out;
}

TEST(Csv, RecordsFieldsAndQuotes) {
  const std::pair<std::string, std::string> cases[] = {
      {"a,b\r\n1,2\r\n", "1:a|b/2:1|2"},
      {"a,b\n1,2", "1:a|b/2:1|2"},                                  // LF, no break at the end
      {"a,,\"\"\n", "1:a|<null>|\"\""},                              // Null and the empty text
      {"\"x,y\",\"he said \"\"hi\"\"\"\n", "1:\"x,y\"|\"he said \"hi\"\""},
      {"\"two\nlines\",3\n4,5\n", "1:\"two\nlines\"|3/3:4|5"},      // the next record begins on line 3
      {"\"crlf\r\nkept\",1\r\n", "1:\"crlf\r\nkept\"|1"},
      {"\xEF\xBB\xBFNr,ID\n", "1:Nr|ID"},                            // a byte-order mark
      {"a\n\n\r\nb\n", "1:a/4:b"},                                   // blank lines
      {"a,\n", "1:a|<null>"},                                       // a trailing separator
      {"5 \"inch\",x\n", "1:5 \"inch\"|x"},                          // a quote within a bare field
      {"", ""},
  };
  for (const auto& [text, expected] : cases) EXPECT_EQ(Read(text), expected) << text;
}

TEST(Csv, FaultsNameLineAndField) {
  struct Case {
    std::string text;
    std::size_t line, field;
    std::string words;
  };
  const Case cases[] = {
      {"a,b\n1,\"open\n\nnever closed", 2, 2, "never closed"},
      {"a,b\n1,\"x\"y\n", 2, 2, "text follows the closing quote"},
      {"\"a\nb\"\"c\" d\n", 2, 1, "text follows the closing quote"},
  };
  for (const Case& c : cases) {
    CsvReader reader(c.text);
    std::vector<CsvField> fields;
    try {
      while (reader.Next(fields)) {
      }
      ADD_FAILURE() << "no fault in " << c.text;
    } catch (const CsvError& error) {
      EXPECT_EQ(error.Line(), c.line) << c.text;
      EXPECT_EQ(error.Field(), c.field) << c.text;
      EXPECT_NE(error.Message().find(c.words), std::string::npos) << error.what();
    }
  }
}

TEST(Csv, AQuotedTextReadsBackAsWritten) {
  for (std::string text : {"", "plain", "O'Brien, \"the\" elder", "line\nbreak\r\nand CR\r", "Ärzte"}) {
    std::string line;
    AppendCsvQuoted(line, text);
    line += ",1\n";
    CsvReader reader(line);
    std::vector<CsvField> fields;
    ASSERT_TRUE(reader.Next(fields));
    ASSERT_EQ(fields.size(), 2u);
    EXPECT_TRUE(fields[0].quoted);
    EXPECT_EQ(fields[0].text, text);
  }
}

}  // namespace
