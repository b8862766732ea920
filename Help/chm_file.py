"""Finishes a help file that chmcmd has compiled.

chmcmd writes the map from topic numbers to pages with the folders of the machine that it runs
on, which no viewer can follow, and notes the time of day. So the map is left to this module,
which puts it into the file uncompressed, and sets the times to a constant: the same pages make
the same file everywhere.

The layout of the file: the header ITSF, the directory ITSP with chunks of sorted entries, and
the contents. An entry is a name with the section (0: uncompressed), offset and length of its
bytes. Numbers of entries are written in groups of seven bits, the highest first.
"""

import struct

HEADER_TIME = 0x10
DIRECTORY_AT = 0x48
CONTENTS_AT = 0x58
LENGTH_AT = 0x08  # behind the header, in the piece that tells the file's length

CHUNK_HEADER = 0x14
STRINGS_BLOCK = 4096  # a string of #STRINGS lies within one such block

SYSTEM_VERSION_SIZE = 4
SYSTEM_TIME_CODE = 10
SYSTEM_LANGUAGE_CODE = 4


def packed(number):
    """A number as an entry holds it."""
    groups = [number & 0x7F]
    while number := number >> 7:
        groups.append(number & 0x7F | 0x80)
    return bytes(reversed(groups))


def unpacked(data, position):
    """The number at a position, and where it ends."""
    number = 0
    while True:
        byte = data[position]
        position += 1
        number = number << 7 | byte & 0x7F
        if byte < 0x80:
            return number, position


class Chunk:
    """A chunk of the directory: its entries by name, in their order."""

    def __init__(self, data, density):
        self.head = data[:CHUNK_HEADER]
        self.size = len(data)
        self.step = 1 + (1 << density)
        (count,) = struct.unpack_from("<H", data, self.size - 2)
        self.entries = {}
        position = CHUNK_HEADER
        for _ in range(count):
            length, position = unpacked(data, position)
            name = data[position:position + length].decode("utf-8")
            position += length
            place = []
            for _ in range(3):
                number, position = unpacked(data, position)
                place.append(number)
            self.entries[name] = tuple(place)

    def bytes(self):
        """The chunk with its entries sorted and the places of every few of them at its end."""
        text = bytearray()
        starts = []
        for name in sorted(self.entries, key=str.lower):
            starts.append(len(text))
            raw = name.encode("utf-8")
            text += packed(len(raw)) + raw + b"".join(packed(number) for number in self.entries[name])
        quick = starts[self.step::self.step]
        free = self.size - CHUNK_HEADER - len(text)
        if free < 2 + 2 * len(quick):
            raise ValueError("the directory of the help file has no room for the map of its topics")
        tail = b"".join(struct.pack("<H", start) for start in reversed(quick)) + struct.pack("<H", len(starts))
        head = self.head[:4] + struct.pack("<I", free) + self.head[8:]
        return head + bytes(text) + bytes(free - len(tail)) + tail


class HelpFile:
    """A compiled help file whose directory is a single chunk."""

    def __init__(self, data):
        self.data = bytearray(data)
        if self.data[:4] != b"ITSF":
            raise ValueError("this is no help file")
        (self.directory,) = struct.unpack_from("<Q", self.data, DIRECTORY_AT)
        (self.contents,) = struct.unpack_from("<Q", self.data, CONTENTS_AT)
        size, _, chunk_size, density = struct.unpack_from("<IIII", self.data, self.directory + 8)
        self.chunk_at = self.directory + size
        chunk = self.data[self.chunk_at:self.chunk_at + chunk_size]
        if chunk[:4] != b"PMGL" or self.chunk_at + chunk_size != self.contents:
            raise ValueError("the directory of the help file is larger than one chunk")
        self.chunk = Chunk(chunk, density)

    def put(self, name, contents):
        """Puts a file in, uncompressed, in place of one that has its name."""
        self.chunk.entries[name] = (0, len(self.data) - self.contents, len(contents))
        self.data += contents

    def properties(self):
        """Code and place of each property: where its bytes begin and end."""
        section, offset, length = self.chunk.entries["/#SYSTEM"]
        if section != 0:
            raise ValueError("the properties of the help file are compressed")
        position = self.contents + offset + SYSTEM_VERSION_SIZE
        end = self.contents + offset + length
        while position < end:
            code, size = struct.unpack_from("<HH", self.data, position)
            yield code, position + 4, position + 4 + size
            position += 4 + size

    def settle_properties(self, two_bytes):
        """Sets the times of making to a constant, and tells whether characters of the
        language's code page may have two bytes, which chmcmd leaves out."""
        struct.pack_into(">I", self.data, HEADER_TIME, 0)
        for code, start, end in self.properties():
            if code == SYSTEM_TIME_CODE:
                self.data[start:end] = bytes(end - start)
            elif code == SYSTEM_LANGUAGE_CODE:
                struct.pack_into("<I", self.data, start + 4, int(two_bytes))

    def bytes(self):
        """The whole file."""
        block = self.chunk.bytes()
        self.data[self.chunk_at:self.chunk_at + len(block)] = block
        (table,) = struct.unpack_from("<Q", self.data, 0x38)
        struct.pack_into("<Q", self.data, table + LENGTH_AT, len(self.data))
        return bytes(self.data)


def finished(compiled, strings, pages, two_bytes):
    """The compiled file with the map of (number, page) in it. `strings` is its #STRINGS."""
    strings = bytearray(strings)
    topics = bytearray()
    for number, page in pages:
        text = page.encode("ascii") + b"\0"
        room = STRINGS_BLOCK - len(strings) % STRINGS_BLOCK
        if room < len(text):
            strings += bytes(room)
        topics += struct.pack("<II", number, len(strings))
        strings += text
    file = HelpFile(compiled)
    file.settle_properties(two_bytes)
    file.put("/#STRINGS", bytes(strings))
    file.put("/#IVB", struct.pack("<I", len(topics)) + bytes(topics))
    return file.bytes()
