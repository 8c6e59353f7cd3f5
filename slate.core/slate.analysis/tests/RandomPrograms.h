#pragma once

#include "slate/testing/Analyze.h"

#include <cstddef>
#include <functional>
#include <random>
#include <string>
#include <vector>

namespace Slate::Testing {

/// How a generated program is meant: without mistakes, or with some strewn over it.
enum class Intent { Sound, Faulty };

/// A program of several documents that is the same for the same seed. The shape goes round with the seed: a
/// low forest, a chain of 20 to 60 models, a high tree with many branches, and (where mistakes are meant) a
/// ring.
AnalysisInput makeRandomProgram(std::mt19937::result_type seed, Intent intent);

/// The sources as `readAnalysisInput` reads them, for the messages of tests.
std::string textOf(AnalysisInput const& input);

/// Draws from a seeded source of numbers.
class Dice {
  public:
    explicit Dice(std::mt19937::result_type seed) : random_(seed) {}

    std::size_t number(std::size_t lowest, std::size_t highest) {
        return lowest + random_() % (highest - lowest + 1);
    }

    bool happens(std::size_t percent) { return number(1, 100) <= percent; }

    template <typename Item>
    Item const& pick(std::vector<Item> const& items) {
        return items[number(0, items.size() - 1)];
    }

  private:
    std::mt19937 random_;
};

/// Analyses the programs of `count` seeds of each intent and calls `check(program, dice)`, with the seed and
/// the program in the messages of its failures. Stops at the first program that fails.
void forEachRandomProgram(std::size_t count, std::function<void(Analyzed&, Dice&)> const& check);

} // namespace Slate::Testing
