#include "zerbal-pack/import_files.h"

#include <algorithm>
#include <optional>
#include <string_view>
#include <utility>

#include <fmt/format.h>

#include "base/case_folding.h"
#include "base/code_page_1252.h"
#include "base/error.h"
#include "base/file_replacement.h"
#include "base/utf8.h"
#include "data/flight.h"
#include "zerbal-pack/airport_csv.h"
#include "zerbal-pack/csv.h"
#include "zerbal-pack/csv_table.h"
#include "zerbal-pack/csv_text.h"
#include "zerbal-pack/csv_value.h"
#include "zerbal-pack/import_services.h"
#include "zerbal-pack/line_reader.h"
#include "zerbal-pack/service_palette.h"
#include "zerbal-pack/write_tables.h"

namespace zerbal::pack {

namespace fs = std::filesystem;

namespace {

constexpr std::size_t kWriteAt = 1U << 18U;  // bytes

/// A new CSV file, which appears when it is committed.
class CsvOutput : private CsvText {
 public:
  /// `keep`: Text() is needed.
  CsvOutput(const fs::path& file, bool keep, std::initializer_list<std::string_view> titles)
      : CsvText(titles), output_(file), keep_(keep) {}

  using CsvText::AddNull;
  using CsvText::AddNumber;
  using CsvText::AddText;
  using CsvText::Text;
  void EndRecord() {
    CsvText::EndRecord();
    if (Text().size() >= kWriteAt && !keep_)
      Flush();
  }
  /// Writes what is left of the text.
  void Flush() {
    output_.Write(Text());
    Clear();
  }
  /// After Flush.
  void Commit() { output_.Commit(); }

 private:
  base::FileReplacement output_;
  bool keep_;
};

/// Bytes of any encoding as UTF-8 without NUL.
std::string ToUtf8(std::string_view bytes) {
  std::string text = base::IsUtf8(bytes) ? std::string(bytes) : base::FromCodePage1252(bytes);
  std::ranges::replace(text, '\0', ' ');
  return text;
}

class ImportWriter {
 public:
  ImportWriter(const ImportResult& result, const ImportOptions& options)
      : result_(result),
        options_(options),
        services_(options.out / "services.csv", true, {"Service", "Line", "Name", "Red", "Green", "Blue"}),
        flights_(options.out / "flights.csv", false,
                 {"Service", "Flight", "Key", "From", "Stop 1", "Stop 2", "Stop 3", "Stop 4", "Stop 5",
                  "Stop 6", "Stop 7", "Stop 8", "Stop 9", "Stop 10", "To"}) {}

  void Write() {
    AddServices();
    AddDestinations();
    base::FileReplacement destinations(options_.out / "destinations.csv");
    destinations.Write(destinations_);
    std::optional<CsvOutput> rejected;
    AddRejected(rejected);
    if (rejected)
      rejected->Flush();
    if (options_.schedule.empty())
      AddFlights([](const std::vector<jet::Value>&) {});
    else
      WriteDatabase();
    services_.Commit();
    destinations.Commit();
    flights_.Commit();
    if (rejected)
      rejected->Commit();
    else
      fs::remove(options_.out / kRejectedFile);
  }

 private:
  void AddServices() {
    const std::vector<ImportedService>& services = result_.schedule.Services();
    for (std::size_t i = 0; i < services.size(); ++i) {
      services_.AddText(services[i].key);
      services_.AddText(std::to_string(i + 1));
      services_.AddText(ToDatabaseName(services[i].name));
      const ServiceColour& colour = ColourOfService(i);
      for (const std::uint8_t part : {colour.red, colour.green, colour.blue})
        services_.AddNumber(std::to_string(part));
      services_.EndRecord();
    }
  }

  void AddDestinations() {
    const std::vector<AirportIndex> used = UsedAirports(result_, options_.codes);
    for (std::size_t i = 0; i < used.size(); ++i) {
      const Airport& airport = result_.airports[used[i]];
      const std::string& code = CodeOf(airport, options_.codes);
      if (i > 0 && base::EqualsIgnoringAsciiCase(code, CodeOf(result_.airports[used[i - 1]], options_.codes)))
        throw base::Error(
            fmt::format("two airports of the schedule have the code '{}'; choose other --codes", code));
      AppendAirportCsv(airport, code, airport.ils.value_or(false), destinations_);
    }
  }

