#include "jet/read/file_header.h"

#include <array>
#include <cstring>
#include <span>
#include <string_view>
#include <utility>
#include <vector>

#include "jet/format/code_page.h"

namespace zerbal::jet {

KeyStream::KeyStream(const std::array<std::uint8_t, 4>& key) {
  for (std::size_t i = 0; i < state_.size(); ++i)
    state_[i] = static_cast<std::uint8_t>(i);
  std::uint8_t j = 0;
  for (std::size_t i = 0; i < state_.size(); ++i) {
    j = static_cast<std::uint8_t>(j + state_[i] + key[i % key.size()]);
    std::swap(state_[i], state_[j]);
  }
}

std::uint8_t KeyStream::Next() {
  ++i_;
  j_ = static_cast<std::uint8_t>(j_ + state_[i_]);
  std::swap(state_[i_], state_[j_]);
  return state_[static_cast<std::uint8_t>(state_[i_] + state_[j_])];
}

FileImage Decoded(const FileImage& image, std::size_t pageSize, std::uint32_t databaseKey) {
  const std::uint8_t* const bytes = image.bytes.Data();
  std::vector<std::uint8_t> copy(bytes, bytes + image.bytes.Size());
  const std::size_t pageCount = copy.size() / pageSize;
  for (std::size_t page = 1; page < pageCount; ++page) {
    const std::uint32_t key = databaseKey ^ static_cast<std::uint32_t>(page);
    KeyStream stream({static_cast<std::uint8_t>(key & 0xFF), static_cast<std::uint8_t>(key >> 8 & 0xFF),
                      static_cast<std::uint8_t>(key >> 16 & 0xFF), static_cast<std::uint8_t>(key >> 24)});
    for (std::uint8_t& byte : std::span(copy).subspan(page * pageSize, pageSize))
      byte ^= stream.Next();
  }
  FileImage decoded = ImageOf(std::move(copy));
  decoded.shrunk = image.shrunk;  // the file may be truncated while it is copied
  return decoded;
}

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
