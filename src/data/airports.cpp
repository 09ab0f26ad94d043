#include "data/airports.h"

#include <array>
#include <cstdint>
#include <string>

#include "data/table_access.h"
#include "jet/error.h"

namespace zerbal::data {

struct AirportTable {
  AirportTable(const jet::Database& database, const char* table)
      : rows(OpenWithIndex(database, table, "aprt")) {}

  bool HasPlaceAndTexts() const {
    return code.Exists() && name.Exists() && city.Exists() && lon.Exists() && lat.Exists();
  }

  bool Meets(const AirportCriteria& criteria) {
    std::array<std::int32_t, 3> values{};
    for (std::size_t n = 0; n < values.size(); ++n)
      if (criteria.numeric[n].active)
        values[n] = Number(n).value_or(0);
    if (criteria.ilsActive)
      ReadIls();
    return AirportPassesCriteria(criteria, values[0], values[1], values[2], ilsText);
  }

  /// `n` counts as in AirportCriteria::numeric.
  std::optional<std::int32_t> Number(std::size_t n) const {
    const TableField& field = numbers[n];
    try {
      if (field.Exists() && !field.Of(rows).IsNull())
        return field.Of(rows).AsLong();
    } catch (const jet::EngineError&) {
      // Treated as an empty field.
    }
    return std::nullopt;
  }
  std::optional<std::int32_t> Number(Criterion criterion) const {
    return Number(static_cast<std::size_t>(criterion));
  }

  void ReadIls() {
    ilsText.clear();
    try {
      if (ils.Exists())
        ils.Read(rows, ilsText);
    } catch (const jet::EngineError&) {
      ilsText.clear();
    }
  }

  jet::Recordset rows;
  TableField code{rows, "AP"}, name{rows, "AP_Name"}, city{rows, "AP_City"};
  TableField lon{rows, "AP_Lon"}, lat{rows, "AP_Lat"}, ils{rows, "AP_ILS"};
  /// In the order of AirportCriteria::numeric.
  std::array<TableField, 3> numbers{TableField(rows, "AP_Elev"), TableField(rows, "AP_RwyNr"),
                                    TableField(rows, "AP_RwyMaxL")};
  std::string codeText, nameText, cityText, ilsText;  // reused buffers
};

float Airport::Lon() const {
  return table_->lon.Of(table_->rows).AsSingle();
}

float Airport::Lat() const {
  return table_->lat.Of(table_->rows).AsSingle();
}

std::string_view Airport::Code() const {
  return table_->code.Read(table_->rows, table_->codeText);
}

std::string_view Airport::Name() const {
  return table_->name.Read(table_->rows, table_->nameText);
}

std::string_view Airport::City() const {
  return table_->city.Read(table_->rows, table_->cityText);
}

std::optional<std::int32_t> Airport::Elevation() const {
  return table_->Number(Criterion::kElevation);
}

std::optional<std::int32_t> Airport::Runways() const {
  return table_->Number(Criterion::kRunways);
}

std::optional<std::int32_t> Airport::LongestRunway() const {
  return table_->Number(Criterion::kLongestRunway);
}

std::optional<bool> Airport::HasIls() const {
  table_->ReadIls();
  if (table_->ilsText != "1" && table_->ilsText != "0")
    return std::nullopt;
  return table_->ilsText == "1";
}

Airports::Airports(const jet::Database& database, const char* table)
    : table_(std::make_unique<AirportTable>(database, table)) {}

Airports::Airports(Airports&&) noexcept = default;
Airports& Airports::operator=(Airports&&) noexcept = default;
Airports::~Airports() = default;

void Airports::Visit(const Visitor& visit) const {
  jet::Recordset& rows = table_->rows;
  for (rows.MoveFirst(); !rows.Eof(); rows.MoveNext())
    visit(Airport(*table_));
}

void Airports::VisitMeeting(const AirportCriteria& criteria, const MapBounds& bounds,
                            const Visitor& visit) const {
  if (!table_->HasPlaceAndTexts())
    return;
  const bool all = !criteria.AnyActive();
  const jet::SingleBox box{table_->lon.Within(bounds.west, bounds.east),
                           table_->lat.Within(bounds.top, bounds.bottom)};
  jet::Recordset& rows = table_->rows;
  for (rows.MoveFirstWithin(box); !rows.Eof(); rows.MoveNextWithin(box))
    if (all || table_->Meets(criteria))
      visit(Airport(*table_));
}

std::optional<Airport> Airports::Find(std::string_view code) const {
  table_->rows.Seek(code);
  if (table_->rows.NoMatch())
    return std::nullopt;
  return Airport(*table_);
}

}  // namespace zerbal::data
