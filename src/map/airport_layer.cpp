#include "map/airport_layer.h"

#include <array>
#include <cstdint>
#include <exception>
#include <optional>
#include <string_view>

#include "jet/error.h"

namespace zerbal::map {

namespace {

constexpr std::int32_t kRadiusOverview = 20;
constexpr std::int32_t kRadiusDetail = 30;
constexpr std::int32_t kLabelOffset = 50;  ///< right of and below the marker's centre

/// Where the airport is when it is in view. The longitude of the marker in line tables is not a position here
/// either.
std::optional<TwipPoint> Project(const Viewport& viewport, MapPosition position) {
  if (position.lon == kPenUpLon)
    return std::nullopt;
  return viewport.ProjectPoint(position);
}

void DrawAt(TwipPoint centre, Canvas& canvas, std::string_view label, data::Rgb colour) {
  canvas.surface.Circle(centre, canvas.viewport.DetailMode() ? kRadiusDetail : kRadiusOverview, colour, true);
  canvas.surface.Text({centre.x + kLabelOffset, centre.y + kLabelOffset}, label, colour, canvas.font);
}

/// The airport that the cursor stands on, field by field as it is needed. Fields are found once a layer; one
/// that the table does not have is one that cannot be read.
class AirportRow {
 public:
  explicit AirportRow(const jet::Recordset& table)
      : table_(table),
        numbers_{table.FindField("AP_Elev"), table.FindField("AP_RwyNr"), table.FindField("AP_RwyMaxL")},
        ils_(table.FindField("AP_ILS")),
        code_(table.FindField("AP")),
        name_(table.FindField("AP_Name")),
        city_(table.FindField("AP_City")),
        lon_(table.FindField("AP_Lon")),
        lat_(table.FindField("AP_Lat")) {}

  bool HasPlaceAndTexts() const { return code_ && name_ && city_ && lon_ && lat_; }

  bool Passes(const data::AirportCriteria& criteria) {
    std::array<std::int32_t, 3> values{};
    for (std::size_t n = 0; n < values.size(); ++n)
      if (criteria.numeric[n].active)
        values[n] = NumberOrZero(numbers_[n]);
    if (criteria.ilsActive)
      ReadIls();
    return AirportPassesCriteria(criteria, values[0], values[1], values[2], ilsText_);
  }

  MapPosition Position() const { return {table_.At(*lon_).AsSingle(), table_.At(*lat_).AsSingle()}; }

  /// In overview mode only the code is shown, and so only that is read.
  const std::string& Label(bool detailMode) {
    label_.clear();
    Read(*code_, texts_.code);
    if (detailMode) {
      Read(*name_, texts_.name);
      Read(*city_, texts_.city);
    }
    AppendAirportLabel(label_, texts_, detailMode);
    return label_;
  }

 private:
  std::int32_t NumberOrZero(std::optional<int> field) const {
    try {
      if (field && !table_.At(*field).IsNull())
        return table_.At(*field).AsLong();
    } catch (const jet::EngineError&) {
      // Counts as if it had never been filled in.
    }
    return 0;
  }

  void ReadIls() {
    ilsText_.clear();
    try {
      if (ils_)
        table_.At(*ils_).AppendText(ilsText_);
    } catch (const jet::EngineError&) {
      ilsText_.clear();
    }
  }

  void Read(int field, std::string& text) {
    text.clear();
    table_.At(field).AppendText(text);
  }

  const jet::Recordset& table_;
  std::array<std::optional<int>, 3> numbers_;  ///< in the order of AirportCriteria::numeric
  std::optional<int> ils_, code_, name_, city_, lon_, lat_;
  std::string ilsText_;
  AirportTexts texts_;
  std::string label_;
};

}  // namespace

void AppendAirportLabel(std::string& label, const AirportTexts& texts, bool detailMode) {
  label += texts.code;
  if (!detailMode)
    return;
  label += " - ";
  label += texts.name;
  if (texts.name.find(texts.city) == std::string::npos) {
    label += " (";
    label += texts.city;
    label += ')';
  }
}

void DrawAirport(Canvas& canvas, const AirportTexts& texts, MapPosition position, data::Rgb colour) {
  const std::optional<TwipPoint> centre = Project(canvas.viewport, position);
  if (!centre)
    return;
  std::string label;
  AppendAirportLabel(label, texts, canvas.viewport.DetailMode());
  DrawAt(*centre, canvas, label, colour);
}

void DrawAirportLayer(Canvas& canvas, jet::Recordset& airports, const data::AirportCriteria& criteria,
                      data::Rgb colour) {
  AirportRow row(airports);
  if (!row.HasPlaceAndTexts())
    return;
  for (airports.MoveFirst(); !airports.Eof(); airports.MoveNext()) {
    if (!row.Passes(criteria))
      continue;
    try {
      if (const std::optional<TwipPoint> centre = Project(canvas.viewport, row.Position()))
        DrawAt(*centre, canvas, row.Label(canvas.viewport.DetailMode()), colour);
    } catch (const std::exception&) {
      // This airport is left out.
    }
  }
}

}  // namespace zerbal::map
