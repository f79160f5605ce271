// Says how long a test waits for what comes soon before it takes it for something that never comes.
#pragma once

constexpr int kHung = 30'000; // milliseconds
