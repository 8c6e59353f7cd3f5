#include "RandomBundle.h"

#include "slate/refactor/QualifiedName.h"

#include <algorithm>
#include <map>
#include <optional>
#include <set>
#include <utility>

namespace Slate::Refactor {

namespace {

std::vector<std::string> const paths{"plant/one.slate",
                                     "plant/two.slate",
                                     "plant/pumps/three.slate",
                                     "plant/stock/four.slate",
                                     "plant/stock/five.slate",
                                     "parts/six.slate",
                                     "seven.slate"};
std::vector<std::string> const attribute_names{"a", "b", "c", "d", "e", "f", "g", "h"};
std::vector<std::string> const method_names{"run", "stop", "turn"};

enum class Kind { Plain, Const, Trait };

/// `Int`, or the model of that number; or an array of it.
struct Type {
    std::optional<std::size_t> model;
    bool is_array = false;
};

struct Attribute {
    Type type;
    std::string full_name;
};

struct Model {
    std::string name;
    std::size_t path = 0;
    Kind kind = Kind::Plain;
    std::optional<std::size_t> base = {};
    std::map<std::string, Attribute> attributes = {}; // those of bases and traits too
    std::map<std::string, std::size_t> methods = {};  // likewise; how many parameters
    std::vector<std::string> static_methods = {};     // its own, without parameters
    std::size_t weight = 1;                           // about how many attributes it unfolds into
};

class Maker {
  public:
    Maker(std::mt19937::result_type seed, Naming naming) : random_(seed), naming_(naming) {}

    RandomBundle make() {
        auto const count = number(6, 16);
        for (std::size_t i = 0; i < count; ++i) {
            writeModel(i, i == 0 ? Kind::Trait : i < 3 ? Kind::Const : Kind::Plain);
            if (i > 3 && happens(20))
                writeOverload();
        }
        return finish();
    }

  private:
    // The dice.

    std::size_t number(std::size_t lowest, std::size_t highest) {
        return lowest + random_() % (highest - lowest + 1);
    }

    bool happens(std::size_t percent) { return number(1, 100) <= percent; }

    template <typename Item>
    Item const& pick(std::vector<Item> const& items) {
        return items[number(0, items.size() - 1)];
    }

    // Names.

    static std::vector<std::string> spaceOf(std::size_t path) {
        auto text =
            paths[path].substr(0, paths[path].rfind('/') == std::string::npos ? 0 : paths[path].rfind('/'));
        std::ranges::replace(text, '/', '.');
        return splitName(text);
    }

    std::string fullName(Model const& model) const {
        std::string text;
        for (auto const& part : spaceOf(model.path))
            text += part + ".";
        return text + model.name;
    }

    /// The model as written in the source: where two namespaces begin alike, that much can be left away.
    std::string reference(Model const& model, std::size_t path) {
        auto const space = spaceOf(model.path);
        auto const here = spaceOf(path);
        auto const common = std::ranges::mismatch(space, here).in1 - space.begin();
        auto first = space.begin();
        if (naming_ == Naming::Mixed)
            first += static_cast<std::ptrdiff_t>(number(0, static_cast<std::size_t>(common)));
        std::string text;
        for (; first != space.end(); ++first)
            text += *first + ".";
        return text + model.name;
    }

    static bool isInStock(std::size_t path) { return paths[path].starts_with("plant/stock"); }

    // Models.

    void writeModel(std::size_t index, Kind kind) {
        Model model{
            .name = "M" + std::to_string(100 + index), .path = number(0, paths.size() - 1), .kind = kind};
        while (kind != Kind::Plain && isInStock(model.path))
            model.path = number(0, paths.size() - 1);
        body_.clear();
        if (kind == Kind::Plain && happens(25)) {
            body_ += "    with " + reference(models_[0], model.path) + "\n";
            model.attributes = models_[0].attributes;
        }
        model.base = drawBase(model);
        if (model.base)
            inherit(model, models_[*model.base]);
        for (auto rounds = number(1, 6); rounds > 0; --rounds)
            writeMember(model);
        auto& text = texts_[model.path];
        text += kind == Kind::Const ? "const " : kind == Kind::Trait ? "trait " : "";
        text += model.name + (model.base ? " is " + reference(models_[*model.base], model.path) : "");
        text += body_.empty() ? "\n\n" : ":\n" + body_ + "\n";
        last_of_source_[model.path] = index;
        models_.push_back(std::move(model));
    }

    std::optional<std::size_t> drawBase(Model const& model) {
        auto const base = models_.empty() ? 0 : number(0, models_.size() - 1);
        bool const fits = !models_.empty() && models_[base].kind == model.kind && model.attributes.empty();
        return fits && happens(60) ? std::optional(base) : std::nullopt;
    }

