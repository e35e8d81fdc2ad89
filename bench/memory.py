"""How much memory the largest graph adds to a window of kurv."""

import os
import subprocess
import time

KURV = "build/bench/app/kurv"
ONE_COPY = 150 * 32767 * 8


def status(process, name):
    with open(f"/proc/{process.pid}/status", encoding="ascii") as file:
        for line in file:
            if line.startswith(name + ":"):
                return int(line.split()[1]) * 1024
    raise RuntimeError(f"kurv ended with {process.poll()}")


def processor_ticks(process):
    with open(f"/proc/{process.pid}/stat", encoding="ascii") as file:
        return sum(int(field) for field in file.read().rsplit(")", 1)[1].split()[11:13])


def memory_of(graph):
    """Current and peak memory in bytes, once the window is idle."""
    environment = dict(os.environ, QT_QPA_PLATFORM="offscreen")
    process = subprocess.Popen([KURV, graph], env=environment, stderr=subprocess.DEVNULL)
    try:
        ticks = -1
        while True:
            time.sleep(1)
            last, ticks = ticks, processor_ticks(process)
            if ticks == last:
                return status(process, "VmRSS"), status(process, "VmHWM")
    finally:
        process.terminate()
        process.wait()


def rows(folder, write_graph):
    """The rows of the table: added memory, in copies of the data."""
    write_graph(folder + "/empty.gdf", "waves", 1, 2)
    empty = memory_of(folder + "/empty.gdf")
    result = []
    for title, kind, goal in [("x ascends", "waves", 1.5), ("x does not", "shuffled", 2.5)]:
        graph = f"{folder}/{kind}.gdf"
        write_graph(graph, kind, 149, 32767)
        full = memory_of(graph)
        for what, now, before in [("at rest", full[0], empty[0]), ("at its most", full[1], empty[1])]:
            added = (now - before) / ONE_COPY
            is_goal = what == "at rest"
            result.append({
                "key": "J", "title": "memory added, " + title, "subject": what,
                "value": f"{(now - before) / 1e6:.0f} MB", "ratio": f"{added:.2f} copies",
                "goal": f"at most {goal:g} copies" if is_goal else "",
                "met": added <= goal if is_goal else None})
    return result
