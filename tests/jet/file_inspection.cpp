#include "jet/file_inspection.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <set>
#include <stdexcept>
#include <utility>

#include "jet/format/key.h"
#include "jet/schema.h"

namespace zerbal::test {
namespace {

using jet::ColumnType;
using Key = std::vector<std::uint8_t>;

constexpr std::size_t kPage = 4096;

std::uint32_t Number(std::string_view bytes, std::size_t at, std::size_t size) {
  if (at + size > bytes.size())
    throw std::runtime_error("a number lies outside");
  std::uint32_t value = 0;
  for (std::size_t i = size; i-- > 0;)
    value = value << 8 | static_cast<std::uint8_t>(bytes[at + i]);
  return value;
}

std::uint32_t BigEndian(std::string_view bytes) {
  std::uint32_t value = 0;
  for (char byte : bytes)
    value = value << 8 | static_cast<std::uint8_t>(byte);
  return value;
}

struct StoredColumn {
  std::string name;
  ColumnType type = ColumnType::kLong;
  unsigned number = 0;
  unsigned variableIndex = 0;
  unsigned fixedOffset = 0;
  unsigned length = 0;
  bool fixed = false;
};

struct Tree {
  std::vector<std::pair<unsigned, bool>> parts;  ///< column number, ascending
  std::uint32_t map = 0;
  std::uint32_t root = 0;
  unsigned flags = 0;
};

struct Definition {
  std::uint32_t page = 0;
  std::vector<std::uint32_t> pages;
  std::uint32_t rows = 0;
  std::uint32_t ownedMap = 0;
  std::uint32_t freeMap = 0;
  std::map<unsigned, StoredColumn> columns;
  std::vector<Tree> trees;
  std::map<std::string, std::size_t> indexes;  ///< name to tree
  struct LongMaps {
    std::uint32_t owned, free;
  };
  std::vector<LongMaps> longMaps;
};

std::string Ascii(std::string_view utf16) {
  std::string text;
  for (std::size_t i = 0; i + 1 < utf16.size(); i += 2)
    text += utf16[i];
  return text;
}

class Inspection {
 public:
  explicit Inspection(std::string_view file) : file_(file) {}

  std::vector<std::string> Run() {
    try {
      Demand(file_.size() % kPage == 0, "the file ends within a page");
      Use({0, 1}, "header");
      CheckGlobalMap();
      for (const auto& [name, page] : Catalog())
        CheckTable(name, page);
      for (std::uint32_t page = 0; page < PageCount(); ++page)
        Demand(users_[page] == 1,
               "page " + std::to_string(page) + " has " + std::to_string(users_[page]) + " users");
    } catch (const std::exception& exception) {
      faults_.push_back(where_ + "cannot go on: " + exception.what());
    }
    return std::move(faults_);
  }

  int Levels(std::string_view table, std::string_view index) {
    for (const auto& [name, page] : Catalog()) {
      if (name != table)
        continue;
      const Definition definition = ReadDefinition(page);
      return static_cast<int>(
                 Number(Page(definition.trees.at(definition.indexes.at(std::string(index))).root), 0x1A, 1)) +
             1;
    }
    throw std::runtime_error("no such table");
  }

 private:
  using Pages = std::set<std::uint32_t>;
  struct Place {
    std::uint32_t page;
    unsigned row;
    auto operator<=>(const Place&) const = default;  // NOLINT(modernize-use-nullptr)
  };

  void Demand(bool holds, const std::string& fault) {
    if (!holds)
      faults_.push_back(where_ + fault);
  }
  std::uint32_t PageCount() const { return static_cast<std::uint32_t>(file_.size() / kPage); }
  std::string_view Page(std::uint32_t number) const {
    if (number >= PageCount())
      throw std::runtime_error("page " + std::to_string(number) + " is not in the file");
    return file_.substr(number * kPage, kPage);
  }
  void Use(const Pages& pages, const std::string& by) {
    for (std::uint32_t page : pages)
      Demand(++users_[page] == 1, "page " + std::to_string(page) + " is used again by " + by);
  }

