"""Compares the keys of mppinspect --json with docs/json.md, object by object, holds what it writes against the JSON
Schema, and looks at some values.

check-json.py MPPINSPECT FILE.mpp docs
"""
import json
import jsonschema
import re
import subprocess
import sys

tool, path, docs = sys.argv[1:]

KINDS = {"documentSummary": "summary", "actualDuration": "duration", "remainingDuration": "duration",
         "lag": "duration", "delay": "duration",
         "completeWork": "phases", "plannedWork": "phases"}
KINDS.update({day + "day": "ranges" for day in ("sun", "mon", "tues", "wednes", "thurs", "fri", "satur")})
FREE_KEYS = {"taskTextNames", "resourceTextNames", "texts"}


def documented_keys():
    keys, section = {}, None
    for line in open(docs + "/json.md", encoding="utf-8"):
        if line.startswith("# "):
            section = None  # of another document
        elif line.startswith("## "):
            section = keys.setdefault(line[3:].strip(), set())
        elif section is not None and line.startswith("| `"):
            section.update(re.findall(r"`(\w+)`", line.split("|")[1]))
    return keys


def walk(value, kind):
    if isinstance(value, list):
        for element in value:
            walk(element, kind)
    elif isinstance(value, dict) and kind in FREE_KEYS:
        assert all(re.fullmatch(r"Text([1-9]|[12]\d|30)", key) for key in value), value
    elif isinstance(value, dict):
        assert set(value) == documented[kind], (kind, set(value) ^ documented[kind])
        seen.add(kind)
        for key, child in value.items():
            walk(child, KINDS.get(key, key))


def reject(text):
    raise ValueError("no JSON number: " + text)


def run(*options):
    done = subprocess.run([tool, "--json", *options, path], stdout=subprocess.PIPE)
    parsed = json.loads(done.stdout.decode("utf-8"), parse_constant=reject)
    validator.validate(parsed)
    severities = {finding["severity"] for finding in parsed.get("findings", [])}
    assert done.returncode == (1 if severities & {"error", "warning"} else 0), (options, done.returncode)
    return parsed


validator = jsonschema.Draft202012Validator(json.load(open(docs + "/mppinspect.schema.json", encoding="utf-8")))
documented, seen = documented_keys(), set()
file = run()
assert file == run(), "two runs differ"
walk(file, "file")
assert run("--tasks", "--links").keys() == {"version", "taskTextNames", "blankTaskRows", "tasks", "links"}
assert file["counts"]["tasks"] == len(file["tasks"])
findings = run("--check")["findings"]
for bad in ({"version": 2, "tasks": [{}]}, {"version": 1}, {"version": 2, "findings": [{"severity": "odd"}]}):
    assert not validator.is_valid(bad), bad
missing = set(documented) - seen - {"workWeeks", "complaints", "recurrence", "findings", "check"}  # the example has no such record
assert not missing, ("documented, but in no object", missing)

tasks = {task["title"]: task for task in file["tasks"]}
certificate = tasks["Energy certificate"]
assert certificate["start"] == "2027-03-16T08:00:00", certificate
assert certificate["duration"] == {"minutes": 1440, "percent": None, "unit": "d", "estimated": False}, certificate
assert certificate["work"] == 24, certificate
walk(findings, "findings")
assert certificate["predecessors"] and not certificate["summary"] and file["tasks"][0]["summary"]
assert file["tasks"][0]["parentId"] is None and certificate["parentId"] is not None
assert [file["calendars"][0]["week"][day] for day in ("sunday", "monday")] == [
    [], [{"start": "08:00", "end": "12:00"}, {"start": "13:00", "end": "17:00"}]]
print("keys of", len(seen), "kinds of objects are as documented")
