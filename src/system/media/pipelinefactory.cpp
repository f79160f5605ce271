#include "system/media/pipelinefactory.h"

#include "system/drives/audiodisc.h"
#include "system/media/mediasinks.h"

#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <utility>

namespace pipelinefactory {

namespace {

constexpr int kVideoAudioDeinterlace = 0x1 | 0x2 | 0x200; // GstPlayFlags

GstElement* add(GstElement* pipeline, const char* factory)
{
    GstElement* element = gst_element_factory_make(factory, nullptr);
    if (element)
        gst_bin_add(GST_BIN(pipeline), element);
    return element;
}

GstPointer<GstElement> filePlayer(const QByteArray& path, GstElement* sound)
{
    GstElement* player = gst_element_factory_make("playbin", nullptr);
    if (!player)
        return {};
    const GlibPointer<char> uri(gst_filename_to_uri(path.constData(), nullptr));
    const GstPointer<GstElement> pictures = makeVideoSink();
    g_object_set(player, "uri", uri.get(), "audio-sink", sound, "video-sink", pictures.get(), "flags",
                 kVideoAudioDeinterlace, nullptr);
    return GstPointer<GstElement>(GST_ELEMENT(gst_object_ref_sink(player)));
}

// Makes a chain of elements whose last one is the sound's output.
GstPointer<GstElement> chain(std::initializer_list<const char*> factories, GstElement* sound)
{
    GstPointer<GstElement> pipeline(GST_ELEMENT(gst_object_ref_sink(gst_pipeline_new(nullptr))));
    GstElement* last = nullptr;
    for (const char* factory : factories) {
        GstElement* element = add(pipeline.get(), factory);
        if (!element || (last && !gst_element_link(last, element)))
            return {};
        last = element;
    }
    gst_bin_add(GST_BIN(pipeline.get()), sound);
    return gst_element_link(last, sound) ? std::move(pipeline) : GstPointer<GstElement>();
}

GstPointer<GstElement> sourceOf(GstElement* pipeline)
{
    GstIterator* sources = gst_bin_iterate_sources(GST_BIN(pipeline));
    GValue found = G_VALUE_INIT;
    GstPointer<GstElement> source;
    if (gst_iterator_next(sources, &found) == GST_ITERATOR_OK) {
        source.reset(GST_ELEMENT(g_value_dup_object(&found)));
        g_value_unset(&found);
    }
    gst_iterator_free(sources);
    return source;
}

GstPointer<GstElement> chainedPlayer(const QByteArray& path, const char* reader, GstElement* sound)
{
    auto pipeline = chain({"filesrc", reader, "audioconvert", "audioresample"}, sound);
    if (pipeline)
        g_object_set(sourceOf(pipeline.get()).get(), "location", path.constData(), nullptr);
    return pipeline;
}

bool isAiff(const QByteArray& path)
{
    QFile file(QFile::decodeName(path));
    if (!QFileInfo(file).isFile() || !file.open(QIODevice::ReadOnly))
        return false;
    const QByteArray begin = file.read(12);
    return begin.startsWith("FORM") && (begin.endsWith("AIFF") || begin.endsWith("AIFC"));
}

// `ordinal` counts the audio tracks alone, as the source does; one that it does not have it takes for the
// first.
GstPointer<GstElement> discPlayer(const QByteArray& device, int ordinal, GstElement* sound)
{
    auto pipeline = chain({"cdiocddasrc", "audioconvert", "audioresample"}, sound);
    if (pipeline)
        g_object_set(sourceOf(pipeline.get()).get(), "device", device.constData(), "track",
                     static_cast<guint>(ordinal), nullptr);
    return pipeline;
}

} // namespace

std::optional<DiscTrack> trackOf(const MediaSource& source)
{
    const std::vector<audiodisc::Track> tracks = audiodisc::discIn(source.path).tracks;
    const auto found = std::find_if(tracks.begin(), tracks.end(), [&](const audiodisc::Track& track) {
        return track.number == source.track.value_or(track.number);
    });
    if (found == tracks.end())
        return {};
    return DiscTrack{static_cast<int>(found - tracks.begin()) + 1,
                     qint64{found->length} * 1000 / audiodisc::kFramesPerSecond};
}

GstPointer<GstElement> of(const MediaSource& source, int ordinal, GstElement* sound)
{
    switch (source.kind) {
    case MediaSource::Kind::Disc:
        return discPlayer(source.path, ordinal, sound);
    case MediaSource::Kind::Module:
        // These are short modules that the search for the type does not know.
        return chainedPlayer(source.path, "openmptdec", sound);
    case MediaSource::Kind::File:
        break;
    }
    // The reader of AIFF files begins to send as soon as playbin starts it, which is now and then before
    // playbin has connected it: then nothing ever comes. Here it is connected first.
    return isAiff(source.path) ? chainedPlayer(source.path, "aiffparse", sound)
                               : filePlayer(source.path, sound);
}

} // namespace pipelinefactory
