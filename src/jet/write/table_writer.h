// One table on its way to the file.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "jet/format/page.h"
#include "jet/write/index_writer.h"
#include "jet/write/output_file.h"
#include "jet/write/page_bytes.h"
#include "jet/write/table_layout.h"
#include "jet/write/usage_map_writer.h"
#include "jet/write/value_encoding.h"
#include "jet/writer.h"

namespace zerbal::jet {

/// Pages of rows that belong together: a table's rows, or the long values of one column.
class RowPages {
 public:
  /// `firstPage` is where the first page goes when that is settled beforehand.
  RowPages(OutputFile& file, std::uint32_t owner, std::optional<std::uint32_t> firstPage = std::nullopt);

  /// Adds a row to the page at hand, or to a new one when it does not fit.
  RecordPointer Add(std::span<const std::uint8_t> row);
  /// Adds a row on a page of its own.
  RecordPointer AddAlone(std::span<const std::uint8_t> row);
  /// Writes the page at hand. Nothing may be added afterwards.
  void End();

  const PageList& Owned() const { return owned_; }
  const PageList& WithRoom() const { return withRoom_; }  ///< known after End

 private:
  std::uint32_t NewPage();
  void WriteCurrent();

  OutputFile& file_;
  std::uint32_t owner_;
  std::optional<std::uint32_t> firstPage_;
  DataPageBuilder current_;
  std::uint32_t currentPage_ = 0;
  PageList owned_;
  PageList withRoom_;
};

/// Takes the rows of a table one by one and writes them, its indexes and its definition.
class TableWriter {
 public:
  /// `layout` has its pages and the places of its maps.
  TableWriter(OutputFile& file, TableLayout layout,
              std::optional<std::uint32_t> firstDataPage = std::nullopt);

  /// Adds a row. A Refusal, which names the row and the column, leaves the table as it was.
  void AddRow(std::span<const Value> row);
  void AddPair(std::int32_t first, std::int32_t second);

  /// Writes what is left, the indexes, and the maps into `maps`; then, with Write of the maps still to come,
  /// the definition. A Refusal names the rows of a duplicate.
  void End(UsageMapPages& maps);

  const TableLayout& Layout() const { return layout_; }

 private:
  void EncodeValues(std::span<const Value> row);
  void BuildKeys();
  void BuildKey(const IndexLayout& index, std::vector<std::uint8_t>& key) const;
  void CheckRowSize() const;
  std::string LongValueField(std::size_t column);
  std::string StoreChain(RowPages& pages, std::string_view content);
  void BuildRow();
  void CommitRow();
  void CheckUnique(std::size_t index) const;
  void WriteIndexes(UsageMapPages& maps);
  void WriteMaps(UsageMapPages& maps);
  void WriteDefinition();
  [[noreturn]] void Refuse(std::size_t column, const std::string& reason) const;

  OutputFile& file_;
  TableLayout layout_;
  TableCounts counts_;
  RowPages rows_;
  std::vector<std::optional<RowPages>> longValues_;  ///< one a column; memo and OLE only
  std::vector<IndexKeys> keys_;                      ///< one an index
  bool isPairTable_;

  // Of the row at hand; kept for their room.
  std::vector<EncodedValue> values_;
  std::vector<std::vector<std::uint8_t>> rowKeys_;  ///< one an index; empty = the row is not in it
  std::string row_;
};

}  // namespace zerbal::jet
