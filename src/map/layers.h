// The layers of the map: lines, airports, flights.
#pragma once

#include <cstdint>
#include <exception>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "data/airport_criteria.h"
#include "data/airports.h"
#include "data/base_map.h"
#include "data/rgb.h"
#include "map/draw_map.h"
#include "map/surface.h"
#include "map/viewport.h"

namespace zerbal::map {

/// What the layers draw with.
struct Canvas {
  const Viewport& viewport;
  Surface& surface;
  TextFont font;  ///< of airport labels and flight texts in the current mode
};

// Coastlines, rivers and boundaries

/// Projects stored points as Viewport::ProjectPoint does, but decides on the stored whole numbers which of
/// them are in view. Degrees grow with the stored number, so each bound of the view is a bound on the stored
/// numbers too, and the many points outside cost two comparisons and no arithmetic.
class StoredProjection {
 public:
  explicit StoredProjection(const Viewport& viewport);

  /// Which points are in view. Undefined for the end of a line.
  const data::StoredBounds& Bounds() const { return bounds_; }

  /// Where a point that is in view is on the drawing area.
  TwipPoint Project(data::StoredPoint point) const {
    MapPosition position{data::StoredDegrees(point.lon), data::StoredDegrees(point.lat)};
    if (bounds_.lonsExcluded && !(position.lon >= viewport_->MapLonMin()))
      position.lon += 360.0F;
    return viewport_->PictureAt(position);
  }

 private:
  const Viewport* viewport_;
  data::StoredBounds bounds_;
};

inline constexpr int kLineWidth = 1;  ///< of coastlines, rivers and boundaries, logical pixels

/// Draws the lines of a layer, part by part. A segment is drawn only when both of its ends are in view.
class LinePainter {
 public:
  LinePainter(const Viewport& viewport, Surface& surface, data::Rgb colour)
      : projection_(viewport), surface_(surface), pen_{.colour = colour, .width = kLineWidth} {}

  const data::StoredBounds& Bounds() const { return projection_.Bounds(); }
  /// Draws neighbouring points within the bounds.
  void Draw(std::span<const data::StoredPoint> points);

 private:
  StoredProjection projection_;
  Surface& surface_;
  Pen pen_;
  std::vector<TwipPoint> projected_;  // keeps its memory
};

// Airports

struct AirportTexts {
  std::string_view code;
  std::string_view name{};  ///< detail mode only, as the city
  std::string_view city{};
};

/// The code alone in overview mode; in detail mode also the name, and the city when the name does not contain
/// it.
void AppendAirportLabel(std::string& label, const AirportTexts& texts, bool detailMode);

/// Draws marker and label when the position is in view.
void DrawAirport(Canvas& canvas, const AirportTexts& texts, MapPosition position, data::Rgb colour);

/// The parts of DrawAirport, around the marker's centre.
void DrawAirportMarker(Canvas& canvas, TwipPoint centre, data::Rgb colour);
void DrawAirportLabel(Canvas& canvas, TwipPoint centre, std::string_view label, data::Rgb colour);
/// Twips, without the outline.
std::int32_t MarkerRadius(bool detailMode);

/// Where the marker's centre is; nothing when the position is not in view.
std::optional<TwipPoint> ProjectAirport(const Viewport& viewport, MapPosition position);

/// Bounds that hold every position in view. Those of a view through 360 may hold a few more.
data::MapBounds BoundsOf(const Viewport& viewport);

/// Calls `visit(airport, centre)` with each airport that the layer draws and its marker's centre. An airport
/// whose position cannot be read, or for which `visit` throws, is left out.
template <typename Visit>
void VisitAirportsInView(const Viewport& viewport, const data::Airports& airports,
                         const data::AirportCriteria& criteria, const Visit& visit) {
  airports.VisitMeeting(criteria, BoundsOf(viewport), [&](const data::Airport& airport) {
    try {
      if (const std::optional<TwipPoint> centre = ProjectAirport(viewport, airport.Position()))
        visit(airport, *centre);
    } catch (const std::exception&) {
      // This airport is left out.
    }
  });
}

/// Draws every airport that meets the criteria and is in view. An airport whose position or label cannot be
/// read is left out. When the airports after it cannot be read either, the error is thrown.
void DrawAirportLayer(Canvas& canvas, const data::Airports& airports, const data::AirportCriteria& criteria,
                      data::Rgb colour);

// Flights: routes of straight legs over the map's plane

/// Draws every flight of every service whose display flag is set, service by service.
void DrawServiceFlights(Canvas& canvas, const MapScene& scene);

/// Draws the selected flights in the order of their list. A flight of a service that is not in the table is
/// black.
void DrawSelectedFlights(Canvas& canvas, const MapScene& scene);

/// Draws those of the scene's comparison, which must be there.
void DrawDroppedFlights(Canvas& canvas, const MapScene& scene);

/// The number of shown flights of which some of a leg is in view.
int CountFlightsInView(const MapScene& scene);

}  // namespace zerbal::map
