// The base class of the three flight finding dialogs: their data, and the list from which the user selects
// the flights to be drawn.
#pragma once

#include <QPushButton>
#include <memory>
#include <string>
#include <vector>

#include "data/flight_finder.h"
#include "data/flight_lists.h"
#include "dialogs/flight_list_view.h"
#include "dialogs/placed_dialog.h"
#include "settings/message_boxes.h"

namespace zerbal::dialogs {

/// What the dialogs read and write; all of it outlives them.
struct FinderContext {
  data::FlightServiceTable& services;
  const data::Schedule& schedule;
  const data::Airports& destinations;
  data::FlightFinderState& state;
  std::vector<std::string>& selectedFlights;  ///< written by "Display flights"
  settings::MessageBoxes& boxes;

  data::FlightSource Source() const { return {schedule, destinations, services}; }
};

/// Accepted when flights were handed over.
class FinderDialog : public PlacedDialog {
  Q_OBJECT

 protected:
  FinderDialog(const Placement& placement, const settings::PairSetting& position,
               const FinderContext& context)
      : PlacedDialog(placement, position), context_(context) {}

  /// Connects the list of flights and its buttons. Called once, after the form is set up.
  template <class Form>
  void UseFlightList(const Form& form) {
    flights_ = std::make_unique<FlightListView>(*form.lstFlit, *form.lstFUni);
    ConnectGuarded(form.cmdSelAll, &QPushButton::clicked, this, [this] { flights_->SelectAll(true); });
    ConnectGuarded(form.cmdSelNone, &QPushButton::clicked, this, [this] { flights_->SelectAll(false); });
    ConnectGuarded(form.cmdDisp, &QPushButton::clicked, this, &FinderDialog::Display);
    ConnectGuarded(form.cmdESC, &QPushButton::clicked, this, &QDialog::reject);
  }
  const FinderContext& Context() const { return context_; }
  FlightListView& Flights() { return *flights_; }

 private:
  void Display() {
    if (flights_->HandOver(context_.selectedFlights, context_.boxes))
      accept();
  }

  FinderContext context_;
  std::unique_ptr<FlightListView> flights_;
};

}  // namespace zerbal::dialogs
