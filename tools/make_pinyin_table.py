#!/usr/bin/env python3
"""Makes common/pinyintable.inc: what pinyin each UTF-16 unit stands for.

The readings come from the file Unihan_Readings of the Unicode character
database, which Debian ships in the package unicode-data. Run it from any
folder:

    tools/make_pinyin_table.py                  writes the table
    tools/make_pinyin_table.py --check DIR      also compares the readings with
                                                DIR/ranges.tsv and
                                                DIR/exceptions.tsv

GB2312 orders its level one (rows 16 to 55) by pinyin, so the readings there are
those that make the order rise; level two (rows 56 to 87) is ordered by radical
and takes the usual reading of each character.
"""

import argparse
import bz2
import itertools
import pathlib
import re
import sys
import unicodedata

DEFAULT_READINGS = "/usr/share/unicode/Unihan_Readings.txt.bz2"
OUTPUT = pathlib.Path(__file__).resolve().parent.parent / "common" / "pinyintable.inc"
FIELDS = ("kMandarin", "kXHC1983", "kTGHZ2013", "kHanyuPinlu", "kHanyuPinyin")

# The lowest number whose reading may differ from its range.
FIRST_EXCEPTION = 2294

# Level one: the database counts these as frequent, but only as a suffix or as
# another form of a different character.
NOT_FREQUENT = {"儿", "呐", "著"}
# Named although its range gives the same reading.
ALWAYS_EXCEPTION = {"二"}

# Level two: the reading that names and today's usage have, where the rule below
# picks another.
USUAL = {
    "晟": "SHENG", "缪": "MIAO", "覃": "QIN", "郇": "XUN", "靓": "LIANG", "鹄": "HU",
    "湫": "QIU", "呱": "GUA", "挲": "SUO", "忒": "TE", "蕃": "FAN", "艴": "FU",
    "呒": "WU", "嗯": "EN",
}

# Units that a GBK encoder leaves out instead of replacing: they are invisible.
IGNORABLE = [
    (0x00AD, 0x00AD), (0x034F, 0x034F), (0x061C, 0x061C), (0x115F, 0x1160), (0x17B4, 0x17B5),
    (0x180B, 0x180F), (0x200B, 0x200F), (0x202A, 0x202E), (0x2060, 0x206F), (0x3164, 0x3164),
    (0xFE00, 0xFE0F), (0xFEFF, 0xFEFF), (0xFFA0, 0xFFA0), (0xFFF0, 0xFFF8),
]
# Private-use units whose GBK bytes lie outside the GB2312 square; all others
# lie inside, where no character is.
PRIVATE_OUTSIDE = [(0xE4C6, 0xE765), (0xE7BC, 0xE7C6), (0xE7E2, 0xE7FD), (0xE815, 0xE864)]
# Units encoded in a single byte above 127: the bytes that follow pair up otherwise
# than the characters do, so that only the codec can tell.
SINGLE_BYTES = {0x20AC, 0xF8F5}

# An entry of the table is the row of the text, and the text's length. The first
# rows are ASCII.
LENGTH_SHIFT = 10
FIRST_SYLLABLE = 128
NOTHING = 0
QUESTION_MARK = ord("?") | 1 << LENGTH_SHIFT
BY_CODEC = 0x8000
BLOCK = 64


def toneless(reading):
    """"lüè" -> "LUE", "lǜ" -> "LV"; None for what is no syllable with a vowel."""
    plain = ""
    for c in unicodedata.normalize("NFD", reading):
        if c == "\u0308" and plain.endswith("u"):
            plain = plain[:-1] + "v"
        elif not unicodedata.combining(c):
            plain += c
    plain = plain.replace("ve", "ue").upper()
    return plain if re.fullmatch(r"[A-Z]*[AEIOUV][A-Z]*", plain) else None


def unique(items):
    return list(dict.fromkeys(item for item in items if item))


def parse_field(field, text):
    """The readings as written, with a frequency (0 when the field tells none)."""
    if field == "kHanyuPinlu":
        return [(m[1], int(m[2])) for m in re.finditer(r"([^\s(]+)\((\d+)\)", text)]
    if field == "kMandarin":
        return [(reading, 0) for reading in text.split()]
    return [(reading, 0) for part in text.split() for reading in part.split(":")[1].split(",")]


