#pragma once

#include <cstddef>

namespace Kelmar::System
{

/// Raises the limit of this process's stack in place to 128 MiB, or to what the system permits if
/// that is less. Work on a tree recurses once for each of its levels, and the usual 8 MiB are too
/// little for deep trees. To be called by main before anything else.
///
/// The kernel keeps that much room free under the main thread's stack, so no restart is needed. A
/// limit that is higher or can't be changed is left as it is.
void raiseStackLimit();

/// How many bytes a recursion may use on the stack of the main thread, by its present limit. To be
/// called after the limit was raised.
std::size_t stackRoom();

// A build with the address sanitizer or without optimisation takes up to four times the stack.
#ifdef __has_feature
#define ORVEX_HAS_FEATURE(feature) __has_feature(feature)
#else
#define ORVEX_HAS_FEATURE(feature) 0
#endif
#if defined(__SANITIZE_ADDRESS__) || ORVEX_HAS_FEATURE(address_sanitizer) || !defined(__OPTIMIZE__)
constexpr std::size_t stackFactor = 4;
#else
constexpr std::size_t stackFactor = 1;
#endif
#undef ORVEX_HAS_FEATURE

} // namespace Kelmar::System
