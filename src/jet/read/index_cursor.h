// A position in an index: moves along the leaf pages of its tree and searches the tree.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "base/assert.h"
#include "jet/read/data_page.h"
#include "jet/read/file_pages.h"
#include "jet/read/index_page.h"

namespace zerbal::jet {

class IndexCursor {
 public:
  /// A position to return to with GoTo.
  struct Place {
    std::uint32_t page = 0;  ///< 0 = not on an entry
    std::uint32_t entry = 0;
  };

  IndexCursor() = default;
  /// Not on an entry. `owner` is the definition page of the table.
  IndexCursor(const FilePages& pages, std::uint32_t rootPage, std::uint32_t owner);

  // Each returns whether there is such an entry; otherwise the cursor stays where it is. MoveNext and
  // MovePrevious start from an entry. All throw Damage.
  bool MoveFirst();
  bool MoveNext() {
    ZERBAL_ASSERT(onEntry_);
    if (entryEnd_ == page_.End())
      return MoveAcross(true);
    StandOn(entryEnd_);
    return true;
  }
  bool MovePrevious();
  /// To the first entry that is not less than `key`.
  bool MoveTo(std::span<const std::uint8_t> key);

  // Of the entry that the cursor is on.
  bool StartsWith(std::span<const std::uint8_t> key) const {
    ZERBAL_ASSERT(onEntry_);
    return page_.Entry(entry_, entryEnd_).StartsWith(key);
  }
  RecordPointer Row() const {
    ZERBAL_ASSERT(onEntry_);
    return RecordPointer::FromU32(page_.Entry(entry_, entryEnd_).Tail());
  }

  Place Here() const { return {onEntry_ ? page_.Number() : 0, entry_}; }
  /// Returns to the place of an entry. Throws Damage when the entry is gone because the file has changed.
  void GoTo(const Place& place);

 private:
  IndexPage Load(std::uint32_t number);
  IndexPage Child(const IndexPage& node, unsigned entry);
  template <class Choose>
  IndexPage Descend(Choose&& choose);
  IndexPage FirstLeaf();
  IndexPage LastLeaf();
  bool MoveAcross(bool forward);
  bool Neighbour(IndexPage& leaf, bool forward);
  void CheckEnd(const IndexPage& end, bool forward);
  void StandOn(const IndexPage& page, unsigned entry);
  void StandOn(unsigned entry) {
    entry_ = entry;
    entryEnd_ = page_.After(entry);
  }

  const FilePages* pages_ = nullptr;
  std::uint32_t rootPage_ = 0;
  std::uint32_t owner_ = 0;
  bool onEntry_ = false;
  IndexPage page_;
  unsigned entry_ = 0;
  unsigned entryEnd_ = 0;      ///< where the next entry begins
  std::vector<bool> checked_;  ///< by page number: its entries have been checked
};

}  // namespace zerbal::jet
