// Makes the system-information program of this desktop known where windows look for one.
#pragma once

#include "platform/registry.h"

#include <QByteArray>

class Drives;

// Is called at start-up. `searchPath` is a list of directories as in $PATH. It writes the drive path of the
// first program found there to the value "PATH" of "SOFTWARE\Microsoft\Shared Tools\MSINFO", but only when
// that is missing or names a program that is gone. When none is found, a value that names a gone program of
// the kind that is written here is removed; any other stays.
void seedSystemInformation(Registry& registry, Drives& drives, const QByteArray& searchPath);
