#include "questions.h"

#include <QAbstractButton>
#include <QFileInfo>
#include <QJsonArray>
#include <QPixmap>
#include <algorithm>
#include <optional>

#include "base/code_page_1252.h"
#include "controls.h"
#include "json_values.h"
#include "settings/profile_file.h"

namespace zerbal::drive {
namespace {

QString Utf8(const std::string& text) {
  return QString::fromStdString(text);
}

QString IconName(QMessageBox::Icon icon) {
  if (icon == QMessageBox::Critical)
    return "critical";
  return icon == QMessageBox::Warning ? "exclamation" : "none";
}

/// A value as the settings file holds it now; nullopt when the key is missing. The file is in the working
/// directory, which is where the program runs.
std::optional<QString> ReadSetting(const QString& section, const QString& key) {
  // A character that no settings value of the program holds alone.
  constexpr char kSentinel[] = "\xff";
  constexpr std::size_t kBuffer = 2000;
  const std::string value = settings::ReadProfileString("zerbal.ini", section.toLatin1().toStdString(),
                                                        key.toLatin1().toStdString(), kSentinel, kBuffer);
  if (value == kSentinel)
    return std::nullopt;
  return QString::fromStdString(base::FromCodePage1252(value));
}

/// What `project` prints as the place of a position that is not in view.
TwipPoint LastAirport(const std::vector<map::Operation>& operations) {
  const auto last = std::find_if(operations.rbegin(), operations.rend(), [](const map::Operation& operation) {
    return operation.kind == map::Operation::Kind::kCircle && operation.fill;
  });
  return last == operations.rend() ? TwipPoint{} : last->from;
}

}  // namespace

QJsonValue BoxValue(const QMessageBox* box) {
  if (!box)
    return QJsonValue::Null;
  QJsonArray buttons;
  for (const QAbstractButton* button : box->buttons())
    buttons.append(button->text().remove('&'));
  return QJsonObject{{"title", box->windowTitle()},
                     {"text", box->text()},
                     {"icon", IconName(box->icon())},
                     {"buttons", buttons}};
}

void GetCommand(const Arguments& arguments, Stage& stage) {
  const QString name = arguments.Text(0);
  stage.answer(Describe(name.mid(name.indexOf('.') + 1), Find(name)));
}

void WindowsCommand(const Arguments&, Stage& stage) {
  QJsonArray names;
  for (const QWidget* window : VisibleWindows())
    names.append(window->objectName());
  stage.answer({{"windows", names}});
}

void ViewCommand(const Arguments&, Stage& stage) {
  const map::Viewport& view = stage.program.State().viewport;
  QJsonArray tiles;
  for (const std::string& tile : view.DetailTiles())
    tiles.append(Utf8(tile));
  stage.answer({{"MapWidth", view.MapWidth()},
                {"MapHeight", view.MapHeight()},
                {"ReqLonMin", SingleValue(view.ReqLonMin())},
                {"ReqLatMin", SingleValue(view.ReqLatMin())},
                {"ReqLonMax", SingleValue(view.ReqLonMax())},
                {"ReqLatMax", SingleValue(view.ReqLatMax())},
                {"MapWrap", view.MapWrap()},
                {"MapLonMin", SingleValue(view.MapLonMin())},
                {"MapLatMin", SingleValue(view.MapLatMin())},
                {"MapLonMax", SingleValue(view.MapLonMax())},
                {"MapLatMax", SingleValue(view.MapLatMax())},
                {"MapLonSpan", SingleValue(view.MapLonSpan())},
                {"MapLatSpan", SingleValue(view.MapLatSpan())},
                {"MapScale", SingleValue(view.MapScale())},
                {"MapOffX", view.MapOffX()},
                {"MapOffY", view.MapOffY()},
                {"DetailMode", view.DetailMode()},
                {"DetailTiles", tiles}});
}

void ProjectCommand(const Arguments& arguments, Stage& stage) {
  const MapPosition position{static_cast<float>(arguments.Number(0)),
                             static_cast<float>(arguments.Number(1))};
  const bool penUp = position.lon == kPenUpLon;
  const std::optional<TwipPoint> point =
      penUp ? std::nullopt : stage.program.State().viewport.ProjectPoint(position);
  const TwipPoint shown = point.value_or(LastAirport(stage.program.Operations()));
  stage.answer({{"result", !penUp}, {"inView", point.has_value()}, {"x", shown.x}, {"y", shown.y}});
}

void OpsCommand(const Arguments&, Stage& stage) {
  QJsonArray operations;
  for (const map::Operation& operation : stage.program.Operations())
    operations.append(OperationValue(operation));
  stage.answer({{"ops", operations}});
}

void DrawsCommand(const Arguments&, Stage& stage) {
  stage.answer({{"draws", stage.program.Draws()}});
}

void ColoursCommand(const Arguments&, Stage& stage) {
  QJsonArray rows;
  for (const data::Colour& row : stage.program.State().tables.colours.rows)
    rows.append(QJsonArray{Utf8(row.code), row.rgb.red, row.rgb.green, row.rgb.blue, Utf8(row.entry)});
  stage.answer({{"colours", rows}});
}

void FontsCommand(const Arguments&, Stage& stage) {
  QJsonArray rows;
  for (const data::Font& row : stage.program.State().tables.fonts.rows)
    rows.append(QJsonArray{Utf8(row.code), Utf8(row.name), row.size, Utf8(row.entry)});
  stage.answer({{"fonts", rows}});
}

void RegionsCommand(const Arguments&, Stage& stage) {
  const data::RegionTable& table = stage.program.State().tables.regions;
  QJsonArray rows;
  for (const data::Region& row : table.rows) {
    // Row 0, the world view, holds the choice of its centre in place of a code and a name.
    const bool world = rows.isEmpty();
    rows.append(QJsonArray{world ? Utf8(table.centreWorld) : Utf8(row.code),
                           world ? SingleValue(table.centreWorldAtLon) : QJsonValue(Utf8(row.name)),
                           row.fromLon, row.fromLat, row.toLon, row.toLat});
  }
  stage.answer({{"regions", rows}});
}

void ServicesCommand(const Arguments&, Stage& stage) {
  QJsonArray rows;
  for (const data::FlightService& row : stage.program.State().tables.services)
    rows.append(QJsonArray{Utf8(row.key), Utf8(row.displayText), row.displayFlag, row.rgb.red, row.rgb.green,
                           row.rgb.blue, row.randomPick});
  stage.answer({{"services", rows}});
}

void SelectionCommand(const Arguments&, Stage& stage) {
  const data::FlightSelection& flights = stage.program.State().flights;
  QJsonArray keys;
  for (const std::string& key : flights.selectedFlights)
    keys.append(Utf8(key));
  stage.answer({{"mode", flights.serviceMode ? "service" : "selection"}, {"keys", keys}});
}

void IniCommand(const Arguments& arguments, Stage& stage) {
  const auto value = ReadSetting(arguments.Text(0), arguments.Text(1));
  stage.answer({{"ini", value ? QJsonValue(*value) : QJsonValue(QJsonValue::Null)}});
}

void FileCommand(const Arguments& arguments, Stage& stage) {
  const QFileInfo file(arguments.Text(0));
  stage.answer({{"exists", file.exists()}, {"bytes", file.exists() ? file.size() : qint64{0}}});
}

void ShotCommand(const Arguments& arguments, Stage& stage) {
  QWidget* window =
      arguments.Count() == 2 ? FindWidget<QWidget>(arguments.Text(1)) : &stage.program.MainWindow();
  const QPixmap picture = window->grab();
  if (!picture.save(arguments.Text(0), "PNG"))
    throw Failure(QString("'%1' cannot be written").arg(arguments.Text(0)));
  stage.answer({{"width", picture.width()}, {"height", picture.height()}});
}

}  // namespace zerbal::drive
