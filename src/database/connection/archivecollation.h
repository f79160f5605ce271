// Gives the order and equality of the archive's texts: case is ignored for every letter, the rest follows a
// locale.
//
// Two texts are equal when they differ in nothing but case (simple case folding). Unequal ones follow the
// locale's dictionary order; what that holds for equal follows the order of code units, so that the order is
// total.
#pragma once

#include <QByteArrayView>
#include <QCollator>

#include <array>
#include <bitset>
#include <vector>

struct sqlite3;

class ArchiveOrder {
public:
    explicit ArchiveOrder(const QCollator& collator); // its locale counts
    static QCollator userCollator();                  // of the user's own locale

    // Returns less than, equal to or greater than 0, for texts in UTF-8. It is not for two threads at a time.
    int compare(QByteArrayView a, QByteArrayView b) noexcept;
    // Compares by the way that serves any text; compare() takes a shorter one where that is safe.
    int compareFolded(QByteArrayView a, QByteArrayView b) noexcept;

private:
    static constexpr std::size_t kPlain = 128;
    using Units = std::vector<char16_t>;

    void prepare();
    void rankPlain();
    void findContractions();
    bool contracts(QStringView text, QStringView start) const;
    bool isPlainAt(QByteArrayView text, qsizetype place) const;
    int rankAt(QByteArrayView text, qsizetype place) const;
    static QStringView fold(QByteArrayView text, Units& buffer);

    QCollator m_collator;
    bool m_prepared = false;
    std::array<unsigned char, kPlain> m_rank{}; // 0 for a byte that is not plain
    std::bitset<kPlain * kPlain> m_contracts;   // pairs of bytes that may count as one letter
    Units m_first;
    Units m_second;
};

// Makes SQLite's collation NOCASE the order of the collator on this connection. An index made under the
// built-in rule would no longer be in order; the archive has none. Throws RunTimeError kConnectionError.
void registerArchiveOrder(sqlite3* database, const QCollator& collator);
