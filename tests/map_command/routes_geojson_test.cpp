#include "zerbal-map/routes_geojson.h"

#include <QJsonDocument>

#include <gtest/gtest.h>

#include "map_command/sample_routes.h"

namespace zerbal::test {
namespace {

constexpr char kExpected[] = R"({"type":"FeatureCollection","features":[
{"type":"Feature","properties":{"kind":"flight","number":"ZB1","key":"K1","service":"OCE","service_name":"3 - Oceans","route":"AKL SUV HNL","legs":2,"length_km":7235.123,"stroke":"#fa8200","stroke-width":2},"geometry":{"type":"MultiLineString","coordinates":[[[174,-37],[178.5,-18],[180,-15.46875]],[[-180,-15.46875],[-157.5,22.5]]]}},
{"type":"Feature","properties":{"kind":"flight","number":"\"2\"","key":"K2","service":"A&B <\"x\">","service_name":"9 - Ä & \\ \u0001","route":"OSL BGO","legs":1,"length_km":325,"stroke":"#00000a","stroke-width":2},"geometry":{"type":"MultiLineString","coordinates":[[[11.1,60.2],[5.25,60.25]]]}},
{"type":"Feature","properties":{"kind":"flight","number":"ZB3","key":"K3","service":"A&B <\"x\">","service_name":"9 - Ä & \\ \u0001","route":"OSL XXX","legs":1,"length_km":null,"stroke":"#00000a","stroke-width":2},"geometry":null},
{"type":"Feature","properties":{"kind":"airport","code":"AKL","name":"Auckland","city":"Auckland","elevation_ft":23,"runways":1,"longest_runway_ft":11926,"ils":true,"destination":true,"marker-color":"#c80000"},"geometry":{"type":"Point","coordinates":[174,-37]}},
{"type":"Feature","properties":{"kind":"airport","code":"QQW","name":"West & \"East\"","city":"","elevation_ft":null,"runways":null,"longest_runway_ft":null,"ils":null,"destination":false,"marker-color":"#0080ff"},"geometry":{"type":"Point","coordinates":[-180,-16.5]}}
]}
)";

TEST(RoutesGeoJson, EveryFlightAndAirportIsAFeature) {
  EXPECT_EQ(mapcommand::GeoJsonOf(SampleRoutes()), kExpected);
}

TEST(RoutesGeoJson, AnotherParserReadsTheTextsBack) {
  const QJsonDocument document =
      QJsonDocument::fromJson(QByteArray::fromStdString(mapcommand::GeoJsonOf(SampleRoutes())));
  const auto second = document["features"][1]["properties"];
  EXPECT_EQ(second["number"].toString(), "\"2\"");
  EXPECT_EQ(second["service_name"].toString(), QString::fromUtf8("9 - Ä & \\ \x01"));
}

TEST(RoutesGeoJson, NoFlightsMakeAnEmptyCollection) {
  EXPECT_EQ(mapcommand::GeoJsonOf({}), "{\"type\":\"FeatureCollection\",\"features\":[\n]}\n");
}

TEST(RoutesGeoJson, InvalidBytesAreReplaced) {
  mapcommand::Routes routes = SampleRoutes();
  routes.airports.front().code = "A\xFF";
  routes.airports.front().name = "\n\x1F";
  EXPECT_NE(mapcommand::GeoJsonOf(routes).find("\"A\xEF\xBF\xBD\",\"name\":\"\\u000a\\u001f\""),
            std::string::npos);
}

TEST(RouteNumbers, HaveNoZerosAtTheEnd) {
  EXPECT_EQ(mapcommand::NumberText(100, 3), "100");
  EXPECT_EQ(mapcommand::NumberText(100, 0), "100");
  EXPECT_EQ(mapcommand::NumberText(-0.0000001, 6), "0");
  EXPECT_EQ(mapcommand::NumberText(-12.3456789, 6), "-12.345679");
  EXPECT_EQ(mapcommand::NumberText(0.5, 3), "0.5");
}

}  // namespace
}  // namespace zerbal::test
