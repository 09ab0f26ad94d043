#include "zerbal-map/options.h"

#include <gtest/gtest.h>

#include "zerbal-map/values.h"

namespace zerbal::mapcommand {
namespace {

std::optional<Options> Parse(const QString& words) {
  return ParseOptions(words.split(' ', Qt::SkipEmptyParts));
}

std::string Complaint(const QString& words) {
  try {
    Parse(words);
  } catch (const UsageError& error) {
    return error.what();
  }
  return "(none)";
}

TEST(MapOptions, DefaultsAreTheWorldOn1280By900) {
  const Options options = Parse("--out a.png").value();
  EXPECT_EQ(options.PixelSize(), QSize(1280, 900));
  EXPECT_EQ(options.LogicalSize(), QSizeF(1280, 900));
  EXPECT_FALSE(options.region);
  EXPECT_FALSE(options.bounds);
  EXPECT_EQ(options.display, data::DisplayOptions());
}

TEST(MapOptions, TheSuffixSelectsTheFormat) {
  EXPECT_EQ(Parse("--out a.PNG")->kind, MapFileKind::kPng);
  EXPECT_EQ(Parse("--out a.svg")->kind, MapFileKind::kSvg);
  EXPECT_EQ(Parse("--out a.pdf")->kind, MapFileKind::kPdf);
}

TEST(MapOptions, TheSuffixSelectsMapData) {
  EXPECT_EQ(Parse("--out a.GeoJSON")->routes, RouteFileKind::kGeoJson);
  EXPECT_EQ(Parse("--out a.kml")->routes, RouteFileKind::kKml);
  EXPECT_EQ(Parse("--out a.gpkg")->routes, RouteFileKind::kGeoPackage);
  EXPECT_FALSE(Parse("--out a.svg")->routes);
  EXPECT_EQ(Complaint("--out a.json"),
            "--out: 'a.json' ends in none of .png, .svg, .pdf, .html, .geojson, .kml and .gpkg");
  EXPECT_EQ(Complaint("--out a.geojson --paper A0 --dpi 700"), "(none)") << "it has no pixels";
}

TEST(MapOptions, WithoutOptionsForPrintTheMapIsThatOfTheWindow) {
  EXPECT_FALSE(Parse("--out a.png --services all --paper A3")->ForPrint());
  EXPECT_TRUE(Parse("--out a.png --great-circles")->ForPrint());
}

TEST(MapOptions, AProjectionHasAName) {
  EXPECT_EQ(Parse("--out a.png --projection Robinson")->print.projection, print::ProjectionKind::kRobinson);
  EXPECT_EQ(Complaint("--out a.png --projection globe"),
            "--projection: there is no projection 'globe'; possible are plate-carree, mercator, robinson, "
            "lambert, orthographic");
}

TEST(MapOptions, LandAndWaterHaveColours) {
  const Options options = Parse("--out a.png --land tan --water #b0c4de").value();
  EXPECT_EQ(options.print.land, (data::Rgb{210, 180, 140}));
  EXPECT_EQ(options.print.water, (data::Rgb{176, 196, 222}));
  for (const char* wrong : {"earth", "#12", "#80b0c4de", "transparent", "176,196,222"})
    EXPECT_EQ(Complaint(QString("--out a.png --land ") + wrong),
              std::string("--land: '") + wrong +
                  "' is no colour; possible are #rrggbb and names such as tan or steelblue");
}

TEST(MapOptions, OptionsForPrintAreForDrawings) {
  EXPECT_EQ(Complaint("--out a.kml --great-circles"),
            "--great-circles is for drawings; it has no meaning for .geojson, .kml, .gpkg and .html");
  EXPECT_NE(Complaint("--out a.html --legend"), "(none)");
  EXPECT_EQ(Complaint("--out a.svg --great-circles"), "(none)");
  EXPECT_NE(Complaint("--out a.svg --great-circles=yes"), "(none)");
}

TEST(MapOptions, TheSuffixSelectsAPage) {
  EXPECT_TRUE(Parse("--out a.HTML")->page);
  EXPECT_FALSE(Parse("--out a.svg")->page);
  EXPECT_EQ(Complaint("--out a.html --paper A0 --dpi 700"), "(none)") << "it has no pixels";
}

TEST(MapOptions, DotsPerInchDivideTheDrawingArea) {
  const Options options = Parse("--out a.png --size 2560x1800 --dpi 192").value();
  EXPECT_EQ(options.PixelSize(), QSize(2560, 1800));
  EXPECT_EQ(options.LogicalSize(), QSizeF(1280, 900));
}

TEST(MapOptions, PaperHasLandscapeOrientation) {
  const Options options = Parse("--out a.png --paper a3 --dpi 600").value();
  EXPECT_NEAR(options.PixelSize().width(), 420 / 25.4 * 600, 5);
  EXPECT_NEAR(options.PixelSize().height(), 297 / 25.4 * 600, 5);
}

TEST(MapOptions, HemisphereLettersStandBeforeOrAfterTheNumber) {
  const Options options = Parse("--out a.png --view 10W,n60.5,30e,-20").value();
  EXPECT_EQ(options.bounds->west, -10);
  EXPECT_EQ(options.bounds->north, 60.5);
  EXPECT_EQ(options.bounds->east, 30);
  EXPECT_EQ(options.bounds->south, -20);
}

TEST(MapOptions, ACentreMayLieNearTheDateLine) {
  const Options options = Parse("--out a.png --centre 0,179E --span 10 --size 100x100").value();
  EXPECT_EQ(options.bounds->west, 174);
  EXPECT_EQ(options.bounds->east, -176);
}

TEST(MapOptions, OnlyTheNamedLabelsAndLayersAreOn) {
  const Options options = Parse("--out a.png --labels symbols,LEGS --show rivers").value();
  EXPECT_FALSE(options.display.flightAirports);
  EXPECT_FALSE(options.display.flightNumbers);
  EXPECT_TRUE(options.display.legNumbers);
  EXPECT_TRUE(options.display.aircraftSymbols);
  EXPECT_TRUE(options.display.rivers);
  EXPECT_FALSE(options.display.allAirports);
  EXPECT_FALSE(Parse("--out a.png --labels none")->display.flightNumbers);
}

TEST(MapOptions, LimitsHaveFourForms) {
  const auto limit = [](const char* text) { return ParseLimit(text, "--elevation"); };
  EXPECT_EQ(limit("-100-500"), (data::NumericCriterion{true, data::Limit::kBetween, -100, 500, 0, 0}));
  EXPECT_EQ(limit("3+"), (data::NumericCriterion{true, data::Limit::kAtLeast, 0, 0, 3, 0}));
  EXPECT_EQ(limit("3-"), (data::NumericCriterion{true, data::Limit::kAtMost, 0, 0, 0, 3}));
  EXPECT_EQ(limit("7"), (data::NumericCriterion{true, data::Limit::kBetween, 7, 7, 0, 0}));
}

TEST(MapOptions, EachInvalidValueIsReported) {
  const std::pair<const char*, const char*> cases[] = {
      {"", "--out FILE is missing"},
      {"--out a.gif", "'a.gif' ends in none of .png, .svg, .pdf, .html, .geojson, .kml and .gpkg"},
      {"--out a.png --colour red", "colour"},
      {"--out a.png europe", "'europe' belongs to no option"},
      {"--out a.png --out b.png", "--out is given more than once"},
      {"--out a.png --size 0x10", "'0x10'"},
      {"--out a.png --size 20000x10", "16384"},
      {"--out a.png --size 10", "'10'"},
      {"--out a.png --dpi 5", "'5'"},
      {"--out a.png --dpi nan", "'nan'"},
      {"--out a.png --paper A9", "possible are A0, A1, A2, A3, A4, A5, A6, Letter, Legal"},
      {"--out a.png --paper A0 --dpi 600", "at most 16384"},
      {"--out a.png --paper A4 --size 10x10", "--size and --paper exclude each other"},
      {"--out a.png --view 1,2,3", "WEST,NORTH,EAST,SOUTH"},
      {"--out a.png --view 10N,60,30,50", "'10N'"},
      {"--out a.png --view 10,60,30,70", "north is not above south"},
      {"--out a.png --view 10,60,10,50", "the same"},
      {"--out a.png --view 190,60,10,50", "'190'"},
      {"--out a.png --centre 1,2", "--centre and --span belong together"},
      {"--out a.png --centre 1,2 --span 360", "more than 350"},
      {"--out a.png --centre 1,2 --span 0", "'0' is not a number above 0"},
      {"--out a.png --region A --view 1,2,3,1", "--region and --view exclude each other"},
      {"--out a.png --show coasts",
       "possible are airports, destinations, rivers, boundaries, centre and none"},
      {"--out a.png --labels names", "possible are airports, numbers, legs, symbols and none"},
      {"--out a.png --services all --touching OSL", "--services and --touching exclude each other"},
      {"--out a.png --elevation high", "possible are A-B (between), N+ (at least), N- (at most) and N"},
      {"--out a.png --runways 5-3", "the from-value is larger than the to-value"},
      {"--out a.png --longest 99999999999+", "32 bits"},
      {"--out a.png --ils maybe", "neither yes nor no"},
  };
  for (const auto& [words, reason] : cases)
    EXPECT_NE(Complaint(words).find(reason), std::string::npos) << words << ": " << Complaint(words);
}

}  // namespace
}  // namespace zerbal::mapcommand
