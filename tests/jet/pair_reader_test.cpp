#include "jet/pair_reader.h"

#include <bit>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "jet/database.h"
#include "jet/recordset.h"
#include "support/engine_error.h"
#include "support/jet_file.h"
#include "support/jet_formats.h"

namespace zerbal::jet::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

using Pair = std::pair<std::int32_t, std::int32_t>;

class PairReaderTest : public BothFormats {
 protected:
  PairReader Reader() {
    const Recordset rows = file.Open().OpenTable("T");
    return {rows, "lon", "LAT"};
  }
  static std::vector<Pair> ReadAll(PairReader& reader, std::size_t batch) {
    std::vector<Pair> pairs;
    std::vector<LongPair> buffer(batch);
    for (std::size_t count = reader.Read(buffer); count > 0; count = reader.Read(buffer)) {
      for (std::size_t i = 0; i < count; ++i)
        pairs.emplace_back(buffer[i].first, buffer[i].second);
    }
    EXPECT_EQ(reader.Read(buffer), 0u);  // the end stays the end
    return pairs;
  }

  JetFile file{GetParam()};
  const std::vector<TestColumn> lonLat = {{"Lon", ColumnType::kLong, 0, true, 0, 4},
                                          {"Lat", ColumnType::kLong, 1, true, 4, 4}};
};
ZERBAL_BOTH_FORMATS(PairReaderTest);

TEST_P(PairReaderTest, ReadsAllRowsInStoredOrder) {
  TestTable table(file, "T", lonLat);
  std::vector<Pair> expected;
  for (int i = 0; i < 1000; ++i) {
    const std::int32_t lon = i % 50 == 0 ? -1000000 : i * 1000, lat = -i;
    table.Add({Le(static_cast<std::uint32_t>(lon), 4), Le(static_cast<std::uint32_t>(lat), 4)});
    expected.emplace_back(lon, lat);
    if (i % 333 == 0)
      table.StartPage();
  }
  table.Finish();
  for (const std::size_t batch : {1, 7, 255, 256, 5000}) {
    PairReader reader = Reader();
    EXPECT_EQ(ReadAll(reader, batch), expected) << batch;
  }
}

TEST_P(PairReaderTest, AgreesWithTheRecordsetOnEveryKindOfRow) {
  // An older row without the last column, a deleted and a moved row, in between rows of the usual outline.
  TestTable table(file, "T",
                  {{"Lon", ColumnType::kLong, 0, true, 0, 4},
                   {"Lat", ColumnType::kLong, 9, true, 8, 4},
                   {"Late", ColumnType::kLong, 12, true, 12, 4}});
  table.Add({Le(1, 4), Le(2, 4), Le(0, 4)});
  table.AddBytes(table.RowBytes({Le(3, 4), Le(4, 4), kNull}, 10));
  table.AddBytes(table.RowBytes({Le(9, 4), Le(9, 4), kNull}), 0xC000);
  const RecordPointer target = table.AddBytes(table.RowBytes({Le(5, 4), Le(6, 4), kNull}), 0x8000);
  table.AddBytes(Le(target.ToU32(), 4), 0x4000);
  table.Add({Le(7, 4), Le(8, 4), kNull});
  table.Finish();
  std::vector<Pair> expected;
  for (Recordset rows = file.Open().OpenTable("T"); !rows.Eof(); rows.MoveNext())
    expected.emplace_back(rows["Lon"].AsLong(), rows["Lat"].AsLong());
  PairReader reader = Reader();
  EXPECT_EQ(ReadAll(reader, 4), expected);
  EXPECT_THAT(expected, ElementsAre(Pair(1, 2), Pair(3, 4), Pair(5, 6), Pair(7, 8)));
}

constexpr std::uint32_t kRowsOfPage = 9;

/// The rows that can be read, and the reason why others cannot.
using Outcome = std::pair<std::vector<Pair>, std::string>;

Outcome ReadByRecordset(const Database& database) {
  Outcome outcome;
  outcome.second = ReasonOf([&] {
    for (Recordset rows = database.OpenTable("T"); !rows.Eof(); rows.MoveNext())
      outcome.first.emplace_back(rows["Lon"].AsLong(), rows["Lat"].AsLong());
  });
  return outcome;
}

Outcome ReadByPairs(PairReader reader, std::size_t batch) {
  Outcome outcome;
  std::vector<LongPair> buffer(batch);
  outcome.second = ReasonOf([&] {
    while (const std::size_t count = reader.Read(buffer))
      for (std::size_t i = 0; i < count; ++i)
        outcome.first.emplace_back(buffer[i].first, buffer[i].second);
  });
  return outcome;
}

