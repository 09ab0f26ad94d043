#include "script_directives.h"

#include <gtest/gtest.h>

namespace zerbal::test {
namespace {

/// "LINE: REASON" of the error that the script causes; empty when it causes none.
std::string ErrorOf(const std::string& text) {
  try {
    ParseScript(text);
  } catch (const ScriptError& error) {
    return std::to_string(error.Line()) + ": " + error.what();
  }
  return {};
}

TEST(ScriptDirectives, CommentsAndEmptyLinesAreNotDirectives) {
  EXPECT_EQ(ErrorOf("# Without rivers.\n\n#\n  # A setting.\nstart\n"), "");
}

TEST(ScriptDirectives, AnUnknownDirectiveIsAnErrorInItsLine) {
  EXPECT_EQ(ErrorOf("# A comment.\n\n#: seting Region CentreWorld 0\nstart\n"),
            "3: unknown directive 'seting'");
  EXPECT_EQ(ErrorOf("start\n#: Next-run\nstart\n"), "2: unknown directive 'Next-run'");
  EXPECT_EQ(ErrorOf("#:\nstart\n"), "1: unknown directive ''");
}

TEST(ScriptDirectives, ACommentHasABlankAfterItsMark) {
  for (const char* line : {"#setting Region CentreWorld 0", "#!next-run", "##"})
    EXPECT_EQ(ErrorOf(std::string("start\n") + line + '\n'),
              "2: a directive begins with '#:', a comment with '#' and a blank");
}

TEST(ScriptDirectives, ACommentDoesNotBeginWithTheNameOfADirective) {
  for (const char* line : {"# setting Region CentreWorld 0", "#  next-run"})
    EXPECT_EQ(ErrorOf(std::string("start\n") + line + '\n'), "2: a directive begins with '#:'");
}

TEST(ScriptDirectives, ADirectiveNeedsAllItsArguments) {
  EXPECT_EQ(ErrorOf("#: setting Region CentreWorld\nstart\n"), "1: 'setting' takes 3 arguments, not 2");
  EXPECT_EQ(ErrorOf("#: without-file\nstart\n"), "1: 'without-file' takes 1 arguments, not 0");
  EXPECT_EQ(ErrorOf("start\n#: next-run twice\nstart\n"), "2: 'next-run' takes 0 arguments, not 1");
}

TEST(ScriptDirectives, ADirectiveNamesWhatTheWorldHas) {
  EXPECT_EQ(ErrorOf("#: without-file rivers.mdb\nstart\n"), "1: the world has no file rivers.mdb");
  EXPECT_EQ(ErrorOf("#: empty-table service\nstart\n"), "1: the world has no table service");
  EXPECT_EQ(ErrorOf("#: without-row col Colour RIVER\nstart\n"), "1: table col has no column Colour");
  EXPECT_EQ(ErrorOf("#: without-row col Col RIVER x\nstart\n"), "1: table col has no such row");
}

TEST(ScriptDirectives, ANumberHasNothingAfterIt) {
  EXPECT_EQ(ErrorOf("#: exit-status 3 4\nstart\n"), "1: '3 4' is not a number");
  EXPECT_EQ(ErrorOf("#: minimum-seconds soon\nstart\n"), "1: 'soon' is not a number");
}

TEST(ScriptDirectives, TheFolderIsPreparedBeforeTheFirstCommand) {
  for (const char* directive :
       {"without-file river.mdb", "without-row col Col RIVER", "empty-table fsrv", "setting A B C",
        "revision RevSchdMain 1", "read-only zerbal.ini", "minimum-seconds 1", "exit-status 3"}) {
    const std::string name(directive, std::string_view(directive).find(' '));
    EXPECT_EQ(ErrorOf(std::string("start\n#: ") + directive + '\n'),
              "2: '" + name + "' stands after a command");
  }
}

TEST(ScriptDirectives, ALaterRunHasItsOwnDirectivesButNoOtherFolder) {
  const std::string runs = "start\nquit\n#: next-run\n";
  for (const char* directive : {"read-only zerbal.ini", "minimum-seconds 1", "exit-status 3"})
    EXPECT_EQ(ErrorOf(runs + "#: " + directive + "\nstart\n"), "") << directive;
  EXPECT_EQ(ErrorOf(runs + "#: setting A B C\nstart\n"), "4: 'setting' stands after a command");
}

TEST(ScriptDirectives, EveryRunHasCommands) {
  EXPECT_EQ(ErrorOf("# Nothing.\n"), "1: the run has no commands");
  EXPECT_EQ(ErrorOf("#: next-run\nstart\n"), "1: the run has no commands");
  EXPECT_EQ(ErrorOf("start\n#: next-run\n"), "2: the run has no commands");
}

TEST(ScriptDirectives, DirectivesChangeTheWorld) {
  const AcceptanceScript script = ParseScript("#: without-row col Col RIVER\n#: empty-table reg\nstart\n");
  const SmallWorld whole;
  EXPECT_EQ(script.world.col.rows.size(), whole.col.rows.size() - 1);
  EXPECT_TRUE(script.world.reg.rows.empty());
  EXPECT_EQ(script.world.fon.rows.size(), whole.fon.rows.size());
}

TEST(ScriptDirectives, TheLastArgumentRunsToTheEndOfTheLine) {
  const AcceptanceScript script =
      ParseScript("#: setting Fonts Near No such font,5.6 \n#:  revision RevZBLAll  3.07 beta\nstart\n");
  ASSERT_EQ(script.settings.size(), 1u);
  EXPECT_EQ(script.settings[0].section, "Fonts");
  EXPECT_EQ(script.settings[0].key, "Near");
  EXPECT_EQ(script.settings[0].value, "No such font,5.6");
  ASSERT_EQ(script.revisions.size(), 1u);
  EXPECT_EQ(script.revisions[0].key, "RevZBLAll");
  EXPECT_EQ(script.revisions[0].value, "3.07 beta");
}

TEST(ScriptDirectives, RunsKeepTheLineNumbersOfTheScript) {
  const AcceptanceScript script = ParseScript(
      "# Two runs.\n#: exit-status 3\nstart\n\nquit\n#: next-run\n#: read-only a b\n#: minimum-seconds "
      "1.5\nstart\n");
  ASSERT_EQ(script.runs.size(), 2u);
  EXPECT_EQ(script.runs[0].commands, "\n\nstart\n\nquit\n");
  EXPECT_EQ(script.runs[0].exitStatus, 3);
  EXPECT_EQ(script.runs[1].commands, "\n\n\n\n\n\n\n\nstart\n");
  EXPECT_EQ(script.runs[1].exitStatus, 0);
  EXPECT_EQ(script.runs[1].minimumSeconds, 1.5);
  EXPECT_EQ(script.runs[1].readOnlyFiles, std::vector<std::string>{"a b"});
}

}  // namespace
}  // namespace zerbal::test
