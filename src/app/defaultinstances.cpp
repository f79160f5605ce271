#include "app/defaultinstances.h"

#include "archive/browse/frmeditor.h"
#include "archive/browse/searchform.h"
#include "archive/browse/utvalg.h"
#include "archive/mainwindow/frmabout.h"
#include "archive/mainwindow/frmmain.h"
#include "archive/mainwindow/frmoptions.h"
#include "archive/mainwindow/frmtip.h"
#include "archive/mainwindow/textout.h"
#include "archive/reports/artistsong.h"
#include "archive/reports/rptfullliste.h"
#include "archive/reports/rptlisting.h"
#include "archive/scan/frmeditcell.h"
#include "archive/scan/frmresult.h"
#include "archive/scan/frmsearch.h"
#include "platform/drives.h"
#include "player/tonedeck/frmtonedeck.h"
#include "toolkit/grids/flexgrid.h"
#include "toolkit/widgets/linklabel.h"

#include <algorithm>
#include <utility>

namespace {

// The window manager keeps the window above its owner, if it is told so before it shows the window.
void showOver(Form& window, Form* owner)
{
    if (owner)
        window.standOver(*owner);
    window.showForm();
}

// Encodes bytes that an address should not hold as they are, and a text could not. What is encoded already
// stays.
QString encodedAddress(const QByteArray& address)
{
    QString text;
    for (const char byte : address)
        if (byte > ' ' && byte <= '~')
            text += QLatin1Char(byte);
        else
            text += QLatin1String('%' + QByteArray(1, byte).toHex());
    return text;
}

} // namespace

DefaultInstances::DefaultInstances(const Platform& platform, FileNumbers& fileNumbers, ArchiveStore& store,
                                   SharedValues& shared, const PlayerContext& player)
    : m_context{platform, fileNumbers, store, shared, *this, player.codePage}, m_player(player),
      m_main([this] { return new frmMain(m_context); }),
      m_options([this] { return new frmOptions(m_context); }),
      m_search([this] { return new frmSearch(m_context, [this] { m_result.made().showForm(); }); }),
      m_editCell([this] {
          return new frmEditCell(m_context.platform.dialogs, m_context.platform.program, [this]() -> Grid* {
              return m_result.loaded() ? m_result.loaded()->MSFlexGrid1 : nullptr;
          });
      }),
      m_result([this] {
          return new frmResult(
              m_context, [this]() -> ScanSetup& { return m_search.get(); },
              {.open = [this] { openCellEditor(); }, .close = [this] { closeCellEditor(); }});
      }),
      m_tip([this] { return new frmTip(m_context); }), m_about([this] { return new frmAbout(m_context); }),
      m_searchForm([this] { return new SearchForm(m_context, [this] { m_selection.made().showForm(); }); }),
      m_editor([this] { return new frmEditor(m_context); }), m_selection([this] {
          return new Utvalg(m_context, {.search = [this]() -> SearchCriteria& { return m_searchForm.get(); },
                                        .closeSearch = [this] { closeSearch(); },
                                        .SpillMusikk = [this] { m_editor.get().SpillMusikk(); }});
      }),
      m_listing([this] { return new rptListing(m_context); }),
      m_fullListing([this] { return new rptFullListe(m_context); }),
      m_artistSong([this] { return new ArtistSong(m_context); }),
      m_text([this] { return new Textout(m_context); }),
      m_tonedeck([this] { return new frmTonedeck(m_player); }), m_openings(openings())
{
}

DefaultInstances::~DefaultInstances() = default;

// A window that is not here is one that the program does not have: its commands are disabled.
std::vector<DefaultInstances::Opening> DefaultInstances::openings()
{
    return {
        {WindowId::frmMain, [this] { showMain(); }},
        {WindowId::frmSearch, [this] { m_search.made().showForm(); }},
        {WindowId::frmOptions, [this] { m_options.made().showForm(); }},
        {WindowId::frmTip, [this] { showTip(); }},
        {WindowId::frmAbout, [this] { m_about.made().showForm(); }},
        {WindowId::SearchForm, [this] { m_searchForm.made().showForm(); }},
        {WindowId::frmEditor, [this] { m_editor.made().showForm(); }},
        {WindowId::rptListing, [this] { m_listing.made().showForm(); }},
        {WindowId::rptFullListe, [this] { m_fullListing.made().showForm(); }},
        {WindowId::ArtistSong, [this] { m_artistSong.made().showForm(); }},
        {WindowId::Textout, [this] { m_text.made().showForm(); }},
        {WindowId::frmTonedeck, [this] { m_tonedeck.made().showForm(); }},
    };
}

const DefaultInstances::Opening* DefaultInstances::openingOf(WindowId window) const
{
    const auto found = std::find_if(m_openings.begin(), m_openings.end(),
                                    [window](const Opening& opening) { return opening.window == window; });
    return found == m_openings.end() ? nullptr : &*found;
}

bool DefaultInstances::offers(WindowId window) const
{
    return openingOf(window) != nullptr;
}

void DefaultInstances::show(WindowId window)
{
    if (const Opening* opening = openingOf(window))
        opening->show();
}

// A player that is only now made is told first, so that it plays this instead of what it would begin with.
void DefaultInstances::openFile(const QByteArray& machinePathOrAddress)
{
    const QString file = machinePathOrAddress.startsWith('/')
                             ? m_context.platform.drives.drivePath(machinePathOrAddress)
                             : encodedAddress(machinePathOrAddress);
    if (!m_tonedeck.loaded()) {
        m_tonedeck.made().openAndPlay(file);
        return m_tonedeck.made().showForm();
    }
    m_tonedeck.made().showForm();
    if (frmTonedeck* player = m_tonedeck.loaded())
        player->guard([&] { player->openAndPlay(file); });
}

void DefaultInstances::showText(const QString& file)
{
    m_text.get().open(file);
}

frmOptions& DefaultInstances::options()
{
    return m_options.get();
}

QString DefaultInstances::homePageAddress()
{
    return m_about.get().Label1->text();
}

// The tip that start-up shows stands over it and keeps the keyboard.
void DefaultInstances::showMain()
{
    frmMain& main = m_main.get();
    if (!std::exchange(m_tipWaits, false))
        return main.showForm();
    main.showWithoutFocus();
    showTip();
}

// Above a window that is not on the screen the window manager keeps nothing: while the main window loads, the
// tip waits for it. A main window that starts as an icon must not take it along.
void DefaultInstances::showTip()
{
    frmMain* main = m_main.loaded();
    m_tipWaits = main && main->isLoading();
    if (m_tipWaits)
        m_tip.get();
    else
        showOver(m_tip.made(), main && main->isMinimized() ? nullptr : main);
}

// A second double click is about another cell: what was typed for the first is dropped, as by Cancel.
void DefaultInstances::openCellEditor()
{
    closeCellEditor();
    showOver(m_editCell.made(), m_result.loaded());
}

void DefaultInstances::closeCellEditor()
{
    if (frmEditCell* editor = m_editCell.loaded())
        editor->unload();
}

void DefaultInstances::closeSearch()
{
    if (SearchForm* search = m_searchForm.loaded())
        search->unload();
}
