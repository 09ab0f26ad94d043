// CSV files as spreadsheets write them: separators, decimal commas, encodings and line ends.
#include "zerbal-pack/spreadsheet.h"

#include <sstream>
#include <string>
#include <string_view>
#include <variant>

#include <gtest/gtest.h>

#include "support/utf16_text.h"
#include "zerbal-pack/airline.h"
#include "zerbal-pack/csv_table.h"

namespace zerbal::pack {
namespace {

const std::string kAirport =
    "Code;Name;City;Longitude;Latitude;Elevation (ft);Runways;Longest runway (ft);ILS (a note, with a "
    "comma)\n"
    "ENZV;Sola;Stavanger \xC3\xB8\xE2\x82\xAC\xF0\x9F\x98\x80;5,63778;58,8767;29;1;8383;1\n";

using zerbal::test::ToUtf16;

std::string ReplaceAll(std::string text, std::string_view from, std::string_view to) {
  for (std::size_t at = 0; (at = text.find(from, at)) != std::string::npos; at += to.size())
    text.replace(at, from.size(), to);
  return text;
}

struct Read {
  CsvTable table;
  std::string messages;
};

Read ReadTable(std::string_view bytes) {
  Problems problems;
  Read read{ParseCsvTable(bytes, "d.csv", DestinationLayout(), problems), ""};
  std::ostringstream text;
  problems.Print(text);
  read.messages = text.str();
  return read;
}

float Longitude(const Read& read) {
  return std::get<float>(read.table.rows.at(0).values[DestinationLayout().ColumnIndex("AP_Lon")]);
}

std::string City(const Read& read) {
  return std::string(read.table.rows.at(0).Text(DestinationLayout().ColumnIndex("AP_City")));
}

TEST(FindSeparator, TakesTheMostFrequentOfTheHeaderLine) {
  EXPECT_EQ(FindSeparator("a,b,c\n;;;;;;\n"), ',');
  EXPECT_EQ(FindSeparator("a;b,c;d\r\n,,,,,,"), ';');
  EXPECT_EQ(FindSeparator("a\tb\tc;d"), '\t');
  EXPECT_EQ(FindSeparator("\"a,b,c,d\";e\n"), ';');
  EXPECT_EQ(FindSeparator("ILS (a, b, c);d\n"), ';');
  EXPECT_EQ(FindSeparator("\"a\n,,,,\";b;c\n"), ';');
  EXPECT_EQ(FindSeparator("\r\n\na;b\n"), ';');
  EXPECT_EQ(FindSeparator("alone\na;b\n"), ',');
  EXPECT_EQ(FindSeparator(""), ',');
}

TEST(Spreadsheets, MayHaveSemicolonsAndDecimalCommas) {
  const Read read = ReadTable(kAirport);
  EXPECT_EQ(read.messages, "d.csv: note: read as UTF-8, with semicolons between the fields\n");
  EXPECT_EQ(Longitude(read), 185.63778F);
}

TEST(Spreadsheets, MayHaveSemicolonsAndDecimalPoints) {
  EXPECT_EQ(Longitude(ReadTable(ReplaceAll(kAirport, "5,6", "5.6"))), 185.63778F);
}

TEST(Spreadsheets, MayHaveTabs) {
  const Read read = ReadTable(ReplaceAll(kAirport, ";", "\t"));
  EXPECT_EQ(read.messages, "d.csv: note: read as UTF-8, with tabs between the fields\n");
  EXPECT_EQ(Longitude(read), 185.63778F);
}

TEST(Spreadsheets, ReadTheirNumbersInOneWayOnly) {
  EXPECT_NE(
      ReadTable(ReplaceAll(kAirport, "5,63778", "5.637,78")).messages.find("'5.637,78' is not a number\n"),
      std::string::npos);
  EXPECT_NE(
      ReadTable(ReplaceAll(kAirport, "5,63778", "5,637,78")).messages.find("'5,637,78' is not a number\n"),
      std::string::npos);
  EXPECT_NE(ReadTable(ReplaceAll(kAirport, ";29;", ";29,0;")).messages.find("'29,0' is not a whole number\n"),
            std::string::npos);
}

TEST(Spreadsheets, MayBeUtf16WithAMark) {
  const Read little = ReadTable(ToUtf16(kAirport, true));
  EXPECT_EQ(little.messages,
            "d.csv: note: read as UTF-16 (little endian), with semicolons between the fields\n");
  EXPECT_EQ(City(little), "Stavanger \xC3\xB8\xE2\x82\xAC\xF0\x9F\x98\x80");
  const Read big = ReadTable(ToUtf16(kAirport, false));
  EXPECT_EQ(big.messages, "d.csv: note: read as UTF-16 (big endian), with semicolons between the fields\n");
  EXPECT_EQ(City(big), City(little));
}

TEST(Spreadsheets, MayBeUtf8WithAMark) {
  const Read read = ReadTable("\xEF\xBB\xBF" + kAirport);
  EXPECT_EQ(read.messages,
            "d.csv: note: read as UTF-8 with byte order mark, with semicolons between the fields\n");
  EXPECT_EQ(City(read), "Stavanger \xC3\xB8\xE2\x82\xAC\xF0\x9F\x98\x80");
}

TEST(Spreadsheets, AreCodePage1252WhenTheyAreNotUtf8) {
  const Read read = ReadTable(ReplaceAll(kAirport, "\xC3\xB8\xE2\x82\xAC\xF0\x9F\x98\x80", "\xF8\x80"));
  EXPECT_EQ(read.messages, "d.csv: note: read as code page 1252, with semicolons between the fields\n");
  EXPECT_EQ(City(read), "Stavanger \xC3\xB8\xE2\x82\xAC");
}

TEST(Spreadsheets, NeedNoNoteWhenTheyAreUtf8WithCommas) {
  EXPECT_EQ(ReadTable(ReplaceAll(ReplaceAll(kAirport, ",", "."), ";", ",")).messages, "");
}

TEST(Spreadsheets, MayHaveTheLineEndsOfAnySystem) {
  for (const char* lineEnd : {"\r\n", "\r"})
    EXPECT_EQ(Longitude(ReadTable(ReplaceAll(kAirport, "\n", lineEnd))), 185.63778F);
}

TEST(Spreadsheets, KeepLineAndColumnOfAFault) {
  const std::string bad =
      ReplaceAll(kAirport, "\nENZV", "\n\nENZV") + "AAAA;\"x\ny\";z;1,5;1,5;1;1;1;0\nB;x;y;1;x;1;1;1;0\n";
  const std::string fault = "d.csv:6: column 'Latitude': 'x' is not a number\n";
  for (const std::string& bytes :
       {bad, ReplaceAll(bad, "\n", "\r\n"), ToUtf16(bad, true), ToUtf16(bad, false)})
    EXPECT_TRUE(ReadTable(bytes).messages.ends_with(fault)) << ReadTable(bytes).messages;
}

TEST(Spreadsheets, ReportHalvesOfCharacters) {
  std::string bytes = ToUtf16(kAirport, true);
  const std::size_t half = bytes.find("\x3D\xD8");
  ASSERT_NE(half, std::string::npos);
  bytes.erase(half, 2);
  EXPECT_TRUE(ReadTable(bytes).messages.ends_with("d.csv:2: column 'City': not valid UTF-16\n"));
  EXPECT_TRUE(ReadTable(ToUtf16(kAirport, true) + "x")
                  .messages.ends_with("d.csv:3: column 'Code': not valid UTF-16\n"));
}

}  // namespace
}  // namespace zerbal::pack
