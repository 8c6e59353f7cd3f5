#include "RandomPrograms.h"

#include "RandomValues.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <optional>
#include <set>

namespace Slate::Testing {

namespace {

enum class Shape { Forest, Chain, Fan, Ring };

std::vector<std::string> const method_names{"run", "stop", "turn"};
std::vector<std::string> const unknown_names{"Absent", "near.Absent", "Int.Absent"};
constexpr std::size_t greatest_weight = 150;

class Maker : private RandomValues {
  public:
    Maker(std::mt19937::result_type seed, Intent intent)
        : Maker(seed, intent, Dice(seed * 2 + (intent == Intent::Faulty ? 1 : 0))) {}

    AnalysisInput make() {
        texts_.resize(dice_.number(1, paths.size()));
        auto const first_plain = dice_.number(2, 7);
        auto const count = first_plain + (shape_ == Shape::Chain ? dice_.number(20, 60)
                                          : shape_ == Shape::Fan ? dice_.number(30, 60)
                                                                 : dice_.number(3, 12));
        planned_ = count;
        for (std::size_t i = 0; i < count; ++i) {
            if (dice_.happens(10))
                writeVariable();
            if (i > first_plain && dice_.happens(20))
                writeOverload();
            writeModel(i, i >= first_plain ? ModelKind::Plain
                          : i % 3 == 2     ? ModelKind::Const
                                           : ModelKind::Trait);
        }
        return input(first_plain);
    }

  private:
    Maker(std::mt19937::result_type seed, Intent intent, Dice dice)
        : RandomValues(dice, intent == Intent::Faulty ? 1 + seed / 4 % 8 : 0),
          shape_(static_cast<Shape>(seed % (intent == Intent::Faulty ? 4 : 3))) {}

    AnalysisInput input(std::size_t first_plain) {
        AnalysisInput result;
        for (std::size_t i = 0; i < texts_.size(); ++i)
            result.sources.push_back({paths[i], texts_[i]});
        auto const chosen =
            dice_.happens(70) ? models_.size() - 1 : dice_.number(first_plain, models_.size() - 1);
        result.model = fullName(chosen);
        result.nested_declarations_allowed = faults_ == 0 || dice_.happens(80);
        return result;
    }

    /// As written in a document. A model that is not written yet is expected in the same one.
    std::string reference(std::size_t model, std::size_t document) {
        if (slips())
            return dice_.pick(unknown_names);
        bool const is_near = model >= models_.size() || space(models_[model].document) == space(document);
        return is_near && dice_.happens(70) ? nameOf(model)
               : model < models_.size()     ? fullName(model)
                                            : nameOf(model);
    }

    std::string reference(TypeName const& type, std::size_t document) {
        return type.model ? reference(*type.model, document) : type.primitive;
    }

    std::optional<std::size_t> drawBase(std::size_t number, ModelKind kind) {
        if (slips())
            return dice_.number(0, planned_ - 1);
        if (shape_ == Shape::Ring && kind == ModelKind::Plain && dice_.happens(50))
            return dice_.happens(40) ? std::min(number + 1, planned_ - 1) : dice_.number(0, number - 1);
        std::vector<std::size_t> candidates;
        for (std::size_t i = 0; i < number; ++i) {
            if (models_[i].kind == kind)
                candidates.push_back(i);
        }
        bool const is_chained = kind == ModelKind::Plain && (shape_ == Shape::Chain || shape_ == Shape::Fan);
        if (candidates.empty() || !dice_.happens(is_chained ? 95 : kind == ModelKind::Trait ? 40 : 50))
            return std::nullopt;
        if (!is_chained)
            return dice_.pick(candidates);
        bool const grows = shape_ == Shape::Chain || candidates.size() < 18;
        return candidates[candidates.size() - 1 -
                          (grows ? 0 : dice_.number(0, std::min<std::size_t>(12, candidates.size() - 1)))];
    }

