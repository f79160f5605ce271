#include "database/connection/connectiontext.h"

#include "base/runtimeerror.h"
#include "database/connection/connection.h"

#include <gtest/gtest.h>

namespace {

QString dataSource(const char16_t* text)
{
    return parseConnectionText(QString::fromUtf16(text)).dataSource;
}

QString failure(const char16_t* text)
{
    try {
        parseConnectionText(QString::fromUtf16(text));
    } catch (const RunTimeError& error) {
        EXPECT_EQ(error.number(), kConnectionError);
        EXPECT_FALSE(error.text().isEmpty());
        return error.text();
    }
    ADD_FAILURE() << "no error";
    return {};
}

} // namespace

TEST(ConnectionText, readsBothFormsThatTheProgramWrites)
{
    EXPECT_EQ(dataSource(u"Provider=Microsoft.Jet.OLEDB.4.0;Persist Security Info=False;"
                         u"Data Source=C:\\Program Files\\Songbin.mdb"),
              QStringLiteral("C:\\Program Files\\Songbin.mdb"));
    EXPECT_EQ(dataSource(u"Provider=Microsoft.Jet.OLEDB.4.0;Data Source=C:\\Bin\\Songbin.mdb;"),
              QStringLiteral("C:\\Bin\\Songbin.mdb"));
}

TEST(ConnectionText, keysAndProviderIgnoreCaseAndBlanks)
{
    EXPECT_EQ(dataSource(u"  DATA source =  Z:\\æøå.mdb ; PROVIDER= microsoft.jet.oledb.4.0 "),
              QStringLiteral("Z:\\æøå.mdb"));
}

TEST(ConnectionText, valuesMayBeQuotedAndHoldSemicolonsAndQuotes)
{
    EXPECT_EQ(dataSource(u"Provider=\"Microsoft.Jet.OLEDB.4.0\";Data Source='D:\\a;b=c''d\"e.mdb' ;"),
              QStringLiteral("D:\\a;b=c'd\"e.mdb"));
    EXPECT_EQ(dataSource(u"Provider=Microsoft.Jet.OLEDB.4.0;Data Source=\"D:\\it's \"\"x\"\"\""),
              QStringLiteral("D:\\it's \"x\""));
}

TEST(ConnectionText, anUnquotedValueMayHoldEqualsSigns)
{
    EXPECT_EQ(dataSource(u"Provider=Microsoft.Jet.OLEDB.4.0;Data Source=D:\\a=b.mdb;"),
              QStringLiteral("D:\\a=b.mdb"));
}

TEST(ConnectionText, theLastOfEqualKeysCountsAndEmptyPartsAreSkipped)
{
    EXPECT_EQ(dataSource(u";;Provider=Other;Data Source=D:\\a;;Data Source=D:\\b;"
                         u"provider=Microsoft.Jet.OLEDB.4.0;;"),
              QStringLiteral("D:\\b"));
}

TEST(ConnectionText, anUnknownOrMissingProviderIsAnError)
{
    EXPECT_TRUE(failure(u"Provider=MSDataShape;Data Source=D:\\a;").contains(QLatin1String("MSDataShape")));
    EXPECT_TRUE(failure(u"Data Source=D:\\a;").contains(QLatin1String("provider")));
    failure(u"");
}

TEST(ConnectionText, aMissingOrEmptyDataSourceIsAnError)
{
    EXPECT_TRUE(failure(u"Provider=Microsoft.Jet.OLEDB.4.0;").contains(QLatin1String("data source")));
    failure(u"Provider=Microsoft.Jet.OLEDB.4.0;Data Source=;");
    failure(u"Provider=Microsoft.Jet.OLEDB.4.0;Data Source='';");
}

TEST(ConnectionText, aTextThatIsNoListOfPairsIsAnError)
{
    EXPECT_TRUE(failure(u"D:\\Songbin.mdb").contains(QLatin1String("Songbin.mdb")));
    failure(u"Provider=Microsoft.Jet.OLEDB.4.0;Data Source='D:\\a");
    failure(u"Provider=Microsoft.Jet.OLEDB.4.0;Data Source='");
    failure(u"Provider=Microsoft.Jet.OLEDB.4.0;Data Source='D:\\a' b;");
}
