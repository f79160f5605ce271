// Reads and writes settings of the machine-wide store as text. No error leaves these two.
#pragma once

#include "platform/registry.h"

#include <QString>

#include <variant>

// A value that is missing or cannot be read reads as this.
inline const QString kNotFound = QStringLiteral("Not Found");

using SettingValue = std::variant<QString, int>;

// Returns a string whole, binary data as hexadecimal, two upper-case digits a byte, and of a number the first
// three digits of at least three. Data longer than 2048 bytes (a string: 2047 characters) is not found.
QString GetRegString(Registry& registry, RootKey root, const QString& subkey, const QString& name);

// kRegDword stores the value as a number of 32 bits; every other type stores its text as a string. A text
// that is no such number is not stored.
void SaveRegValue(Registry& registry, RootKey root, const QString& subkey, const QString& name, int type,
                  const SettingValue& value);
