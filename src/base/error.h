// The errors that a user can cause or meet. A mistake of the program itself is an assertion instead.
#pragma once

#include <stdexcept>
#include <string>

namespace zerbal::base {

/// what() is a sentence for the user.
class Error : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// A file is missing, damaged, foreign, or cannot be read or written. what() is "File 'NAME': reason".
class FileError : public Error {
 public:
  FileError(std::string file, std::string reason)
      : FileError("File '" + file + "'", file, std::move(reason)) {}

  const std::string& File() const { return file_; }      ///< as the caller named the file
  const std::string& Reason() const { return reason_; }  ///< without the file's name

 protected:
  /// For messages that begin with more than the file's name.
  FileError(const std::string& subject, std::string file, std::string reason)
      : Error(subject + ": " + reason), file_(std::move(file)), reason_(std::move(reason)) {}

 private:
  std::string file_;
  std::string reason_;
};

/// The user ended a command before it was done.
class Cancelled : public Error {
 public:
  using Error::Error;
};

}  // namespace zerbal::base
