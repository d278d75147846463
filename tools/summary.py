#!/usr/bin/env python3
"""summary.py REPORTS...: counts the tests of ctest's folders of reports, lists what did not pass and the
slowest (--slowest N), and ends with the line "N passed, N failed" with ", N skipped" if some were.

A folder holds ctest's own report, one or several, and one of GoogleTest for each program that ran to its end;
a program without one has failed as a whole. Exit code 0: something passed, nothing failed.
"""
import argparse
import pathlib
import sys
import xml.etree.ElementTree as ElementTree


def test_cases(report):
    """Those of a report; one that was cut short, as by a full disk, is a failed test itself."""
    try:
        return ElementTree.parse(report).iter("testcase")
    except ElementTree.ParseError as error:
        case = ElementTree.Element("testcase", classname="report", name=report.name, status="fail")
        ElementTree.SubElement(case, "failure", message=f"cut short: {error}")
        return [case]


def outcomes_of_program(report):
    """(name, outcome, seconds, reason) of each test of a GoogleTest program."""
    for case in test_cases(report):
        name = f"{case.get('classname')}.{case.get('name')}"
        failure, skipped = case.find("failure"), case.find("skipped")
        if failure is not None:
            outcome, reason = "failed", failure.get("message", "")
        elif skipped is not None or case.get("status") == "notrun":
            reason = skipped.get("message", "") if skipped is not None else "disabled in the source"
            outcome = "skipped"
        else:
            outcome, reason = "passed", ""
        yield name, outcome, float(case.get("time", 0)), reason.strip().splitlines()[-1:]


def outcomes(folder):
    for report in sorted(folder.glob("ctest*.xml")):
        for case in test_cases(report):
            name, status = case.get("name"), case.get("status")
            program = folder / f"{name}.xml"
            if program.exists():
                tests = list(outcomes_of_program(program))
                yield from tests
                if not tests:
                    yield name, "failed", 0, ["it ran no test"]
                elif status == "fail" and not any(test[1] == "failed" for test in tests):
                    yield name, "failed", 0, ["all its tests passed, but the program failed"]
            elif status == "fail":
                yield name, "failed", float(case.get("time", 0)), ["see " + str(report)]
            elif status == "run":
                # Desks are fixtures, not tests.
                if not name.startswith("desk-"):
                    yield name, "passed", float(case.get("time", 0)), []
            else:
                skipped = case.find("skipped")
                yield name, "skipped", 0, [skipped.get("message", "") if skipped is not None else status]


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--slowest", type=int, default=0)
    parser.add_argument("reports", nargs="+", type=pathlib.Path)
    arguments = parser.parse_args()

    tests = []
    for folder in arguments.reports:
        if not any(folder.glob("ctest*.xml")):
            tests.append((folder.parent.name, "no tests", "failed", 0, ["ctest left no report"]))
        tests += [(folder.parent.name, *test) for test in outcomes(folder)]

    for preset, name, _, seconds, _ in sorted(tests, key=lambda test: -test[3])[: arguments.slowest]:
        print(f"{seconds:8.2f} s  {preset}: {name}")
    count = {outcome: 0 for outcome in ("passed", "failed", "skipped")}
    for preset, name, outcome, _, reason in tests:
        count[outcome] += 1
        if outcome != "passed":
            print(f"{outcome}: {preset}: {name}", *reason, sep=": " if reason else "")
    line = f"{count['passed']} passed, {count['failed']} failed"
    print(line + (f", {count['skipped']} skipped" if count["skipped"] else ""))
    return 0 if count["passed"] and not count["failed"] else 1


if __name__ == "__main__":
    sys.exit(main())
