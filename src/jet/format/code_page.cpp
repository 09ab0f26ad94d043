#include "jet/format/code_page.h"

#include "base/code_page_1252.h"

namespace zerbal::jet {
CodePage::CodePage() {
  for (std::size_t byte = 0; byte < singles_.size(); ++byte)
    singles_[byte] = base::CharacterOf1252(static_cast<std::uint8_t>(byte));
}

const CodePage& CodePage::Western() {
  static const CodePage page;
  return page;
}

std::shared_ptr<const CodePage> CodePage::OfNumber(std::uint16_t number) {
  if (number != kWesternCodePage) {
    const std::shared_ptr<CodePage> page(new CodePage);
    if (page->Load(number))
      return page;
  }
  return {std::shared_ptr<const void>(), &Western()};  // a static object: not owned
}

}  // namespace zerbal::jet
