#!/usr/bin/env python3
"""Runs the command line over and over and makes another of its calls fail each time.

    faults.py PROGRAM LIBRARY WORK_FOLDER SETTINGS SCRATCH [--sample COUNT] [--only CALL] [--jobs COUNT]

Every allocation and every call that works on files fails once, with each error that it can give, and once together with
all that follow it; reads and writes are cut short too. After each run the program has ended by itself with a status that
fits what it said, the target is the old file or the new one, whole, and nothing is left behind that it isn't told of.
With --sample so many of the faults are tried, spread evenly. A program for Windows has the library linked into it
(LIBRARY is not used) and runs under Wine, as the program that WINE names.
"""

import argparse
import concurrent.futures
import errno
import os
import re
import shutil
import subprocess
import sys
import tempfile

# The errors that each call can give; "short" cuts what is read or written.
ERRORS = {
    "allocate": [errno.ENOMEM],
    "open": [errno.EACCES, errno.EMFILE, errno.ENFILE, errno.ENOENT, errno.ENOSPC, errno.EROFS, errno.EDQUOT, errno.EEXIST,
             errno.ENOMEM],
    "read": [errno.EIO, errno.EINTR, errno.EISDIR, "short"],
    "fread": [errno.EIO, "short"],
    "write": [errno.ENOSPC, errno.EIO, errno.EINTR, errno.EDQUOT, errno.EFBIG, errno.EPIPE, "short"],
    "close": [errno.EIO, errno.ENOSPC, errno.EDQUOT, errno.EINTR],
    "fstat": [errno.EIO, errno.EOVERFLOW],
    "stat": [errno.EACCES, errno.EIO, errno.ENOMEM],
    "lstat": [errno.EACCES, errno.EIO, errno.ENOENT, errno.ENOMEM],
    "fstatat": [errno.EACCES, errno.EIO, errno.ENOENT, errno.ENOMEM],
    "fdopen": [errno.ENOMEM],
    "opendir": [errno.EACCES, errno.EMFILE, errno.ENOMEM],
    "readdir": [errno.EIO],
    "lseek": [errno.EIO, errno.ESPIPE],
    "ftruncate": [errno.EIO, errno.EFBIG, errno.EPERM],
    "fallocate": [errno.ENOSPC, errno.EDQUOT, errno.EOPNOTSUPP, errno.EIO, errno.EINTR, errno.EFBIG],
    "fsync": [errno.EIO, errno.ENOSPC, errno.EDQUOT, errno.EROFS],
    "fchmod": [errno.EPERM, errno.EIO, errno.EROFS],
    "fchown": [errno.EPERM, errno.EIO],
    "fgetxattr": [errno.ENODATA, errno.EOPNOTSUPP, errno.EIO],
    "fsetxattr": [errno.EPERM, errno.ENOSPC, errno.EOPNOTSUPP],
    "fremovexattr": [errno.EPERM, errno.EOPNOTSUPP],
    "fstatfs": [errno.EIO, errno.ENOSYS],
    "renameat": [errno.EACCES, errno.EBUSY, errno.ENOSPC, errno.EXDEV, errno.EIO, errno.EPERM, errno.ENOENT],
    "unlink": [errno.EACCES, errno.EBUSY, errno.EIO],
    "readlink": [errno.EACCES, errno.EIO],
    "realpath": [errno.EACCES, errno.EIO, errno.ENOMEM],
    "faccessat": [errno.EACCES, errno.EROFS],
    "getrandom": [errno.EINTR, errno.ENOSYS, "short"],
    "dup": [errno.EMFILE],
    "fcntl": [errno.EBADF, errno.EINVAL],
    "fflush": [errno.EIO, errno.ENOSPC],
}
# The same for Windows, by the system's numbers; those of the C library's functions are its own.
ACCESS_DENIED, TOO_MANY_OPEN, NOT_FOUND, NO_MEMORY, WRITE_PROTECT, CRC = 5, 4, 2, 8, 19, 23
WRITE_FAULT, SHARING, NOT_SUPPORTED, NETWORK_GONE, INVALID_PARAMETER, DISK_FULL = 29, 32, 50, 64, 87, 112
WINDOWS_ERRORS = {
    "allocate": [NO_MEMORY],
    "fread": [errno.EIO, "short"],
    "_wfopen": [errno.EACCES, errno.EMFILE, errno.ENOENT, errno.ENOMEM],
    "CreateFileW": [ACCESS_DENIED, SHARING, TOO_MANY_OPEN, NOT_FOUND, DISK_FULL, WRITE_PROTECT, NO_MEMORY],
    "ReadFile": [CRC, NETWORK_GONE, "short"],
    "WriteFile": [DISK_FULL, WRITE_FAULT, NETWORK_GONE, "short"],
    "CloseHandle": [NETWORK_GONE],
    "GetFileSizeEx": [NETWORK_GONE],
    "GetFileType": [INVALID_PARAMETER],
    "GetFileInformationByHandle": [ACCESS_DENIED, NETWORK_GONE],
    "GetFileInformationByHandleEx": [INVALID_PARAMETER],
    "SetFileInformationByHandle": [DISK_FULL, NOT_SUPPORTED, ACCESS_DENIED],
    "GetFileAttributesW": [ACCESS_DENIED, NETWORK_GONE],
    "SetFileAttributesW": [ACCESS_DENIED],
    "SetFilePointerEx": [INVALID_PARAMETER],
    "SetEndOfFile": [DISK_FULL, ACCESS_DENIED],
    "FlushFileBuffers": [WRITE_FAULT],
    "MoveFileExW": [ACCESS_DENIED, SHARING, DISK_FULL],
    "DeleteFileW": [ACCESS_DENIED, SHARING],
    "FindFirstFileW": [ACCESS_DENIED, NETWORK_GONE],
    "FindNextFileW": [NETWORK_GONE],
    "GetTempFileNameW": [ACCESS_DENIED, DISK_FULL],
    "GetTempPathW": [NO_MEMORY],
    "GetFileSecurityW": [ACCESS_DENIED, NOT_SUPPORTED],
    "SetFileSecurityW": [ACCESS_DENIED],
}
WRITING = ["write", "fflush", "WriteFile"]
REMOVING = ["unlink", "DeleteFileW", "CloseHandle"] # what can't be closed can't be removed
TARGETS = ["standing", "linked", "symlink", "missing"]
OLD = b"<the file that stood here before/>" * 3000
TIME_LIMIT = 60
OF_WINE = "wine: " # what Wine says of another process; of this one the status tells
WARNING = "警告: "

