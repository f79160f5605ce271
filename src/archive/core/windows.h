// Opens the program's windows by their names. Each has one default instance, loaded at its first use and gone
// after its unload.
#pragma once

#include <QString>

class frmOptions;

enum class WindowId {
    frmMain,
    frmSearch,
    frmOptions,
    frmTip,
    frmAbout,
    SearchForm,
    frmEditor,
    rptListing,
    rptFullListe,
    ArtistSong,
    Textout,
    frmTonedeck,
};

class Windows {
public:
    virtual ~Windows() = default;

    virtual bool offers(WindowId window) const = 0; // does the program have that window?
    virtual void show(WindowId window) = 0;         // modeless; one that it does not have is not shown
    // Shows a file in the text viewer, in the place of what it showed. Throws what
    // RichTextBox::setFileName does; the viewer stays as it was then.
    virtual void showText(const QString& file) = 0;
    virtual frmOptions& options() = 0;     // loaded, without being shown
    virtual QString homePageAddress() = 0; // as it stands in the About box, loaded without being shown
};
