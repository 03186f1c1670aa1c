"""Holds a list of losses against docs/loss-report.schema.json and the keys of docs/json.md.

check-json.py LOSSES.json DOCS
"""
import json
import re
import sys

import jsonschema

path, docs = sys.argv[1:]
schema = json.load(open(docs + "/loss-report.schema.json", encoding="utf-8"))
jsonschema.Draft7Validator.check_schema(schema)
losses = json.load(open(path, encoding="utf-8"))
report = {"version": 1, "template": "T.mpp", "status": 0,
          "bundles": [{"bundle": "P.zelb", "status": "exported", "output": "/P.mpp", "tasks": 1, "warnings": [],
                       "losses": losses}]}
jsonschema.Draft7Validator(schema).validate(report)
assert losses, "no loss to look at"

text = open(docs + "/json.md", encoding="utf-8").read().split("\n# Losses\n")[1]
documented = set(re.findall(r"^\| `(\w+)`", text, re.MULTILINE))
assert documented == set(losses[0]), documented ^ set(losses[0])
