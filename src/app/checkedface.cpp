#include "app/checkedface.h"

#include "player/playlist/playlistcommands.h"
#include "toolkit/widgets/windowing.h"

#include <QScreen>

CheckedFace::CheckedFace(const PlayerContext& context)
    : face(*this, context.fileNumbers),
      loader(context, face.skinTarget(),
             {.width = [this] { return face.screen()->geometry().width(); }, .closed = [] { return false; }}),
      m_context(context), m_clock(face, context.settings), m_names(m_list, PlaylistModel::Shows::Names)
{
    face.controls.PlNames->setModel(&m_names);
}

// It gets all of the volume, as of a player that nobody has touched.
void CheckedFace::skinLoads(bool)
{
    for (const int slider : {kVolumeSlider, kVolumeMirror})
        face.sliders().SetSliderPos(slider, 1);
}

void CheckedFace::outlineChanged()
{
    setWindowOutline(face, face.outline());
    face.setCut(face.mask());
}

void CheckedFace::Form_Paint()
{
    face.SetDD(DisplayItem::Time, 0.0);
    face.SetDD(DisplayItem::Track, 1.0);
    face.SetDD(DisplayItem::Clock, 0.0);
    for (const DisplayItem empty : {DisplayItem::BitRate, DisplayItem::SamplingRate, DisplayItem::Name})
        face.SetDD(empty, QString());
    m_clock.showClock();
}

void CheckedFace::showSample()
{
    constexpr double kSeconds = 227;
    constexpr double kTrack = 7;
    const QString kName = QStringLiteral("Artist - Title of the track");
    const QString kMode = QStringLiteral("joint stereo");
    face.caption(Label::Time, QStringLiteral("3:47"));
    face.caption(Label::Name, kName);
    face.caption(Label::EntryNumber, QStringLiteral(" 7"));
    face.caption(Label::BitRate, QStringLiteral("192"));
    face.caption(Label::SamplingRate, QStringLiteral("44"));
    face.caption(Label::ChannelMode, kMode);
    face.caption(Label::Length, QStringLiteral("4:12"));
    face.caption(Label::Volume, QStringLiteral("80%"));
    face.showMarks({.channels = channelModeOf(kMode)});
    showSampleList();
    face.SetDD(DisplayItem::Time, kSeconds);
    face.SetDD(DisplayItem::Track, kTrack);
    face.SetDD(DisplayItem::BitRate, QStringLiteral("192"));
    face.SetDD(DisplayItem::SamplingRate, QStringLiteral("44"));
    face.SetDD(DisplayItem::Name, kName);
}

void CheckedFace::showSampleList()
{
    PlaylistOptions options;
    PlaylistCommands commands(m_list, options,
                              {m_context.platform, m_context.fileNumbers, m_context.codePage});
    for (int entry = 1; entry <= 12; ++entry)
        commands.PlAddFileFromEditor(QStringLiteral("C:\\Music\\Artist - Title of track %1.mp3").arg(entry));
    m_names.refresh();
    face.caption(Label::EntryCount, m_list.entryCountText());
    face.caption(Label::ListName, m_list.name());
}
