// A simulated user of the running program: a generic Qt plugin, which Qt loads into any program that is
// started with QT_QPA_GENERIC_PLUGINS=user:ENTRIES. It prints each message box that opens and presses Return
// in it, and closes other dialogs by Escape. When the main window is shown, it chooses the menu entries in
// ENTRIES, which blanks separate, and then closes the main window.
//
// It prints one JSON object per line on standard output:
//   {"box": {"title", "text", "icon", "parent"}}   parent: the name of the parent window of the box, or
//   null
//   {"dialog": name}
//   {"window": name, "imageFormats": number}        the main window is shown, and how many parts of
//                                                   plugins of image formats are in memory then
#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QFile>
#include <QGenericPlugin>
#include <QJsonDocument>
#include <QJsonObject>
#include <QKeyEvent>
#include <QMessageBox>
#include <QPointer>
#include <QTimer>
#include <cstdio>

namespace {

constexpr int kLookMs = 5;

void Print(const QJsonObject& object) {
  std::puts(QJsonDocument(object).toJson(QJsonDocument::Compact).constData());
  std::fflush(stdout);
}

QString IconName(QMessageBox::Icon icon) {
  if (icon == QMessageBox::Critical)
    return "critical";
  return icon == QMessageBox::Warning ? "exclamation" : "other";
}

void PrintBox(const QMessageBox& box) {
  const QWidget* parent = box.parentWidget();
  Print({{"box", QJsonObject{{"title", box.windowTitle()},
                             {"text", box.text()},
                             {"icon", IconName(box.icon())},
                             {"parent", parent != nullptr ? parent->objectName() : QJsonValue()}}}});
}

int LoadedImageFormats() {
  QFile maps("/proc/self/maps");
  int count = 0;
  if (maps.open(QIODevice::ReadOnly)) {
    const QByteArray text = maps.readAll();
    for (const QByteArray& line : text.split('\n'))
      count += line.contains("/imageformats/") ? 1 : 0;
  }
  return count;
}

void Press(QWidget* window, Qt::Key key) {
  const QPointer<QWidget> target = window->focusWidget() != nullptr ? window->focusWidget() : window;
  for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
    QKeyEvent event(type, key, Qt::NoModifier);
    if (target != nullptr)
      QCoreApplication::sendEvent(target, &event);
  }
}

class User final : public QObject {
  Q_OBJECT

 public:
  explicit User(const QString& entries) : entries_(entries.split(' ', Qt::SkipEmptyParts)) { LookLater(); }

 private:
  /// A single-shot timer: Look may run an event loop, which calls it again.
  void LookLater() { QTimer::singleShot(kLookMs, this, &User::Look); }

  void Look() {
    LookLater();
    if (auto* modal = QApplication::activeModalWidget())
      Answer(modal);
    else if (QWidget* main = MainWindow())
      Use(*main);
  }

  static void Answer(QWidget* modal) {
    if (const auto* box = qobject_cast<QMessageBox*>(modal)) {
      PrintBox(*box);
      Press(modal, Qt::Key_Return);
    } else {
      Print({{"dialog", modal->objectName()}});
      Press(modal, Qt::Key_Escape);
    }
  }

  void Use(QWidget& main) {
    if (!shown_) {
      shown_ = true;
      Print({{"window", main.objectName()}, {"imageFormats", LoadedImageFormats()}});
    } else if (entries_.isEmpty()) {
      main.close();
    } else if (auto* entry = main.findChild<QAction*>(entries_.takeFirst())) {
      entry->trigger();
    }
  }

  static QWidget* MainWindow() {
    for (QWidget* window : QApplication::topLevelWidgets()) {
      if (window->objectName() == "frmMain" && window->isVisible())
        return window;
    }
    return nullptr;
  }

  QStringList entries_;
  bool shown_ = false;
};

class UserPlugin final : public QGenericPlugin {
  Q_OBJECT
  Q_PLUGIN_METADATA(IID QGenericPluginFactoryInterface_iid FILE "program_user.json")

 public:
  QObject* create(const QString&, const QString& entries) override { return new User(entries); }
};

}  // namespace

#include "program_user.moc"
