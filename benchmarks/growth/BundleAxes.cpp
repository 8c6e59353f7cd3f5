#include "Axes.h"
#include "NoErrors.h"
#include "Text.h"
#include "slate/SlateContext.h"
#include "slate/SlateCoreApi.h"
#include "slate/testing/TemporaryTree.h"

#include <fmt/format.h>

#include <memory>
#include <stdexcept>

namespace Slate::Benchmarks {

namespace {

using Core::Api::SlateContext;
using Testing::TemporaryTree;

/// Writes what is loaded from `main/main.slate`; the folder above it is searched for bundles.
using Writer = void (*)(TemporaryTree const& tree, std::size_t size);

void writeConfig(TemporaryTree const& tree, std::string_view bundle, std::string_view dependencies) {
    tree.write(fmt::format("{}/config.slate", bundle),
               fmt::format("config is BundleConfig:\n    name: \"{}\"\n    dependencies: [{}]\n", bundle,
                           dependencies));
}

std::string part(std::size_t number) {
    return fmt::format("Part{0}:\n    mass is Real: 1.5\n    twice is Real: 2 * mass\n", number);
}

void writeFilesOfAFolder(TemporaryTree const& tree, std::size_t size) {
    writeConfig(tree, "main", "");
    tree.write("main/main.slate", "Main:\n    a is Real: 1\n");
    for (std::size_t i = 0; i < size; ++i)
        tree.write(fmt::format("main/part{}.slate", i),
                   part(i) + fmt::format("User{}:\n    a is Part{}\n", i, i / 2));
}

void writeFolders(TemporaryTree const& tree, std::size_t size) {
    writeConfig(tree, "main", "");
    tree.write("main/main.slate", "Main:\n    a is Real: 1\n");
    for (std::size_t i = 0; i < size; ++i)
        tree.write(fmt::format("main/part{}/file.slate", i),
                   part(i) + fmt::format("User{0}:\n    a is part{1}.Part{1}\n", i, i / 2));
}

/// The last size is about as deep as the system lets a path be.
void writeDeepFolders(TemporaryTree const& tree, std::size_t size) {
    writeConfig(tree, "main", "");
    tree.write("main/main.slate", "Main:\n    a is Real: 1\n");
    std::string folder = "main";
    for (std::size_t i = 0; i < size; ++i) {
        folder += "/n";
        tree.write(folder + "/file.slate", part(i));
    }
}

void writeNames(TemporaryTree const& tree, std::size_t size) {
    writeConfig(tree, "main", "");
    tree.write("main/main.slate", repeat(size, part) + "Main:\n    a is Real: 1\n");
    tree.write("main/inner/user.slate",
               repeat(size, [](std::size_t i) { return fmt::format("User{0}:\n    a is Part{0}\n", i); }));
}

void writeDependencies(TemporaryTree const& tree, std::size_t size) {
    writeConfig(tree, "main",
                repeat(size, [](std::size_t i) { return fmt::format("{}\"lib{}\"", i > 0 ? ", " : "", i); }));
    for (std::size_t i = 0; i < size; ++i) {
        writeConfig(tree, fmt::format("lib{}", i), "");
        tree.write(fmt::format("lib{}/part.slate", i), part(i));
    }
    tree.write("main/main.slate", "Main:\n" + repeat(size, [](std::size_t i) {
                                      return fmt::format("    a{0} is lib{0}.Part{0}\n", i);
                                  }));
}

void writeChainOfDependencies(TemporaryTree const& tree, std::size_t size) {
    writeConfig(tree, "main", "\"lib0\"");
    tree.write("main/main.slate", "Main:\n    a is Real: 1\n");
    for (std::size_t i = 0; i < size; ++i) {
        writeConfig(tree, fmt::format("lib{}", i), i + 1 < size ? fmt::format("\"lib{}\"", i + 1) : "");
        tree.write(fmt::format("lib{}/part.slate", i), part(i));
    }
}

Axis bundle(char const* name, std::size_t first_size, Writer write) {
    return {name, first_size, [write](std::size_t size) -> Preparation {
                auto const tree = std::make_shared<TemporaryTree>();
                write(*tree, size);
                return [tree]() -> Work {
                    return [tree] {
                        SlateContext context({tree->root().string()});
                        auto const object = Core::Api::loadModelFromFile(tree->path("main/main.slate"),
                                                                         std::nullopt, context);
                        requireNoErrors(context);
                    };
                };
            }};
}

Axis loadsOnOneContext() {
    auto const generate = [](std::size_t size) -> Preparation {
        return [size]() -> Work {
            return [size] {
                SlateContext context{StringVector()};
                for (std::size_t i = 0; i < size; ++i)
                    static_cast<void>(Core::Api::loadModelFromString(part(i), std::nullopt, context));
                requireNoErrors(context);
            };
        };
    };
    return {"bundles: loads on one context", 20, generate, quadratic,
            "each load parses and analyses all texts of its context"};
}

Axis deepFolders() {
    auto axis = bundle("bundles: depth of folders", 20, writeDeepFolders);
    axis.bounds = quadratic;
    axis.reason = "each file is known by its whole path";
    return axis;
}

} // namespace

std::vector<Axis> bundleAxes() {
    return {
        bundle("bundles: files of a folder", 50, writeFilesOfAFolder),
        bundle("bundles: folders of a file each", 50, writeFolders),
        deepFolders(),
        bundle("bundles: names of a namespace", 300, writeNames),
        bundle("bundles: dependencies of a bundle", 20, writeDependencies),
        bundle("bundles: dependencies along a chain", 20, writeChainOfDependencies),
        loadsOnOneContext(),
    };
}

} // namespace Slate::Benchmarks
