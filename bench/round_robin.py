#!/usr/bin/python3
"""Runs all sides in turns, prints medians and ratios against the goals and draws the plot."""

import argparse
import json
import os
import statistics
import subprocess
import tempfile

from speed_plot import write_plot

HERE = os.path.dirname(os.path.abspath(__file__))


def output_of(command, folder, **variables):
    return subprocess.run(command, cwd=folder, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL,
                          check=True, text=True, env={**os.environ, **variables}).stdout


class Sides:
    """Each method runs one side once and gives its figures by name."""

    def __init__(self, build, seconds, folder):
        self.build = os.path.abspath(build)
        self.seconds = seconds
        # The plugin writes a log into its working folder.
        self.folder = folder

    def program(self, name):
        return os.path.join(self.build, 'bin', name)

    def google_benchmark(self, name, pattern):
        text = output_of([self.program(name), f'--benchmark_filter={pattern}',
                          '--benchmark_format=json', '--benchmark_min_time=0.3'], self.folder)
        return {run['name']: run for run in json.loads(text)['benchmarks']}

    def meter(self, keys, command, options=(), **variables):
        lines = output_of([self.program('plugin_meter'), '--keys', str(keys), '--seconds',
                           str(self.seconds), *options, '--'] + command, self.folder, **variables)
        return json.loads(lines.splitlines()[-1])

    def passes(self):
        runs = self.google_benchmark('bench_pass', '^pass/(plain/)?(32|1000)$')
        return {
            'pass32': runs['pass/32']['cpu_time'],
            'pass1000': runs['pass/1000']['cpu_time'],
            'plain32': runs['pass/plain/32']['cpu_time'],
            'bytes': runs['pass/32']['bytes_per_key'],
            'plain_bytes': runs['pass/plain/32']['bytes_per_key'],
        }

    def refresh(self):
        return {'refresh': self.google_benchmark('bench_refresh', '^refresh$')['refresh']['cpu_time']}

    def psutil(self):
        return {'psutil': float(output_of([os.path.join(HERE, 'peers', 'psutil_reader.py')],
                                          self.folder))}

    def plugin(self):
        run = self.meter(32, [self.program('QtSystemMonitor')])
        return {'cpu': run['cpuMsPerSecond'], 'memory': run['residentKiB'],
                'own_memory': run['anonymousKiB'], 'registered': run['registeredMs'],
                'first_picture': run['firstPictureMs']}

    def plugin1000(self):
        run = self.meter(1000, [self.program('QtSystemMonitor')])
        return {'cpu1000': run['cpuMsPerSecond']}

    def node_command(self):
        return ['node', os.path.join(self.build, 'peers', 'node', 'plugin.mjs')]

    def sparing_node(self):
        run = self.meter(32, self.node_command(), PEER_SPARING='1')
        return {'sparing_node_cpu': run['cpuMsPerSecond']}

    def node(self):
        run = self.meter(32, self.node_command())
        return {'node_cpu': run['cpuMsPerSecond'], 'node_memory': run['residentKiB'],
                'node_own_memory': run['anonymousKiB'], 'node_registered': run['registeredMs'],
                'node_first_picture': run['firstPictureMs']}


def measure(sides, rounds):
    figures = {}
    for number in range(rounds):
        print(f'Round {number + 1} of {rounds}', flush=True)
        for side in (sides.passes, sides.plugin, sides.node, sides.sparing_node, sides.refresh,
                     sides.psutil, sides.plugin1000):
            for name, value in side().items():
                figures.setdefault(name, []).append(value)
    return figures


def goals(figures):
    """Name, figure of this plugin, figure of the other side, unit, largest ratio."""
    middle = {name: statistics.median(values) for name, values in figures.items()}
    # The values of one round, because the machine may be slower in one round than in another.
    ratio = {
        'pass': statistics.median(a / b for a, b in zip(figures['pass32'], figures['plain32'])),
        'node': statistics.median(a / b for a, b in zip(figures['cpu'], figures['node_cpu'])),
        'second': statistics.median(a / (b / 1000) for a, b in
                                    zip(figures['cpu'], figures['pass32'])),
        'psutil': statistics.median(a / b for a, b in zip(figures['refresh'], figures['psutil'])),
        'scale': statistics.median(a / 1000 / (b / 32) for a, b in
                                   zip(figures['pass1000'], figures['pass32'])),
    }
    return [
        ('Pass over 32 keys beside plain Qt', middle['pass32'], middle['plain32'], 'µs', ratio['pass'], 1 / 8),
        ('Processor time a second beside Node', middle['cpu'], middle['node_cpu'], 'ms', ratio['node'],
         1 / 40),
        ('A second beside the pass of the loop', middle['cpu'], middle['pass32'] / 1000, 'ms',
         ratio['second'], 1.6),
        ('Refresh beside psutil', middle['refresh'], middle['psutil'], 'µs', ratio['psutil'], 1 / 6),
        ('Resident memory beside Node', middle['memory'] / 1024, middle['node_memory'] / 1024, 'MiB',
         middle['memory'] / middle['node_memory'], 1 / 3),
        ('Bytes per key beside plain Qt', middle['bytes'], middle['plain_bytes'], 'B',
         middle['bytes'] / middle['plain_bytes'], 0.7),
        ('A key of 1000 beside one of 32', middle['pass1000'] / 1000, middle['pass32'] / 32, 'µs',
         ratio['scale'], 1.15),
        ('1000 keys beside one whole core', middle['cpu1000'], 1000, 'ms', middle['cpu1000'] / 1000,
         0.25),
    ]


def fraction(ratio):
    return f'1/{1 / ratio:.1f}' if ratio < 0.5 else f'{ratio:.2f}'


def print_table(rows, figures):
    print(f'{"":36} {"plugin":>10} {"other":>10}      ratio    goal')
    for name, own, other, unit, ratio, goal in rows:
        verdict = 'met' if ratio <= goal else 'missed'
        print(f'{name:36} {own:10.1f} {other:10.1f} {unit:4} {fraction(ratio):>6} {fraction(goal):>7}'
              f'  {verdict}')
    sparing = statistics.median(a / b for a, b in zip(figures['cpu'], figures['sparing_node_cpu']))
    print(f'\nBeside a Node plugin without graphics and drives: {fraction(sparing)}')
    for name, text in (('registered', 'Registration after the start, ms'),
                       ('first_picture', 'First picture after the start, ms'),
                       ('own_memory', 'Memory of its own, KiB')):
        print(f'{text:36} {statistics.median(figures[name]):10.0f} '
              f'{statistics.median(figures["node_" + name]):10.0f} (Node)')


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument('build', help='folder of the build')
    parser.add_argument('plot', help='SVG file to write')
    parser.add_argument('--rounds', type=int, default=5)
    parser.add_argument('--seconds', type=int, default=10, help='to watch each plugin in a round')
    arguments = parser.parse_args()
    with tempfile.TemporaryDirectory() as folder:
        figures = measure(Sides(arguments.build, arguments.seconds, folder), arguments.rounds)
    with open(os.path.join(arguments.build, 'figures.json'), 'w', encoding='utf-8') as file:
        json.dump(figures, file, indent=1)
    rows = goals(figures)
    print_table(rows, figures)
    write_plot(arguments.plot, rows)


if __name__ == '__main__':
    main()
