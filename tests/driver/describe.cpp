#include <QAbstractButton>
#include <QAbstractItemView>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QJsonArray>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QRadioButton>
#include <QScrollBar>
#include <algorithm>
#include <vector>

#include "controls.h"

namespace zerbal::drive {
namespace {

QJsonArray ColourArray(const QColor& colour) {
  return {colour.red(), colour.green(), colour.blue()};
}

/// The property of shapes and samples that holds their colour.
constexpr char kColourProperty[] = "colour";

QString Kind(const QWidget* widget) {
  if (widget->objectName().startsWith("frm"))
    return "window";
  if (qobject_cast<const QCheckBox*>(widget))
    return "check";
  if (qobject_cast<const QRadioButton*>(widget))
    return "option";
  if (qobject_cast<const QAbstractButton*>(widget))
    return "button";
  if (qobject_cast<const QLineEdit*>(widget))
    return "text";
  if (qobject_cast<const QComboBox*>(widget))
    return "combo";
  if (qobject_cast<const QAbstractItemView*>(widget))
    return "list";
  if (qobject_cast<const QScrollBar*>(widget))
    return "scroll";
  if (widget->property(kColourProperty).isValid() && !qobject_cast<const QLabel*>(widget))
    return "shape";
  if (qobject_cast<const QLabel*>(widget))
    return "label";
  return "other";
}

QJsonArray ItemTexts(const QAbstractItemModel& model, int column) {
  QJsonArray items;
  for (int row = 0; row < model.rowCount(); ++row)
    items.append(model.index(row, column).data().toString());
  return items;
}

void DescribeList(const QAbstractItemView& list, QJsonObject& answer) {
  answer["items"] = list.model() ? ItemTexts(*list.model(), 0) : QJsonArray();
  QJsonArray selected;
  if (list.selectionModel()) {
    std::vector<int> rows;
    for (const QItemSelectionRange& range : list.selectionModel()->selection())
      for (int row = range.top(); row <= range.bottom(); ++row)
        rows.push_back(row);
    std::sort(rows.begin(), rows.end());
    for (const int row : rows)
      selected.append(row);
  }
  answer["selected"] = selected;
}

/// Adds the members that depend on the kind of control.
void DescribeContent(const QWidget& widget, QJsonObject& answer) {
  if (const auto* button = qobject_cast<const QAbstractButton*>(&widget)) {
    answer["caption"] = button->text();
    if (button->isCheckable())
      answer["checked"] = button->isChecked() ? 1 : 0;
  } else if (const auto* text = qobject_cast<const QLineEdit*>(&widget)) {
    answer["value"] = text->text();
  } else if (const auto* combo = qobject_cast<const QComboBox*>(&widget)) {
    answer["items"] = ItemTexts(*combo->model(), combo->modelColumn());
    answer["index"] = combo->currentIndex();
    answer["value"] = combo->currentText();
  } else if (const auto* list = qobject_cast<const QAbstractItemView*>(&widget)) {
    DescribeList(*list, answer);
  } else if (const auto* scroll = qobject_cast<const QScrollBar*>(&widget)) {
    answer["value"] = scroll->value();
  } else if (const auto* label = qobject_cast<const QLabel*>(&widget)) {
    answer["caption"] = label->text();
  } else if (const auto* frame = qobject_cast<const QGroupBox*>(&widget)) {
    answer["caption"] = frame->title();
  } else if (!widget.windowTitle().isEmpty()) {
    answer["caption"] = widget.windowTitle();
  }
}

QJsonObject DescribeWidget(const QWidget& widget) {
  // left and top are those of a window's frame on the screen, or of a control in its parent.
  QJsonObject answer{{"kind", Kind(&widget)},
                     {"enabled", widget.isEnabled()},
                     {"visible", widget.isVisible()},
                     {"tip", widget.toolTip()},
                     {"left", widget.x()},
                     {"top", widget.y()},
                     {"width", widget.width()},
                     {"height", widget.height()},
                     {"focus", widget.window()->focusWidget() == &widget},
                     {"font", widget.font().family()},
                     {"size", widget.font().pointSize()}};
  const QVariant colour = widget.property(kColourProperty);
  if (colour.isValid())
    answer["colour"] = ColourArray(colour.value<QColor>());
  else if (qobject_cast<const QLabel*>(&widget))
    answer["colour"] = ColourArray(widget.palette().color(QPalette::WindowText));
  else
    answer["colour"] = ColourArray(widget.palette().color(QPalette::Window));
  DescribeContent(widget, answer);
  return answer;
}

/// A menu outside of the menu bar is visible only while it is open.
bool IsVisible(const QAction& action) {
  const bool popup = action.menu() && action.associatedObjects().isEmpty();
  return popup ? action.menu()->isVisible() : action.isVisible();
}

QJsonObject DescribeAction(const QAction& action) {
  return {{"kind", "menu"},
          {"caption", action.text()},
          {"enabled", action.isEnabled()},
          {"visible", IsVisible(action)},
          {"checked", action.isChecked() ? 1 : 0}};
}

}  // namespace

QJsonObject Describe(const QString& name, const Target& target) {
  QJsonObject answer = target.action ? DescribeAction(*target.action) : DescribeWidget(*target.widget);
  answer["name"] = name;
  return answer;
}

}  // namespace zerbal::drive
