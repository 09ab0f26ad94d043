// Database files of any bytes: every table is walked in stored order and by every index, every field is read
// in every way, a few values are sought. The only way out other than an end is an EngineError.
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "jet/database.h"
#include "jet/pair_reader.h"
#include "jet/recordset.h"

namespace {

using namespace zerbal::jet;

void Require(bool condition, const char* what) {
  if (condition)
    return;
  std::fprintf(stderr, "broken: %s\n", what);
  std::abort();
}

/// Runs `work`; says whether the file let it come to its end.
template <class Work>
bool Try(Work&& work) {
  try {
    work();
    return true;
  } catch (const EngineError& error) {
    Require(!error.Reason().empty() && error.File() == "fuzz", "an error without a reason or file");
    return false;
  }
}

void ReadField(const Field& field) {
  const auto read = [](auto&& work) { Try([&] { work(); }); };
  std::string text;
  bool isNull = true;
  if (!Try([&] {
        isNull = field.IsNull();
        text = field.AsText();
      }))
    return;
  Require(!isNull || text.empty(), "Null has a text");
  Require(field.EqualsText(text) == !isNull, "a text that is not its own");
  Require(isNull || !field.EqualsText(text + "x"), "a text that equals another");
  read([&] { field.AsByte(); });
  read([&] { field.AsInteger(); });
  read([&] { field.AsLong(); });
  read([&] { field.AsSingle(); });
  read([&] { field.AsDouble(); });
  read([&] { field.AsBoolean(); });
  read([&] { field.AsBytes(); });
}

/// Walks to the end, reading the fields of the first rows; gives the number of rows.
std::size_t Walk(Recordset& rows, std::size_t fieldsOfRows) {
  std::size_t count = 0;
  Try([&] {
    for (rows.MoveFirst(); !rows.Eof(); rows.MoveNext()) {
      if (count++ < fieldsOfRows) {
        for (std::size_t i = 0; i < rows.Columns().size(); ++i)
          ReadField(rows.At(static_cast<int>(i)));
      }
    }
    for (std::size_t back = 0; back < 20 && !rows.Bof(); ++back)
      rows.MovePrevious();
  });
  return count;
}

/// Seeks values of the table's own rows and some others. None need be found: the index may be damaged.
void SeekValues(Recordset& rows, const IndexInfo& index) {
  if (index.columns.empty())
    return;
  std::vector<std::string> keys = {"", "A", "42", "-1.5", "zebra crossing"};
  Try([&] {
    rows.MoveFirst();
    for (int i = 0; i < 5 && !rows.Eof(); ++i, rows.MoveNext())
      keys.push_back(rows[index.columns.front().name].AsText());
  });
  for (const std::string& key : keys) {
    Try([&] {
      rows.Seek(key);
      Require(rows.NoMatch() == rows.Eof(), "a match without a row");
      if (!rows.NoMatch())
        rows.MoveNext();
    });
  }
}

void ReadPairs(const Recordset& rows) {
  Try([&] {
    const auto& columns = rows.Columns();
    if (columns.size() < 2)
      return;
    PairReader reader(rows, columns[0].name, columns[1].name);
    std::array<LongPair, 64> pairs = {};
    while (reader.Read(pairs) > 0) {
    }
  });
}

void ReadTable(const Database& database, const std::string& name) {
  Recordset rows = database.OpenTable(name);
  Walk(rows, 50);
  ReadPairs(rows);
  for (const IndexInfo& index : rows.Indexes()) {
    Try([&] {
      rows.SetIndex(index.name);
      Walk(rows, 5);
      SeekValues(rows, index);
    });
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  Try([&] {
    const Database database = Database::FromBytes({data, data + size}, "fuzz");
    std::vector<std::string> names = database.TableNames();
    constexpr std::size_t kMostTables = 20;  // many names may lead to one table
    if (names.size() > kMostTables)
      names.resize(kMostTables);
    for (const std::string& name : names)
      Try([&] { ReadTable(database, name); });
  });
  return 0;
}
