// Every rule for good and bad records of SSIM schedule data sets.
#include "zerbal-pack/ssim_reader.h"

#include <ostream>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "base/case_folding.h"
#include "pack/letter_airports.h"
#include "pack/ssim_lines.h"
#include "support/temp_folder.h"

namespace zerbal::pack {
namespace {

using test::At;
using test::LetterAirports;
using test::SsimCarrierRecord;
using test::SsimFile;
using test::SsimHeader;
using test::SsimLegRecord;
using zerbal::test::TempFolder;
using zerbal::test::WriteBytes;

/// Flights such as "XY301/2 AAA BBB CCC", one line each, after the messages.
std::string ShownSsim(std::string_view text) {
  const TempFolder folder;
  WriteBytes(folder / "s", text);
  const AirportTable airports = LetterAirports().table;
  Problems problems;
  const SsimSchedule schedule = ReadSsim(folder / "s", airports, problems);
  std::ostringstream out;
  problems.Print(out, true);
  std::string shown = out.str();
  const std::string name = (folder / "s").string() + ":";
  for (std::size_t at = 0; (at = shown.find(name)) != std::string::npos;)
    shown.erase(at, name.size());
  for (const SsimFlight& flight : schedule.flights) {
    const std::span<const SsimLeg> legs = schedule.LegsOf(flight);
    shown += legs.front().id.Name() + "/" + std::to_string(legs.front().id.Variation()) + " " +
             airports[legs.front().departure].iata;
    for (const SsimLeg& leg : legs)
      shown += " " + airports[leg.arrival].iata;
    shown += "\n";
  }
  for (const LeftOut& record : schedule.leftOut)
    shown += "- " + std::to_string(record.line) + "\n";
  return shown;
}

std::string ShownRecords(const std::vector<std::string>& records) {
  return ShownSsim(SsimFile(records));
}

const std::string kLeg = SsimLegRecord("101", 1, "AAA", "BBB");
const std::string kGood = "XY101/1 AAA BBB\n";
const std::string kBad = "- 3\n";

struct Rule {
  const char* name;
  std::vector<std::string> records;  // from line 3 on
  std::string shown;
};

std::ostream& operator<<(std::ostream& out, const Rule& rule) {
  return out << rule.name;
}

class SsimRules : public testing::TestWithParam<Rule> {};

TEST_P(SsimRules, Hold) {
  EXPECT_EQ(ShownRecords(GetParam().records), GetParam().shown);
}

std::vector<std::string> Chain(int legs) {
  std::vector<std::string> records;
  for (int i = 1; i <= legs; ++i)
    records.push_back(SsimLegRecord("7", i, std::string(3, static_cast<char>('A' + i - 1)),
                                    std::string(3, static_cast<char>('A' + i))));
  return records;
}

const Rule kRules[] = {
    {"Leg", {kLeg}, kGood},
    {"LowerCase", {base::LowerAscii(kLeg)}, kGood},
    {"LongLine",
     {At(kLeg, 203, "xy")},
     "3:201: warning: the record has 204 columns; those after 200 are ignored\n" + kGood},
    {"LongLineOfBlanks", {At(kLeg, 203, "  ")}, kGood},
    {"Tab", {At(kLeg, 36, "\t")}, "3:36: warning: a tab, read as one blank\n" + kGood},
    {"ZerosAndEmptyLines", {kLeg}, kGood},
    {"UnknownRecordType", {"9 XY", kLeg}, "3:1: warning: unknown record type '9'; skipped\n" + kGood},
    {"SegmentData", {kLeg, At("4 XY  1010101J", 29, "AB010AAABBBZZ 6701")}, kGood},
    {"OtherAirline",
     {At(kLeg, 3, "ZZ ")},
     "3:3: warning: airline 'ZZ' under the carrier record of 'XY'\nZZ101/1 AAA BBB\n"},
    {"AirlineOfThreeLetters",
     {At(kLeg, 3, "ABC")},
     "3:3: warning: airline 'ABC' under the carrier record of 'XY'\nABC101/1 AAA BBB\n"},
    // What joins legs
    {"LegsInAnyOrder",
     {SsimLegRecord("301", 3, "CCC", "DDD"), kLeg, SsimLegRecord("301", 1, "AAA", "BBB"),
      SsimLegRecord("301", 2, "BBB", "CCC")},
     "XY301/1 AAA BBB CCC DDD\n" + kGood},
    {"ZerosInFrontOfTheNumber",
     {SsimLegRecord("0301", 1, "AAA", "BBB"), SsimLegRecord("301", 2, "BBB", "CCC")},
     "XY301/1 AAA BBB CCC\n"},
    {"VariationsApart", {kLeg, SsimLegRecord("101", 1, "AAA", "CCC", 2)}, kGood + "XY101/2 AAA CCC\n"},
    {"SuffixesApart", {kLeg, At(kLeg, 2, "D")}, kGood + "XY101D/1 AAA BBB\n"},
    {"AirlinesApart",
     {kLeg, At(kLeg, 3, "ZZ")},
     "4:3: warning: airline 'ZZ' under the carrier record of 'XY'\n" + kGood + "ZZ101/1 AAA BBB\n"},
    {"VariationOverflow",
     {At(SsimLegRecord("101", 1, "AAA", "BBB", 1), 128, "2"),
      At(SsimLegRecord("101", 1, "AAA", "BBB", 0), 128, "1")},
     "XY101/201 AAA BBB\nXY101/100 AAA BBB\n"},
    {"VariationZero", {SsimLegRecord("101", 1, "AAA", "BBB", 0)}, "XY101/0 AAA BBB\n"},
    // Faulty identities
    {"NumberNoDigits",
     {At(kLeg, 6, " 1O1")},
     "3:6: error: flight number ' 1O1' is not made of digits\n" + kBad},
    {"NumberEmpty", {At(kLeg, 6, "    ")}, "3:6: error: flight number '    ' is not made of digits\n" + kBad},
    {"OverflowNoDigit",
     {At(kLeg, 128, "A")},
     "3:128: error: itinerary variation overflow 'A' is not a digit\n" + kBad},
    {"VariationNoDigits",
     {At(kLeg, 10, "0A")},
     "3:10: error: itinerary variation '0A' is not made of digits\n" + kBad},
    {"SequenceNoDigits",
     {At(kLeg, 12, "x1")},
     "3:12: error: leg sequence number 'X1' is not made of digits\n" + kBad},
    {"SequenceZero",
     {At(kLeg, 12, "00")},
     "3:12: error: leg sequence number 00; legs are counted from 01\n" + kBad},
    {"LastLegOfAnUnknownFlight",
     {kLeg, At(SsimLegRecord("101", 2, "BBB", "CCC"), 10, "0A"), SsimLegRecord("5", 1, "AAA", "BBB")},
     "4:10: error: itinerary variation '0A' is not made of digits\nXY5/1 AAA BBB\n- 3\n- 4\n"},
    {"SuffixNoLetter",
     {At(kLeg, 2, "7")},
     "3:2: warning: the operational suffix '7' is not a letter\nXY1017/1 AAA BBB\n"},
    // Dates
    {"NoSuchDate", {At(kLeg, 15, "31APR27")}, "3:15: error: there is no date '31APR27'\n" + kBad},
    {"NoLeapYear", {At(kLeg, 22, "29FEB27")}, "3:22: error: there is no date '29FEB27'\n" + kBad},
    {"NoSuchMonth", {At(kLeg, 15, "01ARM27")}, "3:15: error: there is no date '01ARM27'\n" + kBad},
    {"DateOfBlanks", {At(kLeg, 22, "       ")}, "3:22: error: there is no date '       '\n" + kBad},
    {"FromAfterTo",
     {At(kLeg, 15, "02APR2701APR27")},
     "3:15: error: the period begins on 2027-04-02 and ends before that, on 2027-04-01\n" + kBad},
    {"OneDay", {At(kLeg, 15, "01APR2701APR27")}, kGood},
    {"OpenEnds", {At(kLeg, 15, "00XXX0000XXX  ")}, kGood},
    {"BeforeTheValidity",
     {At(kLeg, 15, "01JAN2727MAR27")},
     "3:15: note: the period is outside of the schedule's validity\n" + kGood},
    {"AfterTheValidity",
     {At(kLeg, 15, "31OCT2700XXX00")},
     "3:15: note: the period is outside of the schedule's validity\n" + kGood},
    // Days
    {"NoDay", {At(kLeg, 29, "       ")}, "3:29: error: there is no day of operation\n" + kBad},
    {"NoDayButZeros", {At(kLeg, 29, "0000000")}, "3:29: error: there is no day of operation\n" + kBad},
    {"DaysWithZeros", {At(kLeg, 29, "1030500")}, kGood},
    {"DaysWithPoints", {At(kLeg, 29, "..3...7")}, kGood},
    {"DayEight", {At(kLeg, 29, "12  8  ")}, "3:33: error: '8' is not a day of the week (1 to 7)\n" + kBad},
    {"DayX", {At(kLeg, 29, "X      ")}, "3:29: error: 'X' is not a day of the week (1 to 7)\n" + kBad},
    {"DaysDescending",
     {At(kLeg, 29, "1 3 2  ")},
     "3:33: error: the days of operation '1 3 2  ' are not in ascending order\n" + kBad},
    {"DayTwice",
     {At(kLeg, 29, "11     ")},
     "3:30: error: the days of operation '11     ' are not in ascending order\n" + kBad},
    {"DaysElsewhere",
     {At(kLeg, 29, "135    ")},
     "3:29: warning: the days of operation '135    ' are not in their own columns\n" + kGood},
    {"Weekly", {At(kLeg, 36, "1")}, kGood},
    {"Fortnightly", {At(kLeg, 36, "2")}, kGood},
    {"FrequencyUnknown",
     {At(kLeg, 36, "3")},
     "3:36: warning: unknown frequency rate '3'; taken as weekly\n" + kGood},
    {"FortnightlyFromAnotherDay",
     {At(At(kLeg, 29, "1      "), 36, "2")},
     "3:36: warning: every second week, but the first date is not a day of operation\n" + kGood},
    {"FortnightlyWithoutEnd",
     {At(At(kLeg, 22, "00XXX00"), 36, "2")},
     "3:36: warning: every second week, but the period has an open end\n" + kGood},
    // Stations and services
    {"UnknownService", {At(kLeg, 14, "!")}, "3:14: warning: unknown service type '!'\n" + kGood},
    {"NoService", {At(kLeg, 14, " ")}, "3:14: warning: unknown service type ' '\n" + kGood},
    {"UnknownDeparture", {At(kLeg, 37, "QZX")}, "3:37: error: unknown airport 'QZX'\n" + kBad},
    {"UnknownArrival", {At(kLeg, 55, "QPX")}, "3:55: error: unknown airport 'QPX'\n" + kBad},
    {"NoDeparture", {At(kLeg, 37, "   ")}, "3:37: error: there is no departure station\n" + kBad},
    {"SeveralFaults",
     {At(At(At(kLeg, 14, "!"), 15, "00APR27"), 55, "QPX")},
     "3:14: warning: unknown service type '!'\n3:15: error: there is no date '00APR27'\n"
     "3:55: error: unknown airport 'QPX'\n" +
         kBad},
    // Flights
    {"ABadLegTakesItsFlight",
     {kLeg, At(SsimLegRecord("101", 2, "BBB", "CCC"), 55, "QPX"), SsimLegRecord("5", 1, "AAA", "BBB")},
     "4:55: error: unknown airport 'QPX'\nXY5/1 AAA BBB\n- 3\n- 4\n"},
    {"ABadLegKeepsTheOtherVariation",
     {kLeg, At(SsimLegRecord("101", 1, "AAA", "CCC", 2), 55, "QPX")},
     "4:55: error: unknown airport 'QPX'\n" + kGood + "- 4\n"},
    {"SameLegTwice",
     {kLeg, kLeg},
     "4:12: warning: leg 01 of XY101 is already on line 3 with the same contents; taken once\n" + kGood},
    {"SameLegShorterAndInLowerCase",
     {At(kLeg, 100, " "), At(kLeg.substr(0, 75), 73, "320"), At(kLeg, 73, "32a"),
      SsimLegRecord("5", 1, "AAA", "BBB")},
     "4:12: warning: leg 01 of XY101 is already on line 3 with the same contents; taken once\n"
     "5:12: error: leg 01 of XY101 is already on line 3, with other contents\nXY5/1 AAA BBB\n- 3\n- 4\n- "
     "5\n"},
    {"SameLegInOtherWords",
     {kLeg, At(kLeg, 40, "0700")},
     "4:12: error: leg 01 of XY101 is already on line 3, with other contents\n- 3\n- 4\n"},
    {"FirstLegMissing",
     {SsimLegRecord("101", 2, "AAA", "BBB")},
     "3:12: error: leg 01 of XY101 is missing\n" + kBad},
    {"LegMissing",
     {kLeg, SsimLegRecord("101", 3, "BBB", "CCC")},
     "4:12: error: leg 02 of XY101 is missing\n- 3\n- 4\n"},
    {"LegsMissing",
     {SsimLegRecord("9", 1, "AAA", "BBB", 3), SsimLegRecord("9", 5, "BBB", "CCC", 3)},
     "4:12: error: legs 02 to 04 of XY9, variation 3 are missing\n- 3\n- 4\n"},
    {"LegsDoNotMeet",
     {kLeg, SsimLegRecord("101", 2, "CCC", "DDD")},
     "4:37: error: leg 02 of XY101 departs from CCC, but leg 01 arrives at BBB\n- 3\n- 4\n"},
    {"TenStopovers", Chain(11), "XY7/1 AAA BBB CCC DDD EEE FFF GGG HHH III JJJ KKK LLL\n"},
    {"ElevenStopovers", Chain(12),
     "14:12: error: XY7 has 11 stopovers; a flight has at most 10\n- 3\n- 4\n- 5\n- 6\n- 7\n- 8\n- 9\n- "
     "10\n- 11\n"
     "- 12\n- 13\n- 14\n"},
};

INSTANTIATE_TEST_SUITE_P(Records, SsimRules, testing::ValuesIn(kRules),
                         [](const testing::TestParamInfo<Rule>& rule) {
                           return std::string(rule.param.name);
                         });

std::string WithoutLines(std::string text, std::size_t first, std::size_t count) {
  std::size_t begin = 0;
  for (std::size_t i = 1; i < first; ++i)
    begin = text.find('\n', begin) + 1;
  std::size_t end = begin;
  for (std::size_t i = 0; i < count; ++i)
    end = text.find('\n', end) + 1;
  return text.erase(begin, end - begin);
}

TEST(SsimFiles, MayHavePaddingMarksAndAnyLineEnds) {
  const std::string zeros(200, '0');
  std::string text =
      "\xEF\xBB\xBF\n" + zeros + "\r\n" + SsimFile({kLeg}, "\r\n") + "\n" + zeros + "\n   \n0000";
  EXPECT_EQ(ShownSsim(text), kGood);
  text = SsimFile({kLeg});
  text.pop_back();
  EXPECT_EQ(ShownSsim(text), kGood);
}

TEST(SsimFiles, MayHaveShortLines) {
  const auto withLegs = [](const std::string& legs) {
    return ShownSsim(SsimHeader() + "\n" + SsimCarrierRecord() + "\n" + legs + "\n5 XY\n");
  };
  EXPECT_EQ(withLegs(kLeg), kGood);
  EXPECT_EQ(withLegs(kLeg.substr(0, 57) + "\r"), kGood);
  EXPECT_EQ(withLegs(kLeg.substr(0, 56)),
            "3:57: error: the record ends at column 56, before the arrival station\n" + kBad);
  EXPECT_EQ(withLegs(kLeg + "\n" + SsimLegRecord("101", 2, "BBB", "CCC").substr(0, 13)),
            "4:14: error: the record ends at column 13, before the arrival station\n- 3\n- 4\n");
}

TEST(SsimFiles, MustBeginWithTheTitle) {
  const std::string fault =
      "1:1: error: is no schedule data set: it does not begin with '1AIRLINE STANDARD SCHEDULE DATA SET'\n";
  EXPECT_EQ(ShownSsim(WithoutLines(SsimFile({kLeg}), 1, 1)), fault);
  EXPECT_EQ(ShownSsim("airline,flight\nXY,101\n"), fault);
  std::string lower = SsimFile({kLeg});
  lower.replace(1, 7, "aIrLiNe");
  EXPECT_EQ(ShownSsim(lower), kGood);
}

TEST(SsimFiles, AreReportedWhenTheyAreEmptyOrMissing) {
  EXPECT_EQ(ShownSsim(""), " error: is empty\n");
  Problems problems;
  const TempFolder folder;
  for (const auto& file : {folder / "none", folder.Path()}) {
    ReadSsim(file, LetterAirports().table, problems);
    EXPECT_EQ(problems.List().back().reason, "cannot be read");
  }
}

TEST(SsimFiles, AreReportedWhenTheyEndWithoutTrailer) {
  EXPECT_EQ(ShownSsim(WithoutLines(SsimFile({kLeg}), 4, 1)),
            "3: warning: the data set ends without a trailer; it may be truncated\n" + kGood);
  std::string text = SsimFile({kLeg});
  text[text.size() - 8] = 'C';
  EXPECT_EQ(ShownSsim(text),
            "4:194: warning: the data set ends, but its trailer says that another carrier follows\n" + kGood);
}

TEST(SsimFiles, CountTheirRecords) {
  const std::string text = SsimFile({kLeg, SsimLegRecord("5", 1, "AAA", "BBB")});
  const auto withNumber = [&](std::size_t line, const char* number) {
    std::string changed = text;
    return changed.replace((line - 1) * 201 + 194, 6, number);
  };
  const std::string flights = kGood + "XY5/1 AAA BBB\n";
  EXPECT_EQ(ShownSsim(text), flights);
  EXPECT_EQ(ShownSsim(withNumber(3, "      ")), flights);
  EXPECT_EQ(ShownSsim(withNumber(3, "000007")),
            "3:195: warning: record serial number 000007, expected 000003\n"
            "4:195: warning: record serial number 000004, expected 000008\n" +
                flights);
  EXPECT_EQ(ShownSsim(withNumber(1, "000002")),
            "1:195: warning: record serial number 000002, expected 000001\n"
            "2:195: warning: record serial number 000002, expected 000003\n" +
                flights);
  EXPECT_EQ(ShownSsim(withNumber(4, "00000x")),
            "4:195: warning: record serial number '00000X' is not made of digits\n" + flights);
  EXPECT_EQ(ShownSsim(withNumber(4, "     4")), flights);
  std::string reference = text;
  reference.replace(4 * 201 + 187, 6, "000003");
  EXPECT_EQ(
      ShownSsim(reference),
      "5:188: warning: serial number check reference '000003', but the record before is 000004\n" + flights);
}

TEST(SsimFiles, CountFrom2After999999) {
  std::string text = SsimFile({kLeg, SsimLegRecord("5", 1, "AAA", "BBB")});
  text.replace(2 * 201 + 194, 6, "999999");
  text.replace(3 * 201 + 194, 6, "000002");
  text.replace(4 * 201 + 187, 6, "000002");
  text.replace(4 * 201 + 194, 6, "000003");
  EXPECT_EQ(ShownSsim(text),
            "3:195: warning: record serial number 999999, expected 000003\n" + kGood + "XY5/1 AAA BBB\n");
}

TEST(SsimFiles, MayHaveSeveralCarriers) {
  std::string text = SsimHeader() + "\n" + SsimCarrierRecord("XY") + "\n" + kLeg + "\n5 XY\n" +
                     SsimCarrierRecord("ABC", "00XXX0000XXX00") + "\n" + At(kLeg, 3, "ABC") + "\n5 ABC\n";
  EXPECT_EQ(ShownSsim(text), kGood + "ABC101/1 AAA BBB\n");
}

TEST(SsimFiles, ReportBadValidities) {
  const auto withValidity = [](const char* validity) {
    return ShownSsim(SsimHeader() + "\n" + SsimCarrierRecord("XY", validity) + "\n" + kLeg + "\n5 XY\n");
  };
  EXPECT_EQ(withValidity("              "), kGood);
  EXPECT_EQ(withValidity("32MAR2730OCT27"),
            "2:15: error: there is no date '32MAR27' in the schedule's validity\n" + kGood);
  EXPECT_EQ(withValidity("30OCT2728MAR27"),
            "2:15: error: the schedule's validity begins after its end\n" + kGood);
}

TEST(SsimLegs, KnowTheirDetails) {
  const TempFolder folder;
  const std::string leg =
      At(At(At(At(kLeg, 36, "2"), 15, "02APR2700XXX00"), 29, "    5  "), 138, "XY  102 D");
  WriteBytes(folder / "s", SsimFile({leg}));
  Problems problems;
  const SsimSchedule schedule = ReadSsim(folder / "s", LetterAirports().table, problems);
  ASSERT_EQ(schedule.flights.size(), 1U);
  const SsimLeg& read = schedule.legs.front();
  EXPECT_EQ(IsoDate(read.period.from), "2027-04-02");
  EXPECT_EQ(IsoDate(read.period.to), "2027-10-30");
  EXPECT_EQ(WeekdaysText(read.days), "5");
  EXPECT_TRUE(read.fortnightly);
  EXPECT_EQ(read.serviceType, 'J');
  EXPECT_EQ(read.Aircraft(), "320");
  EXPECT_EQ(read.Onward(), "XY102D");
  EXPECT_EQ(read.id.Airline(), "XY");
  EXPECT_EQ(read.id.Number(), 101);
  EXPECT_EQ(read.id.Suffix(), "");
}

TEST(SsimDates, TurnTheCenturyAt70) {
  EXPECT_EQ(IsoDate(ParseSsimDate("01JAN69")->day), "2069-01-01");
  EXPECT_EQ(IsoDate(ParseSsimDate("31DEC70")->day), "1970-12-31");
  EXPECT_EQ(IsoDate(ParseSsimDate("29FEB28")->day), "2028-02-29");
  EXPECT_TRUE(ParseSsimDate("00XXX00")->open);
  EXPECT_TRUE(ParseSsimDate("00XXX  ")->open);
  EXPECT_FALSE(ParseSsimDate("00XXX27"));
  EXPECT_FALSE(ParseSsimDate("1 JAN27"));
  EXPECT_FALSE(ParseSsimDate("01ANF27"));
}

}  // namespace
}  // namespace zerbal::pack
