// Makes the controls of the main window: what they are called, what they say, and what they run.
#include "archive/mainwindow/frmmain.h"

#include "toolkit/widgets/picturebutton.h"
#include "toolkit/widgets/windowing.h"

#include <QFrame>
#include <QGuiApplication>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QScreen>
#include <QStatusBar>
#include <QTimer>
#include <QToolButton>

#include <algorithm>
#include <climits>

namespace {

constexpr int kBigButtons = 8;
constexpr int kFrameMargin = 8;
constexpr int kGap = 4;
constexpr int kBesideCaption = 16;
constexpr QSize kSmallButton(36, 36);

int frameHeight(const QSize& button)
{
    return button.height() + 2 * kFrameMargin;
}

int leftOfButton(const QSize& button, int index)
{
    return kFrameMargin + index * (button.width() + kGap);
}

QIcon iconOf(const QString& name)
{
    return QIcon(QStringLiteral(":/icons/%1.svg").arg(name));
}

} // namespace

frmMain::Sizes frmMain::sizesForScreen()
{
    const Sizes large{{92, 88}, {48, 48}, {812, 248}, 22, {860, 420}};
    const Sizes small{{72, 60}, {32, 32}, {600, 183}, 14, {660, 322}};
    return fittingSize(large.window) == large.window ? large : small;
}

QSize frmMain::smallestSize() const
{
    const int lastButton = leftOfButton(m_size.button, kBigButtons);
    return {lastButton + fromTwips(650) + kFrameMargin, frameHeight(m_size.button) + 60};
}

void frmMain::makeBigButtons()
{
    Frame1 = named(new QFrame(centralWidget()), "Frame1");
    Frame1->setFrameShape(QFrame::StyledPanel);

    makeBigButton({CmdScn, "CmdScn", tr("Scan"), tr("Scan disk for MP3"), QStringLiteral("scan"),
                   [this] { Scan_Click(); }, offers(WindowId::frmSearch)});
    makeBigButton({CmdSearch, "CmdSearch", tr("Search"), tr("Search/Edit the database"),
                   QStringLiteral("search"), [this] { Search_Click(); }, offers(WindowId::SearchForm)});
    makeBigButton({CmdEdit, "CmdEdit", tr("Browse"), tr("Browse/Edit content of database"),
                   QStringLiteral("edit"), [this] { Edit_Click(); }, offers(WindowId::frmEditor)});
    makeBigButton({CmdFullList, "CmdFullList", tr("Listing"), tr("Make a complete listout"),
                   QStringLiteral("fulllist"), [this] { mnuListe_Click(); }, offers(WindowId::rptListing)});
    makeBigButton({CmdFullRep, "CmdFullRep", tr("Report"), tr("Make a detailed report"),
                   QStringLiteral("fullreport"), [this] { report_Click(); }, offers(WindowId::rptFullListe)});
    makeBigButton({cmdArtistSong, "cmdArtistSong", tr("Artists"),
                   tr("Make report with only Artist and Songname"), QStringLiteral("artistsong"),
                   [this] { mnuArtistSong_Click(); }, offers(WindowId::ArtistSong)});
    makeBigButton({CmdMP3Ply, "CmdMP3Ply", tr("MP3 Player"), tr("Open MP3 Player"), QStringLiteral("player"),
                   [this] { mnyMP3Player_Click(); }, true});
    makeBigButton({cmdWEB, "cmdWEB", tr("Home page"), tr("Go to Brightmoor homepage"), QStringLiteral("web"),
                   [this] { mnuHomePage_Click(); }, true});
    sizeBigButtons();
    placeBigButtons();
}

// They are as wide as the longest caption wants in the desktop's font; where the screen has no room for that,
// the letters become smaller.
void frmMain::sizeBigButtons()
{
    const QFontMetrics metrics = CmdScn->fontMetrics();
    int caption = 0;
    for (const auto& [button, icon] : m_icons)
        caption = std::max(caption, metrics.horizontalAdvance(button->text()));
    const int besides = smallestSize().width() - kBigButtons * m_size.button.width();
    const int room = (fittingSize({INT_MAX, INT_MAX}).width() - besides) / kBigButtons;
    const int width = std::min(std::max(m_size.button.width(), caption + kBesideCaption), room);
    if (caption + kBesideCaption > width)
        shrinkCaptions(static_cast<qreal>(width - kBesideCaption) / caption);
    m_size.button = {
        width, std::max(m_size.button.height(), m_size.icon.height() + metrics.height() + kBesideCaption)};
    m_size.window = m_size.window.expandedTo({smallestSize().width(), 0});
}

