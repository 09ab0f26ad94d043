// The figures of a schedule for people and for other programs.
#pragma once

#include <iosfwd>

#include "zerbal-pack/schedule_stats.h"

namespace zerbal::pack {

/// One paragraph for all flights and one for each service.
void PrintFigures(const ScheduleFigures& figures, std::ostream& out);

/// One record for all flights, whose service is empty, and one for each service.
void PrintFiguresAsCsv(const ScheduleFigures& figures, std::ostream& out);

/// An object with the members `all`, an object, and `services`, a list of such objects.
void PrintFiguresAsJson(const ScheduleFigures& figures, std::ostream& out);

}  // namespace zerbal::pack
