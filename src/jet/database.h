// A desktop database file (.mdb, the formats of 1997 to 2003), mapped into memory for reading. The file is
// never written.
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
  /// The largest memo or OLE value that is read, in bytes.
  std::size_t maxLongValue = 64u << 20;
};

/// An open database. Opening reads only the header and the catalog.
/// Copies share the mapping; it ends with the last Database, Recordset or PairReader that uses it.
/// InstallMappedFileGuard says what happens when the file is cut short meanwhile.
class Database {
 public:
  /// Opens `file`. Throws EngineError when it is missing, truncated, damaged or of another format.
  static Database Open(const std::filesystem::path& file, const OpenOptions& options = {});

  /// The same for a file whose bytes are in memory; messages call it `name`.
  static Database FromBytes(std::vector<std::uint8_t> bytes, const std::string& name,
                            const OpenOptions& options = {});

  /// Names of the user tables, in the order of the catalog, tables that cannot be opened included.
  std::vector<std::string> TableNames() const;
  bool HasTable(std::string_view name) const;  ///< ignores letter case; knows system tables too

  /// Opens a table and moves to the first row in stored order. Throws EngineError when there is no such table
  /// or its definition is damaged. Ignores letter case.
  Recordset OpenTable(std::string_view name) const;

 private:
  explicit Database(std::shared_ptr<const DatabaseState> state);
  static Database FromImage(FileImage image, const std::string& name, const OpenOptions& options);

  std::shared_ptr<const DatabaseState> state_;
};

}  // namespace zerbal::jet
