#include "app/tool_bar.h"

#include <QKeySequence>
#include <QMouseEvent>

#include "app/flow_layout.h"
#include "app/menu_key.h"
#include "app/svg_icon.h"
#include "dialogs/guarded.h"

namespace zerbal::app {
namespace {

constexpr int kPictureSize = 24;  // logical pixels

/// The caption without access key and dots: "Random flight(s)" for "Random flight(s)...".
QString ButtonText(const Command& command) {
  QString text = command.caption;
  text.remove('&');
  while (text.endsWith('.'))
    text.chop(1);
  return text;
}

QString ShortcutText(const Command& command) {
  return QKeySequence(command.keys).toString(QKeySequence::NativeText);
}

}  // namespace

ToolBar::ToolBar(RunCommand run, QWidget* parent) : QFrame(parent), run_(std::move(run)) {
  setObjectName("picTool");
  setAccessibleName(tr("Tool bar"));
  auto* row = new FlowLayout(this);
  row->setContentsMargins(6, 3, 6, 3);
  row->setSpacing(4);
  for (const MenuDescription& menu : MenuTable()) {
    row->AddGap();
    for (const Command& command : menu.commands) {
      if (command.button != nullptr && command.Option() == nullptr)
        AddButton(command);
    }
  }
  ForEachOption([&](const Command& command) {
    if (command.button == nullptr)
      return;
    row->AddGap();
    layerBoxes_.emplace_back(AddLayerBox(command), command.Option());
  });
  row->AddGap();
  for (const Command& command : WindowCommands()) {
    if (command.button != nullptr)
      lastButton_ = AddButton(command);
  }
}

QToolButton* ToolBar::AddButton(const Command& command) {
  auto* button = new QToolButton(this);
  const bool hasEntry = command.name != nullptr;
  const QString text = ButtonText(command);
  button->setObjectName(command.button);
  button->setText(hasEntry ? text : command.caption);
  // No menu shows the shortcut of a command without an entry.
  button->setToolTip(hasEntry ? text : QString("%1 (%2)").arg(text, ShortcutText(command)));
  button->setAccessibleName(text);
  button->setIcon(SvgIcon(command.picture));
  button->setIconSize({kPictureSize, kPictureSize});
  button->setToolButtonStyle(Qt::ToolButtonIconOnly);
  button->setAutoRaise(true);
  dialogs::ConnectGuarded(button, &QToolButton::clicked, this, [this, &command] { run_(command, 0); });
  layout()->addWidget(button);
  return button;
}

QCheckBox* ToolBar::AddLayerBox(const Command& command) {
  auto* box = new QCheckBox(command.caption, this);
  box->setObjectName(command.button);
  box->setAccessibleName(command.caption);
  box->installEventFilter(this);
  // Only the user clicks; setChecked() does not emit this.
  dialogs::ConnectGuarded(box, &QCheckBox::clicked, this, [this, &command] { run_(command, 0); });
  layout()->addWidget(box);
  return box;
}

void ToolBar::ShowOptions(const data::DisplayOptions& options) {
  for (const auto& [box, option] : layerBoxes_)
    box->setChecked(options.*option);
}

void ToolBar::ShowDelimitations(const QString& allAirports, const QString& destinations) {
  for (const auto& [box, option] : layerBoxes_)
    box->setToolTip(option == &data::DisplayOptions::allAirports ? allAirports : destinations);
}

void ToolBar::resizeEvent(QResizeEvent* event) {
  QFrame::resizeEvent(event);
  // The layout of a window ignores how many rows its width makes.
  setMinimumHeight(heightForWidth(width()));
}

bool ToolBar::eventFilter(QObject* watched, QEvent* event) {
  const auto* box = static_cast<QWidget*>(watched);
  if (event->type() == QEvent::KeyPress) {
    if (!IsMenuKey(*static_cast<QKeyEvent*>(event)))
      return false;
  } else if (event->type() == QEvent::MouseButtonRelease) {
    const auto* release = static_cast<QMouseEvent*>(event);
    if (release->button() != Qt::RightButton || !box->rect().contains(release->position().toPoint()))
      return false;
  } else {
    return false;
  }
  dialogs::Guarded([&] { RunRightClick(box->objectName()); });
  return true;
}

void ToolBar::RunRightClick(const QString& box) {
  for (const MenuDescription& menu : MenuTable()) {
    for (const Command& command : menu.commands) {
      if (command.rightClick != nullptr && box == command.rightClick)
        run_(command, 0);
    }
  }
}

}  // namespace zerbal::app
