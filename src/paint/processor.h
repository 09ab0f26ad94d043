// What the processor can do.
#pragma once

namespace zerbal::paint {

#ifdef ZERBAL_AVX2
/// Whether what is compiled for AVX2 can be called.
inline bool HasAvx2() {
  return __builtin_cpu_supports("avx2") != 0;
}
#endif

}  // namespace zerbal::paint
