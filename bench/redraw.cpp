// The time of a complete redraw of four scenes on built sample data, compared with three measures of the same
// run: the same operations with one call each of a QPainter with antialiasing ("naive"), such a QPainter
// drawing only the line segments, which are already projected ("lines"), and libmdb reading the same rows
// ("scan"). Then the first scene in larger pictures, and in 100 sizes one after the other.
//
//     bench_redraw DATA [FULL] [--picture DIR] [--seconds N] [--only-redraw SCENE]
//
// DATA and FULL are folders as zerbal-pack build writes them, FULL with full detail for scene F.
// --only-redraw leaves out the comparisons and the other scenes, for a profiler.
#include <QGuiApplication>
#include <QPainter>
#include <algorithm>
#include <cstdio>
#include <ctime>
#include <exception>
#include <filesystem>
#include <functional>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "data/flight.h"
#include "data/map_style.h"
#include "map/draw_map.h"
#include "map/recorder.h"
#include "mdb_scan.h"
#include "paint/picture_surface.h"
#include "support/everything_shown.h"

namespace zerbal::bench {
namespace {

namespace fs = std::filesystem;

constexpr int kWidth = 1280;
constexpr int kHeight = 900;

data::DataFiles FilesOf(const fs::path& folder) {
  const data::FoundFiles found = data::FindDataFiles(folder);
  if (!found.missing.empty() || !found.files.river || !found.files.ibound)
    throw std::runtime_error(folder.string() + " does not hold all six databases");
  return found.files;
}

struct View {
  const char* name;
  const char* what;
  float west, top, east, bottom;
  data::DisplayOptions options;
  bool flights;  ///< of every service
};

/// The data of one folder that a redraw needs.
struct World {
  explicit World(const data::DataFiles& files)
      : databases(data::OpenDatabases(files)),
        style(data::LoadMapStyle(files.zbldata)),
        services(databases.schedule.LoadServices()) {
    viewport.SetSize(kWidth * kTwipsPerPixel, kHeight * kTwipsPerPixel);
  }

  void Show(const View& view) {
    options = view.options;
    for (data::FlightService& service : services)
      service.displayFlag = view.flights;
    viewport.SelectRegion({"", "", view.west, view.top, view.east, view.bottom});
    viewport.ComputeViewport();
  }

  map::MapScene Scene() {
    return {viewport, options, style, services, databases, allAirportCriteria, destinationCriteria, flights};
  }

