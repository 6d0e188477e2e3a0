#!/usr/bin/python3
"""Indexes 2,000 messages with a Dask cluster and kills one of its two workers.

    cluster_test.py QVLMMS FIXTURES INDEX_PROGRAM

The partitions of the index, one after the other, must be the output of `qvlmms list --json` for the
same tree, in the same order. Only partitions that are missing may be written when the index is
resumed. Needs the Debian package python3-distributed; without it the test is skipped, or fails if CI
is set in the environment.
"""
import contextlib
import importlib.util
import json
import os
import pathlib
import shlex
import signal
import subprocess
import sys
import tempfile
import time
import unittest

FAILED = 1
SKIPPED = 77
PROGRAM, FIXTURES, INDEX_PROGRAM = (pathlib.Path(argument).resolve() for argument in sys.argv[1:4])

MESSAGES = 2000
FILES_PER_PARTITION = 50
PARTITIONS = 41  # the last one has the files that are no messages
SECONDS_PER_PARTITION = 0.1  # at least, so that there is time to kill a worker


def wait_until(condition, seconds=30):
    end = time.monotonic() + seconds
    while not condition():
        if time.monotonic() > end:
            raise RuntimeError("the cluster does not answer")
        time.sleep(0.01)


def subjects_in(messages):
    """(octets, offset and size of the Subject) of messages that have one."""
    shown = subprocess.run([PROGRAM, "show", "--json", *messages], stdout=subprocess.PIPE, check=False)
    for message in map(json.loads, shown.stdout.splitlines()):
        for field in message["fields"]:
            if field.get("name") == "Subject":
                yield pathlib.Path(message["file"]).read_bytes(), field["offset"], field["octets"]


def fill(tree):
    """Writes the messages into nested folders, and a few other files."""
    originals = list(subjects_in(sorted(FIXTURES.glob("*/*.mms"))))
    # As texts, these names are in another order than their octets; \udcfc is an octet that is no UTF-8.
    folders = [tree / outer / inner
               for outer in ("2025", "Ｆｅｂ", "\udcfc") for inner in ("a", "b-c", "b")]
    for folder in folders:
        folder.mkdir(parents=True)
    for number in range(MESSAGES):
        octets, offset, size = originals[number % len(originals)]
        subject = b"\x96Message %d\0" % number
        (folders[number % len(folders)] / f"{number} ü.mms").write_bytes(
            octets[:offset] + subject + octets[offset + size:])
    (tree / "zz-notes.txt").write_text("no message")
    (tree / "zz-empty").touch()
    (tree / ".hidden.mms").write_bytes(originals[0][0])
    (tree / "zz-link.mms").symlink_to(tree / "zz-notes.txt")


def address_in(description):
    """The address in the scheduler's file; None until the scheduler has written all of it."""
    with contextlib.suppress(OSError, ValueError):
        return json.loads(description.read_text())["address"]


class Cluster:
    """A scheduler and two workers on the loopback interface."""

    def __init__(self, folder):
        self.log = open(folder / "cluster.log", "wb")
        self.environment = os.environ | {"XDG_RUNTIME_DIR": str(folder), "LC_ALL": "C.UTF-8"}
        description = folder / "scheduler.json"
        common = ["--scheduler-file", description, "--host", "127.0.0.1", "--no-dashboard"]
        self.processes = [self.start("scheduler", *common, "--port", "0")]
        wait_until(lambda: address_in(description))
        self.address = address_in(description)
        self.workers = [self.start("worker", *common, "--no-nanny", "--nthreads", "1",
                                   "--local-directory", folder / f"worker-{number}")
                        for number in range(2)]
        self.processes += self.workers

    def start(self, role, *options):
        return subprocess.Popen([sys.executable, "-m", f"distributed.cli.dask_{role}", *options],
                                stdout=self.log, stderr=self.log, env=self.environment)

    def stop(self):
        for process in reversed(self.processes):
            with contextlib.suppress(OSError):
                process.kill()
            process.wait()
        self.log.close()


class ClusterTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.work = pathlib.Path(folder.name)
        self.tree, self.index = self.work / "tree", self.work / "index"
        fill(self.tree)
        # Notes which worker starts it.
        self.program, self.starts = self.work / "slow-qvlmms", self.work / "starts"
        self.program.write_text(f"#!/bin/sh\necho $PPID >>{shlex.quote(str(self.starts))}\n"
                                f"sleep {SECONDS_PER_PARTITION}\n"
                                f"exec {shlex.quote(str(PROGRAM))} \"$@\"\n")
        self.program.chmod(0o755)
        self.cluster = Cluster(self.work)
        self.addCleanup(self.cluster.stop)

    def start_index(self):
        return subprocess.Popen(
            [sys.executable, INDEX_PROGRAM, self.tree, self.index, "--scheduler", self.cluster.address,
             "--files", str(FILES_PER_PARTITION), "--program", self.program],
            stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True,
            env=self.cluster.environment)

    def finish(self, process):
        printed, _ = process.communicate(timeout=60)
        self.assertEqual(process.returncode, 0, printed)
        return printed

    def partitions(self):
        return sorted(self.index.glob("part-*.jsonl"))

    def workers_that_started(self):
        return [int(line) for line in self.starts.read_text().splitlines()]

    def assert_complete(self):
        self.assertEqual(len(self.partitions()), PARTITIONS)
        listed = subprocess.run([PROGRAM, "list", "--json", self.tree], stdout=subprocess.PIPE,
                                stderr=subprocess.DEVNULL, env=self.cluster.environment, check=False)
        self.assertEqual(listed.stdout.count(b"\n"), MESSAGES)
        indexed = b"".join(partition.read_bytes() for partition in self.partitions())
        self.assertEqual(indexed.splitlines(), listed.stdout.splitlines())
        self.assertEqual({entry.name for entry in self.index.iterdir()},
                         {"names"} | {partition.name for partition in self.partitions()})

    def test_index_survives_a_killed_worker_and_is_resumed(self):
        process = self.start_index()
        wait_until(lambda: len(self.partitions()) >= PARTITIONS // 2)
        killed, other = self.cluster.workers
        killed.send_signal(signal.SIGKILL)
        killed.wait()
        self.assertLess(len(self.partitions()), PARTITIONS)
        before = self.workers_that_started()
        self.assertLessEqual({killed.pid, other.pid}, set(before))
        self.finish(process)
        self.assertNotIn(killed.pid, self.workers_that_started()[len(before):])
        self.assert_complete()

        written = {partition: partition.stat() for partition in self.partitions()}
        removed = self.partitions()[3], self.partitions()[17]
        for partition in removed:
            partition.unlink()
        self.starts.unlink()
        printed = self.finish(self.start_index())
        self.assertIn(f"2 of {PARTITIONS} partitions are missing", printed)
        self.assertEqual(len(self.workers_that_started()), len(removed))
        self.assertEqual([partition for partition in self.partitions()
                          if partition.stat().st_ino == written[partition].st_ino
                          and partition.stat().st_mtime_ns == written[partition].st_mtime_ns],
                         [partition for partition in self.partitions() if partition not in removed])
        self.assert_complete()

        first = self.partitions()[0]
        lines = first.read_bytes().splitlines()
        name = json.loads(lines[1])["file"]
        pathlib.Path(name).unlink()
        first.unlink()
        self.finish(self.start_index())
        kept = first.read_bytes().splitlines()
        lost = json.loads(kept.pop(1))
        self.assertEqual(kept, lines[:1] + lines[2:])
        self.assertEqual((lost["file"], set(lost)), (name, {"error", "file"}))


if __name__ == "__main__":
    if not importlib.util.find_spec("distributed"):
        print("skipped: distributed is missing; install the package python3-distributed")
        sys.exit(FAILED if os.environ.get("CI") else SKIPPED)
    unittest.main(argv=sys.argv[:1], verbosity=2)
