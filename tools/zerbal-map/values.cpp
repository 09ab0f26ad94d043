#include "zerbal-map/values.h"

#include <QPageSize>
#include <QRegularExpression>
#include <cmath>

#include "zerbal-map/options.h"

namespace zerbal::mapcommand {
namespace {

double ParseDegrees(const QString& text, const QString& option, const char* positive, const char* negative,
                    double limit) {
  QString number = text.trimmed();
  bool below = false;
  for (const char* letter : {positive, negative}) {
    const bool before = number.startsWith(letter, Qt::CaseInsensitive);
    if (!before && !number.endsWith(letter, Qt::CaseInsensitive))
      continue;
    below = letter == negative;
    if (before)
      number.remove(0, 1);
    else
      number.chop(1);
    break;
  }
  const bool lettered = number.size() != text.trimmed().size();
  bool ok = false;
  const double value = number.toDouble(&ok);
  if (!ok || !std::isfinite(value) || std::abs(value) > limit || (lettered && value < 0)) {
    throw UsageError(
        QString("%1: '%2' is not a number of degrees from -%3 to %3, or from 0 to %3 with %4 or %5")
            .arg(option, text)
            .arg(limit)
            .arg(positive, negative));
  }
  return below ? -value : value;
}

std::int32_t ParseWhole(const QString& text, const QString& whole, const QString& option) {
  bool ok = false;
  const int value = text.toInt(&ok);
  if (!ok)
    throw UsageError(QString("%1: '%2' does not fit a whole number of 32 bits").arg(option, whole));
  return value;
}

}  // namespace

double ParseLongitude(const QString& text, const QString& option) {
  return ParseDegrees(text, option, "E", "W", 180);
}

double ParseLatitude(const QString& text, const QString& option) {
  return ParseDegrees(text, option, "N", "S", 90);
}

double ParsePositive(const QString& text, const QString& option) {
  bool ok = false;
  const double value = text.toDouble(&ok);
  if (!ok || !std::isfinite(value) || value <= 0)
    throw UsageError(QString("%1: '%2' is not a number above 0").arg(option, text));
  return value;
}

data::NumericCriterion ParseLimit(const QString& text, const QString& option) {
  static const QRegularExpression pattern("^(-?\\d+)(?:(\\+)|(-)|-(-?\\d+))?$");
  const auto match = pattern.match(text.trimmed());
  if (!match.hasMatch()) {
    throw UsageError(
        QString("%1: '%2' is no limit; possible are A-B (between), N+ (at least), N- (at most) and N")
            .arg(option, text));
  }
  data::NumericCriterion criterion;
  criterion.active = true;
  const std::int32_t first = ParseWhole(match.captured(1), text, option);
  if (!match.captured(2).isEmpty()) {
    criterion.limit = data::Limit::kAtLeast;
    criterion.atLeast = first;
  } else if (!match.captured(3).isEmpty()) {
    criterion.limit = data::Limit::kAtMost;
    criterion.atMost = first;
  } else {
    criterion.from = first;
    criterion.to = match.captured(4).isEmpty() ? first : ParseWhole(match.captured(4), text, option);
    if (criterion.from > criterion.to)
      throw UsageError(QString("%1: in '%2' the from-value is larger than the to-value").arg(option, text));
  }
  return criterion;
}

QSizeF ParsePaper(const QString& text) {
  constexpr QPageSize::PageSizeId kPapers[] = {
      QPageSize::A0, QPageSize::A1, QPageSize::A2,     QPageSize::A3,    QPageSize::A4,
      QPageSize::A5, QPageSize::A6, QPageSize::Letter, QPageSize::Legal, QPageSize::Tabloid};
  QStringList names;
  for (const QPageSize::PageSizeId id : kPapers) {
    const QPageSize paper(id);
    if (paper.key().compare(text, Qt::CaseInsensitive) == 0) {
      const QSizeF inches = paper.size(QPageSize::Inch);
      return {std::max(inches.width(), inches.height()), std::min(inches.width(), inches.height())};
    }
    names.append(paper.key());
  }
  throw UsageError(QString("--paper: there is no paper '%1'; possible are %2").arg(text, names.join(", ")));
}

}  // namespace zerbal::mapcommand
