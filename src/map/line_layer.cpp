#include "map/line_layer.h"

#include <array>
#include <limits>
#include <vector>

#include "jet/error.h"

namespace zerbal::map {

namespace {

/// The lowest stored number for which `holds`, one above the highest of its type when there is none. `holds`
/// must not turn false again as numbers grow.
template <typename Predicate>
std::int64_t Lowest(Predicate holds) {
  std::int64_t low = std::numeric_limits<std::int32_t>::min();
  std::int64_t high = std::int64_t{std::numeric_limits<std::int32_t>::max()} + 1;
  while (low < high) {
    const std::int64_t middle = low + (high - low) / 2;
    if (holds(StoredDegrees(static_cast<std::int32_t>(middle))))
      high = middle;
    else
      low = middle + 1;
  }
  return low;
}

/// The pen that follows the rows and hands whole runs of drawn segments to the surface.
class LinePen {
 public:
  LinePen(data::Rgb colour, Surface& surface) : pen_{.colour = colour}, surface_(surface) {}

  /// After a marker the pen stays up until a point is in view.
  void Marker() { up_ = true; }

  void Outside() {
    if (!up_)
      haveStart_ = false;
  }

  void Inside(Point point) {
    if (up_ || !haveStart_) {
      Finish();
      up_ = false;
      haveStart_ = true;
    }
    run_.push_back(point);
  }

  void Finish() {
    if (run_.size() > 1)
      surface_.Polyline(run_, pen_);
    run_.clear();
  }

 private:
  bool up_ = false;
  bool haveStart_ = false;
  std::vector<Point> run_;  ///< the drawing position is its last point
  Pen pen_;
  Surface& surface_;
};

}  // namespace

StoredProjection::StoredProjection(const Viewport& view)
    : viewport_(&view),
      wraps_(view.MapWrap),
      lonFrom_(Lowest([&](float lon) { return lon >= view.MapLonMin; })),
      lonTo_(Lowest([&](float lon) { return !((wraps_ ? lon + 360.0F : lon) <= view.MapLonMax); }) - 1),
      latFrom_(Lowest([&](float lat) { return lat >= view.MapLatMin; })),
      latTo_(Lowest([&](float lat) { return !(lat <= view.MapLatMax); }) - 1) {}

void DrawLineLayer(const jet::Recordset& table, data::Rgb colour, const Viewport& viewport,
                   Surface& surface) {
  const StoredProjection projection(viewport);
  LinePen pen(colour, surface);
  jet::PairReader reader(table, "Lon", "Lat");
  std::array<jet::LongPair, 2048> rows;
  try {
    while (const std::size_t count = reader.Read(rows)) {
      for (std::size_t i = 0; i < count; ++i) {
        if (projection.InView(rows[i]) && !StoredProjection::IsPenUp(rows[i]))
          pen.Inside(projection.Project(rows[i]));
        else if (StoredProjection::IsPenUp(rows[i]))
          pen.Marker();
        else
          pen.Outside();
      }
    }
  } catch (const jet::EngineError&) {
    pen.Finish();
    throw;
  }
  pen.Finish();
}

}  // namespace zerbal::map
