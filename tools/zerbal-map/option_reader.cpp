#include "zerbal-map/option_reader.h"

#include <QFile>

#include "zerbal-map/options.h"

namespace zerbal::mapcommand {
namespace {

constexpr const char* kWithValue[] = {"data",     "region", "view",       "centre",   "span",    "size",
                                      "paper",    "dpi",    "show",       "services", "flights", "touching",
                                      "compare",  "labels", "elevation",  "runways",  "longest", "ils",
                                      "settings", "out",    "projection", "land",     "water"};
constexpr const char* kWithoutValue[] = {"great-circles", "help", "version"};

}  // namespace

OptionReader::OptionReader(const QStringList& words) {
  for (const char* name : kWithValue)
    parser_.addOption(QCommandLineOption(name, QString(), "value"));
  for (const char* name : kWithoutValue)
    parser_.addOption(QCommandLineOption(name));
  parser_.setSingleDashWordOptionMode(QCommandLineParser::ParseAsLongOptions);
  if (!parser_.parse(QStringList{"zerbal-map"} + words))
    throw UsageError(parser_.errorText());
  if (!parser_.positionalArguments().isEmpty())
    throw UsageError(QString("'%1' belongs to no option").arg(parser_.positionalArguments().front()));
  for (const char* name : kWithValue) {
    if (parser_.values(name).size() > 1)
      throw UsageError(QString("--%1 is given more than once").arg(name));
    if (parser_.isSet(name) && parser_.value(name).isEmpty())
      throw UsageError(QString("--%1: the value is empty").arg(name));
  }
}

std::string OptionReader::Path(const char* name) const {
  return QFile::encodeName(Value(name)).toStdString();
}

void OptionReader::OneOf(std::initializer_list<const char*> names) const {
  QStringList given;
  for (const char* name : names) {
    if (Has(name))
      given.append(QString("--") + name);
  }
  if (given.size() > 1)
    throw UsageError(given.join(" and ") + " exclude each other");
}

}  // namespace zerbal::mapcommand