    static void inherit(Model& model, Model const& base) {
        model.attributes = base.attributes;
        model.methods = base.methods;
        model.weight += base.weight;
    }

    void writeMember(Model& model) {
        if (model.kind == Kind::Trait) {
            declareNumber(model, literal());
            return;
        }
        switch (number(0, 9)) {
        case 0: return writeMethod(model);
        case 1: return writeAssignment(model);
        case 2: return writeRedeclaration(model);
        case 3: return declareArray(model);
        case 4:
        case 5:
        case 6:
            if (model.kind == Kind::Plain)
                return declareModel(model);
            [[fallthrough]];
        default: return declareNumber(model, value(model, 2));
        }
    }

    std::string declare(Model& model, Type type) {
        auto name = pick(attribute_names);
        if (model.attributes.contains(name))
            name = "n" + std::to_string(++counter_);
        auto full_name = fullName(model) + "." + name;
        if (model.kind != Kind::Trait)
            attributes_.insert(full_name);
        model.attributes[name] = {type, std::move(full_name)};
        touched_.insert(model.name + "." + name);
        return name;
    }

    void declareNumber(Model& model, std::string const& text) {
        body_ += "    " + declare(model, {}) + " is Int: " + text + "\n";
    }

    void declareArray(Model& model) {
        auto const first = value(model, 1);
        auto const second = value(model, 1);
        body_ += "    " + declare(model, {{}, true}) + " is Int[]: [" + first + ", " + second + "]\n";
    }

    void declareModel(Model& model) {
        auto const index = number(1, models_.size() - 1);
        auto const& type = models_[index];
        if (model.weight + type.weight > 60)
            return;
        model.weight += type.weight;
        auto const written = reference(type, model.path);
        bool const is_array = type.kind == Kind::Plain && happens(20);
        auto const name = declare(model, {index, is_array});
        body_ += "    " + name + " is " + written + (is_array ? "[]: []" : "");
        std::string inner;
        for (auto const& [nested_name, nested] : type.attributes) {
            if (type.kind == Kind::Plain && !is_array && isNumber(nested.type) && happens(25))
                inner += "        " + nested_name + ": " + constantValue(model) + "\n";
        }
        body_ += inner.empty() ? "\n" : ":\n" + inner;
    }

    /// To an attribute that is inherited, or to one inside such an attribute.
    void writeAssignment(Model& model) {
        for (auto const& [name, attribute] : model.attributes) {
            if (model.kind == Kind::Const || !touched_.insert(model.name + "." + name).second)
                continue;
            auto const& type = attribute.type;
            if (isNumber(type))
                body_ += "    " + name + ": " + constantValue(model) + "\n";
            if (!type.model || type.is_array || models_[*type.model].kind == Kind::Const)
                continue;
            for (auto const& [nested_name, nested] : models_[*type.model].attributes) {
                if (isNumber(nested.type) && happens(60))
                    body_ += "    " + name + "." + nested_name + ": " + constantValue(model) + "\n";
            }
            return;
        }
    }

    /// What reads the attribute from here on reads another declaration, so none may be renamed.
    void writeRedeclaration(Model& model) {
        for (auto& [name, attribute] : model.attributes) {
            auto& type = attribute.type;
            if (!type.model || type.is_array || touched_.contains(model.name + "." + name))
                continue;
            for (std::size_t narrower = *type.model + 1; narrower < models_.size(); ++narrower) {
                if (models_[narrower].base != type.model || model.weight + models_[narrower].weight > 60)
                    continue;
                attributes_.erase(attribute.full_name);
                touched_.insert(model.name + "." + name);
                model.weight += models_[narrower].weight;
                type.model = narrower;
                body_ += "    " + name + " becomes " + reference(models_[narrower], model.path) + "\n";
                return;
            }
        }
    }

    void writeMethod(Model& model) {
        bool const is_static = !isInStock(model.path) && happens(40);
        auto const name = is_static ? "make" + model.name : pick(method_names);
        bool const is_known = is_static ? !model.static_methods.empty() : model.methods.contains(name);
        if (is_known)
            return;
        std::string parameters;
        auto const parameter_count = is_static ? 0 : number(0, 2);
        for (std::size_t i = 0; i < parameter_count; ++i)
            parameters += (i > 0 ? ", p" : "p") + std::to_string(i) + ": Int";
        if (!is_static && happens(40)) {
            // Never called: there is no value of this type at hand everywhere.
            body_ += "    fn takes" + std::to_string(++counter_) + "(other: " + anyModel(model.path) +
                     ", others: " + anyModel(model.path) + "[]) -> " + anyModel(model.path) + "\n";
        }
        body_ +=
            std::string(is_static ? "    static fn " : "    fn ") + name + "(" + parameters + ") -> Int\n";
        methods_.insert(fullName(model) + "." + name);
        if (is_static)
            model.static_methods.push_back(name);
        else
            model.methods[name] = parameter_count;
    }

