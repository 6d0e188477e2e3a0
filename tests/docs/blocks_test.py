#!/usr/bin/env python3
"""Tests that a document is correct: runs or checks each of its fenced blocks.

    blocks_test.py SOURCE_DIR BUILD_DIR DOCUMENT

The blocks are tested in order, in a folder with copies of the fixtures: messages, SMIL documents,
clips and harbour.jpg. The folder build/demo has the input files of ./demo. qvlmms and the examples are on
the PATH, and the library is installed in DIR.

    console    "$ command" followed by its output; a line "..." means any lines
    cpp        with a main(), a program that is run; otherwise code that is compiled after
               #include <qvlsmilparser.h>
    sh         commands that are run. Commands that build or check the project would take minutes;
               for these, the scripts, options, presets and targets must exist
    json, xml  must be well-formed
    mermaid, text, and blocks without a language are not tested

A block after a line that ends in a file name, such as "`main.cpp`:", is written to that file before the
first block is tested. A command of the document must run such a program. Commands of the document must
render the pictures that it shows, except screenshots, and the targets of its links must exist.
"""
import collections
import difflib
import functools
import json
import os
import pathlib
import re
import shlex
import shutil
import subprocess
import sys
import tempfile
import xml.etree.ElementTree

Block = collections.namedtuple("Block", "line language text name")

COMPILER = ["g++", "-std=c++20", "-fPIC", "-Wall", "-Wextra", "-Wpedantic", "-Wconversion",
            "-Wshadow", "-Werror"]
SCREENSHOTS = ["page.png", "window.png", "window-writing.png"]  # copied by hand
SIMILARITY = 0.97  # of pictures: fonts and their rendering differ slightly between machines


class Problem(Exception):
    """A problem of a block."""


def blocks_of(text):
    """The fenced blocks of a document."""
    begin = None
    before = ""
    for number, line in enumerate(text.splitlines(), 1):
        if begin is None and re.match(r"\s*(```|~~~)", line):
            begin, language, inside = number, line[3:], []
        elif begin is not None and line == "```":
            name = re.search(r"`([\w-]+\.\w+)`:$", before)
            yield Block(begin, language, "".join(inside), name and name[1])
            begin = None
        elif begin is not None:
            inside.append(line + "\n")
        elif line.strip():
            before = line
    if begin is not None:
        yield Block(begin, "that is not closed", "", None)


def commands_of(text):
    """(command, lines printed) of a console block."""
    found = []
    for line in text.splitlines():
        if found and not found[-1][1] and found[-1][0].endswith("\\"):
            found[-1][0] += "\n" + line
        elif line.startswith("$ "):
            found.append([line[2:], []])
        elif found:
            found[-1][1].append(line.rstrip())
        else:
            raise Problem("output before the first command")
    return found


def is_printed(expected, printed):
    pattern = "".join(r"(?:.*\n)*?" if line.strip() == "..." else re.escape(line) + r"\n"
                      for line in expected)
    return re.fullmatch(pattern, "".join(line + "\n" for line in printed)) is not None


