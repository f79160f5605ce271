#include "archive/mainwindow/frmoptions.h"

#include "archive/core/registryaccess.h"
#include "archive/core/settings.h"
#include "toolkit/widgets/windowlook.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

frmOptions::frmOptions(ArchiveContext& context)
    : Form(context.platform.dialogs, context.platform.program, "frmOptions", tr("Options")),
      m_context(context)
{
    chkOwnPlayer =
        named(new QCheckBox(tr("Use your installed MP3 player."), centralWidget()), "chkOwnPlayer");
    makeLabels({
        {Label1, "Label1",
         tr("This option enables you to use an MP3 player you choose instead of the player included in this "
            "program.")},
        {Label2, "Label2",
         tr("It helps when the included player does not work on your computer, or when you like another "
            "player "
            "better.")},
    });
    makeButtons({
        {cmdOK, "cmdOK", tr("OK"), {}, [this] { cmdOK_Click(); }, QStringLiteral("ok")},
        {cmdCancel, "cmdCancel", tr("Cancel"), {}, [this] { cmdCancel_Click(); }, QStringLiteral("cancel")},
    });
    Label1->setWordWrap(true);
    Label2->setWordWrap(true);
    setKeys(cmdOK, cmdCancel);
    makeDialog();

    auto* column = new QVBoxLayout(centralWidget());
    column->setContentsMargins(20, 18, 20, 16);
    column->setSpacing(12);
    column->addWidget(chkOwnPlayer);
    column->addWidget(Label1);
    column->addWidget(Label2);
    column->addStretch(1);
    column->addLayout(windowlook::answerRow(inDesktopOrder(cmdOK, cmdCancel)));
    resizeFor({420, 210});
}

void frmOptions::cmdOK_Click()
{
    SaveRegValue(m_context.platform.registry, RootKey::LocalMachine, settings::kKeyForWriting,
                 settings::kMP3player, kRegSz, chkOwnPlayer->isChecked() ? 1 : 0);
    unload();
}

void frmOptions::cmdCancel_Click()
{
    unload();
}