void frmMain::shrinkCaptions(qreal factor)
{
    for (const auto& [button, icon] : m_icons) {
        QFont font = button->font();
        font.setPointSizeF(font.pointSizeF() * factor);
        button->setFont(font);
    }
}

// They are placed by hand: they stay where they are however narrow the window becomes.
void frmMain::placeBigButtons()
{
    Frame1->setGeometry(fromTwips(50), fromTwips(50), 0, frameHeight(m_size.button));
    for (std::size_t i = 0; i < m_icons.size(); ++i)
        m_icons[i].first->setGeometry(
            QRect(QPoint(leftOfButton(m_size.button, static_cast<int>(i)), kFrameMargin), m_size.button));
}

void frmMain::makeBigButton(const BigButton& row)
{
    row.member = named(new QToolButton(Frame1), row.name, row.toolTip);
    row.member->setText(row.caption);
    row.member->setToolTip(row.toolTip);
    m_icons.emplace_back(row.member, row.icon);
    row.member->setIconSize(m_size.icon);
    row.member->setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
    row.member->setAutoRaise(true);
    row.member->setFocusPolicy(Qt::StrongFocus);
    row.member->setEnabled(row.offered);
    connect(row.member, &QToolButton::clicked, this, [this, handler = row.handler] { guard(handler); });
}

void frmMain::makeCommand1()
{
    Command1 = named(new QToolButton(centralWidget()), "Command1", tr("Quit Songbin"));
    Command1->setToolTip(tr("Quit Songbin"));
    m_icons.emplace_back(Command1, QStringLiteral("quit"));
    Command1->setIconSize(kSmallButton - QSize(12, 12));
    Command1->setAutoRaise(true);
    Command1->setFocusPolicy(Qt::StrongFocus);
    Command1->setGeometry(QRect(QPoint(0, fromTwips(50) + kFrameMargin), kSmallButton));
    connect(Command1, &QToolButton::clicked, this, [this] { guard([this] { Exit_Click(); }); });
}

// Pictures are made once the window stands on the screen, so that it does not wait for its pictures.
void frmMain::drawIcons()
{
    for (const auto& [button, icon] : m_icons)
        button->setIcon(iconOf(icon));
    m_icons.clear();
}

void frmMain::paintEvent(QPaintEvent* event)
{
    QMainWindow::paintEvent(event);
    if (!m_icons.empty())
        QTimer::singleShot(0, this, [this] { drawIcons(); });
}

void frmMain::makePicture()
{
    Image1 = named(new PictureButton(QStringLiteral(":/pictures/player.svg"), centralWidget()), "Image1",
                   tr("Open the Tonedeck player"));
    Image1->setGeometry(QRect(QPoint((fittingSize(m_size.window).width() - m_size.picture.width()) / 2,
                                     frameHeight(m_size.button) + m_size.abovePicture),
                              m_size.picture));
    Image1->setEnabled(offers(WindowId::frmTonedeck));
    connect(Image1, &PictureButton::clicked, this, [this] { guard([this] { Image1_Click(); }); });
}

// It stands in a bar of its own, by which the window grows: it covers nothing, and a narrow window does not
// have to be as wide as its text, which is whole in its tip.
void frmMain::showNotice(const QString& text)
{
    lblNotice = named(new QLabel(text, this), "lblNotice");
    lblNotice->setTextFormat(Qt::PlainText);
    lblNotice->setToolTip(text);
    lblNotice->setMinimumWidth(1);
    lblNotice->setContentsMargins(kFrameMargin, 0, 0, kFrameMargin);
    statusBar()->addWidget(lblNotice, 1);
    statusBar()->setSizeGripEnabled(false);
    if (windowState() == Qt::WindowNoState)
        resize(fittingSize(size() + QSize(0, statusBar()->sizeHint().height())));
}

