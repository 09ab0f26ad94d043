// Saving and copying the map that the main window shows.
#include <QApplication>
#include <QClipboard>
#include <QMimeData>
#include <QSvgRenderer>
#include <QTest>
#include <csignal>

#include <sys/resource.h>

#include "app_test.h"

namespace zerbal::app {
namespace {

namespace fs = std::filesystem;

class SaveMap : public test::RunningTest {
 protected:
  void SetUp() override {
    RunningTest::SetUp();
    QApplication::setActiveWindow(&Window());
    QCoreApplication::processEvents();
    Entry("mnuRegPart(2)")->trigger();
    Entry("mnuViewDest")->trigger();
    Entry("mnuFlitFSrv(0)")->trigger();
    fs::create_directory(folder / "out");
    QGuiApplication::clipboard()->clear();
  }
  void TearDown() override { fs::permissions(folder / "out", fs::perms::owner_all); }
  void PressCtrl(Qt::Key key) { QTest::keyClick(&Window().MapWindow(), key, Qt::ControlModifier); }
  /// By Ctrl+S; the user chooses this file in the folder "out".
  void Save(const char* name) {
    dialogs.mapFile = folder / "out" / name;
    PressCtrl(Qt::Key_S);
  }
  std::string Bytes(const char* name) { return test::ReadBytes(folder / "out" / name); }
  QImage SavedPicture(const char* name) {
    const std::string bytes = Bytes(name);
    return QImage::fromData(QByteArray::fromStdString(bytes)).convertToFormat(QImage::Format_RGB32);
  }
  /// Its pixels alone.
  QImage WindowPicture() {
    QImage picture = Window().MapWindow().Picture();
    picture.setDevicePixelRatio(1);
    return picture;
  }
  /// The text of the one box that was shown since the last call.
  std::string Box() {
    EXPECT_EQ(boxes.shown.size(), 1U);
    if (boxes.shown.size() != 1)
      return "";
    EXPECT_EQ(boxes.shown[0].icon, settings::BoxIcon::kExclamation);
    const std::string text = boxes.shown[0].text;
    boxes.shown.clear();
    return text;
  }
  std::vector<std::string> Saved() { return test::NamesIn(folder / "out"); }
};

using Names = std::vector<std::string>;

TEST_F(SaveMap, APngHasThePixelsOfTheWindow) {
  const int draws = Draws();
  Save("map.png");
  EXPECT_TRUE(boxes.shown.empty());
  const double ratio = Window().devicePixelRatioF();
  EXPECT_EQ(SavedPicture("map.png").size(), (QSizeF(Window().MapWindow().size()) * ratio).toSize());
  EXPECT_TRUE(SavedPicture("map.png") == WindowPicture());
  EXPECT_EQ(Draws(), draws) << "nothing is redrawn";
  EXPECT_EQ(Saved(), Names{"map.png"});
  // The window itself shows these pixels; only the frame of the focus is not saved.
  Find<QCheckBox>("chkDest")->setFocus();
  QImage grabbed = Window().MapWindow().grab().toImage().convertToFormat(QImage::Format_RGB32);
  grabbed.setDevicePixelRatio(1);
  EXPECT_TRUE(SavedPicture("map.png") == grabbed);
}

TEST_F(SaveMap, AnSvgShowsTheMap) {
  Save("map.svg");
  const std::string bytes = Bytes("map.svg");
  QSvgRenderer renderer(QByteArray::fromStdString(bytes));
  ASSERT_TRUE(renderer.isValid());
  const QSize size = Window().MapWindow().size();
  EXPECT_EQ(renderer.viewBox().size(), size * 8);
  EXPECT_NE(bytes.find("</text>"), std::string::npos) << "its labels are texts";
  EXPECT_EQ(Saved(), Names{"map.svg"});
}

TEST_F(SaveMap, APdfHasAPageOfTheSizeOfTheMap) {
  Save("map.pdf");
  const std::string bytes = Bytes("map.pdf");
  EXPECT_EQ(bytes.substr(0, 5), "%PDF-");
  const double points = Window().MapWindow().width() * 0.75;
  const std::size_t box = bytes.find("/MediaBox [0 0 ");
  ASSERT_NE(box, std::string::npos);
  EXPECT_NEAR(std::stod(bytes.substr(box + 15)), points, 1);
  EXPECT_EQ(Saved(), Names{"map.pdf"});
}

TEST_F(SaveMap, AFileThatExistsIsReplaced) {
  test::WriteBytes(folder / "out" / "map.png", "old");
  Save("map.png");
  EXPECT_TRUE(SavedPicture("map.png") == WindowPicture());
  EXPECT_EQ(Saved(), Names{"map.png"});
}

TEST_F(SaveMap, AnAbortedDialogDoesNothing) {
  dialogs.mapFile.reset();
  PressCtrl(Qt::Key_S);
  EXPECT_EQ(dialogs.mapFileAsked, 1);
  EXPECT_TRUE(boxes.shown.empty());
  EXPECT_EQ(Saved(), Names{});
}

TEST_F(SaveMap, AMissingFolderIsReported) {
  Save("none/map.png");
  EXPECT_EQ(Box(), "File '" + (folder / "out/none/map.png").string() +
                       "': cannot create the file: No such file or directory");
  EXPECT_EQ(Saved(), Names{});
}

TEST_F(SaveMap, AProtectedFileOrFolderIsReportedAndKept) {
  test::WriteBytes(folder / "out" / "map.svg", "old");
  fs::permissions(folder / "out" / "map.svg", fs::perms::owner_read);
  Save("map.svg");
  EXPECT_NE(Box().find("map.svg': cannot write the file: Permission denied"), std::string::npos);
  EXPECT_EQ(Bytes("map.svg"), "old");
  fs::permissions(folder / "out", fs::perms::owner_read | fs::perms::owner_exec);
  Save("map.png");
  EXPECT_NE(Box().find("map.png': cannot create the file: Permission denied"), std::string::npos);
  EXPECT_EQ(Saved(), Names{"map.svg"});
}

/// No file can become longer than this while it exists.
class FileSizeLimit {
 public:
  explicit FileSizeLimit(rlim_t bytes) {
    ::getrlimit(RLIMIT_FSIZE, &before_);
    const rlimit limit{bytes, before_.rlim_max};
    ::setrlimit(RLIMIT_FSIZE, &limit);
    handler_ = std::signal(SIGXFSZ, SIG_IGN);
  }
  ~FileSizeLimit() {
    ::setrlimit(RLIMIT_FSIZE, &before_);
    std::signal(SIGXFSZ, handler_);
  }
  FileSizeLimit(const FileSizeLimit&) = delete;
  FileSizeLimit& operator=(const FileSizeLimit&) = delete;

