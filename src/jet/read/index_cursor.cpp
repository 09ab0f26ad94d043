#include "jet/read/index_cursor.h"

namespace zerbal::jet {
namespace {

constexpr int kMaxDepth = 16;  // levels; three hold two million rows

[[noreturn]] void ThrowCircle() {
  throw Damage("the pages of an index form a circle");
}

}  // namespace

IndexCursor::IndexCursor(const FilePages& pages, std::uint32_t rootPage, std::uint32_t owner)
    : pages_(&pages), rootPage_(rootPage), owner_(owner), checked_(pages.PageCount()) {}

IndexPage IndexCursor::Load(std::uint32_t number) {
  const IndexPage page(*pages_, number, owner_);
  if (!checked_[number]) {
    page.CheckEntries();
    checked_[number] = true;
  }
  return page;
}

/// The child of an entry of a node; for End() the tail child or, without one, the last child.
IndexPage IndexCursor::Child(const IndexPage& node, unsigned entry) {
  if (entry < node.End())
    return Load(node.Entry(entry).Tail());
  if (node.TailChild() != 0)
    return Load(node.TailChild());
  if (node.Empty())
    throw Damage("a node of an index has no children");
  return Load(node.Entry(node.Last()).Tail());
}

/// The leaf below the entries that `choose` selects, from the root downwards.
template <class Choose>
IndexPage IndexCursor::Descend(Choose&& choose) {
  IndexPage page = Load(rootPage_);
  for (int depth = 0; !page.IsLeaf(); ++depth) {
    if (depth == kMaxDepth)
      ThrowCircle();
    page = Child(page, choose(page));
  }
  return page;
}

IndexPage IndexCursor::FirstLeaf() {
  return Descend([](const IndexPage&) { return 0u; });
}

IndexPage IndexCursor::LastLeaf() {
  return Descend([](const IndexPage& node) { return node.End(); });
}

/// Replaces `leaf` by the next leaf in this direction that has entries; false when there is none. Checks the
/// order of entries across pages, which also finds a chain with a circle.
bool IndexCursor::Neighbour(IndexPage& leaf, bool forward) {
  IndexPage page = leaf;
  for (std::uint32_t steps = 0; steps < pages_->PageCount(); ++steps) {
    const std::uint32_t number = forward ? page.NextPage() : page.PreviousPage();
    if (number == 0) {
      CheckEnd(page, forward);
      return false;
    }
    const IndexPage next = Load(number);
    if (!next.IsLeaf() || (forward ? next.PreviousPage() : next.NextPage()) != page.Number())
      throw Damage("the leaf pages of an index are not properly linked");
    page = next;
    if (page.Empty())
      continue;
    if (!leaf.Empty()) {
      const IndexPage& low = forward ? leaf : page;
      const IndexPage& high = forward ? page : leaf;
      if (Compare(low.Entry(low.Last()), high.Entry(0)) >= 0)
        throw Damage("the pages of an index are out of order");
    }
    leaf = page;
    return true;
  }
  ThrowCircle();
}

/// Throws Damage unless the chain of leaves ends at `end` rightly: the last (first) leaf that the tree names
/// must not come after (before) it.
void IndexCursor::CheckEnd(const IndexPage& end, bool forward) {
  IndexPage page = forward ? LastLeaf() : FirstLeaf();
  for (std::uint32_t steps = 0; page.Number() != end.Number(); ++steps) {
    const std::uint32_t number = forward ? page.NextPage() : page.PreviousPage();
    if (number == 0 || steps == pages_->PageCount())
      throw Damage("the chain of an index's leaf pages is torn");
    page = Load(number);
  }
}

void IndexCursor::StandOn(const IndexPage& page, unsigned entry) {
  page_ = page;
  StandOn(entry);
  onEntry_ = true;
}

bool IndexCursor::MoveFirst() {
  IndexPage leaf = FirstLeaf();
  if (leaf.Empty() && !Neighbour(leaf, true))
    return false;
  StandOn(leaf, 0);
  return true;
}

bool IndexCursor::MovePrevious() {
  ZERBAL_ASSERT(onEntry_);
  if (entry_ > 0) {
    StandOn(page_.Before(entry_));
    return true;
  }
  return MoveAcross(false);
}

/// Moves to the nearest entry of a neighbouring leaf.
bool IndexCursor::MoveAcross(bool forward) {
  IndexPage leaf = page_;
  if (!Neighbour(leaf, forward))
    return false;
  StandOn(leaf, forward ? 0 : leaf.Last());
  return true;
}

bool IndexCursor::MoveTo(std::span<const std::uint8_t> key) {
  IndexPage leaf = Descend([key](const IndexPage& node) { return node.LowerBound(key); });
  unsigned entry = leaf.LowerBound(key);
  while (entry == leaf.End()) {
    if (!Neighbour(leaf, true))
      return false;
    entry = leaf.LowerBound(key);
  }
  StandOn(leaf, entry);
  return true;
}

void IndexCursor::GoTo(const Place& place) {
  ZERBAL_ASSERT(place.page != 0);
  const IndexPage page = Load(place.page);
  if (place.entry >= page.End())
    throw Damage("an index has lost entries while it was open");
  StandOn(page, place.entry);
}

}  // namespace zerbal::jet
