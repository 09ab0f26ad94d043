#include "zerbal-map/page_output.h"

#include "base/file_replacement.h"
#include "zerbal-map/page.h"

namespace zerbal::mapcommand {

void WritePage(const MapJob& job, const Options& options) {
  // Opened first, as for pictures.
  auto file = base::FileReplacement::OfUserFile(options.outputFile);
  file.Write(HtmlOf(job.GatherPage()));
  file.Commit();
}

}  // namespace zerbal::mapcommand
