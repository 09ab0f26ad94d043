// The flight services that an import makes: one for each service type, aircraft type, airline or origin.
#pragma once

#include <string>
#include <string_view>

#include "zerbal-pack/airport_table.h"
#include "zerbal-pack/import_options.h"
#include "zerbal-pack/imported_schedule.h"

namespace zerbal::pack {

/// The code that the result uses for an airport. An airport without IATA code keeps its other code.
const std::string& CodeOf(const Airport& airport, AirportCodes codes);

/// What a flight is grouped by.
struct ServiceTraits {
  char type = ' ';
  std::string_view typeName;  ///< empty: unknown
  std::string aircraft;       ///< may be empty
  std::string airline;
  const Airport* origin = nullptr;
};

ImportedService ServiceOf(const ServiceTraits& traits, const ImportOptions& options);

}  // namespace zerbal::pack
