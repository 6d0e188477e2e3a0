#!/usr/bin/env python3
"""tshark and `qvlmms show --json` find the same header fields, types, names, locations and sizes of parts.

    fields_tshark_test.py QVLMMS MAKE_MESSAGES PICTURE FIXTURES

The messages are those of the fixtures, those that MAKE_MESSAGES writes, and 200 that `qvlmms compose`
writes. tshark reads them as the bodies of HTTP responses in one capture. Every difference that is
expected is named below, with its reason.
"""
import datetime
import json
import os
import pathlib
import re
import shutil
import struct
import subprocess
import sys
import tempfile
import xml.etree.ElementTree

sys.dont_write_bytecode = True
import composed_messages

SKIPPED = 77
COMPOSED = 200
SEGMENT = 60000  # octets of a message in one IP packet
# Readers of the contents of parts. One that fails would end the reading of the message.
CONTENT_READERS = ["image-jfif", "mp4", "xml"]

UNQUOTED = re.compile(r'^"(.*)"$')


class Differences(list):
    """The differences of one message, as lines."""

    def compare(self, what, expected, found):
        if expected != found:
            self.append("%s: show has %r, tshark has %r" % (what, expected, found))

    def compare_text(self, what, text, field):
        """tshark 4.0 shows each octet of a non-ASCII character as U+FFFD, and does not remove the quote
        before a text that begins with one. The octets of the field must then be those of the text.
        """
        octets = text.encode()
        quote = b"\x7f" if octets[:1] >= b"\x80" else b""
        masked = "".join(char if char < "\x80" else "\ufffd" * len(char.encode()) for char in text)
        shown_text = field.get("show").removeprefix("\\x7f" if quote else "")
        self.compare(what, text if shown_text == text else masked, shown_text)
        self.compare(what + " in octets", quote + octets + b"\0",
                     bytes.fromhex(field.get("value"))[-len(quote + octets) - 1:])


def shown_code(value):
    return "0x%02x" % value["value"]


def shown_flag(is_set):
    return "0x80" if is_set else "0x81"


def decoded(text):
    """The decoder keeps the terminator of a text that begins with a non-ASCII character."""
    return text.removesuffix("\0") if text[:1] >= "\x80" else text


def address_text(address):
    return decoded(address["address"]) + ("/TYPE=PLMN" if address["kind"] == "phone" else "")


def moment(text):
    """The second of a date of tshark, or of ISO 8601, which tshark prints from 4.2 on."""
    if text[:1].isdigit():
        return datetime.datetime.fromisoformat(re.sub(r"\.0+Z$|Z$", "+00:00", text)).timestamp()
    found = datetime.datetime.strptime(re.sub(r"\.0+ UTC$", "", text), "%b %d, %Y %H:%M:%S")
    return found.replace(tzinfo=datetime.timezone.utc).timestamp()


# Fields with a text, by their names in show and in tshark.
TEXTS = {"Transaction-Id": "mmse.transaction_id", "Content-Location": "mmse.content_location",
         "Subject": "mmse.subject"}
ADDRESSES = {"To": "mmse.to", "Cc": "mmse.cc", "Bcc": "mmse.bcc"}
# Fields with a value that tshark shows as another text, and that text.
VALUES = {"MMS-Version": ("mmse.mms_version", str),
          "Message-Type": ("mmse.message_type", shown_code),
          "Message-Class": ("mmse.message_class.id", shown_code),
          "Priority": ("mmse.priority", shown_code),
          "Delivery-Report": ("mmse.delivery_report", shown_flag),
          "Read-Reply": ("mmse.read_report", shown_flag),
          "Sender-Visibility": ("mmse.sender_visibility", lambda word: shown_flag(word == "hide")),
          "Message-Size": ("mmse.message_size", str)}


class Message:
    """What tshark finds in a message: elements of its PDML."""

    def __init__(self, packet):
        element = packet.find("proto[@name='mmse']")
        self.is_malformed = packet.find("proto[@name='_ws.malformed']") is not None
        self.fields = [field for field in element.findall("field") if field.get("name").startswith("mmse.")]
        self.content_type = element.find("field[@name='wsp.header.content_type']")
        self.parts = element.findall(".//field[@name='wsp.multipart']")

    def take(self, name):
        """Removes the fields of this name, and returns them."""
        taken = [field for field in self.fields if field.get("name") == name]
        self.fields = [field for field in self.fields if field.get("name") != name]
        return taken


