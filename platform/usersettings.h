// The per-user settings: text by application, section and key, kept in a text file of the user's
// configuration directory. Names ignore case. Another process's changes are seen at the next read.
#pragma once

#include <QString>

class UserSettings {
public:
    virtual ~UserSettings() = default;

    virtual QString get(const QString& application, const QString& section, const QString& key,
                        const QString& missing) = 0;
    // Fails silently: the old value stays.
    virtual void save(const QString& application, const QString& section, const QString& key,
                      const QString& value) = 0;
};
