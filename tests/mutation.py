#!/usr/bin/env python3
"""Makes single changes in the library and reports the changes that the tests do not detect.

    tests/mutation.py [--sample N] [--seed S] [--jobs J] [FOLDER_OR_FILE...]

A change flips a comparison, a logical operator or a truth value, increments a constant, or replaces a
result code. Changes that do not compile do not count. Without --sample all changes are tried, which takes
hours. The seed determines the sample, so that it can be repeated.
"""
import argparse
import concurrent.futures
import pathlib
import queue
import random
import re
import shutil
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
WORK = ROOT / "build" / "mutation"
FOLDERS = ["src/wire", "src/multipart", "src/presentation", "src/smil"]

# The test programs. FIRST has the one for each folder that detects the most changes.
PROGRAMS = ["wire", "date_time", "multipart", "media_probing", "presentation", "slide_duration",
            "smil", "mixed", "documents", "corpus", "corpus_smil", "media_probing_gui", "no_memory"]
FIRST = {"wire": "wire", "multipart": "multipart", "presentation": "presentation", "smil": "smil"}

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
        yield match.start(), match.group(), str(int(match.group(), 0) + 1)
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


class Workshop:
    """A copy of the tree, built once, in which changes are tried one after the other."""

    def __init__(self, number):
        self.tree = WORK / f"tree-{number}"
        self.build = WORK / f"build-{number}"

    def prepare(self):
        shutil.rmtree(self.tree, ignore_errors=True)
        shutil.copytree(ROOT, self.tree, ignore=shutil.ignore_patterns("build", ".git"))
        self.run(["cmake", "-S", self.tree, "-B", self.build, "-G", "Ninja",
                  "-DCMAKE_CXX_COMPILER=clang++", "-DCMAKE_BUILD_TYPE=Debug",
                  "-DCMAKE_CXX_FLAGS_DEBUG=-O0", "-DCMAKE_LINK_DEPENDS_NO_SHARED=ON",
                  "-DQVL_BUILD_EXAMPLES=OFF",
                  f"-DQVL_CORPUS={ROOT.parent / 'shared' / 'corpus'}"]).check_returncode()
        self.run(["cmake", "--build", self.build, "--target", *PROGRAMS]).check_returncode()
        for program in PROGRAMS:
            if not self.passes(program):
                sys.exit(f"{program} fails without any change")

    def run(self, command, limit=600):
        return subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, timeout=limit,
                              cwd=self.tree, check=False)

    def passes(self, program):
        try:
            return self.run([self.build / "tests" / program, "--gtest_fail_fast",
                             "--gtest_brief=1"], 60).returncode == 0
        except subprocess.TimeoutExpired:
            return False

    def verdict(self, file, offset, old, new):
        path = self.tree / file
        text = path.read_text()
        path.write_text(text[:offset] + new + text[offset + len(old):])
        try:
            if self.run(["cmake", "--build", self.build, "--target", *PROGRAMS]).returncode:
                return "invalid"
            first = FIRST.get(file.parts[1])
            order = sorted(PROGRAMS, key=lambda program: program != first)
            return "survived" if all(self.passes(program) for program in order) else "killed"
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
    parser.add_argument("--jobs", type=int, default=2)
    parser.add_argument("places", nargs="*", default=FOLDERS)
    arguments = parser.parse_args()

    changes = list(all_changes(arguments.places))
    total = len(changes)
    if arguments.sample and arguments.sample < total:
        changes = random.Random(arguments.seed).sample(changes, arguments.sample)
    print(f"trying {len(changes)} of {total} changes", flush=True)

    workshops = queue.Queue()
    for number in range(arguments.jobs):
        workshop = Workshop(number)
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
        for change, verdict in pool.map(try_one, changes):
            count[verdict] += 1
            if verdict == "survived":
                print("survived:", place_of(*change), flush=True)
    valid = count["killed"] + count["survived"]
    print(f"{count['killed']} of {valid} detected, {count['invalid']} did not compile")
    return count["survived"] > 0


if __name__ == "__main__":
    sys.exit(main())
