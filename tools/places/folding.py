"""The spellings of names, as downloader/feed/PlaceName.cpp compares them."""
import re
import unicodedata

LONG = {"st": "saint", "ste": "sainte", "ft": "fort", "mt": "mount", "spgs": "springs", "hts": "heights",
        "bch": "beach", "jct": "junction", "sankt": "saint"}
DIRECTIONS = {"n": "north", "s": "south", "e": "east", "w": "west"}
TWO_LETTERS = {"Æ": "ae", "Œ": "oe", "ß": "ss", "Þ": "th", "Ĳ": "ij"}
# Letters that Unicode does not decompose, and a few that are often written without their mark.
OTHER_LETTERS = {"Ð": "d", "Đ": "d", "Ø": "o", "Ħ": "h", "ı": "i", "ĸ": "k", "Ŀ": "l", "Ł": "l", "ŉ": "n",
                 "Ŋ": "n", "Ŧ": "t", "ſ": "s", "Ơ": "o", "Ư": "u", "Ș": "s", "Ț": "t", "Ə": "a", "ς": "σ",
                 "Ё": "е"}
LATIN = [*range(0xC0, 0x180), *range(0x1E00, 0x1F00)]
GREEK = [0x386, 0x388, 0x389, 0x38A, 0x38C, 0x38E, 0x38F, *range(0x391, 0x3AA), *range(0x3AC, 0x3B0),
         *range(0x3CC, 0x3CF)]
CYRILLIC = range(0x400, 0x430)  # capitals; they keep their accents
SKIPPED = [ord("'"), ord("`"), 0xB4, *range(0x2B9, 0x2C0), *range(0x300, 0x370), *range(0x2018, 0x2020)]


def make_letters():
    """Returns the table for str.translate."""
    letters = {code: "" for code in SKIPPED} | {ord(char): " " for char in "-./\t,()[]×÷"}
    for code in [*LATIN, *GREEK]:
        base = unicodedata.normalize("NFD", chr(code))[0].lower()
        if base.isascii() or code in GREEK:
            letters.setdefault(code, base)
    letters |= {code: chr(code).lower() for code in CYRILLIC}
    for char, folded in (TWO_LETTERS | OTHER_LETTERS).items():
        letters |= {ord(char): folded, ord(char.lower()): folded}
    letters |= {code: chr(code + 32) for code in range(ord("A"), ord("Z") + 1)}
    return letters


LETTERS = make_letters()


def fold(name):
    """Returns the key by which names are compared."""
    words = name.translate(LETTERS).split(" ")
    words = [word for word in words if word]
    if len(words) > 1 and len(words[1].encode()) > 1:
        words[0] = DIRECTIONS.get(words[0], words[0])
    return "".join(LONG.get(word, word) for word in words)


def name_hash(folded):
    """Returns the low 32 bits of the FNV-1a hash in downloader/http/TextHash.h."""
    value = 0xCBF29CE484222325
    for byte in folded.encode():
        value = (value ^ byte) * 0x100000001B3 % 2 ** 64
    return value % 2 ** 32
