#!/usr/bin/env python3
"""Kills a program at random moments while it writes over a target.

    kills.py PROGRAM EXAMPLE TIMES

The example's work file is made larger by terrain, so that targets of 1 KB to 20 MB are written. Each target is killed
TIMES times on each volume: those that can be mounted from a file here, roomy and full, and the temporary folder's own.
A program for Windows runs under Wine (WINE names what runs it), in the temporary folder alone.
"""

import os
import random
import shutil
import signal
import subprocess
import sys
import tempfile
import time

MEGABYTE = 1 << 20
# The program that makes each kind, with what it needs to make a volume in a file.
KINDS = {
    "ext2": ["mkfs.ext2", "-q", "-F"],
    "ext3": ["mkfs.ext3", "-q", "-F"],
    "ext4": ["mkfs.ext4", "-q", "-F"],
    "xfs": ["mkfs.xfs", "-q", "-f"],
    "btrfs": ["mkfs.btrfs", "-q", "-f"],
    "vfat": ["mkfs.vfat"],
}
VOLUME_SIZE = 400 * MEGABYTE
TERRAIN_POINTS = [0, 3000, 300000]
TARGET_KINDS = ["plain", "linked"]


def make_work_folder(example, folder, points):
    shutil.copytree(example, folder)
    path = os.path.join(folder, "Landxml_temp.xml")
    with open(path, encoding="utf-8") as file:
        text = file.read()
    terrain = "".join(f'<P id="{n}">{n % 977}.125 {n % 1009}.250 {n % 89}.500</P>\n' for n in range(1, points + 1))
    surface = f'<Surfaces><Surface name="terrain"><Definition surfType="TIN"><Pnts>{terrain}</Pnts></Definition></Surface></Surfaces>'
    if points:
        text = text.replace("</LandXML>", surface + "</LandXML>")
    with open(path, "w", encoding="utf-8", newline="") as file:
        file.write(text)


class Folder:
    """A folder of the volume that the temporary folder lies on."""

    def __init__(self, scratch, kind):
        self.folder = os.path.join(scratch, kind)
        os.mkdir(self.folder)

    def unmount(self):
        pass


class Volume:
    """A mounted volume, or None in `folder` where it can't be mounted."""

    def __init__(self, scratch, kind):
        self.folder = None
        self.image = os.path.join(scratch, kind + ".img")
        folder = os.path.join(scratch, kind)
        os.mkdir(folder)
        if kind == "tmpfs":
            mount = ["mount", "-t", "tmpfs", "-o", f"size={VOLUME_SIZE}", "tmpfs", folder]
        else:
            with open(self.image, "wb") as file:
                file.truncate(VOLUME_SIZE)
            if shutil.which(KINDS[kind][0]) is None or subprocess.run(KINDS[kind] + [self.image], check=False,
                                                                      capture_output=True).returncode != 0:
                return
            mount = ["mount", "-o", "loop", self.image, folder]
        if subprocess.run(mount, check=False, capture_output=True).returncode == 0:
            self.folder = folder

    def free(self):
        status = os.statvfs(self.folder)
        return status.f_bavail * status.f_frsize

    def unmount(self):
        if self.folder:
            subprocess.run(["umount", self.folder], check=False)
        if os.path.exists(self.image):
            os.remove(self.image)


def run(program, work, out, temporary, kill_after=None):
    environment = dict(os.environ, TMPDIR=temporary)
    loader = [os.environ.get("WINE", "wine")] if program.endswith(".exe") else []
    command = loader + [program, work, "-s", os.path.join(work, "settings.json"), "-o", out]
    process = subprocess.Popen(command, env=environment, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    if kill_after is None:
        return process.wait()
    time.sleep(kill_after)
    process.send_signal(signal.SIGKILL)
    return process.wait()


def read(path):
    with open(path, "rb") as file:
        return file.read()


def fill(path, size):
    """Some kinds have less room than they say: then as much as they take, and a piece of it back."""
    with open(path, "wb") as file:
        try:
            file.write(b"x" * max(0, size))
            file.flush()
        except OSError:
            os.truncate(path, max(0, os.path.getsize(path) - 2 * MEGABYTE))


def is_kept(content, folder):
    return any(read(os.path.join(folder, name)) == content for name in os.listdir(folder))


def kill_over(program, work, volume, target_kind, times, temporary, is_full):
    """How many of the kills hit a run, how many left something that is neither the old file nor the new one, and of how
    many of these the old content isn't in the temporary folder either."""
    folder = tempfile.mkdtemp(dir=volume.folder)
    out = os.path.join(folder, "out.xml")
    if run(program, work, out, temporary) != 0:
        shutil.rmtree(folder)
        return None
    begun = time.monotonic()
    run(program, work, out, temporary) # the first one has warmed up
    length = time.monotonic() - begun
    new = read(out)
    old = b"<old/>\n" * (len(new) // 7)
    filler = os.path.join(folder, "filler")
    if is_full:
        fill(filler, volume.free() - len(new) // 2 - MEGABYTE)
    hits = 0
    torn = 0
    lost = 0
    for _ in range(times):
        try:
            with open(out, "wb") as file:
                file.write(old)
        except OSError: # the volume has lost its last room
            break
        if target_kind == "linked" and not os.path.exists(out + ".other"):
            try:
                os.link(out, out + ".other")
            except OSError:
                break
        hits += run(program, work, out, temporary, random.random() * length * 1.1) == -signal.SIGKILL
        if read(out) not in (old, new):
            torn += 1
            lost += not is_kept(old, temporary)
    shutil.rmtree(folder)
    return hits, torn, lost


def main():
    program, example, times = sys.argv[1], sys.argv[2], int(sys.argv[3])
    scratch = tempfile.mkdtemp()
    temporary = os.path.join(scratch, "temporary")
    os.mkdir(temporary)
    works = []
    for points in TERRAIN_POINTS:
        works.append(os.path.join(scratch, f"work{points}"))
        make_work_folder(example, works[-1], points)
    failed = False
    is_windows = program.endswith(".exe")
    for kind in ["Wine"] if is_windows else list(KINDS) + ["tmpfs"]:
        volume = Folder(scratch, kind) if is_windows else Volume(scratch, kind)
        if volume.folder is None:
            print(f"{kind}: can't be made or mounted here")
            continue
        for is_full in (False,) if is_windows else (False, True):
            for target_kind in TARGET_KINDS[:1] if is_windows else TARGET_KINDS:
                counts = [kill_over(program, work, volume, target_kind, times, temporary, is_full) for work in works]
                counts = [count for count in counts if count]
                hits, torn, lost = (sum(count[index] for count in counts) for index in (0, 1, 2))
                print(f"{kind}, {'full' if is_full else 'roomy'}, {target_kind}: {hits} killed, {torn} torn, {lost} lost",
                      flush=True)
                # A target that has other names too, or none but its own room, is written over; in that moment only a
                # kill can tear it, and what was there stays in the temporary folder.
                failed = failed or lost > 0 or (torn > 0 and target_kind == "plain" and not is_full)
        volume.unmount()
    shutil.rmtree(scratch, ignore_errors=True)
    sys.exit(1 if failed else 0)


main()
