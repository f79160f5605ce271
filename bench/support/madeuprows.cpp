#include "bench/support/madeuprows.h"

#include <QString>

#include <cmath>

namespace {

constexpr int kArtists = 20'000;
constexpr int kRowsOfDisk = 500;

using Syllables = std::vector<QByteArray>;

const Syllables& latin()
{
    static const Syllables kOnes = {"no",  "rd",  "lys", "ka",  "mi",  "ra",  "tor", "ven", "sel", "ast",
                                    "gri", "mo",  "lun", "dra", "fel", "bi",  "an",  "os",  "ter", "in",
                                    "wo",  "chu", "pe",  "ly",  "quo", "jas", "ed",  "ham", "zu",  "vic"};
    return kOnes;
}

const Syllables& nordic()
{
    static const Syllables kOnes = {"sjø", "bjør", "å", "ær", "øst", "lø", "mü", "vä", "ök", "þor"};
    return kOnes;
}

const Syllables& cyrillic()
{
    static const Syllables kOnes = {"ми", "ра", "сн", "ег", "по", "ля", "на", "яр", "жу", "край"};
    return kOnes;
}

const Syllables& greek()
{
    static const Syllables kOnes = {"θα", "λα", "σσα", "νύ", "χτα", "φως", "και", "ρο", "με", "ψη"};
    return kOnes;
}

QByteArray capitalized(const QByteArray& text)
{
    QString out = QString::fromUtf8(text);
    out[0] = out[0].toUpper();
    return out.toUtf8();
}

QByteArray padded(int number, int width)
{
    return QByteArray::number(number).rightJustified(width, '0');
}

} // namespace

MadeUpRows::MadeUpRows()
{
    m_artists.reserve(kArtists);
    for (int i = 0; i < kArtists; ++i) {
        const Alphabet alphabet = alphabetOf(i);
        m_artists.push_back({name(alphabet), alphabet});
    }
}

// It is not a distribution of the library's: those differ from one library to the next.
int MadeUpRows::below(int limit)
{
    return static_cast<int>(m_random() % static_cast<unsigned>(limit));
}

// There is the same mixture in every hundred artists, so that the rows have it too however often each is
// drawn.
MadeUpRows::Alphabet MadeUpRows::alphabetOf(int artist)
{
    const int percent = artist * 37 % 100;
    if (percent < 72)
        return Alphabet::Latin;
    if (percent < 86)
        return Alphabet::Nordic;
    return percent < 95 ? Alphabet::Cyrillic : Alphabet::Greek;
}

QByteArray MadeUpRows::syllables(const Syllables& from, int count)
{
    QByteArray out;
    for (int i = 0; i < count; ++i)
        out += from[static_cast<std::size_t>(below(static_cast<int>(from.size())))];
    return out;
}

QByteArray MadeUpRows::word(Alphabet alphabet, int length)
{
    switch (alphabet) {
    case Alphabet::Latin:
        return capitalized(syllables(latin(), length));
    case Alphabet::Nordic:
        return capitalized(below(2) == 0 ? syllables(nordic(), 1) + syllables(latin(), length)
                                         : syllables(latin(), length) + syllables(nordic(), 1));
    case Alphabet::Cyrillic:
        return capitalized(syllables(cyrillic(), length));
    case Alphabet::Greek:
        break;
    }
    return capitalized(syllables(greek(), length));
}

QByteArray MadeUpRows::name(Alphabet alphabet)
{
    const Alphabet second = alphabet == Alphabet::Nordic ? Alphabet::Latin : alphabet;
    return word(alphabet, 2 + below(2)) + ' ' + word(second, 1 + below(3));
}

// A few artists have many albums, many have few.
void MadeUpRows::beginAlbum()
{
    const double chance = below(1 << 20) / static_cast<double>(1 << 20);
    m_artist = &m_artists[static_cast<std::size_t>(chance * chance * kArtists)];
    m_album = name(m_artist->alphabet);
    m_year = QByteArray::number(1960 + below(64));
    m_track = 0;
    m_tracks = 8 + below(9);
    m_isUntagged = below(100) == 0;
}

QByteArray MadeUpRows::comment()
{
    const int percent = below(100);
    if (m_isUntagged)
        return {};
    if (percent < 50)
        return "";
    return percent < 80 ? "Track " + QByteArray::number(m_track) + " of " + QByteArray::number(m_tracks)
                        : name(m_artist->alphabet).toLower();
}

MadeUpRows::Row MadeUpRows::next()
{
    static constexpr std::array kDisks = {"ROCK_", "JAZZ_", "POP_", "MIX_", "FOLK_"};
    static constexpr std::array kExtensions = {".MP3", ".wma", ".ogg"};
    if (m_track == m_tracks)
        beginAlbum();
    ++m_track;
    const int disk = m_row++ / kRowsOfDisk;
    const QByteArray song = name(m_artist->alphabet) + (below(3) == 0 ? ' ' + word(Alphabet::Latin, 2) : "");
    const int percent = below(100);
    const char* extension = percent < 3 ? kExtensions[static_cast<std::size_t>(percent)] : ".mp3";
    const QByteArray path =
        "D:\\" + m_artist->name + '\\' + m_album + '\\' + padded(m_track, 2) + " - " + song + extension;
    const QByteArray volume = kDisks[static_cast<std::size_t>(disk) % kDisks.size()] + padded(disk + 1, 4);
    const bool isUntagged = m_isUntagged;
    return {volume,
            path,
            m_artist->name,
            song,
            isUntagged ? QByteArray() : m_album,
            isUntagged ? QByteArray() : m_year,
            comment()};
}
