#include "jet/write/value_encoding.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstddef>
#include <limits>
#include <optional>
#include <string_view>
#include <variant>

#include <fmt/format.h>

#include "base/assert.h"
#include "base/utf8.h"
#include "jet/format/bytes.h"
#include "jet/format/key.h"
#include "jet/format/page_layout.h"
#include "jet/format/text.h"
#include "jet/write/refusal.h"

namespace zerbal::jet {

namespace {

constexpr char16_t kMark = 0xFEFF;  // stored as kCompressedMark
constexpr std::size_t kShortestCompressed = 3;

bool Compressible(std::u16string_view text) {
  return text.size() >= kShortestCompressed &&
         std::ranges::all_of(text, [](char16_t unit) { return unit > 0 && unit <= 0xFF; });
}

}  // namespace

std::u16string ToUtf16Strictly(std::string_view utf8) {
  for (std::string_view rest = utf8; !rest.empty();) {
    const std::size_t length = base::Utf8Length(rest);
    if (length == 0)
      throw Refusal("the text is not UTF-8");
    rest.remove_prefix(length);
  }
  std::u16string text;
  ToUtf16(utf8, text);
  return text;
}

std::string StoredText(std::u16string_view text, bool compress) {
  if (text.starts_with(kMark))
    throw Refusal("a text that begins with the character U+FEFF cannot be stored");
  std::string stored;
  if (compress && Compressible(text)) {
    stored = kCompressedMark;
    for (char16_t unit : text)
      stored += static_cast<char>(unit);
    return stored;
  }
  stored.reserve(2 * text.size());
  for (char16_t unit : text)
    AppendLittleEndian(stored, 2, unit);
  return stored;
}

namespace {

constexpr int DayNumber(std::chrono::year_month_day date) {
  return (std::chrono::sys_days(date) - kDayZero).count();
}

// The first one has the times of day -657434.0 to -657434.99, hence the 1.
constexpr double kBeforeFirstDay = DayNumber(std::chrono::year(100) / 1 / 1) - 1;
constexpr double kAfterLastDay = DayNumber(std::chrono::year(10000) / 1 / 1);

[[noreturn]] void ThrowWrongType(const char* wanted) {
  throw Refusal(std::string("the value is not of the column's type, which is ") + wanted);
}

std::optional<std::int64_t> WholeNumber(const Value& value) {
  if (const auto* number = std::get_if<std::int32_t>(&value))
    return *number;
  if (const auto* number = std::get_if<std::int64_t>(&value))
    return *number;
  return std::nullopt;
}

std::optional<double> RealNumber(const Value& value) {
  if (const auto* number = std::get_if<float>(&value))
    return *number;
  if (const auto* number = std::get_if<double>(&value))
    return *number;
  return std::nullopt;
}

template <class Integer>
void EncodeInteger(const Value& value, const char* type, std::string& out) {
  const std::optional<std::int64_t> number = WholeNumber(value);
  if (!number)
    ThrowWrongType(type);
  if (*number < std::numeric_limits<Integer>::min() || *number > std::numeric_limits<Integer>::max())
    throw Refusal(fmt::format("the number {} does not fit the type {}", *number, type));
  AppendLittleEndian(out, sizeof(Integer), static_cast<std::uint64_t>(*number));
}

// Real numbers are rounded to the type; whole numbers must be exact in it.
template <class Real>
Real ToReal(const Value& value, const char* type) {
  if (const std::optional<double> number = RealNumber(value)) {
    if (!std::isfinite(*number) || std::abs(*number) > double{std::numeric_limits<Real>::max()})
      throw Refusal(fmt::format("the number {:f} does not fit the type {}", *number, type));
    return static_cast<Real>(*number);
  }
  const std::optional<std::int64_t> number = WholeNumber(value);
  if (!number)
    ThrowWrongType(type);
  constexpr std::int64_t kExact = std::int64_t{1} << std::numeric_limits<Real>::digits;
  if (*number < -kExact || *number > kExact)
    throw Refusal(fmt::format("the number {} has more digits than the type {}", *number, type));
  return static_cast<Real>(*number);
}

void EncodeDateTime(const Value& value, std::string& out) {
  const auto days = ToReal<double>(value, "DateTime");
  if (days <= kBeforeFirstDay || days >= kAfterLastDay)
    throw Refusal(fmt::format("the date {:f} lies outside the years 100 to 9999", days));
  AppendLittleEndian(out, 8, std::bit_cast<std::uint64_t>(days));
}

std::int64_t ToCurrency(const Value& value) {
  constexpr std::int64_t kMost = std::numeric_limits<std::int64_t>::max() / kCurrencyUnit;
  if (const std::optional<std::int64_t> number = WholeNumber(value)) {
    if (*number >= -kMost && *number <= kMost)
      return *number * kCurrencyUnit;
  } else if (const std::optional<double> real = RealNumber(value)) {
    if (std::abs(*real) < static_cast<double>(kMost))  // false for NaN
      return static_cast<std::int64_t>(std::nearbyint(*real * double{kCurrencyUnit}));
  } else {
    ThrowWrongType("Currency");
  }
  throw Refusal("the amount does not fit the type Currency");
}

// The digits of a decimal number without its point: "-12.5" with two decimals is "1250".
std::string ScaledDigits(std::string_view text, const ColumnInfo& column) {
  std::string digits;
  int decimals = -1;  // digits after the point so far; -1 = no point yet
  for (char character : text) {
    if (character == '.' && decimals < 0) {
      decimals = 0;
    } else if (character >= '0' && character <= '9') {
      digits += character;
      decimals += decimals >= 0 ? 1 : 0;
    } else {
      throw Refusal("the text is not a decimal number");
    }
  }
  if (digits.empty())
    throw Refusal("the text is not a decimal number");
  if (decimals > column.scale)
    throw Refusal("the number has more decimals than the column's " + std::to_string(column.scale));
  digits.append(static_cast<std::size_t>(column.scale - std::max(decimals, 0)), '0');
  digits.erase(0, digits.find_first_not_of('0'));
  if (digits.size() > static_cast<std::size_t>(column.precision))
    throw Refusal("the number has more digits than the column's " + std::to_string(column.precision));
  return digits;
}

// One byte for the sign, then the magnitude as four 32-bit words, the highest first.
void EncodeNumeric(const ColumnInfo& column, const Value& value, std::string& out) {
  std::string text;
  if (const std::optional<std::int64_t> number = WholeNumber(value))
    text = std::to_string(*number);
  else if (const auto* decimal = std::get_if<std::string>(&value))
    text = *decimal;
  else
    ThrowWrongType("Numeric");
  const bool negative = text.starts_with('-');
  const std::string digits = ScaledDigits(std::string_view(text).substr(negative ? 1 : 0), column);
  std::array<std::uint32_t, 4> words{};  // the highest first
  for (char digit : digits) {
    auto carry = static_cast<std::uint64_t>(digit - '0');
    for (auto word = words.rbegin(); word != words.rend(); ++word) {
      carry += std::uint64_t{*word} * 10;
      *word = static_cast<std::uint32_t>(carry & 0xFFFFFFFF);
      carry >>= 32;
    }
  }
  out += static_cast<char>(negative && !digits.empty() ? 0x80 : 0);
  for (std::uint32_t word : words)
    AppendLittleEndian(out, 4, word);
}

void EncodeBytes(const Value& value, const char* type, std::size_t least, std::size_t most,
                 std::string& out) {
  const auto* bytes = std::get_if<std::vector<std::uint8_t>>(&value);
  if (bytes == nullptr)
    ThrowWrongType(type);
  if (bytes->size() < least || bytes->size() > most)
    throw Refusal(fmt::format("the value has {} bytes, the column holds {}", bytes->size(), most));
  out.assign(bytes->begin(), bytes->end());
}

const std::string& TextOf(const Value& value, const char* type) {
  const auto* text = std::get_if<std::string>(&value);
  if (text == nullptr)
    ThrowWrongType(type);
  return *text;
}

void EncodeText(const ColumnInfo& column, const Value& value, EncodedValue& out) {
  out.text = ToUtf16Strictly(TextOf(value, "Text"));
  if (out.text.size() > static_cast<std::size_t>(column.length))
    throw Refusal(
        fmt::format("the text has {} characters, the column holds {}", out.text.size(), column.length));
  out.stored = StoredText(out.text, column.compressed);
}

void EncodeMemo(const ColumnInfo& column, const Value& value, EncodedValue& out) {
  out.stored = StoredText(ToUtf16Strictly(TextOf(value, "Memo")), column.compressed);
  if (out.stored.size() > kMaxLongValue)
    throw Refusal("the text is longer than a Memo can be");
}

}  // namespace

void EncodeValue(const ColumnInfo& column, const Value& value, EncodedValue& out) {
  out.stored.clear();
  out.text.clear();
  out.isNull = std::holds_alternative<Null>(value);
  if (out.isNull) {
    if (column.type == ColumnType::kBoolean)
      throw Refusal("a Boolean cannot be Null");
    return;
  }
  switch (column.type) {
    case ColumnType::kBoolean:
      if (!std::holds_alternative<bool>(value))
        ThrowWrongType("Boolean");
      out.stored.assign(1, static_cast<char>(std::get<bool>(value) ? 1 : 0));
      break;
    case ColumnType::kByte:
      return EncodeInteger<std::uint8_t>(value, "Byte", out.stored);
    case ColumnType::kInteger:
      return EncodeInteger<std::int16_t>(value, "Integer", out.stored);
    case ColumnType::kLong:
      return EncodeInteger<std::int32_t>(value, "Long", out.stored);
    case ColumnType::kCurrency:
      return AppendLittleEndian(out.stored, 8, static_cast<std::uint64_t>(ToCurrency(value)));
    case ColumnType::kSingle:
      return AppendLittleEndian(out.stored, 4, std::bit_cast<std::uint32_t>(ToReal<float>(value, "Single")));
    case ColumnType::kDouble:
      return AppendLittleEndian(out.stored, 8, std::bit_cast<std::uint64_t>(ToReal<double>(value, "Double")));
    case ColumnType::kDateTime:
      return EncodeDateTime(value, out.stored);
    case ColumnType::kBinary:
      return EncodeBytes(value, "Binary", 0, static_cast<std::size_t>(column.length), out.stored);
    case ColumnType::kGuid:
      return EncodeBytes(value, "GUID", 16, 16, out.stored);
    case ColumnType::kOle:
      return EncodeBytes(value, "OLE", 0, kMaxLongValue, out.stored);
    case ColumnType::kText:
      return EncodeText(column, value, out);
    case ColumnType::kMemo:
      return EncodeMemo(column, value, out);
    case ColumnType::kNumeric:
      return EncodeNumeric(column, value, out.stored);
  }
}

void AppendValueKey(const ColumnInfo& column, const EncodedValue& value, bool ascending,
                    std::vector<std::uint8_t>& key) {
  if (value.isNull) {
    AppendNullKey(ascending, key);
  } else if (column.type == ColumnType::kText) {
    if (!AppendTextKeyJet4(value.text, ascending, key))
      throw Refusal(
          "the text has a character whose place in the sort order is not known; it cannot be indexed");
  } else if (column.type == ColumnType::kBinary) {
    AppendBinaryKey(value.stored, ascending, key);
  } else {
    [[maybe_unused]] const bool known = AppendFixedKey(column.type, value.stored, ascending, key);
    ZERBAL_ASSERT(known);  // LayOutTable refuses indexes on columns of other types
  }
}

}  // namespace zerbal::jet