class Project:
    """The commands of the project itself."""

    def __init__(self, source):
        self.source = source
        self.presets = json.loads((source / "CMakePresets.json").read_text())
        self.builds = {"build/" + preset["name"] for preset in self.presets["configurePresets"]}

    @functools.cached_property
    def cmake(self):
        files = [path for path in self.source.rglob("CMakeLists.txt")
                 if self.source / "build" not in path.parents]
        return "\n".join(path.read_text() for path in files)

    def has_preset(self, kind, name):
        return any(preset["name"] == name and not preset.get("hidden")
                   for preset in self.presets[kind + "Presets"])

    def has_target(self, name):
        return re.search(rf"(add_executable|add_library|add_custom_target)\({name}\b", self.cmake)

    def owns(self, words):
        """True for commands that build or check the project itself."""
        program = words[0]
        if program in ("cmake", "ctest"):
            return any(word == "--preset" or word.startswith("-DQVL_") or word in self.builds
                       for word in words)
        folder = "/".join(program.split("/")[:2])
        return folder in self.builds or ("/" in program and (self.source / program).is_file())

    def check(self, words):
        program, *arguments = words
        if program in ("cmake", "ctest"):
            self.check_cmake(program, arguments)
        elif not program.startswith("build/"):
            self.check_script(program, arguments)
        elif not self.has_target(program.split("/")[-1]):
            raise Problem(f"nothing builds {program}")

    def check_cmake(self, program, arguments):
        kind = ("test" if program == "ctest" else
                "build" if "--build" in arguments else "configure")
        for before, word in zip([program] + arguments, arguments):
            if before == "--preset" and not self.has_preset(kind, word):
                raise Problem(f"there is no {kind} preset {word}")
            if before == "--target" and not self.has_target(word):
                raise Problem(f"there is no target {word}")
            if before == "-B":
                self.builds.add(word)
            option = re.match(r"-D(QVL_\w+)", word)
            if option and not re.search(rf"(option|set)\({option[1]}\b", self.cmake):
                raise Problem(f"there is no option {option[1]}")

    def check_script(self, program, arguments):
        script = self.source / program
        if not os.access(script, os.X_OK):
            raise Problem(f"{program} is not executable")
        for option in re.findall(r"(?:^| )(--\w[\w-]*)", " ".join(arguments)):
            if option not in script.read_text():
                raise Problem(f"{program} has no option {option}")


