#include "script_line.h"

#include <gtest/gtest.h>

namespace zerbal::drive {
namespace {

std::vector<std::string> Words(std::string_view line) {
  std::vector<std::string> words;
  const ScriptLine parsed = ParseLine(line).value();
  for (const Word& word : parsed.words)
    words.push_back(word.text);
  return words;
}

TEST(ScriptLine, BlankLinesAndCommentsHaveNoWords) {
  for (const char* line : {"", "   ", "\t", "# menu mnuZoomIn", "  # remark", "\r"})
    EXPECT_TRUE(ParseLine(line).value().Empty()) << line;
}

TEST(ScriptLine, WordsAreSeparatedByBlanks) {
  EXPECT_EQ(Words("  press  left 10\t20 \r"), (std::vector<std::string>{"press", "left", "10", "20"}));
}

TEST(ScriptLine, QuotedWordsHoldBlanksAndEscapes) {
  EXPECT_EQ(Words(R"(text txtA "a b \"c\" \\ d")"),
            (std::vector<std::string>{"text", "txtA", R"(a b "c" \ d)"}));
  EXPECT_EQ(Words(R"(text txtA "")"), (std::vector<std::string>{"text", "txtA", ""}));
  // The command interprets backslashes that stand for keys.
  EXPECT_EQ(Words(R"(keys txtA "\b\b12\n")"), (std::vector<std::string>{"keys", "txtA", R"(\b\b12\n)"}));
}

TEST(ScriptLine, MarksQuotedWords) {
  const ScriptLine line = ParseLine(R"(choose cboA "3")").value();
  EXPECT_FALSE(line.words[1].quoted);
  EXPECT_TRUE(line.words[2].quoted);
}

TEST(ScriptLine, UnbalancedQuotationMarksAreAnError) {
  EXPECT_FALSE(ParseLine(R"(text txtA "abc)"));
  EXPECT_FALSE(ParseLine(R"(text txtA "abc"def)"));
}

TEST(ScriptLine, FreeTextKeepsItsCharacters) {
  const ScriptLine line = ParseLine(R"(expect {"a": "b \" c", "d": [1, 2]} )").value();
  EXPECT_EQ(line.Command(), "expect");
  EXPECT_EQ(line.rest, R"({"a": "b \" c", "d": [1, 2]})");
}

}  // namespace
}  // namespace zerbal::drive