    void inherit(Model& model, std::size_t from) {
        if (from >= models_.size())
            return;
        auto const& other = models_[from];
        model.attributes.insert(other.attributes.begin(), other.attributes.end());
        model.methods.insert(other.methods.begin(), other.methods.end());
        model.trait_roots.insert(other.trait_roots.begin(), other.trait_roots.end());
        model.extended.insert(other.extended.begin(), other.extended.end());
        model.weight += other.weight;
        model.fits_initializers = false;
    }

    std::string rootOf(std::size_t trait) const {
        for (std::size_t steps = 0; models_[trait].base && *models_[trait].base < trait && steps < 99;
             ++steps)
            trait = *models_[trait].base;
        return nameOf(trait);
    }

    void writeModel(std::size_t number, ModelKind kind) {
        Model model{
            "M" + std::to_string(number), dice_.number(0, texts_.size() - 1), kind, {}, {}, {}, {}, {}};
        if (number > 0 && slips())
            model.name = nameOf(dice_.number(0, number - 1));
        model.base = drawBase(number, kind);
        body_.clear();
        if (model.base)
            inherit(model, *model.base);
        if (kind == ModelKind::Plain || slips())
            writeTraits(model);
        if (kind == ModelKind::Trait)
            model.trait_roots.insert(model.base && *model.base < number ? rootOf(*model.base) : model.name);
        if (dice_.happens(15))
            body_ += "    .unit: \"mm\"\n";
        if (dice_.happens(10))
            body_ += "    .doc: \"of a model\"\n";
        std::set<std::string> touched;
        bool const is_long = shape_ == Shape::Chain || shape_ == Shape::Fan;
        for (auto count = dice_.number(0, is_long ? 3 : 7); count > 0; --count)
            writeMember(model, touched);
        auto& text = texts_[model.document];
        text += kind == ModelKind::Const ? "const " : kind == ModelKind::Trait ? "trait " : "";
        text += model.name + (model.base ? " is " + reference(*model.base, model.document) : "");
        text += body_.empty() ? "\n\n" : ":\n" + body_ + "\n";
        models_.push_back(std::move(model));
    }

    template <typename Table>
    static bool haveCommonName(Table const& some, Table const& others) {
        return std::ranges::any_of(some, [&](auto const& entry) { return others.contains(entry.first); });
    }

    void writeTraits(Model& model) {
        for (auto count = dice_.happens(25) ? dice_.number(1, 3) : 0; count > 0; --count) {
            auto const trait =
                dice_.number(0, std::min<std::size_t>(models_.empty() ? 0 : models_.size() - 1, 6));
            if (trait >= models_.size())
                return;
            auto const& other = models_[trait];
            bool const clashes = other.kind != ModelKind::Trait ||
                                 model.trait_roots.contains(rootOf(trait)) ||
                                 haveCommonName(other.attributes, model.attributes) ||
                                 haveCommonName(other.methods, model.methods);
            if (clashes && (faults_ == 0 || !dice_.happens(40)))
                continue;
            body_ += "    with " + reference(trait, model.document) + "\n";
            inherit(model, trait);
        }
    }

    void writeMember(Model& model, std::set<std::string>& touched) {
        switch (dice_.number(0, 9)) {
        case 0: return writeMethod(model);
        case 1: return writeRedeclaration(model, touched);
        case 2:
        case 3: return writeAssignment(model, touched);
        case 4: return writeBlock(model, touched);
        case 5:
            if (slips())
                body_ += dice_.happens(50) ? "    x is: 3\n" : "    delete a.b\n";
            return;
        default: return writeDeclaration(model, touched);
        }
    }

    std::string freshName(Model const& model) {
        auto name = dice_.pick(names);
        if (slips() || !model.attributes.contains(name))
            return name;
        return (model.kind == ModelKind::Trait ? "t" : "x") + std::to_string(++counter_);
    }

    TypeName drawType(Model const& model) {
        if (!models_.empty() && dice_.happens(45)) {
            for (int i = 0; i < 4; ++i) {
                auto const number = dice_.number(0, models_.size() - 1);
                if (models_[number].kind != ModelKind::Trait &&
                    model.weight + models_[number].weight < greatest_weight)
                    return {"", number};
            }
        }
        if (slips() && model.weight < 25 && ++forward_references_ < 3)
            return {"", dice_.number(0, planned_ - 1)};
        return {dice_.pick(primitives), {}};
    }

