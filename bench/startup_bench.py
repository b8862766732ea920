#!/usr/bin/env python3
"""How long the program takes from its start to its window, against a bare program of the toolkit.

    startup_bench.py <program> <bare program> [--rounds <n>]

The two are started by turns, with all stock rule modules configured and everything in the disk's
cache. Prints the medians and their ratio. Needs a display with a window manager, and xprop.
"""

import argparse
import os
import pathlib
import shutil
import signal
import statistics
import subprocess
import sys
import tempfile
import time

LIMIT_SECONDS = 60
NOT_RULE_MODULES = ("vantrelframeworku", "QoxSqliteDatabaseu")
STOCK_MODULES = 14


class WindowWatch:
    """Tells when the window manager has taken up a new window."""

    def __init__(self):
        self._process = subprocess.Popen(["xprop", "-root", "-spy", "_NET_CLIENT_LIST"], stdout=subprocess.PIPE,
                                         text=True)
        self._windows = self._read()

    def _read(self):
        line = self._process.stdout.readline()
        return set(line.partition("#")[2].replace(",", " ").split())

    def wait_for_change(self, appears):
        """Returns the moment in which a window came, or went."""
        while True:
            before, self._windows = self._windows, self._read()
            moment = time.perf_counter()
            if (self._windows - before) if appears else (before - self._windows):
                return moment

    def close(self):
        self._process.terminate()
        self._process.wait()


def user_environment(folder):
    environment = dict(os.environ)
    for name in ("vantrel_data_dir", "VANTREL_DATABASE_DIR", "VANTREL_TEMPFOLDER", "TEMP", "appdata"):
        environment.pop(name, None)
    for name in ("HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME", "XDG_RUNTIME_DIR"):
        environment[name] = os.path.join(folder, name)
        os.makedirs(environment[name], mode=0o700)
    return environment


def configure_modules(program, environment):
    """Writes the file that has all stock modules loaded."""
    folder = pathlib.Path(program).parent
    modules = sorted(path.stem for path in folder.glob("*.so") if path.stem not in NOT_RULE_MODULES)
    if len(modules) != STOCK_MODULES:
        raise SystemExit(f"{len(modules)} rule modules instead of {STOCK_MODULES} in {folder}")
    settings = pathlib.Path(environment["XDG_DATA_HOME"], "vantrel", "Settings")
    settings.mkdir(parents=True)
    lines = [" [RULE_CONFIGURATION_MODULES]"]
    lines += [f" module{number}={folder}/{name}.dll" for number, name in enumerate(modules, 1)]
    lines += [" [RULE_DATABASE_MODULES]", f" module1={folder}/QoxSqliteDatabaseu.dll"]
    (settings / "ConfigModule.ini").write_text("\n".join(lines) + "\n")
    return modules


def start_seconds(program, environment, watch, modules):
    """Starts the program, waits for its window and ends it."""
    began = time.perf_counter()
    process = subprocess.Popen([program], env=environment, stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
                               stderr=subprocess.DEVNULL)
    try:
        seconds = watch.wait_for_change(appears=True) - began
        if process.poll() is not None:
            raise SystemExit(f"{program} ended with status {process.returncode}")
        # What is measured must have happened.
        mapped = pathlib.Path(f"/proc/{process.pid}/maps").read_text()
        missing = [name for name in modules if f"/{name}.so" not in mapped]
        if missing:
            raise SystemExit(f"not loaded: {missing}")
    finally:
        process.kill()
        process.wait()
    watch.wait_for_change(appears=False)
    return seconds


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("program")
    parser.add_argument("bare")
    parser.add_argument("--rounds", type=int, default=21)
    options, _ = parser.parse_known_args()  # others are for the other benchmarks
    programs = [os.path.realpath(options.program), os.path.realpath(options.bare)]
    signal.alarm(LIMIT_SECONDS + 5 * options.rounds)  # a window that never comes

    folder = tempfile.mkdtemp(prefix="vantrel-bench-", dir="/dev/shm" if os.path.isdir("/dev/shm") else None)
    watch = WindowWatch()
    try:
        environment = user_environment(folder)
        wanted = [configure_modules(programs[0], environment), []]
        times = [[], []]
        for number in range(options.rounds + 1):
            for index, program in enumerate(programs):
                seconds = start_seconds(program, environment, watch, wanted[index])
                if number > 0:  # the first round fills the cache
                    times[index].append(seconds)
    finally:
        watch.close()
        shutil.rmtree(folder)
    ratio = statistics.median(own / bare for own, bare in zip(*times))
    for name, values in zip(("program, 14 rule modules", "bare program"), times):
        print(f"start to window, {name}: median {1000 * statistics.median(values):.0f} ms,"
              f" least {1000 * min(values):.0f} ms")
    print(f"start to window, ratio: {ratio:.2f}")


if __name__ == "__main__":
    sys.exit(main())
