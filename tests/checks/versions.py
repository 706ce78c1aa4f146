"""What Windows tells of a file at its properties: version, product, original name and what it is, in Japanese and in English.

    versions.py VERSION FILE...    programs, modules and installers
"""
import pathlib
import re
import struct
import sys

# The product's name in each language.
PRODUCTS = {0x0411: "J-LandXML変換", 0x0409: "J-LandXML converter"}
INFORMATION = "VS_VERSION_INFO".encode("utf-16-le") + b"\0\0"
SIGNATURE = 0xFEEF04BD
HEAD = 6  # lengths of block and value, and whether the value is text; the key follows


def aligned(place):
    return (place + 3) & ~3


def blocks(content, start, end):
    """Key, value and place of the children of each of the blocks that stand side by side."""
    while start + HEAD < end:
        length, value_length, is_text = struct.unpack_from("<HHH", content, start)
        if length == 0:
            return
        key_end = start + HEAD
        while content[key_end:key_end + 2] != b"\0\0":
            key_end += 2
        value = aligned(key_end + 2)
        value_end = value + value_length * (2 if is_text else 1)
        yield (content[start + HEAD:key_end].decode("utf-16-le"), content[value:value_end], (aligned(value_end), start + length))
        start = aligned(start + length)


def text(value):
    return value.decode("utf-16-le").rstrip("\0")


def faults(path, version):
    content = path.read_bytes()
    major, minor, patch = map(int, version.split("."))
    tables, named = {}, set() # by language and code page
    # Installers have a block of information for each language, other files one for both.
    for match in re.finditer(re.escape(INFORMATION), content):
        information = content[match.start() - HEAD:] # places count from there, which is a multiple of four in memory
        _, fixed, children = next(blocks(information, 0, struct.unpack_from("<H", information)[0]))
        signature, _, file_high, file_low, product_high, product_low = struct.unpack_from("<6I", fixed)
        if signature != SIGNATURE or not (file_high, file_low) == (product_high, product_low) == (major << 16 | minor, patch << 16):
            yield f"the number isn't {version}"
        for key, _, below in blocks(information, *children):
            if key == "StringFileInfo":
                for number, _, strings in blocks(information, *below):
                    tables[int(number[:4], 16), int(number[4:], 16)] = {name: text(value) for name, value, _ in blocks(information, *strings)}
            elif key == "VarFileInfo":
                named.update(struct.iter_unpack("<HH", next(blocks(information, *below))[1]))
    if named != set(tables) or {language for language, _ in named} != set(PRODUCTS):
        yield f"languages and code pages are {named} and {set(tables)}"
    for (language, _), table in tables.items():
        expected = {"FileVersion": version, "ProductVersion": version, "ProductName": PRODUCTS.get(language),
                    "OriginalFilename": path.name}
        for name, value in expected.items():
            if table.get(name) != value:
                yield f"{language:04x}: {name} is {table.get(name)!r}, not {value!r}"
    descriptions = {table.get("FileDescription", "") for table in tables.values()}
    if len(descriptions - {""}) != len(PRODUCTS):
        yield f"it is described as {descriptions}"


def main(version, *paths):
    failed = False
    for path in map(pathlib.Path, paths):
        for fault in faults(path, version):
            print(f"{path}: {fault}")
            failed = True
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
