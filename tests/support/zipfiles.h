// Makes ZIP archives, sound ones and others.
#pragma once

#include <QByteArray>

#include <array>
#include <cstdint>
#include <utility>
#include <vector>

class ZipMaker {
public:
    enum class Packing : int { Stored = 0, Deflated = 8 };
    static constexpr int kEncrypted = 1; // flag

    struct Entry {
        QByteArray name{};
        QByteArray content{};
        Packing packing = Packing::Deflated;
        int flags = 0;
        int mode = 0100644; // a regular file
    };

    static QByteArray of(const std::vector<std::pair<QByteArray, QByteArray>>& files)
    {
        std::vector<Entry> entries;
        for (const auto& [name, content] : files)
            entries.push_back({.name = name, .content = content});
        return ofEntries(entries);
    }

    static QByteArray ofEntries(const std::vector<Entry>& entries)
    {
        QByteArray archive;
        QByteArray directory;
        for (const Entry& entry : entries) {
            const auto offset = archive.size();
            const QByteArray packed = packedOf(entry);
            const QByteArray facts = factsOf(entry, packed);
            archive += "PK\3\4" + facts + entry.name + packed;
            directory += "PK\1\2" + number(0x0314, 2) + facts + number(0, 6) + number(0, 2) +
                         number(entry.mode, 2) + number(offset, 4) + entry.name;
        }
        const auto start = archive.size();
        const auto count = static_cast<qint64>(entries.size());
        return archive + directory + "PK\5\6" + number(0, 4) + number(count, 2) + number(count, 2) +
               number(directory.size(), 4) + number(start, 4) + number(0, 2);
    }

private:
    static QByteArray number(qint64 value, int bytes)
    {
        QByteArray text;
        for (int i = 0; i < bytes; ++i)
            text += static_cast<char>(value >> (8 * i) & 0xFF);
        return text;
    }

    static qint64 checksum(const QByteArray& content)
    {
        std::uint32_t sum = 0xFFFFFFFF;
        for (const char c : content) {
            sum ^= static_cast<std::uint8_t>(c);
            for (int bit = 0; bit < 8; ++bit)
                sum = (sum >> 1) ^ (0xEDB88320 & (0 - (sum & 1)));
        }
        return sum ^ 0xFFFFFFFF;
    }

    // Returns the toolkit's packed form without its length, the stream's head and its checksum.
    static QByteArray packedOf(const Entry& entry)
    {
        if (entry.packing != Packing::Deflated)
            return entry.content;
        return entry.content.isEmpty() ? QByteArray("\3\0", 2) : qCompress(entry.content).mid(6).chopped(4);
    }

    // Returns what both headers tell of a file, from the version on.
    static QByteArray factsOf(const Entry& entry, const QByteArray& packed)
    {
        return number(20, 2) + number(entry.flags, 2) + number(static_cast<int>(entry.packing), 2) +
               number(0, 4) + number(checksum(entry.content), 4) + number(packed.size(), 4) +
               number(entry.content.size(), 4) + number(entry.name.size(), 2) + number(0, 2);
    }
};