def shown(element, name):
    """What tshark shows of the first field of this name below an element, or nothing."""
    field = element.find(".//field[@name='%s']" % name)
    return None if field is None else field.get("show")


def end(field):
    return int(field.get("pos")) + int(field.get("size"))


def compare_texts(header, message, differences):
    for name, tshark_name in TEXTS.items():
        fields = message.take(tshark_name)
        differences.compare("number of " + name, int(name in header), len(fields))
        for field in fields[:int(name in header)]:
            differences.compare_text(name, decoded(header.pop(name)), field)


def compare_addresses(header, message, differences):
    for name, tshark_name in ADDRESSES.items():
        addresses = header.pop(name, [])
        fields = message.take(tshark_name)
        differences.compare("number of " + name, len(addresses), len(fields))
        for address, field in zip(addresses, fields):
            differences.compare_text(name, address_text(address), field)
    sender = header.pop("From", None)
    fields = message.take("mmse.from")
    differences.compare("number of From", int(sender is not None), len(fields))
    if sender and sender["kind"] == "not given":
        differences.compare("From", "<insert address>", fields[0].get("show"))
    elif sender:
        differences.compare_text("From", address_text(sender), fields[0])


def compare_values(header, message, differences):
    for name, (tshark_name, text_of) in VALUES.items():
        expected = [text_of(header.pop(name))] if name in header else []
        differences.compare(name, expected, [field.get("show") for field in message.take(tshark_name)])


def compare_times(header, message, sent, differences):
    # show prints the moment of decoding, not the date in the message.
    date = message.take("mmse.date")
    differences.compare("number of Date", int(header.pop("Date", None) is not None), len(date))
    if sent:
        differences.compare("Date", moment(sent), moment(date[0].get("show")))
    delivery = header.pop("Delivery-Time", None)
    differences.compare("Delivery-Time", [moment(delivery)] if delivery else [],
                        [moment(field.get("show")) for field in message.take("mmse.delivery_time.abs")])
    expiry = header.pop("Expiry", None)
    fields = message.take("mmse.expiry.rel")
    differences.compare("number of Expiry", int(expiry is not None), len(fields))
    if expiry and expiry["seconds"] < 128:
        # tshark expects a long integer. These seconds are a short one, and it shows 0.
        differences.compare("Expiry in octets", bytes([0x88, 2, 0x81, 0x80 | expiry["seconds"]]),
                            bytes.fromhex(fields[0].get("value")))
    elif expiry:
        differences.compare("Expiry", expiry["seconds"], float(fields[0].get("show")))


def compare_content_type(header, message, differences):
    content_type = header.pop("Content-Type", None)
    element = message.content_type
    differences.compare("number of Content-Type", content_type is not None, element is not None)
    if content_type is None or element is None:
        return
    differences.compare("Content-Type", content_type["type"], element.get("show"))
    related = ["type=%s" % shown(element, "wsp.parameter.upart.type"),
               "start=%s" % shown(element, "wsp.parameter.start")]
    found = ";".join(related) if content_type["type"].endswith(".related") else ""
    differences.compare("parameters", content_type["parameters"], found)


def compare_part(what, part, element, differences):
    """A part has one name. Of that, tshark shows the Name parameter and the Content-Location."""
    content_type = element.find("field[@name='wsp.header.content_type']")
    headers = element.find("field[@name='wsp.headers']")
    # The decoder gives the melody format its newer name.
    melody = content_type.get("show").lower() == "text/x-imelody"
    differences.compare(what + " type", part["contentType"].lower(),
                        "audio/imelody" if melody else content_type.get("show").lower())
    differences.compare(what + " charset", part["charset"],
                        {"UTF-8": "UTF8", None: ""}[shown(content_type, "wsp.parameter.charset")])
    for name in ["wsp.parameter.name", "wsp.header.content_location"]:
        field = element.find(".//field[@name='%s']" % name)
        if field is None:
            differences.compare(what + " " + name, part["location"], None)
        else:
            differences.compare_text(what + " " + name, part["location"], field)
    # The id is a text in quotes, of which the second is not sent. tshark shows both.
    differences.compare(what + " id", part["contentId"],
                        UNQUOTED.sub(r"\1", shown(element, "wsp.header.content_id") or ""))
    start = end(headers if headers is not None else content_type)
    differences.compare(what + " size", part["octets"], end(element) - start)


