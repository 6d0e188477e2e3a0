#!/usr/bin/env python3
"""Lists of names, errors as JSON, and the progress on a terminal, for the commands that take many files.

    many_files_test.py QVLMMS FIXTURES
"""
import json
import os
import pathlib
import pty
import select
import subprocess
import sys
import tempfile
import threading
import time
import unittest

PROGRAM, FIXTURES = (pathlib.Path(argument).resolve() for argument in sys.argv[1:3])
MESSAGE = FIXTURES / "messages" / "notification.mms"
COMMANDS = ["check", "list", "show"]
LONGER_THAN_THE_DELAY = 0.8  # seconds
PATIENCE = 60  # seconds


def run(*arguments, **options):
    return subprocess.run([PROGRAM, *arguments], capture_output=True, check=False, timeout=PATIENCE, **options)


def objects(*arguments, **options):
    return [json.loads(line) for line in run(*arguments, **options).stdout.splitlines()]


class Terminal:
    """A terminal, and what is written to it."""

    def __init__(self):
        self.master, self.slave = pty.openpty()
        self.written = b""

    def read_until(self, text):
        """Reads until the text was written, or the terminal is closed."""
        while text is None or text not in self.written:
            if not select.select([self.master], [], [], PATIENCE)[0]:
                raise TimeoutError(self.written)
            try:
                octets = os.read(self.master, 65536)
            except OSError:  # no program has it open
                return
            if not octets:
                return
            self.written += octets

    def read_all(self):
        os.close(self.slave)
        self.read_until(None)
        return self.written


class ManyFiles(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)

    def message(self, name):
        path = self.folder / name
        path.write_bytes(MESSAGE.read_bytes())
        return str(path)

    def test_names_come_from_lines(self):
        names = [self.message("b"), self.message("a")]
        (self.folder / "names").write_text("\n".join(names) + "\n")
        for command in COMMANDS:
            found = objects(command, "--json", "--files-from", self.folder / "names")
            self.assertEqual([entry["file"] for entry in found], names)

    def test_names_that_end_with_nul_come_from_standard_input_after_the_arguments(self):
        names = [self.message("b\nc"), self.message("a")]
        for command in COMMANDS:
            found = objects(command, "--json", MESSAGE, "--files-from", "-", "-0",
                            input="".join(name + "\0" for name in names).encode())
            self.assertEqual([entry["file"] for entry in found], [str(MESSAGE), *names])

    def test_every_named_file_has_an_object_in_order(self):
        names = [self.message("b"), str(self.folder / "missing"), self.message("a")]
        (self.folder / "names").write_text("\n".join(names))
        for command in COMMANDS:
            for arguments in (names, ["--files-from", self.folder / "names"]):
                done = run(command, "--json", *arguments)
                found = [json.loads(line) for line in done.stdout.splitlines()]
                self.assertEqual([entry["file"] for entry in found], names)
                self.assertEqual(["error" in entry for entry in found], [False, True, False])
                self.assertIn("there is no such file", found[1]["error"])
                self.assertIn(b"missing: there is no such file", done.stderr)
                self.assertEqual(done.returncode, 2)

    def test_a_list_that_cannot_be_read_is_an_error(self):
        for command in COMMANDS:
            done = run(command, MESSAGE, "--files-from", self.folder)
            self.assertEqual(done.returncode, 2)
            self.assertIn(b"cannot read the names in ", done.stderr)
            self.assertIn(b"notification.mms", done.stdout)

    def test_other_files_in_folders_are_counted(self):
        self.message("a")
        (self.folder / "notes").write_text("text")
        for command in COMMANDS:
            done = run(command, self.folder)
            self.assertEqual((done.returncode, done.stderr), (0, b"qvlmms: 1 other file skipped\n"))

    def test_a_folder_without_messages_is_mentioned(self):
        for command in COMMANDS:
            done = run(command, self.folder)
            self.assertEqual((done.returncode, done.stderr), (0, b"qvlmms: no message was found\n"))

    def run_slowly(self, command, **streams):
        """Runs the command on three messages; the second one comes after the delay of the bar."""
        slow = self.folder / "slow"
        os.mkfifo(slow)

        def feed():
            with open(slow, "wb") as pipe:
                time.sleep(LONGER_THAN_THE_DELAY)
                pipe.write(MESSAGE.read_bytes())
        feeder = threading.Thread(target=feed)
        feeder.start()
        files = [self.message("a"), slow, self.message("b")]
        streams.setdefault("stderr", subprocess.PIPE)
        done = subprocess.run([PROGRAM, command, "--jobs", "1", *files], stdout=subprocess.PIPE,
                              check=True, timeout=PATIENCE, **streams)
        feeder.join()
        slow.unlink()
        return done

    def test_a_bar_shows_the_progress_of_a_long_run_on_a_terminal(self):
        for command in COMMANDS:
            terminal = Terminal()
            self.run_slowly(command, stderr=terminal.slave, env=os.environ | {"TERM": "xterm"})
            shown = terminal.read_all()
            self.assertIn(b"\r[####################----------] 66%, 2 done", shown)
            self.assertTrue(shown.endswith(b"\r\x1b[K"), shown)

    def test_no_bar_is_shown_elsewhere(self):
        for command in COMMANDS:
            self.assertEqual(self.run_slowly(command).stderr, b"")

    def test_no_bar_is_shown_for_a_short_run(self):
        terminal = Terminal()
        subprocess.run([PROGRAM, "list", MESSAGE, MESSAGE], stdout=subprocess.DEVNULL,
                       stderr=terminal.slave, check=True, env=os.environ | {"TERM": "xterm"})
        self.assertEqual(terminal.read_all(), b"")

    def test_a_result_does_not_wait_for_the_next_name(self):
        terminal = Terminal()
        with subprocess.Popen([PROGRAM, "list", "--json", "--jobs", "2", "--files-from", "-"],
                              stdin=subprocess.PIPE, stdout=terminal.slave) as lister:
            lister.stdin.write(f"{MESSAGE}\n".encode())
            lister.stdin.flush()
            terminal.read_until(b"notification.mms")
            lister.stdin.close()


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
