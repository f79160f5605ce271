#include "archive/browse/searchform.h"

#include "tests/support/find.h"
#include "tests/support/world.h"
#include "toolkit/widgets/choicebox.h"

#include <QAbstractItemView>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QRadioButton>

#include <gtest/gtest.h>

namespace {

struct SearchFormTest : testing::Test {
    World world;
    int resultsShown = 0;
    QPointer<SearchForm> form = new SearchForm(world.context, [this] { ++resultsShown; });

    SearchFormTest() { form->showForm(); }
    ~SearchFormTest() override { delete form; }

    void choose(const QString& type)
    {
        form->Combo1->setFocus();
        form->Combo1->setCurrentIndex(form->Combo1->findText(type));
        Q_EMIT form->Combo1->activated(form->Combo1->currentIndex());
    }
};

} // namespace

TEST_F(SearchFormTest, opensWithAndAndMp3)
{
    EXPECT_EQ(form->windowTitle(), u"Search criteria");
    EXPECT_TRUE(form->Option1[1]->isChecked());
    EXPECT_FALSE(form->Option1[2]->isChecked());
    EXPECT_EQ(form->Combo1->currentText(), u"MP3");
    EXPECT_EQ(form->Combo1->currentIndex(), -1);
    QStringList types;
    for (int i = 0; i < form->Combo1->count(); ++i)
        types += form->Combo1->itemText(i);
    EXPECT_EQ(types.join(u' '), u"MP3 MP2 WAV MID VQF AAC LQT WMA ASF Custom");
    EXPECT_EQ(form->CustomExt->text(), u"MP3");
    EXPECT_FALSE(form->CustomExt->isVisible());
    EXPECT_FALSE(form->Label13->isVisible());
}

TEST_F(SearchFormTest, everyControlHasItsNameAndCaption)
{
    for (const char* box :
         {"txtArtist", "txtSong", "txtAlbum", "txtYear", "txtComment", "txtVolum", "txtPath"})
        EXPECT_TRUE(find<QLineEdit>(*form, box)->isVisible());
    EXPECT_EQ(find<QRadioButton>(*form, "Option1(1)")->text().remove(u'&'), u"And");
    EXPECT_EQ(find<QRadioButton>(*form, "Option1(2)")->text().remove(u'&'), u"Or");
    EXPECT_EQ(find<QPushButton>(*form, "cmdSearch")->text(), u"Search");
    EXPECT_EQ(find<QPushButton>(*form, "cmdCancel")->text(), u"Cancel");
    QStringList labels;
    for (const QLabel* label : form->findChildren<QLabel*>())
        labels += label->text().remove(u'&');
    for (const char16_t* text :
         {u"Search criteria", u"You may just type a part of a string:", u"Search using boolean expr.:",
          u"Name of Artist:", u"Name of Song:", u"Name of Album:", u"Which year:", u"String in comment:",
          u"Disk volum:", u"Which path:", u"Type of file:", u"Type ext. here:"})
        EXPECT_TRUE(labels.contains(QString::fromUtf16(text))) << QString::fromUtf16(text).toStdString();
}

TEST_F(SearchFormTest, customShowsTheExtensionBoxWithMp3AndTheFocus)
{
    ASSERT_TRUE(QTest::qWaitForWindowActive(form));
    choose(u"WMA"_qs);
    EXPECT_EQ(form->criteria().extension, u"WMA");
    EXPECT_FALSE(form->CustomExt->isVisible());
    choose(u"Custom"_qs);
    EXPECT_EQ(form->CustomExt->text(), u"MP3");
    EXPECT_TRUE(form->CustomExt->isVisible());
    EXPECT_TRUE(form->Label13->isVisible());
    EXPECT_TRUE(form->CustomExt->hasFocus());
    QTest::keyClicks(form->CustomExt, u"ogg"_qs);
    EXPECT_EQ(form->criteria().extension, u"ogg");
    choose(u"AAC"_qs);
    EXPECT_EQ(form->criteria().extension, u"AAC");
    EXPECT_FALSE(form->CustomExt->isVisible());
    EXPECT_FALSE(form->Label13->isVisible());
}

