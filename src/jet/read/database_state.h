// The state that all Database, Recordset and PairReader objects of one file share, and the catalog of its
// tables.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

#include "jet/database.h"
#include "jet/error.h"
#include "jet/read/file_pages.h"
#include "jet/read/long_value.h"
#include "jet/schema.h"

namespace zerbal::jet {

/// A table as the catalog lists it.
struct CatalogEntry {
  std::string name;
  std::string foldedName;  ///< lower case, for look-ups
  std::uint32_t definitionPage = 0;
  bool system = false;
};

struct DatabaseState {
  DatabaseState(std::string name, FileImage image, const OpenOptions& openOptions)
      : fileName(std::move(name)), pages(std::move(image)), options(openOptions) {}

  /// Runs `work` and turns Damage into an EngineError that names file and table. When the file was truncated
  /// meanwhile, throws that instead of any result or other error: all may come from zeros.
  template <class Work>
  auto Guarded(const std::string& table, Work&& work) const {
    try {
      if constexpr (std::is_void_v<decltype(work())>) {
        work();
        CheckWhole(table);
      } else {
        auto result = work();
        CheckWhole(table);
        return result;
      }
    } catch (const Damage& damage) {
      CheckWhole(table);
      throw EngineError(fileName, table, damage.what());
    } catch (const EngineError&) {
      CheckWhole(table);
      throw;
    }
  }

  /// Calls `use` with the bytes of a value, of which the row holds `stored`. Throws Damage.
  template <class Use>
  auto WithBytes(ColumnType type, ByteView stored, Use&& use) const {
    return IsLongValueType(type) ? LongValue(pages, stored, options.maxLongValue).With(use) : use(stored);
  }

  void CheckWhole(const std::string& table) const {
    if (pages.Shrunk())
      ThrowShrunk(table);
  }

  std::string fileName;
  FilePages pages;
  OpenOptions options;
  std::vector<CatalogEntry> catalog;  ///< in stored order

 private:
  [[noreturn]] void ThrowShrunk(const std::string& table) const;
};

/// Reads the names and definition pages of all tables, in stored order. Throws EngineError.
std::vector<CatalogEntry> ReadCatalog(const std::shared_ptr<const DatabaseState>& database);

/// The entry with that name, ignoring letter case; null when there is none.
const CatalogEntry* FindTable(const DatabaseState& database, std::string_view name);

}  // namespace zerbal::jet
