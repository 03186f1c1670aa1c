#!/usr/bin/env python3
"""Runs the built command as people and scripts do.

  brackwater.py COMMAND RUNNER TEMPLATE SOURCE_FOLDER
"""
import difflib
import fcntl
import itertools
import json
import os
import pathlib
import pty
import re
import shutil
import signal
import struct
import subprocess
import sys
import tempfile
import termios
import time

import jsonschema

COMMAND, RUNNER, TEMPLATE, SOURCE = sys.argv[1:]
HOUSE = f"{SOURCE}/examples/House.zelb"
SCHEMA = json.load(open(f"{SOURCE}/docs/loss-report.schema.json", encoding="utf-8"))
failures = 0


def check(holds, what, *shown):
    global failures
    if not holds:
        failures += 1
        print(f"FAILED: {what}", *shown, sep="\n  ")


class Place:
    """A folder of its own with two small bundles and a damaged one."""

    def __init__(self):
        self.path = pathlib.Path(tempfile.mkdtemp())
        for name in ("a", "b"):
            shutil.copytree(f"{SOURCE}/tests/golden/bundles/links.zelb", self.path / f"{name}.zelb")
        shutil.copytree(self.path / "a.zelb", self.path / "bad.zelb")
        for scenario in (self.path / "bad.zelb").glob("*.xml"):
            if scenario.name != "__TOC.xml":
                scenario.write_text("<cut>")

    def __enter__(self):
        return self

    def __exit__(self, *_):
        shutil.rmtree(self.path)

    def start(self, *arguments, **options):
        return subprocess.Popen([COMMAND, *arguments], cwd=self.path, stdout=subprocess.PIPE, stderr=subprocess.PIPE,
                                text=True, env={**os.environ, "TZ": "UTC"}, **options)

    def run(self, *arguments, given=None):
        started = self.start(*arguments, stdin=subprocess.PIPE)
        out, err = started.communicate(given)
        return started.returncode, out, err

    def names(self, folder="."):
        return sorted(entry.name for entry in (self.path / folder).iterdir())


