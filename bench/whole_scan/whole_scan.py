#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Whole scans against a local nginx, beside a bare socket loop and wget that fetch the same pages.

Usage: bench/whole_scan/whole_scan.py [--console PROGRAM]... [--rounds N] [--no-wget] BUILD_FOLDER [PAGES:KB ...]
Default cases: 1000:5 10000:5 50000:5 1000:14 10000:14 1000:96. From 90 KB on, pages are dense with links.

The yardstick: client and server run on one processor, and what counts is the processor time of both together, as a
multiple of the loop's. The loop makes exactly the requests that the server has logged during a first scan, in their
order. Each round runs the loop, then every console, in turns; figures are medians over the rounds, and a multiple is
the median of the multiples of the rounds. Processor time does not count what other programs do meanwhile, though
they do take room in the caches. --console, given twice, compares two builds in one run.
"""
import argparse
import os
import re
import shutil
import socket
import statistics
import subprocess
import sys
import tempfile
import time

HOST = "bench.example"
ROUNDS = 5
CASES = ["1000:5", "10000:5", "50000:5", "1000:14", "10000:14", "1000:96"]


def free_port():
    with socket.socket() as probe:
        probe.bind(("127.0.0.1", 0))
        return probe.getsockname()[1]


def page(number, count, kilobytes, links_every):
    """A page of the wanted size with a link about every `links_every` bytes, the first ones to new pages."""
    words = "the quick brown fox jumps over the lazy dog and goes on to the next page of this site "
    parts = ["<html><head><title>Page %d</title></head>\r\n<body>\r\n" % number]
    size, link = len(parts[0]), 0
    while size < kilobytes * 1024 - 40:
        target = (number * 4 + link + 1) % count if link < 4 else (number * 31 + link * 17) % count
        anchor = '<a href="/d%d/p%05d.html" class="n">page</a> ' % (target % 10, target)
        text = (words * (links_every // len(words) + 1))[: max(0, links_every - len(anchor) - 9)]
        part = "<p>" + anchor + text + "</p>\r\n"
        parts.append(part)
        size += len(part)
        link += 1
    return "".join(parts) + "</body></html>\r\n"


def make_site(folder, count, kilobytes):
    links_every = 180 if kilobytes >= 90 else 400
    paths = []
    for number in range(count):
        path = "/d%d/p%05d.html" % (number % 10, number)
        os.makedirs(folder + "/d%d" % (number % 10), exist_ok=True)
        with open(folder + path, "w", newline="") as file:
            file.write(page(number, count, kilobytes, links_every))
        paths.append(path)
    with open(folder + ".paths", "w") as file:
        file.write("\n".join(paths) + "\n")


def start_nginx(folder, site, port, listen="", log="access_log off"):
    """`listen` comes after the port and may go on with further settings of the server, `log` is a setting too."""
    with open(folder + "/nginx.conf", "w") as file:
        file.write(
            "daemon off; worker_processes 1; pid %s/nginx.pid; error_log %s/error.log crit;\n"
            "events { worker_connections 256; }\n"
            "http { %s; sendfile on; types { text/html html; } default_type text/html;\n"
            "  client_body_temp_path %s/t1; proxy_temp_path %s/t2; fastcgi_temp_path %s/t3;\n"
            "  uwsgi_temp_path %s/t4; scgi_temp_path %s/t5;\n"
            "  server { listen 127.0.0.1:%d%s; root %s; } }\n"
            % ((folder,) * 2 + (log,) + (folder,) * 5 + (port, listen, site)))
    os.chmod(folder, 0o755)
    server = subprocess.Popen(["/usr/sbin/nginx", "-p", folder, "-c", folder + "/nginx.conf"])
    for _ in range(100):
        try:
            socket.create_connection(("127.0.0.1", port), 0.2).close()
            return server
        except OSError:
            time.sleep(0.05)
    raise SystemExit("nginx did not start")


def most_memory(command):
    """Runs the command; returns its exit status and the most memory it had, in MiB. What the system says of an ended
    process counts the memory of its parent at its start too, so this asks while the process runs."""
    process = subprocess.Popen(command, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    most = 0
    while process.poll() is None:
        with open("/proc/%d/status" % process.pid) as file:
            found = re.search(r"VmHWM:\s+(\d+) kB", file.read())
        most = int(found.group(1)) if found else most  # a process that has just ended has none
        time.sleep(0.002)
    return process.returncode, most / 1024


def timed(command, **options):
    start = time.perf_counter()
    process = subprocess.Popen(command, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, **options)
    _, status, usage = os.wait4(process.pid, 0)
    return time.perf_counter() - start, os.waitstatus_to_exitcode(status), usage


class Server:
    """An nginx with one worker, and the processor time that the worker has taken."""

    def __init__(self, folder, site, port, log="access_log off"):
        self.process = start_nginx(folder, site, port, log=log)
        self.clock = (~self.worker() << 3) | 2  # the system's number for the clock of a process

    def worker(self):
        while True:  # connections are accepted before there is one
            with open("/proc/%d/task/%d/children" % ((self.process.pid,) * 2)) as file:
                if worker := file.read():
                    return int(worker)
            time.sleep(0.01)

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.process.terminate()
        self.process.wait()

    def seconds(self):
        return time.clock_gettime(self.clock)


def make_work_folder(folder):
    """A program folder with a project of one site, from whose first page all others can be reached."""
    work = folder + "/work"
    os.makedirs(work + "/Project Files")
    shutil.copy("installed/filetypes.txt", work)
    with open(work + "/bench.prj", "w", newline="") as file:
        file.write("nowhere-linked.example\r\n%s/d0/p00000.html|1|||||\r\nHTML01:a\r\nHTML02:b\r\nHTML03:c\r\n\r\n" % HOST)
    return work


def console_of(build):
    return build + "/src/console/requite-console"


def scan_command(build, work, port):
    return command_of(console_of(build), work, port)


def command_of(console, work, port):
    return [console, "scan", work + "/bench.prj", "--program-folder", work,
            "--settings", work + "/settings", "--set", "chkAuto=0", "--set", "chkAudioNext=0",
            "--set", "chkAudioFinished=0", "--connect-to", "::127.0.0.1:%d" % port]


class Run:
    """Processor time, in seconds, of one client and of the server meanwhile."""

    def __init__(self, server, command, expected=0):
        before = server.seconds()
        _, status, usage = timed(command)
        if status != expected:
            raise SystemExit("%s ended with %d" % (command[0], status))
        self.client = usage.ru_utime + usage.ru_stime
        self.server = server.seconds() - before
        self.both = self.client + self.server


def first_scan(folder, site, work, port, console, count):
    """Returns the paths that the scan asks for, in its order, as the server logs them, and the scan's memory."""
    log = "log_format paths $request_uri; access_log %s/requests paths" % folder
    with Server(folder, site, port, log=log):
        os.truncate(folder + "/requests", 0)  # the test whether it has started may be in it
        status, memory = most_memory(command_of(console, work, port))
        check_scan(work, status, count)
    with open(folder + "/requests") as file:
        requests = file.read()
    if requests.count("\n") != count:
        raise SystemExit("the server has logged %d pages, not %d" % (requests.count("\n"), count))
    return requests, memory


