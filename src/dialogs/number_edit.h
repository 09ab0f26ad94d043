// The text box of every whole number that is typed into a dialog.
#pragma once

#include <QLineEdit>
#include <cstdint>

namespace zerbal::dialogs {

/// Takes the digits and Backspace only (any other character is refused with a beep), selects all its text
/// when it gets the focus, also when its window is activated anew, and turns an empty text into "0" when it
/// loses it. Pasted text is not filtered.
class NumberEdit final : public QLineEdit {
  Q_OBJECT

 public:
  explicit NumberEdit(QWidget* parent = nullptr);

  /// The digits up to the first other character, 0 when there are none; limited to 32 bits.
  std::int32_t Number() const;
  void SetNumber(std::int32_t number);
  /// Takes the focus with all text selected. In a window that is not active both show once it is.
  void AskAgain();

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void inputMethodEvent(QInputMethodEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;

 private:
  bool selectOnRelease_ = false;
};

}  // namespace zerbal::dialogs
