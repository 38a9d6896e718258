#!/usr/bin/env python3
"""Times the wizard as a filter beside iconv and cat, all reading from a pipe: the median of nine runs taken in turn.

Usage: bench/wizard_pipe.py WIZARD [MEGABYTES, 200]

The text is what the translated manual pages of this system say, or else one sentence; seconds, and megabytes that come
out in a second.
"""
import glob, gzip, os, re, statistics, subprocess, sys, tempfile, textwrap, time


def text():
    pages = [gzip.open(path, "rt", encoding="utf-8", errors="ignore").read()
             for path in sorted(glob.glob("/usr/share/man/ru/man*/*.gz"))]
    words = re.sub(r"(?m)^[.'].*$|\\.", " ", "\n".join(pages)).encode("koi8_r", "ignore").decode("koi8_r").split()
    words = words or "Старый смотритель ещё раз обошёл причал, когда погасли огни.".split() * 1000
    return "\n".join(textwrap.wrap(" ".join(words), 90)) + "\n"


def repeated(folder, name, data, size):
    path = os.path.join(folder, name)
    with open(path, "wb") as file:
        for _ in range(size // len(data) + 1):
            file.write(data)
    return path


def run(command, path):
    start = time.monotonic()
    source = subprocess.Popen(["cat", path], stdout=subprocess.PIPE)
    filter = subprocess.Popen(command, stdin=source.stdout, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    source.stdout.close()
    filter.wait()
    source.wait()
    return time.monotonic() - start


def main():
    wizard, size = sys.argv[1], int(sys.argv[2] if sys.argv[2:] else 200) << 20
    book = text()
    with tempfile.TemporaryDirectory() as folder:
        good = repeated(folder, "good", book.encode(), size * len(book.encode()) // len(book))
        koi8 = repeated(folder, "koi8", book.encode("koi8_r"), size)
        twice = repeated(folder, "twice", book.encode().decode("latin_1").encode(), size)
        rows = [("cat", ["cat"], good), ("iconv from KOI8-R", ["iconv", "-f", "koi8-r", "-t", "utf-8"], koi8),
                ("wizard from KOI8-R", [wizard], koi8), ("wizard from UTF-8 as 8859-1", [wizard], twice),
                ("wizard, nothing to do", [wizard], good)]
        times = {name: [] for name, _, _ in rows}
        for _ in range(9):
            for name, command, path in rows:
                times[name].append(run(command, path))
        for name, _, path in rows:
            out = os.path.getsize(path) / (2 if path == twice else 1) if path != koi8 else os.path.getsize(good)
            seconds = statistics.median(times[name])
            print(f"{name:28} {seconds:6.2f} s {out / seconds / 1e6:8.0f} MB/s out")


main()
