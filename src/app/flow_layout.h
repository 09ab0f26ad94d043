// A layout of rows: controls that do not fit into the width continue in the next row.
#pragma once

#include <QLayout>
#include <memory>
#include <vector>

namespace zerbal::app {

class FlowLayout final : public QLayout {
 public:
  explicit FlowLayout(QWidget* parent) : QLayout(parent) {}
  ~FlowLayout() override;

  /// Leaves a gap before the item that is added next.
  void AddGap();

  void addItem(QLayoutItem* item) override;
  int count() const override { return static_cast<int>(items_.size()); }
  QLayoutItem* itemAt(int index) const override;
  QLayoutItem* takeAt(int index) override;
  Qt::Orientations expandingDirections() const override { return {}; }
  bool hasHeightForWidth() const override { return true; }
  int heightForWidth(int width) const override;
  QSize sizeHint() const override;
  QSize minimumSize() const override;
  void setGeometry(const QRect& rect) override;

 private:
  struct Item {
    std::unique_ptr<QLayoutItem> item;
    bool gapBefore = false;
  };
  struct Row {
    std::size_t begin = 0;
    std::size_t end = 0;
    int height = 0;
  };

  int Advance(const Item& item, bool first) const;
  std::vector<Row> Rows(int width) const;
  int Height(const std::vector<Row>& rows) const;

  std::vector<Item> items_;
  bool gapNext_ = false;
};

}  // namespace zerbal::app
