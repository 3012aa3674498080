#!/usr/bin/python3
"""What the refresh reads, read by psutil: prints the processor time of one round in microseconds.

The interpreter and the imports are not counted, nor the making of texts and pictures. What the refresh reads
every ten seconds is read in every tenth round; the pressures, which psutil does not know, are read as they are."""

import sys
import time

import psutil

PRESSURES = [f'/proc/pressure/{name}' for name in ('cpu', 'memory', 'io')]


def refresh():
    psutil.cpu_times_percent(interval=None, percpu=True)
    psutil.cpu_freq(percpu=True)
    psutil.virtual_memory()
    psutil.swap_memory()
    psutil.net_io_counters(pernic=True)
    psutil.disk_io_counters(perdisk=True)
    psutil.sensors_temperatures()
    psutil.sensors_fans()
    psutil.boot_time()
    psutil.getloadavg()
    read_pressures()
    for partition in psutil.disk_partitions():
        psutil.disk_usage(partition.mountpoint)


def read_pressures():
    for path in PRESSURES:
        try:
            with open(path, encoding='ascii') as pressure:
                float(pressure.readline().split()[1].removeprefix('avg10='))
        except OSError:
            pass


def refresh_rarely():
    psutil.pids()
    psutil.users()
    psutil.net_if_stats()
    psutil.sensors_battery()


def run(rounds):
    for number in range(rounds):
        refresh()
        if number % 10 == 0:
            refresh_rarely()


def main():
    rounds = int(sys.argv[1]) if len(sys.argv) > 1 else 300
    run(10)
    start = time.process_time()
    run(rounds)
    print((time.process_time() - start) / rounds * 1e6)


main()
