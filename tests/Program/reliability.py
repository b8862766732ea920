#!/usr/bin/env python3
"""Tries what becomes of a rule file when saving it goes wrong.

    reliability.py <RuleFileSaver> [kills] [failures] [--count <n>] [--rules <n>] [--seed <n>]

`kills` ends the saving process at random moments of a save and looks at the file after each.
`failures` has saves fail: on a full disk, for a file that may not get larger, in a folder that
has gone or may not be written to. Without either, both are tried. Status 0 if all is as it
should be; what this machine doesn't allow to try is told.
"""

import argparse
import os
import random
import re
import resource
import shutil
import signal
import statistics
import subprocess
import sys
import tempfile
import time

LIMIT_SECONDS = 120
MOST_VERSIONS = 10
TEMPORARY_NAME = re.compile(r"\.vantrel-[0-9a-f]{16}$")
OTHER_USER = 65534


class Failure(Exception):
    """Something is not as it should be."""


class NotPossible(Exception):
    """This machine doesn't allow to try it."""


def require(condition, what):
    if not condition:
        raise Failure(what)


def read_bytes(path):
    with open(path, "rb") as file:
        return file.read()


class Place:
    """A folder with a rule file and the folders of a user; removed at the end."""

    def __init__(self, saver):
        self.saver = saver
        self.root = tempfile.mkdtemp(prefix="vantrel-reliability-")
        self.folder = os.path.join(self.root, "files")
        self.path = os.path.join(self.folder, "rules.vrf")
        self.data = os.path.join(self.root, "data")
        self.log = None  # it takes a line for each rule, and most saves have none
        for folder in (self.folder, self.data):
            os.mkdir(folder)

    def __enter__(self):
        return self

    def __exit__(self, *_):
        shutil.rmtree(self.root)

    def environment(self):
        changed = {
            "HOME": self.root,
            "XDG_DATA_HOME": self.data,
            "VANTREL_DATABASE_DIR": self.root,
        }
        if self.log:
            changed["VANTREL_SAVER_LOG"] = self.log
        kept = {name: value for name, value in os.environ.items() if not name.startswith("XDG_")}
        kept.pop("vantrel_data_dir", None)
        return {**kept, **changed}

    def start(self, *arguments, **options):
        return Saver([self.saver, *arguments], env=self.environment(), cwd=self.root, **options)

    def make(self, rules):
        saver = self.start("make", self.path, str(rules))
        require(saver.end() == ["saving", "saved"], "the rule file was not made")
        return read_bytes(self.path)

    def save(self, rules, **options):
        """Has a process of its own save the file. The lines that it tells of the save."""
        saver = self.start("save", self.path, **options)
        saver.wait_until_opened(rules)
        saver.begin()
        return saver.end()

    def kept_folder(self):
        kept = os.path.join(self.data, "vantrel", "KeptVersions")
        folders = os.listdir(kept) if os.path.isdir(kept) else []
        require(len(folders) <= 1, f"versions of one file in {folders}")
        return os.path.join(kept, folders[0]) if folders else None

    def kept(self):
        folder = self.kept_folder()
        names = [name for name in os.listdir(folder) if name.endswith(".vrf")] if folder else []
        return [read_bytes(os.path.join(folder, name)) for name in sorted(names, key=lambda name: int(name.split()[0]))]

    def left_over(self):
        """Temporary files beside the rule file and among the kept versions."""
        beside = sorted(set(os.listdir(self.folder)) - {"rules.vrf"})
        folder = self.kept_folder()
        among = [name for name in os.listdir(folder) if not name.endswith((".vrf", ".txt"))] if folder else []
        for name in beside + among:
            require(TEMPORARY_NAME.match(name), f"a file that nobody knows: {name}")
        return [os.path.join(self.folder, name) for name in beside], [os.path.join(folder, name) for name in among]


class Saver:
    """The saving process."""

    def __init__(self, command, **options):
        self.process = subprocess.Popen(command, stdin=subprocess.PIPE, stdout=subprocess.PIPE, bufsize=0, **options)

    def line(self):
        line = b""
        while not line.endswith(b"\n"):
            byte = self.process.stdout.read(1)
            if not byte:
                break
            line += byte
        return line.decode().rstrip("\n")

    def wait_until_opened(self, rules):
        line = self.line()
        if line != f"opened {rules}":
            self.process.kill()
            self.process.communicate()
            raise Failure(f"the file could not be opened: {line!r}")

    def begin(self):
        self.process.stdin.write(b"\n")

    def end(self):
        """Waits for the end. What was told and not read yet, line by line."""
        told, _ = self.process.communicate(timeout=LIMIT_SECONDS)
        return told.decode().splitlines()


