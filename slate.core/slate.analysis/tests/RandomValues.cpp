#include "RandomValues.h"

#include <algorithm>
#include <iterator>

namespace Slate::Testing {

std::vector<std::string> const RandomValues::paths{"near/one.slate", "near/two.slate",
                                                   "near/deep/three.slate", "four.slate", "far/five.slate"};
std::vector<std::string> const RandomValues::names{"a", "b", "c", "d", "e", "f"};
std::vector<std::string> const RandomValues::primitives{"Int", "Real", "Bool", "String", "Int[]", "Real[]"};

std::string RandomValues::space(std::size_t document) {
    auto const slash = paths[document].rfind('/');
    auto text = slash == std::string::npos ? "" : paths[document].substr(0, slash) + ".";
    std::ranges::replace(text, '/', '.');
    return text;
}

std::string RandomValues::nameOf(std::size_t model) const {
    return model < models_.size() ? models_[model].name : "M" + std::to_string(model);
}

std::string RandomValues::fullName(std::size_t model) const {
    return space(models_[model].document) + models_[model].name;
}

bool RandomValues::isA(std::size_t model, std::size_t wanted) const {
    for (std::optional<std::size_t> at = model; at && *at < models_.size(); at = models_[*at].base) {
        if (*at == wanted)
            return true;
        if (models_[*at].base && *models_[*at].base >= *at)
            return false;
    }
    return false;
}

std::string RandomValues::drawInitializer(std::size_t type) {
    auto const& model = models_[type];
    if (!model.fits_initializers || model.kind != ModelKind::Plain || !dice_.happens(50))
        return "";
    // In the order of the names, which is that of the source with one attribute only.
    if (model.attributes.size() != 1)
        return "";
    return "{" + literal(model.attributes.begin()->second.primitive) + "}";
}

std::string RandomValues::literal(std::string const& type) {
    if (slips())
        return dice_.pick(
            std::vector<std::string>{"true", "absent", "2.5", "[1.5][0]", "near.absent", "1(2)"});
    if (type == "Int")
        return std::to_string(dice_.number(0, 9));
    if (type == "Real")
        return dice_.happens(50) ? "2.5" : "7 / 2";
    if (type == "Bool")
        return dice_.happens(50) ? "true" : "false";
    if (type == "String")
        return "\"text\"";
    return type == "Int[]" ? "[1, 2]" : dice_.happens(30) ? "[]" : "[1, 2.5]";
}

std::string RandomValues::value(std::string const& type, Model const& model) {
    if (dice_.happens(25))
        return literal(type);
    auto const wanted = type == "Real" && dice_.happens(30) ? "Int" : type;
    auto text = dice_.happens(30) ? call(wanted, model) : read(wanted, model);
    if (text.empty() && type == "Int")
        text = readByIndex(model);
    if (text.empty())
        text = call(wanted, model);
    if (text.empty() || slips())
        text = drawOddValue(type, model);
    if ((type == "Int" || type == "Real") && dice_.happens(30))
        return (dice_.happens(30) ? "-" + literal("Int") : literal(wanted)) + " * (" + text + ") - 1";
    return text;
}

std::string RandomValues::drawOddValue(std::string const& type, Model const& model) {
    if (type == "Real" && !overloads_.empty() && dice_.happens(60)) {
        auto const& [lhs, rhs] = dice_.pick(overloads_);
        auto const left = readModel(lhs, model);
        auto const right = readModel(rhs, model);
        if (!left.empty() && !right.empty())
            return left + " + " + right;
    }
    static std::vector<std::string> const odd{"a.b.c",    "this.a",    "a[1]",  "a + b", "f(1)",
                                              "a.run(1)", "b[a]",      "v1.a",  "-a",    "{1, 2}",
                                              "this",     "near.M2.a", "(a).b", "[a, b]"};
    if (faults_ > 0 && dice_.happens(20))
        return dice_.pick(odd);
    return literal(type);
}

std::string RandomValues::find(Model const& model, Fits const& fits) {
    for (int tries = 0; tries < 3; ++tries) {
        auto const* at = &model;
        std::string text = dice_.happens(15) ? "this" : "";
        for (int depth = 0; depth < 4 && at != nullptr && !at->attributes.empty(); ++depth) {
            auto entry = at->attributes.begin();
            std::advance(entry, static_cast<std::ptrdiff_t>(dice_.number(0, at->attributes.size() - 1)));
            text += (text.empty() ? "" : ".") + entry->first;
            if (fits(entry->second))
                return text;
            auto const next = entry->second.model;
            at = next && *next < models_.size() ? &models_[*next] : nullptr;
        }
    }
    return "";
}

std::string RandomValues::read(std::string const& type, Model const& model) {
    if (!variables_.empty() && dice_.happens(15)) {
        auto const& [name, variable_type] = dice_.pick(variables_);
        if (variable_type == type)
            return name;
    }
    if (auto text = dice_.happens(20) ? readConstant(type) : ""; !text.empty())
        return text;
    return find(model, [&](TypeName const& found) { return !found.model && found.primitive == type; });
}

std::string RandomValues::readConstant(std::string const& type) {
    for (std::size_t i = 0; i < models_.size(); ++i) {
        if (models_[i].kind != ModelKind::Const || !dice_.happens(50))
            continue;
        for (auto const& [name, found] : models_[i].attributes) {
            if (!found.model && found.primitive == type)
                return fullName(i) + "." + name;
        }
    }
    return "";
}

std::string RandomValues::readModel(std::size_t type, Model const& model) {
    return find(model, [&](TypeName const& found) { return found.model && isA(*found.model, type); });
}

std::string RandomValues::readByIndex(Model const& model) {
    auto const array = read("Int[]", model);
    if (array.empty())
        return "";
    return array + (slips() ? "[true]" : dice_.happens(50) ? "[0]" : "[1 + 0]");
}

/// Of the model itself, of what an attribute holds, or of a model by its name.
std::string RandomValues::call(std::string const& type, Model const& model) {
    if (dice_.happens(40))
        return callOn("", model, type, model);
    if (dice_.happens(40)) {
        auto const other = models_.empty() ? 0 : dice_.number(0, models_.size() - 1);
        return models_.empty() ? "" : callOn(fullName(other), models_[other], type, model);
    }
    auto const holds = [&](TypeName const& found) {
        return found.model && *found.model < models_.size() && !models_[*found.model].methods.empty();
    };
    auto const path = find(model, holds);
    auto const* at = path.empty() ? nullptr : follow(model, path);
    return at == nullptr ? "" : callOn(path, *at, type, model);
}

std::string RandomValues::callOn(std::string const& operand, Model const& called, std::string const& type,
                                 Model const& model) {
    bool const is_by_model = !operand.empty() && operand.find('M') != std::string::npos;
    for (auto const& [name, method] : called.methods) {
        if (method.return_type != type || (is_by_model && !method.is_static && !slips()))
            continue;
        std::string arguments;
        for (auto const& parameter : method.parameter_types) {
            auto const argument = dice_.happens(60) ? read(parameter, model) : "";
            arguments += (arguments.empty() ? "" : ", ") + (argument.empty() ? literal(parameter) : argument);
        }
        return operand + (operand.empty() ? "" : ".") + name + "(" + arguments + (slips() ? ", 1)" : ")");
    }
    return "";
}

/// The model of the attribute that the names lead to.
RandomModel const* RandomValues::follow(Model const& model, std::string const& path) const {
    auto const* at = &model;
    for (std::size_t begin = path.starts_with("this.") ? 5 : 0; at != nullptr && begin < path.size();) {
        auto const end = std::min(path.find('.', begin), path.size());
        auto const entry = at->attributes.find(path.substr(begin, end - begin));
        auto const next = entry == at->attributes.end() ? std::nullopt : entry->second.model;
        at = next && *next < models_.size() ? &models_[*next] : nullptr;
        begin = end + 1;
    }
    return at;
}

bool RandomValues::passesConst(Model const& model, std::string const& path) const {
    for (auto end = path.find('.'); end != std::string::npos; end = path.find('.', end + 1)) {
        auto const* at = follow(model, path.substr(0, end));
        if (at != nullptr && at->kind == ModelKind::Const)
            return true;
    }
    return false;
}

} // namespace Slate::Testing
