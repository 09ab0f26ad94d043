// The weights of characters in index keys with the general sort order, as tables of tokens that the compiler
// turns into arrays.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace zerbal::jet {

/// What one character adds to a text key.
struct KeyWeight {
  std::uint8_t count = 0;  ///< number of weight bytes, 0 to 2
  std::uint8_t bytes[2] = {0, 0};
  std::uint8_t accent = 0;   ///< 0 = none
  std::uint8_t hidden = 0;   ///< 2000 format: code of a character without weight; 0 = none
  std::uint8_t counted = 0;  ///< 1997 format: how many of the weights count for the positions of accents
};

/// A character above the table's range.
struct SparseKeyWeight {
  char16_t character = 0;
  KeyWeight weight;
};

namespace key_tables {

// Sixteen characters per line. "4A" or "2B02": weights; "4A.0F": weight and accent; "h82": hidden code;
// "-": nothing; "60*": one counted weight; "7676**": two.

// 2000 format, U+0000 to U+017F.
inline constexpr std::string_view kJet4Tokens =
    "- h03 h04 h05 h06 h07 h08 h09 h0A 0803 0804 0805 0806 0807 h0B h0C "
    "h0D h0E h0F h10 h11 h12 h13 h14 h15 h16 h17 h18 h19 h1A h1B h1C "
    "07 09 0A 0C 0E 10 12 h80 14 16 18 2C 1A h82 1C 1E "
    "36 38 3A 3C 3E 40 42 44 46 48 20 22 2E 30 32 24 "
    "26 4A 4C 4D 4F 51 53 55 57 59 5B 5C 5E 60 62 64 "
    "66 68 69 6B 6D 6F 71 73 75 76 78 27 29 2A 2B02 2B03 "
    "2B07 4A 4C 4D 4F 51 53 55 57 59 5B 5C 5E 60 62 64 "
    "66 68 69 6B 6D 6F 71 73 75 76 78 2B09 2B0B 2B0D 2B0F h1D "
    "h1E h1F h20 h21 h22 h23 h24 h25 h26 h27 h28 h29 h2A h2B h2C h2D "
    "h2E h2F h30 h31 h32 h33 h34 h35 h36 h37 h38 h39 h3A h3B h3C h3D "
    "0802 2B10 34A6 34A7 34A8 34A9 2B11 34AA 2B12 34AB 4A.03 3305 34AC h83 34AD 2B13 "
    "34AE 3304 3A 3C 2B14 34AF 34B0 34B1 2B15 38 64.03 3307 3712 3716 371A 2B16 "
    "4A.0F 4A.0E 4A.12 4A.19 4A.13 4A.1A 4A51 4D.1C 51.0F 51.0E 51.12 51.13 59.0F 59.0E 59.12 59.13 "
    "4F.68 62.19 64.0F 64.0E 64.12 64.19 64.13 3309 64.21 6F.0F 6F.0E 6F.12 6F.13 76.0E 6D57 6B6B "
    "4A.0F 4A.0E 4A.12 4A.19 4A.13 4A.1A 4A51 4D.1C 51.0F 51.0E 51.12 51.13 59.0F 59.0E 59.12 59.13 "
    "4F.68 62.19 64.0F 64.0E 64.12 64.19 64.13 330A 64.21 6F.0F 6F.0E 6F.12 6F.13 76.0E 6D57 76.13 "
    "4A.17 4A.17 4A.15 4A.15 4A.1B 4A.1B 4D.0E 4D.0E 4D.12 4D.12 4D.10 4D.10 4D.14 4D.14 4F.14 4F.14 "
    "4F.1E 4F.1E 51.17 51.17 51.15 51.15 51.10 51.10 51.1B 51.1B 51.14 51.14 55.12 55.12 55.15 55.15 "
    "55.10 55.10 55.1C 55.1C 57.12 57.12 57.1E 57.1E 59.19 59.19 59.17 59.17 59.15 59.15 59.1B 59.1B "
    "59.10 59.03 595B 595B 5B.12 5B.12 5C.1C 5C.1C 5C.03 5E.0E 5E.0E 5E.1C 5E.1C 5E.14 5E.14 5E.11 "
    "5E.11 5E.1F 5E.1F 62.0E 62.0E 62.1C 62.1C 62.14 62.14 62.48 6305 6305 64.17 64.17 64.15 64.15 "
    "64.1D 64.1D 6451 6451 69.0E 69.0E 69.1C 69.1C 69.14 69.14 6B.0E 6B.0E 6B.12 6B.12 6B.1C 6B.1C "
    "6B.14 6B.14 6D.1C 6D.1C 6D.14 6D.14 6E06.1E 6E06.1E 6F.19 6F.19 6F.17 6F.17 6F.15 6F.15 6F.1A 6F.1A "
    "6F.1D 6F.1D 6F.1B 6F.1B 73.12 73.12 76.12 76.12 76.13 78.0E 78.0E 78.10 78.10 78.14 78.14 6C06 ";

// 2000 format, the remaining characters of code page 1252.
inline constexpr std::string_view kJet4SparseTokens =
    "0192=53.7B 02C6=2B02.03 02DC=2B1C 2013=h89 2014=h8B 2018=2B37 2019=2B38 201A=2B39 201C=2B3B 201D=2B3C "
    "201E=2B3D 2020=34B3 2021=34B4 2022=34B5 2026=34B9 2030=34BA 2039=2B46 203A=2B47 20AC=35A1 2122=6E04 ";

// 1997 format, bytes of code page 1252.
inline constexpr std::string_view kJet3Tokens =
    "10 10 10 10 10 10 10 10 10 11 10 10 10 10 10 10 "
    "10 10 10 10 10 10 10 10 10 10 10 10 10 10 10 10 "
    "11 12 13 14 15 16 17 18 19 1A 1B 1C 1D 1E 1F 20 "
    "56 57 58 59 5A 5B 5C 5D 5E 5F 21 22 23 24 25 26 "
    "27 60* 61 62* 64 66* 67 68 69 6A* 6B 6C 6D 6F 70* 72* "
    "73 74 75 76* 77 78* 7A 7B 7C 7D* 7E 28 29 2A 2B 2C "
    "2D 60* 61 62* 64 66* 67 68 69 6A* 6B 6C 6D 6F 70* 72* "
    "73 74 75 76* 77 78* 7A 7B 7C 7D* 7E 2E 2F 30 31 10 "
    "10 10 18 32 13 33 34 35 36 37 76.A 18 7266** 10 10 10 "
    "10 18 18 13 13 38 1E 1E 39 3A 76.A 18 7266** 10 10 7D.6 "
    "11 3B 3C 3D 3E 3F 40 41 42 43 44 13 45 1E 46 47 "
    "48 49 58 59 4A 4B 4C 4D 4E 57 4F 13 50 51 52 53 "
    "60.3 60.4 60.5 60.7 60.6 60.8 6066** 62.9 66.3 66.4 66.5 66.6 6A.3 6A.4 6A.5 6A.6 "
    "65 70.7 72.3 72.4 72.5 72.7 72.6 54 81 78.3 78.4 78.5 78.6 7D.4 7F 7676** "
    "60.3 60.4 60.5 60.7 60.6 60.8 6066** 62.9 66.3 66.4 66.5 66.6 6A.3 6A.4 6A.5 6A.6 "
    "65 70.7 72.3 72.4 72.5 72.7 72.6 55 81 78.3 78.4 78.5 78.6 7D.4 7F 7D.6 ";

constexpr unsigned Hex(std::string_view digits) {
  unsigned value = 0;
  for (char digit : digits)
    value = value * 16 + static_cast<unsigned>(digit <= '9' ? digit - '0' : digit - 'A' + 10);
  return value;
}

/// Removes the next token from `rest` and returns it.
constexpr std::string_view NextToken(std::string_view& rest) {
  const std::size_t end = rest.find(' ');
  const std::string_view token = rest.substr(0, end);
  rest.remove_prefix(end + 1);
  return token;
}

constexpr KeyWeight ParseWeight(std::string_view token) {
  KeyWeight weight;
  if (token == "-")
    return weight;
  if (token[0] == 'h') {
    weight.hidden = static_cast<std::uint8_t>(Hex(token.substr(1)));
    return weight;
  }
  while (token.back() == '*') {
    ++weight.counted;
    token.remove_suffix(1);
  }
  if (const std::size_t dot = token.find('.'); dot != token.npos) {
    weight.accent = static_cast<std::uint8_t>(Hex(token.substr(dot + 1)));
    token = token.substr(0, dot);
  }
  for (; !token.empty(); token.remove_prefix(2))
    weight.bytes[weight.count++] = static_cast<std::uint8_t>(Hex(token.substr(0, 2)));
  return weight;
}

template <std::size_t kSize>
constexpr std::array<KeyWeight, kSize> ParseTable(std::string_view tokens) {
  std::array<KeyWeight, kSize> table;
  for (KeyWeight& weight : table)
    weight = ParseWeight(NextToken(tokens));
  return table;
}

template <std::size_t kSize>
constexpr std::array<SparseKeyWeight, kSize> ParseSparseTable(std::string_view tokens) {
  std::array<SparseKeyWeight, kSize> table;
  for (SparseKeyWeight& entry : table) {
    const std::string_view token = NextToken(tokens);
    entry.character = static_cast<char16_t>(Hex(token.substr(0, 4)));
    entry.weight = ParseWeight(token.substr(5));
  }
  return table;
}

}  // namespace key_tables

inline constexpr auto kJet4Weights = key_tables::ParseTable<0x180>(key_tables::kJet4Tokens);
/// Ascending by character.
inline constexpr auto kJet4SparseWeights = key_tables::ParseSparseTable<20>(key_tables::kJet4SparseTokens);
inline constexpr auto kJet3Weights = key_tables::ParseTable<0x100>(key_tables::kJet3Tokens);

}  // namespace zerbal::jet
