#include "print/contents.h"

#include <exception>
#include <map>
#include <optional>
#include <unordered_map>
#include <utility>

#include "data/great_circle.h"
#include "map/layers.h"
#include "map/leg.h"
#include "map/shown_flights.h"
#include "print/print_map.h"

namespace zerbal::print {
namespace {

struct KnownAirport {
  GeoPosition position;
  PlacedAirport placed;
  bool isVisible = false;
  bool isUsed = false;
};

std::string LabelOf(const data::Airport& airport, bool detailMode) {
  map::AirportTexts texts{airport.Code()};
  if (detailMode)
    texts = {texts.code, airport.Name(), airport.City()};
  std::string label;
  map::AppendAirportLabel(label, texts, detailMode);
  return label;
}

std::optional<TwipPoint> Placed(MapPosition position, const Projection& projection) {
  // The longitude of the marker in line tables is not a position here either.
  if (position.lon == kPenUpLon)
    return std::nullopt;
  return projection.Project(ToGlobe(position));
}

data::MapBounds BoundsOf(const GeoBox& box) {
  constexpr float kRounding = 0.001F;
  data::MapBounds bounds;
  bounds.top = static_cast<float>(90 - box.north) - kRounding;
  bounds.bottom = static_cast<float>(90 - box.south) + kRounding;
  if (box.east > 180 || box.west < -180)
    return bounds;  // all longitudes
  bounds.west = static_cast<float>(box.west + 180) - kRounding;
  bounds.east = static_cast<float>(box.east + 180) + kRounding;
  return bounds;
}

void PlaceAirports(const map::MapScene& scene, const Projection& projection, const data::Airports& airports,
                   const data::AirportCriteria& criteria, data::Rgb colour,
                   std::vector<PlacedAirport>& placed) {
  airports.VisitMeeting(criteria, BoundsOf(projection.Visible()), [&](const data::Airport& airport) {
    try {
      if (const std::optional<TwipPoint> centre = Placed(airport.Position(), projection))
        placed.push_back(
            {std::string(airport.Code()), LabelOf(airport, scene.viewport.DetailMode()), *centre, colour});
    } catch (const std::exception&) {
      // This airport is left out.
    }
  });
}

using Parts = std::vector<std::vector<TwipPoint>>;

/// Reads the flights one after the other.
class FlightPlacer {
 public:
  FlightPlacer(const map::MapScene& scene, bool greatCircles, const Projection& projection,
               Contents& contents)
      : scene_(scene), greatCircles_(greatCircles), projection_(projection), contents_(contents) {}

  /// A flight with an airport that is not among the destinations is left out, as on every map.
  void Place(const data::Flight& flight, const data::FlightService* service) {
    std::vector<KnownAirport*> route;
    for (const std::string& code : flight.route) {
      KnownAirport* airport = Find(code);
      if (airport == nullptr)
        return;
      route.push_back(airport);
    }
    for (std::size_t leg = 1; leg < route.size(); ++leg)
      PlaceLeg(flight, service, leg, *route[leg - 1], *route[leg]);
    if (!scene_.options.flightAirports)
      return;
    for (KnownAirport* airport : route) {
      if (airport->isVisible && !airport->isUsed)
        contents_.legAirports.push_back(airport->placed);
      airport->isUsed = true;
    }
  }

 private:
  KnownAirport* Find(const std::string& code) {
    const auto [known, isNew] = known_.try_emplace(code);
    if (isNew) {
      if (const std::optional<data::Airport> airport = scene_.databases.destinations.Find(code))
        known->second = Read(*airport);
    }
    return known->second ? &*known->second : nullptr;
  }

  KnownAirport Read(const data::Airport& airport) const {
    const MapPosition position = airport.Position();
    KnownAirport known{ToGlobe(position), {}};
    const std::optional<TwipPoint> centre = Placed(position, projection_);
    known.isVisible = centre.has_value();
    if (centre && scene_.options.flightAirports)
      known.placed = {std::string(airport.Code()), LabelOf(airport, scene_.viewport.DetailMode()), *centre,
                      scene_.style.colours[data::ColourCode::kApDest]};
    return known;
  }

  void PlaceLeg(const data::Flight& flight, const data::FlightService* service, std::size_t leg,
                const KnownAirport& from, const KnownAirport& to) {
    // Airports keep their place, so they stand for their positions.
    const auto [known, isNew] = ways_.try_emplace({&from, &to});
    if (isNew)
      known->second = PartsOf(from.position, to.position);
    const Parts& parts = known->second;
    if (parts.empty())
      return;
    PlacedLeg& placed = contents_.legs.emplace_back();
    placed.from = flight.route[leg - 1];
    placed.to = flight.route[leg];
    placed.number = flight.number;
    map::MakeLegLabel(placed.label, flight.number, scene_.options.legNumbers, leg, flight.route.size() - 1);
    placed.service = flight.service;
    placed.colour = service != nullptr ? service->rgb : data::Rgb{};
    placed.parts = parts;
  }

  Parts PartsOf(GeoPosition from, GeoPosition to) const {
    constexpr double kTolerance = 1;  // twips: less than a pixel of the finest pictures
    const std::vector<GeoPosition> way =
        greatCircles_ ? data::GreatCircleLine(from, to, kTolerance / projection_.TwipsPerDegree())
                      : std::vector{from, to};
    Parts parts;
    projection_.ProjectLine(
        way, [&](std::span<const TwipPoint> part) { parts.emplace_back(part.begin(), part.end()); });
    return parts;
  }

  const map::MapScene& scene_;
  bool greatCircles_;
  const Projection& projection_;
  Contents& contents_;
  std::unordered_map<std::string, std::optional<KnownAirport>> known_;  ///< by code; references stay valid
  std::map<std::pair<const KnownAirport*, const KnownAirport*>, Parts> ways_;
};

}  // namespace

void PlaceAllAirports(const map::MapScene& scene, const Projection& projection, Contents& contents) {
  PlaceAirports(scene, projection, scene.databases.allAirports, scene.allAirportCriteria,
                scene.style.colours[data::ColourCode::kApAll], contents.allAirports);
}

void PlaceDestinations(const map::MapScene& scene, const Projection& projection, Contents& contents) {
  PlaceAirports(scene, projection, scene.databases.destinations, scene.destinationCriteria,
                scene.style.colours[data::ColourCode::kApDest], contents.destinations);
}

void PlaceFlights(const map::MapScene& scene, const PrintOptions& options, const Projection& projection,
                  Contents& contents) {
  FlightPlacer placer(scene, options.greatCircles, projection, contents);
  map::VisitFlights(
      scene, map::FlightExtent::kAll,
      [&](const data::Flight& flight, const data::FlightService* service) { placer.Place(flight, service); });
}

}  // namespace zerbal::print
