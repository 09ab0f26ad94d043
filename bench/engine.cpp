// The speed of the database engine: reading a large table of points, compared with libmdb on the same file;
// searching a large text index; opening. The files are created in the temporary folder and removed at the
// end.
#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <random>
#include <stdexcept>
#include <string>
#include <system_error>
#include <vector>

#include <benchmark/benchmark.h>
#include <mdbtools.h>
#include <stdlib.h>

#include "jet/database.h"
#include "jet/pair_reader.h"
#include "jet/recordset.h"
#include "jet/writer.h"

namespace {

using namespace zerbal::jet;

constexpr int kPoints = 400'000;
constexpr int kAirports = 37'000;

ColumnInfo Column(const char* name, ColumnType type, int length) {
  ColumnInfo column;
  column.name = name;
  column.type = type;
  column.length = length;
  column.compressed = type == ColumnType::kText;
  return column;
}

/// Created on first use: a file with the points, and one with the airports under a text index.
class Files {
 public:
  static const Files& Get() {
    static const Files files;
    return files;
  }

  std::string Points() const { return (folder_ / "points.mdb").string(); }
  std::string Airports() const { return (folder_ / "airports.mdb").string(); }
  const std::vector<std::string>& Codes() const { return codes_; }

 private:
  Files() {
    std::string name = (std::filesystem::temp_directory_path() / "bench-engine-XXXXXX").string();
    if (mkdtemp(name.data()) == nullptr)
      throw std::runtime_error("no temporary folder");
    folder_ = name;
    WritePoints();
    WriteAirports();
  }
  ~Files() {
    std::error_code ignored;
    std::filesystem::remove_all(folder_, ignored);
  }

  void WritePoints() const {
    DatabaseWriter writer(Points());
    writer.BeginTable(
        {"wcl", {Column("Lon", ColumnType::kLong, 4), Column("Lat", ColumnType::kLong, 4)}, {}});
    for (int i = 0; i < kPoints; ++i)
      writer.AddPair(i % 100 == 0 ? -1'000'000 : i * 37 % 360'000'000, i * 91 % 180'000'000);
    writer.EndTable();
    writer.Finish();
  }

  void WriteAirports() {
    for (int i = 0; i < kAirports; ++i) {
      std::string code = "....";
      for (int place = 0, rest = i; place < 4; ++place, rest /= 26)
        code[static_cast<std::size_t>(3 - place)] = static_cast<char>('A' + rest % 26);
      codes_.push_back(code);
    }
    std::mt19937 random(1);
    std::shuffle(codes_.begin(), codes_.end(), random);
    DatabaseWriter writer(Airports());
    IndexInfo index;
    index.name = "aprt";
    index.columns = {{"AP", true}};
    index.unique = true;
    writer.BeginTable({"allaprt",
                       {Column("AP", ColumnType::kText, 4), Column("AP_Name", ColumnType::kText, 60),
                        Column("AP_Lon", ColumnType::kSingle, 4), Column("AP_Lat", ColumnType::kSingle, 4)},
                       {index}});
    for (const std::string& code : codes_)
      writer.AddRow(
          std::array<Value, 4>{Value(code), Value("The airport of " + code), Value(1.5f), Value(-2.5f)});
    writer.EndTable();
    writer.Finish();
    std::shuffle(codes_.begin(), codes_.end(), random);
  }

