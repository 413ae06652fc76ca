"""Counts what ran: test programs by the reports that they and ctest leave behind.

A test program that ends without its report, or badly although its report names no failure, is a failure too:
nothing that should have run may be missing from the count unnoticed.
"""

import json
import subprocess
import xml.etree.ElementTree as xml
from dataclasses import dataclass, field
from pathlib import Path

# What the lines that tell a crash look like, and how many lines from there are worth reading.
CRASH_SIGNS = ("ERROR: ", "runtime error:", "wine: Unhandled", "terminate called", "Assertion ")
BACKTRACE = "Backtrace:"
CRASH_LINES = 15


@dataclass
class Result:
    """One test program (or script), by its single test cases."""

    name: str
    passed: int = 0
    skipped: int = 0
    failures: list = field(default_factory=list)   # (title, text)
    note: str = ""

    def line(self):
        counts = f"{self.passed} passed"
        if self.failures:
            counts += f", {len(self.failures)} failed"
        if self.skipped:
            counts += f", {self.skipped} skipped"
        return f"  {self.name:<28} {counts:<32} {self.note}".rstrip()


def crash_text(output):
    """The part of a program's output that tells how it ended."""
    lines = output.splitlines()
    running = [line for line in lines if line.startswith("[ RUN ")][-1:]
    first = next((i for i, line in enumerate(lines) if any(sign in line for sign in CRASH_SIGNS)), None)
    if first is None:
        first = max(0, len(lines) - CRASH_LINES)
    reason = lines[first:first + CRASH_LINES]
    if BACKTRACE in lines[first:]:   # Wine's comes after pages of registers
        calls = lines.index(BACKTRACE, first)
        reason = lines[first:first + 1] + lines[calls:calls + CRASH_LINES]
    return "\n".join(running + reason)


def read_report(report, result):
    """Adds the cases of a GoogleTest XML report. False when there is none, or half of one."""
    try:
        root = xml.parse(report).getroot()
    except (OSError, xml.ParseError):
        return False
    for case in root.iter("testcase"):
        failures = case.findall("failure")
        if failures:
            text = "\n".join(failure.get("message", "") for failure in failures)
            result.failures.append((f"{case.get('classname')}.{case.get('name')}", text))
        elif case.get("result") == "skipped" or case.find("skipped") is not None:
            result.skipped += 1
        elif case.get("status") == "run":
            result.passed += 1
    return True


def planned_tests(build):
    """Name of each ctest entry, with the name of its report when it is a GoogleTest program."""
    shown = subprocess.run(["ctest", "--test-dir", build, "--show-only=json-v1"], capture_output=True, check=True)
    plan = {}
    for test in json.loads(shown.stdout)["tests"]:
        command = test.get("command", [])
        programs = [argument for argument in command if not argument.endswith(".sh")]
        is_google = any(argument.startswith("--gtest") for argument in command)
        plan[test["name"]] = Path(programs[0]).stem + ".xml" if is_google and programs else None
    return plan


def ctest_results(plan, junit, reports):
    """One result per planned entry, from ctest's own report and the programs' reports in a folder."""
    try:
        cases = {case.get("name"): case for case in xml.parse(junit).getroot().iter("testcase")}
    except (OSError, xml.ParseError):
        cases = {}
    return [_entry_result(name, report and Path(reports) / report, cases.get(name)) for name, report in plan.items()]


def _entry_result(name, report, case):
    result = Result(name)
    if case is None:
        result.failures.append((name, "it was not run"))
        return result
    result.note = f"{float(case.get('time', 0)):.1f} s"
    ended_well = case.get("status") == "run"
    output = case.findtext("system-out") or ""
    if report is None:
        result.passed += ended_well
    elif not read_report(report, result):
        result.failures.append((name, "it ended without a report\n" + crash_text(output)))
        return result
    if not ended_well and not result.failures:
        result.failures.append((name, "its tests passed, but it ended badly\n" + crash_text(output)))
    return result
