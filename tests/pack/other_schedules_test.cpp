// Every rule for rows of phpVMS and routes of OpenFlights.
#include <ostream>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "pack/letter_airports.h"
#include "support/temp_folder.h"
#include "zerbal-pack/openflights_routes.h"
#include "zerbal-pack/phpvms_reader.h"
#include "zerbal-pack/run.h"

namespace zerbal::pack {
namespace {

using test::LetterAirports;
using zerbal::test::ReadBytes;
using zerbal::test::TempFolder;
using zerbal::test::WriteBytes;

struct Case {
  const char* name;
  std::string rows;
  std::string shown;
};

std::ostream& operator<<(std::ostream& out, const Case& c) {
  return out << c.name;
}

std::string CaseName(const testing::TestParamInfo<Case>& c) {
  return c.param.name;
}

std::string Shorten(std::string text, const TempFolder& folder) {
  const std::string name = (folder / "f").string() + ":";
  for (std::size_t at = 0; (at = text.find(name)) != std::string::npos;)
    text.erase(at, name.size());
  return text;
}

template <typename Schedule>
std::string ShownLeftOut(const Schedule& schedule) {
  std::string shown;
  for (const LeftOut& record : schedule.leftOut)
    shown += "- " + std::to_string(record.line) + "\n";
  return shown;
}

/// Messages, then "QVA101 EAAA EBBB 135 J [from to]" for each flight, then what is left out.
std::string ShownPhpVms(std::string_view text) {
  const TempFolder folder;
  WriteBytes(folder / "f", text);
  const AirportList airports = LetterAirports();
  Problems problems;
  const PhpVmsSchedule schedule = ReadPhpVms(folder / "f", airports.table, problems);
  std::ostringstream out;
  problems.Print(out, true);
  for (const PhpVmsFlight& flight : schedule.flights) {
    out << flight.Name();
    for (const AirportIndex index : flight.route)
      out << " " << airports.table[index].code;
    out << " " << WeekdaysText(flight.operation.days) << " " << flight.type;
    if (const Period& period = flight.operation.period; period.from != kFirstDay)
      out << " " << IsoDate(period.from) << " " << IsoDate(period.to);
    out << "\n";
  }
  return Shorten(out.str() + ShownLeftOut(schedule), folder);
}

class PhpVms7Rows : public testing::TestWithParam<Case> {};

TEST_P(PhpVms7Rows, AreRead) {
  EXPECT_EQ(ShownPhpVms("airline,flight_number,route_code,route_leg,dpt_airport,arr_airport,days,flight_type,"
                        "start_date,end_date,active\n" +
                        GetParam().rows),
            GetParam().shown);
}

std::string LegsOfOneFlight(int count) {
  std::string rows;
  for (int i = 0; i < count; ++i)
    rows += "QVA,1,," + std::to_string(i + 1) + ",E" + std::string(3, static_cast<char>('A' + i)) + ",E" +
            std::string(3, static_cast<char>('B' + i)) + ",,J,,,1\n";
  return rows;
}

const Case kPhpVms7[] = {
    {"Row", "QVA,101,,,EAAA,EBBB,135,J,,,1\n", "QVA101 EAAA EBBB 135 J\n"},
    {"BlanksAndLowerCase", " qva , 0101 , a , , eaaa,\" EBBB \",, f ,,, Yes \n",
     "QVA101/A EAAA EBBB 1234567 F\n"},
    {"IataCodes", "QVA,101,,,AAA,BBB,,J,,,1\n", "QVA101 EAAA EBBB 1234567 J\n"},
    {"LineBreakInQuotes", "QVA,101,,,EAAA,EBBB,,J,,,\"1\"\n\n\"Q\nV\",x,,,,,,,,,1\n",
     "4: error: column 'flight_number': 'x' is not made of digits\n4: error: column 'dpt_airport': is empty\n"
     "4: error: column 'arr_airport': is empty\n4: warning: column 'flight_type': unknown flight type ''; "
     "taken as J\n"
     "QVA101 EAAA EBBB 1234567 J\n- 4\n"},
    {"BackslashInQuotes", "QVA,101,\"\\\"\",,EAAA,EBBB,,J,,,1\n", "QVA101/\" EAAA EBBB 1234567 J\n"},
    {"Required", ",,,,,,,J,,,1\n",
     "2: error: column 'airline': is empty\n2: error: column 'flight_number': is empty\n"
     "2: error: column 'dpt_airport': is empty\n2: error: column 'arr_airport': is empty\n- 2\n"},
    {"NumberNoDigits", "QVA,-1,,,EAAA,EBBB,,J,,,1\nQVA,1x,,,EAAA,EBBB,,J,,,1\nQVA,99999,,,EAAA,EBBB,,J,,,1\n",
     "2: error: column 'flight_number': '-1' is not made of digits\n"
     "3: error: column 'flight_number': '1x' is not made of digits\nQVA99999 EAAA EBBB 1234567 J\n- 2\n- "
     "3\n"},
    {"UnknownAirport", "QVA,1,,,XXXX,EBBB,,J,,,1\n",
     "2: error: column 'dpt_airport': unknown airport 'XXXX'\n- 2\n"},
    {"EqualAirports", "QVA,1,,,EBBB,BBB,,J,,,1\n",
     "2: error: column 'arr_airport': is the airport of the departure\n- 2\n"},
    {"DaysInAnyOrder", "QVA,1,,,EAAA,EBBB,7531,J,,,1\n", "QVA1 EAAA EBBB 1357 J\n"},
    {"ALoneZeroIsEveryDay", "QVA,1,,,EAAA,EBBB,0,J,,,1\n", "QVA1 EAAA EBBB 1234567 J\n"},
    {"BadDays", "QVA,1,,,EAAA,EBBB,18,J,,,1\nQVA,1,,,EAAA,EBBB,01,J,,,1\n",
     "2: error: column 'days': '18' has a day other than 1 to 7\n"
     "3: error: column 'days': '01' has a day other than 1 to 7\n- 2\n- 3\n"},
    {"OtherCharactersInDays", "QVA,1,,,EAAA,EBBB,Mon,J,,,1\nQVA,2,,,EAAA,EBBB,\"1, 3\",J,,,1\n",
     "2: note: column 'days': 'Mon' has no digit; taken as every day\nQVA1 EAAA EBBB 1234567 J\nQVA2 EAAA "
     "EBBB 13 J\n"},
    {"Dates", "QVA,1,,,EAAA,EBBB,,J,2027-03-28,2027-10-30,1\nQVA,2,,,EAAA,EBBB,,J,2027-03-28,,1\n",
     "QVA1 EAAA EBBB 1234567 J 2027-03-28 2027-10-30\nQVA2 EAAA EBBB 1234567 J\n"},
    {"BadDates", "QVA,1,,,EAAA,EBBB,,J,2027-02-29,,1\nQVA,1,,,EAAA,EBBB,,J,2027-03-02,2027-03-01,1\n",
     "2: error: column 'start_date': there is no date '2027-02-29'\n"
     "3: error: column 'start_date': 2027-03-02 is after the end, 2027-03-01\n- 2\n- 3\n"},
    {"UnknownType", "QVA,1,,,EAAA,EBBB,,!,,,1\nQVA,2,,,EAAA,EBBB,,JJ,,,1\nQVA,3,,,EAAA,EBBB,,I,,,1\n",
     "2: warning: column 'flight_type': unknown flight type '!'; taken as J\n"
     "3: warning: column 'flight_type': unknown flight type 'JJ'; taken as J\n"
     "QVA1 EAAA EBBB 1234567 J\nQVA2 EAAA EBBB 1234567 J\nQVA3 EAAA EBBB 1234567 I\n"},
    {"NotActive", "QVA,1,,,EAAA,EBBB,,J,,,0\nQVA,2,,,EAAA,EBBB,,J,,,\nQVA,3,,,EAAA,EBBB,,J,,,on\n",
     "2: note: is not active; left out\n3: note: is not active; left out\nQVA3 EAAA EBBB 1234567 J\n"},
    {"SameRowTwice", "QVA,1,,,EAAA,EBBB,1,J,,,1\nQVA,1,,,EAAA,EBBB,1,J,,,1\nQVA,1,,,EAAA,EBBB,2,J,,,1\n",
     "3: warning: flight QVA1 is already on line 2; taken once\nQVA1 EAAA EBBB 1 J\nQVA1 EAAA EBBB 2 J\n"},
    {"NamesThatTheProgramCannotShow",
     "Q A,1,,,EAAA,EBBB,,J,,,1\nQVA,1,é,,EAAA,EBBB,,J,,,1\nQ!~,1,,,EAAA,EBBB,,J,,,1\n",
     "2: error: the flight's name 'Q A1' is not made of at most 20 letters, digits and signs\n"
     "3: error: the flight's name 'QVA1/é' is not made of at most 20 letters, digits and signs\n"
     "Q!~1 EAAA EBBB 1234567 J\n- 2\n- 3\n"},
    {"RouteCodesApart", "QVA,1,A,,EAAA,EBBB,1,J,,,1\nQVA,1,B,,EAAA,EBBB,1,J,,,1\n",
     "QVA1/A EAAA EBBB 1 J\nQVA1/B EAAA EBBB 1 J\n"},
    {"Legs", "QVA,1,,2,EBBB,ECCC,1,F,,,1\nQVA,2,,,EAAA,EBBB,1,J,,,1\nQVA,1,,1,EAAA,EBBB,1,J,,,1\n",
     "QVA1 EAAA EBBB ECCC 1 J\nQVA2 EAAA EBBB 1 J\n"},
    {"LegsOnOtherDays", "QVA,1,,1,EAAA,EBBB,1,J,,,1\nQVA,1,,2,EBBB,ECCC,2,J,,,1\n",
     "3: warning: column 'route_leg': the legs of QVA1 do not run 1, 2, 3 from airport to airport; each is a "
     "flight "
     "of its own\nQVA1 EAAA EBBB 1 J\nQVA1 EBBB ECCC 2 J\n"},
    {"LegsThatDoNotMeet", "QVA,1,,1,EAAA,EBBB,1,J,,,1\nQVA,1,,2,EAAA,ECCC,1,J,,,1\n",
     "2: warning: column 'route_leg': the legs of QVA1 do not run 1, 2, 3 from airport to airport; each is a "
     "flight "
     "of its own\nQVA1 EAAA EBBB 1 J\nQVA1 EAAA ECCC 1 J\n"},
    {"LegsWithoutNumbers", "QVA,1,,x,EAAA,EBBB,1,J,,,1\n",
     "2: warning: column 'route_leg': the legs of QVA1 do not run 1, 2, 3 from airport to airport; each is a "
     "flight "
     "of its own\nQVA1 EAAA EBBB 1 J\n"},
    {"ABadLegTakesItsFlight",
     "QVA,1,,1,EAAA,EBBB,1,J,,,1\nQVA,1,,2,EBBB,XXXX,1,J,,,1\nQVA,1,,,EAAA,EBBB,1,J,,,1\n",
     "3: error: column 'arr_airport': unknown airport 'XXXX'\nQVA1 EAAA EBBB 1 J\n- 2\n- 3\n"},
    {"TenStopovers", LegsOfOneFlight(11),
     "QVA1 EAAA EBBB ECCC EDDD EEEE EFFF EGGG EHHH EIII EJJJ EKKK ELLL 1234567 J\n"},
    {"ElevenStopovers", LegsOfOneFlight(12),
     "2: error: column 'route_leg': QVA1 has 11 stopovers; a flight has at most 10\n- 2\n- 3\n- 4\n- 5\n- "
     "6\n- 7\n- 8\n"
     "- 9\n- 10\n- 11\n- 12\n- 13\n"},
    {"NameTooLong", "ABCDEFGHIJKLMNOPQRSTU,1,,,EAAA,EBBB,1,J,,,1\n",
     "2: error: the flight's name 'ABCDEFGHIJKLMNOPQRSTU1' is not made of at most 20 letters, digits and "
     "signs\n- 2\n"},
    {"FewerFields", "QVA,1,,,EAAA,EBBB,1,J\n",
     "2: error: has 8 fields and ends before it says whether it is active\n- 2\n"},
};

INSTANTIATE_TEST_SUITE_P(PhpVms, PhpVms7Rows, testing::ValuesIn(kPhpVms7), CaseName);

TEST(PhpVms7Files, HaveTheirColumnsInAnyOrder) {
  EXPECT_EQ(
      ShownPhpVms("arr_airport;DPT_ Airport;Enabled;flight_number;Airline\nEBBB;EAAA;1;101;QVA\n"),
      " note: read as UTF-8, with semicolons between the fields\n"
      "2: warning: column 'flight_type': unknown flight type ''; taken as J\nQVA101 EAAA EBBB 1234567 J\n");
}

TEST(PhpVms7Files, NeedFourColumns) {
  EXPECT_EQ(ShownPhpVms("arr_airport,active\nEBBB,1\n"),
            "1: error: there is no column 'airline'\n1: error: there is no column 'flight_number'\n"
            "1: error: there is no column 'dpt_airport'\n");
  EXPECT_EQ(ShownPhpVms("from,to\nEAAA,EBBB\n"),
            "1: error: is no list of flights of phpVMS: neither 'dpt_airport' nor 'depicao' is a column\n");
}

const std::string kPhpVms5Header =
    "code,flightnum,depicao,arricao,route,aircraft,flightlevel,distance,deptime,arrtime,flighttime,notes,"
    "price,flighttype,"
    "daysofweek,enabled,\" week1\"\n";

class PhpVms5Rows : public testing::TestWithParam<Case> {};

TEST_P(PhpVms5Rows, AreRead) {
  EXPECT_EQ(ShownPhpVms(kPhpVms5Header + GetParam().rows), GetParam().shown);
}

const Case kPhpVms5[] = {
    {"Row", "QVA,101,EAAA,EBBB,,CS-A,,,,,,\" \",\" 70\",\" C\",\" 0126\",\" 1\",\" 0126\"\n",
     "QVA101 EAAA EBBB 1267 C\n"},
    {"SevenIsSundayToo", "QVA,1,EAAA,EBBB,,,,,,,,,,P,67,1\n", "QVA1 EAAA EBBB 67 P\n"},
    {"MissingFieldsAreEmpty", "QVA,1,EAAA,EBBB\n", "QVA1 EAAA EBBB 1234567 P\n"},
    {"OnlyZeroIsOff", "QVA,1,EAAA,EBBB,,,,,,,,,,H,, 0 \nQVA,2,EAAA,EBBB,,,,,,,,,,H,,no\n",
     "2: note: is not active; left out\nQVA2 EAAA EBBB 1234567 H\n"},
    {"BadDays", "QVA,1,EAAA,EBBB,,,,,,,,,,P,18,1\nQVA,1,EAAA,EBBB,,,,,,,,,,P,Mon,1\n",
     "2: error: column 'daysofweek': '18' has a day other than 0 to 7\n"
     "3: error: column 'daysofweek': 'Mon' has a day other than 0 to 7\n- 2\n- 3\n"},
    {"UnknownType", "QVA,1,EAAA,EBBB,,,,,,,,,,J,,1\n",
     "2: warning: column 'flighttype': unknown flight type 'J'; taken as P\nQVA1 EAAA EBBB 1234567 P\n"},
    {"TooManyFields", "QVA,1,EAAA,EBBB,,,,,,,,,,P,,1,,,,,\n",
     "2: error: has 21 fields; there are at most 20\n- 2\n"},
    {"LooseQuotesInNotes", "QVA,1,EAAA,EBBB,,,,,,,,5\" gun,,P,,1\n", "QVA1 EAAA EBBB 1234567 P\n"},
    {"Required", ",x,XXXX,,,,,,,,,,,P,,1\n",
     "2: error: column 'code': is empty\n2: error: column 'flightnum': 'x' is not made of digits\n"
     "2: error: column 'depicao': unknown airport 'XXXX'\n2: error: column 'arricao': is empty\n- 2\n"},
};

INSTANTIATE_TEST_SUITE_P(PhpVms, PhpVms5Rows, testing::ValuesIn(kPhpVms5), CaseName);

TEST(PhpVms5Files, NeedNoHeader) {
  EXPECT_EQ(ShownPhpVms("QVA,101,EAAA,EBBB,,,,,,,,,,C,0,1\nQVA,102,EBBB,EAAA\n"),
            "QVA101 EAAA EBBB 7 C\nQVA102 EBBB EAAA 1234567 P\n");
}

TEST(PhpVms5Files, MayHaveALegAsThirdColumn) {
  EXPECT_EQ(ShownPhpVms("code,flightnum,leg,depicao,arricao\nQVA,101,1,EAAA,EBBB,,,,,,,,,,C,0,1\n"),
            "QVA101 EAAA EBBB 7 C\n");
}

/// Messages, then airline, airports, codeshare, stops and equipment, then what is left out.
std::string ShownRoutes(std::string_view text) {
  const TempFolder folder;
  WriteBytes(folder / "f", text);
  const AirportList airports = LetterAirports();
  Problems problems;
  const OpenFlightsRoutes routes = ReadOpenFlightsRoutes(folder / "f", airports, problems);
  std::ostringstream out;
  problems.Print(out, true);
  for (const OpenFlightsRoute& route : routes.routes)
    out << route.airline << " " << airports.table[route.departure].code << " "
        << airports.table[route.arrival].code << (route.codeshare ? " Y " : " ") << route.stops << " ["
        << route.equipment << "]\n";
  return Shorten(out.str() + ShownLeftOut(routes), folder);
}

class OpenFlightsRows : public testing::TestWithParam<Case> {};

TEST_P(OpenFlightsRows, AreRead) {
  EXPECT_EQ(ShownRoutes(GetParam().rows), GetParam().shown);
}

const Case kRoutes[] = {
    {"Route", "QV,\\N,AAA,1,BBB,2,,0,320 E90\r\n", "QV EAAA EBBB 0 [320 E90]\n"},
    {"BlanksAndCodeshare", " qv ,1, AAA ,1,EBBB,\\N, Y ,1, 320  E90 \n\n", "QV EAAA EBBB Y 1 [320 E90]\n"},
    {"TheCodeComesBeforeTheId", "QV,1,AAA,7,BBB,\\N,,0,\n", "QV EAAA EBBB 0 []\n"},
    {"TheIdHelpsAnUnknownCode", "QV,1,XYZ,26,\\N,2,\\N,0,\\N\n", "QV EZZZ EBBB 0 []\n"},
    {"FieldCount", "QV,1,AAA,1,BBB,2,,0\n", "1: error: has 8 fields instead of 9\n- 1\n"},
    {"NoAirline", "\\N,1,AAA,1,BBB,2,,0,\n", "1: error: column 'airline': is empty\n- 1\n"},
    {"UnknownAirport", "QV,1,AAA,1,XYZ,\\N,,0,\n",
     "1: error: column 'destination airport': unknown airport 'XYZ', id ''\n- 1\n"},
    {"EqualAirports", "QV,1,AAA,1,EAAA,1,,0,\n",
     "1: error: column 'destination airport': is the source airport\n- 1\n"},
    {"StopsNoNumber", "QV,1,AAA,1,BBB,2,,x,\nQV,1,AAA,1,BBB,2,,,\n",
     "1: error: column 'stops': 'x' is not a number\n2: error: column 'stops': '' is not a number\n- 1\n- "
     "2\n"},
    {"OtherCodeshare", "QV,1,AAA,1,BBB,2,N,0,\n",
     "1: warning: column 'codeshare': 'N' is neither Y nor nothing\nQV EAAA EBBB 0 []\n"},
    {"SameRouteTwice",
     "QV,1,AAA,1,BBB,2,,0,320\nQV,1,EAAA,1,BBB,2,Y,0,\nQV,1,BBB,2,AAA,1,,0,\nZZ,1,AAA,1,BBB,2,,0,\n",
     "2: warning: the same route is already on line 1; taken once\nQV EAAA EBBB 0 [320]\nQV EBBB EAAA 0 []\n"
     "ZZ EAAA EBBB 0 []\n"},
};

INSTANTIATE_TEST_SUITE_P(OpenFlights, OpenFlightsRows, testing::ValuesIn(kRoutes), CaseName);

class OtherImports : public testing::Test {
 protected:
  std::string Import(const std::vector<std::string>& options) {
    std::vector<std::string> words = {"import", "--airports", (folder / "a.dat").string(), "--out",
                                      (folder / "o").string()};
    words.insert(words.end(), options.begin(), options.end());
    std::ostringstream out, err;
    status = RunPack(words, {.out = out, .err = err, .executable = {}, .interrupted = [] { return false; }});
    return err.str();
  }

