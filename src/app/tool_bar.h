// The tool bar of the main window: picture buttons and the check boxes of the airport layers.
#pragma once

#include <QCheckBox>
#include <QFrame>
#include <functional>

#include "app/commands.h"

namespace zerbal::app {

class ToolBar final : public QFrame {
  Q_OBJECT

 public:
  /// Makes a button for each command of the menu table that has one.
  ToolBar(const std::function<void(const Command&)>& run, QWidget* parent);

  /// The boxes' check marks; nothing is emitted.
  void ShowLayers(bool allAirports, bool destinations);
  /// The boxes' QuickInfos: which delimitations are set.
  void ShowDelimitations(const QString& allAirports, const QString& destinations);

 signals:
  void AllAirportsClicked(bool checked);
  void DestinationsClicked(bool checked);
  /// The right button was released over a box.
  void AllAirportsRightClicked();
  void DestinationsRightClicked();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void AddButton(const Command& command, const std::function<void(const Command&)>& run);
  QCheckBox* AddLayerBox(const char* name, const QString& caption);

  QCheckBox* chkAprt_;
  QCheckBox* chkDest_;
};

}  // namespace zerbal::app
