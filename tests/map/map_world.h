// A world of a test's own: six database files written from the rows given here, and everything else that a
// redraw reads.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "data/databases.h"
#include "map/draw_map.h"
#include "map/recorder.h"
#include "support/database_builder.h"
#include "support/temp_folder.h"

namespace zerbal::map {

using Rows = std::vector<data::StoredPoint>;
using Strings = std::vector<std::string>;

/// A stored point; degrees of the map frame.
data::StoredPoint At(double lon, double lat);
/// The marker that ends a polyline.
inline constexpr data::StoredPoint kPenUp{data::kEndOfLine, 0};

struct AirportRow {
  test::Cell code = "";
  test::Cell name = "Field";
  test::Cell city = "Town";
  test::Cell lon = 0.0F;
  test::Cell lat = 0.0F;
  test::Cell elevation = 0;
  test::Cell runways = 1;
  test::Cell longestRunway = 5'000;
  test::Cell ils = "0";
};
AirportRow Airport(std::string code, float lon, float lat);

struct FlightRow {
  test::Cell key = "";
  test::Cell service = "";
  test::Cell number = "";
  test::Cell origin = "";
  std::vector<test::Cell> stops{};  ///< up to 10; the rest is Null
  test::Cell destination = "";
};
FlightRow Flight(std::string key, std::string service, std::vector<std::string> route);

/// What a colour is in a MapWorld: each is told apart by its red part.
constexpr data::Rgb ColourOf(data::ColourCode code) {
  return {static_cast<std::uint8_t>(static_cast<int>(code) + 1), 100, 200};
}

class MapWorld {
 public:
  MapWorld();

  // What the databases hold. Change it before the first Draw().
  std::map<std::string, Rows> coast;                 ///< table name to its rows
  std::optional<std::map<std::string, Rows>> river;  ///< no file when empty
  std::optional<std::map<std::string, Rows>> ibound;
  std::vector<AirportRow> allaprt, dest;
  std::vector<FlightRow> flit;
  /// Columns of airport tables that are not the usual ones.
  std::vector<jet::ColumnInfo> airportColumns;
  /// Singles to be exchanged in the finished airport files, for those that no writer writes.
  std::vector<std::pair<float, float>> storedSingles;

  // What a redraw reads besides.
  data::MapStyle style;
  data::FlightServiceTable services;
  data::DisplayOptions options;
  data::AirportCriteria allAirportCriteria, destinationCriteria;
  data::FlightSelection flights;
  Viewport viewport{data::kGridBands};

  /// A view of exactly these bounds at 100 twips a degree.
  void Show(float west, float top, float east, float bottom);
  void AddService(std::string key, data::Rgb colour, bool shown = true);

  data::Databases& Databases();
  MapScene Scene();
  void DrawOn(Surface& surface);
  /// Draws and returns every operation.
  std::vector<Operation> Draw();
  /// Draws and returns the operations of one layer.
  std::vector<Operation> Draw(Layer layer);

 private:
  test::Table AirportTable(const char* name, const std::vector<AirportRow>& rows) const;
  test::Table FlightTable() const;
  data::DataFiles WriteAll();

  test::TempFolder folder_;
  std::optional<data::Databases> databases_;
};

// Operations as a test expects them.
Operation LineOp(Layer layer, TwipPoint from, TwipPoint to, data::Rgb colour, int width = 1);
Operation CircleOp(Layer layer, TwipPoint centre, std::int32_t radius, data::Rgb colour, bool fill);
Operation TextOp(Layer layer, TwipPoint topLeft, std::string text, data::Rgb colour, TextFont font);

/// Lines as "x1,y1-x2,y2", circles as "o x,y", texts as "text@x,y": enough to see where things are.
Strings Short(const std::vector<Operation>& operations);
Strings Texts(const std::vector<Operation>& operations);

void PrintTo(const Operation& operation, std::ostream* out);

}  // namespace zerbal::map
