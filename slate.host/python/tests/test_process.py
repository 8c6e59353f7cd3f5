"""The installed command as a process: streams, terminals, signals, and what goes wrong around it."""

from __future__ import annotations

import json
import os
import pty
import signal
import subprocess
import time
from pathlib import Path

import pytest
from conftest import SLOWNESS, TIME_LIMIT_S, Run, Write

MILL = "Mill:\n    length is Real: 1\n"
BROKEN = "Mill:\n    length is Float\n"


def on_terminal(command: list[str], environment: dict[str, str], folder: Path) -> tuple[int, str]:
    """Runs a command with a terminal for everything; answers with the status and what the terminal got."""
    main, side = pty.openpty()
    process = subprocess.Popen(
        command, cwd=folder, env={"TERM": "xterm-256color", **environment}, stdin=side, stdout=side, stderr=side
    )
    os.close(side)
    received = b""
    while True:
        try:
            chunk = os.read(main, 65536)
        except OSError:  # The other side is closed.
            break
        received += chunk
    os.close(main)
    return process.wait(TIME_LIMIT_S), received.decode().replace("\r\n", "\n")


def test_a_terminal_gets_a_tree_in_colours(
    command: str, environment: dict[str, str], write: Write, tmp_path: Path
) -> None:
    write("mill.slate", MILL)
    status, output = on_terminal([command, "eval", "mill.slate"], environment, tmp_path)
    assert status == 0
    assert "\x1b[" in output
    assert "── " in output
    status, output = on_terminal([command, "eval", "mill.slate", "--format", "json"], environment, tmp_path)
    assert output == '{\n  "length": 1\n}\n'


@pytest.mark.parametrize("more", [{"NO_COLOR": "1"}, {"TERM": "dumb"}])
def test_no_colours_where_there_are_none(
    command: str, environment: dict[str, str], write: Write, tmp_path: Path, more: dict[str, str]
) -> None:
    write("mill.slate", MILL)
    write("broken.slate", BROKEN)
    for arguments in (["eval", "mill.slate"], ["check", "broken.slate"], ["eval", "broken.slate"]):
        _, output = on_terminal([command, *arguments], {**environment, **more}, tmp_path)
        assert "\x1b[3" not in output and "\x1b[1;3" not in output
        assert "Mill" in output or "Float" in output


def test_findings_in_colours(command: str, environment: dict[str, str], write: Write, tmp_path: Path) -> None:
    write("broken.slate", BROKEN)
    status, output = on_terminal([command, "check", "broken.slate"], environment, tmp_path)
    assert status == 1
    assert "\x1b[1;31merror[E20001]\x1b[0m" in output
    assert "\x1b[1;31m^^^^^\x1b[0m" in output


def test_progress_of_a_long_check(command: str, environment: dict[str, str], write: Write, tmp_path: Path) -> None:
    for index in range(60):
        write(f"mill/m{index}.slate", f"M{index}:\n    length is Real: 1\n" + "# filler\n" * 20_000)
    write("mill/config.slate", 'config is BundleConfig:\n    name: "mill"\n')
    arguments = [command, "check", "mill", "--all-models"]
    status, output = on_terminal(arguments, environment, tmp_path)
    assert status == 0, output
    assert "/61" in output
    assert output.splitlines()[-1].endswith("no mistakes\x1b[0m in 61 files")
    silent = subprocess.run(
        arguments, cwd=tmp_path, env=environment, capture_output=True, check=True, timeout=TIME_LIMIT_S
    )
    assert (silent.stdout, silent.stderr) == (b"no mistakes in 61 files\n", b"")


def test_a_reader_that_has_seen_enough(command: str, environment: dict[str, str], write: Write, tmp_path: Path) -> None:
    write("big.slate", "Big:\n" + "".join(f"    a{index} is Real: 1\n" for index in range(10_000)))
    for output_format in ("json", "flat", "tree"):
        process = subprocess.Popen(
            [command, "eval", "big.slate", "--format", output_format],
            cwd=tmp_path,
            env=environment,
            stdout=subprocess.PIPE,
            stderr=subprocess.PIPE,
        )
        assert process.stdout is not None and process.stderr is not None
        assert len(process.stdout.read(10)) == 10
        process.stdout.close()
        assert process.stderr.read() == b""
        process.stderr.close()
        assert process.wait(TIME_LIMIT_S) == -signal.SIGPIPE


def test_a_full_disk_and_a_closed_stream(
    command: str, environment: dict[str, str], write: Write, tmp_path: Path
) -> None:
    write("mill.slate", MILL)
    shell = {"cwd": tmp_path, "env": environment, "capture_output": True, "timeout": TIME_LIMIT_S}
    full = subprocess.run(["sh", "-c", f"{command} eval mill.slate >/dev/full"], **shell)  # type: ignore[call-overload]
    assert (full.returncode, full.stderr) == (2, b"slate: no space left on device\n")
    closed = subprocess.run(["sh", "-c", f"{command} eval mill.slate >&-"], **shell)  # type: ignore[call-overload]
    assert (closed.returncode, closed.stderr) == (2, b"slate: standard output is closed\n")


