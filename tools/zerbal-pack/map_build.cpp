#include "zerbal-pack/map_build.h"

#include <algorithm>
#include <iterator>

#include "jet/writer.h"
#include "zerbal-pack/land_tables.h"
#include "zerbal-pack/map_tables.h"

namespace zerbal::pack {

namespace {

struct MapFile {
  MapTheme theme;
  const char* name;
  double share;  // of the whole work
};
constexpr MapFile kMapFiles[] = {{MapTheme::kCoast, "coast.mdb", 0.7},
                                 {MapTheme::kRiver, "river.mdb", 0.22},
                                 {MapTheme::kBoundary, "ibound.mdb", 0.08}};

jet::TableSpec PointTable(const std::string& name) {
  jet::TableSpec spec;
  spec.name = name;
  for (const char* column : {"Lon", "Lat"}) {
    jet::ColumnInfo info;
    info.name = column;
    info.type = jet::ColumnType::kLong;
    info.length = 4;
    info.fixed = true;
    spec.columns.push_back(info);
  }
  return spec;
}

MapTableSize WriteTable(jet::DatabaseWriter& writer, const std::string& file, const MapTable& table) {
  MapTableSize size{file, table.name, 0, table.lines.size()};
  writer.BeginTable(PointTable(table.name));
  for (const MapLine& line : table.lines) {
    for (const MapPoint point : line)
      writer.AddPair(point.lon, point.lat);
    writer.AddPair(kPenUp, 0);
    size.rows += line.size() + 1;
  }
  writer.EndTable();
  return size;
}

}  // namespace

std::vector<MapTableSize> BuildMapDatabases(const MapBuildOptions& options, const ProgressSink& progress) {
  const auto report = [&progress](double done) {
    if (progress)
      progress(done);
  };
  const std::filesystem::path folder = options.outputFolder / "app_map";
  std::filesystem::create_directories(folder);
  std::vector<MapTableSize> sizes;
  double done = 0;
  report(done);
  for (const MapFile& file : kMapFiles) {
    std::vector<MapTable> tables = MakeMapTables(file.theme, options.detail, options.sourceFolder);
    if (file.theme == MapTheme::kCoast)
      std::ranges::move(MakeLandTables(options.detail, options.sourceFolder), std::back_inserter(tables));
    report(done + file.share / 2);
    jet::DatabaseWriter writer(folder / file.name);
    for (std::size_t i = 0; i < tables.size(); ++i) {
      sizes.push_back(WriteTable(writer, file.name, tables[i]));
      const double part = static_cast<double>(i + 1) / static_cast<double>(tables.size());
      report(done + file.share * (1 + part) / 2);
    }
    writer.Finish();
    done += file.share;
  }
  report(1);
  return sizes;
}

}  // namespace zerbal::pack
