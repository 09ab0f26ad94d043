#include "app/tool_bar.h"

#include <QMouseEvent>
#include <QToolButton>

#include "app/flow_layout.h"
#include "app/svg_icon.h"

namespace zerbal::app {
namespace {

constexpr int kPictureSize = 24;  // logical pixels

/// A command's caption without what only a menu says: "Random flight(s)..." is "Random flight(s)".
QString ButtonText(const Command& command) {
  QString text = command.caption;
  text.remove('&');
  while (text.endsWith('.'))
    text.chop(1);
  return text;
}

}  // namespace

ToolBar::ToolBar(const std::function<void(const Command&)>& run, QWidget* parent) : QFrame(parent) {
  setObjectName("picTool");
  setAccessibleName(tr("Tool bar"));
  auto* row = new FlowLayout(this);
  row->setContentsMargins(6, 3, 6, 3);
  row->setSpacing(4);
  for (const MenuDescription& menu : MenuTable()) {
    row->AddGap();
    for (const Command& command : menu.commands) {
      if (command.button != nullptr)
        AddButton(command, run);
    }
  }
  row->AddGap();
  chkAprt_ = AddLayerBox("chkAprt", tr("All airports"));
  row->AddGap();
  chkDest_ = AddLayerBox("chkDest", tr("QAV destinations"));
  // A click is a user's: setting a box from the program neither redraws nor asks for it.
  connect(chkAprt_, &QCheckBox::clicked, this, &ToolBar::AllAirportsClicked);
  connect(chkDest_, &QCheckBox::clicked, this, &ToolBar::DestinationsClicked);
}

void ToolBar::AddButton(const Command& command, const std::function<void(const Command&)>& run) {
  auto* button = new QToolButton(this);
  const QString text = ButtonText(command);
  button->setObjectName(command.button);
  button->setText(text);
  button->setToolTip(text);
  button->setAccessibleName(text);
  button->setIcon(SvgIcon(command.picture));
  button->setIconSize({kPictureSize, kPictureSize});
  button->setToolButtonStyle(Qt::ToolButtonIconOnly);
  button->setAutoRaise(true);
  connect(button, &QToolButton::clicked, this, [run, &command] { run(command); });
  layout()->addWidget(button);
}

QCheckBox* ToolBar::AddLayerBox(const char* name, const QString& caption) {
  auto* box = new QCheckBox(caption, this);
  box->setObjectName(name);
  box->setAccessibleName(caption);
  box->installEventFilter(this);
  layout()->addWidget(box);
  return box;
}

void ToolBar::ShowLayers(bool allAirports, bool destinations) {
  chkAprt_->setChecked(allAirports);
  chkDest_->setChecked(destinations);
}

void ToolBar::ShowDelimitations(const QString& allAirports, const QString& destinations) {
  chkAprt_->setToolTip(allAirports);
  chkDest_->setToolTip(destinations);
}

void ToolBar::resizeEvent(QResizeEvent* event) {
  QFrame::resizeEvent(event);
  // A window takes no heed of how many rows its width makes, and would be too low for them.
  setMinimumHeight(heightForWidth(width()));
}

bool ToolBar::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::MouseButtonRelease) {
    const auto* release = static_cast<QMouseEvent*>(event);
    const auto* box = static_cast<QWidget*>(watched);
    if (release->button() == Qt::RightButton && box->rect().contains(release->position().toPoint())) {
      if (watched == chkAprt_)
        emit AllAirportsRightClicked();
      else
        emit DestinationsRightClicked();
      return true;
    }
  }
  return QFrame::eventFilter(watched, event);
}

}  // namespace zerbal::app