# What is typed, the exit status, and patterns of standard output and standard error.
ROWS = [
    ("--help", 0, "^Usage: brackwater ", "^$"),
    ("--version", 0, r"^brackwater \d+\.\d+\.\d+\n$", "^$"),
    ("", 2, "^$", "^brackwater: no bundle given"),
    ("--ouput x a.zelb", 2, "^$", "unknown option '--ouput'; did you mean '--output'"),
    ("--temp T.mpp a.zelb", 2, "^$", "did you mean '--template'"),
    ("-x a.zelb", 2, "^$", "unknown option '-x'"),
    ("-j 0 a.zelb", 2, "^$", "--jobs: .*0"),
    ("-o", 2, "^$", "--output: .*OUT"),
    ("-o '' a.zelb", 2, "^$", "the name is empty"),
    ("-o out.mpp a.zelb b.zelb", 2, "^$", "'out.mpp' is one file, but there are 2 bundles"),
    ("-o out.xml a.zelb", 2, "^$", "must end in .mpp, or in /"),
    ("-o none/out a.zelb", 2, "^$", "none' does not exist"),
    ("-o b.zelb a.zelb", 2, "^$", "is inside the bundle"),
    ("--log b.zelb/log a.zelb", 2, "^$", "is inside the bundle"),
    ("--log none/log a.zelb", 2, "^$", "the log 'none/log' cannot be written"),
    ("--report none/r.json a.zelb", 2, "^$", "the report 'none/r.json' cannot be written"),
    ("-o - a.zelb", 2, "^$", "means standard output"),
    ("--report a.mpp a.zelb", 2, "^$", "the name of an output"),
    ("--log list --input-list list", 2, "^$", "is the list of the bundles"),
    ("--log x --report ./x a.zelb", 2, "^$", "both the log and the report"),
    ("-t none.mpp a.zelb", 2, "^$", "the template 'none.mpp' does not exist"),
    ("-t a.zelb/__TOC.xml a.zelb", 2, "^$", "must be an .mpp file"),
    ("-t text.mpp a.zelb", 2, "^$", "is not a Microsoft Project file of a known format"),
    ("--input-list none", 2, "^$", "the list 'none' cannot be read: No such file"),
    ("--input-list a.zelb", 2, "^$", "the list 'a.zelb' cannot be read: is a folder"),
    ("--input-list /dev/zero", 2, "^$", "is longer than 64 MiB"),
    ("--input-list /dev/null", 2, "^$", "names no bundle"),
    ("a.zelb", 0, r"^a.zelb -> a.mpp: \d+ tasks, ", "^$"),
    ("-q a.zelb", 0, "^$", "^$"),
    ("-o new a.zelb b.zelb", 0, "(?s)^a.zelb -> new/a.mpp: .*b.zelb -> new/b.mpp: .*2 bundles: 2 exported, 0 failed",
     "^$"),
    ("a.zelb none.zelb", 1, "(?s)a.mpp.*Failed:\n  none.zelb: .*1 exported, 1 failed", "none.zelb: not exported: no such bundle"),
    ("text.mpp", 1, "^$", "it is a file, not a bundle"),
    ("file.zelb", 1, "^$", "is a folder: unpack it"),
    (".", 1, "^$", "name the bundles in it"),
    ("empty.zelb", 1, "^$", "it has no __TOC.xml"),
    ("bad.zelb a.zelb", 1, r"^a.zelb -> a.mpp", r"bad.zelb: not exported: '.*\.xml' could not be read"),
    ("--fail-on-loss losing.zelb", 3, "(?s)losing.mpp: .* [1-9][0-9]* loss.*Lost or changed:", "^$"),
    ("--fail-on-loss --accept-loss scenario-name losing.zelb", 3, " losses", "^$"),
    ("--fail-on-loss --accept-loss scenario-name,top-task --accept-loss hammock a.zelb", 0, " 2 losses", "^$"),
    ("--accept-loss top-task a.zelb", 2, "^$", "--accept-loss requires --fail-on-loss"),
    ("--fail-on-loss --accept-loss top-task,top a.zelb", 2, "^$", "there is no kind of loss 'top'"),
    ("--fail-on-loss losing.zelb bad.zelb", 1, "(?s)Lost or changed:\n +[0-9]+ x ", "bad.zelb: not exported"),
    ("--input-list list", 0, "2 bundles: 2 exported", "^$"),
]


def rows():
    for typed, status, out, err in ROWS:
        with Place() as place:
            (place.path / "text.mpp").write_text("no template")
            (place.path / "file.zelb").write_text("")
            (place.path / "empty.zelb").mkdir()
            shutil.copytree(HOUSE, place.path / "losing.zelb")
            (place.path / "list").write_text(":: two\r\na.zelb\r\n\nb.zelb")
            got = place.run(*[word.strip("'") for word in typed.split()])
            shown = [line for line in got[2].splitlines()]
            check(got[0] == status and re.search(out, got[1]) and re.search(err, got[2]), f"brackwater {typed}", *got)
            check(status != 2 or len(shown) == 1, f"one line names the fault of: {typed}", *shown)
            check(not list(place.path.rglob(".brackwater-*")), f"nothing is left by: {typed}", place.names())


def lists():
    with Place() as place:
        check(place.run("--input-list", "-", given="a.zelb\nb.zelb\n")[0] == 0, "a list on standard input")
        os.mkfifo(place.path / "pipe")
        begun = time.monotonic()
        status, _, err = place.run("--input-list", "pipe")
        check(status == 2 and "nobody writes" in err and time.monotonic() - begun < 30, "a pipe without a writer", err)


