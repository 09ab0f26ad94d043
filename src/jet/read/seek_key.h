// The index key of a text that is searched.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "jet/read/file_header.h"
#include "jet/read/index_cursor.h"
#include "jet/read/table_definition.h"
#include "jet/schema.h"

namespace zerbal::jet {

/// Computes index keys. Reuses its buffers.
class SeekKey {
 public:
  enum class Result {
    kReady,    ///< Bytes() is the key
    kNoMatch,  ///< the column cannot hold such a value
    kUnknown,  ///< the key cannot be computed for this column or text
  };

  Result Make(std::string_view text, const ColumnInfo& column, const ColumnPlace& place, bool ascending,
              const FileHeader& header);
  std::span<const std::uint8_t> Bytes() const { return key_; }

 private:
  Result MakeText(std::string_view text, const ColumnPlace& place, bool ascending, const FileHeader& header);
  Result MakeNumber(std::string_view text, ColumnType type, bool ascending);

  std::vector<std::uint8_t> key_;
  std::u16string utf16_;
  std::string narrow_;
};

/// Finds rows by the text of their first index column when index keys cannot be computed: hashes of texts and
/// their places in the index; sixteen bytes per row.
class TextLookup {
 public:
  /// Called for every row in index order; then Finish.
  void Add(std::string_view text, const IndexCursor::Place& place);
  void Finish();

  /// Calls `accept` with the places of texts that may equal `text`, in index order, until it returns true.
  template <class Accept>
  bool Find(std::string_view text, Accept&& accept) const {
    const std::uint64_t hash = HashOf(text);
    for (auto at = FirstWith(hash); at != entries_.end() && at->hash == hash; ++at) {
      if (accept(at->place))
        return true;
    }
    return false;
  }

 private:
  struct Entry {
    std::uint64_t hash = 0;
    IndexCursor::Place place;
  };
  static std::uint64_t HashOf(std::string_view text);
  std::vector<Entry>::const_iterator FirstWith(std::uint64_t hash) const;

  std::vector<Entry> entries_;
};

}  // namespace zerbal::jet
