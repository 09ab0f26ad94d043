// The file as a sequence of pages. Every page number in a file is checked by FilePages::Page.
#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <memory>

#include "jet/format/bytes.h"
#include "jet/format/page_layout.h"
#include "jet/read/file_header.h"
#include "jet/read/file_image.h"

namespace zerbal::jet {

class CodePage;

class FilePages {
 public:
  /// Reads the header and decodes an encoded file. Throws Damage.
  explicit FilePages(FileImage image);

  const FileHeader& Header() const { return header_; }
  Format FileFormat() const { return header_.format; }
  bool IsJet3() const { return header_.format == Format::kJet3; }
  /// The code page of all texts in a 1997-format file; nullptr for the 2000 format.
  const CodePage* TextCodePage() const { return codePage_.get(); }
  std::size_t PageSize() const { return pageSize_; }
  std::uint32_t PageCount() const { return pageCount_; }  ///< complete pages, the header included
  std::size_t FileSize() const { return image_.bytes.Size(); }

  /// Throws Damage when there is no such page, and for page 0, which nothing refers to.
  ByteView Page(std::uint32_t number) const {
    if (number == 0 || number >= pageCount_)
      ThrowNoPage(number);
    return {image_.bytes.Data() + std::size_t{number} * pageSize_, pageSize_};
  }

  /// The same; throws Damage also when the page is not of this kind.
  ByteView Page(std::uint32_t number, PageKind kind) const {
    const ByteView page = Page(number);
    if (!IsOfKind(page.Data(), kind))
      ThrowWrongKind(number, kind);
    return page;
  }

  /// Whether the file was truncated while open. What was read since may be zeros.
  bool Shrunk() const { return image_.shrunk->load(std::memory_order_relaxed); }

 private:
  [[noreturn]] void ThrowNoPage(std::uint32_t number) const;
  [[noreturn]] static void ThrowWrongKind(std::uint32_t number, PageKind kind);

  FileImage image_;
  FileHeader header_;
  std::size_t pageSize_;
  std::uint32_t pageCount_;
  std::shared_ptr<const CodePage> codePage_;
};

}  // namespace zerbal::jet
