// How large the flight finding dialogs open: with room for long lists, in any font and on any screen.
#include <QListView>
#include <QPushButton>
#include <QScreen>
#include <algorithm>
#include <optional>

#include "data/databases.h"
#include "dialogs/dialog_fixture.h"
#include "dialogs/frm_rand_flit.h"
#include "dialogs/frm_sele_dest.h"
#include "dialogs/frm_sele_flit.h"
#include "support/small_world.h"

namespace zerbal::test {
namespace {

class FinderSize : public DialogTest {
 protected:
  FinderSize() {
    SmallWorld().Write(folder.Path());
    databases.emplace(data::OpenDatabases(data::FindDataFiles(folder.Path()).files));
    services = databases->schedule.LoadServices();
  }
  ~FinderSize() override { QApplication::setFont(usualFont); }

  static void SetFontSize(int points) {
    QFont font = QApplication::font();
    font.setPointSize(points);
    QApplication::setFont(font);
  }
  dialogs::FinderContext Context() {
    return {services, databases->schedule, databases->destinations, state, selectedFlights, boxes};
  }
  /// That the list has room for so many lines of so many average characters, or the dialog takes all that the
  /// screen has.
  static void ExpectRoom(QDialog& dialog, const char* name, int lines, int characters) {
    dialog.show();
    QApplication::processEvents();
    const auto* list = Child<QListView>(dialog, name);
    const QFontMetrics metrics(list->font());
    const QSize frame = dialog.frameGeometry().size();
    const QSize screen = dialog.screen()->availableGeometry().size();
    const QSize least = dialog.minimumSizeHint() + frame - dialog.size();
    if (frame.height() != std::max(screen.height(), least.height())) {
      EXPECT_GE(list->viewport()->height() / metrics.height(), lines) << name;
      EXPECT_LT(frame.height(), screen.height());
    }
    if (frame.width() != std::max(screen.width(), least.width())) {
      EXPECT_GE(list->viewport()->width() / metrics.averageCharWidth(), characters) << name;
      EXPECT_LT(frame.width(), screen.width());
    }
  }
  void ExpectRoomEverywhere() {
    dialogs::frmSeleFlit service(placement, Context());
    ExpectRoom(service, "lstFlit", 25, 100);
    dialogs::frmSeleDest destination(placement, Context());
    ExpectRoom(destination, "lstFlit", 20, 100);
    dialogs::frmRandFlit random(placement, Context(), noRandom);
    ExpectRoom(random, "lstFlit", 10, 100);
    ExpectRoom(random, "lstFSrv", 16, 40);
  }

  struct : data::RandomSource {
    float Next() override { return 0; }
  } noRandom;
  QFont usualFont = QApplication::font();
  std::optional<data::Databases> databases;
  data::FlightServiceTable services;
  data::FlightFinderState state;
  std::vector<std::string> selectedFlights;
};

TEST_F(FinderSize, ListsHaveRoomForLongLists) {
  ExpectRoomEverywhere();
}

TEST_F(FinderSize, ListsHaveRoomInALargeFont) {
  SetFontSize(16);
  ExpectRoomEverywhere();
}

TEST_F(FinderSize, EveryButtonStaysInTheSmallestDialog) {
  SetFontSize(16);
  dialogs::frmRandFlit dialog(placement, Context(), noRandom);
  dialog.show();
  dialog.resize(1, 1);
  QApplication::processEvents();
  for (const QPushButton* button : dialog.findChildren<QPushButton*>()) {
    const QRect place(button->mapTo(&dialog, QPoint()), button->size());
    EXPECT_TRUE(dialog.rect().contains(place)) << button->objectName().toStdString();
    EXPECT_GE(button->width(), button->minimumSizeHint().width()) << button->objectName().toStdString();
  }
}

}  // namespace
}  // namespace zerbal::test
