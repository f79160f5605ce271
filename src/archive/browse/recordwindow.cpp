#include "archive/browse/recordwindow.h"

#include "archive/core/archivestore.h"
#include "platform/dialogs.h"
#include "platform/program.h"
#include "toolkit/widgets/picturebutton.h"
#include "toolkit/widgets/recordbar.h"

#include <QLabel>

RecordWindow::RecordWindow(ArchiveContext& context, const char* name, const QString& caption)
    : Form(context.platform.dialogs, context.platform.program, name, caption), m_context(context),
      m_connection(context.platform.drives, &context.store.groups)
{
    setKeyPreview();
    connect(&adoPrimaryRS, &Recordset::moveComplete, this, [this] { adoPrimaryRS_MoveComplete(); });
    for (const auto signal : {&Recordset::rowAdded, &Recordset::rowRemoved})
        connect(&adoPrimaryRS, signal, this, [this] { picStatBox->setTotal(adoPrimaryRS.recordCount()); });
    adoPrimaryRS.willChangeRecord = [this] { return adoPrimaryRS_WillChangeRecord(); };
}

void RecordWindow::makeRecordBar()
{
    picStatBox = named(new RecordBar(centralWidget()), "picStatBox");
    const auto run = [this](PictureButton* button, void (RecordWindow::*handler)()) {
        connect(button, &PictureButton::clicked, this,
                [this, handler] { guard([this, handler] { (this->*handler)(); }); });
    };
    run(picStatBox->cmdFirst, &RecordWindow::cmdFirst_Click);
    run(picStatBox->cmdPrevious, &RecordWindow::cmdPrevious_Click);
    run(picStatBox->cmdNext, &RecordWindow::cmdNext_Click);
    run(picStatBox->cmdLast, &RecordWindow::cmdLast_Click);
}

void RecordWindow::connectToArchive()
{
    m_connection.setCursorLocation(CursorLocation::Client);
    m_connection.open(m_context.store.ownConnectionText());
}

void RecordWindow::explain(const QString& what, const QString& why)
{
    dialogs().message(
        {.text = what + QStringLiteral("\n\n") + why, .title = windowTitle(), .icon = MessageIcon::Warning});
}

void RecordWindow::Form_Unload()
{
    program().setBusyPointer(false);
}

void RecordWindow::Form_Resize()
{
    picStatBox->placeIn(innerSize().width());
}

void RecordWindow::adoPrimaryRS_MoveComplete()
{
    showPosition();
}

// What a search came to is no longer true of where the user has gone.
void RecordWindow::showPosition()
{
    picStatBox->lblStatus->setText(tr("Record: ") + QString::number(adoPrimaryRS.absolutePosition()));
    picStatBox->setFound({});
    picStatBox->setTotal(adoPrimaryRS.recordCount());
}

void RecordWindow::cmdFirst_Click()
{
    navigation::goFirst(adoPrimaryRS);
}

void RecordWindow::cmdLast_Click()
{
    navigation::goLast(adoPrimaryRS);
}

void RecordWindow::cmdNext_Click()
{
    navigation::goNext(adoPrimaryRS, program());
}

void RecordWindow::cmdPrevious_Click()
{
    navigation::goPrevious(adoPrimaryRS, program());
}

void RecordWindow::cmdDelete_Click()
{
    navigation::deleteCurrent(adoPrimaryRS);
}

bool RecordWindow::Form_KeyDown(int keyCode, int shift)
{
    const navigation::Step step = navigation::stepOfKey(keyCode, shift);
    take(step);
    return step != navigation::Step::None;
}

void RecordWindow::take(navigation::Step step)
{
    switch (step) {
    case navigation::Step::Close:
        return cmdClose_Click();
    case navigation::Step::First:
        return cmdFirst_Click();
    case navigation::Step::Previous:
        return cmdPrevious_Click();
    case navigation::Step::Next:
        return cmdNext_Click();
    case navigation::Step::Last:
        return cmdLast_Click();
    case navigation::Step::None:
        return;
    }
}
