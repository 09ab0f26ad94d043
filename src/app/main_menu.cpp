#include "app/main_menu.h"

#include <string_view>
#include <utility>

namespace zerbal::app {
namespace {

constexpr char kShowSelected[] = "mnuFlitSele";
constexpr std::string_view kPrefix = "mnu";
constexpr char kRegionArray[] = "mnuRegPart";
constexpr char kServiceArray[] = "mnuFlitFSrv";

/// The entry of the pop-up menu that does the same: "mnuFlitAprt", "mnuPopFlitAprt".
QString TwinName(std::string_view name) {
  name.remove_prefix(kPrefix.size());
  return "mnuPop" + QString::fromUtf8(name.data(), static_cast<qsizetype>(name.size()));
}

QString Indexed(const QString& array, int index) {
  return array + '(' + QString::number(index) + ')';
}

/// A text from a database as a caption: an ampersand in it is no access key.
QString Caption(const std::string& text) {
  return QString::fromStdString(text).replace('&', "&&");
}

}  // namespace

MainMenu::MainMenu(QMenuBar& bar, QWidget& owner, RunCommand run) : owner_(owner), run_(std::move(run)) {
  for (const MenuDescription& description : MenuTable()) {
    QMenu* menu = bar.addMenu(description.title);
    menu->setObjectName(description.name);
    Build(description, *menu, false);
    if (description.indexed != nullptr && description.twin == nullptr)
      regionMenu_ = menu;
    if (description.twin == nullptr)
      continue;
    popup_ = new QMenu("Popup", &owner);
    popup_->setObjectName(description.twin);
    Build(description, *popup_, true);
    flightMenus_ = {menu, popup_};
  }
}

void MainMenu::Build(const MenuDescription& description, QMenu& menu, bool twin) {
  for (const Command& command : description.commands) {
    if (command.name == nullptr) {
      menu.addSeparator();
      continue;
    }
    QAction* entry = AddEntry(menu, twin ? TwinName(command.name) : command.name, command.caption);
    QObject::connect(entry, &QAction::triggered, &owner_, [this, &command] { run_(command); });
    if (command.option != nullptr) {
      entry->setCheckable(true);
      options_.push_back({entry, command.option});
    }
    if (std::string_view(command.name) == kShowSelected)
      selectionEntries_.push_back(entry);
  }
}

QAction* MainMenu::AddEntry(QMenu& menu, const QString& name, const QString& caption) {
  auto* entry = new QAction(caption, &owner_);
  entry->setObjectName(name);
  entry->setMenuRole(QAction::NoRole);
  menu.addAction(entry);
  return entry;
}

void MainMenu::AddRegions(const data::RegionTable& regions, const RunEntry& show) {
  QAction* line = AddEntry(*regionMenu_, Indexed(kRegionArray, 0), {});
  line->setSeparator(true);
  line->setVisible(regions.RegionCount() > 0);
  for (int i = 1; i <= regions.RegionCount(); ++i) {
    const std::string& name = regions.rows[static_cast<std::size_t>(i)].name;
    QAction* entry = AddEntry(*regionMenu_, Indexed(kRegionArray, i), Caption(name));
    QObject::connect(entry, &QAction::triggered, &owner_, [show, i] { show(i); });
  }
}

void MainMenu::AddServices(const data::FlightServiceTable& services, const RunEntry& toggle) {
  serviceEntries_.resize(services.size());
  for (QMenu* menu : flightMenus_) {
    const QString array = menu == popup_ ? TwinName(kServiceArray) : QString(kServiceArray);
    for (std::size_t i = 0; i < services.size(); ++i) {
      const int index = static_cast<int>(i) + 1;
      QAction* entry = AddEntry(*menu, Indexed(array, index), Caption(services[i].displayText));
      entry->setCheckable(true);
      QObject::connect(entry, &QAction::triggered, &owner_, [toggle, index] { toggle(index); });
      serviceEntries_[i].push_back(entry);
    }
  }
}

void MainMenu::Show(const MenuState& state) {
  for (const OptionEntry& entry : options_)
    entry.action->setChecked(state.options.*entry.option);
  for (QAction* entry : selectionEntries_)
    entry->setEnabled(state.selectionAvailable);
  for (std::size_t i = 0; i < serviceEntries_.size(); ++i) {
    for (QAction* entry : serviceEntries_[i])
      entry->setChecked(state.services[i].displayFlag);
  }
}

void MainMenu::Disable(const char* name) {
  if (auto* entry = owner_.findChild<QAction*>(name))
    entry->setEnabled(false);
}

}  // namespace zerbal::app
