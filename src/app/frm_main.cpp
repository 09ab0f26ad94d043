#include "app/frm_main.h"

#include <QCloseEvent>
#include <QGuiApplication>
#include <QScreen>
#include <QVBoxLayout>
#include <algorithm>

#include "paint/colour.h"
#include "settings/message_boxes.h"

namespace zerbal::app {
namespace {

constexpr QSize kDesignSize(1280, 900);  // logical pixels, where the screen has them

}  // namespace

/// The inside of the frame. Its one child fills it, and is not closed as long as the frame is open.
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

frmMain::frmMain(Program& program, Dialogs& dialogs) : program_(program), dialogs_(dialogs) {
  setObjectName("frmMain");
  setWindowTitle(settings::kProgramTitle);
  const auto run = [this](const Command& command) { Run(command); };
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

FramePlacement frmMain::CurrentPlacement() const {
  // A minimised window may be maximised as well, for when it comes back.
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
  if (size() == shownSize_) {
    placement.width = std::max(placement.width, storedSize_.width());
    placement.height = std::max(placement.height, storedSize_.height());
  }
  return placement;
}

void frmMain::Load() {
  LoadSettings();
  MakeMapWindow();
  if (!program_.riverAvailable)
    menu_->Disable("mnuViewRiver");
  if (!program_.boundaryAvailable)
    menu_->Disable("mnuViewIBound");
  MakeIndexedEntries();
  ConnectLayerBoxes();
  ShowState();
}

void frmMain::LoadSettings() {
  settings::IniFile& ini = program_.iniFile;
  settings::SaveFlags& flags = program_.saveFlags;
  // Start-up reads the splash time without a default; here its key comes into the file.
  ini.Read(settings::kSplashSeconds);
  flags.mainWindow = ini.Read(settings::kSaveMainWindow);
  const FramePlacement stored = ReadFramePlacement(ini, CurrentPlacement());
  flags.windows = ini.Read(settings::kSaveWindows);
  flags.menuEntries = ini.Read(settings::kSaveMenuEntries);
  program_.display = ReadDisplayOptions(ini, flags.menuEntries);
  if (flags.mainWindow)
    Place(stored);
  // An entry without anything to show keeps the check mark of the design, whatever was saved.
  const data::DisplayOptions designed;
  if (!program_.riverAvailable)
    program_.display.rivers = designed.rivers;
  if (!program_.boundaryAvailable)
    program_.display.boundaries = designed.boundaries;
}

void frmMain::MakeMapWindow() {
  scene_.emplace(map::MapScene{program_.viewport, program_.display, program_.style, program_.services,
                               *program_.databases, program_.allAirportCriteria, program_.destinationCriteria,
                               program_.flights});
  map_ = std::make_unique<frmMap>(*scene_, program_.viewport, client_);
  map_->SetObserver(program_.environment.mapObserver);
  map_->hide();
  client_->Hold(map_.get());
  commands_ = std::make_unique<Commands>(
      program_, *map_, dialogs_, dialogs::Placement{*this, program_.iniFile, program_.saveFlags},
      [this] { ShowState(); }, [this] { UpdateDelimitationInfo(); });
  connect(map_.get(), &frmMap::PositionChanged, picStat_, &StatusBar::ShowPosition);
  connect(map_.get(), &frmMap::ExtentChanged, picStat_, &StatusBar::ShowExtent);
  connect(map_.get(), &frmMap::PopupRequested, this,
          [this](const QPoint& position) { menu_->Popup().popup(position); });
}

void frmMain::MakeIndexedEntries() {
  menu_->AddRegions(program_.style.regions, [this](int region) { commands_->ShowRegion(region); });
  menu_->AddServices(program_.services, [this](int service) { commands_->ToggleService(service); });
}

void frmMain::ConnectLayerBoxes() {
  connect(picTool_, &ToolBar::AllAirportsClicked, commands_.get(),
          [this](bool checked) { commands_->Set(&data::DisplayOptions::allAirports, checked); });
  connect(picTool_, &ToolBar::DestinationsClicked, commands_.get(),
          [this](bool checked) { commands_->Set(&data::DisplayOptions::destinations, checked); });
  connect(picTool_, &ToolBar::AllAirportsRightClicked, commands_.get(), &Commands::DelimitAllAirports);
  connect(picTool_, &ToolBar::DestinationsRightClicked, commands_.get(), &Commands::DelimitDestinations);
}

void frmMain::Run(const Command& command) {
  if (commands_ == nullptr)
    return;
  if (command.option != nullptr)
    commands_->Toggle(command.option);
  else
    (commands_.get()->*command.run)();
}

void frmMain::ShowState() {
  const data::DisplayOptions& options = program_.display;
  menu_->Show({options, program_.services, commands_->SelectionAvailable()});
  picTool_->ShowLayers(options.allAirports, options.destinations);
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
  picTool_->ShowDelimitations(QString::fromStdString(data::DelimitationText(program_.allAirportCriteria)),
                              QString::fromStdString(data::DelimitationText(program_.destinationCriteria)));
}

void frmMain::Unload() {
  if (!Loaded())
    return;
  if (program_.saveFlags.mainWindow)
    SaveFramePlacement(program_.iniFile, PlacementToSave());
  if (program_.saveFlags.menuEntries)
    SaveDisplayOptions(program_.iniFile, program_.display);
  client_->LetGo();
  commands_.reset();
  map_.reset();
  program_.databases.reset();
}

void frmMain::closeEvent(QCloseEvent* event) {
  Unload();
  event->accept();
}

}  // namespace zerbal::app
