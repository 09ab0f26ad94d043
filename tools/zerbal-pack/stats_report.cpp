#include "zerbal-pack/stats_report.h"

#include <cstddef>
#include <ostream>
#include <vector>

#include <fmt/format.h>

#include "base/json_text.h"
#include "data/great_circle.h"
#include "zerbal-pack/csv_text.h"

namespace zerbal::pack {

namespace {

std::string Kilometres(double metres, int decimals) {
  return fmt::format("{:.{}f}", metres / data::kMetresPerKilometre, decimals);
}

constexpr int kTextDecimals = 1;
constexpr int kDataDecimals = 3;

void PrintLine(std::ostream& out, std::string_view title, std::string_view value) {
  out << fmt::format("  {:<17} {}\n", title, value);
}

std::string LegText(const std::optional<MeasuredLeg>& leg) {
  return leg ? fmt::format("{} km, {}-{}, flight {}", Kilometres(leg->metres, kTextDecimals), leg->from,
                           leg->to, leg->flight)
             : "none";
}

std::string PairText(const BusyPair& pair) {
  return pair.codes.first + "-" + pair.codes.second;
}

/// The texts of all entries with commas between them.
template <typename Entries, typename ToText>
std::string Joined(const Entries& entries, const ToText& toText) {
  std::string text;
  for (const auto& entry : entries)
    text.append(text.empty() ? "" : ", ").append(toText(entry));
  return text.empty() ? "none" : text;
}

void PrintOne(const FlightFigures& figures, std::ostream& out) {
  PrintLine(out, "flights", std::to_string(figures.flights));
  PrintLine(out, "legs", std::to_string(figures.legs));
  PrintLine(out, "airports", std::to_string(figures.airports));
  PrintLine(out, "kilometres", Kilometres(figures.metres, kTextDecimals));
  if (figures.unmeasured > 0)
    PrintLine(out, "legs not measured", std::to_string(figures.unmeasured));
  PrintLine(out, "shortest leg", LegText(figures.shortest));
  PrintLine(out, "longest leg", LegText(figures.longest));
  PrintLine(out, "busiest airports", Joined(figures.busiestAirports, [](const BusyAirport& airport) {
              return fmt::format("{} {}", airport.code, airport.legs);
            }));
  PrintLine(out, "busiest pairs", Joined(figures.busiestPairs, [](const BusyPair& pair) {
              return fmt::format("{} {}", PairText(pair), pair.legs);
            }));
}

void AddLeg(const std::optional<MeasuredLeg>& leg, CsvText& csv) {
  if (!leg) {
    for (int column = 0; column < 4; ++column)
      csv.AddNull();
    return;
  }
  csv.AddText(leg->from);
  csv.AddText(leg->to);
  csv.AddText(leg->flight);
  csv.AddNumber(Kilometres(leg->metres, kDataDecimals));
}

/// Two columns for each of kBusiest entries.
template <typename Entries, typename ToText>
void AddBusiest(const Entries& entries, const ToText& toText, CsvText& csv) {
  for (std::size_t i = 0; i < kBusiest; ++i) {
    if (i < entries.size()) {
      csv.AddText(toText(entries[i]));
      csv.AddNumber(std::to_string(entries[i].legs));
    } else {
      csv.AddNull();
      csv.AddNull();
    }
  }
}

void AddRecord(const FlightFigures& figures, CsvText& csv) {
  csv.AddText(figures.service);
  csv.AddText(figures.name);
  for (const std::size_t count : {figures.flights, figures.legs, figures.airports})
    csv.AddNumber(std::to_string(count));
  csv.AddNumber(Kilometres(figures.metres, kDataDecimals));
  csv.AddNumber(std::to_string(figures.unmeasured));
  AddLeg(figures.shortest, csv);
  AddLeg(figures.longest, csv);
  AddBusiest(
      figures.busiestAirports, [](const BusyAirport& airport) { return airport.code; }, csv);
  AddBusiest(figures.busiestPairs, PairText, csv);
  csv.EndRecord();
}

std::string JsonLeg(const std::optional<MeasuredLeg>& leg) {
  return leg ? fmt::format(R"({{"from": {}, "to": {}, "flight": {}, "kilometres": {}}})",
                           base::JsonText(leg->from), base::JsonText(leg->to), base::JsonText(leg->flight),
                           Kilometres(leg->metres, kDataDecimals))
             : "null";
}

/// The elements of a list.
template <typename Entries, typename ToText>
std::string JsonList(const Entries& entries, const ToText& toText) {
  return entries.empty() ? "[]" : fmt::format("[{}]", Joined(entries, toText));
}

/// The members of an object, without its braces.
std::string JsonMembers(const FlightFigures& figures, std::string_view indent) {
  const std::string airports = JsonList(figures.busiestAirports, [](const BusyAirport& airport) {
    return fmt::format(R"({{"airport": {}, "legs": {}}})", base::JsonText(airport.code), airport.legs);
  });
  const std::string pairs = JsonList(figures.busiestPairs, [](const BusyPair& pair) {
    return fmt::format(R"({{"airports": [{}, {}], "legs": {}}})", base::JsonText(pair.codes.first),
                       base::JsonText(pair.codes.second), pair.legs);
  });
  std::string text;
  const auto add = [&](std::string_view name, std::string_view value) {
    text.append(text.empty() ? "" : ",\n").append(fmt::format("{}\"{}\": {}", indent, name, value));
  };
  add("flights", std::to_string(figures.flights));
  add("legs", std::to_string(figures.legs));
  add("airports", std::to_string(figures.airports));
  add("kilometres", Kilometres(figures.metres, kDataDecimals));
  add("legsNotMeasured", std::to_string(figures.unmeasured));
  add("shortestLeg", JsonLeg(figures.shortest));
  add("longestLeg", JsonLeg(figures.longest));
  add("busiestAirports", airports);
  add("busiestPairs", pairs);
  return text;
}

}  // namespace

void PrintFigures(const ScheduleFigures& figures, std::ostream& out) {
  out << "All flights\n";
  PrintOne(figures.all, out);
  for (const FlightFigures& service : figures.services) {
    out << "\nService " << service.service << (service.name.empty() ? "" : ", ") << service.name << "\n";
    PrintOne(service, out);
  }
}

void PrintFiguresAsCsv(const ScheduleFigures& figures, std::ostream& out) {
  std::vector<std::string> titles = {
      "Service",     "Name",         "Flights",       "Legs",           "Airports",
      "Kilometres",  "Not measured", "Shortest from", "Shortest to",    "Shortest flight",
      "Shortest km", "Longest from", "Longest to",    "Longest flight", "Longest km"};
  for (const char* what : {"Airport", "Pair"}) {
    for (std::size_t i = 1; i <= kBusiest; ++i) {
      titles.push_back(fmt::format("{} {}", what, i));
      titles.push_back(fmt::format("{} {} legs", what, i));
    }
  }
  CsvText csv(titles);
  AddRecord(figures.all, csv);
  for (const FlightFigures& service : figures.services)
    AddRecord(service, csv);
  out << csv.Text();
}

void PrintFiguresAsJson(const ScheduleFigures& figures, std::ostream& out) {
  out << "{\n  \"all\": {\n" << JsonMembers(figures.all, "    ") << "\n  },\n  \"services\": [";
  std::string_view separator = "\n";
  for (const FlightFigures& service : figures.services) {
    out << separator << "    {\n      \"service\": " << base::JsonText(service.service)
        << ",\n      \"name\": " << base::JsonText(service.name) << ",\n"
        << JsonMembers(service, "      ") << "\n    }";
    separator = ",\n";
  }
  out << "\n  ]\n}\n";
}

}  // namespace zerbal::pack
