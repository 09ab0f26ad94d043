// Reading and writing settings files: tables of small files, the calls, and the contents after them. Letters
// outside of ASCII are single bytes (code page 1252).
#include "settings/profile_file.h"

#include <cstddef>
#include <filesystem>
#include <optional>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "support/temp_folder.h"

namespace zerbal::settings {
namespace {

using namespace std::string_literals;

constexpr std::size_t kSize = 2000;

struct Step {
  enum class Kind { kRead, kWrite } kind = Kind::kRead;
  std::string section;
  std::string key;
  std::string text;  ///< the value expected or written
  std::string fallback = "-";
};

Step Read(std::string section, std::string key, std::string expected, std::string fallback = "-") {
  return {Step::Kind::kRead, std::move(section), std::move(key), std::move(expected), std::move(fallback)};
}
Step Write(std::string section, std::string key, std::string value) {
  return {Step::Kind::kWrite, std::move(section), std::move(key), std::move(value)};
}

struct Case {
  std::string name;
  std::optional<std::string> file;  ///< nullopt: the file is missing
  std::vector<Step> steps;
  std::optional<std::string> after;  ///< the bytes after the calls; nullopt: not checked
};

void PrintTo(const Case& c, std::ostream* stream) {
  *stream << c.name;
}

class ProfileFile : public testing::TestWithParam<Case> {};

TEST_P(ProfileFile, GivesTheExpectedValuesAndBytes) {
  const Case& c = GetParam();
  const test::TempFolder folder;
  const std::filesystem::path file = folder / "zerbal.ini";
  if (c.file)
    test::WriteBytes(file, *c.file);
  for (const Step& step : c.steps) {
    if (step.kind == Step::Kind::kRead)
      EXPECT_EQ(ReadProfileString(file, step.section, step.key, step.fallback, kSize), step.text)
          << step.section << "/" << step.key;
    else
      EXPECT_TRUE(WriteProfileString(file, step.section, step.key, step.text));
  }
  if (c.after) {
    EXPECT_EQ(test::ReadBytes(file), *c.after);
  }
}

std::string CaseName(const testing::TestParamInfo<Case>& info) {
  return info.param.name;
}

INSTANTIATE_TEST_SUITE_P(
    Lines, ProfileFile,
    testing::Values(Case{"LfFileWithoutLastEnd",
                         "[Main]\nleft=10\ntop=20",
                         {Read("Main", "left", "10"), Read("Main", "top", "20")},
                         {}},
                    Case{"CrLfFileIsLeftAloneByReading",
                         "[One]\r\na=1\r\n\r\n;c\r\n[Two]\r\nb = 2\r\n",
                         {Read("One", "a", "1"), Read("Two", "b", "2"), Read("Two", "a", "-")},
                         "[One]\r\na=1\r\n\r\n;c\r\n[Two]\r\nb = 2\r\n"},
                    Case{"CrFile", "[s]\ra=1\rb=2", {Read("s", "a", "1"), Read("s", "b", "2")}, {}},
                    Case{"MixedLineEnds",
                         "[s]\ra=1\nb=2\r\n\rc=3\n\nd=4",
                         {Read("s", "a", "1"), Read("s", "b", "2"), Read("s", "c", "3"), Read("s", "d", "4")},
                         {}},
                    Case{"BlanksAroundKeyEqualsAndValue",
                         "[s]\r\n  width =  640  \r\n\theight\t=\t480\t\r\n\vdepth\v=\v9\v\r\n",
                         {Read("s", "width", "640"), Read("s", "height", "480"), Read("s", "depth", "9")},
                         {}},
                    Case{"BlanksInsideAreKept",
                         "[My Section]\r\nMy Key=two  words here\r\n",
                         {Read("My Section", "My Key", "two  words here"), Read("MySection", "MyKey", "-"),
                          Read("My Section", "MyKey", "-")},
                         {}},
                    Case{"AHardBlankIsNoBlank", "[s]\r\nk=\xA0x\xA0\r\n", {Read("s", "k", "\xA0x\xA0")}, {}},
                    Case{
                        "NulAfterTheLastLine",
                        "[s]\r\na=1\r\n\0"s,
                        {Read("s", "a", "1"), Write("s", "b", "2"), Read("s", "b", "2"), Read("s", "a", "1")},
                        "[s]\r\na=1\r\nb=2\r\n\0"s},
                    Case{"CtrlZAfterTheLastLineAndALongComment",
                         "[s]\r\n;" + std::string(3000, 'c') + "\r\na=1\r\n\x1A",
                         {Read("s", "a", "1")},
                         {}},
                    Case{"ALineWithoutBound",
                         "[s]\n" + std::string(70000, 'k') + "=1\nk=" + std::string(70000, 'v'),
                         {Read("s", std::string(70000, 'k'), "1"), Read("s", "k", std::string(1999, 'v'))},
                         {}}),
    CaseName);

INSTANTIATE_TEST_SUITE_P(
    Sections, ProfileFile,
    testing::Values(
        Case{"BlanksAroundTheNameAndTheBracket", "  \t[  Frame\t]\r\nk=v\r\n", {Read("Frame", "k", "v")}, {}},
        Case{"TextAfterTheBracketMeansNothing",
             "[s] ; remark a=0\r\nb=1\r\n[t]c=2\r\nd=3\r\n",
             {Read("s", "b", "1"), Read("s", "a", "-"), Read("t", "c", "-"), Read("t", "d", "3")},
             {}},
        Case{"WithoutClosingBracketTheNameRunsToTheLineEnd", "[s\r\nk=v\r\n", {Read("s", "k", "v")}, {}},
        Case{"TheFirstOfSeveralBracketsCounts",
             "[s]]\r\nk=v\r\n[t] x]\r\nk=w\r\n",
             {Read("s", "k", "v"), Read("t", "k", "w"), Read("s]", "k", "-")},
             {}},
        Case{"WithoutOpeningBracketNoHeader",
             "[s]\r\nt]\r\nk=v\r\n",
             {Read("s", "k", "v"), Read("t", "k", "-")},
             {}},
        Case{"LetterCaseAndSpacesOfTheAskedName",
             "[MainWindow]\r\nState=2\r\n",
             {Read("mainwindow", "State", "2"), Read("MAINWINDOW", "State", "2"),
              Read("  MainWindow ", "State", "2")},
             {}},
        Case{"OnlyTheFirstOfAName",
             "[s]\r\na=1\r\n[t]\r\n[s]\r\na=2\r\nb=3\r\n",
             {Read("s", "a", "1"), Read("s", "b", "-")},
             {}},
        Case{"OnlyTheFirstOfANameEvenIfEmpty", "[s]\r\n[s]\r\nk=1\r\n", {Read("s", "k", "-")}, {}},
        Case{"Utf8MarkHidesTheFirstHeader", "\xEF\xBB\xBF[s]\r\nk=1\r\n", {Read("s", "k", "-")}, {}},
        Case{"Utf8MarkLeavesLaterSections",
             "\xEF\xBB\xBF[s]\r\nk=1\r\n[t]\r\nk=2\r\n",
             {Read("t", "k", "2")},
             {}},
        Case{"TabsAroundAnAskedNameBelongToIt",
             "[s]\r\nk=1\r\n",
             {Read("\ts", "k", "-"), Read("s", "k\t", "-")},
             {}}),
    CaseName);

INSTANTIATE_TEST_SUITE_P(
    Keys, ProfileFile,
    testing::Values(Case{"TheFirstOfEqualKeysWins",
                         "[s]\r\nKey=1\r\nKEY=2\r\nkey=3\r\n",
                         {Read("s", "key", "1"), Read("s", "KEY", "1"), Read("s", " kEy  ", "1")},
                         {}},
                    Case{"AKeyOfAnotherSection",
                         "[a]\r\nx=1\r\n[b]\r\ny=2\r\n",
                         {Read("a", "y", "-"), Read("b", "x", "-"), Read("b", "y", "2")},
                         {}},
                    Case{"MarksInNamesAreOrdinary",
                         "[s]\r\n\"k\"=1\r\n",
                         {Read("s", "k", "-"), Read("s", "\"k\"", "1")},
                         {}},
                    Case{"CommentsAndSemicolons",
                         "; head\r\n[s]\r\n;k=0\r\n  ;l=0\r\nk=a ;b\r\np=;q\r\nc#=#3\r\n#k=4\r\n",
                         {Read("s", "k", "a ;b"), Read("s", "p", ";q"), Read("s", "c#", "#3"),
                          Read("s", "#k", "4"), Read("s", "l", "-"), Read("s", ";k", "-")},
                         {}},
                    Case{"WithoutEqualsNoKey",
                         "[s]\r\nflag\r\nk=1\r\n",
                         {Read("s", "flag", "-"), Read("s", "k", "1")},
                         {}},
                    Case{"NothingBeforeTheFirstHeader",
                         "k=0\r\njunk\r\n[s]\r\nk=1\r\n",
                         {Read("s", "k", "1"), Read("s", "junk", "-"), Read("", "k", "-")},
                         {}},
                    Case{"BytesAbove127AreThemselves",
                         "[S\xFC"
                         "d]\r\nStra\xDF"
                         "e=M\xFCller \xA9\xFE\r\nff=\xFF\r\n",
                         {Read("S\xFC"
                               "d",
                               "Stra\xDF"
                               "e",
                               "M\xFCller \xA9\xFE"),
                          Read("s\xFC"
                               "d",
                               "STRA\xDF"
                               "E",
                               "M\xFCller \xA9\xFE"),
                          Read("S\xFC"
                               "d",
                               "ff", "\xFF"),
                          Read("S\xDC"
                               "d",
                               "ff", "-")},
                         {}}),
    CaseName);

INSTANTIATE_TEST_SUITE_P(
    Values, ProfileFile,
    testing::Values(
        Case{"EqualsSignsAndEmptyValues",
             "[s]\r\na=x=y=z\r\nb=\r\nc=   \r\n",
             {Read("s", "a", "x=y=z"), Read("s", "b", ""), Read("s", "c", "")},
             {}},
        Case{"QuotationMarks",
             "[s]\r\na=\" two \"\r\nb= ' two ' \r\nc=\"open\r\nd=\"mixed'\r\ne=\"\"\r\nf=\"\"in\"\"\r\n"
             "g=\"\r\nh='\r\n",
             {Read("s", "a", " two "), Read("s", "b", " two "), Read("s", "c", "\"open"),
              Read("s", "d", "\"mixed'"), Read("s", "e", ""), Read("s", "f", "\"in\""), Read("s", "g", "\""),
              Read("s", "h", "'")},
             {}},
        Case{"ATabInsideIsKept", "[s]\r\nk=a\tb\r\n", {Read("s", "k", "a\tb")}, {}},
        Case{"NoFileGivesTheDefault",
             {},
             {Read("s", "k", "dflt", "dflt"), Read("s", "k", "  d", "  d  "), Read("s", "k", "", ""),
              Read("s", "k", "d\t", "d\t"), Read("s", "k", "\"d\"", "\"d\""), Read("s", "k", "", "   ")},
             {}},
        Case{"NoSectionNoKeyGivesTheDefault",
             "[s]\r\nk=v\r\n",
             {Read("t", "k", "d", "d"), Read("s", "j", "d", "d"), Read("s", "j", "", ""),
              Read("s", "j", "\xFF", "\xFF")},
             "[s]\r\nk=v\r\n"},
        Case{"ALongValueOrDefaultIsCut",
             "[s]\r\nk=" + std::string(2500, 'x') + "\r\n",
             {Read("s", "k", std::string(1999, 'x')),
              Read("s", "m", std::string(1999, 'y'), std::string(2500, 'y'))},
             {}},
        Case{"MarksGoBeforeTheCut",
             "[s]\r\nk=\"" + std::string(2500, 'x') + "\"\r\n",
             {Read("s", "k", std::string(1999, 'x'))},
             {}}),
    CaseName);

INSTANTIATE_TEST_SUITE_P(
    Replacing, ProfileFile,
    testing::Values(Case{"KeepsPlaceSpellingAndLaterDuplicates",
                         "[s]\r\na=1\r\nKey=old\r\nb=2\r\nkey=dup\r\n",
                         {Write("s", "KEY", "new"), Read("s", "key", "new")},
                         "[s]\r\na=1\r\nKey=new\r\nb=2\r\nkey=dup\r\n"},
                    Case{"ALastLineWithoutEnd", "[s]\r\na=1", {Write("s", "a", "22")}, "[s]\r\na=22\r\n"},
                    Case{"SpacingGoesAndTheEndBecomesCrLf",
                         "[s]\n  k = v \nj=1\n",
                         {Write("s", "k", "w")},
                         "[s]\nk=w\r\nj=1\n"},
                    Case{"TheValueIsWrittenAsPassed",
                         "[s]\r\n",
                         {Write("s", "a", "\"x y\""), Read("s", "a", "x y"), Write("s", "b", "1;2=3"),
                          Read("s", "b", "1;2=3"), Write("s", "c", ""), Read("s", "c", ""),
                          Write("s", "d", "  e "), Read("s", "d", "e")},
                         "[s]\r\na=\"x y\"\r\nb=1;2=3\r\nc=\r\nd=  e \r\n"}),
    CaseName);

INSTANTIATE_TEST_SUITE_P(
    Adding, ProfileFile,
    testing::Values(Case{"BelowTheLastKeyAboveBlankLinesAndComments",
                         "[a]\r\nx=1\r\n; tail\r\n\r\n[b]\r\ny=2\r\n",
                         {Write("a", "z", "3"), Write("a", "w", "4"), Read("a", "z", "3")},
                         "[a]\r\nx=1\r\nz=3\r\nw=4\r\n; tail\r\n\r\n[b]\r\ny=2\r\n"},
                    Case{"BelowTheHeaderOfASectionWithoutKeys",
                         "[a]\r\n[b]\r\ny=2\r\n",
                         {Write("a", "x", "1")},
                         "[a]\r\nx=1\r\n[b]\r\ny=2\r\n"},
                    Case{"BelowTheHeaderOfASectionOfComments",
                         "[a]\r\n;c\r\n\r\n[b]\r\n",
                         {Write("a", "x", "1")},
                         "[a]\r\nx=1\r\n;c\r\n\r\n[b]\r\n"},
                    Case{"AboveALineWithoutEquals",
                         "[a]\r\nk=1\r\njunk\r\n",
                         {Write("a", "x", "1")},
                         "[a]\r\nk=1\r\nx=1\r\njunk\r\n"},
                    Case{"BelowAHeaderWithoutLineEnd", "[a]", {Write("a", "x", "1")}, "[a]\r\nx=1\r\n"},
                    Case{
                        "BelowAKeyWithoutLineEnd", "[a]\nk=1", {Write("a", "x", "1")}, "[a]\nk=1\r\nx=1\r\n"},
                    Case{"InTheFirstOfTwoSectionsOfAName",
                         "[a]\r\n[a]\r\nk=1\r\n",
                         {Write("a", "k", "2"), Read("a", "k", "2")},
                         "[a]\r\nk=2\r\n[a]\r\nk=1\r\n"},
                    Case{"ANewSectionGoesToTheEnd",
                         "[a]\r\nx=1",
                         {Write("b", "y", "2"), Write("c", "z", "3"), Write("b", "w", "4")},
                         "[a]\r\nx=1\r\n[b]\r\ny=2\r\nw=4\r\n[c]\r\nz=3\r\n"},
                    Case{"NoBlankLineBeforeANewSection",
                         "[a]\r\nx=1\r\n",
                         {Write("b", "y", "2")},
                         "[a]\r\nx=1\r\n[b]\r\ny=2\r\n"},
                    Case{"AMissingFileIsCreated",
                         {},
                         {Read("Main", "k", "-"), Write("Main", "k", "v"), Read("main", "K", "v")},
                         "[Main]\r\nk=v\r\n"},
                    Case{"AnEmptyFile", "", {Read("s", "k", "-"), Write("s", "k", "v")}, "[s]\r\nk=v\r\n"},
                    Case{"SpacesAroundNamesAndLetterCase",
                         "[Old]\r\nKey=1\r\n",
                         {Write(" OLD ", "  kEY", "2"), Write("  New ", " Two Words ", "3"),
                          Read("new", "two words", "3")},
                         "[Old]\r\nKey=2\r\n[New]\r\nTwo Words=3\r\n"},
                    Case{"EverythingElseStaysInAnLfFile",
                         "# x\n[s]\n a = 1 \n\n;c\n[t]\nb=2\n",
                         {Write("s", "n", "5"), Read("s", "a", "1"), Read("t", "b", "2")},
                         "# x\n[s]\n a = 1 \nn=5\r\n\n;c\n[t]\nb=2\n"},
                    Case{"AUtf8MarkStaysAndItsSectionIsWrittenAnew",
                         "\xEF\xBB\xBF[s]\r\nk=1\r\n",
                         {Write("s", "k", "2"), Read("s", "k", "2")},
                         "\xEF\xBB\xBF[s]\r\nk=1\r\n[s]\r\nk=2\r\n"}),
    CaseName);

TEST(ReadProfileString, ReturnsAtMostSizeMinusOneCharacters) {
  const test::TempFolder folder;
  test::WriteBytes(folder / "a.ini", "[s]\r\nk=value\r\n");
  EXPECT_EQ(ReadProfileString(folder / "a.ini", "s", "k", "", 6), "value");
  EXPECT_EQ(ReadProfileString(folder / "a.ini", "s", "k", "", 5), "valu");
  EXPECT_EQ(ReadProfileString(folder / "a.ini", "s", "k", "", 1), "");
  EXPECT_EQ(ReadProfileString(folder / "a.ini", "s", "k", "", 0), "");
  EXPECT_EQ(ReadProfileString(folder / "a.ini", "s", "j", "value", 3), "va");
}

TEST(ReadProfileString, CreatesNothingAndTreatsAFolderAsMissing) {
  const test::TempFolder folder;
  EXPECT_EQ(ReadProfileString(folder / "none.ini", "s", "k", "d", kSize), "d");
  EXPECT_FALSE(std::filesystem::exists(folder / "none.ini"));
  EXPECT_EQ(ReadProfileString(folder.Path(), "s", "k", "d", kSize), "d");
}

}  // namespace
}  // namespace zerbal::settings