  static unsigned RowCount(std::string_view page) { return Number(page, 12, 2); }
  static std::string_view Row(std::string_view page, unsigned row) {
    const std::size_t start = Number(page, 14 + 2 * row, 2);
    const std::size_t end = row == 0 ? kPage : Number(page, 12 + 2 * row, 2);
    if (row >= RowCount(page) || start > end || end > kPage)
      throw std::runtime_error("there is no such row");
    return page.substr(start, end - start);
  }
  std::string_view RowAt(std::uint32_t pointer) const { return Row(Page(pointer >> 8), pointer & 0xFF); }

  void CheckDataPage(std::uint32_t number, std::uint32_t owner) {
    const std::string_view page = Page(number);
    const std::string name = "data page " + std::to_string(number);
    Demand(Number(page, 0, 2) == 0x0101, name + " is none");
    Demand(Number(page, 4, 4) == owner, name + " belongs to another");
    const std::size_t rows = RowCount(page);
    const std::size_t lowest = rows == 0 ? kPage : Number(page, 12 + 2 * rows, 2);
    Demand(rows <= 255, name + " has too many rows");
    Demand(Number(page, 2, 2) == lowest - (14 + 2 * rows), name + ": free bytes are wrong");
  }

  /// The pages of a map; the bitmap pages that it needs are counted as used.
  Pages Map(std::uint32_t pointer, bool useBitmaps = true) {
    const std::string_view row = RowAt(pointer);
    Pages pages;
    if (row.at(0) == 0) {
      AddBits(row.substr(5), Number(row, 1, 4), pages);
      return pages;
    }
    for (std::uint32_t i = 0; 5 + 4 * i <= row.size(); ++i) {
      const std::uint32_t bitmap = Number(row, 1 + 4 * i, 4);
      if (bitmap == 0)
        continue;
      Demand(Number(Page(bitmap), 0, 4) == 0x0105, "a bitmap page is none");
      if (useBitmaps)
        Use({bitmap}, "a map");
      AddBits(Page(bitmap).substr(4), i * (kPage - 4) * 8, pages);
    }
    return pages;
  }
  static void AddBits(std::string_view bitmap, std::size_t start, Pages& pages) {
    for (std::size_t bit = 0; bit < bitmap.size() * 8; ++bit) {
      if ((bitmap[bit / 8] >> bit % 8 & 1) != 0)
        pages.insert(static_cast<std::uint32_t>(start + bit));
    }
  }
  void UseMap(std::uint32_t pointer) {
    const std::uint32_t page = pointer >> 8;
    if (!mapPages_.insert(page).second)
      return;
    Use({page}, "usage maps");
    CheckDataPage(page, 0);
  }

  void CheckGlobalMap() {
    CheckDataPage(1, 1);
    const Pages freePages = Map(0x100);
    Demand(freePages.empty() || *freePages.begin() >= PageCount(), "a page of the file is marked free");
    Demand(Map(0x101).empty(), "the second global map is not empty");
  }

  std::vector<std::pair<std::string, std::uint32_t>> Catalog() {
    const Definition definition = ReadDefinition(2);
    std::vector<std::pair<std::string, std::uint32_t>> tables;
    for (std::uint32_t page : Map(definition.ownedMap, false)) {
      for (unsigned row = 0; row < RowCount(Page(page)); ++row) {
        const auto value = [&](unsigned column) {
          return Value(Row(Page(page), row), definition, definition.columns.at(column)).value();
        };
        if (Number(value(3), 0, 2) == 1)
          tables.emplace_back(Ascii(value(2)), Number(value(0), 0, 4));
      }
    }
    return tables;
  }