class Readings:
    def __init__(self, path):
        opener = bz2.open if str(path).endswith(".bz2") else open
        self.fields = {}
        with opener(path, "rt", encoding="utf-8") as lines:
            for line in lines:
                parts = line.rstrip("\n").split("\t")
                if len(parts) == 3 and parts[1] in FIELDS:
                    character = chr(int(parts[0][2:], 16))
                    self.fields[character, parts[1]] = parse_field(parts[1], parts[2])

    def of(self, character, field):
        return unique(toneless(r) for r, _ in self.fields.get((character, field), []))

    def all(self, character):
        return unique(r for field in FIELDS for r in self.of(character, field))

    def frequencies(self, character):
        result = {}
        for reading, count in self.fields.get((character, "kHanyuPinlu"), []):
            key = toneless(reading) or reading.upper()
            result[key] = result.get(key, 0) + count
        return result


def gb2312(first_row, last_row):
    """(number, character) of the rows, in order; the number is row * 100 + cell."""
    for row in range(first_row, last_row + 1):
        for cell in range(1, 95):
            try:
                yield row * 100 + cell, bytes([row + 160, cell + 160]).decode("gb2312")
            except UnicodeDecodeError:
                pass


def pinyin_order(syllable):
    """ü sorts as u, and after it where nothing else differs."""
    sounds_u_umlaut = syllable in ("LV", "NV", "LUE", "NUE")
    return syllable.replace("V", "U"), sounds_u_umlaut


def level_one(readings):
    """Number -> syllable, the rising sequence that keeps most kMandarin readings."""
    best = {"": (0, None)}
    steps = []
    for number, character in gb2312(16, 55):
        preferred = readings.of(character, "kMandarin")[:1]
        step = {}
        for syllable in readings.all(character):
            cost = 0 if [syllable] == preferred else 1
            fitting = [(total, before) for before, (total, _) in best.items()
                       if pinyin_order(before) <= pinyin_order(syllable)]
            if fitting:
                total, before = min(fitting)
                step[syllable] = (total + cost, before)
        if not step:
            sys.exit(f"no reading of {character} ({number}) keeps the order rising")
        steps.append((number, step))
        best = step
    syllable = min(best, key=lambda s: best[s][0])
    result = {}
    for number, step in reversed(steps):
        result[number] = syllable
        syllable = step[syllable][1]
    return dict(sorted(result.items()))


def level_one_exceptions(readings, from_ranges):
    result = {}
    for number, character in gb2312(16, 55):
        if number < FIRST_EXCEPTION or character in NOT_FREQUENT:
            continue
        regular = from_ranges[number]
        if character in ALWAYS_EXCEPTION:
            result[number] = regular
            continue
        counts = readings.frequencies(character)
        often = max(counts, key=counts.get, default=regular)
        if often != regular and counts[often] >= max(1000, 10 * counts.get(regular, 0)):
            result[number] = often
    return result


def usual_reading(readings, character):
    table = readings.of(character, "kTGHZ2013")
    mandarin = readings.of(character, "kMandarin")
    dictionary = readings.of(character, "kXHC1983")
    if character in USUAL:
        return USUAL[character]
    if len(table) == 1:
        return table[0]
    if not table and len(dictionary) == 1:
        return dictionary[0]
    return mandarin[0]


def consecutive_ranges(from_ranges):
    result = []
    for syllable, group in itertools.groupby(from_ranges.items(), key=lambda item: item[1]):
        numbers = [number for number, _ in group]
        result.append((numbers[0], numbers[-1], syllable))
    return result


def within(unit, spans):
    return any(first <= unit <= last for first, last in spans)


def unit_class(unit):
    """For a unit that is no GB2312 character of rows 16 to 87."""
    if unit < 128:
        return unit | 1 << LENGTH_SHIFT
    if unit in SINGLE_BYTES or 0xD800 <= unit < 0xE000:
        return BY_CODEC
    if 0xE000 <= unit < 0xF900:
        return NOTHING if within(unit, PRIVATE_OUTSIDE) else QUESTION_MARK
    if within(unit, IGNORABLE):
        return NOTHING
    try:
        code = chr(unit).encode("gbk")
    except UnicodeEncodeError:
        return QUESTION_MARK
    inside = len(code) == 2 and min(code) >= 0xA1
    return QUESTION_MARK if inside else NOTHING


