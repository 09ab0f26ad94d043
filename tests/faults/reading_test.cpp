// Reading and drawing while memory runs out: an error or a complete result.
#include <string>

#include <gtest/gtest.h>

#include "faults/all_layers.h"
#include "faults/failing_allocations.h"
#include "jet/database.h"
#include "jet/recordset.h"
#include "map/recorder.h"
#include "support/small_world.h"
#include "support/temp_folder.h"

namespace zerbal::test {
namespace {

void Nothing() {}

/// All values of a table in the order of an index, or in stored order.
std::string RowsOf(jet::Database& database, const std::string& table, const std::string& index) {
  jet::Recordset rows = database.OpenTable(table);
  if (!index.empty())
    rows.SetIndex(index);
  std::string text;
  for (rows.MoveFirst(); !rows.Eof(); rows.MoveNext()) {
    for (int i = 0; i < static_cast<int>(rows.Columns().size()); ++i) {
      if (!rows.At(i).IsNull())
        rows.At(i).AppendText(text);
      text += ';';
    }
  }
  return text;
}

TEST(ReadingWithoutMemory, IsAnError) {
  const TempFolder folder;
  SmallWorld().Write(folder.Path());
  const std::filesystem::path file = folder / "app_data" / "qavdata.mdb";
  std::string all;
  const auto read = [&] {
    all.clear();
    try {
      jet::Database database = jet::Database::Open(file);
      for (const std::string& table : database.TableNames())
        all += RowsOf(database, table, "");
      all += RowsOf(database, "flit", "flituni");
    } catch (const std::bad_alloc&) {
      all = "out of memory";
    }
  };
  read();
  const std::string expected = all;
  EXPECT_GT(expected.size(), 4000U);
  const int allocations = FailEachAllocation(
      Nothing, read, [&] { EXPECT_TRUE(all == "out of memory" || all == expected) << all; });
  EXPECT_GT(allocations, 50);
}

/// What a cursor that has failed does afterwards.
TEST(ReadingWithoutMemory, LeavesACursorThatReadsOn) {
  const TempFolder folder;
  SmallWorld().Write(folder.Path());
  jet::Database database = jet::Database::Open(folder / "app_data" / "qavdata.mdb");
  const std::string expected = RowsOf(database, "flit", "flituni");
  FailEachAllocation(
      Nothing,
      [&] {
        try {
          RowsOf(database, "flit", "flituni");
        } catch (const std::bad_alloc&) {
          return;
        }
      },
      [&] { EXPECT_EQ(RowsOf(database, "flit", "flituni"), expected); });
}

TEST(DrawingWithoutMemory, LeavesOutNoMoreThanOneStep) {
  const TempFolder folder;
  SmallWorld().Write(folder.Path());
  AllLayers layers(folder.Path());
  for (const char* region : {"FOUR", "MED"}) {
    map::Recorder whole;
    layers.Draw(region, whole);
    ASSERT_GT(whole.Operations().size(), 20U);
    std::size_t drawn = 0;
    bool refused = false;
    const auto draw = [&] {
      map::Recorder recorder;
      refused = false;
      AllLayers::errors = 0;
      try {
        layers.Draw(region, recorder);
      } catch (const std::bad_alloc&) {
        refused = true;
      }
      drawn = recorder.Operations().size();
    };
    FailEachAllocation(
        Nothing, draw,
        [&] {
          // An airport or a leg may be left out, or the rest of one step.
          EXPECT_TRUE(refused || AllLayers::errors == 1 || drawn + 3 >= whole.Operations().size())
              << region << ": " << drawn << " of " << whole.Operations().size();
          EXPECT_LE(drawn, whole.Operations().size());
        },
        7);
    draw();
    EXPECT_EQ(drawn, whole.Operations().size());
  }
}

}  // namespace
}  // namespace zerbal::test
