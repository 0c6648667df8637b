#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Whole scans with the main window on screen, beside the same scans without it.

Usage: bench/qt/window_speed/window_speed.py BUILD_FOLDER [PAGES:KB ...]   (default 10000:5 6000:14 2000:96)
Starts an Xvfb of its own.

Everything runs on one processor: the scan, the server and the display. What counts is the processor time of all
three during the scan, because what the window has the display do costs the scan time too. Scans take turns; figures
are medians, and a percentage is the median of those of the rounds. requite-console's time, from its start to its
end, is printed beside them.
"""
import importlib.util
import os
import re
import shutil
import statistics
import subprocess
import sys
import tempfile
import time

ROUNDS = 5
HERE = os.path.dirname(os.path.abspath(__file__))


def whole_scan():
    """The sites and the server are those of the other benchmark of whole scans."""
    spec = importlib.util.spec_from_file_location("whole_scan", HERE + "/../../whole_scan/whole_scan.py")
    module = importlib.util.module_from_spec(spec)
    spec.loader.exec_module(module)
    return module


def worker_of(server):
    """The process of nginx that answers."""
    while True:  # connections are accepted before there is one
        with open("/proc/%d/task/%d/children" % ((server.pid,) * 2)) as children:
            if worker := children.read():
                return int(worker)
        time.sleep(0.01)


def seconds_of(process):
    return time.clock_gettime((~process << 3) | 2)  # the system's number for the clock of a process


def start_display(folder):
    """An Xvfb on a free number."""
    read, write = os.pipe()
    with open(folder + "/xvfb.log", "w") as log:
        display = subprocess.Popen(["Xvfb", "-displayfd", str(write), "-screen", "0", "1280x1024x24"],
                                   pass_fds=[write], stderr=log)
    os.close(write)
    with os.fdopen(read) as numbers:
        os.environ["DISPLAY"] = ":" + numbers.readline().strip()
    return display


def scan_in_process(build, work, port, window, count, others):
    """The processor seconds of one scan by the window's own services, and of the others meanwhile."""
    command = [build + "/bench/window_speed", "scan", work + "/bench.prj", work, str(port), window] + others
    said = subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True, check=True,
                          env=dict(os.environ, XDG_CONFIG_HOME=work)).stdout
    processor, pages = re.search(r"([\d.]+) s of the processor, (\d+) pages", said).groups()
    if int(pages) != count:
        raise SystemExit("the scan fetched %s of %d pages" % (pages, count))
    return float(processor)


def scan_in_console(sites, build, work, port, worker):
    before = seconds_of(worker)
    process = subprocess.Popen(sites.scan_command(build, work, port), stdout=subprocess.DEVNULL,
                               stderr=subprocess.DEVNULL)
    _, _, usage = os.wait4(process.pid, 0)
    return usage.ru_utime + usage.ru_stime + seconds_of(worker) - before


def measure(sites, build, count, kilobytes):
    folder = tempfile.mkdtemp(prefix="requite-window-", dir="/dev/shm")
    display = start_display(folder)
    try:
        site, work = folder + "/site", sites.make_work_folder(folder)
        sites.make_site(site, count, kilobytes)
        port = sites.free_port()
        server = sites.start_nginx(folder, site, port)
        try:
            worker = worker_of(server)
            others = [str(worker), str(display.pid)]
            kinds = {
                "console": lambda: scan_in_console(sites, build, work, port, worker),
                "without": lambda: scan_in_process(build, work, port, "without", count, others),
                "with": lambda: scan_in_process(build, work, port, "with", count, others),
            }
            kinds["without"]()  # warms the caches
            rounds = [{kind: scan() for kind, scan in kinds.items()} for _ in range(ROUNDS)]
        finally:
            server.terminate()
            server.wait()
        median = {kind: statistics.median(each[kind] for each in rounds) / count * 1e6 for kind in kinds}
        speed = statistics.median(each["without"] / each["with"] for each in rounds)
        print("%6d pages of %3d KB: console %.1f us/page, without a window %.1f, with it %.1f, %.1f %% of the speed"
              % (count, kilobytes, median["console"], median["without"], median["with"], 100 * speed), flush=True)
    finally:
        display.terminate()
        display.wait()
        shutil.rmtree(folder)


def main():
    sites = whole_scan()
    build = os.path.abspath(sys.argv[1])
    os.chdir(HERE + "/../../..")
    os.sched_setaffinity(0, {max(os.sched_getaffinity(0))})
    for case in sys.argv[2:] or ["10000:5", "6000:14", "2000:96"]:
        count, kilobytes = case.split(":")
        measure(sites, build, int(count), int(kilobytes))


if __name__ == "__main__":
    main()
