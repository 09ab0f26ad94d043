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

ByteView DataPage::Row(unsigned row) const {
  if (row >= rowCount_)
    throw Damage("a pointer names a row that its page does not have");
  const std::size_t start = Entry(row) & kRowStartMask;
  const std::size_t end = row == 0 ? page_.Size() : Entry(row - 1) & kRowStartMask;
  if (start < DirectoryEnd() || start > end || end > page_.Size())
    ThrowOffPage();
  return {page_.Data() + start, end - start};
}

void DataPage::ThrowOffPage() {
  throw Damage("a row does not lie within its page");
}

ByteView FollowRow(const FilePages& pages, const DataPage& page, unsigned row, std::uint32_t owner) {
  constexpr int kMostSteps = 16;
  DataPage current = page;
  for (int step = 0; step <= kMostSteps; ++step) {
    const ByteView bytes = current.Row(row);
    if ((current.Flags(row) & kRowMoved) == 0)
      return bytes;
    if (bytes.Size() < 4)
      throw Damage("a moved row does not say where it went");
    const RecordPointer target = RecordPointer::FromU32(bytes.U32(0));
    current = DataPage(pages, target.page);
    row = target.row;
    if (current.Owner() != owner)
      throw Damage("a row has moved to a page of another table");
  }
  throw Damage("a row has moved in a circle");
}

ByteView RowAt(const FilePages& pages, RecordPointer pointer) {
  return DataPage(pages, pointer.page).Row(pointer.row);
}

}  // namespace zerbal::jet
