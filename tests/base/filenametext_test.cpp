#include "base/filenametext.h"

#include <gtest/gtest.h>

#include <random>

namespace {

QByteArray bothWays(const QByteArray& name)
{
    return filenametext::toBytes(filenametext::toText(name));
}

// Bytes of every kind, with those that are awkward more often than chance would have them.
class Names {
public:
    QByteArray next()
    {
        QByteArray name;
        const int pieces = static_cast<int>(m_engine() % 8);
        for (int i = 0; i < pieces; ++i)
            name += piece();
        return name;
    }

private:
    QByteArray piece()
    {
        switch (m_engine() % 6) {
        case 0:
            return QByteArray(1, static_cast<char>(m_engine()));
        case 1:
            return QByteArray(1, "\\:*?"[m_engine() % 4]);
        case 2: // of the ranges that the two forms use
            return QString(QChar(static_cast<char16_t>(0xEF00 + m_engine() % 0x200))).toUtf8();
        case 3:
            return QString(QChar(static_cast<char16_t>(0x80 + m_engine() % 0xD000))).toUtf8();
        case 4: {
            const char32_t character = 0x10000 + m_engine() % 0x100000;
            return QString::fromUcs4(&character, 1).toUtf8().left(1 + static_cast<int>(m_engine() % 4));
        }
        default:
            return QByteArrayLiteral("Sange");
        }
    }

    std::mt19937 m_engine{20240229};
};

} // namespace

TEST(FileNameText, plainNamesStayAsTheyAre)
{
    EXPECT_EQ(filenametext::toText("Track 01 - (live) [x]'\"\n\t.mp3"),
              QStringLiteral("Track 01 - (live) [x]'\"\n\t.mp3"));
    EXPECT_EQ(filenametext::toText("Sj\xC3\270en \xE2\x82\xAC \xF0\x9D\x84\x9E"),
              QStringLiteral("Sjøen € 𝄞"));
    EXPECT_EQ(filenametext::toBytes(u"Sjøen € 𝄞"), "Sj\xC3\270en \xE2\x82\xAC \xF0\x9D\x84\x9E");
    EXPECT_EQ(filenametext::toText({}), QString());
    EXPECT_EQ(filenametext::toBytes({}), QByteArray());
}

TEST(FileNameText, aByteThatIsNoUtf8BecomesAPrivateCharacter)
{
    EXPECT_EQ(filenametext::toText("Sj\370en"), QStringLiteral("Sj\uEFF8en"));
    EXPECT_EQ(filenametext::toBytes(u"Sj\uEFF8en"), "Sj\370en");
}

TEST(FileNameText, pathAndPatternCharactersInsideANameAreMovedAway)
{
    EXPECT_EQ(filenametext::toText("a\\b:c*d?"), QStringLiteral("a\uF05Cb\uF03Ac\uF02Ad\uF03F"));
    EXPECT_EQ(bothWays("a\\b:c*d?"), "a\\b:c*d?");
}

TEST(FileNameText, textWithoutTheFormsIsWrittenAsItStands)
{
    EXPECT_EQ(filenametext::toBytes(u"what?*:"), "what?*:");
    EXPECT_EQ(filenametext::toBytes(u"\uEF2F\uF02F"),
              QStringLiteral("\uEF2F\uF02F").toUtf8()); // no slash arises
    EXPECT_EQ(filenametext::toBytes(QString(QChar(0xD800))), "\xEF\xBF\xBD");
}

TEST(FileNameText, realCharactersOfTheTwoFormsAreWrittenByteByByte)
{
    EXPECT_EQ(filenametext::toText("\xEE\xBF\xB8"), QStringLiteral("\uEFEE\uEFBF\uEFB8")); // U+EFF8
    EXPECT_EQ(filenametext::toText("\xEF\x81\x9C"), QStringLiteral("\uEFEF\uEF81\uEF9C")); // U+F05C
    EXPECT_EQ(bothWays("\xEE\xBF\xB8\xEF\x81\x9C"), "\xEE\xBF\xB8\xEF\x81\x9C");
}

