#include "app/accessible_map.h"

#include <QAccessibleWidget>

#include "app/frm_map.h"
#include "dialogs/guarded.h"

namespace zerbal::app {
namespace {

class AccessibleMap final : public QAccessibleWidget {
 public:
  explicit AccessibleMap(frmMap& mapWindow)
      : QAccessibleWidget(&mapWindow, QAccessible::Graphic), map_(mapWindow) {}

  QString text(QAccessible::Text kind) const override {
    if (kind != QAccessible::Description)
      return QAccessibleWidget::text(kind);
    // Assistive programs ask often, and reading all flights takes time.
    if (describedDraws_ != map_.Draws()) {
      dialogs::Guarded([this] { description_ = map_.Description(); });
      describedDraws_ = map_.Draws();
    }
    return description_;
  }

 private:
  frmMap& map_;
  mutable int describedDraws_ = -1;
  mutable QString description_;
};

QAccessibleInterface* MakeInterface(const QString&, QObject* object) {
  auto* mapWindow = qobject_cast<frmMap*>(object);
  return mapWindow != nullptr ? new AccessibleMap(*mapWindow) : nullptr;
}

}  // namespace

void MakeMapAccessible() {
  QAccessible::removeFactory(MakeInterface);  // no second one
  QAccessible::installFactory(MakeInterface);
}

}  // namespace zerbal::app
