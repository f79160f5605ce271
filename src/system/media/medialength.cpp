#include "system/media/medialength.h"

#include "system/media/gstpointer.h"
#include "system/media/mediabus.h"

#include <algorithm>
#include <chrono>
#include <thread>
#include <vector>

namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

constexpr auto kStep = 1ms;
constexpr auto kLongest = 10s;

// Streams that come while the file is read get an end of their own each.
void addEnd(GstElement*, GstPad* pad, gpointer pipeline)
{
    GstElement* end = gst_element_factory_make("fakesink", nullptr);
    g_object_set(end, "sync", FALSE, "async", FALSE, nullptr);
    gst_bin_add(GST_BIN(pipeline), end);
    const GstPointer<GstPad> entry(gst_element_get_static_pad(end, "sink"));
    gst_pad_link(pad, entry.get());
    gst_element_sync_state_with_parent(end);
}

} // namespace

std::optional<qint64> scannedLength(const QByteArray& file)
{
    const GstPointer<GstElement> pipeline(GST_ELEMENT(gst_object_ref_sink(gst_pipeline_new(nullptr))));
    GstElement* source = gst_element_factory_make("filesrc", nullptr);
    GstElement* parser = gst_element_factory_make("parsebin", nullptr);
    if (!source || !parser)
        return {};
    gst_bin_add_many(GST_BIN(pipeline.get()), source, parser, nullptr);
    g_object_set(source, "location", file.constData(), nullptr);
    gst_element_link(source, parser);
    g_signal_connect(parser, "pad-added", G_CALLBACK(addEnd), pipeline.get());
    const MediaBus bus(pipeline.get());
    gst_element_set_state(pipeline.get(), GST_STATE_PLAYING);
    const auto latest = Clock::now() + kLongest;
    while (!bus.ended() && !bus.failed() && Clock::now() < latest)
        std::this_thread::sleep_for(kStep);
    gint64 position = 0;
    const bool known = bus.ended() && gst_element_query_position(pipeline.get(), GST_FORMAT_TIME, &position);
    gst_element_set_state(pipeline.get(), GST_STATE_NULL);
    return known ? std::optional<qint64>(position) : std::nullopt;
}
