#include "data/map_style.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "data/colours.h"
#include "data/flight_finder.h"
#include "settings_fixture.h"
#include "some_tables.h"

namespace zerbal::data {
namespace {

class MapStyleTest : public SettingsTest {};

TEST_F(MapStyleTest, EveryMissingKeyIsWrittenWithTheValueInUse) {
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
  EXPECT_EQ(regions.centreWorld, WorldCentre::kWest75);
  EXPECT_EQ(finder.howMany, HowMany::kRoundTrip);
  EXPECT_TRUE(finder.searchOrigin && finder.searchStopovers && finder.searchDestination);
  EXPECT_TRUE(boxes_.shown.empty());
}

TEST_F(MapStyleTest, AFailedWriteEndsTheReadingWithOneBox) {
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

}  // namespace
}  // namespace zerbal::data
