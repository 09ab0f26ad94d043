#include "zerbal-pack/line_reader.h"

#include <algorithm>
#include <cstring>
#include <fstream>
#include <utility>

namespace zerbal::pack {

namespace {

constexpr std::size_t kBufferSize = 1U << 16U;
constexpr std::string_view kFileMark = "\xEF\xBB\xBF";

std::string_view WithoutReturn(std::string_view line) {
  if (line.ends_with('\r'))
    line.remove_suffix(1);
  return line;
}

/// nullptr when the file cannot be read.
std::unique_ptr<std::istream> OpenFileStream(const std::filesystem::path& file) {
  auto stream = std::make_unique<std::ifstream>(file, std::ios::binary);
  std::error_code failed;
  return stream->is_open() && !std::filesystem::is_directory(file, failed) ? std::move(stream) : nullptr;
}

}  // namespace

LineReader::LineReader(const std::filesystem::path& file) : LineReader(OpenFileStream(file)) {}

LineReader::LineReader(std::unique_ptr<std::istream> stream)
    : stream_(std::move(stream)), buffer_(kBufferSize, '\0'), good_(stream_ != nullptr) {
  if (Fill() && std::string_view(buffer_.data(), end_).starts_with(kFileMark))
    begin_ = kFileMark.size();
}

bool LineReader::Fill() {
  if (!good_ || stream_->eof())
    return false;
  stream_->read(buffer_.data(), static_cast<std::streamsize>(buffer_.size()));
  begin_ = 0;
  end_ = static_cast<std::size_t>(stream_->gcount());
  good_ = !stream_->bad();
  return end_ > 0;
}

bool LineReader::Next(std::string_view& line) {
  rest_.clear();
  bool any = false;
  while (begin_ < end_ || Fill()) {
    any = true;
    const char* from = buffer_.data() + begin_;
    const void* found = std::memchr(from, '\n', end_ - begin_);
    const std::size_t length =
        found ? static_cast<std::size_t>(static_cast<const char*>(found) - from) : end_ - begin_;
    begin_ += length + (found ? 1 : 0);
    if (found && rest_.empty()) {
      line = WithoutReturn({from, std::min(length, kLongestLine)});
      ++number_;
      return true;
    }
    rest_.append(from, std::min(length, kLongestLine - rest_.size()));
    if (found)
      break;
  }
  if (!any)
    return false;
  line = WithoutReturn(rest_);
  ++number_;
  return true;
}

}  // namespace zerbal::pack
