// The command on a small world: its pixels equal those of the map window, another renderer draws its SVG in
// the same way, and it writes only its output.
#include <QFile>
#include <QImage>
#include <QProcess>
#include <QXmlStreamReader>
#include <algorithm>
#include <sstream>

#include <gtest/gtest.h>

#include "app/frm_map.h"
#include "command_fixture.h"
#include "data/map_style.h"
#include "support/captured_log.h"
#include "support/everything_shown.h"
#include "zerbal-map/map_job.h"
#include "zerbal-map/options.h"

namespace zerbal::test {
namespace {

namespace fs = std::filesystem;

class MapCommandTest : public CommandFixture {
 protected:
  QImage Picture(const QStringList& words) {
    EXPECT_EQ(Run(QStringList(words) << "--out" << File("map.png")), 0) << errors.str();
    return QImage(File("map.png")).convertToFormat(QImage::Format_RGB32);
  }
};

/// The picture of the map window for the same data; a user's commands set region and options.
class MapWindow {
 public:
  explicit MapWindow(const fs::path& folder)
      : files_(data::FindDataFiles(folder).files),
        databases_(data::OpenDatabases(files_)),
        viewport_(data::kGridBands) {
    style_ = data::LoadMapStyle(files_.zbldata);
    services_ = databases_.schedule.LoadServices();
    const std::vector<std::string> none;
    data::CheckFonts(style_.fonts, none);
    style_.regions.centreWorld = data::WorldCentre::kWest75;
    style_.regions.ComputeWorldRow();
  }

  QImage Show(const data::Region& view, QSize size) {
    for (data::FlightService& service : services_)
      service.displayFlag = true;
    viewport_.SelectRegion(view);
    const map::MapScene scene{viewport_,  options,   style_,    services_,
                              databases_, criteria_, criteria_, flights_};
    app::frmMap window(scene, viewport_);
    window.resize(size);
    window.show();
    return window.Picture().copy();
  }
  const data::RegionTable& Regions() const { return style_.regions; }

  data::DisplayOptions options;

