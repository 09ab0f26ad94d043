// Rows that are not what they should be.
#include "jet/read/row.h"

#include <gtest/gtest.h>

#include "support/jet_file.h"

namespace zerbal::jet::test {
namespace {

Row Parse(const Bytes& bytes, bool jet3, bool variable = true) {
  return Row({bytes.data(), bytes.size()}, jet3 ? Format::kJet3 : Format::kJet4, variable);
}

TEST(RowTest, RefusesRowsShorterThanTheirOutline) {
  EXPECT_THROW(Parse({}, false), Damage);
  EXPECT_THROW(Parse({1}, false), Damage);
  EXPECT_THROW(Parse({}, true), Damage);
  EXPECT_THROW(Parse(Le(9, 2) + Bytes{0}, false, false), Damage);  // nine columns need two bytes of mask
  EXPECT_THROW(Parse(Bytes{9, 0}, true, false), Damage);
  EXPECT_THROW(Parse(Le(1, 2) + Bytes{1}, false), Damage);  // no table of offsets
  EXPECT_THROW(Parse(Bytes{1, 1}, true), Damage);
  EXPECT_THROW(Parse(Le(1, 2) + Le(2, 2) + Le(2, 2) + Le(2, 2) + Bytes{1}, false),
               Damage);  // two parts, one offset
  EXPECT_THROW(Parse(Bytes{1, 1, 1, 9, 1}, true), Damage);
  EXPECT_NO_THROW(Parse(Le(1, 2) + Le(2, 2) + Le(2, 2) + Le(1, 2) + Bytes{1}, false));
  EXPECT_NO_THROW(Parse(Bytes{1, 1, 1, 1, 1}, true));
}

TEST(RowTest, NamesWhatIsWrongWithAShortRow) {
  const auto reason = [](const Bytes& bytes) -> std::string {
    try {
      Parse(bytes, true);
    } catch (const Damage& damage) {
      return damage.what();
    }
    return "";
  };
  EXPECT_EQ(reason({1, 1}), "a row is damaged");
  EXPECT_EQ(reason({1, 1, 1}), "a row is damaged");
}

TEST(RowTest, RefusesAnEndOfDataWithinTheOffsets) {
  EXPECT_THROW(Parse(Le(1, 2) + Le(4, 2) + Le(2, 2) + Le(1, 2) + Bytes{1}, false), Damage);
  EXPECT_THROW(Parse(Le(1, 2) + Le(1, 2) + Le(2, 2) + Le(1, 2) + Bytes{1}, false), Damage);
  EXPECT_THROW(Parse(Bytes{1, 2, 1, 1, 1}, true), Damage);
}

ColumnInfo Variable() {
  ColumnInfo column;
  column.type = ColumnType::kText;
  return column;
}

TEST(RowTest, RefusesValuesThatOverlapOrLieOutside) {
  ColumnPlace first, second;
  second.number = 1;
  second.variableIndex = 1;
  // Two parts; offsets are stored from the end of the data back to part 0.
  const auto row = [](unsigned end, unsigned offset1, unsigned offset0) {
    return Le(2, 2) + Raw("abcd") + Le(end, 2) + Le(offset1, 2) + Le(offset0, 2) + Le(2, 2) + Bytes{3};
  };
  const Bytes good = row(6, 4, 2);
  EXPECT_EQ(Parse(good, false).Value(Variable(), first)->Chars(), "ab");
  EXPECT_EQ(Parse(good, false).Value(Variable(), second)->Chars(), "cd");
  const Bytes crossed = row(6, 2, 4);
  EXPECT_THROW(Parse(crossed, false).Value(Variable(), first), Damage);
  const Bytes outside = row(6, 100, 2);
  EXPECT_THROW(Parse(outside, false).Value(Variable(), first), Damage);
  EXPECT_THROW(Parse(outside, false).Value(Variable(), second), Damage);
  const Bytes head = row(6, 4, 1);
  EXPECT_THROW(Parse(head, false).Value(Variable(), first), Damage);
}

TEST(RowTest, RefusesFixedValuesBehindTheValues) {
  ColumnInfo column;
  column.fixed = true;
  ColumnPlace place;
  place.fixedLength = 4;
  const Bytes good = Le(1, 2) + Le(77, 4) + Bytes{1};
  EXPECT_EQ(Parse(good, false, false).Value(column, place)->U32(0), 77u);
  place.fixedOffset = 1;
  EXPECT_THROW(Parse(good, false, false).Value(column, place), Damage);
  place.fixedOffset = 0xFFFF;
  EXPECT_THROW(Parse(good, false, false).Value(column, place), Damage);
}

TEST(RowTest, IgnoresColumnsBeyondTheTable) {
  const Bytes many = Le(2000, 2) + Bytes(250, 0xFF);  // a mask of 250 bytes
  const Row row = Parse(many, false, false);
  EXPECT_TRUE(row.Has(5));
  EXPECT_FALSE(row.Has(2000));
}

}  // namespace
}  // namespace zerbal::jet::test
