"""Composes messages that differ in recipients, scripts, slides, media, names and every header field.

The seed determines all of them, so a message that fails is composed again with the same options.
"""
import collections
import concurrent.futures
import os
import pathlib
import random
import shutil
import subprocess

SEED = 20261122
MANY_PARTS = 127

PHONES = ["+4915112345678", "22000", "+1", "0301234567", "+819012345678"]
MAILBOXES = ["anna@example.org", "a@b", "x.y+z_%-'@mail.example.com", "ünï@example.org", "名@例え.jp"]
SUBJECTS = [
    "Sea", "Grüße aus Küstrin", "Übersee", "Ελλάδα", "Привет из Одессы", "שלום עולם", "مرحبا بالعالم",
    "港口", "またね", "안녕하세요", "नमस्ते", "สวัสดี", "⚓ 🌊 👩‍👩‍👧", "e\u0301 a\u0308", "ab\u200e\u202bcd\u202c",
    "-o", "\"quoted\" 'twice'", "<tag> & entity", "100%1 \\u{7}", " blanks ", "n" * 126,
    "n" * 127, "ü" * 200,
]
TEXTS = ["x", "At the sea", "Grüße\nvon der See", "港口 ⚓", "<a> & \"b\"", "مرحبا", "t" * 5000]
NAMES = ["beach", "my photo", "two  blanks", "ünï", "Übersee", "港口 ⚓", "صورة", "100%", "a&b", "it's", "a.b.c",
         "(1)", "x;y=z", "n" * 120, "ü" * 70]
COLORS = ["navy", "#ff8000", "white", "teal"]
DATES = ["1970-01-02T00:00:00Z", "2026-05-01T12:00:00+02:00", "2038-01-19T03:14:07Z"]

# Options and the clips of the fixtures that they take.
CLIPS = {"--video": ["video.3gp", "video.avi", "video.mpg"],
         "--audio": ["sound.aac", "sound.amr", "sound.m4a", "sound.mp3", "sound.ogg", "sound.wav"]}
ATTACHMENTS = {"vcf": b"BEGIN:VCARD\r\nEND:VCARD\r\n", "txt": "Grüße".encode(), "html": b"<p>Hi</p>",
               "xyz": bytes(range(256)), "imy": b"BEGIN:IMELODY\r\nEND:IMELODY\r\n", "pdf": b"%PDF-1.4",
               "smil": b"<smil/>", "wbmp": b"\0\0\1\1\0", "css": b"p {}", "xml": b"<x/>", "bin": b""}


Composed = collections.namedtuple("Composed", ["path", "date"])


class Composition:
    """The options of one message; its files are written to a folder of its own."""

    def __init__(self, number, folder, picture, clips):
        self.random = random.Random(SEED + number)
        self.folder = folder
        self.picture = picture
        self.clips = clips
        self.options = []

    def maybe(self, probability=0.5):
        return self.random.random() < probability

    def add(self, option, *choices):
        self.options += [option] + ([self.random.choice(choices)] if choices else [])

    def add_addresses(self):
        options = ["--to"] + self.random.choices(["--to", "--cc", "--bcc"], k=self.random.randrange(5))
        for option in options:
            self.add(option, *PHONES, *MAILBOXES)
        if self.maybe():
            self.add("--from", *PHONES, *MAILBOXES)

    def add_fields(self):
        if self.maybe(0.9):
            self.add("--subject", *SUBJECTS)
        if self.maybe():
            self.add("--priority", "low", "normal", "high")
        if self.maybe():
            self.add("--class", "personal", "advertisement", "informational", "auto")
        if self.maybe():
            self.add("--expiry", "1s", "30m", "12h", "7d", "100d")
        if self.maybe(0.3):
            self.add("--delivery-time", *DATES)
        for flag in ["--delivery-report", "--read-reply", "--hide-sender"]:
            if self.maybe():
                self.add(flag)
        self.add("--date", *DATES)
        self.add("--transaction-id", "T", "T-%d" % self.random.randrange(10 ** 9), "~!@#$%^&*()", "x" * 200)

    def file(self, extension, octets):
        """A new file with this content; now and then its name has no extension."""
        folder = self.folder / str(len(self.options))
        folder.mkdir()
        path = folder / (self.random.choice(NAMES) + ("" if self.maybe(0.2) else "." + extension))
        path.write_bytes(octets)
        return str(path)

    def add_medium(self, option):
        path = self.picture if option == "--image" else self.clips / self.random.choice(CLIPS[option])
        self.options += [option, self.file(path.suffix[1:], path.read_bytes())]

    def add_slide(self, is_first):
        if not is_first or self.maybe():
            self.add("--slide")
        media = self.random.sample(["--image", "--text", "--audio"], self.random.randrange(1, 4))
        if "--image" not in media and self.maybe(0.3):
            media.append("--video")
        for option in media:
            if option == "--text":
                self.add("--text", *TEXTS)
            else:
                self.add_medium(option)
        if self.maybe(0.3):
            self.add("--duration", "1ms", "2.5", "4s")
        if self.maybe(0.3):
            self.add("--background", *COLORS)
        if "--text" in media and self.maybe(0.3):
            self.add("--text-color", *COLORS)
            self.add("--text-size", "small", "normal", "large")

    def add_attachment(self, extension, octets):
        self.options += ["--attach", self.file(extension, octets)]

    def add_content(self):
        slides = self.random.randrange(5)
        for index in range(slides):
            self.add_slide(index == 0)
        attachments = self.random.randrange(0 if slides else 1, 4)
        for extension in self.random.choices(list(ATTACHMENTS), k=attachments):
            self.add_attachment(extension, ATTACHMENTS[extension])


def compositions(count, folder, picture, clips):
    """Yields a composition for each message. The last ones have the most parts and large parts."""
    for number in range(count):
        home = folder / ("files%d" % number)
        home.mkdir()
        composition = Composition(number, home, picture, clips)
        composition.add_addresses()
        composition.add_fields()
        if number == count - 1:
            for _ in range(MANY_PARTS):
                composition.add_attachment("bin", b"x")
        elif number == count - 2:
            for size in [127, 128, 16383, 16384, 70000]:
                composition.add_attachment("bin", bytes(size))
        else:
            composition.add_content()
        yield composition


def compose(qvlmms, count, folder, picture, clips):
    """Composes messages into a folder. Returns their files, each with the date that was given."""
    def run(number, composition):
        path = folder / ("composed%03d.mms" % number)
        command = [qvlmms, "compose", "-o", str(path)] + composition.options
        # LeakSanitizer of Clang 14 crashes at the end of some of these commands. Other tests look
        # for leaks.
        sanitizer = os.environ.get("ASAN_OPTIONS", "") + ":detect_leaks=0"
        done = subprocess.run(command, capture_output=True, text=True, check=False,
                              env=dict(os.environ, ASAN_OPTIONS=sanitizer))
        if done.returncode != 0:
            raise SystemExit("%s\n%s" % (command, done.stderr))
        shutil.rmtree(composition.folder)
        return Composed(path, command[command.index("--date") + 1])

    with concurrent.futures.ThreadPoolExecutor(2) as pool:
        return list(pool.map(run, range(count), list(compositions(count, folder, picture, clips))))
