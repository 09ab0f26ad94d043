#include "jet/read/file_header.h"

#include <array>
#include <cstring>
#include <string_view>

#include "jet/format/code_page.h"

namespace zerbal::jet {
namespace {

using PlainHeader = std::array<std::uint8_t, kHeaderMaskStart + kHeaderMask.size()>;

PlainHeader Unmasked(ByteView file) {
  PlainHeader plain = {};
  std::memcpy(plain.data(), file.Sub(0, plain.size()).Data(), plain.size());
  for (std::size_t i = 0; i < kHeaderMask.size(); ++i)
    plain[kHeaderMaskStart + i] ^= kHeaderMask[i];
  return plain;
}

Format FormatOf(ByteView file) {
  constexpr std::string_view kStart("\0\1\0\0", 4);
  if (file.Sub(0, kStart.size()).Chars() != kStart)
    throw Damage("this is not a database file");
  const std::string_view name = file.Sub(kSignatureAt, kSignature.size()).Chars();
  const std::uint8_t version = file.U8(kVersionAt);
  if (name == kNewerSignature || (name == kSignature && version > 1))
    throw Damage("the file has a newer format than those of 1997 to 2003");
  if (name != kSignature)
    throw Damage("this is not a database file");
  return version == 0 ? Format::kJet3 : Format::kJet4;
}

}  // namespace

FileHeader ReadFileHeader(ByteView file) {
  constexpr std::size_t kShortest = 2 * PageSizeOf(Format::kJet3);
  if (file.Empty())
    throw Damage("the file is empty");
  if (file.Size() < kHeaderMaskStart)
    throw Damage("this is not a database file");
  FileHeader header;
  header.format = FormatOf(file);
  if (file.Size() < kShortest)
    throw Damage("the file is cut short");
  const PlainHeader bytes = Unmasked(file);
  const ByteView plain(bytes.data(), bytes.size());
  header.databaseKey = plain.U32(kDatabaseKeyAt);
  header.codePage = plain.U16(kCodePageAt);
  if (header.codePage == 0)
    header.codePage = kWesternCodePage;
  if (header.format == Format::kJet3)
    header.sortOrder.language = plain.U16(kJet3SortLanguageAt);
  else
    header.sortOrder = {plain.U16(kSortLanguageAt), plain.U8(kSortVersionAt)};
  return header;
}

}  // namespace zerbal::jet
