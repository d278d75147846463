#!/usr/bin/env python3
"""lint.py native|windows-x64 [FILE...]: clang-tidy over the sources of a preset: for Windows, those that
the native preset lacks. Tests have checks of their own (tests/.clang-tidy).

A file that passed is not analysed again until it, a header it includes or the configuration changes. Most of
the time goes into the system's headers, so those files of a folder that are to be analysed are put one after
the other into one, and folders that are compiled alike share the precompiled headers of most of them. A file that is
the only one to change is analysed alone, which shows that it includes what it uses.
"""
import collections
import concurrent.futures
import functools
import hashlib
import json
import os
import pathlib
import re
import shlex
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
SOURCES = {
    "native": r"(tests/[a-z/]+|base|ui|support|identity|sales|operations|component|component/contract|host|tools/document_tables)/\w+\.cpp",
    "windows-x64": r"(tests/(clients|com|com_client|component/automation|host/automation|package|platform|reliability/win32|testing/win32|"
                   r"ui/win32|windows)|bench/windows|com|platform|ui/win32|component/automation|host/(automation|app|terminal)|clients/\w+)"
                   r"/\w+\.cpp",
}
# The path analysis is bounded and stays out of the standard library's code, where it would spend much of its time. Of
# seven mistakes made on purpose it finds all, and with half of the bound six.
BOUND = ["-Xclang", "-analyzer-config", "-Xclang", "max-nodes=10000,c++-stdlib-inlining=false"]
# The analyser is shown the standard library with threads; by default it takes the other one.
MINGW = "/usr/lib/gcc/x86_64-w64-mingw32/12-posix/include/c++"
PLATFORM = {
    "native": [],
    "windows-x64": ["--target=x86_64-w64-mingw32", "-nostdinc++", f"-isystem{MINGW}",
                    f"-isystem{MINGW}/x86_64-w64-mingw32"],
}
# Tests keep what they define in unnamed namespaces. With a namespace of its own in there for each file, the tests of all
# folders can be one source.
APART = {"namespace {": "namespace { namespace %s {", "}  // namespace": "} }  // namespace"}
HEADER = re.compile(r'#include ([<"][^>"]+(?<!\.inc)[>"])$')
INCLUDE = re.compile(r'^\s*#\s*include\s+"([^"]+)"', re.MULTILINE)


@functools.lru_cache(maxsize=None)
def included(file):
    """The files of the repository that this one names, all from the root."""
    return [ROOT / name for name in INCLUDE.findall(file.read_text()) if (ROOT / name).exists()]


def fingerprint(file):
    configuration = configuration_of(file).read_bytes() + pathlib.Path(__file__).read_bytes()
    seen, todo = set(), [file]
    while todo:
        each = todo.pop()
        if each not in seen:
            seen.add(each)
            todo += included(each)
    digest = hashlib.sha256(configuration)
    for each in sorted(seen):
        digest.update(str(each.relative_to(ROOT)).encode() + b"\0" + each.read_bytes())
    return digest.hexdigest()


def configuration_of(file):
    tests = ROOT / "tests"
    return (tests if file.is_relative_to(tests) else ROOT) / ".clang-tidy"


def is_test(file):
    return file.name.endswith("_test.cpp")


def configure(preset):
    """A build folder whose compile commands are those of single files."""
    folder = ROOT / "build" / preset / "lint"
    headers = ["sqlite3_source"] if preset == "native" else ["TilloraOptions_typelib", "TilloraHost_typelib",
                                                              "sqlite3_source"]
    for command in (["cmake", "--preset", preset, "-B", folder, "-DTILLORA_TOGETHER=OFF"],
                    ["cmake", "--build", folder, "--target", *headers]):
        subprocess.run(command, cwd=ROOT, check=True, stdout=subprocess.DEVNULL)
    return folder


