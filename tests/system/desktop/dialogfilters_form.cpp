// Looks at what a file dialog offers, and the ending it gives to a name.
#include "tests/system/desktop/dialogstest.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QElapsedTimer>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

namespace {

const QString kPlaylists = u"MP3 Playlists (*.M3U)|*.M3U|Playlists (*.PLS)|*.PLS"_qs;

class DialogFilters : public DialogsTest {
protected:
    DialogFilters()
    {
        for (const char* name : {"a.m3u", "b.PLS", "c.mp3", "d.Far", "plain", "old.M3U"})
            home.write(QByteArray("disk/") + name, "x");
    }
    void whenOpen(const std::function<void(QFileDialog&)>& answer)
    {
        QTimer::singleShot(0, &context, [answer] {
            auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
            ASSERT_NE(dialog, nullptr);
            answer(*dialog);
        });
    }
    static QComboBox& entries(QFileDialog& dialog)
    {
        return *dialog.findChild<QComboBox*>(u"fileTypeCombo"_qs);
    }
    // Returns the files in view, as soon as there are so many, or what there is after three seconds.
    static std::string offered(QFileDialog& dialog, int count)
    {
        auto* view = dialog.findChild<QAbstractItemView*>(u"listView"_qs);
        QStringList names;
        QElapsedTimer time;
        for (time.start(); names.size() != count && time.elapsed() < 3000;) {
            QTest::qWait(20);
            names.clear();
            for (int row = 0; row < view->model()->rowCount(view->rootIndex()); ++row)
                names += view->model()->index(row, 0, view->rootIndex()).data().toString();
        }
        names.sort();
        return names.join(u' ').toStdString();
    }
    std::optional<QString> save(const QString& filter, const QString& name, int entry = 0)
    {
        whenOpen([=](QFileDialog& dialog) {
            entries(dialog).setCurrentIndex(entry);
            Q_EMIT entries(dialog).activated(entry);
            typeAndAccept(dialog, name);
        });
        return dialogs.saveFile({.title = u"Save"_qs, .directory = u"D:\\"_qs, .filter = filter});
    }
};

} // namespace

TEST_F(DialogFilters, showsTheTextsAsTheyAre)
{
    QStringList texts;
    whenOpen([&](QFileDialog& dialog) {
        for (int i = 0; i < entries(dialog).count(); ++i)
            texts += entries(dialog).itemText(i);
        dialog.reject();
    });
    dialogs.openFile({.title = u"Open"_qs, .directory = u"D:\\"_qs, .filter = kPlaylists + u"|Bitmaps|"_qs});
    EXPECT_EQ(texts.join(u'/').toStdString(), "MP3 Playlists (*.M3U)/Playlists (*.PLS)/Bitmaps");
}

TEST_F(DialogFilters, offersTheFilesOfTheChosenEntryWithoutRegardToCase)
{
    const QString filter = u"Lists|*.M3U|Two|*.pls;*.MP?|Modules|*FAR|Every|"_qs;
    std::vector<std::string> seen;
    whenOpen([&](QFileDialog& dialog) {
        const int counts[] = {2, 2, 1, 6};
        for (int i = 0; i < 4; ++i) {
            entries(dialog).setCurrentIndex(i);
            Q_EMIT entries(dialog).activated(i);
            seen.push_back(offered(dialog, counts[i]));
        }
        dialog.reject();
    });
    dialogs.openFile({.title = u"Open"_qs, .directory = u"D:\\"_qs, .filter = filter});
    EXPECT_EQ(seen, (std::vector<std::string>{"a.m3u old.M3U", "b.PLS c.mp3", "d.Far",
                                              "a.m3u b.PLS c.mp3 d.Far old.M3U plain"}));
}

TEST_F(DialogFilters, aNameToSaveGetsTheEndingOfTheEntry)
{
    EXPECT_EQ(save(kPlaylists, u"x"_qs), u"D:\\x.M3U"_qs);
    EXPECT_EQ(save(kPlaylists, u"x.txt"_qs), u"D:\\x.txt"_qs);
    EXPECT_EQ(save(kPlaylists, u"x"_qs, 1), u"D:\\x.PLS"_qs);
    EXPECT_EQ(save(u"Every|*.*"_qs, u"x"_qs), u"D:\\x"_qs);
    EXPECT_EQ(save(u"Modules|*FAR"_qs, u"x"_qs), u"D:\\x"_qs);
}

TEST_F(DialogFilters, tellsWhichEntryWasChosen)
{
    int chosen = -1;
    const auto choose = [&](int entry) {
        whenOpen([this, entry](QFileDialog& dialog) {
            entries(dialog).setCurrentIndex(entry);
            Q_EMIT entries(dialog).activated(entry);
            typeAndAccept(dialog, u"x.txt"_qs);
        });
        dialogs.saveFile(
            {.title = u"Save"_qs, .directory = u"D:\\"_qs, .filter = kPlaylists, .chosenEntry = &chosen});
        return chosen;
    };
    EXPECT_EQ(choose(1), 1);
    EXPECT_EQ(choose(0), 0);
}

TEST_F(DialogFilters, aNameToOpenStaysAsItIs)
{
    whenOpen([](QFileDialog& dialog) { typeAndAccept(dialog, u"plain"_qs); });
    EXPECT_EQ(dialogs.openFile({.title = u"Open"_qs, .directory = u"D:\\"_qs, .filter = kPlaylists}),
              u"D:\\plain"_qs);
}

TEST_F(DialogFilters, asksBeforeItReplacesTheFileWithTheEndingAdded)
{
    QString question;
    whenOpen([&](QFileDialog& dialog) {
        QTimer::singleShot(0, &context, [&] {
            if (auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
                question = box->text();
                box->done(QMessageBox::No);
            }
        });
        typeAndAccept(dialog, u"old"_qs);
        dialog.reject();
    });
    EXPECT_EQ(dialogs.saveFile({.title = u"Save"_qs, .directory = u"D:\\"_qs, .filter = kPlaylists}),
              std::nullopt);
    EXPECT_TRUE(question.contains(u"old.M3U"_qs)) << question.toStdString();
}

TEST_F(DialogFilters, aFolderIsNamedByItsDrive)
{
    home.makeDirectory("disk/Music");
    QString seen;
    whenOpen([&](QFileDialog& dialog) {
        seen = dialog.objectName() + u'|' + dialog.windowTitle();
        dialog.setDirectory(QString::fromUtf8(home.at("disk")));
        typeAndAccept(dialog, QString::fromUtf8(home.at("disk/Music")));
    });
    EXPECT_EQ(dialogs.browseFolder(u"Select it:"_qs), u"D:\\Music"_qs);
    EXPECT_EQ(seen, u"BrowseFolder|Select it:"_qs);
}

TEST_F(DialogFilters, aFileIsNoFolder)
{
    whenOpen([&](QFileDialog& dialog) {
        QTimer::singleShot(0, &context, [] {
            if (auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget()))
                box->reject();
        });
        typeAndAccept(dialog, QString::fromUtf8(home.at("disk/plain")));
        dialog.reject();
    });
    EXPECT_EQ(dialogs.browseFolder(u"Select it:"_qs), std::nullopt);
}

TEST_F(DialogFilters, aCancelledFolderIsNoAnswer)
{
    whenOpen([](QFileDialog& dialog) { dialog.reject(); });
    EXPECT_EQ(dialogs.browseFolder(u"Select it:"_qs), std::nullopt);
    program.end(0);
    EXPECT_EQ(dialogs.browseFolder(u"Select it:"_qs), std::nullopt);
}
