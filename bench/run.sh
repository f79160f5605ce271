#!/usr/bin/env bash
# Runs every benchmark of a release build and prints the table that docs/performance.md holds.
set -euo pipefail
build=${1:-build/release}
work=$PWD/$build/bench/work
mkdir -p -m 700 "$work"
export XDG_RUNTIME_DIR=$work
export XDG_CONFIG_HOME=$work/config XDG_STATE_HOME=$work/state XDG_DATA_HOME=$work/data
printf '| work | rival in the same run | ours | rival | ratio |\n|---|---|---|---|---|\n'
for bench in scan import memory search result editor grid pages exports backup playlist media playback skin; do
    QT_QPA_PLATFORM=offscreen "$build/bench/bench_$bench" "$work"
done

# The start is measured on a real X server, with an archive beside the program and the tips switched off.
export SONGBIN_HOME=$work/home
mkdir -p "$SONGBIN_HOME" "$XDG_CONFIG_HOME/Songbin"
cp -n "$build"/Songbin/Songbin.dat "$SONGBIN_HOME/Songbin.mdb"
printf '[bench_start_songbin/Options]\nShow Tips at Startup=0\n' > "$XDG_CONFIG_HOME/Songbin/settings.conf"
dbus-run-session -- xvfb-run -a -s "-screen 0 1366x768x24" "$build/bench/bench_start"

# The program as a whole, with a window manager to minimise it.
cp -n "$build"/Songbin/*.skin "$build"/Songbin/*.png "$SONGBIN_HOME"
dbus-run-session -- xvfb-run -a -s "-screen 0 1366x768x24" sh -c \
    'openbox --sm-disable & "$0" "$1"; status=$?; kill $!; exit $status' "$build/bench/bench_processor" "$work"
