#include "jet/seek_key.h"

namespace zerbal::jet {

SeekKey::Result SeekKey::Make(std::string_view, const ColumnInfo&, const ColumnPlace&, bool,
                              const FileHeader&) {
  key_.clear();
  return Result::kUnknown;
}

}  // namespace zerbal::jet
