// A desktop database file (.mdb, the formats of 1997 to 2003), opened read-only and mapped into memory.
// Nothing here ever writes to the file.
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace zerbal::jet {

class Recordset;
struct DatabaseState;  // private
struct FileImage;      // private

struct OpenOptions {
  /// Bounds what one memo or OLE value may unfold to, in bytes.
  std::size_t maxLongValue = 64u << 20;
};

/// An open database. Cheap to open: header and catalog are read, no table is touched.
/// Copies share the mapping; it lasts until the last Database, Recordset or PairReader on it is gone.
/// InstallMappedFileGuard says what happens when the file is cut short meanwhile.
class Database {
 public:
  /// Opens `file`. Throws EngineError when it is missing, cut short, foreign or damaged.
  static Database Open(const std::filesystem::path& file, const OpenOptions& options = {});

  /// The same for a file whose bytes are in memory; messages call it `name`.
  static Database FromBytes(std::vector<std::uint8_t> bytes, std::string name,
                            const OpenOptions& options = {});

  /// Names of the user tables, in the order of the catalog. Broken tables are named too.
  std::vector<std::string> TableNames() const;
  bool HasTable(std::string_view name) const;  ///< without regard to letter case

  /// Opens a table; stands on the first row in stored order. Throws EngineError when there is no such table
  /// or its definition is damaged.
  Recordset OpenTable(std::string_view name) const;

 private:
  explicit Database(std::shared_ptr<const DatabaseState> state);
  static Database FromImage(FileImage image, std::string name, const OpenOptions& options);

  std::shared_ptr<const DatabaseState> state_;
};

}  // namespace zerbal::jet
