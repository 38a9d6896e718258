#!/usr/bin/env python3
"""Makes the pictures of the dialogs and of the start from the drawings in art/pictures. Same drawings, same bytes.

Run it without arguments, from anywhere: art/pictures.py. It needs rsvg-convert (Debian: librsvg2-bin) and the fonts
Liberation Sans. A picture has two pixels to the unit, and says so: 192 dots to the inch. The splash is a PNG like the
others, under the name that the program looks for.
"""

import pathlib
import struct
import subprocess
import tempfile
import zlib

ART = pathlib.Path(__file__).resolve().parent
ROOT = ART.parent
DENSITY = 2
DOTS_PER_METRE = round(DENSITY * 96 / 0.0254)
BEHIND_HEADER = 8 + 12 + 13  # the signature and the first chunk


def chunk(kind, content):
    return struct.pack(">I", len(content)) + kind + content + struct.pack(">I", zlib.crc32(kind + content))


def picture(drawing):
    """The drawing as a PNG that tells its density."""
    with tempfile.NamedTemporaryFile(suffix=".css") as sheet:
        for part in (ART / "icons" / "family.css", ART / "pictures" / "letters.css"):
            sheet.write(part.read_bytes())
        sheet.flush()
        command = ["rsvg-convert", "--stylesheet", sheet.name, "--zoom", str(DENSITY), drawing]
        png = subprocess.run(command, check=True, capture_output=True).stdout
    density = chunk(b"pHYs", struct.pack(">IIB", DOTS_PER_METRE, DOTS_PER_METRE, 1))
    return png[:BEHIND_HEADER] + density + png[BEHIND_HEADER:]


def main():
    folder = ROOT / "Data" / "pictures"
    folder.mkdir(parents=True, exist_ok=True)
    for drawing in sorted((ART / "pictures").glob("*.svg")):
        target = ROOT / "Splash.spl" if drawing.stem == "Splash" else folder / f"{drawing.stem}.png"
        target.write_bytes(picture(drawing))


if __name__ == "__main__":
    main()