  std::filesystem::path folder_;
  std::vector<std::string> codes_;
};

void CountRows(benchmark::State& state, std::int64_t rows) {
  state.SetItemsProcessed(state.iterations() * rows);
}

void WalkWithPairReader(benchmark::State& state) {
  const Database database = Database::Open(Files::Get().Points());
  const Recordset table = database.OpenTable("wcl");
  std::vector<LongPair> batch(1024);
  for ([[maybe_unused]] auto _ : state) {
    PairReader reader(table, "Lon", "Lat");
    std::int64_t sum = 0;
    int rows = 0;
    for (std::size_t count = reader.Read(batch); count > 0; count = reader.Read(batch)) {
      rows += static_cast<int>(count);
      for (std::size_t i = 0; i < count; ++i)
        sum += batch[i].first ^ batch[i].second;
    }
    benchmark::DoNotOptimize(sum);
    if (rows != kPoints)
      state.SkipWithError("rows are missing");
  }
  CountRows(state, kPoints);
}
BENCHMARK(WalkWithPairReader)->Unit(benchmark::kMillisecond);

void WalkWithRecordset(benchmark::State& state) {
  const Database database = Database::Open(Files::Get().Points());
  Recordset table = database.OpenTable("wcl");
  const int lon = table.FieldIndex("Lon"), lat = table.FieldIndex("Lat");
  for ([[maybe_unused]] auto _ : state) {
    std::int64_t sum = 0;
    for (table.MoveFirst(); !table.Eof(); table.MoveNext())
      sum += table.At(lon).AsLong() ^ table.At(lat).AsLong();
    benchmark::DoNotOptimize(sum);
  }
  CountRows(state, kPoints);
}
BENCHMARK(WalkWithRecordset)->Unit(benchmark::kMillisecond);

/// libmdb returns every value as text.
void WalkWithLibmdb(benchmark::State& state) {
  MdbHandle* handle = mdb_open(Files::Get().Points().c_str(), MDB_NOFLAGS);
  if (handle == nullptr) {
    state.SkipWithError("libmdb cannot open the file");
    return;
  }
  std::string tableName = "wcl";
  MdbTableDef* table = mdb_read_table_by_name(handle, tableName.data(), MDB_TABLE);
  mdb_read_columns(table);
  std::array<char, MDB_BIND_SIZE> lon = {}, lat = {};
  mdb_bind_column_by_name(table, const_cast<char*>("Lon"), lon.data(), nullptr);
  mdb_bind_column_by_name(table, const_cast<char*>("Lat"), lat.data(), nullptr);
  for ([[maybe_unused]] auto _ : state) {
    mdb_rewind_table(table);
    std::int64_t sum = 0;
    int rows = 0;
    for (; mdb_fetch_row(table) != 0; ++rows)
      sum += std::atol(lon.data()) ^ std::atol(lat.data());
    benchmark::DoNotOptimize(sum);
    if (rows != kPoints)
      state.SkipWithError("rows are missing");
  }
  CountRows(state, kPoints);
  mdb_free_tabledef(table);
  mdb_close(handle);
}
BENCHMARK(WalkWithLibmdb)->Unit(benchmark::kMillisecond);

void Seek(benchmark::State& state) {
  const Database database = Database::Open(Files::Get().Airports());
  Recordset table = database.OpenTable("allaprt");
  table.SetIndex("aprt");
  const std::vector<std::string>& codes = Files::Get().Codes();
  std::size_t i = 0;
  for ([[maybe_unused]] auto _ : state) {
    table.Seek(codes[i]);
    if (table.NoMatch())
      state.SkipWithError("a code was not found");
    i = i + 1 == codes.size() ? 0 : i + 1;
  }
  CountRows(state, 1);
}
BENCHMARK(Seek);

void OpenDatabase(benchmark::State& state) {
  const std::string file = Files::Get().Airports();
  for ([[maybe_unused]] auto _ : state)
    benchmark::DoNotOptimize(Database::Open(file));
}
BENCHMARK(OpenDatabase)->Unit(benchmark::kMicrosecond);

void OpenTable(benchmark::State& state) {
  const Database database = Database::Open(Files::Get().Airports());
  for ([[maybe_unused]] auto _ : state)
    benchmark::DoNotOptimize(database.OpenTable("allaprt"));
}
BENCHMARK(OpenTable)->Unit(benchmark::kMicrosecond);

}  // namespace

BENCHMARK_MAIN();
