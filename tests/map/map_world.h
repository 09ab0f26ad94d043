// A world for one test: six database files with the given rows, and everything else that a redraw reads.
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

/// A stored point from degrees of the map frame.
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

/// The colour of a code in a MapWorld; each has another red component.
constexpr data::Rgb ColourOf(data::ColourCode code) {
  return {static_cast<std::uint8_t>(static_cast<int>(code) + 1), 100, 200};
}

inline constexpr data::Rgb kDest = ColourOf(data::ColourCode::kApDest);

class MapWorld {
 public:
  MapWorld();

  // The contents of the databases. Change them before the first Draw().
  std::map<std::string, Rows> coast;                 ///< rows by table name
  std::optional<std::map<std::string, Rows>> river;  ///< nullopt: no file
  std::optional<std::map<std::string, Rows>> ibound;
  std::vector<AirportRow> allaprt, dest;
  std::vector<FlightRow> flit;
  /// Replacements for columns of airport tables.
  std::vector<jet::ColumnInfo> airportColumns;
  /// Placeholders in the finished airport files and the singles that replace them, for values that the writer
  /// refuses.
  std::vector<std::pair<float, float>> storedSingles;

  // Everything else that a redraw reads.
  data::MapStyle style;
  data::FlightServiceTable services;
  data::DisplayOptions options;
  data::AirportCriteria allAirportCriteria, destinationCriteria;
  data::FlightSelection flights;
  Viewport viewport{data::kGridBands};

  /// A view of exactly these bounds at 100 twips per degree.
  void Show(float west, float top, float east, float bottom);
  void AddService(std::string key, data::Rgb colour, bool shown = true);
  /// Replaces singles in the airport files, which stay open.
  void ChangeStored(const std::vector<std::pair<float, float>>& singles);

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

// Expected operations.
Operation LineOp(Layer layer, TwipPoint from, TwipPoint to, data::Rgb colour, int width = 1);
Operation CircleOp(Layer layer, TwipPoint centre, std::int32_t radius, data::Rgb colour, bool fill);
Operation TextOp(Layer layer, TwipPoint topLeft, std::string text, data::Rgb colour, TextFont font);

/// Positions of operations: lines as "x1,y1-x2,y2", circles as "o x,y", texts as "text@x,y".
Strings Short(const std::vector<Operation>& operations);
Strings Texts(const std::vector<Operation>& operations);

void PrintTo(const Operation& operation, std::ostream* out);

}  // namespace zerbal::map
