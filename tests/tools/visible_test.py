#!/usr/bin/env python3
"""No command prints a control character, whatever a message, a file name or an argument has in it.

Each command gets them in every field, option and file name, prints into a pipe and onto a terminal, and
must print valid UTF-8 without them. The test removes only the command's own colors and progress.
    visible_test.py QVLMMS PICTURE
"""
import collections
import os
import pathlib
import pty
import re
import subprocess
import sys
import tempfile
import unicodedata

from wire_messages import located, message, part, smil, value_length

# ESC, C1, line feeds, changes of the writing direction, separators, DEL.
TEXT = "a\x1b[31m\x9b1m\n\r\u202eb\u2066c\u2028\x7f\x85\u200f"
OCTETS = TEXT.encode() + b"\x9b\xc2" + b"\xed\xa0\x80d"  # raw C1, truncated, a lone surrogate
NAME = OCTETS.replace(b"/", b"")
UCS2 = (TEXT + "\ud800x\udc00").encode("utf-16-be", "surrogatepass")
# XML allows these characters, and the others in no form.
ATTRIBUTE = "x&#x9b;&#10;&#x202e;&#x2066;&#x85;&#x2028;y"

COLOR_OR_PROGRESS = re.compile(r"\x1b\[(?:0|1|2|1;31)m|\r(?:(?:\[#*-*\] \d+%, )?\d+ done)?\x1b\[K")
HIDDEN = {"Cc", "Cf", "Cs", "Zl", "Zp"}

Row = collections.namedtuple("Row", ["arguments", "raw_output", "line_end"], defaults=[False, b"\n"])


def encoded_text(charset, octets, end):
    return value_length(charset + octets + end)


def hostile_fields():
    """Every field in every form that takes a text."""
    forms = {
        "text": OCTETS + b"\0",
        "utf8": encoded_text(b"\xea", OCTETS, b"\0"),
        "latin1": encoded_text(b"\x84", OCTETS, b"\0"),
        "ucs2": encoded_text(b"\x02\x03\xe8", UCS2, b"\0\0"),
        "token": value_length(b"\x80" + OCTETS + b"\0"),
        "token-ucs2": value_length(b"\x80" + encoded_text(b"\x02\x03\xe8", UCS2, b"\0\0")),
        "count": value_length(b"\x01\x81" + OCTETS + b"\0"),
    }
    for code in range(0x81, 0x100):
        for form, octets in forms.items():
            yield f"field-{code:x}-{form}", message(bytes([code]) + octets)
    yield "field-letters", message(OCTETS + b"\0" + OCTETS + b"\0")


def hostile_parts():
    """A text in each place of a part that takes one."""
    parameters = {"name": b"\x85", "charset": b"\x81", "filename": b"\x86", "start": b"\x8a", "type": b"\x89"}
    types = {"type": OCTETS + b"/" + OCTETS + b"\0", "subtype": b"image/" + OCTETS + b"\0"}
    for name, code in parameters.items():
        types[name] = value_length(b"\x83" + code + OCTETS + b"\0")
    types["letters"] = value_length(b"\x83" + OCTETS + b"\0" + OCTETS + b"\0")
    headers = {
        "location": located(OCTETS),
        "id": b"\xc0\x22" + OCTETS + b"\0",
        "disposition": b"\xae" + value_length(b"\x81\x86" + OCTETS + b"\0"),
        "letters": OCTETS + b"\0" + OCTETS + b"\0",
        "encoding": b"Content-Transfer-Encoding\0" + OCTETS + b"\0",
        "unknown": b"\xf0" + OCTETS + b"\0",
    }
    for name, content_type in types.items():
        yield f"part-{name}", message(b"", part(content_type, located(b"a.txt"), b"x"))
    for name, header in headers.items():
        yield f"header-{name}", message(b"", part(b"\x83", header, b"x"))
    yield "text", message(b"", part(b"\x83", located(b"a.txt"), OCTETS))
    yield "single", message(b"\x84" + value_length(OCTETS + b"\0\x85" + OCTETS + b"\0") + OCTETS)


def hostile_document():
    a = ATTRIBUTE
    layout = (f'<root-layout width="9" height="9" background-color="{a}"/>'
              f'<region id="{a}" left="{a}" top="{a}" width="{a}" height="{a}" fit="{a}"/>')
    param = f'<param name="{a}" value="{a}" valuetype="ref" type="{a}"/>'
    media = (f'<text src="{a}" region="{a}" alt="{a}" begin="{a}.begin" end="{a}">{param}'
             f'<param name="foreground-color" value="{a}"/><param name="textsize" value="{a}"/></text>')
    return smil(f'<par dur="{a}"><img src="b.wbmp" type="{a}" region="{a}"/>{media}</par>',
                f'{layout}<meta name="{a}" content="{a}"/>')


