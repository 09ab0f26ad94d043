// Files that change under an open database.
#include "jet/read/file_image.h"

#include <filesystem>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "jet/database.h"
#include "jet/format/key.h"
#include "jet/mapped_file_guard.h"
#include "jet/pair_reader.h"
#include "jet/recordset.h"
#include "support/engine_error.h"
#include "support/jet_file.h"
#include "support/jet_formats.h"
#include "support/temp_folder.h"

namespace zerbal::jet::test {
namespace {

/// A table of many pages with an index, in a file on disk.
class ShrinkingFileTest : public BothFormats {
 protected:
  ShrinkingFileTest() {
    InstallMappedFileGuard();
    JetFile built(GetParam());
    TestTable table(built, "T",
                    {{"Lon", ColumnType::kLong, 0, true, 0, 4}, {"Lat", ColumnType::kLong, 1, true, 4, 4}});
    std::vector<TestEntry> entries;
    for (unsigned i = 0; i < kRows; ++i) {
      Bytes key;
      AppendFixedKey(ColumnType::kLong, Chars(Le(i, 4)), true, key);
      entries.push_back({key, table.Add({Le(i, 4), Le(i + 1, 4)})});
    }
    table.indexes = {{"i", {{0, true}}, AddIndexTree(built, table.Page(), entries, 100, true)}};
    table.Finish();
    zerbal::test::WriteBytes(file, Chars(built.Build()));
    size = std::filesystem::file_size(file);
  }
  /// Cuts the file to the pages that a walk has needed at its beginning.
  void Cut() { std::filesystem::resize_file(file, 16384); }

  static constexpr unsigned kRows = 5000;
  const zerbal::test::TempFolder folder;
  const std::filesystem::path file = folder / "shrinking.mdb";
  std::uintmax_t size = 0;
};
ZERBAL_BOTH_FORMATS(ShrinkingFileTest);

constexpr const char* kShorter = "the file became shorter while it was open";

TEST_P(ShrinkingFileTest, EndsAWalkWithAnError) {
  Recordset rows = Database::Open(file).OpenTable("T");
  Cut();
  unsigned count = 0;
  EXPECT_EQ(ReasonOf([&] {
              for (; !rows.Eof(); rows.MoveNext()) {
                EXPECT_EQ(rows["Lon"].AsLong(), static_cast<std::int32_t>(count));
                ++count;
              }
            }),
            kShorter);
  EXPECT_LT(count, kRows);
}

TEST_P(ShrinkingFileTest, EndsAWalkByIndexWithAnError) {
  Recordset rows = Database::Open(file).OpenTable("T");
  rows.SetIndex("i");
  Cut();
  EXPECT_EQ(ReasonOf([&] {
              while (!rows.Eof())
                rows.MoveNext();
            }),
            kShorter);
  EXPECT_EQ(ReasonOf([&] { rows.Seek("4000"); }), kShorter);
}

TEST_P(ShrinkingFileTest, EndsReadingPairsWithAnError) {
  const Recordset rows = Database::Open(file).OpenTable("T");
  PairReader reader(rows, "Lon", "Lat");
  Cut();
  std::vector<LongPair> pairs(1000);
  EXPECT_EQ(ReasonOf([&] {
              while (reader.Read(pairs) > 0) {
              }
            }),
            kShorter);
}

TEST_P(ShrinkingFileTest, NeverGivesAFieldOfARowThatIsGone) {
  Recordset rows = Database::Open(file).OpenTable("T");
  for (unsigned i = 0; i < kRows - 1; ++i)
    rows.MoveNext();
  const Field field = rows["Lat"];
  EXPECT_EQ(field.AsLong(), static_cast<std::int32_t>(kRows));
  std::filesystem::resize_file(file, 0);
  EXPECT_EQ(ReasonOf([&] { field.AsLong(); }), kShorter);
  EXPECT_EQ(ReasonOf([&] { field.AsText(); }), kShorter);
}

TEST_P(ShrinkingFileTest, OtherOpenFilesAreNotConcerned) {
  const auto openCopy = [&](const char* name) {
    std::filesystem::copy_file(file, folder / name);
    return Database::Open(folder / name).OpenTable("T");
  };
  Recordset before = openCopy("before.mdb");
  Recordset cut = Database::Open(file).OpenTable("T");
  Recordset after = openCopy("after.mdb");
  Cut();
  EXPECT_EQ(ReasonOf([&] {
              while (!cut.Eof())
                cut.MoveNext();
            }),
            kShorter);
  for (Recordset* whole : {&before, &after}) {
    unsigned count = 0;
    for (; !whole->Eof(); whole->MoveNext())
      ++count;
    EXPECT_EQ(count, kRows);
  }
  // And the file itself, opened anew, is judged as it is now.
  EXPECT_NE(ReasonOf([&] {
              Recordset again = Database::Open(file).OpenTable("T");
              while (!again.Eof())
                again.MoveNext();
            }),
            "none");
}

TEST_P(ShrinkingFileTest, AReplacedFileStaysAsItWasOpened) {
  Recordset rows = Database::Open(file).OpenTable("T");
  zerbal::test::WriteBytes(folder / "new.mdb", "something else");
  std::filesystem::rename(folder / "new.mdb", file);
  unsigned count = 0;
  for (; !rows.Eof(); rows.MoveNext())
    ++count;
  EXPECT_EQ(count, kRows);
}

TEST_P(ShrinkingFileTest, OpensReadOnlyFilesAndLeavesThemAlone) {
  namespace fs = std::filesystem;
  fs::permissions(file, fs::perms::owner_read);
  const auto before = fs::last_write_time(file);
  {
    Recordset rows = Database::Open(file).OpenTable("T");
    rows.SetIndex("i");
    rows.Seek("77");
    EXPECT_EQ(rows["Lat"].AsLong(), 78);
  }
  EXPECT_EQ(fs::last_write_time(file), before);
  EXPECT_EQ(fs::file_size(file), size);
}

}  // namespace
}  // namespace zerbal::jet::test
