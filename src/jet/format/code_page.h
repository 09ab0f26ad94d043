// Code pages, in which the 1997 format stores texts.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

#include "base/utf8.h"
#include "jet/format/bytes.h"

namespace zerbal::jet {

inline constexpr std::uint16_t kWesternCodePage = 1252;
using base::kReplacement;

class CodePage {
 public:
  /// The code page with that number; 1252 when the system does not know it.
  static std::shared_ptr<const CodePage> OfNumber(std::uint16_t number);
  /// Most files have this one. Its five undefined bytes are the control characters of the same number.
  static const CodePage& Western();

  /// Decodes a stored text. Calls `sink` with each character until it returns false; returns whether it never
  /// did.
  template <class Sink>
  bool Decode(ByteView bytes, Sink&& sink) const {
    for (std::size_t i = 0; i < bytes.Size(); ++i) {
      char32_t c = singles_[bytes.Data()[i]];
      if (IsLead(c)) {
        ++i;
        c = i < bytes.Size() ? trails_[c - kLead][bytes.Data()[i]] : kReplacement;
      }
      if (!sink(c))
        return false;
    }
    return true;
  }

 private:
  using Characters = std::array<char16_t, 256>;
  /// For a byte that forms a character with the next one: this plus the position in trails_.
  static constexpr char16_t kLead = 0xD800;

  CodePage();
  /// Loads the code page from the C library; false when it does not know the number.
  bool Load(std::uint16_t number);
  static bool IsLead(char32_t c) { return c >= kLead && c < kLead + 256U; }

  Characters singles_;
  std::vector<Characters> trails_;
};

}  // namespace zerbal::jet
