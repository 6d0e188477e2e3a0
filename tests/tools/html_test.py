#!/usr/bin/env python3
"""`qvlmms html` writes one page or a folder of pages, with the memory of one message.

    html_test.py QVLMMS FIXTURES
"""
import base64
import html.parser
import os
import pathlib
import random
import struct
import subprocess
import sys
import tempfile
import time
import unittest
import zlib

from wire_messages import located, message, part, smil

PROGRAM, FIXTURES = (pathlib.Path(argument).resolve() for argument in sys.argv[1:3])
MB = 1 << 20


class Links(html.parser.HTMLParser):
    """The addresses in a page, by the text of the link."""

    def __init__(self, page):
        super().__init__()
        self.links = {}
        self.address = None
        self.sources = []
        self.feed(page.read_text())

    def handle_starttag(self, tag, attributes):
        attributes = dict(attributes)
        if tag == "a":
            self.address = attributes["href"]
        self.sources += [attributes["src"]] if "src" in attributes else []

    def handle_endtag(self, tag):
        if tag == "a":
            self.address = None

    def handle_data(self, text):
        if self.address:
            self.links[text] = self.address


def chunk(kind, octets):
    return struct.pack(">I", len(octets)) + kind + octets + struct.pack(">I", zlib.crc32(kind + octets))


def noise(width, height):
    """A PNG that does not become smaller when it is compressed."""
    rows = b"".join(b"\0" + random.Random(row).randbytes(3 * width) for row in range(height))
    return (b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", struct.pack(">IIBBBBB", width, height, 8, 2, 0, 0, 0))
            + chunk(b"IDAT", zlib.compress(rows)) + chunk(b"IEND", b""))


