#!/usr/bin/env python3
"""Runs the recipes of docs/batch.md on a few work folders, one of them broken.

    batch.py PROGRAM EXAMPLE PAGE SCRATCH

Every recipe gives the files of single runs, a line of JSON for each folder where it asks for that, and a status that tells
of the broken folder. GNU parallel talks to an ssh server of its own on the loopback, and Slurm runs as one node of its own on
this machine. Where that can't be brought up, such as without root, a stand-in for its commands runs the tasks, and the
test says so. Another tool that isn't installed is a failure.
"""

import json
import os
import pathlib
import re
import shutil
import socket
import subprocess
import sys
import time

FOLDERS = ["国道 1", "国道 2", "県道", "市道", "農道"]
BROKEN = "県道"
TIME_LIMIT = 300

# In the place of Slurm: runs the tasks of a job array as its header asks for them, each with what Slurm tells it.
SBATCH = """#!/bin/bash
[ "$1" = --wait ] && shift
range=$(sed -n 's/^#SBATCH --array=//p' "$1")
log=$(sed -n 's/^#SBATCH --output=//p' "$1")
export SLURM_ARRAY_TASK_COUNT=$((${range#*-} - ${range%-*} + 1))
status=0
for ((task = ${range%-*}; task <= ${range#*-}; task++)); do
    SLURM_ARRAY_TASK_ID=$task bash "$1" >"${log//%a/$task}" 2>&1
    ended=$?
    [ $ended -le $status ] || status=$ended
done
exit $status
"""
SRUN = """#!/bin/bash
exec "$@"
"""


class Page:
    """The recipes of the page: the code blocks below each heading."""

    def __init__(self, path):
        self.recipes = {}
        for section in re.split(r"^## ", path.read_text(encoding="utf-8"), flags=re.M)[1:]:
            heading, text = section.split("\n", 1)
            self.recipes[heading] = re.findall(r"^```(\w+)\n(.*?)^```$", text, flags=re.M | re.S)

    def take(self, heading, number, language):
        found, code = self.recipes[heading][number]
        assert found == language, f"{heading}: {found} instead of {language}"
        return code


