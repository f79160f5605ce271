#include "player/tonedeck/coverkeeper.h"

#include "player/bitmaps/skinbitmap.h"
#include "player/face/facetext.h"
#include "player/playback/playersettings.h"
#include "player/playback/tagcover.h"

bool CoverKeeper::LoadCover(const QString& path)
{
    const auto picture = loadSkinBitmap(m_context.fileNumbers, path);
    if (!picture)
        return false;
    m_box.setPicture(*picture);
    m_path = path;
    m_isOfTag = false;
    m_context.settings.LastCover = path;
    return true;
}

void CoverKeeper::LoadTagCover(const QString& directory, TagRecord& tag)
{
    const QString picture = tagCover(m_context.platform.files, directory, tag);
    if (!picture.isEmpty() && picture == m_path)
        return;
    const bool wasOfTag = m_isOfTag;
    if (!picture.isEmpty() && LoadCover(picture))
        m_isOfTag = true;
    else if (wasOfTag)
        clear();
}

void CoverKeeper::clear()
{
    m_box.setPicture({});
    m_path.clear();
    m_isOfTag = false;
    m_context.settings.LastCover.clear();
}
