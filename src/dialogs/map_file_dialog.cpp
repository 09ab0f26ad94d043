#include "dialogs/map_file_dialog.h"

#include <QDialogButtonBox>
#include <QFileDialog>
#include <QFileInfo>
#include <QPushButton>

#include "dialogs/guarded.h"
#include "paint/map_file.h"

namespace zerbal::dialogs {
namespace {

struct Format {
  const char* filter;
  const char* suffix;
};
constexpr Format kFormats[] = {
    {"PNG picture (*.png)", "png"}, {"SVG drawing (*.svg)", "svg"}, {"PDF page (*.pdf)", "pdf"}};

QString SuffixOf(const QString& filter) {
  for (const Format& format : kFormats) {
    if (filter == format.filter)
      return format.suffix;
  }
  return kFormats[0].suffix;
}

void SetUp(QFileDialog& dialog, const QString& suggestion) {
  dialog.setObjectName("frmSaveMap");
  dialog.setAcceptMode(QFileDialog::AcceptSave);
  dialog.setFileMode(QFileDialog::AnyFile);
  QStringList filters;
  for (const Format& format : kFormats)
    filters.append(format.filter);
  dialog.setNameFilters(filters);
  for (const Format& format : kFormats) {
    if (suggestion.endsWith(QString(".") + format.suffix, Qt::CaseInsensitive))
      dialog.selectNameFilter(format.filter);
  }
  const auto useSuffix = [&dialog] { dialog.setDefaultSuffix(SuffixOf(dialog.selectedNameFilter())); };
  useSuffix();
  ConnectGuarded(&dialog, &QFileDialog::filterSelected, &dialog, useSuffix);
  dialog.setDirectory(QFileInfo(suggestion).absolutePath());
  dialog.selectFile(suggestion);
  // The desktop's own file dialog has no such button.
  const auto* buttons = dialog.findChild<QDialogButtonBox*>();
  if (QPushButton* save = buttons != nullptr ? buttons->button(QDialogButtonBox::Save) : nullptr)
    save->setObjectName("cmdSave");
}

}  // namespace

std::optional<QString> AskMapFile(QWidget& parent, const QString& suggestion) {
  QFileDialog dialog(&parent, "Save map");
  SetUp(dialog, suggestion);
  while (dialog.exec() == QDialog::Accepted) {
    const QString chosen = dialog.selectedFiles().constFirst();
    if (paint::KindOfMapFile(chosen))
      return chosen;
    // The dialog adds no suffix to "map.v2", and has asked about that name only.
    const QString complete = chosen + '.' + SuffixOf(dialog.selectedNameFilter());
    if (!QFileInfo::exists(complete))
      return complete;
    dialog.selectFile(complete);
  }
  return std::nullopt;
}

}  // namespace zerbal::dialogs
