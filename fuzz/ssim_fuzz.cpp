// Fuzz target: SSIM schedule data sets of any bytes. Whatever is read is a list of flights whose legs follow
// each other, and every leg record is part of one flight, left out, or a repetition that is reported.
#include <cstddef>
#include <cstdint>
#include <set>
#include <string>
#include <string_view>

#include "require.h"
#include "zerbal-pack/airport_table.h"
#include "zerbal-pack/problems.h"
#include "zerbal-pack/ssim_reader.h"

namespace {

using namespace zerbal;
using fuzz::Require;

pack::AirportTable LetterAirports() {
  pack::AirportTable airports;
  for (char c = 'A'; c <= 'Z'; ++c) {
    pack::Airport airport;
    airport.iata = std::string(3, c);
    airport.code = "E" + airport.iata;
    airports.Add(airport);
  }
  return airports;
}

void CheckFlight(const pack::SsimSchedule& schedule, const pack::SsimFlight& flight,
                 std::set<std::size_t>& lines) {
  const auto legs = schedule.LegsOf(flight);
  Require(!legs.empty() && legs.size() <= 11, "a flight has no leg or too many");
  Require(legs.front().id.Number() <= 9999 && legs.front().id.Variation() <= 999, "an impossible number");
  for (std::size_t i = 0; i < legs.size(); ++i) {
    Require(legs[i].id == legs.front().id, "legs of different flights");
    Require(legs[i].sequence == i + 1, "a leg is missing");
    Require(i == 0 || legs[i].departure == legs[i - 1].arrival, "legs do not meet");
    Require(legs[i].days != 0, "a leg without days");
    Require(legs[i].line >= flight.firstLine, "the first line is wrong");
    Require(lines.insert(legs[i].line).second, "a record is used twice");
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const pack::AirportTable kAirports = LetterAirports();
  pack::Problems problems;
  const pack::SsimSchedule schedule = pack::ParseSsim(std::string(reinterpret_cast<const char*>(data), size),
                                                      "fuzz.ssim", kAirports, problems);
  std::set<std::size_t> lines;
  std::size_t lastFirst = 0;
  for (const pack::SsimFlight& flight : schedule.flights) {
    CheckFlight(schedule, flight, lines);
    Require(flight.firstLine > lastFirst, "flights are not in the order of the file");
    lastFirst = flight.firstLine;
  }
  std::size_t lastLine = 0;
  for (const pack::LeftOut& record : schedule.leftOut) {
    Require(lines.insert(record.line).second, "a record is used and left out");
    Require(record.line > lastLine, "records left out are not in the order of the file");
    Require(!record.reason.empty(), "a record is left out without a reason");
    lastLine = record.line;
  }
  Require(schedule.leftOut.empty() || problems.HasErrors(), "records are left out silently");
  return 0;
}
