#include "jet/write/index_writer.h"

#include <algorithm>
#include <utility>

#include "base/assert.h"
#include "jet/format/page_layout.h"
#include "jet/write/page_bytes.h"

namespace zerbal::jet {
namespace {

using Bytes = std::span<const std::uint8_t>;

constexpr IndexPageLayout kLayout = IndexPageLayoutOf(Format::kJet4);
constexpr std::size_t kCapacity = kPageSize - kLayout.entries;

// A page of the tree. Entries are numbered in the order of the index.
struct Node {
  std::size_t first = 0;      ///< leaf: its first entry; otherwise its first child in the level below
  std::size_t end = 0;        ///< after the last of them
  std::size_t lastEntry = 0;  ///< the last leaf entry below the node
  std::uint32_t page = 0;
};
using Level = std::vector<Node>;

class TreePage {
 public:
  TreePage(std::uint8_t level, std::uint32_t owner)
      : page_(level == 0 ? PageKind::kIndexLeaf : PageKind::kIndexNode) {
    page_.Put32(kOwnerAt, owner);
    page_.Put8(kIndexLevelAt, level);
  }
  void Link(std::uint32_t previous, std::uint32_t next) {
    page_.Put32(kLayout.links + kPreviousPage, previous);
    page_.Put32(kLayout.links + kNextPage, next);
  }
  void SetTail(std::uint32_t child) { page_.Put32(kLayout.links + kTailChild, child); }
  void Add(Bytes entry, Bytes child = {}) {
    ZERBAL_ASSERT(end_ + entry.size() + child.size() <= kCapacity);
    page_.Put(kLayout.entries + end_, entry);
    page_.Put(kLayout.entries + end_ + entry.size(), child);
    end_ += entry.size() + child.size();
    page_.SetBit(kLayout.mask, end_);
  }
  const PageBytes& Finished() {
    page_.Put16(kFreeBytesAt, kCapacity - end_);
    return page_;
  }

 private:
  PageBytes page_;
  std::size_t end_ = 0;
};

class Tree {
 public:
  Tree(OutputFile& file, const IndexKeys& keys, std::uint32_t root, std::uint32_t owner)
      : file_(file), keys_(keys), root_(root), owner_(owner) {}

  PageList Write() {
    Level level = Leaves();
    for (std::uint8_t height = 0;; ++height) {
      const bool top = level.size() == 1;
      for (Node& node : level) {
        node.page = top ? root_ : file_.Allocate();
        pages_.push_back(node.page);
      }
      for (std::size_t i = 0; i < level.size(); ++i)
        WriteNode(level, i, height);
      if (top)
        break;
      below_ = std::move(level);
      level = Parents();
    }
    std::ranges::sort(pages_);
    return std::move(pages_);
  }

 private:
  Level Leaves() const {
    Level leaves(1);
    std::size_t used = 0;
    for (std::size_t i = 0; i < keys_.Count(); ++i) {
      const std::size_t size = keys_.Entry(i).size();
      if (used + size > kCapacity) {
        leaves.push_back({i, i, i, 0});
        used = 0;
      }
      used += size;
      leaves.back().end = i + 1;
      leaves.back().lastEntry = i;
    }
    return leaves;
  }

  // Every child of a node but the last has an entry; the last one is the node's tail child.
  Level Parents() const {
    Level parents(1);
    std::size_t used = 0;
    for (std::size_t child = 0; child < below_.size(); ++child) {
      if (used > kCapacity) {
        // The previous child is the last of its node and needs no entry.
        parents.push_back({child, child, 0, 0});
        used = 0;
      }
      parents.back().end = child + 1;
      parents.back().lastEntry = below_[child].lastEntry;
      used += keys_.Entry(below_[child].lastEntry).size() + kEntryChildSize;
    }
    if (parents.size() > 1 && parents.back().end - parents.back().first == 1)
      MoveChild(parents[parents.size() - 2], parents.back());
    return parents;
  }

  // Every node has at least two children.
  void MoveChild(Node& from, Node& to) const {
    --from.end;
    --to.first;
    from.lastEntry = below_[from.end - 1].lastEntry;
  }

  void WriteNode(const Level& level, std::size_t i, std::uint8_t height) {
    const Node& node = level[i];
    TreePage page(height, owner_);
    page.Link(i == 0 ? 0 : level[i - 1].page, i + 1 == level.size() ? 0 : level[i + 1].page);
    if (height == 0) {
      for (std::size_t entry = node.first; entry < node.end; ++entry)
        page.Add(keys_.Entry(entry));
    } else {
      for (std::size_t child = node.first; child + 1 < node.end; ++child)
        page.Add(keys_.Entry(below_[child].lastEntry), BigEndian(below_[child].page));
      page.SetTail(below_[node.end - 1].page);
    }
    file_.Write(node.page, page.Finished());
  }

  OutputFile& file_;
  const IndexKeys& keys_;
  std::uint32_t root_;
  std::uint32_t owner_;
  Level below_;
  PageList pages_;
};

}  // namespace

PageList WriteIndexTree(OutputFile& file, const IndexKeys& keys, std::uint32_t root, std::uint32_t owner) {
  return Tree(file, keys, root, owner).Write();
}

}  // namespace zerbal::jet
