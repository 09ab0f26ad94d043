#include "zerbal-pack/command_line.h"

#include <gtest/gtest.h>

namespace zerbal::pack {
namespace {

const CommandSyntax kSyntax = {{"FILE", "DIR"}, {"--out"}, {"--table"}, {"--schema"}};

std::string UsageFault(const std::vector<std::string>& words) {
  try {
    ParseCommandLine(words, kSyntax);
  } catch (const UsageError& error) {
    return error.what();
  }
  return "none";
}

TEST(ParseCommandLine, AcceptsOptionsAnywhere) {
  const CommandLine line = ParseCommandLine({"--out", "o", "file", "--schema", "dir", "--table=t"}, kSyntax);
  EXPECT_EQ(line.operands, (std::vector<std::string>{"file", "dir"}));
  EXPECT_EQ(line.Value("--out"), "o");
  EXPECT_EQ(line.Value("--table"), "t");
  EXPECT_TRUE(line.Has("--schema"));
}

TEST(ParseCommandLine, OmitsOptionsThatAreNotGiven) {
  const CommandLine line = ParseCommandLine({"file", "dir", "--out=a=b"}, kSyntax);
  EXPECT_EQ(line.Value("--out"), "a=b");
  EXPECT_FALSE(line.Has("--table"));
  EXPECT_EQ(line.Value("--table"), "");
  EXPECT_FALSE(line.Has("--schema"));
}

TEST(ParseCommandLine, TreatsEverythingAfterTwoDashesAsOperands) {
  const CommandLine line = ParseCommandLine({"--out", "-o", "--", "-file", "--schema"}, kSyntax);
  EXPECT_EQ(line.Value("--out"), "-o");
  EXPECT_EQ(line.operands, (std::vector<std::string>{"-file", "--schema"}));
}

TEST(ParseCommandLine, ReportsErrors) {
  EXPECT_EQ(UsageFault({"a", "b"}), "option '--out' is missing");
  EXPECT_EQ(UsageFault({"a", "--out", "o"}), "DIR is missing");
  EXPECT_EQ(UsageFault({"--out", "o"}), "FILE is missing");
  EXPECT_EQ(UsageFault({"a", "b", "c", "--out", "o"}), "'c' is one argument too many");
  EXPECT_EQ(UsageFault({"a", "b", "--out"}), "option '--out' needs a value");
  EXPECT_EQ(UsageFault({"a", "b", "--out="}), "option '--out' needs a value");
  EXPECT_EQ(UsageFault({"a", "b", "--out", "o", "--out", "p"}), "option '--out' is given twice");
  EXPECT_EQ(UsageFault({"a", "b", "--out", "o", "--schema=x"}), "option '--schema' takes no value");
  EXPECT_EQ(UsageFault({"a", "b", "--out", "o", "--wrong"}), "there is no option '--wrong' here");
  EXPECT_EQ(UsageFault({"a", "b", "--out", "o", "-x"}), "there is no option '-x' here");
}

}  // namespace
}  // namespace zerbal::pack
