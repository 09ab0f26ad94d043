#include "support/jet_file.h"

#include <algorithm>
#include <stdexcept>

namespace zerbal::jet::test {
namespace {

// The key stream that encodes headers and pages: RC4 with a key of four bytes.
Bytes KeyStream(const Bytes& key, std::size_t size) {
  std::uint8_t state[256];
  for (int i = 0; i < 256; ++i)
    state[i] = static_cast<std::uint8_t>(i);
  for (int i = 0, j = 0; i < 256; ++i) {
    j = (j + state[i] + key.at(static_cast<std::size_t>(i) % 4)) & 255;
    std::swap(state[i], state[j]);
  }
  Bytes mask;
  for (int i = 1, j = 0; mask.size() < size; ++i) {
    j = (j + state[i & 255]) & 255;
    std::swap(state[i & 255], state[j]);
    mask.push_back(state[(state[i & 255] + state[j]) & 255]);
  }
  return mask;
}

void Encode(Bytes& bytes, std::size_t at, const Bytes& keyStream) {
  for (std::size_t i = 0; i < keyStream.size(); ++i)
    bytes.at(at + i) ^= keyStream[i];
}

constexpr std::uint32_t kCatalogPage = 2;

}  // namespace

Bytes Le(std::uint64_t value, int size) {
  Bytes bytes;
  for (int i = 0; i < size; ++i)
    bytes.push_back(i < 8 ? static_cast<std::uint8_t>(value >> 8 * i) : std::uint8_t{0});
  return bytes;
}

Bytes Be(std::uint64_t value, int size) {
  Bytes bytes = Le(value, size);
  std::reverse(bytes.begin(), bytes.end());
  return bytes;
}

Bytes Raw(std::string_view text) {
  return {text.begin(), text.end()};
}

Bytes Utf16(std::u16string_view text) {
  Bytes bytes;
  for (const char16_t unit : text)
    bytes = std::move(bytes) + Le(unit, 2);
  return bytes;
}

Bytes Compressed(std::string_view latin1) {
  return Bytes{0xFF, 0xFE} + Raw(latin1);
}

std::string_view Chars(const Bytes& bytes) {
  return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

Bytes operator+(Bytes a, const Bytes& b) {
  a.insert(a.end(), b.begin(), b.end());
  return a;
}

JetFile::JetFile(Format format) : format_(format) {
  AddPage(0);
  AddDataPage(1);
  AddPage(2);
  mapPage_ = AddDataPage(0);
}

std::uint32_t JetFile::AddPage(std::uint8_t kind) {
  const std::uint32_t number = PageCount();
  bytes_.resize(bytes_.size() + PageSize());
  Put(number, 0, {kind, 1});
  return number;
}

std::uint32_t JetFile::AddDataPage(std::uint32_t owner) {
  const std::uint32_t number = AddPage(1);
  Put(number, 4, Le(owner, 4));
  return number;
}

void JetFile::Put(std::uint32_t page, std::size_t at, const Bytes& bytes) {
  std::copy(bytes.begin(), bytes.end(), bytes_.begin() + static_cast<std::ptrdiff_t>(page * PageSize() + at));
}

std::uint64_t JetFile::Get(std::uint32_t page, std::size_t at, int size) const {
  std::uint64_t value = 0;
  for (int i = size; i-- > 0;)
    value = value << 8 | bytes_[page * PageSize() + at + static_cast<std::size_t>(i)];
  return value;
}

bool JetFile::RowFits(std::uint32_t page, const Bytes& row) const {
  const auto rows = static_cast<unsigned>(Get(page, IsJet3() ? 0x08 : 0x0C, 2));
  const std::size_t end = rows == 0 ? PageSize() : Get(page, DirectoryEntry(rows - 1), 2) & 0x1FFF;
  return rows < 255 && end >= row.size() + DirectoryEntry(rows + 1);
}

RecordPointer JetFile::AddRow(std::uint32_t page, const Bytes& row, std::uint16_t flags) {
  if (!RowFits(page, row))
    throw std::length_error("row does not fit");
  const std::size_t countAt = IsJet3() ? 0x08 : 0x0C;
  const auto number = static_cast<unsigned>(Get(page, countAt, 2));
  const std::size_t end = number == 0 ? PageSize() : Get(page, DirectoryEntry(number - 1), 2) & 0x1FFF;
  Put(page, end - row.size(), row);
  Put(page, DirectoryEntry(number), Le((end - row.size()) | flags, 2));
  Put(page, countAt, Le(number + 1, 2));
  return {page, static_cast<std::uint8_t>(number)};
}

RecordPointer JetFile::AddMap(const std::vector<std::uint32_t>& pages, std::uint32_t start) {
  Bytes bitmap(64);
  for (const std::uint32_t page : pages)
    bitmap.at((page - start) / 8) |= static_cast<std::uint8_t>(1 << (page - start) % 8);
  const Bytes row = Bytes{0} + Le(start, 4) + bitmap;
  if (!RowFits(mapPage_, row))
    mapPage_ = AddDataPage(0);
  return AddRow(mapPage_, row);
}

RecordPointer JetFile::AddReferenceMap(const std::vector<std::uint32_t>& pages) {
  const std::size_t perPage = (PageSize() - 4) * 8;
  std::vector<std::uint32_t> maps(4);
  for (const std::uint32_t page : pages) {
    std::uint32_t& map = maps.at(page / perPage);
    if (map == 0)
      map = AddPage(5);
    const std::size_t at = 4 + page % perPage / 8;
    Put(map, at, {static_cast<std::uint8_t>(Get(map, at, 1) | 1u << page % 8)});
  }
  Bytes row = {1};
  for (const std::uint32_t map : maps)
    row = std::move(row) + Le(map, 4);
  return AddRow(mapPage_, row + Bytes{0x80, 0xFF, 0xFF, 0xFF});
}

Bytes JetFile::Name(std::string_view ascii) const {
  const Bytes text = Text(ascii);
  return Le(text.size(), IsJet3() ? 1 : 2) + text;
}

void JetFile::List(std::string name, std::uint32_t definition, std::uint32_t flags, int type) {
  listed_.push_back({std::move(name), definition, flags, type});
}

void JetFile::WriteHeader() {
  Bytes plain(IsJet3() ? 126 : 128);
  const auto set = [&plain](std::size_t at, const Bytes& bytes) {
    std::copy(bytes.begin(), bytes.end(), plain.begin() + static_cast<std::ptrdiff_t>(at - 0x18));
  };
  set(0x18, Le(0x100, 4));
  set(0x3C, Le(codePage, 2));
  if (IsJet3()) {
    set(0x3A, Le(sortOrder, 2));
  } else {
    set(0x6E, Le(sortOrder, 2));
    set(0x71, {sortOrderVersion});
  }
  Encode(plain, 0, KeyStream({0xC7, 0xDA, 0x39, 0x6B}, plain.size()));
  Put(0, 0,
      Bytes{0, 1, 0, 0} + Raw("Standard Jet DB") + Bytes{0, static_cast<std::uint8_t>(IsJet3() ? 0 : 1)});
  Put(0, 0x18, plain);
}

void JetFile::WriteCatalog() {
  const std::vector<TestColumn> columns = {{"Id", ColumnType::kLong, 0, true, 0, 4},
                                           {"Name", ColumnType::kText, 1, false, 0, 510},
                                           {"Type", ColumnType::kInteger, 2, true, 4, 2},
                                           {"Flags", ColumnType::kLong, 3, true, 6, 4}};
  TestTable catalog(*this, "", columns);
  for (const Listed& table : listed_)
    catalog.Add({Le(table.definition, 4), Text(table.name), Le(static_cast<std::uint32_t>(table.type), 2),
                 Le(table.flags, 4)});
  catalog.ownedPages = AddMap(catalog.DataPages());
  Put(kCatalogPage, 0, catalog.Definition());
}

Bytes JetFile::Build() {
  WriteCatalog();
  WriteHeader();
  return bytes_;
}

Bytes Encoded(Bytes file, std::size_t pageSize, std::uint32_t databaseKey) {
  Encode(file, 0x3E, Le(databaseKey, 4));  // the key was 0
  for (std::size_t page = 1; (page + 1) * pageSize <= file.size(); ++page)
    Encode(file, page * pageSize, KeyStream(Le(databaseKey ^ page, 4), pageSize));
  return file;
}

TestTable::TestTable(JetFile& file, std::string name, std::vector<TestColumn> columns)
    : file_(file),
      name_(std::move(name)),
      columns_(std::move(columns)),
      page_(name_.empty() ? kCatalogPage : file.AddPage(2)) {
  for (const TestColumn& column : columns_) {
    maxColumns = std::max(maxColumns, column.number + 1);
    if (!column.fixed)
      variableColumns = std::max(variableColumns, column.place + 1);
  }
}

void TestTable::StartPage() {
  dataPages_.push_back(file_.AddDataPage(page_));
}

RecordPointer TestTable::AddBytes(const Bytes& row, std::uint16_t flags) {
  if (dataPages_.empty() || !file_.RowFits(dataPages_.back(), row))
    StartPage();
  return file_.AddRow(dataPages_.back(), row, flags);
}

Bytes TestTable::RowBytes(const std::vector<Cell>& cells, int columnCount) const {
  const bool jet3 = file_.IsJet3();
  const int known = columnCount < 0 ? maxColumns : columnCount;
  Bytes row = Le(static_cast<unsigned>(known), jet3 ? 1 : 2);
  const std::size_t head = row.size();
  Bytes mask(static_cast<std::size_t>((known + 7) / 8));
  std::vector<Bytes> variable(static_cast<std::size_t>(variableColumns));
  for (std::size_t i = 0; i < columns_.size(); ++i) {
    const TestColumn& column = columns_[i];
    if (column.number >= known)
      continue;
    if (column.fixed && column.type != ColumnType::kBoolean)
      row.resize(std::max(row.size(), head + static_cast<std::size_t>(column.place + column.length)));
    if (!cells[i])
      continue;
    mask[static_cast<std::size_t>(column.number / 8)] |= static_cast<std::uint8_t>(1 << column.number % 8);
    if (!column.fixed)
      variable[static_cast<std::size_t>(column.place)] = *cells[i];
    else if (column.type != ColumnType::kBoolean)
      std::copy(cells[i]->begin(), cells[i]->end(),
                row.begin() + static_cast<std::ptrdiff_t>(head) + column.place);
  }
  if (variableColumns == 0)
    return row + mask;
  std::vector<std::size_t> offsets;
  for (const Bytes& value : variable) {
    offsets.push_back(row.size());
    row = std::move(row) + value;
  }
  offsets.push_back(row.size());
  std::reverse(offsets.begin(), offsets.end());
  if (!jet3) {
    for (const std::size_t offset : offsets)
      row = std::move(row) + Le(offset, 2);
    return std::move(row) + Le(variable.size(), 2) + mask;
  }
  for (const std::size_t offset : offsets)
    row.push_back(static_cast<std::uint8_t>(offset));
  // One jump for every 256 bytes of the row, in reverse order: the index of the first part that begins (or,
  // for the end of the data, ends) after them.
  std::size_t jumps = 0;
  while ((row.size() + jumps + 1 + mask.size() - 1) / 256 > jumps)
    ++jumps;
  for (std::size_t jump = jumps; jump-- > 0;) {
    const auto part =
        std::count_if(offsets.begin(), offsets.end(), [&](std::size_t o) { return o < 256 * (jump + 1); });
    row.push_back(part > static_cast<std::ptrdiff_t>(variable.size()) ? 0xFF
                                                                      : static_cast<std::uint8_t>(part));
  }
  row.push_back(static_cast<std::uint8_t>(variable.size()));
  return row + mask;
}

Bytes TestTable::ColumnRecord(const TestColumn& column) const {
  const bool jet3 = file_.IsJet3();
  const Bytes number = Le(static_cast<unsigned>(column.number), 2);
  const Bytes index = Le(column.fixed ? 0u : static_cast<unsigned>(column.place), 2);
  const Bytes offset = Le(column.fixed ? static_cast<unsigned>(column.place) : 0xABCDu, 2);
  const Bytes length = Le(static_cast<unsigned>(column.length), 2);
  const Bytes flags = {static_cast<std::uint8_t>(column.fixed ? 3 : 2)};
  const Bytes type = {static_cast<std::uint8_t>(column.type)};
  const Bytes order = column.type == ColumnType::kNumeric ? Bytes{18, column.scale} : Le(column.sortOrder, 2);
  if (jet3)
    return type + number + index + Le(0, 4) + order + Le(1252, 2) + flags + offset + length;
  return type + Le(0x659, 4) + number + index + Le(0, 2) + order + Le(0, 2) + flags + Bytes{1} + Le(0, 4) +
         offset + length;
}

Bytes TestTable::IndexRecords() const {
  const bool jet3 = file_.IsJet3();
  Bytes records;
  for (const Index& index : indexes) {
    Bytes record = jet3 ? Bytes() : Le(0x783, 4);
    for (std::size_t i = 0; i < 10; ++i) {
      const bool used = i < index.columns.size();
      record = std::move(record) + Le(used ? static_cast<unsigned>(index.columns[i].first) : 0xFFFFu, 2) +
               Bytes{static_cast<std::uint8_t>(used && index.columns[i].second ? 1 : 0)};
    }
    record =
        std::move(record) + Le(0, 4) + Le(index.root, 4) + (jet3 ? Bytes() : Le(0, 4)) + Bytes{index.flags};
    record.resize(jet3 ? 39 : 52);
    records = std::move(records) + record;
  }
  for (std::size_t i = 0; i < indexes.size(); ++i) {
    Bytes record = jet3 ? Bytes() : Le(0x659, 4);
    record = std::move(record) + Le(i, 4) + Le(i, 4) + Bytes{0} + Le(~0u, 4) + Le(0, 4) + Bytes{4, 4} +
             Bytes{indexes[i].kind};
    record.resize(jet3 ? 20 : 28);
    records = std::move(records) + record;
  }
  for (const Index& index : indexes)
    records = std::move(records) + file_.Name(index.name);
  return records;
}

Bytes TestTable::Definition() {
  const bool jet3 = file_.IsJet3();
  Bytes bytes(jet3 ? 0x2B : 0x3F);
  const auto set = [&bytes](std::size_t at, const Bytes& value) {
    std::copy(value.begin(), value.end(), bytes.begin() + static_cast<std::ptrdiff_t>(at));
  };
  bytes[0] = 2;
  bytes[1] = 1;
  set(jet3 ? 0x15 : 0x29, Le(static_cast<unsigned>(maxColumns), 2));
  set(jet3 ? 0x17 : 0x2B, Le(static_cast<unsigned>(variableColumns), 2));
  set(jet3 ? 0x19 : 0x2D, Le(columns_.size(), 2));
  set(jet3 ? 0x1B : 0x2F, Le(indexes.size(), 4));
  set(jet3 ? 0x1F : 0x33, Le(indexes.size(), 4));
  set(jet3 ? 0x23 : 0x37, Le(ownedPages->ToU32(), 4));
  bytes.resize(bytes.size() + indexes.size() * (jet3 ? 8 : 12));
  for (const TestColumn& column : columns_)
    bytes = std::move(bytes) + ColumnRecord(column);
  for (const TestColumn& column : columns_)
    bytes = std::move(bytes) + file_.Name(column.name);
  bytes = std::move(bytes) + IndexRecords() + Le(0xFFFF, 2);
  set(8, Le(bytes.size(), 4));
  return bytes;
}

void TestTable::Finish() {
  if (!ownedPages)
    ownedPages = file_.AddMap(dataPages_);
  const Bytes definition = Definition();
  std::size_t at = std::min(definition.size(), file_.PageSize());
  const auto part = [&definition](std::size_t from, std::size_t to) {
    return Bytes(definition.begin() + static_cast<std::ptrdiff_t>(from),
                 definition.begin() + static_cast<std::ptrdiff_t>(to));
  };
  file_.Put(page_, 0, part(0, at));
  for (std::uint32_t page = page_; at < definition.size();) {
    const std::uint32_t next = file_.AddPage(2);
    file_.Put(page, 4, Le(next, 4));
    const std::size_t end = std::min(definition.size(), at + file_.PageSize() - 8);
    file_.Put(next, 8, part(at, end));
    page = next;
    at = end;
  }
  file_.List(name_, page_);
}

std::uint32_t AddIndexPage(JetFile& file, std::uint32_t owner, bool leaf, const std::vector<Bytes>& entries,
                           bool compress, std::uint32_t tail) {
  const bool jet3 = file.IsJet3();
  const std::uint32_t page = file.AddPage(leaf ? 4 : 3);
  file.Put(page, 4, Le(owner, 4));
  std::size_t prefix = 0;
  if (compress && entries.size() > 1) {
    std::size_t shortest = entries[0].size();
    for (const Bytes& entry : entries)
      shortest = std::min(shortest, entry.size());
    while (prefix + 1 < shortest && prefix < 255 && entries.front()[prefix] == entries.back()[prefix])
      ++prefix;
  }
  file.Put(page, jet3 ? 0x10 : 0x14, Le(tail, 4));
  file.Put(page, jet3 ? 0x14 : 0x18, Le(prefix, jet3 ? 1 : 2));
  std::size_t at = 0;
  for (std::size_t i = 0; i < entries.size(); ++i) {
    const Bytes own(entries[i].begin() + static_cast<std::ptrdiff_t>(i == 0 ? 0 : prefix), entries[i].end());
    const std::size_t base = jet3 ? 0xF8 : 0x1E0;
    if (base + at + own.size() > file.PageSize())
      throw std::length_error("index entries do not fit");
    file.Put(page, base + at, own);
    at += own.size();
    const std::size_t mask = (jet3 ? 0x16 : 0x1B) + at / 8;
    file.Put(page, mask, {static_cast<std::uint8_t>(file.Get(page, mask, 1) | 1u << at % 8)});
  }
  return page;
}

std::uint32_t AddIndexTree(JetFile& file, std::uint32_t owner, const std::vector<TestEntry>& entries,
                           std::size_t perPage, bool compress) {
  struct Node {
    std::uint32_t page;
    Bytes last;  ///< the last leaf entry below
  };
  std::vector<Bytes> rows;
  for (const TestEntry& entry : entries)
    rows.push_back(entry.key + Be(entry.row.page, 3) + Bytes{entry.row.row});
  std::sort(rows.begin(), rows.end(), [](const Bytes& a, const Bytes& b) { return Chars(a) < Chars(b); });
  const auto link = [&file](const std::vector<Node>& level) {
    const std::size_t at = file.IsJet3() ? 0x08 : 0x0C;
    for (std::size_t i = 0; i + 1 < level.size(); ++i) {
      file.Put(level[i + 1].page, at, Le(level[i].page, 4));
      file.Put(level[i].page, at + 4, Le(level[i + 1].page, 4));
    }
  };
  std::vector<Node> level;
  for (std::size_t i = 0; i < rows.size() || level.empty(); i += perPage) {
    const auto from = rows.begin() + static_cast<std::ptrdiff_t>(i);
    const std::vector<Bytes> own(from,
                                 from + static_cast<std::ptrdiff_t>(std::min(perPage, rows.size() - i)));
    level.push_back({AddIndexPage(file, owner, true, own, compress), own.empty() ? Bytes() : own.back()});
  }
  link(level);
  while (level.size() > 1) {
    std::vector<Node> above;
    for (std::size_t i = 0; i < level.size(); i += perPage) {
      const std::size_t end = std::min(i + perPage, level.size());
      std::vector<Bytes> own;
      for (std::size_t child = i; child + 1 < end; ++child)
        own.push_back(level[child].last + Be(level[child].page, 4));
      above.push_back(
          {AddIndexPage(file, owner, false, own, compress, level[end - 1].page), level[end - 1].last});
    }
    link(above);
    level = std::move(above);
  }
  return level.front().page;
}

}  // namespace zerbal::jet::test
