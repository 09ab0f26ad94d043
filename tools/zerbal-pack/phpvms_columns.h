// The columns of phpVMS files.
#pragma once

#include <cstddef>
#include <optional>

#include "zerbal-pack/csv.h"

namespace zerbal::pack {

/// Where a file has the values that a flight needs.
struct PhpVmsColumns {
  using Column = std::optional<std::size_t>;

  int version = 0;        ///< 5 or 7; 0: the file is none of phpVMS
  bool hasHeader = true;  ///< the first record names the columns
  std::size_t most = 0;   ///< fields of a record; 0: as many as there are
  Column airline, number, routeCode, routeLeg, departure, arrival, days, type, aircraft, start, end, active;
};

/// From the first record of a file.
PhpVmsColumns FindPhpVmsColumns(const CsvRecord& first);

}  // namespace zerbal::pack