class Recipes:
    def __init__(self, program, example, page, scratch):
        self.example = example
        self.page = Page(page)
        self.scratch = scratch
        self.bin = scratch / "bin"
        self.problems = []
        shutil.rmtree(scratch, ignore_errors=True)
        self.bin.mkdir(parents=True)
        (self.bin / "jlandxml-convert").symlink_to(program)
        home = scratch / "home"
        home.mkdir()
        (home / ".parallel").mkdir()
        (home / ".parallel" / "will-cite").touch()
        self.environment = dict(os.environ, PATH=f"{self.bin}:{os.environ['PATH']}", HOME=str(home), LC_ALL="C.UTF-8")
        self.single = self.convert_once()

    def convert_once(self):
        target = self.scratch / "single.xml"
        subprocess.run([self.bin / "jlandxml-convert", self.example, "-s", self.example / "settings.json", "-o", target],
                       check=True, stdout=subprocess.DEVNULL)
        return target.read_bytes()

    def prepare(self, name):
        """A folder with work folders; the recipes are run there."""
        place = self.scratch / name
        for folder in FOLDERS:
            shutil.copytree(self.example, place / "work" / folder)
        (place / "work" / BROKEN / "settings.json").write_text('{"projectPhase": "x"}')
        return place

    def shell(self, code, place):
        return subprocess.run(["bash", "-c", code], cwd=place, env=self.environment, timeout=TIME_LIMIT, check=False,
                              stdin=subprocess.DEVNULL, capture_output=True, text=True)

    def expect(self, name, what, found, wanted):
        if found != wanted:
            self.problems.append(f"{name}: {what}: {found} instead of {wanted}")

    def check(self, name, place, ended, status, with_json=True):
        before = len(self.problems)
        self.expect(name, "status", ended.returncode, status)
        for folder in FOLDERS:
            target = place / "finished" / f"{folder}.xml"
            content = target.read_bytes() if target.exists() else None
            if content != (None if folder == BROKEN else self.single):
                self.problems.append(f"{name}: the file of {folder} " + ("is missing" if content is None else "differs"))
        if with_json:
            lines = (place / "results.jsonl").read_text(encoding="utf-8").splitlines()
            statuses = {pathlib.Path(line["folder"]).name: line["status"] for line in map(json.loads, lines)}
            self.expect(name, "lines", (len(lines), statuses),
                        (len(FOLDERS), {folder: 2 if folder == BROKEN else 0 for folder in FOLDERS}))
        if len(self.problems) > before:
            self.problems.append(ended.stdout + ended.stderr)

    def one_call(self):
        place = self.prepare("one-call")
        self.check("one call", place, self.shell(self.page.take("One call", 0, "sh"), place), 2)
        told = self.shell(self.page.take("One call", 1, "sh"), place).stdout
        self.expect("one call", "folders that failed", told.split("\t")[0], f"work/{BROKEN}")

    def make(self):
        place = self.prepare("make")
        # Names with blanks aren't for make.
        for folder in FOLDERS:
            (place / "work" / folder).rename(place / "work" / folder.replace(" ", "-"))
        (place / "Makefile").write_text(self.page.take("make", 0, "make"), encoding="utf-8")
        ended = self.shell("make --keep-going --jobs=2", place)
        for name in ("settings.json", "Landxml_temp.xml", "widthStake_temp_1.csv"):
            self.expect("make", "conversions of what is finished", self.conversions_by_make(place), [BROKEN])
            changed = place / "work" / "農道" / name
            later = time.time() + 10
            os.utime(changed, (later, later))
            self.expect("make", f"conversions after {name}", self.conversions_by_make(place), sorted([BROKEN, "農道"]))
            os.utime(changed, (0, 0))
        for folder in FOLDERS:
            written = place / "finished" / f"{folder.replace(' ', '-')}.xml"
            if written.exists():
                written.rename(place / "finished" / f"{folder}.xml")
        self.check("make", place, ended, 2, with_json=False)

    def conversions_by_make(self, place):
        """The work folders that make would convert."""
        told = self.shell("make --keep-going --dry-run", place).stdout
        return sorted(re.findall(r"^jlandxml-convert work/(\S+)", told, re.M))

    def xargs(self):
        place = self.prepare("xargs")
        self.check("xargs", place, self.shell(self.page.take("xargs", 0, "sh") + "exit $status\n", place), 123)

    def parallel(self):
        place = self.prepare("parallel")
        self.check("parallel", place, self.shell(self.page.take("GNU parallel", 0, "sh"), place), 1)

    def slurm(self):
        with SlurmNode(self.scratch / "slurm-node") as node:
            if node.is_up:
                self.environment["SLURM_CONF"] = str(node.configuration)
            else:
                print("slurm: a stand-in for sbatch and srun")
                for name, text in (("sbatch", SBATCH), ("srun", SRUN)):
                    (self.bin / name).write_text(text)
                    (self.bin / name).chmod(0o755)
            place = self.prepare("slurm")
            (place / "results").mkdir()
            (place / "batch.sh").write_text(self.page.take("Slurm", 0, "slurm"), encoding="utf-8")
            ended = self.shell("sbatch --wait batch.sh", place)
            self.shell(self.page.take("Slurm", 1, "sh"), place)
            self.check("slurm", place, ended, 2)

    def over_ssh(self):
        with SshServer(self.scratch / "ssh", self.environment) as server:
            (self.bin / "ssh").write_text(f'#!/bin/sh\nexec {shutil.which("ssh")} -F {server.config} "$@"\n')
            (self.bin / "ssh").chmod(0o755)
            for number, name in ((0, "ssh-shared"), (1, "ssh-transfer")):
                place = self.prepare(name)
                (place / "machines").write_text("1/worker1\n1/worker2\n")
                self.check(name, place, self.shell(self.page.take("GNU parallel over ssh", number, "sh"), place), 1)


class SshServer:
    """An ssh server on the loopback, for this user alone and for as long as the object is used."""

    def __init__(self, folder, environment):
        self.folder = folder
        self.config = folder / "config"
        folder.mkdir(mode=0o700)
        with socket.socket() as probe:
            probe.bind(("127.0.0.1", 0))
            self.port = probe.getsockname()[1]
        for key in ("host", "user"):
            subprocess.run(["ssh-keygen", "-q", "-t", "ed25519", "-N", "", "-f", folder / key], check=True)
        shutil.copy(folder / "user.pub", folder / "authorized")
        # A login on the workers begins in a home of its own and finds the program, as on a machine where it is installed.
        (folder / "server").write_text(f"""Port {self.port}
ListenAddress 127.0.0.1
HostKey {folder / "host"}
AuthorizedKeysFile {folder / "authorized"}
PidFile none
StrictModes no
UsePAM no
PasswordAuthentication no
PermitRootLogin prohibit-password
SetEnv "PATH={environment['PATH']}" LC_ALL=C.UTF-8
ForceCommand mkdir -p {folder / "remote"} && cd {folder / "remote"} && sh -c "$SSH_ORIGINAL_COMMAND"
""")
        self.config.write_text(f"""Host worker1 worker2
    HostName 127.0.0.1
    Port {self.port}
    IdentityFile {folder / "user"}
    IdentitiesOnly yes
    StrictHostKeyChecking no
    UserKnownHostsFile /dev/null
    LogLevel ERROR
""")

    def __enter__(self):
        if os.geteuid() == 0:
            os.makedirs("/run/sshd", mode=0o755, exist_ok=True)
        server = shutil.which("sshd") or "/usr/sbin/sshd"
        self.process = subprocess.Popen([server, "-D", "-e", "-f", self.folder / "server"],
                                        stderr=open(self.folder / "log", "wb"))
        for _ in range(100):
            with socket.socket() as probe:
                if probe.connect_ex(("127.0.0.1", self.port)) == 0:
                    return self
            time.sleep(0.1)
        raise RuntimeError((self.folder / "log").read_text())

    def __exit__(self, *_):
        self.process.terminate()
        self.process.wait()