# --- ending the process --------------------------------------------------------------------


def measure(place, rules):
    """Seconds from the start to the end of a save."""
    times = []
    for _ in range(6):
        saver = place.start("save", place.path)
        saver.wait_until_opened(rules)
        saver.begin()
        require(saver.line() == "saving", "the save did not begin")
        start = time.perf_counter()
        require(saver.line() == "saved", "the save did not end")
        times.append(time.perf_counter() - start)
        saver.end()
    return statistics.median(times)


def kill_within_save(place, rules, moment):
    """Ends the process so many seconds after the save began. True if it had told of the end."""
    saver = place.start("save", place.path)
    saver.wait_until_opened(rules)
    saver.begin()
    require(saver.line() == "saving", "the save did not begin")
    end = time.perf_counter() + moment
    time.sleep(max(0.0, moment - 0.002))
    while time.perf_counter() < end:
        pass
    os.kill(saver.process.pid, signal.SIGKILL)
    told = saver.end()
    require(told in ([], ["saved"]), f"the save told {told}")
    return told == ["saved"]


def try_kills(saver, count, rules, seed):
    with Place(saver) as place:
        first = place.make(rules)
        require(place.save(rules) == ["saving", "saved"], "the file could not be saved")
        second = read_bytes(place.path)
        require(first != second, "the save changed nothing")
        require(place.save(rules) == ["saving", "saved"], "the file could not be saved")
        require(read_bytes(place.path) == first, "two saves don't give the file of the start")
        duration = measure(place, rules)
        print(f"{rules} rules, {len(first)} bytes; a save takes {duration * 1000:.1f} ms; seed {seed}", flush=True)

        # One moment in each of `count` equal parts of the save and a little beyond.
        chance = random.Random(seed)
        moments = [(part + chance.random()) / count * duration * 1.1 for part in range(count)]
        chance.shuffle(moments)
        old_files = new_files = 0
        phases = {"the rules were being turned into text": 0, "the new file was being written": 0,
                  "the old version was being kept": 0, "the new file was in place": 0, "the save had ended": 0}
        for moment in moments:
            before = read_bytes(place.path)
            after = second if before == first else first
            ended = kill_within_save(place, rules, moment)
            found = read_bytes(place.path)
            where = f"ended after {moment * 1000:.2f} ms of a save"
            require(found in (before, after), f"{where}: the file is neither the old nor the new one")
            require(not ended or found == after, f"{where}: the save had ended and the file is the old one")
            beside, among = place.left_over()
            versions = place.kept()
            require(all(version in (first, second) for version in versions), f"{where}: a kept version isn't whole")
            require(len(versions) <= MOST_VERSIONS + 1, f"{where}: {len(versions)} versions")
            require(found == before or before in versions, f"{where}: what was replaced is not kept")
            old_files += found == before
            new_files += found == after
            if ended:
                phases["the save had ended"] += 1
            elif found == after:
                phases["the new file was in place"] += 1
            elif among or (versions and versions[-1] == before):
                phases["the old version was being kept"] += 1
            elif beside:
                phases["the new file was being written"] += 1
            else:
                phases["the rules were being turned into text"] += 1

            # As if some time had gone by: what was left behind may be removed then.
            for path in beside + among:
                os.utime(path, (time.time() - 3600,) * 2)
            require(place.save(rules) == ["saving", "saved"], f"{where}: the next save failed")
            require(read_bytes(place.path) == (second if found == first else first), f"{where}: the next save is wrong")
            require(not place.left_over()[0], f"{where}: the next save left a temporary file where it was")
        for _ in range(2):
            require(place.save(rules) == ["saving", "saved"], "the last save failed")
        require(place.left_over() == ([], []), "a temporary file stayed")
        require(len(place.kept()) <= MOST_VERSIONS, "too many versions stayed")

        print(f"{count} processes ended: {old_files} left the old file, {new_files} the new one, each whole")
        for phase, number in phases.items():
            print(f"  {number:4} while {phase}" if "had ended" not in phase else f"  {number:4} after {phase}")
        print("after each of them the file was opened and saved, and no temporary file was left then")


