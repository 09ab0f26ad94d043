#include "jet/field.h"

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "jet/error.h"
#include "jet/format/text.h"
#include "jet/read/field_value.h"
#include "jet/read/number_text.h"
#include "jet/read/table_cursor.h"
#include "jet/schema.h"

namespace zerbal::jet {
namespace {

/// Columns whose values may be infinite; in a text infinity stands for a number that is too large.
bool IsReal(ColumnType type) {
  return type == ColumnType::kSingle || type == ColumnType::kDouble;
}

[[noreturn]] void Refuse(const TableCursor& cursor, int column, std::string_view what) {
  throw ConversionError(cursor.SharedDatabase()->fileName, cursor.Table().name,
                        "field '" + cursor.Column(column).name + "' " + std::string(what));
}

[[noreturn]] void RefuseRange(const TableCursor& cursor, int column) {
  Refuse(cursor, column, "holds a number out of range");
}

/// The number in a text field, blanks around it ignored.
std::optional<Number> NumberInText(const TableCursor& cursor, int column) {
  std::string text;
  cursor.AppendText(column, text);
  const std::size_t first = text.find_first_not_of(' ');
  if (first == std::string::npos)
    return std::nullopt;
  return ParseNumber(std::string_view(text).substr(first, text.find_last_not_of(' ') - first + 1));
}

Number ReadNumber(const TableCursor& cursor, int column) {
  const ColumnInfo& info = cursor.Column(column);
  if (info.type == ColumnType::kBoolean)
    return Number::Of(std::int64_t{cursor.Has(column)});
  const std::optional<ByteView> value = cursor.Value(column);
  if (!value)
    Refuse(cursor, column, "is Null");
  const std::optional<Number> number =
      IsTextType(info.type) ? NumberInText(cursor, column) : NumberOf(info, *value);
  if (!number)
    Refuse(cursor, column, "holds no number");
  return *number;
}

/// The value as a whole number of type Whole, rounded to nearest, ties to even.
template <class Whole>
Whole ReadWhole(const TableCursor& cursor, int column) {
  return cursor.Guarded([&] {
    constexpr std::int64_t kLeast = std::numeric_limits<Whole>::min();
    constexpr std::int64_t kMost = std::numeric_limits<Whole>::max();
    const Number number = ReadNumber(cursor, column);
    std::int64_t whole = number.integer;
    if (!number.whole) {
      const double rounded = std::nearbyint(number.real);
      if (!(rounded >= static_cast<double>(kLeast) && rounded <= static_cast<double>(kMost)))
        RefuseRange(cursor, column);
      whole = static_cast<std::int64_t>(rounded);
    }
    if (whole < kLeast || whole > kMost)
      RefuseRange(cursor, column);
    return static_cast<Whole>(whole);
  });
}

}  // namespace

bool Field::IsNull() const {
  return cursor_->Guarded([this] { return cursor_->IsNull(column_); });
}

bool Field::HoldsText() const {
  return IsTextType(Column().type) && !IsNull();
}

std::string Field::AsText() const {
  std::string text;
  AppendText(text);
  return text;
}

void Field::AppendText(std::string& out) const {
  cursor_->Guarded([&] { cursor_->AppendText(column_, out); });
}

bool Field::EqualsText(std::string_view text) const {
  return cursor_->Guarded([&] {
    if (IsTextType(Column().type))
      return cursor_->StoredTextIs(column_, text);
    std::string own;
    cursor_->AppendText(column_, own);
    return !cursor_->IsNull(column_) && own == text;
  });
}

std::uint8_t Field::AsByte() const {
  return ReadWhole<std::uint8_t>(*cursor_, column_);
}
std::int16_t Field::AsInteger() const {
  return ReadWhole<std::int16_t>(*cursor_, column_);
}
std::int32_t Field::AsLong() const {
  return ReadWhole<std::int32_t>(*cursor_, column_);
}

float Field::AsSingle() const {
  return cursor_->Guarded([this] {
    // The positions of airports: read by themselves, because a redraw reads all of them.
    if (Column().type == ColumnType::kSingle) {
      if (const std::optional<ByteView> stored = cursor_->Value(column_))
        return SingleOf(*stored);
    }
    const double value = ReadNumber(*cursor_, column_).real;
    const auto single = static_cast<float>(value);
    if (std::isinf(single) && (std::isfinite(value) || !IsReal(Column().type)))
      RefuseRange(*cursor_, column_);
    return single;
  });
}

double Field::AsDouble() const {
  return cursor_->Guarded([this] {
    const double value = ReadNumber(*cursor_, column_).real;
    if (std::isinf(value) && !IsReal(Column().type))
      RefuseRange(*cursor_, column_);
    return value;
  });
}

bool Field::AsBoolean() const {
  return cursor_->Guarded([this] { return ReadNumber(*cursor_, column_).real != 0; });
}

std::vector<std::uint8_t> Field::AsBytes() const {
  return cursor_->Guarded([this] {
    std::vector<std::uint8_t> copy;
    if (Column().type == ColumnType::kBoolean)
      return copy;
    if (const std::optional<ByteView> value = cursor_->Value(column_)) {
      cursor_->SharedDatabase()->WithBytes(Column().type, *value, [&copy](ByteView bytes) {
        copy.assign(bytes.Data(), bytes.Data() + bytes.Size());
      });
    }
    return copy;
  });
}

const ColumnInfo& Field::Column() const {
  return cursor_->Column(column_);
}

}  // namespace zerbal::jet
