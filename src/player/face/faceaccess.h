// Gives a screen reader the player's face: what the skin has placed, and nothing else.
#pragma once

// It holds from the first call on, for every player's window of the program.
void offerFaceToReaders();
