// Why something cannot be written.
#pragma once

#include "base/error.h"

namespace zerbal::jet {

/// Thrown inside the writer; DatabaseWriter turns it into an EngineError that names file and table.
class Refusal : public base::Error {
 public:
  using base::Error::Error;
};

}  // namespace zerbal::jet
