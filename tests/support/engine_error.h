// The reasons of the errors that the engine throws.
#pragma once

#include <string>
#include <utility>

#include "jet/error.h"

namespace zerbal::jet::test {

/// The reason of the EngineError that `work` throws; "none" when it throws nothing.
template <class Work>
std::string ReasonOf(Work&& work) {
  try {
    std::forward<Work>(work)();
  } catch (const EngineError& error) {
    return error.Reason();
  }
  return "none";
}

/// The cause of the ConversionError that `work` throws; "none" when it throws nothing.
template <class Work>
std::string CauseOf(Work&& work) {
  try {
    std::forward<Work>(work)();
  } catch (const ConversionError& error) {
    for (const std::string cause : {"is Null", "holds no number", "holds a number out of range"}) {
      if (error.Reason().ends_with(cause))
        return cause;
    }
  }
  return "none";
}

}  // namespace zerbal::jet::test
