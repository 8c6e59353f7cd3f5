// Trees that no source leads to, as hosts can make them: the analysis takes them without a word.

#include "slate/Annotation.h"
#include "slate/Constant.h"
#include "slate/Document.h"
#include "slate/ModelDeclaration.h"
#include "slate/PrimitiveType.h"
#include "slate/Unary.h"
#include "slate/VarAssignment.h"
#include "slate/testing/Analyze.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>

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

/// A model that is analysed once more with one more member.
class HandMadeTrees : public testing::Test {
  protected:
    void analyzeWith(NodePtr const& member) {
        machine->appendToMembers(member);
        program.analyzeAgain();
    }

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

TEST_F(HandMadeTrees, AnOperatorWithoutOperandHasNoType) {
    auto const value = Unary::create(Token(TokenType::Minus, "-", 1, 1), nullptr);
    analyzeWith(attribute("depth", "Real", value));
    EXPECT_EQ(program.errors(), "");
    EXPECT_EQ(value->getType(), nullptr);
    EXPECT_TRUE(value->isValid());
}

TEST_F(HandMadeTrees, AConstantOfAnotherTokenHasNoType) {
    auto const value = constant(TokenType::Plus, "+");
    analyzeWith(attribute("depth", "Real", value));
    EXPECT_EQ(program.errors(), "");
    EXPECT_EQ(value->getType(), nullptr);
    EXPECT_TRUE(value->isValid());
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
