// Builds a complete folder of sample data.
#pragma once

#include <cstddef>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "base/error.h"
#include "zerbal-pack/problems.h"

namespace zerbal::pack {

struct BuildOptions {
  std::filesystem::path out;      ///< created when it is missing
  std::filesystem::path sources;  ///< the folder with the CSV files
};

struct TableSize {
  std::string file;
  std::string table;
  std::size_t rows = 0;
};

/// Called with the share of the work that is done (0 to 1) and the current step. May throw, which ends the
/// work.
using BuildProgress = std::function<void(double, const std::string&)>;

/// Writes the databases of app_map below `parent` and returns the sizes of their tables.
using MapBuilder = std::function<std::vector<TableSize>(const std::filesystem::path& parent,
                                                        const std::function<void(double)>&)>;

inline constexpr const char* kDataFolder = "app_data";
inline constexpr const char* kMapFolder = "app_map";
inline constexpr const char* kRevisionFile = "zblrev.ini";

/// `out` contains data that zerbal-pack did not make. Thrown by BuildFolder, caught by RunPack.
class BuildRefused : public base::Error {
 public:
  using base::Error::Error;
};

/// Fills `out` with app_data and app_map, which appear together when all steps succeed; otherwise nothing
/// changes there. Data that this program did not make is never replaced (BuildRefused). Bad rows of the
/// sources are added to `problems`, and nothing is written then. Throws what the writers throw.
std::vector<TableSize> BuildFolder(const BuildOptions& options, const MapBuilder& buildMap,
                                   const BuildProgress& progress, Problems& problems);

}  // namespace zerbal::pack