TEST(FileNameText, formsThatUtf8ForbidsComeBackAsTheyWere)
{
    const QByteArray forbidden[] = {
        "\xC0\xAF",             // longer than needed
        "\xC1\xBF",             // the same
        "\xE0\x80\xAF",         // the same, three bytes
        "\xF0\x80\x80\xAF",     // the same, four bytes
        "\xED\xA0\x80",         // a surrogate
        "\xF4\x90\x80\x80",     // beyond the last character
        "\xF8\x88\x80\x80\x80", // five bytes
        "\xE2\x82",             // cut short
        "\xE2\202a",            // cut short by a letter
        "\x80",
    };
    for (const QByteArray& name : forbidden) {
        for (const QChar c : filenametext::toText(name))
            EXPECT_TRUE(c == u'a' || (c >= QChar(0xEF80) && c <= QChar(0xEFFF))) << name.toHex().constData();
        EXPECT_EQ(bothWays(name), name);
    }
}

TEST(FileNameText, aByteOrderMarkIsPartOfTheName)
{
    EXPECT_EQ(filenametext::toText("\xEF\xBB\277a"), QStringLiteral("\uFEFFa"));
    EXPECT_EQ(bothWays("\xEF\xBB\277a"), "\xEF\xBB\277a");
    EXPECT_EQ(bothWays("\xEF\xBF\xBF\xEF\xBF\xBD"), "\xEF\xBF\xBF\xEF\xBF\xBD");
}

TEST(FileNameText, everyPlaceOfANameIsLookedAt)
{
    for (int length = 1; length < 70; ++length)
        for (int place = 0; place < length; ++place)
            for (const char odd : {'\\', ':', '*', '?', '\x80', '\xFF'}) {
                QByteArray name(length, 'a');
                name[place] = odd;
                const QString text = filenametext::toText(name);
                ASSERT_GE(text[place].unicode(), 0xEF80);
                ASSERT_EQ(text.count(u'a'), length - 1);
            }
}

TEST(FileNameText, isAppendedAndTellsWhetherItIsUtf8)
{
    QString text = QStringLiteral("D:\\");
    EXPECT_TRUE(filenametext::append(text, "Sj\xC3\270"));
    EXPECT_TRUE(filenametext::append(text, "en:"));
    EXPECT_EQ(text, QStringLiteral("D:\\Sjøen\uF03A"));
    EXPECT_TRUE(filenametext::append(text, "\xEE\xBF\xB8")); // U+EFF8
    EXPECT_TRUE(filenametext::append(text, {}));
    EXPECT_FALSE(filenametext::append(text, "\370a"));
    EXPECT_FALSE(filenametext::append(text, "a\xC3"));
    EXPECT_EQ(text, QStringLiteral("D:\\Sjøen\uF03A\uEFEE\uEFBF\uEFB8\uEFF8aa\uEFC3"));
}

TEST(FileNameText, utf8IsWhatTheToolkitHoldsForIt)
{
    Names names;
    for (int i = 0; i < 200'000; ++i) {
        const QByteArray name = names.next();
        QString text;
        ASSERT_EQ(filenametext::append(text, name), name.isValidUtf8()) << name.toHex().constData();
        ASSERT_EQ(text, filenametext::toText(name));
    }
}

TEST(FileNameText, twoMillionRandomNamesComeBack)
{
    Names names;
    for (int i = 0; i < 2'000'000; ++i) {
        const QByteArray name = names.next();
        const QString text = filenametext::toText(name);
        ASSERT_EQ(filenametext::toBytes(text), name) << name.toHex().constData();
        ASSERT_FALSE(text.contains(u'\\') || text.contains(u':') || text.contains(u'*') ||
                     text.contains(u'?'));
    }
}