LONG = 30


def write_endless(write: Write) -> None:
    """A model that unfolds into more objects than there is time for."""
    levels = "".join(f"L{i}:\n    a is L{i + 1}\n    b is L{i + 1}\n" for i in range(LONG))
    write("endless.slate", f"L{LONG}:\n    x is Int: 7\n{levels}Root:\n    top is L0\n")


def seconds_of_work(process: int) -> float:
    """The time that the process has computed."""
    fields = Path(f"/proc/{process}/stat").read_text().rpartition(")")[2].split()
    return (int(fields[11]) + int(fields[12])) / os.sysconf("SC_CLK_TCK")


@pytest.mark.parametrize("arguments", [["eval", "endless.slate"], ["check", "endless.slate", "--all-models"]])
def test_an_interrupt_within_the_core(
    command: str, environment: dict[str, str], write: Write, tmp_path: Path, arguments: list[str]
) -> None:
    write_endless(write)
    process = subprocess.Popen(
        [command, *arguments], cwd=tmp_path, env=environment, stdout=subprocess.PIPE, stderr=subprocess.PIPE
    )
    try:
        while seconds_of_work(process.pid) < 0.5:
            assert process.poll() is None
            time.sleep(0.01)
        process.send_signal(signal.SIGINT)
        output, errors = process.communicate(timeout=SLOWNESS)
    finally:
        process.kill()
    assert (process.returncode, output, errors) == (130, b"", b"")


def test_an_interrupt_while_waiting_for_input(command: str, environment: dict[str, str], tmp_path: Path) -> None:
    process = subprocess.Popen(
        [command, "eval", "-"],
        cwd=tmp_path,
        env=environment,
        stdin=subprocess.PIPE,
        stdout=subprocess.PIPE,
        stderr=subprocess.PIPE,
    )
    try:
        while "_SlateHostSwig" not in Path(f"/proc/{process.pid}/maps").read_text():
            assert process.poll() is None
            time.sleep(0.01)
        # The text is read once the core is there.
        time.sleep(0.3)
        process.send_signal(signal.SIGINT)
        output, errors = process.communicate(timeout=SLOWNESS)
    finally:
        process.kill()
    assert (process.returncode, output, errors) == (130, b"", b"")


@pytest.mark.parametrize(
    "arguments",
    [
        ["eval"],
        ["eval", "none.slate"],
        ["eval", "."],
        ["eval", "loop.slate"],
        ["eval", "mill.slate", "--format", "xml"],
        ["eval", "mill.slate", "--path", "nowhere"],
        ["eval", "mill.slate", "--path", "mill.slate"],
        ["check", "none"],
        ["check", "mill.slate", "--model", "Mill", "--all-models"],
        ["new", "."],
        ["new", "mill.slate"],
        ["nonsense"],
    ],
)
def test_wrong_use(run: Run, write: Write, tmp_path: Path, arguments: list[str]) -> None:
    write("mill.slate", MILL)
    (tmp_path / "loop.slate").symlink_to("loop.slate")
    done = run(*arguments)
    assert (done.status, done.output) == (2, "")
    assert done.errors.splitlines()[-1].startswith("Error: ")


def test_a_search_path_of_the_environment_that_does_not_exist(run: Run, write: Write) -> None:
    write("mill.slate", MILL)
    done = run("eval", "mill.slate", SLATE_BUNDLE_PATH="nowhere")
    assert (done.status, done.output) == (2, "")
    assert done.errors.splitlines()[-1] == "Error: SLATE_BUNDLE_PATH names 'nowhere', which is no directory."


def failing_trees(write: Write, tmp_path: Path) -> None:
    """Sources that the core throws at."""
    write("bad/config.slate", "nothing\n")
    write("bad/mill.slate", MILL)
    write("loop/config.slate", 'config is BundleConfig:\n    name: "loop"\n')
    write("loop/mill.slate", MILL)
    (tmp_path / "loop" / "loop.slate").symlink_to("loop.slate")
    write("empty/config.slate", 'config is BundleConfig:\n    name: "empty"\n')
    write("notes/config.slate", 'config is BundleConfig:\n    name: "notes"\n')
    write("notes/notes.txt", "nothing")


@pytest.mark.parametrize(
    ("arguments", "sentence"),
    [
        (["eval", "bad/mill.slate"], "bad/config.slate"),
        (["eval", "loop/mill.slate"], "loop/loop.slate"),
        (["check", "loop"], "loop/loop.slate"),
        (["eval", "notes/notes.txt"], "notes/notes.txt is no source of its bundle"),
        (["check", "notes/notes.txt"], "notes/notes.txt is no source of its bundle"),
        (["eval", "empty/config.slate"], "empty/config.slate is no source of its bundle"),
    ],
)
def test_what_the_core_throws_is_a_sentence(
    run: Run, write: Write, tmp_path: Path, arguments: list[str], sentence: str
) -> None:
    failing_trees(write, tmp_path)
    done = run(*arguments)
    assert (done.status, done.output) == (2, "")
    assert done.errors.startswith("slate: ") and done.errors.count("\n") == 1
    assert sentence in done.errors


