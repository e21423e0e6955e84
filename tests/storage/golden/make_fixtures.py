#!/usr/bin/env python3
"""Writes the byte fixtures of the Slide Information File tests.

An independent rendering of the record format: each field is scrambled
(code c -> 256 - c, over the first len(trimmed) characters, NUL dropped)
and padded with blanks to its width. Run it to regenerate the .hex files.
"""
import pathlib

WIDTHS = [("Spare", 11), ("PictureFile", 26), ("SlideText", 100), ("Category", 26),
          ("Location", 26), ("Make", 26), ("Model", 26), ("Serial", 26), ("Value", 11)]


def scramble(text: bytes) -> bytes:
    n = len(text.strip(b" "))
    return bytes(256 - c for c in text[:n] if c != 0)


def field(text: bytes, width: int) -> bytes:
    return text[:width].ljust(width, b" ")


def record(values: dict, raw: dict | None = None) -> bytes:
    out = b""
    for name, width in WIDTHS:
        if raw and name in raw:
            out += raw[name]
        else:
            plain = values.get(name, b"\0" * width)
            plain = field(plain, width) if values.get(name) is not None else plain
            if name == "Value":
                plain = plain.strip(b" ")
            out += field(scramble(plain), width)
    assert len(out) == 278
    return out


def header(count, background, wallpaper, template, font, left_alone=None) -> bytes:
    nul = {"Category": b"\0" * 26, "Location": b"\0" * 26, "Model": b"\0" * 26, "Value": b"\0" * 11}
    raw = dict(nul if left_alone is None else left_alone)
    values = {"Serial": str(count).encode(), "PictureFile": background, "SlideText": wallpaper,
              "Spare": str(template).encode(), "Make": font}
    for k, v in values.items():
        raw[k] = field(scramble(v), dict(WIDTHS)[k])
    return b"".join(raw[name] for name, _ in WIDTHS)


def write(name, data):
    text = data.hex()
    lines = [text[i:i + 64] for i in range(0, len(text), 64)]
    (pathlib.Path(__file__).parent / f"{name}.hex").write_text("\n".join(lines) + "\n")


SLIDES = [
    {"PictureFile": b"tv.jpg", "SlideText": b"Lounge television", "Category": b"Electrical",
     "Location": b"Lounge", "Make": b"Sony", "Model": b"KD-55X80", "Serial": b"SN 4471",
     "Value": b"1499.95", "Spare": b""},
    {"PictureFile": b"ring.jpg", "SlideText": b"Gold ring, 18ct", "Category": b"Jewellery",
     "Location": b"Bedroom", "Make": b"", "Model": b"", "Serial": b"", "Value": b"2,300", "Spare": b""},
    {"PictureFile": b"bike.jpg", "SlideText": b"Road bike \xe9t\xe9", "Category": b"Sport",
     "Location": b"Garage", "Make": b"Trek", "Model": b"Domane", "Serial": b"WTU123", "Value": b"850",
     "Spare": b""},
]

write("three_slides", header(3, b"oak.jpg", b"dusk.jpg", 2, b"DejaVu Sans") + b"".join(record(s) for s in SLIDES))

# A slide with only a picture and a caption assigned: the other fields are NUL in memory.
write("unassigned_fields", header(1, b"", b"", 1, b"") + record({"PictureFile": b"a.jpg", "SlideText": b"Chair"}))
