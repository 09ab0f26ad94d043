#include "zerbal-pack/diff_report.h"

#include <cstddef>
#include <initializer_list>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include <fmt/format.h>

#include "zerbal-pack/csv_text.h"

namespace zerbal::pack {

namespace {

using data::Flight;
using data::FlightPair;

std::string NameOf(const Flight& flight) {
  return flight.key == flight.number ? flight.number : fmt::format("{} (key {})", flight.number, flight.key);
}

std::string ColourText(const PlainService* service) {
  return service == nullptr ? "none"
                            : fmt::format("{} {} {}", service->rgb[0], service->rgb[1], service->rgb[2]);
}

/// "HOME (27 60 39)"
std::string LookText(const PlainSchedule& schedule, const Flight& flight) {
  return fmt::format("{} ({})", flight.service, ColourText(schedule.FindService(flight.service)));
}

std::string AirportText(const PlainAirport& airport) {
  std::string text = airport.code;
  for (const std::string& part : {airport.city, airport.name}) {
    if (!part.empty())
      text.append("  ").append(part);
  }
  return text;
}

/// Prints nothing when there are no entries.
template <typename Entries, typename ToText>
void PrintPart(std::ostream& out, std::string_view title, const Entries& entries, const ToText& toText) {
  if (entries.empty())
    return;
  out << title << ": " << entries.size() << "\n";
  for (const auto& entry : entries)
    out << "  " << toText(entry) << "\n";
}

void AddRoute(const Flight& flight, CsvText& csv) {
  csv.AddText(flight.Origin());
  for (std::size_t stop = 1; stop <= data::kMaxStopovers; ++stop) {
    if (stop + 1 < flight.route.size())
      csv.AddText(flight.route[stop]);
    else
      csv.AddNull();
  }
  csv.AddText(flight.Destination());
}

/// The columns of flights.csv, so that the rows can be put into one.
CsvText FlightRows(const std::vector<const Flight*>& flights) {
  CsvText csv({"Service", "Flight", "Key", "From", "Stop 1", "Stop 2", "Stop 3", "Stop 4", "Stop 5", "Stop 6",
               "Stop 7", "Stop 8", "Stop 9", "Stop 10", "To"});
  for (const Flight* flight : flights) {
    csv.AddText(flight->service);
    csv.AddText(flight->number);
    csv.AddText(flight->key);
    AddRoute(*flight, csv);
    csv.EndRecord();
  }
  return csv;
}

void AddTexts(std::initializer_list<std::string_view> texts, CsvText& csv) {
  for (const std::string_view text : texts)
    csv.AddText(text);
  csv.EndRecord();
}

CsvText ReroutedRows(const std::vector<FlightPair>& pairs) {
  CsvText csv({"Old flight", "Old key", "Old route", "Flight", "Key", "Route"});
  for (const FlightPair& pair : pairs)
    AddTexts({pair.before->number, pair.before->key, RouteText(*pair.before), pair.after->number,
              pair.after->key, RouteText(*pair.after)},
             csv);
  return csv;
}

CsvText RenumberedRows(const std::vector<FlightPair>& pairs) {
  CsvText csv({"Old flight", "Old key", "Flight", "Key", "Route"});
  for (const FlightPair& pair : pairs)
    AddTexts(
        {pair.before->number, pair.before->key, pair.after->number, pair.after->key, RouteText(*pair.after)},
        csv);
  return csv;
}

CsvText RecolouredRows(const ComparedSchedules& compared) {
  CsvText csv({"Flight", "Key", "Route", "Old service", "Old colour", "Service", "Colour"});
  for (const FlightPair& pair : compared.diff.recoloured)
    AddTexts({pair.after->number, pair.after->key, RouteText(*pair.after), pair.before->service,
              ColourText(compared.before.FindService(pair.before->service)), pair.after->service,
              ColourText(compared.after.FindService(pair.after->service))},
             csv);
  return csv;
}

CsvText AirportRows(const std::vector<const PlainAirport*>& airports) {
  CsvText csv({"Code", "Name", "City"});
  for (const PlainAirport* airport : airports)
    AddTexts({airport->code, airport->name, airport->city}, csv);
  return csv;
}

}  // namespace

void PrintDiff(const ComparedSchedules& compared, std::ostream& out) {
  const auto& [before, after, diff] = compared;
  if (diff.IsEmpty())
    out << "The schedules are equal.\n";
  const auto flightIn = [](const PlainSchedule& schedule) {
    return [&schedule](const Flight* flight) {
      return fmt::format("{}  {}  {}", NameOf(*flight), RouteText(*flight), LookText(schedule, *flight));
    };
  };
  PrintPart(out, "New flights", diff.added, flightIn(after));
  PrintPart(out, "Dropped flights", diff.dropped, flightIn(before));
  PrintPart(out, "Rerouted flights", diff.rerouted, [](const FlightPair& pair) {
    const std::string now =
        pair.before->number == pair.after->number ? "" : fmt::format("{}  ", NameOf(*pair.after));
    return fmt::format("{}  {} -> {}{}", NameOf(*pair.before), RouteText(*pair.before), now,
                       RouteText(*pair.after));
  });
  PrintPart(out, "Renumbered flights", diff.renumbered, [](const FlightPair& pair) {
    return fmt::format("{} -> {}  {}", NameOf(*pair.before), NameOf(*pair.after), RouteText(*pair.after));
  });
  PrintPart(out, "Recoloured flights", diff.recoloured, [&](const FlightPair& pair) {
    return fmt::format("{}  {}  {} -> {}", NameOf(*pair.after), RouteText(*pair.after),
                       LookText(compared.before, *pair.before), LookText(compared.after, *pair.after));
  });
  const auto airport = [](const PlainAirport* entry) { return AirportText(*entry); };
  PrintPart(out, "New destinations", diff.newDestinations, airport);
  PrintPart(out, "Dropped destinations", diff.droppedDestinations, airport);
}

void WriteDiff(const ComparedSchedules& compared, const std::filesystem::path& folder) {
  const ScheduleDiff& diff = compared.diff;
  const CsvText added = FlightRows(diff.added), dropped = FlightRows(diff.dropped);
  const CsvText rerouted = ReroutedRows(diff.rerouted), renumbered = RenumberedRows(diff.renumbered);
  const CsvText recoloured = RecolouredRows(compared);
  const CsvText newAirports = AirportRows(diff.newDestinations);
  const CsvText droppedAirports = AirportRows(diff.droppedDestinations);
  WriteTogether(folder, {{"new-flights.csv", &added},
                         {"dropped-flights.csv", &dropped},
                         {"rerouted-flights.csv", &rerouted},
                         {"renumbered-flights.csv", &renumbered},
                         {"recoloured-flights.csv", &recoloured},
                         {"new-destinations.csv", &newAirports},
                         {"dropped-destinations.csv", &droppedAirports}});
}

}  // namespace zerbal::pack
