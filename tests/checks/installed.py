"""What is installed works by itself, wherever it lies: the programs, the module that they find, and hosts that are built
with it. Runs at a display of its own, since dialogs are opened, and closed again from outside.

    installed.py install BUILD SOURCE WORK [EMULATOR]     installs the build first
    installed.py use PREFIX WORK VERSION [EMULATOR]       what somebody has installed, such as a package
    installed.py folders BUILD SOURCE WORK                installs it as packagers do who want other folders
"""
import json
import os
import pathlib
import re
import shlex
import shutil
import subprocess
import sys
import time

from pages import blocks, check_links, check_pages, documents

DIALOG = "J-LandXML"  # how its title begins; the rest is told apart by programs in a Japanese locale alone
PATIENCE = 120  # seconds

# Of each kind of thing one that is there, and what has to be installed with it.
PROGRAMS = ["bin/jlandxml-convert{exe}", "bin/jlandxml-inspect{exe}"]
FOR_HOSTS = ["include/jlandxml/JLandXmlConvert.h", "{lib}/cmake/JLandXmlConvert/JLandXmlConvertConfig.cmake",
             "{lib}/cmake/JLandXmlConvert/JLandXmlConvertConfigVersion.cmake"]
DOCUMENTS = ["README.md", "README.ja.md", "CONTRIBUTING.md", "SECURITY.md", "CHANGELOG.md", "NOTICES.txt", "jlandxml-convert.spdx",
             "docs/warnings.md", "docs/hosts.md", "docs/packages.md", "docs/images/alignment-linux.png", "manual/manual.ja.html", "manual/README.ja.html",
             "manual/images/alignment-windows.png", "examples/road/settings.json", "examples/bypass/make.py",
             "examples/bypass/settings.json", "examples/host-c/main.c", "examples/host-qt/main.cpp"]
ON_LINUX = ["{lib}/jlandxml/libJLandXmlConvert.so", "{lib}/jlandxml/libJLandXmlConvert.so.1", "{lib}/pkgconfig/jlandxmlconvert.pc",
            "share/man/man1/jlandxml-convert.1", "share/man/ja/man1/jlandxml-inspect.1",
            "share/bash-completion/completions/jlandxml-convert", "share/zsh/site-functions/_jlandxml-inspect"]
ON_WINDOWS = ["{lib}/jlandxml/JLandXmlConvert.dll", "{lib}/jlandxml/libJLandXmlConvert.dll.a", "{lib}/jlandxml/JLandXmlConvert.def"]
# What Debian's package has in another place or under another name.
BY_DEBIAN = {"NOTICES.txt": "copyright", "CHANGELOG.md": "changelog.gz", "zsh/site-functions": "zsh/vendor-completions",
             "lib/pkgconfig": "lib/*/pkgconfig", "man1/jlandxml-convert.1": "man1/jlandxml-convert.1.gz",
             "man1/jlandxml-inspect.1": "man1/jlandxml-inspect.1.gz"}

