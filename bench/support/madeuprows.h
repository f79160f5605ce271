// Rows of a big collection as scans of many disks would leave them: album after album, each in its directory,
// some five hundred files to a disk. The same on every machine.
#pragma once

#include <QByteArray>

#include <array>
#include <random>
#include <vector>

class MadeUpRows {
public:
    // Holds volume, path, artist, song, album, year, comment as UTF-8; a null QByteArray is a null of the
    // archive.
    using Row = std::array<QByteArray, 7>;

    MadeUpRows();

    Row next();

private:
    enum class Alphabet { Latin, Nordic, Cyrillic, Greek };
    struct Artist {
        QByteArray name;
        Alphabet alphabet;
    };

    int below(int limit);
    QByteArray syllables(const std::vector<QByteArray>& from, int count);
    QByteArray word(Alphabet alphabet, int length);
    QByteArray name(Alphabet alphabet);
    static Alphabet alphabetOf(int artist);
    void beginAlbum();
    QByteArray comment();

    std::mt19937_64 m_random{20'230'611};
    std::vector<Artist> m_artists;
    int m_row = 0;

    const Artist* m_artist = nullptr;
    QByteArray m_album;
    QByteArray m_year;
    int m_track = 0;
    int m_tracks = 0;
    bool m_isUntagged = false;
};
