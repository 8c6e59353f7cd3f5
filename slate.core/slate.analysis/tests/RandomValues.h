#pragma once

#include "RandomPrograms.h"

#include <functional>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace Slate::Testing {

/// What a model is declared as.
enum class ModelKind { Plain, Const, Trait };

/// A type by its name, or by the number of its model.
struct TypeName {
    std::string primitive;
    std::optional<std::size_t> model;
};

struct RandomMethod {
    std::vector<std::string> parameter_types;
    std::string return_type;
    bool is_static;
};

/// What is known of a model that has been written.
struct RandomModel {
    std::string name;
    std::size_t document;
    ModelKind kind;
    std::optional<std::size_t> base;
    std::map<std::string, TypeName> attributes;  // those of bases and traits too
    std::map<std::string, RandomMethod> methods; // likewise
    std::set<std::string> trait_roots;           // likewise
    std::set<std::string> extended;              // attributes with something declared inside, from here up
    std::size_t weight = 1;                      // about how many branches it unfolds into
    bool fits_initializers = true;
};

/// What a generated program has so far, and values that may stand in it: in a sound program only such as fit.
class RandomValues {
  public:
    static std::vector<std::string> const paths; // of sources
    static std::vector<std::string> const names; // of attributes
    static std::vector<std::string> const primitives;

  protected:
    using Model = RandomModel;
    using Fits = std::function<bool(TypeName const&)>;

    /// `faults`: in how many of a hundred places something goes wrong.
    RandomValues(Dice dice, std::size_t faults) : dice_(dice), faults_(faults) {}

    /// Goes something wrong here? Never in a sound program.
    bool slips() { return faults_ > 0 && dice_.happens(faults_); }

    /// The namespace of a source, with a "." behind it unless it is empty.
    static std::string space(std::size_t document);

    /// Also of a model that is not written yet.
    std::string nameOf(std::size_t model) const;

    std::string fullName(std::size_t model) const;
    bool isA(std::size_t model, std::size_t wanted) const;

    /// Of a new attribute: it may read what is there before it.
    std::string value(std::string const& type, Model const& model);
    std::string literal(std::string const& type);

    /// Empty if there is none.
    std::string drawInitializer(std::size_t type);

    /// The names that lead to an attribute for which `fits(type)` holds; empty if none was met.
    std::string find(Model const& model, Fits const& fits);

    /// Does the path lead through an attribute of a const type?
    bool passesConst(Model const& model, std::string const& path) const;

    Dice dice_;
    std::size_t const faults_;
    std::vector<Model> models_;
    std::vector<std::pair<std::string, std::string>> variables_; // with their types
    std::vector<std::pair<std::size_t, std::size_t>> overloads_; // the models of their operands

  private:
    std::string drawOddValue(std::string const& type, Model const& model);
    std::string read(std::string const& type, Model const& model);
    std::string readConstant(std::string const& type);
    std::string readModel(std::size_t type, Model const& model);
    std::string readByIndex(Model const& model);
    std::string call(std::string const& type, Model const& model);
    std::string callOn(std::string const& operand, Model const& called, std::string const& type,
                       Model const& model);
    Model const* follow(Model const& model, std::string const& path) const;
};

} // namespace Slate::Testing
