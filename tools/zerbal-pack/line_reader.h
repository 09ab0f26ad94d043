// Reads a text file line by line without keeping it in memory.
#pragma once

#include <cstddef>
#include <filesystem>
#include <istream>
#include <memory>
#include <string>
#include <string_view>

namespace zerbal::pack {

/// Lines end with LF or CR LF; the last one need not. A byte order mark (UTF-8) at the start is skipped.
class LineReader {
 public:
  /// Bytes of a line beyond this number are left out.
  static constexpr std::size_t kLongestLine = 4096;

  explicit LineReader(const std::filesystem::path& file);
  explicit LineReader(std::unique_ptr<std::istream> stream);

  /// False when the file cannot be read, or could not be read to its end.
  bool Good() const { return good_; }

  /// The next line without its end, valid until the next call; false at the end.
  bool Next(std::string_view& line);
  /// Of the line that was read last, from 1.
  std::size_t Number() const { return number_; }

 private:
  bool Fill();

  std::unique_ptr<std::istream> stream_;
  std::string buffer_;
  std::size_t begin_ = 0;  // of what is not read yet
  std::size_t end_ = 0;
  std::size_t number_ = 0;
  std::string rest_;  // of a line that does not end in the buffer
  bool good_ = true;
};

}  // namespace zerbal::pack
