// Makes an archive file on a temporary directory and the connection text for it, and gives a plain look into
// it that shares no code with the connection under test.
#pragma once

#include "archiveschema.h" // of assets/songbin.sql
#include "platform/drives.h"
#include "tests/support/temporary.h"

#include <QDir>
#include <QStringList>

#include <sqlite3.h>

#include <stdexcept>
#include <string>

namespace testarchive {

inline int collectRow(void* rows, int count, char** cells, char**)
{
    QStringList row;
    for (int i = 0; i < count; ++i)
        row.append(QString::fromUtf8(cells[i] ? cells[i] : "NULL"));
    static_cast<QStringList*>(rows)->append(row.join(u'|'));
    return 0;
}

} // namespace testarchive

// Runs a script by a connection of its own and returns the rows' cells joined by "|", "NULL" for a null.
inline QStringList runScript(const QByteArray& file, const char* script)
{
    sqlite3* database = nullptr;
    QStringList rows;
    char* message = nullptr;
    sqlite3_open(file.constData(), &database);
    const int code = sqlite3_exec(database, script, testarchive::collectRow, &rows, &message);
    const std::string text = message ? message : "";
    sqlite3_free(message);
    sqlite3_close(database);
    if (code != SQLITE_OK)
        throw std::runtime_error(text);
    return rows;
}

// Makes an archive as the template has it.
inline void createArchive(const QByteArray& file)
{
    runScript(file, kArchiveSchema);
}

// Returns the statement that the importer sends, the values as they are.
inline QString insertStatement(const QStringList& values)
{
    return QStringLiteral(" INSERT INTO MP3 (fldVolum,fldPath,fldArtist,fldSong,fldAlbum,fldYear,fldComment)"
                          " VALUES ('") +
           values.join(QStringLiteral("', '")) + QStringLiteral("');");
}

inline QString numberedInsert(int number)
{
    return insertStatement({QStringLiteral("DISK"), QStringLiteral("D:\\%1.mp3").arg(number),
                            QStringLiteral("a"), QString::number(number), QStringLiteral(" "),
                            QStringLiteral(" "), QStringLiteral(" ")});
}

// One drive, T:, whose directory is the one given; a path of it need not exist.
class OneDrive : public Drives {
public:
    explicit OneDrive(QByteArray directory) : m_directory(std::move(directory)) {}

    std::vector<Drive> list() override { return {{u'T', DriveKind::Declared}}; }
    QString volumeName(const QString&) override { return {}; }

    std::optional<QByteArray> machinePath(const QString& path) override
    {
        if (!path.startsWith(QStringLiteral("T:\\")))
            return std::nullopt;
        return m_directory + '/' + path.sliced(3).replace(u'\\', u'/').toUtf8();
    }

    QString drivePath(const QByteArray& machinePath) override
    {
        const QByteArray rest = machinePath.sliced(m_directory.size() + 1);
        return QStringLiteral("T:\\") + QString::fromUtf8(rest).replace(u'/', u'\\');
    }

private:
    QByteArray m_directory;
};

class TestArchive {
public:
    TestArchive() : m_drives(m_directory.path()) { createArchive(file()); }

    OneDrive& drives() { return m_drives; }
    Temporary& directory() { return m_directory; }
    QByteArray file() const { return m_directory.at("Songbin.mdb"); }

    static QString connectionText(const QString& name = QStringLiteral("Songbin.mdb"))
    {
        return QStringLiteral("Provider=Microsoft.Jet.OLEDB.4.0;Data Source=T:\\%1;").arg(name);
    }

    QStringList run(const char* script) const { return runScript(file(), script); }
    int rowCount() const { return run("SELECT count(*) FROM MP3").value(0).toInt(); }
    bool isSound() const { return run("PRAGMA integrity_check") == QStringList(QStringLiteral("ok")); }

    QStringList filesInDirectory() const
    {
        return QDir(QString::fromUtf8(m_directory.path()))
            .entryList(QDir::Files | QDir::Hidden | QDir::System);
    }

private:
    Temporary m_directory;
    OneDrive m_drives;
};
