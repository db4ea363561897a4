#!/usr/bin/env python3
# LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.
"""Compares what the host's headers declare with what an SDK's headers declare.

    SdkNames.py <root of the project> <clang++> <architecture> <flags that lead to the SDK's headers>...

Every constant, type, record, field, function and variable that the host's headers name is looked up in both, by
two compilations of the same text: one line asks for the value of a constant, for the size of a type, the offset of
a field, or the type of a function or variable, each with all names of types resolved. Each answer that differs is
printed, and each name that the SDK does not have; the last line counts. The status is 1 when anything differs.

Nothing is linked or run: the answers are read from the compiler's output.
"""

import collections
import json
import pathlib
import re
import subprocess
import sys
import tempfile

HEADERS = ("CoreFoundation/CoreFoundation.h", "Carbon/Carbon.h")
HOST_FOLDERS = ("CoreFoundation", "CoreGraphics", "CoreServices", "Drawing", "Carbon")
# The host's headers bring the C library's. No library is here for the target, and its names are not the host's.
C_LIBRARY = ("assert", "ctype", "errno", "inttypes", "limits", "locale", "math", "setjmp", "signal", "stdio", "stdlib",
             "string", "sys/types", "time")
COMPILERS_HEADERS = "#include <stdarg.h>\n#include <stdbool.h>\n#include <stddef.h>\n"
PRELUDE = "".join(f"#include <{header}>\n" for header in HEADERS) + (
    "template <class T> constexpr const char* TypeOf() { return __PRETTY_FUNCTION__; }\n"
)

# kind: "value", "size", "offset" or "type"; expression: what the compiler is asked for.
Probe = collections.namedtuple("Probe", "kind name expression")


def make_empty_library(folder):
    """Headers with the names of the C library's, and nothing in them."""
    (folder / "sys").mkdir()
    for name in C_LIBRARY:
        (folder / f"{name}.h").touch()


def run(command, text):
    return subprocess.run(command + ["-x", "c++", "-"], input=text, capture_output=True, text=True, check=False)


def declarations(node):
    """Every declaration outside functions, those inside extern "C" included."""
    for child in node.get("inner", []):
        if child.get("isImplicit"):
            continue
        if child["kind"] == "LinkageSpecDecl":
            yield from declarations(child)
        else:
            yield child


def probes_of_record(record):
    yield Probe("size", record["name"], f"sizeof({record['name']})")
    for field in record.get("inner", []):
        if field["kind"] == "FieldDecl" and "name" in field and not field.get("isBitfield"):
            name = f"{record['name']}.{field['name']}"
            yield Probe("offset", name, f"__builtin_offsetof({record['name']}, {field['name']})")


def probes_of_declaration(declaration):
    kind, name = declaration["kind"], declaration.get("name", "")
    if kind == "EnumDecl":
        for constant in declaration.get("inner", []):
            if constant["kind"] == "EnumConstantDecl":
                yield Probe("value", constant["name"], constant["name"])
    elif kind == "CXXRecordDecl" and declaration.get("completeDefinition") and name:
        yield from probes_of_record(declaration)
    elif name.startswith("__"):
        return
    elif kind == "TypedefDecl":
        yield Probe("type", name, name)
    elif kind in ("FunctionDecl", "VarDecl"):
        yield Probe("type", name, f"decltype({name})")


def host_probes(command):
    """What the host's headers name, each once, in their order. Macros with a number's text count as constants."""

    def probes_of(text):
        tree = json.loads(run(command + ["-fsyntax-only", "-Xclang", "-ast-dump=json"], text).stdout)
        return [probe for declaration in declarations(tree) for probe in probes_of_declaration(declaration)]

    compilers_own = set(probes_of(COMPILERS_HEADERS))
    probes = [probe for probe in probes_of(PRELUDE) if probe not in compilers_own]
    known = set(run(command + ["-dM", "-E"], "").stdout.splitlines())
    for line in run(command + ["-dM", "-E"], PRELUDE).stdout.splitlines():
        match = re.fullmatch(r"#define (k\w+) (\(?-?(?:0[xX][0-9A-Fa-f]+|[0-9]+)[uUlL]*\)?)", line)
        if match and line not in known:
            probes.append(Probe("value", match[1], match[1]))
    # typedef struct Name {} Name: the record says more than the name of its type.
    records = {probe.name for probe in probes if probe.kind == "size"}
    return list(dict.fromkeys(p for p in probes if p.kind != "type" or p.name not in records))