def names_of_outputs():
    with Place() as place:
        for folder in ("x", "y"):
            shutil.copytree(place.path / "a.zelb", place.path / folder / "a.zelb")
        (place.path / "out").mkdir()
        (place.path / "out/a-1.mpp").symlink_to("nowhere")
        _, out, _ = place.run("-o", "out", "x/a.zelb", "y/a.zelb")
        check("x/a.zelb -> out/a.mpp" in out and "y/a.zelb -> out/a-2.mpp" in out, "two bundles of one name", out)
        (place.path / "out/a.mpp").write_text("old")
        os.chmod(place.path / "out/a.mpp", 0o600)
        status, _, err = place.run("-f", "-o", "out", "bad.zelb", "-t", TEMPLATE)
        check(status == 1 and (place.path / "out/a.mpp").read_text() == "old", "a failure replaces nothing", err)
        place.run("-f", "-o", "out/a.mpp", "a.zelb")
        replaced = (place.path / "out/a.mpp").stat()
        check(replaced.st_size > 1000 and replaced.st_mode & 0o777 == 0o600, "-f replaces and keeps the mode", replaced)
        shutil.copy(TEMPLATE, place.path / "T.mpp")
        check("is the template" in place.run("-f", "-t", "T.mpp", "-o", "T.mpp", "a.zelb")[2], "-f spares the template")
        for _ in range(10):
            shutil.rmtree(place.path / "out")
            (place.path / "out").mkdir()
            both = [place.start("-o", "out", "a.zelb"), place.start("-o", "out", "x/a.zelb")]
            check([one.wait() for one in both] == [0, 0] and place.names("out") == ["a-1.mpp", "a.mpp"],
                  "two runs at once get two names", place.names("out"))
            for one in both:
                one.communicate()


def log_and_report():
    def plain(text):
        text = re.sub(r"(?m)^[-0-9]{10} [0-9:.]{12} Brackwater\[\d+\] ", "", text)
        return re.sub(r"[0-9a-f]{8}-[0-9a-f-]{27}|(?<=Guid = )\S+", "GUID", text, flags=re.I)

    with Place() as place:
        # More than there are workers, so that some export several.
        bundles = ["a.zelb", "bad.zelb", "b.zelb", "a.zelb"] * 4
        wanted = ""
        (place.path / "out").mkdir()
        for number, bundle in enumerate(bundles):
            before = bundles[:number].count(bundle)
            output = bundle.removesuffix(".zelb") + (f"-{before}" if before > 0 else "")
            ran = subprocess.run([RUNNER, "--template-path", TEMPLATE, place.path / bundle, place.path / f"out/{output}.mpp"],
                                 stderr=subprocess.PIPE, text=True, cwd=place.path,
                                 env={**os.environ, "TZ": "UTC", "XDG_CONFIG_HOME": "/none"})
            wanted += plain(ran.stderr)
        reports = {}
        for jobs in "1", "4":
            for output in (place.path / "out").iterdir():
                output.unlink()
            status, _, _ = place.run("--exact", "-j", jobs, "-o", "out", "--log", "log", "--report", f"{jobs}.json", *bundles)
            got = plain((place.path / "log").read_text()).replace(os.path.realpath(place.path), str(place.path))
            check(status == 1, "a failed bundle gives status 1", status)
            difference = list(difflib.unified_diff(wanted.splitlines(), got.splitlines(), lineterm="", n=0))
            check(not difference, f"the log is that of Brackwater, with -j {jobs}", *difference[:20])
            reports[jobs] = json.loads((place.path / f"{jobs}.json").read_text())
            jsonschema.validate(reports[jobs], SCHEMA)
        check(reports["1"] == reports["4"], "the report is the same for every number of jobs")
        check([one["status"] for one in reports["1"]["bundles"]] == ["exported", "failed", "exported", "exported"] * 4,
              "the report names what failed", reports["1"])
        place.run("--report", "house.json", HOUSE, "-o", "out")
        house = json.loads((place.path / "house.json").read_text())
        jsonschema.validate(house, SCHEMA)
        check(house["bundles"][0]["losses"], "the example loses something", house)


