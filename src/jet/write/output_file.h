// The pages of a database that is being written.
#pragma once

#include <cstdint>
#include <filesystem>

#include "base/file_replacement.h"
#include "jet/write/page_bytes.h"

namespace zerbal::jet {

/// Replaces `target` by the pages that were written to it. Failures are a Refusal when the database grows
/// too large, otherwise a base::FileError.
class OutputFile {
 public:
  explicit OutputFile(const std::filesystem::path& target) : file_(target) {}

  /// The number of a new page; they count up from 0. A page never written is full of zeros.
  std::uint32_t Allocate();
  std::uint32_t PageCount() const { return pageCount_; }
  void Write(std::uint32_t page, const PageBytes& bytes);  ///< an allocated page  ///< an allocated page

  /// Puts the database in the place of `target`.
  void Commit();

 private:
  base::FileReplacement file_;
  std::uint32_t pageCount_ = 0;
  bool lastWritten_ = false;  ///< the last page
};

}  // namespace zerbal::jet
