#!/usr/bin/env python3
"""Makes seeds for the fuzz targets of what the tests have already: whole runs with their settings and side files, and
finished files. Together with those in fuzz/corpus they are where each target begins.

    fuzz/seeds.py FOLDER     makes FOLDER/TARGET/NAME
"""

import glob
import json
import os
import re
import sys

SEPARATOR = b"\n====\n"
SIDE_FILES = ("intermediatePts", "widthStake", "superElevation", "widening")


def content(path):
    if not os.path.isfile(path):
        return b""
    with open(path, "rb") as file:
        return file.read()


def write(folder, target, name, *files):
    os.makedirs(f"{folder}/{target}", exist_ok=True)
    with open(f"{folder}/{target}/{name}", "wb") as file:
        file.write(SEPARATOR.join(files))


def case(path):
    """The work folder and the settings of a whole run, as the command line gets them."""
    with open(path, encoding="utf-8") as file:
        arguments = json.load(file)["arguments"]
    folder = os.path.dirname(path)
    arguments = [re.sub("@SOURCE@", ".", re.sub("@CASE@", folder, argument)) for argument in arguments]
    settings = arguments[arguments.index("-s") + 1] if "-s" in arguments else ""
    return next(argument for argument in arguments if not argument.startswith("-")), settings


def write_runs(folder):
    for path in glob.glob("tests/e2e/*/case.json"):
        work, settings = case(path)
        name = os.path.basename(os.path.dirname(path))
        side_files = [content(f"{work}/{side}_temp_1.csv") for side in SIDE_FILES]
        files = [content(f"{work}/Landxml_temp.xml"), content(settings), *side_files]
        write(folder, "FuzzRun", name, *files)
        for option in ("-o\nout.xml\n--check\n--report\nreport.html", "--print-settings",
                       "--skip-locked\n--strict\n--json\n--output-dir\nout", "--dry-run\n-q\n--folder-settings\nsettings.json"):
            arguments = f"convert\n.\n-n\n1\n-s\nsettings.json\n{option}"
            write(folder, "FuzzCommandLine", f"{name}{option[:4]}", arguments.encode(), *files)


def write_finished(folder):
    finished = {"sound": "tests/inspect/sound.xml"}
    finished.update({path.split("/")[2]: path for path in glob.glob("tests/e2e/*/expected.xml")})
    for name, path in finished.items():
        for target in ("FuzzInspect", "FuzzLoader", "FuzzFinished", "FuzzSchema"):
            write(folder, target, name, content(path))
    sound = content(finished["sound"])
    for number, arguments in enumerate((
            "Landxml_temp.xml\n--csv\ntables\n--report\nreport.html", "--json\nLandxml_temp.xml\n--fail-on\n情報",
            "--list-checks", "--list-checks\n--json", "--help", "--version", "", "--checks\nH,X01\nLandxml_temp.xml",
            "--checks\nnone\nLandxml_temp.xml", "--ignore\nH\nLandxml_temp.xml", "--fail-on\n重大\nLandxml_temp.xml",
            "missing.xml\n--json", "Landxml_temp.xml\nLandxml_temp.xml\n--csv\nt", "--report\nr.html\na\nb", "--unknown")):
        write(folder, "FuzzCommandLine", f"inspect-{number}", f"inspect\n{arguments}".encode(), sound)
    for number, arguments in enumerate((
            "--help", "--version", "", ".", "missing\n-o\nout.xml", ".\n-n\nx\n-o\nout.xml", ".\n--dialog",
            ".\n-o\nout.xml\n--report\nout.xml", ".\n--print-settings\n--check", ".\n-s\n\n-o\nout.xml",
            ".\nmore\n--output-dir\nout\n-j\n0\n--json", ".\n-o\nLandxml_temp.xml", ".\n--ouput\nx", "-o\nx\n--\n.",
            ".\n-o\nout.xml\nmore", ".\n-s\nmissing.json\n-o\nout.xml", ".\n-o\nmissing_\n--unknown")):
        write(folder, "FuzzCommandLine", f"convert-{number}", f"convert\n{arguments}".encode(), sound)