  TempFolder folder;
  int status = -1;
};

TEST_F(OtherImports, WriteFlightsAndServices) {
  WriteBytes(folder / "a.dat", "1,A,,,AAA,EAAA,1,1,1,0,E\n2,B,,,BBB,EBBB,2,2,2,0,E\n");
  WriteBytes(folder / "r.dat", "QV,\\N,AAA,1,BBB,2,,0,320 E90\nQV,\\N,BBB,2,AAA,1,,0,E90\n");
  WriteBytes(folder / "p.csv",
             "airline,flight_number,dpt_airport,arr_airport,days,flight_type,subfleets\n"
             "QVA,1,EAAA,EBBB,12,E,A320;B738\nQVA,1,EAAA,EBBB,67,J,\n");
  EXPECT_EQ(Import({"--from", "openflights", (folder / "r.dat").string(), "--codes", "iata"}), "");
  EXPECT_NE(ReadBytes(folder / "o" / "flights.csv").find("\"QV\",\"QV AAA-BBB\",\"QV AAA-BBB\",\"AAA\",,"),
            std::string::npos);
  EXPECT_EQ(Import({"--from", "openflights", (folder / "r.dat").string(), "--services-by", "aircraft-type"}),
            "");
  EXPECT_NE(ReadBytes(folder / "o" / "flights.csv").find("\"E90\",\"QV EBBB-EAAA\""), std::string::npos);
  EXPECT_EQ(Import({"--from", "phpvms", (folder / "p.csv").string()}), "");
  EXPECT_NE(ReadBytes(folder / "o" / "services.csv").find("\"E\",\"1\",\"VIP flights\""), std::string::npos);
  EXPECT_NE(ReadBytes(folder / "o" / "flights.csv").find("\"J\",\"QVA1\",\"QVA1/2\",\"EAAA\""),
            std::string::npos);
  EXPECT_EQ(Import({"--from", "phpvms", (folder / "p.csv").string(), "--on", "2027-07-14"}),
            "zerbal-pack: no flight remains; nothing was written\n");
}

TEST_F(OtherImports, UseTheIdsOfAListOfAirports) {
  WriteBytes(folder / "a.dat",
             "Code,Name,City,Longitude,Latitude,Elevation,Runways,Longest runway,IATA\n"
             "EAAA,A,,1,1,1,1,3000,AAA\nEBBB,B,,2,2,2,1,3000,BBB\n");
  WriteBytes(folder / "ids.dat", "7,B,,,\\N,EBBB,2,2,2,0,E\n8,C,,,CCC,ECCC,2,2,2,0,E\n");
  WriteBytes(folder / "r.dat", "QV,\\N,AAA,1,OLD,7,,0,\nQV,\\N,AAA,1,CCC,8,,0,\n");
  const std::string messages =
      Import({"--from", "openflights", (folder / "r.dat").string(), (folder / "ids.dat").string()});
  EXPECT_EQ(status, 1);
  EXPECT_NE(messages.find("r.dat:2: error: column 'destination airport': unknown airport 'CCC', id '8'\n"),
            std::string::npos);
  EXPECT_NE(ReadBytes(folder / "o" / "flights.csv").find("\"QV EAAA-EBBB\""), std::string::npos);
  EXPECT_NE(ReadBytes(folder / "o" / "rejected.csv")
                .find(",2,\"unknown airport 'CCC', id '8'\",\"QV,\\N,AAA,1,CCC,8,,0,\""),
            std::string::npos);
}

TEST_F(OtherImports, RefuseWhatOpenFlightsDoesNotKnow) {
  EXPECT_TRUE(Import({"--from", "openflights", "x", "--on", "2027-07-14"})
                  .starts_with("zerbal-pack: --on is not possible: OpenFlights has no days of operation\n"));
  EXPECT_EQ(status, 2);
  EXPECT_TRUE(Import({"--from", "openflights", "x", "--services-by", "service-type"})
                  .starts_with("zerbal-pack: --services-by service-type is not possible: "));
  EXPECT_EQ(status, 2);
}

}  // namespace
}  // namespace zerbal::pack
