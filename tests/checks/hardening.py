"""The programs and the module bear what distributions ask of programs that read files of any origin.

    hardening.py FILE...    programs, modules, and the static libraries (.a) that they are made of

Control flow is looked at in two places: every object of ours is marked for indirect branches (IBT) and shadow stacks
(SHSTK), and programs hold the landing places. The mark of a whole program is the linker's, who leaves it out where
the C library's start files have none, as Debian 12's.
"""
import pathlib
import re
import subprocess
import sys

# What Windows itself loads from the system's folder, whatever lies beside a program; the controls come from the system's
# store of assemblies, by the manifest.
SYSTEM_LIBRARIES = {"ADVAPI32.dll", "COMCTL32.dll", "comdlg32.dll", "KERNEL32.dll", "msvcrt.dll", "SHELL32.dll", "USER32.dll"}

HIGH_ENTROPY, DYNAMIC_BASE, NX = 0x20, 0x40, 0x100


# The path of a source file, which tells where a program was built and makes two builds differ. MinGW's own libraries have some.
SOURCE_FILE = re.compile(rb"(?<!c\+\+17/ryu)(?<!winpthreads/src)/\w+\.(c|cpp)\0")


def output(*command):
    return subprocess.run(command, capture_output=True, check=True, encoding="utf-8", errors="replace").stdout


def elf_faults(path):
    headers = output("readelf", "-Wlhd", path)
    symbols = output("readelf", "-Ws", "--dyn-syms", path)
    code = output("objdump", "-d", "--no-show-raw-insn", path)
    is_x86 = "X86-64" in headers
    content = pathlib.Path(path).read_bytes()
    rules = {
        "position independent": re.search(r"Type:\s+DYN", headers),
        "relocations read-only": "GNU_RELRO" in headers,
        "bound at once": re.search(r"FLAGS.*\bBIND_NOW\b|FLAGS_1.*\bNOW\b", headers),
        "stack not executable": re.search(r"GNU_STACK.* RW ", headers),
        "nothing writable and executable": not re.search(r"LOAD.* RWE ", headers),
        "stack protector": "__stack_chk_fail" in symbols,
        "checked functions": re.search(r"__\w+_chk\b(?<!__stack_chk)", symbols.replace("__stack_chk_fail", "")),
        "control flow": not is_x86 or code.count("endbr64") > 1000,
        "no folder of libraries of its own": not re.search(r"RPATH|RUNPATH", headers),
        "no path of a source": not SOURCE_FILE.search(content),
    }
    return [rule for rule, holds in rules.items() if not holds]


def archive_faults(path):
    notes = output("readelf", "-n", path)
    objects = notes.count("\nFile: ")
    marked = len(re.findall(r"x86 feature: .*\bIBT\b.*\bSHSTK\b", notes))
    is_x86 = "X86-64" in output("readelf", "-h", path)
    rules = {"objects": objects, "control flow in each object": not is_x86 or marked == objects}
    return [rule for rule, holds in rules.items() if not holds]


def pe_faults(path):
    headers = output("x86_64-w64-mingw32-objdump", "-p", "-h", path)
    characteristics = int(re.search(r"DllCharacteristics\s+([0-9a-f]+)", headers).group(1), 16)
    imports = set(re.findall(r"DLL Name: (\S+)", headers))
    content = pathlib.Path(path).read_bytes()
    rules = {
        "anywhere in memory": characteristics & DYNAMIC_BASE,
        "anywhere in all of memory": characteristics & HIGH_ENTROPY,
        "data not executable": characteristics & NX,
        "can be moved": ".reloc" in headers,
        "no debug sections": ".debug" not in headers,
        "stack protector": b"stack smashing detected" in content,
        "system libraries only": imports and imports <= SYSTEM_LIBRARIES,
        "a manifest": b"urn:schemas-microsoft-com:asm.v1" in content,
        "no path of a source": not SOURCE_FILE.search(content),
        "no time of linking": re.search(r"Time/Date\s+(Thu Jan  1 00:00:00 1970|0)", headers),
    }
    if path.endswith(".exe"):
        rules["later libraries from the system's folder"] = b"SetDefaultDllDirectories" in content
        rules["long paths"] = b"longPathAware" in content
    return [rule for rule, holds in rules.items() if not holds]


FAULTS = {".exe": pe_faults, ".dll": pe_faults, ".a": archive_faults}


def main(paths):
    failed = False
    for path in paths:
        for fault in FAULTS.get(pathlib.Path(path).suffix, elf_faults)(path):
            print(f"{path}: {fault}: no")
            failed = True
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
