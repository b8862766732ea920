#!/usr/bin/env python3
"""Holds the archives that the program writes and reads against those of others.

    archive_test.py <archive tool of the tests> ArchiveTest.<test>
"""

import io
import os
import random
import shutil
import subprocess
import sys
import tempfile
import unittest
import zipfile

import make_archive

TOOL = None

SECONDS = 1582982099
LOCAL = "2020-02-29T13:14:59"


def sample_files():
    """Names and contents whose stored files are shorter than a block."""
    chance = random.Random(5)
    text = "".join(f"If Hole{chance.randrange(5000)}.Depth > {chance.randrange(90)} Then Report\r\n"
                   for _ in range(9000)).encode()
    noise = chance.randbytes(100000)
    return [
        ("ExportRuleList.xml", text[:3000]),
        ("empty.bas", b""),
        ("one.bas", b"x"),
        ("block.bas", text[:16384]),
        ("blocks.bas", text[:2 * 16384]),
        ("before.bas", text[:16383]),
        ("behind.bas", text[:16385]),
        ("folder/inner/long.htm", text),
        ("folder/r\u00e9gle \u4e2d\u6587.bas", text[:500]),
        ("noise.swp", noise),
        ("picture.PNG", noise[:9000]),
        ("dot.jpg.txt", text[:700]),
        ("old.Z", noise[:16383]),
    ]


class ArchiveTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory(prefix="vantrel-test-")
        self.addCleanup(folder.cleanup)
        self.folder = folder.name
        self.archive = os.path.join(self.folder, "package.zip")

    def tool(self, command, *arguments):
        result = subprocess.run([TOOL, command, self.archive, *arguments], stdin=subprocess.DEVNULL,
                                stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True, check=False)
        self.assertEqual(result.returncode, 0, result.stdout)

    def as_arguments(self, files):
        """The files on disk, as pairs of entry name and path."""
        arguments = []
        for number, (name, data) in enumerate(files):
            path = os.path.join(self.folder, str(number))
            with open(path, "wb") as stream:
                stream.write(data)
            arguments += [name, path]
        return arguments

    def archive_bytes(self):
        with open(self.archive, "rb") as stream:
            return stream.read()

    def read_back(self, names):
        """What the program reads of these entries."""
        arguments = []
        for number, name in enumerate(names):
            arguments += [name, os.path.join(self.folder, f"out{number}")]
        self.tool("read", *arguments)
        contents = []
        for path in arguments[1::2]:
            with open(path, "rb") as stream:
                contents.append(stream.read())
        return contents

    def run_other(self, program, *arguments):
        """Output of another program; the test is skipped by name where it isn't installed."""
        if shutil.which(program) is None:
            print(f"skipped: {program} is not installed")
            self.skipTest(f"{program} is not installed")
        return subprocess.run([program, *arguments, self.archive], stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                              stderr=subprocess.STDOUT, text=True, errors="replace", check=False)

    def test_every_byte_is_that_of_the_field_tables(self):
        files = sample_files() + [("long.gz", sample_files()[7][1]), ("two.jpeg", b"y" * 32768)]
        for seconds, local in ((SECONDS, LOCAL), (0x1_2345_6789, "2107-12-31T23:59:58"), (0, "1980-01-01T00:00:00")):
            self.tool("stamp", str(seconds), local, *self.as_arguments(files))
            self.assertEqual(self.archive_bytes(), make_archive.make_archive(seconds, local, files), local)
        self.tool("stamp", str(SECONDS), LOCAL)
        self.assertEqual(self.archive_bytes(), make_archive.make_archive(SECONDS, LOCAL, []))

    def test_python_reads_what_is_written(self):
        files = sample_files()
        self.tool("write", *self.as_arguments(files))
        with zipfile.ZipFile(self.archive) as archive:
            self.assertIsNone(archive.testzip())
            # Without the flag for it, readers take UTF-8 for the old code page.
            names = [name.encode("cp437").decode("utf-8") for name in archive.namelist()]
            self.assertEqual(names, [name for name, _ in files])
            for info, (_, data) in zip(archive.infolist(), files):
                self.assertEqual(archive.read(info), data, info.filename)
                self.assertEqual(info.flag_bits, 0)

    def test_unzip_accepts_what_is_written(self):
        self.tool("write", *self.as_arguments(sample_files()))
        result = self.run_other("unzip", "-t")
        self.assertEqual(result.returncode, 0, result.stdout)
        self.assertIn("No errors detected", result.stdout)
        self.assertNotIn("warning", result.stdout.lower())

    def test_zipinfo_shows_the_fields_that_are_written(self):
        self.tool("write", *self.as_arguments([("folder/a.bas", b"abc")]))
        result = self.run_other("zipinfo", "-v")
        self.assertEqual(result.returncode, 0, result.stdout)
        shown = " ".join(result.stdout.split())
        for text in ("version of encoding software: 2.0",
                     "minimum software version required to extract: 0.0",
                     "compression method: deflated",
                     "extended local header: no",
                     "uncompressed size: 3 bytes",
                     "length of extra field: 9 bytes",
                     "non-MSDOS external file attributes: 800000 hex",
                     "The local extra field has UTC/GMT modification/access/creation times."):
            self.assertIn(text, shown)
        self.assertNotIn("warning", result.stdout.lower())

    def test_7z_accepts_what_is_written(self):
        self.tool("write", *self.as_arguments(sample_files()))
        result = self.run_other("7z", "t")
        self.assertEqual(result.returncode, 0, result.stdout)

    def test_others_remark_on_stored_files_that_lost_their_blocks(self):
        self.tool("write", *self.as_arguments([("a.png", b"x" * 20000), ("b.bas", b"x" * 20000)]))
        with zipfile.ZipFile(self.archive) as archive:
            self.assertEqual(archive.testzip(), "a.png")
            self.assertEqual(archive.getinfo("a.png").file_size, 3616)
            self.assertEqual(archive.read("b.bas"), b"x" * 20000)

    def test_what_python_writes_is_read(self):
        files = sample_files()
        for method in (zipfile.ZIP_DEFLATED, zipfile.ZIP_STORED):
            with zipfile.ZipFile(self.archive, "w", method) as archive:
                for name, data in files:
                    archive.writestr(name, data)
            self.assertEqual(self.read_back([name for name, _ in files]), [data for _, data in files])

    def test_what_python_streams_is_read(self):
        # With sizes behind the data, not in the header before it.
        class Pipe(io.RawIOBase):
            def __init__(self, target):
                super().__init__()
                self.target = target

            def writable(self):
                return True

            def write(self, data):
                return self.target.write(data)

        with open(self.archive, "wb") as target, zipfile.ZipFile(Pipe(target), "w", zipfile.ZIP_DEFLATED) as archive:
            for name, data in sample_files():
                archive.writestr(name, data)
        self.assertEqual(self.read_back([name for name, _ in sample_files()]), [data for _, data in sample_files()])


def main():
    global TOOL
    if len(sys.argv) != 3:
        print(__doc__, file=sys.stderr)
        return 2
    TOOL = os.path.abspath(sys.argv[1])
    suite = unittest.defaultTestLoader.loadTestsFromName(sys.argv[2], sys.modules[__name__])
    result = unittest.TextTestRunner(verbosity=2).run(suite)
    if result.skipped and result.wasSuccessful():
        return 77  # CTest counts it as skipped
    return 0 if result.wasSuccessful() and result.testsRun > 0 else 1


if __name__ == "__main__":
    sys.exit(main())