    void writeDeclaration(Model& model, std::set<std::string>& touched) {
        auto const name = freshName(model);
        auto const type = drawType(model);
        body_ += "    " + name + " is " + reference(type, model.document);
        if (!type.model) {
            body_ += ": " + value(type.primitive, model) + "\n";
            if (type.primitive.ends_with("]"))
                model.fits_initializers = false;
        } else {
            model.weight += *type.model < models_.size() ? models_[*type.model].weight : 1;
            auto const initializer = *type.model < models_.size() ? drawInitializer(*type.model) : "";
            if (!initializer.empty())
                body_ += ": " + initializer + "\n";
            else if (dice_.happens(20))
                body_ += ":\n        .unit: \"m\"\n        .doc: \"of an attribute\"\n";
            else
                body_ += "\n";
            model.fits_initializers = false;
            if (!initializer.empty())
                touched.insert(name + ".");
        }
        touched.insert(name);
        model.attributes.insert_or_assign(name, type);
    }

    /// To an attribute that is inherited: none is assigned twice in one body.
    void writeAssignment(Model& model, std::set<std::string>& touched) {
        if (slips()) {
            body_ +=
                "    " + dice_.pick(names) + (dice_.happens(50) ? "." + dice_.pick(names) : "") + ": 1\n";
            return;
        }
        std::string type;
        auto const path = find(
            model, [&](TypeName const& found) { return !found.model && (type = found.primitive, true); });
        auto const first = path.substr(0, path.find('.'));
        // Behind `this` no assignment leads, and a const model is left alone.
        if (path.empty() || first == "this" || !touched.insert(first).second ||
            model.extended.contains(first))
            return;
        if (passesConst(model, path) && faults_ == 0)
            return;
        touched.insert(first + ".");
        for (int times = slips() ? 2 : 1; times > 0; --times)
            body_ += "    " + path + ": " + literal(type) + "\n";
        model.fits_initializers = false;
    }

    /// A body of assignments, and sometimes of declarations, for an attribute of a model type.
    void writeBlock(Model& model, std::set<std::string>& touched) {
        auto const name = find(model, [](TypeName const& found) { return found.model.has_value(); });
        if (name.empty() || name.find('.') != std::string::npos || touched.contains(name + ".") ||
            name == "this")
            return;
        auto const type = *model.attributes.at(name).model;
        if (type >= models_.size() || (models_[type].kind == ModelKind::Const && faults_ == 0))
            return;
        std::string inner;
        for (auto const& [nested_name, nested_type] : models_[type].attributes) {
            if (!nested_type.model && dice_.happens(50))
                inner += "        " + nested_name + ": " + literal(nested_type.primitive) + "\n";
            else if (faults_ > 0 && nested_type.model && dice_.happens(20))
                inner += "        " + nested_name + ":\n            " + dice_.pick(names) + ": 1\n";
        }
        if (dice_.happens(30)) {
            inner += "        n" + std::to_string(++counter_) + " is Int: 1\n";
            model.extended.insert(name);
        }
        if (inner.empty())
            return;
        touched.insert(name + ".");
        touched.insert(name);
        body_ += "    " + name + ":\n" + inner;
    }

    void writeRedeclaration(Model& model, std::set<std::string>& touched) {
        auto const name = find(model, [](TypeName const& found) { return found.model.has_value(); });
        if (slips() && !models_.empty()) {
            body_ += "    " + dice_.pick(names) + " becomes " +
                     reference(dice_.number(0, models_.size() - 1), model.document) + "\n";
            return;
        }
        if (name.empty() || name.find('.') != std::string::npos || touched.contains(name) ||
            model.extended.contains(name))
            return;
        auto const type = *model.attributes.at(name).model;
        for (std::size_t narrower = 0; narrower < models_.size(); ++narrower) {
            if (narrower == type || !isA(narrower, type) || models_[narrower].kind != ModelKind::Plain ||
                model.weight + models_[narrower].weight > greatest_weight)
                continue;
            touched.insert(name);
            touched.insert(name + ".");
            body_ += "    " + name + " becomes " + reference(narrower, model.document) + "\n";
            model.attributes[name].model = narrower;
            model.weight += models_[narrower].weight;
            return;
        }
    }

