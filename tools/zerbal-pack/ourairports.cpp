#include "zerbal-pack/ourairports.h"

#include <algorithm>
#include <array>
#include <map>
#include <string>
#include <utility>

#include "base/case_folding.h"
#include "zerbal-pack/csv_file.h"
#include "zerbal-pack/csv_value.h"

namespace zerbal::pack {

namespace {

constexpr int kLikelyIlsLength = 7000;  // feet
constexpr std::string_view kLarge = "large_airport";
constexpr std::string_view kMedium = "medium_airport";
constexpr std::string_view kSmall = "small_airport";

/// The runways of one airport.
struct RunwaySummary {
  int count = 0;
  int longest = 0;        // feet
  bool suitsIls = false;  // long, lighted and not known to be unpaved
};

using RunwaySummaries = std::map<std::string, RunwaySummary, std::less<>>;  // by id of the airport

bool IsUnpaved(std::string_view surface) {
  constexpr std::array kUnpaved = {"grass", "grs",  "gravel", "grvl", "gre", "dirt",
                                   "water", "sand", "snow",   "ice",  "turf"};
  const std::string lower = base::LowerAscii(surface);
  return std::ranges::any_of(kUnpaved, [&](std::string_view word) { return lower.starts_with(word); });
}

/// H1, H2 and so on are landing places of helicopters.
bool IsHelipad(std::string_view end) {
  return end.size() >= 2 && end[0] == 'H' && end[1] >= '0' && end[1] <= '9';
}

bool IsFourLetters(std::string_view code) {
  return code.size() == 4 && std::ranges::all_of(code, [](char c) { return c >= 'A' && c <= 'Z'; });
}

/// Reads the records after the header and reports those of wrong form.
template <typename Row>
void ForEachRow(CsvFile& file, Problems& problems, const Row& row) {
  for (CsvRecord record; file.Next(record);) {
    if (record.fault)
      problems.Add(
          {file.Name(), record.fault->line, std::to_string(record.fault->field), record.fault->reason});
    else
      row(record);
  }
}

RunwaySummaries ReadRunways(const std::filesystem::path& path, Problems& problems) {
  RunwaySummaries summaries;
  CsvFile file(path, {}, problems);
  CsvRecord first;
  if (!file.Next(first))
    return summaries;
  const CsvHeader header(first);
  const auto airport = header.Find({"airport_ref"}), length = header.Find({"length_ft"}),
             closed = header.Find({"closed"}), lighted = header.Find({"lighted"}),
             surface = header.Find({"surface"}), end = header.Find({"le_ident"});
  if (!airport || !length) {
    problems.Add({file.Name(), first.line, "", "there is no column 'airport_ref' or 'length_ft'"});
    return summaries;
  }
  ForEachRow(file, problems, [&](const CsvRecord& record) {
    if (FieldText(record, closed) == "1" || IsHelipad(FieldText(record, end)))
      return;
    RunwaySummary& summary = summaries[std::string(FieldText(record, airport))];
    const int feet = std::max(WholeNumber(FieldText(record, length)).value_or(0), 0);
    ++summary.count;
    summary.longest = std::max(summary.longest, feet);
    summary.suitsIls = summary.suitsIls || (feet >= kLikelyIlsLength && FieldText(record, lighted) == "1" &&
                                            !IsUnpaved(FieldText(record, surface)));
  });
  return summaries;
}

class AirportReader {
 public:
  AirportReader(const CsvHeader& header, const CsvFile& file, const RunwaySummaries& runways,
                AirportTable& table, Problems& problems)
      : id_(header.Find({"id"})),
        ident_(header.Find({"ident"})),
        type_(header.Find({"type"})),
        name_(header.Find({"name"})),
        city_(header.Find({"municipality"})),
        longitude_(header.Find({"longitude_deg"})),
        latitude_(header.Find({"latitude_deg"})),
        elevation_(header.Find({"elevation_ft"})),
        icao_(header.Find({"icao_code"})),
        iata_(header.Find({"iata_code"})),
        gps_(header.Find({"gps_code"})),
        file_(file),
        runways_(runways),
        table_(table),
        problems_(problems) {}