# The libraries inside, and words of the licence of each.
GRANTED = "Permission is hereby granted, free of charge"
REDISTRIBUTED = "Redistribution and use in source and binary forms"
LIBRARIES = {"pugixml": GRANTED, "libxml2": GRANTED, "CLI11": REDISTRIBUTED, "nlohmann-json": GRANTED,
             "gcc-runtime": "GCC Runtime Library Exception", "mingw-w64-runtime": REDISTRIBUTED,
             "nsis": "Altered source versions must be plainly marked"}

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

    def __init__(self, prefix, emulator, work, lib="lib", documents="share/doc/jlandxml-convert"):
        self.prefix = prefix
        self.lib = lib
        self.emulator = [emulator] if emulator else []
        self.is_windows = bool(emulator)
        self.exe = ".exe" if self.is_windows else ""
        self.documents = prefix / documents
        self.is_debian = (self.documents / "copyright").is_file()
        self.work = work

    def program(self, name):
        return self.emulator + [str(self.prefix / "bin" / (name + self.exe))]

    def place(self, folder, name):
        """Where a file is, or should be."""
        name = name.format(exe=self.exe, lib=self.lib)
        for usual, other in BY_DEBIAN.items() if self.is_debian else ():
            name = name.replace(usual, other)
        return next(folder.glob(name), folder / name)

    def check_files(self, version):
        files = [self.place(self.prefix, name) for name in PROGRAMS + FOR_HOSTS + (ON_WINDOWS if self.is_windows else ON_LINUX)]
        for path in files + [self.place(self.documents, name) for name in DOCUMENTS]:
            expect(path.is_file(), f"{path} isn't installed")
        notices = self.place(self.documents, "NOTICES.txt").read_text(encoding="utf-8", errors="replace")
        spdx = (self.documents / "jlandxml-convert.spdx").read_text(encoding="utf-8")
        listed = dict(re.findall(r"^PackageName: (\S+)$.*?^PackageVersion: (\S+)$", spdx, re.M | re.S))
        own = listed.pop("jlandxml-convert", None)
        expect(own == version, f"the list of what is inside is of version {own}")
        expect(sorted(listed) == sorted(self.libraries()), f"{sorted(listed)} are listed, {sorted(self.libraries())} are inside")
        for name, its in listed.items():
            notice = re.search(rf"^{name} {re.escape(its)}\n(.*?)(?=^({'|'.join(LIBRARIES)}) [0-9]|\Z)", notices, re.M | re.S)
            expect(notice and LIBRARIES[name] in " ".join(notice.group(1).split()), f"no licence of {name} {its}")

    def libraries(self):
        """The libraries inside the programs and the module. Which a build has beside its own is told by its files."""
        inspect = self.place(self.prefix, "bin/jlandxml-inspect{exe}").read_bytes()
        absent = set() if b"xmlSchemaParse" in inspect else {"libxml2"}
        absent |= set() if self.is_windows else {"gcc-runtime", "mingw-w64-runtime"}
        absent |= set() if (self.prefix / "uninstall.exe").is_file() else {"nsis"}
        return set(LIBRARIES) - absent

    def check_documents(self):
        """Whatever a reader follows is there, and whom to write to."""
        security = (self.documents / "SECURITY.md").read_text(encoding="utf-8")
        expect(re.search(r"maintainers\s\([^()]*<\S+@\S+>\)", security), "SECURITY.md has no address")
        texts = documents(self.documents)
        for problem in [*check_links(self.documents, texts), *check_pages(self.documents / "manual", self.documents)]:
            expect(False, problem)

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
        module = self.prefix / self.lib / "jlandxml"
        away = module.with_name("away")
        module.rename(away)
        folder = planted(self.work)
        environment = dict(os.environ, LD_LIBRARY_PATH=str(folder), WINEPATH=str(folder))
        status, _, err = output(self.program("jlandxml-convert") + ["--dialog", str(self.documents / "examples" / "road")],
                                cwd=folder, env=environment)
        away.rename(module)
        expect(status == 3 and err.startswith("モジュールを読み込めません\t"), f"without a module: status {status}: {err}")

    def build_host(self, name, source=None):
        """A build on Debian finds the package below lib/ and the folder of its own kind of machine, elsewhere it is told."""
        build = self.work / name
        must(["cmake", "-G", "Ninja", "-S", source or self.documents / "examples" / name, "-B", build,
              f"-DCMAKE_PREFIX_PATH={self.prefix}", *(CROSS_BUILD if self.is_windows else []),
              *([f"-DJLandXmlConvert_DIR={self.prefix}/lib64/cmake/JLandXmlConvert"] if self.lib == "lib64" else [])])
        must(["cmake", "--build", build])
        return build / (name + self.exe)

    def build_hosts_by_page(self):
        """What the page for makers of hosts tells them to write and to type, as it stands there."""
        page = documents(self.documents)["docs/hosts.md"]
        folder = self.work / "by-page"
        (folder / "bin").mkdir(parents=True)
        # A shell takes what pkg-config prints apart at blanks, and a person's folder may have some.
        prefix = folder / "prefix"
        prefix.symlink_to(self.prefix)
        shutil.copy(self.documents / "examples" / "host-c" / "main.c", folder)
        (keeping_its_path,) = re.findall(r"`(set\(CMAKE_INSTALL_RPATH[^`]*)`", page)
        (folder / "CMakeLists.txt").write_text(f"cmake_minimum_required(VERSION 3.21)\nproject(Host C)\n{keeping_its_path}\n"
                                               "add_executable(host main.c)\ninstall(TARGETS host)\n" +
                                               "".join(code for language, code in blocks(page) if language == "cmake"))
        if self.is_windows:
            (folder / "bin" / "gcc").symlink_to(shutil.which("x86_64-w64-mingw32-gcc-posix"))
            shutil.copy(self.prefix / self.lib / "jlandxml" / "JLandXmlConvert.dll", folder)
        else:
            built = self.build_host("host", folder)
            yield built
            must(["cmake", "--install", built.parent, "--prefix", folder / "installed"])
            yield folder / "installed" / "bin" / "host"
        environment = dict(os.environ, PATH=f"{folder / 'bin'}:{os.environ['PATH']}",
                           PKG_CONFIG_PATH=str(self.place(prefix, "{lib}/pkgconfig/jlandxmlconvert.pc").parent))
        commands = [code for language, code in blocks(page) if language == ("sh windows" if self.is_windows else "sh")]
        expect(commands, "the page for hosts has no commands")
        for command in commands:
            must(["bash", "-ec", command.replace("PREFIX", "prefix")], cwd=folder, env=environment)
            yield folder / ("host" + self.exe)
        if self.is_windows:
            self.compile_loading_by_page(page, folder)
            # The other linker isn't here: an import library is made of the same definition and linked by what is here.
            must(["x86_64-w64-mingw32-dlltool", "-d", prefix / "lib" / "jlandxml" / "JLandXmlConvert.def", "-l", "JLandXmlConvert.lib"],
                 cwd=folder)
            must([folder / "bin" / "gcc", "-municode", "main.c", "-I", prefix / "include", "JLandXmlConvert.lib", "-o", "by-definition.exe"],
                 cwd=folder)
            yield folder / "by-definition.exe"

    def compile_loading_by_page(self, page, folder):
        """Only compiled: the path in it is that of nobody's host."""
        (code,) = [code for language, code in blocks(page) if language == "c"]
        (folder / "loading.c").write_text("#include <windows.h>\n#include <jlandxml/JLandXmlConvert.h>\n"
                                          f"int main(void)\n{{\n{code}return execute == NULL;\n}}\n")
        must([folder / "bin" / "gcc", "-Wall", "-Wextra", "-Werror", "-c", "loading.c", "-I", self.prefix / "include"], cwd=folder)

    def try_host_by_page(self):
        """The steps in which the page has a host tried."""
        commands = re.findall(r"`(jlandxml-convert FOLDER [^`]*)`", documents(self.documents)["docs/hosts.md"])
        expect(len(commands) == 3, f"the page for hosts has the commands {commands}")
        folder = self.work / "tried"
        shutil.copytree(self.documents / "examples" / "road", folder / "FOLDER")
        (folder / "FOLDER" / "settings.json").rename(folder / "settings.json")
        for command in commands:
            name, *arguments = shlex.split(command)
            process = subprocess.Popen(self.program(name) + arguments, cwd=folder, stdout=subprocess.PIPE, stderr=subprocess.PIPE)
            if "--dialog" in arguments:
                close_dialog(process, command)
            finish(process, command)

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
            press("ctrl+q", own)
        finish(process, "host-qt", "The dialog was closed.")


