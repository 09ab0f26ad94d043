#include "jet/write/output_file.h"

#include <string_view>

#include "base/assert.h"
#include "jet/write/refusal.h"

namespace zerbal::jet {
namespace {

constexpr std::uint32_t kMaxPages = kMaxFileSize / kPageSize;

constexpr std::uint64_t PositionOf(std::uint32_t page) {
  return std::uint64_t{page} * kPageSize;
}

}  // namespace

std::uint32_t OutputFile::Allocate() {
  if (pageCount_ >= kMaxPages)
    throw Refusal("the database would be larger than 2 GB");
  lastWritten_ = false;
  return pageCount_++;
}

void OutputFile::Write(std::uint32_t page, const PageBytes& bytes) {
  ZERBAL_ASSERT(page < pageCount_);
  file_.WriteAt(PositionOf(page), {reinterpret_cast<const char*>(bytes.bytes.data()), bytes.bytes.size()});
  lastWritten_ = lastWritten_ || page + 1 == pageCount_;
}

void OutputFile::Commit() {
  if (!lastWritten_)
    file_.WriteAt(PositionOf(pageCount_) - 1, std::string_view("\0", 1));
  file_.Commit();
}

}  // namespace zerbal::jet
