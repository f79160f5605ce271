"""A printing system of its own with one default queue, which keeps the jobs that it is sent as PDF files."""

import shutil
import subprocess
from pathlib import Path

from session import end_process, wait_until

CUPSD = "/usr/sbin/cupsd"

SERVER = """Listen {place}/socket
Browsing Off
PreserveJobFiles Yes
DefaultAuthType None
<Location />
Order allow,deny
Allow all
</Location>
<Policy default>
<Limit All>
Order deny,allow
Allow all
</Limit>
</Policy>
"""

FILES = """FileDevice Yes
ServerRoot {place}/root
CacheDir {place}/cache
StateDir {place}/state
RequestRoot {place}/spool
AccessLog {place}/access
ErrorLog {place}/errors
PageLog {place}/pages
"""


class PrintQueue:
    """Runs from `with` on; its place must be a path short enough for a socket."""

    NAME = "Paper"

    def __init__(self, place):
        self.place = Path(place)
        self.server = None

    @staticmethod
    def is_possible():
        return Path(CUPSD).exists() and shutil.which("lpadmin") is not None

    @property
    def env(self):
        return {"CUPS_SERVER": str(self.place / "socket")}

    def __enter__(self):
        for directory in ("root", "cache", "state", "spool"):
            (self.place / directory).mkdir(parents=True)
        (self.place / "cupsd.conf").write_text(SERVER.format(place=self.place))
        (self.place / "cups-files.conf").write_text(FILES.format(place=self.place))
        self.server = subprocess.Popen(
            [CUPSD, "-f", "-c", self.place / "cupsd.conf", "-s", self.place / "cups-files.conf"],
            start_new_session=True)
        try:
            wait_until("the printing system", lambda: self._administrate(
                "-p", self.NAME, "-E", "-v", "file:/dev/null", "-m", "raw"))
            wait_until("its queue", lambda: self._administrate("-d", self.NAME))
        except BaseException:
            end_process(self.server)
            raise
        return self

    def __exit__(self, *reason):
        end_process(self.server)

    def remove(self):
        """The printer vanishes."""
        wait_until("the queue to go", lambda: self._administrate("-x", self.NAME))

    def jobs(self):
        """The files of the jobs so far, in their order."""
        return sorted((self.place / "spool").glob("d*"))

    def _administrate(self, *arguments):
        done = subprocess.run(["lpadmin", "-h", self.place / "socket", *arguments], capture_output=True,
                              timeout=10, check=False)
        return done.returncode == 0


def text_of(pdf):
    return subprocess.run(["pdftotext", "-layout", pdf, "-"], capture_output=True, text=True, check=True).stdout
