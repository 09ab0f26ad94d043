#include "zerbal-pack/airport_csv.h"

#include <algorithm>
#include <cstddef>

#include "base/numbers.h"
#include "base/utf8.h"
#include "zerbal-pack/csv.h"
#include "zerbal-pack/csv_value.h"

namespace zerbal::pack {

namespace {

constexpr std::size_t kLongestName = 255;  // characters of a name in the database

}  // namespace

std::string AirportCsvHeader() {
  std::string csv;
  for (const std::string_view title : {"Code", "Name", "City", "Longitude", "Latitude", "Elevation (ft)",
                                       "Runways", "Longest runway (ft)", "ILS", "IATA"}) {
    csv += csv.empty() ? "" : ",";
    AppendCsvText(title, csv);
  }
  csv += kCsvLineEnd;
  return csv;
}

void AppendAirportCsv(const Airport& airport, std::string_view code, bool ils, std::string& csv) {
  AppendCsvText(code, csv);
  for (const std::string& name : {airport.name, airport.city}) {
    csv.push_back(',');
    AppendCsvText(ToDatabaseName(name), csv);
  }
  for (const double degrees : {airport.longitude, airport.latitude})
    csv.append(",").append(base::DecimalText(degrees));
  for (const std::int32_t number : {airport.elevation, airport.runways, airport.longestRunway})
    csv.append(",").append(std::to_string(number));
  csv.append(",").append(ils ? "\"1\"," : "\"0\",");
  AppendCsvText(airport.iata, csv);
  csv += kCsvLineEnd;
}

std::string ToDatabaseName(std::string_view text) {
  std::string name;
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t length = std::max<std::size_t>(base::Utf8Length(text.substr(at)), 1);
    const bool control = static_cast<unsigned char>(text[at]) < ' ' || text[at] == '\x7F';
    const std::size_t before = name.size();
    name += control ? std::string_view(" ") : text.substr(at, length);
    if (CharacterCount(name) > kLongestName)
      return name.substr(0, before);
    at += length;
  }
  return name;
}

}  // namespace zerbal::pack
