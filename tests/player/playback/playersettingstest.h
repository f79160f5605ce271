// Is a store that notes what is asked of it.
#pragma once

#include "platform/usersettings.h"

#include <QMap>
#include <QStringList>

class RecordingSettings : public UserSettings {
public:
    QString get(const QString& application, const QString& section, const QString& key,
                const QString& missing) override
    {
        note(application, section, key);
        defaults += missing;
        return values.value(key, missing);
    }
    bool wasRead(const QString&, const QString&, const QString& key) const override
    {
        return !unread.contains(key);
    }
    bool save(const QString& application, const QString& section, const QString& key,
              const QString& value) override
    {
        note(application, section, key);
        if (fails || unread.contains(key))
            return false;
        values[key] = value;
        return true;
    }

    QStringList
        names; // the keys in the order of asking; another place than the player's stands before its key
    QStringList defaults;
    QStringList unread;            // keys that could not be read
    bool fails = false;            // whatever is saved
    QMap<QString, QString> values; // with regard to case

private:
    void note(const QString& application, const QString& section, const QString& key)
    {
        const QString place = application + u'/' + section + u'/';
        names += place == QStringLiteral("tonedeckpro/config/") ? key : place + key;
    }
};