# --- saves that fail -----------------------------------------------------------------------


def check_refused(place, told, before):
    require(told and told[-1] == "failed Told", f"the save told {told}")
    require(read_bytes(place.path) == before, "the file is not the old one")
    require(os.listdir(place.folder) == ["rules.vrf"], f"beside the file: {os.listdir(place.folder)}")


def check_not_written(place, told, before):
    """The document counts as saved, and the log tells that the file is the old one."""
    require(told == ["saving", "saved"], f"the save told {told}")
    require("could not be written" in read_bytes(place.log).decode(), "the log does not tell of the failure")
    require(read_bytes(place.path) == before, "the file is not the old one")
    require(os.listdir(place.folder) == ["rules.vrf"], f"beside the file: {os.listdir(place.folder)}")


def check_saved(place, told, before):
    require(told == ["saving", "saved"], f"the save told {told}")
    require(read_bytes(place.path) != before, "the file is the old one")
    require(os.listdir(place.folder) == ["rules.vrf"], f"beside the file: {os.listdir(place.folder)}")


def file_that_may_not_get_larger(saver, rules):
    with Place(saver) as place:
        before = place.make(rules)

        def limit():
            signal.signal(signal.SIGXFSZ, signal.SIG_IGN)
            resource.setrlimit(resource.RLIMIT_FSIZE, (len(before) // 2,) * 2)

        place.log = os.path.join(place.root, "log")
        told = place.save(rules, preexec_fn=limit, restore_signals=False)
        check_not_written(place, told, before)
        require(place.kept() == [], "a version was kept that nothing replaced")
        check_saved(place, place.save(rules), before)


def folder_that_has_gone(saver, rules):
    with Place(saver) as place:
        before = place.make(rules)
        process = place.start("save", place.path)
        process.wait_until_opened(rules)
        elsewhere = os.path.join(place.root, "elsewhere")
        os.rename(place.folder, elsewhere)
        process.begin()
        told = process.end()
        require(told == ["saving", "failed NotWritable"], f"the save told {told}")
        require(not os.path.exists(place.folder), "the folder was made again")
        os.rename(elsewhere, place.folder)
        require(read_bytes(place.path) == before, "the file is not the old one")
        check_saved(place, place.save(rules), before)


def without_privileges(place):
    """Options for a process that may do what permissions allow, and no more."""
    if os.geteuid() != 0:
        return {}
    for folder, _, names in os.walk(place.root):
        for path in [folder] + [os.path.join(folder, name) for name in names]:
            os.chown(path, OTHER_USER, OTHER_USER)
    options = {"user": OTHER_USER, "group": OTHER_USER, "extra_groups": []}
    try:
        usage = subprocess.run([place.saver], stderr=subprocess.DEVNULL, check=False, **options).returncode
    except OSError as error:
        raise NotPossible(f"another user can't start the program ({error})") from error
    require(usage == 2, "the program does not start for another user")
    return options


def save_in_read_only_folder(saver, rules, mode, check):
    with Place(saver) as place:
        before = place.make(rules)
        options = without_privileges(place)
        process = place.start("save", place.path, **options)
        process.wait_until_opened(rules)
        os.chmod(place.path, mode)
        os.chmod(place.folder, 0o555)
        process.begin()
        told = process.end()
        os.chmod(place.folder, 0o755)
        check(place, told, before)


def folder_made_read_only_with_its_file(saver, rules):
    def check(place, told, before):
        check_refused(place, told, before)
        require(any("box" in line and "can't be written to" in line for line in told), f"the save told {told}")
        require(place.kept() == [], "a version was kept that nothing replaced")

    save_in_read_only_folder(saver, rules, 0o444, check)


def folder_made_read_only_with_a_file_that_may_be_written(saver, rules):
    def check(place, told, before):
        check_saved(place, told, before)
        require(place.kept() == [before], "what was overwritten is not kept")

    save_in_read_only_folder(saver, rules, 0o644, check)


def in_mount_namespace(trial, saver, rules):
    """Runs a trial where what it mounts is seen by nobody else and gone with it."""
    attempt = ["unshare", "--mount"] if os.geteuid() == 0 else ["unshare", "--map-root-user", "--mount"]
    if shutil.which("unshare") is None or subprocess.run(
            [*attempt, "mount", "-t", "tmpfs", "none", "/mnt"], stderr=subprocess.DEVNULL, check=False).returncode != 0:
        raise NotPossible("this machine allows no mounts of one's own")
    command = [*attempt, sys.executable, os.path.abspath(__file__), saver, "--rules", str(rules), "--mounted", trial]
    result = subprocess.run(command, stdout=subprocess.PIPE, text=True, check=False)
    require(result.returncode == 0, result.stdout.strip())


def mount(folder, size):
    subprocess.run(["mount", "-t", "tmpfs", "-o", f"size={size}", "none", folder], check=True)


def full_disk(saver, rules):
    with Place(saver) as place:
        before = place.make(rules)
        shutil.move(place.path, place.root)
        mount(place.folder, len(before) * 3 // 2)
        shutil.move(os.path.join(place.root, "rules.vrf"), place.path)
        try:
            place.log = os.path.join(place.root, "log")
            check_not_written(place, place.save(rules), before)
            require(place.kept() == [], "a version was kept that nothing replaced")
            subprocess.run(["mount", "-o", f"remount,size={len(before) * 3}", place.folder], check=True)
            check_saved(place, place.save(rules), before)
            require(place.kept() == [before], "what was replaced is not kept")
        finally:
            subprocess.run(["umount", place.folder], check=True)


def disk_with_room_for_the_new_file_alone(saver, rules):
    with Place(saver) as place:
        before = place.make(rules)
        place.folder = os.path.join(place.data, "files")
        shutil.move(place.path, place.root)
        mount(place.data, len(before) * 5 // 2)
        os.mkdir(place.folder)
        place.path = os.path.join(place.folder, "rules.vrf")
        shutil.move(os.path.join(place.root, "rules.vrf"), place.path)
        try:
            place.log = os.path.join(place.root, "log")
            check_saved(place, place.save(rules), before)
            require(place.kept() == [] and place.left_over() == ([], []), "half a version was kept")
            lines = read_bytes(place.log).decode().count("could not be kept")
            require(lines == 1, "the log does not tell that the version was not kept")
        finally:
            subprocess.run(["umount", place.data], check=True)


MOUNTED_TRIALS = {
    "full disk": full_disk,
    "disk with room for the new file alone": disk_with_room_for_the_new_file_alone,
}

TRIALS = {
    **{name: lambda saver, rules, name=name: in_mount_namespace(name, saver, rules) for name in MOUNTED_TRIALS},
    "file that may not get larger": file_that_may_not_get_larger,
    "folder that has gone": folder_that_has_gone,
    "folder made read-only with its file": folder_made_read_only_with_its_file,
    "folder made read-only, file that may be written": folder_made_read_only_with_a_file_that_may_be_written,
}


def try_failures(saver, rules):
    failed = 0
    for name, trial in TRIALS.items():
        try:
            trial(saver, rules)
            print(f"as it should be: {name}", flush=True)
        except NotPossible as reason:
            print(f"not tried: {name}: {reason}", flush=True)
        except Failure as failure:
            failed += 1
            print(f"FAILED: {name}: {failure}", flush=True)
    require(failed == 0, f"{failed} of {len(TRIALS)} trials")


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("saver", type=os.path.abspath)
    parser.add_argument("what", nargs="*", help="kills, failures; both if there is none")
    parser.add_argument("--count", type=int, default=200)
    parser.add_argument("--rules", type=int, default=5000)
    parser.add_argument("--seed", type=int, default=20261121)
    parser.add_argument("--mounted", choices=sorted(MOUNTED_TRIALS), help=argparse.SUPPRESS)
    options = parser.parse_args()
    unknown = set(options.what) - {"kills", "failures"}
    if unknown:
        parser.error(f"not known: {', '.join(sorted(unknown))}")
    what = options.what or ["kills", "failures"]
    try:
        if options.mounted:
            MOUNTED_TRIALS[options.mounted](options.saver, options.rules)
            return 0
        if "kills" in what:
            try_kills(options.saver, options.count, options.rules, options.seed)
        if "failures" in what:
            try_failures(options.saver, options.rules)
    except Failure as failure:
        print(f"FAILED: {failure}")
        return 1
    return 0


if __name__ == "__main__":
    sys.exit(main())
