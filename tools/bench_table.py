#!/usr/bin/env python3
"""bench_table.py RESULTS.json FILE... - one table of all measurements, and the same as JSON.

A FILE that ends in .json is Google Benchmark's report with repetitions. Any other one holds a JSON object per line:
name, unit, median, p95 and, where there is one, target, target_p95, floor (the name of what it is held against), ratio
(to that floor) and note.

Numbers are milliseconds where no other unit is told. A row whose target was missed ends in "MISSED": a measurement, no
failure, as it depends on the machine.
"""

import json
import re
import statistics
import sys
from pathlib import Path

MILLISECONDS = {"ns": 1e-6, "us": 1e-3, "ms": 1.0, "s": 1e3}
# What cannot be saved, of benchmarks that the library runs: they tell no floor themselves.
FLOORS = {"Save": "WriteBytes", "Load": "ReadBytes", "LoadAfterOtherWork": "ReadBytes", "ParseOnly": "ReadBytes",
          "PeekEntryByEntry": "ReadBytes", "DeleteClassInTable": "CopyAssignments",
          "DeleteClassInWindow": "CopyAssignments"}


def percentile95(values):
    """The smallest of the values that 95 of 100 do not exceed."""
    ordered = sorted(values)
    return ordered[-(-len(ordered) * 95 // 100) - 1]


def from_google_benchmark(text):
    times = {}
    for run in json.loads(text)["benchmarks"]:
        if run.get("error_occurred"):
            raise ValueError(f"{run['name']}: {run.get('error_message')}")
        if run["run_type"] == "iteration":
            name = re.sub(r"/(real_time|iterations:\d+)(?=/|$)", "", run["run_name"])
            times.setdefault(name, []).append(run["real_time"] * MILLISECONDS[run["time_unit"]])
    rows = [{"name": name, "unit": "ms", "median": statistics.median(values), "p95": percentile95(values), "note": ""}
            for name, values in times.items()]
    note_growth(rows)
    hold_against_floors(rows)
    return rows


def note_growth(rows):
    """How a time grows where the same thing was measured with a tenth of the work ("Read/10000" and "Read/100000")."""
    by_name = {row["name"]: row for row in rows}
    for row in rows:
        less = by_name.get(re.sub(r"/(\d+)0(?=/|$)", r"/\1", row["name"], count=1))
        if less and less is not row:
            row["note"] = f"{row['median'] / less['median']:.1f} times the one for a tenth"


def hold_against_floors(rows):
    by_name = {row["name"]: row for row in rows}
    for row in rows:
        name, slash, arguments = row["name"].partition("/")
        floor = by_name.get(FLOORS.get(name, "") + slash + arguments)
        if floor:
            row.update(floor=floor["name"], ratio=row["median"] / floor["median"])


def from_lines(text):
    return [json.loads(line) for line in text.splitlines() if line.startswith("{")]


def missed(row):
    return any(row.get(target) and row[value] > row[target] for value, target in (("median", "target"),
                                                                                  ("p95", "target_p95")))


def cells(row):
    unit = "" if row["unit"] == "ms" else f" {row['unit']}"
    target = f"{row['target']:g}" if row.get("target") else ""
    if row.get("target_p95"):
        target += f"/{row['target_p95']:g}"
    ratio = f"{row['ratio']:.2f} x {row['floor']}" if row.get("floor") else ""
    end = "; ".join(text for text in (ratio, row.get("note"), "MISSED" if missed(row) else "") if text)
    return row["name"], f"{row['median']:.3f}{unit}", f"{row['p95']:.3f}", target, end


def table(rows):
    lines = [("", "median", "p95", "target", "ratio to its floor; note"), *map(cells, rows)]
    name, *numbers = (max(len(line[column]) for line in lines) for column in range(4))
    for line in lines:
        shown = "  ".join(f"{text:>{width}}" for text, width in zip(line[1:4], numbers))
        yield f"{line[0]:{name}}  {shown}  {line[4]}".rstrip()


def main():
    results, *files = map(Path, sys.argv[1:])
    rows = []
    for file in files:
        text = file.read_text(encoding="utf-8")
        found = from_google_benchmark(text) if file.suffix == ".json" else from_lines(text)
        if not found:
            sys.exit(f"bench: {file.name} holds no measurement")
        rows += found
    results.write_text(json.dumps(rows, indent=2, ensure_ascii=False) + "\n", encoding="utf-8")
    print("\n".join(table(rows)))


if __name__ == "__main__":
    main()
