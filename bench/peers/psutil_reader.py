#!/usr/bin/python3
"""What the refresh reads, read by psutil: prints the processor time of one round in microseconds.

The interpreter and the imports are not counted, nor the making of texts and pictures."""

import sys
import time

import psutil


def refresh():
    psutil.cpu_percent(interval=None)
    psutil.cpu_freq(percpu=True)
    psutil.virtual_memory()
    psutil.net_io_counters(pernic=True)
    psutil.sensors_temperatures()
    psutil.sensors_fans()
    for partition in psutil.disk_partitions():
        psutil.disk_usage(partition.mountpoint)


def main():
    rounds = int(sys.argv[1]) if len(sys.argv) > 1 else 300
    for _ in range(10):
        refresh()
    start = time.process_time()
    for _ in range(rounds):
        refresh()
    print((time.process_time() - start) / rounds * 1e6)


main()
