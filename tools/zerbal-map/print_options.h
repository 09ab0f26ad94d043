// The options for print on the command line.
#pragma once

#include "zerbal-map/option_reader.h"
#include "zerbal-map/options.h"

namespace zerbal::mapcommand {

/// The kind of file must be known. Throws UsageError for wrong values, and for any of them with map data.
void ReadPrintOptions(const OptionReader& reader, Options& options);

}  // namespace zerbal::mapcommand
