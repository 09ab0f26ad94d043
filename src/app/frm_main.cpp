#include "app/frm_main.h"

#include <QCloseEvent>
#include <QGuiApplication>
#include <QScreen>
#include <QShortcut>
#include <QVBoxLayout>
#include <algorithm>

#include "dialogs/guarded.h"
#include "paint/colour.h"
#include "paint/draw_log.h"
#include "settings/message_boxes.h"

namespace zerbal::app {
namespace {

constexpr QSize kDesignSize(1280, 900);  // logical pixels; smaller on a smaller screen

}  // namespace

/// The area behind the map window. Its one child fills it and cannot be closed alone.
class frmMain::Client final : public QWidget {
 public:
  explicit Client(QWidget* parent) : QWidget(parent) {
    setAutoFillBackground(true);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
  }

  QSize sizeHint() const override { return {640, 480}; }

  void Hold(QWidget* child) {
    child_ = child;
    child_->installEventFilter(this);
    child_->setGeometry(rect());
  }
  void LetGo() { child_ = nullptr; }

 protected:
  void resizeEvent(QResizeEvent*) override {
    if (child_ != nullptr)
      child_->setGeometry(rect());
  }
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (watched != child_ || event->type() != QEvent::Close)
      return false;
    event->ignore();
    return true;
  }

 private:
  QWidget* child_ = nullptr;
};

frmMain::frmMain(SettingsFile& settingsFile, MapState& state, const Delimitations& delimitations,
                 std::optional<data::Databases>& databases, Dialogs& dialogs, settings::MessageBoxes& boxes)
    : settingsFile_(settingsFile),
      state_(state),
      delimitations_(delimitations),
      databases_(databases),
      dialogs_(dialogs),
      boxes_(boxes) {
  setObjectName("frmMain");
  setWindowTitle(settings::kProgramTitle);
  const auto run = [this](const Command& command, int index) {
    if (commands_ != nullptr)
      commands_->Run(command, index);
  };
  menu_ = std::make_unique<MainMenu>(*menuBar(), *this, run);
  auto* inside = new QWidget(this);
  auto* column = new QVBoxLayout(inside);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  picTool_ = new ToolBar(run, inside);
  client_ = new Client(inside);
  column->addWidget(picTool_);
  column->addWidget(client_, 1);
  setCentralWidget(inside);
  picStat_ = new StatusBar(this);
  setStatusBar(picStat_);
  dialogs::ConnectGuarded(new QShortcut(Qt::Key_F11, this), &QShortcut::activated, this,
                          &frmMain::ToggleFullScreen);
  for (const Command& command : WindowCommands())
    dialogs::ConnectGuarded(new QShortcut(QKeySequence(command.keys), this), &QShortcut::activated, this,
                            [run, &command] { run(command, 0); });
  PlaceAsDesigned();
}

frmMain::~frmMain() {
  client_->LetGo();
}

void frmMain::PlaceAsDesigned() {
  const QScreen* primary = QGuiApplication::primaryScreen();
  const QRect screen = primary != nullptr ? primary->availableGeometry() : QRect({}, kDesignSize);
  QRect placement({}, kDesignSize.boundedTo(screen.size()));
  placement.moveCenter(screen.center());
  resize(placement.size());
  move(placement.topLeft());
}

void frmMain::ToggleFullScreen() {
  if (isFullScreen())
    beforeFullScreen_.reset();
  else
    beforeFullScreen_ = CurrentPlacement();
  setWindowState(windowState() ^ Qt::WindowFullScreen);
}

FramePlacement frmMain::CurrentPlacement() const {
  if (isFullScreen() && beforeFullScreen_)
    return *beforeFullScreen_;
  // A minimised window may be maximised too; it is when it is restored.
  const FrameState state = isMinimized()   ? FrameState::kMinimised
                           : isMaximized() ? FrameState::kMaximised
                                           : FrameState::kNormal;
  return {state, x(), y(), width(), height()};
}

void frmMain::Place(const FramePlacement& placement) {
  if (placement.state == FrameState::kMaximised) {
    setWindowState(Qt::WindowMaximized);
  } else if (placement.state == FrameState::kMinimised) {
    setWindowState(Qt::WindowMinimized);
  } else {
    setWindowState(Qt::WindowNoState);
    const FramePlacement shown = Showable(placement, devicePixelRatioF());
    resize(shown.width, shown.height);
    move(shown.left, shown.top);
    storedSize_ = {placement.width, placement.height};
    shownSize_ = size();
  }
}

