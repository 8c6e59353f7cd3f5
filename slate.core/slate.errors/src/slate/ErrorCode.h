#pragma once

#include <cstdint>

namespace Slate {

/// The number of an error: the contract between the core and its hosts, who key their words on it.
using error_code_t = std::uint64_t;

/// The numbers: from 10001 scanning and parsing, from 20001 analysis, from 30001 evaluation and loading.
/// Each line says when the error is reported.
enum ErrorCode : error_code_t {
    /// A body with nothing in it.
    ErrEmptyBody = 10002,
    /// A colon not followed by an indented body.
    ErrMissingIndentedBody = 10003,
    /// A character that begins no token.
    ErrUnknownCharacter = 10004,
    /// An identifier is required and missing.
    ErrExpectedIdentifier = 10005,
    /// A top-level declaration does not begin in column 1.
    ErrNotAtFirstColumn = 10006,
    /// The next token is not of the kind that the rule requires.
    ErrUnexpectedToken = 10007,
    /// The line ended in the middle of a declaration.
    ErrUnexpectedLineEnd = 10008,
    /// The return type is missing behind the arrow.
    ErrMissingReturnType = 10009,
    /// The type is missing behind `is` at top level.
    ErrMissingTopLevelType = 10010,
    /// The value is missing behind the colon.
    ErrMissingValue = 10011,
    /// An identifier stands where a member was expected, and no member form follows.
    ErrNotAMember = 10012,
    /// The type is missing behind `is` or `becomes` in a member, or in a parameter.
    ErrMissingType = 10013,
    /// The text ended in the middle of a declaration.
    ErrUnexpectedEndOfText = 10014,
    /// A colon is expected.
    ErrExpectedColon = 10015,
    /// An expression is expected or malformed, more follows on the line of a finished statement, or a number
    /// is
    /// malformed.
    ErrBadExpression = 10016,
    /// A string or quoted name is not closed before the line or the text ends.
    ErrUnclosedText = 10017,
    /// An operator symbol is expected behind `operator`.
    ErrExpectedOperatorSymbol = 10018,
    /// The value of an annotation is not a literal.
    ErrAnnotationNotLiteral = 10019,
    /// A qualifier where none can stand, or parted from its name.
    ErrMisplacedQualifier = 10020,
    /// An empty pair of backquotes.
    ErrEmptyQuotedName = 10021,
    /// An import names a file whose extension no plug-in claims.
    ErrNoPluginForImportedFile = 10022,
    /// The imported file does not exist.
    ErrImportedFileNotFound = 10023,

    /// A type name resolves to nothing.
    ErrTypeNotFound = 20001,
    /// A name resolves to no attribute.
    ErrVariableNotFound = 20002,
    /// A call names no method of its owner.
    ErrMethodNotFound = 20003,
    /// A segment of a member access is no member of the type before it.
    ErrMemberNotFound = 20004,
    /// The types of an assignment, expression or operand do not fit.
    ErrTypeMismatch = 20005,
    /// A name is declared twice in one scope.
    ErrSymbolAlreadyDefined = 20006,
    /// Two assignments reach one attribute.
    ErrSymbolAlreadyAssigned = 20007,
    /// The evaluation order of a model holds a cycle.
    ErrCycleFound = 20008,
    /// A call does not pass as many arguments as the method has parameters.
    ErrWrongArgumentCount = 20009,
    /// An operator overload has the wrong number of parameters.
    ErrBadOperatorOverload = 20010,
    /// An operator overload has the same operand types as another one.
    ErrDuplicateOperatorOverload = 20011,
    /// A path passes through an attribute of const model type.
    ErrPathThroughConst = 20012,
    /// A model extends a const model and is not const itself.
    ErrNonConstExtendsConst = 20013,
    /// An extended declaration while nested declarations are off.
    ErrNestedDeclaration = 20014,
    /// A name in the trait list is not a trait.
    ErrExpectedTrait = 20015,
    /// A trait has traits.
    ErrTraitWithTraits = 20016,
    /// Two trait entries conflict.
    ErrTraitConflict = 20017,
    /// A path passes through an attribute of trait type.
    ErrPathThroughTrait = 20018,

    /// The right operand of a division is zero.
    ErrDivisionByZero = 30001,
    /// The attribute read has no value at run time.
    ErrUndefinedValue = 30002,
    /// An attribute that needs a value gets none.
    ErrMissingAssignment = 30003,
    /// Models contain one another.
    ErrCircularDependency = 30004,
    /// The index is not below the length of the array.
    ErrIndexOutOfBounds = 30005,
    /// The native method or overload is not registered or returned `Undefined`.
    ErrNativeCallFailed = 30006,
    /// A number literal does not fit its type at evaluation.
    ErrNumberOutOfRange = 30007,
    /// The model requested by name is not in the document.
    ErrModelDeclarationNotFound = 30008,
    /// The main file of a load does not exist.
    ErrFileNotFound = 30009,
    /// An initializer names a model that can't be initialized.
    ErrModelNotInitializable = 30010,
    /// A bundle dependency is missing or of another version.
    ErrDependencyNotSatisfied = 30011,
};

} // namespace Slate
