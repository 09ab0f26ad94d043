#include "zerbal-pack/check.h"

#include <cstddef>
#include <functional>
#include <span>
#include <sstream>
#include <string>

#include <gtest/gtest.h>

#include "jet/writer.h"
#include "pack/pack_fixture.h"
#include "support/temp_folder.h"
#include "zerbal-pack/layout.h"

namespace zerbal::pack {
namespace {

namespace fs = std::filesystem;
using jet::Null;
using jet::Value;
using test::WritePoints;
using zerbal::test::ReadBytes;
using zerbal::test::TempFolder;
using zerbal::test::WriteBytes;

using Row = std::vector<Value>;
struct Content {
  jet::TableSpec spec;
  std::vector<Row> rows;
};

Value Text(const char* text) {
  return std::string(text);
}

Row Airport(const char* code, float lon, float lat, Value elevation = 100, Value ils = Text("1")) {
  return {Text(code), Text("Name"), Text("City"), lon, lat, std::move(elevation), 2, 8000, std::move(ils)};
}

Row Flight(const char* service, const char* key, const std::vector<const char*>& route) {
  Row row = {Text(service), Text(key), Text(key), Text(route.front())};
  for (std::size_t i = 1; i <= 10; ++i) {
    const bool stop = i + 1 < route.size() && std::string(route[i]) != "-";
    row.push_back(stop ? Text(route[i]) : Value(Null{}));
  }
  row.push_back(Text(route.back()));
  return row;
}

/// A small set of correct files, which tests damage.
struct Files {
  Files() {
    for (const char* code :
         {"MAPBG", "ZOOM", "CENTRE", "COAST", "RIVER", "IBOUND", "APALL", "APDEST", "ACSYMB"})
      colours.rows.push_back({Text(code), Null{}, 1, 2, 3, Text(code)});
    fonts.rows = {{Text("LORES"), Text("Arial"), 7, Text("l")}, {Text("HIRES"), Text("Arial"), 8, Text("h")}};
    regions.rows = {{Text("EUR"), 10, Text("Europe"), 155.0, 20.0, 225.0, 55.0}};
    services.rows = {{Text("EUR"), 10, Text("1"), Text("Europe"), 0, 0, 255}};
    destinations.rows = {Airport("LPPT", 170.9F, 51.2F), Airport("EGLL", 179.5F, 38.5F)};
    flights.rows = {Flight("EUR", "QV1", {"LPPT", "EGLL"}), Flight("EUR", "QV2", {"EGLL", "LPPT", "EGLL"})};
    airports.rows = destinations.rows;
  }

  void Write(const fs::path& folder) const {
    fs::create_directories(folder / "app_data");
    fs::create_directories(folder / "app_map");
    WriteDatabase(folder / "app_data" / "zbldata.mdb", {colours, fonts, regions});
    WriteDatabase(folder / "app_data" / "qavdata.mdb", {services, destinations, flights});
    WriteDatabase(folder / "app_data" / "allaprt.mdb", {airports});
    WritePoints(folder / "app_map" / "coast.mdb", {"wcl", "IEwdb2"});
    WritePoints(folder / "app_map" / "river.mdb", {"IEwdb2"});
    WritePoints(folder / "app_map" / "ibound.mdb", {"IEwdb2"});
    WriteBytes(folder / "app_data" / "zblrev.ini", "[RevZBL]\n");
  }

  static void WriteDatabase(const fs::path& file, const std::vector<Content>& tables) {
    jet::DatabaseWriter writer(file);
    for (const Content& table : tables) {
      writer.BeginTable(table.spec);
      for (const Row& row : table.rows)
        writer.AddRow(row);
      writer.EndTable();
    }
    writer.Finish();
  }

