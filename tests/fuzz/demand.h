// What must hold for every input. The fuzzer keeps the input of a program that aborts.
#pragma once

#include <cstdio>
#include <cstdlib>

inline void demand(bool holds, const char* what)
{
    if (holds)
        return;
    std::fprintf(stderr, "does not hold: %s\n", what);
    std::abort();
}
