// Fuzz target: complete redraws of unusual worlds. The input becomes a view and the rows of intact databases,
// with values that no real schedule has: limits of their types, NaN and infinity, labels of 64 KB, loops of
// stopovers, tables with one row or none. The map is drawn on a recorder and on pictures. Drawing throws no
// error, and two redraws are equal.
#include <QGuiApplication>
#include <QImage>
#include <algorithm>
#include <bit>
#include <cstdint>
#include <limits>
#include <span>
#include <string>
#include <vector>

#include "data/flight.h"
#include "map/map_world.h"
#include "map/tee_surface.h"
#include "paint/picture_surface.h"
#include "require.h"
#include "support/offscreen.h"

namespace {

using namespace zerbal;
using fuzz::Require;

constexpr int kLargestSide = 300;  // logical pixels of a picture; limits the time of a redraw

/// Takes values from the input; after its end all bytes are zero.
class Bytes {
 public:
  explicit Bytes(std::span<const std::uint8_t> bytes) : bytes_(bytes) {}

  std::uint32_t Number(int size) {
    std::uint32_t number = 0;
    for (int i = 0; i < size; ++i) {
      number = number << 8 | (bytes_.empty() ? 0U : bytes_.front());
      bytes_ = bytes_.empty() ? bytes_ : bytes_.subspan(1);
    }
    return number;
  }
  int Below(int count) { return static_cast<int>(Number(1)) % count; }
  bool Flag() { return Number(1) % 2 != 0; }

