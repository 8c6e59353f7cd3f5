// Generated programs there and back: after a refactoring they mean the same, and undone it leaves no trace.

#include "RoundTrip.h"

#include "RandomBundle.h"
#include "slate/refactor/QualifiedName.h"

#include <gtest/gtest.h>

namespace Slate::Refactor {

namespace {

using namespace Testing;

constexpr std::mt19937::result_type program_count = 250;

class RoundTrip : public testing::Test {
  protected:
    void check(RandomBundle const& bundle, Trip const& trip) {
        edits_ += checkRoundTrip(bundle.sources, bundle.root, trip);
    }

    /// Calls `take(bundle, item)` with one item of each program's list, if there is one.
    template <typename Item, typename Take>
    static void forEachProgram(Naming naming, std::vector<Item> RandomBundle::*list, Take take) {
        for (std::mt19937::result_type seed = 0; seed < program_count && !HasFailure(); ++seed) {
            SCOPED_TRACE("seed " + std::to_string(seed));
            auto const bundle = makeRandomBundle(seed, naming);
            auto const& items = bundle.*list;
            if (!items.empty())
                take(bundle, items[seed % items.size()]);
        }
    }

    /// The edits of all programs: too few of them test nothing.
    std::size_t edits_ = 0;
};

} // namespace

TEST_F(RoundTrip, RenamesModels) {
    for (auto const naming : {Naming::Full, Naming::Mixed}) {
        forEachProgram(naming, &RandomBundle::models, [&](auto const& bundle, auto const& model) {
            auto const old_name = lastOf(model.full_name);
            auto const new_full_name = joinName(spaceOf(model.full_name), "Hull");
            check(bundle, {.there = {[&](auto const& documents) {
                               return Toolkit::renameModel(documents, model.full_name, "Hull");
                           }},
                           .back = {[&](auto const& documents) {
                               return Toolkit::renameModel(documents, new_full_name, old_name);
                           }},
                           .new_root = bundle.root == model.full_name ? new_full_name : bundle.root,
                           .names = {{"Hull", old_name}},
                           .restores_bytes = naming == Naming::Full});
        });
    }
    EXPECT_GT(edits_, 4 * program_count);
}

TEST_F(RoundTrip, MovesAndRenamesModels) {
    forEachProgram(Naming::Full, &RandomBundle::models, [&](auto const& bundle, auto const& model) {
        if (!model.is_last_of_source)
            return;
        auto const old_name = lastOf(model.full_name);
        check(bundle, {.there = {[&](auto const& documents) {
                                     return Toolkit::moveAndRenameModel(documents, model.full_name,
                                                                        "far.away", "Hull");
                                 },
                                 [&](auto& sources) {
                                     moveDeclaration(sources, model.path, model.qualifier + "Hull",
                                                     "far/away/moved.slate");
                                 }},
                       .back = {[&](auto const& documents) {
                                    return Toolkit::moveAndRenameModel(documents, "far.away.Hull",
                                                                       spaceOf(model.full_name), old_name);
                                },
                                [&](auto& sources) {
                                    moveDeclaration(sources, "far/away/moved.slate",
                                                    model.qualifier + old_name, model.path);
                                }},
                       .new_root = bundle.root == model.full_name ? "far.away.Hull" : bundle.root,
                       .names = {{"far.away.Hull", model.full_name}, {"Hull", old_name}},
                       .keeps_order = false});
    });
    EXPECT_GT(edits_, program_count);
}

TEST_F(RoundTrip, MovesModels) {
    forEachProgram(Naming::Full, &RandomBundle::models, [&](auto const& bundle, auto const& model) {
        if (!model.is_last_of_source)
            return;
        auto const name = lastOf(model.full_name);
        check(bundle,
              {.there = {[&](auto const& documents) {
                             return Toolkit::moveModel(documents, model.full_name, "parts");
                         },
                         [&](auto& sources) {
                             moveDeclaration(sources, model.path, model.qualifier + name,
                                             "parts/moved.slate");
                         }},
               .back = {[&](auto const& documents) {
                            return Toolkit::moveModel(documents, "parts." + name, spaceOf(model.full_name));
                        },
                        [&](auto& sources) {
                            moveDeclaration(sources, "parts/moved.slate", model.qualifier + name, model.path);
                        }},
               .new_root = bundle.root == model.full_name ? "parts." + name : bundle.root,
               .names = {{"parts." + name, model.full_name}},
               .keeps_order = false});
    });
    EXPECT_GT(edits_, program_count);
}

TEST_F(RoundTrip, RenamesNamespaces) {
    for (auto const naming : {Naming::Full, Naming::Mixed}) {
        forEachProgram(naming, &RandomBundle::models, [&](auto const& bundle, auto const& /*model*/) {
            bool const is_root_in = spaceOf(bundle.root) == "plant.stock";
            check(bundle,
                  {.there = {[](auto const& documents) {
                                 return Toolkit::renameNamespace(documents, "plant.stock", "plant.store");
                             },
                             [](auto& sources) { moveDirectory(sources, "plant/stock", "plant/store"); }},
                   .back = {[](auto const& documents) {
                                return Toolkit::renameNamespace(documents, "plant.store", "plant.stock");
                            },
                            [](auto& sources) { moveDirectory(sources, "plant/store", "plant/stock"); }},
                   .new_root = is_root_in ? "plant.store." + lastOf(bundle.root) : bundle.root,
                   .names = {{"plant.store", "plant.stock"}}});
        });
    }
    EXPECT_GT(edits_, 2 * program_count);
}

TEST_F(RoundTrip, RenamesAttributes) {
    for (auto const naming : {Naming::Full, Naming::Mixed}) {
        forEachProgram(naming, &RandomBundle::attributes, [&](auto const& bundle, auto const& attribute) {
            auto const old_name = lastOf(attribute);
            check(bundle, {.there = {[&](auto const& documents) {
                               return Toolkit::renameAttribute(documents, attribute, "renamed");
                           }},
                           .back = {[&](auto const& documents) {
                               return Toolkit::renameAttribute(documents, spaceOf(attribute) + ".renamed",
                                                               old_name);
                           }},
                           .new_root = bundle.root,
                           .names = {{"renamed", old_name}}});
        });
    }
    EXPECT_GT(edits_, 3 * program_count);
}

TEST_F(RoundTrip, RenamesMethods) {
    for (auto const naming : {Naming::Full, Naming::Mixed}) {
        forEachProgram(naming, &RandomBundle::methods, [&](auto const& bundle, auto const& method) {
            auto const old_name = lastOf(method);
            check(bundle, {.there = {[&](auto const& documents) {
                               return Toolkit::renameMethod(documents, method, "renamed");
                           }},
                           .back = {[&](auto const& documents) {
                               return Toolkit::renameMethod(documents, spaceOf(method) + ".renamed",
                                                            old_name);
                           }},
                           .new_root = bundle.root,
                           .names = {{"renamed", old_name}}});
        });
    }
    EXPECT_GT(edits_, program_count);
}

} // namespace Slate::Refactor
