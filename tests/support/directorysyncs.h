// Lets syncs of directories fail in the programs that hold directorysyncs.cpp.
#pragma once

#include <cerrno>

namespace directorysyncs {

inline constexpr int kAll = 1'000'000;

inline int failures = 0;  // of so many from now on
inline int failure = EIO; // what they say

} // namespace directorysyncs