def hostile_documents():
    head = f'<?xml version="1.0" encoding="{{}}"?>'
    document = hostile_document()
    yield "attributes", document
    yield "utf16", b"\xff\xfe" + (head.format("UTF-16") + document.decode()).encode("utf-16-le")
    lone = document.decode().replace("a.begin", "\ud800x")
    yield "utf16-lone", b"\xff\xfe" + lone.encode("utf-16-le", "surrogatepass")
    yield "raw", smil('<par dur="1s"><text src="a" region="T"/></par>').replace(b'"a"', b'"' + OCTETS + b'"')
    yield "cesu8", document.replace(b"x&#x9b;", b"\xed\xa0\x80")
    yield "element", smil(f"<par><{'q' * 3}\x9b\u202e></par>")
    yield "entity", smil("<par>&\u202e\x9b;</par>")


def hostile_presentations():
    for name, document in hostile_documents():
        yield f"smil-{name}", message(
            b"", part("application/smil", located(b"s.smil"), document),
            part(b"image/" + OCTETS + b"\0", located(b"b.wbmp"), OCTETS),
            part(value_length(b"\x83\x85" + OCTETS + b"\0"), located(TEXT.encode()), OCTETS),
            part("audio/amr", located(OCTETS + b".amr"), b"#!AMR\n" + bytes([4] + [0] * 12)))


class Test:
    def __init__(self, qvlmms, folder):
        self.qvlmms = qvlmms
        self.folder = folder
        self.failed = False
        # Qt's and FFmpeg's own messages pass through the same function.
        self.environment = os.environ | {
            "XDG_RUNTIME_DIR": os.fsdecode(folder), "LC_ALL": "C.UTF-8", "TERM": "xterm",
            "QT_LOGGING_RULES": "qvl.platform.media.debug=true", "ASAN_OPTIONS": "detect_leaks=0"}
        self.environment.pop("NO_COLOR", None)
        self.environment.pop("QT_FATAL_WARNINGS", None)

    def complain(self, arguments, why):
        print(f"{str(arguments)[:200]}: {why}", file=sys.stderr)
        self.failed = True

    def start(self, arguments, stdout, stderr):
        return subprocess.Popen([self.qvlmms, *arguments], cwd=self.folder, env=self.environment,
                                stdin=subprocess.DEVNULL, stdout=stdout, stderr=stderr)

    def in_pipes(self, arguments):
        process = self.start(arguments, subprocess.PIPE, subprocess.PIPE)
        out, error = process.communicate(timeout=60)
        return process.returncode, out, error

    def on_terminal(self, arguments):
        master, terminal = pty.openpty()
        process = self.start(arguments, terminal, terminal)
        os.close(terminal)
        received = b""
        while True:
            try:
                octets = os.read(master, 65536)
            except OSError:  # the other side is closed
                break
            received += octets
        os.close(master)
        process.wait(60)
        return process.returncode, received.replace(b"\r\n", b"\n")

    def check(self, arguments, octets):
        try:
            text = COLOR_OR_PROGRESS.sub("", octets.decode())
        except UnicodeDecodeError as error:
            return self.complain(arguments, f"not UTF-8: {error}")
        found = {character for character in text if unicodedata.category(character) in HIDDEN} - {"\n"}
        if found:
            self.complain(arguments, f"prints {sorted(map(hex, map(ord, found)))}: {text!r}"[:2000])

    def check_code(self, arguments, code):
        if code not in (0, 1, 2, 3):
            self.complain(arguments, f"exit code {code}")

    def check_row(self, row):
        """Returns what the command prints into pipes."""
        code, out, error = self.in_pipes(row.arguments)
        self.check_code(row.arguments, code)
        self.check(row.arguments, b"" if row.raw_output else out.replace(row.line_end, b"\n"))
        self.check(row.arguments, error)
        code, received = self.on_terminal(row.arguments)
        self.check_code(row.arguments, code)
        self.check(row.arguments, received.replace(row.line_end, b"\n"))
        return out + error


def write_messages(folder):
    """Returns the names, which are hostile too for messages with slides."""
    names = []
    for name, octets in [*hostile_fields(), *hostile_parts()]:
        names.append(os.fsencode(f"{name}.mms"))
        (folder / f"{name}.mms").write_bytes(octets)
    with_slides = []
    for name, octets in hostile_presentations():
        with_slides.append(name.encode() + NAME + b".mms")
        with open(os.fsencode(folder) + b"/" + with_slides[-1], "wb") as file:
            file.write(octets)
    return names, with_slides


