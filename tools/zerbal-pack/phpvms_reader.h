// Reads the flights that phpVMS exports: the CSV files of versions 5 and 7.
#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "zerbal-pack/airport_table.h"
#include "zerbal-pack/calendar.h"
#include "zerbal-pack/left_out.h"
#include "zerbal-pack/problems.h"

namespace zerbal::pack {

struct PhpVmsFlight {
  std::size_t line = 0;
  std::string airline;
  int number = 0;
  std::string routeCode;  ///< tells flights of one number apart; may be empty
  std::string routeLeg;   ///< of a row, not of a flight that was joined
  char type = 'J';
  std::string_view typeName;
  std::string aircraft;  ///< the first of several; may be empty
  Operation operation;
  std::vector<AirportIndex> route;

  std::string Name() const;
};

struct PhpVmsSchedule {
  std::vector<PhpVmsFlight> flights;  ///< in the order of their first rows
  std::vector<LeftOut> leftOut;
};

/// The file's first line tells the version. Rows whose numbers of legs run 1, 2, 3 and whose airports meet
/// become one flight.
PhpVmsSchedule ReadPhpVms(const std::filesystem::path& file, const AirportTable& airports,
                          Problems& problems);

/// The same from a text in memory; `name` is for messages.
PhpVmsSchedule ParsePhpVms(std::string bytes, std::string name, const AirportTable& airports,
                           Problems& problems);

}  // namespace zerbal::pack