  Definition ReadDefinition(std::uint32_t first) {
    Definition out;
    out.page = first;
    std::string all;
    for (std::uint32_t page = first; page != 0; page = Number(Page(page), 4, 4)) {
      Demand(Number(Page(page), 0, 2) == 0x0102, "a definition page is none");
      all += Page(page).substr(page == first ? 0 : 8);
      out.pages.push_back(page);
    }
    const std::size_t length = Number(all, 8, 4);
    const std::size_t lastUsed =
        out.pages.size() == 1 ? length : length - kPage - (out.pages.size() - 2) * (kPage - 8) + 8;
    Demand(Number(Page(out.pages.back()), 2, 2) == (lastUsed > kPage - 8 ? 0 : kPage - 8 - lastUsed),
           "free bytes of the definition are wrong");
    out.rows = Number(all, 0x10, 4);
    out.ownedMap = Number(all, 0x37, 4);
    out.freeMap = Number(all, 0x3B, 4);
    const std::size_t end = ReadItems(all, out);
    Demand(end == length, "the definition's length is wrong");
    return out;
  }

  static std::size_t ReadItems(std::string_view all, Definition& out) {
    const std::size_t columns = Number(all, 0x2D, 2);
    const std::size_t indexes = Number(all, 0x2F, 4);
    std::size_t at = 0x3F + 12 * indexes;
    std::vector<StoredColumn> records(columns);
    for (StoredColumn& column : records) {
      column.type = static_cast<ColumnType>(all.at(at));
      column.number = Number(all, at + 5, 2);
      column.variableIndex = Number(all, at + 7, 2);
      column.fixed = (all.at(at + 15) & 1) != 0;
      column.fixedOffset = Number(all, at + 0x15, 2);
      column.length = Number(all, at + 0x17, 2);
      at += 25;
    }
    const auto name = [&] {
      const std::size_t size = Number(all, at, 2);
      at += 2 + size;
      return Ascii(all.substr(at - size, size));
    };
    for (StoredColumn& column : records) {
      column.name = name();
      out.columns[column.number] = column;
    }
    for (std::size_t i = 0; i < indexes; ++i, at += 52) {
      Tree tree;
      for (std::size_t slot = 0; slot < 10; ++slot) {
        if (Number(all, at + 4 + 3 * slot, 2) != 0xFFFF)
          tree.parts.emplace_back(Number(all, at + 4 + 3 * slot, 2), all.at(at + 6 + 3 * slot) == 1);
      }
      tree.map = Number(all, at + 0x22, 4);
      tree.root = Number(all, at + 0x26, 4);
      tree.flags = Number(all, at + 0x2E, 1);
      out.trees.push_back(tree);
    }
    std::vector<std::size_t> logical;
    for (std::size_t i = 0; i < indexes; ++i, at += 28)
      logical.push_back(Number(all, at + 8, 4));
    for (std::size_t tree : logical)
      out.indexes[name()] = tree;
    for (; Number(all, at, 2) != 0xFFFF; at += 10)
      out.longMaps.push_back({Number(all, at + 2, 4), Number(all, at + 6, 4)});
    return at + 2;
  }

  /// The stored bytes of a value; booleans are one byte.
  static std::optional<std::string> Value(std::string_view row, const Definition& table,
                                          const StoredColumn& column) {
    const std::size_t mask = row.size() - (table.columns.size() + 7) / 8;
    const bool bit = (row.at(mask + column.number / 8) >> column.number % 8 & 1) != 0;
    if (column.type == ColumnType::kBoolean)
      return std::string(1, bit ? '\1' : '\0');
    if (!bit)
      return std::nullopt;
    if (column.fixed)
      return std::string(row.substr(2 + column.fixedOffset, column.length));
    const std::size_t start = Number(row, mask - 4 - std::size_t{2} * column.variableIndex, 2);
    return std::string(
        row.substr(start, Number(row, mask - 6 - std::size_t{2} * column.variableIndex, 2) - start));
  }

