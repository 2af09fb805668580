#!/usr/bin/env python3
"""Makes src/base/pinyin_data.inc, the tables behind the mnemonic codes.

usage: make_pinyin.py pinyin_chars.txt pinyin_phrases.txt

The two files are mozillazg's pinyin-data (the common readings of the 8105 standard characters,
kMandarin_8105.txt) and phrase-pinyin-data (pinyin.txt). Characters beyond those, mostly traditional
ones, get the reading of ICU's Han-Latin transliteration (uconv, Debian: icu-devtools). What the
trade reads otherwise stands in src/base/pinyin_trade.txt and wins over all of them.
"""
import re
import subprocess
import sys
import unicodedata
from pathlib import Path

FIRST, LAST = 0x4E00, 0x9FFF
BASE = Path(__file__).resolve().parent.parent / "src" / "base"


def initial(reading):
    """The first letter of a reading without its tone mark; None when there is none."""
    for char in unicodedata.normalize("NFD", reading):
        if char.isascii() and char.isalpha():
            return char.upper()
    return None


def is_han(text):
    return all(FIRST <= ord(char) <= LAST for char in text)


def read_chars(path):
    """Best letter per character, and the letters of the readings that the file's remarks give."""
    best, others = {}, []
    for line in path.read_text(encoding="utf-8").splitlines():
        match = re.match(r"U\+([0-9A-F]+): (\S+) *# *\S+(.*)", line)
        if not match or not is_han(chr(int(match[1], 16))):
            continue
        char = chr(int(match[1], 16))
        best[char] = initial(match[2])
        if "->" in match[3]:
            others += [(char, initial(r)) for r in re.split("[ ,]+", match[3].split("->")[1].strip())]
    return best, others


def read_phrases(path):
    phrases = {}
    for line in path.read_text(encoding="utf-8").splitlines():
        text, _, readings = line.partition("#")[0].partition(":")
        letters = [initial(reading) for reading in readings.split()]
        if len(text) > 1 and is_han(text) and len(text) == len(letters) and all(letters):
            phrases[text] = "".join(letters)
    return phrases


def read_trade(path):
    """Characters with all their letters, best first, and words with one letter per character."""
    chars, words = {}, {}
    for line in path.read_text(encoding="utf-8").splitlines():
        fields = line.partition("#")[0].split()
        if not fields:
            continue
        text, letters = fields
        if len(text) == 1:
            chars[text] = letters
        elif len(text) == len(letters):
            words[text] = letters
        else:
            sys.exit(f"{path}: {line}")
    return chars, words


def icu_letters():
    chars = [chr(code) for code in range(FIRST, LAST + 1)]
    made = subprocess.run(
        ["uconv", "-f", "utf-8", "-t", "utf-8", "-x", "Han-Latin"],
        input="\n".join(chars), capture_output=True, text=True, check=True,
    ).stdout.split("\n")
    return {char: initial(reading) for char, reading in zip(chars, made)}


def letters_of(text, best, words):
    """What the program makes of a text: at each place the longest word that is listed."""
    made, at, longest = "", 0, max(map(len, words), default=0)
    while at < len(text):
        for size in range(min(longest, len(text) - at), 1, -1):
            if text[at:at + size] in words:
                made += words[text[at:at + size]]
                at += size
                break
        else:
            made += best[text[at]]
            at += 1
    return made


def needed_words(phrases, best, trade_words):
    """The fewest phrases from which, shorter before longer, all of them come out right."""
    words = {}
    for text, letters in sorted({**phrases, **trade_words}.items(), key=lambda p: (len(p[0]), p[0])):
        if letters_of(text, best, words) != letters:
            words[text] = letters
        elif text in trade_words and phrases.get(text, letters) == letters:
            print(f"pinyin_trade.txt: {text} would come out right without its line")
    return words


def all_letters(best, pairs, trade_chars):
    """Characters with more than one letter, the best one first."""
    found = {}
    for char, letter in pairs:
        if letter and letter != best[char]:
            found.setdefault(char, set()).add(letter)
    for char, letters in trade_chars.items():
        found.setdefault(char, set()).update(letters[1:])
    return {char: best[char] + "".join(sorted(others - {best[char]}))
            for char, others in sorted(found.items()) if others - {best[char]}}


def quoted(entries, per_line):
    lines = [entries[i:i + per_line] for i in range(0, len(entries), per_line)]
    return "".join("    " + " ".join(f'u"{entry}"sv,' for entry in line) + "\n" for line in lines)


def main():
    chars_path, phrases_path = map(Path, sys.argv[1:])
    from_file, remarked = read_chars(chars_path)
    phrases = read_phrases(phrases_path)
    trade_chars, trade_words = read_trade(BASE / "pinyin_trade.txt")
    icu = icu_letters()

    best = {**icu, **from_file, **{char: letters[0] for char, letters in trade_chars.items()}}
    words = needed_words(phrases, best, trade_words)
    pairs = remarked + [(char, icu[char]) for char in from_file] + list(from_file.items())
    for text, letters in {**phrases, **trade_words}.items():
        pairs += zip(text, letters)
    several = all_letters(best, pairs, trade_chars)

    row = 64
    rows = ["".join(best[chr(code)] or " " for code in range(start, start + row))
            for start in range(FIRST, LAST + 1, row)]
    (BASE / "pinyin_data.inc").write_text(
        "// Made by scripts/make_pinyin.py; change pinyin_trade.txt and run it again.\n"
        f"// One letter for each of U+{FIRST:04X} to U+{LAST:04X}, {row} to a line; blank: no reading.\n"
        "constexpr std::string_view bestLetters =\n"
        + "".join(f'    "{r}"\n' for r in rows)
        + "    ;\n\n// A character and the letters of all its readings, the best one first.\n"
        f"constexpr std::array<std::u16string_view, {len(several)}> severalLetters = {{\n"
        + quoted([char + letters for char, letters in several.items()], 8)
        + "};\n\n// A word, then its letters, where they differ from those of its characters.\n"
        f"constexpr std::array<std::u16string_view, {len(words)}> words = {{\n"
        + quoted([text + letters for text, letters in sorted(words.items())], 6)
        + "};\n", encoding="utf-8")
    print(f"{len(several)} characters of several letters, {len(words)} words")


if __name__ == "__main__":
    main()
