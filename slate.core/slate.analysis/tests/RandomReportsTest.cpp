// What is reported for generated programs, and what becomes of them when they are analysed again or taken
// apart.

#include "RandomPrograms.h"
#include "slate/Document.h"
#include "slate/ModelDeclaration.h"
#include "slate/VarAssignment.h"
#include "slate/testing/Parse.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <map>
#include <set>

namespace Slate {

namespace {

using namespace Testing;

/// A value with faulty indexes, and the columns of its mismatches, counted from the value's own first: those
/// of the first visit and those of each later one.
struct FaultyValue {
    std::string text;
    std::vector<std::size_t> first;
    std::vector<std::size_t> later;
};

std::vector<FaultyValue> const faulty_values{
    {"1", {}, {}},
    {"list[\"s\"]", {5}, {5}},
    {"[1.5][0]", {0}, {0}},
    {"[1.5][true]", {0, 6}, {0, 6}},
    {"\"text\"[0]", {0}, {0}},
    {"2.5[list[true]]", {9, 0}, {9, 0}},
    {"list[list[\"s\"]]", {10}, {10}},
    {"1 + list[true]", {9}, {9}},
    {"-list[true]", {6}, {6}},
    {"list[true] * list[\"s\"]", {5, 18}, {5, 18}},
    // What encloses the index is marked, and from then on passed over.
    {"list[\"s\"] + true", {5, 0}, {}},
    {"{list[true]}", {6, 0}, {}},
    // The operand of a call whose type is known is not visited again; its arguments are.
    {"tools[\"s\"].run()", {6}, {}},
    {"tools[\"s\"].walk()", {6}, {6}},
    {"tools[0].take(list[true])", {19}, {19}},
    {"Tool.make(list[true])", {15}, {15}},
    {"tools[true].take(list[true])", {6, 22}, {22}},
};

/// A program of models with faulty indexes in their bodies, in a forest that may lead into rings, and the
/// mismatches that are expected of it: those of each model's body and of all that it extends, model by model.
class IndexProgram {
  public:
    explicit IndexProgram(std::mt19937::result_type seed) : dice_(seed) {
        texts_.resize(dice_.number(1, 3));
        texts_[0] = "list is Int[]: [1]\n"
                    "tools is Tool[]: []\n"
                    "Tool:\n"
                    "    size is Int: 1\n"
                    "    fn run() -> Int\n"
                    "    fn walk()\n"
                    "    fn take(p: Int) -> Int\n"
                    "    static fn make(p: Int) -> Int\n";
        for (std::size_t trait = 0; trait < 2; ++trait) {
            auto const document = dice_.number(0, texts_.size() - 1);
            texts_[document] += "trait T" + std::to_string(trait) + ":\n";
            for (int i = 0; i < 2; ++i)
                traits_[trait].push_back(
                    writeValue(document, "    t" + std::to_string(trait) + std::to_string(i) + " is Int: "));
        }
        auto const count = dice_.happens(30) ? dice_.number(20, 40) : dice_.number(2, 10);
        for (std::size_t i = 0; i < count; ++i)
            drawModel(i, count);
        if (texts_.size() > 1)
            addNamesake();
        for (std::size_t i = 0; i < models_.size(); ++i)
            writeModel(i);
    }

    AnalysisInput input() const {
        AnalysisInput result;
        result.unfolds_model = false;
        for (std::size_t i = 0; i < texts_.size(); ++i)
            result.sources.push_back({sourceOf(i), texts_[i]});
        return result;
    }

    std::string expected() const {
        std::string text;
        Visits visits;
        for (std::size_t document = 0; document < texts_.size(); ++document) {
            for (std::size_t i = 0; i < models_.size(); ++i) {
                if (models_[i].document == document)
                    visitChain(i, visits, text);
            }
        }
        return text;
    }

    static std::string actual(ErrorReporter const& reporter) {
        std::string text;
        for (auto const& error : reporter) {
            if (error->getErrorCode() == ErrTypeMismatch)
                text += error->getSourceId() + " " + std::to_string(error->getLine()) + ":" +
                        std::to_string(error->getColumn()) + "\n";
        }
        return text;
    }

    bool hasRing() const {
        for (std::size_t i = 0; i < models_.size(); ++i) {
            if (isInRing(i))
                return true;
        }
        return false;
    }

  private:
    static constexpr auto none = static_cast<std::size_t>(-1);

    struct Value {
        std::size_t document;
        std::size_t line;
        std::size_t column;
        std::size_t kind;
        bool is_declaration;
    };

    struct Model {
        std::string name;
        std::size_t document;
        std::size_t base;
        std::vector<std::size_t> traits;
        bool has_namesake = false;
        std::vector<Value> values;
    };

    using Visits = std::set<std::pair<std::size_t, Value const*>>;