  data::Databases databases;
  data::MapStyle style;
  data::FlightServiceTable services;
  map::Viewport viewport{data::kGridBands};
  data::DisplayOptions options;
  data::AirportCriteria allAirportCriteria;
  data::AirportCriteria destinationCriteria;
  data::FlightSelection flights;
};

constexpr data::DisplayOptions kMapAndAirports{
    .rivers = true, .boundaries = true, .allAirports = true, .destinations = true};

// The corner of four tiles in northern Norway: fjords, islands, rivers and three borders. The window's shape
// leaves 14 of the 20 degrees of longitude that a view with detail may span.
constexpr View kWorldView{"W", "world, everything shown", 5, 0, 355, 180, test::kEverythingShown, true};
constexpr View kRoughCoast{"R",    "rough coast, four cells", 192.95F, 15.05F, 207.05F,
                           24.95F, kMapAndAirports,           false};
constexpr View kClosest{"Z", "closest zoom", 198.67F, 20.2F, 199.17F, 20.45F, test::kEverythingShown, true};
constexpr View kFullDetail{"F",    "R on full-detail data", 192.95F, 15.05F, 207.05F,
                           24.95F, kMapAndAirports,         false};

// ---- The three measures ----

QColor ToColour(data::Rgb colour) {
  return {colour.red, colour.green, colour.blue};
}

QPoint ToPixel(TwipPoint twips) {
  const PixelPoint pixel = PixelScale(1).ToPixelPoint(twips);
  return {pixel.x, pixel.y};
}

/// Draws each recorded operation with one call, as simple drawing code would.
void DrawNaively(const std::vector<map::Operation>& operations, QImage& picture) {
  QPainter painter(&picture);
  painter.setRenderHint(QPainter::Antialiasing);
  map::TextFont fontName;
  for (const map::Operation& operation : operations) {
    const QColor colour = ToColour(operation.pen.colour);
    const QPoint from = ToPixel(operation.from);
    switch (operation.kind) {
      case map::Operation::Kind::kClear:
        painter.fillRect(picture.rect(), colour);
        break;
      case map::Operation::Kind::kLine:
        painter.setPen(QPen(colour, operation.pen.width));
        painter.drawLine(from, ToPixel(operation.to));
        break;
      case map::Operation::Kind::kRectangle:
        painter.setPen(colour);
        painter.drawRect(QRect(from, ToPixel(operation.to)));
        break;
      case map::Operation::Kind::kCircle: {
        painter.setPen(colour);
        painter.setBrush(operation.fill ? QBrush(colour) : QBrush(Qt::NoBrush));
        const double radius = operation.radius / static_cast<double>(kTwipsPerPixel);
        painter.drawEllipse(QPointF(from.x() + 0.5, from.y() + 0.5), radius, radius);
        break;
      }
      case map::Operation::Kind::kText:
        if (!(operation.font == fontName)) {
          fontName = operation.font;
          painter.setFont(paint::DeviceFont(fontName, PixelScale(1), picture));
        }
        painter.setPen(colour);
        painter.drawText(from + QPoint(0, painter.fontMetrics().ascent()),
                         QString::fromStdString(operation.text));
        break;
    }
  }
}

/// Projected segments of one pen.
struct Strokes {
  map::Pen pen;
  std::vector<QLine> lines;
};

std::vector<Strokes> ProjectedLines(const std::vector<map::Operation>& operations) {
  std::vector<Strokes> result;
  for (const map::Operation& operation : operations) {
    if (operation.kind != map::Operation::Kind::kLine)
      continue;
    if (result.empty() || !(result.back().pen == operation.pen))
      result.push_back({operation.pen, {}});
    result.back().lines.emplace_back(ToPixel(operation.from), ToPixel(operation.to));
  }
  return result;
}

void DrawLines(const std::vector<Strokes>& strokes, QImage& picture) {
  QPainter painter(&picture);
  painter.setRenderHint(QPainter::Antialiasing);
  for (const Strokes& stroke : strokes) {
    painter.setPen(QPen(ToColour(stroke.pen.colour), stroke.pen.width));
    painter.drawLines(stroke.lines.data(), static_cast<int>(stroke.lines.size()));
  }
}

/// The databases of one folder opened with libmdb; reads what a redraw of a view reads.
class Scanner {
 public:
  /// Of rivers and boundaries too.
  explicit Scanner(const data::DataFiles& files)
      : coast_(files.coast),
        river_(files.river.value()),
        ibound_(files.ibound.value()),
        allaprt_(files.allaprt),
        qavdata_(files.qavdata) {}

  std::size_t Scan(const map::Viewport& viewport, const View& view) {
    const data::DisplayOptions& options = view.options;
    const std::vector<std::string> point = {"Lon", "Lat"};
    const std::vector<std::string> airport = {"AP",      "AP_Name",  "AP_City",    "AP_Lon", "AP_Lat",
                                              "AP_Elev", "AP_RwyNr", "AP_RwyMaxL", "AP_ILS"};
    std::size_t rows = 0;
    if (!viewport.DetailMode())
      rows += coast_.Scan("wcl", point);
    for (const std::string& tile : viewport.DetailTiles()) {
      rows += coast_.Scan(tile + "wdb2", point);
      rows += options.rivers ? river_.Scan(tile + "wdb2", point) : 0;
      rows += options.boundaries ? ibound_.Scan(tile + "wdb2", point) : 0;
    }
    rows += options.allAirports ? allaprt_.Scan("allaprt", airport) : 0;
    rows += options.destinations ? qavdata_.Scan("dest", airport) : 0;
    if (!view.flights)
      return rows;
    std::vector<std::string> flight = {"Flit_FSrv", "Flit", "Flit_Dep", "Flit_Arr"};
    for (int stop = 1; stop <= data::kMaxStopovers; ++stop)
      flight.push_back("Flit_Stop" + std::to_string(stop));
    return rows + qavdata_.Scan("flit", flight);
  }

