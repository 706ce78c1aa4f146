#!/usr/bin/env python3
"""Kills a program at random moments while it writes over a target.

    kills.py PROGRAM EXAMPLE TIMES

The example's work file is made larger by terrain, so that targets of 1 KB to 20 MB are written. Each target is killed
TIMES times on each volume: those that can be mounted from a file here, roomy and full, and the temporary folder's own.
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
    command = [program, work, "-s", os.path.join(work, "settings.json"), "-o", out]
    process = subprocess.Popen(command, env=environment, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    if kill_after is None:
        return process.wait()
    time.sleep(kill_after)
    process.send_signal(signal.SIGKILL)
    return process.wait()


def read(path):
    with open(path, "rb") as file:
        return file.read()


def kill_over(program, work, volume, target_kind, times, temporary, is_full):
    """How many of the kills hit a run, and how many left something that is neither the old file nor the new one."""
    folder = tempfile.mkdtemp(dir=volume.folder)
    out = os.path.join(folder, "out.xml")
    begun = time.monotonic()
    if run(program, work, out, temporary) != 0:
        shutil.rmtree(folder)
        return None
    length = time.monotonic() - begun
    new = read(out)
    old = b"<old/>\n" * (len(new) // 7)
    filler = os.path.join(folder, "filler")
    if is_full:
        with open(filler, "wb") as file:
            file.write(b"x" * max(0, volume.free() - len(new) // 2 - MEGABYTE))
    hits = 0
    torn = 0
    for _ in range(times):
        with open(out, "wb") as file:
            file.write(old)
        if target_kind == "linked" and not os.path.exists(out + ".other"):
            try:
                os.link(out, out + ".other")
            except OSError:
                break
        hits += run(program, work, out, temporary, random.random() * length * 1.1) == -signal.SIGKILL
        torn += read(out) not in (old, new)
    shutil.rmtree(folder)
    return hits, torn


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
    for kind in list(KINDS) + ["tmpfs"]:
        volume = Volume(scratch, kind)
        if volume.folder is None:
            print(f"{kind}: can't be made or mounted here")
            continue
        for is_full in (False, True):
            for target_kind in TARGET_KINDS:
                counts = [kill_over(program, work, volume, target_kind, times, temporary, is_full) for work in works]
                counts = [count for count in counts if count]
                hits, torn = (sum(count[index] for count in counts) for index in (0, 1))
                print(f"{kind}, {'full' if is_full else 'roomy'}, {target_kind}: {hits} killed, {torn} torn", flush=True)
                # A target that has other names too is written over; in that moment only a kill can tear it.
                failed = failed or (torn > 0 and target_kind == "plain")
        volume.unmount()
    shutil.rmtree(scratch, ignore_errors=True)
    sys.exit(1 if failed else 0)


main()
