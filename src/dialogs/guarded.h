// Keeps exceptions out of Qt, whose libraries have no clean-up code for them. The body of every event handler
// that can throw runs in Guarded(), and every signal is connected by ConnectGuarded().
#pragma once

#include <QObject>
#include <functional>
#include <type_traits>

namespace zerbal::dialogs {

/// The one place that errors of handlers are reported to: the application object.
class ErrorReceiver {
 public:
  virtual ~ErrorReceiver() = default;
  /// Called while the exception is being handled.
  virtual void EndWithCurrentError() = 0;
};

/// Passes the exception that is being handled to the application object. Terminates the process when that is
/// no ErrorReceiver.
void ReportCurrentError() noexcept;

/// Runs `work`; reports what it throws. Returns whether it threw nothing.
template <class Work>
bool Guarded(const Work& work) noexcept {
  try {
    work();
    return true;
  } catch (...) {
    ReportCurrentError();
    return false;
  }
}

/// Calls a function object or a member function of `context` with all arguments, or with none when it takes
/// none.
template <class Slot, class Context, class... Arguments>
void CallSlot(const Slot& slot, [[maybe_unused]] Context* context, const Arguments&... arguments) {
  if constexpr (std::is_invocable_v<Slot, const Arguments&...>)
    slot(arguments...);
  else if constexpr (std::is_invocable_v<Slot, Context*, const Arguments&...>)
    std::invoke(slot, context, arguments...);
  else if constexpr (std::is_invocable_v<Slot>)
    slot();
  else
    std::invoke(slot, context);
}

/// QObject::connect() for slots that may throw.
template <class Sender, class Class, class... Arguments, class Context, class Slot>
void ConnectGuarded(const Sender* sender, void (Class::*signal)(Arguments...), Context* context, Slot slot) {
  QObject::connect(sender, signal, context, [context, slot](Arguments... arguments) {
    Guarded([&] { CallSlot(slot, context, arguments...); });
  });
}

}  // namespace zerbal::dialogs
