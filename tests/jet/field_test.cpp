// What the fields of a row give: texts, numbers, bytes; and what they refuse.
#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>
#include <string>
#include <string_view>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "jet/database.h"
#include "jet/recordset.h"
#include "support/engine_error.h"
#include "support/jet_file.h"
#include "support/jet_formats.h"

namespace zerbal::jet::test {
namespace {

using testing::HasSubstr;

class FieldTest : public BothFormats {
 protected:
  /// A recordset on a table with one column and one row.
  Recordset One(ColumnType type, int length, const Cell& value, std::uint8_t scale = 0) {
    JetFile file(GetParam());
    const bool fixed = length > 0;
    TestTable table(file, "T", {{"F", type, 0, fixed, 0, fixed ? length : 0, scale}});
    table.Add({value});
    table.Finish();
    return file.Open().OpenTable("T");
  }
  Recordset Text(std::string_view text) { return One(ColumnType::kText, 0, JetFile(GetParam()).Text(text)); }
  Recordset Long(std::int32_t value) {
    return One(ColumnType::kLong, 4, Le(static_cast<std::uint32_t>(value), 4));
  }
  Recordset Double(double value) {
    return One(ColumnType::kDouble, 8, Le(std::bit_cast<std::uint64_t>(value), 8));
  }
  Recordset Single(float value) {
    return One(ColumnType::kSingle, 4, Le(std::bit_cast<std::uint32_t>(value), 4));
  }
  Recordset Currency(std::int64_t value) {
    return One(ColumnType::kCurrency, 8, Le(static_cast<std::uint64_t>(value), 8));
  }
  std::string DateText(double days) {
    return One(ColumnType::kDateTime, 8, Le(std::bit_cast<std::uint64_t>(days), 8)).At(0).AsText();
  }
};
ZERBAL_BOTH_FORMATS(FieldTest);

TEST_P(FieldTest, GivesTextsOfAllTypes) {
  EXPECT_EQ(One(ColumnType::kBoolean, 1, Bytes{}).At(0).AsText(), "1");
  EXPECT_EQ(One(ColumnType::kBoolean, 1, kNull).At(0).AsText(), "0");
  EXPECT_EQ(One(ColumnType::kByte, 1, Le(200, 1)).At(0).AsText(), "200");
  EXPECT_EQ(One(ColumnType::kInteger, 2, Le(0xFF38, 2)).At(0).AsText(), "-200");
  EXPECT_EQ(Long(-1000000).At(0).AsText(), "-1000000");
  EXPECT_EQ(Currency(-12345).At(0).AsText(), "-1.2345");
  EXPECT_EQ(Currency(std::numeric_limits<std::int64_t>::min()).At(0).AsText(), "-922337203685477.5808");
  EXPECT_EQ(Currency(35000).At(0).AsText(), "3.5000");
  EXPECT_EQ(Single(0.1f).At(0).AsText(), "0.1");
  EXPECT_EQ(Double(444.555).At(0).AsText(), "444.555");
  EXPECT_EQ(One(ColumnType::kGuid, 16,
                Le(0x01234567, 4) + Le(0x89AB, 2) + Le(0xCDEF, 2) + Be(0x0123456789ABCDEF, 8))
                .At(0)
                .AsText(),
            "{01234567-89ab-cdef-0123-456789abcdef}");
  EXPECT_EQ(One(ColumnType::kBinary, 0, Bytes{0, 0xAB, 0xFF}).At(0).AsText(), "0x00abff");
  EXPECT_EQ(Text("plain").At(0).AsText(), "plain");
  EXPECT_EQ(One(static_cast<ColumnType>(0x11), 0, Bytes{1, 2}).At(0).AsText(), "0x0102");  // a type unknown
}

TEST_P(FieldTest, GivesTextsOfNumerics) {
  if (GetParam() == Format::kJet3)
    GTEST_SKIP() << "the 1997 format has no numerics";
  const auto numeric = [this](std::uint8_t sign, std::uint64_t high, std::uint64_t low, std::uint8_t scale) {
    const Bytes words = Le(high >> 32, 4) + Le(high, 4) + Le(low >> 32, 4) + Le(low, 4);
    return One(ColumnType::kNumeric, 17, Bytes{sign} + words, scale);
  };
  EXPECT_EQ(numeric(0, 0, 1250, 2).At(0).AsText(), "12.50");
  EXPECT_EQ(numeric(0x80, 0, 5, 3).At(0).AsText(), "-0.005");
  EXPECT_EQ(numeric(0x80, 0, 0, 0).At(0).AsText(), "0");
  EXPECT_EQ(numeric(0, 0x204FCE5E, 0x3E25026110000000, 0).At(0).AsText(), "10000000000000000000000000000");
  EXPECT_EQ(numeric(0, ~0ull, ~0ull, 0).At(0).AsText(), "340282366920938463463374607431768211455");
  EXPECT_EQ(numeric(0, 0, 1250, 2).At(0).AsLong(), 12);  // a tie goes to even
  EXPECT_EQ(numeric(0, 0, 1350, 2).At(0).AsLong(), 14);
  EXPECT_EQ(numeric(0x80, 0, 425, 1).At(0).AsDouble(), -42.5);
  EXPECT_EQ(CauseOf([&] { numeric(0, 1, 0, 0).At(0).AsLong(); }), "holds a number out of range");
  EXPECT_THAT(ReasonOf([&] { numeric(0, 0, 1, 29); }), HasSubstr("decimals"));
}

TEST_P(FieldTest, GivesTextsOfDates) {
  EXPECT_EQ(DateText(0), "1899-12-30 00:00:00");
  EXPECT_EQ(DateText(-1.25), "1899-12-29 06:00:00");  // the time counts forward before day 0 too
  EXPECT_EQ(DateText(-0.5), "1899-12-30 12:00:00");
  EXPECT_EQ(DateText(36525 + 0.5), "1999-12-31 12:00:00");
  EXPECT_EQ(DateText(36585), "2000-02-29 00:00:00");
  EXPECT_EQ(DateText(1 + 1.5 / 86400), "1899-12-31 00:00:01.500");
  EXPECT_EQ(DateText(2958465), "9999-12-31 00:00:00");
  EXPECT_EQ(DateText(-657434), "0100-01-01 00:00:00");
  EXPECT_EQ(DateText(9.9999999999), "1900-01-09 00:00:00");  // rounds up to the next day
  EXPECT_EQ(DateText(1e300), "1e300");                       // no date at all
  EXPECT_EQ(DateText(std::nan("")), "nan");
}

TEST_P(FieldTest, ConvertsWholeNumbers) {
  EXPECT_EQ(Long(255).At(0).AsByte(), 255);
  EXPECT_EQ(Long(-32768).At(0).AsInteger(), -32768);
  EXPECT_EQ(One(ColumnType::kByte, 1, Le(200, 1)).At(0).AsLong(), 200);
  EXPECT_EQ(One(ColumnType::kInteger, 2, Le(0x8000, 2)).At(0).AsLong(), -32768);
  EXPECT_EQ(One(ColumnType::kBoolean, 1, Bytes{}).At(0).AsLong(), 1);
  EXPECT_EQ(Long(5).At(0).AsSingle(), 5.0f);
  EXPECT_EQ(Long(16777217).At(0).AsDouble(), 16777217.0);
  EXPECT_TRUE(Long(-1).At(0).AsBoolean());
  EXPECT_FALSE(Long(0).At(0).AsBoolean());
}

TEST_P(FieldTest, RoundsToNearestTiesToEven) {
  EXPECT_EQ(Double(2.5).At(0).AsLong(), 2);
  EXPECT_EQ(Double(3.5).At(0).AsLong(), 4);
  EXPECT_EQ(Double(-2.5).At(0).AsInteger(), -2);
  EXPECT_EQ(Double(254.6).At(0).AsByte(), 255);
  EXPECT_EQ(Double(-0.4).At(0).AsByte(), 0);
  EXPECT_EQ(Single(7.5f).At(0).AsLong(), 8);
  EXPECT_EQ(Currency(25000).At(0).AsLong(), 2);
  EXPECT_EQ(Currency(15000).At(0).AsLong(), 2);
  EXPECT_EQ(Double(2147483647.4).At(0).AsLong(), 2147483647);
}

TEST_P(FieldTest, RefusesWhatDoesNotFit) {
  EXPECT_EQ(CauseOf([&] { Long(256).At(0).AsByte(); }), "holds a number out of range");
  EXPECT_EQ(CauseOf([&] { Long(-1).At(0).AsByte(); }), "holds a number out of range");
  EXPECT_EQ(CauseOf([&] { Long(32768).At(0).AsInteger(); }), "holds a number out of range");
  EXPECT_EQ(CauseOf([&] { Double(255.5).At(0).AsByte(); }), "holds a number out of range");
  EXPECT_EQ(CauseOf([&] { Double(2147483647.5).At(0).AsLong(); }), "holds a number out of range");
  EXPECT_EQ(CauseOf([&] { Double(1e300).At(0).AsLong(); }), "holds a number out of range");
  EXPECT_EQ(CauseOf([&] { Double(std::nan("")).At(0).AsLong(); }), "holds a number out of range");
  EXPECT_EQ(CauseOf([&] { Double(-1e300).At(0).AsLong(); }), "holds a number out of range");
  EXPECT_EQ(CauseOf([&] { Double(-0.6).At(0).AsByte(); }), "holds a number out of range");
  EXPECT_EQ(CauseOf([&] { Double(-40000).At(0).AsInteger(); }), "holds a number out of range");
  EXPECT_EQ(CauseOf([&] { Double(40000).At(0).AsInteger(); }), "holds a number out of range");
  EXPECT_EQ(CauseOf([&] { Long(-32769).At(0).AsInteger(); }), "holds a number out of range");
  EXPECT_EQ(CauseOf([&] { Text("-99999999999").At(0).AsLong(); }), "holds a number out of range");
  EXPECT_EQ(CauseOf([&] { Text("1e999").At(0).AsSingle(); }), "holds a number out of range");
  EXPECT_EQ(CauseOf([&] { Double(1e39).At(0).AsSingle(); }), "holds a number out of range");
  EXPECT_EQ(CauseOf([&] { Text("99999999999").At(0).AsLong(); }), "holds a number out of range");
  EXPECT_EQ(CauseOf([&] { Text("1e999").At(0).AsDouble(); }), "holds a number out of range");
  EXPECT_EQ(Single(std::numeric_limits<float>::max()).At(0).AsSingle(), std::numeric_limits<float>::max());
}

TEST_P(FieldTest, KeepsInfinityOfRealColumns) {
  constexpr double kInfinity = std::numeric_limits<double>::infinity();
  EXPECT_EQ(Double(kInfinity).At(0).AsDouble(), kInfinity);
  EXPECT_EQ(Double(-kInfinity).At(0).AsSingle(), -std::numeric_limits<float>::infinity());
  EXPECT_EQ(Single(std::numeric_limits<float>::infinity()).At(0).AsDouble(), kInfinity);
  EXPECT_EQ(Double(kInfinity).At(0).AsText(), "inf");
  EXPECT_EQ(Double(-kInfinity).At(0).AsText(), "-inf");
}

TEST_P(FieldTest, GivesNoBytesOfBooleans) {
  EXPECT_TRUE(One(ColumnType::kBoolean, 1, Bytes{}).At(0).AsBytes().empty());
}

TEST_P(FieldTest, RefusesNull) {
  for (const ColumnType type : {ColumnType::kLong, ColumnType::kSingle, ColumnType::kDouble}) {
    Recordset rows = One(type, type == ColumnType::kDouble ? 8 : 4, kNull);
    const Field field = rows.At(0);
    EXPECT_EQ(CauseOf([&] { field.AsByte(); }), "is Null");
    EXPECT_EQ(CauseOf([&] { field.AsInteger(); }), "is Null");
    EXPECT_EQ(CauseOf([&] { field.AsLong(); }), "is Null");
    EXPECT_EQ(CauseOf([&] { field.AsSingle(); }), "is Null");
    EXPECT_EQ(CauseOf([&] { field.AsDouble(); }), "is Null");
    EXPECT_EQ(CauseOf([&] { field.AsBoolean(); }), "is Null");
    EXPECT_TRUE(field.IsNull());
    EXPECT_TRUE(field.AsBytes().empty());
  }
  EXPECT_EQ(CauseOf([&] { One(ColumnType::kText, 0, kNull).At(0).AsLong(); }), "is Null");
  EXPECT_THAT(ReasonOf([&] { One(ColumnType::kLong, 4, kNull).At(0).AsLong(); }),
              HasSubstr("field 'F' is Null"));
}

TEST_P(FieldTest, ConvertsTextsThatAreNumbers) {
  EXPECT_EQ(Text("42").At(0).AsByte(), 42);
  EXPECT_EQ(Text(" 42 ").At(0).AsLong(), 42);
  EXPECT_EQ(Text("-2.5").At(0).AsLong(), -2);
  EXPECT_EQ(Text("8.57").At(0).AsSingle(), 8.57f);
  EXPECT_EQ(Text("1").At(0).AsBoolean(), true);
  for (const char* text : {"", "abc", "12 ft", "0x10", "nan", " "})
    EXPECT_EQ(CauseOf([&] { Text(text).At(0).AsLong(); }), "holds no number") << text;
  EXPECT_EQ(CauseOf([&] { One(ColumnType::kGuid, 16, Bytes(16)).At(0).AsLong(); }), "holds no number");
  EXPECT_EQ(CauseOf([&] { One(ColumnType::kBinary, 0, Bytes{1}).At(0).AsDouble(); }), "holds no number");
}

TEST_P(FieldTest, ComparesTexts) {
  EXPECT_TRUE(Text("Oslo").At(0).EqualsText("Oslo"));
  EXPECT_FALSE(Text("Oslo").At(0).EqualsText("OSLO"));
  EXPECT_TRUE(Long(42).At(0).EqualsText("42"));
  EXPECT_FALSE(Long(42).At(0).EqualsText("42.0"));
  EXPECT_TRUE(One(ColumnType::kBoolean, 1, kNull).At(0).EqualsText("0"));
  EXPECT_FALSE(One(ColumnType::kLong, 4, kNull).At(0).EqualsText(""));
}

TEST_P(FieldTest, AppendsToTheCallersText) {
  std::string text = "at ";
  Text("Oslo").At(0).AppendText(text);
  EXPECT_EQ(text, "at Oslo");
}

TEST_P(FieldTest, RefusesValuesOfTheWrongSize) {
  EXPECT_THAT(ReasonOf([&] {
                One(ColumnType::kLong, 0, Bytes{1, 2}).At(0).AsLong();
              }),
              HasSubstr("size of its type"));
  EXPECT_THAT(ReasonOf([&] {
                One(ColumnType::kLong, 3, Bytes{1, 2, 3}).At(0).AsText();
              }),
              HasSubstr("size of its type"));
  EXPECT_THAT(ReasonOf([&] { One(ColumnType::kDouble, 4, Le(0, 4)).At(0).AsDouble(); }),
              HasSubstr("size of its type"));
  EXPECT_THAT(ReasonOf([&] { One(ColumnType::kGuid, 0, Bytes(3)).At(0).AsText(); }),
              HasSubstr("size of its type"));
}

}  // namespace
}  // namespace zerbal::jet::test
