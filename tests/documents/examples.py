"""The examples of a Markdown document, and a shell that types them.

A fenced block of the kind `console` is an example. tests/README.md has its rules.
"""

import os
import re
import subprocess
import sys
import threading
from dataclasses import dataclass, field
from pathlib import Path

sys.path.insert(0, str(Path(__file__).parent.parent / "e2e"))

from desktop import Desktop  # noqa: E402

HOME = "/home/you"
PATIENCE = 120  # the limit in seconds for a command that should end within a few
MARK = "the-end-of-a-command"


@dataclass
class Example:
    """A command, the line where it stands, and what it should print."""

    line: int
    command: str
    expected: list = field(default_factory=list)
    is_shown: bool = True

    def accepts(self, output):
        """True when the expected lines match. A line "..." stands for any lines, and "..." within
        a line for any text."""
        pattern = ""
        for line in self.expected:
            if line == "...":
                pattern += r"(?:.*\n)*"
            else:
                pattern += ".*".join(re.escape(part) for part in line.split("...")) + r"\n"
        return re.fullmatch(pattern, output) is not None

    def may_fail(self):
        return any(line.startswith("kvexrules: ") for line in self.expected)


class BrokenExample(Exception):
    """A block that is not an example."""


def examples_of(text):
    """The examples of a document, in order, and the commands that prepare them."""
    examples = []
    fence, example = None, None
    for number, line in enumerate(text.splitlines(), 1):
        if fence is None:
            if line.strip() == "<!-- before":
                fence = "-->"
                example = Example(number, "", is_shown=False)
                examples.append(example)
            elif opening := re.fullmatch(r"\s*(```+)(\S*).*", line):
                fence, kind = opening[1], opening[2]
                example = None if kind == "console" else False
        elif line.strip() == fence:
            fence = None
        elif example is False:
            if line.lstrip().startswith("$ "):
                raise BrokenExample(f"{number}: a typed command needs a block ```console")
        elif example is not None and not example.is_shown:
            example.command += line + "\n"
        elif line.startswith("$ "):
            example = Example(number, line[2:])
            examples.append(example)
        elif example is None:
            raise BrokenExample(f'{number}: a block ```console begins with a line "$ ..."')
        elif line.startswith("> ") and not example.expected:
            example.command += "\n" + line[2:]
        else:
            example.expected.append(line)
    if fence is not None:
        raise BrokenExample(f"the block ends nowhere: {fence}")
    return examples


def blocks_of(text):
    """The fenced blocks of a document: the kind and the lines of each, also of those in a list."""
    return [(kind, [line.removeprefix(indent) for line in lines.splitlines()])
            for indent, _, kind, lines in re.findall(
                r"^( *)(```+)(\S*)[^\n]*\n(.*?)^ *\2$", text, re.DOTALL | re.MULTILINE)]


class Shell:
    """bash in the home folder of a desktop. Its commands read nothing, and a window that they open
    is closed with Escape."""

    def __init__(self, desktop, program):
        self.desktop = desktop
        self.home = Path(os.environ["HOME"])
        os.environ["PATH"] = f"{program.parent}:/usr/bin:/bin"
        self.bash = subprocess.Popen(
            ["bash", "--norc"], cwd=self.home, text=True, stdin=subprocess.PIPE,
            stdout=subprocess.PIPE, stderr=subprocess.STDOUT)

    def __enter__(self):
        self.desktop.spawn(["openbox"])
        return self

    def __exit__(self, *_):
        self.bash.stdin.close()
        self.bash.stdout.close()
        self.bash.wait()

    def type(self, command):
        """The output of the command, and its exit status."""
        hang = threading.Timer(PATIENCE, self.bash.kill)
        ended = threading.Event()
        user = threading.Thread(target=self.close_windows, args=(ended,))
        hang.start()
        user.start()
        try:
            self.bash.stdin.write(f"{{ {command}\n}} </dev/null\necho {MARK} $?\n")
            self.bash.stdin.flush()
            output = ""
            while not (end := re.search(rf"{MARK} (\d+)\n", output)):
                line = self.bash.stdout.readline()
                if not line:
                    raise RuntimeError(f"{command!r} did not end; it printed {output!r}")
                output += line
        finally:
            ended.set()
            user.join()
            hang.cancel()
        return output[:end.start()].replace(str(self.home), HOME), int(end[1])

    def close_windows(self, ended):
        while not ended.wait(0.2):
            if self.desktop.xdotool("getactivewindow", may_fail=True):
                self.desktop.press("Escape")


def findings_of(document, program):
    """Types the examples of the document one after the other. Says what is wrong with each."""
    findings = []
    examples = examples_of(document.read_text(encoding="utf-8"))
    with Desktop() as desktop, Shell(desktop, Path(program)) as shell:
        for example in examples:
            output, status = shell.type(example.command)
            place = f"{document.name}:{example.line}: $ {example.command}"
            if example.is_shown and not example.accepts(output):
                expected = "".join(line + "\n" for line in example.expected)
                findings.append(f"{place}\nshould print\n{expected}but prints\n{output}")
            if status != 0 and not example.may_fail():
                findings.append(f"{place}\nends with the status {status}: {output}")
    return findings
