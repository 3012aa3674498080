#!/usr/bin/python3
"""Compares the plugin's second with the loop, the loop with a pause, and the refresh."""

import argparse
import os
import statistics
import tempfile

from round_robin import Sides

STYLES = ('text', 'bar', 'ring', 'graph')


def loop_name(style):
    return 'pass/32' if style == 'text' else f'pass/{style}/32'


def measure(sides, style):
    """Milliseconds of processor time for each pass, and the counters of the process."""
    loop = sides.google_benchmark('bench_pass', f'^{loop_name(style)}$')
    paced = sides.google_benchmark('bench_pass', f'^paced/{style}/32/')
    refresh = sides.refresh()['refresh']
    options = () if style == 'text' else ('--style', style)
    run = sides.meter(32, [sides.program('QtSystemMonitor')], options)
    return {'loop': loop[loop_name(style)]['cpu_time'] / 1000,
            'paced': next(iter(paced.values()))['real_time'] / 1000,
            'refresh': refresh / 1000, **run}


def print_style(style, rounds):
    middle = {name: statistics.median(each[name] for each in rounds) for name in rounds[0]}
    ratio = statistics.median(each['cpuMsPerSecond'] / each['loop'] for each in rounds)
    rest = middle['cpuMsPerSecond'] - middle['paced'] - middle['refresh']
    print(f"{style:6} {middle['cpuMsPerSecond']:6.2f} ms a second, {ratio:.1f} times the loop:"
          f" {middle['loop']:.2f} loop + {middle['paced'] - middle['loop']:.2f} pause"
          f" + {middle['refresh']:.2f} refresh + {rest:.2f} rest;"
          f" {middle['wakeUpsPerSecond']:.1f} wake-ups, {middle['writesPerSecond']:.0f} writes,"
          f" {middle['readsPerSecond']:.0f} reads, {middle['pageFaultsPerSecond']:.1f} page faults;"
          f" {middle['residentKiB'] / 1024:.1f} MiB", flush=True)


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument('build', help='folder of the build')
    parser.add_argument('--rounds', type=int, default=3)
    parser.add_argument('--seconds', type=int, default=60, help='to watch the plugin in a round')
    parser.add_argument('--styles', nargs='+', choices=STYLES, default=STYLES)
    arguments = parser.parse_args()
    with tempfile.TemporaryDirectory() as folder:
        sides = Sides(os.path.abspath(arguments.build), arguments.seconds, folder)
        for style in arguments.styles:
            print_style(style, [measure(sides, style) for _ in range(arguments.rounds)])


if __name__ == '__main__':
    main()
