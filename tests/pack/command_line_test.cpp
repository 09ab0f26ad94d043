#include "zerbal-pack/command_line.h"

#include <gtest/gtest.h>

namespace zerbal::pack {
namespace {

std::string UsageFault(const std::vector<std::string>& words) {
  try {
    ParseCommandLine(words);
  } catch (const base::UsageError& error) {
    return error.what();
  }
  return "none";
}

TEST(ParseCommandLine, AcceptsOptionsAnywhere) {
  const CommandLine line =
      ParseCommandLine({"export", "--index", "i", "file", "--schema", "dir", "--table=t"});
  EXPECT_EQ(line.command, "export");
  EXPECT_EQ(line.file, "file");
  EXPECT_EQ(line.folder, "dir");
  EXPECT_EQ(line.index, "i");
  EXPECT_EQ(line.table, "t");
  EXPECT_TRUE(line.schema);
}

TEST(ParseCommandLine, OmitsOptionsThatAreNotGiven) {
  const CommandLine line = ParseCommandLine({"build", "--out=a=b"});
  EXPECT_EQ(line.out, "a=b");
  EXPECT_EQ(line.detail, "high");
  EXPECT_EQ(line.sources, "");
  EXPECT_FALSE(ParseCommandLine({"export", "file", "dir"}).schema);
}

TEST(ParseCommandLine, TreatsEverythingAfterTwoDashesAsArguments) {
  const CommandLine line = ParseCommandLine({"export", "--table", "-o", "--", "-file", "--schema"});
  EXPECT_EQ(line.table, "-o");
  EXPECT_EQ(line.file, "-file");
  EXPECT_EQ(line.folder, "--schema");
  EXPECT_EQ(ParseCommandLine({"check", "--", "--help"}).folder, "--help");
}

TEST(ParseCommandLine, AcceptsNamesOfCommandsAsArguments) {
  const CommandLine line = ParseCommandLine({"export", "export", "build"});
  EXPECT_EQ(line.command, "export");
  EXPECT_EQ(line.file, "export");
  EXPECT_EQ(line.folder, "build");
  EXPECT_EQ(ParseCommandLine({"check", "check"}).folder, "check");
}

TEST(ParseCommandLine, RecognisesHelpAndVersion) {
  EXPECT_EQ(ParseCommandLine({"--help"}).command, "--help");
  EXPECT_EQ(ParseCommandLine({"export", "x", "-h"}).command, "--help");
  EXPECT_EQ(ParseCommandLine({"build", "--out", "--help"}).command, "--help");
  EXPECT_EQ(ParseCommandLine({"make", "--wrong", "-h"}).command, "--help");
  EXPECT_EQ(ParseCommandLine({"--version"}).command, "--version");
}

TEST(ParseCommandLine, TakesValuesThatLookLikeOptions) {
  EXPECT_EQ(ParseCommandLine({"build", "--out=/tmp/a="}).out, "/tmp/a=");
  EXPECT_EQ(ParseCommandLine({"export", "f", "d", "--table", "--x="}).table, "--x=");
}

TEST(ParseCommandLine, NamesAnOptionThatDoesNotExistFirst) {
  EXPECT_EQ(UsageFault({"build", "--outt", "DIR"}), "there is no option '--outt' here");
  EXPECT_EQ(UsageFault({"check", "--wrong="}), "there is no option '--wrong' here");
  EXPECT_EQ(UsageFault({"check", "-5"}), "there is no option '-5' here");
  EXPECT_EQ(UsageFault({"check", "---x"}), "there is no option '---x' here");
}

TEST(ParseCommandLine, RefusesEveryValueOfAFlag) {
  for (const char* word : {"--schema=true", "--schema={}", "--schema="})
    EXPECT_EQ(UsageFault({"export", "f", "d", word}), "option '--schema' takes no value") << word;
}

TEST(ParseCommandLine, RefusesASecondEndOfOptions) {
  EXPECT_EQ(UsageFault({"check", "d", "--", "--"}), "'--' is one argument too many");
  EXPECT_EQ(UsageFault({"build", "--out", "o", "--", "--"}), "'--' is one argument too many");
  EXPECT_EQ(UsageFault({"check", "d", "--", "-x"}), "'-x' is one argument too many");
}

TEST(ParseCommandLine, ReportsErrors) {
  EXPECT_EQ(UsageFault({}), "a command is missing");
  EXPECT_EQ(UsageFault({"make", "x"}), "there is no command 'make'");
  EXPECT_EQ(UsageFault({"--wrong"}), "there is no command '--wrong'");
  EXPECT_EQ(UsageFault({"make", "build"}), "there is no command 'make'");
  EXPECT_EQ(UsageFault({"build", "--pack", "p"}), "option '--out' is missing");
  EXPECT_EQ(UsageFault({"export", "a"}), "DIR is missing");
  EXPECT_EQ(UsageFault({"export"}), "FILE.mdb is missing");
  EXPECT_EQ(UsageFault({"export", "a", "b", "c"}), "'c' is one argument too many");
  EXPECT_EQ(UsageFault({"build", "x", "--out", "o"}), "'x' is one argument too many");
  EXPECT_EQ(UsageFault({"export", "a", "b", "--table"}), "option '--table' needs a value");
  EXPECT_EQ(UsageFault({"export", "a", "b", "--table="}), "option '--table' needs a value");
  EXPECT_EQ(UsageFault({"export", "a", "b", "--table=", "c"}), "option '--table' needs a value");
  EXPECT_EQ(UsageFault({"export", "a", "b", "--table", ""}), "option '--table' needs a value");
  EXPECT_EQ(UsageFault({"build", "--out", "o", "--out", "p"}), "option '--out' is given twice");
  EXPECT_EQ(UsageFault({"export", "a", "b", "--schema", "--schema"}), "option '--schema' is given twice");
  EXPECT_EQ(UsageFault({"export", "a", "b", "--schema=x"}), "option '--schema' takes no value");
  EXPECT_EQ(UsageFault({"export", "a", "b", "--wrong"}), "there is no option '--wrong' here");
  EXPECT_EQ(UsageFault({"export", "a", "b", "-x"}), "there is no option '-x' here");
  EXPECT_EQ(UsageFault({"export", "a", "b", "--version"}), "there is no option '--version' here");
}

}  // namespace
}  // namespace zerbal::pack
