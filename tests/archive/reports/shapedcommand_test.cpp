#include "archive/reports/shapedcommand.h"

#include "base/runtimeerror.h"

#include <gtest/gtest.h>

namespace {

// What the error says; empty when there is none.
QString refusalOf(const QString& text)
{
    try {
        parseShapedCommand(text);
        return {};
    } catch (const RunTimeError& error) {
        EXPECT_EQ(error.number(), kStatementError);
        return error.text();
    }
}

} // namespace

TEST(ShapedCommand, isTakenApart)
{
    const ShapedCommand command = parseShapedCommand(
        u"SHAPE {SELECT * FROM `MP3`}  AS FullListe COMPUTE FullListe BY 'fldVolum','fldPath'"_qs);
    EXPECT_EQ(command.statement, u"SELECT * FROM `MP3`");
    EXPECT_EQ(command.children, u"FullListe");
    EXPECT_EQ(command.by, (QStringList{u"fldVolum"_qs, u"fldPath"_qs}));
}

TEST(ShapedCommand, namesStandBareOrInQuotesAndCaseDoesNotCount)
{
    const ShapedCommand command =
        parseShapedCommand(u" shape{ select 1 }as[a list]compute\"A LIST\"by x , `y z`\n;"_qs);
    EXPECT_EQ(command.statement, u"select 1");
    EXPECT_EQ(command.children, u"a list");
    EXPECT_EQ(command.by, (QStringList{u"x"_qs, u"y z"_qs}));
}

TEST(ShapedCommand, aBraceInATextOfTheStatementIsNone)
{
    const QString statement = u"select '}' as \"{\" /* } */ from [}] -- }\n"_qs;
    EXPECT_EQ(parseShapedCommand(u"SHAPE {%1} AS c COMPUTE c BY x"_qs.arg(statement)).statement,
              statement.trimmed());
    EXPECT_EQ(parseShapedCommand(u"SHAPE {{a}{b}} AS c COMPUTE c BY x"_qs).statement, u"{a}{b}");
}

TEST(ShapedCommand, isToldByItsFirstWord)
{
    EXPECT_TRUE(isShapedCommand(u" shape"_qs));
    EXPECT_TRUE(isShapedCommand(u"/* ? */SHAPE{"_qs));
    for (const QString& other : {u""_qs, u"SELECT 1"_qs, u"'SHAPE'"_qs, u"SHAPES {"_qs})
        EXPECT_FALSE(isShapedCommand(other)) << other.toStdString();
}

TEST(ShapedCommand, theRefusalSaysWhatIsWrong)
{
    EXPECT_EQ(refusalOf(u"SHAPE {SELECT 1} AS a COMPUTE b BY x"_qs),
              u"The statement is not valid: a is expected, not b");
    EXPECT_EQ(refusalOf(u"SHAPE {SELECT 1"_qs),
              u"The statement is not valid: } is expected, not the end of the command");
    EXPECT_EQ(refusalOf(u"SHAPE {SELECT 1} AS a COMPUTE a BY x DROP"_qs),
              u"The statement is not valid: nothing can stand behind the columns, but there is DROP");
}

TEST(ShapedCommand, anythingElseIsRefused)
{
    const QString deep = QString(100'000, u'{');
    for (const QString& text : {u""_qs,
                                u"SELECT 1"_qs,
                                u"SHAPE"_qs,
                                u"SHAPE SELECT 1"_qs,
                                u"SHAPE {}  AS a COMPUTE a BY x"_qs,
                                u"SHAPE { \n} AS a COMPUTE a BY x"_qs,
                                u"SHAPE {SELECT '} AS a COMPUTE a BY x"_qs,
                                u"SHAPE {SELECT 1}} AS a COMPUTE a BY x"_qs,
                                u"SHAPE {{SELECT 1} AS a COMPUTE a BY x"_qs,
                                u"SHAPE {SELECT 1} a COMPUTE a BY x"_qs,
                                u"SHAPE {SELECT 1} AS COMPUTE a BY x"_qs,
                                u"SHAPE {SELECT 1} AS a COMPUTE a"_qs,
                                u"SHAPE {SELECT 1} AS a COMPUTE a BY"_qs,
                                u"SHAPE {SELECT 1} AS a COMPUTE a BY x,"_qs,
                                u"SHAPE {SELECT 1} AS a COMPUTE a BY ,x"_qs,
                                u"SHAPE {SELECT 1} AS a COMPUTE a BY ''"_qs,
                                u"SHAPE {SELECT 1} AS a COMPUTE a BY 'x"_qs,
                                u"SHAPE {SELECT 1} AS a COMPUTE a BY 'x''y'"_qs,
                                u"SHAPE {SELECT 1} AS a COMPUTE a BY 'x'''"_qs,
                                u"SHAPE {SELECT 1} AS a COMPUTE a BY 1"_qs,
                                u"SHAPE {SELECT 1} AS a COMPUTE a BY x; DROP TABLE MP3"_qs,
                                u"SHAPE {SELECT 1} AS a COMPUTE a, SUM(a.x) BY x"_qs,
                                u"SHAPE {SELECT 1} AS a COMPUTE a BY x y"_qs,
                                u"SHAPE {SELECT 1} AS a COMPUTE a BY x"_qs + QChar(0),
                                u"SHAPE "_qs + deep,
                                u"SHAPE {SELECT 1} AS a COMPUTE a BY "_qs + deep})
        EXPECT_FALSE(refusalOf(text).isEmpty()) << text.left(80).toStdString();
}
