#include "zerbal-pack/csv.h"

#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

namespace zerbal::pack {
namespace {

std::vector<CsvRecord> ReadAll(std::string_view text, const CsvForm& form = {}) {
  CsvReader reader(text, form);
  std::vector<CsvRecord> records;
  for (CsvRecord record; reader.Next(record);)
    records.push_back(record);
  return records;
}

/// One line per record: fields in brackets, quoted ones with a leading q, errors as "!line.field".
std::string Shown(std::string_view text, const CsvForm& form = {}) {
  std::ostringstream shown;
  for (const CsvRecord& record : ReadAll(text, form)) {
    shown << record.line << ":";
    if (record.fault) {
      shown << "!" << record.fault->line << "." << record.fault->field << "\n";
      continue;
    }
    for (const CsvField& field : record.fields)
      shown << (field.quoted ? "q[" : "[") << field.text << "]";
    shown << "\n";
  }
  return shown.str();
}

TEST(CsvReader, SplitsFieldsAndLines) {
  EXPECT_EQ(Shown("a,b\nc,d\n"), "1:[a][b]\n2:[c][d]\n");
  EXPECT_EQ(Shown("a,b\r\nc,d"), "1:[a][b]\n2:[c][d]\n");
  EXPECT_EQ(Shown("a\rb\r"), "1:[a]\n2:[b]\n");
  EXPECT_EQ(Shown("a b , c\n"), "1:[a b ][ c]\n");
}

TEST(CsvReader, DistinguishesNullFromEmptyText) {
  EXPECT_EQ(Shown(",\"\",\n"), "1:[]q[][]\n");
  const std::vector<CsvRecord> records = ReadAll(",\"\"\n");
  ASSERT_EQ(records.size(), 1U);
  EXPECT_TRUE(records[0].fields[0].IsNull());
  EXPECT_FALSE(records[0].fields[1].IsNull());
}

TEST(CsvReader, RecognisesBlankLines) {
  const std::vector<CsvRecord> records = ReadAll("a\n\n\"\"\n,\n");
  ASSERT_EQ(records.size(), 4U);
  EXPECT_FALSE(records[0].IsBlank());
  EXPECT_TRUE(records[1].IsBlank());
  EXPECT_FALSE(records[2].IsBlank());
  EXPECT_FALSE(records[3].IsBlank());
}

TEST(CsvReader, ReadsNoRecordFromEmptyText) {
  EXPECT_EQ(Shown(""), "");
  EXPECT_EQ(Shown("\xEF\xBB\xBF"), "");
}

TEST(CsvReader, SkipsTheByteOrderMark) {
  EXPECT_EQ(Shown("\xEF\xBB\xBF\"a\",b\n"), "1:q[a][b]\n");
}

TEST(CsvReader, ReadsQuotesCommasAndLineBreaksInQuotes) {
  EXPECT_EQ(Shown("\"a,b\",\"say \"\"hi\"\"\"\n"), "1:q[a,b]q[say \"hi\"]\n");
  EXPECT_EQ(Shown("\"a\r\nb\",c\nd,e\n"), "1:q[a\r\nb][c]\n3:[d][e]\n");
  EXPECT_EQ(Shown("\"\"\"\"\n"), "1:q[\"]\n");
}

TEST(CsvReader, CountsLinesInsideQuotes) {
  EXPECT_EQ(Shown("\"a\n\n\nb\"\nc\n"), "1:q[a\n\n\nb]\n5:[c]\n");
}

TEST(CsvReader, ContinuesAfterAnError) {
  EXPECT_EQ(Shown("a,b\"c,d\ne,f\n"), "1:!1.2\n2:[e][f]\n");
  EXPECT_EQ(Shown("\"a\"b,c\nd\n"), "1:!1.1\n2:[d]\n");
  EXPECT_EQ(Shown("a,\"b\nc,d\ne\n"), "1:!1.2\n2:[c][d]\n3:[e]\n");
}

TEST(CsvReader, ReportsTheLineWhereAnOpenFieldBegins) {
  const std::vector<CsvRecord> records = ReadAll("\"a,b\n\"c\",d\n");
  ASSERT_EQ(records.size(), 1U);
  ASSERT_TRUE(records[0].fault);
  EXPECT_EQ(records[0].fault->line, 2U);
  EXPECT_EQ(records[0].fault->reason,
            "text after the closing quotation mark of a field that begins on line 1");
}

TEST(CsvReader, RefusesInvalidUtf8) {
  for (const char* bad : {"\x80", "\xC3", "\xC0\xAF", "\xE0\x80\xAF", "\xED\xA0\x80", "\xF0\x80\x80\x80",
                          "\xF4\x90\x80\x80", "\xFF", "M\xFCnchen", "\xE2\x82"}) {
    EXPECT_EQ(Shown(std::string("a,") + bad + "\nb\n"), "1:!1.2\n2:[b]\n") << bad;
    EXPECT_EQ(Shown(std::string("a,\"") + bad + "\"\nb\n"), "1:!1.2\n2:[b]\n") << bad;
  }
  EXPECT_EQ(Shown("Z\xC3\xBCrich,\xE2\x82\xAC,\xF0\x9F\x98\x80,\xED\x9F\xBF\n"),
            "1:[Z\xC3\xBCrich][\xE2\x82\xAC][\xF0\x9F\x98\x80][\xED\x9F\xBF]\n");
}

TEST(CsvReader, RefusesNul) {
  EXPECT_EQ(Shown(std::string_view("a,\0\nb\n", 6)), "1:!1.2\n2:[b]\n");
  EXPECT_EQ(Shown(std::string_view("\"\0\"\nb\n", 6)), "1:!1.1\n2:[b]\n");
}

TEST(CsvReader, SplitsAtTheGivenSeparator) {
  const std::string text = "a,b;\"c;d\";\te\n";
  EXPECT_EQ(Shown(text, {.separator = ';'}), "1:[a,b]q[c;d][\te]\n");
  EXPECT_EQ(Shown("a,b\tc;d\n", {.separator = '\t'}), "1:[a,b][c;d]\n");
}

TEST(CsvReader, UnderstandsBackslashesWhereTheyEscape) {
  const std::string text = "\"Mill\\'s \\\"x\\\", C:\\\\\",\\N,\"a\\b\"\n";
  EXPECT_EQ(Shown(text, {.backslashEscapes = true}), "1:q[Mill's \"x\", C:\\][\\N]q[a\\b]\n");
  EXPECT_EQ(Shown("\"a\\\",b\n"), "1:q[a\\][b]\n");
}

TEST(CsvReader, ToleratesBlanksAroundQuotesAndLooseQuotesWhenLenient) {
  const CsvForm lenient{.lenient = true};
  EXPECT_EQ(Shown("a, \"b,c\" , d \n", lenient), "1:[a]q[b,c][ d ]\n");
  EXPECT_EQ(Shown("a 5\" gun,\"b\"  \n", lenient), "1:[a 5\" gun]q[b]\n");
  EXPECT_EQ(Shown("\"a\"b,c\n", lenient), "1:!1.1\n");
}

TEST(CsvReader, GivesTheSourceOfARecord) {
  std::vector<std::string> sources;
  for (const CsvRecord& record : ReadAll("a,b\r\n\"c\nd\",e\nf\"g,h\n\ni"))
    sources.emplace_back(record.source);
  EXPECT_EQ(sources, (std::vector<std::string>{"a,b", "\"c\nd\",e", "f\"g,h", "", "i"}));
}

TEST(AppendCsvText, WritesTextsThatReadBackTheSame) {
  for (const std::string text : {"", "plain", "a,b", "say \"hi\"", "two\r\nlines", "\"", "\xC3\xA9"}) {
    std::string csv;
    AppendCsvText(text, csv);
    const std::vector<CsvRecord> records = ReadAll(csv);
    ASSERT_EQ(records.size(), 1U) << csv;
    ASSERT_EQ(records[0].fields.size(), 1U);
    EXPECT_EQ(records[0].fields[0].text, text);
    EXPECT_TRUE(records[0].fields[0].quoted);
  }
}

}  // namespace
}  // namespace zerbal::pack
