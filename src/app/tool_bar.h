// The tool bar of the main window: picture buttons and the check boxes of the airport layers.
#pragma once

#include <QCheckBox>
#include <QFrame>
#include <QToolButton>
#include <utility>
#include <vector>

#include "app/command_table.h"

namespace zerbal::app {

class ToolBar final : public QFrame {
  Q_OBJECT

 public:
  /// Makes the controls of all commands that have one.
  ToolBar(RunCommand run, QWidget* parent);

  /// At the end of the bar.
  QToolButton* LastButton() const { return lastButton_; }

  /// Sets the check marks of the boxes; runs no command.
  void ShowOptions(const data::DisplayOptions& options);
  /// Sets the tool tips of the boxes, which say what delimitations are set.
  void ShowDelimitations(const QString& allAirports, const QString& destinations);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  QToolButton* AddButton(const Command& command);
  QCheckBox* AddLayerBox(const Command& command);
  /// What the right button, or the Menu key, does on this check box.
  void RunRightClick(const QString& box);

  RunCommand run_;
  QToolButton* lastButton_ = nullptr;
  std::vector<std::pair<QCheckBox*, bool data::DisplayOptions::*>> layerBoxes_;
};

}  // namespace zerbal::app
