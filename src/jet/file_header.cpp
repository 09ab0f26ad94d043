#include "jet/file_header.h"

#include <array>
#include <cstring>

namespace zerbal::jet {
namespace {

constexpr std::size_t kMaskStart = 0x18;

// The header from byte 0x18 on is hidden behind these bytes, the same in every file.
constexpr std::array<std::uint8_t, 128> kMask = {
    0xB5, 0x6F, 0x03, 0x62, 0x61, 0x08, 0xC2, 0x55, 0xEB, 0xA9, 0x67, 0x72, 0x43, 0x3F, 0x00, 0x9C,
    0x7A, 0x9F, 0x90, 0xFF, 0x80, 0x9A, 0x31, 0xC5, 0x79, 0xBA, 0xED, 0x30, 0xBC, 0xDF, 0xCC, 0x9D,
    0x63, 0xD9, 0xE4, 0xC3, 0x7B, 0x42, 0xFB, 0x8A, 0xBC, 0x4E, 0x86, 0xFB, 0xEC, 0x37, 0x5D, 0x44,
    0x9C, 0xFA, 0xC6, 0x5E, 0x28, 0xE6, 0x13, 0xB6, 0x8A, 0x60, 0x54, 0x94, 0x7B, 0x36, 0xF5, 0x72,
    0xDF, 0xB1, 0x77, 0xF4, 0x13, 0x43, 0xCF, 0xAF, 0xB1, 0x33, 0x34, 0x61, 0x79, 0x5B, 0x92, 0xB5,
    0x7C, 0x2A, 0x05, 0xF1, 0x7C, 0x99, 0x01, 0x1B, 0x98, 0xFD, 0x12, 0x4F, 0x4A, 0x94, 0x6C, 0x3E,
    0x60, 0x26, 0x5F, 0x95, 0xF8, 0xD0, 0x89, 0x24, 0x85, 0x67, 0xC6, 0x1F, 0x27, 0x44, 0xD2, 0xEE,
    0xCF, 0x65, 0xED, 0xFF, 0x07, 0xC7, 0x46, 0xA1, 0x78, 0x16, 0x0C, 0xED, 0xE9, 0x2D, 0x62, 0xD4};

using PlainHeader = std::array<std::uint8_t, kMaskStart + kMask.size()>;

PlainHeader Unmasked(ByteView file) {
  PlainHeader plain = {};
  std::memcpy(plain.data(), file.Sub(0, plain.size()).Data(), plain.size());
  for (std::size_t i = 0; i < kMask.size(); ++i)
    plain[kMaskStart + i] ^= kMask[i];
  return plain;
}

Format FormatOf(ByteView file) {
  constexpr std::string_view kStart("\0\1\0\0", 4);
  constexpr std::string_view kOurs("Standard Jet DB\0", 16);
  constexpr std::string_view kNewer("Standard ACE DB\0", 16);
  if (file.Sub(0, 4).Chars() != kStart)
    throw Damage("this is not a database file");
  const std::string_view name = file.Sub(4, 16).Chars();
  const std::uint8_t version = file.U8(0x14);
  if (name == kNewer || (name == kOurs && version > 1))
    throw Damage("the file has a newer format than those of 1997 to 2003");
  if (name != kOurs)
    throw Damage("this is not a database file");
  return version == 0 ? Format::kJet3 : Format::kJet4;
}

}  // namespace

FileHeader ReadFileHeader(ByteView file) {
  constexpr std::size_t kShortest = 4096;  // two pages of the smaller format
  if (file.Empty())
    throw Damage("the file is empty");
  if (file.Size() < kMaskStart)
    throw Damage("this is not a database file");
  FileHeader header;
  header.format = FormatOf(file);
  if (file.Size() < kShortest)
    throw Damage("the file is cut short");
  const PlainHeader bytes = Unmasked(file);
  const ByteView plain(bytes.data(), bytes.size());
  if (plain.U32(0x3E) != 0)
    throw Damage("the file is encrypted");
  header.codePage = plain.U16(0x3C);
  if (header.codePage == 0)
    header.codePage = 1252;
  if (header.format == Format::kJet3)
    header.sortOrder.language = plain.U16(0x3A);
  else
    header.sortOrder = {plain.U16(0x6E), plain.U8(0x71)};
  return header;
}

}  // namespace zerbal::jet