  /// Half of the time 0 to `range`, otherwise a limit or any bits.
  float Single(float range) {
    using Limits = std::numeric_limits<float>;
    constexpr float kOdd[] = {0,
                              -0.0F,
                              360,
                              180,
                              -1,
                              -1e-30F,
                              Limits::min(),
                              1e9F,
                              -1e9F,
                              3e38F,
                              -3e38F,
                              Limits::infinity(),
                              -Limits::infinity(),
                              Limits::quiet_NaN(),
                              Limits::denorm_min()};
    const int kind = Below(4);
    if (kind == 0)
      return kOdd[Below(static_cast<int>(std::size(kOdd)))];
    if (kind == 1)
      return std::bit_cast<float>(Number(4));
    return static_cast<float>(Number(2)) / 65535 * range;
  }
  std::int32_t Stored(float range) {
    using Limits = std::numeric_limits<std::int32_t>;
    constexpr std::int32_t kOdd[] = {0,          -1,          -999'999,      -1'000'000,
                                     -1'000'001, 360'000'000, Limits::min(), Limits::max()};
    const int kind = Below(4);
    if (kind == 0)
      return kOdd[Below(static_cast<int>(std::size(kOdd)))];
    if (kind == 1)
      return static_cast<std::int32_t>(Number(4));
    return static_cast<std::int32_t>(static_cast<double>(Number(2)) / 65535 * range * 1e6);
  }
  std::string Label() {
    // Zero, which is also read after the end of the input, gives no long label: writing a world of long
    // labels takes seconds.
    const int kind = Below(64);
    if (kind == 1)
      return std::string(65'535, 'm');
    if (kind == 2)
      return "\xC3\xA6\xE4\xB8\xAD\xF0\x9F\x9B\xAB";  // two, three and four bytes per character
    std::string text;
    for (int length = Below(12); length > 0; --length)
      text += static_cast<char>(1 + Below(126));
    return text;
  }
  /// One of 12 codes, so that routes find their airports.
  std::string Code() { return std::string(1, static_cast<char>('A' + Below(12))); }

 private:
  std::span<const std::uint8_t> bytes_;
};

void ChooseView(Bytes& bytes, map::MapWorld& world) {
  map::Viewport& viewport = world.viewport;
  viewport.SetSize(bytes.Number(2), bytes.Number(2));
  const bool anySpan = bytes.Flag();
  const auto end = [&](double begin, double span, float whole) {
    return !anySpan && bytes.Flag() ? begin + span : bytes.Single(whole);
  };
  data::Region region;
  region.fromLon = bytes.Single(360);
  region.fromLat = bytes.Single(180);
  region.toLon = end(region.fromLon, 5, 360);
  region.toLat = end(region.fromLat, 3, 180);
  viewport.SelectRegion(region);
  viewport.ComputeViewport();
  for (int steps = bytes.Below(4); steps > 0; --steps) {
    const int kind = bytes.Below(5);
    if (kind == 0)
      viewport.ZoomIn(bytes.Single(100));
    else if (kind == 1)
      viewport.ZoomOut(bytes.Single(100));
    else if (kind == 2)
      viewport.CentreOn({bytes.Single(20000), bytes.Single(20000)});
    else if (kind == 3)
      viewport.ZoomToBox({bytes.Single(20000), bytes.Single(20000)},
                         {bytes.Single(20000), bytes.Single(20000)});
    else
      viewport.ZoomReset();
    viewport.ComputeViewport();
  }
  Require(viewport.DetailTiles().size() <= 4, "more than four tiles");
  static_cast<void>(viewport.ExtentText());
}

void ChooseOptions(Bytes& bytes, map::MapWorld& world) {
  data::DisplayOptions& options = world.options;
  for (bool* option : {&options.centreOfMap, &options.rivers, &options.boundaries, &options.allAirports,
                       &options.destinations, &options.flightAirports, &options.flightNumbers,
                       &options.legNumbers, &options.aircraftSymbols})
    *option = bytes.Below(4) != 0;
  world.flights.serviceMode = bytes.Flag();
  for (data::Font& font : world.style.fonts.rows)
    font.size = 6 + bytes.Below(9);
  for (data::NumericCriterion& criterion : world.allAirportCriteria.numeric) {
    criterion.active = bytes.Below(8) == 0;
    criterion.limit = static_cast<data::Limit>(bytes.Below(3));
    criterion.to = bytes.Stored(1);
  }
}

/// Returns a placeholder for `value`, which MapWorld replaces in the finished files, as the writer refuses
/// NaN.
float Placeholder(map::MapWorld& world, float value) {
  const auto number = static_cast<float>(world.storedSingles.size());
  const float placeholder = 1234.0625F + number / 8;
  world.storedSingles.emplace_back(placeholder, value);
  return placeholder;
}

void FillAirports(Bytes& bytes, map::MapWorld& world) {
  world.airportColumns = {test::Memo("AP_Name"), test::Memo("AP_City")};
  for (std::vector<map::AirportRow>* rows : {&world.dest, &world.allaprt}) {
    for (int count = bytes.Below(14); count > 0; --count) {
      map::AirportRow row = map::Airport(bytes.Code(), Placeholder(world, bytes.Single(360)),
                                         Placeholder(world, bytes.Single(180)));
      row.name = bytes.Label();
      row.city = bytes.Label();
      row.elevation = bytes.Stored(1);
      if (bytes.Below(8) == 0)
        row.runways = test::Null();
      rows->push_back(std::move(row));
    }
  }
}

void FillFlights(Bytes& bytes, map::MapWorld& world) {
  world.AddService("S", {1, 2, 3});
  world.AddService("T", {250, 250, 250}, bytes.Flag());
  for (int count = bytes.Below(20); count > 0; --count) {
    std::vector<std::string> route = {bytes.Code(), bytes.Code()};
    for (int stops = bytes.Below(data::kMaxStopovers + 1); stops > 0; --stops)
      route.push_back(bytes.Code());
    const std::string key = std::to_string(bytes.Below(9));
    world.flit.push_back(map::Flight(key, bytes.Flag() ? "S" : "T", std::move(route)));
    world.flights.selectedFlights.push_back(bytes.Below(4) == 0 ? "none" : key);
  }
}

map::Rows Lines(Bytes& bytes) {
  map::Rows rows;
  for (int count = bytes.Below(60); count > 0; --count)
    rows.push_back({bytes.Stored(360), bytes.Stored(180)});
  return rows;
}

void FillMaps(Bytes& bytes, map::MapWorld& world) {
  world.coast["wcl"] = Lines(bytes);
  world.river.emplace();
  world.ibound.emplace();
  for (const std::string& tile : world.viewport.DetailTiles()) {
    world.coast[tile + "wdb2"] = Lines(bytes);
    (*world.river)[tile + "wdb2"] = Lines(bytes);
    (*world.ibound)[tile + "wdb2"] = Lines(bytes);
  }
}

void DrawAt(double ratio, map::MapWorld& world, map::Surface& second) {
  const PixelScale scale(ratio);
  const auto side = [&scale](std::int32_t twips) {
    const int logical = std::clamp(twips / kTwipsPerPixel, 1, kLargestSide);
    return static_cast<int>(scale.Length(logical * double{kTwipsPerPixel})) + 1;
  };
  QImage picture(side(world.viewport.MapWidth()), side(world.viewport.MapHeight()), QImage::Format_RGB32);
  paint::PreparedPictures prepared;
  paint::PictureSurface surface(picture, ratio, prepared);
  map::TeeSurface both(surface, second);
  world.DrawOn(both);
}

/// Fonts need an application.
void CreateApplication() {
  static int count = 1;
  static char name[] = "fuzz";
  static char* words[] = {name, nullptr};
  test::UseOffscreenPlatform();
  static const QGuiApplication application(count, words);
  static_cast<void>(application);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  CreateApplication();
  Bytes bytes({data, size});
  constexpr double kRatios[] = {1, 1.25, 2, 3, 0.125, 8};
  const double ratio = kRatios[bytes.Below(static_cast<int>(std::size(kRatios)))];
  map::MapWorld world;
  ChooseView(bytes, world);
  ChooseOptions(bytes, world);
  FillAirports(bytes, world);
  FillFlights(bytes, world);
  FillMaps(bytes, world);
  map::Recorder recorder;
  world.DrawOn(recorder);
  Require(recorder.Operations().empty() != world.viewport.HasArea(),
          "a view draws if and only if it has an area");
  map::Recorder second;
  DrawAt(ratio, world, second);
  Require(second.Operations() == recorder.Operations(), "two redraws differ");
  return 0;
}
