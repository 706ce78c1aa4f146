"""What is installed works by itself, wherever it lies: the programs, the module that they find, and hosts that are built
with it. Runs at a display of its own, since dialogs are opened, and closed again from outside.

    installed.py install BUILD SOURCE WORK [EMULATOR]     installs the build first, and looks at what is there
    installed.py use PREFIX WORK VERSION [EMULATOR]       what somebody has installed, such as a package
"""
import os
import pathlib
import re
import shlex
import shutil
import subprocess
import sys
import time

DIALOG = "J-LandXML"  # how its title begins; the rest is told apart by programs in a Japanese locale alone
PATIENCE = 120  # seconds

# Of each kind of thing one that is there, and what has to be installed with it.
PROGRAMS = ["bin/jlandxml-convert{exe}", "bin/jlandxml-inspect{exe}"]
FOR_HOSTS = ["include/jlandxml/JLandXmlConvert.h", "lib/cmake/JLandXmlConvert/JLandXmlConvertConfig.cmake",
             "lib/cmake/JLandXmlConvert/JLandXmlConvertConfigVersion.cmake"]
DOCUMENTS = ["README.md", "README.ja.md", "CHANGELOG.md", "NOTICES.txt", "jlandxml-convert.spdx", "docs/warnings.md",
             "docs/hosts.md", "docs/images/alignment-linux.png", "examples/road/settings.json", "examples/host-c/main.c",
             "examples/host-qt/main.cpp"]
ON_LINUX = ["lib/jlandxml/libJLandXmlConvert.so", "lib/jlandxml/libJLandXmlConvert.so.1", "lib/pkgconfig/jlandxmlconvert.pc",
            "share/man/man1/jlandxml-convert.1", "share/man/ja/man1/jlandxml-inspect.1",
            "share/bash-completion/completions/jlandxml-convert", "share/zsh/site-functions/_jlandxml-inspect"]
ON_WINDOWS = ["lib/jlandxml/JLandXmlConvert.dll", "lib/jlandxml/libJLandXmlConvert.dll.a", "lib/jlandxml/JLandXmlConvert.def"]

CROSS_BUILD = ["-DCMAKE_SYSTEM_NAME=Windows", "-DCMAKE_C_COMPILER=x86_64-w64-mingw32-gcc-posix"]

failures = []


def expect(holds, what):
    if not holds:
        failures.append(what)
        print(what, flush=True)


def output(command, **options):
    run = subprocess.run(command, capture_output=True, encoding="utf-8", errors="replace", **options)
    return run.returncode, run.stdout, run.stderr


def must(command, **options):
    status, out, err = output(command, **options)
    if status != 0:
        sys.exit(f"{' '.join(map(str, command))}: status {status}\n{out}{err}")
    return out


def window(title, process):
    """The window with a title, once it is there; none if the process ends before."""
    end = time.monotonic() + PATIENCE
    while time.monotonic() < end and process.poll() is None:
        found = output(["xdotool", "search", "--onlyvisible", "--name", title])[1].split()
        if found:
            return found[-1]
        time.sleep(0.1)
    return None


def press(key, number):
    output(["xdotool", "windowfocus", number, "key", key])


def close_dialog(process, what):
    """Waits for the module's dialog and presses Escape until it has gone, since it may not listen yet."""
    dialog = window(DIALOG, process)
    expect(dialog, f"{what}: no dialog came up")
    if not dialog:
        return
    end = time.monotonic() + PATIENCE
    while time.monotonic() < end and dialog in output(["xdotool", "search", "--onlyvisible", "--name", DIALOG])[1].split():
        press("Escape", dialog)
        time.sleep(0.3)


def finish(process, what, expected_out=None):
    try:
        out, err = process.communicate(timeout=PATIENCE)
    except subprocess.TimeoutExpired:
        process.kill()
        out, err = process.communicate()
        expect(False, f"{what}: it didn't end")
    text = out.decode("utf-8", "replace")
    expect(process.returncode == 0, f"{what}: status {process.returncode}: {text}{err.decode('utf-8', 'replace')}")
    expect(expected_out is None or expected_out in text, f"{what}: prints {text!r}")


