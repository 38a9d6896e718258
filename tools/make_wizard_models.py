#!/usr/bin/env python3
"""Makes the letter models of the wizard from the texts of Debian packages.

Usage: tools/make_wizard_models.py [FOLDER] > src/wizard/detect/ModelData.cpp

FOLDER keeps the fetched packages between runs (build/models unless told). They are unpacked there, not installed.
A model holds, for each letter after the two before it, the bits it costs in quarters. Words count by the square
root of how often they stand, so that the words of one manual do not outweigh the language; those of up to four
letters, which are the same in any text, by how often they stand.
"""
import collections, glob, gzip, html, math, os, re, subprocess, sys

PACKAGES = {
    "ru": "manpages-ru libreoffice-help-ru gimp-help-ru hunspell-ru",
    "uk": "manpages-uk libreoffice-l10n-uk",
    "be": "libreoffice-l10n-be",
    "bg": "libreoffice-l10n-bg",
    "sr": "manpages-sr libreoffice-l10n-sr",
    "el": "manpages-el libreoffice-l10n-el",
    "latin": "libreoffice-l10n-de libreoffice-l10n-fr libreoffice-l10n-pl",
}
LETTERS = {
    "ru": "абвгдежзийклмнопрстуфхцчшщъыьэюяё",
    "uk": "абвгдежзийклмнопрстуфхцчшщьюяєіїґ",
    "be": "абвгдежзйклмнопрстуфхцчшыьэюяёіў",
    "bg": "абвгдежзийклмнопрстуфхцчшщъьюя",
    "sr": "абвгдежзиклмнопрстуфхцчшђјљњћџ",
    "el": "αβγδεζηθικλμνξοπρστυφχψωςάέήίόύώϊϋΐΰ",
    "latin": "abcdefghijklmnopqrstuvwxyzßàáâäåæçèéêëìíîïñòóôöøùúûüýœąćęłńśźżčřšžőűğışťďňů",
}
ORDER = {"el": 2, "latin": 2}
SHORT = 4


def texts(folder, package):
    target = os.path.join(folder, package)
    if not os.path.isdir(target):
        subprocess.run(["apt-get", "download", "-q", package], cwd=folder, check=True, stdout=sys.stderr)
        subprocess.run(["dpkg-deb", "-x", glob.glob(os.path.join(folder, package + "_*.deb"))[0], target], check=True)
    for path in sorted(glob.glob(target + "/**", recursive=True)):
        if not os.path.isfile(path) or os.path.islink(path):
            continue
        name = os.path.basename(path)
        if "/man/" in path and name.endswith(".gz"):
            text = gzip.open(path).read().decode("utf-8", "ignore")
            yield re.sub(r"\\f.|\\\(..|\\.", " ", text)
        elif name.endswith(".html"):
            yield html.unescape(re.sub(r"<[^>]*>", " ", open(path, encoding="utf-8", errors="ignore").read()))
        elif name.endswith(".mo") and "Latn" not in path:
            yield open(path, "rb").read().decode("utf-8", "ignore")
        elif name.endswith(".dic") and "hunspell" in path:
            yield "\n".join(line.split("/")[0] for line in open(path, encoding="utf-8", errors="ignore"))


def words(folder, language):
    letters = LETTERS[language]
    pattern = re.compile("[" + letters + "]+")
    counts = collections.Counter()
    for package in PACKAGES[language].split():
        for text in texts(folder, package):
            counts.update(pattern.findall(text.lower()))
    share = sum(map(math.sqrt, counts.values())) / counts.total()
    return {word: share * count if len(word) <= SHORT else math.sqrt(count) for word, count in counts.items()}


def costs(folder, language):
    """The bits of each letter after two (or one): smoothed by the shorter contexts (Witten and Bell's way)."""
    letters = LETTERS[language]
    size = len(letters) + 1
    index = {letter: place + 1 for place, letter in enumerate(letters)}
    single, pairs, triples = [0.0] * size, collections.defaultdict(float), collections.defaultdict(float)
    for word, weight in words(folder, language).items():
        before, last = 0, 0
        for letter in [index[l] for l in word] + [0]:
            single[letter] += weight
            pairs[last, letter] += weight
            triples[before, last, letter] += weight
            before, last = last, letter
    total = sum(single)

    def smooth(table, context, lower):
        row = [table.get(context + (letter,), 0.0) for letter in range(size)]
        count, kinds = sum(row), sum(1 for value in row if value)
        kinds = max(kinds, 1)
        return [(row[l] + kinds * lower[l]) / (count + kinds) for l in range(size)]

    one = [(value + 1) / (total + size) for value in single]
    two = {last: smooth(pairs, (last,), one) for last in range(size)}
    if ORDER.get(language) == 2:
        return [p for last in range(size) for p in two[last]]
    return [p for before in range(size) for last in range(size) for p in smooth(triples, (before, last), two[last])]


def literal(probabilities):
    text = ""
    for p in probabilities:
        level = min(61, round(-4 * math.log2(p)))
        text += chr(64 + level + (level >= 28))  # leaves the backslash out
    return "\n".join('    "%s"' % text[at:at + 110] for at in range(0, len(text), 110))


def main():
    folder = sys.argv[1] if len(sys.argv) > 1 else "build/models"
    os.makedirs(folder, exist_ok=True)
    print("// Made by tools/make_wizard_models.py; not to be edited.")
    print('#include "wizard/detect/ModelData.h"\n\nnamespace quillshift::wizard {\n')
    print("// clang-format off")
    print("const ModelData modelData[modelCount] = {")
    for language in PACKAGES:
        print('    {"%s", u"%s", %d,\n%s},' % (language, LETTERS[language], ORDER.get(language, 3),
                                               literal(costs(folder, language))))
    print("};\n// clang-format on\n\n} // namespace quillshift::wizard")


main()
