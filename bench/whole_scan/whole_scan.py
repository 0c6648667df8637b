#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Whole scans against a local nginx, beside a bare socket loop and wget that fetch the same pages.

Usage: bench/whole_scan/whole_scan.py BUILD_FOLDER [PAGES:KB ...]   (default 1000:5 10000:5 1000:14 1000:96)
"""
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
            "  open_file_cache max=20000 inactive=600s;\n"
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


def timed(command, **options):
    start = time.perf_counter()
    process = subprocess.Popen(command, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, **options)
    _, status, usage = os.wait4(process.pid, 0)
    return time.perf_counter() - start, os.waitstatus_to_exitcode(status), usage


def make_work_folder(folder):
    """A program folder with a project of one site, from whose first page all others can be reached."""
    work = folder + "/work"
    os.makedirs(work + "/Project Files")
    shutil.copy("installed/filetypes.txt", work)
    with open(work + "/bench.prj", "w", newline="") as file:
        file.write("nowhere-linked.example\r\n%s/d0/p00000.html|1|||||\r\nHTML01:a\r\nHTML02:b\r\nHTML03:c\r\n\r\n" % HOST)
    return work


def scan_command(build, work, port):
    return [build + "/src/console/requite-console", "scan", work + "/bench.prj", "--program-folder", work,
            "--settings", work + "/settings", "--set", "chkAuto=0", "--set", "chkAudioNext=0",
            "--set", "chkAudioFinished=0", "--connect-to", "::127.0.0.1:%d" % port]


def measure(build, count, kilobytes):
    folder = tempfile.mkdtemp(prefix="requite-bench-", dir="/dev/shm" if kilobytes < 50 else None)
    try:
        site, work = folder + "/site", make_work_folder(folder)
        make_site(site, count, kilobytes)
        port = free_port()
        server = start_nginx(folder, site, port)
        try:
            bare, own, wget, memory = [], [], [], 0
            loop = [build + "/bench/bare_loop", str(port), HOST, site + ".paths"]
            # wget crawls and keeps the pages, as the scan crawls and writes its work files.
            crawl = ["wget", "-q", "-r", "-l", "inf", "--no-http-keep-alive", "-e", "robots=off", "-P",
                     folder + "/wget", "http://127.0.0.1:%d/d0/p00000.html" % port]
            timed(loop)  # warms nginx's caches
            for _ in range(ROUNDS):
                bare.append(timed(loop)[0])
                seconds, status, usage = timed(scan_command(build, work, port))
                check_scan(work, status, count)
                own.append(seconds)
                memory = max(memory, usage.ru_maxrss)
            wget.append(timed(crawl)[0])
        finally:
            server.terminate()
            server.wait()
        b, o, w = (statistics.median(times) for times in (bare, own, wget))
        print("%6d pages of %3d KB: bare %7.1f us/page, scan %7.1f us/page, ratio %.2f; wget %7.1f us/page,"
              " ratio %.2f; peak memory of the scan %.1f MB"
              % (count, kilobytes, b / count * 1e6, o / count * 1e6, o / b, w / count * 1e6, w / b, memory / 1024))
    finally:
        shutil.rmtree(folder)


def check_scan(work, status, count):
    """Ends the program unless the scan has read all pages: its own count is in its report."""
    if status != 1:  # no page links back, so the scan must return 1
        raise SystemExit("the scan ended with %d" % status)
    with open(work + "/tempreport.html", encoding="cp1252") as file:
        pages = int(re.search(r"Total Pages Scanned:</td><td> (\d+)<", file.read()).group(1))
    if pages != count:
        raise SystemExit("the scan fetched %d of %d pages" % (pages, count))


def main():
    build = os.path.abspath(sys.argv[1])
    os.chdir(os.path.dirname(os.path.abspath(__file__)) + "/../..")
    for case in sys.argv[2:] or ["1000:5", "10000:5", "1000:14", "1000:96"]:
        count, kilobytes = case.split(":")
        measure(build, int(count), int(kilobytes))


if __name__ == "__main__":
    main()
