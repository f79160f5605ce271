// Keeps the cover that the player shows, and where it came from.
#pragma once

#include "player/playback/playercontext.h"

#include <QString>

class CoverBox;
struct TagRecord;

class CoverKeeper {
public:
    CoverKeeper(const PlayerContext& context, CoverBox& box) : m_context(context), m_box(box) {}

    // Takes a picture's file; one that cannot be read leaves the cover there is. It is remembered as
    // LastCover.
    bool LoadCover(const QString& path);
    // Shows the picture that goes with a song's tag. Without one the cover of another song's tag goes; one
    // that was put there by hand, or by a picture in the playlist, stays.
    void LoadTagCover(const QString& directory, TagRecord& tag);
    void clear();

    const QString& path() const { return m_path; } // empty: none is shown

private:
    PlayerContext m_context;
    CoverBox& m_box;
    QString m_path;
    bool m_isOfTag = false;
};
