#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Scans of many far sites, several at a time, beside wgets that fetch the same pages.

Usage: bench/whole_scan/many_sites.py BUILD_FOLDER [far] [silent] [near]   (default: all three)
  far     100 sites of 10 pages, each answer 50 ms away: 1, 16 and 128 sites at a time, wget alone and 32 wgets
  silent  1,000 sites of 3 pages, each answer 100 ms away, every twentieth silent: 128 and 256 at a time, 32 wgets
  near    100 sites of 10 pages without a delay: the processor time of 16 at a time beside one

Each site has an address of its own, since a scan makes no more than four connections to one. All scans of a case
must have the same rows.
"""
import asyncio
import os
import shutil
import socket
import statistics
import sys
import tempfile

from whole_scan import scan_command, timed

MAIN_SITE = "www.mysite.example"
ROUNDS = 5
SILENT = 20  # every so many sites, when there are silent ones
WAIT = 5     # seconds, for a silent site


def host(number):
    return "partner%04d.example" % number


def address(number):
    return "127.1.%d.%d" % (number // 250, number % 250 + 1)


def is_silent(number):
    return number % SILENT == SILENT - 1


def site_page(number, count):
    """Leads to the next page; the last one has the link that is looked for."""
    target = "http://%s/" % MAIN_SITE if number == count - 1 else "/%d.html" % (number + 1)
    body = '<html><body><a href="%s">on</a> %s</body></html>\r\n' % (target, "the quick brown fox " * 250)
    head = "HTTP/1.1 200 OK\r\nContent-Type: text/html\r\nContent-Length: %d\r\nConnection: close\r\n\r\n" % len(body)
    return (head + body).encode("ascii")


class SlowSite(asyncio.Protocol):
    """One connection: the answer comes after the delay, or never."""

    def __init__(self, pages, delay, silent):
        self.pages, self.delay, self.silent, self.request = pages, delay, silent, b""

    def connection_made(self, transport):
        self.transport = transport
        a, b = transport.get_extra_info("sockname")[0].split(".")[2:]
        self.silent = self.silent and is_silent(int(a) * 250 + int(b) - 1)

    def data_received(self, data):
        self.request += data
        if self.silent or b"\r\n\r\n" not in self.request:
            return
        path = self.request.split(b" ", 2)[1]
        answer = self.pages.get(path, b"HTTP/1.1 404 Not Found\r\nContent-Length: 0\r\nConnection: close\r\n\r\n")
        if self.delay == 0:
            self.answer(answer)
        else:
            asyncio.get_running_loop().call_later(self.delay, self.answer, answer)

    def answer(self, answer):
        self.transport.write(answer)
        self.transport.close()


async def serve(listener, pages, delay, silent):
    server = await asyncio.get_running_loop().create_server(
        lambda: SlowSite(pages, delay, silent), sock=listener, backlog=1024)
    await server.serve_forever()


def start_server(listener, count, delay, silent):
    """In a process of its own; returns its id."""
    child = os.fork()
    if child == 0:
        pages = {b"/%d.html" % number: site_page(number, count) for number in range(count)}
        try:
            asyncio.run(serve(listener, pages, delay, silent))
        finally:
            os._exit(0)
    return child


class Case:
    """A number of sites, their server and a program folder with a project that lists them."""

    def __init__(self, build, sites, pages, delay, silent=False):
        self.build, self.sites, self.pages, self.silent = build, sites, pages, silent
        self.rows = None
        self.folder = tempfile.mkdtemp(prefix="requite-bench-")
        os.makedirs(self.folder + "/Project Files")
        shutil.copy("installed/filetypes.txt", self.folder)
        with open(self.folder + "/bench.prj", "w", newline="") as file:
            file.write(MAIN_SITE + "\r\n")
            file.writelines("%s/0.html|1|||||\r\n" % host(number) for number in range(sites))
            file.write("HTML01:a\r\nHTML02:b\r\nHTML03:c\r\n\r\n")
        listener = socket.socket()
        listener.setsockopt(socket.SOL_SOCKET, socket.SO_REUSEADDR, 1)
        listener.bind(("0.0.0.0", 0))
        self.port = listener.getsockname()[1]
        self.server = start_server(listener, pages, delay, silent)
        listener.close()

    def __enter__(self):
        return self

    def __exit__(self, *_):
        os.kill(self.server, 15)
        os.waitpid(self.server, 0)
        shutil.rmtree(self.folder)

    def wget_seconds(self, side_by_side):
        """One wget a site, which follows its pages to the last one."""
        with open(self.folder + "/urls", "w") as file:
            file.writelines("http://%s:%d/0.html\n" % (address(number), self.port) for number in range(self.sites))
        command = ["xargs", "-a", self.folder + "/urls", "-n", "1", "-P", str(side_by_side), "wget", "-q", "-r", "-l",
                   "inf", "--no-http-keep-alive", "-e", "robots=off", "--tries", "1", "--timeout", str(WAIT), "-P",
                   self.folder + "/wget"]
        seconds = timed(command)[0]
        got = sum(len(files) for _, _, files in os.walk(self.folder + "/wget"))
        answering = sum(1 for number in range(self.sites) if not (self.silent and is_silent(number)))
        if got != answering * self.pages:
            raise SystemExit("wget fetched %d of %d pages" % (got, answering * self.pages))
        shutil.rmtree(self.folder + "/wget")
        return seconds

    def scan(self, at_a_time):
        """Seconds, seconds of the processor, and most memory in MB. Ends the program when rows differ."""
        command = scan_command(self.build, self.folder, self.port)[:-2]
        command += ["--set", "txtTimeout=%d" % WAIT, "--sites-at-a-time", str(at_a_time), "-q"]
        command += ["--output", self.folder + "/rows.tsv"]
        for number in range(self.sites):
            command += ["--connect-to", "%s::%s:%d" % (host(number), address(number), self.port)]
        seconds, status, usage = timed(command)
        if status != (1 if self.silent else 0):
            raise SystemExit("the scan ended with %d" % status)
        with open(self.folder + "/rows.tsv", "rb") as file:
            rows = file.read()
        if rows != (self.rows or rows) or rows.count(b"\n") < self.sites:
            raise SystemExit("the rows of %d sites at a time differ" % at_a_time)
        self.rows = rows
        return seconds, usage.ru_utime + usage.ru_stime, usage.ru_maxrss / 1024


def show(name, sites, seconds, rest=""):
    print("  %-24s %7.2f s  %7.0f sites a minute%s" % (name, seconds, sites / seconds * 60, rest), flush=True)


def show_scan(case, at_a_time):
    seconds, processor, memory = case.scan(at_a_time)
    show("%d at a time" % at_a_time, case.sites, seconds, "  %6.2f s of processor  %5.1f MB" % (processor, memory))


def far(build):
    print("100 sites of 10 pages, each answer 50 ms away:")
    with Case(build, 100, 10, 0.05) as case:
        for at_a_time in 1, 16, 128:
            show_scan(case, at_a_time)
        for side_by_side in 1, 32:
            show("wget, %d side by side" % side_by_side, case.sites, case.wget_seconds(side_by_side))


def silent(build):
    print("1,000 sites of 3 pages, each answer 100 ms away, %d of them silent:" % (1000 // SILENT))
    with Case(build, 1000, 3, 0.1, silent=True) as case:
        for at_a_time in 128, 256:
            show_scan(case, at_a_time)
        show("wget, 32 side by side", case.sites, case.wget_seconds(32))


def near(build):
    print("100 sites of 10 pages without a delay, medians of %d:" % ROUNDS)
    cores = sorted(os.sched_getaffinity(0))
    os.sched_setaffinity(0, cores[-1:])  # the server has a core to itself
    with Case(build, 100, 10, 0) as case:
        os.sched_setaffinity(0, cores[:1])
        runs = [(case.scan(1), case.scan(16)) for _ in range(ROUNDS)]
    os.sched_setaffinity(0, cores)
    one, several = (statistics.median(run[which][1] for run in runs) for which in (0, 1))
    print("  processor: %.3f s one at a time, %.3f s 16 at a time, ratio %.2f" % (one, several, several / one))


def main():
    build = os.path.abspath(sys.argv[1])
    os.chdir(os.path.dirname(os.path.abspath(__file__)) + "/../..")
    cases = {"far": far, "silent": silent, "near": near}
    for name in sys.argv[2:] or cases:
        if name not in cases:
            raise SystemExit(__doc__)
        cases[name](build)


if __name__ == "__main__":
    main()
