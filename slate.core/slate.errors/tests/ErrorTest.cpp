#include "slate/Error.h"

#include "slate/AnalysisErrors.h"
#include "slate/CycleFoundError.h"
#include "slate/LoadErrors.h"

#include <gtest/gtest.h>

namespace Slate {

namespace {

/// Answers with the operation reached and the number of the error.
class NamingVisitor : public ErrorVisitor {
  public:
    std::string visitError(Error const& error) override { return answer("error", error); }

    std::string visitCycleFoundError(CycleFoundError const& error) override { return answer("cycle", error); }

    std::string visitStringParameterError(StringParameterError const& error) override {
        return answer("string", error);
    }

  private:
    static std::string answer(std::string const& operation, Error const& error) {
        return operation + " " + std::to_string(error.getErrorCode());
    }
};

std::string visit(Error const& error) {
    NamingVisitor visitor;
    return error.accept(visitor);
}

Token token(std::string lexeme, line_t line, col_t column) {
    return {TokenType::Identifier, std::move(lexeme), line, column};
}

TokenVector pathAt(line_t line, col_t column) {
    return {token("a", line, column), token("b", line, column + 2), token("c", line, column + 4)};
}

/// A named error made at 3:5 of "a.slate", and the string that it must hold.
struct NamedError {
    std::string name;
    std::shared_ptr<StringParameterError> error;
    error_code_t code;
    std::string string_parameter;
};

/// What the factories with a line, a column, a source id and a string make.
std::vector<NamedError> errorsMadeFromPositions() {
    std::string const source = "a.slate";
    return {
        {"MissingAssignmentError", MissingAssignmentError::create(3, 5, source, "a.b"), 30003, "a.b"},
        {"CircularDependency", CircularDependency::create(3, 5, source, "A, B"), 30004, "A, B"},
        {"ModelDeclarationNotFound", ModelDeclarationNotFound::create(3, 5, source, "Body"), 30008, "Body"},
        {"VariableNotFound", VariableNotFound::create(3, 5, source, "x"), 20002, "x"},
        {"SymbolAlreadyDefined", SymbolAlreadyDefined::create(3, 5, source, "x"), 20006, "x"},
        {"NoPluginForImportedFile", NoPluginForImportedFile::create(3, 5, source, "f.x"), 10022, "f.x"},
        {"ImportedFileNotFound", ImportedFileNotFound::create(3, 5, source, "f.x"), 10023, "f.x"},
        {"FileNotFound", FileNotFound::create(3, 5, source, "f.x"), 30009, "f.x"},
    };
}

/// What the other factories make: from tokens, or with the string in front of the source id.
std::vector<NamedError> errorsMadeOtherwise() {
    std::string const source = "a.slate";
    return {
        {"TypeNotFound", TypeNotFound::create(pathAt(3, 5), source), 20001, "a.b.c"},
        {"MethodNotFound", MethodNotFound::create(token("f", 3, 5), "a.f", source), 20003, "a.f"},
        {"MemberNotFound", MemberNotFound::create(token("x", 3, 5), source), 20004, "x"},
        {"SymbolAlreadyAssigned", SymbolAlreadyAssigned::create(token("x", 3, 5), source), 20007, "x"},
        {"ExpectedTrait", ExpectedTrait::create(pathAt(3, 5), source), 20015, "a.b.c"},
        {"ModelNotInitializable", ModelNotInitializable::create(3, 5, "Body", source), 30010, "Body"},
        {"DependencyNotSatisfied", DependencyNotSatisfied::create(3, 5, "bundle", source), 30011, "bundle"},
    };
}

std::vector<NamedError> namedErrors() {
    auto all = errorsMadeFromPositions();
    auto const others = errorsMadeOtherwise();
    all.insert(all.end(), others.begin(), others.end());
    return all;
}

} // namespace

TEST(Error, HoldsNumberPositionAndSourceId) {
    auto const error = Error::create(10016, 5'000'000'000, 6'000'000'000, "a.slate");
    EXPECT_EQ(error->getErrorCode(), 10016U);
    EXPECT_EQ(error->getLine(), 5'000'000'000U);
    EXPECT_EQ(error->getColumn(), 6'000'000'000U);
    EXPECT_EQ(error->getSourceId(), "a.slate");
}

TEST(Error, SourceIdMayBeEmptyAndPositionNone) {
    auto const error = Error::create(ErrNativeCallFailed, 0, 0, "");
    EXPECT_EQ(error->getSourceId(), "");
    EXPECT_EQ(error->getLine(), 0U);
    EXPECT_EQ(error->getColumn(), 0U);
    EXPECT_EQ(MemberNotFound::create(token("x", 1, 1), "")->getSourceId(), "");
}

TEST(Error, EachNamedClassHasItsNumberPositionSourceIdAndString) {
    ASSERT_EQ(namedErrors().size(), 15U);
    for (auto const& [name, error, code, string_parameter] : namedErrors()) {
        EXPECT_EQ(error->getErrorCode(), code) << name;
        EXPECT_EQ(error->getLine(), 3U) << name;
        EXPECT_EQ(error->getColumn(), 5U) << name;
        EXPECT_EQ(error->getSourceId(), "a.slate") << name;
        EXPECT_EQ(error->getStringParameter(), string_parameter) << name;
    }
}

TEST(Error, OfAPathWithoutNamesStandsNowhere) {
    for (auto const& error : std::vector<std::shared_ptr<StringParameterError>>{
             TypeNotFound::create({}, "a.slate"), ExpectedTrait::create({}, "a.slate")}) {
        EXPECT_EQ(error->getLine(), 0U) << error->getErrorCode();
        EXPECT_EQ(error->getColumn(), 0U) << error->getErrorCode();
        EXPECT_EQ(error->getStringParameter(), "") << error->getErrorCode();
    }
}

TEST(Error, StringParameterErrorTakesAnyNumber) {
    auto const error = StringParameterError::create(12345, 3, 5, "a.slate", "text");
    EXPECT_EQ(error->getErrorCode(), 12345U);
    EXPECT_EQ(error->getLine(), 3U);
    EXPECT_EQ(error->getColumn(), 5U);
    EXPECT_EQ(error->getSourceId(), "a.slate");
    EXPECT_EQ(error->getStringParameter(), "text");
}

TEST(Error, CycleFoundErrorHoldsModelAndCycle) {
    auto const error = CycleFoundError::create(3, 5, "a.slate", "Body", "a -> b -> a");
    EXPECT_EQ(error->getErrorCode(), 20008U);
    EXPECT_EQ(error->getLine(), 3U);
    EXPECT_EQ(error->getColumn(), 5U);
    EXPECT_EQ(error->getSourceId(), "a.slate");
    EXPECT_EQ(error->getModelName(), "Body");
    EXPECT_EQ(error->getCyclicNodesAsString(), "a -> b -> a");
}

TEST(Error, SomeClassesReadTheirStringUnderANameOfTheirOwn) {
    EXPECT_EQ(MissingAssignmentError::create(1, 1, "", "a.b")->getVarDeclarationPath(), "a.b");
    EXPECT_EQ(CircularDependency::create(1, 1, "", "A, B")->getCycleAsString(), "A, B");
    EXPECT_EQ(ModelDeclarationNotFound::create(1, 1, "", "Body")->getModelName(), "Body");
    EXPECT_EQ(TypeNotFound::create(pathAt(1, 1), "")->getTypeSegments(), "a.b.c");
}

TEST(Error, TypeNotFoundOfThreeTokensStandsAtTheFirstAndJoinsThem) {
    auto const error = TypeNotFound::create(pathAt(7, 9), "a.slate");
    EXPECT_EQ(error->getLine(), 7U);
    EXPECT_EQ(error->getColumn(), 9U);
    EXPECT_EQ(error->getTypeSegments(), "a.b.c");
}

TEST(Error, TypeNotFoundOfAnArrayJoinsItsMarkerToo) {
    TokenVector const path = {token("Body", 1, 1), token("[", 1, 5), token("]", 1, 6)};
    EXPECT_EQ(TypeNotFound::create(path, "")->getStringParameter(), "Body.[.]");
}

TEST(Error, AcceptReachesTheOperationOfTheClass) {
    EXPECT_EQ(visit(*Error::create(10007, 1, 1, "")), "error 10007");
    EXPECT_EQ(visit(*CycleFoundError::create(1, 1, "", "", "")), "cycle 20008");
    EXPECT_EQ(visit(*StringParameterError::create(12345, 1, 1, "", "")), "string 12345");
    EXPECT_EQ(visit(*MemberNotFound::create(token("x", 1, 1), "")), "string 20004");
}

TEST(Error, EveryNamedClassReachesTheOperationOfErrorsWithAString) {
    for (auto const& [name, error, code, string_parameter] : namedErrors())
        EXPECT_EQ(visit(*error), "string " + std::to_string(code)) << name;
}

TEST(Error, NamedClassIsFoundByACast) {
    std::shared_ptr<Error> const error = MemberNotFound::create(token("x", 1, 1), "");
    EXPECT_TRUE(std::dynamic_pointer_cast<MemberNotFound>(error));
    EXPECT_TRUE(std::dynamic_pointer_cast<StringParameterError>(error));
    EXPECT_FALSE(std::dynamic_pointer_cast<VariableNotFound>(error));
    EXPECT_FALSE(std::dynamic_pointer_cast<CycleFoundError>(error));
}

} // namespace Slate
