#!/usr/bin/env python3
"""fuzz/pack takes the smallest inputs, stays within its limits and gives the same file again. The
committed corpora have at most 2 MB together.
    pack_test.py FUZZ_FOLDER"""
import pathlib
import random
import subprocess
import sys
import tarfile
import tempfile
import unittest

FUZZ = pathlib.Path(sys.argv.pop(1))


class Pack(unittest.TestCase):
    def setUp(self):
        self.folder = tempfile.TemporaryDirectory()
        self.addCleanup(self.folder.cleanup)
        self.inputs = pathlib.Path(self.folder.name, "inputs")
        self.inputs.mkdir()
        self.file = pathlib.Path(self.folder.name, "target.tar.xz")

    def packed(self, contents):
        for number, content in enumerate(contents):
            (self.inputs / str(number)).write_bytes(content)
        subprocess.run([FUZZ / "pack", self.inputs, self.file], check=True,
                       stdout=subprocess.DEVNULL)
        if not self.file.exists():
            return []
        with tarfile.open(self.file) as archive:
            return [archive.extractfile(member).read() for member in archive]

    def test_holds_each_input_once_the_smallest_first(self):
        self.assertEqual(self.packed([b"three", b"", b"a", b"three"]), [b"", b"a", b"three"])

    def test_gives_the_same_file_for_the_same_inputs(self):
        self.packed([b"one", b"two"])
        first = self.file.read_bytes()
        (self.inputs / "0").rename(self.inputs / "9")
        self.packed([])
        self.assertEqual(self.file.read_bytes(), first)

    def test_leaves_out_the_largest_inputs_of_a_large_corpus(self):
        noise = random.Random(1).randbytes
        contents = [noise(size) for size in range(500, 1000)]
        kept = self.packed(contents)
        self.assertEqual(kept, contents[:len(kept)])
        self.assertLess(len(kept), len(contents))
        self.assertLessEqual(self.file.stat().st_size, 130_000)
        self.assertGreater(self.file.stat().st_size, 120_000)

    def test_leaves_out_the_largest_of_many_inputs(self):
        contents = [b"x" * size for size in range(1200)]
        self.assertEqual(self.packed(contents), contents[:1000])

    def test_removes_the_file_of_an_empty_corpus(self):
        self.file.write_bytes(b"old")
        self.assertEqual(self.packed([]), [])
        self.assertFalse(self.file.exists())


class Committed(unittest.TestCase):
    def test_has_at_most_two_megabytes(self):
        sizes = [file.stat().st_size for file in FUZZ.glob("corpus/*")]
        self.assertLessEqual(sum(sizes), 2_000_000)

    def test_belongs_to_targets(self):
        targets = {f"{file.stem}.tar.xz" for file in FUZZ.glob("targets/*.cpp")}
        self.assertLessEqual({file.name for file in FUZZ.glob("corpus/*")}, targets)


unittest.main()
