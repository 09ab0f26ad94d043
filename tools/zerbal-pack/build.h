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
  std::filesystem::path out;      ///< made when it is missing
  std::filesystem::path sources;  ///< the folder with the CSV files
};

struct TableSize {
  std::string file;
  std::string table;
  std::size_t rows = 0;
};

/// Told how far the work is (0 to 1) and what is being done. May throw to end the work.
using BuildProgress = std::function<void(double, const std::string&)>;

/// Makes the databases of app_map in its `folder`, whose parent it is given, and says what they hold.
using MapBuilder = std::function<std::vector<TableSize>(const std::filesystem::path& parent,
                                                        const std::function<void(double)>&)>;

inline constexpr const char* kDataFolder = "app_data";
inline constexpr const char* kMapFolder = "app_map";
inline constexpr const char* kRevisionFile = "zblrev.ini";

/// A refusal that is no fault of a source: `out` holds data that is not ours.
class BuildRefused : public base::Error {
 public:
  using base::Error::Error;
};

/// Fills `out` with app_data and app_map, which appear together when everything is well; otherwise nothing
/// changes there. Data that this program did not make is never replaced (BuildRefused). Bad rows of the
/// sources are added to `problems`, and nothing is written then. Throws what the writers throw.
std::vector<TableSize> BuildFolder(const BuildOptions& options, const MapBuilder& buildMap,
                                   const BuildProgress& progress, Problems& problems);

}  // namespace zerbal::pack
