// The file that a database is written to: temporary until it is complete.
#pragma once

#include <cstdint>
#include <filesystem>

#include "jet/write/page_bytes.h"

namespace zerbal::jet {

/// A temporary file beside `target`, written page by page and put in the target's place by Commit. Removed
/// when destroyed before that. What goes wrong is a Refusal. The one place of the writer that knows the
/// platform is output_file_posix.cpp.
class OutputFile {
 public:
  explicit OutputFile(std::filesystem::path target);
  ~OutputFile();
  OutputFile(const OutputFile&) = delete;
  OutputFile& operator=(const OutputFile&) = delete;

  /// The number of a new page; they count up from 0. A page never written is full of zeros.
  std::uint32_t Allocate();
  std::uint32_t PageCount() const { return pageCount_; }
  void Write(std::uint32_t page, const PageBytes& bytes);  ///< an allocated page

  /// Brings everything to the disk, then to its place.
  void Commit();

 private:
  void Remove() noexcept;

  std::filesystem::path target_;
  std::filesystem::path temporary_;
  int descriptor_ = -1;
  std::uint32_t pageCount_ = 0;
};

}  // namespace zerbal::jet
