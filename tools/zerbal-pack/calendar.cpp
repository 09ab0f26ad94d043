#include "zerbal-pack/calendar.h"

#include <algorithm>
#include <chrono>

#include <fmt/format.h>

#include "base/case_folding.h"

namespace zerbal::pack {

namespace {

constexpr std::int64_t kFortnight = 14;

bool AreDigits(std::string_view text) {
  return !text.empty() && text.find_first_not_of("0123456789") == std::string_view::npos;
}

/// `text` has at most four digits and nothing else.
int ToNumber(std::string_view text) {
  int number = 0;
  for (const char c : text)
    number = number * 10 + (c - '0');
  return number;
}

Day LastSunday(int year, std::chrono::month month) {
  const std::chrono::sys_days day = std::chrono::year(year) / month / std::chrono::Sunday[std::chrono::last];
  return static_cast<Day>(day.time_since_epoch().count());
}

bool HasDay(Weekdays days, Day day) {
  return (days >> (WeekdayOf(day) - 1) & 1) != 0;
}

}  // namespace

Period Intersection(const Period& a, const Period& b) {
  return {std::max(a.from, b.from), std::min(a.to, b.to)};
}

std::optional<Day> ToDay(int year, int month, int day) {
  const std::chrono::year_month_day date{std::chrono::year(year),
                                         std::chrono::month(static_cast<unsigned>(month)),
                                         std::chrono::day(static_cast<unsigned>(day))};
  if (month < 1 || day < 1 || !date.ok())
    return std::nullopt;
  return static_cast<Day>(std::chrono::sys_days(date).time_since_epoch().count());
}

std::optional<Day> ParseIsoDate(std::string_view text) {
  if (text.size() != 10 || text[4] != '-' || text[7] != '-')
    return std::nullopt;
  const std::string_view year = text.substr(0, 4), month = text.substr(5, 2), day = text.substr(8, 2);
  if (!AreDigits(year) || !AreDigits(month) || !AreDigits(day))
    return std::nullopt;
  return ToDay(ToNumber(year), ToNumber(month), ToNumber(day));
}

std::string IsoDate(Day day) {
  const std::chrono::year_month_day date{std::chrono::sys_days(std::chrono::days(day))};
  return fmt::format("{:04}-{:02}-{:02}", static_cast<int>(date.year()), static_cast<unsigned>(date.month()),
                     static_cast<unsigned>(date.day()));
}

std::optional<Period> ParseSeason(std::string_view text) {
  if (text.size() != 3 || !AreDigits(text.substr(1)))
    return std::nullopt;
  const int number = ToNumber(text.substr(1));
  const int year = number < 70 ? 2000 + number : 1900 + number;
  const char letter = base::LowerAscii(text.front());
  if (letter == 's')
    return Period{LastSunday(year, std::chrono::March), LastSunday(year, std::chrono::October) - 1};
  if (letter == 'w')
    return Period{LastSunday(year, std::chrono::October), LastSunday(year + 1, std::chrono::March) - 1};
  return std::nullopt;
}

std::optional<Weekdays> ParseWeekdays(std::string_view text) {
  Weekdays days = 0;
  char last = '0';
  for (const char c : text) {
    if (c < '1' || c > '7' || c <= last)
      return std::nullopt;
    days = static_cast<Weekdays>(days | 1U << (c - '1'));
    last = c;
  }
  return days == 0 ? std::nullopt : std::optional(days);
}

std::string WeekdaysText(Weekdays days) {
  std::string text;
  for (int i = 0; i < 7; ++i) {
    if ((days >> i & 1) != 0)
      text.push_back(static_cast<char>('1' + i));
  }
  return text;
}

int WeekdayOf(Day day) {
  const int sinceThursday = static_cast<int>(std::int64_t{day} % 7);  // 1 January 1970 was a Thursday
  return (sinceThursday + 7 + 3) % 7 + 1;
}

bool Leaves(const Operation& operation, const Period& period, Weekdays days) {
  const Period both = Intersection(operation.period, period);
  const auto wanted = static_cast<Weekdays>(operation.days & days);
  if (both.Empty() || wanted == 0)
    return false;
  if (operation.fortnightly && operation.period.from != kFirstDay) {
    const std::int64_t first = operation.period.from;
    const std::int64_t weeks = (both.from - first + kFortnight - 1) / kFortnight;
    return first + weeks * kFortnight <= both.to && HasDay(wanted, operation.period.from);
  }
  if (both.from == kFirstDay)
    return true;
  const std::int64_t last = std::min<std::int64_t>(both.to, std::int64_t{both.from} + 6);
  for (std::int64_t day = both.from; day <= last; ++day) {
    if (HasDay(wanted, static_cast<Day>(day)))
      return true;
  }
  return false;
}

}  // namespace zerbal::pack
