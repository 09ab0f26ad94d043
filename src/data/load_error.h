// The error of databases that lack rows which the program needs.
#pragma once

#include "base/error.h"

namespace zerbal::data {

/// The databases can be read, but rows are missing. what() is the message for the user, with settings::NL as
/// line break.
class LoadError : public base::Error {
 public:
  using base::Error::Error;
};

}  // namespace zerbal::data
