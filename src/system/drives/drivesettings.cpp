#include "system/drives/drivesettings.h"

#include "base/filenametext.h"
#include "system/drives/drivepath.h"

#include <utility>

namespace {

const QString kDeclaredSection = QStringLiteral("Drives");
const QString kLettersSection = QStringLiteral("Letters");

} // namespace

DriveSettings::DriveSettings(const QByteArray& file) : m_path(file), m_file(file), m_stamp(stampOf(file)) {}

bool DriveSettings::changed()
{
    std::optional<FileStamp> now = stampOf(m_path);
    return std::exchange(m_stamp, now) != now;
}

void DriveSettings::addDeclared(DriveTable& drives)
{
    for (const QString& key : m_file.keys(kDeclaredSection))
        ::addDeclared(drives, key,
                      filenametext::toBytes(m_file.value(kDeclaredSection, key).value_or(QString())));
}

LetterMemory DriveSettings::noted()
{
    LetterMemory memory;
    for (const QString& key : m_file.keys(kLettersSection)) {
        const char letter = driveLetter(QString(key + u':'));
        const QByteArray identity =
            filenametext::toBytes(m_file.value(kLettersSection, key).value_or(QString()));
        if (key.size() == 1 && letter != '\0' && !identity.isEmpty())
            memory[letter] = identity;
    }
    return memory;
}

void DriveSettings::addVolumes(DriveTable& drives, const std::vector<Volume>& volumes)
{
    LetterMemory before = noted();
    for (const auto& [letter, identity] : before)
        m_memory[letter] = identity;
    ::addVolumes(drives, volumes, m_memory);
    for (const auto& [letter, identity] : m_memory)
        if (before[letter] != identity)
            m_file.set(kLettersSection, QString(QLatin1Char(letter)), filenametext::toText(identity));
}
