// A place in the order of one index: walks the leaf pages of its tree and searches them.
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
  /// A place that can be kept and gone back to.
  struct Place {
    std::uint32_t page = 0;  ///< 0 = on no entry
    std::uint32_t entry = 0;
  };

  IndexCursor() = default;
  /// On no entry. `owner` is the definition page of the table.
  IndexCursor(const FilePages& pages, std::uint32_t rootPage, std::uint32_t owner);

  // Each says whether there is such an entry; when there is none the cursor stays where it is. MoveNext and
  // MovePrevious need an entry to start from.
  bool MoveFirst();
  bool MoveNext();
  bool MovePrevious();
  /// The first entry that is not below `key`.
  bool MoveTo(std::span<const std::uint8_t> key);

  // Of the entry that the cursor is on.
  bool StartsWith(std::span<const std::uint8_t> key) const {
    ZERBAL_ASSERT(onEntry_);
    return page_.Entry(entry_).StartsWith(key);
  }
  RecordPointer Row() const;

  Place Here() const { return {onEntry_ ? page_.Number() : 0, entry_}; }
  /// Goes back to the place of an entry. Throws Damage when the file has changed and there is none.
  void GoTo(const Place& place);

 private:
  IndexPage Load(std::uint32_t number);
  IndexPage Child(const IndexPage& node, unsigned entry);
  IndexPage FirstLeaf();
  IndexPage LastLeaf();
  IndexPage LeafFor(std::span<const std::uint8_t> key);
  bool Neighbour(IndexPage& leaf, bool forward);
  void CheckEnd(const IndexPage& end, bool forward);
  void StandOn(const IndexPage& page, unsigned entry);

  const FilePages* pages_ = nullptr;
  std::uint32_t rootPage_ = 0;
  std::uint32_t owner_ = 0;
  bool onEntry_ = false;
  IndexPage page_;
  unsigned entry_ = 0;
  std::vector<bool> checked_;  ///< pages whose entries have been looked at
};

}  // namespace zerbal::jet