    /// The model and what it extends, up to a model that is there already, or that is invalid.
    void visitChain(std::size_t model, Visits& visits, std::string& text) const {
        std::set<std::size_t> on_path;
        for (auto at = model; on_path.insert(at).second;) {
            for (auto const trait : models_[at].traits) {
                for (auto const& value : traits_.at(trait))
                    visit(at, value, visits, text);
            }
            for (auto const& value : models_[at].values) {
                // In a ring each model declares anew what it inherits from itself.
                if (!value.is_declaration || !isInRing(at))
                    visit(at, value, visits, text);
            }
            auto const base = models_[at].base;
            at = base != none && !models_[base].has_namesake ? base : at;
        }
    }

    static void visit(std::size_t model, Value const& value, Visits& visits, std::string& text) {
        auto const& faults = faulty_values[value.kind];
        auto const& columns = visits.insert({model, &value}).second ? faults.first : faults.later;
        for (auto const column : columns)
            text += line(value.document, value.line, value.column + column);
    }

    static std::string sourceOf(std::size_t document) {
        return "near/" + std::to_string(document) + ".slate";
    }

    static std::string line(std::size_t document, std::size_t line, std::size_t column) {
        return sourceOf(document) + " " + std::to_string(line) + ":" + std::to_string(column) + "\n";
    }

    void drawModel(std::size_t number, std::size_t count) {
        auto base = none;
        if (dice_.happens(12))
            base = dice_.number(0, count - 1);
        else if (number > 0 && dice_.happens(90))
            base = count >= 20 && dice_.happens(80) ? number - 1 : dice_.number(0, number - 1);
        models_.push_back(
            {"M" + std::to_string(number), dice_.number(0, texts_.size() - 1), base, {}, false, {}});
        for (std::size_t trait = 0; trait < 2; ++trait) {
            if (dice_.happens(20))
                models_.back().traits.push_back(trait);
        }
    }

    /// Two models of one name in two documents of a namespace: both are invalid, and the first is what the
    /// name leads to.
    void addNamesake() {
        auto const number = dice_.number(0, models_.size() - 1);
        models_[number].document = 0;
        models_[number].has_namesake = true;
        auto namesake = models_[number];
        namesake.document = 1;
        for (auto& model : models_)
            model.base = model.base == number ? models_.size() : model.base;
        namesake.base = namesake.base == number ? models_.size() : namesake.base;
        models_.push_back(namesake);
    }

    bool isInRing(std::size_t model) const {
        auto at = models_[model].base;
        for (std::size_t steps = 0; at != none && at != model && steps < models_.size(); ++steps)
            at = models_[at].base;
        return at == model;
    }

    Value writeValue(std::size_t document, std::string const& start) {
        auto& text = texts_[document];
        auto const line = static_cast<std::size_t>(std::ranges::count(text, '\n')) + 1;
        auto const kind = dice_.number(0, faulty_values.size() - 1);
        text += start + faulty_values[kind].text + "\n";
        return {document, line, start.size() + 1, kind, start.find(" is ") != std::string::npos};
    }

    void writeModel(std::size_t number) {
        auto& model = models_[number];
        auto const name = "x" + std::to_string(number);
        texts_[model.document] +=
            model.name + (model.base == none ? ":\n" : " is " + models_[model.base].name + ":\n");
        for (auto const trait : model.traits)
            texts_[model.document] += "    with T" + std::to_string(trait) + "\n";
        model.values.push_back(writeValue(model.document, "    " + name + " is Int: "));
        if (dice_.happens(50))
            model.values.push_back(writeValue(model.document, "    " + name + ": "));
        if (dice_.happens(30)) {
            texts_[model.document] += "    o" + name + " is Tool:\n";
            model.values.push_back(writeValue(model.document, "        size: "));
            model.values.back().is_declaration = true; // goes with the attribute around it
        }
    }

