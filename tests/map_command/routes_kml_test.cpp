#include "zerbal-map/routes_kml.h"

#include <QXmlStreamReader>

#include <gtest/gtest.h>

#include "map_command/sample_routes.h"

namespace zerbal::test {
namespace {

constexpr char kExpectedKml[] = R"(<?xml version="1.0" encoding="UTF-8"?>
<kml xmlns="http://www.opengis.net/kml/2.2">
<Document>
<name>Flights</name>
<Style id="service-OCE"><LineStyle><color>ff0082fa</color><width>2</width></LineStyle></Style>
<Style id="service-A.26B.20.3c.22x.22.3e"><LineStyle><color>ff0a0000</color><width>2</width></LineStyle></Style>
<Style id="destination"><IconStyle><color>ff0000c8</color><scale>0.5</scale></IconStyle><LabelStyle><scale>0.7</scale></LabelStyle></Style>
<Style id="airport"><IconStyle><color>ffff8000</color><scale>0.5</scale></IconStyle><LabelStyle><scale>0.7</scale></LabelStyle></Style>
<Folder>
<name>3 - Oceans</name>
<Placemark><name>ZB1</name><styleUrl>#service-OCE</styleUrl><ExtendedData><Data name="number"><value>ZB1</value></Data><Data name="key"><value>K1</value></Data><Data name="service"><value>OCE</value></Data><Data name="service_name"><value>3 - Oceans</value></Data><Data name="route"><value>AKL SUV HNL</value></Data><Data name="legs"><value>2</value></Data><Data name="length_km"><value>7235.123</value></Data></ExtendedData><MultiGeometry><LineString><tessellate>1</tessellate><coordinates>174,-37 178.5,-18 180,-15.591587</coordinates></LineString><LineString><tessellate>1</tessellate><coordinates>-180,-15.591587 -157.5,22.5</coordinates></LineString></MultiGeometry></Placemark>
</Folder>
<Folder>
<name>9 - Ä &amp; \ </name>
<Placemark><name>&quot;2&quot;</name><styleUrl>#service-A.26B.20.3c.22x.22.3e</styleUrl><ExtendedData><Data name="number"><value>&quot;2&quot;</value></Data><Data name="key"><value>K2</value></Data><Data name="service"><value>A&amp;B &lt;&quot;x&quot;&gt;</value></Data><Data name="service_name"><value>9 - Ä &amp; \ </value></Data><Data name="route"><value>OSL BGO</value></Data><Data name="legs"><value>1</value></Data><Data name="length_km"><value>325</value></Data></ExtendedData><LineString><tessellate>1</tessellate><coordinates>11.1,60.2 5.25,60.25</coordinates></LineString></Placemark>
<Placemark><name>ZB3</name><styleUrl>#service-A.26B.20.3c.22x.22.3e</styleUrl><ExtendedData><Data name="number"><value>ZB3</value></Data><Data name="key"><value>K3</value></Data><Data name="service"><value>A&amp;B &lt;&quot;x&quot;&gt;</value></Data><Data name="service_name"><value>9 - Ä &amp; \ </value></Data><Data name="route"><value>OSL XXX</value></Data><Data name="legs"><value>1</value></Data></ExtendedData></Placemark>
</Folder>
<Folder>
<name>Airports</name>
<Placemark><name>AKL</name><styleUrl>#destination</styleUrl><ExtendedData><Data name="code"><value>AKL</value></Data><Data name="name"><value>Auckland</value></Data><Data name="city"><value>Auckland</value></Data><Data name="elevation_ft"><value>23</value></Data><Data name="runways"><value>1</value></Data><Data name="longest_runway_ft"><value>11926</value></Data><Data name="ils"><value>true</value></Data><Data name="destination"><value>true</value></Data></ExtendedData><Point><coordinates>174,-37</coordinates></Point></Placemark>
<Placemark><name>QQW</name><styleUrl>#airport</styleUrl><ExtendedData><Data name="code"><value>QQW</value></Data><Data name="name"><value>West &amp; &quot;East&quot;</value></Data><Data name="city"><value></value></Data><Data name="destination"><value>false</value></Data></ExtendedData><Point><coordinates>-180,-16.5</coordinates></Point></Placemark>
</Folder>
</Document>
</kml>
)";

TEST(RoutesKml, EveryServiceHasAStyleAndAFolder) {
  EXPECT_EQ(mapcommand::KmlOf(SampleRoutes()), kExpectedKml);
}

TEST(RoutesKml, NoFlightsMakeADocumentWithoutFolders) {
  const std::string text = mapcommand::KmlOf({});
  EXPECT_EQ(text.find("<Folder>"), std::string::npos);
  EXPECT_NE(text.find("</Document>"), std::string::npos);
}

TEST(RoutesKml, WhatXmlCannotContainIsLeftOut) {
  mapcommand::Routes routes = SampleRoutes();
  routes.flights[0].number = "a\x01\x1F\xFF\xEF\xBF\xBE\t\r\nb]]>";
  QXmlStreamReader xml(QByteArray::fromStdString(mapcommand::KmlOf(routes)));
  QStringList names;
  while (!xml.atEnd()) {
    if (xml.readNext() == QXmlStreamReader::StartElement && xml.name() == QLatin1String("name"))
      names.append(xml.readElementText());
  }
  EXPECT_FALSE(xml.hasError()) << xml.errorString().toStdString();
  EXPECT_TRUE(names.contains(QString::fromUtf8("a\xEF\xBF\xBD\t\r\nb]]>"))) << names.join('|').toStdString();
}

TEST(RoutesKml, KeysThatDifferHaveStylesThatDiffer) {
  mapcommand::Routes routes;
  for (const char* key : {"", "A", "a", "A ", "A.20", "Å"})
    routes.services.push_back({key, key, {}});
  const std::string text = mapcommand::KmlOf(routes);
  for (const char* id :
       {"service-", "service-A", "service-a", "service-A.20", "service-A.2e20", "service-.c3.85"})
    EXPECT_NE(text.find(std::string("<Style id=\"") + id + "\">"), std::string::npos) << id;
}

}  // namespace
}  // namespace zerbal::test
