#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Reads what a real scan writes in each format with the readers that others use for it: the sites of a project
whose texts try to break out of their quotes.
Usage: scan_formats.py SERVER CONSOLE SOURCE_FOLDER"""
import csv
import io
import json
import os
import re
import subprocess
import sys
import tempfile
import xml.etree.ElementTree as ElementTree

import jsonschema

server, console, source = sys.argv[1:]
MAIN = 'harbour-books.example'
# In the project's code page. The last one holds the three bytes of U+202E in UTF-8.
HOSTILE = [b'=cmd("x").example', b'quote"comma,<&>\'.example', b'bell\x07escape\x1b[2J.example',
           b'caf\xe9\x85.example', b'\xe2\x80\xaeelpmaxe.example']


def closed(schema):
    """The schema with no member that it does not name, so that each member of the output must be described."""
    if isinstance(schema, list):
        return [closed(each) for each in schema]
    if not isinstance(schema, dict):
        return schema
    tight = {key: closed(value) for key, value in schema.items()}
    return {**tight, 'additionalProperties': False} if tight.get('type') == 'object' else tight


def check(folder, port):
    project = os.path.join(folder, 'a"b&\u202e.prj')
    with open(project, 'wb') as file:
        file.write(b'\r\n'.join([MAIN.encode(), b'rope-and-sail.example|1|||', b'seaside-walks.example|2|||',
                                 *[site + b'|1|||' for site in HOSTILE], b'HTML01:x', b'']))
    with open(f'{folder}/filetypes.txt', 'w', encoding='ascii') as file:
        file.write('.htm\r\n')
    os.mkdir(f'{folder}/Project Files')

    def scan(*options):
        run = subprocess.run([console, 'scan', project, '-q', '--program-folder', folder, '--private', '--settings',
                              f'{folder}/settings', '--connect-to', f'::127.0.0.1:{port}', *options],
                             stdout=subprocess.PIPE, check=False)
        assert run.returncode == 1, run.returncode
        return run.stdout.decode('utf-8')

    typed = ['rope-and-sail.example', 'seaside-walks.example', *[site.decode('cp1252') for site in HOSTILE]]
    rows = [line.split('\t') for line in scan().splitlines()]
    assert len(rows) == 1 + len(typed)
    assert scan('--output', f'{folder}/rows') == ''
    with open(f'{folder}/rows', encoding='utf-8') as file:
        assert [line.rstrip('\n').split('\t') for line in file] == rows

    text = scan('--format', 'json')
    results = json.loads(text)
    with open(f'{source}/docs/scan-results.schema.json', encoding='utf-8') as file:
        jsonschema.validate(results, closed(json.load(file)))
    assert [site['site'] for site in results['sites']] == typed
    assert results['project'] == project and '\u202e' not in text and '\\u202E' in text
    assert results['complete'] and results['summary'] == {
        'sites': 7, 'link_back': 1, 'missing': 6, 'not_reached': 0}
    assert results['sites'][0]['links'] == [{'status': 'Direct Link', 'number': 1, 'url': 'rope-and-sail.example'}]
    assert (results['sites'][1]['expected'], results['sites'][1]['found']) == (2, 0)
    assert not re.search('[\0-\x09\x0b-\x1f\x7f-\x9f]', text), 'nothing that a terminal obeys'

    text = scan('--format', 'csv')
    assert text.count('\r\n') == text.count('\n') == len(rows)
    table = list(csv.reader(io.StringIO(text, newline=''), strict=True))
    assert [row for row in table if row[1][0] not in "'"] == [row for row in rows if row[1][0] != '=']
    assert table[3][1] == "'" + typed[2] and rows[3][1] == typed[2]

    assert scan('--format', 'junit', '--output', f'{folder}/results.xml') == ''
    suites = ElementTree.parse(f'{folder}/results.xml').getroot()
    assert [suites.get(count) for count in ('tests', 'failures', 'errors', 'skipped')] == ['7', '6', '0', '0']
    assert [suite.get('name') for suite in suites] == [MAIN]
    shown = [re.sub('[\0-\x1f\x7f-\x9f]', lambda c: f'\\x{ord(c[0]):02X}', name) for name in typed]
    assert [case.get('name') for case in suites[0]] == shown
    assert [case.find('failure') is None for case in suites[0]] == [True] + [False] * 6


with tempfile.TemporaryDirectory() as work:
    serving = subprocess.Popen([server, '--sites', f'{source}/samples/sites', '--port', '0'], stdout=subprocess.PIPE,
                               text=True)
    try:
        check(work, serving.stdout.readline().strip().rsplit(':', 1)[1])
    finally:
        serving.kill()
        serving.wait()