  Content colours{ColourLayout().Spec(), {}};
  Content fonts{FontLayout().Spec(), {}};
  Content regions{RegionLayout().Spec(), {}};
  Content services{ServiceLayout().Spec(), {}};
  Content destinations{DestinationLayout().Spec(), {}};
  Content flights{FlightLayout().Spec(), {}};
  Content airports{AirportLayout().Spec(), {}};
};

std::string Report(const fs::path& folder) {
  std::ostringstream out;
  const CheckReport report = CheckFolder(folder);
  report.Print(out);
  EXPECT_EQ(report.AllIsWell(), out.str().find("All is well.") != std::string::npos);
  return out.str();
}

/// The report of the check on damaged files without its last two lines.
std::string FindingsAfter(
    const std::function<void(Files&)>& damage,
    const std::function<void(const fs::path&)>& damageFolder = [](const fs::path&) {}) {
  const TempFolder folder;
  Files files;
  damage(files);
  files.Write(folder.Path());
  damageFolder(folder.Path());
  const std::string report = Report(folder.Path());
  return report.substr(0, report.find("Found "));
}

TEST(CheckFolder, ReportsNothingForCorrectFiles) {
  const TempFolder folder;
  Files().Write(folder.Path());
  EXPECT_EQ(Report(folder.Path()),
            "Found 1 region, 1 flight service, 2 destinations, 2 flights, 2 airports, 1 cell in coast.mdb, "
            "1 cell in river.mdb, 1 cell in ibound.mdb.\nAll is well.\n");
}

TEST(CheckFolder, FindsFilesInAnyLetterCase) {
  EXPECT_EQ(FindingsAfter([](Files&) {},
                          [](const fs::path& folder) {
                            fs::rename(folder / "app_data" / "zbldata.mdb",
                                       folder / "app_data" / "ZBLDATA.MDB");
                            fs::rename(folder / "app_map", folder / "App_Map");
                          }),
            "");
}

TEST(CheckFolder, ReportsMissingFiles) {
  EXPECT_EQ(FindingsAfter([](Files&) {},
                          [](const fs::path& folder) {
                            fs::remove(folder / "app_data" / "allaprt.mdb");
                            fs::remove(folder / "app_data" / "zblrev.ini");
                            fs::remove(folder / "app_map" / "river.mdb");
                          }),
            "app_data/allaprt.mdb: the file is missing; the program does not start without it\n"
            "Note: app_map/river.mdb: is missing; its lines are never drawn\n"
            "Note: app_data/zblrev.ini: is missing; revision numbers show as Unknown\n");
}

TEST(CheckFolder, ReportsAnEmptyFolder) {
  const TempFolder folder;
  const std::string report = Report(folder.Path());
  EXPECT_NE(report.find("app_data/zbldata.mdb: the file is missing"), std::string::npos);
  EXPECT_TRUE(report.ends_with("4 things are wrong.\n")) << report;
}

TEST(CheckFolder, ReportsFilesThatAreNotDatabases) {
  const std::string findings = FindingsAfter(
      [](Files&) {},
      [](const fs::path& folder) { WriteBytes(folder / "app_map" / "ibound.mdb", "no database"); });
  EXPECT_TRUE(findings.starts_with("app_map/ibound.mdb: cannot be opened: ")) << findings;
}

TEST(CheckFolder, ReportsMissingTablesFieldsAndIndexes) {
  EXPECT_EQ(FindingsAfter([](Files& files) { files.fonts.spec.name = "fonts"; }),
            "app_data/zbldata.mdb: table 'fon': the table is missing\n");
  EXPECT_EQ(FindingsAfter([](Files& files) { files.services.spec.columns[3].name = "Title"; }),
            "app_data/qavdata.mdb: table 'fsrv': field 'FSrv_Name' is missing\n");
  EXPECT_EQ(FindingsAfter([](Files& files) { files.flights.spec.indexes.clear(); }),
            "app_data/qavdata.mdb: table 'flit': index 'fsrv' is missing\n"
            "app_data/qavdata.mdb: table 'flit': index 'flituni' is missing\n");
  EXPECT_EQ(FindingsAfter([](Files& files) { files.colours.spec.indexes.clear(); }),
            "app_data/zbldata.mdb: table 'col': index 'colcode' is missing\n");
  EXPECT_EQ(FindingsAfter([](Files& files) { files.flights.spec.indexes[0].columns[0].name = "Flit"; }),
            "app_data/qavdata.mdb: table 'flit': index 'flituni' is not on the one field 'Flit_2015'\n");
}

TEST(CheckFolder, AllowsMissingFieldsThatTheProgramDoesNotRead) {
  EXPECT_EQ(FindingsAfter([](Files& files) {
              files.colours.spec.columns[0].name = "Code";
              files.colours.spec.indexes[0].columns[0].name = "Code";
              files.services.spec.columns[1].name = "Rank";
              files.services.spec.indexes[1].columns[0].name = "Rank";
            }),
            "");
}

TEST(CheckFolder, ReportsMissingCodesAndRows) {
  EXPECT_EQ(FindingsAfter([](Files& files) {
              files.colours.rows.pop_back();
              files.fonts.rows.clear();
              files.regions.rows.clear();
            }),
            "app_data/zbldata.mdb: table 'col': there is no row with code 'ACSYMB'\n"
            "app_data/zbldata.mdb: table 'fon': there is no row with code 'LORES'\n"
            "app_data/zbldata.mdb: table 'fon': there is no row with code 'HIRES'\n"
            "app_data/zbldata.mdb: table 'reg': there is no region; the program needs at least one\n");
  EXPECT_EQ(
      FindingsAfter([](Files& files) {
        files.services.rows.clear();
        files.flights.rows.clear();
      }),
      "app_data/qavdata.mdb: table 'fsrv': there is no flight service; the program needs at least one\n");
}

TEST(CheckFolder, CountsNothingInMissingTables) {
  const TempFolder folder;
  Files files;
  for (Content* table : {&files.services, &files.destinations, &files.flights, &files.airports})
    table->spec.name = "other " + table->spec.name;
  files.Write(folder.Path());
  const std::string report = Report(folder.Path());
  EXPECT_NE(report.find("Found 1 region, 0 flight services, 0 destinations, 0 flights, 0 airports, 1 cell in "
                        "coast.mdb, "),
            std::string::npos)
      << report;
}

/// Changes the leaves of all indexes of a file: calls `damage` with the page of each leaf.
void SpoilLeaves(const fs::path& file, const std::function<void(std::span<char> page)>& damage) {
  constexpr std::size_t kPage = 4096;
  constexpr char kLeaf = 4;
  std::string bytes = ReadBytes(file);
  for (std::size_t at = 0; at < bytes.size(); at += kPage) {
    if (bytes[at] == kLeaf)
      damage({bytes.data() + at, kPage});
  }
  WriteBytes(file, bytes);
}

TEST(CheckFolder, ReportsDamagedIndexes) {
  EXPECT_EQ(
      FindingsAfter([](Files&) {},
                    [](const fs::path& folder) {
                      SpoilLeaves(folder / "app_data" / "qavdata.mdb",
                                  [](std::span<char> page) { page[0] = 99; });
                    }),
      "app_data/qavdata.mdb: table 'fsrv': index 'sort' is damaged; the rows are sorted anew whenever "
      "it is used\n"
      "app_data/qavdata.mdb: table 'dest': index 'aprt' is damaged; the rows are sorted anew whenever "
      "it is used\n"
      "app_data/qavdata.mdb: table 'flit': index 'fsrv' is damaged; the rows are sorted anew whenever "
      "it is used\n"
      "app_data/qavdata.mdb: table 'flit': index 'flituni' is damaged; the rows are sorted anew whenever "
      "it is used\n");
}

TEST(CheckFolder, ReportsIndexesThatLackRows) {
  EXPECT_EQ(FindingsAfter([](Files&) {},
                          [](const fs::path& folder) {
                            SpoilLeaves(folder / "app_data" / "allaprt.mdb", [](std::span<char> page) {
                              const std::size_t unused = static_cast<unsigned char>(page[2]) +
                                                         256U * static_cast<unsigned char>(page[3]);
                              page[page.size() - unused - 1] = 77;  // the row of the last entry
                            });
                          }),
            "app_data/allaprt.mdb: table 'allaprt': index 'aprt' leads to 1 of 2 rows\n");
}

TEST(CheckFolder, ReportsRowsThatMayBeLost) {
  constexpr char kForeignPage = 99;
  EXPECT_EQ(FindingsAfter([](Files&) {},
                          [](const fs::path& folder) {
                            std::string bytes = ReadBytes(folder / "app_data" / "allaprt.mdb");
                            bytes.at(bytes.rfind("EGLL") / 4096 * 4096) = kForeignPage;
                            WriteBytes(folder / "app_data" / "allaprt.mdb", bytes);
                            bytes = ReadBytes(folder / "app_map" / "coast.mdb");
                            bytes.at(bytes.rfind("\x80\xFE\x21\x0A") / 4096 * 4096) = kForeignPage;
                            WriteBytes(folder / "app_map" / "coast.mdb", bytes);
                          }),
            "Note: app_data/allaprt.mdb: table 'allaprt': has 0 of the 2 rows that it had; some may be lost\n"
            "Note: app_map/coast.mdb: table 'IEwdb2': has 0 of the 3 rows that it had; some may be lost\n");
}

TEST(CheckFolder, ReportsFlightsThatCannotBeDrawn) {
  EXPECT_EQ(
      FindingsAfter([](Files& files) {
        files.flights.rows = {Flight("EUR", "QV1", {"LPPT", "XXXX"}), Flight("ASI", "QV2", {"LPPT", "EGLL"}),
                              Flight("EUR", "QV3", {"LPPT", "-", "EGLL", "LPPT"}),
                              Flight("EUR", "QV4", {"LPPT", "egll", "LPPT"})};
      }),
      "app_data/qavdata.mdb: table 'flit': flight 'QV1' (key 'QV1'): airport 'XXXX' is not among the "
      "destinations, so it is never drawn\n"
      "app_data/qavdata.mdb: table 'flit': flight 'QV4' (key 'QV4'): airport 'egll' is not among the "
      "destinations, so it is never drawn\n"
      "app_data/qavdata.mdb: table 'flit': flight 'QV2' (key 'QV2'): there is no flight service 'ASI', so it "
      "is drawn black or not at all\n"
      "app_data/qavdata.mdb: table 'flit': flight 'QV3' (key 'QV3'): stopover 2 is ignored, because stopover "
      "1 is empty\n");
}

TEST(CheckFolder, ReportsKeysThatOccurTwice) {
  EXPECT_EQ(
      FindingsAfter([](Files& files) {
        files.destinations.spec.indexes[0].unique = files.destinations.spec.indexes[0].primary = false;
        files.destinations.rows.push_back(files.destinations.rows[0]);
        files.flights.spec.indexes[0].unique = files.flights.spec.indexes[0].primary = false;
        files.flights.rows.push_back(files.flights.rows[0]);
      }),
      "app_data/qavdata.mdb: table 'dest': destination 'LPPT' is there twice\n"
      "app_data/qavdata.mdb: table 'flit': flight 'QV1' (key 'QV1'): another flight has the same key\n");
}

TEST(CheckFolder, ReportsPositionsOutsideTheMapFrame) {
  EXPECT_EQ(
      FindingsAfter([](Files& files) {
        files.airports.rows = {Airport("A", 360, 180), Airport("B", -0.5F, 90), Airport("C", 0, 180.5F),
                               Airport("D", 360.5F, 0)};
      }),
      "app_data/allaprt.mdb: table 'allaprt': airport 'B': AP_Lon '-0.5' is outside the map frame (0 to "
      "360)\n"
      "app_data/allaprt.mdb: table 'allaprt': airport 'D': AP_Lon '360.5' is outside the map frame (0 to "
      "360)\n"
      "app_data/allaprt.mdb: table 'allaprt': airport 'C': AP_Lat '180.5' is outside the map frame (0 to "
      "180)\n");
  EXPECT_EQ(
      FindingsAfter([](Files& files) {
        files.regions.rows = {{Text("A"), 1, Text("a"), 10.0, 60.0, 10.0, 50.0},
                              {Text("B"), 2, Text("b"), 350.0, 60.0, 370.0, 80.0}};
      }),
      "app_data/zbldata.mdb: table 'reg': region 'A' has no width; choosing it shows nothing\n"
      "app_data/zbldata.mdb: table 'reg': region 'A': Reg_ToLat is not south of Reg_FromLat\n"
      "app_data/zbldata.mdb: table 'reg': region 'B': Reg_ToLon '370' is outside the map frame (0 to 360)\n");
}

TEST(CheckFolder, NotesRegionsThatTheEdgeOfTheMapFrameCutsOff) {
  EXPECT_EQ(
      FindingsAfter([](Files& files) {
        files.regions.rows = {{Text("NAM"), 1, Text("North"), 10.0, 17.0, 130.0, 76.0},
                              {Text("AUS"), 2, Text("South"), 290.0, 98.0, 360.0, 138.0},
                              {Text("FIJ"), 3, Text("Fiji"), 354.0, 104.0, 2.0, 112.0},
                              {Text("PAC"), 4, Text("Pacific"), 295.0, 28.0, 112.0, 138.0}};
      }),
      "Note: app_data/zbldata.mdb: table 'reg': region 'NAM': a map wider than 2.3 times its height shows "
      "little of it; set Reg_FromLon to 359, so that the region reaches across 180 degrees, or make it at "
      "most 40.0 degrees high\n"
      "Note: app_data/zbldata.mdb: table 'reg': region 'AUS': a map wider than 1.7 times its height is empty "
      "east of 180 degrees; set Reg_ToLon to 1, so that the region reaches across 180 degrees, or make it at "
      "most 20.0 degrees high\n"
      "Note: app_data/zbldata.mdb: table 'reg': region 'FIJ': in detail the map has no lines east of 180 "
      "degrees; make the region more than 20 degrees wide or 10 degrees high\n");
}

TEST(CheckFolder, ReportsMapPointsOutsideTheMapFrame) {
  EXPECT_EQ(FindingsAfter([](Files&) {},
                          [](const fs::path& folder) {
                            jet::DatabaseWriter writer(folder / "app_map" / "coast.mdb");
                            writer.BeginTable(test::PointTable("IEwdb2"));
                            writer.AddPair(0, 0);
                            writer.AddPair(360'000'000, 180'000'000);
                            writer.AddPair(-1'000'000, 999);
                            writer.AddPair(360'000'001, 1);
                            writer.AddPair(1, -1);
                            writer.EndTable();
                            writer.BeginTable(test::PointTable("landfine"));
                            writer.AddPair(360'000'001, 2);
                            writer.EndTable();
                            writer.BeginTable(
                                test::PointTable("BBwdb2"));  // the name of no tile, so it is not read
                            writer.AddPair(-5, -5);
                            writer.EndTable();
                            writer.Finish();
                          }),
            "app_map/coast.mdb: table 'wcl' is missing; there is no coastline in wide views\n"
            "app_map/coast.mdb: table 'IEwdb2': row 4: the point 360000001, 1 is outside the map frame\n"
            "app_map/coast.mdb: table 'IEwdb2': row 5: the point 1, -1 is outside the map frame\n"
            "app_map/coast.mdb: table 'landfine': row 1: the point 360000001, 2 is outside the map frame\n");
}

TEST(CheckFolder, ReportsMapTablesWithOtherFields) {
  EXPECT_EQ(FindingsAfter([](Files&) {},
                          [](const fs::path& folder) {
                            jet::DatabaseWriter writer(folder / "app_map" / "river.mdb");
                            jet::TableSpec spec = test::PointTable("IEwdb2");
                            spec.columns[1].name = "Latitude";
                            writer.BeginTable(spec);
                            writer.EndTable();
                            writer.Finish();
                            WritePoints(folder / "app_map" / "ibound.mdb", {"other"});
                          }),
            "app_map/river.mdb: table 'IEwdb2': field 'Lat' is missing\n"
            "app_map/ibound.mdb: there is no table of a grid cell; close views show no lines\n");
}

TEST(CheckFolder, ReportsInvalidValues) {
  EXPECT_EQ(FindingsAfter([](Files& files) {
              for (std::size_t i = 4; i < 7; ++i) {
                files.services.spec.columns[i].type = jet::ColumnType::kLong;
                files.services.spec.columns[i].length = 4;
              }
              files.services.rows = {{Text("EUR"), 10, Text("1"), Text("Europe"), 256, -1, 255}};
              files.fonts.rows[0][2] = 5;
              files.airports.rows = {Airport("A", 1, 1, Null{}, Text("x")), Airport("B", 1, 1, 1, Null{})};
            }),
            "app_data/zbldata.mdb: table 'fon': font 'LORES': Fon_Size '5' is not within 6 to 14\n"
            "app_data/qavdata.mdb: table 'fsrv': flight service 'EUR': FSrv_R '256' is not within 0 to 255\n"
            "app_data/qavdata.mdb: table 'fsrv': flight service 'EUR': FSrv_G '-1' is not within 0 to 255\n"
            "app_data/allaprt.mdb: table 'allaprt': airport 'A': AP_Elev is empty\n"
            "app_data/allaprt.mdb: table 'allaprt': airport 'A': AP_ILS 'x' is neither 0 nor 1\n"
            "app_data/allaprt.mdb: table 'allaprt': airport 'B': AP_ILS is empty\n");
}

TEST(CheckFolder, ReportsKeysThatTheSettingsFileCannotStore) {
  EXPECT_EQ(
      FindingsAfter([](Files& files) {
        files.colours.rows[0][5] = Null{};
        files.fonts.rows[1][3] = Text("h=1");
        files.services.rows.push_back({Text("[A]"), 20, Text("2"), Text("Asia"), 0, 0, 255});
      }),
      "app_data/zbldata.mdb: table 'col': colour 'MAPBG': Col_Entry is empty\n"
      "app_data/zbldata.mdb: table 'fon': font 'HIRES': Fon_Entry 'h=1' cannot be a key of the settings "
      "file\n"
      "app_data/qavdata.mdb: table 'fsrv': flight service '[A]': FSrv '[A]' cannot be a key of the settings "
      "file\n");
}

TEST(CheckFolder, ReportsTooManyServices) {
  EXPECT_EQ(FindingsAfter([](Files& files) {
              for (int i = 1; i < 32768; ++i)
                files.services.rows.push_back(
                    {Text(("S" + std::to_string(i)).c_str()), i, Null{}, Text("x"), 0, 0, 255});
            }),
            "app_data/qavdata.mdb: table 'fsrv': there are 32768 flight services; the program counts up to "
            "32767\n");
}

TEST(CheckFolder, CountsFindingsAfterTheFirst20OfAKind) {
  const TempFolder folder;
  Files files;
  files.airports.rows.clear();
  std::vector<std::string> codes;
  for (int i = 0; i < 25; ++i) {
    codes.push_back("A" + std::to_string(i));
    files.airports.rows.push_back(Airport(codes.back().c_str(), 400, 1));
  }
  files.Write(folder.Path());
  const std::string report = Report(folder.Path());
  EXPECT_NE(report.find("'A19': AP_Lon"), std::string::npos);
  EXPECT_EQ(report.find("'A20': AP_Lon"), std::string::npos);
  EXPECT_NE(report.find("app_data/allaprt.mdb: table 'allaprt': ... and 5 more like this\n"),
            std::string::npos);
  EXPECT_TRUE(report.ends_with("25 things are wrong.\n"));
}

}  // namespace
}  // namespace zerbal::pack
