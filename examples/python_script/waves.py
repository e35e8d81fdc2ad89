"""Draws two noisy waves from NumPy arrays into a picture:  waves.py [PICTURE.png]"""

import sys

import numpy

import kurvgraph

time = numpy.linspace(0, 10, 300)
noise = numpy.random.default_rng(1).normal(0, 0.1, (2, time.size))
waves = numpy.array([numpy.sin(time), 0.5 * numpy.cos(2 * time)]) + noise

with kurvgraph.KurvGraph(size=(720, 480), ratio=2) as graph:
    graph.plot(time, waves, names=["first", "second"], x_name="time [s]", title="Waves",
               functions=["sin(x)"])
    graph.X_grid = True
    graph.build_the_graph()
    graph.save(sys.argv[1] if len(sys.argv) > 1 else "waves.png")
