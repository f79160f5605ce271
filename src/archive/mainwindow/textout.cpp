#include "archive/mainwindow/textout.h"

#include "base/dospath.h"
#include "base/filenametext.h"
#include "platform/printer.h"
#include "toolkit/richtext/richtextbox.h"
#include "toolkit/widgets/waitingpages.h"
#include "toolkit/widgets/windowlook.h"

#include <QHBoxLayout>
#include <QPushButton>

namespace {

constexpr QSize kWindow(720, 600);

} // namespace

Textout::Textout(ArchiveContext& context)
    : Form(context.platform.dialogs, context.platform.program, "Textout", {}), m_context(context)
{
    RTFREG = named(new RichTextBox(context.fileNumbers, context.codePage, centralWidget()), "RTFREG",
                   tr("Text of the file"));
    connect(RTFREG, &RichTextBox::fileNameChanged, this, [this] { showFileName(); });
    makeButtons({
        {cmdPrint, "cmdPrint", tr("Print"), tr("Print the whole text (Ctrl+P)"), [this] { cmdPrint_Click(); },
         QStringLiteral("print")},
        {cmdOK, "cmdOK", tr("&Close"), {}, [this] { cmdOK_Click(); }, QStringLiteral("close")},
    });
    cmdPrint->setShortcut(QKeySequence::Print);
    m_waitingPages = named(new WaitingPages(centralWidget()), "waitingPages");
    connect(m_waitingPages->cmdPrintNow, &QPushButton::clicked, this,
            [this] { guard([this] { cmdPrintNow_Click(); }); });
    setKeys(cmdOK, cmdOK);
    place();
}

void Textout::place()
{
    auto* column = new QVBoxLayout(centralWidget());
    column->setContentsMargins(12, 12, 12, 12);
    column->setSpacing(10);
    column->addWidget(RTFREG, 1);
    column->addWidget(m_waitingPages);
    column->addLayout(windowlook::commandRow({cmdPrint}, {cmdOK}));
}

void Textout::Form_Load()
{
    resizeFor(kWindow);
    showWaitingPages();
    RTFREG->setFocus();
}

void Textout::open(const QString& file)
{
    try {
        RTFREG->setFileName(file);
    } catch (...) {
        if (!isVisible())
            unload();
        throw;
    }
    showForm();
}

// The title's mark for changed documents is a part of some names.
void Textout::showFileName()
{
    const QString name = filenametext::readable(dospath::fileName(RTFREG->fileName()), m_context.codePage);
    setWindowTitle(QString(name).replace(QStringLiteral("[*]"), QStringLiteral("[*][*]")));
}

// Kept: the document stays open, so that what is printed next, here or elsewhere, goes on in it. It waits for
// the program's end, unless somebody wants it now.
void Textout::cmdPrint_Click()
{
    m_context.platform.printer.print(RTFREG->text());
    showWaitingPages();
}

void Textout::cmdPrintNow_Click()
{
    m_context.platform.printer.endDocument();
    showWaitingPages();
}

void Textout::showWaitingPages()
{
    m_waitingPages->setVisible(m_context.platform.printer.hasOpenDocument());
}

void Textout::cmdOK_Click()
{
    unload();
}
