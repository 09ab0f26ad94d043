#include <QImage>
#include <QProcess>
#include <filesystem>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "command_fixture.h"
#include "zerbal-map/options.h"

namespace zerbal::test {
namespace {

namespace fs = std::filesystem;
using mapcommand::UsageError;
using print::ColourLegsBy;
using print::Corner;
using print::WantedPiece;
using testing::HasSubstr;

print::PrintOptions Parse(QStringList words) {
  return mapcommand::ParseOptions(words << "--out"
                                        << "a.png")
      ->print;
}

std::string Complaint(const QStringList& words) {
  try {
    Parse(words);
  } catch (const UsageError& error) {
    return error.what();
  }
  return "(none)";
}

TEST(PrintOptions, AreOffByDefault) {
  EXPECT_EQ(Parse({}), print::PrintOptions());
}

TEST(PrintOptions, SwitchLabelsWidthsAndColours) {
  EXPECT_TRUE(Parse({"--labels-placed"}).labelsPlaced);
  EXPECT_TRUE(Parse({"--width-by", "flights"}).widthByFlights);
  EXPECT_EQ(Parse({"--color-by", "service"}).colourBy, ColourLegsBy::kService);
  EXPECT_EQ(Parse({"--color-by=Frequency"}).colourBy, ColourLegsBy::kFrequency);
  EXPECT_EQ(Complaint({"--width-by", "seats"}), "--width-by: there is no 'seats'; possible are flights");
  EXPECT_EQ(Complaint({"--color-by", "age"}),
            "--color-by: there is no 'age'; possible are service, frequency");
}

TEST(PrintOptions, PiecesStandInTheEmptiestOrInAWantedCorner) {
  EXPECT_EQ(Parse({"--legend"}).legend, (WantedPiece{true, std::nullopt}));
  EXPECT_EQ(Parse({"-north", "--legend=top-left"}).north, (WantedPiece{true, std::nullopt}));
  EXPECT_EQ(Parse({"--legend=top-left"}).legend, (WantedPiece{true, Corner::kTopLeft}));
  EXPECT_EQ(Parse({"--scale-bar=Bottom-Right"}).scaleBar, (WantedPiece{true, Corner::kBottomRight}));
  EXPECT_EQ(Parse({"--north=auto"}).north, (WantedPiece{true, std::nullopt}));
  EXPECT_EQ(
      Complaint({"--legend=middle"}),
      "--legend: there is no 'middle'; possible are auto, top-left, top-right, bottom-left, bottom-right");
  EXPECT_EQ(Complaint({"--legend", "top-left"}), "'top-left' belongs to no option");
  EXPECT_EQ(Complaint({"--legend", "--legend"}), "--legend is given more than once");
  EXPECT_EQ(Complaint({"--legend="}), "--legend: the value is empty");
}

TEST(PrintOptions, ATitleIsAnyTextOfOneLine) {
  EXPECT_EQ(Parse({"--title", " Our \n routes "}).title, "Our routes");
  EXPECT_EQ(Parse({"--title", "--legend"}).title, "--legend");
  EXPECT_EQ(Complaint({"--title", " \t"}), "--title: the value is empty");
}

TEST(PrintOptions, AGraticuleIsFromATenthTo90Degrees) {
  EXPECT_DOUBLE_EQ(Parse({"--graticule", "2.5"}).graticule, 2.5);
  EXPECT_DOUBLE_EQ(Parse({"--graticule", "90"}).graticule, 90);
  for (const char* degrees : {"0.05", "91", "0", "-10", "x", "nan"})
    EXPECT_NE(Complaint({"--graticule", degrees}), "(none)") << degrees;
  EXPECT_EQ(Complaint({"--graticule", "91"}), "--graticule: '91' is not from 0.1 to 90 degrees");
}

TEST(PrintOptions, HaveNoMeaningForMapData) {
  for (const char* option : {"--labels-placed", "--width-by=flights", "--color-by=service", "--legend",
                             "--scale-bar", "--north", "--title=x", "--graticule=10", "--style=dark"})
    EXPECT_THROW(mapcommand::ParseOptions({option, "--out", "a.geojson"}), UsageError) << option;
}

class PrintCommand : public CommandFixture {};

TEST_F(PrintCommand, WritesEveryKindOfFile) {
  for (const char* name : {"map.png", "map.svg", "map.pdf"}) {
    EXPECT_EQ(
        Run({"--services", "all", "--labels-placed", "--width-by", "flights", "--legend", "--scale-bar",
             "--north", "--graticule", "20", "--title", "Routes", "--style", "print", "--out", File(name)}),
        0)
        << errors.str();
    EXPECT_GT(fs::file_size(folder / name), 1000U) << name;
  }
}

TEST_F(PrintCommand, NamesTheLineOfAStyleThatIsNotValid) {
  WriteBytes(folder / "my.style", "[Colors]\nSea=1,2,3\n");
  EXPECT_EQ(Run({"--style", File("my.style"), "--out", File("map.png")}), 1);
  EXPECT_THAT(errors.str(), HasSubstr("my.style': line 2: section [Colors] has no 'Sea'"));
  EXPECT_EQ(Run({"--style", File("none.style"), "--out", File("map.png")}), 1);
  EXPECT_THAT(errors.str(), HasSubstr("a style is dark, print or such a file"));
  EXPECT_FALSE(fs::exists(folder / "map.png"));
}

/// Qt has options of its own, such as --style, which it would take away.
TEST_F(PrintCommand, TheProgramReadsAllOfItsWords) {
  QProcess program;
  program.start(ZERBAL_MAP_PROGRAM, {"--style", "dark", "--data", QFile::decodeName(folder.Path().c_str()),
                                     "--size", "40x30", "--out", File("dark.png")});
  ASSERT_TRUE(program.waitForFinished());
  EXPECT_EQ(program.exitCode(), 0) << program.readAllStandardError().toStdString();
  EXPECT_EQ(QImage(File("dark.png")).pixelColor(0, 0), QColor(16, 20, 28));
}

}  // namespace
}  // namespace zerbal::test
