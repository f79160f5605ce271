// Reads values of the machine-wide store as text, and the system-information program that they name.
#pragma once

#include "platform/registry.h"

#include <QString>

#include <optional>

class Files;

struct KeyValueResult {
    bool found;
    QString text;
};

// Returns a string up to its first zero character, and other data as the number that its bytes, lowest first,
// stand for: of 32 bits with a sign where there are at most four, otherwise of 64 bits without one; what does
// not fit is "&h" and hexadecimal digits, from the last byte to the first.
KeyValueResult GetKeyValue(Registry& registry, RootKey root, const QString& key, const QString& name);

// Returns the path of the program that shows information about this machine; nothing when none is known. Only
// a path put together from the place of the shared tools is looked for.
std::optional<QString> findSystemInformation(Registry& registry, Files& files);
