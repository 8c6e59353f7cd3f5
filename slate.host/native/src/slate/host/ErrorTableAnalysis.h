#pragma once

#include "slate/host/ErrorTable.h"

#include <array>

namespace Slate::Host {

/// The rows of `errorKinds()` for the errors of analysis.
inline constexpr std::array analysis_errors{
    ErrorKind{
        .code = ErrTypeNotFound,
        .enumerator = "ErrTypeNotFound",
        .class_name = "TypeNotFound",
        .summary = "an unknown type",
        .words = "no type is named `{0}`",
        .rule = "a type is `Real`, `Int`, `Bool`, `String`, a model of this namespace by its name, or any "
                "other model by its namespace and name; a model does not see itself in its own body",
        .example = R"(Gear:
    teeth is Integer: 12
)",
        .cure = R"(Gear:
    teeth is Int: 12
)",
    },
    ErrorKind{
        .code = ErrVariableNotFound,
        .enumerator = "ErrVariableNotFound",
        .class_name = "VariableNotFound",
        .summary = "an unknown name",
        .words = "no attribute is named `{0}`",
        .rule = "a name is an attribute of the model around it, of its base or traits, or a constant or "
                "variable at top level; a value is given to an attribute that is declared by `name is Type`",
        .example = R"(Gear:
    teeth is Int: 12
    pitch is Real: tooth * 2
)",
        .cure = R"(Gear:
    teeth is Int: 12
    pitch is Real: teeth * 2
)",
    },
    ErrorKind{
        .code = ErrMethodNotFound,
        .enumerator = "ErrMethodNotFound",
        .class_name = "MethodNotFound",
        .summary = "an unknown method of a model",
        .words = "there is no static method `{0}`",
        .rule = "what is called on a model itself is one of its methods, and declared by `static fn`",
        .example = R"(Gear:
    static fn ratio(teeth: Int) -> Real
    unused is Int: 3
    step is Real: Wheel.rato(12)

Wheel:
    static fn ratio(teeth: Int) -> Real
    width is Int: 3
)",
        .cure = R"(Gear:
    static fn ratio(teeth: Int) -> Real
    unused is Int: 3
    step is Real: Wheel.ratio(12)

Wheel:
    static fn ratio(teeth: Int) -> Real
    width is Int: 3
)",
    },
    ErrorKind{
        .code = ErrMemberNotFound,
        .enumerator = "ErrMemberNotFound",
        .class_name = "MemberNotFound",
        .summary = "an unknown member",
        .words = "there is no member `{0}`",
        .rule = "behind a dot stands an attribute or method of the model that is the type of what stands "
                "before it; numbers, strings and arrays have no members",
        .example = R"(Gear:
    teeth is Int: 12

Train:
    first is Gear
    count is Int: first.tooth
)",
        .cure = R"(Gear:
    teeth is Int: 12

Train:
    first is Gear
    count is Int: first.teeth
)",
    },
    ErrorKind{
        .code = ErrTypeMismatch,
        .enumerator = "ErrTypeMismatch",
        .class_name = "Error",
        .summary = "types that do not fit",
        .words = "the types do not fit",
        .rule = "a value has the type that is declared, an `Int` fits a `Real`, and a model fits its bases "
                "and traits; operators take two numbers, two values of one type, or what an `operator` "
                "declares",
        .example = R"(Gear:
    teeth is Int: "twelve"
)",
        .cure = R"(Gear:
    teeth is Int: 12
)",
    },
    ErrorKind{
        .code = ErrSymbolAlreadyDefined,
        .enumerator = "ErrSymbolAlreadyDefined",
        .class_name = "SymbolAlreadyDefined",
        .summary = "a name that is declared twice",
        .words = "`{0}` is declared already",
        .rule = "a name is declared once: in its model, in all bases of this, and at top level in all "
                "files of a namespace; an inherited attribute is narrowed by `becomes` or gets a value by "
                "`name: value`",
        .example = R"(Gear:
    teeth is Int: 12
    teeth is Int: 13
)",
        .cure = R"(Gear:
    teeth is Int: 12
)",
    },
    ErrorKind{
        .code = ErrSymbolAlreadyAssigned,
        .enumerator = "ErrSymbolAlreadyAssigned",
        .class_name = "SymbolAlreadyAssigned",
        .summary = "an attribute that gets two values",
        .words = "`{0}` gets a value for the second time",
        .rule = "within one body an attribute gets one value",
        .example = R"(Gear:
    teeth is Int

Train:
    first is Gear:
        teeth: 12
        teeth: 13
)",
        .cure = R"(Gear:
    teeth is Int

Train:
    first is Gear:
        teeth: 12
)",
    },
    ErrorKind{
        .code = ErrCycleFound,
        .enumerator = "ErrCycleFound",
        .class_name = "CycleFoundError",
        .summary = "values that depend on one another",
        .words = "in `{0}`, values depend on themselves: {1}",
        .rule = "each value is computed before those that read it, so none can lead back to itself",
        .example = R"(Gear:
    pitch is Real: width / 2
    width is Real: pitch * 2
)",
        .cure = R"(Gear:
    pitch is Real: width / 2
    width is Real: 6
)",
    },
    ErrorKind{
        .code = ErrWrongArgumentCount,
        .enumerator = "ErrWrongArgumentCount",
        .class_name = "Error",
        .summary = "a wrong number of arguments",
        .words = "the method takes another number of arguments",
        .rule = "a call passes one argument for each parameter; there are no optional ones",
        .example = R"(Gear:
    teeth is Int: 12

Train:
    first is Gear
    step is Real: Wheel.ratio(1, 2)

Wheel:
    static fn ratio(teeth: Int) -> Real
)",
        .cure = R"(Gear:
    teeth is Int: 12

