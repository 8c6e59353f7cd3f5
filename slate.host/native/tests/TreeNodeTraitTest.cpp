#include "slate/host/TreeNode.h"
#include "slate/testing/Analyze.h"

#include <gtest/gtest.h>

namespace Slate::Host {

namespace {

/// The names and members of a document that refer to something, as "length 3:5 -> 2:5".
std::string targetsIn(DocPtr const& document) {
    std::string text;
    for (auto const& node : viewDocument(document)->getDescendants()) {
        auto const target = node.getTarget();
        auto const place = node.getNameRange();
        bool const is_name = node.getKind() == "name" || node.getKind() == "member";
        if (target && is_name && target->getKind() != "model") {
            auto const there = target->getNameRange();
            text += node.getName() + " " + std::to_string(place.line) + ":" + std::to_string(place.column) +
                    " -> " + std::to_string(there.line) + ":" + std::to_string(there.column) + "\n";
        }
    }
    return text;
}

// A trait is bound where it is mixed in; its own names mean what they say there.
TEST(TreeNode, ResolvesNamesInTraits) {
    auto const analyzed = Testing::analyze(R"(
        trait Base:
            size is Real: 1
        trait Sized is Base:
            part is Part
            parts is Part[]: [part]
            total is Real: size + this.part.weight
            first is Real: parts[0].weight
            shape is Part:
                weight: total
            made is Real: Part.make() + part.grow(size) + own()
            fn own() -> Real
        Part:
            weight is Real: 2
            static fn make() -> Real
            fn grow(by: Real) -> Real
        User:
            with Sized
            twice is Real: total * 2
    )");
    EXPECT_EQ(analyzed.errors(), "");
    EXPECT_EQ(targetsIn(analyzed.documents[0]), "part 5:23 -> 4:5\n"
                                                "size 6:20 -> 2:5\n"
                                                "weight 6:37 -> 13:5\n"
                                                "part 6:32 -> 4:5\n"
                                                "weight 7:29 -> 13:5\n"
                                                "parts 7:20 -> 5:5\n"
                                                "weight 9:9 -> 13:5\n"
                                                "total 9:17 -> 6:5\n"
                                                "make 10:24 -> 14:15\n"
                                                "grow 10:38 -> 15:8\n"
                                                "part 10:33 -> 4:5\n"
                                                "size 10:43 -> 2:5\n"
                                                "own 10:51 -> 11:8\n"
                                                "total 18:20 -> 6:5\n");
}

} // namespace

} // namespace Slate::Host
