#include "zerbal-map/print_options.h"

namespace zerbal::mapcommand {
namespace {

/// All of them.
constexpr const char* kForPrint[] = {"great-circles", "projection"};

print::ProjectionKind ParseProjection(const QString& text) {
  QStringList names;
  for (std::size_t i = 0; i < std::size(print::kProjectionNames); ++i) {
    const QString name = QString::fromLatin1(print::kProjectionNames[i].data());
    if (text.compare(name, Qt::CaseInsensitive) == 0)
      return static_cast<print::ProjectionKind>(i);
    names.append(name);
  }
  throw UsageError(
      QString("--projection: there is no projection '%1'; possible are %2").arg(text, names.join(", ")));
}

}  // namespace

void ReadPrintOptions(const OptionReader& reader, Options& options) {
  for (const char* name : kForPrint) {
    if (options.routes && reader.Has(name))
      throw UsageError(
          QString("--%1 is for drawings; it has no meaning for .geojson, .kml and .gpkg").arg(name));
  }
  options.print.greatCircles = reader.Has("great-circles");
  if (reader.Has("projection"))
    options.print.projection = ParseProjection(reader.Value("projection"));
}

}  // namespace zerbal::mapcommand
