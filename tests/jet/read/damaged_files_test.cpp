// A thousand damaged files. Each must end in rows or in an EngineError, soon and without much memory.
#include <algorithm>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>
#ifdef _WIN32
#include <windows.h>
// Needs the former.
#include <psapi.h>
#else
#include <sys/resource.h>
#endif

#include "jet/database.h"
#include "jet/format/key.h"
#include "jet/pair_reader.h"
#include "jet/recordset.h"
#include "support/jet_file.h"
#include "support/jet_formats.h"
#include "support/sanitizer.h"
#include "support/test_random.h"

namespace zerbal::jet::test {
namespace {

constexpr int kFilesAFormat = 500;
constexpr std::uint32_t kRows = 120;

/// A file with every kind of structure: indexes of several levels, chains of memos, both kinds of usage map.
struct Sample {
  Bytes bytes;
  std::size_t pageSize = 0;
};

Sample MakeSample(Format format) {
  JetFile file(format);
  TestTable pairs(file, "Pairs",
                  {{"Lon", ColumnType::kLong, 0, true, 0, 4}, {"Lat", ColumnType::kLong, 1, true, 4, 4}});
  for (std::uint32_t i = 0; i < 2 * kRows; ++i)
    pairs.Add({Le(i, 4), Le(std::uint64_t{i} * i, 4)});
  pairs.ownedPages = file.AddReferenceMap(pairs.DataPages());
  pairs.Finish();

  TestTable table(file, "Rows",
                  {{"Id", ColumnType::kLong, 0, true, 0, 4},
                   {"Code", ColumnType::kText, 1, false, 0, 60},
                   {"Memo", ColumnType::kMemo, 2, false, 1, 0},
                   {"When", ColumnType::kDateTime, 3, true, 4, 8}});
  std::vector<TestEntry> byCode, byId;
  RecordPointer piece;
  for (std::uint32_t i = 0; i < kRows; ++i) {
    const std::string code = "Code " + std::to_string(i * 37 % kRows);
    const std::uint32_t page = i % 10 == 0 ? file.AddDataPage(0x4C41564C) : piece.page;
    piece = file.AddRow(page, Le(i % 10 == 0 ? 0 : piece.ToU32(), 4) + file.Text("piece"));
    const std::size_t memo = (i % 10 + 1) * file.Text("piece").size();
    const RecordPointer row = table.Add(
        {Le(i, 4), file.Text(code), Le(memo, 4) + Le(piece.ToU32(), 4) + Le(0, 4), Le(i * 7919ull << 40, 8)});
    Bytes key, id;
    if (format == Format::kJet3)
      AppendTextKeyJet3(code, true, key);
    else
      AppendTextKeyJet4(std::u16string(code.begin(), code.end()), true, key);
    AppendFixedKey(ColumnType::kLong, Chars(Le(i, 4)), false, id);
    byCode.push_back({key, row});
    byId.push_back({id, row});
  }
  table.indexes = {{"code", {{1, true}}, AddIndexTree(file, table.Page(), byCode, 6, true)},
                   {"id", {{0, false}}, AddIndexTree(file, table.Page(), byId, 20, false)}};
  table.Finish();
  return {file.Build(), file.PageSize()};
}

/// Everything there is to read; gives the number of rows.
std::size_t ReadAll(const Bytes& bytes) {
  std::size_t rowsRead = 0;
  const Database database = Database::FromBytes(bytes, "damaged.mdb");
  const auto walk = [&](Recordset& rows) {
    try {
      for (; !rows.Eof(); rows.MoveNext(), ++rowsRead) {
        for (std::size_t i = 0; i < rows.Columns().size(); ++i)
          rows.At(static_cast<int>(i)).AsText();
      }
    } catch (const EngineError&) {
    }
  };
  for (const std::string& name : database.TableNames()) {
    try {
      Recordset rows = database.OpenTable(name);
      walk(rows);
      for (const IndexInfo& index : rows.Indexes()) {
        rows.SetIndex(index.name);
        walk(rows);
        rows.Seek("Code 5");
        rows.Seek("5");
      }
      if (rows.Columns().size() >= 2) {
        PairReader reader(rows, rows.Columns()[0].name, rows.Columns()[1].name);
        std::vector<LongPair> pairs(64);
        while (reader.Read(pairs) > 0) {
        }
      }
    } catch (const EngineError&) {
    }
  }
  return rowsRead;
}

/// Damages a copy of the sample in one of the ways that files get damaged, and that attackers think of.
Bytes Damaged(const Sample& sample, std::mt19937& random) {
  Bytes bytes = sample.bytes;
  const auto pick = [&random](std::size_t below) { return static_cast<std::size_t>(random() % below); };
  const std::size_t pages = bytes.size() / sample.pageSize;
  const auto page = [&](std::uint8_t kind) {
    for (;;) {
      const std::size_t at = pick(pages) * sample.pageSize;
      if (bytes[at] == kind)
        return at;
    }
  };
  switch (pick(6)) {
    case 0:  // cut off
      bytes.resize(pick(bytes.size()));
      break;
    case 1: {  // bytes anywhere in the heads of pages, header page included
      for (std::size_t i = pick(5) + 1; i > 0; --i)
        bytes[pick(pages) * sample.pageSize + pick(64)] = static_cast<std::uint8_t>(random());
      break;
    }
    case 2: {  // bytes within one structure: definition, data, index
      const std::uint8_t kinds[] = {1, 2, 3, 4, 5};
      const std::size_t at = page(kinds[pick(5)]);
      for (std::size_t i = pick(8) + 1; i > 0; --i)
        bytes[at + pick(sample.pageSize)] = static_cast<std::uint8_t>(random());
      break;
    }
    case 3: {  // a pointer that leads to another page, or back to where it came from
      const std::size_t at = page(static_cast<std::uint8_t>(3 + pick(2))) + 8 + 4 * pick(4);
      const Bytes target = Le(pick(pages), 4);
      std::copy(target.begin(), target.end(), bytes.begin() + static_cast<std::ptrdiff_t>(at));
      break;
    }
    case 4: {  // a whole page replaced by another
      const std::size_t to = pick(pages) * sample.pageSize, from = pick(pages) * sample.pageSize;
      std::copy_n(sample.bytes.begin() + static_cast<std::ptrdiff_t>(from), sample.pageSize,
                  bytes.begin() + static_cast<std::ptrdiff_t>(to));
      break;
    }
    default: {  // single bits
      for (std::size_t i = pick(30) + 1; i > 0; --i)
        bytes[pick(bytes.size())] ^= static_cast<std::uint8_t>(1u << pick(8));
    }
  }
  return bytes;
}

/// The most memory that the process has had so far, in bytes.
std::size_t PeakMemory() {
#ifdef _WIN32
  PROCESS_MEMORY_COUNTERS counters = {};
  GetProcessMemoryInfo(GetCurrentProcess(), &counters, sizeof counters);
  return counters.PeakWorkingSetSize;
#else
  rusage usage = {};
  getrusage(RUSAGE_SELF, &usage);
  return static_cast<std::size_t>(usage.ru_maxrss) * 1024;
#endif
}

class DamagedFilesTest : public BothFormats {};
ZERBAL_BOTH_FORMATS(DamagedFilesTest);

TEST_P(DamagedFilesTest, TheUndamagedFileReadsWhole) {
  EXPECT_EQ(ReadAll(MakeSample(GetParam()).bytes), 2 * kRows + 3 * kRows);
}

TEST_P(DamagedFilesTest, EndInRowsOrInAnError) {
  using Clock = std::chrono::steady_clock;
  const Sample sample = MakeSample(GetParam());
  zerbal::test::TestRandom random(19970401);
  int refused = 0;
  int changed = 0;
  const std::size_t whole = ReadAll(sample.bytes);
  const std::size_t memoryBefore = PeakMemory();
  for (int i = 0; i < kFilesAFormat; ++i) {
    const Bytes bytes = Damaged(sample, random);
    const Clock::time_point start = Clock::now();
    try {
      changed += ReadAll(bytes) != whole ? 1 : 0;
    } catch (const EngineError& error) {
      ++refused;
      EXPECT_FALSE(error.Reason().empty());
    }
    EXPECT_LT(Clock::now() - start, std::chrono::seconds(1)) << "file " << i;
  }
  const std::size_t used = PeakMemory() - memoryBefore;
  EXPECT_TRUE(ZERBAL_ADDRESS_SANITIZER || used < 8 * sample.bytes.size()) << used;
  EXPECT_GT(refused, 0);
  EXPECT_GT(refused + changed, kFilesAFormat / 4);  // else the damage was too gentle
  EXPECT_LT(refused, kFilesAFormat);
}

}  // namespace
}  // namespace zerbal::jet::test
