#include "zerbal-map/map_job.h"

#include <QFontDatabase>
#include <algorithm>
#include <cstdint>
#include <limits>

#include "base/error.h"
#include "data/flight_lists.h"
#include "map/view_description.h"
#include "paint/draw_log.h"
#include "print/style_file.h"
#include "settings/ini_file.h"
#include "zerbal-map/comparison.h"
#include "zerbal-map/gather_routes.h"
#include "zerbal-map/page_lines.h"

namespace zerbal::mapcommand {
namespace {

base::Error NotFound(const std::string& file) {
  return base::Error("File '" + file + "' could not be found.");
}

bool SameName(const std::string& a, const std::string& b) {
  return QString::fromStdString(a).compare(QString::fromStdString(b), Qt::CaseInsensitive) == 0;
}

/// The part of a service's display text after its line number.
std::string NameOf(const data::FlightService& service) {
  const std::size_t at = service.displayText.find(" - ");
  return at == std::string::npos ? service.displayText : service.displayText.substr(at + 3);
}

QString Joined(QStringList names) {
  names.sort(Qt::CaseInsensitive);
  return names.join(", ");
}

const data::Region& FindRegion(const data::RegionTable& regions, const std::string& wanted) {
  if (SameName(wanted, "World"))
    return regions.rows.front();
  QStringList names{"World"};
  for (std::size_t i = 1; i < regions.rows.size(); ++i) {
    const data::Region& region = regions.rows[i];
    if (SameName(region.name, wanted) || SameName(region.code, wanted))
      return region;
    names.append(QString::fromStdString(region.name));
  }
  throw UsageError(QString("--region: there is no region '%1'; possible are %2")
                       .arg(QString::fromStdString(wanted), Joined(names)));
}

/// The code as in the table.
std::string FindDestination(const data::Airports& destinations, const std::string& wanted) {
  std::optional<std::string> found;
  QStringList codes;
  destinations.Visit([&](const data::Airport& airport) {
    if (found)
      return;
    const std::string code(airport.Code());
    if (SameName(code, wanted))
      found = code;
    codes.append(QString::fromStdString(code));
  });
  if (found)
    return *found;
  throw UsageError(QString("--touching: there is no destination '%1'; possible are %2")
                       .arg(QString::fromStdString(wanted), Joined(codes)));
}

/// The offsets of the projection are beyond the range of their type.
bool IsTooClose(const map::Viewport& view) {
  constexpr std::int32_t kFarthest = std::numeric_limits<std::int32_t>::min();
  return view.MapOffX() == kFarthest || view.MapOffY() == kFarthest;
}

std::vector<std::string> InstalledFonts() {
  std::vector<std::string> fonts;
  for (const QString& family : QFontDatabase::families())
    fonts.push_back(family.toStdString());
  return fonts;
}

}  // namespace

MapJob::MapJob(const Options& options) : options_(options) {
  LoadTables();
  ReadSettings();
  ReadStyle();
  ChooseView();
  ChooseFlights();
  CompareFlights();
  if (options_.ForPrint()) {
    const map::MapScene scene = Scene();
    print::CheckPrintScene(ForPrint(scene));
  }
}

void MapJob::LoadTables() {
  const auto [files, missing] = data::FindDataFiles(options_.dataFolder);
  if (!missing.empty())
    throw NotFound(missing.front().string());
  databases_ = data::OpenDatabases(files);
  style_ = data::LoadMapStyle(files.zbldata);
  services_ = databases_->schedule.LoadServices();
}

void MapJob::ReadStyle() {
  printStyle_ = print::StyleOf(style_);
  if (options_.print.style.empty())
    return;
  print::ReadNamedStyle(options_.print.style, printStyle_);
  print::CheckFonts(printStyle_, InstalledFonts());
  print::ApplyStyle(printStyle_, style_, services_);
}

void MapJob::ReadSettings() {
  if (options_.settingsFile && !std::filesystem::is_regular_file(*options_.settingsFile))
    throw NotFound(*options_.settingsFile);
  // Without a settings file every key is missing, and the defaults hold.
  settings::IniFile ini(options_.settingsFile.value_or(""));
  data::ReadFontSettings(ini, style_.fonts, InstalledFonts());
  data::ReadColourSettings(ini, style_.colours);
  data::ReadFlightColourSettings(ini, services_);
  data::ReadRegionSettings(ini, style_.regions);
}

void MapJob::ChooseView() {
  viewport_.emplace(data::kGridBands);
  const QSizeF size = options_.LogicalSize();
  const double scale = kTwipsPerPixel * (options_.page ? kPageGrid : 1);
  viewport_->SetSize(size.width() * scale, size.height() * scale);
  data::Region view;
  if (options_.bounds) {
    const MapPosition northWest = ToMapPosition({options_.bounds->west, options_.bounds->north});
    const MapPosition southEast = ToMapPosition({options_.bounds->east, options_.bounds->south});
    view.fromLon = northWest.lon;
    view.fromLat = northWest.lat;
    view.toLon = southEast.lon;
    view.toLat = southEast.lat;
  } else {
    view = FindRegion(style_.regions, options_.region.value_or("World"));
    place_ = options_.ShowsWorld() ? "World" : view.name;
  }
  const bool hasExtent = viewport_->SelectRegion(view);
  viewport_->ComputeViewport();
  if (!hasExtent || IsTooClose(*viewport_))
    throw UsageError(
        options_.bounds
            ? QString("the view is too small to be drawn")
            : QString("--region: the region '%1' has no extent").arg(QString::fromStdString(view.name)));
}

void MapJob::ShowServices() {
  for (const std::string& wanted : options_.services) {
    bool found = false;
    QStringList names{"all"};
    for (data::FlightService& service : services_) {
      names.append(QString::fromStdString(NameOf(service)));
      if (SameName(wanted, "all") || SameName(wanted, NameOf(service)) || SameName(wanted, service.key)) {
        service.displayFlag = true;
        found = true;
      }
    }
    if (!found)
      throw UsageError(QString("--services: there is no flight service '%1'; possible are %2")
                           .arg(QString::fromStdString(wanted), Joined(names)));
  }
}

void MapJob::ChooseFlights() {
  ShowServices();
  flights_.serviceMode = options_.flights.empty() && !options_.touching;
  for (const std::string& key : options_.flights) {
    if (!databases_->schedule.Find(key))
      throw UsageError(
          QString("--flights: there is no flight with the key '%1'").arg(QString::fromStdString(key)));
    flights_.selectedFlights.push_back(key);
  }
  if (!options_.touching)
    return;
  touching_ = FindDestination(databases_->destinations, *options_.touching);
  const data::FlightSource source{databases_->schedule, databases_->destinations, services_};
  flights_.selectedFlights = data::FlightsTouching(source, *touching_, {}, false).keys;
}

bool MapJob::IsShownOfDropped(const data::Flight& flight) const {
  if (touching_)
    return std::ranges::find(flight.route, *touching_) != flight.route.end();
  const auto isAll = [](const std::string& wanted) { return SameName(wanted, "all"); };
  return std::ranges::any_of(options_.services, isAll) ||
         std::ranges::any_of(services_, [&](const data::FlightService& service) {
           return service.displayFlag && service.key == flight.service;
         });
}

void MapJob::CompareFlights() {
  if (!options_.compare)
    return;
  oldSchedule_ = OpenOldSchedule(*options_.compare);
  comparison_.emplace(
      mapcommand::CompareFlights(*oldSchedule_, databases_->schedule,
                                 [this](const data::Flight& flight) { return IsShownOfDropped(flight); }));
}

map::MapScene MapJob::Scene() const {
  return {*viewport_,
          options_.display,
          style_,
          services_,
          *databases_,
          options_.criteria,
          options_.criteria,
          flights_,
          paint::LogDrawError,
          comparison_ ? &*comparison_ : nullptr};
}

void MapJob::Draw(map::Surface& surface) {
  map::DrawMap(Scene(), surface);
}

print::PrintScene MapJob::ForPrint(const map::MapScene& scene) const {
  return {scene, options_.print, options_.ShowsWorld(), printStyle_};
}

void MapJob::DrawForPrint(print::PrintSurface& surface) {
  const map::MapScene scene = Scene();
  print::DrawPrintMap(ForPrint(scene), surface);
}

map::FlightExtent MapJob::Extent() const {
  return options_.ShowsWorld() ? map::FlightExtent::kAll : map::FlightExtent::kView;
}

Routes MapJob::GatherRoutes() const {
  return mapcommand::GatherRoutes(Scene(), Extent());
}

Page MapJob::GatherPage() const {
  const map::MapScene scene = Scene();
  PageLines lines;
  map::DrawMap(scene, lines);
  return {viewport_->MapWidth(), viewport_->MapHeight(), place_,           map::DescribeView(scene),
          options_.display,      style_.colours,         lines.Elements(), map::ContentsOf(scene, Extent())};
}

}  // namespace zerbal::mapcommand