struct Deviation {
  Bytes row;
  std::uint16_t flags = 0;
};

/// Rows that differ from the usual ones of a table, of which they are made, in one respect each.
std::vector<Deviation> Deviations(const TestTable& table) {
  const Bytes usual = table.RowBytes({Le(7, 4), Le(8, 4)});
  return {{usual},
          {usual, 0x8000},
          {usual, 0x4000},
          {table.RowBytes({Le(7, 4), kNull})},
          {table.RowBytes({kNull, Le(8, 4)})},
          {usual + Bytes{usual.back()}},
          {{2}},
          {Bytes(usual.size(), 0xFF)},
          {Bytes()}};
}

/// Writes a table of two pages whose second one has `deviation` at row `at`.
void AddDeviatingTable(JetFile& file, const std::vector<TestColumn>& columns, std::uint32_t at,
                       std::size_t kind) {
  TestTable table(file, "T", columns);
  for (std::uint32_t i = 0; i < 2 * kRowsOfPage; ++i) {
    if (i == kRowsOfPage)
      table.StartPage();
    if (i == kRowsOfPage + at) {
      const Deviation deviation = Deviations(table).at(kind);
      table.AddBytes(deviation.row, deviation.flags);
    } else {
      table.Add({Le(i, 4), Le(100 + i, 4)});
    }
  }
  table.Finish();
}

TEST_P(PairReaderTest, AgreesWithTheRecordsetWhereverOneRowOfAPageDeviates) {
  const std::vector<TestColumn> orders[] = {
      lonLat,
      {{"Lat", ColumnType::kLong, 0, true, 0, 4}, {"Lon", ColumnType::kLong, 1, true, 4, 4}},
      {{"Lon", ColumnType::kLong, 0, true, 2, 4}, {"Lat", ColumnType::kLong, 60, true, 9, 4}},
      {{"Lon", ColumnType::kLong, 0, true, 0, 4}, {"Lat", ColumnType::kLong, 90, true, 4, 4}}};
  for (const auto& columns : orders) {
    const std::size_t kinds = Deviations(TestTable(file, "T", columns)).size();
    for (std::uint32_t at = 0; at < kRowsOfPage; ++at) {
      for (std::size_t kind = 0; kind < kinds; ++kind) {
        file = JetFile(GetParam());
        AddDeviatingTable(file, columns, at, kind);
        const Database database = file.Open();
        const Outcome expected = ReadByRecordset(database);
        for (const std::size_t batch : {1, 4, 11, 100})
          EXPECT_EQ(ReadByPairs(PairReader(database.OpenTable("T"), "Lon", "Lat"), batch), expected)
              << at << ' ' << kind;
      }
    }
  }
}

TEST_P(PairReaderTest, ConvertsOtherTypes) {
  TestTable table(file, "T",
                  {{"Lon", ColumnType::kDouble, 0, true, 0, 8}, {"Lat", ColumnType::kText, 1, false, 0, 40}});
  table.Add({Le(std::bit_cast<std::uint64_t>(2.5), 8), file.Text("-17")});
  table.Add({Le(std::bit_cast<std::uint64_t>(-1e6), 8), file.Text("12")});
  table.Finish();
  PairReader reader = Reader();
  EXPECT_THAT(ReadAll(reader, 10), ElementsAre(Pair(2, -17), Pair(-1000000, 12)));
}

TEST_P(PairReaderTest, ReadsLongsBesideVariableColumns) {
  TestTable table(file, "T",
                  {{"Lon", ColumnType::kLong, 0, true, 0, 4},
                   {"Lat", ColumnType::kLong, 1, true, 4, 4},
                   {"Note", ColumnType::kText, 2, false, 0, 40}});
  table.Add({Le(1, 4), Le(2, 4), file.Text("x")});
  table.Add({Le(3, 4), Le(4, 4), kNull});
  table.Finish();
  PairReader reader = Reader();
  EXPECT_THAT(ReadAll(reader, 10), ElementsAre(Pair(1, 2), Pair(3, 4)));
}

TEST_P(PairReaderTest, HasNothingToReadInAnEmptyTable) {
  TestTable(file, "T", lonLat).Finish();
  PairReader reader = Reader();
  EXPECT_THAT(ReadAll(reader, 10), ElementsAre());
  EXPECT_EQ(reader.Read({}), 0u);
}

