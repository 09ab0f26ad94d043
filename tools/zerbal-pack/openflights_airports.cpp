#include "zerbal-pack/openflights_airports.h"

#include <algorithm>
#include <string>
#include <utility>

#include "zerbal-pack/csv_file.h"
#include "zerbal-pack/csv_value.h"

namespace zerbal::pack {

namespace {

enum AirportField : std::size_t {
  kId,
  kName,
  kCity,
  kCountry,
  kIata,
  kIcao,
  kLatitude,
  kLongitude,
  kAltitude,
  kType = 12
};

class OpenFlightsAirportReader {
 public:
  OpenFlightsAirportReader(const std::filesystem::path& file, AirportList& list, Problems& problems)
      : file_(file, kOpenFlightsForm, problems), list_(list), problems_(problems) {}

  template <typename Use>
  void ForEach(const Use& use) {
    while (file_.Next(record_)) {
      if (record_.fault)
        problems_.Add(
            {file_.Name(), record_.fault->line, std::to_string(record_.fault->field), record_.fault->reason});
      else if (!IsOpenFlightsAirport(record_))
        Report("", "is not an airport of 11, 12 or 14 fields that begin with a number");
      else
        use();
    }
  }

  void AddAirport() {
    const std::string_view iata = OpenFlightsText(record_, kIata), icao = OpenFlightsText(record_, kIcao);
    const std::string_view type = OpenFlightsText(record_, kType);
    if (iata.empty() && icao.empty())
      return;  // nothing can name it
    Airport airport;
    airport.code = icao.empty() ? iata : icao;
    airport.iata = iata;
    airport.name = OpenFlightsText(record_, kName);
    airport.city = OpenFlightsText(record_, kCity);
    airport.airfield = type.empty() || type == "airport";
    if (!ReadPosition(airport))
      return;
    airport.elevation = WholeNumber(OpenFlightsText(record_, kAltitude)).value_or(0);
    const auto index = static_cast<AirportIndex>(list_.table.Size());
    const std::string code = airport.code;
    if (list_.table.Add(std::move(airport)))
      list_.ids.emplace(OpenFlightsText(record_, kId), index);
    else
      Report("ICAO", Quoted(code) + " is another airport's code already");
  }

  void AddId() {
    for (const std::size_t column : {kIata, kIcao}) {
      const std::optional<AirportIndex> found = list_.table.Find(OpenFlightsText(record_, column));
      if (!found)
        continue;
      list_.ids.emplace(OpenFlightsText(record_, kId), *found);
      return;
    }
  }

 private:
  void Report(const char* column, std::string reason) {
    problems_.Add({file_.Name(), record_.line, column, std::move(reason)});
  }

  bool ReadPosition(Airport& airport) {
    const auto read = [&](std::size_t column, const char* name, double most, double& degrees) {
      const std::string_view text = OpenFlightsText(record_, column);
      const std::optional<double> number = Degrees(text, most, file_.DecimalComma());
      if (!number)
        Report(name, Quoted(text) + " is not a position in degrees");
      degrees = number.value_or(0);
      return number.has_value();
    };
    return read(kLatitude, "latitude", 90, airport.latitude) &&
           read(kLongitude, "longitude", 180, airport.longitude);
  }

  CsvFile file_;
  CsvRecord record_;
  AirportList& list_;
  Problems& problems_;
};

}  // namespace

std::string_view OpenFlightsText(const CsvRecord& record, std::size_t column) {
  const std::string_view text = FieldText(record, column);
  return text == "\\N" ? std::string_view() : text;
}

bool IsOpenFlightsAirport(const CsvRecord& record) {
  const std::size_t count = record.fields.size();
  return (count == 11 || count == 12 || count == 14) && WholeNumber(FieldText(record, kId));
}

void ReadOpenFlightsAirports(const std::filesystem::path& file, AirportList& list, Problems& problems) {
  OpenFlightsAirportReader reader(file, list, problems);
  reader.ForEach([&] { reader.AddAirport(); });
}

void ReadOpenFlightsIds(const std::filesystem::path& file, AirportList& list, Problems& problems) {
  OpenFlightsAirportReader reader(file, list, problems);
  reader.ForEach([&] { reader.AddId(); });
}

}  // namespace zerbal::pack