def test_a_huge_file(run: Run, write: Write) -> None:
    filler = "# filler of some length\n" * 1_000_000
    write("huge.slate", f"{filler}{MILL}Last:\n    a is Nothing # {'x' * 10_000_000}\n")
    done = run("eval", "huge.slate", "--model", "Mill")
    assert json.loads(done.output) == {"length": 1}
    done = run("check", "huge.slate")
    assert done.status == 1
    assert "       --> huge.slate:1000004:10" in done.output.splitlines()
    assert len(done.output) < 2_000


@pytest.mark.parametrize("locale", ["C.UTF-8", "C", "POSIX"])
def test_text_beyond_ascii(run: Run, write: Write, locale: str) -> None:
    write("größe 大.slate", 'Mill:\n    name is String: "Mühle 大\udcff"\n    .note: "é"\n')
    done = run("eval", "größe 大.slate", LC_ALL=locale)
    assert (done.status, done.errors) == (0, "")
    assert done.output == '{"name": "Mühle 大\udcff", ".note": "é"}\n'
    tree = run("eval", "größe 大.slate", "--format", "tree", LC_ALL=locale)
    assert tree.output == 'Mill\n├── name   "Mühle 大\udcff"\n└── .note  "é"\n'
    write("größe.slate", 'Mill:\n    name is Strang: "大"\n')
    done = run("check", "größe.slate", LC_ALL=locale)
    assert (done.status, done.errors) == (1, "")
    assert ' --> größe.slate:2:13' in done.output.splitlines()
    assert '2 |     name is Strang: "大"' in done.output.splitlines()


def test_the_log_is_shown_on_request_only(run: Run, write: Write) -> None:
    write("mill.slate", MILL)
    done = run("eval", "mill.slate", "--verbose")
    assert json.loads(done.output) == {"length": 1}
    assert "Parsing document " in done.errors
    missing = run("eval", "mill.slate", "--model", "None")
    assert (missing.status, missing.output) == (1, "")
    assert "could be found" not in missing.errors
    assert missing.errors.startswith("error[E30008]: ")


def test_version_and_help(run: Run) -> None:
    assert run("--version").output == f"slate {os.environ['SLATE_VERSION']}\n"
    pages: list[list[str]] = [[], ["eval"], ["check"], ["new"]]
    for page in pages:
        done = run(*page, "--help")
        assert done.status == 0
        assert "Examples:" in done.output
        assert max(map(len, done.output.splitlines())) <= 100


def test_rarely_used_modules_are_imported_late(
    installed: Path, environment: dict[str, str], write: Write, tmp_path: Path
) -> None:
    write("mill.slate", MILL)
    heavy = {"rich", "CorePythonSwig", "SlateHostSwig", "unittest", "asyncio"}
    cases: list[tuple[list[str], set[str]]] = [
        (["--help"], set()),
        (["eval", "mill.slate"], {"CorePythonSwig", "SlateHostSwig"}),
    ]
    for arguments, expected in cases:
        done = subprocess.run(
            ["/usr/bin/python3", "-X", "importtime", installed / "bin" / "slate", *arguments],
            cwd=tmp_path,
            env=environment,
            capture_output=True,
            encoding="utf-8",
            check=True,
            timeout=TIME_LIMIT_S,
        )
        imported = {line.rpartition("|")[2].strip().partition(".")[0] for line in done.stderr.splitlines()}
        assert imported & heavy == expected


def test_a_new_bundle(run: Run, installed: Path, environment: dict[str, str], tmp_path: Path) -> None:
    done = run("new", "press line")
    assert (done.status, done.errors) == (0, "")
    assert "press line/press_line.slate" in done.output
    assert run("check", "press line", "--all-models").output == "no mistakes in 2 files\n"
    assert run("eval", "press line/press_line.slate").status == 0
    packages = installed / os.environ["SLATE_PYTHON_DIR"]
    subprocess.run(
        ["/usr/bin/python3", "test_values.py"],
        cwd=tmp_path / "press line",
        env={**environment, "PYTHONPATH": str(packages)},
        capture_output=True,
        check=True,
        timeout=TIME_LIMIT_S,
    )
    assert run("new", "press line").status == 2


def test_completion(run: Run, installed: Path, write: Write) -> None:
    write("mill.slate", MILL + "Shaft:\n    a is Real: 1\ntrait T:\n    b is Real: 1\n")

    def completed(words: str) -> list[str]:
        done = run(_SLATE_COMPLETE="bash_complete", COMP_WORDS=words, COMP_CWORD=str(words.count(" ")))
        return [line.partition(",")[2] for line in done.output.splitlines()]

    assert completed("slate ") == ["check", "eval", "explain", "graph", "move", "new", "rename"]
    assert completed("slate eval mill.slate --model ") == ["Mill", "Shaft"]
    assert completed("slate eval mill.slate --format f") == ["flat"]
    share = installed / "share"
    for script in ("bash-completion/completions/slate", "zsh/vendor-completions/_slate"):
        assert "_slate_completion" in (share / script).read_text()
    assert "_slate_completion" in (share / "fish/vendor_completions.d/slate.fish").read_text()
