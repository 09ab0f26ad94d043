// Takes the flights of phpVMS and the routes of OpenFlights into an import.
#pragma once

#include "zerbal-pack/airport_table.h"
#include "zerbal-pack/import_options.h"
#include "zerbal-pack/imported_schedule.h"
#include "zerbal-pack/openflights_routes.h"
#include "zerbal-pack/phpvms_reader.h"

namespace zerbal::pack {

/// Each adds the flights that the options choose.
void ImportPhpVms(const PhpVmsSchedule& flights, const AirportTable& airports, const ImportOptions& options,
                  ImportedSchedule& schedule);
/// Routes have no numbers: a flight is named by airline and airports.
void ImportOpenFlights(const OpenFlightsRoutes& routes, const AirportTable& airports,
                       const ImportOptions& options, ImportedSchedule& schedule);

}  // namespace zerbal::pack
