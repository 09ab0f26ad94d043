#include "dialogs/flight_list_view.h"

#include <QApplication>
#include <QHelpEvent>
#include <QListView>
#include <QToolTip>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace zerbal::test {
namespace {

class FlightListViewTest : public testing::Test {
 protected:
  FlightListViewTest() {
    view.setUniformItemSizes(true);
    view.setSelectionMode(QListView::ExtendedSelection);
    view.resize(200, 100);
    list.SetLines({"QV1 - LPPT -> EGLL", "QV2 - " + std::string(100, 'A') + " -> <b>&", "QV3"});
    view.show();
  }

  QString TipOver(int row) {
    const QPoint at = view.visualRect(view.model()->index(row, 0)).center();
    QHelpEvent event(QEvent::ToolTip, at, view.viewport()->mapToGlobal(at));
    QApplication::sendEvent(view.viewport(), &event);
    return QToolTip::text();
  }

  QListView view;
  dialogs::ListLines list{view};
};

TEST_F(FlightListViewTest, ShowsATruncatedLineCompletelyInAToolTip) {
  view.resize(2000, 100);
  EXPECT_EQ(TipOver(1), QString());
  view.resize(200, 100);
  EXPECT_EQ(TipOver(0), QString());
  EXPECT_EQ(TipOver(1), "<p>QV2 - " + QString(100, 'A') + " -&gt; &lt;b&gt;&amp;</p>");
}

TEST_F(FlightListViewTest, SelectsByRows) {
  list.SelectAll(true);
  EXPECT_EQ(list.SelectedRows(), (std::vector<int>{0, 1, 2}));
  list.SelectAll(false);
  list.SelectRow(2);
  list.SelectRow(0);
  EXPECT_EQ(list.SelectedRows(), (std::vector<int>{0, 2}));
}

}  // namespace
}  // namespace zerbal::test
