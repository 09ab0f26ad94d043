// The flight list that all three flight finding dialogs share: visible lines, the hidden keys beside them,
// and the step that hands the selected flights over for drawing.
#pragma once

#include <QListView>
#include <QStringListModel>
#include <string>
#include <vector>

#include "settings/message_boxes.h"

namespace zerbal::dialogs {

/// Fills a list view through a model, so that tens of thousands of lines need no widget each.
class ListLines {
 public:
  explicit ListLines(QListView& view);

  void SetLines(const std::vector<std::string>& lines);
  int Count() const { return model_.rowCount(); }
  void SelectAll(bool selected);
  void SelectRow(int row);
  /// Selected rows in list order.
  std::vector<int> SelectedRows() const;

 private:
  QListView& view_;
  QStringListModel model_;
};

class FlightListView {
 public:
  /// `visible` shows the lines; `hidden`, never shown, holds the key of each.
  FlightListView(QListView& visible, QListView& hidden);

  void SetFlights(const std::vector<std::string>& lines, const std::vector<std::string>& keys);
  /// Other texts for the same flights: the keys stay, the selection is lost.
  void SetLines(const std::vector<std::string>& lines) { lines_.SetLines(lines); }
  void Clear() { SetFlights({}, {}); }
  void SelectAll(bool selected) { lines_.SelectAll(selected); }

  /// Puts the keys of the selected lines, in list order, into `selectedFlights`. With none selected
  /// shows a box, changes nothing and returns false. Throws OverflowError beyond 32767 flights.
  bool HandOver(std::vector<std::string>& selectedFlights, settings::MessageBoxes& boxes) const;

 private:
  ListLines lines_;
  ListLines keyLines_;
  std::vector<std::string> keys_;
};

}  // namespace zerbal::dialogs
