#include "dialogs/colour_sample.h"

#include <QGridLayout>
#include <QLabel>

#include "paint/colour.h"

namespace zerbal::dialogs {
namespace {

constexpr int kFigureWidth = 56;
constexpr int kFigureHeight = 20;
constexpr int kGap = 12;

QLabel* NewLabel(QWidget& parent, const QString& name, const QString& text) {
  auto* label = new QLabel(text, &parent);
  label->setObjectName(name);
  label->setTextFormat(Qt::PlainText);
  return label;
}

void SetTextColour(QWidget& label, const QColor& colour) {
  QPalette palette = label.palette();
  palette.setColor(QPalette::WindowText, colour);
  label.setPalette(palette);
}

Shape* NewShape(QWidget& parent, const QString& name, Shape::Kind kind, QSize size) {
  auto* shape = new Shape(&parent);
  shape->setObjectName(name);
  shape->SetKind(kind);
  shape->setFixedSize(size);
  return shape;
}

QString CaptionOf(data::ColourCode colour) {
  return data::kColourRules[static_cast<std::size_t>(colour)].caption;
}

}  // namespace

ColourSample::ColourSample(QWidget& map, const data::FlightServiceTable& services)
    : map_(map), grid_(new QGridLayout(&map)) {
  grid_->setSizeConstraint(QLayout::SetNoConstraint);
  grid_->setColumnStretch(2, 1);
  grid_->setHorizontalSpacing(kGap);
  using data::ColourCode;
  rows_.emplace_back();  // the background has no figure
  zoomBox_ = AddRow("shpMapZoomB", Shape::Kind::kInvertedFrame, "lblMapZoomB", CaptionOf(ColourCode::kZoom));
  AddRow("shpMapCentr", Shape::Kind::kCentreMark, "lblMapCentr", CaptionOf(ColourCode::kCentre));
  AddRow("linMapCoast", Shape::Kind::kLine, "lblMapCoast", CaptionOf(ColourCode::kCoast));
  AddRow("linMapRiver", Shape::Kind::kLine, "lblMapRiver", CaptionOf(ColourCode::kRiver));
  AddRow("linMapIBoun", Shape::Kind::kLine, "lblMapIBoun", CaptionOf(ColourCode::kIBound));
  AddAirportRow("APAll", ColourCode::kApAll);
  AddAirportRow("APDst", ColourCode::kApDest);
  AddAircraftRow();
  for (std::size_t i = 1; i <= services.size(); ++i) {
    AddRow(QString("linMapFSrv(%1)").arg(i), Shape::Kind::kLine, QString("lblMapFSrv(%1)").arg(i),
           QString::fromStdString(services[i - 1].displayText));
  }
  map_.resize(grid_->sizeHint());
}

Shape* ColourSample::AddRow(const QString& shapeName, Shape::Kind kind, const QString& labelName,
                            const QString& caption) {
  const int row = static_cast<int>(rows_.size());
  Shape* shape = NewShape(map_, shapeName, kind, {kFigureWidth, kFigureHeight});
  shape->setAccessibleName(caption);
  QLabel* label = NewLabel(map_, labelName, caption);
  grid_->addWidget(shape, row, 0);
  grid_->addWidget(label, row, 1, 1, 2);
  rows_.push_back({{shape}, {label}});
  return shape;
}

void ColourSample::AddAirportRow(const QString& layer, data::ColourCode colour) {
  AddRow("shpMap" + layer, Shape::Kind::kDisc, "lblMap" + layer, CaptionOf(colour));
  // The label that the map puts beside the marker is in the same row.
  QLabel* name = rows_.back().labels.front();
  grid_->removeWidget(name);
  grid_->addWidget(name, static_cast<int>(rows_.size()) - 1, 1);
  QLabel* description = NewLabel(map_, "lblMap" + layer + "Desc", "ICAO - Airportname");
  grid_->addWidget(description, static_cast<int>(rows_.size()) - 1, 2);
  rows_.back().labels.push_back(description);
}

void ColourSample::AddAircraftRow() {
  const int row = static_cast<int>(rows_.size());
  auto* figure = new QWidget(&map_);
  figure->setFixedSize(kFigureWidth, kFigureHeight);
  // As on the map: fuselage of width 3 from tail to nose, wing and tail of width 2 across it.
  Shape* fuselage = NewShape(*figure, "linMapACSym1", Shape::Kind::kLine, {13, 3});
  Shape* wing = NewShape(*figure, "linMapACSym2", Shape::Kind::kVerticalLine, {2, 15});
  Shape* tail = NewShape(*figure, "linMapACSym3", Shape::Kind::kVerticalLine, {2, 7});
  constexpr int kLeft = 20;
  constexpr int kMiddle = kFigureHeight / 2;
  fuselage->SetLineWidth(3);
  fuselage->move(kLeft, kMiddle - 1);
  wing->SetLineWidth(2);
  wing->move(kLeft + 8, kMiddle - 7);
  tail->SetLineWidth(2);
  tail->move(kLeft, kMiddle - 3);
  for (Shape* part : {fuselage, wing, tail})
    part->setAccessibleName(CaptionOf(data::ColourCode::kAcSymb));
  QLabel* label = NewLabel(map_, "lblMapACSym", CaptionOf(data::ColourCode::kAcSymb));
  grid_->addWidget(figure, row, 0);
  grid_->addWidget(label, row, 1);
  rows_.push_back({{fuselage, wing, tail}, {label}});
}

void ColourSample::SetColour(std::size_t entry, data::Rgb colour) {
  const QColor shown = paint::ToQColor(colour);
  if (entry == 0) {
    QPalette palette = map_.palette();
    palette.setColor(QPalette::Window, shown);
    map_.setPalette(palette);
    zoomBox_->SetBackground(shown);
    SetTextColour(*rows_[1].labels.front(), shown.lightness() > 127 ? Qt::black : Qt::white);
    return;
  }
  const Row& row = rows_.at(entry);
  for (Shape* shape : row.shapes)
    shape->SetColour(shown);
  // The zoom box has no colour of its own on the map; its name contrasts with the background.
  if (entry == 1)
    return;
  for (QLabel* label : row.labels)
    SetTextColour(*label, shown);
}

}  // namespace zerbal::dialogs
