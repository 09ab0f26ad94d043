// A small figure that shows a colour.
#pragma once

#include <QColor>
#include <QWidget>

namespace zerbal::dialogs {

class Shape final : public QWidget {
  Q_OBJECT
  Q_PROPERTY(QColor colour READ Colour WRITE SetColour)

 public:
  enum class Kind {
    kSwatch,         ///< the whole area, framed
    kDisc,           ///< a filled circle as an airport's marker
    kCentreMark,     ///< the circled cross of the map's centre
    kLine,           ///< a stroke from the left to the right
    kVerticalLine,   ///< a stroke from the top to the bottom
    kInvertedFrame,  ///< a dotted frame in exclusive-or with the background
  };

  explicit Shape(QWidget* parent = nullptr);

  QColor Colour() const { return colour_; }
  void SetColour(const QColor& colour);
  void SetKind(Kind kind);
  /// Stroke width of lines in pixels.
  void SetLineWidth(int width);
  /// What kInvertedFrame is drawn on.
  void SetBackground(const QColor& colour);

  QSize sizeHint() const override { return {24, 16}; }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QColor colour_ = Qt::black;
  QColor background_ = Qt::white;
  Kind kind_ = Kind::kSwatch;
  int lineWidth_ = 1;
};

}  // namespace zerbal::dialogs
