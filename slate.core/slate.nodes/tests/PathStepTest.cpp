#include "slate/PathStep.h"

#include "Build.h"
#include "slate/Annotation.h"
#include "slate/Constant.h"
#include "slate/Document.h"
#include "slate/MethodDeclaration.h"
#include "slate/ModelDeclaration.h"
#include "slate/PrimitiveType.h"
#include "slate/TraitImpl.h"
#include "slate/VarAssignment.h"

#include <gtest/gtest.h>

namespace Slate {

namespace {

using namespace Testing;

/// A step as text: its token, source id, type, expression, text and what it is; "-" for what is not there.
std::string describe(PathStep const& step) {
    auto const type = step.getType();
    auto const value = step.getExpression();
    auto const none = std::string("-");
    return (step.getToken() == Token::None() ? none : step.getToken().lexeme) + " " + step.getSourceId() +
           " " + (type ? type->toString() : none) + " " +
           (value ? value->asConstant()->getToken().lexeme : none) + " '" + step.getText() + "'" +
           (step.isInherited() ? " inherited" : "") + (step.isMember() ? " member" : "") +
           (step.isModel() ? " model" : "");
}

/// A model that mixes a trait in, with an attribute and annotations, in a document of their own; the trait is
/// in another one.
class PathStepTest : public testing::Test {
  protected:
    PathStepTest() {
        for (auto const& [node, source] :
             std::vector{std::pair(body, shapes), std::pair(earth, shapes), std::pair(named, traits)})
            node->setOwningDocument(source);
        attribute->setOwningDocument(shapes);
        entry->setOwningModel(body);
        unit->setOwningDocument(shapes);
    }

