#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "jet/database.h"
#include "jet/format/page_layout.h"
#include "jet/read/file_header.h"
#include "jet/recordset.h"
#include "support/engine_error.h"
#include "support/jet_file.h"
#include "support/jet_formats.h"

namespace zerbal::jet::test {
namespace {

TEST(KeyStreamTest, IsThatOfTheKnownCipher) {
  KeyStream stream({'W', 'i', 'k', 'i'});
  Bytes encoded;
  for (const char c : std::string_view("pedia"))
    encoded.push_back(static_cast<std::uint8_t>(static_cast<std::uint8_t>(c) ^ stream.Next()));
  EXPECT_EQ(encoded, (Bytes{0x10, 0x21, 0xBF, 0x04, 0x20}));
}

TEST(KeyStreamTest, HidesTheHeaderTooUnderAKeyOfItsOwn) {
  KeyStream stream({0xC7, 0xDA, 0x39, 0x6B});
  for (std::size_t i = 0; i < kHeaderMask.size(); ++i)
    ASSERT_EQ(stream.Next(), kHeaderMask[i]) << i;
}

class EncodedFileTest : public BothFormats {
 protected:
  EncodedFileTest() {
    TestTable table(file, "T", {{"Id", ColumnType::kLong, 0, true, 0, 4}});
    for (std::uint32_t i = 0; i < 1000; ++i)
      table.Add({Le(std::uint64_t{i} * i, 4)});
    table.Finish();
  }

  static std::string Contents(const Bytes& bytes) {
    std::string contents;
    Recordset table = Database::FromBytes(bytes, "x.mdb").OpenTable("T");
    for (; !table.Eof(); table.MoveNext())
      contents += table["Id"].AsText() + " ";
    return contents;
  }

  JetFile file{GetParam()};
};
ZERBAL_BOTH_FORMATS(EncodedFileTest);

TEST_P(EncodedFileTest, ReadsLikeAnyOther) {
  const Bytes plain = file.Build();
  const std::string expected = Contents(plain);
  ASSERT_TRUE(expected.ends_with(" 998001 "));
  for (const std::uint32_t key : {1U, 0x12345678U, 0xFFFFFFFFU}) {
    const Bytes encoded = Encoded(plain, file.PageSize(), key);
    ASSERT_NE(encoded, plain);
    EXPECT_EQ(Contents(encoded), expected) << key;
  }
}

TEST_P(EncodedFileTest, IsDamagedUnderAnotherKey) {
  Bytes encoded = Encoded(file.Build(), file.PageSize(), 0x12345678);
  encoded[0x40] ^= 1;
  EXPECT_NE(ReasonOf([&] { Contents(encoded); }), "none");
}

TEST_P(EncodedFileTest, MayEndWithinAPage) {
  Bytes encoded = Encoded(file.Build(), file.PageSize(), 7);
  const std::string expected = Contents(encoded);
  encoded.resize(encoded.size() + 100);
  EXPECT_EQ(Contents(encoded), expected);
}

}  // namespace
}  // namespace zerbal::jet::test
