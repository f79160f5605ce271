#include "toolkit/richtext/richtextbox.h"

#include "tests/support/errorof.h"
#include "tests/support/rights.h"
#include "tests/support/world.h"
#include "toolkit/richtext/textdocument.h"

#include <QApplication>
#include <QClipboard>
#include <QElapsedTimer>
#include <QScrollBar>
#include <QTest>
#include <QTextBlock>
#include <QTextFrame>
#include <QWheelEvent>

#include <gtest/gtest.h>

#include <sys/stat.h>

namespace {

struct RichTextBoxTest : testing::Test {
    World world;
    RichTextBox box{world.fileNumbers, world.codePage};

    void load(const QByteArray& content)
    {
        world.directory.write("disk/text", content);
        box.setFileName(u"D:\\text"_qs);
    }
    void show(const QByteArray& content, QSize size = {600, 400})
    {
        load(content);
        box.resize(size);
        box.show();
        QCoreApplication::processEvents();
    }
    int errorOfLoading(const QString& path)
    {
        return errorOf([&] { box.setFileName(path); });
    }
    QTextCharFormat looksAt(int position)
    {
        QTextCursor cursor(box.document());
        cursor.setPosition(position + 1);
        return cursor.charFormat();
    }
    void turnWheel(int steps)
    {
        QWheelEvent turn({10, 10}, box.viewport()->mapToGlobal(QPoint(10, 10)), {}, {0, 120 * steps},
                         Qt::NoButton, Qt::ControlModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(box.viewport(), &turn);
    }
};

} // namespace

TEST_F(RichTextBoxTest, showsAPlainFileAsItIsWritten)
{
    load("one\r\n\t<b>two</b> &amp;\r\n");
    EXPECT_EQ(box.toPlainText(), u"one\n\t<b>two</b> &amp;"_qs);
    EXPECT_EQ(box.text(), box.toPlainText());
    EXPECT_EQ(box.fileName(), u"D:\\text"_qs);
    EXPECT_TRUE(QFontInfo(looksAt(0).font()).fixedPitch());
}

TEST_F(RichTextBoxTest, showsAnRtfFileWithItsLooks)
{
    load("{\\rtf1{\\fonttbl{\\f1\\fmodern x;}}{\\colortbl;\\red255;\\red0\\green0\\blue0;}\\qc\\b b\\b0\\i "
         "i\\i0\\ul u\\ulnone\\fs40 s\\plain\\cf1 r\\cf2 k\\cf0\\f1 f\\f0\\strike t\\strike0\\super p\\par "
         "x}");
    EXPECT_EQ(box.toPlainText(), u"biusrkftp\nx"_qs);
    EXPECT_EQ(looksAt(0).fontWeight(), QFont::Bold);
    EXPECT_TRUE(looksAt(1).fontItalic());
    EXPECT_TRUE(looksAt(2).fontUnderline());
    EXPECT_EQ(looksAt(3).fontPointSize(), 20);
    EXPECT_EQ(looksAt(4).foreground().color(), QColor(Qt::red));
    EXPECT_EQ(looksAt(5).foreground().style(), Qt::NoBrush) << "black is the desktop's colour";
    EXPECT_TRUE(QFontInfo(looksAt(6).font()).fixedPitch());
    EXPECT_TRUE(looksAt(7).fontStrikeOut());
    EXPECT_EQ(looksAt(8).verticalAlignment(), QTextCharFormat::AlignSuperScript);
    EXPECT_EQ(box.document()->firstBlock().blockFormat().alignment(), Qt::AlignHCenter);
    EXPECT_FALSE(QFontInfo(looksAt(0).font()).fixedPitch());
}

TEST_F(RichTextBoxTest, aListsTextBeginsWhereItsNextLineDoes)
{
    show("{\\rtf1\\li720\\fi-360\\bullet\\tab " + QByteArray("word ").repeated(60) + "}");
    const QTextLayout& layout = *box.document()->firstBlock().layout();
    ASSERT_GT(layout.lineCount(), 1);
    const qreal text = layout.lineAt(0).cursorToX(2);
    EXPECT_NEAR(text, layout.lineAt(1).cursorToX(layout.lineAt(1).textStart()), 1);
    EXPECT_LT(layout.lineAt(0).x(), layout.lineAt(1).x());
}

TEST_F(RichTextBoxTest, isReadWithTheKeyboardAndNotChanged)
{
    show("one two");
    EXPECT_TRUE(box.isReadOnly());
    QTest::keyClicks(&box, u"typed"_qs);
    QTest::keyClick(&box, Qt::Key_Delete);
    EXPECT_EQ(box.toPlainText(), u"one two"_qs);
    QTest::keyClick(&box, Qt::Key_Home);
    QTest::keyClick(&box, Qt::Key_Right, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(box.textCursor().selectedText(), u"one "_qs);
    QTest::keyClick(&box, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), u"one "_qs);
}

TEST_F(RichTextBoxTest, anotherFileTakesThePlaceOfTheFirstFromItsBeginning)
{
    show("{\\rtf1\\b\\qc\\li720 one" + QByteArray("\\par x").repeated(200) + "}");
    box.moveCursor(QTextCursor::End);
    EXPECT_GT(box.verticalScrollBar()->value(), 0);
    load(QByteArray("line\n").repeated(300));
    EXPECT_EQ(box.verticalScrollBar()->value(), 0);
    EXPECT_EQ(box.textCursor().position(), 0);
    load("{\\rtf1 two}");
    EXPECT_EQ(box.toPlainText(), u"two"_qs);
    EXPECT_EQ(looksAt(0).fontWeight(), QFont::Normal);
    EXPECT_EQ(box.document()->firstBlock().blockFormat().leftMargin(), 0);
    EXPECT_EQ(box.verticalScrollBar()->value(), 0);
    load("");
    EXPECT_EQ(box.toPlainText(), QString());
    EXPECT_EQ(box.text(), QString());
}

TEST_F(RichTextBoxTest, aFileThatCannotBeReadLeavesWhatIsShown)
{
    load("shown");
    world.directory.makeDirectory("disk/directory");
    world.directory.write("disk/secret", "x");
    chmod(world.directory.at("disk/secret").constData(), 0);
    chmod(world.directory.path().constData(), 0755);
    EXPECT_EQ(errorOfLoading(u"D:\\nothing"_qs), numberOf(ErrorNumber::FileNotFound));
    EXPECT_EQ(errorOfLoading(u"D:\\nowhere\\text"_qs), numberOf(ErrorNumber::PathNotFound));
    EXPECT_EQ(errorOfLoading(u"D:\\directory"_qs), numberOf(ErrorNumber::PathFileAccess));
    {
        const Unprivileged ordinary;
        EXPECT_EQ(errorOfLoading(u"D:\\secret"_qs), numberOf(ErrorNumber::PermissionDenied));
    }
    EXPECT_EQ(box.toPlainText(), u"shown"_qs);
    EXPECT_EQ(box.fileName(), u"D:\\text"_qs);
    EXPECT_EQ(world.fileNumbers.freeFile(), 1) << "no file stays open";
}

TEST_F(RichTextBoxTest, aFileThatIsTooLongIsRefusedAtOnce)
{
    load("shown");
    world.directory.write("disk/long");
    ASSERT_EQ(truncate(world.directory.at("disk/long").constData(), off_t(1) << 40), 0);
    QElapsedTimer clock;
    clock.start();
    EXPECT_EQ(errorOfLoading(u"D:\\long"_qs), numberOf(ErrorNumber::InvalidPropertyValue));
    EXPECT_LT(clock.elapsed(), 1000);
    world.directory.write("disk/long", QByteArray(2'000'001, 'x'));
    EXPECT_EQ(errorOfLoading(u"D:\\long"_qs), numberOf(ErrorNumber::InvalidPropertyValue));
    world.directory.write("disk/long", "{\\rtf1" + QByteArray("\\par").repeated(100'001) + '}');
    EXPECT_EQ(errorOfLoading(u"D:\\long"_qs), numberOf(ErrorNumber::InvalidPropertyValue));
    EXPECT_EQ(box.toPlainText(), u"shown"_qs);
}

TEST_F(RichTextBoxTest, theLongestTextsAreShownInAMoment)
{
    for (const QByteArray& text :
         {QByteArray(1'999'999, 'x'), QByteArray(99'999, '\n'), QByteArray("word ").repeated(399'999),
          "{\\rtf1 " + QByteArray("\\b x\\b0 y").repeated(49'000) + '}',
          "{\\rtf1 " + QByteArray("x\\line ").repeated(300'000) + '}'}) {
        QElapsedTimer clock;
        clock.start();
        show(text);
        box.moveCursor(QTextCursor::End);
        QCoreApplication::processEvents();
        EXPECT_LT(clock.elapsed(), 20'000) << text.left(20).constData();
    }
}

TEST_F(RichTextBoxTest, anEndlessLineIsWholeAsText)
{
    load(QByteArray(10'000, 'x') + "\ny");
    EXPECT_EQ(box.text(), QString(10'000, u'x') + u"\ny"_qs);
    EXPECT_EQ(box.document()->blockCount(), 6);
}

TEST_F(RichTextBoxTest, whatADocumentTakesForItsOwnIsABlank)
{
    load(QByteArray("a\0b\x0C", 4) + u"c\uFDD0d\uFDD1e\u2029f\uFFFCg"_qs.toUtf8());
    EXPECT_EQ(box.toPlainText(), u"a b c d e f g"_qs);
    EXPECT_EQ(box.document()->blockCount(), 1);
    EXPECT_TRUE(box.document()->rootFrame()->childFrames().isEmpty());
}

TEST_F(RichTextBoxTest, ctrlAndTheWheelOrAKeyMakeTheLettersLarger)
{
    show(QByteArray("line\n").repeated(300));
    const qreal usual = looksAt(0).fontPointSize();
    turnWheel(1);
    EXPECT_NEAR(looksAt(0).fontPointSize(), usual * 1.1, 0.01);
    QTest::keyClick(&box, Qt::Key_Plus, Qt::ControlModifier);
    EXPECT_NEAR(looksAt(0).fontPointSize(), usual * 1.21, 0.01);
    QTest::keyClick(&box, Qt::Key_Equal, Qt::ControlModifier);
    QTest::keyClick(&box, Qt::Key_Minus, Qt::ControlModifier);
    turnWheel(-1);
    EXPECT_NEAR(looksAt(0).fontPointSize(), usual * 1.1, 0.01);
    QTest::keyClick(&box, Qt::Key_0, Qt::ControlModifier);
    EXPECT_NEAR(looksAt(0).fontPointSize(), usual, 0.01);
    turnWheel(1000);
    EXPECT_EQ(box.zoom(), 5);
    turnWheel(-1000);
    EXPECT_EQ(box.zoom(), 0.5);
}

TEST_F(RichTextBoxTest, largerLettersStayAtTheirPlace)
{
    show(QByteArray("line\n").repeated(300));
    QScrollBar& bar = *box.verticalScrollBar();
    bar.setValue(bar.maximum() / 2);
    turnWheel(3);
    EXPECT_NEAR(static_cast<double>(bar.value()) / bar.maximum(), 0.5, 0.05);
    bar.setValue(bar.maximum());
    load("{\\rtf1 x}");
    EXPECT_NEAR(box.zoom(), 1.331, 0.001) << "the next file has them, too";
}

TEST_F(RichTextBoxTest, linesAreNoLongerThanCanBeRead)
{
    show(QByteArray("word ").repeated(500), {2000, 400});
    const QTextLine line = box.document()->firstBlock().layout()->lineAt(0);
    EXPECT_GE(line.textLength(), 75);
    EXPECT_LE(line.textLength(), 85);
    const QTextFrameFormat place = box.document()->rootFrame()->frameFormat();
    EXPECT_EQ(place.leftMargin(), place.rightMargin()) << "in the middle";
    box.resize(300, 400);
    QCoreApplication::processEvents();
    EXPECT_EQ(box.document()->rootFrame()->frameFormat().leftMargin(), 20);
    EXPECT_EQ(box.horizontalScrollBar()->maximum(), 0);
}

TEST_F(RichTextBoxTest, tabsOfAPlainFileAreEightCharactersWide)
{
    show("1234567\tx\n12345678x\n");
    const auto placeOf = [&](int line, int column) {
        return box.document()->findBlockByNumber(line).layout()->lineAt(0).cursorToX(column);
    };
    EXPECT_NEAR(placeOf(0, 8), placeOf(1, 8), 1);
    turnWheel(4);
    QCoreApplication::processEvents();
    EXPECT_NEAR(placeOf(0, 8), placeOf(1, 8), 1);
}

TEST_F(RichTextBoxTest, followsTheDesktopsLetters)
{
    show("text");
    QFont large = box.font();
    large.setPointSizeF(large.pointSizeF() * 2);
    box.setFont(large);
    EXPECT_NEAR(looksAt(0).fontPointSize(), large.pointSizeF(), 0.01);
}
