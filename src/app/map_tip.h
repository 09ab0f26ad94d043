// The tool tip of the map: what is under the resting pointer.
#pragma once

#include <QLabel>
#include <QObject>
#include <QPoint>
#include <QPointF>
#include <QTimer>
#include <functional>

namespace zerbal::app {

/// A label of its own in place of QToolTip, which may lie under the mouse and take a press, and stays for a
/// while when it is hidden. The text is also the toolTip property of the map.
class MapTip final : public QObject {
  Q_OBJECT

 public:
  static constexpr int kRestMs = 500;
  /// The text for a point of the map; empty for none.
  using Describe = std::function<QString(QPointF at)>;

  /// The map outlives this.
  MapTip(QWidget& map, Describe describe);

  /// When off, nothing is shown any more.
  void SetEnabled(bool enabled);
  /// The pointer is at this point of the map. A tip about another point ends; the text appears after a rest.
  void PointerAt(QPointF at);
  /// Shows the text at once.
  void ShowAt(QPointF at);
  /// Ends the tip and the waiting for it.
  void Hide();

 private:
  void Rested();
  /// Below the pointer, which is given in points of the screens, and within its screen.
  void Place(QPoint pointer);

  QWidget& map_;
  Describe describe_;
  QLabel label_;
  QTimer rest_;
  QPointF pointer_{-1, -1};
  bool enabled_ = true;
};

}  // namespace zerbal::app