USAGE_LINES = re.compile("設定ファイルを読み込めません|作業フォルダーが見つかりません")
NO_FILE = "ファイルは出力されませんでした。"
NO_MEMORY = "メモリーが足りないため、終了しました。"
FAILURE_LINES = re.compile(
    NO_FILE +
    "|(中|処理)に(エラー|不明な例外)が発生しました。"
    "|不明なエラーが発生しました。"
    "|作業用ファイルへのアクセスに失敗しました。"
    "|File operation failed: %s, "
    "|General exception occurred: %s, "
    "|Unknown exception occurred while loading the CSV file."
    "|モジュールを読み込めません"
    "|" + NO_MEMORY)


class Case:
    """One folder with one kind of target."""

    def __init__(self, scratch, target):
        self.folder = tempfile.mkdtemp(dir=scratch)
        self.temporary = os.path.join(self.folder, "temporary")
        self.out = os.path.join(self.folder, "out")
        self.path = os.path.join(self.out, "out.xml")
        os.mkdir(self.temporary)
        os.mkdir(self.out)
        self.names = set()
        if target in ("standing", "linked"):
            self.put(self.path)
        if target == "linked":
            os.link(self.path, os.path.join(self.out, "other.xml"))
            self.names.add("other.xml")
        if target == "symlink":
            self.put(os.path.join(self.out, "real.xml"))
            os.symlink("real.xml", self.path)
            self.names.add("real.xml")
        self.old = None if target == "missing" else OLD

    @staticmethod
    def put(path):
        with open(path, "wb") as file:
            file.write(OLD)

    def content(self):
        try:
            with open(self.path, "rb") as file:
                return file.read()
        except FileNotFoundError:
            return None

    def left_beside(self):
        return sorted(set(os.listdir(self.out)) - self.names - {"out.xml"})

    def left_in_temporary(self):
        return sorted(os.listdir(self.temporary))

    def kept_old(self):
        return any(open(os.path.join(self.temporary, name), "rb").read() == self.old for name in self.left_in_temporary())

    def remove(self):
        shutil.rmtree(self.folder)


