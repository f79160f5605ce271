#pragma once

#include <gtest/gtest.h>

#include <cstdlib>

// A case that runs its program again asks for one case by its name, which need not be in the share of the
// cases that this process was given.
struct WholeReruns : testing::Environment {
    void SetUp() override
    {
        unsetenv("GTEST_TOTAL_SHARDS");
        unsetenv("GTEST_SHARD_INDEX");
    }
};