  void CheckTable(const std::string& name, std::uint32_t page) {
    where_ = "table " + name + ": ";
    const Definition table = ReadDefinition(page);
    Use({table.pages.begin(), table.pages.end()}, "the definition");
    const Pages owned = Map(table.ownedMap);
    UseMap(table.ownedMap);
    UseMap(table.freeMap);
    Use(owned, "rows");
    CheckPageSets(table, owned);
    std::map<Place, std::string_view> rows;
    for (std::uint32_t dataPage : owned) {
      CheckDataPage(dataPage, page);
      for (unsigned row = 0; row < RowCount(Page(dataPage)); ++row)
        rows[{dataPage, row}] = Row(Page(dataPage), row);
    }
    Demand(rows.size() == table.rows, "the number of rows is wrong");
    for (const Definition::LongMaps& maps : table.longMaps)
      CheckLongPages(maps);
    for (const auto& [index, tree] : table.indexes) {
      where_ = "table " + name + ", index " + index + ": ";
      CheckTree(table, table.trees.at(tree), rows);
    }
    where_.clear();
  }

  void CheckPageSets(const Definition& table, const Pages& owned) {
    const Pages withRoom = Map(table.freeMap);
    Demand(std::ranges::includes(owned, withRoom), "a page with room is not the table's");
    for (std::uint32_t page = 0; page < PageCount(); ++page) {
      const bool isOurs = Page(page)[0] == 1 && page > 1 && Number(Page(page), 4, 4) == table.page;
      Demand(isOurs == owned.contains(page), "the map of pages is wrong about page " + std::to_string(page));
    }
  }

  void CheckLongPages(const Definition::LongMaps& maps) {
    const Pages owned = Map(maps.owned);
    UseMap(maps.owned);
    UseMap(maps.free);
    Use(owned, "long values");
    Demand(std::ranges::includes(owned, Map(maps.free)), "a page with room is not the column's");
    for (std::uint32_t page : owned)
      CheckDataPage(page, 0x4C41564C);
  }

  Key RowKey(const Definition& table, const Tree& tree, std::string_view row) {
    Key key;
    for (const auto& [number, ascending] : tree.parts) {
      const StoredColumn& column = table.columns.at(number);
      const std::optional<std::string> value = Value(row, table, column);
      if (!value)
        jet::AppendNullKey(ascending, key);
      else if (column.type == ColumnType::kText)
        Demand(jet::AppendTextKeyJet4(Text(*value), ascending, key), "a text has no key");
      else if (column.type == ColumnType::kBinary)
        jet::AppendBinaryKey(*value, ascending, key);
      else
        Demand(jet::AppendFixedKey(column.type, *value, ascending, key), "a value has no key");
    }
    return key;
  }
  static std::u16string Text(std::string_view stored) {
    std::u16string text;
    if (stored.starts_with("\xFF\xFE")) {
      for (char byte : stored.substr(2))
        text += static_cast<std::uint8_t>(byte);
    } else {
      for (std::size_t i = 0; i < stored.size(); i += 2)
        text += static_cast<char16_t>(Number(stored, i, 2));
    }
    return text;
  }

  static bool IsAllNull(const Definition& table, const Tree& tree, std::string_view row) {
    return std::ranges::all_of(
        tree.parts, [&](const auto& part) { return !Value(row, table, table.columns.at(part.first)); });
  }

  /// The entries of an index page, in full.
  std::vector<std::string> Entries(std::uint32_t number) {
    const std::string_view page = Page(number);
    std::vector<std::string> entries;
    std::size_t start = 0;
    for (std::size_t bit = 1; bit <= kPage - 0x1E0; ++bit) {
      if ((page[0x1B + bit / 8] >> bit % 8 & 1) == 0)
        continue;
      entries.emplace_back(page.substr(0x1E0 + start, bit - start));
      start = bit;
    }
    Demand(Number(page, 2, 2) == kPage - 0x1E0 - start, "free bytes of an index page are wrong");
    Demand(Number(page, 0x18, 2) == 0, "an index page has a prefix");
    return entries;
  }

  struct Walk {
    const Definition* table;
    Pages pages;
    std::map<unsigned, std::vector<std::uint32_t>> levels;  ///< pages of a level from left to right
    std::vector<std::string> leaves;                        ///< all leaf entries
  };

