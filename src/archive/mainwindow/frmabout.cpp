#include "archive/mainwindow/frmabout.h"

#include "archive/mainwindow/keyvaluetext.h"
#include "platform/dialogs.h"
#include "platform/launcher.h"
#include "platform/program.h"
#include "toolkit/widgets/linklabel.h"
#include "toolkit/widgets/picture.h"
#include "toolkit/widgets/windowlook.h"

#include <QGridLayout>
#include <QLabel>
#include <QPushButton>

namespace {

const QString kHomePage = QStringLiteral("https://songbin.example/");
constexpr int kPictureSize = 128;

} // namespace

frmAbout::frmAbout(ArchiveContext& context)
    : Form(context.platform.dialogs, context.platform.program, "frmAbout", {}), m_context(context)
{
    makeLabels({
        {lblTitle, "lblTitle", {}},
        {lblVersion, "lblVersion", {}},
        {lblDescription, "lblDescription",
         tr("Songbin is a program for archiving your disks containing MP3 music. For more info about this "
            "product you can visit Songbin's homepage:")},
    });
    Label1 = named(new LinkLabel(kHomePage, centralWidget()), "Label1");
    Label1->setToolTip(tr("Open the home page"));
    connect(Label1, &LinkLabel::clicked, this, [this] { guard([this] { Label1_Click(); }); });
    makeButtons({
        {cmdSysInfo,
         "cmdSysInfo",
         tr("&System Info..."),
         {},
         [this] { cmdSysInfo_Click(); },
         QStringLiteral("sysinfo")},
        {cmdOK, "cmdOK", tr("OK"), {}, [this] { cmdOK_Click(); }, QStringLiteral("ok")},
    });
    setKeys(cmdOK, cmdOK);
    makeDialog();
    place();
}

void frmAbout::place()
{
    windowlook::makeHeading(*lblTitle, 1.8);
    lblDescription->setWordWrap(true);
    auto* picture =
        named(new Picture(QStringLiteral(":/pictures/about.svg"), kPictureSize, centralWidget()), "picIcon");

    auto* grid = new QGridLayout(centralWidget());
    grid->setContentsMargins(20, 20, 20, 16);
    grid->setHorizontalSpacing(20);
    grid->setVerticalSpacing(6);
    grid->addWidget(picture, 0, 0, 5, 1, Qt::AlignTop);
    grid->addWidget(lblTitle, 0, 1);
    grid->addWidget(lblVersion, 1, 1);
    grid->addWidget(lblDescription, 2, 1);
    grid->addWidget(Label1, 3, 1, Qt::AlignLeft);
    grid->setRowStretch(4, 1);
    grid->setColumnStretch(1, 1);
    grid->addLayout(windowlook::answerRow({cmdSysInfo, cmdOK}), 5, 0, 1, 2);
}

void frmAbout::Form_Load()
{
    setWindowTitle(tr("About ") + program().title());
    lblVersion->setText(tr("Version ") + program().version());
    lblTitle->setText(program().title());
    resizeFor({480, 220});
    cmdOK->setFocus();
}

void frmAbout::Label1_Click()
{
    m_context.platform.launcher.open(Label1->text());
}

void frmAbout::cmdOK_Click()
{
    unload();
}

void frmAbout::cmdSysInfo_Click()
{
    StartSysInfo();
}

void frmAbout::StartSysInfo()
{
    const std::optional<QString> tool =
        findSystemInformation(m_context.platform.registry, m_context.platform.files);
    try {
        if (tool)
            return m_context.platform.launcher.start(*tool);
    } catch (const RunTimeError&) { // it is gone: as good as none
    }
    dialogs().message({.text = tr("System Information Is Unavailable At This Time")});
}
