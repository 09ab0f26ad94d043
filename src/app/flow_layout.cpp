#include "app/flow_layout.h"

#include <QWidget>
#include <algorithm>
#include <limits>

namespace zerbal::app {
namespace {

constexpr int kGap = 12;  // logical pixels between groups of controls

}  // namespace

FlowLayout::~FlowLayout() = default;

void FlowLayout::AddGap() {
  gapNext_ = true;
}

void FlowLayout::addItem(QLayoutItem* item) {
  items_.push_back({std::unique_ptr<QLayoutItem>(item), gapNext_});
  gapNext_ = false;
  invalidate();
}

QLayoutItem* FlowLayout::itemAt(int index) const {
  const bool exists = index >= 0 && index < count();
  return exists ? items_[static_cast<std::size_t>(index)].item.get() : nullptr;
}

QLayoutItem* FlowLayout::takeAt(int index) {
  if (index < 0 || index >= count())
    return nullptr;
  const auto at = items_.begin() + index;
  QLayoutItem* item = at->item.release();
  items_.erase(at);
  return item;
}

/// The width that an item needs in its row, with the space before it.
int FlowLayout::Advance(const Item& item, bool first) const {
  const int width = item.item->sizeHint().width();
  if (first)
    return width;
  return width + spacing() + (item.gapBefore ? kGap : 0);
}

std::vector<FlowLayout::Row> FlowLayout::Rows(int width) const {
  std::vector<Row> rows;
  int used = 0;
  for (std::size_t i = 0; i < items_.size(); ++i) {
    const int more = Advance(items_[i], false);
    if (rows.empty() || used + more > width) {
      rows.push_back({i, i, 0});
      used = 0;
    }
    Row& row = rows.back();
    used += Advance(items_[i], row.begin == i);
    row.end = i + 1;
    row.height = std::max(row.height, items_[i].item->sizeHint().height());
  }
  return rows;
}

int FlowLayout::Height(const std::vector<Row>& rows) const {
  const QMargins margins = contentsMargins();
  int height = margins.top() + margins.bottom();
  for (const Row& row : rows)
    height += row.height + (&row == rows.data() ? 0 : spacing());
  return height;
}

int FlowLayout::heightForWidth(int width) const {
  const QMargins margins = contentsMargins();
  return Height(Rows(width - margins.left() - margins.right()));
}

QSize FlowLayout::sizeHint() const {
  const QMargins margins = contentsMargins();
  int width = margins.left() + margins.right();
  for (const Item& item : items_)
    width += Advance(item, &item == items_.data());
  return {width, Height(Rows(std::numeric_limits<int>::max()))};
}

QSize FlowLayout::minimumSize() const {
  QSize size;
  for (const Item& item : items_)
    size = size.expandedTo(item.item->sizeHint());
  return size.grownBy(contentsMargins());
}

void FlowLayout::setGeometry(const QRect& rect) {
  QLayout::setGeometry(rect);
  const QRect inner = rect.marginsRemoved(contentsMargins());
  const bool mirrored = parentWidget() && parentWidget()->isRightToLeft();
  int y = inner.top();
  for (const Row& row : Rows(inner.width())) {
    int x = inner.left();
    for (std::size_t i = row.begin; i < row.end; ++i) {
      const QSize size = items_[i].item->sizeHint();
      x += Advance(items_[i], i == row.begin) - size.width();
      const int left = mirrored ? inner.left() + inner.right() - x - size.width() + 1 : x;
      items_[i].item->setGeometry({QPoint(left, y + (row.height - size.height()) / 2), size});
      x += size.width();
    }
    y += row.height + spacing();
  }
}

}  // namespace zerbal::app
