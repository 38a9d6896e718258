#!/usr/bin/env python3
"""Makes the texts that the wizard is judged by, from packages its models were not made from.

Usage: bench/wizard_corpus.py FOLDER SEED [tuning] > cases.tsv

FOLDER keeps the fetched packages. One case a line: group, letters at least, chain, bytes and text in base64.
With "tuning" the texts are others: what is changed in the wizard is looked at on those, and judged by these.
"""
import base64, glob, gzip, html, os, quopri, random, re, subprocess, sys, zipfile

SETS = {"866": "cp866", "1251": "cp1251", "koi8-r": "koi8_r", "iso-8859-5": "iso8859_5", "mac": "mac_cyrillic",
        "1252": "cp1252", "437": "cp437", "utf-8": "utf_8"}
WRITERS = ["866", "1251", "koi8-r", "iso-8859-5", "mac", "utf-8"]
READERS = ["866", "1251", "koi8-r", "iso-8859-5", "mac", "1252", "437"]
LENGTHS = (10, 20, 40, 80)


def package(folder, name):
    target = os.path.join(folder, name)
    if not os.path.isdir(target):
        subprocess.run(["apt-get", "download", "-q", name], cwd=folder, check=True, stdout=sys.stderr)
        subprocess.run(["dpkg-deb", "-x", glob.glob(os.path.join(folder, name + "_*.deb"))[0], target], check=True)
    return target


def strings(data):
    """The translations in a message catalogue."""
    count, place = (int.from_bytes(data[at:at + 4], "little") for at in (8, 16))
    for i in range(1, count):
        size, start = (int.from_bytes(data[place + 8 * i + k:place + 8 * i + k + 4], "little") for k in (0, 4))
        yield data[start:start + size].decode("utf-8", "ignore").replace("\0", "\n")


def catalogues(folder, name, language, file="*"):
    found = []
    for path in sorted(glob.glob(f"{package(folder, name)}/**/locale/{language}/LC_MESSAGES/{file}.mo", recursive=True)):
        found += strings(open(path, "rb").read())
    return list(dict.fromkeys(found))


def pages(folder, name):
    for path in sorted(glob.glob(package(folder, name) + "/**/*.html", recursive=True)):
        yield html.unescape(re.sub(r"<[^>]*>", " ", open(path, encoding="utf-8", errors="ignore").read()))


def langpack(folder, language):
    """The messages of a browser's translation."""
    name = "es-es" if language == "es" else language
    for path in glob.glob(package(folder, "firefox-esr-l10n-" + name) + "/usr/lib/**/*.xpi", recursive=True):
        with zipfile.ZipFile(path) as archive:
            for member in sorted(archive.namelist()):
                if member.endswith((".ftl", ".properties")):
                    for line in archive.read(member).decode("utf-8", "ignore").splitlines():
                        if "=" in line and not line.startswith("#"):
                            yield line.split("=", 1)[1].strip()


def russian(folder, tuning):
    if tuning:
        return {"prose": "\n".join(catalogues(folder, "freeciv-data", "ru", "freeciv-core")),
                "technical": "\n".join(pages(folder, "developers-reference-ru")) + "\n".join(langpack(folder, "ru")),
                "names": "\n".join(catalogues(folder, "freeciv-data", "ru", "freeciv-nations"))}
    prose = [" ".join(catalogues(folder, "wesnoth-1.16-tsg", "ru"))]
    for path in sorted(glob.glob(package(folder, "fortunes-ru") + "/usr/share/games/fortunes/ru/*")):
        if os.path.splitext(path)[1] not in (".dat", ".u8") and os.path.isfile(path):
            prose.append(open(path, encoding="utf-8", errors="ignore").read().replace("\n%\n", "\n"))
    return {"prose": "\n".join(prose), "technical": "\n".join(pages(folder, "debian-faq-ru")),
            "names": "\n".join(catalogues(folder, "iso-codes", "ru"))}


def foreign(folder, language, tuning):
    """Names, and the prose of a game where there is some."""
    if tuning:
        return [" ".join(langpack(folder, language)), "\n".join(catalogues(folder, "freeciv-data", language))]
    return [" ".join(catalogues(folder, "iso-codes", language)), "\n".join(catalogues(folder, "wesnoth-1.16-tsg", language))]


taken = set()


