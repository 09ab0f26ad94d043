#include "zerbal-pack/csv_value.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <utility>

#include <fmt/format.h>

#include "base/utf8.h"

namespace zerbal::pack {

namespace {

constexpr std::string_view kBlanks = " \t";

CsvValue Fault(std::string reason) {
  return {jet::Null{}, std::move(reason)};
}

CsvValue Fault(const CsvField& field, std::string_view reason) {
  return Fault(Quoted(field.text).append(" ").append(reason));
}

template <typename Number>
std::optional<Number> Parsed(std::string_view text) {
  text = Trimmed(text);
  Number number{};
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc() || end != text.data() + text.size())
    return std::nullopt;
  return number;
}

/// Digits with an optional sign, and nothing else.
bool LooksWhole(std::string_view text) {
  text = Trimmed(text);
  if (text.starts_with('-'))
    text.remove_prefix(1);
  return !text.empty() && std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
}

bool IsControl(char c) {
  return (static_cast<unsigned char>(c) < 0x20 && c != '\r' && c != '\n' && c != '\t') || c == '\x7F';
}

CsvValue TextValue(const CsvField& field, const ColumnLayout& column) {
  if (std::any_of(field.text.begin(), field.text.end(), IsControl))
    return Fault(field, "holds a control character");
  if (const std::size_t count = CharacterCount(field.text);
      count > static_cast<std::size_t>(column.field.length)) {
    return Fault(field, fmt::format("is {} characters long, at most {} fit", count, column.field.length));
  }
  if (column.settingsKey && !CanBeSettingsKey(field.text))
    return Fault(field, "cannot be a key of the settings file");
  if (field.IsNull())
    return {jet::Null{}, {}};
  return {field.text, {}};
}

CsvValue KeyValue(const CsvField& field, const ColumnLayout& column) {
  const auto inKey = [](char c) { return c >= ' ' && c <= '~'; };
  if (!std::all_of(field.text.begin(), field.text.end(), inKey))
    return Fault(field, "holds a character other than ASCII letters, digits and signs");
  if (field.text.starts_with(' ') || field.text.ends_with(' '))
    return Fault(field, "begins or ends with a blank");
  return TextValue(field, column);
}

CsvValue WholeValue(const CsvField& field, const ColumnLayout& column) {
  if (!LooksWhole(field.text))
    return Fault(field, "is not a whole number");
  const std::optional<std::int64_t> number = Parsed<std::int64_t>(field.text);
  if (!number || *number < column.least || *number > column.most) {
    return Fault(field, fmt::format("is not within {} to {}", column.least, column.most));
  }
  return {static_cast<std::int32_t>(*number), {}};
}

/// Degrees of the map frame: longitude from 180 W eastwards, latitude from the North Pole downwards. Digits
/// that only result from the subtraction are rounded away, so that 90 - 71.8 is 18.2.
double ToMapFrame(double degrees, ColumnUse use) {
  constexpr double kUnits = 1e9;  // per degree
  const double mapDegrees = use == ColumnUse::kLongitude ? degrees + 180.0 : 90.0 - degrees;
  return std::round(mapDegrees * kUnits) / kUnits;
}

CsvValue PositionValue(const CsvField& field, const ColumnLayout& column, const NumberForm& form) {
  const bool mapFrame = form.mapFrame;
  std::string text = field.text;
  if (form.decimalComma && std::ranges::count(text, ',') == 1 && text.find('.') == std::string::npos)
    std::ranges::replace(text, ',', '.');
  const std::optional<double> degrees = Parsed<double>(text);
  if (!degrees || !std::isfinite(*degrees)) {
    const bool comma = !form.decimalComma && field.text.find(',') != std::string::npos;
    return Fault(field, comma ? "is not a number (the decimal sign is a point)" : "is not a number");
  }
  const bool longitude = column.use == ColumnUse::kLongitude;
  const double most = longitude ? 360 : 180;
  const double mapDegrees = mapFrame ? *degrees : ToMapFrame(*degrees, column.use);
  if (mapDegrees < 0 || mapDegrees > most) {
    if (mapFrame)
      return Fault(field,
                   longitude ? "is not within 0 to 360 (map frame)" : "is not within 0 to 180 (map frame)");
    return Fault(field, longitude ? "is not within -180 to 180" : "is not within -90 to 90");
  }
  if (column.field.type == jet::ColumnType::kDouble)
    return {mapDegrees + 0.0, {}};  // no negative zero
  // Parsed as a single, so that an exported value is read back unchanged.
  const float single = mapFrame ? Parsed<float>(text).value_or(0.0F) : static_cast<float>(mapDegrees);
  return {single + 0.0F, {}};
}

}  // namespace

std::string_view Trimmed(std::string_view text) {
  const std::size_t from = text.find_first_not_of(kBlanks);
  if (from == std::string_view::npos)
    return {};
  return text.substr(from, text.find_last_not_of(kBlanks) - from + 1);
}

std::size_t CharacterCount(std::string_view text) {
  std::size_t count = 0;
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t length = std::max<std::size_t>(base::Utf8Length(text.substr(at)), 1);
    count += length == 4 ? 2 : 1;
    at += length;
  }
  return count;
}

std::string Quoted(std::string_view text) {
  constexpr std::size_t kMost = 40;  // bytes
  std::string quoted = "'";
  for (std::size_t at = 0; at < text.size();) {
    if (at >= kMost) {
      quoted += "...";
      break;
    }
    const std::size_t length = std::max<std::size_t>(base::Utf8Length(text.substr(at)), 1);
    const bool shown = length > 1 || (text[at] >= ' ' && text[at] <= '~');
    if (shown)
      quoted.append(text.substr(at, length));
    else
      quoted.push_back('?');
    at += length;
  }
  return quoted.append("'");
}

CsvValue ToValue(const CsvField& field, const ColumnLayout& column, const NumberForm& form) {
  const bool mayBeEmpty = column.use == ColumnUse::kStop || column.use == ColumnUse::kCode ||
                          column.use == ColumnUse::kUnknownFlag;
  if (mayBeEmpty && field.text.empty())
    return {jet::Null{}, {}};
  if (column.use != ColumnUse::kText && Trimmed(field.text).empty())
    return Fault("is empty");
  switch (column.use) {
    case ColumnUse::kKey:
    case ColumnUse::kReference:
    case ColumnUse::kStop:
    case ColumnUse::kCode:
      return KeyValue(field, column);
    case ColumnUse::kText:
    case ColumnUse::kRequiredText:
      return TextValue(field, column);
    case ColumnUse::kWhole:
    case ColumnUse::kSort:
      return WholeValue(field, column);
    case ColumnUse::kLongitude:
    case ColumnUse::kLatitude:
      return PositionValue(field, column, form);
    case ColumnUse::kFlag:
    case ColumnUse::kUnknownFlag:
      if (field.text != "0" && field.text != "1")
        return Fault(field, "is neither 0 nor 1");
      return {field.text, {}};
  }
  return Fault(field, "cannot be read");
}

}  // namespace zerbal::pack
