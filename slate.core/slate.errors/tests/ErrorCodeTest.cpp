#include "slate/ErrorCode.h"

#include <gtest/gtest.h>

#include <vector>

namespace Slate {

namespace {

/// The codes of a family, which have consecutive numbers from the given one on.
void expectConsecutive(error_code_t first, std::vector<ErrorCode> const& codes) {
    for (std::size_t i = 0; i < codes.size(); ++i)
        EXPECT_EQ(codes[i], first + i);
}

} // namespace

TEST(ErrorCode, NumbersOfScanningParsingAndImportingAreFixed) {
    expectConsecutive(10002, {ErrEmptyBody,
                              ErrMissingIndentedBody,
                              ErrUnknownCharacter,
                              ErrExpectedIdentifier,
                              ErrNotAtFirstColumn,
                              ErrUnexpectedToken,
                              ErrUnexpectedLineEnd,
                              ErrMissingReturnType,
                              ErrMissingTopLevelType,
                              ErrMissingValue,
                              ErrNotAMember,
                              ErrMissingType,
                              ErrUnexpectedEndOfText,
                              ErrExpectedColon,
                              ErrBadExpression,
                              ErrUnclosedText,
                              ErrExpectedOperatorSymbol,
                              ErrAnnotationNotLiteral,
                              ErrMisplacedQualifier,
                              ErrEmptyQuotedName,
                              ErrNoPluginForImportedFile,
                              ErrImportedFileNotFound});
    EXPECT_EQ(ErrImportedFileNotFound, 10023U);
}

TEST(ErrorCode, NumbersOfAnalysisAreFixed) {
    expectConsecutive(20001,
                      {ErrTypeNotFound, ErrVariableNotFound, ErrMethodNotFound, ErrMemberNotFound,
                       ErrTypeMismatch, ErrSymbolAlreadyDefined, ErrSymbolAlreadyAssigned, ErrCycleFound,
                       ErrWrongArgumentCount, ErrBadOperatorOverload, ErrDuplicateOperatorOverload,
                       ErrPathThroughConst, ErrNonConstExtendsConst, ErrNestedDeclaration, ErrExpectedTrait,
                       ErrTraitWithTraits, ErrTraitConflict, ErrPathThroughTrait});
    EXPECT_EQ(ErrPathThroughTrait, 20018U);
}

TEST(ErrorCode, NumbersOfEvaluationAndLoadingAreFixed) {
    expectConsecutive(30001, {ErrDivisionByZero, ErrUndefinedValue, ErrMissingAssignment,
                              ErrCircularDependency, ErrIndexOutOfBounds, ErrNativeCallFailed,
                              ErrNumberOutOfRange, ErrModelDeclarationNotFound, ErrFileNotFound,
                              ErrModelNotInitializable, ErrDependencyNotSatisfied});
    EXPECT_EQ(ErrDependencyNotSatisfied, 30011U);
}

TEST(ErrorCode, NumberHas64Bits) {
    static_assert(sizeof(error_code_t) == 8);
    EXPECT_EQ(static_cast<error_code_t>(ErrEmptyBody), 10002U);
}

} // namespace Slate
