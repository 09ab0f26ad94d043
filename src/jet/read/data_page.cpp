#include "jet/read/data_page.h"

#include <string>

namespace zerbal::jet {

DataPage::DataPage(const FilePages& pages, std::uint32_t number)
    : page_(pages.Page(number, PageKind::kData)) {
  const DataPageLayout layout = DataPageLayoutOf(pages.FileFormat());
  rowCount_ = LoadU16(page_.Data() + layout.rowCount);
  directory_ = layout.directory;
  if (DirectoryEnd() > page_.Size())
    throw Damage("data page " + std::to_string(number) + " claims more rows than it can hold");
}

void DataPage::ThrowNoRow() {
  throw Damage("a pointer names a row that its page does not have");
}

void DataPage::ThrowOffPage() {
  throw Damage("a row does not lie within its page");
}

ByteView FollowPointer(const FilePages& pages, ByteView pointer, std::uint32_t owner) {
  constexpr int kMostSteps = 16;
  for (int step = 0; step < kMostSteps; ++step) {
    if (pointer.Size() < 4)
      throw Damage("a moved row does not say where it went");
    const RecordPointer target = RecordPointer::FromU32(pointer.U32(0));
    const DataPage page(pages, target.page);
    if (page.Owner() != owner)
      throw Damage("a row has moved to a page of another table");
    const ByteView bytes = page.Row(target.row);
    if ((page.Flags(target.row) & kRowMoved) == 0)
      return bytes;
    pointer = bytes;
  }
  throw Damage("a row has moved in a circle");
}

ByteView RowAt(const FilePages& pages, RecordPointer pointer) {
  return DataPage(pages, pointer.page).Row(pointer.row);
}

}  // namespace zerbal::jet
