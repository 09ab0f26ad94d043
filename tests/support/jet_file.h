// Database files put together byte by byte, for both formats, so that a test can say exactly what is where,
// or what is wrong.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "jet/database.h"
#include "jet/read/data_page.h"
#include "jet/read/file_header.h"
#include "jet/schema.h"

namespace zerbal::jet::test {

using Bytes = std::vector<std::uint8_t>;

/// The lowest `size` bytes of `value`, little-endian (big-endian).
Bytes Le(std::uint64_t value, int size);
Bytes Be(std::uint64_t value, int size);
Bytes Raw(std::string_view text);
Bytes Utf16(std::u16string_view text);
/// FF FE and one byte a character.
Bytes Compressed(std::string_view latin1);
std::string_view Chars(const Bytes& bytes);
Bytes operator+(Bytes a, const Bytes& b);

inline std::uint32_t ToU32(RecordPointer pointer) {
  return pointer.page << 8 | pointer.row;
}

/// A value for a row: bytes as stored, or Null. For a boolean any bytes are true and Null is false.
using Cell = std::optional<Bytes>;
inline const Cell kNull = std::nullopt;

/// A file in the making. Page 0 is the header and page 2 the catalog's definition; both are written by Build.
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

  /// Adds a row to a data page, with flags for its directory entry; false when it does not fit.
  bool RowFits(std::uint32_t page, const Bytes& row) const;
  RecordPointer AddRow(std::uint32_t page, const Bytes& row, std::uint16_t flags = 0);
  /// Where the directory entry of a row is on its page.
  std::size_t DirectoryEntry(unsigned row) const { return (IsJet3() ? 0x0A : 0x0E) + 2 * std::size_t{row}; }

  /// Usage maps: a bitmap from page `start` on, or pointers to bitmap pages.
  RecordPointer AddMap(const std::vector<std::uint32_t>& pages, std::uint32_t start = 0);
  RecordPointer AddReferenceMap(const std::vector<std::uint32_t>& pages);

  /// A text as a text or memo column of this format holds it.
  Bytes Text(std::string_view ascii) const {
    return IsJet3() ? Raw(ascii) : Utf16(std::u16string(ascii.begin(), ascii.end()));
  }
  /// A name as a table definition holds it, length included.
  Bytes Name(std::string_view ascii) const;

  void List(std::string name, std::uint32_t definition, std::uint32_t flags = 0, int type = 1);

  /// What is written over the header's masked part.
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

/// The file with its pages behind the header encoded under a key.
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

/// A table in the making: rows go to data pages as they come; Finish writes definition, map and catalog
/// entry.
class TestTable {
 public:
  TestTable(JetFile& file, std::string name, std::vector<TestColumn> columns);

  std::uint32_t Page() const { return page_; }
  const std::vector<std::uint32_t>& DataPages() const { return dataPages_; }

  /// The bytes of a row with a value for each column; `columnCount` is what the row knows of columns.
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

/// Writes an index page with the given complete entries (key, row, on nodes the child too).
std::uint32_t AddIndexPage(JetFile& file, std::uint32_t owner, bool leaf, const std::vector<Bytes>& entries,
                           bool compress, std::uint32_t tail = 0);
/// Builds a tree over entries (sorted here) with at most `perPage` on a page; returns the root's page.
std::uint32_t AddIndexTree(JetFile& file, std::uint32_t owner, const std::vector<TestEntry>& entries,
                           std::size_t perPage, bool compress);

}  // namespace zerbal::jet::test
