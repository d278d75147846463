#!/usr/bin/env python3
"""lint.py native|windows-x64 [FILE...]: clang-tidy over the sources of a preset, tests and benchmarks excepted,
each compiled alone: of Windows those that the native preset lacks.

A file that passed is not analysed again until it, a header it includes or the configuration changes.
"""
import concurrent.futures
import functools
import hashlib
import json
import os
import pathlib
import re
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
SOURCES = {
    "native": r"(ui|support|identity|sales|operations|component|host|tools/document_tables)/\w+\.cpp",
    "windows-x64": r"(ui/win32|support/win32|component/automation|host/(automation|app|terminal)|clients/\w+)"
                   r"/\w+\.cpp",
}
# The bound on the path analysis keeps files with much inlined library code from taking ten seconds.
BOUND = ["-Xclang", "-analyzer-config", "-Xclang", "max-nodes=20000"]
# The analyser is shown the standard library with threads; by itself it takes the other one.
MINGW = "/usr/lib/gcc/x86_64-w64-mingw32/12-posix/include/c++"
PLATFORM = {
    "native": [],
    "windows-x64": ["--target=x86_64-w64-mingw32", "-nostdinc++", f"-isystem{MINGW}",
                    f"-isystem{MINGW}/x86_64-w64-mingw32"],
}
INCLUDE = re.compile(r'^\s*#\s*include\s+"([^"]+)"', re.MULTILINE)


@functools.lru_cache(maxsize=None)
def included(file):
    """The files of the repository that this one names, all from the root."""
    return [ROOT / name for name in INCLUDE.findall(file.read_text()) if (ROOT / name).exists()]


def fingerprint(file, configuration):
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


def configure(preset):
    """A build folder whose compile commands are those of single files."""
    folder = ROOT / "build" / preset / "lint"
    headers = ["sqlite3_source"] if preset == "native" else ["TilloraOptions_typelib", "TilloraHost_typelib",
                                                              "sqlite3_source"]
    for command in (["cmake", "--preset", preset, "-B", folder, "-DTILLORA_TOGETHER=OFF"],
                    ["cmake", "--build", folder, "--target", *headers]):
        subprocess.run(command, cwd=ROOT, check=True, stdout=subprocess.DEVNULL)
    return folder


def analyse(file, folder, preset):
    arguments = [f"--extra-arg-before={each}" for each in PLATFORM[preset][:1]]
    arguments += [f"--extra-arg={each}" for each in PLATFORM[preset][1:] + BOUND]
    return subprocess.run(["nice", "clang-tidy-19", "--quiet", "-p", folder, *arguments, file], cwd=ROOT, text=True,
                          stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, check=False)


def main():
    preset, *wanted = sys.argv[1:]
    folder = configure(preset)
    passed = folder / "passed"
    passed.mkdir(exist_ok=True)
    configuration = (ROOT / ".clang-tidy").read_bytes() + pathlib.Path(__file__).read_bytes()

    commands = json.loads((folder / "compile_commands.json").read_text())
    files = {pathlib.Path(command["file"]) for command in commands}
    chosen = sorted(file for file in files
                    if file.is_relative_to(ROOT) and re.fullmatch(SOURCES[preset], str(file.relative_to(ROOT)))
                    and (not wanted or str(file.relative_to(ROOT)) in wanted))
    todo = {file: stamp for file in chosen
            if not (stamp := passed / fingerprint(file, configuration)).exists()}
    print(f"clang-tidy: {len(todo)} of {len(chosen)} files to analyse", flush=True)

    failed = 0
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        jobs = {pool.submit(analyse, file, folder, preset): file for file in todo}
        for job in concurrent.futures.as_completed(jobs):
            result = job.result()
            if result.returncode == 0:
                todo[jobs[job]].touch()
            else:
                failed += 1
                print(f"{jobs[job].relative_to(ROOT)}:\n{result.stdout}", flush=True)
    return 1 if failed or not chosen else 0


if __name__ == "__main__":
    sys.exit(main())
