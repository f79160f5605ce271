// Reads the text of a settings file into sections, keys and values, and edits it line by line.
//
// A section's name, a key and a value are written as they are but for "%", line ends, other control
// characters, blanks at either end and what would not come back from UTF-8: these become "%XX" or "%uXXXX",
// the character's number in hexadecimal; in names also = [ ] # ; do. A "%" that begins neither form stands
// for itself. A backslash has no meaning.
#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

class KeyValueLines {
public:
    KeyValueLines() : KeyValueLines(QByteArray()) {}
    explicit KeyValueLines(QByteArray content); // any bytes

    const QByteArray& content() const { return m_content; }

    std::optional<QString> value(const QString& section, const QString& key) const;
    QStringList keys(const QString& section) const;

    // Returns the whole content with that one change.
    QByteArray with(const QString& section, const QString& key, const QString& value) const;
    QByteArray without(const QString& section, const QString& key) const;

private:
    // These are positions in the content.
    struct Entry {
        QString section;
        QString key;
        qsizetype line;
        qsizetype value;
        qsizetype valueEnd;
        qsizetype nextLine;
    };
    struct Section {
        QString name;
        qsizetype end; // behind its last key, or behind its heading
    };

    void readLine(qsizetype begin, qsizetype end, qsizetype next);
    void readHeading(QByteArrayView line, qsizetype next);
    void readEntry(QByteArrayView line, qsizetype begin, qsizetype next);
    const Entry* find(const QString& section, const QString& key) const;
    QByteArray lineEnd() const;

    QByteArray m_content;
    std::vector<Section> m_sections;
    std::vector<Entry> m_entries;
    bool m_inSection = true; // false below a heading that cannot be read
};