 private:
  data::DataFiles files_;
  data::Databases databases_;
  data::MapStyle style_;
  data::FlightServiceTable services_;
  map::Viewport viewport_;
  data::AirportCriteria criteria_;
  data::FlightSelection flights_;
};

TEST_F(MapCommandTest, TenViewsEqualTheMapWindowPixelByPixel) {
  MapWindow window(folder.Path());
  window.options = kEverythingShown;
  // The first and the ninth one are drawn in several bands.
  const std::pair<const char*, QSize> views[] = {
      {"World", {1600, 1000}}, {"World", {300, 640}}, {"NOR", {640, 480}},  {"MED", {640, 480}},
      {"PACW", {900, 300}},    {"DATE", {640, 480}},  {"FOUR", {640, 480}}, {"FOUR", {333, 777}},
      {"FJO", {1001, 601}},    {"ISL", {512, 384}}};
  for (const auto& [name, size] : views) {
    const auto& rows = window.Regions().rows;
    const auto region =
        std::find_if(rows.begin() + 1, rows.end(), [n = name](const auto& row) { return row.code == n; });
    const QImage shown = window.Show(region == rows.end() ? rows.front() : *region, size);
    const QImage drawn =
        Picture({"--region", name, "--size", QString("%1x%2").arg(size.width()).arg(size.height()),
                 "--services", "all", "--show", "centre,rivers,boundaries,airports,destinations", "--labels",
                 "airports,numbers,legs,symbols"});
    EXPECT_EQ(drawn, shown) << name;
  }
}

TEST_F(MapCommandTest, SvgIsWellFormedAndContainsItsTexts) {
  ASSERT_EQ(Run({"--region", "NOR", "--services", "all", "--out", File("map.svg")}), 0) << errors.str();
  QFile file(File("map.svg"));
  ASSERT_TRUE(file.open(QIODevice::ReadOnly));
  QXmlStreamReader xml(&file);
  QStringList texts;
  while (!xml.atEnd()) {
    if (xml.readNext() == QXmlStreamReader::StartElement && xml.name() == QLatin1String("text"))
      texts.append(xml.readElementText().trimmed());
  }
  EXPECT_FALSE(xml.hasError()) << xml.errorString().toStdString();
  EXPECT_TRUE(texts.contains("ZB101"));
  EXPECT_TRUE(texts.contains("OSL"));
}

/// The mean difference of the colour components of two pictures after a slight blur, 0 to 255.
double MeanDifference(const QImage& a, const QImage& b) {
  const QSize coarse(a.width() / 8, a.height() / 8);
  const QImage x =
      a.scaled(coarse, Qt::IgnoreAspectRatio, Qt::SmoothTransformation).convertToFormat(QImage::Format_RGB32);
  const QImage y =
      b.scaled(coarse, Qt::IgnoreAspectRatio, Qt::SmoothTransformation).convertToFormat(QImage::Format_RGB32);
  double sum = 0;
  for (int row = 0; row < coarse.height(); ++row) {
    for (int column = 0; column < coarse.width(); ++column) {
      const QColor p = x.pixelColor(column, row), q = y.pixelColor(column, row);
      sum += std::abs(p.red() - q.red()) + std::abs(p.green() - q.green()) + std::abs(p.blue() - q.blue());
    }
  }
  return sum / (3.0 * coarse.width() * coarse.height());
}

TEST_F(MapCommandTest, AnotherRendererDrawsTheSvgInTheSameWay) {
  const QStringList view{"--region", "NOR", "--size", "640x480", "--services", "all"};
  ASSERT_EQ(Run(QStringList(view) << "--out" << File("map.svg")), 0) << errors.str();
  ASSERT_EQ(
      QProcess::execute("rsvg-convert", {"-w", "640", "-h", "480", "-o", File("svg.png"), File("map.svg")}),
      0);
  const QImage picture = Picture(view);
  const QImage other(File("svg.png"));
  ASSERT_EQ(other.size(), picture.size());
  // Letters and line ends differ between renderers. Another map differs much more.
  const double another = MeanDifference(picture, Picture({"--region", "NOR", "--size", "640x480"}));
  EXPECT_GT(another, 2.5);
  EXPECT_LT(MeanDifference(picture, other), another * 0.7);
}

TEST_F(MapCommandTest, APdfHasThePaperSize) {
  ASSERT_EQ(Run({"--paper", "A5", "--services", "all", "--out", File("map.pdf")}), 0) << errors.str();
  const std::string bytes = ReadBytes(folder / "map.pdf");
  EXPECT_EQ(bytes.substr(0, 5), "%PDF-");
  EXPECT_NE(bytes.find("/MediaBox [0 0 595"), std::string::npos);
}

TEST_F(MapCommandTest, WidthsAndLabelsScaleWithTheResolution) {
  const QImage once = Picture({"--region", "NOR", "--size", "400x300"});
  const QImage twice = Picture({"--region", "NOR", "--size", "800x600", "--dpi", "192"});
  EXPECT_LT(MeanDifference(once, twice.scaled(once.size(), Qt::IgnoreAspectRatio, Qt::SmoothTransformation)),
            2.0);
  EXPECT_EQ(twice.dotsPerMeterX(), 7559);
}

TEST_F(MapCommandTest, TouchingAndFlightsSelectFlights) {
  const QImage none = Picture({"--region", "NOR"});
  EXPECT_NE(Picture({"--region", "NOR", "--touching", "kkn"}), none);
  const QImage one = Picture({"--region", "NOR", "--flights", "K1040"});
  EXPECT_NE(one, none);
  EXPECT_NE(one, Picture({"--region", "NOR", "--flights", "K1040,K1015"}));
}

TEST_F(MapCommandTest, SettingsGiveColoursAndAreNotChanged) {
  const std::string settings = "[Colors]\r\nBackground=1,2,3\r\n";
  WriteBytes(folder / "zerbal.ini", settings);
  EXPECT_EQ(Picture({}).pixelColor(0, 0), QColor(230, 240, 250));
  EXPECT_EQ(Picture({"--settings", File("zerbal.ini")}).pixelColor(0, 0), QColor(1, 2, 3));
  EXPECT_EQ(ReadBytes(folder / "zerbal.ini"), settings);
}

TEST_F(MapCommandTest, OnlyTheOutputIsWritten) {
  const auto files = [this] {
    std::vector<std::pair<std::string, fs::file_time_type>> found;
    for (const auto& entry : fs::recursive_directory_iterator(folder.Path())) {
      if (entry.path().filename() != "map.png")
        found.emplace_back(entry.path().string(), entry.last_write_time());
    }
    std::sort(found.begin(), found.end());
    return found;
  };
  const auto before = files();
  Picture({"--services", "all"});
  // The new file changes the time stamp of its folder.
  EXPECT_EQ(files(), before);
}

TEST_F(MapCommandTest, AnUnknownNameIsReportedWithTheKnownOnes) {
  const std::pair<QStringList, const char*> cases[] = {
      {{"--region", "Atlantis"},
       "there is no region 'Atlantis'; possible are Date line, near (wraps), Fjords"},
      {{"--region", "LINE"}, "--region: the region 'No width' has no extent"},
      {{"--view", "10,50,10.0000001,40"}, "the view is too small to be drawn"},
      {{"--centre", "0,170", "--span", "0.001"}, "the view is too small to be drawn"},
      {{"--services", "NOR,Rail"},
       "there is no flight service 'Rail'; possible are all, Nordic, Nordic Extra"},
      {{"--flights", "K9999"}, "there is no flight with the key 'K9999'"},
      {{"--touching", "XXX"}, "there is no destination 'XXX'; possible are ADK, AKL"}};
  for (const auto& [words, reason] : cases) {
    EXPECT_EQ(Run(QStringList(words) << "--out" << File("map.png")), 2);
    EXPECT_NE(errors.str().find(reason), std::string::npos) << errors.str();
    EXPECT_FALSE(fs::exists(folder / "map.png"));
  }
}

TEST_F(MapCommandTest, InvalidDataAndFilesEndWith1) {
  EXPECT_EQ(Run({"--out", File("no such folder/map.png")}), 1);
  EXPECT_NE(errors.str().find("map.png': cannot create the file: No such file or directory"),
            std::string::npos)
      << errors.str();
  EXPECT_EQ(Run({"--settings", File("none.ini"), "--out", File("map.png")}), 1);
  EXPECT_NE(errors.str().find("none.ini"), std::string::npos);
  WriteBytes(folder / "app_data" / "allaprt.mdb", "no database");
  EXPECT_EQ(Run({"--out", File("map.png")}), 1);
  EXPECT_NE(errors.str().find("allaprt.mdb"), std::string::npos);
  fs::remove(folder / "app_map" / "coast.mdb");
  EXPECT_EQ(Run({"--out", File("map.png")}), 1);
  EXPECT_NE(errors.str().find("coast.mdb' could not be found"), std::string::npos) << errors.str();
}

TEST_F(MapCommandTest, ATableThatCannotBeDrawnIsLogged) {
  WriteDatabase(folder / "app_map" / "coast.mdb", {Table{"wcl", {Long("Lon")}, {}, {{1}}}});
  {
    const CapturedLog log;
    Picture({});
    EXPECT_EQ(CapturedLog::Lines().size(), 0U) << "off by default";
  }
  const CapturedLog log("zerbal.draw=true");
  Picture({});
  ASSERT_EQ(CapturedLog::Lines().size(), 1U);
  EXPECT_EQ(CapturedLog::Lines().front().find("coast: "), 0U) << CapturedLog::Lines().front();
  EXPECT_NE(CapturedLog::Lines().front().find("coast.mdb"), std::string::npos);
}

TEST_F(MapCommandTest, HelpAndVersionArePrinted) {
  EXPECT_EQ(Run({"--help"}), 0);
  EXPECT_NE(output.str().find("Usage: zerbal-map"), std::string::npos);
  EXPECT_EQ(Run({"--version"}), 0);
  EXPECT_NE(output.str().find("1.100"), std::string::npos);
  EXPECT_EQ(Run({"--colour", "red"}), 2);
}

}  // namespace
}  // namespace zerbal::test
