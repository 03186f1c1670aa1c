#!/usr/bin/python3
"""The work of the programs grows no faster than their input: they run on n and on 2n of each thing that a document can
hold many of, and valgrind counts their instructions.

  complexity.py RUNNER COMMAND MPPINSPECT TEMPLATE
"""
import concurrent.futures
import datetime
import os
import pathlib
import re
import subprocess
import sys
import tempfile

RUNNER, COMMAND, INSPECT, TEMPLATE = sys.argv[1:]
MOST = 2.2  # times the instructions for twice the input; sorting and searching cost a little more than twice
NAMESPACE = "http://tarnwick.example/namespace/Tarnwick/v2"
CONTENTS = f"""<document xmlns="{NAMESPACE}"><project><title>P</title><currency-format>$ 1.00</currency-format>
<scenario id="s1" filename="plan.xml" name="A"/><scenario id="s2" filename="%s" name="B"/></project><window>
<editing-scenario>s1</editing-scenario>%s</window></document>"""
COMPARED = "<comparison-scenario>s2</comparison-scenario>"


def day(number):
    return (datetime.date(2027, 3, 1) + datetime.timedelta(number)).isoformat()


def item(kind, number, content="", last=1):
    dates = f"<start-date>{day(0)}T08:00:00Z</start-date><end-date>{day(last)}T17:00:00Z</end-date>"
    dates += f"<duration>{28800 * (last + 1)}</duration>"
    return f'<{kind} id="{kind[0]}{number}">{dates if kind == "task" else ""}{content}</{kind}>'


def each(count, text):
    return "".join(text(number) for number in range(1, count + 1))


def refer(element, letter, count):
    return each(count, lambda i: f'<{element} idref="{letter}{i}"/>')


def plan(tasks=1, task=lambda i: "", resources=1, resource=lambda i: "<type>Staff</type>", roots=None, last=1):
    """So many tasks and resources with these contents; those of `roots` or else all are children of the top ones."""
    return (f'<scenario xmlns="{NAMESPACE}"><top-resource idref="r-1"/><top-task idref="t-1"/>' +
            item("task", -1, "<type>group</type>" + refer("child-task", "t", roots or tasks)) +
            item("resource", -1, "<type>Group</type>" + refer("child-resource", "r", roots or resources)) +
            each(tasks, lambda i: item("task", i, task(i), last)) +
            each(resources, lambda i: item("resource", i, resource(i))) + "</scenario>")


def scheduled(content):
    return plan(resource=lambda i: f"<type>Staff</type><schedule>{content}</schedule>")


