// What `zerbal-pack import` is asked for.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "zerbal-pack/airport_sources.h"
#include "zerbal-pack/calendar.h"
#include "zerbal-pack/command_line.h"

namespace zerbal::pack {

enum class ScheduleFormat { kSsim, kPhpVms, kOpenFlights };
enum class ServicesBy { kServiceType, kAircraftType, kAirline, kOrigin };
enum class AirportCodes { kIcao, kIata };

/// Which flights are taken, by the day on which they leave their first airport.
struct FlightFilter {
  Period period;
  Weekdays days = kEveryDay;
  std::string airline;  ///< letter case does not matter; empty: all

  bool Takes(std::string_view flightAirline, const Operation& operation) const;
};

struct ImportOptions {
  ScheduleFormat format = ScheduleFormat::kSsim;
  std::vector<std::filesystem::path> files;
  AirportSource airports;
  std::filesystem::path out;       ///< folder of the CSV files
  std::filesystem::path schedule;  ///< database; empty: none
  FlightFilter filter;
  bool keepVariations = false;
  ServicesBy servicesBy = ServicesBy::kServiceType;
  AirportCodes codes = AirportCodes::kIcao;
  bool strict = false;
};

/// Throws base::UsageError.
ImportOptions ToImportOptions(const ImportWords& words);

}  // namespace zerbal::pack
