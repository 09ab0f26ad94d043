// Records of a schedule that an import leaves out.
#pragma once

#include <cstddef>
#include <string>

namespace zerbal::pack {

struct LeftOut {
  std::size_t line = 0;  ///< on which the record begins, from 1
  std::string reason;
  std::string record;  ///< as the file has it; empty when it has to be read again
};

}  // namespace zerbal::pack
