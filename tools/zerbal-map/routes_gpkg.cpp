#include "zerbal-map/routes_gpkg.h"

#include <optional>
#include <utility>

#include "zerbal-map/gpkg_geometry.h"
#include "zerbal-map/gpkg_style.h"
#include "zerbal-map/memory_database.h"
#include "zerbal-map/route_line.h"

namespace zerbal::mapcommand {
namespace {

/// The date of the last change, which the format requires.
constexpr char kDate[] = "2000-01-01T00:00:00.000Z";

// 0x47504B47 is "GPKG". Deleted bytes are zeros, so that the file depends on its contents alone.
constexpr char kFrame[] = R"(
PRAGMA secure_delete = ON;
PRAGMA page_size = 4096;
PRAGMA application_id = 1196444487;
PRAGMA user_version = 10300;
BEGIN;
CREATE TABLE gpkg_spatial_ref_sys (srs_name TEXT NOT NULL, srs_id INTEGER PRIMARY KEY, organization TEXT NOT NULL,
  organization_coordsys_id INTEGER NOT NULL, definition TEXT NOT NULL, description TEXT);
CREATE TABLE gpkg_contents (table_name TEXT NOT NULL PRIMARY KEY, data_type TEXT NOT NULL, identifier TEXT UNIQUE,
  description TEXT DEFAULT '', last_change DATETIME NOT NULL DEFAULT (strftime('%Y-%m-%dT%H:%M:%fZ','now')),
  min_x DOUBLE, min_y DOUBLE, max_x DOUBLE, max_y DOUBLE, srs_id INTEGER,
  CONSTRAINT fk_gc_r_srs_id FOREIGN KEY (srs_id) REFERENCES gpkg_spatial_ref_sys(srs_id));
CREATE TABLE gpkg_geometry_columns (table_name TEXT NOT NULL, column_name TEXT NOT NULL,
  geometry_type_name TEXT NOT NULL, srs_id INTEGER NOT NULL, z TINYINT NOT NULL, m TINYINT NOT NULL,
  CONSTRAINT pk_geom_cols PRIMARY KEY (table_name, column_name), CONSTRAINT uk_gc_table_name UNIQUE (table_name),
  CONSTRAINT fk_gc_tn FOREIGN KEY (table_name) REFERENCES gpkg_contents(table_name),
  CONSTRAINT fk_gc_srs FOREIGN KEY (srs_id) REFERENCES gpkg_spatial_ref_sys(srs_id));
INSERT INTO gpkg_spatial_ref_sys VALUES ('Undefined Cartesian', -1, 'NONE', -1, 'undefined', NULL);
INSERT INTO gpkg_spatial_ref_sys VALUES ('Undefined geographic', 0, 'NONE', 0, 'undefined', NULL);
INSERT INTO gpkg_spatial_ref_sys VALUES ('WGS 84', 4326, 'EPSG', 4326,
  'GEOGCS["WGS 84",DATUM["WGS_1984",SPHEROID["WGS 84",6378137,298.257223563,AUTHORITY["EPSG","7030"]],'
  || 'AUTHORITY["EPSG","6326"]],PRIMEM["Greenwich",0,AUTHORITY["EPSG","8901"]],'
  || 'UNIT["degree",0.0174532925199433,AUTHORITY["EPSG","9122"]],AXIS["Latitude",NORTH],AXIS["Longitude",EAST],'
  || 'AUTHORITY["EPSG","4326"]]', 'longitude and latitude');
CREATE TABLE services (fid INTEGER PRIMARY KEY NOT NULL, key TEXT, name TEXT, stroke TEXT);
CREATE TABLE layer_styles (id INTEGER PRIMARY KEY NOT NULL, f_table_catalog TEXT, f_table_schema TEXT,
  f_table_name TEXT, f_geometry_column TEXT, styleName TEXT, styleQML TEXT, styleSLD TEXT, useAsDefault BOOLEAN,
  description TEXT, owner TEXT, ui TEXT, update_time DATETIME);
)";

/// A table of features and the box around them.
class FeatureTable {
 public:
  /// The columns are `fid`, `geom`, those of `sample` and `colourColumn`.
  FeatureTable(std::string name, std::string geometryType, const std::vector<Attribute>& sample,
               const char* colourColumn)
      : name_(std::move(name)), geometryType_(std::move(geometryType)) {
    columns_ = "fid INTEGER PRIMARY KEY NOT NULL, geom " + geometryType_;
    for (const Attribute& attribute : sample)
      columns_.append(", ").append(attribute.name).append(" ").append(attribute.type);
    columns_.append(", ").append(colourColumn).append(" TEXT");
  }

