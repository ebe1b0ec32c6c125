"""Runs clang-tidy over the sources given, those aside that were found clean with the same content: run_tidy.py FILE..."""

import concurrent.futures
import hashlib
import json
import os
import pathlib
import subprocess
import sys
import time

ROOT = pathlib.Path.cwd()
BUILD = ROOT / "build" / "dev"
CACHE = pathlib.Path(os.environ.get("XDG_CACHE_HOME") or pathlib.Path.home() / ".cache") / "commonui-tidy"
KEPT_DAYS = 30
# The two warnings are not GCC's, whose judgement of the code counts.
TIDY = ["clang-tidy-16", "-p", str(BUILD), "--quiet",
        "--extra-arg=-Wno-unknown-warning-option", "--extra-arg=-Wno-nested-anon-types"]


def output_of(*command):
    return subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, check=False).stdout


def read_commands():
    """The compile command of each source, without the place of the checkout."""
    entries = json.loads((BUILD / "compile_commands.json").read_text())
    return {entry["file"]: entry["command"].replace(str(ROOT), "") for entry in entries}


def read_dependencies(sources):
    """All files that each source includes, directly or not, by the source; sources that cannot be scanned are left out."""
    database = BUILD / "tidy_commands.json"
    wanted = set(sources)
    entries = json.loads((BUILD / "compile_commands.json").read_text())
    database.write_text(json.dumps([entry for entry in entries if entry["file"] in wanted]))
    rules = output_of("clang-scan-deps-16", "-compilation-database", str(database), "-j", str(os.cpu_count()))
    found = {}
    for rule in rules.decode().replace("\\\n", " ").splitlines():
        files = rule.partition(": ")[2].split()
        if files:
            found[files[0]] = files
    return found


class Hashes:
    """The hash of each file's content, in which the place of the checkout does not count."""

    def __init__(self):
        self.known = {}

    def of(self, name):
        if name not in self.known:
            content = pathlib.Path(name).read_bytes().replace(os.fsencode(ROOT), b"")
            self.known[name] = hashlib.sha256(content).hexdigest()
        return self.known[name]


def make_keys(sources):
    """For each source a text that changes with everything that clang-tidy's findings depend on."""
    tool = output_of("clang-tidy-16", "--version") + (ROOT / ".clang-tidy").read_bytes() + "\0".join(TIDY[3:]).encode()
    commands = read_commands()
    dependencies = read_dependencies(sources)
    hashes = Hashes()
    keys = {}
    for source in sources:
        if source not in commands or source not in dependencies:
            continue
        parts = [hashlib.sha256(tool).hexdigest(), commands[source]]
        for name in sorted(set(map(os.path.normpath, dependencies[source]))):
            parts += [name.replace(str(ROOT), ""), hashes.of(name)]
        keys[source] = hashlib.sha256("\0".join(parts).encode()).hexdigest()
    return keys


def forget_old():
    for entry in CACHE.iterdir():
        if entry.stat().st_mtime < time.time() - KEPT_DAYS * 86400:
            entry.unlink(missing_ok=True)


def check(source):
    run = subprocess.run(TIDY + [source], stdout=subprocess.PIPE, stderr=subprocess.STDOUT, check=False)
    text = "".join(line for line in run.stdout.decode(errors="replace").splitlines(True)
                   if not line.rstrip().endswith("warnings generated."))
    return run.returncode == 0, text


def main():
    sources = [str(ROOT / name) for name in sys.argv[1:]]
    CACHE.mkdir(parents=True, exist_ok=True)
    forget_old()
    keys = make_keys(sources)
    todo = []
    for source in sources:
        if source in keys and (CACHE / keys[source]).exists():
            (CACHE / keys[source]).touch()
        else:
            todo.append(source)
    clean = True
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        for source, (passed, text) in zip(todo, pool.map(check, todo)):
            sys.stdout.write(text)
            sys.stdout.flush()
            if passed and source in keys:
                (CACHE / keys[source]).touch()
            clean &= passed
    print(f"{len(sources)} files: {len(sources) - len(todo)} known to be clean, {len(todo)} checked")
    return 0 if clean else 1


sys.exit(main())
