#include "zerbal-pack/openflights_routes.h"

#include <algorithm>
#include <map>
#include <optional>
#include <tuple>
#include <utility>

#include <fmt/format.h>

#include "zerbal-pack/csv_file.h"
#include "zerbal-pack/csv_value.h"
#include "zerbal-pack/openflights_airports.h"

namespace zerbal::pack {

namespace {

constexpr std::size_t kRouteFields = 9;

/// Without blanks at both ends and with single blanks within.
std::string SingleBlanks(std::string_view text) {
  std::string result;
  for (const char c : Trimmed(text)) {
    if (c != ' ' || !result.ends_with(' '))
      result.push_back(c);
  }
  return result;
}

class RouteReader {
 public:
  RouteReader(CsvFile& file, const AirportList& airports, OpenFlightsRoutes& routes, Problems& problems)
      : file_(file), airports_(airports), routes_(routes), problems_(problems) {}

  void Read() {
    while (file_.Next(record_)) {
      fault_.clear();
      ReadRoute();
      if (!fault_.empty())
        routes_.leftOut.push_back({record_.line, fault_, std::string(record_.source)});
    }
  }

 private:
  void Report(Severity severity, const char* column, std::string reason) {
    if (severity == Severity::kError)
      fault_.append(fault_.empty() ? "" : "; ").append(reason);
    problems_.Add({file_.Name(), record_.line, column, std::move(reason), severity});
  }

  void ReadRoute() {
    if (record_.fault) {
      fault_ = record_.fault->reason;
      return problems_.Add({file_.Name(), record_.fault->line, std::to_string(record_.fault->field), fault_});
    }
    if (record_.fields.size() != kRouteFields)
      return Report(Severity::kError, "",
                    fmt::format("has {} fields instead of {}", record_.fields.size(), kRouteFields));
    OpenFlightsRoute route;
    route.line = record_.line;
    route.airline = Airline();
    route.departure = FindAirport(2, "source airport");
    route.arrival = FindAirport(4, "destination airport");
    if (fault_.empty() && route.departure == route.arrival)
      Report(Severity::kError, "destination airport", "is the source airport");
    const std::string_view codeshare = OpenFlightsText(record_, 6), stops = OpenFlightsText(record_, 7);
    route.codeshare = codeshare == "Y";
    if (!codeshare.empty() && !route.codeshare)
      Report(Severity::kWarning, "codeshare", Quoted(codeshare) + " is neither Y nor nothing");
    const std::optional<int> number = WholeNumber(stops);
    if (!number || *number < 0)
      Report(Severity::kError, "stops", Quoted(stops) + " is not a number");
    route.stops = number.value_or(0);
    route.equipment = SingleBlanks(OpenFlightsText(record_, 8));
    if (fault_.empty() && IsNew(route))
      routes_.routes.push_back(std::move(route));
  }

  std::string Airline() {
    std::string airline = UpperAscii(OpenFlightsText(record_, 0));
    if (airline.empty())
      Report(Severity::kError, "airline", "is empty");
    else if (std::ranges::any_of(airline, [](char c) { return c <= ' ' || c > '~'; }))
      Report(Severity::kError, "airline", Quoted(airline) + " is not made of letters and digits");
    return airline;
  }

  AirportIndex FindAirport(std::size_t column, const char* title) {
    const std::string_view code = OpenFlightsText(record_, column), id = OpenFlightsText(record_, column + 1);
    if (const std::optional<AirportIndex> found = airports_.table.Find(code))
      return *found;
    if (const auto found = airports_.ids.find(id); found != airports_.ids.end() && !id.empty())
      return found->second;
    Report(Severity::kError, title, fmt::format("unknown airport {}, id {}", Quoted(code), Quoted(id)));
    return 0;
  }

  bool IsNew(const OpenFlightsRoute& route) {
    const auto [known, isNew] =
        lines_.try_emplace({route.airline, route.departure, route.arrival}, route.line);
    if (!isNew)
      Report(Severity::kWarning, "",
             fmt::format("the same route is already on line {}; taken once", known->second));
    return isNew;
  }

  CsvFile& file_;
  const AirportList& airports_;
  OpenFlightsRoutes& routes_;
  Problems& problems_;
  CsvRecord record_;
  std::string fault_;                                                                 // of the record
  std::map<std::tuple<std::string, AirportIndex, AirportIndex>, std::size_t> lines_;  // of known routes
};

}  // namespace

OpenFlightsRoutes ReadOpenFlightsRoutes(const std::filesystem::path& path, const AirportList& airports,
                                        Problems& problems) {
  OpenFlightsRoutes routes;
  CsvFile file(path, kOpenFlightsForm, problems);
  RouteReader(file, airports, routes, problems).Read();
  return routes;
}

OpenFlightsRoutes ParseOpenFlightsRoutes(std::string bytes, std::string name, const AirportList& airports,
                                         Problems& problems) {
  OpenFlightsRoutes routes;
  CsvFile file(std::move(bytes), std::move(name), kOpenFlightsForm, problems);
  RouteReader(file, airports, routes, problems).Read();
  return routes;
}

}  // namespace zerbal::pack