class Installed:
    """An installed tree and the way to run what is in it."""

    def __init__(self, prefix, emulator, work):
        self.prefix = prefix
        self.emulator = [emulator] if emulator else []
        self.is_windows = bool(emulator)
        self.exe = ".exe" if self.is_windows else ""
        self.documents = prefix / "share" / "doc" / "jlandxml-convert"
        self.work = work

    def program(self, name):
        return self.emulator + [str(self.prefix / "bin" / (name + self.exe))]

    def check_files(self):
        files = [name.format(exe=self.exe) for name in PROGRAMS] + FOR_HOSTS + (ON_WINDOWS if self.is_windows else ON_LINUX)
        for path in [self.prefix / name for name in files] + [self.documents / name for name in DOCUMENTS]:
            expect(path.is_file(), f"{path} isn't installed")
        notices = (self.documents / "NOTICES.txt").read_text(encoding="utf-8", errors="replace")
        listed = re.findall(r"^PackageName: (.*)$", (self.documents / "jlandxml-convert.spdx").read_text(encoding="utf-8"), re.M)
        expect(len(listed) > 3, f"{listed} are listed only")
        for name in listed[1:]:
            expect(re.search(rf"^{name} [0-9.]+", notices, re.M), f"no notice of {name}")

    def check_programs(self, version):
        road = self.documents / "examples" / "road"
        out = self.work / "road.xml"
        for name in ["jlandxml-convert", "jlandxml-inspect"]:
            expect(must(self.program(name) + ["--version"]).split() == [name, version], f"{name} has another version")
        must(self.program("jlandxml-convert") + [str(road), "-s", str(road / "settings.json"), "-o", str(out)])
        expect(must(self.program("jlandxml-inspect") + [str(out)]) != "", "nothing was inspected")

    def open_dialog(self):
        """From a folder in which somebody has left a module that isn't ours."""
        process = subprocess.Popen(self.program("jlandxml-convert") + ["--dialog", str(self.documents / "examples" / "road")],
                                   cwd=planted(self.work), stdout=subprocess.PIPE, stderr=subprocess.PIPE)
        close_dialog(process, "--dialog")
        finish(process, "--dialog")

    def check_missing_module(self):
        """Only the two places count: not the current folder, nor what lies beside it, nor the search path."""
        module = self.prefix / "lib" / "jlandxml"
        away = self.prefix / "lib" / "away"
        module.rename(away)
        folder = planted(self.work)
        environment = dict(os.environ, LD_LIBRARY_PATH=str(folder), WINEPATH=str(folder))
        status, _, err = output(self.program("jlandxml-convert") + ["--dialog", str(self.documents / "examples" / "road")],
                                cwd=folder, env=environment)
        away.rename(module)
        expect(status == 3 and err.startswith("モジュールを読み込めません\t"), f"without a module: status {status}: {err}")

    def build_host(self, name):
        build = self.work / name
        must(["cmake", "-G", "Ninja", "-S", self.documents / "examples" / name, "-B", build, f"-DCMAKE_PREFIX_PATH={self.prefix}",
              *(CROSS_BUILD if self.is_windows else [])])
        must(["cmake", "--build", build])
        return build / (name + self.exe)

    def build_host_by_hand(self):
        """Without CMake: what pkg-config says, or the import library."""
        source = self.documents / "examples" / "host-c" / "main.c"
        program = self.work / ("by-hand" + self.exe)
        if self.is_windows:
            must(["x86_64-w64-mingw32-gcc-posix", "-municode", source, "-I", self.prefix / "include",
                  self.prefix / "lib" / "jlandxml" / "libJLandXmlConvert.dll.a", "-o", program])
            shutil.copy(self.prefix / "lib" / "jlandxml" / "JLandXmlConvert.dll", self.work)
            return program
        environment = dict(os.environ, PKG_CONFIG_PATH=str(self.prefix / "lib" / "pkgconfig"))
        flags = shlex.split(must(["pkg-config", "--cflags", "--libs", "jlandxmlconvert"], env=environment))
        must(["cc", source, *flags, "-o", program])
        return program

    def run_host(self, program):
        process = subprocess.Popen(self.emulator + [str(program), str(self.documents / "examples" / "road"), "1"], cwd=self.work,
                                   stdout=subprocess.PIPE, stderr=subprocess.PIPE)
        close_dialog(process, program.name)
        finish(process, program.name, "The dialog was closed.")

    def run_host_with_windows(self, program):
        process = subprocess.Popen([str(program), str(self.documents / "examples" / "road"), "1"], cwd=self.work,
                                   stdout=subprocess.PIPE, stderr=subprocess.PIPE)
        own = window("host-qt", process)
        expect(own, "host-qt: no window came up")
        if own:
            press("space", own)
            close_dialog(process, "host-qt")
            output(["xdotool", "windowclose", own])
            process.terminate()
            process.wait()


def planted(work):
    """A folder with modules that must not be loaded: what isn't a library at all."""
    folder = work / "planted" / "bin"
    for place in [folder, work / "planted" / "lib" / "jlandxml"]:
        place.mkdir(parents=True, exist_ok=True)
        for name in ["libJLandXmlConvert.so", "JLandXmlConvert.dll"]:
            (place / name).write_text("planted")
    return folder


def use(prefix, work, version, emulator=""):
    """All that is done with what is installed."""
    installed = Installed(prefix, emulator, work)
    installed.check_programs(version)
    installed.open_dialog()
    installed.check_missing_module()
    installed.run_host(installed.build_host("host-c"))
    installed.run_host(installed.build_host_by_hand())
    if not installed.is_windows:
        installed.run_host_with_windows(installed.build_host("host-qt"))


def main(mode, *arguments):
    if mode == "use":
        use(pathlib.Path(arguments[0]).resolve(), empty_folder(arguments[1]), *arguments[2:])
    elif mode == "install":
        build, source, work = arguments[0], pathlib.Path(arguments[1]), empty_folder(arguments[2])
        must(["cmake", "--install", build, "--prefix", work / "first"])
        # What is found is found from where it lies.
        prefix = (work / "first").rename(work / "installed tree")
        version = re.search(r"project\(JLandXmlConvert VERSION (\S+)", (source / "CMakeLists.txt").read_text()).group(1)
        Installed(prefix, *(arguments[3:] or [""]), work).check_files()
        use(prefix, work, version, *arguments[3:])
    return 1 if failures else 0


def empty_folder(path):
    folder = pathlib.Path(path).resolve()
    shutil.rmtree(folder, ignore_errors=True)
    folder.mkdir(parents=True)
    return folder


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
