// Choosing flights of one flight service, or of all.
#pragma once

#include <memory>

#include "dialogs/finder_context.h"
#include "dialogs/flight_list_view.h"
#include "dialogs/placed_dialog.h"

namespace Ui {
class frmSeleFlit;
}

namespace zerbal::dialogs {

/// Opens on the service that was chosen last in this run. Accepted when flights were handed over.
class frmSeleFlit final : public PlacedDialog {
  Q_OBJECT

 public:
  frmSeleFlit(const Placement& placement, const FinderContext& context);
  ~frmSeleFlit() override;

 private:
  void ListFlights();
  void Display();

  FinderContext context_;
  std::unique_ptr<Ui::frmSeleFlit> ui_;
  std::unique_ptr<FlightListView> flights_;
};

}  // namespace zerbal::dialogs
