#include "jet/recordset.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>

#include "jet/read/table_cursor.h"
#include "jet/read/table_definition.h"

namespace zerbal::jet {

Recordset::Recordset(std::unique_ptr<TableCursor> cursor) : cursor_(std::move(cursor)) {}
Recordset::Recordset(Recordset&&) noexcept = default;
Recordset& Recordset::operator=(Recordset&&) noexcept = default;
Recordset::~Recordset() = default;

const std::string& Recordset::TableName() const {
  return cursor_->Table().name;
}
const std::vector<ColumnInfo>& Recordset::Columns() const {
  return cursor_->Table().columns;
}
const std::vector<IndexInfo>& Recordset::Indexes() const {
  return cursor_->Table().indexes;
}
std::uint32_t Recordset::NotedRows() const {
  return cursor_->Table().notedRows;
}

void Recordset::SetIndex(std::string_view name) {
  cursor_->SetIndex(name);
}
void Recordset::Seek(std::string_view key) {
  cursor_->Seek(key);
}
bool Recordset::NoMatch() const {
  return cursor_->NoMatch();
}
bool Recordset::IndexDamaged() const {
  return cursor_->IndexDamaged();
}
void Recordset::MoveFirst() {
  cursor_->MoveFirst();
}
void Recordset::MoveNext() {
  cursor_->MoveNext();
}
void Recordset::MovePrevious() {
  cursor_->MovePrevious();
}
void Recordset::MoveFirstWithin(const SingleBox& box) {
  cursor_->MoveFirstWithin(box);
}
void Recordset::MoveNextWithin(const SingleBox& box) {
  cursor_->MoveNextWithin(box);
}
bool Recordset::Eof() const {
  return cursor_->Eof();
}
bool Recordset::Bof() const {
  return cursor_->Bof();
}

std::optional<int> Recordset::FindField(std::string_view name) const {
  return cursor_->FindField(name);
}

int Recordset::FieldIndex(std::string_view name) const {
  const std::optional<int> index = cursor_->FindField(name);
  if (!index)
    cursor_->Fail("there is no field '" + std::string(name) + "'");
  return *index;
}

Field Recordset::operator[](std::string_view name) const {
  return At(FieldIndex(name));
}

Field Recordset::At(int fieldIndex) const {
  if (!cursor_->OnRow())
    cursor_->Fail("there is no current row");
  if (fieldIndex < 0 || static_cast<std::size_t>(fieldIndex) >= Columns().size())
    cursor_->Fail("there is no field number " + std::to_string(fieldIndex));
  Field field;
  field.cursor_ = cursor_.get();
  field.column_ = fieldIndex;
  return field;
}

}  // namespace zerbal::jet
