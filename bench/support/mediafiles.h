// Makes music for the media benchmarks on the spot.
#pragma once

#include <string>

struct MediaFiles {
    // Makes them in that directory, each of 15 seconds: 44,100 Hz, two channels. GStreamer has to be started.
    explicit MediaFiles(const std::string& directory);

    // Makes a WAV file of two tones.
    static void writeWav(const std::string& file, int milliseconds);

    std::string wav;
    std::string mp3; // constant bit rate, with the header that tells its length
    std::string ogg;
    std::string damaged; // random bytes called .mp3
};
