// Makes the controls of the result window and says where they stand.
#include "archive/scan/frmresult.h"

#include "toolkit/grids/flexgrid.h"
#include "toolkit/grids/headinglabels.h"
#include "toolkit/widgets/progresslabel.h"
#include "toolkit/widgets/waitingpages.h"
#include "toolkit/widgets/windowlook.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QListView>
#include <QPushButton>

namespace {

constexpr int kColumns = 7;
constexpr int kFileLines = 5;
constexpr int kRoomRoundReason = 60;

} // namespace

void frmResult::makeControls()
{
    MSFlexGrid1 = named(new FlexGrid(kColumns, centralWidget()), "MSFlexGrid1", tr("Result"));
    MSFlexGrid1->setToolTip(tr("Double Click to edit cell"));
    const std::vector<HeadingLabels::Heading> headings = {
        {"Label1x", tr("DiskName")}, {"Label2", tr("Path")}, {"Label3", tr("Artist")}, {"Label4", tr("Song")},
        {"Label6", tr("Album")},     {"Label7", tr("Year")}, {"Label8", tr("Comment")}};
    QStringList captions;
    for (const HeadingLabels::Heading& heading : headings)
        captions += heading.caption;
    MSFlexGrid1->setHeadings(new HeadingLabels(headings, MSFlexGrid1), captions);
    connect(MSFlexGrid1, &FlexGrid::cellActivated, this,
            [this] { guard([this] { MSFlexGrid1_DblClick(); }); });

    lstfiles = named(new QListView(centralWidget()), "lstfiles", tr("Files found"));
    m_files = new TextTableModel(1, lstfiles);
    lstfiles->setModel(m_files);
    lstfiles->setUniformItemSizes(true);
    lstfiles->setEditTriggers(QAbstractItemView::NoEditTriggers);

    Label1 = named(new ProgressLabel(centralWidget()), "Label1");
    Label5 = named(new ProgressLabel(centralWidget()), "Label5");
    m_waitingPages = named(new WaitingPages(centralWidget()), "waitingPages");
    connect(m_waitingPages->cmdPrintNow, &QPushButton::clicked, this,
            [this] { guard([this] { cmdPrintNow_Click(); }); });
    makeLabels({{lblWaiting, "lblWaiting", {}}});
    lblWaiting->hide();
    makeLabels({{lblEmpty, "lblEmpty", {}}, {lblNote, "lblNote", {}}});
    for (QLabel* label : {lblEmpty, lblNote}) {
        label->setWordWrap(true);
        label->hide();
    }
    makeButtons({
        {Command1,
         "Command1",
         tr("Command1"),
         tr("Scan again, into the same list"),
         [this] { Command1_Click(); },
         {}},
        {cmd_Print, "cmd_Print", tr("&Print"), tr("Print the list"), [this] { cmd_Print_Click(); },
         QStringLiteral("print")},
        {cmdPreview, "cmdPreview", tr("Print Pre&view..."),
         tr("Show the list as pages, to print or export it"), [this] { m_preview->show(); },
         QStringLiteral("preview")},
        {cmdUpdate, "cmdUpdate", tr("&Update"), tr("Insert all rows into the database"),
         [this] { cmdUpdate_Click(); }, QStringLiteral("update")},
        {cmdCancel, "cmdCancel", tr("Cancel"), tr("Close without inserting"), [this] { cmdCancel_Click(); },
         QStringLiteral("cancel")},
    });
    setKeys(nullptr, cmdCancel);
}

// It lies over the grid, not in it: what a grid holds besides cells no screen reader is told.
QLayout* frmResult::gridWithReason()
{
    auto* both = new QGridLayout;
    both->addWidget(MSFlexGrid1, 0, 0);
    both->addWidget(lblEmpty, 0, 0);
    lblEmpty->setAlignment(Qt::AlignCenter);
    lblEmpty->setMargin(kRoomRoundReason);
    lblEmpty->setAttribute(Qt::WA_TransparentForMouseEvents);
    lblEmpty->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored);
    return both;
}

void frmResult::place()
{
    lstfiles->setFixedHeight(kFileLines * fontMetrics().height() + 2 * lstfiles->frameWidth());
    auto* column = new QVBoxLayout(centralWidget());
    column->setContentsMargins(12, 12, 12, 12);
    column->setSpacing(8);
    column->addLayout(gridWithReason(), 1);
    column->addWidget(lblNote);
    column->addWidget(Label1);
    column->addWidget(lblWaiting);
    column->addWidget(lstfiles);
    column->addWidget(m_waitingPages);
    auto* bottom = new QHBoxLayout;
    bottom->addWidget(Label5, 1);
    bottom->addLayout(windowlook::commandRow(QList{Command1, cmd_Print, cmdPreview} +
                                             inDesktopOrder(cmdUpdate, cmdCancel)));
    column->addLayout(bottom);
    resize(fittingSize({1330, 680}));
}
