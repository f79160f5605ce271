// Is the field that an element begins with: its letter and, mostly, its number ("B12").
#pragma once

#include <QString>

class SkinToken {
public:
    explicit SkinToken(QString text) : m_text(std::move(text)) {}

    const QString& text() const { return m_text; }
    char16_t letter() const { return m_text.isEmpty() ? u'\0' : m_text[0].unicode(); }
    QStringView rest() const { return QStringView(m_text).mid(1); }

    // Reads what the rest begins with, which is blanks, a sign and digits; it gives 0 without digits, and the
    // largest or least 32-bit number for one that lies beyond.
    int number() const;

private:
    QString m_text;
};