class Document:
    def __init__(self, source, build, path, work):
        self.path = path
        self.work = work
        self.project = Project(source)
        self.text = path.read_text()
        self.blocks = list(blocks_of(self.text))
        self.environment = {**os.environ, "TZ": "UTC", "LC_ALL": "C.UTF-8",
                            "QT_QPA_PLATFORM": "offscreen",
                            "PATH": f"{build}/tools:{build}/examples:{os.environ['PATH']}"}
        self.fill_folder(source)
        if any(block.language in ("cpp", "sh") for block in self.blocks):
            self.install(build)

    def fill_folder(self, source):
        fixtures = source / "tests/fixtures"
        for pattern in ("messages/*.mms", "smil/*.smil", "clips/*"):
            for file in fixtures.glob(pattern):
                shutil.copy(file, self.work)
        shutil.copy(source / "examples/data/harbour.jpg", self.work)
        for block in self.blocks:
            if block.name:
                (self.work / block.name).write_text(block.text)
        if "build/demo" in self.text:
            demo = self.work / "build/demo"
            shutil.copytree(fixtures / "messages", demo)
            self.must_run([source / "examples/data/make_media", demo])

    def install(self, build):
        prefix = self.work / "DIR"
        self.must_run(["cmake", "--install", build, "--prefix", prefix])
        package = next(prefix.rglob("qvlsmilparser.pc")).parent
        self.environment["PKG_CONFIG_PATH"] = str(package)
        flags = self.must_run(["pkg-config", "--cflags", "--libs", "qvlsmilparser"])
        self.flags = [*flags.replace("-I", "-isystem").split(),  # Qt's headers cause warnings
                      f"-Wl,-rpath,{package.parent}"]

    def run(self, command):
        return subprocess.run(command, cwd=self.work, env=self.environment, timeout=120,
                              stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                              stderr=subprocess.STDOUT, text=True, errors="replace")

    def must_run(self, command):
        done = self.run(command)
        if done.returncode != 0:
            raise Problem(f"{pathlib.Path(command[0]).name} ends with {done.returncode}\n{done.stdout}")
        return done.stdout

    def problems(self):
        for block in self.blocks:
            attempt = getattr(self, "try_" + (block.language or "text"), None)
            try:
                if attempt is None:
                    raise Problem(f"there is no test for a block {block.language}")
                attempt(block)
            except (Problem, subprocess.TimeoutExpired) as problem:
                yield block.line, problem
        for number, line in enumerate(self.text.splitlines(), 1):
            for link in re.findall(r"\]\(([^)#\s]+)", line):
                try:
                    self.try_link(link)
                except Problem as problem:
                    yield number, problem

    def try_text(self, block):
        pass

    try_mermaid = try_text

    def try_cmake(self, block):
        if block.name != "CMakeLists.txt":
            raise Problem("the file is not CMakeLists.txt")

    def try_json(self, block):
        try:
            json.loads(block.text)
        except ValueError as error:
            raise Problem(f"malformed JSON: {error}") from error

    def try_xml(self, block):
        try:
            xml.etree.ElementTree.fromstring(block.text)
        except xml.etree.ElementTree.ParseError as error:
            raise Problem(f"malformed XML: {error}") from error

    def try_console(self, block):
        for command, expected in commands_of(block.text):
            printed = [line.rstrip() for line in self.run(["bash", "-c", command]).stdout.splitlines()]
            if not is_printed(expected, printed):
                difference = difflib.unified_diff(expected, printed, "document", "command", lineterm="")
                raise Problem(f"the output of `{command}` differs\n" + "\n".join(difference))

    def try_sh(self, block):
        lines = block.text.replace("\\\n", " ").splitlines(keepends=True)
        self.must_run(["bash", "-euo", "pipefail", "-c",
                       "".join(line for line in lines if not self.is_checked(line))])

    def is_checked(self, line):
        """Checks a line of commands of the project; False for any other."""
        try:
            commands = [shlex.split(command, comments=True) for command in line.split("&&")]
        except ValueError:  # a text of several lines
            return False
        owned = [words for words in commands if words and self.project.owns(words)]
        for words in owned:
            self.project.check(words)
        if owned and len(owned) != len(commands):
            raise Problem(f"a line has both commands of the project and others: {line}")
        return bool(owned)

    def try_cpp(self, block):
        name = block.name or f"block_{block.line}.cpp"
        if name.endswith(".h"):
            return  # compiled where it is included
        source = self.work / name
        program = source.with_suffix("")
        if not re.search(r"\bint main\(", block.text):
            source.write_text("#include <qvlsmilparser.h>\n" + block.text)
            self.must_run([*COMPILER, "-fsyntax-only", source, *self.flags])
            return
        source.write_text(block.text)
        self.must_run([*COMPILER, source, "-o", program, *self.flags])
        if not block.name:
            self.must_run([program])
        elif not any(re.search(rf"\b{program.name}\b", other.text) for other in self.blocks
                     if other.language in ("console", "sh")):
            raise Problem(f"no command runs {program.name}")

    def try_link(self, link):
        if "://" in link:
            return
        target = self.path.parent / link
        if not target.exists():
            raise Problem(f"{link} does not exist")
        if target.suffix == ".png" and target.name not in SCREENSHOTS:
            self.compare_picture(target)

    def compare_picture(self, picture):
        drawn = next(self.work.rglob(picture.name), None)
        if drawn is None:
            raise Problem(f"no command renders {picture.name}")
        output = self.run(["ffmpeg", "-nostdin", "-i", drawn, "-i", picture, "-lavfi", "ssim",
                           "-f", "null", "-"]).stdout
        similarity = re.search(r"SSIM.* All:([0-9.]+)", output)
        if not similarity or float(similarity[1]) < SIMILARITY:
            raise Problem(f"{picture.name} differs from the rendered picture\n{output}")


def main():
    source, build, path = (pathlib.Path(argument).resolve() for argument in sys.argv[1:])
    missing = [program for program in ("ffmpeg", "parallel", "sox") if not shutil.which(program)]
    if missing:
        print("skipped: not installed:", *missing)
        return 77
    failed = False
    with tempfile.TemporaryDirectory() as work:
        for line, problem in Document(source, build, path, pathlib.Path(work)).problems():
            print(f"{path.relative_to(source)}:{line}: {problem}")
            failed = True
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main())
