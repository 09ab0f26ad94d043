// Airports as records of our own CSV files.
#pragma once

#include <string>
#include <string_view>

#include "zerbal-pack/airport_table.h"

namespace zerbal::pack {

/// The names of the columns, with the line end.
std::string AirportCsvHeader();

/// `code`: which of its codes the airport has in the result.
void AppendAirportCsv(const Airport& airport, std::string_view code, bool ils, std::string& csv);

/// Without control characters, and as long as a name in the database can be.
std::string ToDatabaseName(std::string_view text);

}  // namespace zerbal::pack