 private:
  MdbScan coast_, river_, ibound_, allaprt_, qavdata_;
};

// ---- Measuring ----

/// Processor time, so that other processes influence the result as little as possible.
double Seconds(const std::function<void()>& work) {
  const auto now = [] {
    timespec time{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
  };
  const double start = now();
  work();
  return now() - start;
}

struct Measure {
  std::function<void()> work;
  std::vector<double> times;

  double Milliseconds() {
    std::nth_element(times.begin(), times.begin() + static_cast<std::ptrdiff_t>(times.size() / 2),
                     times.end());
    return times[times.size() / 2] * 1000;
  }
};

/// Measures in turns, so that other processes affect all measures equally. The results are medians.
void TakeTurns(std::vector<Measure>& measures, double seconds) {
  for (Measure& measure : measures)
    measure.work();  // fills caches, also of glyphs
  double spent = 0;
  for (int round = 0; round < 5 || spent < seconds; ++round) {
    for (Measure& measure : measures) {
      const double time = Seconds(measure.work);
      measure.times.push_back(time);
      spent += time;
    }
  }
}

struct Options {
  fs::path data;
  std::optional<fs::path> full;
  std::optional<fs::path> pictures;
  double seconds = 3;
  QString onlyRedraw;  ///< the scene, empty to measure all
};

void Run(const View& view, const fs::path& folder, const Options& options) {
  const data::DataFiles files = FilesOf(folder);
  World world(files);
  world.Show(view);
  const map::MapScene scene = world.Scene();

  QImage picture(kWidth, kHeight, QImage::Format_RGB32);
  paint::PreparedPictures prepared;
  const auto redraw = [&] {
    paint::PictureSurface surface(picture, 1, prepared);
    map::DrawMap(scene, surface);
  };
  if (!options.onlyRedraw.isEmpty()) {
    std::vector<Measure> measures = {{redraw, {}}};
    TakeTurns(measures, options.seconds);
    const std::vector<double>& times = measures.front().times;
    std::printf("%s: %zu redraws, shortest %.3f ms, median %.3f ms\n", view.name, times.size(),
                *std::min_element(times.begin(), times.end()) * 1000, measures.front().Milliseconds());
    return;
  }

  map::Recorder recorder;
  map::DrawMap(scene, recorder);
  const auto& operations = recorder.Operations();
  const std::vector<Strokes> strokes = ProjectedLines(operations);
  Scanner scanner(files);
  const std::size_t rows = scanner.Scan(world.viewport, view);
  QImage other(kWidth, kHeight, QImage::Format_RGB32);
  std::vector<Measure> measures = {{redraw, {}},
                                   {[&] { DrawNaively(operations, other); }, {}},
                                   {[&] { DrawLines(strokes, other); }, {}},
                                   {[&] { scanner.Scan(world.viewport, view); }, {}}};
  TakeTurns(measures, options.seconds);
  const double ours = measures[0].Milliseconds();
  const double naive = measures[1].Milliseconds();
  const double lines = measures[2].Milliseconds();
  const double scan = measures[3].Milliseconds();
  const double bound = 1.5 * lines + 2e-6 * static_cast<double>(rows);
  std::printf("%-2s %-24s %8zu %8zu %9.3f %9.3f %9.3f %9.3f %8.2f %8.2f %8.1f\n", view.name, view.what, rows,
              operations.size(), ours, naive, lines, scan, ours / naive, ours / bound, scan / ours);
  if (options.pictures) {
    redraw();
    picture.save(QString::fromStdString((*options.pictures / (std::string(view.name) + ".png")).string()));
  }
}

/// Of one window; `ratio` is the number of pixels per logical pixel.
struct Size {
  const char* what;
  int width, height;
  double ratio;
};
constexpr Size kSizes[] = {{"W at 1280 x 900", kWidth, kHeight, 1},
                           {"W at 3840 x 2160", 3840, 2160, 1},
                           {"W at 3840 x 2160, scale 2", 3840, 2160, 2}};

void Redraw(World& world, const Size& size, QImage& picture, paint::PreparedPictures& prepared) {
  world.viewport.SetSize(static_cast<int>(size.width * kTwipsPerPixel / size.ratio),
                         static_cast<int>(size.height * kTwipsPerPixel / size.ratio));
  world.viewport.ComputeViewport();
  if (picture.size() != QSize(size.width, size.height))
    picture = QImage(size.width, size.height, QImage::Format_RGB32);
  paint::PictureSurface surface(picture, size.ratio, prepared);
  map::DrawMap(world.Scene(), surface);
}

/// The longest of 100 redraws, each in another size, as milliseconds. Of each redraw the shortest of several
/// times counts, which leaves out what other processes cause.
double LongestOfResizing(World& world, paint::PreparedPictures& prepared) {
  constexpr int kCount = 100;
  std::vector<double> shortest(kCount, 1e9);
  for (int round = 0; round < 7; ++round) {
    QImage picture;
    for (int i = 0; i < kCount; ++i) {
      const Size size{"", kWidth - 5 * i, kHeight - 4 * i, 1};
      double& time = shortest[static_cast<std::size_t>(i)];
      time = std::min(time, Seconds([&] { Redraw(world, size, picture, prepared); }));
    }
  }
  return *std::max_element(shortest.begin(), shortest.end()) * 1000;
}

void RunSizes(const Options& options) {
  World world(FilesOf(options.data));
  world.Show(kWorldView);
  std::vector<paint::PreparedPictures> prepared(std::size(kSizes));
  std::vector<QImage> pictures(std::size(kSizes));
  std::vector<Measure> measures;
  for (std::size_t i = 0; i < std::size(kSizes); ++i)
    measures.push_back({[&, i] { Redraw(world, kSizes[i], pictures[i], prepared[i]); }, {}});
  TakeTurns(measures, options.seconds);
  const double first = measures.front().Milliseconds();
  std::printf("\n%-30s %9s %8s\n", "", "redraw", "/W");
  for (std::size_t i = 0; i < std::size(kSizes); ++i) {
    const double time = measures[i].Milliseconds();
    std::printf("%-30s %9.3f %8.2f\n", kSizes[i].what, time, time / first);
  }
  const double longest = LongestOfResizing(world, prepared.front());
  std::printf("%-30s %9.3f %8.2f\n", "longest of 100 sizes", longest, longest / first);
}

int Main(const QStringList& arguments) {
  Options options;
  for (int i = 1; i < arguments.size(); ++i) {
    const QString& argument = arguments[i];
    if (argument == "--picture" && i + 1 < arguments.size())
      options.pictures = arguments[++i].toStdString();
    else if (argument == "--seconds" && i + 1 < arguments.size())
      options.seconds = arguments[++i].toDouble();
    else if (argument == "--only-redraw" && i + 1 < arguments.size())
      options.onlyRedraw = arguments[++i];
    else if (options.data.empty())
      options.data = argument.toStdString();
    else
      options.full = argument.toStdString();
  }
  if (options.data.empty()) {
    std::fprintf(stderr,
                 "usage: bench_redraw DATA [FULL] [--picture DIR] [--seconds N] [--only-redraw SCENE]\n");
    return 2;
  }
  std::printf(
      "Median milliseconds of processor time at %d x %d. Goals: W: redraw/naive <= 0.12; R, F: redraw/bound "
      "<= 1, where\n"
      "bound = 1.5 lines + 2 ns per row; R: scan/redraw >= 5; W at 3840 x 2160 <= 2 W; 100 sizes <= 2 W.\n\n",
      kWidth, kHeight);
  std::printf("%-2s %-24s %8s %8s %9s %9s %9s %9s %8s %8s %8s\n", "", "scene", "rows", "ops", "redraw",
              "naive", "lines", "scan", "/naive", "/bound", "scan/");
  const auto run = [&](const View& view, const fs::path& folder) {
    if (options.onlyRedraw.isEmpty() || options.onlyRedraw == view.name)
      Run(view, folder, options);
  };
  for (const View& view : {kWorldView, kRoughCoast, kClosest})
    run(view, options.data);
  if (options.full)
    run(kFullDetail, *options.full);
  if (options.onlyRedraw.isEmpty())
    RunSizes(options);
  return 0;
}

}  // namespace
}  // namespace zerbal::bench

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QGuiApplication application(argc, argv);
  try {
    return zerbal::bench::Main(QGuiApplication::arguments());
  } catch (const std::exception& error) {
    std::fprintf(stderr, "bench_redraw: %s\n", error.what());
    return 1;
  }
}
