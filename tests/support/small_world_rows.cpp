#include "support/small_world_rows.h"

#include <cmath>
#include <numbers>

#include "support/small_world.h"

namespace zerbal::test {

void AddReferenceRows(Table& col, Table& fon, Table& reg, Table& fsrv) {
  col.rows = {{"RIVER", "Rivers", 0, 60, 220, "Rivers"},
              {"MAPBG", "Background of the map", 230, 240, 250, "Background"},
              {"SPARE", "Of no use", 4, 5, 6, "Spare"},
              {"APDEST", "Destinations", 0, 120, 0, "DestAirports"},
              {"COAST", "Coastlines", 10, 10, 10, "Coast"},
              {"ACSYMB", "Aircraft", 255, 255, 255, "Aircraft"},
              {"ZOOM", "Zoom rectangle", 250, 0, 0, "Zoom"},
              {"IBOUND", "Boundaries", 150, 75, 0, "Boundaries"},
              {"APALL", "Other airports", 100, 100, 100, "OtherAirports"},
              {"CENTRE", "Centre of the map", 120, 0, 120, "Centre"}};
  fon.rows = {
      {"SPARE", "Courier New", 9, "Spare"}, {"HIRES", "Arial", 8, "Near"}, {"LORES", "Arial", 7, "Far"}};
  reg.rows = {{"PACW", 30, "Pacific (wraps)", 290.0, 60.0, 80.0, 130.0},
              {"ISL", 20, "Iceland and Svalbard", 150.0, 8.0, 205.0, 30.0},
              {"LINE", 90, "No width", 190.0, 25.0, 190.0, 35.0},
              {"FJO", 20, "Fjords", 182.5, 25.5, 195.5, 33.0},
              {"MED", -5, "Mediterranean", 174.0, 42.0, 217.0, 60.0},
              {"DATE", 31, "Date line, near (wraps)", 352.0, 104.0, 4.0, 112.0},
              {"FLAT", 91, "No height", 185.0, 30.0, 195.0, 30.0},
              {"FOUR", 40, "Four cells", 195.0, 36.0, 205.0, 44.0},
              {"NOR", 10, "Nordic countries", 182.0, 17.0, 214.0, 37.0}};
  fsrv.rows = {{"OCE", "Oceans", "3", 250, 130, 0, 30},
               {"NEW", "Not yet begun", "0", 8, 8, 8, 50},
               {"NORX", "Nordic Extra", "2", 0, 0, 190, 20},
               {"oce", "Oceans Charter", "3a", 250, 250, 0, 31},
               {"NOR", "Nordic", "1", 0, 0, 250, 10}};
}

void AddAirportRows(Table& dest, Table& allaprt) {
  dest.rows = {AirportRow("TOS", "Langnes", "Tromso", 18.92, 69.68, 31, 1, 7848, "1"),
               AirportRow("LHR", "Heathrow", "London", -0.45, 51.47, 83, 2, 12802, "1"),
               AirportRow("SYD", "Kingsford Smith", "Sydney", 151.18, -33.95, 21, 3, 13000, "1"),
               AirportRow("CPH", "Copenhagen Kastrup", "Copenhagen", 12.66, 55.62, 17, 3, 11811, "1"),
               AirportRow("ZZE", "East End", "Seam", 180.0, -16.5, 5, 1, 3000, ""),
               AirportRow("HNL", "Inouye", "Honolulu", -157.92, 21.32, 13, 4, 12312, "1"),
               AirportRow("BGO", "Flesland", "Bergen", 5.22, 60.29, 166, 1, 9810, "1"),
               AirportRow("NRT", "Narita", "Tokyo", 140.39, 35.77, 135, 2, 13123, "1"),
               AirportRow("LYR", "Svalbard", "Longyear", 15.47, 78.25, 94, 1, 8146, "0"),
               AirportRow("ADK", "Adak", "Adak", -176.64, 51.88, 18, 2, 7790, "0"),
               AirportRow("GOT", "Landvetter", "Goteborg", 12.28, 57.66, 506, 1, 10823, "1"),
               AirportRow("POL", "Pole Camp", "", 0.0, 90.0, Null(), 0, 0, Null()),
               AirportRow("KEF", "Keflavik", "Reykjavik", -22.61, 63.99, 171, 2, 10056, "1"),
               AirportRow("OSL", "Gardermoen", "Oslo", 11.1, 60.19, 681, 2, 11811, "1"),
               AirportRow("AKL", "Auckland", "Auckland", 174.79, -37.01, 23, 1, 11926, "1"),
               AirportRow("HEL", "Helsinki Vantaa", "helsinki", 24.96, 60.32, 179, 3, 11286, "1"),
               AirportRow("Lyr", "Lyr Strip", "Lyr", 16.0, 78.0, 1000, 1, 1000, "0"),
               AirportRow("SUV", "Nausori", "Suva", 178.56, -18.04, 17, 1, 7008, "0"),
               AirportRow("FAI", "Fairbanks", "Fairbanks", -147.86, 64.82, 439, 3, 11800, "1"),
               AirportRow("KKN", "Hoybuktmoen", "Kirkenes", 29.89, 69.73, 283, 1, 6955, "0"),
               AirportRow("ANC", "Anchorage", "Anchorage", -150.0, 61.17, 151, 3, 12400, "1"),
               AirportRow("TRF", "Torp", "Sandefjord", 10.26, 59.19, 286, 1, 9806, "2")};
  for (const Row& row : dest.rows) {
    if (!(row[0] == Cell("Lyr")))
      allaprt.rows.push_back(row);
  }
  const std::vector<Row> others = {
      AirportRow("QQW", "West End", "Seam", -180.0, -16.5, 6, 1, 2999, "0"),
      AirportRow("LAX", "Los Angeles", "Los Angeles", -118.41, 33.94, 128, 4, 12923, "1"),
      AirportRow("ARN", "Arlanda", "Stockholm", 17.92, 59.65, 137, 3, 10830, "1"),
      AirportRow("AMS", "Schiphol", "Amsterdam", 4.76, 52.31, -11, 6, 12467, "1"),
      AirportRow("DUB", "Dublin", "Dublin", -6.27, 53.42, 242, 2, 10203, "1")};
  allaprt.rows.insert(allaprt.rows.begin() + 7, others.begin(), others.end());
}

void AddFlightRows(Table& flit) {
  const Cell null = Null();
  flit.rows = {
      // Service NOR: all kinds of routes, and all kinds of errors in them.
      FlightRow("NOR", "ZB108", "K1031", "OSL", {"BGO", "TOS", "KKN"}, "LYR"),
      FlightRow("OCE", "ZB301", "K1012", "NRT", {}, "ANC"),
      FlightRow("NOR", "ZB101", "K1040", "OSL", {}, "BGO"),
      FlightRow("NOR", "ZB102", "K1002", "BGO", {}, "OSL"),
      FlightRow("NORX", "ZB201", "K1027", "OSL", {}, "LHR"),
      FlightRow("NOR", "ZB103", "K1015", "OSL", {"TRF"}, "CPH"),
      FlightRow("NOR", "ZB104", "K1033", "CPH", {"TRF"}, "OSL"),
      FlightRow("oce", "ZB351", "K1008", "SYD", {}, "AKL"),
      FlightRow("NOR", "ZB105", "K1044", "OSL", {"BGO"}, "OSL"),
      FlightRow("NOR", "ZB106", "K1019", "HEL", {"OSL", "BGO"}, "HEL"),
      FlightRow("GHO", "ZB801", "K1005", "OSL", {}, "GOT"),
      FlightRow("NOR", "ZB107", "K1023", "CPH", {"GOT", "OSL"}, "TOS"),
      FlightRow("OCE", "ZB302", "K1037", "ANC", {}, "NRT"),
      FlightRow("NOR", "ZB109", "K1010", "TOS", {"KKN", "TOS", "BGO", "OSL"}, "CPH"),
      FlightRow("NOR", "ZB110", "K1042", "CPH", {"GOT", "OSL", "BGO", "TOS", "KKN"}, "HEL"),
      FlightRow("NOR", "ZB111", "K1004", "CPH", {"GOT", "OSL", "BGO", "TOS", "KKN", "HEL"}, "CPH"),
      FlightRow("NORX", "ZB202", "K1029", "LHR", {}, "OSL"),
      FlightRow("NOR", "ZB112", "K1021", "LHR", {"CPH", "GOT", "OSL", "BGO", "TOS", "KKN", "LYR"}, "KEF"),
      FlightRow("OCE", "ZB303", "K1017", "AKL", {"SUV", "HNL"}, "ANC"),
      FlightRow("NOR", "ZB113", "K1038", "LHR", {"CPH", "GOT", "OSL", "BGO", "TOS", "KKN", "LYR", "TOS"},
                "OSL"),
      FlightRow("NOR", "ZB114", "K1006", "LHR",
                {"KEF", "BGO", "OSL", "GOT", "CPH", "HEL", "OSL", "TOS", "LYR"}, "TOS"),
      FlightRow("NOR", "ZB115", "K1013", "OSL",
                {"BGO", "TRF", "CPH", "GOT", "HEL", "KKN", "TOS", "LYR", "KEF", "LHR"}, "OSL"),
      FlightRow("NOR", "ZB116", "K1025", "ARN", {}, "OSL"),
      FlightRow(null, "ZB901", "K1030", "OSL", {}, "KEF"),
      FlightRow("NOR", "ZB117", "K1035", "OSL", {"ARN"}, "HEL"),
      FlightRow("NOR", "ZB118", "K1001", "OSL", {}, "LAX"),
      FlightRow("NOR", "ZB119", "K1016", "OSL", {null, "BGO"}, "TOS"),
      FlightRow("NOR", "ZB120", "K1043", "OSL", {"BGO", null, "TRF"}, "TOS"),
      FlightRow("NOR", "ZB121", "K1009", "OSL", {"BGO", ""}, "TOS"),
      FlightRow("NOR", "ZB122", "K1020", "osl", {}, "Bgo"),
      FlightRow("NOR", "ZB123", "K1028", "TOS", {}, "TOS"),
      FlightRow("oce", "ZB352", "K1032", "AKL", {}, "SYD"),
      FlightRow("NORX", "ZB203", "K1034", "OSL", {"GOT"}, "LHR"),
      FlightRow("NORX", "ZB204", "K1011", "LHR", {"GOT"}, "OSL"),
      FlightRow("NORX", "ZB205", "K1003", "LHR", {"KEF"}, "LHR"),
      FlightRow("NORX", "ZB206", "K1039", "Lyr", {}, "LYR"),
      FlightRow("NORX", "ZB207", "K1018", "LYR", {}, "POL"),
      FlightRow("OCE", "ZB304", "K1024", "ANC", {"HNL", "SUV"}, "AKL"),
      FlightRow("OCE", "ZB305", "K1036", "ADK", {}, "NRT"),
      FlightRow("OCE", "ZB306", "K1041", "NRT", {"ADK", "FAI", "ADK"}, "NRT"),
      FlightRow("OCE", "ZB307", "K1007", "SUV", {"ZZE"}, "HNL"),
      FlightRow("OCE", "ZB308", "K1014", "HNL", {"ZZE"}, "SUV"),
      FlightRow("OCE", "ZB309", "K1022", "SYD", {"NRT"}, "FAI"),
      FlightRow("GHO", "ZB802", "K1026", "GOT", {}, "OSL"),
  };
}

namespace {

// A closed ring: the last point equals the first one.
void AddRing(std::vector<Point>& points, double lon, double lat, double radius, int corners) {
  for (int i = 0; i <= corners; ++i) {
    const double angle = 2 * std::numbers::pi * (i % corners) / corners;
    points.push_back(At(lon + radius * std::cos(angle), lat + radius * std::sin(angle)));
  }
}

// A straight line from one point to another in `steps` pieces.
void AddLine(std::vector<Point>& points, double fromLon, double fromLat, double toLon, double toLat,
             int steps) {
  for (int i = 0; i <= steps; ++i)
    points.push_back(At(fromLon + (toLon - fromLon) * i / steps, fromLat + (toLat - fromLat) * i / steps));
}

std::vector<Point> WorldCoast() {
  std::vector<Point> points = {kPenUp};
  AddRing(points, 195, 28, 12, 60);  // about Scandinavia
  points.push_back(kPenUp);
  AddRing(points, 20, 100, 9, 40);
  points.insert(points.end(), {kPenUp, {-1000000, 77000000}});  // the latitude of a marker is ignored
  AddRing(points, 315, 115, 18, 70);
  points.push_back(kPenUp);
  points.insert(points.end(), {At(120, 60), kPenUp});  // a line of one point
  AddLine(points, 150, 30, 240, 30, 18);               // enters and leaves a view of the north
  AddLine(points, 238, 34, 152, 34, 18);
  points.push_back(kPenUp);
  points.insert(points.end(), {At(0, 95), At(3, 96), At(0, 97), kPenUp});
  points.insert(points.end(), {At(360, 95), At(357, 96), At(360, 97), kPenUp});
  points.insert(points.end(), {At(90, 0), At(270, 0), kPenUp, At(90, 180), At(270, 180), kPenUp});
  points.insert(points.end(), {At(200, 40), At(201, 41)});  // no marker at the end
  return points;
}

}  // namespace

std::vector<Table> CoastTables() {
  std::vector<Point> ie = {kPenUp, kPenUp};
  AddRing(ie, 197, 43, 2, 24);
  ie.push_back(kPenUp);
  AddLine(ie, 195, 45, 200, 40, 10);  // continues in the three neighbours
  ie.push_back(kPenUp);
  std::vector<Point> ic;
  AddRing(ic, 196, 37, 2, 24);
  ic.push_back(kPenUp);
  AddLine(ic, 200, 40, 195, 35, 10);
  std::vector<Point> ke;
  AddLine(ke, 200, 40, 205, 45, 10);
  ke.push_back(kPenUp);
  std::vector<Point> kc;
  AddLine(kc, 200, 40, 205, 35, 10);
  kc.push_back(kPenUp);
  std::vector<Point> ak;
  AddRing(ak, 2, 107, 1.5, 16);
  ak.insert(ak.end(), {kPenUp, At(0, 108), At(1, 109), kPenUp});
  std::vector<Point> qk;
  AddRing(qk, 357, 107, 2.5, 16);
  qk.insert(qk.end(), {kPenUp, At(359, 107.5), At(360, 108), kPenUp});
  return {MapTable("wcl", WorldCoast()),
          MapTable("KEwdb2", ke),
          MapTable("ICwdb2", ic),
          MapTable("IEwdb2", ie),
          MapTable("AKwdb2", ak),
          MapTable("KCwdb2", kc),
          MapTable("CCwdb2", {kPenUp, kPenUp, kPenUp}),
          MapTable("GGwdb2", {}),
          MapTable("QKwdb2", qk)};
}

std::vector<Table> RiverTables() {
  std::vector<Point> ie;
  AddLine(ie, 195, 42, 200, 43, 12);
  ie.push_back(kPenUp);
  std::vector<Point> ke;
  AddLine(ke, 200, 43, 206, 41, 12);
  ke.push_back(kPenUp);
  std::vector<Point> ee;
  AddLine(ee, 82, 42, 84, 58, 12);
  return {MapTable("EEwdb2", ee), MapTable("KEwdb2", ke), MapTable("IEwdb2", ie)};
}

std::vector<Table> BoundaryTables() {
  std::vector<Point> ie = {kPenUp};
  AddLine(ie, 198, 40, 198, 46, 6);
  ie.push_back(kPenUp);
  std::vector<Point> ic;
  AddLine(ic, 198, 35, 198, 40, 6);
  return {MapTable("ICwdb2", ic), MapTable("IEwdb2", ie)};
}

}  // namespace zerbal::test
