// Why something cannot be written. Thrown inside the writer; DatabaseWriter turns it into an EngineError that
// names file and table.
#pragma once

#include <stdexcept>
#include <string>

namespace zerbal::jet {

class Refusal : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

}  // namespace zerbal::jet
