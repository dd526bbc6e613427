"""What the checks of pictures and pages share: boards that are hard to draw, and whether an image
has anything in it."""

import os
import re
import shutil
import struct
import zlib

HOME = os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__))))
EXAMPLES = HOME + "/examples"
SDK = EXAMPLES + "/sdk"

# Texts that would be markup, commands or nonsense if they were not escaped, as they are in XML.
HOSTILE = [
    b"&lt;script&gt;console.log(1)&lt;/script&gt;", b"&lt;img src=x onerror=console.log(2)&gt;",
    b"&quot; onload=&quot;console.log(3)&quot; x=&quot;", b"&lt;/title&gt;&lt;/style&gt;&lt;/svg&gt;",
    b"]]&gt;&amp;lt;&#39;--&gt;", b"\x01\x1b[31m\x7f\xc2\x9b", b"\xff\xc3(\xed\xa0\x80\xf8\xe2\x80",
    b"\xe2\x80\xaegnp.exe\xe2\x80\xac", b"\xef\xbf\xbe\xef\xbf\xbf\xef\xb7\x90\xef\xbb\xbf",
    "日本語のとても長い名前".encode() * 9, b"e" + b"\xcc\x81" * 300, "שלום עולם".encode(),
    "👩‍🔧".encode() * 30, b"n" * 3000, b"W" * 99, b"javascript:console.log(4)",
]


def interface(address, size, port):
    return (b'<interface name="m" port="%b" type="slave" width="512" maxburst="16" address="%d" '
            b'size="%d"/>' % (port, address, size))


def memory(name, *interfaces):
    return b'<global_mem name="%b" max_bandwidth="12800">%b</global_mem>' % (
        name, b"".join(interfaces))


def with_memories(board, memories):
    return re.sub(rb"<global_mem.*</global_mem>", lambda _: b"".join(memories), board, flags=re.S)


def hostile(board):
    """The board with a hostile text in place of each name in turn, several times over."""
    texts = HOSTILE * 9
    return re.sub(rb'( (?:name|port|chan_id|clk|clk2x|reset|project|revision|lomb_file|cmd|fixes)=)'
                  rb'"[^"]*"', lambda match: match[1] + b'"' + texts.pop(0) + b'"', board)


def write_packages(folder):
    """Writes the packages into a folder. Their board files by name, those of the examples
    included."""
    with open(EXAMPLES + "/teasel/board_spec.xml", "rb") as file:
        teasel = file.read()
    for model in ("pb3180.xml", "peltrab.xml"):
        shutil.copyfile(f"{EXAMPLES}/teasel/{model}", f"{folder}/{model}")
    variants = {
        "hostile": hostile(teasel),
        "hostile-memories": with_memories(teasel, (
            memory(b"%d" % i + text, interface(i << 16, 1 << 16, text))
            for i, text in enumerate(HOSTILE))),
        "forty": with_memories(teasel, (
            memory(b"HBM%d" % i, interface(i << 26, 1 << 26, b"pc%d" % i)) for i in range(40))),
        "thousands": with_memories(teasel, (
            memory(b"M%d" % i, interface(i << 19, 1 << (18 + i % 2), b"m%d" % i))
            for i in range(4000))),
        "scale": with_memories(teasel, (
            memory(b"registers", interface(0x10, 4, b"r")),
            memory(b"small", interface(0x1000, 0x1000, b"s")),
            memory(b"huge", interface(0x40000000, 0x80000000, b"h")))),
        "overlaps": with_memories(teasel, (
            memory(b"A", interface(0x1000, 0x4000, b"a"), interface(0x10000000, 1 << 29, b"b")),
            memory(b"B", interface(0x3000, 0x100, b"c"), interface(0x3080, 0x8000, b"d")),
            memory(b"wraps", interface(0xffffff00, 0x200, b"w")),
            *(memory(b"same%d" % i, interface(0x1000, 0x4000, b"s%d" % i)) for i in range(9)))),
        "figures": re.sub(rb'\b(num|max_bandwidth|interleaved_bytes)="\d+"', rb'\1="4294967295"',
                          teasel),
    }
    packages = {name: f"{EXAMPLES}/{name}/board_spec.xml" for name in ("teasel", "sedge", "marl")}
    for name, board in variants.items():
        packages[name] = f"{folder}/{name}.xml"
        with open(packages[name], "wb") as file:
            file.write(board)
    return packages


def is_empty(png):
    """Whether hardly any two rows of a PNG image differ. (They are kept as differences to the pixels
    around them, so that those of an area of one color are the same.)"""
    place, data, stride = 8, b"", 0
    while place < len(png):
        size, kind = struct.unpack(">I4s", png[place:place + 8])
        body = png[place + 8:place + 8 + size]
        if kind == b"IHDR":
            width, _, bits, color = struct.unpack(">IIBB", body[:10])
            stride = 1 + width * {(8, 2): 3, (8, 6): 4}[bits, color]
        elif kind == b"IDAT":
            data += body
        place += 12 + size
    data = zlib.decompress(data)
    rows = [data[i:i + stride] for i in range(0, len(data), stride)]
    return len(set(rows)) < len(rows) / 10
