// A complete small set of the six databases, with content made for tests; written in a moment:
//
//   TempFolder folder;
//   SmallWorld world;
//   world.Write(folder.Path());          // app_data/*.mdb, app_map/*.mdb below it
//
// Tests change it before it is written:
//
//   world.LeaveOut("river.mdb");                              // no such file
//   world.col.RemoveRow("Col", "RIVER");                      // no such colour
//   world.fsrv.rows.clear();
//   world.dest.CellOf(world.dest.RowWhere("AP", "OSL"), "AP_Elev") = Null();
//   world.flit.rows.push_back(FlightRow("NOR", "ZB199", "K9001", "OSL", {"BGO"}, "TOS"));
//   world.coast.push_back(MapTable("AEwdb2", {At(20, 50), At(21, 51), kPenUp}));
//
// What is in it (rows are stored in another order than any index gives):
//
// Colours, all nine and the spare code SPARE. Fonts LORES, HIRES and SPARE.
//
// Regions in the order of their index "sort": MED -5 | NOR 10 | ISL 20 and FJO 20 (same sort, in stored
// order) | PACW 30 (wraps) | DATE 31 (wraps, detail) | FOUR 40 (touches four cells) | LINE 90 (no width:
// degenerate) | FLAT 91 (no height).
//
// Services in the order of "sort": NOR, NORX (shares the prefix), OCE, oce (differs in case only: the
// engine's index takes both for equal), NEW (no flights). GHO has flights but is no service.
//
// dest: 22 airports, in index order
//   ADK AKL ANC BGO CPH FAI GOT HEL HNL KEF KKN LHR LYR Lyr (equal in the index) NRT OSL POL (at the pole,
//   Null elevation and ILS, empty city) SUV SYD TOS TRF ZZE (at map longitude 360). ARN, LAX and DUB are not
//   there.
// allaprt: those but Lyr, and ARN LAX DUB AMS QQW (at map longitude 0); primary key.
//
// flit: 44 flights with the keys K1001.. in another order than the flight numbers, below:
//   without stops, with 1 to 10 stops; round trips (the last airport is the first, or a pair of flights there
//   and back); over the seam both ways (service OCE); ZB116: missing origin, ZB117: missing stop, ZB118:
//   missing destination; ZB119: first stop Null, second filled; ZB120: second Null, third filled; ZB121: a
//   stop that is the empty text; ZB122: a code in other letter case than in dest; ZB901: no service (Null).
//
// wcl: lines round the world with markers at the start, doubled markers, a line of one point, one that leaves
// and comes back, points at map longitudes 0 and 360 and at both poles, and no marker at the end. coast: IC
// IE KC KE (the four cells round 200,40), AK and QK (both sides of the seam), CC (only markers), GG (no row).
// river: IE KE and EE (which coast lacks). ibound: IE IC.
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

/// A row of `flit`; at most ten stops, the rest is Null.
Row FlightRow(Cell service, std::string number, std::string key, std::string origin, std::vector<Cell> stops,
              std::string destination);

// The tables with columns and indexes, without rows. Table and index names are those that the program uses.
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
