// The sample map of the colour settings: one sample of every coloured object with its name.
#pragma once

#include <QString>
#include <QWidget>
#include <vector>

#include "data/reference_tables.h"
#include "dialogs/shape.h"

class QGridLayout;
class QLabel;

namespace zerbal::dialogs {

/// Fills a widget with the samples and recolours them. Entries are numbered as the object list: 0 the
/// background, 1..8 the other map colours in table order, from 9 on the flight services.
class ColourSample {
 public:
  ColourSample(QWidget& map, const data::FlightServiceTable& services);
  ColourSample(const ColourSample&) = delete;
  ColourSample& operator=(const ColourSample&) = delete;

  /// Captions of entries 1..8.
  static std::vector<QString> ObjectCaptions();

  void SetColour(std::size_t entry, data::Rgb colour);

 private:
  /// One line of the sample: a figure and its label.
  Shape* AddRow(const QString& shapeName, Shape::Kind kind, const QString& labelName, const QString& caption);
  void AddAirportRow(const QString& layer, const QString& labelName, const QString& caption);
  void AddAircraftRow(const QString& caption);

  struct Row {
    std::vector<Shape*> shapes;
    std::vector<QLabel*> labels;
  };

  QWidget& map_;
  QGridLayout* grid_;
  Shape* zoomBox_ = nullptr;
  std::vector<Row> rows_;  ///< by entry
};

}  // namespace zerbal::dialogs
