#include "mdb_scan.h"

#include <array>
#include <stdexcept>

#include <mdbtools.h>

namespace zerbal::bench {

struct MdbScan::State {
  MdbHandle* handle = nullptr;
};

MdbScan::MdbScan(const std::filesystem::path& file) : state_(std::make_unique<State>()) {
  state_->handle = mdb_open(file.c_str(), MDB_NOFLAGS);
  if (state_->handle == nullptr || mdb_read_catalog(state_->handle, MDB_TABLE) == nullptr)
    throw std::runtime_error("libmdb cannot open " + file.string());
}

MdbScan::~MdbScan() {
  if (state_->handle != nullptr)
    mdb_close(state_->handle);
}

std::size_t MdbScan::Scan(const std::string& table, const std::vector<std::string>& columns) {
  std::string name = table;
  MdbTableDef* definition = mdb_read_table_by_name(state_->handle, name.data(), MDB_TABLE);
  if (definition == nullptr)
    return 0;
  mdb_read_columns(definition);
  mdb_rewind_table(definition);
  std::vector<std::array<char, 4096>> values(columns.size());
  std::vector<int> lengths(columns.size());
  for (std::size_t i = 0; i < columns.size(); ++i) {
    std::string column = columns[i];
    mdb_bind_column_by_name(definition, column.data(), values[i].data(), &lengths[i]);
  }
  std::size_t rows = 0;
  while (mdb_fetch_row(definition) != 0)
    ++rows;
  mdb_free_tabledef(definition);
  return rows;
}

}  // namespace zerbal::bench
