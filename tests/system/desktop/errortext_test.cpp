#include "system/desktop/errortext.h"

#include "database/connection/connection.h"
#include "database/cursor/recordset.h"
#include "database/cursor/rowwriter.h"

#include <QDirIterator>
#include <QRegularExpression>

#include <gtest/gtest.h>

#include <map>
#include <set>

namespace {

QString contentOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

// Returns the program's sources; tests run in the directory that holds them.
QStringList sources()
{
    QStringList texts;
    for (QDirIterator files(u"src"_qs, {u"*.cpp"_qs, u"*.h"_qs}, QDir::Files, QDirIterator::Subdirectories);
         files.hasNext();)
        texts += contentOf(files.next());
    return texts;
}

QList<QRegularExpressionMatch> matches(const QString& pattern, const QString& text)
{
    QList<QRegularExpressionMatch> found;
    const QRegularExpression form(pattern);
    for (auto match = form.globalMatch(text); match.hasNext();)
        found += match.next();
    return found;
}

// Returns the names of numbers, those of the enumeration with its name before them.
std::map<QString, int> numbersByName(const QStringList& texts)
{
    std::map<QString, int> numbers;
    for (const QString& text : texts)
        for (const auto& constant : matches(u"constexpr int (k\\w+) = (-?\\d+);"_qs, text))
            numbers[constant.captured(1)] = constant.captured(2).toInt();
    const QString list =
        contentOf(u"src/base/errornumbers.h"_qs).section(u"enum class ErrorNumber"_qs, 1).section(u'}', 0, 0);
    for (const auto& entry : matches(u"(\\w+) = (\\d+),"_qs, list))
        numbers[u"ErrorNumber::"_qs + entry.captured(1)] = entry.captured(2).toInt();
    return numbers;
}

// Returns what stands first in the parentheses of everything that makes an error.
std::set<QString> raisedNames(const QStringList& texts)
{
    std::set<QString> names;
    for (const QString& text : texts)
        for (const auto& made : matches(u"\\b(?:RunTimeError|fail|stopWith)\\(([^,;{]*)"_qs, text))
            for (const auto& name :
                 matches(u"ErrorNumber::\\w+|\\bk[A-Z]\\w+|(?<![\\w.])\\d+"_qs, made.captured(1)))
                names.insert(name.captured());
    return names;
}

} // namespace

TEST(ErrorText, everyNumberThatTheProgramRaisesHasAnAdvice)
{
    const QStringList texts = sources();
    const std::map<QString, int> numbers = numbersByName(texts);
    const std::set<QString> raised = raisedNames(texts);
    ASSERT_GE(raised.size(), 25U);
    for (const QString& name : raised) {
        const bool isNumber = name.front().isDigit();
        ASSERT_TRUE(isNumber || numbers.contains(name)) << name.toStdString();
        const int number = isNumber ? name.toInt() : numbers.at(name);
        EXPECT_FALSE(errortext::advice(number).isEmpty()) << name.toStdString() << ' ' << number;
    }
}

TEST(ErrorText, everyNumberOfTheListHasAnAdviceOfOneSentence)
{
    for (const auto& [name, number] : numbersByName({})) {
        const QString advice = errortext::advice(number);
        EXPECT_TRUE(advice.endsWith(u'.')) << name.toStdString();
        EXPECT_EQ(advice.count(u'.'), 1) << name.toStdString();
    }
    EXPECT_EQ(errortext::advice(12345), QString());
}

TEST(ErrorText, anErrorOfTheRunTimeKeepsItsNumber)
{
    EXPECT_EQ(errortext::ofBox(RunTimeError(ErrorNumber::DiskFull)),
              u"Run-time error '61':\n\nDisk full\n\nMake room on the disk, or choose another place."_qs);
}

TEST(ErrorText, anErrorOfTheArchiveIsToldInWordsAlone)
{
    const QString told = errortext::ofBox(RunTimeError(kNoCurrentRecord, u"There is no current row."_qs));
    EXPECT_TRUE(told.startsWith(u"There is no current row.\n\nGo to a record first"_qs))
        << told.toStdString();
    for (const int number : {kNoCurrentRecord, kBadCriterion, kOperationCancelled, kConnectionError,
                             kStatementError, kRowNotFound, kEmptyRow, kObjectOpen})
        EXPECT_FALSE(errortext::ofBox(RunTimeError(number, u"words"_qs)).contains(u"Run-time"_qs)) << number;
}

TEST(ErrorText, anErrorThatKnowsMoreSaysItInPlaceOfTheUsual)
{
    const RunTimeError error = RunTimeError(ErrorNumber::FileNotFound).withAdvice(u"Do this."_qs);
    EXPECT_EQ(errortext::ofBox(error), u"Run-time error '53':\n\nFile not found\n\nDo this."_qs);
    EXPECT_EQ(errortext::ofBox(StoppingError(error)), errortext::ofBox(error));
}
