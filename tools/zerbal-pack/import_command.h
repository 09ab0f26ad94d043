// Makes the three tables of a schedule from files of other programs and of airlines.
#pragma once

#include <iosfwd>

#include "zerbal-pack/import_options.h"

namespace zerbal::pack {

/// Reports every fault on `err`. False when a record is left out or nothing is written. Throws base::Error
/// for what cannot be written.
bool ImportSchedule(const ImportOptions& options, std::ostream& out, std::ostream& err);

}  // namespace zerbal::pack
