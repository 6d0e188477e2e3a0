"""Encodes messages octet by octet, also such as no composer writes."""


def uintvar(number):
    octets = [number & 0x7F]
    while number := number >> 7:
        octets.insert(0, 0x80 | number & 0x7F)
    return bytes(octets)


def value_length(octets):
    """Octets with their length before them."""
    length = len(octets)
    return (bytes([length]) if length < 31 else b"\x1f" + uintvar(length)) + octets


def part(content_type, headers, data):
    """A part; content_type is a media type in letters, or encoded octets."""
    if isinstance(content_type, str):
        content_type = content_type.encode() + b"\0"
    before = content_type + headers
    return uintvar(len(before)) + uintvar(len(data)) + before + data


def located(name):
    """The header Content-Location."""
    return b"\x8e" + name + b"\0"


def message(fields, *parts):
    """An m-send-req; the encoded fields come after the mandatory ones."""
    header = b"\x8c\x80\x98T\0\x8d\x90\x89\x01\x81\x97+1/TYPE=PLMN\0" + fields
    return header + (b"\x84\xb3" + uintvar(len(parts)) + b"".join(parts) if parts else b"")


def smil(body, layout='<region id="T" left="0" top="0" width="100" height="100"/>'):
    """A document with this body."""
    return f"<smil><head><layout>{layout}</layout></head><body>{body}</body></smil>".encode()
