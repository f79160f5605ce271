#include "system/settings/fileusersettings.h"

namespace {

QString sectionOf(const QString& application, const QString& section)
{
    return application + u'/' + section;
}

} // namespace

QString FileUserSettings::get(const QString& application, const QString& section, const QString& key,
                              const QString& missing)
{
    return m_file.value(sectionOf(application, section), key).value_or(missing);
}

bool FileUserSettings::wasRead(const QString& application, const QString& section, const QString& key) const
{
    return m_file.wasRead(sectionOf(application, section), key);
}

bool FileUserSettings::save(const QString& application, const QString& section, const QString& key,
                            const QString& value)
{
    return m_file.set(sectionOf(application, section), key, value);
}
