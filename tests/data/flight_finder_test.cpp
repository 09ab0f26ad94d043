#include "data/flight_finder.h"

#include <array>
#include <string>
#include <utility>

#include <gtest/gtest.h>

#include "settings_fixture.h"

namespace zerbal::data {
namespace {

class FlightFinderTest : public SettingsTest {};

TEST_F(FlightFinderTest, ReadingContinuesAfterFailedWrites) {
  FlightFinderState finder;
  finder.howMany = HowMany::kOneFlight;
  finder.searchOrigin = false;
  ReadFlightFinderSettings(unwritable_, finder);
  EXPECT_EQ(finder.howMany, HowMany::kRoundTrip);
  EXPECT_TRUE(finder.searchOrigin && finder.searchStopovers && finder.searchDestination);
  EXPECT_EQ(boxes_.shown.size(), 4u);
}

TEST_F(FlightFinderTest, RandomFlightsAreOneOrARoundTrip) {
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

TEST_F(FlightFinderTest, SearchTypesAreOffOnlyForZero) {
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
