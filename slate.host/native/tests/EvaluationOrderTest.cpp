#include "slate/host/EvaluationOrder.h"

#include "slate/ModelDeclaration.h"
#include "slate/testing/Evaluate.h"

#include <gtest/gtest.h>

namespace Slate::Host {

namespace {

/// "Gear.size 3:5 before 7:5 9:5", a line a value.
std::string describeOrder(std::string const& raw_text) {
    auto const evaluated = Testing::evaluate(raw_text);
    EXPECT_EQ(evaluated.analyzed.errors(), "");
    std::string text;
    auto const place_of = [](TreeNode const& node) {
        auto const range = node.getNameRange();
        return " " + std::to_string(range.line) + ":" + std::to_string(range.column);
    };
    for (auto const& step : evaluationOrder(evaluated.analyzed.model)) {
        text += step.path + place_of(step.assignment);
        text += step.overridden.empty() ? "" : " before";
        for (auto const& node : step.overridden)
            text += place_of(node);
        text += "\n";
    }
    return text;
}

TEST(EvaluationOrder, NamesWhatWinsAndWhatItGoesBefore) {
    EXPECT_EQ(describeOrder(R"(
        trait Sized:
            size is Real: 1
        Base:
            with Sized
            size: 2
        Part is Base:
            size: 3
        Machine:
            part is Part:
                size: 4
        Mill is Machine:
            part.size: 5
    )"),
              "Mill.part.size 12:5 before 10:9 7:5 5:5 2:5\n");
}

TEST(EvaluationOrder, EachTraitGoesBeforeWhatItsModelExtends) {
    EXPECT_EQ(describeOrder(R"(
        trait Sized:
            size is Real: 1
        trait Tall is Sized:
            size: 2
        Base:
            weight is Real: 1
        Part is Base:
            with Tall
            weight: size
    )"),
              "Part.size 4:5 before 2:5\n"
              "Part.weight 9:5 before 6:5\n");
}

TEST(EvaluationOrder, HasVariablesConstModelsAndAnnotations) {
    EXPECT_EQ(describeOrder(R"(
        const Fixed:
            size is Real: 1
        limit is Real: 2
        Part:
            .unit: "mm"
            size is Real: Fixed.size + limit
    )"),
              "limit 3:1\n"
              "Fixed.size 2:5\n"
              "Part.size 6:5\n"
              "Part.unit 5:6\n");
}

TEST(EvaluationOrder, IsEmptyForWhatWasNotEvaluated) {
    auto const analyzed = Testing::analyze("Part:\n    size is Real: 1\n");
    EXPECT_TRUE(evaluationOrder(nullptr).empty());
    analyzed.model->setTopologicalSort({});
    EXPECT_TRUE(evaluationOrder(analyzed.model).empty());
}

} // namespace

} // namespace Slate::Host
