// Keeps the per-user settings, text by application, section and key, in a text file of the user's
// configuration directory. Names ignore case. Another process's changes are seen at the next read.
#pragma once

#include <QString>

class UserSettings {
public:
    virtual ~UserSettings() = default;

    // Returns `missing` also where the store cannot be read.
    virtual QString get(const QString& application, const QString& section, const QString& key,
                        const QString& missing) = 0;
    // Is false when the store could not be read when that value was last asked for, so that nobody knows
    // whether it has one. It then stays as it is, whatever is saved.
    virtual bool wasRead(const QString& application, const QString& section, const QString& key) const = 0;
    // Is false when that failed: the old value stays.
    virtual bool save(const QString& application, const QString& section, const QString& key,
                      const QString& value) = 0;
};
