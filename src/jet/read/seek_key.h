// The index key of a text that is searched.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "jet/read/file_header.h"
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

}  // namespace zerbal::jet
