#include "zerbal-map/print_options.h"

#include <QColor>

namespace zerbal::mapcommand {
namespace {

/// All of them.
constexpr const char* kForPrint[] = {"great-circles", "projection", "land", "water"};

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

std::optional<data::Rgb> ReadColour(const OptionReader& reader, const char* name) {
  if (!reader.Has(name))
    return std::nullopt;
  const QString text = reader.Value(name);
  const QColor colour(text);
  // Nothing below would shine through.
  constexpr int kWithTransparency = 9;
  if (!colour.isValid() || colour.alpha() != 255 ||
      (text.startsWith('#') && text.size() == kWithTransparency))
    throw UsageError(
        QString("--%1: '%2' is no colour; possible are #rrggbb and names such as tan or steelblue")
            .arg(name, text));
  return data::Rgb{static_cast<std::uint8_t>(colour.red()), static_cast<std::uint8_t>(colour.green()),
                   static_cast<std::uint8_t>(colour.blue())};
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
  options.print.land = ReadColour(reader, "land");
  options.print.water = ReadColour(reader, "water");
}

}  // namespace zerbal::mapcommand
