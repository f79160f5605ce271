// Owns the default instance of each window: made and loaded at its first use, forgotten at its unload.
#pragma once

#include "archive/core/archivecontext.h"
#include "archive/core/windows.h"
#include "player/playback/playercontext.h"

#include <QObject>

#include <functional>
#include <memory>
#include <vector>

class ArtistSong;
class Form;
class SearchForm;
class Textout;
class Utvalg;
class frmAbout;
class frmEditCell;
class frmEditor;
class frmMain;
class frmResult;
class frmSearch;
class frmTip;
class frmTonedeck;
class rptFullListe;
class rptListing;

template <typename Window>
class DefaultInstance {
public:
    using Make = std::function<Window*()>;

    explicit DefaultInstance(Make make) : m_make(std::move(make)) {}
    ~DefaultInstance() { delete m_window; } // what is still open when the program ends
    DefaultInstance(const DefaultInstance&) = delete;
    DefaultInstance& operator=(const DefaultInstance&) = delete;

    Window& made()
    {
        if (!m_window) {
            m_window = m_make();
            QObject::connect(m_window, &Window::unloaded, m_window, [this] { m_window = nullptr; });
        }
        return *m_window;
    }

    Window& get()
    {
        Window& window = made();
        window.load();
        return window;
    }

    Window* loaded() const { return m_window; }

private:
    Make m_make;
    Window* m_window = nullptr;
};

class DefaultInstances : public Windows {
public:
    DefaultInstances(const Platform& platform, FileNumbers& fileNumbers, ArchiveStore& store,
                     SharedValues& shared, const PlayerContext& player);
    ~DefaultInstances() override;

    bool offers(WindowId window) const override;
    void show(WindowId window) override;
    void showText(const QString& file) override;
    frmOptions& options() override;
    QString homePageAddress() override;
    // Shows the player and plays an absolute path of this machine or a "file://" address.
    void openFile(const QByteArray& machinePathOrAddress);

private:
    // Knows a window that can be shown by its name.
    struct Opening {
        WindowId window;
        std::function<void()> show;
    };
    std::vector<Opening> openings();
    const Opening* openingOf(WindowId window) const;

    void openCellEditor();
    void closeCellEditor();
    void closeSearch();
    void showMain();
    void showTip();

    ArchiveContext m_context;
    PlayerContext m_player;
    bool m_tipWaits = false;
    DefaultInstance<frmMain> m_main;
    DefaultInstance<frmOptions> m_options;
    DefaultInstance<frmSearch> m_search;
    DefaultInstance<frmEditCell> m_editCell;
    DefaultInstance<frmResult> m_result;
    DefaultInstance<frmTip> m_tip;
    DefaultInstance<frmAbout> m_about;
    DefaultInstance<SearchForm> m_searchForm;
    DefaultInstance<frmEditor> m_editor;
    DefaultInstance<Utvalg> m_selection;
    DefaultInstance<rptListing> m_listing;
    DefaultInstance<rptFullListe> m_fullListing;
    DefaultInstance<ArtistSong> m_artistSong;
    DefaultInstance<Textout> m_text;
    DefaultInstance<frmTonedeck> m_tonedeck;
    const std::vector<Opening> m_openings;
};
