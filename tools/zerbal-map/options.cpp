#include "zerbal-map/options.h"

#include <QRegularExpression>
#include <cmath>

#include "map/viewport.h"
#include "zerbal-map/option_reader.h"
#include "zerbal-map/print_options.h"
#include "zerbal-map/values.h"

namespace zerbal::mapcommand {
namespace {

struct Switch {
  const char* name;
  bool data::DisplayOptions::*option;
};

constexpr Switch kShown[] = {{"airports", &data::DisplayOptions::allAirports},
                             {"destinations", &data::DisplayOptions::destinations},
                             {"rivers", &data::DisplayOptions::rivers},
                             {"boundaries", &data::DisplayOptions::boundaries},
                             {"centre", &data::DisplayOptions::centreOfMap}};
constexpr Switch kLabels[] = {{"airports", &data::DisplayOptions::flightAirports},
                              {"numbers", &data::DisplayOptions::flightNumbers},
                              {"legs", &data::DisplayOptions::legNumbers},
                              {"symbols", &data::DisplayOptions::aircraftSymbols}};

QStringList Items(const QString& text) {
  return text.split(',', Qt::SkipEmptyParts);
}

/// Turns on exactly the named switches; "none" names none.
template <std::size_t N>
void SetSwitches(const QString& text, const QString& option, const Switch (&switches)[N],
                 data::DisplayOptions& display) {
  for (const Switch& one : switches)
    display.*one.option = false;
  if (text.compare("none", Qt::CaseInsensitive) == 0)
    return;
  QStringList names;
  for (const Switch& one : switches)
    names.append(one.name);
  for (const QString& item : Items(text)) {
    const auto at = names.indexOf(item.trimmed().toLower());
    if (at < 0)
      throw UsageError(
          QString("%1: there is no '%2'; possible are %3 and none").arg(option, item, names.join(", ")));
    display.*switches[at].option = true;
  }
}

GeoBounds ParseView(const QString& text) {
  const QStringList parts = text.split(',');
  if (parts.size() != 4)
    throw UsageError(QString("--view: '%1' is not WEST,NORTH,EAST,SOUTH").arg(text));
  const GeoBounds bounds{ParseLongitude(parts[0], "--view"), ParseLatitude(parts[1], "--view"),
                         ParseLongitude(parts[2], "--view"), ParseLatitude(parts[3], "--view")};
  if (bounds.north <= bounds.south)
    throw UsageError(QString("--view: in '%1' north is not above south").arg(text));
  if (bounds.west == bounds.east)
    throw UsageError(QString("--view: in '%1' west and east are the same").arg(text));
  return bounds;
}

/// `span` degrees of longitude around a place; the picture's shape gives those of latitude.
GeoBounds ParseCentre(const QString& text, double span, const QSizeF& size) {
  const QStringList parts = text.split(',');
  if (parts.size() != 2)
    throw UsageError(QString("--centre: '%1' is not LAT,LON").arg(text));
  if (span > map::kWidestLonSpan)
    throw UsageError(QString("--span: '%1' degrees are more than %2").arg(span).arg(map::kWidestLonSpan));
  const double lat = ParseLatitude(parts[0], "--centre");
  const double lon = ParseLongitude(parts[1], "--centre");
  const auto wrapped = [](double longitude) {
    return longitude < -180 ? longitude + 360 : longitude > 180 ? longitude - 360 : longitude;
  };
  const double half = span / 2 * size.height() / size.width();
  return {wrapped(lon - span / 2), std::min(lat + half, 90.0), wrapped(lon + span / 2),
          std::max(lat - half, -90.0)};
}

QSize ParseSize(const QString& text) {
  static const QRegularExpression pattern("^(\\d{1,5})[xX](\\d{1,5})$");
  const auto match = pattern.match(text);
  const QSize size(match.captured(1).toInt(), match.captured(2).toInt());
  if (!match.hasMatch() || size.isEmpty() || size.width() > kLargestSide || size.height() > kLargestSide) {
    throw UsageError(
        QString("--size: '%1' is not WIDTHxHEIGHT in pixels, each from 1 to %2").arg(text).arg(kLargestSide));
  }
  return size;
}

void ReadKind(const QString& file, Options& options) {
  constexpr std::pair<const char*, RouteFileKind> kRouteFiles[] = {{".geojson", RouteFileKind::kGeoJson},
                                                                   {".kml", RouteFileKind::kKml},
                                                                   {".gpkg", RouteFileKind::kGeoPackage}};
  for (const auto& [ending, kind] : kRouteFiles) {
    if (file.endsWith(ending, Qt::CaseInsensitive)) {
      options.routes = kind;
      return;
    }
  }
  options.page = file.endsWith(".html", Qt::CaseInsensitive);
  if (options.page)
    return;
  const auto kind = paint::KindOfMapFile(file);
  if (!kind)
    throw UsageError(
        QString("--out: '%1' ends in none of .png, .svg, .pdf, .html, .geojson, .kml and .gpkg").arg(file));
  options.kind = *kind;
}

bool ParseYesNo(const QString& text, const QString& option) {
  if (text.compare("yes", Qt::CaseInsensitive) == 0)
    return true;
  if (text.compare("no", Qt::CaseInsensitive) == 0)
    return false;
  throw UsageError(QString("%1: '%2' is neither yes nor no").arg(option, text));
}

std::vector<std::string> Texts(const QString& list) {
  std::vector<std::string> texts;
  for (const QString& item : Items(list))
    texts.push_back(item.trimmed().toStdString());
  return texts;
}

void ReadSize(const OptionReader& reader, Options& options) {
  reader.OneOf({"size", "paper"});
  if (reader.Has("dpi"))
    options.dpi = ParsePositive(reader.Value("dpi"), "--dpi");
  if (options.dpi < 12 || options.dpi > kFinestDpi)
    throw UsageError(QString("--dpi: '%1' is not from 12 to %2").arg(reader.Value("dpi")).arg(kFinestDpi));
  if (reader.Has("size"))
    options.pixels = ParseSize(reader.Value("size"));
  if (reader.Has("paper"))
    options.paperInches = ParsePaper(reader.Value("paper"));
  const QSize pixels = options.PixelSize();
  if (!options.routes && !options.page && options.kind == MapFileKind::kPng &&
      std::max(pixels.width(), pixels.height()) > kLargestSide) {
    throw UsageError(QString("--paper at this --dpi makes %1 x %2 pixels; at most %3 a side are possible")
                         .arg(pixels.width())
                         .arg(pixels.height())
                         .arg(kLargestSide));
  }
}

void ReadView(const OptionReader& reader, Options& options) {
  reader.OneOf({"region", "view", "centre"});
  if (reader.Has("centre") != reader.Has("span"))
    throw UsageError("--centre and --span belong together");
  if (reader.Has("region"))
    options.region = reader.Value("region").toStdString();
  if (reader.Has("view"))
    options.bounds = ParseView(reader.Value("view"));
  if (reader.Has("centre")) {
    options.bounds = ParseCentre(reader.Value("centre"), ParsePositive(reader.Value("span"), "--span"),
                                 options.LogicalSize());
  }
}

void ReadContents(const OptionReader& reader, Options& options) {
  reader.OneOf({"services", "flights", "touching"});
  if (reader.Has("show"))
    SetSwitches(reader.Value("show"), "--show", kShown, options.display);
  if (reader.Has("labels"))
    SetSwitches(reader.Value("labels"), "--labels", kLabels, options.display);
  options.services = Texts(reader.Value("services"));
  options.flights = Texts(reader.Value("flights"));
  if (reader.Has("touching"))
    options.touching = reader.Value("touching").toStdString();
  const std::pair<const char*, data::Criterion> limits[] = {{"elevation", data::Criterion::kElevation},
                                                            {"runways", data::Criterion::kRunways},
                                                            {"longest", data::Criterion::kLongestRunway}};
  for (const auto& [name, criterion] : limits) {
    if (reader.Has(name)) {
      options.criteria.numeric[static_cast<std::size_t>(criterion)] =
          ParseLimit(reader.Value(name), QString("--") + name);
    }
  }
  if (reader.Has("ils")) {
    options.criteria.ilsActive = true;
    options.criteria.withIls = ParseYesNo(reader.Value("ils"), "--ils");
  }
}

void ReadCompare(const OptionReader& reader, Options& options) {
  if (!reader.Has("compare"))
    return;
  reader.OneOf({"flights", "compare"});
  if (options.routes || options.page)
    throw UsageError("--compare belongs to .png, .svg and .pdf");
  options.compare = reader.Path("compare");
  if (!reader.Has("services") && !reader.Has("touching"))
    options.services = {"all"};
}

}  // namespace

QSizeF Options::LogicalSize() const {
  return paperInches ? *paperInches * kScreenDpi : QSizeF(pixels) * (kScreenDpi / dpi);
}

bool Options::ShowsWorld() const {
  return !bounds && (!region || QString::fromStdString(*region).compare("World", Qt::CaseInsensitive) == 0);
}

QSize Options::PixelSize() const {
  return paperInches ? QSize(static_cast<int>(std::lround(paperInches->width() * dpi)),
                             static_cast<int>(std::lround(paperInches->height() * dpi)))
                     : pixels;
}

std::optional<Options> ParseOptions(const QStringList& words) {
  const OptionReader reader(words);
  if (reader.Has("help") || reader.Has("version"))
    return std::nullopt;
  if (!reader.Has("out"))
    throw UsageError("--out FILE is missing");
  Options options;
  options.outputFile = reader.Path("out");
  ReadKind(reader.Value("out"), options);
  if (reader.Has("data"))
    options.dataFolder = reader.Path("data");
  if (reader.Has("settings"))
    options.settingsFile = reader.Path("settings");
  ReadSize(reader, options);
  ReadView(reader, options);
  ReadContents(reader, options);
  ReadCompare(reader, options);
  ReadPrintOptions(reader, options);
  return options;
}

}  // namespace zerbal::mapcommand