NONSENSE = (b"", b"x", b"-1", b"0", b"1e300")
PARTS = 12


def damaged(text, part):
    """A file of which every twelfth value of an attribute and text of an element is nonsense."""
    count = 0

    def replace(match):
        nonlocal count
        count += 1
        if count % PARTS != part:
            return match.group(0)
        return match.group(1) + NONSENSE[count // PARTS % len(NONSENSE)] + match.group(3)

    return re.sub(rb'(="|>)([^"<>]*[^"<>\s][^"<>]*)("|<)', replace, text)


def write_damaged(folder):
    sound = content("tests/inspect/sound.xml")
    for part in range(PARTS):
        for target in ("FuzzInspect", "FuzzSchema"):
            write(folder, target, f"damaged-{part}", damaged(sound, part))
        for example in ("road", "river", "two-routes"):
            side_files = [content(f"examples/{example}/{side}_temp_1.csv") for side in SIDE_FILES]
            write(folder, "FuzzRun", f"damaged-{example}-{part}", damaged(content(f"examples/{example}/Landxml_temp.xml"), part),
                  content(f"examples/{example}/settings.json"), *side_files)


PASSAGES = (" <P  id='1'>\t1 2\n3 </P >", "<P id='1'>1 2 3</P><!-- <P id='9'>0 0 0</P> --><P id='2'>4 5 6</P>",
            "<P id='&#49;'>1 2 3</P>", "<P id='1' name='a>b' code='x'>+1 2e0 3.</P>", "<P id='1'><![CDATA[1 2 3]]></P>",
            "<P id=1>1</P>", "<P id='1'n='2'>1</P>", "<P ='1'/>", "<P id '1'/>", "<P id='1'/>", "<Pt/>", "text", "<P id='1'>1</F>",
            "<P>1 2 3</P>" * 4000)


def write_encodings(folder):
    sound = content("tests/inspect/sound.xml").decode()
    for target in ("FuzzInspect", "FuzzLoader", "FuzzFinished", "FuzzSchema"):
        for encoding in ("utf-16", "utf-16-be", "utf-32", "utf-8-sig"):
            write(folder, target, encoding, (("\uFEFF" if encoding.endswith("be") else "") + sound + "<!--𠮷-->").encode(encoding))
        write(folder, target, "cp932", b"<?xml version='1.0' encoding='Shift_JIS'?>" + sound.split("?>", 1)[-1].encode("cp932", "replace"))
        for number, passage in enumerate(PASSAGES):
            text = f"<LandXML><Surfaces><Surface name='s'><Definition><Pnts>{passage}</Pnts><Faces><F>1 2 1</F>"
            write(folder, target, f"passage-{number}", f"{text}</Faces></Definition></Surface></Surfaces></LandXML>".encode())
            write(folder, target, f"cut-{number}", text.encode())


def write_texts(folder):
    for number, text in enumerate(("1.5", "-0x1.8p3", "inf", "-nan(x)", "1e999", "1e-999", "  12abc", "0.0000012345", "9" * 40,
                                   "0x", "1e", "-", "+.5", "0." + "0" * 400 + "1", "123456.789012345", "2147483648", "右 片勾配=1.5\n左=2")):
        write(folder, "FuzzText", f"number-{number}", text.encode())


def write_calls(folder):
    calls, errors, most_allowed = 20, 8, 3
    for kind in range(16):
        for call in range(calls):
            for allowed in range(most_allowed):
                write(folder, "FuzzFiles", f"{kind}-{call}-{allowed}", bytes((kind, call, allowed, (call + allowed) % errors)))


for write_all in (write_runs, write_finished, write_damaged, write_encodings, write_texts, write_calls):
    write_all(sys.argv[1])
