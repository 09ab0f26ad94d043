// The colours of the sample data can be told apart, also by colour-blind eyes, on thin lines.
#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include <fmt/format.h>
#include <gtest/gtest.h>

#include "pack/pack_fixture.h"
#include "support/colour_difference.h"
#include "zerbal-pack/airline.h"
#include "zerbal-pack/service_palette.h"

namespace zerbal::pack {
namespace {

using zerbal::test::ColourDifference;
using zerbal::test::ContrastRatio;
using zerbal::test::Eyes;
using zerbal::test::Srgb;

/// The least CIEDE2000 difference. For eyes that see two basic colours, a random search found no seventeen
/// colours of sufficient contrast that differ by more than 11.1.
struct Threshold {
  Eyes eyes;
  const char* name;
  double betweenServices;
  double toTheMap;
};
constexpr std::array kThresholds = {Threshold{Eyes::kNormal, "normal", 15.9, 19},
                                    Threshold{Eyes::kProtanopia, "protanopia", 10.6, 14},
                                    Threshold{Eyes::kDeuteranopia, "deuteranopia", 10.6, 12},
                                    Threshold{Eyes::kTritanopia, "tritanopia", 10.6, 15}};
constexpr double kRouteContrast = 3;    ///< to the background; what WCAG 2 asks of graphics
constexpr double kCoastContrast = 2;    ///< to the background, at least
constexpr double kLayerContrast = 1.2;  ///< of a route to a coast, a river or a boundary, which are lighter

constexpr double kNeighbours = 2;  ///< between imported services that follow each other, of betweenServices

struct Named {
  std::string code;
  Srgb colour;
};

std::vector<Named> Colours(const CsvTable& table, std::string_view code, const std::string& prefix) {
  std::vector<Named> colours;
  for (const CsvRow& row : table.rows) {
    const auto part = [&](const char* suffix) {
      return std::get<std::int32_t>(row.values[table.layout->ColumnIndex(prefix + suffix)]);
    };
    colours.push_back(
        {std::string(row.Text(table.layout->ColumnIndex(code))), {part("_R"), part("_G"), part("_B")}});
  }
  return colours;
}

class SampleColours : public testing::Test {
 protected:
  SampleColours()
      : services(
            Colours(ReadSchedule({test::kPackFolder / "services.csv", test::kPackFolder / "destinations.csv",
                                  test::kPackFolder / "flights.csv"},
                                 problems)
                        .services,
                    "FSrv", "FSrv")),
        map(Colours(ReadProgramData(test::kPackFolder, problems).colours, "Col", "Col")) {}

  Srgb Map(std::string_view code) const {
    for (const Named& named : map) {
      if (named.code == code)
        return named.colour;
    }
    ADD_FAILURE() << code;
    return {};
  }

