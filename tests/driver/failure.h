// The exceptions that stop a script.
#pragma once

#include <QString>
#include <stdexcept>

namespace zerbal::drive {

/// A command cannot be executed, or an expectation does not hold.
class Failure : public std::runtime_error {
 public:
  explicit Failure(const QString& reason) : std::runtime_error(reason.toStdString()) {}
};

/// The line is not a command, or its arguments have another number or type.
class SyntaxError : public Failure {
 public:
  using Failure::Failure;
};

}  // namespace zerbal::drive