  /// Airports with an ICAO code come first: no other airport's code can then take the place of it.
  void Read(const CsvRecord& record, bool withIcao) {
    const std::string_view type = FieldText(record, type_);
    if (type == "closed" || type == "closed_airport" || withIcao == FieldText(record, icao_).empty())
      return;
    Airport airport;
    airport.code = CodeOf(record);
    airport.iata = FieldText(record, iata_);
    airport.name = FieldText(record, name_);
    airport.city = FieldText(record, city_);
    airport.airfield = type == kLarge || type == kMedium || type == kSmall;
    if (!ReadPosition(record, airport))
      return;
    AddRunways(record, type, airport);
    Add(record, airport);
  }

 private:
  void Report(const CsvRecord& record, const char* column, std::string reason,
              Severity severity = Severity::kError) {
    problems_.Add({file_.Name(), record.line, column, std::move(reason), severity});
  }

  void Add(const CsvRecord& record, Airport& airport) {
    const std::string ident(FieldText(record, ident_));
    if (table_.HasCode(airport.code) && !ident.empty())
      airport.code = ident;
    const auto index = static_cast<AirportIndex>(table_.Size());
    if (!table_.Add(airport))
      return Report(record, "ident", Quoted(airport.code) + " is another airport's code already; left out",
                    Severity::kWarning);
    if (table_[index].iata != airport.iata)
      Report(record, "iata_code", Quoted(airport.iata) + " is another airport's code already",
             Severity::kWarning);
    if (!ident.empty())
      table_.AddCode(ident, index);
  }

  std::string CodeOf(const CsvRecord& record) const {
    for (const std::string_view code : {FieldText(record, icao_), FieldText(record, gps_)}) {
      if (IsFourLetters(code))
        return std::string(code);
    }
    return std::string(FieldText(record, ident_));
  }

  bool ReadPosition(const CsvRecord& record, Airport& airport) {
    if (airport.code.empty()) {
      Report(record, "ident", "is empty");
      return false;
    }
    const auto read = [&](std::optional<std::size_t> column, const char* name, double most, double& degrees) {
      const std::optional<double> number = Degrees(FieldText(record, column), most, file_.DecimalComma());
      if (!number)
        Report(record, name, Quoted(FieldText(record, column)) + " is not a position in degrees");
      degrees = number.value_or(0);
      return number.has_value();
    };
    if (!read(longitude_, "longitude_deg", 180, airport.longitude) ||
        !read(latitude_, "latitude_deg", 90, airport.latitude))
      return false;
    const std::string_view elevation = FieldText(record, elevation_);
    airport.elevation = WholeNumber(elevation).value_or(0);
    if (!elevation.empty() && !WholeNumber(elevation))
      Report(record, "elevation_ft", Quoted(elevation) + " is not a whole number; taken as 0",
             Severity::kWarning);
    return true;
  }

  void AddRunways(const CsvRecord& record, std::string_view type, Airport& airport) const {
    const auto found = runways_.find(FieldText(record, id_));
    if (found != runways_.end()) {
      airport.runways = found->second.count;
      airport.longestRunway = found->second.longest;
    }
    airport.likelyIls =
        type == kLarge || (type == kMedium && found != runways_.end() && found->second.suitsIls);
  }

  std::optional<std::size_t> id_, ident_, type_, name_, city_, longitude_, latitude_, elevation_, icao_,
      iata_, gps_;
  const CsvFile& file_;
  const RunwaySummaries& runways_;
  AirportTable& table_;
  Problems& problems_;
};

}  // namespace

bool IsOurAirportsHeader(const CsvRecord& record) {
  const CsvHeader header(record);
  return header.Find({"ident"}) && header.Find({"latitude_deg"}) && header.Find({"longitude_deg"});
}

void ReadOurAirports(const std::filesystem::path& airports, const std::filesystem::path& runways,
                     AirportTable& table, Problems& problems) {
  RunwaySummaries summaries;
  if (!runways.empty())
    summaries = ReadRunways(runways, problems);
  CsvFile file(airports, {}, problems);
  CsvRecord first;
  if (!file.Next(first))
    return;
  AirportReader reader(CsvHeader(first), file, summaries, table, problems);
  ForEachRow(file, problems, [&](const CsvRecord& record) { reader.Read(record, true); });
  file.Rewind();
  file.Next(first);
  Problems reportedBefore;
  ForEachRow(file, reportedBefore, [&](const CsvRecord& record) { reader.Read(record, false); });
}

}  // namespace zerbal::pack