  void Add(const std::vector<Attribute>& attributes, data::Rgb colour, SqlValue geometry,
           const std::optional<GeoBox>& box) {
    SqlRow row{SqlValue(), std::move(geometry)};
    for (const Attribute& attribute : attributes)
      row.push_back(std::visit([](const auto& value) { return SqlValue(value); }, attribute.value));
    row.emplace_back(ColourText(colour));
    rows_.push_back(std::move(row));
    if (box)
      Include(*box);
  }

  void WriteTo(MemoryDatabase& database) const {
    database.Execute("CREATE TABLE " + name_ + " (" + columns_ + ")");
    database.Insert(name_, rows_);
    SqlRow contents{name_, "features", name_, "", kDate};
    for (const double GeoBox::*bound : {&GeoBox::west, &GeoBox::south, &GeoBox::east, &GeoBox::north})
      contents.push_back(box_ ? SqlValue((*box_).*bound) : SqlValue());
    contents.emplace_back(std::int64_t{kGpkgWgs84});
    database.Insert("gpkg_contents", {contents});
    const SqlValue none = std::int64_t{0};
    database.Insert("gpkg_geometry_columns",
                    {{name_, "geom", geometryType_, std::int64_t{kGpkgWgs84}, none, none}});
  }

 private:
  void Include(const GeoBox& box) {
    if (!box_)
      box_ = box;
    box_->Include({box.west, box.south});
    box_->Include({box.east, box.north});
  }

  std::string name_;
  std::string geometryType_;
  std::string columns_;
  std::vector<SqlRow> rows_;
  std::optional<GeoBox> box_;
};

void WriteFlights(const Routes& routes, MemoryDatabase& database) {
  FeatureTable table("flights", "MULTILINESTRING", AttributesOf(RouteFlight(), RouteService()), "stroke");
  for (const RouteFlight& flight : routes.flights) {
    const RouteService& service = routes.services.at(flight.service);
    const auto lines = CutAtAntimeridian(flight.points, CutAt::kStraightLine);
    if (lines.empty())
      table.Add(AttributesOf(flight, service), service.rgb, {}, std::nullopt);
    else
      table.Add(AttributesOf(flight, service), service.rgb, Blob{GpkgMultiLine(lines)}, BoxOf(lines));
  }
  table.WriteTo(database);
}

void WriteAirports(const Routes& routes, MemoryDatabase& database) {
  FeatureTable table("airports", "POINT", AttributesOf(RouteAirport()), "colour");
  for (const RouteAirport& airport : routes.airports)
    table.Add(AttributesOf(airport), routes.ColourOf(airport), Blob{GpkgPoint(airport.position)},
              GeoBox::Around(airport.position));
  table.WriteTo(database);
}

/// Both tables without geometry.
void WriteStyles(const Routes& routes, MemoryDatabase& database) {
  std::vector<SqlRow> services;
  for (const RouteService& service : routes.services)
    services.push_back({SqlValue(), service.key, service.name, ColourText(service.rgb)});
  database.Insert("services", services);
  const SqlValue null;
  database.Insert("layer_styles", {{null, "", "", "flights", "geom", "services",
                                    FlightStyleOf(routes.services), null, true, "", "", null, kDate}});
  for (const char* table : {"services", "layer_styles"})
    database.Insert("gpkg_contents", {{table, "attributes", table, "", kDate, null, null, null, null, null}});
}

}  // namespace

std::string GeoPackageOf(const Routes& routes) {
  MemoryDatabase database;
  database.Execute(kFrame);
  WriteFlights(routes, database);
  WriteAirports(routes, database);
  WriteStyles(routes, database);
  database.Execute("COMMIT");
  return database.Bytes();
}

}  // namespace zerbal::mapcommand
