#include "zerbal-map/print_options.h"

namespace zerbal::mapcommand {
namespace {

/// All of them.
constexpr const char* kForPrint[] = {"great-circles"};

}  // namespace

void ReadPrintOptions(const OptionReader& reader, Options& options) {
  for (const char* name : kForPrint) {
    if (options.routes && reader.Has(name))
      throw UsageError(
          QString("--%1 is for drawings; it has no meaning for .geojson, .kml and .gpkg").arg(name));
  }
  options.print.greatCircles = reader.Has("great-circles");
}

}  // namespace zerbal::mapcommand