def nothing_is_forged():
    with Place() as place:
        evil = "x\n### Exporter SUCCEEDED.\x1b[2K\u202egpj\u0085.zelb"
        os.rename(place.path / "bad.zelb", place.path / evil)
        shutil.copytree(HOUSE, place.path / "House.zelb")
        plan = place.path / "House.zelb/plan.xml"
        text = plan.read_text(encoding="utf-8")
        for shown in ("瓷砖工", "Permit is examined"):  # in a warning and in a loss
            text = text.replace(shown, "".join(f"&#{ord(letter)};" for letter in evil if letter != "\x1b") + "\u2028")
        plan.write_text(text, encoding="utf-8")
        status, out, err = place.run(evil, "a.zelb", "House.zelb", "--report", "r.json")
        alone = place.run("House.zelb")
        check(alone[1].count("### Exporter") >= 2, "the texts of the document are shown", *alone)
        out += alone[1] + alone[2]
        lines = (out + err).splitlines()
        check(status == 1 and not [line for line in lines if line.startswith("###")], "no line of its own", *lines)
        check(not re.search("[\x00-\x09\x0b-\x1f\x7f-\x9f\u2028\u2029\u202e]", out + err), "no control is shown", *lines)
        report = (place.path / "r.json").read_text(encoding="utf-8")
        check(not re.search("[\x00-\x09\x0b-\x1f\x7f-\x9f\u2028\u2029\u202e]", report), "nor in the report")
        check(json.loads(report)["bundles"][0]["bundle"] == evil, "the report has the name")


def outputs_that_cannot_be_written():
    with Place() as place:
        for typed in ("--help", "a.zelb"):
            with open("/dev/full", "w", encoding="utf-8") as full:
                ran = subprocess.run([COMMAND, typed], cwd=place.path, stdout=full, stderr=subprocess.PIPE, text=True)
            check(ran.returncode == 1 and "standard output cannot be written" in ran.stderr, f"a full disk for {typed}", ran)
        for typed, status in ("-x", 2), ("none.zelb", 1), ("", 2):
            with open("/dev/full", "w", encoding="utf-8") as full:
                ran = subprocess.run([COMMAND, *typed.split()], cwd=place.path, stdout=subprocess.DEVNULL, stderr=full)
            check(ran.returncode == status, f"standard error on a full disk for: brackwater {typed}", ran)
        for option, what in ("--report", "report"), ("--log", "log"):
            for bundles in ["b.zelb"], ["b.zelb", HOUSE]:
                status, _, err = place.run("-q", "-o", "out/", option, "/dev/full", *bundles)
                check(status == 1 and err == f"brackwater: the {what} cannot be written\n", f"a {what} on a full disk", err)


def closed_descriptors():
    with Place() as place:
        seen = set()
        for closed in range(8):  # bits, one a descriptor
            how = "".join(f" {number}>&-" for number in range(3) if closed >> number & 1)
            command = f'exec "$0" -f -t "$1" "$2" -o out.mpp --log log --report r.json{how}'
            ran = subprocess.run(["sh", "-c", command, COMMAND, TEMPLATE, HOUSE], cwd=place.path, capture_output=True)
            output = (place.path / "out.mpp").read_bytes()
            log = (place.path / "log").read_bytes()
            check(len(log) > 1 << 16 and json.loads((place.path / "r.json").read_text()), "a long log and a report")
            seen.add((ran.returncode, len(output), output.count(b" Brackwater["), log.count(b"\n")))
        check(len(seen) == 1, "closed descriptors change nothing", *seen)


