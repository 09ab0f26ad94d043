// The family of errors. Broken invariants of the program itself are not errors but assertions
// (base/assert.h).
#pragma once

#include <stdexcept>
#include <string>
#include <utility>

namespace zerbal::base {

/// The base of all; what() is a sentence for the user. The message box of `zerbal`, and RunPack and Run of
/// the commands, show every error that nobody has handled before.
class Error : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// A file is missing, damaged, foreign, or cannot be read or written. what() is "File 'NAME': reason". Thrown
/// by whatever opens, reads or replaces files.
class FileError : public Error {
 public:
  FileError(const std::string& file, std::string reason)
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

/// A command line is not valid. Thrown by its readers, caught by RunPack and Run, which end with status 2.
class UsageError : public Error {
 public:
  using Error::Error;
};

/// The user interrupted a command. Thrown where zerbal-pack reports its progress, caught by RunPack.
class Cancelled : public Error {
 public:
  using Error::Error;
};

}  // namespace zerbal::base
