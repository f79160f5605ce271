"""A screen of its own for driving a real program: X server, window manager, session bus, accessibility.

Everything here acts the way a user does: controls are looked up on the screen through AT-SPI, and acted on
with the mouse and keyboard events of xdotool. Every wait polls with a limit and says what it waited for.
Every process started is ended by its own process id, however the session is left.

The accessibility library binds itself to one bus for the life of the process: one session a process.
"""

import contextlib
import ctypes
import os
import re
import signal
import subprocess
import sys
import time
import warnings
from pathlib import Path

LAUNCHERS = ["/usr/libexec/at-spi-bus-launcher", "/usr/lib/at-spi2-core/at-spi-bus-launcher"]
PR_SET_PDEATHSIG = 1
PR_SET_CHILD_SUBREAPER = 36

BUS_CONFIG = """<!DOCTYPE busconfig PUBLIC "-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN"
 "http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd">
<busconfig>
  <type>session</type>
  <listen>unix:path={socket}</listen>
  <policy context="default">
    <allow send_destination="*" eavesdrop="true"/>
    <allow eavesdrop="true"/>
    <allow own="*"/>
  </policy>
</busconfig>
"""


class WaitError(AssertionError):
    """What was waited for did not come in time."""


def wait_until(what, probe, limit=15.0, pause=0.05):
    """The first true value that probe() gives; WaitError naming `what` after `limit` seconds."""
    end = time.monotonic() + limit
    while True:
        value = probe()
        if value:
            return value
        if time.monotonic() >= end:
            raise WaitError(f"waited {limit:g} s in vain for {what}")
        time.sleep(pause)


def last_of(found):
    return found[-1] if found else None


def steady(what, look_up, limit=15.0):
    """The object that look_up() finds, once it stood at one place of the screen on two looks in a row.

    It is looked up anew each time: a control that is made again takes the place of its predecessor.
    """
    last = None

    def still():
        nonlocal last
        node = look_up()
        box = node.extents if node else None
        same = box is not None and box == last and box[2] > 0 and box[3] > 0
        last = box
        return node if same else None

    return wait_until(f"{what} to stand still on the screen", still, limit)


def _die_with_parent():
    ctypes.CDLL(None).prctl(PR_SET_PDEATHSIG, signal.SIGTERM)


def end_process(process, limit=10.0):
    """Ends a process that was started here, with the group of its own that it leads."""
    for number in (signal.SIGTERM, signal.SIGKILL):
        if process.poll() is None:
            with contextlib.suppress(ProcessLookupError):
                process.send_signal(number)
            with contextlib.suppress(subprocess.TimeoutExpired):
                process.wait(limit)
    with contextlib.suppress(ProcessLookupError, PermissionError):
        os.killpg(process.pid, signal.SIGKILL)  # helpers that it left behind in its group


def adopt_orphans():
    """From here on a process whose parent ended becomes a child of this one, so that it can be ended too."""
    ctypes.CDLL(None).prctl(PR_SET_CHILD_SUBREAPER, 1)


def end_orphans(limit=5.0):
    """Ends whatever children this process still has."""
    def orphans():
        children = set()
        for listing in Path("/proc/self/task").glob("*/children"):
            children |= {int(pid) for pid in listing.read_text().split()}
        return children

    def reaped():
        for pid in orphans():
            with contextlib.suppress(ChildProcessError):
                os.waitpid(pid, os.WNOHANG)
        return not orphans()

    for number in (signal.SIGTERM, signal.SIGKILL):
        for pid in orphans():
            with contextlib.suppress(ProcessLookupError):
                os.kill(pid, number)
        with contextlib.suppress(WaitError):
            wait_until("orphaned helpers to end", reaped, limit)
            return


