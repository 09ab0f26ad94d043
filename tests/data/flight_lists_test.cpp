#include "data/flight_lists.h"

#include <deque>

#include <gtest/gtest.h>

#include "data/error.h"
#include "data/random_flights.h"
#include "jet/database.h"
#include "jet/recordset.h"
#include "support/small_world.h"

namespace zerbal::test {
namespace {

class FixedRandom final : public data::RandomSource {
 public:
  explicit FixedRandom(std::deque<float> values) : values_(std::move(values)) {}
  float Next() override {
    const float value = values_.at(0);
    values_.pop_front();
    return value;
  }
  std::size_t Left() const { return values_.size(); }

 private:
  std::deque<float> values_;
};

class FlightListsTest : public testing::Test {
 protected:
  /// Writes the world's schedule and opens it.
  void Open() {
    world.Write(folder.Path());
    const jet::Database database = jet::Database::Open(folder / "app_data" / "qavdata.mdb");
    schedule.emplace(database.OpenTable("fsrv"), database.OpenTable("flit"));
    destinations.emplace(database, "dest");
    for (const char* key : {"NEW", "NOR", "NORX", "OCE", "oce"}) {
      data::FlightService service;
      service.key = key;
      services.push_back(service);
    }
  }
  data::FlightSource Source() { return {*schedule, *destinations, services}; }
  void OfferOnly(std::size_t number) {
    for (std::size_t i = 0; i < services.size(); ++i)
      services[i].randomPick = i + 1 == number;
  }
  std::vector<std::string> Touching(const char* airport, data::AirportRoles roles) {
    std::vector<std::string> numbers;
    for (const std::string& line : data::FlightsTouching(Source(), airport, roles, false).lines)
      numbers.push_back(line.substr(0, line.find(' ')));
    return numbers;
  }

