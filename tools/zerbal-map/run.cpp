#include "zerbal-map/run.h"

#include <ostream>

#include "zerbal-map/map_job.h"
#include "zerbal-map/output.h"
#include "zerbal-map/page_output.h"
#include "zerbal-map/routes_output.h"

namespace zerbal::mapcommand {
namespace {

constexpr int kDone = 0;
constexpr int kBadData = 1;
constexpr int kBadUsage = 2;

constexpr char kHelpText[] = R"(Usage: zerbal-map [options] --out FILE.png|.svg|.pdf|.html|.geojson|.kml|.gpkg

Draws the map of an airline's flights as a picture, a drawing, a page of paper or a page for browsers, or
writes its flights and airports as map data (GeoJSON, KML, GeoPackage).

Data
  --data DIR          folder with app_data and app_map, the working directory when not given
  --settings FILE     a settings file (zerbal.ini) for colours, fonts and the centre of the world; only read

View (the world when not given)
  --region NAME       a region by name or code, or World
  --view W,N,E,S      bounds in degrees; hemisphere letters are possible (10W,60N,30E,35N)
  --centre LAT,LON --span DEG
                      as many degrees of longitude around a place

Size (of map data and pages for browsers: only the shape of the view)
  --size WxH          pixels, 1280x900 when not given, at most 16384 a side
  --paper NAME        A0 to A6, Letter, Legal or Tabloid, wider than high
  --dpi N             dots per inch, 96 when not given: line widths and labels grow with it

What is drawn (lists are separated by commas; none is possible too)
  --show LIST         of airports, destinations, rivers, boundaries, centre
  --services LIST     all, or names or keys of flight services
  --flights LIST      keys of flights
  --touching CODE     all flights that touch a destination
  --compare OLD       an older schedule, as a database or a data folder: flights that it alone has are dashed and
                      grey, flights that it lacks wide; of all services when no flights are chosen (drawings only)
  --labels LIST       of airports, numbers, legs, symbols; airports,numbers when not given
  --elevation LIMIT   feet: A-B between, N+ at least, N- at most, N exactly
  --runways LIMIT     number of runways
  --longest LIMIT     feet of the longest runway
  --ils yes|no        only airports with, or without, an instrument landing system

Maps for print (PNG, SVG, PDF)
  --great-circles     legs as the shortest ways over the earth
  --projection NAME   plate-carree, mercator, robinson, lambert or orthographic
  --land COLOR, --water COLOR
                      fills land and water: #rrggbb or a name such as tan
  --labels-placed     labels that do not overlap; flights of one leg share a label
  --width-by flights  wider legs where more flights are
  --color-by WHAT     service, or frequency: legs by their number of flights
  --title TEXT        a title
  --legend, --scale-bar, --north
                      in the emptiest corner, or =top-left, =top-right, =bottom-left, =bottom-right
  --graticule DEG     meridians and parallels, 0.1 to 90 degrees apart
  --style STYLE       dark, print, or a file of colours, widths and fonts

  --help              prints this
  --version           prints the version

Exit status: 0 done, 1 something is wrong with the data or a file, 2 the command makes no sense.
)";

}  // namespace

int Run(const QStringList& words, std::ostream& output, std::ostream& errors, bool errorsAreTerminal) {
  try {
    const auto options = ParseOptions(words);
    if (!options) {
      if (words.contains("--version"))
        output << "zerbal-map " << ZERBAL_VERSION << '\n';
      else
        output << kHelpText;
      return kDone;
    }
    ProgressLine progress(errors, errorsAreTerminal);
    MapJob job(*options);
    if (options->routes)
      WriteRoutes(job, *options);
    else if (options->page)
      WritePage(job, *options);
    else
      WriteMap(job, *options, progress);
    return kDone;
  } catch (const base::UsageError& error) {
    errors << "zerbal-map: " << error.what() << "\nTry 'zerbal-map --help'." << std::endl;
    return kBadUsage;
  } catch (const std::exception& error) {
    errors << "zerbal-map: " << error.what() << std::endl;
    return kBadData;
  }
}

}  // namespace zerbal::mapcommand
