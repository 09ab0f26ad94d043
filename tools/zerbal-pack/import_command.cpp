#include "zerbal-pack/import_command.h"

#include <ostream>
#include <utility>

#include <fmt/format.h>

#include "zerbal-pack/import_files.h"
#include "zerbal-pack/import_services.h"
#include "zerbal-pack/layout.h"
#include "zerbal-pack/openflights_airports.h"
#include "zerbal-pack/other_imports.h"
#include "zerbal-pack/ssim_import.h"

namespace zerbal::pack {

namespace {

std::string Counted(std::size_t count, std::string_view what) {
  return fmt::format("{} {}{}", count, what, count == 1 ? "" : "s");
}

class Importer {
 public:
  Importer(const ImportOptions& options, std::ostream& out, std::ostream& err)
      : options_(options),
        out_(out),
        err_(err),
        schedule_(options.format == ScheduleFormat::kSsim && !options.keepVariations) {}

  bool Run() {
    airports_ = ReadAirportList(options_.airports, problems_);
    ReadIds();
    for (const std::filesystem::path& file : options_.files)
      ReadFile(file);
    const ImportResult result{schedule_, airports_.table, leftOut_};
    if (!schedule_.Flights().empty()) {
      NoteMissingCodes(result);
      CheckServices();
    }
    problems_.Print(err_, true);
    if (!CanWrite())
      return false;
    WriteImport(result, options_);
    Report(result);
    return !problems_.HasErrors();
  }

 private:
  /// Lists of airports among the routes of OpenFlights tell what the ids of airports mean.
  void ReadIds() {
    if (options_.format != ScheduleFormat::kOpenFlights)
      return;
    for (const std::filesystem::path& file : options_.files) {
      if (IsOpenFlightsAirports(file))
        ReadOpenFlightsIds(file, airports_, problems_);
    }
  }

  void ReadFile(const std::filesystem::path& file) {
    const AirportTable& airports = airports_.table;
    if (options_.format == ScheduleFormat::kSsim) {
      SsimSchedule ssim = ReadSsim(file, airports, problems_);
      ImportSsim(ssim, airports, options_, schedule_);
      leftOut_.push_back({file, std::move(ssim.leftOut)});
    } else if (options_.format == ScheduleFormat::kPhpVms) {
      PhpVmsSchedule flights = ReadPhpVms(file, airports, problems_);
      ImportPhpVms(flights, airports, options_, schedule_);
      leftOut_.push_back({file, std::move(flights.leftOut)});
    } else if (!IsOpenFlightsAirports(file)) {
      OpenFlightsRoutes routes = ReadOpenFlightsRoutes(file, airports_, problems_);
      ImportOpenFlights(routes, airports, options_, schedule_);
      leftOut_.push_back({file, std::move(routes.leftOut)});
    }
  }

  void NoteMissingCodes(const ImportResult& result) {
    if (options_.codes != AirportCodes::kIata)
      return;
    for (const AirportIndex index : UsedAirports(result, options_.codes)) {
      const Airport& airport = airports_.table[index];
      if (airport.iata.empty())
        problems_.Add(
            {options_.airports.airports.string(), 0, "",
             fmt::format("airport {} has no IATA code; the result has its other code", airport.code),
             Severity::kNote});
    }
  }

  void CheckServices() {
    if (const auto fault = CountFault(ServiceLayout(), schedule_.Services().size())) {
      problems_.Add({options_.out.string(), 0, "", *fault});
      tooManyServices_ = true;
    }
  }

  std::string Faults() const {
    return Counted(problems_.Count(Severity::kError), "error") + ", " +
           Counted(problems_.Count(Severity::kWarning), "warning");
  }

  bool CanWrite() {
    const bool faulty = problems_.Count(Severity::kError) + problems_.Count(Severity::kWarning) > 0;
    if (!tooManyServices_ && !schedule_.Flights().empty() && !(options_.strict && faulty))
      return true;
    err_ << "zerbal-pack: " << (schedule_.Flights().empty() ? "no flight remains; " : "");
    err_ << (faulty ? Faults() + "; " : "") << "nothing was written\n";
    return false;
  }

  void Report(const ImportResult& result) {
    out_ << Counted(schedule_.Services().size(), "flight service") << ", "
         << Counted(UsedAirports(result, options_.codes).size(), "destination") << ", "
         << Counted(schedule_.Flights().size(), "flight") << "\n";
    std::size_t records = 0;
    for (const LeftOutFile& file : leftOut_)
      records += file.records.size();
    if (records > 0)
      err_ << "zerbal-pack: " << Faults() << "; " << Counted(records, "record") << " left out, listed in "
           << (options_.out / kRejectedFile).string() << "\n";
  }

  const ImportOptions& options_;
  std::ostream& out_;
  std::ostream& err_;
  Problems problems_;
  AirportList airports_;
  ImportedSchedule schedule_;
  std::vector<LeftOutFile> leftOut_;
  bool tooManyServices_ = false;
};

}  // namespace

bool ImportSchedule(const ImportOptions& options, std::ostream& out, std::ostream& err) {
  return Importer(options, out, err).Run();
}

}  // namespace zerbal::pack
