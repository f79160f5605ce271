// How long a test waits for what comes soon before it takes it for something that never comes. It promises
// nothing: the busiest machine is quicker, and a test that passes does not wait for it.
#pragma once

constexpr int kHung = 30'000; // milliseconds
