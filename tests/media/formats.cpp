#include "tests/media/formats.h"

#include <fstream>

namespace {

constexpr int kLength = 2400;
constexpr const char* kSound = "ActiveMovie";
constexpr const char* kModule = "M4W_MCI";

using Maker = std::function<void(const QByteArray& target)>;

Maker bytes(const std::function<QByteArray()>& content)
{
    return [content](const QByteArray& target) {
        const QByteArray all = content();
        std::ofstream out(target.toStdString(), std::ios::binary);
        out.write(all.constData(), all.size());
        if (!out.flush())
            throw std::runtime_error("cannot write " + target.toStdString());
    };
}

Maker sound(const Frames& frames, const QByteArray& encoder)
{
    return [=](const QByteArray& target) { encodeSound(target, frames, encoder); };
}

Maker film(const QByteArray& pictures, const QByteArray& tone, const QByteArray& muxer)
{
    return
        [=](const QByteArray& target) { encodeFilm(target, counterFrames(kLength), pictures, tone, muxer); };
}

constexpr const char* kRaw = "audio/x-raw,format=S16LE,rate=44100,channels=2";

std::vector<Format> losslessFormats()
{
    const auto counter = [](QByteArray (*file)(const Frames&)) {
        return bytes([file] { return file(counterFrames(kLength)); });
    };
    return {
        {"Wav", "a.wav", kSound, counter(waveFile), kLength, 0, true},
        {"Au", "a.au", kSound, counter(auFile), kLength, 0, true},
        {"Aiff", "a.aif", kSound, counter(aiffFile), kLength, 0, true},
        {"Flac", "a.flac", kSound, sound(counterFrames(kLength), "flacenc"), kLength, 0, true},
        {"Avi", "a.avi", kSound, film("avenc_mjpeg", kRaw, "avimux"), kLength, 50, true},
        {"Mov", "a.mov", kSound, film("avenc_mjpeg", kRaw, "qtmux"), kLength, 50, true},
    };
}

std::vector<Format> encodedFormats()
{
    const Frames tone = toneFrames(kLength);
    const Frames varying = noiseThenToneFrames(kLength);
    const QByteArray steady = "lamemp3enc target=bitrate bitrate=128 cbr=true";
    const QByteArray free = "lamemp3enc target=quality quality=4";
    return {
        {"Mp3", "cbr.mp3", kSound, sound(tone, steady), kLength},
        {"Mp3WithHeader", "cbrx.mp3", kSound, sound(tone, steady + " ! xingmux"), kLength},
        {"Mp3Vbr", "vbr.mp3", kSound, sound(varying, free), kLength},
        {"Mp3VbrWithHeader", "vbrx.mp3", kSound, sound(varying, free + " ! xingmux"), kLength},
        {"Mp2", "a.mp2", kSound, sound(tone, "twolamemp2enc"), kLength},
        {"Ogg", "a.ogg", kSound, sound(tone, "vorbisenc ! oggmux"), kLength},
        {"Aac", "a.aac", kSound, sound(tone, "avenc_aac ! aacparse ! audio/mpeg,stream-format=adts"),
         kLength},
        {"M4a", "a.m4a", kSound, sound(tone, "avenc_aac ! aacparse ! mp4mux"), kLength},
        {"Wma", "a.wma", kSound, sound(tone, "avenc_wmav2 ! asfmux"), kLength},
        {"Mpeg", "a.mpg", kSound, film("mpeg2enc format=0", "twolamemp2enc", "mpegpsmux"), kLength},
        {"M1v", "a.m1v", kSound, film("avenc_mpeg1video ! mpegvideoparse ! identity", {}, "identity"),
         kLength, 50, false, true, false},
    };
}

std::vector<Format> drawnFormats()
{
    const auto flc = [] { return flcFile(kLength / 100, 100); };
    return {
        {"Mid", "a.mid", kSound, bytes([] { return midiFile(kLength / 500); }), 2000, 50},
        {"Mod", "a.mod", kModule, bytes(modFile), kModuleLength, 50},
        {"Xm", "a.xm", kModule, bytes(xmFile), kModuleLength, 50},
        {"S3m", "a.s3m", kModule, bytes(s3mFile), kModuleLength, 50},
        {"It", "a.it", kSound, bytes(itFile), kModuleLength, 50},
        {"Flc", "a.flc", "Animation", bytes(flc), kLength, 50, false, false, false},
    };
}

} // namespace

const std::vector<Format>& formats()
{
    static const std::vector<Format> all = [] {
        std::vector<Format> list = losslessFormats();
        for (const std::vector<Format>& more : {encodedFormats(), drawnFormats()})
            list.insert(list.end(), more.begin(), more.end());
        return list;
    }();
    return all;
}