  /// Goes through the tree below a page and returns the last leaf entry.
  std::string Descend(Walk& walk, std::uint32_t number, std::optional<unsigned> expectedLevel) {
    const std::string_view page = Page(number);
    const unsigned level = Number(page, 0x1A, 1);
    Demand(!expectedLevel || level == *expectedLevel, "a page is on the wrong level");
    Demand(Number(page, 0, 2) == (level == 0 ? 0x0104u : 0x0103u), "an index page is none");
    Demand(Number(page, 4, 4) == walk.table->page, "an index page belongs to another");
    Demand(walk.pages.insert(number).second, "an index page is reached twice");
    walk.levels[level].push_back(number);
    const std::vector<std::string> entries = Entries(number);
    const std::uint32_t tail = Number(page, 0x14, 4);
    if (level == 0) {
      Demand(tail == 0, "a leaf has a tail");
      walk.leaves.insert(walk.leaves.end(), entries.begin(), entries.end());
      return entries.empty() ? std::string() : entries.back();
    }
    for (const std::string& entry : entries) {
      const std::string_view last = std::string_view(entry).substr(0, entry.size() - 4);
      Demand(Descend(walk, BigEndian(std::string_view(entry).substr(last.size())), level - 1) == last,
             "a node's entry is not the last one below it");
    }
    Demand(!entries.empty() && tail != 0, "a node has fewer than two children");
    return Descend(walk, tail, level - 1);
  }

  void CheckTree(const Definition& table, const Tree& tree, const std::map<Place, std::string_view>& rows) {
    UseMap(tree.map);
    Walk walk{&table, {}, {}, {}};
    Descend(walk, tree.root, std::nullopt);
    Use(walk.pages, "an index");
    Demand(Map(tree.map) == walk.pages, "the map of the index is wrong");
    for (const auto& [level, pages] : walk.levels) {
      for (std::size_t i = 0; i < pages.size(); ++i) {
        Demand(Number(Page(pages[i]), 0x0C, 4) == (i == 0 ? 0 : pages[i - 1]),
               "a link to the page before is wrong");
        Demand(Number(Page(pages[i]), 0x10, 4) == (i + 1 == pages.size() ? 0 : pages[i + 1]),
               "a link to the next page is wrong");
      }
    }
    std::set<Place> seen;
    for (std::size_t i = 0; i < walk.leaves.size(); ++i) {
      const std::string_view entry = walk.leaves[i];
      const std::uint32_t pointer = BigEndian(entry.substr(entry.size() - 4));
      const Place place{pointer >> 8, pointer & 0xFF};
      Demand(i == 0 || walk.leaves[i - 1] < entry, "entries are not in order");
      const auto row = rows.find(place);
      Demand(row != rows.end() && seen.insert(place).second, "an entry's row is wrong");
      if (row == rows.end())
        continue;
      const Key key = RowKey(table, tree, row->second);
      Demand(std::ranges::equal(key, entry.substr(0, entry.size() - 4),
                                [](std::uint8_t a, char b) { return a == static_cast<std::uint8_t>(b); }),
             "an entry's key is wrong");
    }
    std::size_t expected = rows.size();
    if ((tree.flags & 0x02) != 0)
      expected -= static_cast<std::size_t>(
          std::ranges::count_if(rows, [&](const auto& row) { return IsAllNull(table, tree, row.second); }));
    Demand(seen.size() == expected, "the number of entries is wrong");
  }

  std::string_view file_;
  std::vector<std::string> faults_;
  std::string where_;
  std::map<std::uint32_t, int> users_;
  Pages mapPages_;
};

}  // namespace

std::vector<std::string> FaultsIn(std::string_view file) {
  return Inspection(file).Run();
}

int IndexLevels(std::string_view file, std::string_view table, std::string_view index) {
  return Inspection(file).Levels(table, index);
}

}  // namespace zerbal::test
