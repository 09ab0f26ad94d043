// The sample map of the colour settings: one sample of every coloured object with its name.
#pragma once

#include <QString>
#include <QWidget>
#include <vector>

#include "data/colours.h"
#include "data/flight.h"
#include "dialogs/shape.h"

class QGridLayout;
class QLabel;

namespace zerbal::dialogs {

/// Fills a widget with the samples and recolours them. Entries are numbered as in the list of objects: first
/// the colours of the map (data::kColourRules), then the flight services.
class ColourSample {
 public:
  ColourSample(QWidget& map, const data::FlightServiceTable& services);
  ColourSample(const ColourSample&) = delete;
  ColourSample& operator=(const ColourSample&) = delete;

  void SetColour(std::size_t entry, data::Rgb colour);

 private:
  /// A row of the sample: a figure and its label.
  Shape* AddRow(const QString& shapeName, Shape::Kind kind, const QString& labelName, const QString& caption);
  void AddAirportRow(const QString& layer, data::ColourCode colour);
  void AddAircraftRow();

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
