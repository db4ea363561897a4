#!/usr/bin/env python3
# LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.
"""Parses the sources that a build for a Mac has.

    SdkSources.py <root of the project> <build folder> <clang++> <architecture> <flags that lead to the SDK's
                  headers>... -- [<file or folder>...]

The build folder is one that was configured for a Mac; its compile commands say which files there are and with
which flags each is compiled. With files or folders named, those alone are parsed. What the compiler says of a file
is printed; the last line counts. The status is 1 when a file cannot be parsed, or when there was none.
"""

import concurrent.futures
import json
import os
import shlex
import subprocess
import sys


def flags_of(command):
    """The flags that matter to the parser."""
    kept, words = [], iter(shlex.split(command)[1:])
    for word in words:
        if word in ("-isystem", "-include"):
            kept += [word, next(words)]
        elif word.startswith(("-I", "-D", "-W", "-std=", "-isystem")):
            kept.append(word)
    return kept


def main():
    root, build, compiler, architecture, *rest = sys.argv[1:]
    flags, wanted = rest[: rest.index("--")], rest[rest.index("--") + 1 :]
    target = {"i386": "i386", "ppc": "powerpc"}[architecture]
    root = os.path.realpath(root)
    wanted = [os.path.join(root, name).rstrip("/") for name in wanted or ["."]]
    wanted = [os.path.normpath(name) for name in wanted]
    base = [compiler, f"--target={target}-apple-macosx10.7", "-fsyntax-only", *flags]

    def parse(entry):
        # The compiler of C++ takes every file for one in C++.
        language = ["-x", "c"] if entry["file"].endswith(".c") else []
        command = base + flags_of(entry["command"]) + language + [entry["file"]]
        return subprocess.run(command, cwd=build, capture_output=True, text=True, check=False)

    with open(os.path.join(build, "compile_commands.json"), encoding="utf-8") as file:
        entries = [e for e in json.load(file) if any((e["file"] + "/").startswith(name + "/") for name in wanted)]
    failures = 0
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        for entry, result in zip(entries, pool.map(parse, entries)):
            sys.stdout.write(result.stderr)
            if result.returncode != 0:
                failures += 1
                print(f"{architecture}: {os.path.relpath(entry['file'], root)}: cannot be parsed")
    print(f"{architecture}: {len(entries)} files parsed, {failures} with errors")
    return 1 if failures or not entries else 0


if __name__ == "__main__":
    sys.exit(main())
