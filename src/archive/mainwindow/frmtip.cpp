#include "archive/mainwindow/frmtip.h"

#include "archive/core/settings.h"
#include "archive/core/windows.h"
#include "archive/mainwindow/tips.h"
#include "base/textrules.h"
#include "platform/program.h"
#include "platform/usersettings.h"
#include "toolkit/widgets/picture.h"
#include "toolkit/widgets/windowlook.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QScrollArea>

namespace {

const QString kTipFile = QStringLiteral("TIPOFDAY.TXT");
constexpr int kPictureSize = 72;
constexpr int kLongestShown = 4000; // characters; laying out a file of one endless line takes minutes

} // namespace

frmTip::frmTip(ArchiveContext& context)
    : Form(context.platform.dialogs, context.platform.program, "frmTip", tr("Tip of the Day")),
      m_context(context)
{
    makeLabels({
        {lblHeading, "lblHeading", tr("Did you know...")},
        {lblTipText, "lblTipText", {}},
    });
    chkLoadTipsAtStartup =
        named(new QCheckBox(tr("&Show Tips at Startup"), centralWidget()), "chkLoadTipsAtStartup");
    connect(chkLoadTipsAtStartup, &QCheckBox::clicked, this,
            [this] { guard([this] { chkLoadTipsAtStartup_Click(); }); });
    makeButtons({
        {cmdNextTip,
         "cmdNextTip",
         tr("&Next Tip"),
         {},
         [this] { cmdNextTip_Click(); },
         QStringLiteral("nexttip")},
        {cmdOK, "cmdOK", tr("OK"), {}, [this] { cmdOK_Click(); }, QStringLiteral("ok")},
    });
    setKeys(cmdOK, cmdOK);
    makeDialog();
    place();
}

void frmTip::place()
{
    windowlook::makeHeading(*lblHeading);
    lblTipText->setWordWrap(true);
    lblTipText->setAlignment(Qt::AlignTop | Qt::AlignLeft);
    lblTipText->setTextInteractionFlags(Qt::TextSelectableByMouse);
    auto* picture = new Picture(QStringLiteral(":/pictures/tip.svg"), kPictureSize, centralWidget());
    // A tip of any length can be read: the file is the user's to fill.
    auto* scroll = new QScrollArea(centralWidget());
    scroll->setFrameShape(QFrame::NoFrame);
    scroll->setWidgetResizable(true);
    scroll->setWidget(lblTipText);
    scroll->setFocusPolicy(Qt::NoFocus);

    auto* grid = new QGridLayout(centralWidget());
    grid->setContentsMargins(20, 18, 20, 16);
    grid->setHorizontalSpacing(16);
    grid->setVerticalSpacing(10);
    grid->addWidget(picture, 0, 0, 2, 1, Qt::AlignTop);
    grid->addWidget(lblHeading, 0, 1, 1, 2);
    grid->addWidget(scroll, 1, 1, 1, 2);
    grid->setRowStretch(1, 1);
    grid->setColumnStretch(1, 1);
    grid->addWidget(chkLoadTipsAtStartup, 2, 0, 1, 2);
    grid->addLayout(windowlook::answerRow({cmdNextTip, cmdOK}), 2, 2);
    resizeFor({500, 230});
}

void frmTip::Form_Load()
{
    const QString wanted = m_context.platform.settings.get(
        program().executableName(), settings::kOptionsSection, settings::kShowTips, QStringLiteral("1"));
    if (textrules::val(wanted) == 0) {
        unload();
        return;
    }
    chkLoadTipsAtStartup->setChecked(true);
    program().randomize();
    if (!LoadTips(program().directory() + u'\\' + kTipFile))
        lblTipText->setText(tr("That the ") + kTipFile + tr(" file was not found? ") +
                            QStringLiteral("\r\n\r\n") + tr("Create a text file named ") + kTipFile +
                            tr(" using NotePad with 1 tip per line. ") +
                            tr("Then place it in the same directory as the application. "));
    cmdOK->setFocus();
}

bool frmTip::LoadTips(const QString& file)
{
    const std::optional<QStringList> tips = readTips(m_context.platform.files, file, m_context.codePage);
    if (!tips)
        return false;
    m_tips += *tips;
    cmdNextTip_Click();
    return true;
}

void frmTip::cmdNextTip_Click()
{
    m_current = tipIndex(program().random(), static_cast<int>(m_tips.size()));
    DisplayCurrentTip();
}

void frmTip::DisplayCurrentTip()
{
    if (!m_tips.isEmpty())
        lblTipText->setText(m_tips.at(m_current - 1).left(kLongestShown));
}

void frmTip::chkLoadTipsAtStartup_Click()
{
    m_context.platform.settings.save(
        program().executableName(), settings::kOptionsSection, settings::kShowTips,
        chkLoadTipsAtStartup->isChecked() ? QStringLiteral("1") : QStringLiteral("0"));
}

void frmTip::cmdOK_Click()
{
    unload();
}

void frmTip::Form_Unload()
{
    m_context.windows.show(WindowId::frmMain);
}
