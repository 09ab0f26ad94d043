#include "pictures/picture_world.h"

#include <cmath>
#include <numbers>
#include <random>
#include <string>
#include <utility>

#include "support/small_world.h"

namespace zerbal::test {
namespace {

constexpr double kFullTurn = 2 * std::numbers::pi;

/// A closed coast around a place, in degrees of the map frame. Its points are the same with every standard
/// library: only the generator's own numbers are used.
void AddRoughCoast(std::vector<Point>& points, double lon, double lat, double radius, unsigned seed) {
  constexpr int kCorners = 400;
  std::mt19937 random(seed);
  double reach = radius;
  points.push_back(kPenUp);
  const std::size_t first = points.size();
  for (int i = 0; i < kCorners; ++i) {
    const double step = static_cast<double>(random() % 1001) / 500 - 1;
    reach += (radius - reach) * 0.1 + radius * 0.08 * step;
    const double angle = kFullTurn * i / kCorners;
    points.push_back(At(lon + reach * std::cos(angle), lat + reach * 0.7 * std::sin(angle)));
  }
  points.push_back(points[first]);
  points.push_back(kPenUp);
}

void AddCoasts(SmallWorld& world) {
  std::vector<Point> overview;
  AddRoughCoast(overview, 190, 45, 22, 1);
  AddRoughCoast(overview, 80, 60, 30, 2);
  AddRoughCoast(overview, 300, 110, 25, 3);
  AddRoughCoast(overview, 10, 110, 8, 4);
  AddRoughCoast(overview, 352, 100, 7, 5);
  AddRoughCoast(overview, 180, 5, 6, 6);
  AddRoughCoast(overview, 190, 174, 7, 7);
  const auto append = [](Table& table, const std::vector<Point>& points) {
    const Table more = MapTable(table.name, points);
    table.rows.insert(table.rows.end(), more.rows.begin(), more.rows.end());
  };
  append(SmallWorld::MapTableOf(world.coast, "wcl"), overview);
  std::vector<Point> detail;
  AddRoughCoast(detail, 196.5, 42.5, 2, 8);
  AddRoughCoast(detail, 198.6, 41.2, 0.5, 9);
  append(SmallWorld::MapTableOf(world.coast, "IEwdb2"), detail);
}

/// Land within some of the coasts, with a lake, and around the South Pole.
void AddLand(SmallWorld& world) {
  std::vector<Point> land;
  AddRoughCoast(land, 190, 45, 22, 1);
  AddRoughCoast(land, 195, 43, 5, 10);
  AddRoughCoast(land, 80, 60, 30, 2);
  AddRoughCoast(land, 300, 110, 25, 3);
  for (const Point point : {At(0, 172), At(0, 180), At(360, 180), At(360, 172), At(240, 168), At(100, 170)})
    land.push_back(point);
  world.coast.push_back(MapTable("land", land));
}

/// Flights in 16 directions.
void AddFan(SmallWorld& world) {
  constexpr int kDirections = 16;
  world.fsrv.rows.push_back({"FAN", "Fan", "9", 200, 0, 100, 90});
  world.dest.rows.push_back(AirportRow("FAN", "Centre", "Fan", 0.5, 0.25, 0, 1, 5000, "1"));
  for (int i = 0; i < kDirections; ++i) {
    const std::string number = std::to_string(10 + i);
    const double angle = kFullTurn * i / kDirections;
    world.dest.rows.push_back(AirportRow("F" + number, "Rim", "Fan", 0.5 + 8 * std::cos(angle),
                                         0.25 + 6 * std::sin(angle), 0, 1, 5000, "1"));
    world.flit.rows.push_back(FlightRow("FAN", "ZB7" + number, "K20" + number, "FAN", {}, "F" + number));
  }
}

SmallWorld PictureWorld() {
  SmallWorld world;
  for (const char* code : {"HIRES", "LORES"})
    world.fon.CellOf(world.fon.RowWhere("Fon", code), "Fon_Name") = "Liberation Sans";
  for (const auto& [column, value] : {std::pair("Col_R", 0), std::pair("Col_G", 90), std::pair("Col_B", 160)})
    world.col.CellOf(world.col.RowWhere("Col", "ACSYMB"), column) = value;
  AddCoasts(world);
  AddLand(world);
  AddFan(world);
  return world;
}

SmallWorld OlderPictureWorld() {
  SmallWorld world = PictureWorld();
  for (const char* number : {"11", "14", "16", "21", "24"})
    world.flit.RemoveRow("Flit_2015", std::string("K20") + number);
  constexpr int kRim = 16, kDropped = 8;
  for (int i = 0; i < kDropped; ++i) {
    const std::string number = std::to_string(50 + i);
    const double angle = kFullTurn * (2 * i + 0.5) / kRim;
    world.dest.rows.push_back(AirportRow("F" + number, "Rim", "Fan", 0.5 + 7 * std::cos(angle),
                                         0.25 + 5 * std::sin(angle), 0, 1, 5000, "1"));
    world.flit.rows.push_back(FlightRow("FAN", "ZB7" + number, "K20" + number, "FAN", {}, "F" + number));
  }
  return world;
}

}  // namespace

void WritePictureWorlds(const std::filesystem::path& folder) {
  PictureWorld().Write(folder);
  OlderPictureWorld().Write(folder / kOlderFolder);
}

}  // namespace zerbal::test
