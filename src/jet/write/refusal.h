// Why something cannot be written. Thrown by everything below DatabaseWriter, which knows the names of file
// and table and makes an EngineError of it.
#pragma once

#include <stdexcept>
#include <string>

namespace zerbal::jet {

class Refusal : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

}  // namespace zerbal::jet
