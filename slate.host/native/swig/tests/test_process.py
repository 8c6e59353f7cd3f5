"""What concerns the whole process: the log, and interrupts."""

import signal
import subprocess
import sys
import time

import CorePythonSwig as core
import pytest
import SlateHostSwig as host

WARNING = "import CorePythonSwig as core, SlateHostSwig as host, os\n" \
    "os.environ.pop('SLATE_BUNDLE_PATH', None)\n{}\ncore.SlateContext.deriveBundlePaths()\n"


def logged_by(setup):
    """What a process writes that has something to log: its standard output and standard error."""
    done = subprocess.run([sys.executable, "-c", WARNING.format(setup)], capture_output=True, text=True, check=True,
                          timeout=60)
    return done.stdout, done.stderr


def test_where_the_log_goes():
    out, err = logged_by("")
    assert "SLATE_BUNDLE_PATH" in out and err == ""
    out, err = logged_by("host.logToStandardError()")
    assert out == "" and "SLATE_BUNDLE_PATH" in err
    out, err = logged_by("host.logToStandardError(); host.resetLog()")
    assert "SLATE_BUNDLE_PATH" in out and err == ""
    assert logged_by("host.setLogLevel('off')") == ("", "")
    assert logged_by("host.setLogLevel('critical'); host.logToStandardError()") == ("", "")


def test_a_callback_gets_the_lines():
    out, err = logged_by("host.setLogCallback(lambda *line: print(*line, sep='|'))")
    level, text, function = out.strip().split("|")
    assert level == "error" and "SLATE_BUNDLE_PATH" in text and function.endswith("deriveBundlePaths") and err == ""


def test_a_callback_may_fail_and_log_itself():
    out, err = logged_by("host.setLogCallback(lambda *_: print(1 // 0))")
    assert out == "" and "ZeroDivisionError" in err
    out, err = logged_by("host.setLogCallback(lambda *_: print('once') or core.SlateContext.deriveBundlePaths())")
    assert (out, err) == ("once\n", "")


def test_what_is_no_level_or_callback():
    with pytest.raises(ValueError, match="loud"):
        host.setLogLevel("loud")
    with pytest.raises(TypeError):
        host.setLogCallback("print")
    with pytest.raises(TypeError):
        host.setLogLevel(3)


BUSY = """
import CorePythonSwig as core, SlateHostSwig as host
host.exitOnInterrupt()
source = "Body:\\n    sum is Int: 1" + " + 1" * 1_000_000
print("ready", flush=True)
while True:
    core.loadModelFromString(source, None, core.SlateContext(core.StringVector()))
"""


def test_an_interrupt_ends_a_long_call_at_once():
    with subprocess.Popen([sys.executable, "-c", BUSY], stdout=subprocess.PIPE, stderr=subprocess.PIPE) as process:
        try:
            assert process.stdout is not None and process.stdout.readline() == b"ready\n"
            time.sleep(0.3)
            started = time.monotonic()
            process.send_signal(signal.SIGINT)
            assert process.wait(timeout=30) == 130
            assert time.monotonic() - started < 1
            assert process.stderr is not None and process.stderr.read() == b""
        finally:
            process.kill()
