#pragma once

/// Whether this program runs under the address sanitizer, which has a heap of its own and needs
/// descriptors and memory itself.
#ifdef __SANITIZE_ADDRESS__
constexpr bool isSanitized = true;
#else
constexpr bool isSanitized = false;
#endif