def first_scans(folder, site, work, port, consoles, count):
    """Leaves the requests in a file and returns the memory of each console."""
    scans = [first_scan(folder, site, work, port, console, count) for console in consoles]
    if any(requests != scans[0][0] for requests, _ in scans):
        raise SystemExit("the consoles ask for other pages, or in another order")
    with open(folder + "/requests", "w") as file:
        file.write(scans[0][0])
    return [memory for _, memory in scans]


def wget_run(server, folder, port, count):
    """wget crawls and keeps the pages, as the scan crawls and writes its work files."""
    run = Run(server, ["wget", "-q", "-r", "-l", "inf", "--no-http-keep-alive", "-e", "robots=off", "-P",
                       folder + "/wget", "http://127.0.0.1:%d/d0/p00000.html" % port])
    got = sum(len(files) for _, _, files in os.walk(folder + "/wget"))
    if got != count:
        raise SystemExit("wget fetched %d of %d pages" % (got, count))
    return run


def scan_run(server, work, port, console, count):
    run = Run(server, command_of(console, work, port), expected=1)
    check_scan(work, 1, count)
    return run


def run_rounds(options, server, loop, scan):
    """The runs of the loop, and those of each console."""
    loops, scans = [], [[] for _ in options.console]
    timed(loop)  # the first run of a server is slower
    for number in range(options.rounds):
        loops.append(Run(server, loop))
        turns = list(zip(options.console, scans))
        for console, runs in turns if number % 2 == 0 else reversed(turns):
            runs.append(scan(console))
    return loops, scans


