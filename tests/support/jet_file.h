// Builds database files of both formats byte by byte, so that a test controls each byte, also the wrong ones.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "jet/database.h"
#include "jet/format/page_layout.h"
#include "jet/schema.h"

namespace zerbal::jet::test {

using Bytes = std::vector<std::uint8_t>;

/// The lowest `size` bytes of `value`, little-endian (big-endian).
Bytes Le(std::uint64_t value, int size);
Bytes Be(std::uint64_t value, int size);
Bytes Raw(std::string_view text);
Bytes Utf16(std::u16string_view text);
/// The bytes FF FE and one byte per character.
Bytes Compressed(std::string_view latin1);
std::string_view Chars(const Bytes& bytes);
Bytes operator+(Bytes a, const Bytes& b);

/// A value of a row: its stored bytes, or nullopt for Null. For a boolean any bytes are true, Null is false.
using Cell = std::optional<Bytes>;
inline const Cell kNull = std::nullopt;

/// A file under construction. Build writes page 0, the header, and page 2, the definition of the catalog.
class JetFile {
 public:
  explicit JetFile(Format format);

  bool IsJet3() const { return format_ == Format::kJet3; }
  std::size_t PageSize() const { return IsJet3() ? 2048 : 4096; }
  std::uint32_t PageCount() const { return static_cast<std::uint32_t>(bytes_.size() / PageSize()); }

  std::uint32_t AddPage(std::uint8_t kind);
  std::uint32_t AddDataPage(std::uint32_t owner);
  void Put(std::uint32_t page, std::size_t at, const Bytes& bytes);
  std::uint64_t Get(std::uint32_t page, std::size_t at, int size) const;

  /// False when the row does not fit on the data page.
  bool RowFits(std::uint32_t page, const Bytes& row) const;
  /// Adds a row to a data page, with flags for its directory entry. Throws std::length_error when it does not
  /// fit.
  RecordPointer AddRow(std::uint32_t page, const Bytes& row, std::uint16_t flags = 0);
  /// The offset of a row's directory entry on its page.
  std::size_t DirectoryEntry(unsigned row) const { return (IsJet3() ? 0x0A : 0x0E) + 2 * std::size_t{row}; }

  // Usage maps: a bitmap from page `start` on, or pointers to bitmap pages.
  RecordPointer AddMap(const std::vector<std::uint32_t>& pages, std::uint32_t start = 0);
  RecordPointer AddReferenceMap(const std::vector<std::uint32_t>& pages);

  /// A text as a text or memo column of this format stores it.
  Bytes Text(std::string_view ascii) const {
    return IsJet3() ? Raw(ascii) : Utf16(std::u16string(ascii.begin(), ascii.end()));
  }
  /// A name as a table definition stores it, with its length.
  Bytes Name(std::string_view ascii) const;

  /// Adds an entry to the catalog.
  void List(std::string name, std::uint32_t definition, std::uint32_t flags = 0, int type = 1);

  // Fields of the masked part of the header.
  std::uint16_t codePage = 1252;
  std::uint16_t sortOrder = 0x0409;
  std::uint8_t sortOrderVersion = 0;

  Bytes Build();
  Database Open() { return Database::FromBytes(Build(), "test.mdb"); }

 private:
  struct Listed {
    std::string name;
    std::uint32_t definition, flags;
    int type;
  };
  void WriteHeader();
  void WriteCatalog();

  Format format_;
  Bytes bytes_;
  std::vector<Listed> listed_;
  std::uint32_t mapPage_ = 0;
};

/// The file with all pages after the header encoded with a key.
Bytes Encoded(Bytes file, std::size_t pageSize, std::uint32_t databaseKey);

struct TestColumn {
  std::string name;
  ColumnType type = ColumnType::kLong;
  int number = 0;
  bool fixed = true;
  int place = 0;   ///< offset in the fixed part, or variable index
  int length = 4;  ///< bytes
  std::uint8_t scale = 0;
  std::uint16_t sortOrder = 0x0409;
};

/// A table under construction. Rows go to data pages immediately; Finish writes definition, usage map and
/// catalog entry.
class TestTable {
 public:
  TestTable(JetFile& file, std::string name, std::vector<TestColumn> columns);

  std::uint32_t Page() const { return page_; }
  const std::vector<std::uint32_t>& DataPages() const { return dataPages_; }

  /// The bytes of a row with a value for each column. `columnCount` is the number of columns that the row
  /// stores; -1 means maxColumns.
  Bytes RowBytes(const std::vector<Cell>& cells, int columnCount = -1) const;
  RecordPointer Add(const std::vector<Cell>& cells) { return AddBytes(RowBytes(cells)); }
  RecordPointer AddBytes(const Bytes& row, std::uint16_t flags = 0);
  void StartPage();

  struct Index {
    std::string name;
    std::vector<std::pair<int, bool>> columns;  ///< number, ascending
    std::uint32_t root = 0;
    std::uint8_t flags = 0;
    std::uint8_t kind = 0;  ///< 1 = primary key, 2 = relationship
  };
  std::vector<Index> indexes;
  int maxColumns = 0;       ///< highest column number ever used + 1
  int variableColumns = 0;  ///< deleted ones included
  std::optional<RecordPointer> ownedPages;

  void Finish();
  Bytes Definition();

 private:
  Bytes ColumnRecord(const TestColumn& column) const;
  Bytes IndexRecords() const;

  JetFile& file_;
  std::string name_;
  std::vector<TestColumn> columns_;
  std::uint32_t page_;
  std::vector<std::uint32_t> dataPages_;
};

/// One entry of an index: the key's bytes and the row.
struct TestEntry {
  Bytes key;
  RecordPointer row;
};

/// Writes an index page with the given complete entries: key and row, on nodes also the child.
std::uint32_t AddIndexPage(JetFile& file, std::uint32_t owner, bool leaf, const std::vector<Bytes>& entries,
                           bool compress, std::uint32_t tail = 0);
/// Builds a tree of the entries, which it sorts, with at most `perPage` per page. Returns the root's page.
std::uint32_t AddIndexTree(JetFile& file, std::uint32_t owner, const std::vector<TestEntry>& entries,
                           std::size_t perPage, bool compress);

}  // namespace zerbal::jet::test
