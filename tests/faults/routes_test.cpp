// Map data while memory runs out: an error or a complete file.
#include <new>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "faults/failing_allocations.h"
#include "map_command/sample_routes.h"
#include "zerbal-map/memory_database.h"
#include "zerbal-map/routes_geojson.h"
#include "zerbal-map/routes_gpkg.h"
#include "zerbal-map/routes_kml.h"

namespace zerbal::test {
namespace {

using namespace mapcommand;

template <typename Work>
int FailEachOf(const Work& work) {
  return FailEachAllocation([] {},
                            [&] {
                              try {
                                work();
                              } catch (const std::bad_alloc&) {
                                return;
                              }
                            },
                            [] {});
}

TEST(RoutesWithoutMemory, CopiesOfValuesFailWithoutHarm) {
  const std::string text = "longer than a text that a string holds in itself";
  const std::vector<SqlValue> row{text, Blob{text}, text, 1.5};
  EXPECT_GE(FailEachOf([&] { const std::vector<SqlValue> copy = row; }), 4);
  const std::vector<Attribute> attributes{{"a", "TEXT", text}, {"b", "TEXT", text}};
  EXPECT_GE(FailEachOf([&] { const std::vector<Attribute> copy = attributes; }), 3);
}

TEST(RoutesWithoutMemory, AreAnErrorOrComplete) {
  const Routes routes = SampleRoutes();
  for (std::string (*const format)(const Routes&) : {&GeoPackageOf, &GeoJsonOf, &KmlOf}) {
    const std::string expected = format(routes);
    const int allocations = FailEachOf([&] { EXPECT_TRUE(format(routes) == expected); });
    EXPECT_GT(allocations, 50);
  }
}

}  // namespace
}  // namespace zerbal::test
