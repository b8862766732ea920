#!/usr/bin/env python3
"""Reads and writes compound files by the published format alone.

    compound_file.py check <file>
    compound_file.py write <file> [--version 3|4] [--order forward|reverse|shuffled]
                           [--tree balanced|chain] [--gaps] [--cut-padding]

`check` is strict: it says on standard error what is wrong with a file and ends with status 1, or
prints one line for each entry, in the order of the trees:

    storage <path>
    stream <path> <size> <CRC-32 in hexadecimal>

`write` takes such lines from standard input, with a number in the place of the CRC-32: byte i of
that stream is (i * 7 + (i >> 8) + number) & 255.
"""

import argparse
import random
import struct
import sys
import zlib

DIFAT_MARK, FAT_MARK, END, FREE = 0xFFFFFFFC, 0xFFFFFFFD, 0xFFFFFFFE, 0xFFFFFFFF
NO_ENTRY = 0xFFFFFFFF
UNUSED, STORAGE, STREAM, ROOT = 0, 1, 2, 5
RED, BLACK = 0, 1
SIGNATURE = bytes.fromhex("d0cf11e0a1b11ae1")
CUTOFF = 4096


class Wrong(Exception):
    """A file that isn't as the format wants it."""


def require(holds, text):
    if not holds:
        raise Wrong(text)


def upper(unit):
    """Upper-case form of one UTF-16 unit; surrogates have none."""
    if 0xD800 <= unit <= 0xDFFF:
        return unit
    text = chr(unit).upper()
    return ord(text) if len(text) == 1 and ord(text) <= 0xFFFF else unit


def units_of(name):
    data = name.encode("utf-16-le", "surrogatepass")
    return struct.unpack(f"<{len(data) // 2}H", data)


def sort_key(name):
    units = units_of(name)
    return (len(units), [upper(unit) for unit in units])