TEST_F(SearchFormTest, aClickOnTheTextOpensTheListAndALetterChooses)
{
    auto* text = form->Combo1->findChild<QLineEdit*>();
    QTest::mouseClick(text, Qt::LeftButton);
    EXPECT_TRUE(form->Combo1->view()->isVisible());
    form->Combo1->hidePopup();
    QTest::keyClick(form->Combo1, Qt::Key_A);
    EXPECT_EQ(form->Combo1->currentText(), u"AAC");
    EXPECT_EQ(form->criteria().extension, u"AAC");
    QTest::keyClicks(form->Combo1, u"zx1"_qs);
    EXPECT_EQ(form->Combo1->currentText(), u"AAC");
}

TEST_F(SearchFormTest, searchShowsTheResultAndStaysOpen)
{
    click(*form, "cmdSearch");
    EXPECT_EQ(resultsShown, 1);
    EXPECT_TRUE(form->isVisible());
    QTest::keyClick(form->txtArtist, Qt::Key_Return);
    QTest::keyClick(form->Option1[2], Qt::Key_Return);
    EXPECT_EQ(resultsShown, 3);
    EXPECT_FALSE(form->Option1[2]->isChecked());
}

TEST_F(SearchFormTest, cancelCloses)
{
    int unloads = 0;
    QObject::connect(form, &Form::unloaded, [&] { ++unloads; });
    click(*form, "cmdCancel");
    EXPECT_EQ(unloads, 1);
    EXPECT_FALSE(form->isVisible());
}

TEST_F(SearchFormTest, escapeCloses)
{
    int unloads = 0;
    QObject::connect(form, &Form::unloaded, [&] { ++unloads; });
    QTest::keyClick(form->txtSong, Qt::Key_Escape);
    EXPECT_EQ(unloads, 1);
}

TEST_F(SearchFormTest, lettersGoRoundThroughTheTypesThatBeginWithThem)
{
    QStringList chosen;
    for (int i = 0; i < 4; ++i) {
        QTest::keyClick(form->Combo1, Qt::Key_M, Qt::NoModifier);
        chosen += form->Combo1->currentText();
    }
    EXPECT_EQ(chosen[0].left(1), u"M");
    EXPECT_NE(chosen[1], chosen[0]);
    EXPECT_EQ(chosen.filter(QRegularExpression(u"^M"_qs)).size(), 4);
}

TEST_F(SearchFormTest, emptyBoxesAreMarkedAndMarkedOnesEmptied)
{
    form->txtArtist->setText(u"beat"_qs);
    form->txtSong->setText(u"¤"_qs);
    form->txtAlbum->setText(u" "_qs);
    form->CustomExt->clear();
    form->markEmptyBoxes();
    EXPECT_EQ(form->txtArtist->text(), u"beat");
    EXPECT_EQ(form->txtAlbum->text(), u" ");
    for (QLineEdit* box : {form->txtSong, form->txtYear, form->txtComment, form->txtVolum, form->txtPath})
        EXPECT_EQ(box->text(), u"¤");
    EXPECT_EQ(form->CustomExt->text(), u"");
    form->CustomExt->setText(u"¤"_qs);
    form->emptyMarkedBoxes();
    for (QLineEdit* box : {form->txtSong, form->txtYear, form->txtComment, form->txtVolum, form->txtPath})
        EXPECT_EQ(box->text(), u"");
    EXPECT_EQ(form->txtArtist->text(), u"beat");
    EXPECT_EQ(form->CustomExt->text(), u"¤");
}

TEST_F(SearchFormTest, aLongCriterionIsNotCutOff)
{
    form->txtArtist->setText(QString(100'000, u'x'));
    EXPECT_EQ(form->criteria().artist.size(), 100'000);
}
