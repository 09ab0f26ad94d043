// The words of the command line as options and their values.
#pragma once

#include <QCommandLineParser>
#include <QStringList>
#include <initializer_list>
#include <string>

namespace zerbal::mapcommand {

class OptionReader {
 public:
  /// `words` without the program's name. Throws UsageError for what is no option, is given twice or is empty.
  explicit OptionReader(const QStringList& words);

  bool Has(const char* name) const { return parser_.isSet(name); }
  QString Value(const char* name) const { return parser_.value(name); }
  std::string Path(const char* name) const;
  /// Throws UsageError when more than one of these is given.
  void OneOf(std::initializer_list<const char*> names) const;

 private:
  QCommandLineParser parser_;
};

}  // namespace zerbal::mapcommand
