// Reads a whole database as the fuzz targets of the reader do: every table in stored order and by every
// index, fields as every type, some values by seeking. The reader may only throw EngineError.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "jet/database.h"
#include "jet/pair_reader.h"
#include "jet/recordset.h"
#include "require.h"

namespace zerbal::fuzz {

using namespace zerbal::jet;

/// Runs `work`. Returns false when it throws EngineError.
template <class Work>
bool Try(Work&& work) {
  try {
    work();
    return true;
  } catch (const EngineError& error) {
    Require(!error.Reason().empty() && error.File() == "fuzz", "an error has no reason or file");
    return false;
  }
}

// Throwing takes most of the time of an execution. So the first failure ends the conversions of a field and
// the seeks of an index, and only rows in stored order are converted.

inline void ReadText(const Field& field) {
  std::string text;
  bool isNull = true;
  if (!Try([&] {
        isNull = field.IsNull();
        text = field.AsText();
      }))
    return;
  Require(!isNull || text.empty(), "Null has a text");
  Require(field.EqualsText(text) == !isNull, "a text does not equal itself");
  Require(isNull || !field.EqualsText(text + "x"), "a text equals another one");
}

/// Reads a field as every type, in the order in which the conversions fail.
inline void ReadField(const Field& field) {
  ReadText(field);
  Try([&] {
    field.AsBytes();
    if (field.IsNull())
      return;
    field.AsDouble();
    field.AsBoolean();
    field.AsSingle();
    field.AsLong();
    field.AsInteger();
    field.AsByte();
  });
}

/// Moves through all rows and calls `read` with the fields of the first `fieldsOfRows` rows.
template <class Read>
void Walk(Recordset& rows, std::size_t fieldsOfRows, Read&& read) {
  std::size_t count = 0;
  Try([&] {
    for (rows.MoveFirst(); !rows.Eof(); rows.MoveNext()) {
      if (count++ < fieldsOfRows) {
        for (std::size_t i = 0; i < rows.Columns().size(); ++i)
          read(rows.At(static_cast<int>(i)));
      }
    }
    for (std::size_t back = 0; back < 20 && !rows.Bof(); ++back)
      rows.MovePrevious();
  });
}

/// Seeks values of the table's rows and others. A value may be missing because the index is damaged.
inline void SeekValues(Recordset& rows, const IndexInfo& index) {
  if (index.columns.empty())
    return;
  std::vector<std::string> keys = {"", "A", "42", "-1.5", "zebra crossing"};
  Try([&] {
    rows.MoveFirst();
    for (int i = 0; i < 5 && !rows.Eof(); ++i, rows.MoveNext())
      keys.push_back(rows[index.columns.front().name].AsText());
  });
  Try([&] {
    for (const std::string& key : keys) {
      rows.Seek(key);
      Require(rows.NoMatch() == rows.Eof(), "a match has no row");
      if (!rows.NoMatch())
        rows.MoveNext();
    }
  });
}

inline void ReadPairs(const Recordset& rows) {
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

/// In how many rows fields are read.
struct Effort {
  std::size_t rows = 50;
  std::size_t rowsByIndex = 5;
};

inline void ReadTable(const Database& database, const std::string& name, const Effort& effort) {
  Recordset rows = database.OpenTable(name);
  Walk(rows, effort.rows, ReadField);
  ReadPairs(rows);
  for (const IndexInfo& index : rows.Indexes()) {
    Try([&] {
      rows.SetIndex(index.name);
      Walk(rows, effort.rowsByIndex, ReadText);
      SeekValues(rows, index);
    });
  }
}

/// Reads a database of these bytes.
inline void ReadDatabase(std::vector<std::uint8_t> bytes, const Effort& effort = {}) {
  Try([&] {
    const Database database = Database::FromBytes(std::move(bytes), "fuzz");
    std::vector<std::string> names = database.TableNames();
    constexpr std::size_t kMostTables = 20;  // many names may belong to one table
    if (names.size() > kMostTables)
      names.resize(kMostTables);
    for (const std::string& name : names)
      Try([&] { ReadTable(database, name, effort); });
  });
}

}  // namespace zerbal::fuzz