    void writeMethod(Model& model) {
        auto const name = dice_.pick(method_names);
        if (model.methods.contains(name) && !slips())
            return;
        RandomMethod method{{}, dice_.pick(primitives), dice_.happens(30)};
        std::string parameters;
        for (auto count = dice_.number(0, 2); count > 0; --count) {
            method.parameter_types.push_back(dice_.pick(primitives));
            parameters += (parameters.empty() ? "" : ", ") + dice_.pick(names) +
                          std::to_string(slips() ? 0 : count) + ": " + method.parameter_types.back();
        }
        if (dice_.happens(20))
            method.return_type.clear();
        body_ += std::string("    ") + (method.is_static ? "static " : "") + "fn " + name + "(" + parameters +
                 ")" + (method.return_type.empty() ? "" : " -> " + method.return_type) + "\n";
        model.methods.insert_or_assign(name, std::move(method));
    }

    void writeVariable() {
        auto const name = slips() ? dice_.pick(names) : "v" + std::to_string(++counter_);
        auto const type = dice_.pick(primitives);
        // A namespace sees the variables of the empty one, so these are the ones that are read.
        auto const document = dice_.number(0, texts_.size() - 1);
        auto const earlier =
            std::ranges::find(variables_, type, [](auto const& entry) { return entry.second; });
        bool const reads = earlier != variables_.end() && dice_.happens(50);
        texts_[document] += name + " is " + type + ": " + (reads ? earlier->first : literal(type)) + "\n";
        if (space(document).empty() || faults_ > 0)
            variables_.emplace_back(name, type);
    }

    void writeOverload() {
        auto const draw = [&] { return dice_.number(0, models_.size() - 1); };
        auto const lhs = draw();
        auto const rhs = draw();
        auto const document = dice_.number(0, texts_.size() - 1);
        if (faults_ == 0 && !overloads_.empty())
            return;
        auto const op = faults_ == 0 ? "+" : dice_.pick(std::vector<std::string>{"+", "+", "-", "*"});
        auto const second =
            faults_ > 0 && dice_.happens(20) ? dice_.pick(primitives) : reference(rhs, document);
        auto parameters = "p: " + reference(lhs, document) + ", q: " + second;
        if (faults_ > 0 && dice_.happens(25))
            parameters = dice_.happens(80) ? "p: " + reference(lhs, document) : "";
        texts_[document] += std::string("operator ") + op + " (" + parameters + ") -> Real\n";
        overloads_.emplace_back(lhs, rhs);
    }

    Shape shape_;
    std::size_t planned_ = 0;
    std::vector<std::string> texts_;
    std::string body_;
    std::size_t counter_ = 0;
    std::size_t forward_references_ = 0;
};

} // namespace

AnalysisInput makeRandomProgram(std::mt19937::result_type seed, Intent intent) {
    return Maker(seed, intent).make();
}

void forEachRandomProgram(std::size_t count, std::function<void(Analyzed&, Dice&)> const& check) {
    for (std::mt19937::result_type seed = 0; seed < count; ++seed) {
        for (auto const intent : {Intent::Sound, Intent::Faulty}) {
            auto const input = makeRandomProgram(seed, intent);
            SCOPED_TRACE((intent == Intent::Sound ? "sound program of seed " : "faulty program of seed ") +
                         std::to_string(seed) + "\n" + textOf(input));
            auto analyzed = analyze(input);
            Dice dice(seed);
            check(analyzed, dice);
            if (testing::Test::HasFailure())
                return;
        }
    }
}

std::string textOf(AnalysisInput const& input) {
    std::string text = "=== model: " + input.model + "\n";
    if (!input.nested_declarations_allowed)
        text += "=== no nested declarations\n";
    for (auto const& source : input.sources)
        text += "=== " + source.path + "\n" + source.text;
    return text;
}

} // namespace Slate::Testing
