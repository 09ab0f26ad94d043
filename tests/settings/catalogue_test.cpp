#include "settings/catalogue.h"

#include <string>

#include <gtest/gtest.h>

namespace zerbal::settings {
namespace {

TEST(Catalogue, ASwitchHasTheOtherValueForATextThatIsNeither) {
  for (const char* text : {"", "2", "yes", "01", "true"}) {
    EXPECT_FALSE(kSaveMainWindow.ValueOf(text)) << text;
    EXPECT_TRUE(kSearchOrigin.ValueOf(text)) << text;
  }
  for (const SwitchSetting& setting : {kSaveMainWindow, kSearchOrigin}) {
    EXPECT_TRUE(setting.ValueOf("1"));
    EXPECT_FALSE(setting.ValueOf("0"));
  }
}

TEST(Catalogue, SwitchesHaveTheirDefaults) {
  for (const SwitchSetting& setting : {kSaveMainWindow, kSaveWindows, kShowAirports, kShowFlightNumbers}) {
    EXPECT_TRUE(setting.byDefault) << setting.key.name;
    EXPECT_FALSE(setting.otherwise) << setting.key.name;
  }
  for (const SwitchSetting& setting :
       {kSaveMenuEntries, kViewCentreOfMap, kViewRivers, kViewBoundaries, kViewAllAirports, kViewDestinations,
        kShowLegNumbers, kShowAircraftSymbols}) {
    EXPECT_FALSE(setting.byDefault) << setting.key.name;
    EXPECT_FALSE(setting.otherwise) << setting.key.name;
  }
  for (const SwitchSetting& setting : {kMapTips, kSearchOrigin, kSearchStopovers, kSearchDestination}) {
    EXPECT_TRUE(setting.byDefault) << setting.key.name;
    EXPECT_TRUE(setting.otherwise) << setting.key.name;
  }
}

TEST(Catalogue, NumbersHaveTheirDefaults) {
  EXPECT_EQ(kSplashSeconds.byDefault, 2);
  EXPECT_EQ(kMainWindowState.byDefault, 0);
  EXPECT_EQ(kWorldCentre.byDefault, 1);
  EXPECT_EQ(kWorldCentreLongitude.byDefault, 0);
  EXPECT_EQ(kRandomFlights.byDefault, 2);
  EXPECT_EQ(kRandomFlights.ValueOf("0"), 2);
  EXPECT_EQ(kRandomFlights.ValueOf("1"), 1);
  EXPECT_EQ(kRandomFlights.ValueOf("3"), 2);
}

TEST(Catalogue, ToolTipsOfTheMapAreOffOnlyByZero) {
  EXPECT_TRUE(kMapTips.byDefault);
  for (const char* text : {"1", "", "x", "2", "00"})
    EXPECT_TRUE(kMapTips.ValueOf(text)) << text;
  EXPECT_FALSE(kMapTips.ValueOf("0"));
}

TEST(Catalogue, ANumberOutsideItsRangeIsCorrected) {
  struct Case {
    const char* text;
    int seconds, state, centre;
  };
  for (const Case& c : {Case{"0", 0, 0, 0}, Case{"2", 2, 2, 2}, Case{"3", 3, 0, 1}, Case{"-1", 0, 0, 1},
                        Case{"1.6", 2, 2, 1}, Case{" 2", 2, 2, 1}, Case{"02", 2, 2, 1}, Case{"x", 0, 0, 1},
                        Case{"40000", 32767, 0, 1}, Case{"", 0, 0, 1}}) {
    EXPECT_EQ(kSplashSeconds.ValueOf(c.text), c.seconds) << c.text;
    EXPECT_EQ(kMainWindowState.ValueOf(c.text), c.state) << c.text;
    EXPECT_EQ(kWorldCentre.ValueOf(c.text), c.centre) << c.text;
  }
}

TEST(Catalogue, ALongitudeIsBroughtIntoTheRange) {
  EXPECT_EQ(kWorldCentreLongitude.ValueOf("-12.5 W"), -12.5);
  EXPECT_EQ(kWorldCentreLongitude.ValueOf("200"), 180);
  EXPECT_EQ(kWorldCentreLongitude.ValueOf("-1e9"), -1);
  EXPECT_EQ(kWorldCentreLongitude.ValueOf("-999"), -180);
  EXPECT_EQ(kWorldCentreLongitude.ValueOf("x"), 0);
  EXPECT_EQ(kWorldCentreLongitude.TextOf(0), "0");
}

TEST(Catalogue, AMissingNumberOfAPairIsZero) {
  EXPECT_EQ(kMainWindowSize.ValueOf("500,700"), std::pair(500, 700));
  EXPECT_EQ(kMainWindowSize.ValueOf("500"), std::pair(500, 0));
  EXPECT_EQ(kMainWindowSize.ValueOf("-99999999999,x"), std::pair(-2147483647 - 1, 0));
}

}  // namespace
}  // namespace zerbal::settings