TEST_P(PairReaderTest, SaysWhichColumnIsMissing) {
  TestTable(file, "T", lonLat).Finish();
  const Recordset rows = file.Open().OpenTable("T");
  EXPECT_THAT(ReasonOf([&] { PairReader(rows, "Lon", "Latitude"); }), HasSubstr("no field 'Latitude'"));
}

TEST_P(PairReaderTest, DeliversTheRowsBeforeABadOne) {
  const std::vector<std::vector<TestColumn>> kinds = {
      lonLat, {{"Lon", ColumnType::kLong, 0, true, 0, 4}, {"Lat", ColumnType::kLong, 1, false, 0, 4}}};
  for (const auto& columns : kinds) {
    file = JetFile(GetParam());
    TestTable table(file, "T", columns);
    table.Add({Le(1, 4), Le(2, 4)});
    table.Add({Le(3, 4), kNull});
    table.Add({Le(5, 4), Le(6, 4)});
    table.Finish();
    PairReader reader = Reader();
    std::vector<LongPair> buffer(10);
    ASSERT_EQ(reader.Read(buffer), 1u);
    EXPECT_EQ(buffer[0].second, 2);
    EXPECT_EQ(CauseOf([&] { reader.Read(buffer); }), "is Null");
    EXPECT_THAT(ReasonOf([&] { reader.Read(buffer); }), HasSubstr("'Lat' is Null"));  // and again
  }
}

TEST_P(PairReaderTest, PassesOverPagesThatAreNotTheTables) {
  TestTable table(file, "T", lonLat);
  for (std::uint32_t i = 1; i <= 4; ++i) {
    table.Add({Le(i, 4), Le(i, 4)});
    table.StartPage();
  }
  table.Finish();
  file.Put(table.DataPages()[0], 4, Le(99, 4));
  file.Put(table.DataPages()[2], 0, {4});
  PairReader reader = Reader();
  EXPECT_THAT(ReadAll(reader, 10), ElementsAre(Pair(2, 2), Pair(4, 4)));
}

TEST_P(PairReaderTest, FindsThePagesWithoutAUsageMap) {
  TestTable table(file, "T", lonLat);
  TestTable other(file, "Other", lonLat);
  for (std::uint32_t i = 1; i <= 3; ++i) {
    table.Add({Le(i, 4), Le(i, 4)});
    table.StartPage();
    other.Add({Le(99, 4), Le(99, 4)});
    other.StartPage();
  }
  other.Finish();
  table.ownedPages = file.AddRow(file.AddDataPage(0), Bytes{2} + Bytes(68));
  table.Finish();
  PairReader reader = Reader();
  EXPECT_THAT(ReadAll(reader, 10), ElementsAre(Pair(1, 1), Pair(2, 2), Pair(3, 3)));
}

TEST_P(PairReaderTest, RefusesDamagedRowsAndPages) {
  const auto reading = [this](const Bytes& row, const std::function<void(std::uint32_t)>& damage) {
    file = JetFile(GetParam());
    TestTable table(file, "T", lonLat);
    table.Add({Le(1, 4), Le(2, 4)});
    table.AddBytes(row);
    table.Finish();
    PairReader reader = [&] {
      damage(table.DataPages()[0]);
      return Reader();
    }();
    std::vector<LongPair> buffer(1);
    EXPECT_EQ(reader.Read(buffer), 1u);
    return ReasonOf([&] { reader.Read(buffer); });
  };
  const auto none = [](std::uint32_t) {};
  EXPECT_THAT(reading({}, none), HasSubstr("damaged"));
  EXPECT_THAT(reading({1}, none),
              testing::AnyOf(HasSubstr("damaged"), HasSubstr("too short"), HasSubstr("Null")));
  EXPECT_THAT(reading({2, 0, 1, 0, 0, 0, 3}, none), HasSubstr("too short"));
  EXPECT_THAT(reading(Bytes(11, 0xFF), none), HasSubstr("damaged"));
  const Bytes good = Bytes(11, 2);
  EXPECT_THAT(reading(good, [this](std::uint32_t page) { file.Put(page, file.DirectoryEntry(1), Le(5, 2)); }),
              HasSubstr("within its page"));
  EXPECT_THAT(
      reading(good, [this](std::uint32_t page) { file.Put(page, file.DirectoryEntry(1), Le(0x1FFF, 2)); }),
      HasSubstr("within its page"));
}

}  // namespace
}  // namespace zerbal::jet::test