    Dice dice_;
    std::vector<std::string> texts_;
    std::map<std::size_t, std::vector<Value>> traits_;
    std::vector<Model> models_;
};

/// Does an error lie at a token of the text?
bool liesIn(std::string const& text, Error const& error) {
    std::size_t begin = 0;
    for (line_t line = 1; line < error.getLine() && begin != std::string::npos; ++line) {
        begin = text.find('\n', begin);
        begin += begin == std::string::npos ? 0 : 1;
    }
    if (begin == std::string::npos || error.getColumn() == 0)
        return false;
    auto const line = text.substr(begin, text.find('\n', begin) - begin);
    return error.getColumn() <= line.size() &&
           std::isspace(static_cast<unsigned char>(line[error.getColumn() - 1])) == 0;
}

/// The position of these may be that of a token elsewhere than where the source id points.
bool mayLieElsewhere(Error const& error) {
    std::set<error_code_t> const codes{ErrTypeMismatch, ErrSymbolAlreadyAssigned, ErrMissingAssignment,
                                       ErrCircularDependency};
    return codes.contains(error.getErrorCode());
}

bool hasMembers(vec<DocPtr> const& documents) {
    return std::ranges::any_of(documents,
                               [](auto const& document) { return !document->getMembers().empty(); });
}

std::string parsedTrees(AnalysisInput const& input) {
    std::string text;
    for (auto const& source : input.sources)
        text += parse(source.text, source.path).tree();
    return text;
}

} // namespace

TEST(RandomReports, FaultyIndexesRepeatForEachModelThatLeadsToThem) {
    std::size_t repeated = 0;
    std::size_t with_rings = 0;
    for (std::mt19937::result_type seed = 0; seed < 400; ++seed) {
        IndexProgram const program(seed);
        auto const input = program.input();
        SCOPED_TRACE("seed " + std::to_string(seed) + "\n" + textOf(input));
        auto const analyzed = analyze(input);
        ASSERT_EQ(IndexProgram::actual(*analyzed.reporter), program.expected());
        std::multiset<std::string> places;
        for (auto const& error : *analyzed.reporter)
            places.insert(error->getSourceId() +
                          std::to_string(error->getLine() * 1000 + error->getColumn()));
        repeated += std::ranges::any_of(places, [&](auto const& place) { return places.count(place) > 2; });
        with_rings += program.hasRing();
    }
    EXPECT_GE(repeated, 200);
    EXPECT_GE(with_rings, 50);
}

TEST(RandomReports, ErrorsLieAtTokensOfTheirSources) {
    std::map<error_code_t, std::size_t> counts;
    forEachRandomProgram(600, [&](Analyzed& program, Dice& /*dice*/) {
        for (auto const& error : *program.reporter) {
            ++counts[error->getErrorCode()];
            if (error->getLine() == 0 || error->getErrorCode() < ErrTypeNotFound)
                continue;
            EXPECT_TRUE(std::ranges::any_of(program.input.sources,
                                            [&](Source const& source) {
                                                return (source.path == error->getSourceId() ||
                                                        mayLieElsewhere(*error)) &&
                                                       liesIn(source.text, *error);
                                            }))
                << error->getErrorCode() << " at " << error->getSourceId() << " " << error->getLine() << ":"
                << error->getColumn();
        }
    });
    for (auto const code :
         {ErrTypeNotFound, ErrVariableNotFound, ErrMemberNotFound, ErrTypeMismatch, ErrSymbolAlreadyDefined,
          ErrSymbolAlreadyAssigned, ErrCycleFound, ErrWrongArgumentCount, ErrBadOperatorOverload,
          ErrDuplicateOperatorOverload, ErrPathThroughConst, ErrNonConstExtendsConst, ErrNestedDeclaration,
          ErrExpectedTrait, ErrTraitWithTraits, ErrTraitConflict, ErrMissingAssignment,
          ErrCircularDependency})
        EXPECT_GE(counts[code], 5) << "too few errors " << code;
}

TEST(RandomReports, SoundProgramsHaveNoMistakes) {
    std::size_t longest_order = 0;
    for (std::mt19937::result_type seed = 0; seed < 300; ++seed) {
        auto const input = makeRandomProgram(seed, Intent::Sound);
        auto const program = analyze(input);
        ASSERT_EQ(program.errors(), "") << "seed " << seed << "\n" << textOf(input);
        longest_order = std::max(longest_order, program.model->getTopologicalSort().size());
    }
    EXPECT_GE(longest_order, 100);
}

TEST(RandomReports, SecondAnalysisFindsTheSame) {
    std::size_t sound = 0;
    forEachRandomProgram(150, [&](Analyzed& program, Dice& dice) {
        bool const is_sound = program.errors().empty();
        auto const bindings = program.bindings();
        auto const order = program.order();
        bool const unbinds_first = dice.happens(50);
        for (int i = 0; i < 2; ++i) {
            if ((i == 0) == unbinds_first) {
                for (auto const& document : program.documents)
                    document->unbind();
                if (is_sound) {
                    EXPECT_EQ(program.trees(), parsedTrees(program.input));
                }
            }
            program.analyzeAgain();
            if (!is_sound)
                continue;
            EXPECT_EQ(program.errors(), "");
            EXPECT_EQ(program.bindings(), bindings);
            EXPECT_EQ(program.order(), order);
        }
        sound += is_sound;
    });
    EXPECT_GE(sound, 150);
}

TEST(RandomReports, DocumentsCanGoInAnyOrder) {
    std::size_t several = 0;
    forEachRandomProgram(150, [&](Analyzed& program, Dice& dice) {
        several += program.documents.size() > 1;
        auto const path_count = program.model->getTopologicalSort().size();
        if (dice.happens(50))
            program.context->release();
        if (dice.happens(50))
            program.context.reset();
        while (!program.documents.empty()) {
            program.documents.erase(program.documents.begin() + static_cast<std::ptrdiff_t>(dice.number(
                                                                    0, program.documents.size() - 1)));
            if (dice.happens(30))
                program.context.reset();
            auto const order = program.order();
            EXPECT_EQ(static_cast<std::size_t>(std::ranges::count(order, '\n')), path_count);
            EXPECT_EQ(program.bindings().empty(), !hasMembers(program.documents));
        }
        program.model.reset();
        EXPECT_EQ(program.order(), "");
    });
    EXPECT_GE(several, 100);
}

} // namespace Slate
