"""The table of measurements: medians in milliseconds whatever the unit, and growth against a tenth of the work."""

import json
import sys
import unittest
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parents[2] / "tools"))

import bench_table  # noqa: E402


def google(*runs):
    return json.dumps({"benchmarks": [{"run_name": name, "run_type": kind, "real_time": time, "time_unit": unit}
                                      for name, kind, time, unit in runs]})


class Table(unittest.TestCase):
    def test_medians_of_the_repetitions(self):
        rows = bench_table.from_google_benchmark(google(
            ("Save/10/real_time", "iteration", 3000.0, "us"), ("Save/10/real_time", "iteration", 9000.0, "us"),
            ("Save/10/real_time", "iteration", 4000.0, "us"), ("Save/10/real_time", "aggregate", 5000.0, "us")))
        self.assertEqual([("Save/10", 4.0)], [(row["name"], row["median_ms"]) for row in rows])

    def test_growth_is_told_for_ten_times_the_work_only(self):
        rows = bench_table.from_google_benchmark(google(
            ("Load/1000", "iteration", 1.0, "ms"), ("Load/10000", "iteration", 12.5, "ms"),
            ("Load/50000", "iteration", 70.0, "ms"), ("Save/10000", "iteration", 1.0, "ms")))
        self.assertEqual(["", "12.5 times the one for a tenth", "", ""], [row["note"] for row in rows])

    def test_a_benchmark_that_failed_is_no_measurement(self):
        failed = {"name": "Load/10", "run_type": "iteration", "error_occurred": True, "error_message": "not loaded"}
        with self.assertRaises(ValueError):
            bench_table.from_google_benchmark(json.dumps({"benchmarks": [failed]}))

    def test_lines_between_other_output(self):
        rows = bench_table.from_lines('noise\n{"name": "Klick", "median_ms": 2, "p95_ms": 3.5, "note": "ruhig"}\n')
        self.assertEqual([["Klick", "2.000", "3.500", "ruhig"]], [line.split() for line in bench_table.table(rows)][1:])


if __name__ == "__main__":
    unittest.main()
