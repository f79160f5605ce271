"""What is shipped is hardened: read from the files themselves."""

import re
import subprocess
import unittest

from harness import EXECUTABLE

MODULE = EXECUTABLE.parent / "songbin-media.so"


def told(file, *options):
    return subprocess.run(["readelf", "-W", *options, file], capture_output=True, text=True, check=True).stdout


def needed_symbols(file):
    return set(re.findall(r"\bUND\s+(\w+)", told(file, "--dyn-syms")))


class Hardening(unittest.TestCase):
    def test_addresses_are_the_loaders_to_choose(self):
        for file in (EXECUTABLE, MODULE):
            self.assertRegex(told(file, "-h"), r"Type:\s+DYN", file)
        self.assertRegex(told(EXECUTABLE, "-d"), r"FLAGS_1.*\bPIE\b")

    def test_tables_of_the_loader_are_read_only_once_it_is_done(self):
        for file in (EXECUTABLE, MODULE):
            self.assertIn("GNU_RELRO", told(file, "-l"), file)
            self.assertTrue(re.search(r"\bBIND_NOW\b|FLAGS_1.*\bNOW\b", told(file, "-d")), file)

    def test_the_stack_is_not_executable(self):
        for file in (EXECUTABLE, MODULE):
            self.assertRegex(told(file, "-l"), r"GNU_STACK\s.*\sRW\s", file)

    def test_the_stack_and_the_library_calls_are_guarded(self):
        symbols = needed_symbols(EXECUTABLE)
        if any(name.startswith("__asan") for name in symbols):
            self.skipTest("built with the sanitizers, which do this and more")
        for file in (EXECUTABLE, MODULE):
            self.assertTrue("__stack_chk_fail" in needed_symbols(file), file)
        self.assertTrue([name for name in symbols if name.endswith("_chk")], "no call is fortified")


if __name__ == "__main__":
    unittest.main()
