#!/usr/bin/env python3
"""The files that the commands write are complete or absent, and replace nothing that they should not.

A process is killed, a disk is full, links are planted, and names have any octets.
    written_files_test.py QVLMMS PICTURE
"""
import os
import pathlib
import pty
import random
import resource
import shutil
import signal
import stat
import subprocess
import sys
import tempfile
import time

from wire_messages import located, message, part, smil

SEED = 20261122
KILLS = 50
UMASK = 0o022
TEMPORARY = ".qvlmms-"
TO_FOLDER = ("extract", "html to a folder", "render")


def large_message():
    octets = random.Random(SEED).randbytes(3_000_000)
    document = smil('<par dur="1s"><text src="a.txt" region="T"/></par>' * 20)
    return message(b"", part("application/smil", located(b"s.smil"), document),
                   part(b"\x83", located(b"a.txt"), b"text"),
                   *(part("application/x", located(b"%d.bin" % i), octets) for i in range(3)))


class Test:
    def __init__(self, qvlmms, picture, folder):
        self.qvlmms = qvlmms
        self.folder = folder
        self.failed = False
        self.environment = os.environ | {"XDG_RUNTIME_DIR": str(folder)}
        self.input = folder / "large.mms"
        self.input.write_bytes(large_message())
        shutil.copy(picture, folder / "picture.jpg")
        # The commands that write, with the file or folder that they write as %s.
        self.commands = {
            "extract": ["extract", "large.mms", "%s"],
            "render": ["render", "--scale", "1", "large.mms", "%s"],
            "html": ["html", "large.mms", "-o", "%s"],
            "html to a folder": ["html", "large.mms", "-o", "%s/"],
            "rewrite": ["rewrite", "large.mms", "%s"],
            "compose": ["compose", "-o", "%s", "--to", "1", "--transaction-id", "T", "--date", "2026-01-01",
                        "--max-size", "20000", "--slide", "--image", "picture.jpg", "--attach", "large.mms"],
        }

    def complain(self, text):
        print(text, file=sys.stderr)
        self.failed = True

    def expect(self, condition, text):
        if not condition:
            self.complain(text)

    def start(self, command, out, **keywords):
        arguments = [argument if "%s" not in argument else os.fsencode(argument).replace(b"%s", os.fsencode(out))
                     for argument in self.commands[command]]
        keywords = {"stdout": subprocess.PIPE, "stderr": subprocess.PIPE} | keywords
        return subprocess.Popen([self.qvlmms, *arguments], cwd=self.folder, env=self.environment, **keywords)

    def run(self, command, out, **keywords):
        process = self.start(command, out, **keywords)
        output, error = process.communicate(timeout=120)
        return process.returncode, output or b"", (error or b"").decode(errors="replace")

    def fresh(self, name):
        """The path of a new folder."""
        path = self.folder / name
        shutil.rmtree(path, ignore_errors=True)
        path.mkdir()
        return path

    def target(self, command, folder):
        """What the command gets as its output: the folder, or a file in it."""
        return folder if command in TO_FOLDER else folder / "out.mms"

    def written(self, folder):
        return {path.name: path.read_bytes() for path in folder.iterdir()
                if not path.name.startswith(TEMPORARY)}

    def reference(self, command):
        """The files that the command writes when nothing disturbs it, and its seconds."""
        folder = self.fresh(f"{command}-reference")
        start = time.monotonic()
        code, _, error = self.run(command, self.target(command, folder))
        self.expect(code == 0 or command == "render", f"{command}: {code}, {error}")
        return self.written(folder), time.monotonic() - start

    def check_kills(self, command, files, seconds):
        """A killed command leaves files as they should be, as they were, or none."""
        chance = random.Random(SEED)
        old = {name: b"old" for name in files} if command != "extract" else {}
        partial = 0
        for _ in range(KILLS):
            folder = self.fresh(f"{command}-killed")
            for name, octets in old.items():
                (folder / name).write_bytes(octets)
            process = self.start(command, self.target(command, folder))
            time.sleep(chance.uniform(0, seconds))
            process.send_signal(signal.SIGKILL)
            process.communicate()
            found = self.written(folder)
            partial += found != files
            for name, octets in found.items():
                self.expect(octets in (files.get(name), old.get(name)), f"{command}: {name} is partial")
        self.expect(partial > 0, f"{command}: no run was killed before its end")

    def check_full_disk(self, command, files):
        largest = max(map(len, files.values()))
        for limit in (0, 100, largest // 2, largest - 1):
            folder = self.fresh(f"{command}-full")
            code, _, error = self.run(
                command, self.target(command, folder),
                preexec_fn=lambda: resource.setrlimit(resource.RLIMIT_FSIZE, (limit, limit)))
            self.expect(code == 2 and error.endswith(": File too large\n"),
                        f"{command}, files of {limit} octets: {code}, {error}")
            found = self.written(folder)
            self.expect(found.items() <= files.items(), f"{command}: a file is partial")
            self.expect(len(list(folder.iterdir())) == len(found), f"{command}: a temporary file is left")

    def check_planted_links(self, command, files):
        """Links with the names of all files lead out of the folder."""
        for target in ("victim", "absent"):
            folder = self.fresh(f"{command}-planted")
            victim = self.folder / "victim"
            victim.write_bytes(b"mine")
            for name in files:
                (folder / name).symlink_to(self.folder / target)
            code, _, error = self.run(command, folder)
            self.expect(code == 0, f"{command} with planted links: {code}, {error}")
            self.expect(victim.read_bytes() == b"mine", f"{command} followed a link to a file")
            self.expect(not (self.folder / "absent").exists(), f"{command} followed a dangling link")
            links = sum(path.is_symlink() for path in folder.iterdir())
            self.expect(links == (len(files) if command == "extract" else 0),
                        f"{command} leaves {links} links")

    def check_named_link(self, command, files):
        """A link that the user names stays, and its file is replaced with its permissions."""
        folder = self.fresh(f"{command}-link")
        (folder / "sub").mkdir()
        (folder / "sub/real").write_bytes(b"old")
        (folder / "sub/real").chmod(0o640)
        (folder / "out.mms").symlink_to("sub/next")
        (folder / "sub/next").symlink_to("real")
        for existing in (True, False):
            if not existing:
                (folder / "sub/real").unlink()
            self.run(command, folder / "out.mms")
            self.expect((folder / "out.mms").is_symlink() and (folder / "sub/next").is_symlink(),
                        f"{command} replaced a link that the user named")
            self.expect((folder / "sub/real").read_bytes() == files["out.mms"],
                        f"{command} did not write the file of a link")
            mode = stat.S_IMODE((folder / "sub/real").stat().st_mode)
            expected = 0o640 if existing else 0o666 & ~UMASK
            self.expect(mode == expected, f"{command} gives the file the permissions {mode:o}")
        (folder / "out.mms").unlink()
        (folder / "out.mms").symlink_to("out.mms")
        code, _, error = self.run(command, folder / "out.mms")
        self.expect(code == 2 and "Too many levels of symbolic links" in error, f"{command}: {code}, {error}")

    def check_devices(self, command, files):
        for out, keywords in (("/dev/full", {}), ("-", {"stdout": open("/dev/full", "wb")}),
                              ("/dev/stdout", {"stdout": open("/dev/full", "wb")})):
            code, _, error = self.run(command, out, **keywords)
            self.expect(code == 2 and error.endswith(": No space left on device\n"),
                        f"{command} to {out}: {code}, {error}")
        for out in ("-", "/dev/stdout"):
            code, output, error = self.run(command, out)
            self.expect(code == 0 and output == files["out.mms"], f"{command} to {out}: {code}, {error}")
            with open(self.folder / "redirected", "wb") as file:
                self.run(command, out, stdout=file)
            self.expect((self.folder / "redirected").read_bytes() == files["out.mms"],
                        f"{command} to {out}, a file: wrong octets")
        fifo = self.folder / f"{command}-fifo"
        os.mkfifo(fifo)
        process = self.start(command, fifo)
        received = fifo.read_bytes()
        output, _ = process.communicate()
        self.expect(process.returncode == 0 and received == files["out.mms"], f"{command} to a FIFO")
        self.expect(output.startswith(b"wrote ") and stat.S_ISFIFO(fifo.stat().st_mode),
                    f"{command} replaced a FIFO")

    def check_terminal(self, command):
        for out in ("-", "/dev/stdout", "/dev/tty"):
            master, terminal = pty.openpty()
            process = self.start(command, out, stdin=terminal, stdout=terminal, start_new_session=True,
                                 preexec_fn=lambda: os.close(os.open(os.ttyname(0), os.O_RDWR)))
            _, error = process.communicate()
            os.close(terminal)
            os.set_blocking(master, False)
            try:
                received = os.read(master, 1000)
            except OSError:
                received = b""
            os.close(master)
            self.expect(process.returncode == 2 and b"redirect the output, or name a file" in error,
                        f"{command} to {out}, a terminal: {process.returncode}, {error}")
            self.expect(not received, f"{command} to {out} writes to the terminal: {received}")

    def check_names(self, command, files):
        """Any octets are a name, of a folder too."""
        name = b"\x9b\xff-\xe4 \n"
        folder = os.fsencode(self.fresh(f"{command}-names")) + b"/" + name
        if command not in TO_FOLDER:
            os.mkdir(folder)
            folder += b"/" + name
        code, _, error = self.run(command, folder)
        self.expect(code == 0, f"{command} to a name that is not UTF-8: {code}, {error}")
        found = {os.fsencode(path) for path in os.listdir(folder)} if os.path.isdir(folder) else {b"out.mms"}
        self.expect(found == {os.fsencode(name) for name in files}, f"{command} wrote {found}")
        shutil.copy(self.input, os.fsencode(self.folder) + b"/" + name)
        for arguments in ([b"show", name], [b"show", b"--json", name], [b"smil", name]):
            shown = subprocess.run([self.qvlmms, *arguments], cwd=self.folder, env=self.environment,
                                   capture_output=True)
            self.expect(shown.returncode == 0, f"{arguments}: {shown}")

    def check(self, command):
        files, seconds = self.reference(command)
        self.expect(len(files) > 0, f"{command} writes no file")
        self.check_kills(command, files, seconds)
        self.check_full_disk(command, files)
        self.check_names(command, files)
        if command in TO_FOLDER:
            self.check_planted_links(command, files)
        else:
            self.check_named_link(command, files)
            self.check_devices(command, files)
            self.check_terminal(command)


def main():
    qvlmms, picture = map(os.path.abspath, sys.argv[1:])
    os.umask(UMASK)
    with tempfile.TemporaryDirectory() as folder:
        test = Test(qvlmms, picture, pathlib.Path(folder))
        for command in test.commands:
            test.check(command)
    sys.exit(test.failed)


main()
