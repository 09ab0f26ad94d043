// The dialog of the centre of the world view and the fonts of the map.
#pragma once

#include <QStringList>
#include <array>
#include <memory>

#include "data/fonts.h"
#include "data/regions.h"
#include "dialogs/placed_dialog.h"

class QComboBox;
class QLabel;

namespace Ui {
class frmMapSett;
}

namespace zerbal::dialogs {

/// OK stores the choices in the tables and in the settings file. The world row of the regions is
/// recomputed; the current view does not change.
class frmMapSett final : public PlacedDialog {
  Q_OBJECT

 public:
  /// `installedFonts` are the families that can be chosen, in the order in which they are listed.
  frmMapSett(const Placement& placement, data::RegionTable& regions, data::FontTable& fonts,
             const QStringList& installedFonts, settings::MessageBoxes& boxes);
  ~frmMapSett() override;

 private:
  /// The controls of one font.
  struct FontRow {
    data::FontCode code;
    QComboBox* family;
    QComboBox* size;
    QLabel* preview;
  };

  void FillCentre();
  void FillFont(const FontRow& row, const QStringList& installedFonts);
  static void UpdatePreview(const FontRow& row);
  double TypedMeridian() const;
  void StoreCentre();
  void StoreFont(const FontRow& row);
  void Confirm();

  std::unique_ptr<Ui::frmMapSett> ui_;
  data::RegionTable& regions_;
  data::FontTable& fonts_;
  settings::MessageBoxes& boxes_;
  std::array<FontRow, data::kFontRules.size()> fontRows_;
};

}  // namespace zerbal::dialogs