def measure(options, count, kilobytes):
    # The pages are in memory, where there is room for them; the work files are where users have them.
    site_folder = tempfile.mkdtemp(prefix="requite-bench-", dir="/dev/shm" if kilobytes < 50 else None)
    folder = tempfile.mkdtemp(prefix="requite-bench-")
    try:
        site, work, port = site_folder + "/site", make_work_folder(folder), free_port()
        os.chmod(site_folder, 0o755)
        make_site(site, count, kilobytes)
        memories = first_scans(folder, site, work, port, options.console, count)
        loop = [options.build + "/bench/bare_loop", str(port), HOST, folder + "/requests"]
        with Server(folder, site, port) as server:
            loops, scans = run_rounds(options, server, loop,
                                      lambda console: scan_run(server, work, port, console, count))
            wget = wget_run(server, site_folder, port, count) if options.wget else None
    finally:
        shutil.rmtree(folder)
        shutil.rmtree(site_folder)
    case = (count, kilobytes)
    show_row(case, "bare loop", loops, [1] * len(loops))
    for console, runs, memory in zip(options.console, scans, memories):
        show_row(case, console, runs, [run.both / loop.both for run, loop in zip(runs, loops)], "%6.1f" % memory)
    if wget:
        show_row(case, "wget, once", [wget], [wget.both / statistics.median(run.both for run in loops)])


def show_row(case, name, runs, multiples, memory=""):
    client, server, both = (statistics.median(getattr(run, part) for run in runs) / case[0] * 1e6
                            for part in ("client", "server", "both"))
    print("%6d %3d  %-32s %7.1f %7.1f %8.1f   %5.2f  (%5.2f to %5.2f) %s"
          % (case + (name[-32:], client, server, both, statistics.median(multiples), min(multiples), max(multiples),
                     memory)), flush=True)


def check_scan(work, status, count):
    """Ends the program unless the scan has read all pages: its own count is in its report."""
    if status != 1:  # no page links back, so the scan must return 1
        raise SystemExit("the scan ended with %d" % status)
    with open(work + "/tempreport.html", encoding="cp1252") as file:
        pages = int(re.search(r"Total Pages Scanned:</td><td> (\d+)<", file.read()).group(1))
    if pages != count:
        raise SystemExit("the scan fetched %d of %d pages" % (pages, count))


def read_options():
    parser = argparse.ArgumentParser(usage=__doc__.split("Usage: ")[1].split("\n")[0])
    parser.add_argument("build", type=os.path.abspath)
    parser.add_argument("cases", nargs="*")
    parser.add_argument("--console", action="append", type=os.path.abspath)
    parser.add_argument("--rounds", type=int, default=ROUNDS)
    parser.add_argument("--no-wget", dest="wget", action="store_false")
    options = parser.parse_args()
    options.cases = [[int(each) for each in case.split(":")] for case in options.cases or CASES]
    options.console = options.console or [console_of(options.build)]
    options.wget = options.wget and shutil.which("wget") is not None
    return options


def main():
    options = read_options()
    os.chdir(os.path.dirname(os.path.abspath(__file__)) + "/../..")
    # The server and every client inherit it.
    os.sched_setaffinity(0, sorted(os.sched_getaffinity(0))[-1:])
    print(" pages  KB  microseconds a page of           client  server together  x loop  (least to most)  peak MiB")
    for count, kilobytes in options.cases:
        measure(options, count, kilobytes)


if __name__ == "__main__":
    main()
