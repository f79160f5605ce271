#include "bench/support/mediafiles.h"

#include "bench/support/measure.h"
#include "system/media/gstpointer.h"

#include <bit>
#include <cmath>
#include <cstdint>
#include <fstream>
#include <numbers>
#include <random>

static_assert(std::endian::native == std::endian::little); // numbers are written as they stand in memory

namespace {

constexpr std::uint32_t kRate = 44'100;
constexpr int kMilliseconds = 15'000;
constexpr std::uint16_t kChannels = 2;
constexpr std::uint16_t kSampleBytes = 2;

template <typename Number>
void put(std::ostream& out, Number number)
{
    out.write(reinterpret_cast<const char*>(&number), sizeof number);
}

void writeNoise(const std::string& file)
{
    std::ofstream out(file, std::ios::binary);
    std::mt19937 random(4);
    for (int i = 0; i < 20'000; ++i)
        out.put(static_cast<char>(random()));
}

void encode(const std::string& from, const std::string& encoder, const std::string& to)
{
    const std::string description = "filesrc location=\"" + from + "\" ! wavparse ! audioconvert ! " +
                                    encoder + " ! filesink location=\"" + to + '"';
    GError* raw = nullptr;
    const GstPointer<GstElement> pipeline(gst_parse_launch(description.c_str(), &raw));
    const GlibError error(raw);
    if (error || !pipeline)
        endWith("cannot encode: " + description);
    const GstPointer<GstBus> bus(gst_element_get_bus(pipeline.get()));
    gst_element_set_state(pipeline.get(), GST_STATE_PLAYING);
    GstMessage* last = gst_bus_timed_pop_filtered(
        bus.get(), 60 * GST_SECOND, static_cast<GstMessageType>(GST_MESSAGE_EOS | GST_MESSAGE_ERROR));
    const bool encoded = last && GST_MESSAGE_TYPE(last) == GST_MESSAGE_EOS;
    if (last)
        gst_message_unref(last);
    gst_element_set_state(pipeline.get(), GST_STATE_NULL);
    if (!encoded)
        endWith("failed: " + description);
}

} // namespace

void MediaFiles::writeWav(const std::string& file, int milliseconds)
{
    std::ofstream out(file, std::ios::binary);
    const auto frames = static_cast<std::uint32_t>(std::int64_t{kRate} * milliseconds / 1000);
    const std::uint32_t bytes = frames * kChannels * kSampleBytes;
    out << "RIFF";
    put(out, bytes + 36);
    out << "WAVEfmt ";
    put(out, std::uint32_t(16));
    put(out, std::uint16_t(1)); // PCM
    put(out, kChannels);
    put(out, kRate);
    put(out, kRate * kChannels * kSampleBytes);
    put(out, std::uint16_t(kChannels * kSampleBytes));
    put(out, std::uint16_t(8 * kSampleBytes));
    out << "data";
    put(out, bytes);
    for (std::uint32_t sample = 0; sample < frames; ++sample)
        for (const double pitch : {440.0, 554.4})
            put(out,
                static_cast<std::int16_t>(9000 * std::sin(2 * std::numbers::pi * pitch * sample / kRate)));
}

MediaFiles::MediaFiles(const std::string& directory)
    : wav(directory + "/sound.wav"), mp3(directory + "/sound.mp3"), ogg(directory + "/sound.ogg"),
      damaged(directory + "/noise.mp3")
{
    writeWav(wav, kMilliseconds);
    writeNoise(damaged);
    encode(wav, "lamemp3enc target=bitrate cbr=true bitrate=128 ! xingmux", mp3);
    encode(wav, "vorbisenc ! oggmux", ogg);
}
