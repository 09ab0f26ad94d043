#include "jet/format/bytes.h"

namespace zerbal::jet {

void ThrowOutside() {
  throw Damage("a number in the file points outside its page or row");
}

}  // namespace zerbal::jet
