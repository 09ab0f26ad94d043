#include "jet/read/field_value.h"

#include <algorithm>
#include <array>
#include <bit>
#include <chrono>
#include <cmath>
#include <cstdint>
#include <iterator>

#include <fmt/format.h>

#include "jet/format/page_layout.h"

namespace zerbal::jet {
namespace {

ByteView Sized(ByteView value, std::size_t size) {
  if (value.Size() != size)
    throw Damage("a value has not the size of its type");
  return value;
}

double Real(ByteView value) {
  return std::bit_cast<double>(Sized(value, 8).U64(0));
}
/// The magnitude of a numeric value in decimal digits: four words, the highest first.
std::string NumericDigits(ByteView value) {
  std::array<std::uint32_t, 4> words = {value.U32(1), value.U32(5), value.U32(9), value.U32(13)};
  std::string digits;
  bool more = true;
  while (more) {
    std::uint64_t remainder = 0;
    more = false;
    for (std::uint32_t& word : words) {
      const std::uint64_t current = remainder << 32 | word;
      word = static_cast<std::uint32_t>(current / 10);
      remainder = current % 10;
      more = more || word != 0;
    }
    digits += static_cast<char>('0' + remainder);
  }
  std::reverse(digits.begin(), digits.end());
  return digits;
}

void AppendNumeric(const ColumnInfo& column, ByteView value, std::string& out) {
  Sized(value, 17);
  const std::string digits = NumericDigits(value);
  AppendScaled(value.U8(0) != 0 && digits != "0", digits, column.scale, out);
}

void AppendCurrency(ByteView value, std::string& out) {
  const std::uint64_t bits = Sized(value, 8).U64(0);
  const bool negative = bits >> 63 != 0;
  AppendScaled(negative, std::to_string(negative ? 0 - bits : bits), kCurrencyDecimals, out);
}

void AppendGuid(ByteView value, std::string& out) {
  const std::uint8_t* b = Sized(value, 16).Data();
  fmt::format_to(std::back_inserter(out), "{{{:08x}-{:04x}-{:04x}-{:02x}{:02x}-{:02x}}}", LoadU32(b),
                 LoadU16(b + 4), LoadU16(b + 6), b[8], b[9], fmt::join(b + 10, b + 16, ""));
}

/// `days` since kDayZero. The absolute fraction is the time of day.
void AppendDateTime(double days, std::string& out) {
  namespace chrono = std::chrono;
  constexpr double kLimit = 4e6;  // larger numbers are not dates
  constexpr double kMillisecondsPerDay = 86'400'000;
  if (!(std::fabs(days) < kLimit)) {
    AppendNumber(days, out);
    return;
  }
  const double whole = std::trunc(days);
  const auto milliseconds = static_cast<int>(std::nearbyint(std::fabs(days - whole) * kMillisecondsPerDay));
  const auto time = kDayZero + chrono::days(static_cast<int>(whole)) + chrono::milliseconds(milliseconds);
  const auto day = chrono::floor<chrono::days>(time);
  const chrono::year_month_day date(day);
  const chrono::hh_mm_ss clock(time - day);
  fmt::format_to(std::back_inserter(out), "{:04}-{:02}-{:02} {:02}:{:02}:{:02}",
                 static_cast<int>(date.year()), static_cast<unsigned>(date.month()),
                 static_cast<unsigned>(date.day()), clock.hours().count(), clock.minutes().count(),
                 clock.seconds().count());
  if (clock.subseconds().count() != 0)
    fmt::format_to(std::back_inserter(out), ".{:03}", clock.subseconds().count());
}

void AppendHex(ByteView value, std::string& out) {
  fmt::format_to(std::back_inserter(out), "0x{:02x}",
                 fmt::join(value.Data(), value.Data() + value.Size(), ""));
}

}  // namespace

float SingleOf(ByteView value) {
  return std::bit_cast<float>(Sized(value, 4).U32(0));
}

std::optional<Number> NumberOf(const ColumnInfo& column, ByteView value) {
  switch (column.type) {
    case ColumnType::kByte:
      return Number::Of(std::int64_t{Sized(value, 1).U8(0)});
    case ColumnType::kInteger:
      return Number::Of(std::int64_t{static_cast<std::int16_t>(Sized(value, 2).U16(0))});
    case ColumnType::kLong:
      return Number::Of(std::int64_t{static_cast<std::int32_t>(Sized(value, 4).U32(0))});
    case ColumnType::kCurrency:
      return Number::Of(static_cast<double>(static_cast<std::int64_t>(Sized(value, 8).U64(0))) /
                        static_cast<double>(kCurrencyUnit));
    case ColumnType::kSingle:
      return Number::Of(double{SingleOf(value)});
    case ColumnType::kDouble:
    case ColumnType::kDateTime:
      return Number::Of(Real(value));
    case ColumnType::kNumeric: {
      std::string text;
      AppendNumeric(column, value, text);
      return ParseNumber(text);
    }
    default:
      return std::nullopt;
  }
}

void AppendValue(const ColumnInfo& column, ByteView value, std::string& out) {
  switch (column.type) {
    case ColumnType::kByte:
    case ColumnType::kInteger:
    case ColumnType::kLong:
      out += std::to_string(NumberOf(column, value)->integer);
      break;
    case ColumnType::kCurrency:
      AppendCurrency(value, out);
      break;
    case ColumnType::kSingle:
      AppendNumber(SingleOf(value), out);
      break;
    case ColumnType::kDouble:
      AppendNumber(Real(value), out);
      break;
    case ColumnType::kDateTime:
      AppendDateTime(Real(value), out);
      break;
    case ColumnType::kGuid:
      AppendGuid(value, out);
      break;
    case ColumnType::kNumeric:
      AppendNumeric(column, value, out);
      break;
    default:
      AppendHex(value, out);
  }
}

std::optional<std::string> Canonical(const ColumnInfo& column, std::string_view text) {
  switch (column.type) {
    case ColumnType::kSingle:
    case ColumnType::kDouble: {
      const std::optional<Number> number = ParseNumber(text);
      if (!number)
        return std::nullopt;
      std::string canonical;
      if (number->real == 0)
        canonical = "0";
      else if (column.type == ColumnType::kSingle)
        AppendNumber(static_cast<float>(number->real), canonical);
      else
        AppendNumber(number->real, canonical);
      return canonical;
    }
    case ColumnType::kBoolean:
    case ColumnType::kByte:
    case ColumnType::kInteger:
    case ColumnType::kLong:
    case ColumnType::kCurrency:
    case ColumnType::kNumeric:
      return NormalDecimal(text);
    default:
      return std::string(text);
  }
}

}  // namespace zerbal::jet
