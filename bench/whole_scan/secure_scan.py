#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Whole scans over TLS against a local nginx, beside curl that fetches the same pages; both a connection a page.

Usage: bench/whole_scan/secure_scan.py BUILD_FOLDER [PAGES:KB ...]   (default 1000:5)
It compares processor time: other programs that run meanwhile disturb it less than the clock.
"""
import os
import shutil
import statistics
import subprocess
import sys
import tempfile
import time

from whole_scan import HOST, check_scan, free_port, make_site, make_work_folder, scan_command, start_nginx, timed

ROUNDS = 5


def make_certificate(folder):
    """For the host, and its own authority."""
    subprocess.run(["openssl", "req", "-x509", "-newkey", "ec", "-pkeyopt", "ec_paramgen_curve:P-256", "-nodes",
                    "-days", "2", "-subj", "/CN=" + HOST, "-addext", "subjectAltName=DNS:" + HOST,
                    "-keyout", folder + "/key.pem", "-out", folder + "/cert.pem"], check=True, capture_output=True)


def start_secure_server(folder, site, port, version):
    listen = (" ssl; ssl_certificate %s/cert.pem; ssl_certificate_key %s/key.pem; ssl_protocols %s;"
              " ssl_session_cache shared:bench:1m" % (folder, folder, version))
    log = "log_format bench $ssl_protocol:$ssl_session_reused; access_log %s/access.log bench" % folder
    return start_nginx(folder, site, port, listen, log)


def curl_command(folder, port):
    """One process that keeps its sessions, as the scan does, and writes the pages to nowhere."""
    with open(folder + "/site.paths") as paths, open(folder + "/curl.list", "w") as file:
        file.writelines('url = "https://%s%s"\n' % (HOST, path.strip()) for path in paths)
    return ["curl", "-q", "-sS", "--http1.1", "-H", "Connection: close", "--cacert", folder + "/cert.pem",
            "--connect-to", "%s:443:127.0.0.1:%d" % (HOST, port), "-K", folder + "/curl.list"]


def check_server(folder, version, count):
    """Ends the program unless the last client made one full handshake and resumed its session for the rest."""
    for _ in range(100):  # the server writes the last line when the client has gone
        with open(folder + "/access.log") as file:
            got = file.read().split()
        if len(got) == count:
            break
        time.sleep(0.01)
    os.truncate(folder + "/access.log", 0)
    wanted = [version + ":."] + [version + ":r"] * (count - 1)
    if got != wanted:
        raise SystemExit("the server saw %d connections, %d of them resumed" % (len(got), got.count(wanted[-1])))


def processor(command):
    """Seconds that the program and the system took for it, and its exit status."""
    _, status, usage = timed(command)
    return usage.ru_utime + usage.ru_stime, status


def measure_version(build, folder, work, version, count, kilobytes):
    port = free_port()
    cores = sorted(os.sched_getaffinity(0))
    os.sched_setaffinity(0, cores[-1:])
    server = start_secure_server(folder, folder + "/site", port, version)
    os.sched_setaffinity(0, cores[:1])
    own, curl = [], []
    try:
        os.truncate(folder + "/access.log", 0)
        for _ in range(ROUNDS):
            seconds, status = processor(curl_command(folder, port))
            if status != 0:
                raise SystemExit("curl ended with %d" % status)
            check_server(folder, version, count)
            curl.append(seconds)
            seconds, status = processor(scan_command(build, work, port) + ["--secure"])
            check_scan(work, status, count)
            check_server(folder, version, count)
            own.append(seconds)
    finally:
        os.sched_setaffinity(0, cores)
        server.terminate()
        server.wait()
    c, o = ([seconds / count * 1e6 for seconds in each] for each in (curl, own))
    print("%s, %6d pages of %3d KB: curl %6.1f us/page (%.1f to %.1f), scan %6.1f us/page (%.1f to %.1f), ratio %.2f"
          % (version, count, kilobytes, statistics.median(c), min(c), max(c), statistics.median(o), min(o), max(o),
             statistics.median(o) / statistics.median(c)))


def measure(build, count, kilobytes):
    folder = tempfile.mkdtemp(prefix="requite-bench-", dir="/dev/shm" if kilobytes < 50 else None)
    try:
        make_site(folder + "/site", count, kilobytes)
        make_certificate(folder)
        os.environ["SSL_CERT_FILE"] = folder + "/cert.pem"
        work = make_work_folder(folder)
        for version in ["TLSv1.2", "TLSv1.3"]:
            measure_version(build, folder, work, version, count, kilobytes)
    finally:
        shutil.rmtree(folder)


def main():
    build = os.path.abspath(sys.argv[1])
    os.chdir(os.path.dirname(os.path.abspath(__file__)) + "/../..")
    for case in sys.argv[2:] or ["1000:5"]:
        count, kilobytes = case.split(":")
        measure(build, int(count), int(kilobytes))


if __name__ == "__main__":
    main()
