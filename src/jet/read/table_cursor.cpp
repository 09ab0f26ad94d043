#include "jet/read/table_cursor.h"

#include <bit>
#include <cstdint>
#include <span>
#include <string>
#include <utility>

#include "base/case_folding.h"
#include "jet/error.h"
#include "jet/format/text.h"
#include "jet/read/data_page.h"
#include "jet/read/field_value.h"
#include "jet/recordset.h"

namespace zerbal::jet {

TableCursor::TableCursor(std::shared_ptr<const DatabaseState> database,
                         std::shared_ptr<const TableDefinition> table)
    : database_(std::move(database)), table_(std::move(table)) {
  Guarded([this] { walk_ = RowWalk(Pages(), *table_); });
  MoveFirst();
}

void TableCursor::Fail(std::string reason) const {
  throw EngineError(database_->fileName, table_->name, std::move(reason));
}

void TableCursor::SetIndex(std::string_view name) {
  if (name.empty()) {
    tree_ = nullptr;
    MoveFirst();
    return;
  }
  std::size_t i = 0;
  while (i < table_->indexes.size() && !base::EqualsIgnoringEuropeanCase(table_->indexes[i].name, name))
    ++i;
  if (i == table_->indexes.size())
    Fail("there is no index '" + std::string(name) + "'");
  const PhysicalIndex& tree = table_->trees[table_->treeOf[i]];
  if (&tree != tree_) {
    index_ = IndexCursor(Pages(), tree.rootPage, table_->page);
    sorted_.reset();
    pointer_ = {};
    lookup_.reset();
    tree_ = &tree;
  }
  MoveFirst();
}

std::optional<int> TableCursor::FindField(std::string_view name) const {
  for (std::size_t i = 0; i < table_->columns.size(); ++i) {
    if (base::EqualsIgnoringEuropeanCase(table_->columns[i].name, name))
      return static_cast<int>(i);
  }
  return std::nullopt;
}

/// Makes a step in the order of the index. When the index proves damaged, replaces it by the sorted rows and
/// makes the step there, from the row of the last entry.
template <class Step>
bool TableCursor::InOrder(Step&& step) {
  if (!sorted_) {
    try {
      return step(index_);
    } catch (const Damage&) {
      SortRows();
    }
  }
  return step(*sorted_);
}

void TableCursor::SortRows() {
  auto sorted = std::make_unique<SortedRows>(*database_, *table_, *tree_);
  sorted->StandOnRow(pointer_);
  lookup_.reset();
  sorted_ = std::move(sorted);
}

/// Finds the page of the row that the current index entry names; false when it names none, or a deleted one.
bool TableCursor::FindRow() {
  const RecordPointer pointer = sorted_ ? sorted_->Row() : index_.Row();
  if (pointer.page != pageNumber_) {
    const std::optional<DataPage> page = TablePage(Pages(), pointer.page, table_->page);
    pageNumber_ = page ? pointer.page : 0;
    page_ = page.value_or(DataPage());
  }
  if (pageNumber_ == 0 || pointer.row >= page_.RowCount() || (page_.Flags(pointer.row) & kRowHidden) != 0)
    return false;
  pointer_ = pointer;
  return true;
}

/// Ends a step in the order of the index: passes over entries without a row.
bool TableCursor::Settle(bool found, bool forward) {
  while (found && !FindRow())
    found = InOrder([forward](auto& order) { return forward ? order.MoveNext() : order.MovePrevious(); });
  return found;
}

bool TableCursor::StepFirst() {
  pageNumber_ = 0;
  if (!ByIndex())
    return walk_.MoveFirst();
  return Settle(InOrder([](auto& order) { return order.MoveFirst(); }), true);
}
bool TableCursor::StepNext() {
  if (!ByIndex())
    return walk_.MoveNext();
  return Settle(InOrder([](auto& order) { return order.MoveNext(); }), true);
}
bool TableCursor::StepPrevious() {
  if (!ByIndex())
    return walk_.MovePrevious();
  return Settle(InOrder([](auto& order) { return order.MovePrevious(); }), false);
}

/// Moves from the end (beginning) back onto the last (first) row.
bool TableCursor::Stay(bool forward) {
  return !ByIndex() || Settle(true, forward);
}

/// Of the row at the position of the walk or the index.
inline ByteView TableCursor::RowBytes() const {
  return ByIndex() ? FollowRow(Pages(), page_, pointer_.row, table_->page) : walk_.RowBytes();
}

void TableCursor::LoadRow() {
  row_ = Row(RowBytes(), Pages().FileFormat(), table_->hasVariableColumns);
}

/// Ends a step: reads the row that was found, or sets the state to `otherwise`.
void TableCursor::Arrive(bool found, State otherwise) {
  state_ = found ? State::kOnRow : otherwise;
  if (found) {
    row_ = Row();  // so that the previous row is not read when loading throws
    LoadRow();
  }
}

void TableCursor::MoveFirst() {
  noMatch_ = false;
  Guarded([this] {
    state_ = State::kNowhere;
    Arrive(StepFirst(), State::kNowhere);
  });
}

void TableCursor::MoveNext() {
  if (state_ == State::kAfterLast || state_ == State::kNowhere)
    return;
  Guarded([this] {
    // In state kBeforeFirst the position is that of the first row, or of an entry without a row before it.
    Arrive(state_ == State::kBeforeFirst ? Stay(true) : StepNext(), State::kAfterLast);
  });
}

void TableCursor::MovePrevious() {
  if (state_ == State::kBeforeFirst || state_ == State::kNowhere)
    return;
  Guarded(
      [this] { Arrive(state_ == State::kAfterLast ? Stay(false) : StepPrevious(), State::kBeforeFirst); });
}

namespace {

/// Whether a row holds two singles in its fixed part that are outside of the box.
inline bool IsOutside(const Row& row, const SingleBox& box, const ColumnPlace& first,
                      const ColumnPlace& second) {
  const std::uint8_t* firstAt = row.FixedValue(first);
  const std::uint8_t* secondAt = row.FixedValue(second);
  return firstAt != nullptr && secondAt != nullptr &&
         !(box.first.Contains(std::bit_cast<float>(LoadU32(firstAt))) &&
           box.second.Contains(std::bit_cast<float>(LoadU32(secondAt))));
}

}  // namespace

/// Whether the column holds singles in the fixed part of rows.
bool TableCursor::IsFixedSingle(int column) const {
  const ColumnInfo& info = Column(column);
  return info.type == ColumnType::kSingle && info.fixed && Place(column).fixedLength == sizeof(float);
}

/// Moves on from rows that are outside of the box.
void TableCursor::PassOver(const SingleBox& box) {
  if (state_ != State::kOnRow || !IsFixedSingle(box.first.field) || !IsFixedSingle(box.second.field))
    return;
  const ColumnPlace& first = Place(box.first.field);
  const ColumnPlace& second = Place(box.second.field);
  const Format format = Pages().FileFormat();
  const bool variable = table_->hasVariableColumns;
  Row row = row_;
  row_ = Row();  // as Arrive does
  while (IsOutside(row, box, first, second)) {
    if (!StepNext()) {
      state_ = State::kAfterLast;
      return;
    }
    const ByteView bytes = RowBytes();
    Prefetch(bytes.Data(), Pages().PageSize());
    row = Row(bytes, format, variable);
  }
  row_ = row;
}

void TableCursor::MoveFirstWithin(const SingleBox& box) {
  MoveFirst();
  Guarded([&] { PassOver(box); });
}

void TableCursor::MoveNextWithin(const SingleBox& box) {
  MoveNext();
  Guarded([&] { PassOver(box); });
}

void TableCursor::Seek(std::string_view key) {
  if (!ByIndex())
    Fail("a search needs an index");
  if (tree_->parts.empty())
    Fail("the index has no columns");
  Guarded([&] {
    state_ = State::kNowhere;
    noMatch_ = true;
    pageNumber_ = 0;
    const PhysicalIndex::Part& part = tree_->parts.front();
    const SeekKey::Result made =
        seekKey_.Make(key, Column(part.column), Place(part.column), part.ascending, Pages().Header());
    bool found = false;
    if (made == SeekKey::Result::kReady)
      found = SeekByKey(key);
    else if (made == SeekKey::Result::kUnknown)
      found = SeekByText(key);
    noMatch_ = !found;
    state_ = found ? State::kOnRow : State::kNowhere;
  });
}

/// Keys ignore letter case and trailing blanks, so the texts of the rows are compared too.
bool TableCursor::SeekByKey(std::string_view key) {
  const int column = tree_->parts.front().column;
  const bool exact = !IsTextType(Column(column).type);
  const std::span<const std::uint8_t> bytes = seekKey_.Bytes();
  if (!Settle(InOrder([bytes](auto& order) { return order.MoveTo(bytes); }), true))
    return false;
  do {
    if (!(sorted_ ? sorted_->StartsWith(bytes) : index_.StartsWith(bytes)))
      return false;
    LoadRow();
    if (exact || StoredTextIs(column, key))
      return true;
  } while (StepNext());
  return false;
}

bool TableCursor::SeekByText(std::string_view key) {
  const int column = tree_->parts.front().column;
  const std::optional<std::string> wanted = Canonical(Column(column), key);
  if (!wanted)
    return false;
  if (!lookup_)
    lookup_ = MakeLookup(column);
  return lookup_->Find(*wanted, [&](const IndexCursor::Place& place) {
    if (sorted_)
      sorted_->GoTo(place);
    else
      index_.GoTo(place);
    return FindRow() && LoadText(column) == *wanted;
  });
}

std::unique_ptr<TextLookup> TableCursor::MakeLookup(int column) {
  const bool sorted = sorted_ != nullptr;
  auto lookup = std::make_unique<TextLookup>();
  for (bool found = StepFirst(); found; found = StepNext()) {
    const std::string text = LoadText(column);
    if (!IsNull(column))
      lookup->Add(text, sorted_ ? sorted_->Here() : index_.Here());
  }
  if (!sorted && sorted_)  // the index proved damaged: places in the tree are not valid in the sorted rows
    return MakeLookup(column);
  lookup->Finish();
  return lookup;
}

std::string TableCursor::LoadText(int column) {
  LoadRow();
  std::string text;
  AppendText(column, text);
  return Canonical(Column(column), text).value_or(std::string());
}

bool TableCursor::IsNull(int column) const {
  return Column(column).type != ColumnType::kBoolean && !Value(column).has_value();
}

void TableCursor::AppendText(int column, std::string& out) const {
  const ColumnInfo& info = Column(column);
  if (info.type == ColumnType::kBoolean) {
    out += Has(column) ? '1' : '0';
    return;
  }
  const std::optional<ByteView> value = Value(column);
  if (!value)
    return;
  database_->WithBytes(info.type, *value, [&](ByteView bytes) {
    if (IsTextType(info.type))
      AppendStoredText(bytes, Pages().TextCodePage(), out);
    else
      AppendValue(info, bytes, out);
  });
}

bool TableCursor::StoredTextIs(int column, std::string_view text) const {
  const std::optional<ByteView> value = Value(column);
  if (!value)
    return false;
  return database_->WithBytes(Column(column).type, *value, [&](ByteView bytes) {
    return StoredTextEquals(bytes, Pages().TextCodePage(), text);
  });
}

}  // namespace zerbal::jet
