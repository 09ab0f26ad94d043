// The small world: a complete set of the six databases with little content, made for tests.
//
//   TempFolder folder;
//   SmallWorld world;
//   world.Write(folder.Path());          // app_data/*.mdb, app_map/*.mdb below it
//
// A test may change it before it is written:
//
//   world.LeaveOut("river.mdb");                              // no such file
//   world.col.RemoveRow("Col", "RIVER");                      // no such colour
//   world.fsrv.rows.clear();
//   world.dest.CellOf(world.dest.RowWhere("AP", "OSL"), "AP_Elev") = Null();
//   world.flit.rows.push_back(FlightRow("NOR", "ZB199", "K9001", "OSL", {"BGO"}, "TOS"));
//   world.coast.push_back(MapTable("AEwdb2", {At(20, 50), At(21, 51), kPenUp}));
//
// Its content (no index has the order in which rows are stored):
//
// Colours, all nine and the spare code SPARE. Fonts LORES, HIRES and SPARE.
//
// Regions in the order of their index "sort": MED -5 | NOR 10 | ISL 20 and FJO 20 (same sort, in stored
// order) | PACW 30 (wraps) | DATE 31 (wraps, detail) | FOUR 40 (touches four tiles) | LINE 90 (no width:
// degenerate) | FLAT 91 (no height).
//
// Services in the order of "sort": NOR, NORX (same prefix), OCE, oce (differs in letter case only, so the
// index treats both as equal), NEW (no flights). GHO has flights but is not a service.
//
// dest: 22 airports, in index order
//   ADK AKL ANC BGO CPH FAI GOT HEL HNL KEF KKN LHR LYR Lyr (equal in the index) NRT OSL POL (at the pole,
//   Null elevation and ILS, empty city) SUV SYD TOS TRF ZZE (at map longitude 360). ARN, LAX and DUB are
//   missing.
// allaprt: the same without Lyr, and ARN LAX DUB AMS QQW (at map longitude 0). Primary key.
//
// flit: 44 flights with the keys K1001.. in another order than the flight numbers, below:
//   without stops, with 1 to 10 stops; round trips (the last airport is the first, or two flights form a
//   pair); across map longitude 360 in both directions (service OCE); ZB116: missing origin, ZB117: missing
//   stop, ZB118: missing destination; ZB119: first stop Null, second filled; ZB120: second Null, third
//   filled; ZB121: a stop with the empty text; ZB122: a code in other letter case than in dest; ZB901: no
//   service (Null).
//
// wcl: lines around the world with markers at the start, doubled markers, a line of one point, a line that
// leaves a view and returns, points at map longitudes 0 and 360 and at both poles, and no marker at the end.
// coast: IC IE KC KE (the four tiles around 200, 40), AK and QK (both sides of map longitude 360), CC (only
// markers), GG (no rows). river: IE KE and EE (which coast lacks). ibound: IE IC.
#pragma once

#include <array>
#include <filesystem>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "support/database_builder.h"

namespace zerbal::test {

/// A row of `dest` or `allaprt`; longitude and latitude are geographic degrees, east and north positive.
Row AirportRow(std::string code, std::string name, std::string city, double longitude, double latitude,
               Cell elevation, int runways, int longestRunway, Cell ils);

/// A row of `flit`. Unused stops are Null; throws std::logic_error for more than ten stops.
Row FlightRow(Cell service, std::string number, std::string key, std::string origin, std::vector<Cell> stops,
              std::string destination);

// The tables of the program with columns and indexes, without rows.
Table ColourTable();
Table FontTable();
Table RegionTable();
Table ServiceTable();
Table DestinationTable();
Table FlightTable();
Table AllAirportsTable();

/// The databases of a world, below its folder.
inline const std::array<std::filesystem::path, 6> kDatabaseFiles = {
    "app_data/zbldata.mdb", "app_data/qavdata.mdb", "app_data/allaprt.mdb",
    "app_map/coast.mdb",    "app_map/river.mdb",    "app_map/ibound.mdb"};
inline const std::filesystem::path& kScheduleFile = kDatabaseFiles[1];

class SmallWorld {
 public:
  SmallWorld();

  // zbldata.mdb
  Table col = ColourTable();
  Table fon = FontTable();
  Table reg = RegionTable();
  // qavdata.mdb
  Table fsrv = ServiceTable();
  Table dest = DestinationTable();
  Table flit = FlightTable();
  // allaprt.mdb
  Table allaprt = AllAirportsTable();
  // The map files: tables of points.
  std::vector<Table> coast;
  std::vector<Table> river;
  std::vector<Table> ibound;

  /// Write removes this file instead of writing it; `file` has no folder. Throws std::logic_error when the
  /// world has no such file.
  void LeaveOut(const std::string& file);

  /// A table other than a map table by name; throws std::logic_error when there is none.
  Table& TableOf(std::string_view name);
  /// A map table by name; throws std::logic_error when there is none.
  static Table& MapTableOf(std::vector<Table>& tables, std::string_view name);

  /// Writes app_data and app_map below `folder`.
  void Write(const std::filesystem::path& folder) const;

 private:
  void WriteFile(const std::filesystem::path& file, const std::vector<Table>& tables) const;
  std::set<std::string> missing_;
};

}  // namespace zerbal::test
