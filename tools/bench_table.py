#!/usr/bin/env python3
"""bench_table.py RESULTS.json FILE... - one table of all measurements, and the same as JSON.

A FILE that ends in .json is Google Benchmark's report with repetitions. Any other one holds a JSON object per
line: name, median_ms and, where it is known, p95_ms and note.
"""

import json
import re
import statistics
import sys
from pathlib import Path

MILLISECONDS = {"ns": 1e-6, "us": 1e-3, "ms": 1.0, "s": 1e3}


def from_google_benchmark(text):
    times = {}
    for run in json.loads(text)["benchmarks"]:
        if run.get("error_occurred"):
            raise ValueError(f"{run['name']}: {run.get('error_message')}")
        if run["run_type"] == "iteration":
            name = run["run_name"].removesuffix("/real_time")
            times.setdefault(name, []).append(run["real_time"] * MILLISECONDS[run["time_unit"]])
    rows = [{"name": name, "median_ms": statistics.median(values), "note": ""} for name, values in times.items()]
    note_growth(rows)
    return rows


def note_growth(rows):
    """How a time grows where the same thing was measured with a tenth of the work ("Read/10000" and "Read/100000")."""
    by_name = {row["name"]: row for row in rows}
    for row in rows:
        less = by_name.get(re.sub(r"/(\d+)0(?=/|$)", r"/\1", row["name"], count=1))
        if less and less is not row:
            row["note"] = f"{row['median_ms'] / less['median_ms']:.1f} times the one for a tenth"


def from_lines(text):
    rows = [json.loads(line) for line in text.splitlines() if line.startswith("{")]
    for row in rows:
        row["median_ms"] = float(row["median_ms"])
    return rows


def table(rows):
    width = max(len(row["name"]) for row in rows)
    yield f"{'':{width}}  {'median ms':>10}  {'p95 ms':>10}  note"
    for row in rows:
        p95 = f"{row['p95_ms']:.3f}" if row.get("p95_ms") is not None else ""
        yield f"{row['name']:{width}}  {row['median_ms']:>10.3f}  {p95:>10}  {row.get('note') or ''}".rstrip()


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
