#include "slate/BundleConfig.h"

#include "slate/Array.h"
#include "slate/Constant.h"
#include "slate/Document.h"
#include "slate/FindBundle.h"
#include "slate/ModelDeclaration.h"
#include "slate/Parser.h"
#include "slate/SourceFile.h"
#include "slate/VarAssignment.h"

#include <fmt/format.h>

#include <stdexcept>

namespace Slate::Bundle {

namespace {

/// The model of a `config.slate`, and the errors that say where in it something is wrong.
class ConfigReader {
  public:
    explicit ConfigReader(std::filesystem::path const& path)
        : path_(path.string()),
          document_(Parser::parse(readSourceFile(path), path_, std::make_shared<ErrorReporter>())) {
        auto const& members = document_->getMembers();
        if (members.empty())
            throw std::runtime_error(path_ + R"(:1:1 Missing "config is BundleConfig:")");
        model_ = members.front()->asModelDeclaration();
        if (!model_)
            throw std::runtime_error(
                path_ + R"(:1:1 "config is BundleConfig:" missing. Tip: must be on a line of it's own)");
    }

    std::string readName() const {
        auto const assignment = findAssignment("name");
        if (!assignment)
            fail(model_->getNameToken().position(), "BundleConfig must contain a name");
        return readString(*assignment, "Name must be a string");
    }

    std::string readVersion() const {
        auto const assignment = findAssignment("version");
        return assignment ? readString(*assignment, "Version must be a string") : std::string();
    }

    std::vector<Token> readDependencies() const {
        std::vector<Token> dependencies;
        auto const assignment = findAssignment("dependencies");
        if (!assignment)
            return dependencies;
        auto const array = assignment->getValue() ? assignment->getValue()->asArray() : nullptr;
        if (!array)
            fail(valuePosition(*assignment), "Dependencies must be array");
        for (auto const& element : array->getElements()) {
            auto const constant = element->asConstant();
            if (!constant)
                fail(element->getFirstToken().position(), "Dependency must be a string");
            dependencies.push_back(constant->getToken());
        }
        return dependencies;
    }

  private:
    /// A member with a type is a declaration, and not seen.
    VarAssignPtr findAssignment(std::string_view name) const {
        for (auto const& member : model_->getMembers()) {
            auto assignment = member->asVarAssignment();
            if (assignment && !assignment->isDeclaration() && assignment->getName() == name)
                return assignment;
        }
        return {};
    }

    std::string readString(VarAssignment const& assignment, std::string_view complaint) const {
        auto const constant = assignment.getValue() ? assignment.getValue()->asConstant() : nullptr;
        if (!constant)
            fail(valuePosition(assignment), complaint);
        return constant->getStringValue();
    }

    /// That of the name if the assignment has a body instead of a value.
    static Position valuePosition(VarAssignment const& assignment) {
        auto const& value = assignment.getValue();
        return value ? value->getFirstToken().position() : assignment.getPath().front().position();
    }

    [[noreturn]] void fail(Position position, std::string_view complaint) const {
        throw std::runtime_error(
            fmt::format("{}:{}:{} {}", path_, position.line, position.column, complaint));
    }

    std::string path_;
    DocPtr document_;
    ModelDeclPtr model_;
};

} // namespace

BundleConfig readBundleConfig(std::filesystem::path const& config_path) {
    ConfigReader const reader(config_path);
    BundleConfig config{reader.readName(),         config_path, {}, reader.readVersion(),
                        reader.readDependencies(), {}};
    traverseBundleDirectory(config, config_path.parent_path());
    return config;
}

} // namespace Slate::Bundle
