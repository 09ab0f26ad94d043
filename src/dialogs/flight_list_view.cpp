#include "dialogs/flight_list_view.h"

#include <QHelpEvent>
#include <QStyledItemDelegate>
#include <QToolTip>
#include <algorithm>
#include <utility>

#include "data/error.h"

namespace zerbal::dialogs {
namespace {

/// Shows a line in a tool tip when the list is too narrow for it.
class WholeLineTip final : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                 const QModelIndex& index) override {
    const QRect line = view->visualRect(index);
    const bool cut = index.isValid() && sizeHint(option, index).width() > line.width();
    // A paragraph is broken into lines. The text itself is not markup.
    const QString text = cut ? "<p>" + index.data().toString().toHtmlEscaped() + "</p>" : QString();
    QToolTip::showText(event->globalPos(), text, view->viewport(), line);
    return true;
  }
};

}  // namespace

ListLines::ListLines(QListView& view) : view_(view) {
  view_.setModel(&model_);
  view_.setItemDelegate(new WholeLineTip(&view_));
}

void ListLines::SetLines(const std::vector<std::string>& lines) {
  QStringList texts;
  texts.reserve(static_cast<qsizetype>(lines.size()));
  for (const std::string& line : lines)
    texts.append(QString::fromStdString(line));
  model_.setStringList(texts);
}

void ListLines::SelectAll(bool selected) {
  selected ? view_.selectAll() : view_.clearSelection();
}

void ListLines::SelectRow(int row) {
  view_.selectionModel()->select(model_.index(row), QItemSelectionModel::Select);
}

std::vector<int> ListLines::SelectedRows() const {
  std::vector<int> rows;
  // A list of single indexes would need one object per line.
  for (const QItemSelectionRange& range : view_.selectionModel()->selection()) {
    for (int row = range.top(); row <= range.bottom(); ++row)
      rows.push_back(row);
  }
  std::sort(rows.begin(), rows.end());
  return rows;
}

FlightListView::FlightListView(QListView& visible, QListView& hidden) : lines_(visible), keyLines_(hidden) {}

void FlightListView::SetFlights(const std::vector<std::string>& lines, const std::vector<std::string>& keys) {
  lines_.SetLines(lines);
  keyLines_.SetLines(keys);
  keys_ = keys;
}

bool FlightListView::HandOver(std::vector<std::string>& selectedFlights,
                              settings::MessageBoxes& boxes) const {
  const std::vector<int> rows = lines_.SelectedRows();
  if (rows.empty()) {
    boxes.Show(settings::BoxIcon::kExclamation, "Select at least one flight");
    return false;
  }
  std::vector<std::string> chosen;
  chosen.reserve(rows.size());
  int count = 0;
  for (const int row : rows) {
    data::CountUp(count);
    chosen.push_back(keys_.at(static_cast<std::size_t>(row)));
  }
  selectedFlights = std::move(chosen);
  return true;
}

}  // namespace zerbal::dialogs
