#include "jet/read/seek_key.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstddef>
#include <functional>
#include <optional>

#include "jet/format/key.h"
#include "jet/format/text.h"
#include "jet/read/number_text.h"

namespace zerbal::jet {

namespace {

/// A number in the stored form of a column type. From() gives nullopt when the type cannot hold it.
class StoredNumber {
 public:
  static std::optional<StoredNumber> From(std::string_view text, ColumnType type) {
    if (type == ColumnType::kCurrency) {
      const std::optional<std::int64_t> value = ParseScaled(text, kCurrencyDecimals);
      return value ? std::optional(StoredNumber(static_cast<std::uint64_t>(*value), 8)) : std::nullopt;
    }
    const std::optional<Number> number = ParseNumber(text);
    if (!number)
      return std::nullopt;
    const auto single = static_cast<float>(number->real);
    switch (type) {
      case ColumnType::kBoolean:
        return Whole(*number, 0, 1, 1);
      case ColumnType::kByte:
        return Whole(*number, 0, 0xFF, 1);
      case ColumnType::kInteger:
        return Whole(*number, -0x8000, 0x7FFF, 2);
      case ColumnType::kLong:
        return Whole(*number, -0x80000000LL, 0x7FFFFFFFLL, 4);
      case ColumnType::kSingle:
        return Finite(single, std::bit_cast<std::uint32_t>(single));
      default:
        return Finite(number->real, std::bit_cast<std::uint64_t>(number->real));
    }
  }

  std::string_view Bytes() const { return {bytes_.data(), size_}; }

 private:
  StoredNumber(std::uint64_t value, std::size_t size) : size_(size) {
    StoreLittleEndian(bytes_.data(), size, value);
  }

  /// A number too large for the type has become infinite.
  template <class Real, class Bits>
  static std::optional<StoredNumber> Finite(Real value, Bits bits) {
    return std::isfinite(value) ? std::optional(StoredNumber(bits, sizeof bits)) : std::nullopt;
  }

  static std::optional<StoredNumber> Whole(const Number& number, std::int64_t least, std::int64_t most,
                                           std::size_t size) {
    std::int64_t value = number.integer;
    if (!number.whole) {
      if (!(std::fabs(number.real) <= 4294967296.0) || number.real != std::trunc(number.real))
        return std::nullopt;
      value = static_cast<std::int64_t>(number.real);
    }
    if (value < least || value > most)
      return std::nullopt;
    return StoredNumber(static_cast<std::uint64_t>(value), size);
  }

  std::array<char, 8> bytes_ = {};
  std::size_t size_;
};

}  // namespace

SeekKey::Result SeekKey::Make(std::string_view text, const ColumnInfo& column, const ColumnPlace& place,
                              bool ascending, const FileHeader& header) {
  key_.clear();
  switch (column.type) {
    case ColumnType::kText:
    case ColumnType::kMemo:
      return MakeText(text, place, ascending, header);
    case ColumnType::kBoolean:
    case ColumnType::kByte:
    case ColumnType::kInteger:
    case ColumnType::kLong:
    case ColumnType::kCurrency:
      return MakeNumber(text, column.type, ascending);
    case ColumnType::kSingle:
    case ColumnType::kDouble: {
      // Zero has two keys, one for each sign.
      const std::optional<Number> number = ParseNumber(text);
      return number && number->real == 0 ? Result::kUnknown : MakeNumber(text, column.type, ascending);
    }
    default:
      return Result::kUnknown;
  }
}

SeekKey::Result SeekKey::MakeText(std::string_view text, const ColumnPlace& place, bool ascending,
                                  const FileHeader& header) {
  if (place.sortOrder != kGeneralSortOrder)
    return Result::kUnknown;
  if (header.format == Format::kJet4) {
    ToUtf16(text, utf16_);
    return AppendTextKeyJet4(utf16_, ascending, key_) ? Result::kReady : Result::kUnknown;
  }
  if (header.codePage != kWesternCodePage)
    return Result::kUnknown;
  if (!ToCodePage(text, narrow_))
    return Result::kNoMatch;
  AppendTextKeyJet3(narrow_, ascending, key_);
  return Result::kReady;
}

SeekKey::Result SeekKey::MakeNumber(std::string_view text, ColumnType type, bool ascending) {
  const std::optional<StoredNumber> number = StoredNumber::From(text, type);
  if (!number)
    return Result::kNoMatch;
  return AppendFixedKey(type, number->Bytes(), ascending, key_) ? Result::kReady : Result::kUnknown;
}

std::uint64_t TextLookup::HashOf(std::string_view text) {
  return std::hash<std::string_view>()(text);
}

void TextLookup::Add(std::string_view text, const IndexCursor::Place& place) {
  entries_.push_back({HashOf(text), place});
}

void TextLookup::Finish() {
  std::ranges::stable_sort(entries_, {}, &Entry::hash);  // equal texts stay in index order
}

std::vector<TextLookup::Entry>::const_iterator TextLookup::FirstWith(std::uint64_t hash) const {
  return std::ranges::lower_bound(entries_, hash, {}, &Entry::hash);
}

}  // namespace zerbal::jet
