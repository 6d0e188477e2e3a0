#!/usr/bin/env python3
"""A command that runs out of memory ends with exit code 2 and a sentence, never with a signal.

The address space is limited to more and more until the command succeeds. A run that succeeds prints and
writes the same as without a limit. Pictures are not compared: Qt draws what it has memory for.
    out_of_memory_test.py QVLMMS
"""
import os
import pathlib
import resource
import shutil
import subprocess
import sys
import tempfile

from wire_messages import located, message, part, smil

SKIPPED = 77
MB = 1 << 20
STEP = 4 * MB
SENTENCE = "there is not enough memory"


def large_message():
    document = smil('<par dur="2s"><text src="a.txt" region="T"/></par>' * 500)
    return message(b"", part("application/smil", located(b"s.smil"), document),
                   part(b"\x03\x83\x81\xea", located(b"a.txt"), b"hello\n" * 100),
                   part(b"\x03\x83\x81\xea", located(b"b.txt"), b"line of text\n" * 150_000),
                   part(b"\x9e", located(b"c.jpg"), b"\xff\xd8" + bytes(2_000_000)))


# The commands, with the folder that they write to as %s.
COMMANDS = {
    "check": ["check", "large.mms"],
    "list": ["list", "large.mms"],
    "html": ["html", "large.mms", "-o", "%s/page.html"],
    "show": ["show", "large.mms"],
    "show --json": ["show", "--json", "large.mms"],
    "show --jobs": ["show", "--jobs", "4", *["large.mms"] * 4],
    "smil": ["smil", "large.mms"],
    "smil --model": ["smil", "--model", "large.mms"],
    "extract": ["extract", "large.mms", "%s"],
    "rewrite": ["rewrite", "large.mms", "%s/out.mms"],
    "render": ["render", "large.mms", "%s"],
    "compose": ["compose", "-o", "%s/out.mms", "--to", "1", "--date", "2026-01-01", "--transaction-id", "T",
                "--max-size", "20000", "--slide", "--text-file", "text.txt", "--attach", "large.mms"],
}

EXIT_CODES = {"check": 1}  # of the commands that do not exit with 0


class Test:
    def __init__(self, qvlmms, folder):
        self.qvlmms = qvlmms
        self.folder = folder
        self.failed = False
        # The threads would reserve 64 MB each.
        self.environment = os.environ | {"XDG_RUNTIME_DIR": str(folder), "MALLOC_ARENA_MAX": "1"}
        for name in ("QT_FATAL_WARNINGS", "QT_LOGGING_RULES"):
            self.environment.pop(name, None)
        (folder / "large.mms").write_bytes(large_message())
        (folder / "text.txt").write_bytes(b"line of text\n" * 150_000)

    def complain(self, text):
        print(text, file=sys.stderr)
        self.failed = True

    def run(self, arguments, limit=resource.RLIM_INFINITY):
        def limited():
            resource.setrlimit(resource.RLIMIT_AS, (limit, limit))
            resource.setrlimit(resource.RLIMIT_CORE, (0, 0))
        return subprocess.run([self.qvlmms, *arguments], cwd=self.folder, env=self.environment,
                              capture_output=True, preexec_fn=limited)

    def outcome(self, command, limit=resource.RLIM_INFINITY):
        """The finished process, what it printed, and the files that it wrote."""
        out = self.folder / "out"
        shutil.rmtree(out, ignore_errors=True)
        out.mkdir()
        done = self.run([argument.replace("%s", "out") for argument in COMMANDS[command]], limit)
        files = {path.name: command == "render" or path.read_bytes() for path in out.iterdir()}
        return done, (done.stdout, files)

    def least(self, command):
        """The least address space, in steps, in which the program starts."""
        arguments = [COMMANDS[command][0], "--help"]
        return next(limit for limit in range(20 * MB, 2000 * MB, STEP)
                    if self.run(arguments, limit).returncode == 0)

    def check(self, command):
        undisturbed, expected = self.outcome(command)
        expected_code = EXIT_CODES.get(command, 0)
        if undisturbed.returncode != expected_code:
            return self.complain(f"{command}: {undisturbed.stderr}")
        ended = 0
        for limit in range(self.least(command), 2000 * MB, STEP):
            done, results = self.outcome(command, limit)
            where = f"{command} in {limit // MB} MB: exit code {done.returncode}"
            if done.returncode == expected_code:
                if results != expected:
                    self.complain(f"{where}, but prints or writes something else")
                break
            ended += 1
            if done.returncode != 2 or SENTENCE not in done.stderr.decode():
                self.complain(f"{where}, {done.stderr[-300:]}")
        if ended == 0:
            self.complain(f"{command} never ran out of memory")


def main():
    qvlmms = os.path.abspath(sys.argv[1])
    with tempfile.TemporaryDirectory() as folder:
        test = Test(qvlmms, pathlib.Path(folder))
        if test.run(["--version"], 2000 * MB).returncode != 0:
            print("the address space cannot be limited; a program with a sanitizer reserves terabytes")
            sys.exit(SKIPPED)
        for command in COMMANDS:
            test.check(command)
    sys.exit(test.failed)


main()
