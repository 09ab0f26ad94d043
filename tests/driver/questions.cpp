#include "questions.h"

#include <QAbstractButton>
#include <QFileInfo>
#include <QJsonArray>
#include <QPixmap>
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

/// The value in the settings file of the working directory; nullopt when the key is missing.
std::optional<QString> ReadSetting(const QString& section, const QString& key) {
  // No settings value of the program consists of this byte.
  constexpr char kSentinel[] = "\xff";
  constexpr std::size_t kBuffer = 2000;
  const std::string value = settings::ReadProfileString("zerbal.ini", section.toLatin1().toStdString(),
                                                        key.toLatin1().toStdString(), kSentinel, kBuffer);
  if (value == kSentinel)
    return std::nullopt;
  return QString::fromStdString(base::FromCodePage1252(value));
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

void GetCommand(const Arguments& arguments, Context& context) {
  const QString name = arguments.Text(0);
  context.answer(Describe(name.mid(name.indexOf('.') + 1), Find(name)));
}

void WindowsCommand(const Arguments&, Context& context) {
  QJsonArray names;
  for (const QWidget* window : VisibleWindows())
    names.append(window->objectName());
  context.answer({{"windows", names}});
}

void ViewCommand(const Arguments&, Context& context) {
  const map::Viewport& view = context.program.State().map.viewport;
  QJsonArray tiles;
  for (const std::string& tile : view.DetailTiles())
    tiles.append(Utf8(tile));
  context.answer({{"MapWidth", view.MapWidth()},
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

void ProjectCommand(const Arguments& arguments, Context& context) {
  const MapPosition position{static_cast<float>(arguments.Number(0)),
                             static_cast<float>(arguments.Number(1))};
  // A marker is not projected and a point outside is not set: both answers keep the values of the last
  // airport.
  const bool penUp = position.lon == kPenUpLon;
  const std::optional<TwipPoint> last = context.program.LastAirport();
  const std::optional<TwipPoint> point =
      penUp ? last : context.program.State().map.viewport.ProjectPoint(position);
  const TwipPoint shown = point ? *point : last.value_or(TwipPoint{});
  context.answer({{"result", !penUp}, {"inView", point.has_value()}, {"x", shown.x}, {"y", shown.y}});
}

void OpsCommand(const Arguments&, Context& context) {
  QJsonArray operations;
  for (const map::Operation& operation : context.program.Operations())
    operations.append(OperationValue(operation));
  context.answer({{"ops", operations}});
}

void DrawsCommand(const Arguments&, Context& context) {
  context.answer({{"draws", context.program.Draws()}});
}

void ColoursCommand(const Arguments&, Context& context) {
  QJsonArray rows;
  const data::ColourTable& colours = context.program.State().map.style.colours;
  for (const data::ColourRule& rule : data::kColourRules) {
    const data::Colour& row = colours.rows[static_cast<std::size_t>(rule.colour)];
    rows.append(QJsonArray{rule.code, row.rgb.red, row.rgb.green, row.rgb.blue, Utf8(row.entry)});
  }
  context.answer({{"colours", rows}});
}

void FontsCommand(const Arguments&, Context& context) {
  QJsonArray rows;
  for (const data::FontRule& rule : data::kFontRules) {
    const data::Font& row = context.program.State().map.style.fonts[rule.font];
    rows.append(QJsonArray{rule.code, Utf8(row.name), row.size, Utf8(row.entry)});
  }
  context.answer({{"fonts", rows}});
}

void RegionsCommand(const Arguments&, Context& context) {
  const data::RegionTable& table = context.program.State().map.style.regions;
  QJsonArray rows;
  for (const data::Region& row : table.rows) {
    // Row 0 is the world view. It has the choice of its centre instead of a code and a name.
    const bool world = rows.isEmpty();
    rows.append(
        QJsonArray{world ? QJsonValue(QString::number(static_cast<int>(table.centreWorld))) : Utf8(row.code),
                   world ? SingleValue(table.centreWorldAtLon) : QJsonValue(Utf8(row.name)), row.fromLon,
                   row.fromLat, row.toLon, row.toLat});
  }
  context.answer({{"regions", rows}});
}

void ServicesCommand(const Arguments&, Context& context) {
  QJsonArray rows;
  for (const data::FlightService& row : context.program.State().map.services)
    rows.append(QJsonArray{Utf8(row.key), Utf8(row.displayText), row.displayFlag, row.rgb.red, row.rgb.green,
                           row.rgb.blue, row.randomPick});
  context.answer({{"services", rows}});
}

void SelectionCommand(const Arguments&, Context& context) {
  const data::FlightSelection& flights = context.program.State().map.flights;
  QJsonArray keys;
  for (const std::string& key : flights.selectedFlights)
    keys.append(Utf8(key));
  context.answer({{"mode", flights.serviceMode ? "service" : "selection"}, {"keys", keys}});
}

void IniCommand(const Arguments& arguments, Context& context) {
  const auto value = ReadSetting(arguments.Text(0), arguments.Text(1));
  context.answer({{"ini", value ? QJsonValue(*value) : QJsonValue(QJsonValue::Null)}});
}

void FileCommand(const Arguments& arguments, Context& context) {
  const QFileInfo file(arguments.Text(0));
  context.answer({{"exists", file.exists()}, {"bytes", file.exists() ? file.size() : qint64{0}}});
}

void ShotCommand(const Arguments& arguments, Context& context) {
  QWidget* window =
      arguments.Count() == 2 ? FindWidget<QWidget>(arguments.Text(1)) : &context.program.MainWindow();
  const QPixmap picture = window->grab();
  if (!picture.save(arguments.Text(0), "PNG"))
    throw Failure(QString("'%1' cannot be written").arg(arguments.Text(0)));
  context.answer({{"width", picture.width()}, {"height", picture.height()}});
}

}  // namespace zerbal::drive
