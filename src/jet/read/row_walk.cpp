#include "jet/read/row_walk.h"

namespace zerbal::jet {

std::optional<DataPage> TablePage(const FilePages& pages, std::uint32_t number, std::uint32_t owner) {
  if (number == 0 || number >= pages.PageCount())
    return std::nullopt;
  const std::uint8_t* head = pages.Page(number).Data();
  if (!IsOfKind(head, PageKind::kData) || LoadU32(head + kOwnerAt) != owner)
    return std::nullopt;
  return DataPage(pages, number);
}

RowWalk::RowWalk(const FilePages& pages, const TableDefinition& table)
    : pages_(&pages), owner_(table.page), owned_(pages, table.ownedPages) {}

/// Goes to the first (last) row on page `number` or a page after (before) it.
bool RowWalk::Find(std::uint32_t number, bool forward) {
  for (; number != 0; number = forward ? owned_.Next(number) : owned_.Previous(number)) {
    const std::optional<DataPage> page = TablePage(*pages_, number, owner_);
    const unsigned count = page ? page->RowCount() : 0;
    for (unsigned i = 0; i < count; ++i) {
      const unsigned row = forward ? i : count - 1 - i;
      if ((page->Flags(row) & kRowHidden) != 0)
        continue;
      number_ = number;
      page_ = *page;
      row_ = row;
      return true;
    }
  }
  return false;
}

bool RowWalk::Step(bool forward) {
  for (unsigned row = row_; forward ? ++row < page_.RowCount() : row-- > 0;) {
    if (IsVisible(row)) {
      row_ = row;
      return true;
    }
  }
  return Find(forward ? owned_.Next(number_) : owned_.Previous(number_), forward);
}

}  // namespace zerbal::jet
