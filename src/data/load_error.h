// What is thrown when the databases lack what the program cannot do without.
#pragma once

#include <stdexcept>

namespace zerbal::data {

/// The databases are sound, but rows are missing. what() is the message for the user, with settings::NL as
/// line break.
class LoadError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

}  // namespace zerbal::data
