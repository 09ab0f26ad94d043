#include "data/colours.h"

#include <array>
#include <limits>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "data/flight.h"
#include "jet/error.h"
#include "sample_databases.h"
#include "settings_fixture.h"
#include "some_tables.h"

namespace zerbal::data {
namespace {

class ColoursTest : public SettingsTest {};

const std::vector<std::string> kCodes = {"MAPBG",  "ZOOM",  "CENTRE", "COAST", "RIVER",
                                         "IBOUND", "APALL", "APDEST", "ACSYMB"};

test::Row ColourRow(const std::string& code, int red, int green, int blue) {
  return {code, red, green, blue, "Entry" + code};
}

/// All codes, in reverse order.
std::vector<test::Row> AllColours() {
  std::vector<test::Row> rows;
  for (std::size_t i = kCodes.size(); i-- > 0;)
    rows.push_back(ColourRow(kCodes[i], static_cast<int>(i), 100, 255));
  rows.push_back(ColourRow("SPARE", 1, 2, 3));
  return rows;
}

TEST_F(ColoursTest, RulesAreInTheOrderOfTheirNames) {
  for (std::size_t i = 0; i < kColourRules.size(); ++i)
    EXPECT_EQ(static_cast<std::size_t>(kColourRules[i].colour), i);
}

TEST_F(ColoursTest, ColoursAreFoundByCodeAndStoredInTheOrderOfTheRules) {
  WriteTable(test::ColTable(AllColours()));
  const ColourTable colours = LoadColours(zbldata_);
  for (std::size_t i = 0; i < kCodes.size(); ++i) {
    EXPECT_EQ(kColourRules[i].code, kCodes[i]);
    EXPECT_EQ(colours.rows[i].rgb, (Rgb{static_cast<std::uint8_t>(i), 100, 255}));
    EXPECT_EQ(colours.rows[i].entry, "Entry" + kCodes[i]);
  }
}

TEST_F(ColoursTest, MissingColoursAreListedInOneError) {
  std::vector<test::Row> rows = AllColours();
  rows.erase(rows.begin());  // ACSYMB
  rows[6] = ColourRow("zoom", 1, 2, 3);
  WriteTable(test::ColTable(rows));
  EXPECT_EQ(
      WordsOf([&] { LoadColours(zbldata_); }),
      "Colors are missing in the table for:\r\nCode = ZOOM\r\nCode = ACSYMB\r\n\r\nThe program aborts.");
}

TEST_F(ColoursTest, AnEmptyColourTableMissesAllCodes) {
  WriteTable(test::ColTable({}));
  std::string text = "Colors are missing in the table for:\r\n";
  for (const std::string& code : kCodes)
    text += "Code = " + code + "\r\n";
  EXPECT_EQ(WordsOf([&] { LoadColours(zbldata_); }), text + "\r\nThe program aborts.");
}

TEST_F(ColoursTest, ColourComponentsAreLimitedButMustBeNumbers) {
  std::vector<test::Row> rows = AllColours();
  rows[0] = ColourRow("ACSYMB", 300, -1, 12);
  WriteTable(test::ColTable(rows));
  EXPECT_EQ(LoadColours(zbldata_)[ColourCode::kAcSymb], (Rgb{255, 0, 12}));
  rows[0][2] = jet::Null();
  WriteTable(test::ColTable(rows));
  EXPECT_THROW(LoadColours(zbldata_), jet::ConversionError);
}

TEST_F(ColoursTest, EngineErrorsAreNotCaught) {
  EXPECT_THROW(LoadColours(zbldata_), jet::EngineError) << "no file";
  test::WriteBytes(zbldata_, "no database");
  EXPECT_THROW(LoadColours(zbldata_), jet::EngineError) << "foreign file";
  WriteTable(test::FonTable({}));
  EXPECT_THROW(LoadColours(zbldata_), jet::EngineError) << "no table";
  test::Table col = test::ColTable(AllColours());
  col.indexes.clear();
  WriteTable(col);
  EXPECT_THROW(LoadColours(zbldata_), jet::EngineError) << "no index";
  col = test::ColTable(AllColours());
  col.columns[4].name = "Entry";
  WriteTable(col);
  EXPECT_THROW(LoadColours(zbldata_), jet::EngineError) << "no field";
}

struct ColourCase {
  const char* value;
  Rgb rgb;
};

TEST_F(ColoursTest, ComponentsOfASettingAreLimitedAndMissingOnesAreZero) {
  const std::array<ColourCase, 11> cases = {{{"300,-5,12", {255, 0, 12}},
                                             {"10", {10, 0, 0}},
                                             {"", {0, 0, 0}},
                                             {"red,green,blue", {0, 0, 0}},
                                             {"1,2,3,4", {1, 2, 3}},
                                             {"1.5,2.5,254.6", {2, 2, 255}},
                                             {" 7 , 8 , 9 ", {7, 8, 9}},
                                             {"70000,-70000,99999999999999999999", {255, 0, 255}},
                                             {"0,255,256", {0, 255, 255}},
                                             {",,9", {0, 0, 9}},
                                             {"\"1,2,3\"", {1, 2, 3}}}};
  for (const ColourCase& c : cases) {
    const std::string value = c.value;
    Write("[Colors]\r\nEntry3=" + value + "\r\n[FlightColors]\r\nQ1=" + value + "\r\n");
    ColourTable colours = SomeColours();
    FlightServiceTable services = {{"Q1", "", false, {9, 9, 9}, true}};
    ASSERT_TRUE(ReadColourSettings(ini_, colours));
    ASSERT_TRUE(ReadFlightColourSettings(ini_, services));
    EXPECT_EQ(colours[ColourCode::kCoast], c.rgb) << value;
    EXPECT_EQ(services[0].rgb, c.rgb) << value;
    EXPECT_EQ(colours[ColourCode::kRiver], (Rgb{40, 2, 255}));
  }
}

TEST(Rgb, ClampRgbLimitsEachComponent) {
  EXPECT_EQ(ClampRgb(300, -5, 12), (Rgb{255, 0, 12}));
  EXPECT_EQ(ClampRgb(0, 255, 256), (Rgb{0, 255, 255}));
  using Limits = std::numeric_limits<std::int16_t>;
  EXPECT_EQ(ClampRgb(Limits::min(), Limits::max(), -1), (Rgb{0, 255, 0}));
}

}  // namespace
}  // namespace zerbal::data