def interrupted():
    for number in (signal.SIGINT, signal.SIGTERM):
        with Place() as place:
            (place.path / "out").mkdir()
            run = place.start("-j", "2", "-o", "out", "--report", "r.json", *[HOUSE] * 400)
            while len(list((place.path / "out").glob("*.mpp"))) < 5 and run.poll() is None:
                time.sleep(0.005)
            run.send_signal(number)
            out, err = run.communicate()
            check(run.returncode == 128 + number, f"status after signal {number}", run.returncode, err)
            sizes = {entry.stat().st_size for entry in (place.path / "out").iterdir()}
            outputs = place.names("out")
            check(len(sizes) == 1, "whole outputs and nothing else", *outputs)
            report = json.loads((place.path / "r.json").read_text())
            jsonschema.validate(report, SCHEMA)
            told = sorted(pathlib.Path(one["output"]).name for one in report["bundles"] if one["status"] == "exported")
            check(told == outputs and err, "the report tells", err, *set(outputs) ^ set(told))


# What nobody reads, and what is typed.
UNREAD = [
    ("stdout", ["a.zelb"] * 300),
    ("stderr", ["none.zelb"] * 3000),
    ("log", ["-q", "--log", "pipe", *[HOUSE] * 20]),
    ("report", ["-q", "--report", "pipe", *["none.zelb"] * 3000]),
]


def progress_on_a_terminal():
    for quiet, columns in ([], 40), ([], 20), (["-q"], 40):
        with Place() as place:
            terminal, theirs = pty.openpty()
            fcntl.ioctl(theirs, termios.TIOCSWINSZ, struct.pack("4H", 24, columns, 0, 0))
            with subprocess.Popen([COMMAND, *quiet, "-o", "out", *[HOUSE] * 20], cwd=place.path, stdout=subprocess.DEVNULL,
                                  stderr=theirs):
                os.close(theirs)
                shown = ""
                with open(terminal, "rb", buffering=0) as screen:
                    try:
                        while piece := screen.read(65536):
                            shown += piece.decode()
                    except OSError:  # the last writer is gone
                        pass
            steps = [line for line in shown.split("\r\x1b[K") if line]
            check(bool(steps) != bool(quiet) and shown.endswith("\x1b[K" if steps else ""), "steps, taken away", shown)
            check(all(re.match(r"\d+ of 20 done; ", line) and len(line) < columns for line in steps), "a line each", *steps)
            step = r"lb: (loading|comparing|(mapping|writing)( \d+ %)?)$"
            check(columns == 20 or all(re.search(step, line) for line in steps), "phase and share", *steps)


def readers_that_do_not_read():
    for (unread, typed), number in itertools.product(UNREAD, (signal.SIGTERM, signal.SIGQUIT)):
        with Place() as place:
            (place.path / "out").mkdir()
            os.mkfifo(place.path / "pipe")
            pipe = open(os.open(place.path / "pipe", os.O_RDONLY | os.O_NONBLOCK), "rb")
            files = {name: subprocess.PIPE if name == unread else subprocess.DEVNULL for name in ("stdout", "stderr")}
            run = subprocess.Popen([COMMAND, "-o", "out", *typed], cwd=place.path, **files)
            reader = getattr(run, unread, None) or pipe
            fcntl.fcntl(reader, fcntl.F_SETPIPE_SZ, 4096)
            before, waiting = None, 0
            while not waiting or waiting != before:  # until it waits for the reader
                before = waiting
                time.sleep(1)
                waiting = struct.unpack("i", fcntl.ioctl(reader, termios.FIONREAD, b"    "))[0]
            check(run.poll() is None, f"it waits for the reader of its {unread}", run.returncode)
            run.send_signal(number)
            try:
                run.wait(15)
            except subprocess.TimeoutExpired:
                run.kill()
            check(run.wait() == 128 + number, f"{number} ends it although nobody reads its {unread}", run.returncode)
            left = [name for name in place.names("out") if name.startswith(".")]
            check(not left, f"it left nothing when nobody read its {unread}", *left)
            reader.close()
            pipe.close()


for test in (rows, lists, progress_on_a_terminal, names_of_outputs, log_and_report, nothing_is_forged,
             outputs_that_cannot_be_written, closed_descriptors, interrupted, readers_that_do_not_read):
    test()
print("all as expected" if failures == 0 else f"{failures} failed")
sys.exit(failures > 0)
