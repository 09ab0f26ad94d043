// What assistive programs see of the main window and of each dialog, and what the Tab key reaches.
#include <QAbstractItemView>
#include <QAccessible>
#include <QAccessibleInterface>
#include <QDialog>
#include <QGroupBox>
#include <QLabel>
#include <QRadioButton>
#include <QTest>
#include <QTimer>
#include <set>

#include "app_test.h"
#include "dialogs/shape.h"

namespace zerbal::app {
namespace {

/// What says nothing of itself and needs no name: frames, and texts that are empty for the time being.
bool NeedsNoName(const QAccessibleInterface& item) {
  if (qobject_cast<const dialogs::Shape*>(item.object()) != nullptr)
    return false;
  const auto* label = qobject_cast<const QLabel*>(item.object());
  if (label != nullptr && label->text().isEmpty() && label->pixmap().isNull())
    return true;
  const QAccessible::Role role = item.role();
  return role == QAccessible::Client || role == QAccessible::Pane || role == QAccessible::Window ||
         role == QAccessible::Separator || role == QAccessible::Grip || role == QAccessible::Whitespace;
}

/// Parts of a control that has a name itself: lines and scroll bars of a list, the list of a combo box.
bool IsPartOfControl(const QAccessibleInterface& item) {
  for (const QObject* object = item.object() == nullptr ? nullptr : item.object()->parent();
       object != nullptr; object = object->parent()) {
    if (qobject_cast<const QAbstractItemView*>(object) != nullptr)
      return true;
  }
  return false;
}

QString Describe(QAccessibleInterface& item) {
  const QString name = item.object() != nullptr ? item.object()->objectName() : QString();
  return QString("%1 '%2' (role %3)")
      .arg(item.object() ? item.object()->metaObject()->className() : "", name)
      .arg(item.role());
}

/// Everything in the tree of accessible objects that a user can see.
class Tree {
 public:
  explicit Tree(QWidget& window) { Walk(*QAccessible::queryAccessibleInterface(&window)); }

  QStringList nameless;
  std::set<const QObject*> objects;

