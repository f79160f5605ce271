// A preview window over rows of a test, with the printer and the questions faked and real files.
#pragma once

#include "toolkit/pages/previewform.h"

#include "tests/support/find.h"
#include "tests/support/world.h"
#include "toolkit/pages/findbar.h"
#include "toolkit/pages/pageview.h"
#include "toolkit/pages/reportrows.h"
#include "toolkit/pages/workbar.h"
#include "toolkit/pages/zoombox.h"

#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QPointer>
#include <QProgressBar>
#include <QPushButton>
#include <QToolButton>

#include <gtest/gtest.h>

class TestRows : public ReportRows {
public:
    explicit TestRows(std::vector<QByteArrayList> rows) : m_rows(std::move(rows)) {}

    int count() const override { return static_cast<int>(m_rows.size()); }
    Cell cell(int row, int column) const override
    {
        ++asked;
        return QByteArrayView(m_rows[static_cast<std::size_t>(row)][column]);
    }
    bool beginsGroup(int) const override { return false; }
    QStringList bookmarks(int) const override { return {}; }

    mutable int asked = 0; // for cells

private:
    std::vector<QByteArrayList> m_rows;
};

class TestPreview : public PreviewForm {
public:
    using Read = std::function<std::unique_ptr<ReportRows>()>;

    TestPreview(const PreviewSeams& seams, ReportDesign design, Read read)
        : PreviewForm(seams, std::move(design)), m_read(std::move(read))
    {
    }

    void closeNow() { unload(); }

protected:
    std::unique_ptr<ReportRows> readRows() override { return m_read(); }

private:
    Read m_read;
};

inline ReportDesign twoColumnDesign()
{
    ReportDesign design{.name = u"rptTest"_qs,
                        .title = u"Songs"_qs,
                        .caption = u"All songs"_qs,
                        .hint = u"No records. Do something first."_qs,
                        .columns = {u"fldArtist"_qs, u"fldSong"_qs},
                        .listed = {0, 1}};
    const auto strip = [](auto... fields) { return ReportStrip{.fields = {fields...}}; };
    design.detail = {strip(ReportField{.name = u"txtfldArtist"_qs, .width = 480, .column = 0},
                           ReportField{.name = u"txtfldSong"_qs, .left = 500, .width = 500, .column = 1})};
    return design;
}

struct PreviewTest : testing::Test {
    World world;
    PreviewSeams seams{world.dialogs, world.program, world.files, world.printer};
    std::vector<QByteArrayList> rows;
    const TestRows* lastRead = nullptr;
    std::function<void()> onRead;
    ReportDesign design = twoColumnDesign();
    QPointer<TestPreview> form;
    QLocale usual;

    PreviewTest() { QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates)); }
    ~PreviewTest() override
    {
        delete form;
        QLocale::setDefault(usual);
    }

    void addNumbered(int count)
    {
        for (int i = 1; i <= count; ++i)
            rows.push_back({"Artist " + QByteArray::number(i), "Song " + QByteArray::number(i)});
    }
    TestPreview* open()
    {
        form = new TestPreview(seams, design, [this] {
            if (onRead)
                onRead();
            auto read = std::make_unique<TestRows>(rows);
            lastRead = read.get();
            return read;
        });
        form->showForm();
        QCoreApplication::processEvents();
        return form;
    }
    TestPreview* open(int count)
    {
        addNumbered(count);
        return open();
    }
    // The window is gone, or not to be seen any more.
    bool isGone()
    {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        return !form;
    }
    int pages() const { return form->pageView->layout()->pages(); }
    int page() const { return form->pageView->page(); }
    QString status() const { return form->lblStatus->text(); }
    void key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QWidget* focused = form->focusWidget();
        QTest::keyClick(focused ? focused : form.data(), key, modifiers);
    }
    void type(const QString& text) { QTest::keyClicks(form->focusWidget(), text); }
};