  TempFolder folder;
  SmallWorld world;
  std::optional<data::Schedule> schedule;
  std::optional<data::Airports> destinations;
  data::FlightServiceTable services;
  data::FlightFinderState state;
};

TEST_F(FlightListsTest, AllServicesAreListedInTableOrder) {
  Open();
  const data::FlightList all = data::FlightsOfService(Source(), 0, false);
  data::FlightList joined;
  for (int service = 1; service <= 5; ++service) {
    const data::FlightList part = data::FlightsOfService(Source(), service, false);
    joined.lines.insert(joined.lines.end(), part.lines.begin(), part.lines.end());
    joined.keys.insert(joined.keys.end(), part.keys.begin(), part.keys.end());
  }
  EXPECT_EQ(all.lines, joined.lines);
  EXPECT_EQ(all.keys, joined.keys);
  EXPECT_EQ(all.lines.size(), all.keys.size());
  // 23 of NOR, 7 of NORX; the rows of OCE and oce alternate in the index, so each walk ends after its first.
  EXPECT_EQ(all.lines.size(), 32u);
}

TEST_F(FlightListsTest, AServiceWithoutFlightsAddsNothing) {
  Open();
  EXPECT_TRUE(data::FlightsOfService(Source(), 1, false).lines.empty());
}

TEST_F(FlightListsTest, ServicesThatDifferInLetterCaseAreDistinguished) {
  // The index takes both keys for equal and has their flights in stored order.
  world.flit.rows = {
      FlightRow("OCE", "ZB1", "1", "NRT", {}, "ANC"), FlightRow("OCE", "ZB2", "2", "ANC", {}, "NRT"),
      FlightRow("oce", "ZB3", "3", "SYD", {}, "AKL"), FlightRow("oce", "ZB4", "4", "AKL", {}, "SYD")};
  Open();
  EXPECT_EQ(data::FlightsOfService(Source(), 4, false).keys, (std::vector<std::string>{"1", "2"}));
  EXPECT_EQ(data::FlightsOfService(Source(), 5, false).keys, (std::vector<std::string>{"3", "4"}));
}

TEST_F(FlightListsTest, TheWalkEndsAtTheFirstFlightOfAnotherService) {
  world.flit.rows = {FlightRow("OCE", "ZB1", "1", "NRT", {}, "ANC"),
                     FlightRow("oce", "ZB2", "2", "ANC", {}, "NRT"),
                     FlightRow("OCE", "ZB3", "3", "SYD", {}, "AKL")};
  Open();
  EXPECT_EQ(data::FlightsOfService(Source(), 4, false).keys, (std::vector<std::string>{"1"}));
}

TEST_F(FlightListsTest, LinesShowCitiesOfStopoversWhenAsked) {
  Open();
  EXPECT_EQ(data::FlightsOfService(Source(), 5, true).lines.at(0), "ZB351 - Sydney SYD -> Auckland AKL");
  const auto without = data::FlightsOfService(Source(), 2, false);
  const auto with = data::FlightsOfService(Source(), 2, true);
  EXPECT_EQ(without.keys, with.keys);
  const auto at =
      static_cast<std::size_t>(std::find(with.keys.begin(), with.keys.end(), "K1015") - with.keys.begin());
  EXPECT_EQ(without.lines.at(at), "ZB103 - Oslo OSL -> TRF -> Copenhagen CPH");
  EXPECT_EQ(with.lines.at(at), "ZB103 - Oslo OSL -> Sandefjord TRF -> Copenhagen CPH");
}

TEST_F(FlightListsTest, EachRoleIsSearchedSeparately) {
  Open();
  EXPECT_EQ(Touching("TRF", {true, false, false}), std::vector<std::string>{});
  EXPECT_EQ(Touching("TRF", {false, true, false}).size(), 3u);  // ZB103, ZB104, ZB115
  EXPECT_EQ(Touching("TRF", {false, false, true}), std::vector<std::string>{});
  EXPECT_EQ(Touching("TRF", {true, true, true}).size(), 3u);
}

TEST_F(FlightListsTest, AnEndIsNoStopover) {
  world.flit.rows = {FlightRow("NOR", "ZB1", "1", "OSL", {"TRF", "BGO"}, "TOS")};
  Open();
  const std::vector<std::string> found = {"ZB1"};
  for (const char* airport : {"OSL", "TOS"})
    EXPECT_TRUE(Touching(airport, {false, true, false}).empty()) << airport;
  for (const char* airport : {"TRF", "BGO"}) {
    EXPECT_EQ(Touching(airport, {false, true, false}), found) << airport;
    EXPECT_TRUE(Touching(airport, {true, false, true}).empty()) << airport;
  }
  EXPECT_EQ(Touching("OSL", {true, false, false}), found);
  EXPECT_TRUE(Touching("OSL", {false, false, true}).empty());
  EXPECT_EQ(Touching("TOS", {false, false, true}), found);
}

TEST_F(FlightListsTest, AFlightInSeveralRolesIsListedOnce) {
  world.flit.rows = {FlightRow("NOR", "ZB1", "1", "OSL", {"OSL"}, "OSL")};
  Open();
  EXPECT_EQ(Touching("OSL", {true, true, true}), (std::vector<std::string>{"ZB1"}));
}

TEST_F(FlightListsTest, StopoversAfterANullAreNotFound) {
  world.flit.rows = {FlightRow("NOR", "ZB1", "1", "OSL", {jet::Null(), "BGO"}, "TOS")};
  Open();
  EXPECT_TRUE(Touching("BGO", {true, true, true}).empty());
}

TEST_F(FlightListsTest, CodesAreComparedExactly) {
  Open();
  EXPECT_EQ(Touching("osl", {true, true, true}), (std::vector<std::string>{"ZB122"}));
  EXPECT_EQ(Touching("lyr", {true, true, true}), std::vector<std::string>{});
}

TEST_F(FlightListsTest, DisplayFlagsAreIgnored) {
  Open();
  const auto before = Touching("OSL", {});
  services[1].displayFlag = true;
  EXPECT_EQ(Touching("OSL", {}), before);
}

TEST_F(FlightListsTest, MoreThan32767FoundFlightsAreAnOverflow) {
  world.flit.rows.clear();
  for (int i = 0; i < 32768; ++i)
    world.flit.rows.push_back(FlightRow("NOR", "ZB1", std::to_string(i), "OSL", {}, "BGO"));
  Open();
  EXPECT_THROW(data::FlightsTouching(Source(), "OSL", {}, false), data::OverflowError);
  OfferOnly(2);
  state.howMany = data::HowMany::kOneFlight;
  FixedRandom random({0, 0});
  EXPECT_THROW(data::DrawRandomFlights(Source(), random, state), data::OverflowError);
}

TEST_F(FlightListsTest, OneFlightIsDrawnByItsNumber) {
  world.flit.rows = {FlightRow("oce", "ZB3", "K1008", "SYD", {}, "AKL"),
                     FlightRow("oce", "ZB4", "K1032", "AKL", {}, "SYD")};
  Open();
  OfferOnly(5);
  state.howMany = data::HowMany::kOneFlight;
  for (const auto& [value, key] : {std::pair{0.0F, "K1008"}, std::pair{0.49F, "K1008"},
                                   std::pair{0.5F, "K1032"}, std::pair{0.999F, "K1032"}}) {
    FixedRandom random({0.7F, value});
    data::DrawRandomFlights(Source(), random, state);
    EXPECT_EQ(state.drawnService, 5);
    ASSERT_EQ(state.drawnFlights.size(), 1u);
    EXPECT_EQ(state.drawnFlights[0].key, key) << value;
    EXPECT_EQ(random.Left(), 0u);
  }
}

constexpr float kLargestRandom = 0.99999994F;  // the largest single below 1

TEST_F(FlightListsTest, TheLargestRandomValueDrawsTheOnlySelectedService) {
  Open();
  for (const std::size_t only : {1, 2, 3, 4, 5}) {
    OfferOnly(only);
    FixedRandom random({kLargestRandom, 0});
    data::DrawRandomFlights(Source(), random, state);
    EXPECT_EQ(state.drawnService, static_cast<std::int16_t>(only));
  }
}

TEST_F(FlightListsTest, TheLargestRandomValueDrawsTheLastSelectedService) {
  Open();
  for (const std::size_t ticked : {1, 2, 4}) {
    for (std::size_t i = 0; i < services.size(); ++i)
      services[i].randomPick = i < ticked;
    FixedRandom random({kLargestRandom, 0});
    data::DrawRandomFlights(Source(), random, state);
    EXPECT_EQ(state.drawnService, static_cast<std::int16_t>(ticked));
  }
}

TEST_F(FlightListsTest, TheLargestRandomValueDrawsTheLastFlight) {
  // Service NOR has `count` flights, each a round trip; those of NORX follow in the index.
  for (const int count : {1, 2, 4, 8}) {
    world.flit.rows.clear();
    services.clear();
    for (int flight = 1; flight <= count; ++flight)
      world.flit.rows.push_back(FlightRow("NOR", "ZB1", std::to_string(flight), "OSL", {}, "OSL"));
    world.flit.rows.push_back(FlightRow("NORX", "ZB2", "other", "LHR", {}, "LHR"));
    Open();
    OfferOnly(2);
    for (const data::HowMany howMany : {data::HowMany::kOneFlight, data::HowMany::kRoundTrip}) {
      state.howMany = howMany;
      FixedRandom random({0, kLargestRandom});
      data::DrawRandomFlights(Source(), random, state);
      ASSERT_EQ(state.drawnFlights.size(), 1u);
      EXPECT_EQ(state.drawnFlights[0].key, std::to_string(count));
    }
  }
}

TEST_F(FlightListsTest, ARoundTripIsStoredInChainOrder) {
  world.flit.rows = {
      FlightRow("NOR", "ZB1", "1", "OSL", {}, "BGO"), FlightRow("NOR", "ZB2", "2", "BGO", {"TRF"}, "TOS"),
      FlightRow("NOR", "ZB3", "3", "TOS", {}, "OSL"), FlightRow("NOR", "ZB4", "4", "CPH", {}, "CPH")};
  Open();
  OfferOnly(2);
  FixedRandom first({0, 0});
  data::DrawRandomFlights(Source(), first, state);
  ASSERT_EQ(state.drawnFlights.size(), 3u);
  EXPECT_EQ(state.drawnFlights[0].key, "1");
  EXPECT_EQ(state.drawnFlights[1].key, "2");
  EXPECT_EQ(state.drawnFlights[2].key, "3");
  EXPECT_EQ(state.drawnFlights[1].line, "ZB2 - Bergen BGO -> TRF -> Tromso TOS");
  EXPECT_EQ(state.drawnFlights[1].lineWithCities, "ZB2 - Bergen BGO -> Sandefjord TRF -> Tromso TOS");
  FixedRandom second({0, 0.5F});
  data::DrawRandomFlights(Source(), second, state);
  ASSERT_EQ(state.drawnFlights.size(), 1u);
  EXPECT_EQ(state.drawnFlights[0].key, "4");
}

TEST_F(FlightListsTest, TheServiceIsDrawnBeforeAnyFlightIsRead) {
  Open();
  services[1].randomPick = services[2].randomPick = false;
  // Of NEW, OCE and oce the first is drawn, which has no flights; no second value is requested.
  FixedRandom random({0.1F});
  data::DrawRandomFlights(Source(), random, state);
  EXPECT_EQ(state.drawnService, 1);
  EXPECT_TRUE(state.drawnFlights.empty());
}

}  // namespace
}  // namespace zerbal::test
