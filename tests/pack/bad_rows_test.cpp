// Every kind of error in a planner's files with its message.
#include <ostream>
#include <sstream>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "zerbal-pack/airline.h"

namespace zerbal::pack {
namespace {

const std::string kServicesHeader = "Service,Line,Name,Red,Green,Blue\n";
const std::string kServices = kServicesHeader + "EUR,1,Europe,0,0,255\nATL,2,Atlantic,200,0,0\n";
const std::string kAirportsHeader =
    "Code,Name,City,Longitude,Latitude,Elevation (ft),Runways,Longest runway (ft),ILS\n";
const std::string kAirports = kAirportsHeader +
                              "LPPT,Lisbon,Lisbon,-9.136,38.781,374,1,12162,1\n"
                              "EGLL,Heathrow,London,-0.46,51.471,83,2,12799,1\n"
                              "NZAA,Auckland,Auckland,174.786,-37.012,23,1,11926,1\n";
const std::string kFlightsHeader = "Service,Flight,Key,From,Stop 1,Stop 2,Stop 3,To\n";
const std::string kFlights = kFlightsHeader + "EUR,QV101,QV101,LPPT,,,,EGLL\nEUR,QV102,QV102,EGLL,,,,LPPT\n";

std::string MessagesFor(const std::string& services, const std::string& airports,
                        const std::string& flights) {
  Problems problems;
  Schedule schedule;
  schedule.services = ParseCsvTable(services, "s.csv", ServiceLayout(), problems);
  schedule.destinations = ParseCsvTable(airports, "d.csv", DestinationLayout(), problems);
  schedule.flights = ParseCsvTable(flights, "f.csv", FlightLayout(), problems);
  CheckSchedule(schedule, problems);
  std::ostringstream text;
  problems.Print(text);
  return text.str();
}

struct BadRow {
  const char* name;
  char file;  // s, d or f
  std::string csv;
  std::string messages;
};

std::ostream& operator<<(std::ostream& out, const BadRow& row) {
  return out << row.name;
}

class BadRows : public testing::TestWithParam<BadRow> {};

TEST_P(BadRows, AreReported) {
  const BadRow& bad = GetParam();
  EXPECT_EQ(MessagesFor(bad.file == 's' ? bad.csv : kServices, bad.file == 'd' ? bad.csv : kAirports,
                        bad.file == 'f' ? bad.csv : kFlights),
            bad.messages);
}

const BadRow kBadRows[] = {
    // Format
    {"EmptyFile", 'f', "", "f.csv: is empty; its first line must name the columns\n"},
    {"SeparatorsMixed", 'f', "Service;Flight;Key;From;To\nEUR,QV101,QV101,LPPT,EGLL\n",
     "f.csv: note: read as UTF-8, with semicolons between the fields\n"
     "f.csv:2: has 1 columns, the header 5\n"},
    {"MissingColumn", 's', "Service,Line,Name,Red,Green\nEUR,1,Europe,0,0\n",
     "s.csv:1: there is no column 'Blue'\n"},
    {"UnknownColumn", 's', "Service,Line,Name,Colour,Red,Green,Blue\nEUR,1,Europe,x,0,0,1\n",
     "s.csv:1: column 'Colour': no such column in a table of flight services; they are Service, Sort, Line, "
     "Name, "
     "Red, Green, Blue\n"},
    {"ColumnTwice", 's', "Service,Line,Name,Red,Green,Blue,Red\n", "s.csv:1: column 'Red': occurs twice\n"},
    {"ColumnUnderBothNames", 's', "Service,FSrv,Line,Name,Red,Green,Blue\n",
     "s.csv:1: column 'FSrv': means the same as column 'Service'\n"},
    {"TooFewColumns", 'f', kFlightsHeader + "EUR,QV101,QV101,LPPT,EGLL\n",
     "f.csv:2: has 5 columns, the header 8\n"},
    {"TooManyColumns", 'f', kFlightsHeader + "EUR,QV101,QV101,LPPT,,,,EGLL,\n",
     "f.csv:2: has 9 columns, the header 8\n"},
    {"OpenQuote", 'f', kFlightsHeader + "EUR,QV101,\"QV101,LPPT,,,,EGLL\n",
     "f.csv:2: column 'Key': the quotation mark that begins the field is never closed\n"},
    {"TextAfterQuote", 'f', kFlightsHeader + "EUR,\"QV\"101,QV101,LPPT,,,,EGLL\n",
     "f.csv:2: column 'Flight': text after the closing quotation mark\n"},
    {"QuoteInside", 'f', kFlightsHeader + "EUR,QV\"101,QV101,LPPT,,,,EGLL\n",
     "f.csv:2: column 'Flight': a quotation mark in a field that does not begin with one\n"},
    {"NoUtf8", 'f', "\xEF\xBB\xBF" + kFlightsHeader + "EUR,QV\xE9,QV101,LPPT,,,,EGLL\n",
     "f.csv: note: read as UTF-8 with byte order mark, with commas between the fields\n"
     "f.csv:2: column 'Flight': not valid UTF-8\n"},
    {"NoCodePage1252", 'f', kFlightsHeader + "EUR,QV\x81,QV101,LPPT,,,,EGLL\n",
     "f.csv: note: read as code page 1252, with commas between the fields\n"
     "f.csv:2: column 'Flight': not valid code page 1252\n"},
    // Keys
    {"EmptyKey", 'f', kFlightsHeader + "EUR,QV101,,LPPT,,,,EGLL\n", "f.csv:2: column 'Key': is empty\n"},
    {"BlankKey", 'f', kFlightsHeader + "EUR,QV101,\"  \",LPPT,,,,EGLL\n",
     "f.csv:2: column 'Key': is empty\n"},
    {"DuplicateFlight", 'f',
     kFlightsHeader + "EUR,QV101,K,LPPT,,,,EGLL\nEUR,QV102,L,EGLL,,,,LPPT\nATL,QV103,K,EGLL,,,,LPPT\n",
     "f.csv:4: column 'Key': 'K' is already on line 2\n"},
    {"DuplicateAirportInOtherCase", 'd', kAirports + "egll,x,y,1,1,1,1,1,0\n",
     "d.csv:5: column 'Code': 'egll' is already on line 3 (as 'EGLL', which is the same)\n"},
    {"DuplicateService", 's', kServices + "EUR,3,x,1,1,1\n",
     "s.csv:4: column 'Service': 'EUR' is already on line 2\n"},
    {"KeyWithAccent", 'd', kAirports + "É,x,y,1,1,1,1,1,0\n",
     "d.csv:5: column 'Code': 'É' holds a character other than ASCII letters, digits and signs\n"},
    {"KeyWithBlankAtEnd", 'd', kAirports + "\"AAA \",x,y,1,1,1,1,1,0\n",
     "d.csv:5: column 'Code': 'AAA ' begins or ends with a blank\n"},
    {"KeyTooLong", 'd', kAirports + "ABCDEFGHIJKLMNOPQRSTU,x,y,1,1,1,1,1,0\n",
     "d.csv:5: column 'Code': 'ABCDEFGHIJKLMNOPQRSTU' is 21 characters long, at most 20 fit\n"},
    {"ServiceNoSettingsKey", 's', kServices + "A=B,3,x,1,1,1\n",
     "s.csv:4: column 'Service': 'A=B' cannot be a key of the settings file\n"},
    // References
    {"UnknownService", 'f', kFlightsHeader + "ASI,QV101,K,LPPT,,,,EGLL\n",
     "f.csv:2: column 'Service': unknown flight service 'ASI'\n"},
    {"ServiceInOtherCase", 'f', kFlightsHeader + "eur,QV101,K,LPPT,,,,EGLL\n",
     "f.csv:2: column 'Service': unknown flight service 'eur' (letter case counts: there is 'EUR')\n"},
    {"UnknownOrigin", 'f', kFlightsHeader + "EUR,QV101,K,XXXX,,,,EGLL\n",
     "f.csv:2: column 'From': unknown airport 'XXXX'\n"},
    {"UnknownDestination", 'f', kFlightsHeader + "EUR,QV101,K,LPPT,,,,XXXX\n",
     "f.csv:2: column 'To': unknown airport 'XXXX'\n"},
    {"UnknownStop", 'f', kFlightsHeader + "EUR,QV101,K,LPPT,EGLL,XXXX,,EGLL\n",
     "f.csv:2: column 'Stop 2': unknown airport 'XXXX'\n"},
    {"NoOrigin", 'f', kFlightsHeader + "EUR,QV101,K,,,,,EGLL\n", "f.csv:2: column 'From': is empty\n"},
    {"StopAfterGap", 'f', kFlightsHeader + "EUR,QV101,K,LPPT,EGLL,,NZAA,LPPT\n",
     "f.csv:2: column 'Stop 3': 'NZAA' follows an empty stopover 2\n"},
    {"EleventhStop", 'f',
     "Service,Flight,Key,From,Stop 1,Stop 2,Stop 3,Stop 4,Stop 5,Stop 6,Stop 7,Stop 8,Stop 9,Stop 10,Stop "
     "11,To\n"
     "EUR,QV101,K,LPPT,EGLL,LPPT,EGLL,LPPT,EGLL,LPPT,EGLL,LPPT,EGLL,LPPT,EGLL,LPPT\n"
     "EUR,QV103,L,LPPT,EGLL,LPPT,EGLL,LPPT,EGLL,LPPT,EGLL,LPPT,EGLL,LPPT,,EGLL\n",
     "f.csv:2: column 'Stop 11': 'EGLL' is one stopover too many; a flight has at most 10\n"},
    {"NoServices", 's', kServicesHeader,
     "s.csv: there is no flight service; the program needs at least one\n"
     "f.csv:2: column 'Service': unknown flight service 'EUR'\n"
     "f.csv:3: column 'Service': unknown flight service 'EUR'\n"},
    // Positions
    {"LongitudeTooFarEast", 'd', kAirports + "AAAA,x,y,180.5,1,1,1,1,0\n",
     "d.csv:5: column 'Longitude': '180.5' is not within -180 to 180\n"},
    {"LongitudeTooFarWest", 'd', kAirports + "AAAA,x,y,-181,1,1,1,1,0\n",
     "d.csv:5: column 'Longitude': '-181' is not within -180 to 180\n"},
    {"LatitudeBeyondPole", 'd', kAirports + "AAAA,x,y,1,-90.01,1,1,1,0\n",
     "d.csv:5: column 'Latitude': '-90.01' is not within -90 to 90\n"},
    {"MapFrameLatitude", 'd',
     "AP,AP_Name,AP_City,AP_Lon,AP_Lat,AP_Elev,AP_RwyNr,AP_RwyMaxL,AP_ILS\n"
     "LPPT,x,y,170.9,51.2,1,1,1,0\nEGLL,x,y,361,181,1,1,1,0\n",
     "d.csv:3: column 'AP_Lon': '361' is not within 0 to 360 (map frame)\n"
     "d.csv:3: column 'AP_Lat': '181' is not within 0 to 180 (map frame)\n"},
    {"DecimalComma", 'd', kAirports + "AAAA,x,y,\"8,55\",1,1,1,1,0\n",
     "d.csv:5: column 'Longitude': '8,55' is not a number (the decimal sign is a point)\n"},
    {"DegreesAndMinutes", 'd', kAirports + "AAAA,x,y,8,47N,1,1,1,0\n",
     "d.csv:5: column 'Latitude': '47N' is not a number\n"},
    {"NotANumber", 'd', kAirports + "AAAA,x,y,nan,1,1,1,1,0\n",
     "d.csv:5: column 'Longitude': 'nan' is not a number\n"},
    // Other values
    {"ElevationNoNumber", 'd', kAirports + "AAAA,x,y,1,1,sea,1,1,0\n",
     "d.csv:5: column 'Elevation': 'sea' is not a whole number\n"},
    {"ElevationWithFraction", 'd', kAirports + "AAAA,x,y,1,1,12.5,1,1,0\n",
     "d.csv:5: column 'Elevation': '12.5' is not a whole number\n"},
    {"ElevationEmpty", 'd', kAirports + "AAAA,x,y,1,1,,1,1,0\n", "d.csv:5: column 'Elevation': is empty\n"},
    {"ElevationTooLarge", 'd', kAirports + "AAAA,x,y,1,1,2147483648,1,1,0\n",
     "d.csv:5: column 'Elevation': '2147483648' is not within -2147483648 to 2147483647\n"},
    {"RunwaysNegative", 'd', kAirports + "AAAA,x,y,1,1,1,-1,1,0\n",
     "d.csv:5: column 'Runways': '-1' is not within 0 to 2147483647\n"},
    {"IlsYes", 'd', kAirports + "AAAA,x,y,1,1,1,1,1,yes\n",
     "d.csv:5: column 'ILS': 'yes' is neither 0 nor 1\n"},
    {"ColourTooBright", 's', kServices + "X,3,x,256,0,0\n",
     "s.csv:4: column 'Red': '256' is not within 0 to 255\n"},
    {"ColourNegative", 's', kServices + "X,3,x,0,-1,0\n",
     "s.csv:4: column 'Green': '-1' is not within 0 to 255\n"},
    {"ServiceWithoutName", 's', kServices + "X,3,,0,0,0\n", "s.csv:4: column 'Name': is empty\n"},
    {"NameTooLong", 'd', kAirports + "AAAA," + std::string(256, 'x') + ",y,1,1,1,1,1,0\n",
     "d.csv:5: column 'Name': '" + std::string(40, 'x') + "...' is 256 characters long, at most 255 fit\n"},
    {"ControlCharacter", 'd', kAirports + "AAAA,a\x07z,y,1,1,1,1,1,0\n",
     "d.csv:5: column 'Name': 'a?z' holds a control character\n"},
    {"SortTooLarge", 's', "Service,Sort,Line,Name,Red,Green,Blue\nEUR,2147483648,1,x,0,0,0\n",
     "s.csv:2: column 'Sort': '2147483648' is not within -2147483648 to 2147483647\n"},
    // Several errors in the order of the lines
    {"SeveralInOneRow", 'd', kAirports + "AAAA,x,y,999,x,1,1,1,2\n",
     "d.csv:5: column 'Longitude': '999' is not within -180 to 180\n"
     "d.csv:5: column 'Latitude': 'x' is not a number\n"
     "d.csv:5: column 'ILS': '2' is neither 0 nor 1\n"},
    {"RowsAfterABadOne", 'f',
     kFlightsHeader + "EUR,QV\"1,A,LPPT,,,,EGLL\nEUR,QV2,B,XXXX,,,,EGLL\n\nEUR,QV3,B,LPPT,,,,YYYY\n",
     "f.csv:2: column 'Flight': a quotation mark in a field that does not begin with one\n"
     "f.csv:3: column 'From': unknown airport 'XXXX'\n"
     "f.csv:5: column 'Key': 'B' is already on line 3\n"
     "f.csv:5: column 'To': unknown airport 'YYYY'\n"},
};

INSTANTIATE_TEST_SUITE_P(Schedule, BadRows, testing::ValuesIn(kBadRows),
                         [](const testing::TestParamInfo<BadRow>& row) {
                           return std::string(row.param.name);
                         });

TEST(GoodRows, AreNotReported) {
  EXPECT_EQ(MessagesFor(kServices, kAirports, kFlights), "");
}

TEST(GoodRows, MayReferToARowWithAnotherError) {
  EXPECT_EQ(MessagesFor(kServices, kAirports + "AAAA,x,y,1,1,sea,1,1,0\n",
                        kFlights + "EUR,QV103,QV103,AAAA,,,,EGLL\n"),
            "d.csv:5: column 'Elevation': 'sea' is not a whole number\n");
}

std::string ManyServices(int count) {
  std::string services = kServices;
  for (int i = 2; i < count; ++i)
    services += "S" + std::to_string(i) + ",,x,0,0,0\n";
  return services;
}

TEST(GoodRows, MayReachTheLimitsOfTheProgram) {
  EXPECT_EQ(MessagesFor(ManyServices(32767), kAirports, kFlights), "");
  EXPECT_EQ(MessagesFor(ManyServices(32768), kAirports, kFlights),
            "s.csv: there are 32768 flight services; the program counts up to 32767\n");
}

TEST(BadFiles, ReportNoReferencesToTheirMissingRows) {
  EXPECT_EQ(MessagesFor(kServices, "Code\nLPPT\n", kFlights).find("unknown airport"), std::string::npos);
}

std::string ProgramDataMessages(std::string_view colours, std::string_view fonts, std::string_view regions) {
  Problems problems;
  ProgramData data;
  data.colours = ParseCsvTable(colours, "colours.csv", ColourLayout(), problems);
  data.fonts = ParseCsvTable(fonts, "fonts.csv", FontLayout(), problems);
  data.regions = ParseCsvTable(regions, "regions.csv", RegionLayout(), problems);
  CheckProgramData(data, problems);
  std::ostringstream text;
  problems.Print(text);
  return text.str();
}

TEST(BadProgramData, IsReported) {
  const std::string colours =
      "Code,Name,Red,Green,Blue,Entry\nMAPBG,,1,2,3,a\nZOOM,,1,2,3,b\nCENTRE,,1,2,3,c\nCOAST,,1,2,3,d\n"
      "RIVER,,1,2,3,e\nIBOUND,,1,2,3,f\nAPALL,,1,2,3,g\nAPDEST,,1,2,3,h\n";
  const std::string fonts = "Code,Font,Size,Entry\nLORES,Arial,7,l\nHIRES,Arial,8,h\n";
  const std::string regions = "Region,Name,West,North,East,South\nEUR,Europe,-25,70,45,35\n";
  EXPECT_EQ(ProgramDataMessages(colours + "ACSYMB,,1,2,3,i\n", fonts, regions), "");
  EXPECT_EQ(ProgramDataMessages(colours, fonts, regions),
            "colours.csv: there is no row with code 'ACSYMB'\n");
  EXPECT_EQ(ProgramDataMessages(colours + "ACSYMB,,1,2,300,\n", fonts, regions),
            "colours.csv:10: column 'Blue': '300' is not within 0 to 255\n"
            "colours.csv:10: column 'Entry': is empty\n");
  for (const std::string entry : {"[i]", ";i", "i=j"}) {
    EXPECT_EQ(ProgramDataMessages(colours + "ACSYMB,,1,2,3," + entry + "\n", fonts, regions),
              "colours.csv:10: column 'Entry': '" + entry + "' cannot be a key of the settings file\n");
  }
  EXPECT_EQ(ProgramDataMessages(colours + "ACSYMB,,1,2,3,\"i\nj\"\n", fonts, regions),
            "colours.csv:10: column 'Entry': 'i?j' cannot be a key of the settings file\n");
  EXPECT_EQ(ProgramDataMessages(colours + "ACSYMB,,1,2,3,A\n", fonts, regions),
            "colours.csv:10: column 'Entry': 'A' is already on line 2 (as 'a', which is the same)\n");
  EXPECT_EQ(
      ProgramDataMessages(colours + "ACSYMB,,1,2,3,i\n", "Code,Font,Size,Entry\nLORES,Arial,5,l\n", regions),
      "fonts.csv: there is no row with code 'HIRES'\n"
      "fonts.csv:2: column 'Size': '5' is not within 6 to 14\n");
  EXPECT_EQ(ProgramDataMessages(colours + "ACSYMB,,1,2,3,i\n", fonts, "Region,Name,West,North,East,South\n"),
            "regions.csv: there is no region; the program needs at least one\n");
  EXPECT_EQ(ProgramDataMessages(colours + "ACSYMB,,1,2,3,i\n", fonts, regions + "X,x,10,5,10,5\n"),
            "regions.csv:3: column 'East': is the same as the west bound\n"
            "regions.csv:3: column 'South': is not south of the north bound\n");
}

}  // namespace
}  // namespace zerbal::pack
