#include "app/main_menu.h"

#include <string_view>
#include <utility>

#include "dialogs/guarded.h"

namespace zerbal::app {
namespace {

constexpr char kShowSelected[] = "mnuFlitSele";
constexpr std::string_view kPrefix = "mnu";

/// The entry of the pop-up menu that does the same: "mnuFlitAprt", "mnuPopFlitAprt".
QString TwinName(std::string_view name) {
  name.remove_prefix(kPrefix.size());
  return "mnuPop" + QString::fromUtf8(name.data(), static_cast<qsizetype>(name.size()));
}

/// A text from a database as a caption: an ampersand in it does not mark an access key.
QString Caption(const std::string& text) {
  return QString::fromStdString(text).replace('&', "&&");
}

QList<QKeySequence> Shortcuts(const QString& keys) {
  // Of an empty text Qt would make a list of one empty sequence.
  return keys.isEmpty() ? QList<QKeySequence>() : QKeySequence::listFromString(keys);
}

}  // namespace

MainMenu::MainMenu(QMenuBar& bar, QWidget& owner, RunCommand run) : owner_(owner), run_(std::move(run)) {
  bar.setAccessibleName("Menu bar");
  for (const MenuDescription& description : MenuTable()) {
    QMenu* menu = bar.addMenu(description.title);
    menu->setObjectName(description.name);
    Build(description, *menu, false);
    if (description.twin == nullptr)
      continue;
    popup_ = new QMenu("Popup", &owner);
    popup_->setObjectName(description.twin);
    Build(description, *popup_, true);
  }
}

void MainMenu::Build(const MenuDescription& description, QMenu& menu, bool twin) {
  const auto nameOf = [&](const Command& command) {
    return twin ? TwinName(command.name) : QString(command.name);
  };
  for (const Command& command : description.commands) {
    if (command.name == nullptr) {
      menu.addSeparator();
      continue;
    }
    QAction* entry = AddEntry(menu, nameOf(command), command.caption, command);
    if (!twin)
      entry->setShortcuts(Shortcuts(command.keys));
    if (command.Option() != nullptr) {
      entry->setCheckable(true);
      options_.push_back({entry, command.Option()});
    }
    if (std::string_view(command.name) == kShowSelected)
      selectionEntries_.push_back(entry);
  }
  const Command& indexed = description.indexed;
  if (indexed.name == nullptr)
    return;
  const IndexedMenu indexedMenu{&menu, &indexed, nameOf(indexed)};
  if (description.twin == nullptr)
    regionMenu_ = indexedMenu;
  else
    flightMenus_.push_back(indexedMenu);
}

QAction* MainMenu::AddEntry(QMenu& menu, const QString& name, const QString& caption, const Command& command,
                            int index) {
  auto* entry = new QAction(caption, &owner_);
  entry->setObjectName(name);
  entry->setMenuRole(QAction::NoRole);
  dialogs::ConnectGuarded(entry, &QAction::triggered, &owner_,
                          [this, &command, index] { run_(command, index); });
  menu.addAction(entry);
  return entry;
}

QAction* MainMenu::AddIndexed(const IndexedMenu& menu, int index, const std::string& text) {
  const QString name = QString("%1(%2)").arg(menu.array).arg(index);
  return AddEntry(*menu.menu, name, Caption(text), *menu.command, index);
}

void MainMenu::AddRegions(const data::RegionTable& regions) {
  auto* line = new QAction(&owner_);
  line->setObjectName(QString("%1(0)").arg(regionMenu_.array));
  line->setSeparator(true);
  line->setVisible(regions.RegionCount() > 0);
  regionMenu_.menu->addAction(line);
  constexpr int kLastKey = 9;
  for (int i = 1; i <= regions.RegionCount(); ++i) {
    QAction* entry = AddIndexed(regionMenu_, i, regions.rows[static_cast<std::size_t>(i)].name);
    if (i <= kLastKey)
      entry->setShortcuts(Shortcuts(QString(regionMenu_.command->keys).arg(i)));
  }
}

void MainMenu::AddServices(const data::FlightServiceTable& services) {
  serviceEntries_.resize(services.size());
  for (const IndexedMenu& menu : flightMenus_) {
    for (std::size_t i = 0; i < services.size(); ++i) {
      QAction* entry = AddIndexed(menu, static_cast<int>(i) + 1, services[i].displayText);
      entry->setCheckable(true);
      serviceEntries_[i].push_back(entry);
    }
  }
}

void MainMenu::Show(const data::DisplayOptions& options, const data::FlightServiceTable& services,
                    bool selectionAvailable) {
  for (const OptionEntry& entry : options_)
    entry.action->setChecked(options.*entry.option);
  for (QAction* entry : selectionEntries_)
    entry->setEnabled(selectionAvailable);
  for (std::size_t i = 0; i < serviceEntries_.size(); ++i) {
    for (QAction* entry : serviceEntries_[i])
      entry->setChecked(services[i].displayFlag);
  }
}

void MainMenu::Disable(const char* name) {
  if (auto* entry = owner_.findChild<QAction*>(name))
    entry->setEnabled(false);
}

}  // namespace zerbal::app
