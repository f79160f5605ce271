// A machine of a test's own: drive D: is a directory with the volume name ROCK_01, C: the home beside it, and
// mounts and optical drives are what the test writes down.
#pragma once

#include "system/drives/systemdrives.h"
#include "tests/support/temporary.h"

#include <sys/stat.h>

class Machine {
public:
    Machine()
    {
        for (const char* directory : {"d", "home", "block"})
            temporary.makeDirectory(directory);
        chmod(temporary.path().constData(), 0755); // for tests that give up their rights
        setMounts({});
    }

    DriveSetup setup() const
    {
        const auto at = [this](const char* name) { return temporary.at(name); };
        return {.user = {at("home"), at("config"), at("state"), at("data")},
                .declared = "D=" + at("d") + ",ROCK_01",
                .mountinfo = at("mountinfo"),
                .blockDevices = at("block"),
                .labelLinks = at("labels")};
    }

    // Takes lines of mountinfo.
    void setMounts(const QByteArray& lines) const { temporary.write("mountinfo", lines); }
    static QByteArray mount(const QByteArray& directory, const QByteArray& type, const QByteArray& source)
    {
        return "36 27 8:17 / " + QByteArray(directory).replace(' ', "\\040") + " rw,relatime shared:7 - " +
               type + ' ' + source + " rw\n";
    }

    Temporary temporary;
};
