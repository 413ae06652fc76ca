#!/usr/bin/env python3
"""run_tests.py [FILTER] - builds and runs every test, and counts single test cases.

FILTER is a part of a test's full name, or a GoogleTest pattern when it holds a "*". With a filter only tests
run that it fits, and nothing is fuzzed. The exit code is 0 when something ran in every build and nothing failed.
"""

import os
import shutil
import subprocess
import sys
import time
import unittest
from concurrent.futures import ThreadPoolExecutor
from fnmatch import fnmatchcase
from pathlib import Path

from test_results import Result, crash_text, ctest_results, planned_tests

ROOT = Path(__file__).resolve().parent.parent
LOGS = ROOT / "build" / "test-logs"
FUZZ_SECONDS = 20        # for all targets together
WINE_SECONDS = "900"     # less than ctest's own limit, so that the wrapper can clean up
DETAIL_LINES = 20        # of one failure


class Tally:
    """Prints each result as it comes and adds them up."""

    def __init__(self):
        self.passed = self.failed = 0

    def add(self, result):
        print(result.line(), flush=True)
        for title, text in result.failures:
            print(f"    FAILED {title}")
            lines = text.splitlines()
            for line in lines[:DETAIL_LINES]:
                print(f"      {line}")
            if len(lines) > DETAIL_LINES:
                print(f"      ... {len(lines) - DETAIL_LINES} lines more")
        self.passed += result.passed
        self.failed += len(result.failures)

    def fail(self, name, text):
        self.add(Result(name, failures=[(name, text)]))


def logged(log, *command, **options):
    """Runs a command with its output in a log file. True when it ended well."""
    with open(log, "ab") as file:
        return subprocess.run(command, cwd=ROOT, stdout=file, stderr=subprocess.STDOUT, check=False,
                              **options).returncode == 0


def tail(log, count):
    return "\n".join(log.read_text(errors="replace").splitlines()[-count:])


def build(tally, preset):
    start = time.monotonic()
    log = LOGS / f"{preset}-build.log"
    built = logged(log, "cmake", "--preset", preset) and logged(log, "cmake", "--build", "--preset", preset)
    print(f"{preset}: {'built' if built else 'NOT BUILT'} ({time.monotonic() - start:.0f} s)", flush=True)
    if not built:
        tally.fail(f"{preset} build", tail(log, DETAIL_LINES))
    return built


def run_programs(tally, preset, pattern):
    """The GoogleTest programs of one build, by ctest."""
    folder = ROOT / "build" / preset
    reports, junit = folder / "tests" / "reports", folder / "ctest.xml"
    shutil.rmtree(reports, ignore_errors=True)
    junit.unlink(missing_ok=True)
    # A relative folder is one for Windows programs as well; each report is named after its program.
    # Wine's own errors are wanted in the log: a program that did not even start has nothing else to tell.
    environment = {"WINE_TIMEOUT": WINE_SECONDS, "WINEDEBUG": "fixme-all", **os.environ,
                   "GTEST_OUTPUT": "xml:reports/"}
    if pattern:
        environment["GTEST_FILTER"] = pattern
    logged(LOGS / f"{preset}-ctest.log", "ctest", "--preset", preset, f"-j{os.cpu_count()}", "--output-junit", junit,
           "--test-output-truncation", "head", env=environment)
    ran = 0
    for result in ctest_results(planned_tests(folder), junit, reports):
        if pattern and not result.passed and not result.failures:
            continue
        tally.add(result)
        ran += result.passed
    if not ran and not pattern:
        tally.fail(preset, "no test ran in this build")


def fuzz(tally):
    """A short run of every fuzz target; what they find interesting is kept for the next one."""
    wanted = sorted(source.stem for source in (ROOT / "tests" / "fuzz").glob("*_fuzz.cpp"))
    if not wanted or not build(tally, "fuzz"):
        return
    workers = os.cpu_count() or 1
    rounds = -(-len(wanted) // workers)
    seconds = max(2, FUZZ_SECONDS // rounds)
    with ThreadPoolExecutor(workers) as pool:
        for result in pool.map(lambda name: fuzz_one(name, seconds), wanted):
            tally.add(result)


def fuzz_one(name, seconds):
    result = Result(name, note=f"{seconds} s")
    programs = [path for path in (ROOT / "build" / "fuzz").rglob(name) if path.is_file()]
    if not programs:
        result.failures.append((name, "there is no such program in the build"))
        return result
    corpus, seeds = ROOT / "build" / "fuzz-corpus" / name, ROOT / "tests" / "fuzz" / "seeds" / name
    corpus.mkdir(parents=True, exist_ok=True)
    command = [programs[0], f"-max_total_time={seconds}", "-timeout=10", "-print_final_stats=1",
               f"-artifact_prefix={corpus.parent}/{name}-", corpus, *([seeds] if seeds.is_dir() else [])]
    run = subprocess.run(command, capture_output=True, text=True, errors="replace", check=False)
    (LOGS / f"{name}.log").write_text(run.stderr)
    inputs = [line.split()[-1] for line in run.stderr.splitlines() if line.startswith("stat::number_of_executed_units")]
    if run.returncode != 0 or not inputs or int(inputs[0]) == 0:
        result.failures.append((name, f"exit code {run.returncode}\n" + crash_text(run.stderr)))
    else:
        result.passed, result.note = 1, f"{seconds} s, {inputs[0]} inputs"
    return result


def cases(suite):
    for test in suite:
        if isinstance(test, unittest.TestSuite):
            yield from cases(test)
        else:
            yield test


def run_scripts(tally, folder, pattern):
    """The tests written in Python, one result per file."""
    for file in sorted(folder.glob("*_test.py")):
        start = time.monotonic()
        found = cases(unittest.TestLoader().discover(str(folder), file.name, str(folder)))
        suite = unittest.TestSuite(test for test in found if not pattern or fnmatchcase(test.id(), pattern))
        if not suite.countTestCases():
            if not pattern:
                tally.fail(file.name, "there is no test in it")
            continue
        outcome = unittest.TestResult()
        outcome.buffer = True
        suite.run(outcome)
        bad = [(getattr(test, "test_case", test).id(), text) for test, text in outcome.failures + outcome.errors]
        passed = outcome.testsRun - len({name for name, _ in bad}) - len(outcome.skipped)
        tally.add(Result(file.name, passed, len(outcome.skipped), bad, f"{time.monotonic() - start:.1f} s"))


def main():
    pattern = sys.argv[1] if len(sys.argv) > 1 else ""
    if pattern and "*" not in pattern:
        pattern = f"*{pattern}*"
    shutil.rmtree(LOGS, ignore_errors=True)
    LOGS.mkdir(parents=True)
    tally = Tally()
    for preset in ("native", "windows"):
        if build(tally, preset):
            run_programs(tally, preset, pattern)
    if not pattern:
        fuzz(tally)
    print("scripts:", flush=True)
    for folder in ("house", "tools"):
        run_scripts(tally, ROOT / "tests" / folder, pattern)
    print(f"{tally.passed} passed, {tally.failed} failed")
    return 0 if tally.passed and not tally.failed else 1


if __name__ == "__main__":
    sys.exit(main())
