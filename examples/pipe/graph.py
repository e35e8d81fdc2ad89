#!/usr/bin/env python3
"""From numbers to a picture and a graph file, through kurv on a pipe."""
import json, math, subprocess, sys

kurv = subprocess.Popen([sys.argv[1] if len(sys.argv) > 1 else "kurv", "host"],
                        stdin=subprocess.PIPE, stdout=subprocess.PIPE, text=True)

def ask(**request):
    print(json.dumps(request), file=kurv.stdin, flush=True)
    answer = json.loads(kurv.stdout.readline())
    if not answer["ok"]:
        raise RuntimeError(answer["error"]["text"])
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
