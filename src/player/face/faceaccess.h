// The player's face as a screen reader has it: what the skin has placed, and nothing else.
#pragma once

// From the first call on, for every player's window of the program.
void offerFaceToReaders();
