#pragma once

#include "slate/host/ErrorTable.h"

#include <array>

namespace Slate::Host {

/// The rows of `errorKinds()` for the errors of scanning and parsing.
inline constexpr std::array parsing_errors{
    ErrorKind{
        .code = ErrEmptyBody,
        .enumerator = "ErrEmptyBody",
        .class_name = "Error",
        .summary = "a body with nothing in it",
        .words = "the body has nothing in it",
        .rule = "behind a colon stands at least one attribute, method, annotation or trait; deletions "
                "alone do not count",
        .example = R"(Gear:
    teeth is Int: 12

Disc is Gear:
    delete teeth
)",
        .cure = R"(Gear:
    teeth is Int: 12

Disc is Gear:
    delete teeth
    radius is Real: 3
)",
    },
    ErrorKind{
        .code = ErrMissingIndentedBody,
        .enumerator = "ErrMissingIndentedBody",
        .class_name = "Error",
        .summary = "a colon without a body",
        .words = "the colon is not followed by a body",
        .rule = "what belongs to a model stands on the lines below it, further to the right; a model "
                "without a body has no colon",
        .example = R"(Gear:
Shaft:
    length is Real: 3
)",
        .cure = R"(Gear
Shaft:
    length is Real: 3
)",
    },
    ErrorKind{
        .code = ErrUnknownCharacter,
        .enumerator = "ErrUnknownCharacter",
        .class_name = "Error",
        .summary = "a character that means nothing",
        .words = "an unknown character",
        .rule = "outside of strings, comments and quoted names only letters, digits, \"_\" and the signs "
                "of the language can stand",
        .example = R"(Gear:
    teeth is Int: 12 ;
)",
        .cure = R"(Gear:
    teeth is Int: 12
)",
    },
    ErrorKind{
        .code = ErrExpectedIdentifier,
        .enumerator = "ErrExpectedIdentifier",
        .class_name = "Error",
        .summary = "a missing name",
        .words = "a name is missing",
        .rule = "a name begins with a letter or \"_\"; any other text can be a name in backquotes",
        .example = R"(Gear:
    fn (load: Real) -> Real
)",
        .cure = R"(Gear:
    fn efficiency(load: Real) -> Real
)",
    },
    ErrorKind{
        .code = ErrNotAtFirstColumn,
        .enumerator = "ErrNotAtFirstColumn",
        .class_name = "Error",
        .summary = "a declaration that is indented",
        .words = "a declaration at top level does not begin in column 1",
        .rule = "models, variables, imports and operators begin in column 1; what is indented belongs to a "
                "body, and a body needs a colon on the line before it",
        .example = R"(  Gear:
      teeth is Int: 12
)",
        .cure = R"(Gear:
    teeth is Int: 12
)",
    },
    ErrorKind{
        .code = ErrUnexpectedToken,
        .enumerator = "ErrUnexpectedToken",
        .class_name = "Error",
        .summary = "something that can not stand here",
        .words = "something else is expected here",
        .rule = "each declaration has one form; what stands here fits none that begins so",
        .example = R"(Gear:
    teeth is Int 12
)",
        .cure = R"(Gear:
    teeth is Int: 12
)",
    },
    ErrorKind{
        .code = ErrUnexpectedLineEnd,
        .enumerator = "ErrUnexpectedLineEnd",
        .class_name = "Error",
        .summary = "a line that ends too early",
        .words = "the line ends in the middle of a declaration",
        .rule = "a declaration stands on one line; only brackets inside of values may run over several "
                "lines",
        .example = R"(Gear:
    fn efficiency(load: Real
    teeth is Int: 12
)",
        .cure = R"(Gear:
    fn efficiency(load: Real)
    teeth is Int: 12
)",
    },
    ErrorKind{
        .code = ErrMissingReturnType,
        .enumerator = "ErrMissingReturnType",
        .class_name = "Error",
        .summary = "a missing return type",
        .words = "the return type is missing behind `->`",
        .rule = "a method that returns nothing has no arrow; behind an arrow stands the type",
        .example = R"(Gear:
    fn efficiency(load: Real) ->
)",
        .cure = R"(Gear:
    fn efficiency(load: Real) -> Real
)",
    },
    ErrorKind{
        .code = ErrMissingTopLevelType,
        .enumerator = "ErrMissingTopLevelType",
        .class_name = "Error",
        .summary = "a missing type at top level",
        .words = "the type is missing behind `is`",
        .rule = "behind `is` stands the model that is extended, or the type of a variable",
        .example = R"(Wheel
Gear is
)",
        .cure = R"(Wheel
Gear is Wheel
)",
    },
    ErrorKind{
        .code = ErrMissingValue,
        .enumerator = "ErrMissingValue",
        .class_name = "Error",
        .summary = "a missing value",
        .words = "the value is missing behind `:`",
        .rule = "a value stands on the same line as its colon; a declaration without a value has no colon",
        .example = R"(Gear:
    teeth is Int:

Train:
    first is Gear:
        teeth: 12
)",
        .cure = R"(Gear:
    teeth is Int

