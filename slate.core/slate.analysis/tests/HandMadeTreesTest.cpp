// Trees that no source leads to, as hosts can make them: the analysis takes them without a word.

#include "slate/Annotation.h"
#include "slate/BinaryOp.h"
#include "slate/Call.h"
#include "slate/Constant.h"
#include "slate/Document.h"
#include "slate/Indexing.h"
#include "slate/ModelDeclaration.h"
#include "slate/VarAssignment.h"
#include "slate/testing/Analyze.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace Slate {

namespace {

using namespace Testing;

/// `name is type: value`, or without a type `name: value`.
VarAssignPtr attribute(std::string name, std::string type, ExpressionPtr value, vec<VarAssignPtr> body = {}) {
    auto const has_type = !type.empty();
    return VarAssignment::create({Token::Identifier(std::move(name))},
                                 has_type ? Token(TokenType::Is, "is", 1, 7) : Token::None(),
                                 has_type ? TokenVector{Token::Identifier(std::move(type))} : TokenVector(),
                                 {}, std::move(body), std::move(value));
}

ConstantPtr constant(TokenType type, std::string lexeme) {
    return Constant::create(Token(type, std::move(lexeme), 1, 1));
}

/// A program that is analysed, changed, and analysed once more.
class HandMadeTrees : public testing::Test {
  protected:
    Analyzed program = analyze(R"(
        Frame:
            width is Real: 1
            other is Real: 2
        Machine:
            size is Real: 3
    )");
    ModelDeclPtr const machine = program.findModel("Machine");
};

TEST_F(HandMadeTrees, AnAnnotationWithoutValueIsPassedOver) {
    machine->appendToAnnotations(Annotation::create(Token::Identifier("unit"), nullptr));
    machine->appendToAnnotations(
        Annotation::create(Token::Identifier("mark"), constant(TokenType::Number, "7")));
    program.analyzeAgain();
    EXPECT_EQ(program.errors(), "");
    EXPECT_EQ(dumpTypes(machine->getAnnotations().back()->getValue()), "7:Int");
}

TEST_F(HandMadeTrees, ATraitThatWasMadeToExtendAModelIsReportedNowhere) {
    auto changed = analyze(R"(
        trait Painted:
            color is Int: 1
        Machine:
            size is Real: 3
    )");
    changed.findModel("Painted")->setExtends(changed.findModel("Machine"));
    changed.analyzeAgain();
    EXPECT_EQ(changed.errors(), "test.slate: 20015 0:0 ''\n");
}

TEST_F(HandMadeTrees, AnExpressionWithAGapHasNoType) {
    struct Row {
        char const* description;
        ExpressionPtr value;
        bool is_valid = true;
    };

    auto const one = [] { return constant(TokenType::Number, "1"); };
    auto const plus = Token(TokenType::Plus, "+", 1, 1);
    auto number = 0;
    for (auto const& [description, value, is_valid] : std::vector<Row>{
             {"an operator without left operand", BinaryOp::create(nullptr, one(), plus)},
             {"an operator without right operand", BinaryOp::create(one(), nullptr, plus)},
             {"an index into nothing", Indexing::create(nullptr, one())},
             {"an index that is absent", Indexing::create(one(), nullptr)},
             {"a call of nothing", Call::create(nullptr, {}), false},
             {"a constant of another token", constant(TokenType::Plus, "+")},
         }) {
        machine->appendToMembers(attribute("depth" + std::to_string(++number), "Real", value));
        program.analyzeAgain();
        EXPECT_EQ(program.errors(), "") << description;
        EXPECT_EQ(value->getType(), nullptr) << description;
        EXPECT_EQ(value->isValid(), is_valid) << description;
    }
}

TEST_F(HandMadeTrees, AValueInTheBodyOfAVariableSeesTheAttributesOfItsType) {
    auto const value = constant(TokenType::Identifier, "other");
    auto const variable = attribute("frame", "Frame", nullptr, {attribute("width", "", value)});
    program.documents.front()->appendToMembers(variable);
    program.analyzeAgain();
    EXPECT_EQ(program.errors(), "");
    ASSERT_TRUE(value->getType());
    EXPECT_EQ(value->getType()->toString(), "Real");
}

} // namespace

} // namespace Slate
