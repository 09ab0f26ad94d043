#include "zerbal-map/page.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>

#include <gtest/gtest.h>

#include "map_command/command_fixture.h"
#include "print/contrast.h"
#include "zerbal-map/page_colours.h"
#include "zerbal-map/page_data.h"
#include "zerbal-map/page_lines.h"
#include "zerbal-map/page_markup.h"

namespace zerbal::test {
namespace {

using mapcommand::Page;

constexpr data::Rgb kPaper{255, 255, 255};

void SetBackground(Page& page, data::Rgb rgb) {
  page.colours.rows[static_cast<std::size_t>(data::ColourCode::kMapBg)].rgb = rgb;
}

/// Two flights on one leg, in both directions, and one of another service.
Page SamplePage() {
  Page page;
  page.width = 1000;
  page.height = 500;
  page.contents.services = {{"RED", "1 - Red", {200, 0, 0}}, {"BLU", "2 - Blue", {0, 0, 200}}};
  const map::ContentsLine there{{100, 100}, {300, 100}};
  const map::ContentsLine back{{300, 100}, {100, 100}};
  page.contents.flights = {
      {"K1", "ZB1", 0, "ZB1 (1 - Red)", {"AAA", "BBB"}, {{"ZB1 (1 - Red): A -> B", {there}}}, 325'400.0},
      {"K2", "ZB2", 0, "ZB2 (1 - Red)", {"BBB", "AAA"}, {{"ZB2 (1 - Red): B -> A", {back}}}, 325'400.0},
      {"", "ZB3", 1, "ZB3 (2 - Blue)", {"AAA", "BBB"}, {{"ZB3 (2 - Blue): A -> B", {there}}}, std::nullopt}};
  page.contents.airports = {
      {"AAA", "AAA - Field (Town)", "AAA - Field (Town), 2 runways", {100, 100}, true, false},
      {"BBB", "BBB - Strip", "BBB - Strip", {300, 100}, false, true}};
  SetBackground(page, kPaper);
  return page;
}

std::size_t Count(const std::string& text, const std::string& part) {
  std::size_t count = 0;
  for (auto at = text.find(part); at != std::string::npos; at = text.find(part, at + 1))
    ++count;
  return count;
}

QJsonObject DataOf(const Page& page) {
  QJsonParseError error;
  const QByteArray bytes = QByteArray::fromStdString(PageData(page));
  const QJsonDocument document = QJsonDocument::fromJson(bytes, &error);
  EXPECT_EQ(error.error, QJsonParseError::NoError) << bytes.toStdString();
  return document.object();
}

TEST(PageLines, APathHasRelativePoints) {
  const std::vector<TwipPoint> points{{10, 20}, {11, 22}, {8, 26}, {8, 26}};
  EXPECT_EQ(mapcommand::PathText(points), "M10 20l1 2-3 4 0 0");
  EXPECT_EQ(mapcommand::PathText(std::span(points).first(1)), "");
}

TEST(PageLines, CloseTogetherPointsAreLeftOutButTheLast) {
  const std::vector<TwipPoint> points{{0, 0}, {1, 1}, {2, 1}, {3, 1}, {4, 2}};
  EXPECT_EQ(mapcommand::PathText(points, 2), "M0 0l2 1 2 1");
  EXPECT_EQ(mapcommand::PathText(std::span(points).first(2), 9), "M0 0l1 1");
}

TEST(PageLines, OnlyTheBaseMapIsKept) {
  mapcommand::PageLines lines;
  const std::vector<TwipPoint> points{{0, 0}, {5, 5}};
  for (const map::Layer layer : {map::Layer::kFlights, map::Layer::kBoundary, map::Layer::kCoast,
                                 map::Layer::kCentre, map::Layer::kRiver}) {
    lines.BeginLayer(layer);
    lines.Polyline(points, {});
  }
  EXPECT_EQ(lines.Elements(),
            "<path class=\"coast\" d=\"M0 0l5 5\"/>\n<path class=\"river\" d=\"M0 0l5 5\"/>\n"
            "<path class=\"boundary\" d=\"M0 0l5 5\"/>\n");
}

TEST(PageColours, ContrastIsThatOfWcag) {
  EXPECT_DOUBLE_EQ(print::ContrastOf(kPaper, {0, 0, 0}), 21);
  EXPECT_DOUBLE_EQ(print::ContrastOf({9, 9, 9}, {9, 9, 9}), 1);
  EXPECT_NEAR(print::ContrastOf({118, 118, 118}, kPaper), 4.54, 0.01);
}

TEST(PageColours, AColourBecomesReadableOnAnyBackground) {
  for (const data::Rgb background : {data::Rgb{16, 22, 29}, data::Rgb{245, 247, 248}}) {
    for (const data::Rgb rgb : {data::Rgb{0, 0, 0}, kPaper, data::Rgb{0, 0, 200}, data::Rgb{250, 250, 0}})
      EXPECT_GE(print::ContrastOf(mapcommand::Readable(rgb, background, 4.5), background), 4.5);
  }
  EXPECT_EQ(mapcommand::Readable({0, 0, 200}, kPaper, 4.5), (data::Rgb{0, 0, 200})) << "it is readable";
}

TEST(PageColours, TheSchemeOfTheBackgroundHasTheColoursOfTheData) {
  Page page = SamplePage();
  const auto schemes = [&] {
    return QString::fromStdString(mapcommand::ColourStyles(page))
        .split("@media (prefers-color-scheme: dark)");
  };
  EXPECT_TRUE(schemes()[0].contains("--map:#ffffff;"));
  EXPECT_TRUE(schemes()[0].contains(".s1{--colour:#0000c8;}"));
  EXPECT_FALSE(schemes()[1].contains("--colour:#0000c8;"));
  SetBackground(page, {0, 0, 0});
  EXPECT_TRUE(schemes()[1].contains("--map:#000000;"));
  EXPECT_TRUE(schemes()[1].contains(".s1{--colour:#0000c8;}"));
  EXPECT_FALSE(schemes()[0].contains("--map:#000000;"));
}

TEST(PageData, HasAirportsAndFlightsWithTheirLines) {
  const QJsonObject data = DataOf(SamplePage());
  EXPECT_EQ(data["width"].toInt(), 1000);
  EXPECT_EQ(data["services"].toArray(), (QJsonArray{"1 - Red", "2 - Blue"}));
  const QJsonObject airport = data["airports"][0].toObject();
  EXPECT_EQ(airport["label"].toString(), "AAA - Field (Town)");
  EXPECT_EQ(airport["facts"].toString(), ", 2 runways");
  const QJsonObject flight = data["flights"][1].toObject();
  EXPECT_EQ(flight["id"].toString(), "K2");
  EXPECT_EQ(flight["text"].toString(), "ZB2 (1 - Red)");
  EXPECT_EQ(flight["length"].toString(), "325 km");
  EXPECT_EQ(flight["legs"][0]["text"].toString(), "B -> A");
  EXPECT_EQ(flight["legs"][0]["lines"][0].toArray(), (QJsonArray{300, 100, 100, 100}));
  EXPECT_EQ(data["flights"][2]["id"].toString(), ".2") << "it has no key";
  EXPECT_EQ(data["flights"][2]["length"].toString(), "");
}

TEST(PageMarkup, EachServiceHasEachLineOnce) {
  EXPECT_EQ(ServiceLines(SamplePage()),
            "<g class=\"s0\"><path d=\"M100 100l200 0\"/></g>\n"
            "<g class=\"s1\"><path d=\"M100 100l200 0\"/></g>\n");
}

TEST(PageMarkup, AircraftFlyAQuarterOfTheirLeg) {
  Page page = SamplePage();
  page.display.aircraftSymbols = true;
  const std::string lines = ServiceLines(page);
  EXPECT_EQ(Count(lines, "<use "), 3U);
  EXPECT_NE(lines.find("--x:150px;--y:100px;--turn:0deg"), std::string::npos) << lines;
  EXPECT_NE(lines.find("--x:250px;--y:100px;--turn:180deg"), std::string::npos) << lines;
  page.contents.flights.resize(1);
  page.contents.flights[0].legs[0].lines = {{{100, 100}, {100, 100}}};
  EXPECT_EQ(Count(ServiceLines(page), "<use "), 0U);
}

TEST(PageMarkup, AirportsAreDots) {
  Page page = SamplePage();
  EXPECT_EQ(Marks(page),
            "<path class=\"airports\" d=\"M300 100h0\"/>\n<path class=\"destinations\" d=\"M100 100h0\"/>\n");
  page.display.centreOfMap = true;
  EXPECT_NE(Marks(page).find("--x:500px;--y:250px"), std::string::npos);
}

TEST(PageMarkup, FlightsAreListedByService) {
  const std::string lists = FlightLists(SamplePage());
  EXPECT_EQ(Count(lists, "<details"), 2U);
  EXPECT_EQ(Count(lists, "<tr id="), 3U);
  EXPECT_NE(lists.find("<a href=\"#flight=K1\">ZB1</a></th><td>AAA BBB</td><td>325 km</td>"),
            std::string::npos)
      << lists;
  EXPECT_NE(FlightLists(Page()).find("no flights"), std::string::npos);
}

TEST(PageHtml, EveryPartOfTheTemplateIsFilled) {
  const std::string html = HtmlOf(SamplePage());
  EXPECT_FALSE(QString::fromStdString(html).contains(QRegularExpression("\\{\\{[a-z]+\\}\\}")));
  EXPECT_NE(html.find("<title>Route map</title>"), std::string::npos);
  EXPECT_NE(html.find("3 flights \u00B7 2 airports"), std::string::npos);
  EXPECT_EQ(HtmlOf(SamplePage()), html);
}

TEST(PageHtml, NoPartNamesAnotherFile) {
  const QString html = QString::fromStdString(HtmlOf(SamplePage()));
  auto links = QRegularExpression("(?:src|href)=\"([^\"]*)\"").globalMatch(html);
  while (links.hasNext()) {
    const QString link = links.next().captured(1);
    EXPECT_TRUE(link.startsWith('#') || link == "data:,") << link.toStdString();
  }
  EXPECT_FALSE(html.contains("@import"));
  EXPECT_FALSE(html.contains(QRegularExpression("url\\(")));
  EXPECT_TRUE(html.contains("default-src 'none'"));
}

TEST(PageHtml, TextsOfTheDataAreNeverMarkup) {
  const std::string evil = "</script><script>bad()</script>\"'&{{data}}<!--";
  Page page = SamplePage();
  page.place = page.description = evil;
  for (auto& service : page.contents.services)
    service.key = service.name = evil;
  for (auto& flight : page.contents.flights) {
    flight.key = flight.number = flight.text = evil;
    flight.route = {evil, evil};
    flight.legs[0].text = evil + ": " + evil;
  }
  for (auto& airport : page.contents.airports)
    airport.code = airport.label = airport.text = evil;
  const std::string html = HtmlOf(page);
  EXPECT_EQ(html.find("<script>bad"), std::string::npos);
  EXPECT_EQ(Count(html, "</script>"), 2U);
  EXPECT_EQ(Count(html, "<!--"), 0U);
  EXPECT_EQ(DataOf(page)["flights"][0]["legs"][0]["text"].toString().toStdString(), evil);
}

class PageCommandTest : public CommandFixture {
 protected:
  std::string Html(const QStringList& words) {
    EXPECT_EQ(Run(QStringList(words) << "--out" << File("map.html")), 0) << errors.str();
    return ReadBytes(folder / "map.html");
  }
};

TEST_F(PageCommandTest, APageHasTheFlightsOfTheSelection) {
  EXPECT_EQ(Count(Html({"--flights", "K1040,K1002"}), "<tr id="), 2U);
  EXPECT_EQ(Count(Html({}), "<tr id="), 0U);
}

TEST_F(PageCommandTest, ARegionIsNamed) {
  EXPECT_NE(Html({"--region", "FJO"}).find("<title>Route map: "), std::string::npos);
  EXPECT_NE(Html({}).find("<title>Route map: World</title>"), std::string::npos);
  EXPECT_NE(Html({"--view", "0,60,30,50"}).find("<title>Route map</title>"), std::string::npos);
}

TEST_F(PageCommandTest, TheMapIsFourTimesAsLargeAsItsSize) {
  EXPECT_NE(Html({"--size", "200x100"}).find("viewBox=\"0 0 12000 6000\""), std::string::npos);
}

TEST_F(PageCommandTest, FilesThatCannotBeWrittenEndWith1) {
  EXPECT_EQ(Run({"--out", "/nonexistent/map.html"}), 1);
}

}  // namespace
}  // namespace zerbal::test
