#pragma once

#include "slate/host/ErrorTable.h"

#include <array>

namespace Slate::Host {

/// The rows of `errorKinds()` for the errors of evaluation and loading.
inline constexpr std::array evaluation_errors{
    ErrorKind{
        .code = ErrDivisionByZero,
        .enumerator = "ErrDivisionByZero",
        .class_name = "Error",
        .summary = "a division by zero",
        .words = "the divisor is zero",
        .rule = "nothing can be divided by zero",
        .example = R"(Gear:
    teeth is Int: 0
    pitch is Real: 12 / teeth
)",
        .cure = R"(Gear:
    teeth is Int: 3
    pitch is Real: 12 / teeth
)",
    },
    ErrorKind{
        .code = ErrUndefinedValue,
        .enumerator = "ErrUndefinedValue",
        .class_name = "Error",
        .summary = "a value that is read too early or missing",
        .words = "what is read here has no value",
        .rule = "an attribute that is read needs a value that could be computed; what stands in `{}` is "
                "not waited for, so it can be read too early",
        .example = R"(Point:
    x is Real
    y is Real

Pair:
    late is Point: {scale, 1}
    scale is Real: 2
    early is Point: {1, scale}
)",
        .cure = R"(Point:
    x is Real
    y is Real

Pair:
    late is Point: {2, 1}
    early is Point: {1, 2}
)",
    },
    ErrorKind{
        .code = ErrMissingAssignment,
        .enumerator = "ErrMissingAssignment",
        .class_name = "MissingAssignmentError",
        .summary = "an attribute without a value",
        .words = "`{0}` has no value",
        .rule = "each attribute of the evaluated model and of its parts gets a value: where it is "
                "declared, in a model that extends this, or in the body of the attribute around it",
        .example = R"(Gear:
    teeth is Int
)",
        .cure = R"(Gear:
    teeth is Int: 12
)",
    },
    ErrorKind{
        .code = ErrCircularDependency,
        .enumerator = "ErrCircularDependency",
        .class_name = "CircularDependency",
        .summary = "models that contain or extend one another",
        .words = "models contain or extend one another: {0}",
        .rule = "a model can neither be a part nor a base of itself, be it through others",
        .example = R"(Gear is Wheel
Wheel is Gear
)",
        .cure = R"(Gear is Wheel
Wheel
)",
    },
    ErrorKind{
        .code = ErrIndexOutOfBounds,
        .enumerator = "ErrIndexOutOfBounds",
        .class_name = "Error",
        .summary = "an index behind the end",
        .words = "the index is beyond the end of the array",
        .rule = "the first element has the index 0, and the last one the length less 1",
        .example = R"(Gear:
    sizes is Int[]: [12, 24]
    teeth is Int: sizes[2]
)",
        .cure = R"(Gear:
    sizes is Int[]: [12, 24]
    teeth is Int: sizes[1]
)",
    },
    ErrorKind{
        .code = ErrNativeCallFailed,
        .enumerator = "ErrNativeCallFailed",
        .class_name = "Error",
        .summary = "a method or operator that gives nothing",
        .words = "the host has no such method or operator, or this gave no value",
        .rule = "methods and operators are only declared in the language: the host that loads the model "
                "registers what they do",
        .example = R"(Gear:
    static fn best() -> Int

Train:
    teeth is Int: Gear.best()
)",
        .cure = R"(Gear:
    static fn best() -> Int

Train:
    teeth is Int: Gear.best()
)",
        .setup = {.cured_native = "Gear::best"},
    },
    ErrorKind{
        .code = ErrNumberOutOfRange,
        .enumerator = "ErrNumberOutOfRange",
        .class_name = "Error",
        .summary = "a number that is too large",
        .words = "the number is too large for its type",
        .rule = "an `Int` has 64 bits, from -9223372036854775808 to 9223372036854775807, and a `Real` "
                "reaches to about 1.8e308",
        .example = R"(Gear:
    teeth is Int: 10000000000000000000
)",
        .cure = R"(Gear:
    teeth is Int: 1000000000000000000
)",
    },
    ErrorKind{
        .code = ErrModelDeclarationNotFound,
        .enumerator = "ErrModelDeclarationNotFound",
        .class_name = "ModelDeclarationNotFound",
        .summary = "a requested model that is not there",
        .words = "the file has no model `{0}`",
        .rule = "a model is asked for by its name, without the namespace, and has to stand in the file "
                "itself",
        .example = R"(Gear:
    teeth is Int: 12
)",
        .cure = R"(Gear:
    teeth is Int: 12
)",
        .setup = {.model = "Gaer", .cured_model = "Gear"},
    },
    ErrorKind{
        .code = ErrFileNotFound,
        .enumerator = "ErrFileNotFound",
        .class_name = "FileNotFound",
        .summary = "a requested file that is not there",
        .words = "there is no file `{0}`",
        .rule = "the file to load has to exist",
        .example = R"(=== gear.slate
Gear
)",
        .cure = R"(=== gear.slate
Gear
)",
        .setup = {.file = "gaer.slate", .cured_file = "gear.slate"},
    },
    ErrorKind{
        .code = ErrModelNotInitializable,
        .enumerator = "ErrModelNotInitializable",
        .class_name = "ModelNotInitializable",
        .summary = "a model that takes no list",
        .words = "`{0}` can not be built from a list in `{{}}`",
        .rule = "a model with declarations inside of its attributes, or with a base that has some, is "
                "built by a body and not by `{}`",
        .example = R"(Hub:
    bore is Real: 1

Gear:
    hub is Hub:
        mark is Int: 2

Train:
    first is Gear: {{1}}
)",
        .cure = R"(Hub:
    bore is Real: 1

Gear:
    hub is Hub:
        mark is Int: 2

Train:
    first is Gear:
        hub.bore: 1
)",
    },
    ErrorKind{
        .code = ErrDependencyNotSatisfied,
        .enumerator = "ErrDependencyNotSatisfied",
        .class_name = "DependencyNotSatisfied",
        .summary = "a bundle that is missing or of another version",
        .words = "the bundle `{0}` is missing or has another version",
        .rule = "a bundle that `dependencies` names lies on the search paths, in the version that stands "
                "behind `==`",
        .example = R"(=== mill/config.slate
config is BundleConfig:
    name: "mill"
    dependencies: ["drives==2.0"]
=== mill/gear.slate
Gear
=== drives/config.slate
config is BundleConfig:
    name: "drives"
    version: "1.0"
=== drives/motor.slate
Motor
)",
        .cure = R"(=== mill/config.slate
config is BundleConfig:
    name: "mill"
    dependencies: ["drives==1.0"]
=== mill/gear.slate
Gear
=== drives/config.slate
config is BundleConfig:
    name: "drives"
    version: "1.0"
=== drives/motor.slate
Motor
)",
        .setup = {.file = "mill/gear.slate", .cured_file = "mill/gear.slate"},
    },
};

} // namespace Slate::Host
