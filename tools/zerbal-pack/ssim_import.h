// Takes the flights of an SSIM schedule data set into an import.
#pragma once

#include <string>

#include "zerbal-pack/airport_table.h"
#include "zerbal-pack/import_options.h"
#include "zerbal-pack/imported_schedule.h"
#include "zerbal-pack/ssim_reader.h"

namespace zerbal::pack {

/// When a flight leaves: the operation of its first leg.
Operation OperationOf(const SsimLeg& firstLeg);

/// Adds the flights that the options choose. A flight's service comes from its first leg.
void ImportSsim(const SsimSchedule& ssim, const AirportTable& airports, const ImportOptions& options,
                ImportedSchedule& schedule);

}  // namespace zerbal::pack
