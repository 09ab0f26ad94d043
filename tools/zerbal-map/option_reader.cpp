#include "zerbal-map/option_reader.h"

#include <QFile>
#include <algorithm>
#include <span>
#include <vector>

#include "zerbal-map/options.h"

namespace zerbal::mapcommand {
namespace {

constexpr const char* kWithValue[] = {
    "data",      "region",  "view",      "centre",  "span",       "size",    "paper",
    "dpi",       "show",    "services",  "flights", "touching",   "compare", "labels",
    "elevation", "runways", "longest",   "ils",     "settings",   "out",     "width-by",
    "color-by",  "title",   "graticule", "style",   "projection", "land",    "water"};
constexpr const char* kWithoutValue[] = {"great-circles", "labels-placed", "help", "version"};
/// Their value may be omitted, which the parser of Qt does not know.
constexpr const char* kPieces[] = {"legend", "scale-bar", "north"};

bool Names(std::span<const char* const> options, const QString& word) {
  return std::any_of(options.begin(), options.end(), [&](const char* option) {
    return word == QString("--") + option || word == QString("-") + option;
  });
}

/// The words with "=auto" added to options that lack their value. Words after an option with a value are
/// values and stay as they are.
QStringList WithPieceValues(QStringList words) {
  for (qsizetype i = 0; i < words.size(); ++i) {
    if (Names(kWithValue, words[i]))
      ++i;
    else if (Names(kPieces, words[i]))
      words[i] += "=auto";
  }
  return words;
}

}  // namespace

OptionReader::OptionReader(const QStringList& words) {
  std::vector<const char*> withValue(std::begin(kWithValue), std::end(kWithValue));
  withValue.insert(withValue.end(), std::begin(kPieces), std::end(kPieces));
  for (const char* name : withValue)
    parser_.addOption(QCommandLineOption(name, QString(), "value"));
  for (const char* name : kWithoutValue)
    parser_.addOption(QCommandLineOption(name));
  parser_.setSingleDashWordOptionMode(QCommandLineParser::ParseAsLongOptions);
  if (!parser_.parse(QStringList{"zerbal-map"} + WithPieceValues(words)))
    throw UsageError(parser_.errorText());
  if (!parser_.positionalArguments().isEmpty())
    throw UsageError(QString("'%1' belongs to no option").arg(parser_.positionalArguments().front()));
  for (const char* name : withValue) {
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
