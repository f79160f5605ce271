// A key that is held down presses a button once.
#pragma once

// From the first call on, in every window of the program, the repeats of a held key neither press a button,
// by Enter, Space or its access key, nor activate a row again. They would delete record after record.
void ignoreHeldKeys();
