#include "zerbal-map/page.h"

#include <QFile>
#include <map>
#include <span>
#include <string_view>

#include "base/assert.h"
#include "zerbal-map/page_colours.h"
#include "zerbal-map/page_data.h"
#include "zerbal-map/page_markup.h"
#include "zerbal-map/xml_text.h"

/// Names the resources of this library, so that they are linked. Not possible in a namespace.
static void UsePageResources() {
  Q_INIT_RESOURCE(page);
}

namespace zerbal::mapcommand {
namespace {

// In the order in which the page needs them.
constexpr const char* kStyles[] = {"page.css", "map.css", "panel.css", "screens.css"};
constexpr const char* kScripts[] = {"model.js", "view.js", "input.js", "labels.js", "search.js", "page.js"};

std::string Source(const char* name) {
  UsePageResources();
  QFile file(QString(":/page/") + name);
  const bool opened = file.open(QIODevice::ReadOnly);
  ZERBAL_ASSERT(opened);
  return opened ? file.readAll().toStdString() : std::string();
}

std::string Sources(std::span<const char* const> names) {
  std::string text;
  for (const char* name : names)
    text += Source(name);
  return text;
}

using Parts = std::map<std::string_view, std::string>;

/// Replaces each "{{name}}" of the template. Parts are not searched for names.
std::string Filled(std::string_view text, const Parts& parts) {
  std::string filled;
  for (auto open = text.find("{{"); open != std::string_view::npos; open = text.find("{{")) {
    const auto close = text.find("}}", open);
    const auto part = parts.find(text.substr(open + 2, close - open - 2));
    ZERBAL_ASSERT(part != parts.end());
    filled.append(text.substr(0, open)).append(part->second);
    text.remove_prefix(close + 2);
  }
  return filled.append(text);
}

std::string Counted(std::size_t count, const char* one, const char* many) {
  return std::to_string(count) + (count == 1 ? one : many);
}

std::string Summary(const Page& page) {
  return (page.place.empty() ? "" : page.place + " \u00B7 ") +
         Counted(page.contents.flights.size(), " flight", " flights") + " \u00B7 " +
         Counted(page.contents.airports.size(), " airport", " airports");
}

}  // namespace

std::string HtmlOf(const Page& page) {
  const std::string heading = "Route map";
  const std::string title = page.place.empty() ? heading : heading + ": " + page.place;
  return Filled(Source("page.html"), {{"title", XmlText(title)},
                                      {"heading", XmlText(heading)},
                                      {"summary", XmlText(Summary(page))},
                                      {"description", XmlText(page.description)},
                                      {"style", ColourStyles(page) + Sources(kStyles)},
                                      {"width", std::to_string(page.width)},
                                      {"height", std::to_string(page.height)},
                                      {"base", page.base},
                                      {"lines", ServiceLines(page)},
                                      {"marks", Marks(page)},
                                      {"services", ServiceBoxes(page)},
                                      {"flights", FlightLists(page)},
                                      {"data", PageData(page)},
                                      {"script", Sources(kScripts)}});
}

}  // namespace zerbal::mapcommand
