// The time in which the flight selection opens on all flights of a large schedule, compared with filling a
// list that creates an item per line.
#include <QApplication>
#include <QListWidget>
#include <QMainWindow>
#include <optional>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>

#include "data/databases.h"
#include "dialogs/frm_sele_flit.h"
#include "support/recorded_boxes.h"
#include "support/small_world.h"

namespace {

using namespace zerbal;

constexpr int kFlights = 20000;

struct LargeSchedule {
  LargeSchedule() {
    test::SmallWorld world;
    world.flit.rows.clear();
    const char* airports[] = {"OSL", "BGO", "TOS", "CPH", "LHR", "HEL", "KEF", "TRF", "GOT", "KKN"};
    const char* keys[] = {"NOR", "NORX", "OCE"};
    for (int i = 0; i < kFlights; ++i) {
      world.flit.rows.push_back(
          test::FlightRow(keys[i % 3], "ZB" + std::to_string(i), std::to_string(i), airports[i % 10],
                          {airports[(i + 3) % 10], airports[(i + 5) % 10]}, airports[(i + 7) % 10]));
    }
    world.Write(folder.Path());
    databases.emplace(data::OpenDatabases(data::FindDataFiles(folder.Path()).files));
    services = databases->schedule.LoadServices();
  }
  data::FlightSource Source() { return {databases->schedule, databases->destinations, services}; }

  test::TempFolder folder;
  test::RecordedBoxes boxes;
  std::optional<data::Databases> databases;
  data::FlightServiceTable services;
};

LargeSchedule& Schedule() {
  static LargeSchedule schedule;
  return schedule;
}

void OpenSelection(benchmark::State& state) {
  LargeSchedule& schedule = Schedule();
  settings::IniFile ini(schedule.folder / "zerbal.ini", schedule.boxes);
  const settings::SaveFlags flags;
  QMainWindow mainWindow;
  data::FlightFinderState finder;
  std::vector<std::string> selected;
  const dialogs::Placement placement{mainWindow, ini, flags};
  for ([[maybe_unused]] auto _ : state) {
    dialogs::frmSeleFlit dialog(
        placement, {schedule.services, schedule.databases->schedule, schedule.databases->destinations, finder,
                    selected, schedule.boxes});
    dialog.show();
    QApplication::processEvents();
  }
}
BENCHMARK(OpenSelection)->Unit(benchmark::kMillisecond);

void SelectAllAndHandOver(benchmark::State& state) {
  LargeSchedule& schedule = Schedule();
  QListView lines, keys;
  dialogs::FlightListView view(lines, keys);
  const data::FlightList list = data::FlightsOfService(schedule.Source(), 0, false);
  view.SetFlights(list.lines, list.keys);
  lines.setSelectionMode(QAbstractItemView::ExtendedSelection);
  std::vector<std::string> selected;
  for ([[maybe_unused]] auto _ : state) {
    view.SelectAll(true);
    view.HandOver(selected, schedule.boxes);
  }
}
BENCHMARK(SelectAllAndHandOver)->Unit(benchmark::kMillisecond);

void FillItemWidgets(benchmark::State& state) {
  const data::FlightList list = data::FlightsOfService(Schedule().Source(), 0, false);
  for ([[maybe_unused]] auto _ : state) {
    QListWidget widget;
    for (const std::string& line : list.lines)
      widget.addItem(QString::fromStdString(line));
    widget.show();
    QApplication::processEvents();
  }
}
BENCHMARK(FillItemWidgets)->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argc, argv);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}
