// The dialog of all colours: those of the map and one for each flight service.
#pragma once

#include <memory>
#include <vector>

#include "data/colours.h"
#include "data/flight.h"
#include "dialogs/colour_sample.h"
#include "dialogs/placed_dialog.h"

namespace Ui {
class frmColoSett;
}

namespace zerbal::dialogs {

/// Edits a working copy of all colours, shown on a sample map; OK stores every one in the tables and in the
/// settings file, whether or not it was changed.
class frmColoSett final : public PlacedDialog {
  Q_OBJECT

 public:
  frmColoSett(const Placement& placement, data::ColourTable& colours, data::FlightServiceTable& services);
  ~frmColoSett() override;

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void showEvent(QShowEvent* event) override;

 private:
  void ShowObject();
  void TakeColour();
  void FitSample();
  void Confirm();

  std::unique_ptr<Ui::frmColoSett> ui_;
  data::ColourTable& colours_;
  data::FlightServiceTable& services_;
  std::vector<data::Rgb> working_;  ///< as the object list: the nine colours, then the services
  std::size_t current_ = 0;
  std::unique_ptr<ColourSample> sample_;
};

}  // namespace zerbal::dialogs
