#pragma once

#include "slate/testing/Analyze.h"

#include <cstddef>
#include <random>
#include <string>
#include <vector>

namespace Slate::Refactor {

/// How a generated program names models: always in full, or as briefly as may be at that place.
enum class Naming { Full, Mixed };

/// A program without mistakes in several sources and namespaces, in which refactorings leave nothing behind:
/// no names of models or calls in initializers, in indices or in front of them, none but numbers in traits,
/// and of the namespace `plant.stock` only types in bodies.
struct RandomBundle {
    struct Model {
        std::string full_name;
        std::string path;      // of its source
        std::string qualifier; // "const " or empty
        bool is_last_of_source = false;
    };

    std::vector<Testing::Source> sources;
    std::string root;                    // the full name of the model to evaluate
    std::vector<Model> models;           // but for traits
    std::vector<std::string> attributes; // full names, but for those of traits and what is redeclared
    std::vector<std::string> methods;    // full names
};

/// The same for the same seed.
RandomBundle makeRandomBundle(std::mt19937::result_type seed, Naming naming);

} // namespace Slate::Refactor
