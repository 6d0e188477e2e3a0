#!/usr/bin/env python3
"""Clips that misbehave when they are converted harm neither `qvlmms html` nor the other clips.

A copy of the program finds a decoder beside it that does what the clip says: computes without end, takes
a gigabyte, or kills its process. The page has all messages and says which clips could not be converted.
    convert_test.py QVLMMS MISBEHAVING_DECODER REAL_DECODER
"""
import base64
import os
import pathlib
import re
import shutil
import struct
import subprocess
import sys
import tempfile
import time
import unittest

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent.parent))
from wire_messages import located, message, part, smil  # noqa: E402

PROGRAM, MISBEHAVING, REAL = (pathlib.Path(argument).resolve() for argument in sys.argv[1:4])
MB = 1 << 20
FAILED = "of unknown length, could not be converted"
NEVER_ENDING_SECONDS = 10 * 60


def message_of(*clips):
    """A message with a slide for each clip, an AMR of the given octets."""
    slides = "".join(f'<par><audio src="{number}.amr"/></par>' for number in range(len(clips)))
    return message(b"", part("application/smil", located(b"s.smil"), smil(slides)),
                   *(part("audio/amr", located(b"%d.amr" % number), clip) for number, clip in enumerate(clips)))


def children_of(process):
    """The states of the children, by their numbers: R, S, Z and so on."""
    states = {}
    for status in pathlib.Path("/proc").glob("[0-9]*/stat"):
        try:
            fields = status.read_text().rsplit(")", 1)[1].split()
        except OSError:
            continue  # it has ended
        if int(fields[1]) == process.pid:
            states[status.parent.name] = fields[0]
    return states


class ConvertTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)
        shutil.copy(PROGRAM, self.folder / "qvlmms")

    def start(self, *messages, decoder=MISBEHAVING):
        shutil.copy(decoder, self.folder / "decoder.so")
        names = [f"{number}.mms" for number in range(len(messages))]
        for name, octets in zip(names, messages):
            (self.folder / name).write_bytes(octets)
        return subprocess.Popen([self.folder / "qvlmms", "html", *names, "-o", "page.html", "--max-clips", "9"],
                                cwd=self.folder, stdout=subprocess.DEVNULL, stderr=subprocess.PIPE, text=True,
                                env=os.environ | {"XDG_RUNTIME_DIR": str(self.folder)})

    def finish(self, process):
        """The page, once the command has ended without an error."""
        _, error = process.communicate(timeout=200)
        self.assertEqual((process.returncode, error), (0, ""))
        return (self.folder / "page.html").read_text()

    def page_of(self, *messages, **keywords):
        return self.finish(self.start(*messages, **keywords))

    def captions(self, page):
        return [name + text for name, text in
                re.findall(r'<p class="caption">(\d\.amr) \(audio/amr\)(, [^<]*)</p>', page)]

    def sounds(self, page):
        """The WAV files in the page."""
        return [base64.b64decode(data) for data in re.findall(r'<audio [^>]*src="data:audio/wav;base64,([^"]*)', page)]

    def seconds_of(self, wav):
        octets_per_second = struct.unpack_from("<I", wav, 28)[0]
        return struct.unpack_from("<I", wav, 40)[0] / octets_per_second

    def test_a_clip_that_behaves_is_played(self):
        page = self.page_of(message_of(b"play"))
        self.assertEqual([self.seconds_of(wav) for wav in self.sounds(page)], [1])
        self.assertEqual(self.captions(page), ["0.amr, of unknown length"])

    def test_a_clip_that_kills_its_process_is_named_and_the_next_is_played(self):
        page = self.page_of(message_of(b"crash", b"kill", b"play"))
        self.assertEqual(self.captions(page), [f"0.amr, {FAILED}", f"1.amr, {FAILED}",
                                               "2.amr, of unknown length"])
        self.assertEqual(len(self.sounds(page)), 1)

    def test_a_clip_gets_no_gigabyte(self):
        page = self.page_of(message_of(b"memory"), message_of(b"play"))
        self.assertEqual(self.captions(page), [f"0.amr, {FAILED}", "0.amr, of unknown length"])

    def test_a_clip_that_computes_without_end_is_stopped(self):
        start = time.monotonic()
        page = self.page_of(message_of(b"compute"), message_of(b"play"))
        self.assertGreater(time.monotonic() - start, 5)
        self.assertEqual(self.captions(page), [f"0.amr, {FAILED}", "0.amr, of unknown length"])

    def test_a_clip_that_plays_without_end_is_truncated(self):
        page = self.page_of(message_of(b"play on"))
        self.assertEqual([self.seconds_of(wav) for wav in self.sounds(page)], [NEVER_ENDING_SECONDS])

    def test_octets_without_end_take_limited_memory(self):
        process = self.start(message_of(b"write on"), message_of(b"play"))
        _, status, usage = os.wait4(process.pid, 0)
        process.returncode = os.waitstatus_to_exitcode(status)
        process.stderr.close()
        self.assertEqual(process.returncode, 0)
        self.assertLess(usage.ru_maxrss * 1024, 150 * MB)
        self.assertEqual(self.captions((self.folder / "page.html").read_text()),
                         [f"0.amr, {FAILED}", "0.amr, of unknown length"])

    def test_a_clip_that_sleeps_is_killed_and_none_becomes_a_zombie(self):
        process = self.start(message_of(b"crash", b"kill", b"sleep"), message_of(b"play"))
        before, living = set(), 0
        while process.poll() is None:
            children = children_of(process)
            zombies = {number for number, state in children.items() if state == "Z"}
            self.assertEqual(zombies & before, set())  # one may wait for a moment
            living += len(children) > len(zombies)
            before = zombies
            time.sleep(0.5)
        self.assertGreater(living, 10)  # the child that sleeps
        page = self.finish(process)
        self.assertEqual(self.captions(page), [f"{number}.amr, {FAILED}" for number in range(3)]
                         + ["0.amr, of unknown length"])
        self.assertEqual(page.count("<article"), 2)

    def test_a_long_clip_is_truncated(self):
        frame = b"\x04" + bytes(12)  # 20 ms at the lowest rate
        frames = b"#!AMR\n" + frame * 40_000
        page = self.page_of(message_of(frames), decoder=REAL)
        self.assertEqual(self.captions(page), ["0.amr, 13 min 20 s, only the first 10 min"])
        self.assertEqual([self.seconds_of(wav) for wav in self.sounds(page)], [NEVER_ENDING_SECONDS])

    def test_without_the_decoder_the_page_is_written(self):
        page = self.page_of(message_of(b"play"), decoder="/dev/null")
        self.assertEqual(self.captions(page), [f"0.amr, {FAILED}"])


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
