#!/usr/bin/env python3
"""Every command reads messages of MMS 1.1, 1.2 and 1.3.

A message with all fields of a later version has the same parts, slides and pictures as the message
without these fields, and rewriting both gives the same octets. The fields are written by hand.
    versions_test.py QVLMMS PICTURE
"""
import json
import os
import pathlib
import subprocess
import sys
import tempfile

# Version, name and octets of each field.
FIELDS = [
    ("1.1", "Retrieve-Status", "99 80"),
    ("1.1", "Retrieve-Text", "9A 04 EA 6F 6B 00"),
    ("1.1", "Read-Status", "9B 80"),
    ("1.1", "Reply-Charging", "9C 80"),
    ("1.1", "Reply-Charging-Deadline", "9D 03 81 01 3C"),
    ("1.1", "Reply-Charging-ID", "9E 69 64 00"),
    ("1.1", "Reply-Charging-Size", "9F 02 78 00"),
    ("1.1", "Previously-Sent-By", "A0 05 81 61 40 62 00"),
    ("1.1", "Previously-Sent-Date", "A1 06 81 04 3B 9A CA 00"),
    ("1.2", "Store", "A2 80"),
    ("1.2", "MM-State", "A3 82"),
    ("1.2", "MM-Flags", "A4 06 80 04 EA 61 62 00"),
    ("1.2", "Store-Status", "A5 80"),
    ("1.2", "Store-Status-Text", "A6 6F 6B 00"),
    ("1.2", "Stored", "A7 80"),
    ("1.2", "Attributes", "A8 02 89 96"),
    ("1.2", "Totals", "A9 81"),
    ("1.2", "Mbox-Totals", "AA 02 80 8A"),
    ("1.2", "Quotas", "AB 81"),
    ("1.2", "Mbox-Quotas", "AC 04 81 02 78 00"),
    ("1.2", "Message-Count", "AD 83"),
    ("1.2", "Content", "AE 03 84 C0 8E"),
    ("1.2", "Start", "AF 80"),
    ("1.2", "Additional-Headers", "B0 02 8E C0"),
    ("1.2", "Distribution-Indicator", "B1 80"),
    ("1.2", "Element-Descriptor", "B2 03 61 31 00"),
    ("1.2", "Limit", "B3 8A"),
    ("1.2", "Recommended-Retrieval-Mode", "B4 80"),
    ("1.2", "Recommended-Retrieval-Mode-Text", "B5 62 69 67 00"),
    ("1.2", "Status-Text", "B6 6F 6B 00"),
    ("1.3", "Applic-ID", "B7 61 70 70 00"),
    ("1.3", "Reply-Applic-ID", "B8 61 70 70 00"),
    ("1.3", "Aux-Applic-Info", "B9 78 00"),
    ("1.3", "Content-Class", "BA 82"),
    ("1.3", "DRM-Content", "BB 81"),
    ("1.3", "Adaptation-Allowed", "BC 80"),
    ("1.3", "Replace-ID", "BD 69 64 00"),
    ("1.3", "Cancel-ID", "BE 69 64 00"),
    ("1.3", "Cancel-Status", "BF 80"),
]

# m-retrieve-conf; Date; From; mixed with two parts.
HEADER = bytes.fromhex("8C 84 98 54 00 8D 90 85 04 3B 9A CA 00 89 05 80 61 40 62 00")


def part(headers, data):
    assert len(headers) < 128
    length = len(data)
    uintvar = bytes([length]) if length < 128 else bytes([0x80 | length >> 7, length & 0x7F])
    return bytes([len(headers)]) + uintvar + headers + data


def message(fields, picture):
    text = part(bytes.fromhex("08 83 81 EA 85 61 2E 74 00"), "Grüße".encode())
    image = part(bytes.fromhex("07 9E 85 62 2E 6A 70 00"), picture)
    return HEADER + fields + bytes.fromhex("84 A3 02") + text + image


class Test:
    def __init__(self, qvlmms, folder):
        self.qvlmms = qvlmms
        self.folder = folder
        self.failed = False

    def complain(self, text):
        print(text, file=sys.stderr)
        self.failed = True

    def run(self, *arguments):
        done = subprocess.run([self.qvlmms, *map(str, arguments)], capture_output=True,
                              env=os.environ | {"XDG_RUNTIME_DIR": str(self.folder)})
        if done.returncode:
            self.complain(f"{arguments}: exit code {done.returncode}, {done.stderr.decode()}")
        return done

    def outputs(self, name, octets):
        """What every command makes of the message, by the name of a file or command."""
        path = self.folder / f"{name}.mms"
        path.write_bytes(octets)
        out = self.folder / name
        self.run("extract", path, out)
        self.run("render", path, out)
        self.run("rewrite", path, out / "rewritten.mms")
        results = {file.name: file.read_bytes() for file in out.iterdir()}
        for arguments in (["smil"], ["smil", "--model"]):
            results[" ".join(arguments)] = self.run(*arguments, path).stdout
        return results

    def check_shown(self, name, fields):
        path = self.folder / f"{name}.mms"
        shown = self.run("show", path).stdout.decode()
        described = json.loads(self.run("show", "--json", path).stdout)
        found = {field["name"]: field for field in described["fields"]}
        left_out = {change["name"] for change in described["changes"]}
        for version, field, octets in fields:
            if f"\n  {field} " not in shown or f"{field} (MMS {version}) left out" not in shown:
                self.complain(f"{name}: {field} is not shown")
            if found.get(field, {}).get("version") != version:
                self.complain(f"{name}: {field} is not in the JSON")
            elif found[field]["octets"] != len(bytes.fromhex(octets)):
                self.complain(f"{name}: {field} has {found[field]['octets']} octets")
        if left_out != {field for _, field, _ in fields}:
            self.complain(f"{name}: left out are {left_out}")


def main():
    qvlmms, picture = sys.argv[1:]
    with tempfile.TemporaryDirectory() as folder:
        test = Test(qvlmms, pathlib.Path(folder))
        octets = pathlib.Path(picture).read_bytes()
        plain = test.outputs("plain", message(b"", octets))
        expected = {"a.t", "b.jp", "slide-1.png", "slide-2.png", "rewritten.mms", "smil"}
        if not expected <= plain.keys():
            test.complain(f"there are only {sorted(plain)}")
        for version in ("1.1", "1.2", "1.3"):
            fields = [field for field in FIELDS if field[0] == version]
            name = f"with-{version}"
            later = b"".join(bytes.fromhex(field[2]) for field in fields)
            outputs = test.outputs(name, message(later, octets))
            for output in sorted(plain.keys() | outputs.keys()):
                if plain.get(output) != outputs.get(output):
                    test.complain(f"{name}: {output} differs")
            test.check_shown(name, fields)
        return 1 if test.failed else 0


if __name__ == "__main__":
    sys.exit(main())
