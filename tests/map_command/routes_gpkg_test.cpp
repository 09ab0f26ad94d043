#include "zerbal-map/routes_gpkg.h"

#include <QByteArray>
#include <QXmlStreamReader>

#include <gtest/gtest.h>
#include <sqlite3.h>

#include "base/error.h"
#include "map_command/sample_routes.h"
#include "support/temp_folder.h"
#include "zerbal-map/gpkg_geometry.h"
#include "zerbal-map/memory_database.h"

namespace zerbal::test {
namespace {

std::string Hex(const std::string& bytes) {
  return QByteArray::fromStdString(bytes).toHex(' ').toStdString();
}

/// The rows of a query in a database file: values separated by "|", lines by line ends.
class GpkgFile {
 public:
  explicit GpkgFile(const mapcommand::Routes& routes) {
    WriteBytes(folder_ / "routes.gpkg", mapcommand::GeoPackageOf(routes));
    EXPECT_EQ(sqlite3_open((folder_ / "routes.gpkg").c_str(), &database_), SQLITE_OK);
  }
  ~GpkgFile() { sqlite3_close(database_); }
  GpkgFile(const GpkgFile&) = delete;
  GpkgFile& operator=(const GpkgFile&) = delete;

  std::string Rows(const char* query) {
    sqlite3_stmt* statement = nullptr;
    EXPECT_EQ(sqlite3_prepare_v2(database_, query, -1, &statement, nullptr), SQLITE_OK)
        << sqlite3_errmsg(database_);
    std::string text;
    while (sqlite3_step(statement) == SQLITE_ROW) {
      for (int column = 0; column < sqlite3_column_count(statement); ++column) {
        const auto* value = reinterpret_cast<const char*>(sqlite3_column_text(statement, column));
        text.append(column == 0 ? "" : "|").append(value == nullptr ? "NULL" : value);
      }
      text += '\n';
    }
    sqlite3_finalize(statement);
    return text;
  }

