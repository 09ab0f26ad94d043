#include "jet/read/page_cipher.h"

#include <span>
#include <utility>
#include <vector>

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

}  // namespace zerbal::jet
