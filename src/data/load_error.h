// The error of databases that lack rows which the program needs.
#pragma once

#include <stdexcept>

namespace zerbal::data {

/// The databases can be read, but rows are missing. what() is the message for the user, with settings::NL as
/// line break.
class LoadError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

}  // namespace zerbal::data