def write_documents(folder):
    names = []
    for name, octets in hostile_documents():
        names.append(name.encode() + NAME + b".smil")
        with open(os.fsencode(folder) + b"/" + names[-1], "wb") as file:
            file.write(octets)
    return names


def options_of_compose(qvlmms):
    help_text = subprocess.run([qvlmms, "help", "compose"], capture_output=True, check=True).stdout
    return re.findall(rb"^  (--[a-z-]+) [A-Z]+ ", help_text, re.MULTILINE)


def rows(qvlmms, messages, with_slides, documents):
    for json in ([], [b"--json"], [b"--strict"], [b"--jobs", b"3"]):
        yield Row([b"show", *json, *messages, *with_slides, b"missing" + NAME])
    for arguments in ([b"check"], [b"check", b"--json"], [b"list"], [b"list", b"--json"]):
        yield Row([*arguments, *messages, *with_slides, b"missing" + NAME])
    yield Row([b"list", b"--csv", *messages, *with_slides], line_end=b"\r\n")
    yield Row([b"html", b"-o", b"page" + NAME, *messages, *with_slides, b"missing" + NAME])
    for name in messages:
        # It prints names of fields, not their values.
        if not name.startswith(b"field-") or name == b"field-letters.mms":
            yield Row([b"rewrite", name, b"out" + NAME])
    for name in with_slides + [b"part-name.mms", b"header-location.mms", b"text.mms", b"single.mms"]:
        yield Row([b"smil", name], raw_output=True)
        yield Row([b"smil", b"--model", name])
        yield Row([b"extract", name, b"parts" + NAME])
        yield Row([b"render", name, b"pictures" + NAME])
        yield Row([b"rewrite", name, b"out" + NAME])
        yield Row([b"rewrite", name, b"-"], raw_output=True)
        yield Row([b"rewrite", name, NAME + b"/out"])
        yield Row([b"extract", name, b"text.mms/" + NAME])
    for name in documents:
        yield Row([b"smil", name], raw_output=True)
        yield Row([b"smil", b"--model", name])
    for command in (b"check", b"list", b"html", b"show", b"smil", b"extract", b"render", b"rewrite"):
        yield Row([command, NAME, NAME])
        yield Row([command, b"--max-size", b"1", with_slides[0], NAME])
        yield Row([command, b"--max-size", OCTETS, with_slides[0], NAME])
        yield Row([command, b"--" + OCTETS, NAME])
        yield Row([command, NAME, NAME, NAME])
    yield Row([b"show", b"--jobs", OCTETS, NAME])
    for option in (b"--fail-on", b"--explain", b"--limit"):
        yield Row([b"check", option, OCTETS, NAME])
    for option in (b"--sort", b"--where"):
        yield Row([b"list", option, OCTETS, NAME])
    yield Row([b"list", b"--where", b"type=" + OCTETS, NAME])
    yield Row([b"html", b"-o", NAME + b"/page", with_slides[0]])
    yield Row([b"render", b"--scale", OCTETS, NAME, NAME])
    yield Row([OCTETS])
    yield Row([b"-" + OCTETS])
    yield Row([b"help", OCTETS])
    for option in options_of_compose(qvlmms):
        for value in (OCTETS, TEXT.encode(), b"folder" + NAME + b"/missing", b"picture" + NAME):
            yield Row([b"compose", b"-o", b"composed" + NAME, b"--to", b"1", b"--slide", option, value])
    composed = [b"--to", b"1", b"--slide", b"--text", OCTETS[:-10]]
    for out in (b"composed" + NAME, NAME + b"/composed", b".", NAME + b"\xff"):
        yield Row([b"compose", b"-o", out, *composed])
    yield Row([b"compose", b"-o", b"-", *composed], raw_output=True)


def main():
    qvlmms, picture = map(os.path.abspath, sys.argv[1:])
    with tempfile.TemporaryDirectory() as temporary:
        folder = pathlib.Path(temporary)
        with open(os.fsencode(folder) + b"/picture" + NAME, "wb") as file:
            file.write(pathlib.Path(picture).read_bytes())
        messages, with_slides = write_messages(folder)
        test = Test(qvlmms, folder)
        printed = b""
        for row in rows(qvlmms, messages, with_slides, write_documents(folder)):
            printed += test.check_row(row)
        # The commands do print the characters, as numbers.
        for number in (b"1b", b"9b", b"202e", b"2066", b"2028", b"a", b"7f"):
            if b"\\u{" + number + b"}" not in printed:
                test.complain("all commands", f"{number} was never printed")
    sys.exit(test.failed)


main()