    DocPtr shapes = Document::create("shapes.slate", {});
    DocPtr traits = Document::create("traits.slate", {});
    VarAssignPtr attribute = assignment("a.b.c", number("7"));
    AnnotationPtr unit = annotation("unit");
    ModelDeclPtr named = traitModel("Named");
    ModelDeclPtr body = model("Body");
    ModelDeclPtr earth = constModel("Earth");
    TraitImplPtr entry = with(named);
    MethodDeclPtr grow = method("grow");
};

} // namespace

TEST_F(PathStepTest, AnswersForItsKindOfNode) {
    shapes->appendToNamespace("Solids");
    unit->getValue()->setType(intType());
    auto const targets = vec<VarAssignPtr>{typed("a", realType()), typed("b", body), typed("c", intType())};
    attribute->setTargetDeclarations(targets);

    struct Row {
        NodePtr node;
        char const* name;
        std::size_t index;
        char const* expected;
    };

    for (auto const& [node, name, index, expected] : std::vector<Row>{
             {body, "", 0, "Body shapes.slate Solids.Body - 'Solids.Body' inherited"},
             {earth, "", 0, "Earth shapes.slate Solids.Earth - 'Solids.Earth' inherited model"},
             {named, "", 0, "Named traits.slate .Named - 'Named' inherited"},
             {entry, "", 0, "Named shapes.slate .Named - '' inherited"},
             {attribute, "a", 0, "a shapes.slate Real 7 'a' member"},
             {attribute, "b", 1, "b shapes.slate Solids.Body 7 'b' member"},
             {attribute, "c", 2, "c shapes.slate Int 7 'c' member"},
             {unit, "unit", 1, "unit shapes.slate Int - 'unit' member"},
             {grow, "grow", 0, "- <null> - - 'grow' member"},
         }) {
        PathStep const step(node, name, index);
        EXPECT_EQ(describe(step), expected);
        EXPECT_EQ(step.getNode(), node) << expected;
        EXPECT_EQ(step.getName(), name) << expected;
        EXPECT_EQ(step.getIndex(), index) << expected;
        EXPECT_EQ(step.getOuterType(), nullptr) << expected;
    }
}

TEST_F(PathStepTest, IsInTheDocumentOfItsNode) {
    EXPECT_EQ(PathStep(body, "", 0).getDocument(), shapes);
    EXPECT_EQ(PathStep(entry, "", 0).getDocument(), shapes) << "where the model says `with`";
    EXPECT_EQ(PathStep(attribute, "a", 0).getDocument(), shapes);
    EXPECT_EQ(PathStep(unit, "unit", 1).getDocument(), shapes);
    EXPECT_EQ(PathStep(grow, "grow", 0).getDocument(), nullptr);
}

TEST_F(PathStepTest, HasNoSourceWithoutDocument) {
    auto const free_model = model("Free");
    auto const entry_of_free_model = with(named);
    entry_of_free_model->setOwningModel(free_model);
    auto const free_entry = with(named);
    auto const free_attribute = assignment("x");
    auto const free_annotation = annotation("x");
    EXPECT_EQ(describe({free_model, "", 0}), "Free <null> Free - 'Free' inherited");
    EXPECT_EQ(describe({entry_of_free_model, "", 0}), "Named <null> .Named - '' inherited");
    EXPECT_EQ(describe({free_entry, "", 0}), "Named <null> .Named - '' inherited");
    EXPECT_EQ(describe({free_attribute, "x", 0}), "x <null> - - 'x' member");
    EXPECT_EQ(describe({free_annotation, "x", 1}), "x <null> - - 'x' member");
}

TEST_F(PathStepTest, TraitEntryWithoutTargetHasNeitherNameNorType) {
    auto const unresolved = TraitImpl::create(segments("Absent"));
    unresolved->setOwningModel(body);
    PathStep const step(unresolved, "", 0);
    EXPECT_EQ(describe(step), "- shapes.slate - - '' inherited");
}

TEST_F(PathStepTest, TypeOfAnAttributeIsItsOwnOrElseThatOfTheDeclarationAtItsIndex) {
    auto const outer = typed("a", body);
    auto const inner = typed("b", intType());
    attribute->setTargetDeclarations({outer, inner});
    EXPECT_EQ(PathStep(attribute, "a", 0).getType(), body);
    EXPECT_EQ(PathStep(attribute, "b", 1).getType(), inner->getType());
    EXPECT_EQ(PathStep(attribute, "c", 2).getType(), nullptr) << "no declaration there";

    auto const own = realType();
    attribute->setType(own);
    for (std::size_t index = 0; index < 3; ++index)
        EXPECT_EQ(PathStep(attribute, "x", index).getType(), own);
}

TEST_F(PathStepTest, AnnotationWithoutValueOrWithAnUnboundOneHasNoType) {
    auto const empty = Annotation::create(token("doc"), nullptr);
    EXPECT_EQ(PathStep(empty, "doc", 1).getType(), nullptr);
    EXPECT_EQ(PathStep(empty, "doc", 1).getExpression(), nullptr);
    EXPECT_EQ(PathStep(unit, "unit", 1).getType(), nullptr);
}

TEST_F(PathStepTest, ModelsAndTraitsAreComparedByNodeAndAllElseByName) {
    auto const other_body = model("Body");
    auto const other_entry = with(named);
    auto const other_attribute = assignment("a");
    auto const x = annotation("x");
    auto const x_variable = declaration("x");
    auto const step = [](NodePtr const& node, char const* name, std::size_t index) {
        return PathStep(node, name, index);
    };

    EXPECT_EQ(step(body, "", 0), step(body, "", 0));
    EXPECT_FALSE(step(body, "", 0) == step(other_body, "", 0)) << "models of one name";
    EXPECT_EQ(step(entry, "", 0), step(entry, "", 0));
    EXPECT_FALSE(step(entry, "", 0) == step(other_entry, "", 0)) << "entries of one trait";
    EXPECT_EQ(step(body, "", 0), step(entry, "", 0)) << "a model and a trait have the same empty name";
    EXPECT_FALSE(step(body, "", 0) == step(attribute, "a", 0));
    EXPECT_EQ(step(attribute, "a", 0), step(other_attribute, "a", 0));
    EXPECT_FALSE(step(attribute, "a", 0) == step(attribute, "b", 1)) << "segments of one node";
    EXPECT_EQ(step(attribute, "a", 0), step(attribute, "a", 5)) << "the index does not count";
    EXPECT_EQ(step(x, "x", 1), step(x_variable, "x", 0)) << "an annotation and an attribute";
}

TEST_F(PathStepTest, OuterTypeDoesNotCountInComparisons) {
    PathStep one(attribute, "a", 0);
    PathStep const other(attribute, "a", 0);
    one.setOuterType(body);
    EXPECT_EQ(one.getOuterType(), body);
    EXPECT_EQ(one, other);
    EXPECT_EQ(one.getType(), nullptr) << "the outer type is beside the type";
    one.setOuterType({});
    EXPECT_EQ(one.getOuterType(), nullptr);
}

TEST_F(PathStepTest, OuterTypeMadeByTheAnalysisIsKeptAndAModelIsNot) {
    PathStep step(attribute, "a", 0);
    step.setOuterType(intType());
    ASSERT_TRUE(step.getOuterType());
    EXPECT_EQ(step.getOuterType()->toString(), "Int");
    auto gone = model("Gone");
    step.setOuterType(gone);
    gone.reset();
    EXPECT_EQ(step.getOuterType(), nullptr);
}

TEST_F(PathStepTest, AnswersAsOneWithoutNodeOnceItsTreeIsGone) {
    auto gone_model = model("Gone");
    auto gone_entry = with(named);
    auto gone_attribute = assignment("a.b", number("1"));
    auto gone_annotation = annotation("unit");
    std::vector<PathStep> const steps = {
        {gone_model, "", 0}, {gone_entry, "", 0}, {gone_attribute, "b", 1}, {gone_annotation, "unit", 1}};
    gone_model.reset();
    gone_entry.reset();
    gone_attribute.reset();
    gone_annotation.reset();

    char const* const expected[] = {"- <null> - - '' inherited", "- <null> - - '' inherited",
                                    "- <null> - - 'b' member", "- <null> - - 'unit' member"};
    for (std::size_t i = 0; i < steps.size(); ++i) {
        EXPECT_EQ(describe(steps[i]), expected[i]);
        EXPECT_EQ(steps[i].getNode(), nullptr);
        EXPECT_EQ(steps[i].getDocument(), nullptr);
    }
    EXPECT_FALSE(steps[2] == steps[3]);
    EXPECT_EQ(steps[2], PathStep(attribute, "b", 1));
}

} // namespace Slate
