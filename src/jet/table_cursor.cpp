#include "jet/table_cursor.h"

#include <cstdint>
#include <string>
#include <utility>

#include "jet/data_page.h"
#include "jet/error.h"
#include "jet/field_value.h"
#include "jet/long_value.h"
#include "jet/text.h"
#include "jet/value_text.h"

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
  while (i < table_->indexes.size() && !EqualsIgnoringCase(table_->indexes[i].name, name))
    ++i;
  if (i == table_->indexes.size())
    Fail("there is no index '" + std::string(name) + "'");
  const PhysicalIndex& tree = table_->trees[table_->treeOf[i]];
  if (&tree != tree_) {
    index_ = IndexCursor(Pages(), tree.rootPage, table_->page);
    lookup_.reset();
    tree_ = &tree;
  }
  MoveFirst();
}

std::optional<int> TableCursor::FindField(std::string_view name) const {
  for (std::size_t i = 0; i < table_->columns.size(); ++i) {
    if (EqualsIgnoringCase(table_->columns[i].name, name))
      return static_cast<int>(i);
  }
  return std::nullopt;
}

bool TableCursor::StepFirst() {
  return ByIndex() ? index_.MoveFirst() : walk_.MoveFirst();
}
bool TableCursor::StepNext() {
  return ByIndex() ? index_.MoveNext() : walk_.MoveNext();
}
bool TableCursor::StepPrevious() {
  return ByIndex() ? index_.MovePrevious() : walk_.MovePrevious();
}

/// Reads the row at the place that the walk or the index has reached.
void TableCursor::LoadRow() {
  ByteView bytes;
  if (ByIndex()) {
    const RecordPointer pointer = index_.Row();
    const DataPage page = TablePage(Pages(), pointer.page, table_->page);
    if (pointer.row < page.RowCount() && (page.Flags(pointer.row) & DataPage::kHidden) != 0)
      throw Damage("an index names a row that is deleted");
    bytes = FollowRow(Pages(), page, pointer.row, table_->page);
  } else {
    bytes = walk_.RowBytes();
  }
  row_ = Row(bytes, Pages().IsJet3(), table_->hasVariableColumns);
}

/// Ends a step: on the row found, or where there is none.
void TableCursor::Arrive(bool found, State otherwise) {
  state_ = found ? State::kOnRow : otherwise;
  if (found) {
    row_ = Row();  // should the row be damaged, nobody reads the one before it in its place
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
    // Before the first row the place is still that of the first row.
    Arrive(state_ == State::kBeforeFirst || StepNext(), State::kAfterLast);
  });
}

void TableCursor::MovePrevious() {
  if (state_ == State::kBeforeFirst || state_ == State::kNowhere)
    return;
  Guarded([this] { Arrive(state_ == State::kAfterLast || StepPrevious(), State::kBeforeFirst); });
}

void TableCursor::Seek(std::string_view key) {
  if (!ByIndex())
    Fail("a search needs an index");
  if (tree_->parts.empty())
    Fail("the index has no columns");
  Guarded([&] {
    state_ = State::kNowhere;
    noMatch_ = true;
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

/// The index holds letter case and trailing blanks equal, so that the rows themselves decide.
bool TableCursor::SeekByKey(std::string_view key) {
  const int column = tree_->parts.front().column;
  const ColumnType type = Column(column).type;
  const bool exact = type != ColumnType::kText && type != ColumnType::kMemo;
  if (!index_.MoveTo(seekKey_.Bytes()))
    return false;
  do {
    if (!index_.StartsWith(seekKey_.Bytes()))
      return false;
    LoadRow();
    if (exact || StoredTextIs(column, key))
      return true;
  } while (index_.MoveNext());
  return false;
}

bool TableCursor::SeekByText(std::string_view key) {
  const int column = tree_->parts.front().column;
  const std::optional<std::string> wanted = Canonical(Column(column), key);
  if (!wanted)
    return false;
  std::string text;
  const auto readText = [&] {
    LoadRow();
    text.clear();
    AppendText(*this, column, text);
    return Canonical(Column(column), text).value_or(std::string());
  };
  if (!lookup_) {
    auto lookup = std::make_unique<TextLookup>();
    for (bool found = index_.MoveFirst(); found; found = index_.MoveNext()) {
      const std::string value = readText();
      if (!IsNull(*this, column))
        lookup->Add(value, index_.Here());
    }
    lookup->Finish();
    lookup_ = std::move(lookup);
  }
  return lookup_->Find(*wanted, [&](const IndexCursor::Place& place) {
    index_.GoTo(place);
    return readText() == *wanted;
  });
}

bool TableCursor::StoredTextIs(int column, std::string_view text) const {
  const std::optional<ByteView> value = Value(column);
  if (!value)
    return false;
  const auto equals = [&](ByteView bytes) { return StoredTextEquals(bytes, Pages().IsJet3(), text); };
  if (Column(column).type != ColumnType::kMemo)
    return equals(*value);
  return LongValue(Pages(), *value, database_->options.maxLongValue).With(equals);
}

}  // namespace zerbal::jet
