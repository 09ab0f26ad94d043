// The records of an SSIM Chapter 7 schedule data set: 200 columns each, counted from 1.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

#include "zerbal-pack/calendar.h"

namespace zerbal::pack {

/// A record in upper case, with blanks for tabs and for the columns after its end.
class SsimRecord {
 public:
  static constexpr std::size_t kColumns = 200;

  void Assign(std::string_view line);

  char Type() const { return columns_[0]; }
  char Column(std::size_t column) const { return columns_[column - 1]; }
  std::string_view Columns(std::size_t first, std::size_t last) const {
    return std::string_view(columns_.data(), kColumns).substr(first - 1, last - first + 1);
  }
  /// The same without the blanks at both ends.
  std::string_view Text(std::size_t first, std::size_t last) const;

  std::size_t LastColumn() const {
    return lastColumn_;
  }                                                   ///< the last one that is not blank; may be above 200
  std::size_t FirstTab() const { return firstTab_; }  ///< column, 0 when there is none

 private:
  std::array<char, kColumns> columns_{};
  std::size_t lastColumn_ = 0;
  std::size_t firstTab_ = 0;
};

/// Empty lines and lines of zeros fill blocks of a tape; they are no records.
bool IsPadding(std::string_view line);

struct SsimDate {
  bool open = false;  ///< 00XXX00, an end that is not determined
  Day day = 0;
};

/// "28MAR27". Years from 70 on are in the last century.
std::optional<SsimDate> ParseSsimDate(std::string_view text);

/// Digits with blanks in front; nullopt for anything else and for blanks alone.
std::optional<int> ParseSsimNumber(std::string_view text);

}  // namespace zerbal::pack