class SlurmNode:
    """A Slurm of one node on this machine, for as long as the object is used."""

    PROGRAMS = ("munged", "slurmctld", "slurmd", "sbatch", "srun", "sinfo")
    STARTS_WITHIN = 30

    def __init__(self, folder):
        self.folder = folder
        self.configuration = folder / "slurm.conf"
        self.processes = []
        self.is_up = False

    def __enter__(self):
        search = os.environ["PATH"] + ":/usr/sbin:/sbin"
        programs = {name: shutil.which(name, path=search) for name in self.PROGRAMS}
        if os.geteuid() == 0 and all(programs.values()):
            self.configure()
            munge = [programs["munged"], "--foreground", "--force", f"--key-file={self.folder / 'munge.key'}",
                     f"--socket={self.folder / 'munge.socket'}", f"--pid-file={self.folder / 'munge.pid'}",
                     f"--log-file={self.folder / 'munge.log'}", f"--seed-file={self.folder / 'munge.seed'}"]
            self.start("munged", munge)
            for name in ("slurmctld", "slurmd"):
                self.start(name, [programs[name], "-D", "-f", self.configuration])
            self.is_up = self.wait_for_node(programs["sinfo"])
        return self

    def configure(self):
        for name in ("spool", "state"):
            (self.folder / name).mkdir(parents=True)
        (self.folder / "munge.key").write_bytes(os.urandom(1024))
        (self.folder / "munge.key").chmod(0o600)
        host = socket.gethostname().split(".")[0]
        probes = [socket.socket(), socket.socket()]
        for probe in probes:
            probe.bind(("127.0.0.1", 0))
        ports = [probe.getsockname()[1] for probe in probes]
        for probe in probes:
            probe.close()
        self.configuration.write_text(f"""ClusterName=one
SlurmctldHost={host}(127.0.0.1)
AuthType=auth/munge
AuthInfo=socket={self.folder / "munge.socket"}
SlurmUser=root
SlurmdUser=root
StateSaveLocation={self.folder / "state"}
SlurmdSpoolDir={self.folder / "spool"}
SlurmctldPidFile={self.folder / "slurmctld.pid"}
SlurmdPidFile={self.folder / "slurmd.pid"}
SlurmctldPort={ports[0]}
SlurmdPort={ports[1]}
ProctrackType=proctrack/pgid
TaskPlugin=task/none
ReturnToService=2
SelectType=select/cons_tres
SchedulerType=sched/builtin
SchedulerParameters=sched_interval=1,batch_sched_delay=0,sched_min_interval=1000
NodeName={host} NodeAddr=127.0.0.1 CPUs={os.cpu_count()} State=UNKNOWN
PartitionName=all Nodes=ALL Default=YES MaxTime=INFINITE State=UP
""")

    def start(self, name, command):
        with open(self.folder / f"{name}.log", "wb") as log:
            self.processes.append(subprocess.Popen(command, stdout=log, stderr=log, stdin=subprocess.DEVNULL))

    def wait_for_node(self, sinfo):
        environment = dict(os.environ, SLURM_CONF=str(self.configuration))
        deadline = time.monotonic() + self.STARTS_WITHIN
        while time.monotonic() < deadline and all(process.poll() is None for process in self.processes):
            told = subprocess.run([sinfo, "-h", "-o", "%t"], env=environment, check=False, capture_output=True, text=True)
            if told.stdout.strip() == "idle":
                return True
            time.sleep(0.5)
        return False

    def __exit__(self, *_):
        for process in reversed(self.processes):
            process.terminate()
            process.wait()


def main():
    program, example, page, scratch = (pathlib.Path(argument).resolve() for argument in sys.argv[1:])
    recipes = Recipes(program, example, page, scratch)
    for recipe in (recipes.one_call, recipes.make, recipes.xargs, recipes.parallel, recipes.over_ssh, recipes.slurm):
        recipe()
        print(f"{recipe.__name__}: done", flush=True)
    print("\n".join(recipes.problems))
    sys.exit(1 if recipes.problems else 0)


main()
