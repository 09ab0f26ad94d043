#include "zerbal-pack/calendar.h"

#include <gtest/gtest.h>

namespace zerbal::pack {
namespace {

Day Date(std::string_view text) {
  return ParseIsoDate(text).value();
}

Period Between(std::string_view from, std::string_view to) {
  return {Date(from), Date(to)};
}

TEST(Dates, AreReadAndWritten) {
  EXPECT_EQ(Date("1970-01-01"), 0);
  EXPECT_EQ(IsoDate(Date("2028-02-29")), "2028-02-29");
  for (const char* bad : {"2027-02-29", "2027-13-01", "2027-00-10", "2027-01-00", "27-01-01", "2027/01/01",
                          "2027-1-01", "+027-01-01", "2027-01-011", ""})
    EXPECT_FALSE(ParseIsoDate(bad)) << bad;
}

TEST(Dates, HaveAWeekday) {
  EXPECT_EQ(WeekdayOf(Date("2027-07-14")), 3);
  EXPECT_EQ(WeekdayOf(Date("2027-03-28")), 7);
  EXPECT_EQ(WeekdayOf(Date("1969-12-29")), 1);
}

TEST(Seasons, BeginOnTheLastSundayOfMarchAndOctober) {
  EXPECT_EQ(ParseSeason("S27"), Between("2027-03-28", "2027-10-30"));
  EXPECT_EQ(ParseSeason("W27"), Between("2027-10-31", "2028-03-25"));
  EXPECT_EQ(ParseSeason("s24"), Between("2024-03-31", "2024-10-26"));
  EXPECT_EQ(ParseSeason("w99"), Between("1999-10-31", "2000-03-25"));
  for (const char* bad : {"X27", "S7", "27", "S2027", "Sab", ""})
    EXPECT_FALSE(ParseSeason(bad)) << bad;
}

TEST(Weekdays, AreDigitsInAscendingOrder) {
  EXPECT_EQ(ParseWeekdays("67"), 0x60);
  EXPECT_EQ(ParseWeekdays("1234567"), kEveryDay);
  EXPECT_EQ(WeekdaysText(0x60), "67");
  for (const char* bad : {"", "0", "8", "21", "11", "1 2", "x"})
    EXPECT_FALSE(ParseWeekdays(bad)) << bad;
}

TEST(Operations, LeaveOnTheirDaysWithinTheirPeriod) {
  const Operation operation{Between("2027-07-01", "2027-07-31"), *ParseWeekdays("13"), false};
  const auto on = [&](const char* day) { return Leaves(operation, Between(day, day), kEveryDay); };
  EXPECT_TRUE(on("2027-07-14"));
  EXPECT_FALSE(on("2027-07-15"));
  EXPECT_FALSE(on("2027-06-30"));
  EXPECT_FALSE(on("2027-08-02"));
  EXPECT_FALSE(Leaves(operation, {}, *ParseWeekdays("67")));
  EXPECT_TRUE(Leaves(operation, {}, *ParseWeekdays("37")));
  EXPECT_FALSE(Leaves(operation, Between("2027-07-08", "2027-07-11"), kEveryDay));
  EXPECT_FALSE(Leaves({Between("2027-07-06", "2027-07-10"), *ParseWeekdays("17"), false}, {}, kEveryDay));
}

TEST(Operations, MayLeaveEverySecondWeek) {
  const Operation operation{Between("2027-04-02", "2027-10-15"), *ParseWeekdays("5"), true};
  const auto on = [&](const char* day) { return Leaves(operation, Between(day, day), kEveryDay); };
  EXPECT_TRUE(on("2027-04-02"));
  EXPECT_FALSE(on("2027-04-09"));
  EXPECT_TRUE(on("2027-04-16"));
  EXPECT_FALSE(on("2027-04-17"));
  EXPECT_FALSE(Leaves(operation, Between("2027-06-28", "2027-07-04"), kEveryDay));
  EXPECT_TRUE(Leaves(operation, Between("2027-07-03", "2027-07-10"), kEveryDay));
  EXPECT_FALSE(Leaves(operation, {}, *ParseWeekdays("67")));
}

TEST(Operations, MayHaveNoEnds) {
  EXPECT_TRUE(Leaves({}, {}, kEveryDay));
  EXPECT_TRUE(Leaves({{}, *ParseWeekdays("3"), false}, Between("2027-07-14", "2027-07-14"), kEveryDay));
  EXPECT_FALSE(Leaves({{}, *ParseWeekdays("3"), false}, Between("2027-07-15", "2027-07-15"), kEveryDay));
  EXPECT_TRUE(
      Leaves({{kFirstDay, kLastDay}, kEveryDay, true}, Between("2027-07-15", "2027-07-15"), kEveryDay));
  EXPECT_TRUE(Leaves({}, {Date("2027-07-15"), kLastDay}, 1));
}

}  // namespace
}  // namespace zerbal::pack
