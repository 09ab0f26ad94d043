// What stops a script: a command that cannot be carried out, or an expectation that does not hold.
#pragma once

#include <QString>
#include <stdexcept>

namespace zerbal::drive {

class Failure : public std::runtime_error {
 public:
  explicit Failure(const QString& reason) : std::runtime_error(reason.toStdString()) {}
};

/// The line is no command, or its words are not what the command takes.
class NotACommand : public Failure {
 public:
  using Failure::Failure;
};

}  // namespace zerbal::drive
