#include "zerbal-map/print_options.h"

#include <QColor>

#include "zerbal-map/print_values.h"

namespace zerbal::mapcommand {
namespace {

/// All of them.
constexpr const char* kForPrint[] = {"great-circles", "projection", "land",   "water",     "labels-placed",
                                     "width-by",      "color-by",   "legend", "scale-bar", "north",
                                     "title",         "graticule",  "style"};

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

void ReadPieces(const OptionReader& reader, print::PrintOptions& print) {
  const std::pair<const char*, print::WantedPiece&> pieces[] = {
      {"legend", print.legend}, {"scale-bar", print.scaleBar}, {"north", print.north}};
  for (const auto& [name, piece] : pieces) {
    if (reader.Has(name))
      piece = ParsePiece(reader.Value(name), QString("--") + name);
  }
  if (reader.Has("title"))
    print.title = ParseTitle(reader.Value("title"));
}

}  // namespace

void ReadPrintOptions(const OptionReader& reader, Options& options) {
  for (const char* name : kForPrint) {
    if ((options.routes || options.page) && reader.Has(name))
      throw UsageError(
          QString("--%1 is for drawings; it has no meaning for .geojson, .kml, .gpkg and .html").arg(name));
    reader.OneOf({"compare", name});
  }
  print::PrintOptions& print = options.print;
  print.greatCircles = reader.Has("great-circles");
  if (reader.Has("projection"))
    print.projection = ParseProjection(reader.Value("projection"));
  print.land = ReadColour(reader, "land");
  print.water = ReadColour(reader, "water");
  print.labelsPlaced = reader.Has("labels-placed");
  if (reader.Has("width-by"))
    print.widthByFlights = ParseWidthBy(reader.Value("width-by"));
  if (reader.Has("color-by"))
    print.colourBy = ParseColourBy(reader.Value("color-by"));
  if (reader.Has("graticule"))
    print.graticule = ParseGraticule(reader.Value("graticule"));
  if (reader.Has("style"))
    print.style = reader.Path("style");
  ReadPieces(reader, print);
}

}  // namespace zerbal::mapcommand