class Checker:
    """Looks at every byte of a file that has a meaning."""

    def __init__(self, data):
        self.data = data
        self.owners = {}
        self.read_header()
        self.read_fat()
        self.read_directory()
        self.read_mini_stream()
        self.lines = []
        self.reached = {0}
        self.walk(self.entries[0]["child"], "")
        self.check_rest()

    def read_header(self):
        data = self.data
        require(len(data) >= 512, "no header")
        require(data[:8] == SIGNATURE, "signature")
        require(data[8:24] == bytes(16), "class of the header")
        minor, self.major, order, shift, mini_shift = struct.unpack_from("<5H", data, 24)
        require(minor == 0x3E, "minor version")
        require(order == 0xFFFE, "byte order")
        require((self.major, shift) in ((3, 9), (4, 12)), "version and size of sectors")
        require(mini_shift == 6, "size of mini sectors")
        require(data[34:40] == bytes(6), "reserved bytes of the header")
        (self.directory_count, self.fat_count, self.directory_start, transaction, cutoff, self.mini_fat_start,
         self.mini_fat_count, self.difat_start, self.difat_count) = struct.unpack_from("<9I", data, 40)
        require(transaction == 0, "transaction number")
        require(cutoff == CUTOFF, "cutoff")
        self.size = 1 << shift
        require(data[512:self.size] == bytes(len(data[512:self.size])), "what follows the header")
        require(len(data) % self.size == 0, "size of the file")
        self.count = len(data) // self.size - 1

    def sector(self, number):
        require(number < self.count, f"sector {number} isn't there")
        return self.data[(number + 1) * self.size:(number + 2) * self.size]

    def own(self, number, owner):
        require(number < self.count, f"sector {number} of {owner} isn't there")
        require(number not in self.owners, f"sector {number} of {owner} is that of {self.owners.get(number)} too")
        self.owners[number] = owner

    def numbers(self, data):
        return struct.unpack(f"<{len(data) // 4}I", data)

    def read_fat(self):
        places = list(struct.unpack_from("<109I", self.data, 76))
        number = self.difat_start
        difat = []
        while number != END:
            self.own(number, "DIFAT")
            difat.append(number)
            values = self.numbers(self.sector(number))
            places += values[:-1]
            number = values[-1]
        require(len(difat) == self.difat_count, "number of DIFAT sectors")
        used = places[:self.fat_count]
        require(all(place == FREE for place in places[self.fat_count:]), "FAT sectors beyond their number")
        for place in used:
            self.own(place, "FAT")
        self.fat = [value for place in used for value in self.numbers(self.sector(place))]
        require(len(self.fat) >= self.count, "FAT too small")
        require(all(value == FREE for value in self.fat[self.count:]), "FAT beyond the end of the file")
        require((len(used) - 1) * self.size // 4 < self.count or not used, "FAT too large")
        require((len(difat) - 1) * (self.size // 4 - 1) + 109 < self.fat_count or not difat, "DIFAT too large")
        for number in range(self.count):
            require((self.fat[number] == FAT_MARK) == (self.owners.get(number) == "FAT"), f"FAT mark of {number}")
            require((self.fat[number] == DIFAT_MARK) == (self.owners.get(number) == "DIFAT"), f"DIFAT mark {number}")

    def chain(self, start, owner):
        numbers = []
        while start != END:
            self.own(start, owner)
            numbers.append(start)
            start = self.fat[start]
        return numbers

    def contents(self, start, size, owner):
        numbers = self.chain(start, owner)
        require(len(numbers) == -(-size // self.size), f"length of the chain of {owner}")
        return b"".join(self.sector(number) for number in numbers)[:size]

    def read_directory(self):
        numbers = self.chain(self.directory_start, "the directory")
        require(self.directory_count == (len(numbers) if self.major == 4 else 0), "number of directory sectors")
        data = b"".join(self.sector(number) for number in numbers)
        require(len(data) > 0, "no directory")
        self.entries = [self.read_entry(data[at:at + 128], at // 128) for at in range(0, len(data), 128)]
        require(self.entries[0]["type"] == ROOT, "no root")
        require(self.entries[0]["name"] == "Root Entry", "name of the root")
        require(self.entries[0]["left"] == NO_ENTRY and self.entries[0]["right"] == NO_ENTRY, "siblings of the root")
        used = [entry["type"] != UNUSED for entry in self.entries]
        require(any(used[-self.size // 128:]), "a directory sector without entries")

    def read_entry(self, data, index):
        length, kind, colour, left, right, child = struct.unpack_from("<HBBIII", data, 64)
        state, created, changed, start, size = struct.unpack_from("<IQQIQ", data, 96)
        entry = {"type": kind, "colour": colour, "left": left, "right": right, "child": child, "start": start,
                 "size": size, "name": ""}
        if kind == UNUSED:
            empty = bytes(68) + b"\xff" * 12 + bytes(48)
            require(data == empty, f"unused entry {index}")
            return entry
        require(kind in (STORAGE, STREAM, ROOT), f"type of entry {index}")
        require(kind != ROOT or index == 0, f"a second root, entry {index}")
        require(colour in (RED, BLACK), f"colour of entry {index}")
        require(4 <= length <= 64 and length % 2 == 0, f"length of the name of entry {index}")
        require(data[length - 2:64] == bytes(66 - length), f"what follows the name of entry {index}")
        entry["name"] = data[:length - 2].decode("utf-16-le")
        require("\0" not in entry["name"] and not set("/\\:!") & set(entry["name"]), f"name of entry {index}")
        require(state == 0 and data[80:96] == bytes(16), f"class or state of entry {index}")
        require(kind == STORAGE or created == 0, f"time of entry {index}")
        require(kind != STREAM or (changed == 0 and child == NO_ENTRY), f"time or child of the stream {index}")
        require(kind != STORAGE or (start == 0 and size == 0), f"place of the storage {index}")
        require(size <= 0x80000000 or self.major == 4, f"size of entry {index}")
        return entry

    def read_mini_stream(self):
        root = self.entries[0]
        table = self.chain(self.mini_fat_start, "the mini FAT")
        require(len(table) == self.mini_fat_count, "number of mini FAT sectors")
        self.mini_fat = [value for number in table for value in self.numbers(self.sector(number))]
        require(root["size"] % 64 == 0, "size of the mini stream")
        self.mini_stream = self.contents(root["start"], root["size"], "the mini stream")
        self.mini_count = root["size"] // 64
        require(self.mini_count <= len(self.mini_fat), "mini FAT too small")
        require(all(value == FREE for value in self.mini_fat[self.mini_count:]), "mini FAT beyond its stream")
        self.mini_owners = {}

    def mini_contents(self, start, size, owner):
        numbers = []
        while start != END:
            require(start < self.mini_count, f"mini sector {start} of {owner} isn't there")
            require(start not in self.mini_owners, f"mini sector {start} of {owner} is used twice")
            self.mini_owners[start] = owner
            numbers.append(start)
            start = self.mini_fat[start]
        require(len(numbers) == -(-size // 64), f"length of the mini chain of {owner}")
        return b"".join(self.mini_stream[number * 64:number * 64 + 64] for number in numbers)[:size]

    def walk(self, top, path):
        """Checks the tree of a storage and lists what is in it."""
        require(top == NO_ENTRY or self.entries[top]["colour"] == BLACK, f"colour of the top below {path or '/'}")
        order = []
        self.check_tree(top, order, False)
        names = [sort_key(self.entries[index]["name"]) for index in order]
        require(all(first < second for first, second in zip(names, names[1:])), f"order of names below {path or '/'}")
        for index in order:
            entry = self.entries[index]
            name = path + entry["name"]
            if entry["type"] == STORAGE:
                self.lines.append(f"storage {name}")
                self.walk(entry["child"], name + "/")
                continue
            require(entry["type"] == STREAM, f"type of {name}")
            size = entry["size"]
            read = self.contents if size >= CUTOFF else self.mini_contents
            self.lines.append(f"stream {name} {size} {zlib.crc32(read(entry['start'], size, name)):08x}")

    def check_tree(self, index, order, below_red):
        """The number of black nodes on each way down."""
        if index == NO_ENTRY:
            return 1
        require(index < len(self.entries), f"entry {index} isn't there")
        require(index not in self.reached, f"entry {index} is in two places")
        self.reached.add(index)
        entry = self.entries[index]
        require(not (below_red and entry["colour"] == RED), f"entry {index} is red below red")
        left = self.check_tree(entry["left"], order, entry["colour"] == RED)
        order.append(index)
        right = self.check_tree(entry["right"], order, entry["colour"] == RED)
        require(left == right, f"entry {index} has more black on one side")
        return left + (1 if entry["colour"] == BLACK else 0)

    def check_rest(self):
        for index, entry in enumerate(self.entries):
            require((entry["type"] != UNUSED) == (index in self.reached), f"entry {index} is lost")
        for number in range(self.count):
            require((self.fat[number] == FREE) == (number not in self.owners), f"sector {number} is lost")
        for number in range(self.mini_count):
            require((self.mini_fat[number] == FREE) == (number not in self.mini_owners), f"mini sector {number} lost")


class Writer:
    """Makes files that are valid and as unlike those of others as the format allows."""

    def __init__(self, options):
        self.options = options
        self.size = 512 if options.version == 3 else 4096
        self.random = random.Random(7)
        self.entries = [self.new_entry("Root Entry", ROOT)]
        self.paths = {"": 0}
        self.contents = {}
        self.kids = {0: []}

    @staticmethod
    def new_entry(name, kind):
        return {"name": name, "type": kind, "colour": BLACK, "left": NO_ENTRY, "right": NO_ENTRY, "child": NO_ENTRY,
                "start": 0 if kind == STORAGE else END, "size": 0}

    def add(self, line):
        kind, rest = line.split(" ", 1)
        if kind == "stream":
            rest, size, number = rest.rsplit(" ", 2)
            pattern = bytes((i * 7 + (i >> 8) + int(number)) & 255 for i in range(min(int(size), 65536)))
            self.contents[len(self.entries)] = (pattern * (int(size) // 65536 + 1))[:int(size)]
        parent, _, name = rest.rpartition("/")
        self.kids[self.paths[parent]].append(len(self.entries))
        self.paths[rest] = len(self.entries)
        self.kids[len(self.entries)] = []
        self.entries.append(self.new_entry(name, STORAGE if kind == "storage" else STREAM))

    def link(self, kids):
        """Links siblings and returns the top; the colours are those of a tree filled level by level."""
        if not kids:
            return NO_ENTRY
        if self.options.tree == "chain":
            for index, following in zip(kids, kids[1:]):
                self.entries[index]["right"] = following
            return kids[0]
        depth = (len(kids) + 1).bit_length() - 1

        def place(part, level):
            if not part:
                return NO_ENTRY
            middle = len(part) // 2
            entry = self.entries[part[middle]]
            entry["colour"] = RED if level == depth else BLACK
            entry["left"] = place(part[:middle], level + 1)
            entry["right"] = place(part[middle + 1:], level + 1)
            return part[middle]

        return place(kids, 0)

    def order(self, count):
        numbers = list(range(count))
        if self.options.order == "reverse":
            numbers.reverse()
        elif self.options.order == "shuffled":
            self.random.shuffle(numbers)
        return numbers

    def split(self, data, size):
        return [data[at:at + size].ljust(size, b"\0") for at in range(0, len(data), size)]

    def mini_stream(self):
        """The bytes of the mini stream and its table."""
        pieces = [(index, piece) for index, data in self.contents.items() if 0 < len(data) < CUTOFF
                  for piece in self.split(data, 64)]
        places = self.order(len(pieces))
        stream, table, last = [b""] * len(pieces), [END] * len(pieces), {}
        for (index, piece), place in zip(pieces, places):
            stream[place] = piece
            if index in last:
                table[last[index]] = place
            else:
                self.entries[index]["start"] = place
            last[index] = place
        return b"".join(stream), table

    def write(self):
        for index, kids in self.kids.items():
            kids.sort(key=lambda kid: sort_key(self.entries[kid]["name"]))
            self.entries[index]["child"] = self.link(kids)
        for index, data in self.contents.items():
            self.entries[index]["size"] = len(data)
        stream, table = self.mini_stream()
        self.entries[0]["size"] = len(stream)
        per = self.size // 4
        table += [FREE] * (-len(table) % per)
        chains = {0: self.split(stream, self.size),
                  "mini FAT": self.split(struct.pack(f"<{len(table)}I", *table), self.size)}
        for index, data in self.contents.items():
            if len(data) >= CUTOFF:
                chains[index] = self.split(data, self.size)
        directory_count = -(-len(self.entries) * 128 // self.size)
        chains["directory"] = [b""] * directory_count
        gaps = 5 if self.options.gaps else 0
        plain = sum(len(chain) for chain in chains.values()) + gaps
        fat_count = difat_count = 0
        while fat_count * per < plain + fat_count + difat_count:
            fat_count += 1
            difat_count = -(-max(fat_count - 109, 0) // (per - 1))
        total = plain + fat_count + difat_count
        places = self.order(total)
        fat = [FREE] * (fat_count * per)
        sectors = [b"\xA5" * self.size] * total
        taken = iter(places)
        starts = {}
        for key, chain in chains.items():
            numbers = [next(taken) for _ in chain]
            for number, following, data in zip(numbers, numbers[1:] + [END], chain):
                fat[number] = following
                sectors[number] = data
            starts[key] = numbers[0] if numbers else END
            if key == "directory":
                directory = numbers
            if isinstance(key, int) and numbers:
                self.entries[key]["start"] = numbers[0]
        fat_places = [next(taken) for _ in range(fat_count)]
        difat_places = [next(taken) for _ in range(difat_count)]
        for number in fat_places:
            fat[number] = FAT_MARK
        for number in difat_places:
            fat[number] = DIFAT_MARK
        for number, data in zip(fat_places, self.split(struct.pack(f"<{len(fat)}I", *fat), self.size)):
            sectors[number] = data
        rest = fat_places[109:]
        for at, number in enumerate(difat_places):
            part = rest[at * (per - 1):(at + 1) * (per - 1)]
            part += [FREE] * (per - 1 - len(part)) + [difat_places[at + 1] if at + 1 < difat_count else END]
            sectors[number] = struct.pack(f"<{per}I", *part)
        data = b"".join(self.pack(entry) for entry in self.entries)
        unused = bytes(68) + b"\xff" * 12 + bytes(48)
        data += unused * (directory_count * self.size // 128 - len(self.entries))
        for number, piece in zip(directory, self.split(data, self.size)):
            sectors[number] = piece
        head = SIGNATURE + bytes(16) + struct.pack("<5H", 0x3E, self.options.version, 0xFFFE,
                                                   self.size.bit_length() - 1, 6) + bytes(6)
        head += struct.pack("<9I", directory_count if self.options.version == 4 else 0, fat_count,
                            starts["directory"], 0, CUTOFF, starts["mini FAT"], len(chains["mini FAT"]),
                            difat_places[0] if difat_places else END, difat_count)
        first = fat_places[:109]
        head += struct.pack("<109I", *(first + [FREE] * (109 - len(first))))
        whole = head.ljust(self.size, b"\0") + b"".join(sectors)
        if self.options.cut_padding:
            whole = whole.rstrip(b"\0")
        return whole

    def pack(self, entry):
        name = entry["name"].encode("utf-16-le")
        return (name.ljust(64, b"\0") + struct.pack("<HBBIII", len(name) + 2, entry["type"], entry["colour"],
                                                    entry["left"], entry["right"], entry["child"]) + bytes(36) +
                struct.pack("<IQ", entry["start"], entry["size"]))


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("action", choices=["check", "write"])
    parser.add_argument("file")
    parser.add_argument("--version", type=int, choices=[3, 4], default=3)
    parser.add_argument("--order", choices=["forward", "reverse", "shuffled"], default="forward")
    parser.add_argument("--tree", choices=["balanced", "chain"], default="balanced")
    parser.add_argument("--gaps", action="store_true", help="leave some sectors free")
    parser.add_argument("--cut-padding", action="store_true", help="leave out zeros at the end of the file")
    options = parser.parse_args()
    sys.setrecursionlimit(100000)
    if options.action == "check":
        with open(options.file, "rb") as stream:
            data = stream.read()
        try:
            lines = Checker(data).lines
        except (Wrong, IndexError, UnicodeDecodeError) as error:
            print(f"{options.file}: {error!r}", file=sys.stderr)
            return 1
        sys.stdout.reconfigure(encoding="utf-8")
        print("".join(line + "\n" for line in lines), end="")
        return 0
    sys.stdin.reconfigure(encoding="utf-8")
    writer = Writer(options)
    for line in sys.stdin:
        writer.add(line.rstrip("\n"))
    with open(options.file, "wb") as stream:
        stream.write(writer.write())
    return 0


if __name__ == "__main__":
    sys.exit(main())
