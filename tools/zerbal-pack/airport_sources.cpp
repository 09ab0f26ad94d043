#include "zerbal-pack/airport_sources.h"

#include <cmath>
#include <utility>

#include "base/path_text.h"
#include "zerbal-pack/airline.h"
#include "zerbal-pack/csv_file.h"
#include "zerbal-pack/csv_value.h"
#include "zerbal-pack/openflights_airports.h"
#include "zerbal-pack/ourairports.h"

namespace zerbal::pack {

namespace fs = std::filesystem;

namespace {

constexpr std::int32_t kLikelyIlsRunway = 7000;  // feet

/// Our own layout with positions in double precision, which give back the degrees of the file.
TableLayout PreciseLayout() {
  TableLayout layout = AirportLayout();
  for (ColumnLayout& column : layout.columns) {
    if (column.use == ColumnUse::kLongitude || column.use == ColumnUse::kLatitude)
      column.field.type = jet::ColumnType::kDouble;
    if (column.use == ColumnUse::kFlag) {
      column.use = ColumnUse::kUnknownFlag;
      column.optional = true;
    }
  }
  return layout;
}

double Rounded(double degrees) {
  constexpr double kUnits = 1e9;
  return std::round(degrees * kUnits) / kUnits + 0.0;
}

class OwnAirports {
 public:
  OwnAirports(const CsvTable& csv, AirportTable& table, Problems& problems)
      : csv_(csv), table_(table), problems_(problems) {}

  void Add() {
    for (const CsvRow& row : csv_.rows) {
      std::optional<Airport> airport = ToAirport(row);
      if (!airport)
        continue;
      const std::string iata = airport->iata;
      if (table_.Add(*std::move(airport)) && !iata.empty() &&
          table_[static_cast<AirportIndex>(table_.Size() - 1)].iata.empty())
        problems_.Add({csv_.file, row.line, csv_.titles[Column("AP_IATA")],
                       Quoted(iata) + " is another airport's code already", Severity::kWarning});
    }
  }

 private:
  std::size_t Column(std::string_view field) const { return csv_.layout->ColumnIndex(field); }

  template <typename Number>
  const Number* Value(const CsvRow& row, std::string_view field) const {
    return std::get_if<Number>(&row.values[Column(field)]);
  }

  /// nullopt when a value is missing; that is reported already.
  std::optional<Airport> ToAirport(const CsvRow& row) const {
    const auto* longitude = Value<double>(row, "AP_Lon");
    const auto* latitude = Value<double>(row, "AP_Lat");
    const auto* elevation = Value<std::int32_t>(row, "AP_Elev");
    const auto* runways = Value<std::int32_t>(row, "AP_RwyNr");
    const auto* longest = Value<std::int32_t>(row, "AP_RwyMaxL");
    const std::string_view code = row.Text(Column("AP"));
    if (!longitude || !latitude || !elevation || !runways || !longest || code.empty())
      return std::nullopt;
    Airport airport;
    airport.code = code;
    airport.iata = row.Text(Column("AP_IATA"));
    airport.name = row.Text(Column("AP_Name"));
    airport.city = row.Text(Column("AP_City"));
    airport.longitude = Rounded(*longitude - 180);
    airport.latitude = Rounded(90 - *latitude);
    airport.elevation = *elevation;
    airport.runways = *runways;
    airport.longestRunway = *longest;
    if (const std::string_view ils = row.Text(Column("AP_ILS")); !ils.empty())
      airport.ils = ils == "1";
    airport.likelyIls = airport.longestRunway >= kLikelyIlsRunway;
    return airport;
  }

  const CsvTable& csv_;
  AirportTable& table_;
  Problems& problems_;
};

void ReadOwnAirports(const fs::path& file, AirportTable& table, Problems& problems) {
  const TableLayout layout = PreciseLayout();
  OwnAirports(ReadCsvTable(file, layout, problems), table, problems).Add();
}

fs::path RunwaysBeside(const fs::path& airports) {
  std::string name = airports.filename().string();
  const std::size_t at = name.rfind("airports");
  if (at == std::string::npos)
    return {};
  const fs::path runways = airports.parent_path() / base::PathOf(name.replace(at, 8, "runways"));
  std::error_code failed;
  return fs::is_regular_file(runways, failed) ? runways : fs::path();
}

/// The first record of a file; problems with the file are somebody else's.
CsvRecord FirstRecord(const fs::path& file) {
  Problems ignored;
  CsvRecord record;
  CsvFile csv(file, {.backslashEscapes = true}, ignored);
  if (!csv.Next(record))
    record.fields.clear();
  return record;
}

}  // namespace

AirportList ReadAirportList(const AirportSource& source, Problems& problems) {
  std::error_code failed;
  const fs::path file =
      fs::is_directory(source.airports, failed) ? source.airports / "airports.csv" : source.airports;
  AirportList list;
  const CsvRecord first = FirstRecord(file);
  if (IsOurAirportsHeader(first))
    ReadOurAirports(file, source.runways.empty() ? RunwaysBeside(file) : source.runways, list.table,
                    problems);
  else if (IsOpenFlightsAirport(first))
    ReadOpenFlightsAirports(file, list, problems);
  else
    ReadOwnAirports(file, list.table, problems);
  return list;
}

bool IsOpenFlightsAirports(const fs::path& file) {
  return IsOpenFlightsAirport(FirstRecord(file));
}

}  // namespace zerbal::pack
