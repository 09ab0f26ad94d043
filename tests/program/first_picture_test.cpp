// tools/first-picture: the program on a virtual display, and what its picture and its words say.
#include <QColor>
#include <QFile>
#include <QImage>
#include <QProcess>
#include <filesystem>
#include <string>

#include <gtest/gtest.h>

#include "support/small_world.h"
#include "support/temp_folder.h"

namespace zerbal::test {
namespace {

namespace fs = std::filesystem;

const QColor kNordicFlights(0, 0, 250);
const QColor kDestinations(0, 120, 0);
constexpr char kNoInput[] = "It did not take input";

struct Took {
  int status = -1;
  std::string words;
  std::string errors;
  QImage picture;
};

class FirstPicture : public testing::Test {
 protected:
  /// Runs the script on the world. Programs in the folder `tools` take precedence over installed ones.
  Took Run(const char* program = ZERBAL_PROGRAM) const {
    constexpr int kTimeoutMs = 120000;
    world.Write(folder / "data");
    const auto name = [](const fs::path& path) { return QFile::decodeName(path.c_str()); };
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("PATH", name(folder / "tools") + ":" + environment.value("PATH"));
    process.setProcessEnvironment(environment);
    process.start(ZERBAL_SOURCE_DIR "/tools/first-picture",
                  {program, name(folder / "data"), name(folder / "picture.png"), "the Baltic"});
    process.waitForFinished(kTimeoutMs);
    return {process.exitCode(), process.readAllStandardOutput().toStdString(),
            process.readAllStandardError().toStdString(), QImage(name(folder / "picture.png"))};
  }

  /// Puts a command in the place of an installed one.
  void Replace(const char* command, const char* script) const {
    fs::create_directories(folder / "tools");
    WriteBytes(folder / "tools" / command, script);
    fs::permissions(folder / "tools" / command, fs::perms::owner_all);
  }

  TempFolder folder;
  SmallWorld world;
};

int PixelsOf(const QImage& picture, const QColor& colour) {
  int count = 0;
  for (int y = 0; y < picture.height(); ++y) {
    for (int x = 0; x < picture.width(); ++x)
      count += picture.pixelColor(x, y) == colour ? 1 : 0;
  }
  return count;
}

TEST_F(FirstPicture, ShowsFlightsAndDestinationsOfTheFirstRegion) {
  world.reg.rows.push_back({"FIRST", -100, "Baltic", 180.0, 20.0, 215.0, 38.0});
  const Took ran = Run();
  EXPECT_EQ(ran.status, 0) << ran.errors;
  EXPECT_NE(ran.words.find("the QAV destinations, all flights without their numbers, and the Baltic."),
            std::string::npos)
      << ran.words;
  EXPECT_EQ(ran.picture.size(), QSize(1280, 900));
  EXPECT_GT(PixelsOf(ran.picture, kNordicFlights), 200);
  EXPECT_GT(PixelsOf(ran.picture, kDestinations), 20);
  EXPECT_FALSE(fs::exists(folder / "data" / "zerbal.ini")) << "the settings of the next start";
}

TEST_F(FirstPicture, ShowsNoFlightsWhereTheFirstRegionHasNone) {
  world.reg.rows.push_back({"FIRST", -100, "Open sea", 60.0, 100.0, 75.0, 110.0});
  const Took ran = Run();
  EXPECT_EQ(ran.status, 0) << ran.errors;
  EXPECT_EQ(ran.words.find(kNoInput), std::string::npos) << ran.words;
  EXPECT_EQ(PixelsOf(ran.picture, kNordicFlights), 0);
}

TEST_F(FirstPicture, LeavesTheWindowAsItStartsWhenInputFailsOrIsNotTaken) {
  for (const char* xdotool : {"#!/bin/sh\nexit 1\n", "#!/bin/sh\n"}) {
    Replace("xdotool", xdotool);
    const Took ran = Run();
    EXPECT_EQ(ran.status, 0) << ran.errors;
    EXPECT_NE(ran.words.find(kNoInput), std::string::npos) << ran.words;
    EXPECT_FALSE(ran.picture.isNull());
    EXPECT_EQ(PixelsOf(ran.picture, kNordicFlights), 0);
  }
}

TEST_F(FirstPicture, ReportsAMessageInsteadOfTheMap) {
  world.LeaveOut("coast.mdb");
  const Took ran = Run();
  EXPECT_EQ(ran.status, 1);
  EXPECT_NE(ran.errors.find("The program shows a message instead of the map"), std::string::npos)
      << ran.errors;
  EXPECT_FALSE(ran.picture.isNull());
}

TEST_F(FirstPicture, ReportsAProgramThatEnds) {
  const Took ran = Run("/bin/false");
  EXPECT_EQ(ran.status, 1);
  EXPECT_NE(ran.errors.find("The program ended before the map was shown."), std::string::npos) << ran.errors;
  EXPECT_TRUE(ran.picture.isNull());
}

TEST_F(FirstPicture, ReportsADisplayThatDoesNotStart) {
  Replace("Xvfb", "#!/bin/sh\nexit 1\n");
  const Took ran = Run();
  EXPECT_EQ(ran.status, 1);
  EXPECT_NE(ran.errors.find("The virtual display does not start."), std::string::npos) << ran.errors;
}

}  // namespace
}  // namespace zerbal::test
