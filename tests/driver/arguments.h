// The arguments of a command, converted to the types that it takes.
#pragma once

#include <QJsonDocument>
#include <QJsonObject>
#include <QString>
#include <string>

#include "failure.h"
#include "script_line.h"

namespace zerbal::drive {

/// Index 0 is the first word after the command. Throws SyntaxError when a word has another type.
class Arguments {
 public:
  explicit Arguments(const ScriptLine& line) : line_(line) {}

  std::size_t Count() const { return line_.words.size() - 1; }
  QString Text(std::size_t index) const { return QString::fromStdString(At(index).text); }
  bool Quoted(std::size_t index) const { return At(index).quoted; }
  const std::string& Rest() const { return line_.rest; }

  double Number(std::size_t index) const {
    bool ok = false;
    const double value = Text(index).toDouble(&ok);
    if (!ok)
      throw SyntaxError(QString("'%1' is not a number").arg(Text(index)));
    return value;
  }
  int Whole(std::size_t index) const {
    bool ok = false;
    const int value = Text(index).toInt(&ok);
    if (!ok)
      throw SyntaxError(QString("'%1' is not a whole number").arg(Text(index)));
    return value;
  }
  QJsonObject Json() const {
    QJsonParseError error;
    const auto document = QJsonDocument::fromJson(QByteArray::fromStdString(line_.rest), &error);
    if (!document.isObject())
      throw SyntaxError("not a JSON object: " + error.errorString());
    return document.object();
  }

 private:
  const Word& At(std::size_t index) const { return line_.words.at(index + 1); }
  const ScriptLine& line_;
};

}  // namespace zerbal::drive
