// The text box of the whole numbers in dialogs.
#pragma once

#include <QLineEdit>
#include <cstdint>

namespace zerbal::dialogs {

/// Accepts digits and Backspace; refuses any other character with a beep. Selects all its text when it gets
/// the focus, also when its window is activated again. Changes an empty text to "0" when it loses the focus.
/// Does not filter pasted text.
class NumberEdit final : public QLineEdit {
  Q_OBJECT

 public:
  explicit NumberEdit(QWidget* parent = nullptr);

  /// The digits up to the first other character; 0 when there are none. Limited to 32 bits.
  std::int32_t Number() const;
  void SetNumber(std::int32_t number);
  /// Takes the focus with all text selected. In an inactive window both take effect when it is activated.
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
