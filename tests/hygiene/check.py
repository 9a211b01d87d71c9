#!/usr/bin/env python3
# Checks what the compiler doesn't: the floors of the house, the labels of comments, the licence lines, the sizes of
# files and functions, and that headers compile alone: those that a change can have broken, and with --all every one.
# SPDX-License-Identifier: MIT
import argparse
import concurrent.futures
import os
import pathlib
import re
import subprocess
import sys

# The folders from the ground up. A file may include its own folder, and folders of lower floors.
FLOORS = {"platform": 2, "contracts": 3, "orvoshare": 4, "libraries": 4, "exchange": 4, "people": 5, "host": 5, "cli": 6,
          "desktop": 6}
LONGEST_FILE = 450  # lines
SCREEN = 65
MOST_FUNCTIONS = 25  # of a class of the desktop program
LONGEST_CLASS = 300  # lines, with those of its functions
LONGEST_BUILD_LINE = 120  # characters
NO_FUNCTION = re.compile(r"\s*(namespace|struct|class|enum|union|if|for|while|switch|else|do|\}|case|default)\b|\s*\}")
CLASS = re.compile(r"^[ \t]*(?:class|struct)\s+(\w+)(?:\s+final)?(?:\s*:[^;{}()]*)?\s*\{", re.MULTILINE)
NO_MEMBER_FUNCTION = re.compile(r"(using|typedef|friend|static_assert|enum|class|struct)\b")
INCLUDE = re.compile(r'^\s*#\s*include\s*[<"]([^>"]+)[>"]')


def sources():
    for pattern in ("*.h", "*.cpp"):
        yield from sorted(pathlib.Path("src").rglob(pattern))


def top_folder(path):
    return path.split("/")[0]


def check_floors():
    for source in sources():
        own = top_folder(str(source.relative_to("src")))
        may_qt = may_include_qt(source)
        for number, line in enumerate(source.read_text().splitlines(), 1):
            match = INCLUDE.match(line)
            if not match:
                continue
            target = match.group(1)
            other = top_folder(target)
            where = f"{source}:{number}"
            if re.match(r"Q[A-Z]|Qt|platform/qt/", target) and not may_qt:
                yield f"{where}: Qt ({target}) belongs to platform/qt and desktop alone"
            if other != own and FLOORS.get(other, 0) >= FLOORS[own]:
                yield f"{where}: {own}/ knows nothing of {other}/ ({target}); ask through contracts/"
    yield from check_circles()


def includes_of(file):
    """What a header or a source includes, by the names that headers have below src/."""
    names = [match.group(1) for match in map(INCLUDE.match, file.read_text().splitlines()) if match]
    beside = file.parent.relative_to("src")
    return [name if "/" in name else str(beside / name) for name in names]


def includes_of_headers():
    return {str(header.relative_to("src")): includes_of(header) for header in pathlib.Path("src").rglob("*.h")}


def check_circles():
    """A header and the source of its name are one: what the source knows, the header's users get with it."""
    edges = {}
    for file in sources():
        own = str(file.relative_to("src").with_suffix(""))
        known = {str(pathlib.Path(name).with_suffix("")) for name in includes_of(file)}
        edges.setdefault(own, set()).update(known - {own})
    done, path = set(), []

    def visit(name):
        if name in path:
            yield f"src/{name}: knows itself by way of {' -> '.join(path[path.index(name):] + [name])}"
            return
        if name in done or name not in edges:
            return
        path.append(name)
        for target in sorted(edges[name]):
            yield from visit(target)
        path.pop()
        done.add(name)

    for name in sorted(edges):
        yield from visit(name)


def long_functions(lines):
    """The numbers of the lines in which functions begin that are longer than a screen, with their length."""
    begun = {}
    for number, line in enumerate(lines, 1):
        indent = len(line) - len(line.lstrip())
        if line.strip() in ("}", "};") and indent in begun:
            first = begun.pop(indent)
            if number - first >= SCREEN:
                yield first, number - first + 1
        elif line.endswith("{") and ")" in line and not NO_FUNCTION.match(line):
            begun[indent] = number
        elif indent == 0:
            begun.clear()