 private:
  TempFolder folder_;
  sqlite3* database_ = nullptr;
};

TEST(RoutesGpkg, TheFileIsAGeoPackage) {
  GpkgFile file(SampleRoutes());
  EXPECT_EQ(file.Rows("PRAGMA application_id"), "1196444487\n");
  EXPECT_EQ(file.Rows("PRAGMA user_version"), "10300\n");
  EXPECT_EQ(file.Rows("PRAGMA integrity_check"), "ok\n");
  EXPECT_EQ(file.Rows("PRAGMA foreign_key_check"), "");
  EXPECT_EQ(file.Rows("SELECT * FROM gpkg_contents"),
            "flights|features|flights||2000-01-01T00:00:00.000Z|-180.0|-37.0|180.0|60.25|4326\n"
            "airports|features|airports||2000-01-01T00:00:00.000Z|-180.0|-37.0|174.0|-16.5|4326\n"
            "services|attributes|services||2000-01-01T00:00:00.000Z|NULL|NULL|NULL|NULL|NULL\n"
            "layer_styles|attributes|layer_styles||2000-01-01T00:00:00.000Z|NULL|NULL|NULL|NULL|NULL\n");
  EXPECT_EQ(file.Rows("SELECT * FROM gpkg_geometry_columns"),
            "flights|geom|MULTILINESTRING|4326|0|0\nairports|geom|POINT|4326|0|0\n");
}

TEST(RoutesGpkg, FlightsAirportsAndServicesAreRows) {
  GpkgFile file(SampleRoutes());
  EXPECT_EQ(file.Rows("SELECT fid, length(geom), number, key, service, service_name, route, legs, length_km, "
                      "stroke FROM flights"),
            "1|147|ZB1|K1|OCE|3 - Oceans|AKL SUV HNL|2|7235.123|#fa8200\n"
            "2|90|\"2\"|K2|A&B <\"x\">|9 - Ä & \\ \x01|OSL BGO|1|325.0|#00000a\n"
            "3|NULL|ZB3|K3|A&B <\"x\">|9 - Ä & \\ \x01|OSL XXX|1|NULL|#00000a\n");
  EXPECT_EQ(file.Rows("SELECT fid, length(geom), code, name, city, elevation_ft, runways, longest_runway_ft, "
                      "ils, destination, colour FROM airports"),
            "1|29|AKL|Auckland|Auckland|23|1|11926|1|1|#c80000\n"
            "2|29|QQW|West & \"East\"||NULL|NULL|NULL|NULL|0|#0080ff\n");
  EXPECT_EQ(file.Rows("SELECT * FROM services"),
            "1|OCE|3 - Oceans|#fa8200\n2|A&B <\"x\">|9 - Ä & \\ \x01|#00000a\n");
}

TEST(RoutesGpkg, AStyleColoursFlightsByService) {
  GpkgFile file(SampleRoutes());
  EXPECT_EQ(file.Rows("SELECT f_table_name, f_geometry_column, styleName, useAsDefault FROM layer_styles"),
            "flights|geom|services|1\n");
  QXmlStreamReader xml(QString::fromStdString(file.Rows("SELECT styleQML FROM layer_styles")));
  QStringList found;
  while (!xml.atEnd()) {
    if (xml.readNext() != QXmlStreamReader::StartElement)
      continue;
    if (xml.name() == QLatin1String("category"))
      found.append(xml.attributes().value("symbol").toString() + "=" +
                   xml.attributes().value("value").toString());
    if (xml.name() == QLatin1String("prop") && xml.attributes().value("k") == QLatin1String("line_color"))
      found.append(xml.attributes().value("v").toString());
  }
  EXPECT_FALSE(xml.hasError()) << xml.errorString().toStdString();
  EXPECT_EQ(found.join('|').toStdString(), "0=OCE|1=A&B <\"x\">|250,130,0,255|0,0,10,255");
}

TEST(RoutesGpkg, NoFlightsMakeEmptyTablesWithoutBounds) {
  GpkgFile file({});
  EXPECT_EQ(file.Rows("SELECT count(*) FROM flights"), "0\n");
  EXPECT_EQ(file.Rows("SELECT min_x, max_y, srs_id FROM gpkg_contents WHERE data_type = 'features'"),
            "NULL|NULL|4326\nNULL|NULL|4326\n");
}

TEST(RoutesGpkg, EqualRoutesGiveEqualBytes) {
  EXPECT_TRUE(mapcommand::GeoPackageOf(SampleRoutes()) == mapcommand::GeoPackageOf(SampleRoutes()));
}

TEST(GpkgGeometry, APointHasNoBounds) {
  EXPECT_EQ(Hex(mapcommand::GpkgPoint({1, -2})),
            "47 50 00 01 e6 10 00 00 01 01 00 00 00 "
            "00 00 00 00 00 00 f0 3f 00 00 00 00 00 00 00 c0");
}

TEST(GpkgGeometry, AMultiLineHasItsBoundsWestEastSouthNorth) {
  const mapcommand::RouteLine line{{1, -2}, {-1, 2}};
  EXPECT_EQ(Hex(mapcommand::GpkgMultiLine({&line, 1})),
            "47 50 00 03 e6 10 00 00 "
            "00 00 00 00 00 00 f0 bf 00 00 00 00 00 00 f0 3f "
            "00 00 00 00 00 00 00 c0 00 00 00 00 00 00 00 40 "
            "01 05 00 00 00 01 00 00 00 01 02 00 00 00 02 00 00 00 "
            "00 00 00 00 00 00 f0 3f 00 00 00 00 00 00 00 c0 "
            "00 00 00 00 00 00 f0 bf 00 00 00 00 00 00 00 40");
}

TEST(MemoryDatabase, AFailureIsReportedWithItsReason) {
  mapcommand::MemoryDatabase database;
  database.Execute("CREATE TABLE t (a INTEGER PRIMARY KEY)");
  const auto reason = [&](const auto& fails) -> std::string {
    try {
      fails();
    } catch (const base::Error& error) {
      return error.what();
    }
    return "(none)";
  };
  EXPECT_EQ(reason([&] { database.Execute("CREATE TABLE t (b)"); }),
            "The database cannot be made: table t already exists");
  const std::vector<mapcommand::SqlRow> twice(2, {std::int64_t{1}});
  EXPECT_EQ(reason([&] { database.Insert("t", twice); }),
            "The database cannot be made: UNIQUE constraint failed: t.a");
}

}  // namespace
}  // namespace zerbal::test
