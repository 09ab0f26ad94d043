// Memo and OLE values in every form of storage.
#include "jet/read/long_value.h"

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

constexpr std::uint32_t kLongValueOwner = 0x4C41564C;

class LongValueTest : public BothFormats {
 protected:
  static Bytes Descriptor(std::size_t size, unsigned kind, RecordPointer first = {}) {
    return Le(size | kind << 30, 4) + Le(first.ToU32(), 4) +
           Le(0xDEADBEEF, 4);  // the last word may be anything
  }

  /// Stores pieces as a chain and returns the first.
  RecordPointer Chain(const std::vector<Bytes>& pieces, std::uint32_t end = 0) {
    RecordPointer next = RecordPointer::FromU32(end);
    for (std::size_t i = pieces.size(); i-- > 0;)
      next = file.AddRow(file.AddDataPage(kLongValueOwner), Le(next.ToU32(), 4) + pieces[i]);
    return next;
  }

  /// A recordset on one row with a memo of the given stored bytes.
  Recordset Memo(const Cell& stored, const OpenOptions& options = {}) {
    TestTable table(file, "T",
                    {{"M", ColumnType::kMemo, 0, false, 0, 0}, {"O", ColumnType::kOle, 1, false, 1, 0}});
    table.Add({stored, stored});
    table.Finish();
    return Database::FromBytes(file.Build(), "x", options).OpenTable("T");
  }

  JetFile file{GetParam()};
};
ZERBAL_BOTH_FORMATS(LongValueTest);

TEST_P(LongValueTest, ReadsInlineValues) {
  const Bytes text = file.Text("short memo");
  Recordset rows = Memo(Descriptor(text.size(), 2) + text);
  EXPECT_EQ(rows["M"].AsText(), "short memo");
  EXPECT_TRUE(rows["M"].EqualsText("short memo"));
  EXPECT_EQ(rows["M"].AsBytes(), text);
}

TEST_P(LongValueTest, ReadsValuesInOneRow) {
  const Bytes text = file.Text("a memo elsewhere");
  const RecordPointer where = file.AddRow(file.AddDataPage(kLongValueOwner), text + file.Text("surplus"));
  Recordset rows = Memo(Descriptor(text.size(), 1, where));
  EXPECT_EQ(rows["M"].AsText(), "a memo elsewhere");
  EXPECT_EQ(rows["O"].AsBytes(), text);
}

TEST_P(LongValueTest, ReadsChains) {
  std::string whole;
  std::vector<Bytes> pieces;
  for (int i = 0; i < 20; ++i) {
    const std::string part(300 + static_cast<std::size_t>(i), static_cast<char>('a' + i));
    whole += part;
    pieces.push_back(file.Text(part));
  }
  const std::size_t size = file.Text(whole).size();
  const RecordPointer first = Chain(pieces);
  Recordset rows = Memo(Descriptor(size, 0, first));
  EXPECT_EQ(rows["M"].AsText(), whole);
  EXPECT_TRUE(rows["M"].EqualsText(whole));
  EXPECT_FALSE(rows["M"].EqualsText(whole + "x"));
  EXPECT_EQ(rows["O"].AsText().size(), 2 + 2 * size);
}

TEST_P(LongValueTest, ReadsCompressedMemos) {
  if (GetParam() == Format::kJet3)
    GTEST_SKIP() << "the 1997 format does not compress";
  const Bytes text = Compressed("Z\xFCrich");
  EXPECT_EQ(Memo(Descriptor(text.size(), 2) + text)["M"].AsText(), "Zürich");
}

TEST_P(LongValueTest, TellsEmptyFromNull) {
  EXPECT_TRUE(Memo(kNull)["M"].IsNull());
  file = JetFile(GetParam());
  EXPECT_FALSE(Memo(Bytes{})["M"].IsNull());
  file = JetFile(GetParam());
  Recordset rows = Memo(Descriptor(0, 1));
  EXPECT_FALSE(rows["M"].IsNull());
  EXPECT_EQ(rows["M"].AsText(), "");
  EXPECT_TRUE(rows["M"].EqualsText(""));
  EXPECT_EQ(rows["O"].AsText(), "0x");
}

TEST_P(LongValueTest, ConvertsMemosThatAreNumbers) {
  const Bytes text = file.Text("1234");
  EXPECT_EQ(Memo(Descriptor(text.size(), 2) + text)["M"].AsLong(), 1234);
}

TEST_P(LongValueTest, RefusesImpossibleDescriptors) {
  const auto reading = [this](const Bytes& stored) {
    file = JetFile(GetParam());
    return ReasonOf([&] { Memo(stored)["M"].AsText(); });
  };
  EXPECT_THAT(reading(Bytes{1, 2, 3}), HasSubstr("too short"));
  EXPECT_THAT(reading(Descriptor(5, 3) + Bytes(5)), HasSubstr("unknown way"));
  EXPECT_THAT(reading(Descriptor(5, 2) + Bytes(4)), HasSubstr("ends before"));
  EXPECT_THAT(reading(Descriptor(0x3FFFFFFF, 0)), HasSubstr("larger than allowed"));
  EXPECT_THAT(reading(Descriptor(60 << 20, 0)), HasSubstr("larger than the file"));
  EXPECT_THAT(reading(Descriptor(5, 0)), HasSubstr("ends before"));
  EXPECT_THAT(reading(Descriptor(5, 1, {3, 200})), HasSubstr("not have"));
  EXPECT_NE(reading(Descriptor(5, 1, {0x00FFFFFF, 0})), "none");
}

TEST_P(LongValueTest, RefusesChainsThatEndEarlyOrNever) {
  const RecordPointer cut = Chain({file.Text("only")});
  EXPECT_THAT(ReasonOf([&] { Memo(Descriptor(1000, 0, cut))["M"].AsText(); }), HasSubstr("ends before"));

  file = JetFile(GetParam());
  // Three pieces; the last names the first. Each is one byte, so that only the circle can be what stops it.
  const RecordPointer first = Chain({Bytes{1}, Bytes{2}, Bytes{3}});
  RecordPointer last = first;
  while (file.Get(last.page, file.PageSize() - 5, 4) != 0)
    last = RecordPointer::FromU32(static_cast<std::uint32_t>(file.Get(last.page, file.PageSize() - 5, 4)));
  file.Put(last.page, file.PageSize() - 5, Le(first.ToU32(), 4));
  EXPECT_THAT(ReasonOf([&] { Memo(Descriptor(3000, 0, first))["M"].AsText(); }), HasSubstr("circle"));

  file = JetFile(GetParam());
  const RecordPointer self = Chain({Bytes{1}});
  file.Put(self.page, file.PageSize() - 5, Le(self.ToU32(), 4));
  EXPECT_THAT(ReasonOf([&] { Memo(Descriptor(3000, 0, self))["M"].AsBytes(); }), HasSubstr("circle"));
}

TEST_P(LongValueTest, HonoursTheCallersLimit) {
  const Bytes text = file.Text("twenty characters ..");
  OpenOptions options;
  options.maxLongValue = text.size() - 1;
  EXPECT_THAT(ReasonOf([&] { Memo(Descriptor(text.size(), 2) + text, options)["M"].AsText(); }),
              HasSubstr("larger than allowed"));
  file = JetFile(GetParam());
  options.maxLongValue = text.size();
  EXPECT_EQ(Memo(Descriptor(text.size(), 2) + text, options)["M"].AsText(), "twenty characters ..");
}

}  // namespace
}  // namespace zerbal::jet::test
