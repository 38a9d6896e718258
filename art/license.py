#!/usr/bin/env python3
"""Makes License.rtf, which the program shows, from LICENSE and its translation in art/license.ru.txt.

Run it without arguments, from anywhere: art/license.py. Same texts, same bytes.
"""

import pathlib

ART = pathlib.Path(__file__).resolve().parent
ROOT = ART.parent
HEAD = r"{\rtf1\ansi\ansicpg1251\deff0{\fonttbl{\f0\fswiss\fcharset204 Tahoma;}}\f0\fs18\sa160" + "\n"
TITLE = r"{\b\fs22 %s}\par" + "\n"


def escaped(text):
    return "".join(chr(byte) if byte < 0x80 else rf"\'{byte:02x}" for byte in text.encode("cp1251"))


def rtf(text):
    """A licence as RTF: its title, then its paragraphs, each joined from its lines."""
    title, *paragraphs = (" ".join(lines.split()) for lines in text.strip().split("\n\n"))
    return TITLE % escaped(title) + "".join(escaped(paragraph) + "\\par\n" for paragraph in paragraphs)


def main():
    texts = ((ART / "license.ru.txt").read_text(), (ROOT / "LICENSE").read_text())
    (ROOT / "License.rtf").write_bytes((HEAD + "\\par\n".join(rtf(text) for text in texts) + "}\n").encode("ascii"))


if __name__ == "__main__":
    main()