SPAN = '<time-span start-time="28800" end-time="43200"/>'
NOTE = "<note><text>%s</text></note>"
LINE = "<p><run><lit>Wall</lit></run></p>"
# How many, and the document that holds n of them.
THINGS = {
    "tasks": (1500, lambda n: plan(n, lambda i: f"<title>T{i}</title><effort>3600</effort>" + NOTE % LINE)),
    "links in a chain": (1500, lambda n: plan(n, lambda i: f'<prerequisite-task idref="t{i - 1}"/>' if i > 1 else "")),
    "predecessors": (1500, lambda n: plan(n, lambda i: refer("prerequisite-task", "t", n - 1) if i == n else "")),
    "successors": (1500, lambda n: plan(n, lambda i: '<prerequisite-task idref="t1"/>' if i > 1 else "")),
    "levels": (1500, lambda n: plan(n, lambda i: f'<type>group</type><child-task idref="t{i + 1}"/>' if i < n else "", roots=1)),
    "milestones and progress": (1500, lambda n: plan(n, lambda i: ("<type>milestone</type>" if i % 2 else "") +
                                "<completion-percentage>0.5</completion-percentage><effort-done>60</effort-done>")),
    "keys": (1500, lambda n: plan(n, lambda i: f"<user-data><key>k{i}</key><string>v</string></user-data>")),
    "resources": (1500, lambda n: plan(resources=n, resource=lambda i: "<type>Staff</type><name>Anna</name><schedule>"
                                       f'<schedule-day day-of-week="monday">{SPAN}</schedule-day></schedule>')),
    "groups in groups": (1500, lambda n: plan(resources=n, roots=1, resource=lambda i: "<type>Staff</type>" if i == n
                                              else f'<type>Group</type><child-resource idref="r{i + 1}"/>')),
    "assignments of a task": (1500, lambda n: plan(1, lambda i: "<effort>60</effort>" + refer("assignment", "r", n), n)),
    "assignments of a resource": (1500, lambda n: plan(n, lambda i: '<effort>60</effort><assignment idref="r1"/>')),
    "material": (400, lambda n: plan(n, lambda i: '<effort>60</effort><assignment idref="r1"/>', last=9,
                                     resource=lambda i: "<type>Material</type>")),
    "days of material": (5000, lambda n: plan(1, lambda i: '<effort>60</effort><assignment idref="r1"/>', last=n,
                                              resource=lambda i: "<type>Material</type>")),
    "time off": (3000, lambda n: scheduled('<calendar name="c" overtime="false">' + each(n, lambda i:
                 f'<event start="{day(2 * i)}T08:00:00Z" end="{day(2 * i + 1)}T12:00:00Z"/>') + "</calendar>")),
    "overtime": (3000, lambda n: scheduled('<calendar name="c" overtime="true">' + each(n, lambda i:
                 f'<event start="{day(2 * i)}T08:00:00Z" end="{day(2 * i + 3)}T12:00:00Z"/>') + "</calendar>")),
    "calendars": (2000, lambda n: scheduled(each(n, lambda i: f'<calendar name="c{i}" overtime="false"><event '
                  f'start="{day(i)}T08:00:00Z" end="{day(i)}T12:00:00Z"/></calendar>'))),
    "days of their own": (3000, lambda n: scheduled(each(n, lambda i:
                          f'<flattened-schedule-day date="{day(i)}T12:00:00Z">{SPAN}</flattened-schedule-day>'))),
    "paragraphs": (5000, lambda n: plan(1, lambda i: NOTE % (LINE * n))),
    "letters": (200_000, lambda n: plan(1, lambda i: f"<title>{'Wall ' * n}</title>")),
    "names of elements": (3000, lambda n: plan(1, lambda i: each(n, lambda k: f"<x{k} a{k}='' xmlns:p{k}='u'/>"))),
    "repairs": (20_000, lambda n: plan(1, lambda i: "<a b=c/>&none;" * n)),
}


def instructions(*command):
    ran = subprocess.run(["valgrind", "--tool=cachegrind", "--cache-sim=no", "--cachegrind-out-file=/dev/null", *command],
                         stdout=subprocess.DEVNULL, stderr=subprocess.PIPE, env={**os.environ, "TZ": "UTC"})
    counts = re.findall(rb"I +refs: +([\d,]+)", ran.stderr)
    return sum(int(count.replace(b",", b"")) for count in counts), ran.returncode


def counts(document):
    """Of each program that meets the document."""
    with tempfile.TemporaryDirectory() as folder:
        bundle, output = pathlib.Path(folder, "Plan.zelb"), f"{folder}/out.mpp"
        bundle.mkdir()
        for name in ("plan.xml", "base.xml"):
            (bundle / name).write_text(document)
        (bundle / "__TOC.xml").write_text(CONTENTS % ("base.xml", COMPARED))
        ran = [instructions(RUNNER, "--template-path", TEMPLATE, bundle, f"{folder}/exact.mpp"),
               instructions(COMMAND, "-q", "-j1", "-t", TEMPLATE, bundle, "-o", output), instructions(INSPECT, output)]
        assert os.path.exists(f"{folder}/exact.mpp") and all(status == 0 for _, status in ran), ran
        return [count for count, _ in ran]


def main():
    documents = {("none", 0): plan()}
    for name, (n, make) in THINGS.items():
        documents.update({(name, times): make(times * n) for times in (1, 2)})
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        found = dict(zip(documents, pool.map(counts, documents.values())))
    failures = 0
    for name in THINGS:
        for program, none, once, twice in zip(("Brackwater", "brackwater", "mppinspect"), found["none", 0],
                                              found[name, 1], found[name, 2]):
            growth = (twice - none) / max(once - none, 1)
            holds = growth <= MOST or twice - none < 10_000_000
            failures += not holds
            print(f"{'' if holds else 'FAILED: '}{name}, {program}: {once - none:,} instructions, {growth:.2f} times for twice")
    sys.exit(failures > 0)


main()