def build_units(ranges, exceptions, syllables):
    row = {syllable: FIRST_SYLLABLE + i for i, syllable in enumerate(syllables)}
    units = [unit_class(unit) for unit in range(0x10000)]
    for number, character in gb2312(16, 87):
        syllable = exceptions.get(number) or ranges[number]
        units[ord(character)] = row[syllable] | len(syllable) << LENGTH_SHIFT
    return units


def rows_of(values, per_row):
    for start in range(0, len(values), per_row):
        yield "    " + " ".join(f"{v}," for v in values[start:start + per_row])


def table_text(units, syllables, version):
    blocks = {}
    starts = []
    for first in range(0, 0x10000, BLOCK):
        block = tuple(units[first:first + BLOCK])
        starts.append(blocks.setdefault(block, len(blocks)))
    quoted = [f'"{s}"' for s in syllables]
    lines = [
        "// Made by tools/make_pinyin_table.py from Unihan_Readings, " + version + ".",
        "// The readings are derived from Unicode data, modified: docs/licenses/unicode-data.md.",
        "",
        f"constexpr int BlockSize = {BLOCK};",
        f"constexpr int LengthShift = {LENGTH_SHIFT};",
        f"constexpr int FirstSyllable = {FIRST_SYLLABLE};",
        f"constexpr int ByCodec = 0x{BY_CODEC:x};",
        "",
        "constexpr const char *syllables[] = {",
        *rows_of(quoted, 10),
        "};",
        "",
        "// The block of each run of BlockSize UTF-16 units.",
        "constexpr quint16 blockOf[] = {",
        *rows_of(starts, 20),
        "};",
        "",
        "// For each unit of a block: the row of its text (that of the first syllable is",
        "// FirstSyllable), from LengthShift on the length of the text; or ByCodec.",
        "constexpr quint16 units[] = {",
        *itertools.chain.from_iterable(rows_of(block, 16) for block in blocks),
        "};",
    ]
    return "\n".join(lines) + "\n"


def unicode_version(path):
    opener = bz2.open if str(path).endswith(".bz2") else open
    with opener(path, "rt", encoding="utf-8") as lines:
        for line in itertools.islice(lines, 20):
            if "Unicode version" in line:
                return "Unicode " + line.split(":")[1].strip()
    return "unknown version"


def differences(folder, ranges, exceptions):
    def wanted(name):
        text = (pathlib.Path(folder) / name).read_text(encoding="utf-8")
        return {tuple(line.split("\t")) for line in text.splitlines() if line}

    have_ranges = {(str(a), str(b), s) for a, b, s in ranges}
    have_exceptions = {(str(n), s) for n, s in exceptions.items()}
    return sorted(wanted("ranges.tsv") ^ have_ranges) + sorted(
        wanted("exceptions.tsv") ^ have_exceptions)


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--readings", default=DEFAULT_READINGS, help="Unihan_Readings file")
    parser.add_argument("--output", default=OUTPUT, type=pathlib.Path)
    parser.add_argument("--check", metavar="DIR", help="compare with ranges.tsv and exceptions.tsv")
    options = parser.parse_args()

    readings = Readings(options.readings)
    from_ranges = level_one(readings)
    ranges = consecutive_ranges(from_ranges)
    exceptions = level_one_exceptions(readings, from_ranges)
    for number, character in gb2312(56, 87):
        exceptions[number] = usual_reading(readings, character)

    syllables = sorted(set(from_ranges.values()) | set(exceptions.values()))
    units = build_units(from_ranges, exceptions, syllables)
    options.output.write_text(
        table_text(units, syllables, unicode_version(options.readings)), encoding="utf-8")
    print(f"{len(ranges)} ranges, {len(exceptions)} exceptions, {len(syllables)} syllables")

    if options.check:
        different = differences(options.check, ranges, exceptions)
        for row in different:
            print("differs:", *row)
        if different:
            sys.exit(1)
        print("same readings as in", options.check)


if __name__ == "__main__":
    main()