class Node:
    """One accessible object. Objects that vanish while they are read count as absent."""

    def __init__(self, session, accessible):
        self.session = session
        self.accessible = accessible

    def _read(self, reader, default):
        from gi.repository import GLib

        try:
            self.accessible.clear_cache()
            return reader(self.accessible)
        except GLib.Error:
            return default

    @property
    def name(self):
        return self._read(lambda a: a.get_name(), "") or ""

    @property
    def process(self):
        """The process id of the program that it belongs to."""
        return self._read(lambda a: a.get_process_id(), 0)

    @property
    def role(self):
        return self._read(lambda a: a.get_role_name(), "") or ""

    @property
    def description(self):
        return self._read(lambda a: a.get_description(), "") or ""

    @property
    def text(self):
        """What stands in a text box; labels and combo boxes tell theirs by name."""
        from gi.repository import Atspi

        def read(accessible):
            return Atspi.Text.get_text(accessible, 0, Atspi.Text.get_character_count(accessible))

        return self._read(read, "")

    def has_state(self, state):
        """state: the nick of an AT-SPI state, such as "checked" or "showing"."""
        from gi.repository import Atspi

        kind = getattr(Atspi.StateType, state.upper())
        return self._read(lambda a: a.get_state_set().contains(kind), False)

    @property
    def showing(self):
        return self.has_state("showing")

    @property
    def extents(self):
        """x, y, width, height on the screen."""
        from gi.repository import Atspi

        box = self._read(lambda a: a.get_extents(Atspi.CoordType.SCREEN), None)
        return (box.x, box.y, box.width, box.height) if box else (0, 0, 0, 0)

    def children(self, most=1000):
        """The children; of a table that has very many, the first ones."""
        def read(accessible):
            count = min(accessible.get_child_count(), most)
            return [accessible.get_child_at_index(i) for i in range(count)]

        return [Node(self.session, child) for child in self._read(read, []) if child is not None]

    def walk(self, depth=20):
        """Everything below, except what is in tables and long lists."""
        for child in self.children():
            yield child
            if depth and not child.is_long():
                yield from child.walk(depth - 1)

    def is_long(self, most=200):
        return self.role in ("table", "tree table") or self._read(lambda a: a.get_child_count(), 0) > most

    def find_all(self, role=None, name=None, showing=True):
        """Descendants of a role (or one of several) whose name is, or matches, `name`."""
        roles = (role,) if isinstance(role, str) else role
        found = []
        for node in self.walk():
            if roles is not None and node.role not in roles:
                continue
            if name is not None and not _name_fits(name, node.name):
                continue
            if showing and not node.showing:
                continue
            found.append(node)
        return found

    def find(self, role=None, name=None, limit=10.0, showing=True):
        """The first such descendant, waited for."""
        what = f"{role or 'anything'} {_shown(name)} in {self.role} '{self.name}'"
        return wait_until(what, lambda: self.find_all(role, name, showing), limit)[0]

    def cell(self, row, column):
        """A cell of a table, counted from 0."""
        from gi.repository import Atspi

        found = self._read(lambda a: Atspi.Table.get_accessible_at(a, row, column), None)
        if found is None:
            raise WaitError(f"no cell {row}, {column} in {self.role} '{self.name}'")
        return Node(self.session, found)

    def show_cell(self, row, column):
        """A cell, scrolled into view with the mouse wheel."""
        x, y, width, height = self.settled()
        cell = self.cell(row, column)
        for _ in range(200):
            left, top, wide, high = cell.settled()
            middle = (left + wide // 2, top + high // 2)
            if y <= middle[1] < y + height and x <= middle[0] < x + width:
                return cell
            down = middle[1] >= y + height
            beside = y <= middle[1] < y + height
            wheel = (7 if middle[0] >= x + width else 6) if beside else (5 if down else 4)
            self.session.click(x + width // 2, y + height // 2, button=wheel)
        raise WaitError(f"cell {row}, {column} of '{self.name}' did not come into view")

    def size(self):
        """Rows and columns of a table."""
        from gi.repository import Atspi

        return self._read(lambda a: (Atspi.Table.get_n_rows(a), Atspi.Table.get_n_columns(a)), (0, 0))

    def settled(self, limit=10.0):
        """The extents once they have been the same, and not empty, on two looks in a row."""
        return steady(f"{self.role} '{self.name}'", lambda: self, limit).extents

    def click(self, times=1, button=1):
        x, y, width, height = self.settled()
        self.session.click(x + width // 2, y + height // 2, times, button)

    def outline(self, depth=0):
        """The tree as text, for messages about what was on the screen."""
        states = ",".join(s for s in ("showing", "checked", "focused", "selected") if self.has_state(s))
        lines = [f"{'  ' * depth}{self.role} '{self.name}' {self.extents} {states}"]
        children = self.children(most=41)
        for child in children[:40]:
            lines += child.outline(depth + 1)
        if len(children) > 40:
            lines.append("  " * (depth + 1) + "...")
        return lines


def _name_fits(wanted, name):
    return bool(wanted.search(name)) if isinstance(wanted, re.Pattern) else wanted == name


def _shown(name):
    if name is None:
        return ""
    return f"matching '{name.pattern}'" if isinstance(name, re.Pattern) else f"'{name}'"


class Session:
    """with Session(directory) as session: ...   The directory takes logs, sockets and an isolated home."""

    def __init__(self, directory, size=(1366, 768)):
        self.directory = Path(directory).absolute()
        self.size = size
        self.env = {}
        self.processes = []

    def __enter__(self):
        try:
            self.start()
        except BaseException:
            self.close()
            raise
        return self

    def __exit__(self, *reason):
        self.close()

    # Life

    def start(self):
        self.directory.mkdir(parents=True, exist_ok=True)
        adopt_orphans()
        # A signal that ends this process must still end what it started.
        signal.signal(signal.SIGTERM, lambda *_: sys.exit(143))
        self.env = self._clean_environment()
        self._start_screen()
        self._start_bus()
        self._start_window_manager()
        os.environ.update({k: self.env[k] for k in ("DISPLAY", "DBUS_SESSION_BUS_ADDRESS")})
        self._start_accessibility()

    def close(self):
        while self.processes:
            end_process(self.processes.pop())
        end_orphans()

    def _clean_environment(self):
        home = self.directory / "home"
        keep = {k: v for k, v in os.environ.items()
                if k in ("PATH", "TERM", "TMPDIR") or k.endswith("SAN_OPTIONS")}
        runtime = self.directory / "runtime"
        for place in (home, runtime):
            place.mkdir(parents=True, exist_ok=True)
        runtime.chmod(0o700)
        return keep | {
            "GST_REGISTRY": str(self.directory / "media-plugins.bin"),
            "HOME": str(home),
            "XDG_CONFIG_HOME": str(home / ".config"),
            "XDG_DATA_HOME": str(home / ".local/share"),
            "XDG_STATE_HOME": str(home / ".local/state"),
            "XDG_CACHE_HOME": str(home / ".cache"),
            "XDG_RUNTIME_DIR": str(runtime),
            "LANG": "C.UTF-8",
            "LC_ALL": "C.UTF-8",
            "QT_QPA_PLATFORM": "xcb",
            "QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1",
            "GSETTINGS_BACKEND": "memory",
            "NO_AT_BRIDGE": "0",
        }

    def _start_screen(self):
        reader, writer = os.pipe()
        width, height = self.size
        argv = ["Xvfb", "-displayfd", str(writer), "-screen", "0", f"{width}x{height}x24",
                "-nolisten", "tcp", "-noreset", "-ac"]
        server = self.spawn("Xvfb", argv, pass_fds=[writer])
        os.close(writer)
        os.set_blocking(reader, False)
        told = b""

        def number():
            nonlocal told
            with contextlib.suppress(BlockingIOError):
                told += os.read(reader, 64)
            if server.poll() is not None:
                raise WaitError(f"Xvfb ended with status {server.returncode}: {self.log('Xvfb')}")
            return told.endswith(b"\n")

        try:
            wait_until("Xvfb to name its display", number)
        finally:
            os.close(reader)
        self.env["DISPLAY"] = ":" + told.decode().strip()

    def _start_bus(self):
        socket = self.directory / "runtime/bus"
        socket.unlink(missing_ok=True)
        config = self.directory / "runtime/bus.conf"
        config.write_text(BUS_CONFIG.format(socket=socket), encoding="utf-8")
        self.spawn("dbus-daemon", ["dbus-daemon", f"--config-file={config}", "--nofork"])
        wait_until("the session bus to listen", socket.exists)
        self.env["DBUS_SESSION_BUS_ADDRESS"] = f"unix:path={socket}"

    def _start_window_manager(self):
        # A Norwegian keyboard: xdotool types capitals wrong where it has to invent the key.
        subprocess.run(["setxkbmap", "no"], env=self.env, timeout=10, check=True)
        self.spawn("openbox", ["openbox", "--sm-disable"])
        wait_until("openbox to manage the screen",
                   lambda: "window id" in self.output(["xprop", "-root", "_NET_SUPPORTING_WM_CHECK"]))

    def _start_accessibility(self):
        launcher = next((path for path in LAUNCHERS if os.path.exists(path)), None)
        if launcher is None:
            raise WaitError("at-spi-bus-launcher is not installed")
        self.spawn("at-spi-bus-launcher", [launcher, "--launch-immediately"])
        ask = ["dbus-send", "--session", "--print-reply", "--dest=org.a11y.Bus", "/org/a11y/bus",
               "org.a11y.Bus.GetAddress"]
        wait_until("the accessibility bus", lambda: "unix:" in self.output(ask))
        with warnings.catch_warnings():
            warnings.simplefilter("ignore", ImportWarning)
            import gi

            gi.require_version("Atspi", "2.0")
            from gi.repository import Atspi

        Atspi.init()
        Atspi.set_timeout(5000, 15000)
        self.desktop = Node(self, Atspi.get_desktop(0))

    # Processes

    def spawn(self, name, argv, env=None, cwd=None, pass_fds=()):
        """Starts a process in a group of its own; its output goes to NAME.log. Ended with the session."""
        with open(self.directory / f"{name}.log", "wb") as log:
            process = subprocess.Popen(
                [str(a) for a in argv], env={**self.env, **(env or {})}, cwd=cwd, pass_fds=pass_fds,
                stdin=subprocess.DEVNULL, stdout=log, stderr=log, start_new_session=True,
                preexec_fn=_die_with_parent)
        self.processes.append(process)
        return process

    def end(self, process):
        end_process(process)
        if process in self.processes:
            self.processes.remove(process)

    def log(self, name):
        return (self.directory / f"{name}.log").read_text(encoding="utf-8", errors="replace").strip()

    def output(self, argv, limit=10):
        """What a short command prints, empty when it fails."""
        done = subprocess.run(argv, env=self.env, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                              stderr=subprocess.DEVNULL, timeout=limit, check=False)
        return done.stdout.decode("utf-8", "replace") if done.returncode == 0 else ""

    # Mouse and keyboard

    def xdotool(self, *arguments):
        subprocess.run(["xdotool", *map(str, arguments)], env=self.env, stdin=subprocess.DEVNULL,
                       timeout=30, check=True)

    def click(self, x, y, times=1, button=1):
        self.xdotool("mousemove", x, y, "sleep", "0.03", "click", "--repeat", times, "--delay", "60", button)

    def key(self, *keys):
        self.xdotool("key", "--clearmodifiers", "--delay", "30", *keys)

    def hold(self, key, seconds):
        """Keeps a key down, so that the server repeats it."""
        self.xdotool("keydown", *key.split("+"))
        time.sleep(seconds)
        self.xdotool("keyup", *reversed(key.split("+")))

    def type(self, text):
        self.xdotool("type", "--clearmodifiers", "--delay", "25", text)

    # Windows

    def top_windows(self):
        """Every frame and dialog that is on the screen, of any program."""
        found = []
        for program in self.desktop.children():
            found += [w for w in program.children() if w.showing]
        return found

    def windows(self, title, process=None):
        """Windows on the screen with that title, of one process or of any."""
        return [w for w in self.top_windows()
                if _name_fits(title, w.name) and (process is None or w.process == process.pid)]

    def window(self, title, process=None, limit=15.0):
        """The window of that title, once it is there and stands still."""
        return steady(f"a window titled {_shown(title)}", lambda: last_of(self.windows(title, process)), limit)

    def stacking(self):
        """The titles of the windows on the screen, from the bottom to the top."""
        listed = self.output(["xprop", "-root", "_NET_CLIENT_LIST_STACKING"])
        return [self.output(["xdotool", "getwindowname", number]).strip()
                for number in re.findall(r"0x[0-9a-f]+", listed)]

    def window_ids(self, title, process=None):
        """X ids of visible windows with exactly that title, of one process or of any, the newest last."""
        owner = ["--all", "--pid", str(process.pid)] if process else []
        found = self.output(["xdotool", "search", "--onlyvisible", *owner, "--name", f"^{re.escape(title)}$"])
        return found.split()

    def window_id(self, title, process=None):
        return wait_until(f"an X window titled '{title}'", lambda: self.window_ids(title, process))[-1]

    def wmctrl(self, title, *arguments):
        subprocess.run(["wmctrl", "-i", "-r", self.window_id(title), *arguments], env=self.env, timeout=10,
                       check=True)

    def raise_window(self, title, process=None):
        """Brings a window to the front, as a task bar does."""
        chosen = self.window_id(title, process)
        subprocess.run(["wmctrl", "-i", "-a", chosen], env=self.env, timeout=10, check=True)
        wait_until(f"'{title}' to be the active window",
                   lambda: self.output(["xdotool", "getactivewindow"]).strip() == chosen)

    def close_window(self, title, process=None):
        """Presses the close button in a window's title bar."""
        self.raise_window(title, process)
        x, y, width, _ = self.window(title, process).extents
        frame = self.output(["xprop", "-id", self.window_id(title, process), "_NET_FRAME_EXTENTS"])
        title_bar = int(re.findall(r"\d+", frame.partition("=")[2])[2])
        self.click(x + width - 10, y - title_bar // 2)

    def state_of(self, title):
        """The window manager's states of a window, such as _NET_WM_STATE_MAXIMIZED_VERT."""
        told = self.output(["xprop", "-id", self.window_id(title), "_NET_WM_STATE"])
        return set(re.findall(r"_NET_WM_STATE_\w+", told))

    def maximised(self, title):
        return "_NET_WM_STATE_MAXIMIZED_VERT" in self.state_of(title)

    def screenshot(self, path, title=None):
        """A PNG of the window with that title and its frame, or of the whole screen."""
        argv = ["import", "-window", "root"] if title is None else \
            ["import", "-frame", "-window", self.window_id(title)]
        subprocess.run([*argv, str(path)], env=self.env, timeout=30, check=True)

    def outline(self):
        """Everything on the screen as text, for messages."""
        return "\n".join(line for window in self.top_windows() for line in window.outline())
