// Reads the sources with Qt widgets and finds handlers from which an exception would pass into Qt.
#include <filesystem>
#include <fstream>
#include <iterator>
#include <regex>
#include <set>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace zerbal::app {
namespace {

using Names = std::vector<std::string>;

/// Handlers that only call Qt.
const std::set<std::string> kOnlyQt = {"frm_main.cpp: resizeEvent",
                                       "frm_main.cpp: eventFilter",
                                       "frm_splash.cpp: paintEvent",
                                       "frm_splash.cpp: closeEvent",
                                       "status_bar.cpp: paintEvent",
                                       "tool_bar.cpp: resizeEvent",
                                       "flight_list_view.cpp: helpEvent",
                                       "frm_colo_sett.cpp: resizeEvent",
                                       "frm_colo_sett.cpp: showEvent",
                                       "number_edit.cpp: keyPressEvent",
                                       "number_edit.cpp: inputMethodEvent",
                                       "number_edit.cpp: focusInEvent",
                                       "number_edit.cpp: focusOutEvent",
                                       "number_edit.cpp: mouseReleaseEvent",
                                       "placed_dialog.cpp: showEvent",
                                       "placed_dialog.cpp: moveEvent",
                                       "shape.cpp: paintEvent"};

/// The text of the block that begins at `begin`, up to its closing brace.
std::string Block(const std::string& source, std::size_t begin) {
  int depth = 0;
  for (std::size_t i = begin; i < source.size(); ++i) {
    depth += source[i] == '{' ? 1 : source[i] == '}' ? -1 : 0;
    if (depth == 0)
      return source.substr(begin, i - begin);
  }
  return source.substr(begin);
}

/// Event handlers, and the virtual functions that Qt calls for dialogs, whose bodies do not use Guarded();
/// "connect" for each connection that is not made by ConnectGuarded().
Names Unguarded(const std::string& source) {
  static const std::regex handler(
      R"(\b(event|eventFilter|\w+Event|timerEvent|done|setVisible)\(([^;{}()]*)\)( const)?( override)? \{)");
  static const std::regex connection(R"((^|[^\w])connect\()");
  Names names;
  for (std::sregex_iterator at(source.begin(), source.end(), handler), end; at != end; ++at) {
    const auto brace = static_cast<std::size_t>(at->position() + at->length()) - 1;
    if (Block(source, brace).find("Guarded(") == std::string::npos)
      names.push_back((*at)[1]);
  }
  names.insert(names.end(),
               static_cast<std::size_t>(std::distance(
                   std::sregex_iterator(source.begin(), source.end(), connection), std::sregex_iterator())),
               "connect");
  return names;
}

TEST(GuardedHandlers, AnUnguardedHandlerOrConnectionIsFound) {
  EXPECT_EQ(Unguarded("void A::paintEvent(QPaintEvent* event) {\n  Draw();\n}\n"), Names{"paintEvent"});
  EXPECT_EQ(Unguarded("bool eventFilter(QObject*, QEvent*) override { return Run(); }"),
            Names{"eventFilter"});
  EXPECT_EQ(Unguarded("  connect(box, &Q::clicked, this, [] {});"), Names{"connect"});
  EXPECT_EQ(Unguarded("  QObject::connect(box, 1);"), Names{"connect"});
  EXPECT_EQ(Unguarded("void A::closeEvent(QCloseEvent*) {\n  Guarded([&] { Save(); });\n}\n"), Names{});
  EXPECT_EQ(Unguarded("  QWidget::paintEvent(event);\n  ConnectGuarded(a, b, c, d);\n"), Names{});
}

TEST(GuardedHandlers, AllHandlersThatCanThrowAreGuarded) {
  std::set<std::string> unguarded;
  for (const char* layer : {"app", "dialogs"}) {
    for (const auto& file :
         std::filesystem::directory_iterator(std::filesystem::path(ZERBAL_SOURCES) / layer)) {
      const std::string name = file.path().filename().string();
      if ((file.path().extension() != ".cpp" && file.path().extension() != ".h") || name == "guarded.h")
        continue;
      std::ifstream stream(file.path());
      const std::string source(std::istreambuf_iterator<char>(stream), {});
      for (const std::string& handler : Unguarded(source))
        unguarded.insert(name + ": " + handler);
    }
  }
  EXPECT_EQ(unguarded, kOnlyQt);
}

}  // namespace
}  // namespace zerbal::app
