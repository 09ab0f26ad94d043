#include "dialogs/map_file_dialog.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFile>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QTest>
#include <QTimer>
#include <functional>
#include <vector>

#include "dialogs/dialog_fixture.h"

namespace zerbal::test {
namespace {

class MapFileDialogTest : public DialogTest {
 protected:
  QString File(const char* name) const { return QFile::decodeName((folder / name).c_str()); }
  /// Shows the dialog; calls each of `steps` when the window that the one before opened is open.
  std::optional<QString> Ask(const QString& suggestion,
                             std::vector<std::function<void(QWidget& window)>> steps) {
    std::size_t done = 0;
    QObject context;
    // A step that opens a question returns only after the step that answers it.
    const std::function<void()> next = [&] {
      QWidget* window = QApplication::activeModalWidget();
      if (done == steps.size())
        return;
      QTimer::singleShot(0, &context, next);
      if (window == nullptr)
        return;
      QApplication::setActiveWindow(window);
      steps[done++](*window);
    };
    QTimer::singleShot(0, &context, next);
    const auto file = dialogs::AskMapFile(mainWindow, suggestion);
    EXPECT_EQ(done, steps.size());
    return file;
  }
  static void EnterName(QWidget& dialog, const QString& name) {
    Child<QLineEdit>(dialog, "fileNameEdit")->setText(name);
    QTest::keyClick(Child<QLineEdit>(dialog, "fileNameEdit"), Qt::Key_Return);
  }
  static std::function<void(QWidget&)> Enter(const QString& name) {
    return [name](QWidget& dialog) { EnterName(dialog, name); };
  }
  static std::function<void(QWidget&)> Answer(QMessageBox::StandardButton button) {
    return [button](QWidget& box) {
      auto* question = qobject_cast<QMessageBox*>(&box);
      ASSERT_NE(question, nullptr) << "no question";
      question->button(button)->click();
    };
  }
};

TEST_F(MapFileDialogTest, SuggestsAFileAndOffersTheFormats) {
  const auto file = Ask(File("atlas.svg"), {[](QWidget& dialog) {
                          const auto* name = Child<QLineEdit>(dialog, "fileNameEdit");
                          EXPECT_EQ(name->text(), "atlas.svg");
                          EXPECT_EQ(dialog.focusWidget(), name);
                          const auto* formats = Child<QComboBox>(dialog, "fileTypeCombo");
                          EXPECT_EQ(formats->count(), 3);
                          EXPECT_EQ(formats->currentText(), "SVG drawing (*.svg)");
                          EXPECT_EQ(dialog.windowTitle(), "Save map");
                          QTest::keyClick(dialog.focusWidget(), Qt::Key_Return);
                        }});
  EXPECT_EQ(file, File("atlas.svg"));
}

TEST_F(MapFileDialogTest, AddsTheSuffixOfTheChosenFormat) {
  EXPECT_EQ(Ask(File("map.png"), {Enter("view")}), File("view.png"));
  EXPECT_EQ(Ask(File("map.pdf"), {Enter("view")}), File("view.pdf"));
  EXPECT_EQ(Ask(File("map.png"), {Enter("view.v2")}), File("view.v2.png"));
  EXPECT_EQ(Ask(File("map.png"), {Enter("view.SVG")}), File("view.SVG")) << "the name comes first";
}

TEST_F(MapFileDialogTest, AnotherFormatChangesTheSuffixOfTheName) {
  const auto choosePdf = [](QWidget& dialog) {
    auto* formats = Child<QComboBox>(dialog, "fileTypeCombo");
    formats->setCurrentIndex(2);
    emit formats->textActivated(formats->currentText());
    emit formats->activated(2);
    EXPECT_EQ(Child<QLineEdit>(dialog, "fileNameEdit")->text(), "map.pdf");
    EnterName(dialog, "other");
  };
  EXPECT_EQ(Ask(File("map.png"), {choosePdf}), File("other.pdf"));
}

TEST_F(MapFileDialogTest, AsksBeforeAFileIsReplaced) {
  WriteBytes(folder / "map.png", "old");
  EXPECT_EQ(Ask(File("map.png"), {Enter("map"), Answer(QMessageBox::Yes)}), File("map.png"));
  EXPECT_EQ(Ask(File("map.png"), {Enter("map.png"), Answer(QMessageBox::No), Enter("new.png")}),
            File("new.png"));
}

TEST_F(MapFileDialogTest, AsksToReplaceTheFileWithTheSuffixThatItAdds) {
  WriteBytes(folder / "map.v2.png", "old");
  const auto seeCompleteName = [](QWidget& dialog) {
    EXPECT_EQ(Child<QLineEdit>(dialog, "fileNameEdit")->text(), "map.v2.png");
    QTest::keyClick(Child<QLineEdit>(dialog, "fileNameEdit"), Qt::Key_Return);
  };
  EXPECT_EQ(Ask(File("map.png"), {Enter("map.v2"), seeCompleteName, Answer(QMessageBox::Yes)}),
            File("map.v2.png"));
}

TEST_F(MapFileDialogTest, EscapeAborts) {
  EXPECT_EQ(Ask(File("map.png"), {[](QWidget& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); }}),
            std::nullopt);
}

}  // namespace
}  // namespace zerbal::test
