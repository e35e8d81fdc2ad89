"""Runs all measurements and prints the tables; bench/run builds what it needs and starts it."""

import argparse
import os
import platform
import subprocess
import signal
import sys
import tempfile
import time

import growth
import memory
import quality
import report
import tables
from measure import measure
from workloads import table_workloads, workloads

OURS = "build/bench/bench/bench_ours"
INNER_LOOPS = "build/bench/bench/core_bench"
DOCUMENT = "docs/performance.md"
PICTURES = "docs/pictures/performance"
RESULTS = "build/bench/results.md"


def write_graph(path, kind, curves, points):
    subprocess.run([OURS, "write", path, kind, str(curves), str(points)], check=True,
                   stderr=subprocess.DEVNULL)


def machine():
    with open("/proc/cpuinfo", encoding="utf-8") as file:
        model = next(line.split(":")[1].strip() for line in file if line.startswith("model name"))
    with open("/etc/os-release", encoding="utf-8") as file:
        system = next(line.split('"')[1] for line in file if line.startswith("PRETTY_NAME"))
    load = os.getloadavg()[0]
    return (f"{model}, {os.cpu_count()} processors, {system}, Linux {platform.release().split('-')[0]}, "
            f"{time.strftime('%Y-%m-%d')}; load at the start {load:.1f}.")


def timings(chosen, deadline):
    rows = []
    for workload in chosen:
        if time.monotonic() > deadline:
            rows.append([workload.key, workload.title, "no time left"] + [""] * 7)
            continue
        print(workload.key, workload.title, file=sys.stderr, flush=True)
        rows += report.timing_rows(workload, measure(workload, deadline))
    return rows


def inner_loops():
    answer = subprocess.run([INNER_LOOPS, "--benchmark_min_time=0.2", "--benchmark_color=false"],
                            check=True, capture_output=True, text=True).stdout
    return "```text\n" + answer.rstrip() + "\n```"


def table_section(folder, deadline):
    for columns in (3, 150):
        tables.write_table(f"{folder}/table{columns}.csv", columns)
    tables.write_table(f"{folder}/long.csv", 3, 1_000_000)
    return report.timing_table(timings(table_workloads(folder), deadline)) + "\n\n" + machine()


def run_tables(options, folder):
    section = table_section(folder, time.monotonic() + options.seconds)
    if options.document:
        report.replace_in_document(DOCUMENT, {"tables": section})
    return section


def run(options, folder):
    deadline = time.monotonic() + options.seconds
    # These run whatever the budget is, so that their tables are complete; 90 seconds in all.
    sections = {"machine": machine()}
    print("quality", file=sys.stderr, flush=True)
    sections["quality"] = report.quality_table(quality.rows(folder))
    write_graph(folder + "/largest.gdf", "noise", 149, 32767)
    print("memory", file=sys.stderr, flush=True)
    sections["memory"] = report.memory_table(memory.rows(folder, write_graph))
    print("growth", file=sys.stderr, flush=True)
    times = growth.measure()
    sections["growth"] = report.growth_table(times, growth.fit(times))
    print("inner loops", file=sys.stderr, flush=True)
    sections["inner loops"] = inner_loops()
    sections["timings"] = report.timing_table(
        timings(workloads(folder, os.path.abspath("examples/data/co2.csv")), deadline - 15))
    sections["tables"] = table_section(folder, deadline - 15)
    if options.document:
        growth.write(times, PICTURES + "/growth.csv")
        quality.write_peers(folder, PICTURES)
        report.replace_in_document(DOCUMENT, sections)
        subprocess.run(["docs/make-pictures", "performance"], check=True,
                       env={**os.environ, "KURV_BUILD": "build/bench"})
    return "\n\n".join(sections.values())


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--seconds", type=float, default=540, help="what there is for everything")
    parser.add_argument("--document", action="store_true", help="put the results into " + DOCUMENT)
    parser.add_argument("--tables", action="store_true", help="only the rows about reading tables")
    options = parser.parse_args()
    for name in ("QT_SCALE_FACTOR", "QT_FONT_DPI"):
        os.environ.pop(name, None)
    # On SIGTERM, too, the temporary files have to be removed.
    signal.signal(signal.SIGTERM, lambda *_: sys.exit(1))
    # In memory, so that no disk is measured.
    with tempfile.TemporaryDirectory(dir="/dev/shm") as folder:
        os.environ["XDG_RUNTIME_DIR"] = folder
        results = (run_tables if options.tables else run)(options, folder)
    with open(RESULTS, "w", encoding="utf-8") as file:
        file.write(results + "\n")
    print(results)


if __name__ == "__main__":
    main()
