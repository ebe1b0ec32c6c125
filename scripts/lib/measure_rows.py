"""Runs the benchmarks that bench/rows names and writes what they show into docs/speed.md; see scripts/bench.

A round runs every benchmark of a program once, in an order of its own, so that a busy moment of the machine falls
on both sides of a ratio. A ratio is the median of those of the rounds, its range their least and greatest.
"""
import argparse
import glob
import json
import os
import re
import statistics
import subprocess
import sys

ROWS = 'bench/rows'
PAGE = 'docs/speed.md'
BEGIN, END = '<!-- scripts/bench writes what follows -->', '<!-- scripts/bench wrote what precedes -->'
NOTE = ('Each ratio is the median of the rounds with the least and the greatest; the load is that of the machine at the end '
        'of the run.')
UNITS = {'ns': 1, 'us': 1e3, 'ms': 1e6, 's': 1e9}


def read_rows():
    """Each row: program, work, ours, the peer's name and benchmark, the limit's name and benchmark."""
    with open(ROWS, encoding='utf-8') as file:
        lines = [line.strip() for line in file]
    rows = [[cell.strip() for cell in line.split('|')] for line in lines if line and line[0] != '#']
    for row in rows:
        if len(row) != 7:
            sys.exit(f'{ROWS}: a row has 7 cells: {" | ".join(row)}')
    return rows


def run_once(program, names):
    """The time of each benchmark in nanoseconds."""
    pattern = '^(' + '|'.join(re.sub(r'([.+*?()\[\]{}|^$])', r'\\\1', name) for name in names) + ')$'
    # One that has moved has left its old program behind.
    path = max(glob.glob(f'build/bench/bench/**/{program}Bench', recursive=True), key=os.path.getmtime)
    command = [path, f'--benchmark_filter={pattern}', '--benchmark_format=json',
               '--benchmark_enable_random_interleaving=true', '--benchmark_min_time=0.1']
    result = subprocess.run(command, check=True, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)
    times = {}
    for run in json.loads(result.stdout)['benchmarks']:
        times[run['name']] = run['cpu_time'] * UNITS[run['time_unit']]
    missing = set(names) - set(times)
    if missing:
        sys.exit(f'{program}Bench has no benchmark {", ".join(sorted(missing))}')
    return times


def digits(value):
    return f'{value:.3g}' if value < 1000 else f'{value:.0f}'


def as_time(nanoseconds):
    for unit in ('ns', 'µs', 'ms'):
        if nanoseconds < 1000:
            return f'{digits(nanoseconds)} {unit}'
        nanoseconds /= 1000
    return f'{digits(nanoseconds)} s'


def as_ratio(rounds, ours, other):
    ratios = sorted(times[ours] / times[other] for times in rounds)
    return f'{digits(statistics.median(ratios))} ({digits(ratios[0])} to {digits(ratios[-1])})'


def beside(rounds, ours, what, other):
    """The cell of a peer or a limit: what it is, its time, and our time as a ratio to it."""
    if not other:
        return ' | '
    time = as_time(statistics.median(times[other] for times in rounds))
    return f'{what}, {time} | {as_ratio(rounds, ours, other)}'


def line_of(row, rounds, load):
    _, work, ours, peer, peer_name, limit, limit_name = row
    time = as_time(statistics.median(times[ours] for times in rounds))
    peers = f'{beside(rounds, ours, peer, peer_name)} | {beside(rounds, ours, limit, limit_name)}'
    return f'| {work} | {time} | {peers} | {len(rounds)} rounds, load {load:.1f} |'


def write_page(measured, rows):
    """Rows that were not measured now keep their figures and what is said of their run."""
    with open(PAGE, encoding='utf-8') as file:
        page = file.read()
    before, rest = page.split(BEGIN)
    old, after = rest.split(END)
    kept = {line.split('|')[1].strip(): line for line in old.splitlines() if line.startswith('| ')}
    table = ['| work | time | beside | ratio | limit | ratio | run |', '|---|---|---|---|---|---|---|']
    for row in rows:
        line = measured.get(row[1], kept.get(row[1]))
        if line:
            table.append(line)
    with open(PAGE, 'w', encoding='utf-8') as file:
        file.write(before + BEGIN + '\n\n' + '\n'.join(table) + '\n\n' + NOTE + '\n\n' + END + after)


def main():
    parser = argparse.ArgumentParser(prog='scripts/bench')
    parser.add_argument('--programs', action='store_true', help='print what has to be built, and stop')
    parser.add_argument('--rounds', type=int, default=7)
    parser.add_argument('names', nargs='*')
    options = parser.parse_args()
    rows = read_rows()
    known = list(dict.fromkeys(row[0] for row in rows))
    names = [name.removesuffix('Bench') for name in options.names] or known
    for name in names:
        if name not in known:
            sys.exit(f'no rows for {name}; there are {", ".join(known)}')
    if options.programs:
        print('\n'.join(name + 'Bench' for name in names))
        return
    of_program = {name: [row for row in rows if row[0] == name] for name in names}
    rounds = {name: [] for name in names}
    for _ in range(options.rounds):
        for name in names:
            wanted = {bench for row in of_program[name] for bench in (row[2], row[4], row[6]) if bench}
            rounds[name].append(run_once(name, sorted(wanted)))
    load = os.getloadavg()[2]
    measured = {row[1]: line_of(row, rounds[name], load) for name in names for row in of_program[name]}
    print('\n'.join(measured.values()))
    write_page(measured, rows)


if __name__ == '__main__':
    main()