def planted(work):
    """A folder with modules that must not be loaded: what isn't a library at all."""
    folder = work / "planted" / "bin"
    for place in [folder, work / "planted" / "lib" / "jlandxml"]:
        place.mkdir(parents=True, exist_ok=True)
        for name in ["libJLandXmlConvert.so", "libJLandXmlConvert.so.1", "JLandXmlConvert.dll"]:
            (place / name).write_text("planted")
    return folder


def use(prefix, work, version, emulator=""):
    """All that is done with what is installed."""
    installed = Installed(prefix, emulator, work)
    installed.check_files(version)
    installed.check_documents()
    installed.check_programs(version)
    installed.open_dialog()
    installed.check_missing_module()
    installed.run_host(installed.build_host("host-c"))
    for host in installed.build_hosts_by_page():
        installed.run_host(host)
    installed.try_host_by_page()
    if not installed.is_windows:
        installed.run_host_with_windows(installed.build_host("host-qt"))


def version_of(source):
    return must([source / "tools" / "version.sh"]).strip()


def install(build, source, work, emulator=""):
    must(["cmake", "--install", build, "--prefix", work / "first"])
    # What is found is found from where it lies.
    prefix = (work / "first").rename(work / "installed tree")
    use(prefix, work, version_of(source), emulator)