  void AddRejected(std::optional<CsvOutput>& rejected) {
    for (const LeftOutFile& file : result_.leftOut) {
      if (file.records.empty())
        continue;
      if (!rejected)
        rejected.emplace(options_.out / kRejectedFile, false,
                         std::initializer_list<std::string_view>{"File", "Line", "Reason", "Record"});
      LineReader lines(file.file);
      std::string_view line;
      for (const LeftOut& record : file.records) {
        while (record.record.empty() && lines.Number() < record.line && lines.Next(line)) {
        }
        rejected->AddText(file.file.string());
        rejected->AddNumber(std::to_string(record.line));
        rejected->AddText(record.reason);
        rejected->AddText(ToUtf8(record.record.empty() ? line : record.record));
        rejected->EndRecord();
      }
    }
  }

  /// Adds each flight to the CSV file and gives its row to `use`.
  template <typename Use>
  void AddFlights(const Use& use) {
    FlightKeys keys;
    keys.Reserve(result_.schedule.Flights().size());
    std::vector<jet::Value> row(FlightLayout().columns.size());
    for (const ImportedFlight& flight : result_.schedule.Flights()) {
      FillRow(flight, keys.KeyOf(flight), row);
      for (const jet::Value& value : row) {
        if (const auto* text = std::get_if<std::string>(&value))
          flights_.AddText(*text);
        else
          flights_.AddNull();
      }
      flights_.EndRecord();
      use(row);
    }
    // Before the database appears, so that no error can follow but that of a file's last step.
    services_.Flush();
    flights_.Flush();
  }

  void FillRow(const ImportedFlight& flight, std::string key, std::vector<jet::Value>& row) const {
    const std::span<const AirportIndex> route = result_.schedule.RouteOf(flight);
    row[0] = result_.schedule.Services()[flight.service].key;
    row[1] = flight.name;
    row[2] = std::move(key);
    row[3] = CodeOf(result_.airports[route.front()], options_.codes);
    for (std::size_t stop = 1; stop <= data::kMaxStopovers; ++stop) {
      if (stop + 1 < route.size())
        row[3 + stop] = CodeOf(result_.airports[route[stop]], options_.codes);
      else
        row[3 + stop] = jet::Null{};
    }
    row[4 + data::kMaxStopovers] = CodeOf(result_.airports[route.back()], options_.codes);
  }

  /// The same database as from the CSV files.
  void WriteDatabase() {
    Problems problems;
    const CsvTable services = ParseCsvTable(services_.Text(), "services.csv", ServiceLayout(), problems);
    const CsvTable destinations =
        ParseCsvTable(destinations_, "destinations.csv", DestinationLayout(), problems);
    if (problems.HasErrors())
      throw base::Error(ToText(problems.List().front()));
    WriteSchedule(options_.schedule, services, destinations, [&](const RowSink& sink) { AddFlights(sink); });
  }

  const ImportResult& result_;
  const ImportOptions& options_;
  CsvOutput services_;
  std::string destinations_ = AirportCsvHeader();
  CsvOutput flights_;
};

}  // namespace

std::vector<AirportIndex> UsedAirports(const ImportResult& result, AirportCodes codes) {
  std::vector<bool> isUsed(result.airports.Size());
  for (const ImportedFlight& flight : result.schedule.Flights()) {
    for (const AirportIndex station : result.schedule.RouteOf(flight))
      isUsed[station] = true;
  }
  std::vector<AirportIndex> used;
  for (std::size_t i = 0; i < isUsed.size(); ++i) {
    if (isUsed[i])
      used.push_back(static_cast<AirportIndex>(i));
  }
  std::ranges::stable_sort(
      used, {}, [&](AirportIndex i) { return base::LowerAscii(CodeOf(result.airports[i], codes)); });
  return used;
}

void WriteImport(const ImportResult& result, const ImportOptions& options) {
  fs::create_directories(options.out);
  ImportWriter(result, options).Write();
}

}  // namespace zerbal::pack