class Joined:
    """Files with the same compiler options, as one source that has each header once."""

    def __init__(self, files, options, command, folder):
        self.files, self.options = files, options
        self.source = folder / ("-".join(files[0].relative_to(ROOT).parts))
        self.command = command | {"file": str(self.source),
                                  "command": command["command"].replace(command["file"], str(self.source))}
        self.origins = []  # of each line: file and number
        self.headers, self.precompiled = {}, []
        lines = []
        for file in files:
            for number, line in enumerate(file.read_text().splitlines(), 1):
                header = HEADER.match(line)
                if is_test(file) and line in APART:
                    line = APART[line].replace("%s", "_".join(file.relative_to(ROOT).with_suffix("").parts))
                name = header and header[1].strip('<>"')
                lines.append("" if name in self.headers else line)
                if header:
                    self.headers.setdefault(name, header[1])
                self.origins.append(f"{file.relative_to(ROOT)}:{number}")
        self.source.write_text("\n".join(lines) + "\n")

    def analyse(self, preset):
        """What is wrong, with the files' own lines; empty if nothing is."""
        arguments = [f"--extra-arg-before={each}" for each in PLATFORM[preset][:1]]
        arguments += [f"--extra-arg={each}" for each in PLATFORM[preset][1:] + self.precompiled + BOUND]
        arguments.append(f"--config-file={configuration_of(self.files[0])}")
        done = subprocess.run(["nice", "clang-tidy-19", "--quiet", "-p", self.source.parent, *arguments, self.source],
                              cwd=ROOT, text=True, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, check=False)
        return done.returncode and re.sub(rf"{re.escape(str(self.source))}:(\d+)",
                                          lambda found: self.origins[int(found[1]) - 1], done.stdout)


def joined(files, commands, folder):
    groups = {}
    for file in files:
        command = commands[file]
        options = re.sub(r"\S+\.(obj|o|cpp)\b", "", command["command"])
        folder_of_group = ROOT / "tests" if is_test(file) else file.parent
        groups.setdefault((folder_of_group, options), []).append(file)
    folder.mkdir(exist_ok=True)
    result = [Joined(group, options, commands[group[0]], folder) for (_, options), group in groups.items()]
    (folder / "compile_commands.json").write_text(json.dumps([each.command for each in result]))
    return sorted(result, key=lambda each: -len(each.origins))


def precompile(groups, preset, folder):
    """Compiles the headers of the system that most of the groups with the same options include, where that pays."""
    alike = {}
    for group in groups:
        alike.setdefault(group.options, []).append(group)
    for number, (options, members) in enumerate(alike.items()):
        if len(members) < 3:
            continue
        uses = collections.Counter(name for group in members for name in group.headers.values() if name.startswith("<"))
        common = [name for name, count in uses.items() if count > len(members) / 2]
        common.sort(key=lambda name: (name != "<windows.h>", name))  # others need that one first
        source = folder / f"headers-{number}.h"
        source.write_text("".join(f"#include {name}\n" for name in common))
        result = source.with_suffix(".pch")
        arguments = [each for each in shlex.split(options)[1:] if each not in ("-o", "-c")]
        subprocess.run(["clang++-19", *PLATFORM[preset], *arguments, "-x", "c++-header", source, "-o", result], cwd=ROOT,
                       check=True)
        for group in members:
            group.precompiled = ["-Xclang", "-include-pch", "-Xclang", str(result)]


def main():
    preset, *wanted = sys.argv[1:]
    folder = configure(preset)
    passed = folder / "passed"
    passed.mkdir(exist_ok=True)
    commands = json.loads((folder / "compile_commands.json").read_text())
    commands = {pathlib.Path(command["file"]): command for command in commands}
    chosen = sorted(file for file in commands
                    if file.is_relative_to(ROOT) and re.fullmatch(SOURCES[preset], str(file.relative_to(ROOT)))
                    and (not wanted or str(file.relative_to(ROOT)) in wanted))
    todo = {file: stamp for file in chosen
            if not (stamp := passed / fingerprint(file)).exists()}
    print(f"clang-tidy: {len(todo)} of {len(chosen)} files to analyse", flush=True)

    groups = joined(todo, commands, folder / "joined")
    precompile(groups, preset, folder / "joined")
    failed = 0
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        jobs = {pool.submit(each.analyse, preset): each for each in groups}
        for job in concurrent.futures.as_completed(jobs):
            if job.result():
                failed += 1
                print(job.result(), flush=True)
            else:
                for file in jobs[job].files:
                    todo[file].touch()
    return 1 if failed or not chosen else 0


if __name__ == "__main__":
    sys.exit(main())
