// The chain rule of round trips, against examples and against a slow implementation on random schedules.
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "data/random_flights.h"
#include "support/test_random.h"

namespace zerbal::data {
namespace {

struct Leg {
  std::string from;
  std::string to;
};

/// Indexes of first and last flight of every round trip, in order.
using Trips = std::vector<std::pair<std::size_t, std::size_t>>;

Trips TripsByRule(const std::vector<Leg>& legs) {
  Trips trips;
  RoundTripChain chain;
  for (std::size_t i = 0; i < legs.size(); ++i) {
    if (chain.Add(legs[i].from, legs[i].to))
      trips.emplace_back(i + 1 - static_cast<std::size_t>(chain.Length()), i);
  }
  return trips;
}

/// Another implementation, without state between rows: from a row without an open chain, follow the flights
/// while they connect. The first return to the start closes the chain; a flight that does not connect or that
/// is a round trip by itself ends it.
Trips TripsBySearch(const std::vector<Leg>& legs) {
  Trips trips;
  std::size_t begin = 0;
  while (begin < legs.size()) {
    if (legs[begin].from == legs[begin].to) {
      trips.emplace_back(begin, begin);
      ++begin;
      continue;
    }
    std::size_t next = begin + 1;
    bool closed = false;
    while (!closed && next < legs.size() && legs[next].from != legs[next].to &&
           legs[next].from == legs[next - 1].to) {
      closed = legs[next].to == legs[begin].from;
      ++next;
    }
    if (closed)
      trips.emplace_back(begin, next - 1);
    begin = next;
  }
  return trips;
}

Trips Of(const std::vector<Leg>& legs) {
  return TripsByRule(legs);
}

TEST(RoundTripChain, AFlightInACircleIsARoundTripByItself) {
  EXPECT_EQ(Of({{"A", "A"}}), (Trips{{0, 0}}));
}

TEST(RoundTripChain, ConnectedFlightsBackToTheStartAreOne) {
  EXPECT_EQ(Of({{"A", "B"}, {"B", "C"}, {"C", "A"}}), (Trips{{0, 2}}));
}

TEST(RoundTripChain, UnconnectedFlightsAreNone) {
  EXPECT_EQ(Of({{"A", "B"}, {"C", "A"}}), Trips{});
}

TEST(RoundTripChain, TwoPairsAreTwo) {
  EXPECT_EQ(Of({{"A", "B"}, {"B", "A"}, {"A", "B"}, {"B", "A"}}), (Trips{{0, 1}, {2, 3}}));
}

TEST(RoundTripChain, AnOpenChainAtTheEndIsNotCounted) {
  EXPECT_EQ(Of({{"A", "B"}, {"B", "C"}}), Trips{});
}

TEST(RoundTripChain, AFlightThatDoesNotConnectBeginsANewChain) {
  EXPECT_EQ(Of({{"A", "B"}, {"C", "D"}, {"D", "C"}}), (Trips{{1, 2}}));
}

TEST(RoundTripChain, AFlightInACircleDropsTheOpenChain) {
  EXPECT_EQ(Of({{"A", "B"}, {"B", "B"}, {"B", "A"}}), (Trips{{1, 1}}));
}

TEST(RoundTripChain, CodesAreComparedExactly) {
  EXPECT_EQ(Of({{"A", "B"}, {"b", "A"}, {"B", "a"}}), Trips{});
}

TEST(RoundTripChain, AgreesWithASearchOnRandomSchedules) {
  test::TestRandom random(20261120);
  std::size_t found = 0;
  for (int schedule = 0; schedule < 10000; ++schedule) {
    std::vector<Leg> legs(random() % 30);
    const unsigned airports = 2 + random() % 4;
    for (Leg& leg : legs) {
      // Often connected, so that chains grow.
      const bool follows = &leg != legs.data() && random() % 3 != 0;
      leg.from = follows ? (&leg - 1)->to : std::string(1, static_cast<char>('A' + random() % airports));
      leg.to = std::string(1, static_cast<char>('A' + random() % airports));
    }
    const Trips expected = TripsBySearch(legs);
    ASSERT_EQ(TripsByRule(legs), expected) << "schedule " << schedule;
    found += expected.size();
  }
  EXPECT_GT(found, 10000u);
}

}  // namespace
}  // namespace zerbal::data
