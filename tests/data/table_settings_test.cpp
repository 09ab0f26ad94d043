#include "data/table_settings.h"

#include <array>
#include <cstdint>
#include <limits>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "jet/error.h"
#include "support/recorded_boxes.h"
#include "support/temp_folder.h"

namespace zerbal::data {
namespace {

/// A settings file in a folder of its own, and one that can never be written.
class TableSettings : public testing::Test {
 protected:
  void Write(std::string_view bytes) { test::WriteBytes(ini_.Path(), bytes); }
  std::string Bytes() { return test::ReadBytes(ini_.Path()); }

  test::TempFolder folder_;
  test::RecordedBoxes boxes_;
  settings::IniValues values_{boxes_};
  settings::IniFile ini_{folder_ / "zerbal.ini", values_};
  settings::IniFile unwritable_{folder_ / "missing" / "zerbal.ini", values_};
};

const std::vector<std::string> kInstalled = {"Arial", "Courier New", "Verdana", "\xC3\x96ko"};

FontTable SomeFonts() {
  FontTable fonts;
  fonts.rows[0] = {"LORES", "Verdana", 6, "LowResolution"};
  fonts.rows[1] = {"HIRES", "Courier New", 10, "HighResolution"};
  return fonts;
}

ColourTable SomeColours() {
  ColourTable colours;
  for (std::size_t i = 0; i < colours.rows.size(); ++i) {
    const auto shade = static_cast<std::uint8_t>(10 * i);
    colours.rows[i] = {"", {shade, 2, 255}, "Entry" + std::to_string(i)};
  }
  return colours;
}

RegionTable SomeRegions() {
  RegionTable regions;
  regions.rows = {{}, {"EU", "Europe", 160, 20, 220, 60}};
  return regions;
}

TEST_F(TableSettings, EveryMissingKeyIsWrittenWithTheValueThatHolds) {
  FontTable fonts = SomeFonts();
  ColourTable colours = SomeColours();
  FlightServiceTable services = {{"Q1", "1 - One", false, {1, 2, 3}, true},
                                 {"Q2", "2 - Two", false, {4, 5, 6}, true}};
  RegionTable regions = SomeRegions();
  FlightFinderState finder;
  ASSERT_TRUE(ReadFontSettings(ini_, fonts, kInstalled));
  ASSERT_TRUE(ReadColourSettings(ini_, colours));
  ASSERT_TRUE(ReadFlightColourSettings(ini_, services));
  ASSERT_TRUE(ReadRegionSettings(ini_, regions));
  ReadFlightFinderSettings(ini_, finder);
  EXPECT_EQ(Bytes(),
            "[Fonts]\r\nLowResolution=Verdana,6\r\nHighResolution=Courier New,10\r\n"
            "[Colors]\r\nEntry0=0,2,255\r\nEntry1=10,2,255\r\nEntry2=20,2,255\r\nEntry3=30,2,255\r\n"
            "Entry4=40,2,255\r\nEntry5=50,2,255\r\nEntry6=60,2,255\r\nEntry7=70,2,255\r\nEntry8=80,2,255\r\n"
            "[FlightColors]\r\nQ1=1,2,3\r\nQ2=4,5,6\r\n"
            "[Region]\r\nCentreWorld=1\r\nCentreWorldAtLON=0\r\n"
            "[Program]\r\nRandomFlitHowMany=2\r\nSeleDestCheckDest=1\r\nSeleDestCheckStop=1\r\n"
            "SeleDestCheckArr=1\r\n");
  EXPECT_EQ(fonts.rows[0].name, "Verdana");
  EXPECT_EQ(colours.rows[8].rgb, (Rgb{80, 2, 255}));
  EXPECT_EQ(services[1].rgb, (Rgb{4, 5, 6}));
  EXPECT_EQ(regions.centreWorld, "1");
  EXPECT_EQ(finder.howMany, HowMany::kRoundTrip);
  EXPECT_TRUE(finder.searchOrigin && finder.searchStopovers && finder.searchDestination);
  EXPECT_TRUE(boxes_.shown.empty());
}

TEST_F(TableSettings, AFailedWriteEndsTheReadingWithOneBox) {
  FontTable fonts = SomeFonts();
  EXPECT_FALSE(ReadFontSettings(unwritable_, fonts, kInstalled));
  ASSERT_EQ(boxes_.shown.size(), 1u);
  EXPECT_EQ(boxes_.shown[0].icon, settings::BoxIcon::kExclamation);
  EXPECT_NE(boxes_.shown[0].text.find("Section = 'Fonts', Entry = 'LowResolution', Value = 'Verdana,6'"),
            std::string::npos);
  ColourTable colours = SomeColours();
  EXPECT_FALSE(ReadColourSettings(unwritable_, colours));
  FlightServiceTable services = {{"Q1", "", false, {}, true}};
  EXPECT_FALSE(ReadFlightColourSettings(unwritable_, services));
  RegionTable regions = SomeRegions();
  EXPECT_FALSE(ReadRegionSettings(unwritable_, regions));
  EXPECT_EQ(boxes_.shown.size(), 4u);
}

TEST_F(TableSettings, TheFlightFinderGoesOnAfterFailedWrites) {
  FlightFinderState finder;
  finder.howMany = HowMany::kOneFlight;
  finder.searchOrigin = false;
  ReadFlightFinderSettings(unwritable_, finder);
  EXPECT_EQ(finder.howMany, HowMany::kRoundTrip);
  EXPECT_TRUE(finder.searchOrigin && finder.searchStopovers && finder.searchDestination);
  EXPECT_EQ(boxes_.shown.size(), 4u);
}

struct FontCase {
  const char* value;
  const char* name;
  std::int16_t lowSize;
  std::int16_t highSize;
};

TEST_F(TableSettings, FontsAreCheckedAgainstTheInstalledOnesAndTheSizes) {
  const std::array<FontCase, 15> cases = {{{"arial,16", "arial", 7, 8},
                                           {"\xF6KO,8", "\xC3\xB6KO", 8, 8},
                                           {"VERDANA,6", "VERDANA", 6, 6},
                                           {"Courier New,14", "Courier New", 14, 14},
                                           {"Verdana,15", "Verdana", 7, 8},
                                           {"Verdana,5", "Verdana", 7, 8},
                                           {"Verdana,5.6", "Verdana", 6, 6},
                                           {"Verdana,14.5", "Verdana", 14, 14},
                                           {"Verdana,-9", "Verdana", 7, 8},
                                           {"Verdana,x", "Verdana", 7, 8},
                                           {"Verdana", "Verdana", 7, 8},
                                           {"Verdana,99999999999", "Verdana", 7, 8},
                                           {"Wingbats,9", "Arial", 9, 9},
                                           {"", "Arial", 7, 8},
                                           {",,", "Arial", 7, 8}}};
  for (const FontCase& c : cases) {
    const std::string value = c.value;
    Write("[Fonts]\r\nLowResolution=" + value + "\r\nHighResolution=" + value + "\r\n");
    FontTable fonts = SomeFonts();
    ASSERT_TRUE(ReadFontSettings(ini_, fonts, kInstalled));
    for (const Font& font : fonts.rows)
      EXPECT_EQ(font.name, c.name) << value;
    EXPECT_EQ(fonts[FontCode::kLoRes].size, c.lowSize) << value;
    EXPECT_EQ(fonts[FontCode::kHiRes].size, c.highSize) << value;
  }
}

struct ColourCase {
  const char* value;
  Rgb rgb;
};

TEST_F(TableSettings, ColoursAreLimitedAndFilledUpWithZeros) {
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

TEST_F(TableSettings, TwoServicesOfOneKeyReadOneColour) {
  Write("[FlightColors]\r\nQ1=7,8,9\r\n");
  FlightServiceTable services = {{"Q1", "", false, {1, 1, 1}, true}, {"Q1", "", false, {2, 2, 2}, true}};
  ASSERT_TRUE(ReadFlightColourSettings(ini_, services));
  EXPECT_EQ(services[0].rgb, (Rgb{7, 8, 9}));
  EXPECT_EQ(services[1].rgb, (Rgb{7, 8, 9}));
  Write("");
  services[1].rgb = {2, 2, 2};
  ASSERT_TRUE(ReadFlightColourSettings(ini_, services));
  EXPECT_EQ(services[1].rgb, (Rgb{7, 8, 9})) << "the default that the first one wrote";
}

struct RegionCase {
  const char* centre;
  const char* longitude;
  const char* centreHeld;
  float longitudeHeld;
  double from;
  double to;
};

TEST_F(TableSettings, TheWorldIsCentredAsTheSettingsSay) {
  const std::array<RegionCase, 12> cases = {{{"0", "0", "0", 0, 5, 355},
                                             {"1", "0", "1", 0, 290, 280},
                                             {"2", "170", "2", 170, 175, 165},
                                             {"2", "0", "2", 0, 5, 355},
                                             {"2", "200", "2", 180, 185, 175},
                                             {"2", "-181", "2", -180, 185, 175},
                                             {"2", "-12.5", "2", -12.5F, 352.5, 342.5},
                                             {"2", "x", "2", 0, 5, 355},
                                             {"7", "30", "1", 30, 290, 280},
                                             {"", "", "1", 0, 290, 280},
                                             {"02", "1", "1", 1, 290, 280},
                                             {"-1", "99999999999999999999", "1", 180, 290, 280}}};
  for (const RegionCase& c : cases) {
    Write(std::string("[Region]\r\nCentreWorld=") + c.centre + "\r\nCentreWorldAtLON=" + c.longitude +
          "\r\n");
    RegionTable regions = SomeRegions();
    ASSERT_TRUE(ReadRegionSettings(ini_, regions));
    EXPECT_EQ(regions.centreWorld, c.centreHeld) << c.centre << " " << c.longitude;
    EXPECT_EQ(regions.centreWorldAtLon, c.longitudeHeld) << c.longitude;
    EXPECT_EQ(regions.rows[0].fromLon, c.from) << c.centre << " " << c.longitude;
    EXPECT_EQ(regions.rows[0].toLon, c.to) << c.centre << " " << c.longitude;
    EXPECT_EQ(regions.rows[0].fromLat, 0);
    EXPECT_EQ(regions.rows[0].toLat, 180);
  }
}

TEST_F(TableSettings, WithoutARegionTheWorldHasNoRow) {
  RegionTable regions;
  EXPECT_THROW(ReadRegionSettings(ini_, regions), jet::EngineError);
}

TEST_F(TableSettings, RandomFlightsAreOneOrARoundTrip) {
  const std::array<std::pair<const char*, HowMany>, 9> cases = {{{"1", HowMany::kOneFlight},
                                                                 {"2", HowMany::kRoundTrip},
                                                                 {"1.4", HowMany::kOneFlight},
                                                                 {"0.5", HowMany::kRoundTrip},
                                                                 {"0", HowMany::kRoundTrip},
                                                                 {"3", HowMany::kRoundTrip},
                                                                 {"-1", HowMany::kRoundTrip},
                                                                 {"one", HowMany::kRoundTrip},
                                                                 {"65537", HowMany::kRoundTrip}}};
  for (const auto& [value, expected] : cases) {
    Write(std::string("[Program]\r\nRandomFlitHowMany=") + value + "\r\n");
    FlightFinderState finder;
    ReadFlightFinderSettings(ini_, finder);
    EXPECT_EQ(finder.howMany, expected) << value;
  }
}

TEST_F(TableSettings, SearchTypesAreOffOnlyForZero) {
  const std::array<std::pair<const char*, bool>, 6> cases = {
      {{"0", false}, {"1", true}, {"2", true}, {"", true}, {"00", true}, {"off", true}}};
  const std::array<std::pair<const char*, bool FlightFinderState::*>, 3> keys = {
      {{"SeleDestCheckDest", &FlightFinderState::searchOrigin},
       {"SeleDestCheckStop", &FlightFinderState::searchStopovers},
       {"SeleDestCheckArr", &FlightFinderState::searchDestination}}};
  for (const auto& [key, member] : keys) {
    for (const auto& [value, expected] : cases) {
      Write(std::string("[Program]\r\n") + key + "=" + value + "\r\n");
      FlightFinderState finder;
      ReadFlightFinderSettings(ini_, finder);
      for (const auto& [other, otherMember] : keys)
        EXPECT_EQ(finder.*otherMember, other == key ? expected : true) << key << "=" << value;
    }
  }
}

}  // namespace
}  // namespace zerbal::data
