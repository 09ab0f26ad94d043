#include "zerbal-pack/line_reader.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "support/temp_folder.h"

namespace zerbal::pack {
namespace {

using zerbal::test::TempFolder;
using zerbal::test::WriteBytes;

std::vector<std::string> Lines(std::string_view bytes) {
  const TempFolder folder;
  WriteBytes(folder / "f", bytes);
  LineReader reader(folder / "f");
  EXPECT_TRUE(reader.Good());
  std::vector<std::string> lines;
  for (std::string_view line; reader.Next(line);) {
    lines.emplace_back(line);
    EXPECT_EQ(reader.Number(), lines.size());
  }
  return lines;
}

using Texts = std::vector<std::string>;

TEST(LineReader, SplitsAtLineEndsOfBothKinds) {
  EXPECT_EQ(Lines("a\nb\r\n\nc"), (Texts{"a", "b", "", "c"}));
  EXPECT_EQ(Lines("a\n"), Texts{"a"});
  EXPECT_EQ(Lines(""), Texts{});
  EXPECT_EQ(Lines("\xEF\xBB\xBF"
                  "a\r\n"),
            Texts{"a"});
}

TEST(LineReader, JoinsWhatItReadsInParts) {
  Texts lines;
  std::string text;
  for (int i = 0; i < 20'000; ++i) {
    lines.push_back(std::to_string(i) + std::string(static_cast<std::size_t>(i % 50), 'x'));
    text += lines.back() + (i % 2 == 0 ? "\n" : "\r\n");
  }
  EXPECT_TRUE(Lines(text) == lines);
}

TEST(LineReader, CutsEndlessLines) {
  const Texts lines = Lines(std::string(1'000'000, 'x') + "\n" + std::string(5'000, 'y') + "\nz");
  ASSERT_EQ(lines.size(), 3U);
  EXPECT_EQ(lines[0], std::string(LineReader::kLongestLine, 'x'));
  EXPECT_EQ(lines[1], std::string(LineReader::kLongestLine, 'y'));
  EXPECT_EQ(lines[2], "z");
}

TEST(LineReader, CannotReadFoldersAndMissingFiles) {
  const TempFolder folder;
  std::string_view line;
  for (const auto& file : {folder.Path(), folder / "none"}) {
    LineReader reader(file);
    EXPECT_FALSE(reader.Good());
    EXPECT_FALSE(reader.Next(line));
  }
}

}  // namespace
}  // namespace zerbal::pack
