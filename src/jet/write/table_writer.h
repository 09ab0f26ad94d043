// Writing one table.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "jet/format/page_layout.h"
#include "jet/write/index_writer.h"
#include "jet/write/output_file.h"
#include "jet/write/page_bytes.h"
#include "jet/write/table_layout.h"
#include "jet/write/usage_map_writer.h"
#include "jet/write/value_encoding.h"
#include "jet/writer.h"

namespace zerbal::jet {

/// Data pages of one owner: the rows of a table, or the long values of one column.
class RowPages {
 public:
  /// The first page is `firstPage` if given; otherwise all pages are allocated.
  RowPages(OutputFile& file, std::uint32_t owner, std::optional<std::uint32_t> firstPage = std::nullopt);

  /// Adds a row to the current page, or to a new one when it does not fit.
  RecordPointer Add(std::span<const std::uint8_t> row);
  /// Adds a row on a page of its own.
  RecordPointer AddAlone(std::span<const std::uint8_t> row);
  /// Writes the current page. Nothing is added afterwards.
  void End();

  const PageList& Owned() const { return owned_; }
  const PageList& WithRoom() const { return withRoom_; }  ///< valid after End

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

/// Reserves the usage maps of a table's rows.
void ReserveRowMaps(TableLayout& table, UsageMapPages& maps);
/// Reserves those of its long values.
void ReserveLongValueMaps(TableLayout& table, UsageMapPages& maps);

/// Writes the rows of a table as they come, and at the end its indexes, usage maps and definition.
class TableWriter {
 public:
  /// `layout` is complete, including pages and usage maps.
  TableWriter(OutputFile& file, TableLayout layout,
              std::optional<std::uint32_t> firstDataPage = std::nullopt);

  /// Adds a row. Throws Refusal, which names row and column; the table is then unchanged.
  void AddRow(std::span<const Value> row);
  void AddPair(std::int32_t first, std::int32_t second);

  /// Writes remaining pages, indexes and definition, and sets the table's usage maps in `maps`, which the
  /// caller writes. Throws Refusal for a duplicate in a unique index.
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
  std::vector<std::optional<RowPages>> longValues_;  ///< per column; memo and OLE only
  std::vector<IndexKeys> keys_;                      ///< per index
  bool isPairTable_;

  // Of the current row; reused from row to row.
  std::vector<EncodedValue> values_;
  std::vector<std::vector<std::uint8_t>> rowKeys_;  ///< per index; empty = no entry for this row
  std::string row_;
};

}  // namespace zerbal::jet