 private:
  rlimit before_{};
  void (*handler_)(int) = nullptr;
};

TEST_F(SaveMap, AFileThatCannotBeWrittenCompletelyLeavesNothing) {
  for (const char* name : {"map.png", "map.svg", "map.pdf"}) {
    const FileSizeLimit limit(1000);
    Save(name);
    EXPECT_NE(Box().find("': cannot write the file: File too large"), std::string::npos) << name;
    EXPECT_EQ(Saved(), Names{}) << name;
  }
}

TEST_F(SaveMap, CtrlCCopiesThePictureOfTheWindow) {
  PressCtrl(Qt::Key_C);
  const QMimeData* copied = QGuiApplication::clipboard()->mimeData();
  ASSERT_TRUE(copied->hasImage());
  const QImage image = QGuiApplication::clipboard()->image();
  EXPECT_EQ(image.devicePixelRatio(), 1);
  EXPECT_TRUE(image == WindowPicture());
  EXPECT_EQ(Saved(), Names{});
}

TEST_F(SaveMap, AZoomBoxIsNotInThePicture) {
  const QImage before = WindowPicture().copy();
  QTest::keyClick(&Window().MapWindow(), Qt::Key_Return);
  ASSERT_FALSE(WindowPicture() == before);
  PressCtrl(Qt::Key_C);
  EXPECT_TRUE(QGuiApplication::clipboard()->image() == before);
  EXPECT_TRUE(WindowPicture() == before) << "the box is gone from the window, too";
}

TEST_F(SaveMap, AMapWithoutAreaIsNeitherSavedNorCopied) {
  Window().MapWindow().resize(0, 0);
  Save("map.png");
  EXPECT_EQ(dialogs.mapFileAsked, 0);
  PressCtrl(Qt::Key_C);
  EXPECT_TRUE(QGuiApplication::clipboard()->image().isNull());
}

}  // namespace
}  // namespace zerbal::app
