#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Whole scans with the main window on screen, beside the same scans without it.

Usage: bench/qt/window_speed/window_speed.py BUILD_FOLDER [PAGES:KB ...]   (default 5000:5 2000:14 1000:96)
Needs a display (DISPLAY, or QT_QPA_PLATFORM=offscreen).
"""
import importlib.util
import os
import re
import shutil
import statistics
import subprocess
import sys
import tempfile

ROUNDS = 5
HERE = os.path.dirname(os.path.abspath(__file__))


def whole_scan():
    """The sites and the server are those of the other benchmark of whole scans."""
    spec = importlib.util.spec_from_file_location("whole_scan", HERE + "/../../whole_scan/whole_scan.py")
    module = importlib.util.module_from_spec(spec)
    spec.loader.exec_module(module)
    return module


def one_scan(build, work, port, window, count):
    command = [build + "/bench/window_speed", "scan", work + "/bench.prj", work, str(port), window]
    said = subprocess.run(command, stdout=subprocess.PIPE, text=True, check=True,
                          env=dict(os.environ, XDG_CONFIG_HOME=work)).stdout
    seconds, processor, pages = re.match(r"([\d.]+) s, ([\d.]+) s of the processor, (\d+) pages", said).groups()
    if int(pages) != count:
        raise SystemExit("the scan fetched %s of %d pages" % (pages, count))
    return float(seconds), float(processor)


def measure(sites, build, count, kilobytes):
    folder = tempfile.mkdtemp(prefix="requite-window-", dir="/dev/shm")
    try:
        site, work = folder + "/site", folder + "/work"
        os.makedirs(work + "/Project Files")
        sites.make_site(site, count, kilobytes)
        shutil.copy(HERE + "/../../../installed/filetypes.txt", work)
        with open(work + "/bench.prj", "w", newline="") as file:
            file.write("nowhere-linked.example\r\n%s/d0/p00000.html|1|||||\r\n"
                       "HTML01:a\r\nHTML02:b\r\nHTML03:c\r\n\r\n" % sites.HOST)
        port = sites.free_port()
        server = sites.start_nginx(folder, site, port)
        try:
            one_scan(build, work, port, "without", count)  # warms the caches
            # In turns, so that a busy moment of the machine affects both.
            pairs = [(one_scan(build, work, port, "without", count), one_scan(build, work, port, "with", count))
                     for _ in range(ROUNDS)]
        finally:
            server.terminate()
            server.wait()
        print("%6d pages of %3d KB:" % (count, kilobytes), end="")
        # Compare processor time on a busy machine, clock time on a quiet one.
        for which, name in enumerate(("clock", "processor")):
            without, shown = (statistics.median(run[which] for run in runs) for runs in zip(*pairs))
            print("  %s %.3f s without a window, %.3f s with it, %.0f %% of the speed"
                  % (name, without, shown, 100 * without / shown), end="")
        print()
    finally:
        shutil.rmtree(folder)


def main():
    sites = whole_scan()
    build = os.path.abspath(sys.argv[1])
    for case in sys.argv[2:] or ["5000:5", "2000:14", "1000:96"]:
        count, kilobytes = case.split(":")
        measure(sites, build, int(count), int(kilobytes))


if __name__ == "__main__":
    main()
