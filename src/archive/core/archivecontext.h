// Gathers what the windows and rules of the archive work with; it is built once by the program and by every
// test.
#pragma once

#include "platform/platform.h"

class ArchiveStore;
class CodePage;
class FileNumbers;
class Windows;
struct SharedValues;

struct ArchiveContext {
    Platform platform;
    FileNumbers& fileNumbers; // the archive's own table
    ArchiveStore& store;
    SharedValues& shared;
    Windows& windows;
    const CodePage& codePage; // of tags and of text files that are no UTF-8
};