FramePlacement frmMain::PlacementToSave() const {
  FramePlacement placement = CurrentPlacement();
  if (QSize(placement.width, placement.height) == shownSize_) {
    placement.width = std::max(placement.width, storedSize_.width());
    placement.height = std::max(placement.height, storedSize_.height());
  }
  return placement;
}

void frmMain::Load(const data::DataFiles& files) {
  LoadSettings();
  if (!files.river)
    DisableOption("mnuViewRiver", &data::DisplayOptions::rivers);
  if (!files.ibound)
    DisableOption("mnuViewIBound", &data::DisplayOptions::boundaries);
  MakeMapWindow();
  menu_->AddRegions(state_.style.regions);
  menu_->AddServices(state_.services);
  ShowState();
  UpdateDelimitationInfo();
}

void frmMain::LoadSettings() {
  settings::IniFile& ini = settingsFile_.ini;
  settings::SaveFlags& flags = settingsFile_.saveFlags;
  // Start-up reads the splash time without a default; this writes the key when it is missing.
  ini.Read(settings::kSplashSeconds);
  flags.mainWindow = ini.Read(settings::kSaveMainWindow);
  const FramePlacement stored = ReadFramePlacement(ini, CurrentPlacement());
  flags.windows = ini.Read(settings::kSaveWindows);
  flags.menuEntries = ini.Read(settings::kSaveMenuEntries);
  state_.display = ReadDisplayOptions(ini, flags.menuEntries);
  if (flags.mainWindow)
    Place(stored);
}

void frmMain::DisableOption(const char* entry, bool data::DisplayOptions::*option) {
  menu_->Disable(entry);
  // It keeps the check mark of the design, whatever was saved.
  state_.display.*option = data::DisplayOptions{}.*option;
}

void frmMain::MakeMapWindow() {
  scene_.emplace(map::MapScene{state_.viewport, state_.display, state_.style, state_.services, *databases_,
                               delimitations_.allAirports, delimitations_.destinations, state_.flights,
                               paint::LogDrawError});
  map_ = std::make_unique<frmMap>(*scene_, state_.viewport, client_);
  map_->SetTips(settingsFile_.ini.Find(settings::kMapTips).value_or(settings::kMapTips.byDefault));
  map_->hide();
  client_->Hold(map_.get());
  // Tab goes from the check boxes to the map, and from there to the button that the tool bar ends with.
  QWidget::setTabOrder(map_.get(), picTool_->LastButton());
  commands_ = std::make_unique<Commands>(
      state_, *map_, dialogs_, boxes_, *this, [this] { ShowState(); }, [this] { UpdateDelimitationInfo(); });
  dialogs::ConnectGuarded(map_.get(), &frmMap::PositionChanged, picStat_, &StatusBar::ShowPosition);
  dialogs::ConnectGuarded(map_.get(), &frmMap::ExtentChanged, picStat_, &StatusBar::ShowExtent);
  dialogs::ConnectGuarded(map_.get(), &frmMap::PopupRequested, this,
                          [this](const QPoint& position) { menu_->Popup().popup(position); });
}

void frmMain::ShowState() {
  menu_->Show(state_.display, state_.services, commands_->SelectionAvailable());
  picTool_->ShowOptions(state_.display);
}

void frmMain::SetBackground(data::Rgb colour) {
  QPalette palette = client_->palette();
  palette.setColor(QPalette::Window, paint::ToQColor(colour));
  client_->setPalette(palette);
}

QColor frmMain::BackgroundColour() const {
  return client_->palette().color(QPalette::Window);
}

void frmMain::UpdateDelimitationInfo() {
  picTool_->ShowDelimitations(QString::fromStdString(data::DelimitationText(delimitations_.allAirports)),
                              QString::fromStdString(data::DelimitationText(delimitations_.destinations)));
}

void frmMain::Unload() {
  if (!Loaded())
    return;
  if (settingsFile_.saveFlags.mainWindow)
    SaveFramePlacement(settingsFile_.ini, PlacementToSave());
  if (settingsFile_.saveFlags.menuEntries)
    SaveDisplayOptions(settingsFile_.ini, state_.display);
  client_->LetGo();
  commands_.reset();
  map_.reset();
  databases_.reset();
}

void frmMain::closeEvent(QCloseEvent* event) {
  dialogs::Guarded([this] { Unload(); });
  event->accept();
}

}  // namespace zerbal::app
