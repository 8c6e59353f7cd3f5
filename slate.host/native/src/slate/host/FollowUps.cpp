#include "slate/host/FollowUps.h"

#include "slate/host/LostNames.h"

#include <cstddef>
#include <optional>
#include <string>
#include <unordered_map>
#include <utility>

namespace Slate::Host {

namespace {

using Causes = std::vector<std::optional<std::size_t>>;

/// The first error that loses each name.
std::unordered_map<std::string, std::size_t> collectLost(std::vector<Site> const& sites,
                                                         std::vector<Diagnostic> const& diagnostics) {
    std::unordered_map<std::string, std::size_t> lost;
    for (std::size_t i = 0; i < sites.size(); ++i) {
        for (auto& name : lostNames(sites[i], diagnostics[i]))
            lost.try_emplace(std::move(name), i);
    }
    return lost;
}

/// Each error behind the first one to which its chain of causes leads. What leads back to itself has none.
void shorten(Causes& causes) {
    enum class State { New, OnPath, Done };
    std::vector<State> states(causes.size(), State::New);
    for (std::size_t i = 0; i < causes.size(); ++i) {
        std::vector<std::size_t> path;
        auto next = i;
        while (states[next] == State::New && causes[next]) {
            states[next] = State::OnPath;
            path.push_back(next);
            next = *causes[next];
        }
        if (states[next] == State::OnPath)
            causes[next].reset();
        auto const first = causes[next].value_or(next);
        states[next] = State::Done;
        for (auto const error : path) {
            states[error] = State::Done;
            if (error != next && error != first)
                causes[error] = first;
        }
    }
}

} // namespace

void findCauses(std::vector<Site> const& sites, std::vector<Diagnostic>& diagnostics) {
    auto const lost = collectLost(sites, diagnostics);
    Causes causes(sites.size());
    for (std::size_t i = 0; i < sites.size(); ++i) {
        for (auto const& name : missedNames(sites[i], diagnostics[i])) {
            auto const found = lost.find(name);
            if (found == lost.end() || found->second == i)
                continue;
            causes[i] = found->second;
            break;
        }
    }
    shorten(causes);
    for (std::size_t i = 0; i < causes.size(); ++i)
        diagnostics[i].cause = causes[i];
}

} // namespace Slate::Host
