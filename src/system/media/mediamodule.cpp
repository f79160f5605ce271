#include "system/media/mediamodule.h"

#include "system/media/gstmediaelement.h"
#include "system/media/pulsevolume.h"

#include <gst/gst.h>

#include <cstring>

namespace {

class SystemMediaMachine : public MediaMachine {
public:
    explicit SystemMediaMachine(Drives& drives) : m_drives(drives) {}

    std::unique_ptr<MediaElement> makeDevice() override
    {
        return std::make_unique<GstMediaElement>(m_drives);
    }
    std::unique_ptr<WaveVolume> makeVolume() override { return std::make_unique<PulseVolume>(); }

private:
    Drives& m_drives;
};

} // namespace

extern "C" __attribute__((visibility("default"))) bool songbinPrepareMedia(const char* build);

bool songbinPrepareMedia(const char* build)
{
    return std::strcmp(build, mediamodule::kBuild) == 0 && gst_init_check(nullptr, nullptr, nullptr) != FALSE;
}

extern "C" __attribute__((visibility("default"))) MediaMachine* songbinMediaMachine(const char* build,
                                                                                    Drives& drives);

MediaMachine* songbinMediaMachine(const char* build, Drives& drives)
{
    return std::strcmp(build, mediamodule::kBuild) == 0 ? new SystemMediaMachine(drives) : nullptr;
}
