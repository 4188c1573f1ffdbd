"""What a build folder of CMake and Ninja tells about itself. It is only read."""

import json
import pathlib
import shlex
import subprocess


def run(command, **options):
    """The output of a command, which has to succeed."""
    ended = subprocess.run(command, capture_output=True, text=True, **options)
    if ended.returncode != 0:
        raise SystemExit(f"mutate: {shlex.join(command)}\n{ended.stdout}{ended.stderr}")
    return ended.stdout


class Compilation:
    def __init__(self, entry):
        self.file, self.folder = pathlib.Path(entry["file"]), entry["directory"]
        words = shlex.split(entry["command"])
        at = words.index("-o")
        self.output = words[at + 1]
        self.words = words[:at]  # without output and input

    def run(self, *options):
        return run([*self.words, *options, str(self.file)], cwd=self.folder)


class Build:
    def __init__(self, folder):
        self.folder = folder
        entries = json.loads((folder / "compile_commands.json").read_text())
        self.compilations = [Compilation(entry) for entry in entries]

    def steps(self, target):
        """The commands of the last rule that makes a target, each as a list of words."""
        rule = run(["ninja", "-C", str(self.folder), "-t", "commands", target]).splitlines()[-1]
        return [shlex.split(step) for step in rule.split(" && ")]

    def linkStep(self, program):
        return next(step for step in self.steps(program) if "-o" in step)

    def members(self, archive):
        step = next(step for step in self.steps(archive) if archive in step and step[1] == "qc")
        return step[step.index(archive) + 1:]

    def tests(self):
        """name -> command of each test that is built."""
        shown = json.loads(run(["ctest", "--test-dir", str(self.folder), "--show-only=json-v1"]))
        return {test["name"]: test["command"] for test in shown["tests"] if "command" in test}

    def testCommands(self):
        """The commands of the tests that are programs of this build's tests."""
        return [command for command in self.tests().values()
                if pathlib.Path(command[0]).is_relative_to(self.folder / "tests")]

    def shellTests(self, program):
        """The names and commands of the shell's tests that are given a program of the build."""
        return [(name, command) for name, command in self.tests().items()
                if str(self.folder / program) in command and "/tests/shell/" in command[1]]