def without_texts(code):
    """The code with its comments and quoted texts empty, so that braces in them don't count."""
    return re.sub(r"//[^\n]*|/\*.*?\*/|(\"|')(?:\\.|(?!\1)[^\\\n])*\1", lambda match: match.group(1) or "", code, flags=re.DOTALL)


def body_from(code, start):
    """What lies between the brace before `start` and the one that closes it."""
    depth = 1
    for brace in re.finditer(r"[{}]", code[start:]):
        depth += 1 if brace.group() == "{" else -1
        if depth == 0:
            return code[start:start + brace.start()]
    return code[start:]


def emptied(code, inside):
    """The code with all that pairs of brackets hold taken out, from the innermost."""
    before = None
    while before != code:
        before, code = code, re.sub(inside, "\0", code)
    return code


def member_functions(body):
    """The member functions that the body of a class declares, but for those that its base asks for or that it deletes."""
    members = emptied(body, r"\{[^{}]*\}").replace("\0", "{}")
    members = emptied(members, r"<[^<>;{}]*>")
    members = re.sub(r"\b(public|protected|private):", "", members)
    # Braces that a comma or others follow initialise members of a constructor.
    for member in re.split(r";|\{\}(?=\s*(?:[A-Za-z~\[]|$))", members):
        member = re.sub(r"^template\s*", "", member.replace("\0", "").strip())
        head, bracket, _ = member.partition("(")
        is_initialised = "=" in head and "operator" not in head
        is_own = not re.search(r"=\s*delete$|\boverride\b", member)
        if bracket and is_own and not is_initialised and not NO_MEMBER_FUNCTION.match(member):
            yield head.split()[-1] if head.split() else head


def check_classes(folder):
    files = {file: without_texts(file.read_text()) for file in sources() if file.is_relative_to(folder)}
    outside = {}
    for code in files.values():
        for function in re.finditer(r"^\w[^\n;{}]*?\b(\w+)::~?\w+\([^;{}]*?\{.*?^\}", code, flags=re.DOTALL | re.MULTILINE):
            outside[function.group(1)] = outside.get(function.group(1), 0) + function.group().count("\n") + 1
    for file, code in files.items():
        for found in CLASS.finditer(code):
            name = found.group(1)
            body = body_from(code, found.end())
            count = len(list(member_functions(body)))
            lines = body.count("\n") + 1 + (outside.get(name, 0) if file.suffix == ".h" else 0)
            where = f"{file}:{code.count(chr(10), 0, found.start()) + 1}"
            if count > MOST_FUNCTIONS:
                yield f"{where}: {name} has {count} functions, of at most {MOST_FUNCTIONS}; which second subject hides in it?"
            if lines > LONGEST_CLASS:
                yield f"{where}: {name} has {lines} lines, of at most {LONGEST_CLASS}; which second subject hides in it?"


def check_sizes():
    for source in sources():
        lines = source.read_text().splitlines()
        if len(lines) > LONGEST_FILE:
            yield f"{source}: {len(lines)} lines; which second subject hides in it?"
        for number, length in long_functions(lines):
            yield f"{source}:{number}: a function of {length} lines doesn't fit on a screen"
    yield from check_classes("src/desktop")
    seen = {}
    for name in output_of("git", "ls-files", "-co", "--exclude-standard"):
        path = pathlib.Path(name)
        if not path.exists():
            continue
        if path.suffix in (".h", ".cpp", ".py") and path.name != "main.cpp":
            if path.name in seen:
                yield f"{name}: has the name of {seen[path.name]}"
            seen[path.name] = name
        if path.suffix == ".cmake" or path.name == "CMakeLists.txt":
            for number, line in enumerate(path.read_text().splitlines(), 1):
                if len(line) > LONGEST_BUILD_LINE:
                    yield f"{name}:{number}: {len(line)} characters, of at most {LONGEST_BUILD_LINE}"


