// Keeps the per-user settings as a text file; a section is "application/section".
#pragma once

#include "platform/usersettings.h"
#include "system/settings/keyvaluefile.h"

class FileUserSettings : public UserSettings {
public:
    explicit FileUserSettings(QByteArray file) : m_file(std::move(file)) {}

    QString get(const QString& application, const QString& section, const QString& key,
                const QString& missing) override;
    bool wasRead(const QString& application, const QString& section, const QString& key) const override;
    bool save(const QString& application, const QString& section, const QString& key,
              const QString& value) override;

private:
    KeyValueFile m_file;
};