def compare_parts(parts, message, differences):
    # tshark 4.0 stops after the headers of a part without data, and calls the packet malformed.
    sizes = [part["octets"] for part in parts]
    stops = message.is_malformed and 0 in sizes
    differences.compare("malformed", stops, message.is_malformed)
    readable = parts[:sizes.index(0) + 1] if stops else parts
    differences.compare("number of parts", len(readable), len(message.parts))
    for index, (part, found) in enumerate(zip(readable, message.parts)):
        compare_part("part %d" % index, part, found, differences)


def differences_of(seen, message, sent):
    """Compares what show and tshark find in one message that was sent at a date, if that is known."""
    header = dict(seen["header"])
    differences = Differences()
    for compare in [compare_texts, compare_addresses, compare_values, compare_content_type]:
        compare(header, message, differences)
    compare_times(header, message, sent, differences)
    differences.compare("other fields", [], [field.get("name") for field in message.fields])
    differences.compare("other fields", sorted(header), [])
    compare_parts(seen.get("body", {}).get("parts", []), message, differences)
    return differences


def ip_packet(port, offset, octets):
    """An IP packet with a segment of TCP from an HTTP server."""
    segment = struct.pack(">HHIIBBHHH", 80, port, 1 + offset, 1, 0x50, 0x18, 8192, 0, 0) + octets
    return struct.pack(">BBHHHBBHII", 0x45, 0, 20 + len(segment), 0, 0, 64, 6, 0, 0x0A000001,
                       0x0A000002) + segment


def write_capture(paths, capture):
    """Writes a capture with an HTTP response for each message, each on a connection of its own."""
    with open(capture, "wb") as file:
        file.write(struct.pack("<IHHiIII", 0xA1B2C3D4, 2, 4, 0, 0, 262144, 101))
        for number, path in enumerate(paths):
            pdu = path.read_bytes()
            response = (b"HTTP/1.1 200 OK\r\nContent-Type: application/vnd.wap.mms-message\r\n"
                        b"Content-Length: %d\r\n\r\n" % len(pdu)) + pdu
            for offset in range(0, len(response), SEGMENT):
                octets = ip_packet(20000 + number, offset, response[offset:offset + SEGMENT])
                file.write(struct.pack("<IIII", 0, 0, len(octets), len(octets)) + octets)


def read_by_tshark(paths, folder):
    """Returns what tshark finds in the messages, in their order."""
    capture = folder / "capture"
    write_capture(paths, capture)
    command = ["tshark", "-n", "-r", str(capture), "-T", "pdml", "-J", "mmse"]
    for reader in CONTENT_READERS:
        command += ["--disable-protocol", reader]
    environment = dict(os.environ, LC_ALL="C.UTF-8", TZ="UTC", WIRESHARK_CONFIG_DIR=str(folder))
    done = subprocess.run(command, capture_output=True, check=True, env=environment)
    # tshark truncates a long label in the middle of a character.
    document = xml.etree.ElementTree.fromstring(done.stdout.decode("utf-8", "replace"))
    return [Message(packet) for packet in document if packet.find("proto[@name='mmse']") is not None]


def read_by_show(qvlmms, paths):
    environment = dict(os.environ, LC_ALL="C.UTF-8", TZ="UTC")
    done = subprocess.run([qvlmms, "show", "--json"] + [str(path) for path in paths], capture_output=True,
                          check=True, env=environment)
    return [json.loads(line) for line in done.stdout.splitlines()]


def main():
    if not shutil.which("tshark"):
        print("skipped: tshark is not installed")
        return SKIPPED
    qvlmms, make_messages, picture, fixtures = sys.argv[1:]
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name)
        subprocess.run([make_messages, picture, name], check=True, stdout=subprocess.DEVNULL)
        made = sorted(folder.glob("*.mms"))
        kept = sorted(pathlib.Path(fixtures, "messages").glob("*.mms"))
        composed = composed_messages.compose(qvlmms, COMPOSED, folder, pathlib.Path(picture),
                                             pathlib.Path(fixtures, "clips"))
        sent = {message.path: message.date for message in composed}
        paths = made + kept + list(sent)
        seen = read_by_show(qvlmms, paths)
        found = read_by_tshark(paths, folder)
        if not len(seen) == len(found) == len(paths) > COMPOSED:
            raise SystemExit("%d messages, show has %d, tshark has %d" % (len(paths), len(seen), len(found)))
        failed = False
        for path, of_show, of_tshark in zip(paths, seen, found):
            differences = differences_of(of_show, of_tshark, sent.get(path))
            for difference in differences:
                print("%s: %s" % (path.name, difference))
            failed = failed or bool(differences)
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main())
