// Whatever the shape of the window, the map shows all that lies where a region of the sample data is shown.
#include <variant>

#include <gtest/gtest.h>

#include "pack/pack_fixture.h"
#include "pack/region_views.h"
#include "zerbal-pack/airline.h"

namespace zerbal::pack {
namespace {

RegionBounds Bounds(const CsvTable& regions, const CsvRow& row) {
  const auto value = [&](const char* field) {
    return std::get<double>(row.values[regions.layout->ColumnIndex(field)]);
  };
  return {value("Reg_FromLon"), value("Reg_FromLat"), value("Reg_ToLon"), value("Reg_ToLat")};
}

TEST(SampleRegions, AreDrawnCompletelyInWindowsOfAnyShape) {
  Problems problems;
  const CsvTable regions = ReadProgramData(test::kPackFolder, problems).regions;
  ASSERT_GE(regions.rows.size(), 15U);
  for (const CsvRow& row : regions.rows) {
    const std::string name(row.Text(regions.layout->ColumnIndex("Reg_Name")));
    const RegionBounds region = Bounds(regions, row);
    EXPECT_FALSE(CutOffNote(region)) << name;
    for (int hundredths = 50; hundredths <= 350; hundredths += 5) {
      const map::Viewport view = test::ViewOf(region, hundredths / 100.0);
      const std::optional<double> missing = test::LongitudeNotDrawn(view);
      EXPECT_FALSE(missing) << name << " at ratio " << hundredths / 100.0 << ": nothing at longitude "
                            << *missing - 180;
    }
  }
}

}  // namespace
}  // namespace zerbal::pack
