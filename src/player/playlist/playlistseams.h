// Gathers what the playlist's files take of their surroundings.
#pragma once

class CodePage;
class FileNumbers;
struct Platform;

struct PlaylistSeams {
    const Platform& platform;
    FileNumbers& fileNumbers; // the player's own table
    const CodePage& codePage; // of texts that are no UTF-8
};
