// A list of text lines whose size follows its font.
#pragma once

#include <QListView>

namespace zerbal::dialogs {

/// Its preferred size is `lines` lines of `characters` characters of average width. It can be smaller.
class LineList final : public QListView {
  Q_OBJECT
  Q_PROPERTY(int characters MEMBER characters_)
  Q_PROPERTY(int lines MEMBER lines_)

 public:
  using QListView::QListView;

  QSize sizeHint() const override { return SizeFor(characters_, lines_); }
  QSize minimumSizeHint() const override;

 private:
  QSize SizeFor(int characters, int lines) const;

  int characters_ = 0;
  int lines_ = 0;
};

}  // namespace zerbal::dialogs
