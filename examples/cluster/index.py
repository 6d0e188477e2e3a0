#!/usr/bin/python3
"""Indexes a tree of messages with the workers of a Dask cluster.

The index has one JSON object per message, as `qvlmms list --json` prints it, in files of JSON Lines.
Each file is a partition: the messages among N files of the tree, in the order of their names. The names
are listed once, in INDEX/names, so partitions do not depend on the workers and stay the same. A worker
writes a partition under a temporary name and renames it when it is complete.
"""
import argparse
import itertools
import logging
import os
import pathlib
import shutil
import socket
import subprocess
import sys

try:
    import distributed
except ImportError:
    distributed = None


def files_in(folder):
    """The files that `qvlmms list` looks at, in its order."""
    for entry in sorted(os.scandir(folder), key=lambda entry: os.fsencode(entry.name)):
        if entry.name.startswith("."):
            continue
        if entry.is_dir(follow_symlinks=False):
            yield from files_in(entry.path)
        elif entry.is_file(follow_symlinks=False):
            yield entry.path


def write_names(tree, folder, count):
    """Writes lists of names, separated by NUL. The folder gets its name when all lists are complete."""
    unfinished = folder.with_name(".names")
    shutil.rmtree(unfinished, ignore_errors=True)
    unfinished.mkdir(parents=True)
    (unfinished / "tree").write_bytes(os.fsencode(tree))
    files = files_in(tree)
    for number in itertools.count(1):
        names = list(itertools.islice(files, count))
        if not names:
            break
        (unfinished / f"part-{number:06}").write_bytes(
            b"".join(os.fsencode(name) + b"\0" for name in names))
    unfinished.rename(folder)


def begins_like_message(name):
    """True for a file with X-Mms-Message-Type and one of its values, as `qvlmms list` finds them."""
    try:
        with open(name, "rb") as file:
            start = file.read(2)
    except OSError:
        return True  # its object has the reason
    return len(start) == 2 and start[0] == 0x8C and 0x80 <= start[1] <= 0x97


def write_partition(program, names_file, partition):
    """Writes a partition. Runs on a worker."""
    if os.path.exists(partition):  # by a worker that died before the scheduler knew
        return
    with open(names_file, "rb") as file:
        names = [name for name in file.read().split(b"\0") if name and begins_like_message(name)]
    folder, name = os.path.split(partition)
    unfinished = os.path.join(folder, f".{name}.{socket.gethostname()}.{os.getpid()}")
    with open(unfinished, "w+b") as output:
        done = subprocess.run([program, "list", "--json", "--jobs", "1", "--files-from", "-", "-0"],
                              input=b"".join(name + b"\0" for name in names),
                              stdout=output, stderr=subprocess.PIPE, check=False)
        output.seek(0)
        listed = sum(1 for _ in output)
        if listed != len(names):  # a message that is refused has a line, too
            errors = done.stderr.decode(errors="replace").strip()
            raise RuntimeError(f"{program} listed {listed} of {len(names)} messages\n{errors}")
        os.fsync(output.fileno())
    os.replace(unfinished, partition)


def write_partitions(client, program, missing):
    """Has the workers write the partitions, and returns how many failed."""
    if not client.scheduler_info()["workers"]:
        print("waiting for workers", flush=True)
    partitions = {client.submit(write_partition, program, str(names), str(partition), pure=False):
                  partition for names, partition in missing}
    failed = 0
    for future in distributed.as_completed(partitions):
        name = partitions[future].name
        if future.status == "finished":
            print(f"{name} is written", flush=True)
        elif future.status == "error":
            failed += 1
            print(f"{name}: {future.exception()}", file=sys.stderr, flush=True)
        else:
            raise ConnectionError("the scheduler is gone; the same command resumes the index")
    return failed


def write_index(client, arguments):
    """Writes the partitions that are missing. Returns an error, or None."""
    tree, index = arguments.tree.absolute(), arguments.index.absolute()
    lists = index / "names"
    if not lists.exists():
        write_names(tree, lists, arguments.files)
    elif (lists / "tree").read_bytes() != os.fsencode(tree):
        return f"{index} is the index of {os.fsdecode((lists / 'tree').read_bytes())}"
    partitions = [(names, index / f"{names.name}.jsonl") for names in sorted(lists.glob("part-*"))]
    missing = [(names, partition) for names, partition in partitions if not partition.exists()]
    print(f"{len(missing)} of {len(partitions)} partitions are missing", flush=True)
    failed = write_partitions(client, arguments.program, missing)
    for unfinished in index.glob(".part-*"):  # of workers that died
        unfinished.unlink()
    return f"{failed} partitions failed; the same command tries them again" if failed else None


def parsed_arguments():
    parser = argparse.ArgumentParser(
        description="Indexes a tree of messages with the workers of a Dask cluster.",
        epilog="The same command resumes an index: partitions that are there are not written again. "
               "All workers need qvlmms, and TREE and INDEX under the same names.")
    parser.add_argument("tree", type=pathlib.Path, metavar="TREE", help="folder with messages")
    parser.add_argument("index", type=pathlib.Path, metavar="INDEX",
                        help="folder for the index, which is created")
    parser.add_argument("--scheduler", required=True, metavar="ADDRESS",
                        help="address of the Dask scheduler, such as tcp://192.0.2.1:8786")
    parser.add_argument("--files", type=int, default=1000, metavar="N",
                        help="files of the tree per partition of a new index (default 1000)")
    parser.add_argument("--program", default="qvlmms", metavar="FILE",
                        help="the command on the workers (default qvlmms)")
    arguments = parser.parse_args()
    if arguments.files < 1:
        parser.error("--files: at least 1 is expected")
    if not arguments.tree.is_dir():
        parser.error(f"{arguments.tree} is not a folder")
    return arguments


def main():
    arguments = parsed_arguments()
    if not distributed:
        return "distributed is missing; on Debian, install the package python3-distributed"
    logging.disable()  # the program prints its own errors
    try:
        with distributed.Client(arguments.scheduler, timeout=10) as client:
            return write_index(client, arguments)
    except (OSError, ValueError) as error:  # ValueError: malformed address
        return str(error)
    except KeyboardInterrupt:
        return "interrupted; the same command resumes the index"


if __name__ == "__main__":
    sys.exit(main())
