#!/usr/bin/env python3
"""From numbers to a picture and a graph file, through kurv on a pipe."""
import json, math, os, pathlib, shutil, subprocess, sys

def find_kurv():
    """The argument, the variable KURV, an installed kurv, or one that was built in this tree."""
    for named in (*sys.argv[1:2], os.environ.get("KURV")):
        if named:
            return named
    tree = pathlib.Path(__file__).resolve().parents[2]
    built = sorted(tree.glob("build/*/app/kurv"), key=os.path.getmtime)
    return shutil.which("kurv") or (built and str(built[-1])) or sys.exit(
        "graph.py: kurv was not found; install it, build it with ./run, or set KURV to its path.")

kurv = subprocess.Popen([find_kurv(), "host"],
                        stdin=subprocess.PIPE, stdout=subprocess.PIPE, text=True)

def ask(**request):
    print(json.dumps(request), file=kurv.stdin, flush=True)
    answer = json.loads(kurv.stdout.readline())
    if not answer["ok"]:
        error = answer["error"]
        raise RuntimeError(": ".join(filter(None, (error["text"], error.get("detail")))))
    return answer.get("result")

x = [i / 10 for i in range(100)]
ask(call="scatter_graph", args=[[[math.sin(v) for v in x], [math.cos(v) for v in x]], x, len(x), 2,
                                "Two waves", "time", ["sine", "cosine"], 0, [], True])
ask(set="X_grid", to=True)
ask(call="ChartOptions", args=["refresh"])
ask(picture="waves.png")
ask(answers=[{"path": "waves.gdf", "filter": 1}])
ask(call="Save_graph")
print("drawn from", ask(get="xmin"), "to", ask(get="xmax"))
