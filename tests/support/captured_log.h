// Qt's log messages during the lifetime of an object, and the logging rules that hold meanwhile.
#pragma once

#include <QLoggingCategory>
#include <string>
#include <vector>

namespace zerbal::test {

/// Messages are captured instead of printed. One object at a time.
class CapturedLog {
 public:
  explicit CapturedLog(const char* rules = "") : before_(qInstallMessageHandler(Capture)) {
    Lines().clear();
    QLoggingCategory::setFilterRules(rules);
  }
  ~CapturedLog() {
    QLoggingCategory::setFilterRules({});
    qInstallMessageHandler(before_);
  }
  CapturedLog(const CapturedLog&) = delete;
  CapturedLog& operator=(const CapturedLog&) = delete;

  /// The messages of "zerbal.draw".
  static std::vector<std::string>& Lines() {
    static std::vector<std::string> lines;
    return lines;
  }

 private:
  static void Capture(QtMsgType, const QMessageLogContext& context, const QString& text) {
    if (context.category == std::string("zerbal.draw"))
      Lines().push_back(text.toStdString());
  }

  QtMessageHandler before_;
};

}  // namespace zerbal::test
