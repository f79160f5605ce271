// Replaces a file of the user's by new content, whole or not at all. Paths are absolute paths of this
// machine.
#pragma once

#include <QByteArray>
#include <QByteArrayView>

#include <memory>

// Owner and rights stay. Throws RunTimeError DiskFull, PermissionDenied, PathFileAccess or PathNotFound: when
// the directory does not take a new file, when the file itself does not allow writing, although another could
// take its place, and when a disk refuses. The old file is then as it was, and what could be written of the
// new one lies beside it as "<file>.partial", or "<file>.partial-2" and so on where something of another lies
// there.
void replaceWhole(const QByteArray& file, const QByteArray& content);

// Does so with a content that comes piece by piece and may take its time. One that ends without commit, or
// whose step throws, leaves nothing beside the file. A link whose name ends otherwise than that of the file
// it leads to is refused (PermissionDenied): who writes a list has named one.
class FileInPieces {
public:
    explicit FileInPieces(const QByteArray& file);
    ~FileInPieces();
    FileInPieces(const FileInPieces&) = delete;
    FileInPieces& operator=(const FileInPieces&) = delete;

    void write(QByteArrayView piece);
    void commit();

private:
    struct Parts;

    template <typename Step>
    void tryStep(Step&& step);

    std::unique_ptr<Parts> m_parts; // none after the end
};
