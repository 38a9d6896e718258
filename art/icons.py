#!/usr/bin/env python3
"""Makes the icon files of the folder Data/icons from the drawings in art/icons, and the program's own picture for
the desktop's icon theme (packaging/icons). Same drawings, same bytes.

Run it without arguments, from anywhere: art/icons.py. It needs rsvg-convert (Debian: librsvg2-bin), no more.
The files it makes are kept beside the sources, so that building the program does without it.

A picture is drawn once for each grid: art/icons/16 serves the menu and the small toolbars, art/icons/24 the
large ones. A file holds its grid's picture at that size and at twice the size. family.css holds the colours.
"""

import pathlib
import struct
import subprocess
import zlib

ART = pathlib.Path(__file__).resolve().parent / "icons"
ICONS = ART.parent.parent / "Data" / "icons"
THEME = ART.parent.parent / "packaging" / "icons"
THEME_SIZES = (16, 22, 24, 32, 48, 64, 128, 256)
ONLY_ON_TOOLBARS = {"Start", "Stop"}


def render(drawing, size):
    """The drawing at size x size pixels, as a PNG."""
    command = ["rsvg-convert", "--stylesheet", ART / "family.css", "-w", str(size), "-h", str(size), drawing]
    return subprocess.run(command, check=True, capture_output=True).stdout


def chunks(png):
    at = 8
    while at < len(png):
        length, kind = struct.unpack_from(">I4s", png, at)
        yield kind, png[at + 8 : at + 8 + length]
        at += 12 + length


def paeth(left, above, corner):
    guess = left + above - corner
    return min((left, above, corner), key=lambda value: abs(guess - value))


def pixel_rows(png):
    """The rows of a PNG of 8-bit R, G, B, A without interlacing: the one kind the renderer writes."""
    header = next(data for kind, data in chunks(png) if kind == b"IHDR")
    width, height, depth, colour, _, _, interlace = struct.unpack(">IIBBBBB", header)
    if (depth, colour, interlace) != (8, 6, 0):
        raise ValueError("not a plain 32-bit PNG")
    packed = zlib.decompress(b"".join(data for kind, data in chunks(png) if kind == b"IDAT"))
    stride = 4 * width
    above = bytes(stride)
    rows = []
    for y in range(height):
        start = y * (stride + 1)
        row = bytearray(packed[start + 1 : start + 1 + stride])
        for i in range(stride):
            left, corner = (row[i - 4], above[i - 4]) if i >= 4 else (0, 0)
            guesses = (0, left, above[i], (left + above[i]) // 2, paeth(left, above[i], corner))
            row[i] = (row[i] + guesses[packed[start]]) % 256
        rows.append(row)
        above = row
    return rows


def mask_row(alphas):
    """A row of the one-bit mask, padded to 32 bits: set where the picture is more transparent than not."""
    bits = "".join("1" if alpha < 128 else "0" for alpha in alphas)
    bits += "0" * (-len(bits) % 32)
    return int(bits, 2).to_bytes(len(bits) // 8, "big")


def icon_image(png):
    """An image of an icon file: header of doubled height, B, G, R, A colours, mask; bottom row first."""
    rows = pixel_rows(png)
    size = len(rows)
    colours = bytearray()
    mask = bytearray()
    for row in reversed(rows):
        for r, g, b, a in zip(row[0::4], row[1::4], row[2::4], row[3::4]):
            colours += bytes((b, g, r, a))
        mask += mask_row(row[3::4])
    header = struct.pack("<IiiHHIIiiII", 40, size, 2 * size, 1, 32, 0, len(colours) + len(mask), 0, 0, 0, 0)
    return header + colours + mask


def icon_file(drawing, sizes):
    images = [icon_image(render(drawing, size)) for size in sizes]
    head = struct.pack("<HHH", 0, 1, len(images))
    at = len(head) + 16 * len(images)
    for size, image in zip(sizes, images):
        head += struct.pack("<BBBBHHII", size, size, 0, 0, 1, 32, len(image), at)
        at += len(image)
    return head + b"".join(images)


def save(folder, name, content):
    folder.mkdir(parents=True, exist_ok=True)
    (folder / f"{name}.ico").write_bytes(content)


def for_the_theme(drawing, name):
    """The picture of a program: a PNG for each size, and the drawing itself with its colours inside."""
    for size in THEME_SIZES:
        folder = THEME / f"{size}x{size}"
        folder.mkdir(parents=True, exist_ok=True)
        (folder / f"{name}.png").write_bytes(render(drawing, size))
    colours = (ART / "family.css").read_text()
    source = drawing.read_text().split("?>", 1)[1].lstrip()
    head, rest = source.split(">", 1)
    (THEME / "scalable").mkdir(parents=True, exist_ok=True)
    (THEME / "scalable" / f"{name}.svg").write_text(f"{head}>\n<style>\n{colours.strip()}\n</style>{rest}")


def main():
    for_the_theme(ART / "16" / "Decoding.svg", "quillshift")
    on_toolbars = {drawing.stem for drawing in (ART / "24").glob("*.svg")}
    for drawing in sorted((ART / "16").glob("*.svg")):
        icon = icon_file(drawing, (16, 32))
        if drawing.stem not in ONLY_ON_TOOLBARS:
            save(ICONS / "menu", drawing.stem, icon)
        if drawing.stem in on_toolbars:
            save(ICONS / "toolbars" / "small", drawing.stem, icon)
    for drawing in sorted((ART / "24").glob("*.svg")):
        save(ICONS / "toolbars" / "large", drawing.stem, icon_file(drawing, (24, 48)))


if __name__ == "__main__":
    main()