# How packagers name the folder of libraries: below the prefix or whole, and the documents with the one or the other.
FOLDERS = {"lib64": ["-DCMAKE_INSTALL_LIBDIR=lib64", "-DCMAKE_INSTALL_DOCDIR=share/doc/packages/converter"],
           "lib/x86_64-linux-gnu": ["-DCMAKE_INSTALL_LIBDIR=/usr/lib/x86_64-linux-gnu",
                                    "-DCMAKE_INSTALL_DOCDIR:PATH=/usr/share/doc/packages/converter"]}


def install_in_folders(built, source, work):
    """What was built is installed by builds that are set up for other folders."""
    for lib, options in FOLDERS.items():
        place = work / lib.replace("/", "-")
        build = place / "build"
        must(["cmake", "-G", "Ninja", "-S", source, "-B", build, "-DCMAKE_BUILD_TYPE=Release", "-DJLANDXML_TESTS=OFF",
              "-DCMAKE_INSTALL_PREFIX=/usr", *options])
        shutil.copytree(built / "manual", build / "manual", dirs_exist_ok=True)
        for path in [*(built / "src").glob("jlandxml-*"), *(built / "src").glob("libJLandXmlConvert.so*")]:
            shutil.copy(path, build / "src", follow_symlinks=False)
        must(["cmake", "--install", build], env=dict(os.environ, DESTDIR=str(place / "root")))
        expect([path.name for path in (place / "root").iterdir()] == ["usr"], f"{lib}: something is installed elsewhere")

        (place / "work").mkdir()
        installed = Installed(place / "root" / "usr", "", place / "work", lib, "share/doc/packages/converter")
        installed.check_files(version_of(source))
        installed.check_documents()
        compiled = " ".join(one["command"] for one in json.loads((build / "compile_commands.json").read_text(encoding="utf-8")))
        expect(f'JLANDXML_MODULE_FOLDER=\\"../{lib}/jlandxml\\"' in compiled, f"{lib}: the module is looked for elsewhere")
        page = (installed.prefix / "share" / "man" / "man1" / "jlandxml-convert.1").read_text(encoding="utf-8")
        expect(f"../{lib}/jlandxml" in page, f"{lib}: the manual page names another folder of the module")
        expect("share/doc/packages/converter" in page, f"{lib}: the manual page names another folder of the documents")
        for host in installed.build_hosts_by_page():
            installed.run_host(host)


def main(mode, *arguments):
    if mode == "use":
        use(pathlib.Path(arguments[0]).resolve(), empty_folder(arguments[1]), *arguments[2:])
    elif mode == "install":
        install(arguments[0], pathlib.Path(arguments[1]), empty_folder(arguments[2]), *arguments[3:])
    elif mode == "folders":
        install_in_folders(pathlib.Path(arguments[0]), pathlib.Path(arguments[1]), empty_folder(arguments[2]))
    return 1 if failures else 0


def empty_folder(path):
    folder = pathlib.Path(path).resolve()
    shutil.rmtree(folder, ignore_errors=True)
    folder.mkdir(parents=True)
    return folder


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
