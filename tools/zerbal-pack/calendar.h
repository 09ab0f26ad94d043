// Days, seasons and days of operation.
#pragma once

#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <string_view>

namespace zerbal::pack {

/// Days since 1 January 1970.
using Day = std::int32_t;
inline constexpr Day kFirstDay = std::numeric_limits<Day>::min();  ///< no limit
inline constexpr Day kLastDay = std::numeric_limits<Day>::max();   ///< no limit

/// Both ends included.
struct Period {
  Day from = kFirstDay;
  Day to = kLastDay;

  bool Empty() const { return from > to; }
  bool operator==(const Period&) const = default;
};

Period Intersection(const Period& a, const Period& b);

/// nullopt for dates that do not exist.
std::optional<Day> ToDay(int year, int month, int day);

/// "2027-07-14".
std::optional<Day> ParseIsoDate(std::string_view text);
std::string IsoDate(Day day);

/// "S27" begins on the last Sunday of March, "W27" on the last Sunday of October 2027; each ends on the
/// Saturday before the next one. Years are 1970 to 2069. Letter case does not matter.
std::optional<Period> ParseSeason(std::string_view text);

/// Days of the week as bits: bit 0 is Monday.
using Weekdays = std::uint8_t;
inline constexpr Weekdays kEveryDay = 0x7F;

/// Of digits 1 (Monday) to 7 in ascending order; nullopt for anything else and for none.
std::optional<Weekdays> ParseWeekdays(std::string_view text);
std::string WeekdaysText(Weekdays days);
int WeekdayOf(Day day);  ///< 1 (Monday) to 7

/// When a flight leaves.
struct Operation {
  Period period;
  Weekdays days = kEveryDay;
  bool fortnightly = false;  ///< every second week from the first day of the period
};

/// Whether the flight leaves on a day within `period` that is one of `days`.
bool Leaves(const Operation& operation, const Period& period, Weekdays days);

}  // namespace zerbal::pack
