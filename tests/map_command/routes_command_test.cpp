// Routes of a small world as files of map data, and what other programs read in them.
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QStandardPaths>
#include <sstream>

#include <gtest/gtest.h>

#include "command_fixture.h"

namespace zerbal::test {
namespace {

namespace fs = std::filesystem;

class RoutesCommandTest : public CommandFixture {
 protected:
  std::string Bytes(const QStringList& words, const char* name) {
    EXPECT_EQ(Run(QStringList(words) << "--out" << File(name)), 0) << errors.str();
    return ReadBytes(folder / name);
  }
  QJsonArray Features(const QStringList& words) {
    const std::string bytes = Bytes(words, "routes.geojson");
    return QJsonDocument::fromJson(QByteArray::fromStdString(bytes))["features"].toArray();
  }
  /// The values of one property, blanks between them.
  std::string Values(const QStringList& words, const char* property) {
    QStringList values;
    for (const auto& feature : Features(words)) {
      const QJsonObject properties = feature.toObject()["properties"].toObject();
      if (properties.contains(property))
        values.append(properties[property].toVariant().toString());
    }
    return values.join(' ').toStdString();
  }
};

/// What a program prints; nullopt when it is not installed.
std::optional<std::string> OutputOf(const char* program, const QStringList& words) {
  if (QStandardPaths::findExecutable(program).isEmpty())
    return std::nullopt;
  QProcess process;
  process.setProcessChannelMode(QProcess::MergedChannels);
  process.start(program, words);
  EXPECT_TRUE(process.waitForFinished(60'000)) << program;
  const std::string text = process.readAll().toStdString();
  EXPECT_EQ(process.exitCode(), 0) << program << ": " << text;
  return text;
}

int Occurrences(const std::string& text, const std::string& part) {
  int count = 0;
  for (auto at = text.find(part); at != std::string::npos; at = text.find(part, at + 1))
    ++count;
  return count;
}

TEST_F(RoutesCommandTest, AFlightHasItsPropertiesAndItsLine) {
  const QJsonArray features = Features({"--flights", "K1007", "--labels", "none"});
  ASSERT_EQ(features.size(), 1);
  const QJsonObject properties = features[0].toObject()["properties"].toObject();
  EXPECT_EQ(QJsonDocument(properties).toJson(QJsonDocument::Compact).toStdString(),
            "{\"key\":\"K1007\",\"kind\":\"flight\",\"legs\":2,\"length_km\":5057.281,\"number\":\"ZB307\","
            "\"route\":\"SUV ZZE HNL\",\"service\":\"OCE\",\"service_name\":\"3 - Oceans\",\"stroke\":"
            "\"#fa8200\",\"stroke-width\":2}");
  // ZZE is at 180 degrees east.
  EXPECT_NE(ReadBytes(folder / "routes.geojson")
                .find("[[[178.559998,-18.040001],[180,-16.5]],[[-180,-16.5],[-157.919998,21.32]]]"),
            std::string::npos);
}

TEST_F(RoutesCommandTest, TheSelectionIsThatOfPictures) {
  EXPECT_EQ(Values({}, "key"), "");
  EXPECT_EQ(Values({"--flights", "K1040,K1015,K1040"}, "key"), "K1040 K1015");
  EXPECT_EQ(Values({"--touching", "kkn", "--labels", "none"}, "number"),
            "ZB108 ZB109 ZB110 ZB111 ZB112 ZB113 ZB115");
  EXPECT_EQ(Values({"--services", "Nordic Extra"}, "key"), "K1027 K1029 K1034 K1011 K1003 K1039 K1018");
  EXPECT_EQ(Run({"--services", "Rail", "--out", File("routes.geojson")}), 2);
}

TEST_F(RoutesCommandTest, AllServicesGiveEveryFlightOnce) {
  // Flights of two services that differ in letter case only hide one another; those without a service in the
  // table are not shown.
  std::erase_if(world.flit.rows, [](const Row& row) { return row[0] == Cell("oce"); });
  world.Write(folder.Path());
  const int flights = static_cast<int>(world.flit.rows.size()) - 3;
  const std::string bytes = Bytes({"--services", "all", "--labels", "none"}, "routes.geojson");
  EXPECT_EQ(Occurrences(bytes, "\"kind\":\"flight\""), flights);
  // ARN, LAX, osl and an empty code are no destinations.
  EXPECT_EQ(Occurrences(bytes, "\"geometry\":null"), 5);
  EXPECT_EQ(Bytes({"--services", "all", "--labels", "none", "--region", "world"}, "again.geojson"), bytes);
}

TEST_F(RoutesCommandTest, AViewTakesFlightsAndAirportsInView) {
  const QStringList view{"--view", "29E,71N,31E,69N"};
  EXPECT_EQ(Values(view + QStringList{"--services", "oce"}, "key"), "");
  EXPECT_EQ(Values(view + QStringList{"--flights", "K1040,K1031,K1025"}, "route"), "OSL BGO TOS KKN LYR");
  EXPECT_EQ(Values(view + QStringList{"--show", "airports"}, "code"), "KKN");
}

TEST_F(RoutesCommandTest, AirportsAreThoseOfFlightsAndOfTheLayers) {
  EXPECT_EQ(Values({"--flights", "K1015,K1040"}, "code"), "BGO CPH OSL TRF");
  EXPECT_EQ(Values({"--flights", "K1015", "--labels", "none"}, "code"), "");
  EXPECT_EQ(Values({"--show", "destinations", "--elevation", "500+"}, "code"), "GOT Lyr OSL");
  EXPECT_EQ(Values({"--show", "airports,destinations", "--longest", "12500+"}, "code"), "LAX LHR NRT SYD");
  EXPECT_EQ(Values({"--show", "airports", "--longest", "12500+"}, "destination"), "false true true true");
}

TEST_F(RoutesCommandTest, AFlightWithoutServiceIsBlack) {
  EXPECT_EQ(Values({"--flights", "K1005", "--labels", "none"}, "stroke"), "#000000");
  EXPECT_EQ(Values({"--flights", "K1005", "--labels", "none"}, "service_name"), "GHO");
}

TEST_F(RoutesCommandTest, ColoursAreThoseOfTheSettings) {
  WriteBytes(folder / "zerbal.ini", "[FlightColors]\r\nOCE=1,2,3\r\n");
  EXPECT_EQ(Values({"--flights", "K1007", "--settings", File("zerbal.ini")}, "stroke"), "#010203");
}

TEST_F(RoutesCommandTest, FilesThatCannotBeWrittenEndWith1) {
  EXPECT_EQ(Run({"--out", File("no such folder/routes.geojson")}), 1);
  EXPECT_NE(errors.str().find("routes.geojson': cannot create the file: No such file or directory"),
            std::string::npos)
      << errors.str();
}

TEST_F(RoutesCommandTest, OgrinfoReadsGeoJson) {
  Bytes({"--services", "all", "--show", "destinations"}, "routes.geojson");
  const auto text = OutputOf("ogrinfo", {"-al", "-so", File("routes.geojson")});
  if (!text)
    GTEST_SKIP() << "ogrinfo is not installed";
  EXPECT_NE(text->find("Feature Count: 54"), std::string::npos) << *text;
  EXPECT_NE(text->find("WGS 84"), std::string::npos) << *text;
}

TEST_F(RoutesCommandTest, OgrinfoReadsKml) {
  Bytes({"--services", "all", "--show", "destinations"}, "routes.kml");
  const auto text = OutputOf("ogrinfo", {"-al", "-so", File("routes.kml")});
  if (!text)
    GTEST_SKIP() << "ogrinfo is not installed";
  EXPECT_NE(text->find("Layer name: 1 - Nordic\nGeometry"), std::string::npos) << *text;
  EXPECT_NE(text->find("Layer name: Airports\n"), std::string::npos) << *text;
  EXPECT_NE(text->find("Feature Count: 23\n"), std::string::npos) << *text;
}

TEST_F(RoutesCommandTest, XmllintFindsKmlWellFormed) {
  Bytes({"--services", "all", "--show", "airports,destinations"}, "routes.kml");
  const auto text = OutputOf("xmllint", {"--noout", File("routes.kml")});
  if (!text)
    GTEST_SKIP() << "xmllint is not installed";
  EXPECT_EQ(*text, "");
}

TEST_F(RoutesCommandTest, OgrinfoReadsAGeoPackage) {
  const std::string bytes = Bytes({"--services", "all", "--show", "destinations"}, "routes.gpkg");
  EXPECT_TRUE(Bytes({"--services", "all", "--show", "destinations"}, "again.gpkg") == bytes);
  const auto text = OutputOf("ogrinfo", {"-al", "-so", File("routes.gpkg")});
  if (!text)
    GTEST_SKIP() << "ogrinfo is not installed";
  EXPECT_NE(text->find("Layer name: flights\nGeometry: Multi Line String\nFeature Count: 32\n"),
            std::string::npos)
      << *text;
  EXPECT_NE(text->find("Layer name: airports\nGeometry: Point\nFeature Count: 22\n"), std::string::npos)
      << *text;
}

TEST_F(RoutesCommandTest, TheValidatorOfGeoPackagesFindsNothing) {
  Bytes({"--services", "all", "--show", "airports"}, "routes.gpkg");
  // It belongs to the package of ogrinfo.
  if (QStandardPaths::findExecutable("ogrinfo").isEmpty())
    GTEST_SKIP() << "ogrinfo is not installed";
  EXPECT_EQ(
      OutputOf("/usr/bin/python3", {"-m", "osgeo_utils.samples.validate_gpkg", "-k", File("routes.gpkg")}),
      "");
}

}  // namespace
}  // namespace zerbal::test