void frmMain::makeMenus()
{
    QMenu* program = makeMenu(nullptr, "Program", tr("&Program"));
    addEntry(program, {"Exit", tr("&Exit"), [this] { Exit_Click(); }});
    addEntry(program, {"mnyMP3Player", tr("&MP3 Player"), [this] { mnyMP3Player_Click(); }});

    QMenu* database = makeMenu(nullptr, "DataBase", tr("&MP3 Database"));
    addEntry(database,
             {"Scan", tr("&Scan disk/CD for MP3's"), [this] { Scan_Click(); }, offers(WindowId::frmSearch)});
    addEntry(database,
             {"Edit", tr("Browse/Edit Database"), [this] { Edit_Click(); }, offers(WindowId::frmEditor)});
    addEntry(database, {"Search", tr("Sea&rch/Edit database"), [this] { Search_Click(); },
                        offers(WindowId::SearchForm)});

    QMenu* reports = makeMenu(nullptr, "mnuReports", tr("&Reports"));
    addEntry(reports,
             {"mnuListe", tr("F&ull ListOut"), [this] { mnuListe_Click(); }, offers(WindowId::rptListing)});
    addEntry(reports, {"mnuArtistSong", tr("&List of Artists/Songs"), [this] { mnuArtistSong_Click(); },
                       offers(WindowId::ArtistSong)});
    addEntry(reports,
             {"report", tr("&Full report"), [this] { report_Click(); }, offers(WindowId::rptFullListe)});

    QMenu* tools = makeMenu(nullptr, "mnyTools", tr("&Tools"));
    addEntry(tools,
             {"mnuOptions", tr("&Options..."), [this] { mnuOptions_Click(); }, offers(WindowId::frmOptions)});
    mnuTipSh = addEntry(tools, {"mnuTipSh", tr("S&how Tip Of The Day"), [this] { mnuTipSh_Click(); }});
    mnuTipSh->setCheckable(true);
    addSeparator(tools, "mnuSpace1");
    QMenu* backup = makeMenu(tools, "mnuBck", tr("&Backup"));
    addEntry(backup, {"mnuBackup", tr("&Make a backup of your database"), [this] { mnuBackup_Click(); }});
    addEntry(backup,
             {"mnuRestore", tr("&Restore your database from a backupfile"), [this] { mnuRestore_Click(); }});

    QMenu* help = makeMenu(nullptr, "mnuHelp", tr("&Help"));
    addEntry(help, {"mnuUpdateHist", tr("U&pdate History"), [this] { mnuUpdateHist_Click(); },
                    offers(WindowId::Textout)});
    addEntry(help, {"mnuUpdates", tr("&Updates to come"), [this] { mnuUpdates_Click(); },
                    offers(WindowId::Textout)});
    addEntry(help, {"mnuHomePage", tr("Visit homepage"), [this] { mnuHomePage_Click(); }});
    addSeparator(help, "mnuSpace");
    addEntry(help, {"mnuAbout", tr("&About"), [this] { mnuAbout_Click(); }, offers(WindowId::frmAbout)});
}

bool frmMain::offers(WindowId window) const
{
    return m_context.windows.offers(window);
}

QMenu* frmMain::makeMenu(QMenu* parent, const char* name, const QString& caption)
{
    QMenu* menu = parent ? parent->addMenu(caption) : menuBar()->addMenu(caption);
    menu->setObjectName(QLatin1String(name));
    menu->menuAction()->setObjectName(QLatin1String(name));
    return menu;
}

QAction* frmMain::addEntry(QMenu* menu, const Entry& row)
{
    QAction* action = menu->addAction(row.caption);
    action->setObjectName(QLatin1String(row.name));
    action->setEnabled(row.offered);
    connect(action, &QAction::triggered, this, [this, handler = row.handler] { guard(handler); });
    return action;
}

void frmMain::addSeparator(QMenu* menu, const char* name)
{
    menu->addSeparator()->setObjectName(QLatin1String(name));
}
