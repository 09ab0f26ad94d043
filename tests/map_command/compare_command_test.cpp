// --compare on a small world and an older one.
#include <algorithm>
#include <vector>

#include "command_fixture.h"
#include "map/recorder.h"
#include "zerbal-map/map_job.h"

namespace zerbal::test {
namespace {

namespace fs = std::filesystem;
using map::Operation;

class CompareCommandTest : public CommandFixture {
 protected:
  CompareCommandTest() {
    older_.fsrv.rows.push_back({"GONE", "Gone", "7", 1, 2, 3, 70});
    WriteOlder();
  }

  void WriteOlder() { older_.Write(OlderFolder()); }
  fs::path OlderFolder() const { return folder / "older"; }
  QStringList ComparedWith(const fs::path& path) const {
    return {"--compare", QFile::decodeName(path.c_str())};
  }

  /// The lines of flights that `words` draw.
  std::vector<Operation> Lines(QStringList words) const {
    words << "--data" << QFile::decodeName(folder.Path().c_str()) << "--out"
          << "unused.png";
    map::Recorder recorder;
    mapcommand::MapJob(*mapcommand::ParseOptions(words)).Draw(recorder);
    std::vector<Operation> lines = recorder.Operations();
    std::erase_if(lines, [](const Operation& one) {
      return one.kind != Operation::Kind::kLine || one.layer != map::Layer::kFlights;
    });
    return lines;
  }
  std::vector<Operation> Compared(const QStringList& words = {}) const {
    return Lines(ComparedWith(OlderFolder()) + words);
  }
  bool ShowsDropped(const QStringList& words) const {
    const std::vector<Operation> lines = Compared(words);
    return std::ranges::any_of(lines,
                               [](const Operation& one) { return one.pen.colour == map::kDroppedColour; });
  }

  SmallWorld older_;
};

TEST_F(CompareCommandTest, EqualSchedulesGiveTheMapOfAllFlights) {
  EXPECT_EQ(Compared(), Lines({"--services", "all"}));
  EXPECT_EQ(Compared({"--services", "NOR"}), Lines({"--services", "NOR"}));
  EXPECT_EQ(Compared({"--touching", "OSL"}), Lines({"--touching", "OSL"}));
}

TEST_F(CompareCommandTest, FlightsOfTheNewScheduleAloneAreWide) {
  older_.flit.RemoveRow("Flit_2015", "K1040");
  WriteOlder();
  std::vector<Operation> wide = Compared();
  std::erase_if(wide, [](const Operation& one) { return one.pen.width == 1; });
  std::vector<Operation> expected = Lines({"--flights", "K1040"});
  ASSERT_FALSE(expected.empty());
  for (Operation& one : expected)
    one.pen.width = map::kAddedWidth;
  EXPECT_EQ(wide, expected);
}

TEST_F(CompareCommandTest, FlightsOfTheOldScheduleAloneAreDashedWhenTheirServiceOrAirportIsChosen) {
  older_.flit.rows.push_back(FlightRow("NOR", "ZB199", "K9001", "OSL", {"BGO"}, "TOS"));
  WriteOlder();
  for (const QStringList& words : {QStringList(),
                                   {"--services", "All"},
                                   {"--services", "NORX,NOR"},
                                   {"--touching", "bgo"},
                                   {"--touching", "TOS"}})
    EXPECT_TRUE(ShowsDropped(words)) << words.join(' ').toStdString();
  for (const QStringList& words : {QStringList{"--services", "NORX"}, {"--touching", "HNL"}})
    EXPECT_FALSE(ShowsDropped(words)) << words.join(' ').toStdString();
}

TEST_F(CompareCommandTest, AServiceOfTheOldScheduleAloneBelongsToAll) {
  older_.flit.rows.push_back(FlightRow("GONE", "ZB199", "K9001", "OSL", {}, "TOS"));
  WriteOlder();
  EXPECT_TRUE(ShowsDropped({}));
  EXPECT_FALSE(ShowsDropped({"--services", "NOR"}));
}

TEST_F(CompareCommandTest, AirportsOfDroppedFlightsAreThoseOfTheOldSchedule) {
  older_.flit.rows.push_back(FlightRow("NOR", "ZB199", "K9001", "OSL", {}, "OLD"));
  older_.dest.rows.push_back(AirportRow("OLD", "Old", "Town", 20, 60, 0, 1, 5000, "1"));
  WriteOlder();
  EXPECT_TRUE(ShowsDropped({}));
}

TEST_F(CompareCommandTest, ReadsADatabaseOrAFolder) {
  older_.flit.RemoveRow("Flit_2015", "K1040");
  WriteOlder();
  EXPECT_EQ(Lines(ComparedWith(OlderFolder() / kScheduleFile)), Compared());
  EXPECT_NE(Compared(), Lines({"--services", "all"}));
}

TEST_F(CompareCommandTest, WithoutAnOldScheduleNothingIsDrawn) {
  const auto check = [this](const fs::path& path, const char* reason) {
    EXPECT_EQ(Run(ComparedWith(path) << "--out" << File("map.png")), 1);
    EXPECT_NE(errors.str().find(reason), std::string::npos) << errors.str();
    EXPECT_FALSE(fs::exists(folder / "map.png"));
  };
  check(folder / "none.mdb", "none.mdb' could not be found.");
  check(folder / "app_data", "app_data' of --compare has no app_data/qavdata.mdb.");
  WriteBytes(folder / "bad.mdb", "no database");
  check(folder / "bad.mdb", "bad.mdb");
  check(folder / "app_map" / "coast.mdb", "coast.mdb");
}

TEST_F(CompareCommandTest, SomeOptionsExcludeIt) {
  const QStringList compare = ComparedWith(OlderFolder());
  EXPECT_EQ(Run(compare + QStringList{"--flights", "K1040", "--out", File("map.png")}), 2);
  EXPECT_NE(errors.str().find("--flights and --compare exclude each other"), std::string::npos);
  EXPECT_EQ(Run(compare + QStringList{"--legend", "--out", File("map.png")}), 2);
  EXPECT_NE(errors.str().find("--compare and --legend exclude each other"), std::string::npos);
  EXPECT_EQ(Run(compare + QStringList{"--out", File("map.html")}), 2);
  EXPECT_EQ(Run(compare + QStringList{"--out", File("map.kml")}), 2);
  EXPECT_NE(errors.str().find("--compare belongs to .png, .svg and .pdf"), std::string::npos);
}

}  // namespace
}  // namespace zerbal::test