Train:
    first is Gear
    step is Real: Wheel.ratio(1)

Wheel:
    static fn ratio(teeth: Int) -> Real
)",
    },
    ErrorKind{
        .code = ErrBadOperatorOverload,
        .enumerator = "ErrBadOperatorOverload",
        .class_name = "Error",
        .summary = "an operator with a wrong number of parameters",
        .words = "the operator has a wrong number of parameters",
        .rule = "`+`, `*` and `/` have two parameters; `-` has two, or one for the sign in front of a value",
        .example = R"(Gear
operator + (gear: Gear) -> Gear
)",
        .cure = R"(Gear
operator + (lhs: Gear, rhs: Gear) -> Gear
)",
    },
    ErrorKind{
        .code = ErrDuplicateOperatorOverload,
        .enumerator = "ErrDuplicateOperatorOverload",
        .class_name = "Error",
        .summary = "an operator that is declared twice",
        .words = "the operator is declared more than once for these types",
        .rule = "for each pair of operand types an operator is declared once, in all files",
        .example = R"(Gear
operator + (lhs: Gear, rhs: Gear) -> Gear
operator + (a: Gear, b: Gear) -> Gear
)",
        .cure = R"(Gear
operator + (lhs: Gear, rhs: Gear) -> Gear
)",
    },
    ErrorKind{
        .code = ErrPathThroughConst,
        .enumerator = "ErrPathThroughConst",
        .class_name = "Error",
        .summary = "a part of a constant is given a value",
        .words = "a part of a constant is given a value",
        .rule = "a `const` model is the same everywhere, so its attributes get their values in the model "
                "itself alone",
        .example = R"(const Steel:
    density is Real: 7850

Shaft:
    material is Steel
    material.density: 7000
)",
        .cure = R"(const Steel:
    density is Real: 7850

Shaft:
    material is Steel
)",
    },
    ErrorKind{
        .code = ErrNonConstExtendsConst,
        .enumerator = "ErrNonConstExtendsConst",
        .class_name = "Error",
        .summary = "a model that extends a constant",
        .words = "a model that is not `const` extends one that is",
        .rule = "only a `const` model can extend a `const` model",
        .example = R"(const Steel:
    density is Real: 7850

Alloy is Steel
)",
        .cure = R"(const Steel:
    density is Real: 7850

const Alloy is Steel
)",
    },
    ErrorKind{
        .code = ErrNestedDeclaration,
        .enumerator = "ErrNestedDeclaration",
        .class_name = "Error",
        .summary = "a declaration inside of an attribute",
        .words = "an attribute is declared inside of another one",
        .rule = "this host allows declarations in models alone; inside of attributes, and behind dots, "
                "values are given",
        .example = R"(Gear:
    teeth is Int: 12

Train:
    first is Gear:
        mark is String: "A"
)",
        .cure = R"(Gear:
    teeth is Int: 12
    mark is String

Train:
    first is Gear:
        mark: "A"
)",
        .setup = {.nested_declarations_allowed = false},
    },
    ErrorKind{
        .code = ErrExpectedTrait,
        .enumerator = "ErrExpectedTrait",
        .class_name = "ExpectedTrait",
        .summary = "a model where a trait is expected",
        .words = "`{0}` is no trait",
        .rule = "behind `with` stands a model declared by `trait`, and a trait extends nothing but traits",
        .example = R"(Named:
    name is String: "none"

Gear:
    with Named
)",
        .cure = R"(trait Named:
    name is String: "none"

Gear:
    with Named
)",
    },
    ErrorKind{
        .code = ErrTraitWithTraits,
        .enumerator = "ErrTraitWithTraits",
        .class_name = "Error",
        .summary = "a trait that mixes in another one",
        .words = "a trait can not mix in traits",
        .rule = "only models say `with`; a trait can extend one other trait by `is`",
        .example = R"(trait Named:
    name is String: "none"

trait Painted:
    with Named
    colour is String: "grey"

Gear:
    teeth is Int: 12
)",
        .cure = R"(trait Named:
    name is String: "none"

trait Painted is Named:
    colour is String: "grey"

Gear:
    teeth is Int: 12
)",
    },
    ErrorKind{
        .code = ErrTraitConflict,
        .enumerator = "ErrTraitConflict",
        .class_name = "Error",
        .summary = "two traits that conflict",
        .words = "the model has another trait of the same base",
        .rule = "of a trait and those that extend it, a model mixes in one: the derived one has all that its "
                "base has",
        .example = R"(trait Named:
    name is String: "none"

trait Labelled is Named:
    label is String: "none"

Gear:
    with Named
    with Labelled
)",
        .cure = R"(trait Named:
    name is String: "none"

trait Labelled is Named:
    label is String: "none"

Gear:
    with Labelled
)",
    },
    ErrorKind{
        .code = ErrPathThroughTrait,
        .enumerator = "ErrPathThroughTrait",
        .class_name = "Error",
        .summary = "a part of a trait is given a value",
        .words = "a part of an attribute whose type is a trait is given a value",
        .rule = "an attribute of a trait's type stands for a model that has the trait: its parts get their "
                "values in that model",
        .example = R"(trait Painted:
    colour is String: "grey"

Shaft:
    cover is Painted
    cover.colour: "red"
)",
        .cure = R"(trait Painted:
    colour is String: "grey"

Shaft:
    with Painted
    colour: "red"
)",
    },
};

} // namespace Slate::Host
