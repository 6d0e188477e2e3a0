#!/usr/bin/env python3
"""Makes single changes in the code and reports the changes that the tests do not detect.

    tests/mutation.py [--sample N] [--seed S] [--skip N] [--jobs J] [FOLDER_OR_FILE...]

A change flips a comparison, a logical operator or a truth value, increments a constant, or replaces a
result code. Changes that do not compile do not count. Without --sample all changes are tried, which takes
days. The seed determines the sample, so that it can be repeated; --skip leaves out the first changes of
the sample, to go on with an interrupted run. Runs the tests of CTest that take less than a minute, each
program as a whole, except those of NOT_RUN.
"""
import argparse
import collections
import concurrent.futures
import json
import os
import pathlib
import queue
import random
import re
import resource
import shutil
import subprocess
import sys
import threading
import time

ROOT = pathlib.Path(__file__).resolve().parent.parent
WORK = ROOT / "build" / "mutation"
FOLDERS = ["src", "tools"]

# Tests of what is installed and documented build other projects; no change of the code concerns them.
NOT_RUN = re.compile(r"^(abi|bench|docs|install|packages)\.")
LONGEST_TEST = 60 # seconds
MOST_MEMORY = 4 << 30 # octets; a change may allocate without end

NOT_CODE = re.compile(r'//[^\n]*|/\*.*?\*/|"(?:\\.|[^"\\\n])*"|\'(?:\\.|[^\'\\\n])*\'|^#[^\n]*',
                      re.S | re.M)
SWAPS = [(" < ", " <= "), (" <= ", " < "), (" > ", " >= "), (" >= ", " > "), (" == ", " != "),
         (" != ", " == "), (" && ", " || "), (" || ", " && "), ("true", "false"),
         ("false", "true"), (" + ", " - "), (" - ", " + ")]
SWAP = re.compile("|".join(re.escape(old) if old.startswith(" ") else rf"\b{old}\b"
                           for old, _ in SWAPS))
NUMBER = re.compile(r"(?<![\w.'])(0x[0-9A-Fa-f]+|\d+)(?![\w.'])")
CODE = re.compile(r"\b(WireResult|MultipartResult|SmilResult)::(\w+)(?!\()\b")
ENUMERATORS = {"WireResult": ["Read", "OutOfData", "Written", "CannotWrite", "BadArgument"],
               "MultipartResult": ["Ok", "OutOfMemory", "RemovalRefused"],
               "SmilResult": ["Ok", "NotInMessage", "NotWellFormed"]}


def changes_in(path):
    """Yields (offset, old text, new text) for every change of a file."""
    text = path.read_text()
    code = NOT_CODE.sub(lambda match: re.sub(r"[^\n]", " ", match.group()), text)
    for match in SWAP.finditer(code):
        yield match.start(), match.group(), dict(SWAPS)[match.group()]
    for match in NUMBER.finditer(code):
        octal = re.fullmatch(r"0[0-7]+", match.group())
        yield match.start(), match.group(), str(int(match.group(), 8 if octal else 0) + 1)
    for match in CODE.finditer(code):
        names = ENUMERATORS[match.group(1)]
        if match.group(2) in names:
            other = names[(names.index(match.group(2)) + 1) % len(names)]
            yield match.start(), match.group(), f"{match.group(1)}::{other}"


def all_changes(places):
    for place in places:
        path = ROOT / place
        for file in sorted(path.rglob("*.cpp")) if path.is_dir() else [path]:
            for change in changes_in(file):
                yield file.relative_to(ROOT), *change


def limit_memory():
    resource.setrlimit(resource.RLIMIT_AS, (MOST_MEMORY, resource.RLIM_INFINITY))


class Tests:
    """The test commands of a build. Those that detect changes of a file come first for that file."""

    def __init__(self):
        self.seconds = {}
        self.detected = collections.defaultdict(collections.Counter)
        self.lock = threading.Lock()

    def order(self, file):
        with self.lock:
            near, far = self.detected[file], self.detected[file.parent]
            return sorted(self.seconds, key=lambda name: (-near[name], -far[name], self.seconds[name]))

    def count(self, file, name):
        with self.lock:
            self.detected[file][name] += 1
            self.detected[file.parent][name] += 1


