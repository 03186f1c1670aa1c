"""Whether the page of mppinspect --gantt is well-formed, needs nothing from elsewhere and shows every task.

check-gantt.py MPPINSPECT FILE.mpp FOLDER
"""
import html.parser
import json
import os
import subprocess
import sys

tool, path, folder = sys.argv[1:]
VOID = {"meta"}


class Page(html.parser.HTMLParser):
    def __init__(self):
        super().__init__()
        self.open, self.texts, self.hovers, self.ids, self.used = [], [], [], set(), set()

    def handle_starttag(self, tag, attributes):
        self.look_at(tag, attributes)
        if tag not in VOID:
            self.open.append(tag)

    def handle_startendtag(self, tag, attributes):
        self.look_at(tag, attributes)

    def handle_endtag(self, tag):
        assert self.open and self.open.pop() == tag, ("tags cross", tag, self.getpos())

    def handle_data(self, data):
        self.texts.append(data)

    def look_at(self, tag, attributes):
        names = [name for name, _ in attributes]
        assert len(set(names)) == len(names), ("an attribute twice", self.getpos())
        assert tag not in {"script", "link", "iframe", "img", "object", "base"}, (tag, self.getpos())
        for name, value in attributes:
            assert name not in {"src", "srcset", "action"} and not name.startswith("on"), (name, self.getpos())
            if name == "title":
                self.hovers.append(value)
            if name == "id":
                assert value not in self.ids, ("an id twice", value)
                self.ids.add(value)
            if name == "href":
                assert value.startswith("#"), value
                self.used.add(value[1:])


source = os.path.join(folder, "House.html")
subprocess.run([tool, "--gantt", source, path], check=True)
text = open(source, encoding="utf-8").read()
page = Page()
page.feed(text)
page.close()
assert not page.open, ("not closed", page.open)
assert page.used <= page.ids, page.used - page.ids
style = text[text.index("<style>"):text.index("</style>")]
assert """content="default-src 'none'; style-src 'unsafe-inline'; base-uri 'none'; form-action 'none'">""" in text
assert "http:" not in text and "https:" not in text and "@import" not in style and "url(" not in style

plan = json.loads(subprocess.run([tool, "--json", path], check=True, stdout=subprocess.PIPE).stdout)
shown = set(page.texts)
missing = [task["title"] for task in plan["tasks"] if task["title"] not in shown]
assert not missing, missing
names = " ".join(page.hovers)
for assignment in plan["assignments"]:
    name = next((r["name"] for r in plan["resources"] if r["uniqueId"] == assignment["resourceId"]), "")
    assert name in names, name
summaries = {task["parentId"] for task in plan["tasks"]}
rows = [task for task in plan["tasks"] if task["uniqueId"] != 0]
chart = text[text.index('class="chart"'):]
assert chart.count('class="s"') == sum(task["uniqueId"] in summaries for task in rows)
assert chart.count('<use href="#m"') == sum(task["milestone"] and task["uniqueId"] not in summaries for task in rows)
bars = [task for task in rows if task["uniqueId"] not in summaries and not task["milestone"]]
assert chart.count('<rect class="b') == len(bars)
assert chart.count('<rect class="p') == sum(task["percentComplete"] > 0 for task in bars)
assert chart.count('class="a"') == sum(any(b["number"] == 0 for b in task["baselines"]) for task in rows)
drawn = sum(chart.count(f'<use{kind} href="#{tip}"') for kind in ("", ' class="x"') for tip in ("d", "u", "l", "r", "lm", "rm"))
assert len(plan["links"]) * 0.8 < drawn <= len(plan["links"]), drawn  # some end in one place
print(len(rows), "tasks on a well-formed page of its own")
