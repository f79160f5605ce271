#include "tests/system/media/formats.h"

#include <fstream>
#include <iterator>

namespace {

constexpr int kLength = 2400;
constexpr const char* kMovie = "ActiveMovie";
constexpr const char* kModule = "M4W_MCI";

using Maker = std::function<void(const QByteArray& target)>;

void write(const QByteArray& target, const QByteArray& content)
{
    std::ofstream out(target.toStdString(), std::ios::binary);
    out.write(content.constData(), content.size());
    if (!out.flush())
        throw std::runtime_error("cannot write " + target.toStdString());
}

QByteArray read(const QByteArray& source)
{
    std::ifstream in(source.toStdString(), std::ios::binary);
    return QByteArray::fromStdString({std::istreambuf_iterator<char>(in), {}});
}

Maker bytes(const std::function<QByteArray()>& content)
{
    return [content](const QByteArray& target) { write(target, content()); };
}

Maker sound(const Frames& frames, const QByteArray& encoder)
{
    return [=](const QByteArray& target) { encodeSound(target, frames, encoder); };
}

Maker film(const Frames& frames, const QByteArray& pictures, const QByteArray& sound, const QByteArray& muxer)
{
    return [=](const QByteArray& target) { encodeFilm(target, frames, pictures, sound, muxer); };
}

// Makes it with the header that tells the number of frames.
Maker countedSound(const Frames& frames, const QByteArray& encoder, bool variable)
{
    return [=](const QByteArray& target) {
        encodeSound(target, frames, encoder);
        write(target, withCountOfFrames(read(target), variable));
    };
}

std::vector<Format> losslessFormats()
{
    const Frames frames = counterFrames(kLength);
    const auto file = [frames](QByteArray (*content)(const Frames&)) {
        return bytes([=] { return content(frames); });
    };
    const QByteArray raw = "audio/x-raw,format=S16LE";
    constexpr auto kSound = Format::Sound::Counted;
    return {
        {"Wav", "a.wav", kMovie, kSound, file(waveFile), kLength, 0},
        {"Au", "a.au", kMovie, kSound, file(auFile), kLength, 0},
        {"Aiff", "a.aif", kMovie, kSound, file(aiffFile), kLength, 0},
        {"Flac", "a.flac", kMovie, kSound, sound(frames, "flacenc"), kLength, 0},
        {"Avi", "a.avi", kMovie, kSound, film(frames, "avenc_mjpeg", raw, "avimux")},
        {"Mov", "a.mov", kMovie, kSound, film(frames, "avenc_mjpeg", raw, "qtmux")},
    };
}

std::vector<Format> layerThreeFormats()
{
    const Frames tone = silenceThen(toneFrames(kLength));
    const Frames noise = silenceThen(noiseFrames(kLength)); // takes many more bits than silence
    const QByteArray steady = "lamemp3enc target=bitrate bitrate=128 cbr=true";
    const QByteArray varying = "lamemp3enc target=quality quality=4";
    constexpr auto kSound = Format::Sound::SilenceThen;
    return {
        {"Mp3", "cbr.mp3", kMovie, kSound, sound(tone, steady)},
        {"Mp3WithHeader", "cbrx.mp3", kMovie, kSound, countedSound(tone, steady, false)},
        {"Mp3Vbr", "vbr.mp3", kMovie, kSound, sound(noise, varying)},
        {"Mp3VbrWithHeader", "vbrx.mp3", kMovie, kSound, countedSound(noise, varying, true)},
    };
}

std::vector<Format> encodedFormats()
{
    const Frames tone = silenceThen(toneFrames(kLength));
    const QByteArray aac = "avenc_aac ! aacparse";
    const QByteArray mp2 = "twolamemp2enc ! mpegaudioparse";
    const QByteArray mpeg1 = "mpeg2enc format=0";
    constexpr auto kSound = Format::Sound::SilenceThen;
    return {
        {"Mp2", "a.mp2", kMovie, kSound, sound(tone, mp2)},
        {"Ogg", "a.ogg", kMovie, kSound, sound(tone, "vorbisenc ! oggmux")},
        {"Aac", "a.aac", kMovie, kSound, sound(tone, aac + " ! audio/mpeg,stream-format=adts")},
        {"M4a", "a.m4a", kMovie, kSound, sound(tone, aac + " ! mp4mux")},
        {"Wma", "a.wma", kMovie, kSound, sound(tone, "avenc_wmav2 ! asfmux")},
        {"Mpeg", "a.mpg", kMovie, kSound, film(tone, mpeg1, mp2, "avmux_mpeg")},
        {"M1v", "a.m1v", kMovie, Format::Sound::None, film(tone, mpeg1, {}, "identity")},
    };
}

std::vector<Format> drawnFormats()
{
    const Maker midi = bytes([] { return midiFile(4); });
    const Maker flc = bytes([] { return flcFile(kLength / 100, 100); });
    constexpr auto kSound = Format::Sound::Notes;
    // After its end a module fades out for a tenth of a second.
    return {
        {"Mid", "a.mid", kMovie, kSound, midi, 2000},
        {"Mod", "a.mod", kModule, kSound, bytes(modFile), kModuleLength, 50, 110},
        {"Xm", "a.xm", kModule, kSound, bytes(xmFile), kModuleLength, 50, 110},
        {"S3m", "a.s3m", kModule, kSound, bytes(s3mFile), kModuleLength, 50, 110},
        {"It", "a.it", kMovie, kSound, bytes(itFile), kModuleLength, 50, 110},
        {"Flc", "a.flc", "Animation", Format::Sound::None, flc},
    };
}

} // namespace

const std::vector<Format>& formats()
{
    static const std::vector<Format> all = [] {
        std::vector<Format> list = losslessFormats();
        for (const std::vector<Format>& more : {layerThreeFormats(), encodedFormats(), drawnFormats()})
            list.insert(list.end(), more.begin(), more.end());
        return list;
    }();
    return all;
}

bool canSeek(const Format& format)
{
    return QByteArray(format.device) != "Animation";
}