def check_labels():
    """The labels of comments stand in their order, with their texts in one column."""
    order = ["Returns", "Requires", "Owner", "Fails"]
    for source in sources():
        last = -1
        for number, line in enumerate(source.read_text().splitlines(), 1):
            label = re.match(r"\s*// (?:.*[.:;] )?(Gives|Returns|Requires|Owner|Fails):", line)
            if not line.lstrip().startswith("//"):
                last = -1
            elif label and not re.match(r"\s*// (Returns:  |Requires: |Owner:    |Fails:    )\S", line):
                yield f"{source}:{number}: not a line of the form \"// {'Returns:':<10}\" of docs/reading.md"
            elif label and order.index(label[1]) <= last:
                yield f"{source}:{number}: {label[1]} comes before {order[last]} or stands there twice"
            elif label:
                last = order.index(label[1])


def check_licence():
    for name in output_of("git", "ls-files", "-co", "--exclude-standard", "src", "tests", "bench", "fuzz", "scripts", "run",
                          "test"):
        path = pathlib.Path(name)
        is_code = path.suffix in (".h", ".cpp", ".py") or (path.suffix in ("", ".sh") and os.access(path, os.X_OK))
        head = path.read_text(errors="replace").splitlines()[:4] if is_code else []
        if is_code and not any(re.fullmatch(r"(//|#) SPDX-License-Identifier: MIT", line) for line in head):
            yield f"{name}: has no line \"SPDX-License-Identifier: MIT\" at its head"


def may_include_qt(source):
    return source.is_relative_to("src/desktop") or source.is_relative_to("src/platform/qt")


def output_of(*command):
    return subprocess.run(command, capture_output=True, text=True, check=True).stdout.splitlines()


def touched_headers():
    """The headers that differ from the base of the change, and all that include one of them."""
    includes = includes_of_headers()
    base = output_of("scripts/change_base")
    if not base:
        return sorted(includes)
    changed = (output_of("git", "diff", "--name-only", base[0], "--", "src/*.h") +
               output_of("git", "ls-files", "-o", "--exclude-standard", "src/*.h"))
    touched = set()
    new = {name.removeprefix("src/") for name in changed}
    while new:
        touched |= new
        new = {name for name, targets in includes.items() if name not in touched and touched.intersection(targets)}
    return sorted(touched.intersection(includes))


def check_headers(compiler, headers):
    qt = subprocess.run(["pkg-config", "--cflags", "Qt6Widgets"], capture_output=True, text=True)
    qt_options = ["-fPIC", *qt.stdout.split()]

    def compile_alone(header):
        needs_qt = may_include_qt(header)
        # Where Qt isn't installed nothing that includes it is built, either.
        if needs_qt and qt.returncode != 0:
            return None
        command = [compiler, "-std=c++20", "-Isrc", *(qt_options if needs_qt else []),
                   "-fsyntax-only", "-x", "c++", "-w", str(header)]
        result = subprocess.run(command, capture_output=True, text=True)
        first = result.stderr.splitlines()[0] if result.stderr else ""
        return None if result.returncode == 0 else f"{header}: doesn't compile alone: {first}"

    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        for fault in pool.map(compile_alone, (pathlib.Path("src") / header for header in headers)):
            if fault:
                yield fault


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("check", choices=["floors", "labels", "licence", "sizes", "headers"])
    parser.add_argument("--compiler", default="c++")
    parser.add_argument("--all", action="store_true")
    arguments = parser.parse_args()
    if arguments.check == "headers":
        faults = list(check_headers(arguments.compiler, sorted(includes_of_headers()) if arguments.all else touched_headers()))
    else:
        checks = {"floors": check_floors, "labels": check_labels, "licence": check_licence, "sizes": check_sizes}
        faults = list(checks[arguments.check]())
    print("\n".join(faults))
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
