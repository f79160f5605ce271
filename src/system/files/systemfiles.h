#pragma once

#include "platform/files.h"
#include "system/files/fileopener.h"
#include "system/files/readahead.h"

class SystemFiles : public Files {
public:
    explicit SystemFiles(SystemDrives& drives) : m_drives(drives), m_opener(drives) {}

    std::vector<DirEntry> list(const QString& directory) override;
    std::optional<std::vector<DirEntry>> enter(const QString& directory, EnteredDirectories& walk) override;
    QStringList dir(const QString& pattern, int attributes = kNormal) override;
    bool exists(const QString& path) override;
    bool isTaken(const QString& path) override;
    void copy(const QString& from, const QString& to) override;
    void replace(const QString& path, const QByteArray& content) override;
    std::unique_ptr<FileReplacement> beginReplacement(const QString& path) override;
    QByteArray read(const QString& path, qint64 most = kWhateverLength) override;
    void expectTails(const QString& directory, const QStringList& names, int bytes) override;

private:
    QByteArray readyPath(const QString& directory);
    QByteArray targetPath(const QString& file);
    QStringList single(const QString& path, int attributes);

    SystemDrives& m_drives;
    FileOpener m_opener;
    ReadAhead m_readAhead;
};