  Problems problems;
  std::vector<Named> services;
  std::vector<Named> map;
};

TEST_F(SampleColours, OfServicesDifferForAllEyes) {
  ASSERT_EQ(services.size(), 17U);
  for (const Threshold& threshold : kThresholds) {
    for (std::size_t i = 0; i < services.size(); ++i) {
      for (std::size_t j = 0; j < i; ++j)
        EXPECT_GE(ColourDifference(threshold.eyes, services[i].colour, services[j].colour),
                  threshold.betweenServices)
            << services[i].code << " and " << services[j].code << ", " << threshold.name;
    }
  }
}

TEST_F(SampleColours, OfServicesDifferFromBackgroundAndCoastsForAllEyes) {
  for (const Threshold& threshold : kThresholds) {
    for (const Named& service : services) {
      for (const char* code : {"MAPBG", "COAST"})
        EXPECT_GE(ColourDifference(threshold.eyes, service.colour, Map(code)), threshold.toTheMap)
            << service.code << " and " << code << ", " << threshold.name;
    }
  }
}

TEST_F(SampleColours, OfServicesContrastWithTheBackground) {
  for (const Named& service : services)
    EXPECT_GE(ContrastRatio(service.colour, Map("MAPBG")), kRouteContrast) << service.code;
}

TEST_F(SampleColours, OfCoastsRiversAndBoundariesAreLighterThanRoutes) {
  EXPECT_GE(ContrastRatio(Map("COAST"), Map("MAPBG")), kCoastContrast);
  for (const char* code : {"COAST", "RIVER", "IBOUND"}) {
    const double layer = ContrastRatio(Map(code), {0, 0, 0});
    for (const Named& service : services)
      EXPECT_GE(layer / ContrastRatio(service.colour, {0, 0, 0}), kLayerContrast)
          << code << " and " << service.code;
  }
}

TEST_F(SampleColours, OfImportedServicesDifferAsThoseOfTheSampleDo) {
  for (const Threshold& threshold : kThresholds) {
    for (std::size_t i = 0; i < kServicePalette.size(); ++i) {
      const ServiceColour& one = kServicePalette[i];
      const Srgb colour = {one.red, one.green, one.blue};
      for (const char* code : {"MAPBG", "COAST"})
        EXPECT_GE(ColourDifference(threshold.eyes, colour, Map(code)), threshold.toTheMap)
            << i << ", " << threshold.name;
      EXPECT_GE(ContrastRatio(colour, Map("MAPBG")), kRouteContrast) << i;
      for (std::size_t j = 0; j < i; ++j) {
        const ServiceColour& other = kServicePalette[j];
        EXPECT_GE(ColourDifference(threshold.eyes, colour, {other.red, other.green, other.blue}),
                  threshold.betweenServices)
            << i << " and " << j << ", " << threshold.name;
      }
    }
  }
}

TEST(ServicePalette, HasTheSameColoursInEveryVersion) {
  std::string colours;
  for (const ServiceColour& colour : kServicePalette)
    colours += fmt::format("{:02x}{:02x}{:02x} ", colour.red, colour.green, colour.blue);
  EXPECT_EQ(
      colours,
      "0078e8 ee5a7e 556900 a05c81 1b3c27 887aaa 4c3e00 334dbe ce3a3b 51496e 05a182 591f44 647f5d 481483 "
      "00695d b98500 9c1040 ");
}

/// Services that follow each other in menus, also where the colours begin again.
TEST_F(SampleColours, OfNeighbouringImportedServicesDifferMuch) {
  for (const Threshold& threshold : kThresholds) {
    for (std::size_t i = 0; i < kServicePalette.size(); ++i) {
      const ServiceColour& one = ColourOfService(i);
      const ServiceColour& next = ColourOfService(i + 1);
      EXPECT_GE(
          ColourDifference(threshold.eyes, {one.red, one.green, one.blue}, {next.red, next.green, next.blue}),
          threshold.betweenServices * kNeighbours)
          << i << ", " << threshold.name;
    }
  }
}

/// Pairs that Sharma, Wu and Dalal (2005) publish with the formula.
TEST(ColourDifference, EqualsPublishedValues) {
  EXPECT_NEAR(ColourDifference({50, 2.6772, -79.7751}, {50, 0, -82.7485}), 2.0425, 1e-4);
  EXPECT_NEAR(ColourDifference({50, -1.3802, -84.2814}, {50, 0, -82.7485}), 1.0, 1e-4);
  EXPECT_NEAR(ColourDifference({50, 2.49, -0.001}, {50, -2.49, 0.0011}), 7.2195, 1e-4);
  EXPECT_NEAR(ColourDifference({50, 2.5, 0}, {61, -5, 29}), 22.8977, 1e-4);
  EXPECT_NEAR(ColourDifference({60.2574, -34.0099, 36.2677}, {60.4626, -34.1751, 39.4387}), 1.2644, 1e-4);
  EXPECT_NEAR(ColourDifference({22.7233, 20.0904, -46.694}, {23.0331, 14.973, -42.5619}), 2.0373, 1e-4);
  EXPECT_NEAR(ColourDifference({2.0776, 0.0795, -1.135}, {0.9033, -0.0636, -0.5514}), 0.9082, 1e-4);
}

}  // namespace
}  // namespace zerbal::pack
