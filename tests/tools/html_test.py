#!/usr/bin/env python3
"""`qvlmms html` takes no more memory for many messages than for one.

    html_test.py QVLMMS FIXTURES
"""
import os
import pathlib
import subprocess
import sys
import tempfile
import unittest

from wire_messages import located, message, part

PROGRAM, FIXTURES = (pathlib.Path(argument).resolve() for argument in sys.argv[1:3])
MB = 1 << 20


class HtmlTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)

    def run_html(self, *arguments, code=0, **keywords):
        """The finished process; its exit code has to be @p code."""
        done = subprocess.run([PROGRAM, "html", *arguments], cwd=self.folder, capture_output=True, text=True,
                              env=os.environ | {"XDG_RUNTIME_DIR": str(self.folder)}, **keywords)
        self.assertEqual(done.returncode, code, done.stderr)
        return done

    def peak(self, *arguments):
        """The most memory that the command takes, in octets."""
        process = subprocess.Popen([PROGRAM, "html", *arguments], cwd=self.folder, stdout=subprocess.DEVNULL,
                                   env=os.environ | {"XDG_RUNTIME_DIR": str(self.folder)})
        _, status, usage = os.wait4(process.pid, 0)
        process.returncode = os.waitstatus_to_exitcode(status)
        self.assertEqual(process.returncode, 0)
        return usage.ru_maxrss * 1024

    def test_many_messages_take_no_more_memory_than_one(self):
        large = message(b"", part("application/x", located(b"a.bin"), bytes(2 * MB)))
        (self.folder / "large.mms").write_bytes(large)
        one = self.peak("large.mms", "-o", "one.html")
        many = self.peak(*["large.mms"] * 15, "-o", "many.html")
        self.assertGreater((self.folder / "many.html").stat().st_size, 40 * MB)
        self.assertLess(many, one + 10 * MB)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