def is_for_windows(arguments):
    return arguments.program.endswith(".exe")


def prepare_wine(scratch):
    """A folder of Wine's own, in which no entry of the registry takes the place of the temporary folder that we name."""
    os.environ["WINEPREFIX"] = os.path.join(os.path.realpath(scratch), "wine")
    for key in (r"HKCU\Environment", r"HKLM\System\CurrentControlSet\Control\Session Manager\Environment"):
        for name in ("TEMP", "TMP"):
            subprocess.run([os.environ["WINE"], "reg", "delete", key, "/v", name, "/f"], capture_output=True, check=True)


def errors_of(arguments):
    return WINDOWS_ERRORS if is_for_windows(arguments) else ERRORS


def run(arguments, case, fault):
    environment = {name: value for name, value in os.environ.items() if not name.startswith("FAULT_")}
    environment.update(fault)
    if is_for_windows(arguments):
        environment.update({"WINETEMP": "Z:" + case.temporary, "WINETMP": "Z:" + case.temporary})
    else:
        environment.update({"LD_PRELOAD": arguments.library, "TMPDIR": case.temporary})
    loader = [os.environ["WINE"]] if is_for_windows(arguments) else []
    command = loader + [arguments.program, arguments.work_folder, "-s", arguments.settings, "-o", case.path]
    return subprocess.run(command, env=environment, stdin=subprocess.DEVNULL, capture_output=True, timeout=TIME_LIMIT,
                          check=False)


def problem_of(ended, case, call, new, for_windows):
    """What is wrong with a run; nothing if it is as it should be."""
    status = ended.returncode
    said = [line for line in ended.stderr.decode("utf-8", "replace").splitlines() if not line.startswith(OF_WINE)]
    warnings = [line for line in said if line.startswith(WARNING)]
    lines = [line for line in said if not line.startswith(WARNING)]
    content = case.content()
    muted = call in WRITING and not lines
    if status not in (0, 1, 2, 3):
        return f"ended with {status}: {said}"
    if status == 0:
        if lines:
            return f"status 0 with {lines}"
        if content != new and not (warnings and content is not None and content.endswith(b"</LandXML>\r\n")):
            return "status 0 with another file: " + ("the old one" if content == case.old else "a wrong one")
    else:
        # Behind a message box the dialog goes on, so that a file may stand beside a failure.
        told = status == 3 and NO_FILE not in lines and content == new
        # Where a target that can only be written over can't be put back either, its old content is kept and told of.
        kept = status == 3 and case.kept_old() and (muted or any("元に戻せません" in warning for warning in warnings))
        if content != case.old and not told and not kept:
            return f"status {status}, target " + ("new" if content == new else "torn") + f": {said}"
        if status == 1 and not warnings and not muted:
            return f"findings without a reason: {lines}"
        if status == 2 and not muted and not warnings and not (len(lines) == 1 and USAGE_LINES.search(lines[0])):
            return f"status 2 with {lines}"
        if status == 3 and not muted and not (lines and all(FAILURE_LINES.search(line) for line in lines)):
            return f"status 3 with {lines}"
    if call not in REMOVING:
        # Without memory for an exception a program for Windows can only end. A run of another day removes its file.
        if len(case.left_beside()) > (1 if for_windows and lines == [NO_MEMORY] else 0):
            return f"left beside the target: {case.left_beside()}"
        if len(case.left_in_temporary()) > (1 if status == 3 else 0):
            return f"left in the temporary folder with status {status}: {case.left_in_temporary()}"
    return None


