"""Writes a smaller copy of a font, under another family name, for the program's resources.

With --tabular the digits are those of one width, which the font keeps behind a feature that the
toolkit cannot ask for. With --smaller everything is that much smaller at the same size: the toolkit
rounds sizes to whole pixels. Features that turn what is written into something else ("->" into an arrow,
the "x" of "10x20" into a sign) are left out: file names are to be read as they are.
"""

import argparse

from fontTools import subset
from fontTools.ttLib import TTFont

# Latin with its accents, Greek, Cyrillic; punctuation, currencies, letterlike signs, arrows,
# mathematics, technical signs, boxes, shapes, dingbats. Other scripts come from the system's fonts.
RANGES = [
    (0x0020, 0x024F), (0x02B0, 0x036F), (0x0370, 0x052F), (0x1E00, 0x1FFF), (0x2000, 0x22FF),
    (0x2300, 0x23FF), (0x2500, 0x27BF), (0xFB00, 0xFB06), (0xFEFF, 0xFEFF), (0xFFFD, 0xFFFD),
]
FEATURES = ["ccmp", "kern", "locl", "mark", "mkmk"]
FAMILY, STYLE, UNIQUE, FULL, POSTSCRIPT, TYPO_FAMILY, TYPO_STYLE = 1, 2, 3, 4, 6, 16, 17


def use_tabular_digits(font: TTFont) -> None:
    table = font["GSUB"].table
    swaps = {}
    for record in table.FeatureList.FeatureRecord:
        if record.FeatureTag != "tnum":
            continue
        for index in record.Feature.LookupListIndex:
            for lookup in table.LookupList.Lookup[index].SubTable:
                lookup = getattr(lookup, "ExtSubTable", lookup)
                swaps.update(getattr(lookup, "mapping", {}))
    digits = range(ord("0"), ord("9") + 1)
    names = font.getBestCmap()
    missing = [chr(digit) for digit in digits if names[digit] not in swaps]
    if missing:
        raise SystemExit(f"no tabular glyph for {''.join(missing)}")
    tabular = {digit: swaps[names[digit]] for digit in digits}
    # At some weights the font's own differ by a hair.
    width = font["hmtx"][tabular[ord("0")]][0]
    for glyph in tabular.values():
        font["hmtx"][glyph] = (width, font["hmtx"][glyph][1])
    for cmap in font["cmap"].tables:
        if cmap.isUnicode():
            cmap.cmap.update(tabular)


def keep_what_is_shown(font: TTFont) -> None:
    options = subset.Options()
    options.layout_features = FEATURES
    options.name_IDs = ["*"]
    options.notdef_outline = True
    options.hinting = True
    subsetter = subset.Subsetter(options)
    subsetter.populate(unicodes=[code for first, last in RANGES for code in range(first, last + 1)])
    subsetter.subset(font)


def make_smaller(font: TTFont, factor: float) -> None:
    """More units to the em, and every outline and distance is a smaller part of it."""
    units = round(font["head"].unitsPerEm / factor)
    font["head"].unitsPerEm = units
    if "CFF " in font:
        font["CFF "].cff.topDictIndex[0].FontMatrix = [1 / units, 0, 0, 1 / units, 0, 0]


def rename(font: TTFont, family: str, style: str) -> None:
    postscript = f"{family.replace(' ', '')}-{style}"
    texts = {FAMILY: family, STYLE: style, UNIQUE: postscript, FULL: f"{family} {style}",
             POSTSCRIPT: postscript}
    names = font["name"]
    for identifier in (*texts, TYPO_FAMILY, TYPO_STYLE, 21, 22, 25):
        names.removeNames(nameID=identifier)
    for identifier, text in texts.items():
        names.setName(text, identifier, 3, 1, 0x409)
    if "CFF " in font:
        compact = font["CFF "].cff
        compact.fontNames = [postscript]
        top = compact.topDictIndex[0]
        top.FamilyName, top.FullName = family, texts[FULL]


def main() -> None:
    arguments = argparse.ArgumentParser()
    arguments.add_argument("source")
    arguments.add_argument("target")
    arguments.add_argument("--family", required=True)
    arguments.add_argument("--style", required=True)
    arguments.add_argument("--tabular", action="store_true")
    arguments.add_argument("--smaller", type=float, metavar="FACTOR")
    given = arguments.parse_args()
    font = TTFont(given.source, recalcTimestamp=False)
    if given.tabular:
        use_tabular_digits(font)
    keep_what_is_shown(font)
    if given.smaller:
        make_smaller(font, given.smaller)
    rename(font, given.family, given.style)
    font.save(given.target)


if __name__ == "__main__":
    main()
