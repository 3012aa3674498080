#pragma once

/// Whether this program runs under the address sanitizer, which has a heap of its own and needs
/// descriptors and memory itself.
#ifdef __SANITIZE_ADDRESS__
constexpr bool isSanitized = true;
#else
constexpr bool isSanitized = false;
#endif

/// Whether a sanitizer, that one or the thread sanitizer, keeps memory by itself and slows all
/// down.
#ifdef __SANITIZE_THREAD__
constexpr bool hasHeapOfItsOwn = true;
#else
constexpr bool hasHeapOfItsOwn = isSanitized;
#endif