def try_fault(arguments, fault, new, tries=3):
    target, call, at, error, lasting = fault
    case = Case(arguments.scratch, target)
    environment = {"FAULT_CALL": call, "FAULT_AT": str(at), "FAULT_ERROR": str(error)}
    if lasting:
        environment["FAULT_LASTING"] = "1"
    name = f"{target}: {call} {at}{' and all after it' if lasting else ''}: " + \
        str(error if error == "short" or is_for_windows(arguments) else errno.errorcode[error])
    try:
        ended = run(arguments, case, environment)
        problem = problem_of(ended, case, call, new, is_for_windows(arguments))
    except subprocess.TimeoutExpired:
        problem = "hangs"
    case.remove()
    # Now and then Wine loses its own server or can't start a program. A fault of ours comes each time.
    if problem and is_for_windows(arguments) and tries > 1:
        return try_fault(arguments, fault, new, tries - 1)
    return name, problem


def counts_of(arguments, target):
    """How often each call is made in a run without a fault, and the file that it writes."""
    case = Case(arguments.scratch, target)
    counts = os.path.join(case.folder, "counts")
    ended = run(arguments, case, {"FAULT_COUNTS": counts})
    if ended.returncode != 0 or ended.stderr:
        sys.exit(f"the run without a fault ended with {ended.returncode}: {ended.stderr.decode()}")
    with open(counts, encoding="ascii") as file:
        numbers = {name: int(count) for name, count in (line.split() for line in file)}
    content = case.content()
    case.remove()
    return numbers, content


def faults_of(target, counts, errors_of_calls):
    for call, errors in errors_of_calls.items():
        if call == "allocate" and target != "standing":
            continue
        for at in range(1, counts[call] + 1):
            for error in errors:
                # What is interrupted or cut short for ever never ends, and no system does that.
                lasts = [False] if error in (errno.EINTR, errno.EEXIST, "short") else [False, True]
                yield from ((target, call, at, error, lasting) for lasting in lasts)


def main():
    parser = argparse.ArgumentParser()
    for name in ("program", "library", "work_folder", "settings", "scratch"):
        parser.add_argument(name)
    parser.add_argument("--sample", type=int, default=0)
    parser.add_argument("--only")
    parser.add_argument("--jobs", type=int, default=os.cpu_count())
    arguments = parser.parse_args()
    os.makedirs(arguments.scratch, exist_ok=True)
    if is_for_windows(arguments):
        prepare_wine(arguments.scratch)

    faults = []
    new = None
    for target in TARGETS:
        if target == "symlink" and is_for_windows(arguments):
            continue # Wine has the links of the system below
        counts, new = counts_of(arguments, target)
        faults += faults_of(target, counts, errors_of(arguments))
    if arguments.only:
        faults = [fault for fault in faults if fault[1] == arguments.only]
    if arguments.sample and arguments.sample < len(faults):
        faults = [faults[index * len(faults) // arguments.sample] for index in range(arguments.sample)]

    problems = 0
    with concurrent.futures.ThreadPoolExecutor(arguments.jobs) as pool:
        for name, problem in pool.map(lambda fault: try_fault(arguments, fault, new), faults):
            if problem:
                problems += 1
                print(f"{name}: {problem}")
    print(f"{len(faults)} faults tried, {problems} problems")
    sys.exit(1 if problems or not faults else 0)


main()