def passage(rng, text, letters, alphabet=re.compile("[А-яЁё]")):
    """A piece that begins at a word and holds at least so many letters, and less than half as many again. No two
    overlap as long as there is room."""
    for tries in range(100000):
        at = rng.randrange(len(text))
        at = text.find(" ", at) + 1
        wanted, end = rng.randint(letters, letters * 3 // 2), at
        found = 0
        while end < len(text) and (found < wanted or text[end].isalpha()):
            found += bool(alphabet.match(text[end]))
            end += 1
        piece = re.sub(r"[ \t]+", " ", text[at:end]).strip()
        blocks = {(id(text), place // 8) for place in range(at, end)}
        if letters <= found <= letters * 2 + 10 and len(piece) < 4 * letters + 60 and "\ufffd" not in piece:
            if taken.isdisjoint(blocks) or tries > 20:
                taken.update(blocks)
                return piece
    return None


def decode(data, reader):
    """As browsers and editors do: bytes that a set leaves open stay what they are."""
    return "".join(bytes([b]).decode(SETS[reader], "ignore") or chr(b) for b in data)


def garble(text, layers, stored="utf-8"):
    for writer, reader in layers:
        text = decode(text.encode(SETS[writer]), reader)
    return text.encode(SETS[stored])


def main():
    folder, rng, tuning = sys.argv[1], random.Random(int(sys.argv[2])), sys.argv[3:] == ["tuning"]
    texts = russian(folder, tuning)

    def russian_text(letters):
        kind = rng.choices(["prose", "technical", "names", "capitals", "markup"], [5, 2, 1, 1, 1])[0]
        piece = passage(rng, texts[kind if kind in texts else "prose"], letters)
        if kind == "capitals":
            return piece.upper()
        return f"<p class=\"note\">{piece}</p>" if kind == "markup" else piece

    def case(group, letters, chain, make):
        for _ in range(50):
            text = russian_text(letters)
            try:
                data = make(text)
            except (UnicodeEncodeError, UnicodeDecodeError):
                continue
            emit(group, letters, chain, data, text)
            return

    def emit(group, letters, chain, data, text):
        print(group, letters, chain, base64.b64encode(data).decode(), base64.b64encode(text.encode()).decode(), sep="\t")

    singles = [(w, r) for w in WRITERS for r in READERS if w != r]
    chain_name = lambda layers: ",".join(f"{w}>{r}" for w, r in layers)
    many = lambda count: ([rng.choice(singles) for _ in range(count)] for _ in range(4000))

    def joins(layers):
        """Whether the readings are not one, and text in small letters can go through them."""
        try:
            return all(a[1] != b[0] for a, b in zip(layers, layers[1:])) and bool(garble("Съешь этих мягких булок", layers))
        except UnicodeEncodeError:
            return False

    pairs = [l for l in many(2) if joins(l)][:30] + [[("utf-8", "1251")] * 2, [("utf-8", "1252")] * 2]
    triples = [l for l in many(3) if joins(l)][:12]
    foreigners = {language: foreign(folder, language, tuning)
                  for language in ("uk", "be", "bg", "sr", "el", "de", "fr", "es", "pl", "cs", "tr")}
    for letters in LENGTHS:
        for _ in range(150):
            case("clean", letters, "utf-8", lambda t: t.encode())
        for name in ("utf_16_le", "utf_16_be"):
            for mark in ("", "\ufeff"):
                for _ in range(20):
                    case("utf-16", letters, name.replace("_16_", "-16"), lambda t: (mark + t).encode(name))
        for _ in range(60):
            size = letters * 4
            emit("binary", letters, "binary", bytes(rng.randrange(256) for _ in range(size)), "")
        for name in ("866", "1251", "koi8-r", "iso-8859-5", "mac"):
            for _ in range(100):
                case("one set", letters, name, lambda t: t.encode(SETS[name]))
        for layer in singles:
            for _ in range(20):
                case("one wrong reading", letters, chain_name([layer]), lambda t: garble(t, [layer]))
        for layers in pairs:
            for _ in range(12):
                case("two", letters, chain_name(layers), lambda t: garble(t, layers))
        for layers in triples:
            for _ in range(12):
                case("three", letters, chain_name(layers), lambda t: garble(t, layers))
        debris = {
            "quoted-printable": lambda t: quopri.encodestring(t.encode(rng.choice(["utf-8", "cp1251", "koi8-r"]))),
            "base64": lambda t: base64.encodebytes(t.encode(rng.choice(["utf-8", "cp1251", "koi8-r"]))),
            "word": lambda t: b" ".join(b"=?" + c.encode() + b"?B?" + base64.b64encode(t.encode(c)) + b"?="
                                        for c in [rng.choice(["utf-8", "windows-1251", "koi8-r"])]),
            "entities": lambda t: "".join(c if ord(c) < 128 else f"&#{ord(c)};" for c in t).encode(),
            "unicode": lambda t: "".join(c if ord(c) < 128 else f"\\u{ord(c):04x}" for c in t).encode(),
            "percent": lambda t: "".join(c if ord(c) < 128 else "".join(f"%{b:02X}" for b in c.encode()) for c in t).encode(),
        }
        for name, make in debris.items():
            for _ in range(40):
                case("debris", letters, name, make)
        if letters >= 40:
            for layer in [("utf-8", "1251"), ("utf-8", "1252"), ("utf-8", "866"), ("koi8-r", "1251"), ("1251", "866")]:
                for _ in range(20):
                    def lossy(t):
                        data = bytearray(garble(t, [layer]).decode().encode(SETS[layer[1]], "replace"))
                        text = list(decode(bytes(data), layer[1]))
                        for _ in range(max(1, len(text) // 30)):
                            text[rng.randrange(len(text))] = rng.choice("?\ufffd")
                        return "".join(text).encode()
                    case("lossy", letters, chain_name([layer]), lossy)
        for language in foreigners:
            sources = [text for text in foreigners[language] if len(text) > 5000]
            alphabet = re.compile(r"[^\W\d_]")
            eight = {"uk": ["cp1251", "koi8_u"], "be": ["cp1251"], "bg": ["cp1251"], "sr": ["cp1251"], "el": ["cp1253"],
                     "de": ["cp1252"], "fr": ["cp1252"], "es": ["cp1252"]}.get(language, [])
            for name in ["utf_8"] + eight:
                for _ in range(25):
                    piece = passage(rng, rng.choice(sources), letters, alphabet)
                    try:
                        emit("other " + ("utf-8" if name == "utf_8" else "8-bit"), letters, language, piece.encode(name), piece)
                    except UnicodeEncodeError:
                        pass
    ways = [[layer] for layer in singles] + [[]]
    for _ in range(60):
        lines, good = [], []
        chosen = rng.sample(ways, 3)
        while len(lines) < 9:
            text = re.sub(r"\s+", " ", russian_text(40))
            try:
                lines.append(garble(text, chosen[len(lines) % 3]) + b"\n")
                good.append(text + "\n")
            except (UnicodeEncodeError, UnicodeDecodeError):
                chosen = rng.sample(ways, 3) if not lines else chosen
        emit("lines", 40, "several", b"".join(lines), "".join(good))


main()