def line_of(index, probe):
    if probe.kind == "type":
        return f"extern const char* const probe{index} = TypeOf<{probe.expression}>();\n"
    return f"extern const long long probe{index} = (long long)({probe.expression});\n"


def answers(command, probes):
    """The answer to each probe that has one, by its place, and the errors that belong to no probe."""
    first = PRELUDE.count("\n") + 1
    asked = dict(enumerate(probes))
    strangers = []

    def text():
        return PRELUDE + "".join(line_of(i, p) if i in asked else "\n" for i, p in enumerate(probes))

    checked = run(command + ["-fsyntax-only", "-ferror-limit=0", "-fno-caret-diagnostics"], text())
    for path, line, message in re.findall(r"^(.+?):(\d+):\d+: (?:fatal )?error: (.*)$", checked.stderr, re.MULTILINE):
        # Each probe stands on a line of its own.
        if path != "<stdin>" or int(line) < first:
            strangers.append(f"{path}:{line}: {message}")
        elif int(line) - first in asked:
            del asked[int(line) - first]
    # A target that can be parsed for and has no code generator is complained about after the output.
    output = run(command + ["-S", "-emit-llvm", "-Xclang", "-disable-llvm-passes", "-o", "-"], text()).stdout
    texts = dict(re.findall(r'^(@\.str[.\d]*) = .* c"[^\[]*\[T = (.*)\]\\00"', output, re.MULTILINE))
    found = dict(re.findall(r"^@probe(\d+) = constant i64 (-?\d+)", output, re.MULTILINE))
    for index, name in re.findall(r"^@probe(\d+) = constant i8\* getelementptr .*?(@\.str[.\d]*),", output, re.MULTILINE):
        found[index] = texts[name]
    return {int(index): answer for index, answer in found.items()}, strangers


def main():
    root, compiler, architecture, *flags = sys.argv[1:]
    target = {"i386": "i386", "ppc": "powerpc"}[architecture]
    command = [compiler, f"--target={target}-apple-macosx10.7", "-std=c++17", "-w"]
    with tempfile.TemporaryDirectory() as library:
        make_empty_library(pathlib.Path(library))
        host = command + [f"-I{root}/Platform/{folder}/Include" for folder in HOST_FOLDERS] + [f"-I{library}"]
        probes = host_probes(host)
        here, host_errors = answers(host, probes)
    there, sdk_errors = answers(command + flags, probes)
    if not probes or len(here) != len(probes) or host_errors:
        sys.exit(f"The host's own headers give {len(here)} answers to {len(probes)} questions.\n" + "\n".join(host_errors))
    counts = collections.Counter()
    for error in sdk_errors:
        counts["errors"] += 1
        print(f"{architecture}: error in the SDK's headers: {error}")
    for index, probe in enumerate(probes):
        if index not in there:
            counts["missing"] += 1
            print(f"{architecture}: {probe.kind} of {probe.name}: not in the SDK")
        elif here[index] != there[index]:
            counts["different"] += 1
            print(f"{architecture}: {probe.kind} of {probe.name}: {here[index]} here, {there[index]} in the SDK")
    print(
        f"{architecture}: {len(probes)} compared, {counts['different']} different, {counts['missing']} missing, "
        f"{counts['errors']} errors in headers"
    )
    return 1 if counts else 0


if __name__ == "__main__":
    sys.exit(main())
