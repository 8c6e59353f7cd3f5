// Loading and evaluating: 30001 to 30011 but for circles, and imports.

#include "slate/Array.h"
#include "slate/BinaryOp.h"
#include "slate/Call.h"
#include "slate/Constant.h"
#include "slate/Document.h"
#include "slate/Indexing.h"
#include "slate/MemberAccess.h"
#include "slate/MethodDeclaration.h"
#include "slate/ModelDeclaration.h"
#include "slate/OperatorOverload.h"
#include "slate/VarAssignment.h"
#include "slate/host/NearestName.h"
#include "slate/host/Wording.h"

#include <fmt/format.h>

#include <array>

namespace Slate::Host {

namespace {

void widenTo(Site const& site, Diagnostic& diagnostic, Expression const& expression) {
    auto const range = site.source->tokens.rangeOf(expression.getFirstToken(), expression.getLastToken());
    if (range.begin() == diagnostic.place.begin() && expression.getLastToken().line != 0)
        diagnostic.place = range;
}

std::string textOf(Site const& site, Expression const& expression) {
    return site.source->tokens.textOf(expression.getFirstToken(), expression.getLastToken());
}

VarAssignPtr declarationOf(Expression& expression) {
    if (auto const access = expression.asMemberAccess())
        return access->getDeclaration();
    auto const constant = expression.asConstant();
    auto const node = constant ? constant->getDeclaration() : nullptr;
    return node ? node->asVarAssignment() : nullptr;
}

// 30001

void describeDivision(Site const& site, Diagnostic& diagnostic) {
    auto const attribute = site.findAttribute();
    for (auto const& expression : site.findExpressions()) {
        auto* const parent = site.workspace.trees().findParent(attribute, *expression);
        auto const division = parent == nullptr ? nullptr : parent->asBinaryOp();
        if (!division || division->getRhs() != expression)
            continue;
        diagnostic.message = fmt::format("the divisor {} is zero, and nothing can be divided by zero",
                                         quoted(textOf(site, *expression)));
        widenTo(site, diagnostic, *expression);
        if (auto const declared = declarationOf(*expression))
            addNote(diagnostic, placeOf(site.workspace, *declared),
                    fmt::format("{} is declared here", quoted(declared->getName())));
        return;
    }
}

// 30002

void describeUndefined(Site const& site, Diagnostic& diagnostic) {
    for (auto const& expression : site.findExpressions()) {
        if (!expression->isMemberAccess() && !expression->isConstant())
            continue;
        diagnostic.message = fmt::format("{} has no value here", quoted(textOf(site, *expression)));
        widenTo(site, diagnostic, *expression);
        auto const declared = declarationOf(*expression);
        if (!declared)
            return;
        auto const type = declared->getType();
        auto const model = type ? type->asModelDeclaration() : nullptr;
        addNote(diagnostic, placeOf(site.workspace, *declared),
                declared->getValue()
                    ? fmt::format("{} should get its value here", quoted(declared->getName()))
                    : fmt::format("{} is declared here without a value", quoted(declared->getName())));
        if (model && model->isTrait())
            diagnostic.hint = fmt::format("{} is of the trait {}: give it a model that has the trait",
                                          quoted(declared->getName()), quoted(model->getName()));
        return;
    }
}

// 30003

void describeMissing(Site const& site, Diagnostic& diagnostic) {
    if (site.strings.empty())
        return;
    auto const path = site.workspace.trees().splitPath(site.strings.front());
    if (!path.model || path.rest.empty())
        return;
    auto const name = std::string(path.rest);
    auto const& model_name = path.model->getName();
    diagnostic.message =
        fmt::format("{} of {} has no value, and each attribute needs one", quoted(name), quoted(model_name));
    auto const attributes = attributesAlong(path.model, path.rest);
    if (attributes.empty())
        return;
    // The core names the source of the last attribute, and the place of the first one.
    if (attributes.front()->getPath().front().position() ==
        Position{site.error.getLine(), site.error.getColumn()})
        diagnostic.place = placeOf(site.workspace, *attributes.front());
    auto const& last = *attributes.back();
    if (attributes.size() > 1)
        addNote(diagnostic, placeOf(site.workspace, last),
                fmt::format("{} is declared here without a value", quoted(last.getName())));
    auto const type = last.getType();
    diagnostic.hint =
        type && type->isArrayType()
            ? fmt::format("an empty array will do: {}", quoted(name + ": []"))
            : fmt::format("give it one {}, or in {} by {}", attributes.size() > 1 ? "there" : "here",
                          quoted(model_name), quoted(name + ": value"));
}

// 30005

void describeIndex(Site const& site, Diagnostic& diagnostic) {
    auto const attribute = site.findAttribute();
    for (auto const& expression : site.findExpressions()) {
        auto* const parent = site.workspace.trees().findParent(attribute, *expression);
        auto const indexing = parent == nullptr ? nullptr : parent->asIndexing();
        if (!indexing || indexing->getIndex() != expression)
            continue;
        diagnostic.message =
            fmt::format("the index {} is beyond the end of {}", quoted(textOf(site, *expression)),
                        quoted(textOf(site, *indexing->getLhs())));
        widenTo(site, diagnostic, *expression);
        auto const declared = declarationOf(*indexing->getLhs());
        auto const value = declared ? declared->getValue() : indexing->getLhs();
        auto const array = value ? value->asArray() : nullptr;
        if (array) {
            diagnostic.hint = array->getElements().empty()
                                  ? std::string("the array has no elements")
                                  : fmt::format("the array has {} elements: the last one has the index {}",
                                                array->getElements().size(), array->getElements().size() - 1);
        }
        if (declared)
            addNote(diagnostic, placeOf(site.workspace, *declared),
                    fmt::format("{} is declared here", quoted(declared->getName())));
        return;
    }
}

// 30006

void describeNative(Site const& site, Diagnostic& diagnostic) {
    auto const attribute = site.findAttribute();
    if (!site.hasToken() || !attribute)
        return;
    for (auto const& expression : site.findExpressions()) {
        auto const call = expression->asCall();
        auto const method = call ? call->getMethod() : nullptr;
        if (!method)
            continue;
        auto const model = method->getOwningModel();
        diagnostic.message = fmt::format("the method {} gave no value: the host has not registered it, or it "
                                         "failed",
                                         quoted(method->getName()));
        widenTo(site, diagnostic, *expression);
        if (model && method->isStatic()) {
            diagnostic.hint =
                fmt::format("the host registers it as {}",
                            quoted(model->getNameWithNamespace("::") + "::" + method->getName()));
        } else if (model) {
            diagnostic.hint =
                fmt::format("objects of {} need a factory in the host, which brings their methods",
                            quoted(model->getNameWithNamespace("::")));
        }
        addNote(diagnostic,
                placeOf(site.workspace, model ? model->getSourceIdOrDefault() : "", method->getNameToken()),
                fmt::format("{} is declared here", quoted(method->getName())));
        return;
    }
    bool const is_operator =
        site.getToken().type == TokenType::Plus || site.getToken().type == TokenType::Minus ||
        site.getToken().type == TokenType::Star || site.getToken().type == TokenType::Slash;
    if (is_operator) {
        diagnostic.message = fmt::format("the operator {} gave no value for these operands: the host has not "
                                         "registered it, or it failed",
                                         quoted(site.getToken().lexeme));
    }
}

// 30007

void describeNumber(Site const& site, Diagnostic& diagnostic) {
    if (!site.hasToken())
        return;
    bool const is_real = site.getToken().lexeme.find_first_of(".eE") != std::string::npos;
    diagnostic.message = fmt::format("{} is too large for {}", quoted(site.getToken().lexeme),
                                     is_real ? "a `Real`, which reaches to about 1.8e308"
                                             : "an `Int`, which reaches to 9223372036854775807");
    if (!is_real)
        diagnostic.hint = fmt::format("as a `Real` it is {}", quoted(site.getToken().lexeme + ".0"));
}

// 30008 and 30010

void describeNoModel(Site const& site, Diagnostic& diagnostic) {
    diagnostic.place.end_line = diagnostic.place.line;
    diagnostic.place.end_column = diagnostic.place.column;
    if (site.strings.empty())
        return;
    if (site.strings.front().empty()) {
        diagnostic.message = "the file has no model that could be evaluated";
        return;
    }
    NearestName nearest(site.strings.front());
    for (auto const& model : site.workspace.trees().getModels()) {
        if (site.workspace.comparisons_left == 0)
            break;
        --site.workspace.comparisons_left;
        if (model->getSourceIdOrDefault() == site.error.getSourceId())
            nearest.offer(model->getName());
    }
    suggest(diagnostic, nearest.get());
}

void describeInitializer(Site const& site, Diagnostic& diagnostic) {
    if (site.strings.empty())
        return;
    for (auto const& expression : site.findExpressions()) {
        if (expression->isInitializer())
            widenTo(site, diagnostic, *expression);
    }
    diagnostic.hint = "give the attribute a body with values instead";
    auto const& models = site.workspace.trees().findModels(site.strings.front());
    if (!models.empty()) {
        addNote(diagnostic, placeOf(site.workspace, *models.front()),
                fmt::format("{} is declared here, with declarations inside of its attributes",
                            quoted(models.front()->getName())));
    }
}

// 30011

void describeDependency(Site const& site, Diagnostic& diagnostic) {
    if (site.strings.empty())
        return;
    auto const& dependency = site.strings.front();
    auto const sign = dependency.find("==");
    auto const name = dependency.substr(0, sign);
    diagnostic.message = sign == std::string::npos
                             ? fmt::format("no bundle on the search paths is named {}", quoted(name))
                             : fmt::format("no bundle on the search paths is named {} and has the version {}",
                                           quoted(name), quoted(dependency.substr(sign + 2)));
    diagnostic.hint =
        "bundles are looked for in the directories of `SLATE_BUNDLE_PATH` or those that the host gives";
}

// 10022

void describeNoPlugin(Site const& site, Diagnostic& diagnostic) {
    if (site.strings.empty())
        return;
    auto const& path = site.strings.front();
    auto const dot = path.rfind('.');
    bool const has_extension = dot != std::string::npos && path.find('/', dot) == std::string::npos;
    diagnostic.message =
        has_extension
            ? fmt::format("no plug-in of the host reads files that end in {}", quoted(path.substr(dot)))
            : fmt::format("{} has no extension, so no plug-in of the host can read it", quoted(path));
}

constexpr std::array wordings{
    Wording{ErrNoPluginForImportedFile, describeNoPlugin},
    Wording{ErrDivisionByZero, describeDivision},
    Wording{ErrUndefinedValue, describeUndefined},
    Wording{ErrMissingAssignment, describeMissing},
    Wording{ErrIndexOutOfBounds, describeIndex},
    Wording{ErrNativeCallFailed, describeNative},
    Wording{ErrNumberOutOfRange, describeNumber},
    Wording{ErrModelDeclarationNotFound, describeNoModel},
    Wording{ErrModelNotInitializable, describeInitializer},
    Wording{ErrDependencyNotSatisfied, describeDependency},
};

} // namespace

std::span<Wording const> valueWordings() { return wordings; }

} // namespace Slate::Host
