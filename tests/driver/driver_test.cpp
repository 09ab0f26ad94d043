// The exit statuses and answers of the driver.
#include <algorithm>

#include <gtest/gtest.h>

#include "support/drive.h"
#include "support/settings_file.h"
#include "support/small_world.h"
#include "support/temp_folder.h"

namespace zerbal::test {
namespace {

class DriverTest : public testing::Test {
 protected:
  DriverTest() {
    DisableSplashWait(folder.Path());
    world.Write(folder.Path());
  }
  Played Run(const std::string& script) { return Play(script, folder.Path()); }
  int StatusAfterStart(const std::string& line) { return Run("start\n" + line + "\n").status; }

  TempFolder folder;
  SmallWorld world;
};

TEST_F(DriverTest, AScriptWhoseExpectationsHoldEndsWith0) {
  const Played played = Run("start\nexpect {\"started\": true}\nquit\nexpect {\"ended\": true}\n");
  EXPECT_EQ(played.status, 0) << played.reasons;
  EXPECT_EQ(played.answers, "{\"started\":true}\n{\"ended\":true}\n");
}

TEST_F(DriverTest, AFailedExpectationEndsWith1AndPrintsBothValues) {
  const Played played = Run("start\nexpect {\"started\": false}\n");
  EXPECT_EQ(played.status, 1);
  EXPECT_NE(played.reasons.find("line 2"), std::string::npos) << played.reasons;
  EXPECT_NE(played.reasons.find("{\"started\":false}"), std::string::npos) << played.reasons;
  EXPECT_NE(played.reasons.find("{\"started\":true}"), std::string::npos) << played.reasons;
}

TEST_F(DriverTest, ExpectOpNeedsAnOperationAndExpectNoOpNeedsNone) {
  EXPECT_EQ(StatusAfterStart(R"(expect-op {"op": "clear"})"), 0);
  EXPECT_EQ(StatusAfterStart(R"(expect-op {"op": "clear", "layer": "flights"})"), 1);
  EXPECT_EQ(StatusAfterStart(R"(expect-no-op {"layer": "flights"})"), 0);
  EXPECT_EQ(StatusAfterStart(R"(expect-no-op {"op": "clear"})"), 1);
}

TEST_F(DriverTest, ACommandThatAUserCannotCarryOutEndsWith1) {
  for (const char* line : {"menu mnuFlitSele", "menu mnuNoSuchEntry", "click cmdNowhere", "get cmdNowhere",
                           "choose chkAprt 1", "answer OK", "menu mnuFileUserSett\nmenu mnuZoomIn",
                           "menu mnuFileUserSett\nclick chkAprt", "start\nseed 1"})
    EXPECT_EQ(StatusAfterStart(line), 1) << line;
  EXPECT_EQ(Run("get frmMain\n").status, 1) << "before start";
}

TEST_F(DriverTest, ADisabledButtonIgnoresTheClick) {
  const Played played = Run("start\nmenu mnuFlitSeleDest\nclick cmdDisp\nwindows\n");
  EXPECT_EQ(played.status, 0) << played.reasons;
  EXPECT_NE(played.answers.find("frmSeleDest"), std::string::npos);
}

TEST_F(DriverTest, AKeyReachesTheControlThatHasTheFocus) {
  const Played played = Run(
      "start\nkey Shift+Tab\nget chkDest\nexpect {\"focus\": true, \"checked\": 0}\nkey Space\nget chkDest\n"
      "expect {\"checked\": 1}\nkey Ctrl+Q\n");
  EXPECT_EQ(played.status, 0) << played.reasons;
}

TEST_F(DriverTest, AKeyReachesTheOpenMenu) {
  const Played played =
      Run("start\nkey Menu\nkey Down\nkey Return\nget mnuFlitAprt\nexpect {\"checked\": 0}\nget mnuPop\n"
          "expect {\"visible\": false}\n");
  EXPECT_EQ(played.status, 0) << played.reasons;
}

TEST_F(DriverTest, TheWheelTurnsOverTheMap) {
  const Played played =
      Run("start\nmapsize 720 360\nwheel 5400 2700 1 Ctrl\nview\nexpect {\"MapScale\": 60}\nwheel 5400 2700 "
          "0.25\n"
          "draws\nexpect {\"draws\": 3}\n");
  EXPECT_EQ(played.status, 0) << played.reasons;
}

TEST_F(DriverTest, TheRestingPointerShowsItsPosition) {
  const Played played =
      Run("start\nmapsize 720 360\nmenu mnuRegWorld\nrest 5400 2700\nget lblPosY\n"
          "expect {\"caption\": \"N00\u00b0 00.00'\"}\nget frmMap\n");
  EXPECT_EQ(played.status, 0) << played.reasons;
  EXPECT_NE(played.answers.find("\"tip\":"), std::string::npos);
}

TEST_F(DriverTest, AnInvalidLineEndsWith2) {
  for (const char* line : {"dance", "menu", "menu a b", "mapsize 10 x", "expect {", "text a \"b", "random 1",
                           "press middle 1 1", "state sideways", "wheel 1 1", "wheel 1 1 1 Shift",
                           "key Nonsense", "key \"Ctrl+A, Ctrl+B\"", "rest 1"})
    EXPECT_EQ(StatusAfterStart(line), 2) << line;
}

TEST_F(DriverTest, AMissingScriptEndsWith2) {
  QProcess process;
  process.start(ZERBAL_DRIVE, {QFile::decodeName((folder / "none.script").c_str())});
  ASSERT_TRUE(process.waitForFinished());
  EXPECT_EQ(process.exitCode(), 2);
}

TEST_F(DriverTest, ATruncatedDatabaseDoesNotCrashTheProgram) {
  QProcess process;
  process.setWorkingDirectory(QFile::decodeName(folder.Path().c_str()));
  process.start(ZERBAL_DRIVE, QStringList());
  process.write("start\n");
  ASSERT_TRUE(process.waitForReadyRead());
  std::filesystem::resize_file(folder / "app_map" / "coast.mdb", 4096);
  process.write("menu mnuViewRiver\nquit\n");
  process.closeWriteChannel();
  ASSERT_TRUE(process.waitForFinished());
  EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
}

TEST_F(DriverTest, AnEngineErrorEndsWith3AndPrintsItsText) {
  WriteBytes(folder / "app_data" / "qavdata.mdb", "no database");
  const Played played = Run("start\n");
  EXPECT_EQ(played.status, 3);
  EXPECT_NE(played.reasons.find("qavdata.mdb"), std::string::npos) << played.reasons;
}

TEST_F(DriverTest, AScriptAnswersBoxesOfTheStartUp) {
  std::filesystem::remove(folder / "app_map" / "coast.mdb");
  const Played played = Run(
      "start\nbox\nexpect {\"box\": {\"title\": \"Zerbal\", \"icon\": \"exclamation\", \"buttons\": "
      "[\"OK\"]}}\n"
      "answer OK\nbox\n"
      "expect {\"box\": {\"text\": \"Not all files found. The program aborts.\", \"icon\": \"critical\"}}\n"
      "answer OK\nexpect {\"started\": false}\n");
  EXPECT_EQ(played.status, 0) << played.reasons;
}

TEST_F(DriverTest, ACommandFailsWhileAMessageBoxIsOpen) {
  EXPECT_EQ(StatusAfterStart("menu mnuFlitSeleFlit\nclick cmdDisp\nwindows"), 1);
}

TEST_F(DriverTest, TheGeneratorReturnsValuesOfTheScriptFirst) {
  // The first of five services, then the last one.
  const Played played =
      Run("start\nmenu mnuFlitRandFlit\nclick optAnzFlitOne\nrandom 0 0\nclick cmdRndFlit\n"
          "get lblFlitFSrv\nexpect {\"caption\": \"1 - Nordic\"}\n"
          "random 0.999\nclick cmdRndFlit\nanswer OK\n"
          "get lblFlitFSrv\nexpect {\"caption\": \"0 - Not yet begun\"}\n");
  EXPECT_EQ(played.status, 0) << played.reasons;
}

TEST_F(DriverTest, TheSeedMakesDrawsRepeatable) {
  const std::string script =
      "seed 7\nstart\nmenu mnuFlitRandFlit\nclick optAnzFlitOne\nclick cmdRndFlit\nget lstFlit\n";
  const Played first = Run(script);
  EXPECT_EQ(first.status, 0) << first.reasons;
  EXPECT_EQ(first.answers, Run(script).answers);
}

TEST_F(DriverTest, ADrawingErrorIsPrintedOnlyWhenALoggingRuleEnablesIt) {
  WriteDatabase(folder / "app_map" / "coast.mdb", {Table{"wcl", {Long("Lon")}, {}, {{1}}}});
  EXPECT_EQ(Run("start\n").reasons.find("coast"), std::string::npos);
  qputenv("QT_LOGGING_RULES", "zerbal.draw=true");
  const Played played = Run("start\n");
  qunsetenv("QT_LOGGING_RULES");
  EXPECT_EQ(played.status, 0);
  EXPECT_NE(played.reasons.find("zerbal.draw: coast: "), std::string::npos) << played.reasons;
}

TEST_F(DriverTest, EachQuestionPrintsOneObjectPerLine) {
  const Played played = Run(
      "start\nview\nproject 180 90\nops\ncolours\nfonts\nregions\nservices\nselection\nini MainWindow Save\n"
      "file zerbal.ini\nshot picture.png\necho \"a \\\"b\\\"\"\n");
  EXPECT_EQ(played.status, 0) << played.reasons;
  EXPECT_EQ(std::count(played.answers.begin(), played.answers.end(), '\n'), 13);
  EXPECT_TRUE(std::filesystem::exists(folder / "picture.png"));
  EXPECT_NE(played.answers.find("{\"echo\":\"a \\\"b\\\"\"}"), std::string::npos) << played.answers;
}

}  // namespace
}  // namespace zerbal::test
