"""A small file goes the whole way: found, written as one file with all its mutants, compiled, run."""

import os
import subprocess
import sys
from pathlib import Path

import pytest

pytest.importorskip("clang.cindex", reason="needs Debian's python3-clang")
sys.path.insert(0, str(Path(__file__).resolve().parent.parent))

from candidates import Candidates  # noqa: E402
from schema import Schema  # noqa: E402

SOURCE = """\
#define LOG(condition) static_cast<void>(condition)
constexpr int offset = 3;
constexpr bool isSmall(int n) { return n < 5; }
int grade(int n) {
    LOG(n > 1);
    static_assert(sizeof(int) == 4);
    if (auto const half = n - 4)
        n += offset;
    switch (n) {
    case 7: return isSmall(n) ? 1 : 2;
    default: break;
    }
    return n;
}
int main(int argc, char**) { return grade(argc); }
"""

# Worked out by hand from the table in README.md; `main` is called with 1, 4 and 9 arguments.
EXPECTED = [
    (3, "`return n < 5` to `return {}`"),
    (3, "`return n < 5` to `return true`"),
    (3, "`n < 5`: `<` to `<=`"),
    (3, "`n < 5`: `<` to `>=`"),
    (3, "`5` to `(5 + 1)`"),
    (3, "`5` to `(5 - 1)`"),
    (5, "`LOG(n > 1)` removed"),
    (7, "`auto const half = n - 4` negated"),
    (7, "`auto const half = n - 4` always holds"),
    (7, "`auto const half = n - 4` never holds"),
    (7, "`n - 4`: `-` to `+`"),
    (7, "`4` to `(4 + 1)`"),
    (7, "`4` to `(4 - 1)`"),
    (8, "`n += offset` removed"),
    (8, "`n += offset`: `+=` to `-=`"),
    (10, "`return isSmall(n) ? 1 : 2` to `return {}`"),
    (10, "`isSmall(n)` negated"),
    (10, "`isSmall(n)` always holds"),
    (10, "`isSmall(n)` never holds"),
    (10, "`1` to `(1 + 1)`"),
    (10, "`1` to `(1 - 1)`"),
    (10, "`2` to `(2 + 1)`"),
    (10, "`2` to `(2 - 1)`"),
    (11, "`break` removed"),
    (13, "`return n` to `return {}`"),
    (15, "`return grade(argc)` to `return {}`"),
]


@pytest.fixture
def found(tmp_path: Path) -> Candidates:
    """The candidates of the small file."""
    path = tmp_path / "small.cpp"
    path.write_text(SOURCE)
    return Candidates(path, ["c++", "-std=c++20"])


def test_what_can_be_changed_is_found(found: Candidates) -> None:
    assert sorted((mutant.line, mutant.what) for mutant in found.mutants) == sorted(EXPECTED)


def test_one_file_holds_them_all(found: Candidates, tmp_path: Path) -> None:
    numbers = {mutant.what: number for number, mutant in enumerate(found.mutants, 1)}
    schema = Schema(tmp_path / "small.cpp", found.text, dict(enumerate(found.mutants, 1)))
    (tmp_path / "all.cpp").write_text(schema.text)
    subprocess.run(["c++", "-std=c++20", "all.cpp", "-o", "all"], cwd=tmp_path, check=True)

    def grade(arguments: int, what: str = "") -> int:
        variables = {"SLATE_MUTANT": str(numbers[what])} if what else {}
        words = ["./all", *["word"] * (arguments - 1)]
        return subprocess.run(words, cwd=tmp_path, env=os.environ | variables).returncode

    # Without a mutant: 1 becomes 4, 4 stays itself since nothing is left of it, and 9 becomes 12.
    assert [grade(1), grade(4), grade(9)] == [4, 4, 12]
    assert grade(4, "`auto const half = n - 4` negated") == 2
    assert grade(9, "`n += offset`: `+=` to `-=`") == 6
    assert grade(9, "`n += offset` removed") == 9
    assert grade(4, "`auto const half = n - 4` always holds") == 2
    assert grade(4, "`n - 4`: `-` to `+`") == 2
    assert grade(9, "`return n` to `return {}`") == 0