class Workshop:
    """A copy of the tree, built once, in which changes are tried one after the other."""

    def __init__(self, number, tests):
        self.tree = WORK / f"tree-{number}"
        self.build = WORK / f"build-{number}"
        self.tests = tests
        self.commands = {}

    def prepare(self):
        shutil.rmtree(self.tree, ignore_errors=True)
        shutil.copytree(ROOT, self.tree, ignore=shutil.ignore_patterns("build", ".git"))
        self.run(["cmake", "-S", self.tree, "-B", self.build, "-G", "Ninja",
                  "-DCMAKE_CXX_COMPILER=clang++", "-DCMAKE_BUILD_TYPE=Debug",
                  "-DCMAKE_CXX_FLAGS_DEBUG=-O0", "-DCMAKE_LINK_DEPENDS_NO_SHARED=ON",
                  f"-DQVL_CORPUS={ROOT.parent / 'shared' / 'corpus'}"]).check_returncode()
        self.run(["cmake", "--build", self.build], 3600).check_returncode()
        self.commands = self.all_commands()
        if not self.tests.seconds:
            self.measure()

    def all_commands(self):
        """The commands of CTest by name; one for all tests of a GoogleTest program."""
        listed = subprocess.run(["ctest", "--test-dir", self.build, "--show-only=json-v1"],
                                stdout=subprocess.PIPE, check=True).stdout
        commands = {}
        for test in json.loads(listed)["tests"]:
            command = test["command"]
            properties = {item["name"]: item["value"] for item in test["properties"]}
            if NOT_RUN.match(test["name"]):
                continue
            if any(word.startswith("--gtest_filter") for word in command):
                command = [command[0], "--gtest_fail_fast", "--gtest_brief=1"]
                test["name"] = pathlib.Path(command[0]).name
            commands[test["name"]] = (command, properties)
        return commands

    def measure(self):
        for name in self.commands:
            start = time.monotonic()
            if not self.passes(name, 600):
                sys.exit(f"{name} fails without any change")
            taken = time.monotonic() - start
            if taken < LONGEST_TEST:
                self.tests.seconds[name] = taken
            else:
                print(f"not run, because it takes {taken:.0f} s: {name}", flush=True)

    def run(self, command, limit=600, **options):
        options.setdefault("cwd", self.tree)
        return subprocess.run(command, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                              stderr=subprocess.STDOUT, timeout=limit, check=False, **options)

    def passes(self, name, limit):
        command, properties = self.commands[name]
        environment = dict(os.environ, QT_QPA_PLATFORM="offscreen")
        environment.update(item.split("=", 1) for item in properties.get("ENVIRONMENT", []))
        try:
            code = self.run(command, limit, cwd=properties["WORKING_DIRECTORY"], env=environment,
                            preexec_fn=limit_memory).returncode
        except subprocess.TimeoutExpired:
            return False
        return code in (0, properties.get("SKIP_RETURN_CODE", 0))

    def detects(self, file):
        for name in self.tests.order(file):
            if not self.passes(name, 20 + 10 * self.tests.seconds[name]):
                self.tests.count(file, name)
                return True
        return False

    def verdict(self, file, offset, old, new):
        path = self.tree / file
        text = path.read_text()
        path.write_text(text[:offset] + new + text[offset + len(old):])
        try:
            if self.run(["cmake", "--build", self.build]).returncode:
                return "invalid"
            return "killed" if self.detects(file) else "survived"
        finally:
            path.write_text(text)


def place_of(file, offset, old, new):
    text = (ROOT / file).read_text()
    line = text.count("\n", 0, offset) + 1
    return f"{file}:{line}: {old.strip()} -> {new.strip()}    {text.splitlines()[line - 1].strip()}"


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--sample", type=int, help="number of changes to try")
    parser.add_argument("--seed", type=int, default=1)
    parser.add_argument("--skip", type=int, default=0, help="number of changes to leave out")
    parser.add_argument("--jobs", type=int, default=2)
    parser.add_argument("places", nargs="*", default=FOLDERS)
    arguments = parser.parse_args()

    changes = list(all_changes(arguments.places))
    total = len(changes)
    if arguments.sample and arguments.sample < total:
        changes = random.Random(arguments.seed).sample(changes, arguments.sample)
    changes = changes[arguments.skip:]
    print(f"trying {len(changes)} of {total} changes", flush=True)

    tests = Tests()
    workshops = queue.Queue()
    for number in range(arguments.jobs):
        workshop = Workshop(number, tests)
        workshop.prepare()
        workshops.put(workshop)

    def try_one(change):
        workshop = workshops.get()
        try:
            return change, workshop.verdict(*change)
        finally:
            workshops.put(workshop)

    count = {"killed": 0, "survived": 0, "invalid": 0}
    with concurrent.futures.ThreadPoolExecutor(arguments.jobs) as pool:
        for number, (change, verdict) in enumerate(pool.map(try_one, changes), arguments.skip + 1):
            count[verdict] += 1
            print(f"{number} {verdict}: {place_of(*change)}", flush=True)
    valid = count["killed"] + count["survived"]
    print(f"{count['killed']} of {valid} detected, {count['invalid']} did not compile")
    return count["survived"] > 0


if __name__ == "__main__":
    sys.exit(main())
