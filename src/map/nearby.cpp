#include "map/nearby.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <exception>
#include <limits>
#include <optional>
#include <string_view>

#include "map/layers.h"
#include "map/nearby_text.h"
#include "map/route.h"

namespace zerbal::map {
namespace {

constexpr double kNearTwips = kNearPixels * kTwipsPerPixel;

/// Twips from the place to the nearest point of the line.
double Distance(TwipPosition place, TwipPoint start, TwipPoint end) {
  const double dx = static_cast<double>(end.x) - start.x;
  const double dy = static_cast<double>(end.y) - start.y;
  const double toX = static_cast<double>(place.x) - start.x;
  const double toY = static_cast<double>(place.y) - start.y;
  const double squared = dx * dx + dy * dy;
  const double part = squared > 0 ? std::clamp((toX * dx + toY * dy) / squared, 0.0, 1.0) : 0;
  return std::hypot(toX - part * dx, toY - part * dy);
}

/// An airport or a leg.
struct Found {
  int pixels = 0;  ///< distance, rounded down
  std::string key;
  std::string text;
};

/// Keeps each key once, with its least distance.
class FoundList {
 public:
  template <typename Text>
  void Add(std::string_view key, double twips, const Text& text) {
    const int pixels = static_cast<int>(twips / kTwipsPerPixel);
    const auto known = std::ranges::find(found_, key, &Found::key);
    if (known == found_.end())
      found_.push_back({pixels, std::string(key), text()});
    else
      known->pixels = std::min(known->pixels, pixels);
  }

  void AppendTo(std::vector<std::string>& lines) {
    std::ranges::stable_sort(found_, {}, &Found::pixels);
    for (Found& found : found_)
      lines.push_back(std::move(found.text));
  }

 private:
  std::vector<Found> found_;
};

class Finder {
 public:
  Finder(const MapScene& scene, TwipPosition place)
      : scene_(scene), place_(place), route_(scene.databases.destinations, false) {}

  std::vector<std::string> Find() {
    const data::DisplayOptions& options = scene_.options;
    if (options.allAirports)
      Contained([&] { FindAirports(scene_.databases.allAirports, scene_.allAirportCriteria); });
    if (options.destinations)
      Contained([&] { FindAirports(scene_.databases.destinations, scene_.destinationCriteria); });
    Contained([&] { FindFlights(); });
    std::vector<std::string> lines;
    airports_.AppendTo(lines);
    legs_.AppendTo(lines);
    return lines;
  }

 private:
  using LegDistances = std::array<double, data::kMaxStopovers + 2>;  ///< by leg, from 1

  /// The redraw has logged what cannot be read.
  template <typename Step>
  static void Contained(const Step& step) {
    try {
      step();
    } catch (const std::exception&) {
      // What was found before the error stays.
    }
  }

  void FindAirports(const data::Airports& airports, const data::AirportCriteria& criteria) {
    VisitAirportsInView(scene_.viewport, airports, criteria,
                        [&](const data::Airport& airport, TwipPoint centre) { Add(airport, centre); });
  }

  void Add(const data::Airport& airport, TwipPoint centre) {
    if (const double distance = Distance(place_, centre, centre); distance <= kNearTwips)
      airports_.Add(airport.Code(), distance, [&] { return AirportText(airport); });
  }

  void FindFlights() {
    VisitShownFlights(scene_, [&](const data::Flight& flight, const data::FlightService* service) {
      if (route_.Read(flight, scene_.viewport))
        FindOnRoute(flight, service);
    });
  }

  void FindOnRoute(const data::Flight& flight, const data::FlightService* service) {
    const data::Airports& destinations = scene_.databases.destinations;
    LegDistances distances;
    distances.fill(std::numeric_limits<double>::infinity());
    route_.Visit(
        scene_.viewport,
        [&](std::size_t leg, TwipPoint start, TwipPoint end) {
          distances[leg] = std::min(distances[leg], Distance(place_, start, end));
        },
        [&](const RoutePoint& point, MapPosition position) { AddRouteAirport(point, position); });
    for (std::size_t leg = 1; leg <= route_.Legs(); ++leg)
      if (distances[leg] <= kNearTwips)
        legs_.Add(flight.key + '\n' + std::to_string(leg), distances[leg],
                  [&] { return LegText(flight, service, route_, leg, destinations); });
  }

  void AddRouteAirport(const RoutePoint& point, MapPosition position) {
    if (!scene_.options.flightAirports)
      return;
    const std::optional<TwipPoint> centre = ProjectAirport(scene_.viewport, position);
    if (!centre || Distance(place_, *centre, *centre) > kNearTwips)
      return;
    if (const std::optional<data::Airport> airport = scene_.databases.destinations.Find(point.code))
      Add(*airport, *centre);
  }

  const MapScene& scene_;
  TwipPosition place_;
  Route route_;
  FoundList airports_;
  FoundList legs_;
};

}  // namespace

std::vector<std::string> FindNearby(const MapScene& scene, TwipPosition place) {
  return scene.viewport.HasArea() ? Finder(scene, place).Find() : std::vector<std::string>();
}

}  // namespace zerbal::map
