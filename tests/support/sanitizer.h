// Detects AddressSanitizer, which compilers announce in different ways. It delays the release of memory, so
// the process grows more than the program.
#pragma once

#if defined(__SANITIZE_ADDRESS__)
#define ZERBAL_ADDRESS_SANITIZER 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define ZERBAL_ADDRESS_SANITIZER 1
#endif
#endif
#if !defined(ZERBAL_ADDRESS_SANITIZER)
#define ZERBAL_ADDRESS_SANITIZER 0
#endif
