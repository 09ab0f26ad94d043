#include "data/base_map.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <limits>
#include <string>
#include <vector>

#include "jet/database.h"
#include "jet/error.h"
#include "jet/pair_reader.h"
#include "jet/recordset.h"

namespace zerbal::data {

struct BaseMapFiles {
  jet::Database coast;
  std::optional<jet::Database> river, boundary;
};

namespace {

constexpr std::size_t kBatch = 2048;

std::optional<jet::Database> OpenIfPresent(const std::optional<std::filesystem::path>& file) {
  if (!file)
    return std::nullopt;
  return jet::Database::Open(*file);
}

void VisitLines(jet::PairReader reader, StoredBounds bounds, const BaseMap::Visitor& visit) {
  std::vector<StoredPoint> run;
  const auto end = [&] {
    if (run.size() > 1)
      visit(run);
    run.clear();
  };
  std::array<jet::LongPair, kBatch> rows;
  const auto belongs = [bounds](const jet::LongPair& row) {
    return bounds.Contain({row.first, row.second}) && row.first != kEndOfLine;
  };
  try {
    while (const std::size_t count = reader.Read(rows)) {
      // The end of a line and a point outside have the same effect: both end a run.
      const auto last = rows.begin() + static_cast<std::ptrdiff_t>(count);
      for (auto row = rows.begin(); row != last;) {
        const auto past = std::find_if_not(row, last, belongs);
        std::transform(row, past, std::back_inserter(run), [](const jet::LongPair& pair) {
          return StoredPoint{pair.first, pair.second};
        });
        if (past != last)
          end();
        row = std::find_if(past, last, belongs);
      }
    }
  } catch (const jet::EngineError&) {
    end();
    throw;
  }
  end();
}

void VisitTable(const jet::Database& database, const std::string& table, const StoredBounds& bounds,
                const BaseMap::Visitor& visit) {
  if (database.HasTable(table))
    VisitLines(jet::PairReader(database.OpenTable(table), "Lon", "Lat"), bounds, visit);
}

}  // namespace

BaseMap::BaseMap(const std::filesystem::path& coast, const std::optional<std::filesystem::path>& river,
                 const std::optional<std::filesystem::path>& boundary)
    : files_(new BaseMapFiles{jet::Database::Open(coast), OpenIfPresent(river), OpenIfPresent(boundary)}) {}

void BaseMap::VisitOverview(const StoredBounds& bounds, const Visitor& visit) const {
  VisitTable(files_->coast, "wcl", bounds, visit);
}

void BaseMap::VisitTile(LineKind kind, std::string_view tile, const StoredBounds& bounds,
                        const Visitor& visit) const {
  const std::string table = std::string(tile) + "wdb2";
  if (kind == LineKind::kCoast)
    VisitTable(files_->coast, table, bounds, visit);
  else if (const auto& database = kind == LineKind::kRiver ? files_->river : files_->boundary)
    VisitTable(*database, table, bounds, visit);
}

bool BaseMap::HasLand(bool detailed) const {
  return files_->coast.HasTable(detailed ? kFineLandTable : kLandTable);
}

void BaseMap::VisitLand(bool detailed, const Visitor& visit) const {
  constexpr StoredRange kEvery{0, std::numeric_limits<std::uint32_t>::max()};
  VisitTable(files_->coast, detailed ? kFineLandTable : kLandTable, {kEvery, kEvery, false}, visit);
}

}  // namespace zerbal::data
