// The command line of zerbal-map, checked as far as possible without data.
#pragma once

#include <QSize>
#include <QSizeF>
#include <QStringList>
#include <optional>
#include <string>
#include <vector>

#include "base/error.h"
#include "data/airport_criteria.h"
#include "data/display_options.h"
#include "paint/map_file.h"
#include "print/print_map.h"

namespace zerbal::mapcommand {

/// what() names the wrong value and what is possible.
class UsageError : public base::UsageError {
 public:
  explicit UsageError(const QString& reason) : base::UsageError(reason.toStdString()) {}
};

/// Bounds in geographic degrees, east and north positive; west may be greater than east.
struct GeoBounds {
  double west = 0;
  double north = 0;
  double east = 0;
  double south = 0;
};

using paint::kScreenDpi;
using paint::MapFileKind;

/// Files of routes instead of a drawing.
enum class RouteFileKind { kGeoJson, kKml, kGeoPackage };

struct Options {
  std::string dataFolder = ".";
  std::optional<std::string> settingsFile;
  std::string outputFile;
  MapFileKind kind = MapFileKind::kPng;
  std::optional<RouteFileKind> routes;  ///< counts instead of `kind`
  bool page = false;                    ///< a page for browsers; counts instead of `kind`

  std::optional<std::string> region;  ///< code or name; neither this nor bounds: the world
  std::optional<GeoBounds> bounds;

  QSize pixels{1280, 900};            ///< of a picture
  std::optional<QSizeF> paperInches;  ///< of a page, or of a picture printed at `dpi`
  double dpi = kScreenDpi;

  data::DisplayOptions display;
  std::vector<std::string> services;  ///< keys or names; "all" for every one
  std::vector<std::string> flights;   ///< Flit_2015 keys
  std::optional<std::string> touching;
  data::AirportCriteria criteria;      ///< of both airport layers
  std::optional<std::string> compare;  ///< an older schedule

  print::PrintOptions print;  ///< with any of them the map is one for print

  bool ForPrint() const { return print != print::PrintOptions(); }

  /// The drawing area in logical pixels of 1/96 inch.
  QSizeF LogicalSize() const;
  /// No view is given, or the world.
  bool ShowsWorld() const;
  /// The picture's size in device pixels.
  QSize PixelSize() const;
};

/// Largest picture and finest resolution.
inline constexpr int kLargestSide = 16384;
inline constexpr double kFinestDpi = 768;

/// `words` without the program's name. Throws UsageError. nullopt when only help was asked for.
std::optional<Options> ParseOptions(const QStringList& words);

}  // namespace zerbal::mapcommand