 private:
  void Walk(QAccessibleInterface& item) {
    if (item.state().invisible || IsPartOfControl(item))
      return;
    objects.insert(item.object());
    if (!NeedsNoName(item) && item.text(QAccessible::Name).trimmed().isEmpty())
      nameless.append(Describe(item));
    // The lines of lists and combo boxes have their texts.
    if (item.role() == QAccessible::List || item.role() == QAccessible::ComboBox)
      return;
    for (int i = 0; i < item.childCount(); ++i) {
      ASSERT_NE(item.child(i), nullptr) << Describe(item).toStdString();
      EXPECT_EQ(item.indexOfChild(item.child(i)), i) << Describe(item).toStdString();
      Walk(*item.child(i));
    }
  }
};

/// A control that a user operates.
bool IsOperated(const QWidget& widget) {
  return widget.isEnabled() && widget.isVisible() && widget.focusPolicy() != Qt::NoFocus &&
         !widget.isWindow() && !widget.objectName().startsWith("qt_");
}

/// What gets the focus as Tab is pressed until it returns.
std::set<const QWidget*> ReachedByTab(QWidget& window) {
  std::set<const QWidget*> reached;
  while (window.focusWidget() != nullptr && reached.insert(window.focusWidget()).second)
    QTest::keyClick(window.focusWidget(), Qt::Key_Tab);
  return reached;
}

/// Tab reaches one option of a group, the arrow keys reach the others.
bool IsReached(const QWidget& widget, const std::set<const QWidget*>& reached) {
  if (reached.contains(&widget))
    return true;
  return qobject_cast<const QRadioButton*>(&widget) != nullptr &&
         std::ranges::any_of(reached, [&](const QWidget* other) {
           return qobject_cast<const QRadioButton*>(other) != nullptr && other->parent() == widget.parent();
         });
}

void ExpectNamedAndReachable(QWidget& window) {
  const Tree tree(window);
  EXPECT_EQ(tree.nameless.join('\n').toStdString(), "");
  const std::set<const QWidget*> reached = ReachedByTab(window);
  int operated = 0;
  for (const QWidget* widget : window.findChildren<QWidget*>()) {
    if (!IsOperated(*widget))
      continue;
    ++operated;
    EXPECT_TRUE(tree.objects.contains(widget)) << widget->objectName().toStdString();
    EXPECT_TRUE(IsReached(*widget, reached)) << widget->objectName().toStdString();
  }
  EXPECT_GT(operated, 0);
}

class Accessibility : public test::AppTest {
 protected:
  void SetUp() override {
    AppTest::SetUp();
    world.Write(folder.Path());
  }
  /// With the real dialogs.
  void StartProgram() {
    program.emplace(Environment{WithSeparator(folder.Path()), clock, random, boxes, &drawn});
    ASSERT_TRUE(program->Start());
    QApplication::setActiveWindow(&Window());
    QCoreApplication::processEvents();
  }
  std::string Read(QObject* object, QAccessible::Text kind) {
    return QAccessible::queryAccessibleInterface(object)->text(kind).toStdString();
  }
  std::string MapDescription() { return Read(&Window().MapWindow(), QAccessible::Description); }
};

TEST_F(Accessibility, EveryControlOfTheMainWindowHasANameAndIsReachable) {
  StartProgram();
  ExpectNamedAndReachable(Window());
}

TEST_F(Accessibility, EveryMenuEntryHasANameAndSaysItsShortcut) {
  StartProgram();
  for (const QMenu* menu : Window().findChildren<QMenu*>()) {
    QAccessibleInterface* bar = QAccessible::queryAccessibleInterface(const_cast<QMenu*>(menu));
    ASSERT_EQ(bar->childCount(), menu->actions().size());
    for (int i = 0; i < bar->childCount(); ++i) {
      const QAction* entry = menu->actions()[i];
      EXPECT_TRUE(entry->isSeparator() || !bar->child(i)->text(QAccessible::Name).isEmpty()) << i;
    }
  }
  QAccessibleInterface* zoom = QAccessible::queryAccessibleInterface(Find<QMenu>("mnuZoom"));
  EXPECT_EQ(zoom->child(0)->text(QAccessible::Accelerator).toStdString(), "Ctrl++");
}

TEST_F(Accessibility, EveryControlOfTheDialogsHasANameAndIsReachable) {
  StartProgram();
  int dialogCount = 0;
  for (const char* entry : {"mnuFileUserSett", "mnuFileMapSett", "mnuFileColoSett", "mnuViewAprtDeli",
                            "mnuViewDestDeli", "mnuFlitRandFlit", "mnuFlitSeleFlit", "mnuFlitSeleDest",
                            "mnuHelpRev", "mnuHelpMous", "mnuHelpInfo"}) {
    SCOPED_TRACE(entry);
    QTimer::singleShot(0, &Window(), [&] {
      auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
      ASSERT_NE(dialog, nullptr);
      QApplication::setActiveWindow(dialog);
      // Once with everything enabled, too: what a choice enables has a name as well.
      ExpectNamedAndReachable(*dialog);
      for (QWidget* widget : dialog->findChildren<QWidget*>())
        widget->setEnabled(true);
      ExpectNamedAndReachable(*dialog);
      ++dialogCount;
      dialog->close();
    });
    Entry(entry)->trigger();
  }
  EXPECT_EQ(dialogCount, 11);
}

TEST_F(Accessibility, ControlsWhoseCaptionIsNotEnoughHaveADescription) {
  StartProgram();
  EXPECT_EQ(Read(Find<QCheckBox>("chkAprt"), QAccessible::Description),
            Find<QCheckBox>("chkAprt")->toolTip().toStdString());
  dialogs::Shape shape;
  shape.SetColour(QColor(1, 20, 255));
  EXPECT_EQ(Read(&shape, QAccessible::Description), "red 1, green 20, blue 255");
}

TEST_F(Accessibility, TheStatusBarIsRead) {
  StartProgram();
  emit Window().MapWindow().PositionChanged("W008° 30.00'", "N47° 15.00'");
  EXPECT_EQ(Read(Find<QLabel>("lblPosX"), QAccessible::Name), "Longitude: W008° 30.00'");
  EXPECT_EQ(Read(Find<QLabel>("lblPosY"), QAccessible::Name), "Latitude: N47° 15.00'");
  EXPECT_EQ(Read(Find<QLabel>("lblMapSize"), QAccessible::Name),
            "Extent of the map: " + State().map.viewport.ExtentText());
}

TEST_F(Accessibility, TheDescriptionOfTheMapChangesWithIt) {
  StartProgram();
  EXPECT_EQ(MapDescription(), "World. Layers: coastlines. In view: 0 airports, 0 flights.");
  Entry("mnuRegPart(2)")->trigger();
  Entry("mnuViewDest")->trigger();
  const std::string region = MapDescription();
  EXPECT_EQ(region.find("Region Nordic countries. Layers: coastlines, destinations. In view: "), 0U)
      << region;
  EXPECT_EQ(region.find(" 0 airports"), std::string::npos) << region;
  Entry("mnuFlitFSrv(1)")->trigger();
  EXPECT_NE(MapDescription().find("coastlines, destinations, flights."), std::string::npos);
  EXPECT_EQ(MapDescription().find(" 0 flights"), std::string::npos) << MapDescription();
  Entry("mnuZoomIn")->trigger();
  EXPECT_EQ(MapDescription().find("N"), 0U) << MapDescription();
}

TEST_F(Accessibility, AScheduleThatCannotBeReadHasNoFlights) {
  world.flit.columns[static_cast<std::size_t>(world.flit.ColumnIndex("Flit_Dep"))].name = "Flit_Other";
  world.Write(folder.Path());
  StartProgram();
  Entry("mnuFlitFSrv(1)")->trigger();
  EXPECT_EQ(MapDescription(), "World. Layers: coastlines, flights. In view: 0 airports, 0 flights.");
}

}  // namespace
}  // namespace zerbal::app
