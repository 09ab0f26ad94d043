// The bytes of written files, against those that are known.
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "support/database_builder.h"
#include "support/temp_folder.h"

namespace zerbal::jet {
namespace {

using namespace zerbal::test;

constexpr std::size_t kPage = 4096;

std::string PageOf(const std::string& bytes, std::size_t page) {
  return bytes.substr(page * kPage, kPage);
}

/// A page from lines "offset: bytes" in hexadecimal; what they leave out is zero.
std::string PageFromHex(const std::string& lines) {
  std::string page(kPage, '\0');
  std::istringstream in(lines);
  for (std::string line; std::getline(in, line);) {
    const std::size_t colon = line.find(':');
    if (colon == line.npos)
      continue;
    std::size_t at = std::stoul(line.substr(0, colon), nullptr, 16);
    std::istringstream bytes(line.substr(colon + 1));
    for (std::string byte; bytes >> byte;)
      page[at++] = static_cast<char>(std::stoul(byte, nullptr, 16));
  }
  return page;
}

std::string Hex(const std::string& bytes) {
  std::ostringstream out;
  out << std::hex;
  for (std::size_t i = 0; i < bytes.size(); i += 16) {
    const std::string line = bytes.substr(i, 16);
    if (line.find_first_not_of('\0') == line.npos)
      continue;
    out << i << ":";
    for (char byte : line)
      out << ' ' << (static_cast<unsigned>(byte) & 0xFF);
    out << '\n';
  }
  return out.str();
}

Table Demo() {
  return {
      "Demo", {Long("A"), Text("B", 50)}, {Unique("iB", "B")}, {{7, "Oslo"}, {-2, Null()}, {300, "Abc-1"}}};
}

/// Row `row` of a data page.
std::string RowOf(const std::string& page, std::size_t row) {
  const auto u16 = [&](std::size_t at) {
    return (static_cast<std::size_t>(page[at]) & 0xFF) | (static_cast<std::size_t>(page[at + 1]) & 0xFF) << 8;
  };
  const std::size_t start = u16(14 + 2 * row);
  const std::size_t end = row == 0 ? kPage : u16(12 + 2 * row);
  return page.substr(start, end - start);
}

class WriterPages : public testing::Test {
 protected:
  std::string Write(const std::vector<Table>& tables) {
    WriteDatabase(folder_ / "one.mdb", tables);
    return ReadBytes(folder_ / "one.mdb");
  }
  TempFolder folder_;
};

TEST_F(WriterPages, BeginWithTheKnownHeader) {
  const std::string bytes = Write({});
  ASSERT_EQ(bytes.size(), 16 * kPage);
  std::string known = PageFromHex(R"(
000: 00 01 00 00 53 74 61 6E 64 61 72 64 20 4A 65 74 20 44 42 00 01 00 00 00 B5 6E 03 62 60 09 C2 55
020: E9 A9 67 72 40 3F 00 9C 7E 9F 90 FF 85 9A 31 C5 79 BA ED 30 BC DF CC 9D 63 D9 E4 C3 9F 46 FB 8A
040: BC 4E DF 5E EC 37 04 E1 9C FA 9F FB 28 E6 4A 13 8A 60 0D 31 7B 36 AC D7 DF B1 2E 51 13 43 96 0A
060: B1 33 6D C4 79 5B CB 10 7C 2A 19 D7 7C 99 08 1F 98 FD 2C CA 99 AF 52 95 84 66 5F 95 F8 D0 89 24
080: 85 67 C6 1F 27 44 D2 EE CF 65 ED FF 07 C7 46 A1 78 16 0C ED E9 2D 62 D4 54 06 00 00 34 2E 30 00
E00: 01 01)");
  for (std::size_t slot = 1; slot < 256; ++slot)
    known[0xE00 + 2 * slot + 1] = 1;
  EXPECT_EQ(Hex(PageOf(bytes, 0)), Hex(known));
}

TEST_F(WriterPages, NameTheFreePagesOfAnEmptyDatabase) {
  const std::string page = PageOf(Write({}), 1);
  EXPECT_EQ(Hex(page.substr(0, 18)),
            Hex(PageFromHex("0: 01 01 64 0F 01 00 00 00 00 00 00 00 02 00 BB 0F 76 0F").substr(0, 18)));
  EXPECT_EQ(RowOf(page, 0), std::string("\0\0\0\0\0\0\0", 7) + std::string(62, '\xFF'));
  EXPECT_EQ(RowOf(page, 1), std::string(69, '\0'));
}

TEST_F(WriterPages, OfADemoTableAreTheKnownOnes) {
  const std::string bytes = Write({Demo()});
  ASSERT_EQ(bytes.size(), 20 * kPage);
  EXPECT_EQ(Hex(PageOf(bytes, 16)), Hex(PageFromHex(R"(
000: 02 01 1B 0F 00 00 00 00 DD 00 00 00 59 06 00 00 03 00 00 00 00 00 00 00 01 00 00 00 00 00 00 00
020: 00 00 00 00 00 00 00 00 4E 02 00 01 00 02 00 01 00 00 00 01 00 00 00 00 11 00 00 01 11 00 00 00
040: 00 00 00 03 00 00 00 00 00 00 00 04 59 06 00 00 00 00 00 00 00 00 09 04 00 00 03 00 00 00 00 00
060: 00 00 04 00 0A 59 06 00 00 01 00 00 00 01 00 09 04 00 00 02 01 00 00 00 00 00 00 64 00 02 00 41
080: 00 02 00 42 00 83 07 00 00 01 00 01 FF FF 00 FF FF 00 FF FF 00 FF FF 00 FF FF 00 FF FF 00 FF FF
0A0: 00 FF FF 00 FF FF 00 02 11 00 00 12 00 00 00 00 00 00 00 81 00 00 00 00 00 59 06 00 00 00 00 00
0C0: 00 00 00 00 00 00 FF FF FF FF 00 00 00 00 04 04 00 00 00 00 00 04 00 69 00 42 00 FF FF 00 00 00)")));
  EXPECT_EQ(Hex(PageOf(bytes, 17)), Hex(PageFromHex(R"(
000: 01 01 1D 0F 00 00 00 00 00 00 00 00 03 00 BB 0F 76 0F 31 0F 00 00 00 00 00 00 00 00 00 00 00 00
F20: 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 04 00 00 00 00 00 00 00
F60: 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 08 00 00
FC0: 00 00 08 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00)")));
  EXPECT_EQ(Hex(PageOf(bytes, 18)), Hex(PageFromHex(R"(
000: 04 01 FE 0D 10 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 20 00 80 00 04
1E0: 00 00 00 13 01 7F 4A 4C 4D 38 01 01 01 01 80 13 06 82 00 00 00 13 02 7F 64 6B 5E 64 01 00 00 00
200: 13 00)")));
  EXPECT_EQ(Hex(PageOf(bytes, 19)), Hex(PageFromHex(R"(
000: 01 01 B8 0F 10 00 00 00 00 00 00 00 03 00 ED 0F E0 0F CC 0F 00 00 00 00 00 00 00 00 00 00 00 00
FC0: 00 00 00 00 00 00 00 00 00 00 00 00 02 00 2C 01 00 00 FF FE 41 62 63 2D 31 0D 00 06 00 01 00 03
FE0: 02 00 FE FF FF FF 06 00 06 00 01 00 01 02 00 07 00 00 00 FF FE 4F 73 6C 6F 0C 00 06 00 01 00 03)")));
}

TEST_F(WriterPages, EnterATableInTheCatalogAndInTheRights) {
  const std::string bytes = Write({Demo()});
  EXPECT_EQ(Hex(RowOf(PageOf(bytes, 14), 8)), Hex(PageFromHex(R"(
00: 11 00 10 00 00 00 01 00 00 0F 01 00 4E FB D3 3B 3E AB E4 40 4E FB D3 3B 3E AB E4 40 00 00 00 00
20: 44 00 65 00 6D 00 6F 00 64 8B 2A 00 2A 00 2A 00 2A 00 2A 00 2A 00 2A 00 2A 00 2A 00 2A 00 28 00
40: 20 00 0B 00 FF 00 00)")
                                                      .substr(0, 71)));
  EXPECT_EQ(Hex(RowOf(PageOf(bytes, 15), 16)),
            Hex(PageFromHex("0: 04 00 10 00 00 00 FF FF 0F 00 64 8B 0C 00 0A 00 01 00 07").substr(0, 19)));
  EXPECT_EQ(Hex(RowOf(PageOf(bytes, 15), 17)),
            Hex(PageFromHex("0: 04 00 10 00 00 00 FF FF 0F 00 65 8B 0C 00 0A 00 01 00 07").substr(0, 19)));
}

/// The bytes of a part of a row.
std::string HexPart(const std::string& row, std::size_t at, std::size_t count) {
  const std::string line = Hex(row.substr(at, count));
  return line.empty() ? "0" : line.substr(3, line.size() - 4);
}

TEST_F(WriterPages, EnterTheSystemInTheCatalog) {
  const std::string page = PageOf(Write({}), 14);
  std::string objects;  // per object: id, parent, type, flags, owner, the end of its name
  for (std::size_t row = 0; row < 8; ++row) {
    const std::string bytes = RowOf(page, row);
    const std::size_t end = bytes.size() - 29;  // 12 ends of variable columns, their count, the null mask
    objects += HexPart(bytes, 2, 4) + ", " + HexPart(bytes, 6, 4) + ", " + HexPart(bytes, 10, 2) + ", " +
               HexPart(bytes, 28, 4) + ", " + HexPart(bytes, end - 2, 2) + ", " + bytes[end - 4] + "\n";
  }
  EXPECT_EQ(objects,
            "1 0 0 f, 0 0 0 f, 3 0, 0 0 0 80, 65 89, s\n"
            "2 0 0 f, 0 0 0 f, 3 0, 0 0 0 80, 65 89, s\n"
            "3 0 0 f, 0 0 0 f, 3 0, 0 0 0 80, 65 89, s\n"
            "0 0 0 10, 2 0 0 f, 2 0, 0 0 0 80, 64 8b, b\n"
            "2 0 0 0, 1 0 0 f, 1 0, 0 0 0 80, 65 89, s\n"
            "3 0 0 0, 1 0 0 f, 1 0, 0 0 0 80, 65 89, s\n"
            "4 0 0 0, 1 0 0 f, 1 0, 0 0 0 80, 65 89, s\n"
            "5 0 0 0, 1 0 0 f, 1 0, 0 0 0 80, 65 89, s\n");
}

TEST_F(WriterPages, EnterTheRightsToTheSystem) {
  const std::string page = PageOf(Write({}), 15);
  std::string rights;  // per row: object, mask, user, null mask with the inherited one as highest bit
  for (std::size_t row = 0; row < 16; ++row) {
    const std::string bytes = RowOf(page, row);
    rights += HexPart(bytes, 2, 4) + ", " + HexPart(bytes, 6, 4) + ", " + HexPart(bytes, 10, 2) + ", " +
              HexPart(bytes, 18, 1) + "\n";
  }
  EXPECT_EQ(rights,
            "2 0 0 0, 0 0 6 0, 64 8b, 7\n"
            "3 0 0 0, 0 0 6 0, 64 8b, 7\n"
            "4 0 0 0, 0 0 6 0, 64 8b, 7\n"
            "5 0 0 0, 0 0 e 0, 64 8b, 7\n"
            "1 0 0 f, fe 0 f 0, 65 8e, f\n"
            "1 0 0 f, 1 0 6 0, 64 8b, 7\n"
            "3 0 0 f, fe 0 f 0, 65 8e, f\n"
            "3 0 0 f, 1 0 6 0, 64 8b, 7\n"
            "2 0 0 f, 0 0 6 0, 64 8b, 7\n"
            "0 0 0 10, e 0 6 0, 64 8b, 7\n"
            "0 0 0 10, e 0 0 0, 65 8b, 7\n"
            "4 0 0 0, 14 0 0 0, 65 8b, 7\n"
            "5 0 0 0, 14 0 0 0, 65 8b, 7\n"
            "2 0 0 0, 14 0 0 0, 65 8b, 7\n"
            "1 0 0 f, ff fe f 0, 65 8b, f\n"
            "3 0 0 f, ff ff f 0, 65 8b, f\n");
}

TEST_F(WriterPages, AreTheSameForTheSameInput) {
  Table many{"many",
             {Long("Id"), Text("Name", 20), Memo("Remark")},
             {Primary("Id", "Id"), Index("Name", "Name")},
             {}};
  for (int i = 0; i < 2000; ++i)
    many.rows.push_back(
        {i, "name " + std::to_string(i * 7919 % 2000), std::string(static_cast<std::size_t>(i), 'x')});
  const std::string first = Write({Demo(), many});
  const std::string second = Write({Demo(), many});
  EXPECT_TRUE(first == second);
  EXPECT_EQ(first.size() % kPage, 0u);
}

}  // namespace
}  // namespace zerbal::jet
