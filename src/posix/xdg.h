// Names the user's directories on this desktop, each with "/Songbin" behind it; they are not made here.
#pragma once

#include <QByteArray>

struct UserDirectories {
    QByteArray home;
    QByteArray config; // $XDG_CONFIG_HOME/Songbin
    QByteArray state;  // $XDG_STATE_HOME/Songbin
    QByteArray data;   // $XDG_DATA_HOME/Songbin

    // A variable that is unset or no absolute path counts as its default under the home directory.
    static UserDirectories fromEnvironment();
};
