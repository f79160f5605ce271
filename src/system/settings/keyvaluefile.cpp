#include "system/settings/keyvaluefile.h"

#include <utility>

namespace {

constexpr std::chrono::milliseconds kPatience(1000);

} // namespace

KeyValueFile::KeyValueFile(QByteArray file) : m_file(std::move(file)) {}

const KeyValueLines* KeyValueFile::current()
{
    if (m_stamp && m_stamp == stampOf(m_file))
        return &m_lines;
    return load() ? &m_lines : nullptr;
}

bool KeyValueFile::load()
{
    std::optional<SmallFile> read = readSmallFile(m_file);
    m_stamp.reset();
    if (!read)
        return false;
    if (read->content != m_lines.content())
        m_lines = KeyValueLines(std::move(read->content));
    if (read->settled)
        m_stamp = read->stamp;
    return true;
}

// Notes whether whoever asks gets an answer.
const KeyValueLines* KeyValueFile::asked(const QString& section, const QString& key)
{
    const KeyValueLines* lines = current();
    const Name name(section.toCaseFolded(), key.toCaseFolded());
    if (lines != nullptr)
        m_unread.erase(name);
    else
        m_unread.insert(name);
    return lines;
}

bool KeyValueFile::wasRead(const QString& section, const QString& key) const
{
    const QString folded = section.toCaseFolded();
    return !m_unread.contains({folded, key.toCaseFolded()}) && !m_unread.contains({folded, QString()});
}

std::optional<QString> KeyValueFile::value(const QString& section, const QString& key)
{
    const KeyValueLines* lines = asked(section, key);
    return lines == nullptr ? std::nullopt : lines->value(section, key);
}

QStringList KeyValueFile::keys(const QString& section)
{
    const KeyValueLines* lines = asked(section, {});
    return lines == nullptr ? QStringList() : lines->keys(section);
}

bool KeyValueFile::set(const QString& section, const QString& key, const QString& value)
{
    if (!wasRead(section, key))
        return false;
    const KeyValueLines* lines = current();
    if (lines != nullptr && lines->value(section, key) == value)
        return true;
    return change([&](const KeyValueLines& now) { return now.with(section, key, value); });
}

bool KeyValueFile::remove(const QString& section, const QString& key)
{
    if (!wasRead(section, key))
        return false;
    const KeyValueLines* lines = current();
    if (lines != nullptr && !lines->value(section, key))
        return true;
    return change([&](const KeyValueLines& now) { return now.without(section, key); });
}

bool KeyValueFile::change(const Edit& edit)
{
    FileLock lock;
    // Someone who held it for a whole second may hold it for ever: a window that saves a hundred settings
    // waits once.
    m_lockWasHeld = !lock.take(m_file, m_lockWasHeld ? std::chrono::milliseconds(0) : kPatience);
    if (m_lockWasHeld || !load())
        return false;
    KeyValueLines changed(edit(m_lines));
    if (changed.content() != m_lines.content() && !replaceFile(m_file, changed.content()))
        return false;
    m_lines = std::move(changed);
    m_stamp.reset();
    return true;
}