Train:
    first is Gear:
        teeth: 12
)",
    },
    ErrorKind{
        .code = ErrNotAMember,
        .enumerator = "ErrNotAMember",
        .class_name = "Error",
        .summary = "a name that begins no member",
        .words = "a name alone is no member",
        .rule = "an attribute is declared by `name is Type` or gets a value by `name: value`; methods "
                "begin with `fn`",
        .example = R"(Gear:
    teeth Int: 12
)",
        .cure = R"(Gear:
    teeth is Int: 12
)",
    },
    ErrorKind{
        .code = ErrMissingType,
        .enumerator = "ErrMissingType",
        .class_name = "Error",
        .summary = "a missing type",
        .words = "the type is missing",
        .rule = "behind `is` and `becomes`, and behind the colon of a parameter, stands a type: `Real`, "
                "`Int`, `Bool`, `String`, a model, or one of these with `[]`",
        .example = R"(Gear:
    teeth is: 12
)",
        .cure = R"(Gear:
    teeth is Int: 12
)",
    },
    ErrorKind{
        .code = ErrUnexpectedEndOfText,
        .enumerator = "ErrUnexpectedEndOfText",
        .class_name = "Error",
        .summary = "a text that ends too early",
        .words = "the text ends in the middle of a declaration",
        .rule = "the last declaration of a file has to be whole, like any other",
        .example = R"(Gear:
    fn efficiency(load: Real)",
        .cure = R"(Gear:
    fn efficiency(load: Real))",
    },
    ErrorKind{
        .code = ErrExpectedColon,
        .enumerator = "ErrExpectedColon",
        .class_name = "Error",
        .summary = "a missing colon",
        .words = "a colon is missing",
        .rule = "a colon stands between a parameter and its type, and between an annotation or variable "
                "and its value",
        .example = R"(Gear:
    fn efficiency(load Real) -> Real
)",
        .cure = R"(Gear:
    fn efficiency(load: Real) -> Real
)",
    },
    ErrorKind{
        .code = ErrBadExpression,
        .enumerator = "ErrBadExpression",
        .class_name = "Error",
        .summary = "a value that can not be read",
        .words = "the value can not be read",
        .rule = "a value is made of literals, names, calls, indexes and brackets with `+`, `-`, `*` and "
                "`/` between them, and ends with its line unless a bracket is open",
        .example = R"(Gear:
    teeth is Int: 3 +

Train:
    first is Gear:
        teeth: 12
)",
        .cure = R"(Gear:
    teeth is Int: 3 + 9

Train:
    first is Gear:
        teeth: 12
)",
    },
    ErrorKind{
        .code = ErrUnclosedText,
        .enumerator = "ErrUnclosedText",
        .class_name = "Error",
        .summary = "a text that is not closed",
        .words = "the text is not closed",
        .rule = "a string ends on its line with `\"`, a quoted name with a backquote; a string over "
                "several lines stands in `\"\"\"`",
        .example = R"(Gear:
    teeth is Int: 12 "number of teeth
)",
        .cure = R"(Gear:
    teeth is Int: 12 # number of teeth
)",
    },
    ErrorKind{
        .code = ErrExpectedOperatorSymbol,
        .enumerator = "ErrExpectedOperatorSymbol",
        .class_name = "Error",
        .summary = "an operator without its sign",
        .words = "the sign is missing behind `operator`",
        .rule = "behind `operator` stands `+`, `-`, `*` or `/`, on the same line",
        .example = R"(Gear
operator (lhs: Gear, rhs: Gear) -> Gear
)",
        .cure = R"(Gear
operator + (lhs: Gear, rhs: Gear) -> Gear
)",
    },
    ErrorKind{
        .code = ErrAnnotationNotLiteral,
        .enumerator = "ErrAnnotationNotLiteral",
        .class_name = "Error",
        .summary = "an annotation that is no literal",
        .words = "the value of an annotation has to be a literal",
        .rule = "annotations are not computed: their value is a number, a string, `true` or `false`",
        .example = R"(Gear:
    .unit: kilogram
)",
        .cure = R"(Gear:
    .unit: "kilogram"
)",
    },
    ErrorKind{
        .code = ErrMisplacedQualifier,
        .enumerator = "ErrMisplacedQualifier",
        .class_name = "Error",
        .summary = "a qualifier in the wrong place",
        .words = "`const` or `trait` can not stand here",
        .rule = "`const` and `trait` stand in front of the name of a model, on the same line; variables "
                "have none",
        .example = R"(const
Gear
)",
        .cure = R"(const Gear
)",
    },
    ErrorKind{
        .code = ErrEmptyQuotedName,
        .enumerator = "ErrEmptyQuotedName",
        .class_name = "Error",
        .summary = "an empty name",
        .words = "the quoted name is empty",
        .rule = "between backquotes stands at least one character",
        .example = R"(Gear:
    `` is Int: 12
)",
        .cure = R"(Gear:
    `number of teeth` is Int: 12
)",
    },
    ErrorKind{
        .code = ErrNoPluginForImportedFile,
        .enumerator = "ErrNoPluginForImportedFile",
        .class_name = "NoPluginForImportedFile",
        .summary = "an import that nobody can read",
        .words = "no plug-in reads files like `{0}`",
        .rule = "an imported file is read by the plug-in that the host has registered for its extension, "
                "case and dot included",
        .example = R"(=== gear.slate
import @"teeth.cvs" as Teeth

Gear
=== teeth.csv
12
=== teeth.cvs
12
)",
        .cure = R"(=== gear.slate
import @"teeth.csv" as Teeth

Gear
=== teeth.csv
12
=== teeth.cvs
12
)",
        .setup = {.plugin_extension = ".csv"},
    },
    ErrorKind{
        .code = ErrImportedFileNotFound,
        .enumerator = "ErrImportedFileNotFound",
        .class_name = "ImportedFileNotFound",
        .summary = "an import of a file that is not there",
        .words = "there is no file `{0}` to import",
        .rule = "the path of an import begins at the working directory of the host, and behind `@` at the "
                "directory "
                "of the file that imports",
        .example = R"(=== gear.slate
import @"tooth.csv" as Teeth

Gear
=== teeth.csv
12
)",
        .cure = R"(=== gear.slate
import @"teeth.csv" as Teeth

Gear
=== teeth.csv
12
)",
        .setup = {.plugin_extension = ".csv"},
    },
};

} // namespace Slate::Host
