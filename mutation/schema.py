"""Writes a file that holds all its mutants at once, and is the one whose number stands in the environment."""

import re
from collections.abc import Mapping
from pathlib import Path

from mutant import Mutant, Place, Shape

# Numbers begin with 1; without a number the file is as it was. What was reached is written down at the end of a process
# that was asked to.
CHOICE = """
#include <cstdio>
#include <cstdlib>
namespace {{
struct MutantChoice {{
    MutantChoice() {{
        if (const char* const text = std::getenv("SLATE_MUTANT"))
            number = std::atoi(text);
        trace = std::getenv("SLATE_MUTANT_TRACE");
    }}
    ~MutantChoice() {{
        if (std::FILE* const file = trace ? std::fopen(trace, "a") : nullptr) {{
            for (int which = 0; which < {count}; ++which) {{
                if (reached[which])
                    std::fprintf(file, "%d\\n", which);
            }}
            std::fclose(file);
        }}
    }}
    bool operator()(int which) {{
        reached[which] = true;
        return which == number;
    }}
    int number = 0;
    const char* trace = nullptr;
    bool reached[{count}] = {{}};
}};
MutantChoice mutant;
}}
"""
MARK = re.compile(r"/\*@(\d+)\*/")


class Schema:
    """The text of a file with `mutants` by their numbers, and where in it each of them stands."""

    def __init__(self, source: Path, text: str, mutants: Mapping[int, Mutant]) -> None:
        self._text = text
        self._by_place: dict[Place, list[tuple[int, Mutant]]] = {}
        for number, mutant in mutants.items():
            self._by_place.setdefault(mutant.place, []).append((number, mutant))
        # Outer places before those inside of them; of equal ones, the statement before its expression.
        self._places = sorted(
            self._by_place, key=lambda place: (place.start, -place.end, place.shape != Shape.STATEMENT)
        )
        self._next = 0
        body = self._render(0, len(text))
        choice = CHOICE.format(count=max(mutants, default=0) + 1)
        self.text = f'{choice}#line 1 "{source}"\n{body}'
        self._lines = [
            (number, int(mark)) for number, line in enumerate(body.split("\n"), 1) for mark in MARK.findall(line)
        ]

    def numbers_at(self, line: int) -> set[int]:
        """The mutants that an error of the compiler at `line` is about: the nearest ones before it, or else behind."""
        before = [number for number, _ in self._lines if number <= line]
        marked = before[-1] if before else self._lines[0][0]
        return {mark for number, mark in self._lines if number == marked}

    def _render(self, start: int, end: int) -> str:
        pieces = []
        while self._next < len(self._places) and self._places[self._next].start < end:
            place = self._places[self._next]
            self._next += 1
            pieces.append(self._text[start : place.start])
            pieces.append(self._guard(place, self._render(place.start, place.end)))
            start = place.end
        pieces.append(self._text[start:end])
        return "".join(pieces)

    def _guard(self, place: Place, inner: str) -> str:
        mutants = self._by_place[place]
        if place.shape == Shape.STATEMENT:
            choices = "".join(
                f"\n/*@{number}*/ if (mutant({number})) {{ {mutant.replacement} }} else"
                for number, mutant in mutants
            )
            return f"{{{choices} {{\n{inner} }} }}"
        choices = "".join(
            f"\n/*@{number}*/ mutant({number}) ? ({mutant.replacement}) :" for number, mutant in mutants
        )
        if place.shape == Shape.EXPRESSION:
            return f"({choices}\n({inner}))"
        name = re.search(r"(\w+)\s*(=|\{)", self._text[place.start : place.end])
        assert name, "a condition declares something"
        return f"{inner}; ({choices}\nstatic_cast<bool>({name.group(1)}))"
