#!/usr/bin/python3
"""Prints how other programs do on the cases of bench/wizard_corpus.py: whether they name the set of a text.

Usage: bench/wizard_peers.py CASES

Asks enca, uchardet, chardet, and iconv (which only tells whether bytes are UTF-8). Needs the packages enca, uchardet
and python3-chardet. None of them undoes a wrong reading: a text read wrongly counts as theirs only when they name the
set that it was written in.
"""
import base64, collections, subprocess, sys

import chardet

NAMES = {"ibm866": "866", "cp866": "866", "windows-1251": "1251", "cp1251": "1251", "koi8-r": "koi8-r", "koi8-u": "koi8-r",
         "iso-8859-5": "iso-8859-5", "maccyr": "mac", "x-mac-cyrillic": "mac", "mac-cyrillic": "mac", "maccyrillic": "mac"}


def run(command, data):
    return subprocess.run(command, input=data, capture_output=True).stdout.decode("ascii", "ignore").strip().lower()


PEERS = {
    "enca": lambda data: run(["enca", "-L", "ru", "-i"], data),
    "uchardet": lambda data: run(["uchardet"], data),
    "chardet": lambda data: (chardet.detect(data)["encoding"] or "").lower(),
    "iconv": lambda data: "utf-8" if subprocess.run(["iconv", "-f", "utf-8"], input=data, capture_output=True).returncode == 0
             else "",
}
PYTHON = {"866": "cp866", "1251": "cp1251", "koi8-r": "koi8_r", "iso-8859-5": "iso8859_5", "mac": "mac_cyrillic"}


def main():
    cases, right = collections.Counter(), collections.Counter()
    for line in open(sys.argv[1]):
        group, letters, chain, data, text = line.rstrip("\n").split("\t")
        if group not in ("one set", "one wrong reading"):
            continue
        data, text = base64.b64decode(data), base64.b64decode(text).decode()
        cases[group, int(letters)] += 1
        for peer, ask in PEERS.items():
            said = ask(data)
            name = NAMES.get(said, said)
            try:
                same = data.decode(PYTHON.get(name, name or "ascii")) == text
            except (UnicodeDecodeError, LookupError):
                same = False
            right[group, int(letters), peer] += same
    print(f"{'what':18} {'letters':7} {'cases':>6} " + " ".join(f"{peer:>9}" for peer in PEERS))
    for group, letters in sorted(cases):
        count = cases[group, letters]
        shares = " ".join(f"{100 * right[group, letters, peer] / count:8.1f}%" for peer in PEERS)
        print(f"{group:18} {letters:<7} {count:6} {shares}")


main()