    std::string anyModel(std::size_t path) {
        return models_.size() < 2 ? "Int" : reference(models_[number(1, models_.size() - 1)], path);
    }

    void writeOverload() {
        auto const path = number(0, paths.size() - 1);
        // One alone: others might be hard to tell from it.
        if (std::exchange(has_overload_, true))
            return;
        texts_[path] += "operator + (a: " + anyModel(path) + ", b: " + anyModel(path) + "[]) -> " +
                        anyModel(path) + "[]\n\n";
        last_of_source_.erase(path);
    }

    // Values.

    static bool isNumber(Type const& type) { return !type.model && !type.is_array; }

    std::string literal() { return std::to_string(number(0, 9)); }

    /// Reads no attribute of the model, so closes no ring whatever it is assigned to.
    std::string constantValue(Model const& model) {
        auto const text = happens(40) ? readConstant(model) : "";
        return text.empty() ? literal() : text;
    }

    std::string value(Model const& model, std::size_t depth) {
        if (depth > 0 && happens(30)) {
            auto const left = value(model, depth - 1);
            auto const right = value(model, depth - 1);
            return happens(30) ? "-(" + left + ") * " + right : left + " + (" + right + " - 1)";
        }
        auto const text = happens(25) ? readConstant(model) : happens(30) ? call(model, depth) : read(model);
        return text.empty() ? literal() : text;
    }

    std::string read(Model const& model) {
        std::string path = happens(30) ? "this." : "";
        for (auto const* at = &model; at != nullptr && !at->attributes.empty();) {
            auto entry = at->attributes.begin();
            std::advance(entry, static_cast<std::ptrdiff_t>(number(0, at->attributes.size() - 1)));
            auto const& type = entry->second.type;
            if (!type.model)
                return path + entry->first + (type.is_array ? happens(50) ? "[0]" : "[1 - 0]" : "");
            if (type.is_array)
                return "";
            path += entry->first + ".";
            at = &models_[*type.model];
        }
        return "";
    }

    std::string readConstant(Model const& model) {
        for (auto const& other : models_) {
            if (other.kind != Kind::Const || isInStock(model.path) || happens(40))
                continue;
            for (auto const& [name, attribute] : other.attributes) {
                if (isNumber(attribute.type) && happens(50))
                    return reference(other, model.path) + "." + name;
            }
        }
        return "";
    }

    std::string call(Model const& model, std::size_t depth) {
        auto const& other = models_.empty() ? model : pick(models_);
        if (!other.static_methods.empty() && happens(50))
            return reference(other, model.path) + "." + other.static_methods.front() + "()";
        if (model.methods.empty())
            return "";
        auto const& [name, parameter_count] = *model.methods.begin();
        std::string arguments;
        for (std::size_t i = 0; i < parameter_count; ++i)
            arguments += (i > 0 ? ", " : "") + (depth > 0 ? value(model, depth - 1) : literal());
        return (happens(30) ? "this." : "") + name + "(" + arguments + ")";
    }

    RandomBundle finish() const {
        RandomBundle bundle;
        for (auto const& [path, text] : texts_)
            bundle.sources.push_back({paths[path], text});
        for (std::size_t i = 0; i < models_.size(); ++i) {
            auto const& model = models_[i];
            if (model.kind == Kind::Trait)
                continue;
            auto const last = last_of_source_.find(model.path);
            bundle.models.push_back({fullName(model), paths[model.path],
                                     model.kind == Kind::Const ? "const " : "",
                                     last != last_of_source_.end() && last->second == i});
        }
        bundle.root = bundle.models.back().full_name;
        bundle.attributes.assign(attributes_.begin(), attributes_.end());
        bundle.methods.assign(methods_.begin(), methods_.end());
        return bundle;
    }

    std::mt19937 random_;
    Naming naming_;
    std::vector<Model> models_;
    std::map<std::size_t, std::string> texts_;
    std::map<std::size_t, std::size_t> last_of_source_; // the model that is the last item, if it is one
    std::string body_;
    std::set<std::string> touched_; // by model, what is declared or assigned in it
    bool has_overload_ = false;
    std::set<std::string> attributes_;
    std::set<std::string> methods_;
    std::size_t counter_ = 0;
};

} // namespace

RandomBundle makeRandomBundle(std::mt19937::result_type seed, Naming naming) {
    return Maker(seed, naming).make();
}

} // namespace Slate::Refactor
