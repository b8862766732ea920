#!/usr/bin/env python3
"""Puts an archive together from the field tables of docs/formats.md.

    make_archive.py <archive> <seconds since 1970> <local time> (<entry name> <file>)...

The local time has the form 2020-02-29T13:14:59. What comes out is, byte for byte, what the
program writes at that moment. It shares nothing with the program but zlib.
"""

import struct
import sys
import zlib

BLOCK = 16384
STORED_SUFFIXES = (".z", ".zip", ".zoo", ".arc", ".lzh", ".arj", ".gz", ".tgz", ".png", ".jpg", ".jpeg")


def dos_time(local):
    """Date in the high half, time in the low one; seconds doubled, not halved."""
    day, clock = local.split("T")
    year, month, day = (int(part) for part in day.split("-"))
    hour, minute, second = (int(part) for part in clock.split(":"))
    date = ((year - 1980) & 127) << 9 | (month & 15) << 5 | (day & 31)
    return date << 16 | (hour & 31) << 11 | (minute & 63) << 5 | (second * 2) & 31


def is_stored(name):
    dot = name.rfind(".")
    return dot >= 0 and name[dot:].lower() in STORED_SUFFIXES


def deflated(data):
    """Raw deflate, in the pattern of the program: blocks, and the end behind a short one."""
    packer = zlib.compressobj(8, zlib.DEFLATED, -15, 9, zlib.Z_DEFAULT_STRATEGY)
    result = b""
    position = 0
    while True:
        block = data[position:position + BLOCK]
        position += BLOCK
        result += packer.compress(block)
        if len(block) < BLOCK:
            return result + packer.flush(zlib.Z_FINISH)


def stored(data):
    """Full blocks are left out."""
    return data[len(data) // BLOCK * BLOCK:]


def make_archive(seconds, local, files):
    """Bytes of an archive of (name, contents) pairs."""
    time = dos_time(local)
    stamp = struct.pack("<I", seconds & 0xFFFFFFFF)
    local_extra = b"UT" + struct.pack("<HB", 13, 7) + 3 * stamp
    central_extra = b"UT" + struct.pack("<HB", 5, 7) + stamp
    archive = b""
    directory = b""
    for name, data in files:
        encoded = name.encode("utf-8")
        if is_stored(name):
            method, packed = 0, stored(data)
            size = len(packed)
        else:
            method, packed = 8, deflated(data)
            size = len(data)
        sums = struct.pack("<III", zlib.crc32(data), len(packed), size)
        directory += struct.pack("<IHHHHI", 0x02014B50, 20, 0, 0, method, time) + sums
        directory += struct.pack("<HHHHHII", len(encoded), len(central_extra), 0, 0, 0, 0x80000000, len(archive))
        directory += encoded + central_extra
        archive += struct.pack("<IHHHI", 0x04034B50, 20, 0, method, time) + sums
        archive += struct.pack("<HH", len(encoded), len(local_extra)) + encoded + local_extra + packed
    count = len(files) & 0xFFFF
    return archive + directory + struct.pack("<IHHHHIIH", 0x06054B50, 0, 0, count, count, len(directory),
                                             len(archive), 0)


def main():
    if len(sys.argv) < 4 or len(sys.argv) % 2 != 0:
        print(__doc__, file=sys.stderr)
        return 2
    files = []
    for name, path in zip(sys.argv[4::2], sys.argv[5::2]):
        with open(path, "rb") as stream:
            files.append((name, stream.read()))
    with open(sys.argv[1], "wb") as stream:
        stream.write(make_archive(int(sys.argv[2]), sys.argv[3], files))
    return 0


if __name__ == "__main__":
    sys.exit(main())
