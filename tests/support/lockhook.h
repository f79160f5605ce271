// Runs once, at the very moment when somebody next asks for a lock of the system's; copynotes_test.cpp stands
// in for the system there.
#pragma once

#include <functional>

inline std::function<void()> beforeLock;
