// Reads the element lines of a skin, from behind its header to its end, onto a SkinTarget.
#pragma once

#include "base/throttle.h"
#include "player/skin/outlinepoints.h"
#include "player/skin/sethints.h"
#include "player/skin/skinhost.h"
#include "player/skin/skinlint.h"
#include "player/skin/skintoken.h"

#include <optional>

// Is a text beside a set's pictures, and the line that named it.
struct SetHint {
    int line = 0;
    QString path{};
    QByteArray text{};
};

class SkinLines {
public:
    SkinLines(const SkinSeams& seams, SkinLint& remarks);

    // Reads to the end of the elements, or until the window is closed. Work pictures lie in the directory,
    // which has a trailing backslash. It throws RunTimeError: of the reader, InvalidPropertyValue
    // for a shape that there is not, SubscriptOutOfRange for an outline of less than no points,
    // CancelSelected when the user stops it.
    void read(const QString& directory);

    const OutlinePoints& outline() const { return m_outline; }
    const SetHint& outlineHint() const { return m_outlineHint; } // of the set of pictures that is worn
    bool faulty() const { return m_faulty; }                     // refers to elements that do not exist
    const QString& unknown() const { return m_unknown; } // those that are to be named, each after a blank

private:
    struct Letter;
    static const Letter* letterOf(char16_t letter);

    bool next(); // false at the end
    void skip();
    void element(const Letter& letter);
    bool exists();
    bool counts(QSize size);
    template <typename Element>
    bool place(const Element& element, QSize size);
    void doesNotExist();

    void button();
    void label();
    void light();
    void slider();
    void display();
    void cover();
    void playlist();
    void onePolygon();
    void severalPolygons();
    void point();
    void loadWork();
    void jump();
    void jumpTarget() {} // counts only while a jump is pending
    void sizeWork();
    void copyWork();
    void useWork();
    void comment();
    void info();
    void extra(QStringView name, const QString& text);
    void mark(const QString& text);
    void listColours(const QString& file);
    SetHint hint(const QString& file);

    SkinReader& m_reader;
    SkinTarget& m_target;
    SkinHost& m_host;
    SkinTexts& m_texts;
    SkinLint& m_remarks;
    QString m_directory{};

    SkinToken m_token{QString()};
    int m_number = 0;
    int m_line = 0;
    const Letter* m_letter = nullptr;
    Throttle m_throttle{};
    std::optional<QString> m_label{}; // of a pending jump
    int m_loaded = 0;                 // 1: the last work picture was
    QString m_work2{};                // the path of the picture that Z copies from
    int m_marks = 0;
    SetHint m_outlineHint{};
    std::optional<ListColours> m_listColours{};
    OutlinePoints m_outline{};
    bool m_faulty = false;
    QString m_unknown{};
};