def noisy_message():
    document = smil('<par><img src="a.png" region="I"/></par>',
                    '<region id="I" left="0" top="0" width="120" height="160"/>')
    return message(b"", part("application/smil", located(b"s.smil"), document),
                   part(b"\xa0", located(b"a.png"), noise(120, 160)))


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
        """The most memory that the command takes, in octets. A sanitizer would keep what was freed."""
        sanitizer = os.environ.get("ASAN_OPTIONS", "") + ":quarantine_size_mb=1"
        process = subprocess.Popen([PROGRAM, "html", *arguments], cwd=self.folder, stdout=subprocess.DEVNULL,
                                   env=os.environ | {"XDG_RUNTIME_DIR": str(self.folder),
                                                     "ASAN_OPTIONS": sanitizer})
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

    def test_a_page_above_the_limit_is_not_written(self):
        (self.folder / "large.mms").write_bytes(message(b"", part("application/x", located(b"a"), bytes(MB))))
        (self.folder / "page.html").write_text("mine")
        done = self.run_html("large.mms", "-o", "page.html", "--limit", "1", code=2)
        self.assertIn("cannot write page.html: the page would have more than 1 MB; write a folder of pages "
                      "with -o FOLDER/, or raise --limit\n", done.stderr)
        self.assertEqual((self.folder / "page.html").read_text(), "mine")
        self.assertEqual(done.stdout, "")
        self.run_html("large.mms", "-o", "page.html", "--limit", "2")
        self.assertGreater((self.folder / "page.html").stat().st_size, MB)

    def test_messages_after_the_limit_are_not_read(self):
        (self.folder / "large.mms").write_bytes(message(b"", part("application/x", located(b"a"), bytes(MB))))
        done = self.run_html("large.mms", "missing.mms", "-o", "page.html", "--limit", "1", code=2)
        self.assertNotIn("missing.mms", done.stderr)

    def test_a_folder_gets_an_index_and_a_page_for_each_message(self):
        names = ["related", "mixed", "notification"]
        messages = [FIXTURES / "messages" / f"{name}.mms" for name in names]
        done = self.run_html(*messages, "-o", "new/pages/")
        self.assertEqual(done.stdout, "wrote new/pages/index.html (3 messages, each on its own page)\n")
        folder = self.folder / "new/pages"
        pages = [f"message-{number}.html" for number in (1, 2, 3)]
        self.assertEqual(sorted(os.listdir(folder)), ["index.html", *pages])
        index = Links(folder / "index.html")
        subjects = ("Grüße aus Küstrin", "Files", "Photos")
        self.assertEqual({text: index.links[text] for text in subjects},
                         dict(zip(subjects, pages)))
        self.assertEqual([source[:15] for source in index.sources], ["data:image/png;"] * 2)
        neighbors = [{text: address for text, address in Links(folder / page).links.items()
                      if not address.startswith("data:")} for page in pages]
        back = {"All messages": "index.html"}
        self.assertEqual(neighbors, [
            back | {"Next message": pages[1]},
            back | {"Previous message": pages[0], "Next message": pages[2]},
            back | {"Previous message": pages[1]}])

    def test_a_message_is_not_replaced_by_a_page(self):
        octets = (FIXTURES / "messages" / "related.mms").read_bytes()
        for name in ("a.mms", "b.mms"):
            (self.folder / name).write_bytes(octets)
        done = self.run_html("-o", "a.mms", "b.mms", code=2)
        self.assertEqual(done.stderr, "qvlmms: cannot write a.mms: it is a message; name another file\n")
        self.assertEqual((self.folder / "a.mms").read_bytes(), octets)

    def test_problems_that_are_not_listed_are_counted(self):
        parts = [part("text/plain", located(b"%d.txt" % number), b"x") for number in range(30)]
        (self.folder / "a.mms").write_bytes(
            message(b"", part("application/smil", located(b"s.smil"), smil("<par dur='1s'/>")), *parts))
        self.run_html("a.mms", "-o", "page.html")
        page = (self.folder / "page.html").read_text()
        self.assertEqual(page.count("<code>unused-part</code>"), 20)
        self.assertIn("<li>and 10 more of unused-part</li>", page)

    def test_a_page_has_only_the_date_of_the_sender(self):
        pages = []
        for name in ("a.html", "b.html"):
            self.run_html(FIXTURES / "messages" / "related.mms", "-o", name)
            pages.append((self.folder / name).read_text())
            time.sleep(1.1)
        self.assertEqual(*pages)
        self.assertRegex(pages[0], r">Date</dt><dd dir=\"auto\">2004-07-1\dT[^<( ]*</dd>")

    def test_an_mp3_without_a_tag_is_played_as_it_is(self):
        (self.folder / "a.mms").write_bytes(
            message(b"", part("application/smil", located(b"s.smil"), smil('<par><audio src="a.mp3"/></par>')),
                    part("audio/mpeg", located(b"a.mp3"), b"\xff\xfb\x90\x00" + bytes(413))))
        self.run_html("a.mms", "-o", "page.html")
        source, = Links(self.folder / "page.html").sources
        self.assertTrue(source.startswith("data:audio/mpeg;base64,//uQ"), source[:40])

    def test_the_end_of_an_encoded_subject_is_not_shown_in_titles(self):
        encoded = b"\xea" + "港口".encode() + b"\0"
        (self.folder / "a.mms").write_bytes(message(b"\x96" + bytes([len(encoded)]) + encoded))
        self.run_html("a.mms", "a.mms", "-o", "page.html")
        page = (self.folder / "page.html").read_text()
        self.assertEqual(page.count(">港口</span>"), 2)
        self.assertEqual(page.count("<bdi>港口</bdi>"), 2)

    def test_the_index_shortens_long_texts_and_lists(self):
        recipients = b"".join(b"\x97+%d/TYPE=PLMN\0" % number for number in range(20))
        (self.folder / "a.mms").write_bytes(message(b"\x96" + b"s" * 1000 + b"\0" + recipients))
        self.run_html("a.mms", "a.mms", "-o", "page.html")
        index = (self.folder / "page.html").read_text().split("</nav>")[0]
        self.assertIn("s" * 200 + "…</span>", index)
        self.assertNotIn("s" * 201, index)
        self.assertIn(">To +1, +0, +1 and 18 more</span>", index)

    def test_an_existing_folder_needs_no_slash(self):
        (self.folder / "pages").mkdir()
        self.run_html(FIXTURES / "messages" / "related.mms", "-o", "pages")
        self.assertEqual(sorted(os.listdir(self.folder / "pages")), ["index.html", "message-1.html"])

    def test_a_file_that_cannot_be_read_has_no_page(self):
        related = FIXTURES / "messages" / "related.mms"
        done = self.run_html("missing.mms", related, "missing.mms", related, "missing.mms", "-o", "pages/", code=2)
        self.assertEqual(done.stderr.count("cannot read missing.mms: "), 3)
        self.assertEqual(sorted(os.listdir(self.folder / "pages")),
                         ["index.html", "message-1.html", "message-2.html"])
        self.assertNotIn("Next message", Links(self.folder / "pages/message-2.html").links)

    def test_a_folder_is_created_only_for_a_message(self):
        done = self.run_html("missing.mms", "-o", "pages/", code=2)
        self.assertIn("no page was written", done.stderr)
        self.assertFalse((self.folder / "pages").exists())

    def test_a_folder_in_place_of_a_page_stays(self):
        (self.folder / "pages/message-1.html").mkdir(parents=True)
        done = self.run_html(FIXTURES / "messages" / "related.mms", "-o", "pages", code=2)
        self.assertIn("cannot write pages/message-1.html: a folder or a device has this name\n", done.stderr)
        self.assertEqual(os.listdir(self.folder / "pages"), ["message-1.html"])

    def test_the_limit_leaves_out_thumbnails_of_a_folder(self):
        (self.folder / "noisy.mms").write_bytes(noisy_message())
        done = self.run_html(*["noisy.mms"] * 20, "-o", "pages/", "--limit", "1")
        self.assertRegex(done.stderr, r"^qvlmms: messages without a thumbnail: \d+, from noisy.mms on "
                         r"\(limit: 1 MB; raise it with --limit\)\n$")
        index = Links(self.folder / "pages/index.html")
        self.assertTrue(10 < len(index.sources) < 20, len(index.sources))
        self.assertEqual(len(os.listdir(self.folder / "pages")), 21)

    def test_a_wav_file_that_browsers_do_not_play_is_converted(self):
        for codec, bits, is_converted in ((1, 16, False), (6, 8, True)):
            form = struct.pack("<4sIHHIIHH", b"fmt ", 16, codec, 1, 8000, 1000 * bits, bits // 8, bits)
            samples = struct.pack("<4sI", b"data", 1600) + bytes(1600)
            wav = b"RIFF" + struct.pack("<I", 4 + len(form + samples)) + b"WAVE" + form + samples
            (self.folder / "a.mms").write_bytes(
                message(b"", part("application/smil", located(b"s.smil"), smil('<par><audio src="a.wav"/></par>')),
                        part("audio/wav", located(b"a.wav"), wav)))
            self.run_html("a.mms", "-o", "page.html")
            source, = Links(self.folder / "page.html").sources
            played = base64.b64decode(source.removeprefix("data:audio/wav;base64,"))
            self.assertEqual(struct.unpack_from("<H", played, 20), (1,))
            self.assertEqual(played != wav, is_converted)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
