#include "dialogs/line_list.h"

#include <QScrollBar>
#include <algorithm>

namespace zerbal::dialogs {

QSize LineList::minimumSizeHint() const {
  constexpr int kFewCharacters = 30;
  constexpr int kFewLines = 5;
  return SizeFor(std::min(characters_, kFewCharacters), std::min(lines_, kFewLines));
}

QSize LineList::SizeFor(int characters, int lines) const {
  const QFontMetrics metrics = fontMetrics();
  const int frame = 2 * frameWidth();
  return {characters * metrics.averageCharWidth() + verticalScrollBar()->sizeHint().width() + frame,
          lines * metrics.height() + frame};
}

}  // namespace zerbal::dialogs
