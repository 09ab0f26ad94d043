#include "zerbal-pack/import_options.h"

#include <span>
#include <string_view>
#include <utility>

#include <fmt/format.h>

#include "base/case_folding.h"
#include "base/error.h"
#include "base/path_text.h"

namespace zerbal::pack {

namespace {

template <typename Value>
struct Choice {
  std::string_view word;
  Value value;
};

constexpr Choice<ScheduleFormat> kFormats[] = {{"ssim", ScheduleFormat::kSsim},
                                               {"phpvms", ScheduleFormat::kPhpVms},
                                               {"openflights", ScheduleFormat::kOpenFlights}};
constexpr Choice<ServicesBy> kServices[] = {{"service-type", ServicesBy::kServiceType},
                                            {"aircraft-type", ServicesBy::kAircraftType},
                                            {"airline", ServicesBy::kAirline},
                                            {"origin", ServicesBy::kOrigin}};
constexpr Choice<AirportCodes> kCodes[] = {{"icao", AirportCodes::kIcao}, {"iata", AirportCodes::kIata}};

template <typename Value>
Value Choose(std::string_view option, const std::string& word, std::span<const Choice<Value>> choices) {
  std::string words;
  for (const Choice<Value>& choice : choices) {
    if (choice.word == word)
      return choice.value;
    words.append(words.empty() ? "" : &choice == &choices.back() ? " and " : ", ").append(choice.word);
  }
  throw base::UsageError(fmt::format("{} '{}' is none of {}", option, word, words));
}

Day ToDate(std::string_view option, const std::string& text) {
  const std::optional<Day> day = ParseIsoDate(text);
  if (!day)
    throw base::UsageError(fmt::format("{}: there is no date '{}'; write it as 2027-07-14", option, text));
  return *day;
}

Period ToPeriod(const ImportWords& words) {
  Period period;
  if (!words.season.empty()) {
    const std::optional<Period> season = ParseSeason(words.season);
    if (!season)
      throw base::UsageError(fmt::format("--season: '{}' is not a season such as S27 or W27", words.season));
    period = *season;
  }
  if (!words.fromDate.empty())
    period = Intersection(period, {ToDate("--from-date", words.fromDate), kLastDay});
  if (!words.toDate.empty())
    period = Intersection(period, {kFirstDay, ToDate("--to-date", words.toDate)});
  if (!words.on.empty()) {
    const Day day = ToDate("--on", words.on);
    period = Intersection(period, {day, day});
  }
  if (period.Empty())
    throw base::UsageError("no day is within all of the dates and the season that are given");
  return period;
}

FlightFilter ToFilter(const ImportWords& words) {
  FlightFilter filter;
  filter.period = ToPeriod(words);
  if (!words.days.empty()) {
    const std::optional<Weekdays> days = ParseWeekdays(words.days);
    if (!days)
      throw base::UsageError(fmt::format(
          "--days: '{}' is not made of the digits 1 (Monday) to 7 in ascending order", words.days));
    filter.days = *days;
  }
  filter.airline = words.airline;
  return filter;
}

/// OpenFlights knows neither days nor types of services.
void CheckForOpenFlights(const ImportWords& words) {
  for (const auto& [option, value] : {std::pair("--season", words.season),
                                      {"--from-date", words.fromDate},
                                      {"--to-date", words.toDate},
                                      {"--on", words.on},
                                      {"--days", words.days}}) {
    if (!value.empty())
      throw base::UsageError(fmt::format("{} is not possible: OpenFlights has no days of operation", option));
  }
  if (words.servicesBy == "service-type")
    throw base::UsageError("--services-by service-type is not possible: OpenFlights has no service types");
}

}  // namespace

bool FlightFilter::Takes(std::string_view flightAirline, const Operation& operation) const {
  return (airline.empty() || base::EqualsIgnoringAsciiCase(airline, flightAirline)) &&
         Leaves(operation, period, days);
}

ImportOptions ToImportOptions(const ImportWords& words) {
  ImportOptions options;
  options.format = Choose<ScheduleFormat>("--from", words.from, kFormats);
  for (const std::string& file : words.files)
    options.files.push_back(base::PathOf(file));
  options.airports = {base::PathOf(words.airports), base::PathOf(words.runways)};
  options.out = base::PathOf(words.out);
  options.schedule = base::PathOf(words.schedule);
  options.filter = ToFilter(words);
  options.keepVariations = words.keepVariations;
  if (options.format == ScheduleFormat::kOpenFlights) {
    CheckForOpenFlights(words);
    options.servicesBy = ServicesBy::kAirline;
  }
  if (!words.servicesBy.empty())
    options.servicesBy = Choose<ServicesBy>("--services-by", words.servicesBy, kServices);
  if (!words.codes.empty())
    options.codes = Choose<AirportCodes>("--codes", words.codes, kCodes);
  options.strict = words.strict;
  return options;
}

}  // namespace zerbal::pack
