#include "slate/FindBundle.h"
#include "slate/Fnv1a.h"
#include "slate/LoadErrors.h"
#include "slate/Log.h"

namespace Slate::Bundle {

namespace {

/// A dependency as written, taken apart: `Name` or `Name==version`.
struct Requirement {
    explicit Requirement(Token const& token) : text(Token::extractString(token)) {
        constexpr std::string_view separator = "==";
        auto const end_of_name = text.find(separator);
        name = text.substr(0, end_of_name);
        if (end_of_name != std::string::npos)
            version = text.substr(end_of_name + separator.size());
    }

    /// No version, or an empty one, is satisfied by any.
    bool isSatisfiedBy(BundleConfig const& bundle) const {
        return version.empty() || version == bundle.version;
    }

    std::string text;
    std::string name;
    std::string version;
};

void report(ErrorReporter& error_reporter, Token const& token, Requirement const& requirement,
            BundleConfig const& source) {
    error_reporter.reportError(DependencyNotSatisfied::create(token.line, token.column, requirement.text,
                                                              source.config_file_path.string()));
}

} // namespace

// The line of a mismatch names the bundle that asks and its own version, not what it asks for.
void FindBundle::resolveDependencies(BundleConfig& bundle, std::vector<std::string> const& paths,
                                     ErrorReporter& error_reporter) {
    auto& resolved = bundle.resolved_dependencies;
    StringMap<std::size_t> position_by_name;
    for (std::size_t position = 0; position < resolved.size(); ++position)
        position_by_name.try_emplace(resolved[position].name, position);

    BundleSearch search(paths);
    // Last in, first out.
    std::vector<BundleConfig> work_list{bundle};
    while (!work_list.empty()) {
        auto const current = std::move(work_list.back());
        work_list.pop_back();
        for (auto const& token : current.dependencies) {
            Requirement const requirement(token);
            if (auto const known = position_by_name.find(requirement.name); known != position_by_name.end()) {
                auto const& dependency = resolved[known->second];
                if (requirement.isSatisfiedBy(dependency))
                    continue;
                SLATE_LOG_ERROR("Mismatch in version for {}, both {} and {} found", current.name,
                                dependency.version, current.version);
                report(error_reporter, token, requirement, dependency);
                continue;
            }
            auto const found = findBundle(requirement.name, search);
            if (!found) {
                SLATE_LOG_ERROR("Dependency {} not found", requirement.name);
                report(error_reporter, token, requirement, current);
            } else if (!requirement.isSatisfiedBy(*found)) {
                SLATE_LOG_ERROR("Bundle {} depends on {} of version {} but found version {}", current.name,
                                requirement.name, requirement.version, found->version);
                report(error_reporter, token, requirement, current);
            } else {
                work_list.push_back(*found);
                position_by_name.emplace(found->name, resolved.size());
                resolved.push_back(*found);
            }
        }
    }
}

} // namespace Slate::Bundle
