#include "data/flight_pairs.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace zerbal::data {
namespace {

using Flights = std::vector<Flight>;

/// The route has one letter per airport.
Flight F(const std::string& key, const std::string& number, const std::string& route,
         const std::string& service = "X") {
  Flight flight{key, service, number, {}};
  for (const char code : route)
    flight.route.emplace_back(1, code);
  return flight;
}

/// Keys: "old=new" of each pair, "+new", "-old".
std::string Pairs(const Flights& before, const Flights& after) {
  const FlightPairs result = PairFlights(before, after);
  std::string text;
  for (const FlightPair& pair : result.pairs)
    text += pair.before->key + "=" + pair.after->key + " ";
  for (const Flight* flight : result.added)
    text += "+" + flight->key + " ";
  for (const Flight* flight : result.dropped)
    text += "-" + flight->key + " ";
  return text;
}

TEST(PairFlights, TakesTheMostAlikeFirst) {
  EXPECT_EQ(Pairs({F("1", "N1", "AB"), F("2", "N2", "CD")}, {F("1", "N1", "AB"), F("2", "N2", "CD")}),
            "1=1 2=2 ");
  // Keys that count the rows do not spoil the comparison when a row is removed.
  EXPECT_EQ(Pairs({F("1", "N1", "AB"), F("2", "N2", "CD"), F("3", "N3", "DE")},
                  {F("1", "N2", "CD"), F("2", "N3", "DE")}),
            "2=1 3=2 -1 ");
  // Number before route.
  EXPECT_EQ(Pairs({F("a", "N1", "AB"), F("b", "N2", "CD")}, {F("c", "N1", "CD"), F("d", "N2", "AB")}),
            "a=c b=d ");
  // Number before key.
  EXPECT_EQ(Pairs({F("a", "N1", "AB"), F("b", "N2", "CD")}, {F("b", "N1", "EA"), F("a", "N2", "BD")}),
            "a=b b=a ");
  // Route before key.
  EXPECT_EQ(Pairs({F("a", "N1", "AB"), F("b", "N2", "CD")}, {F("b", "N3", "AB"), F("a", "N4", "CD")}),
            "a=b b=a ");
  EXPECT_EQ(Pairs({F("a", "N1", "AB")}, {F("a", "N2", "CD")}), "a=a ");
  EXPECT_EQ(Pairs({F("a", "N1", "AB")}, {F("b", "N2", "BA")}), "+b -a ");
}

TEST(PairFlights, LetsKeyAndServiceDecideBetweenCandidates) {
  EXPECT_EQ(Pairs({F("a", "N", "AB"), F("b", "N", "AC")}, {F("b", "N", "AD"), F("c", "N", "AE")}),
            "b=b a=c ");
  EXPECT_EQ(Pairs({F("a", "N", "AB", "Y"), F("b", "N", "AC", "X")}, {F("c", "N", "AD", "X")}), "b=c -a ");
  EXPECT_EQ(Pairs({F("a", "N", "AB", "Y"), F("b", "N", "AB", "X")}, {F("c", "N", "AB", "X")}), "b=c -a ");
  EXPECT_EQ(Pairs({F("a", "N1", "AB", "Y"), F("b", "N2", "AB", "X")}, {F("c", "N3", "AB", "X")}), "b=c -a ");
  EXPECT_EQ(Pairs({F("a", "N1", "AB"), F("b", "N2", "AB")}, {F("c", "N3", "AB"), F("b", "N4", "AB")}),
            "a=c b=b ");
}

TEST(PairFlights, TakesEqualCandidatesInOrder) {
  EXPECT_EQ(Pairs({F("a", "N1", "AB"), F("b", "N2", "AB"), F("c", "N3", "AB")},
                  {F("d", "N4", "AB"), F("e", "N5", "AB")}),
            "a=d b=e -c ");
  EXPECT_EQ(Pairs({F("a", "N", "AB")}, {F("b", "N", "AB"), F("c", "N", "AB")}), "a=b +c ");
}

TEST(PairFlights, DoesNotTakeEmptyNumbersAndKeysForTheSame) {
  EXPECT_EQ(Pairs({F("a", "", "AB")}, {F("b", "", "CD")}), "+b -a ");
  EXPECT_EQ(Pairs({F("", "N1", "AB")}, {F("", "N2", "CD")}), "+ - ");
}

}  // namespace
}  // namespace zerbal::data
