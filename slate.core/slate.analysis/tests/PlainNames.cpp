#include "PlainNames.h"

#include "slate/Document.h"
#include "slate/ModelDeclaration.h"
#include "slate/VarAssignment.h"

namespace Slate::Testing {

namespace {

using Segments = std::vector<std::string>;

Segments splitAtDots(std::string const& key) {
    Segments segments{""};
    for (auto const letter : key) {
        if (letter == '.')
            segments.emplace_back();
        else
            segments.back() += letter;
    }
    return segments;
}

std::string joinFrom(Segments const& segments, std::size_t first) {
    std::string text;
    for (auto i = first; i < segments.size(); ++i)
        text += (i > first ? "." : "") + segments[i];
    return text;
}

std::size_t commonRun(Segments const& a, Segments const& b) {
    std::size_t length = 0;
    while (length < a.size() && length < b.size() && a[length] == b[length])
        ++length;
    return length;
}

std::string nameOf(Node& member) {
    if (auto const model = member.asModelDeclaration())
        return model->getName();
    std::string name;
    if (auto const variable = member.asVarAssignment()) {
        for (auto const& segment : variable->getSegments())
            name += (name.empty() ? "" : ".") + segment.lexeme;
    }
    return name;
}

} // namespace

std::vector<std::string> plainPrefixes(std::vector<std::string> const& target,
                                       std::vector<std::string> const& source) {
    std::vector<std::string> prefixes;
    auto const shared = commonRun(target, source);
    for (std::size_t left_out = shared + 1; left_out-- > 0;)
        prefixes.push_back(joinFrom(source, left_out));
    return prefixes;
}

void PlainNames::cacheAll(vec<DocPtr> const& documents) {
    std::map<std::string, DocPtr> first_of_namespace;
    for (auto const& document : documents) {
        auto const text = joinFrom(document->getNamespace(), 0);
        if (auto const first = first_of_namespace.find(text); first != first_of_namespace.end()) {
            copy(document, first->second);
            continue;
        }
        for (auto const& source : documents)
            offerMembers(document, source);
        first_of_namespace[text] = document;
    }
}

void PlainNames::offerMembers(DocPtr const& document, DocPtr const& source) {
    auto const prefixes = plainPrefixes(document->getNamespace(), source->getNamespace());
    for (auto const& member : source->getMembers()) {
        if (!member->isModelDeclaration() && !member->isVarAssignment())
            continue;
        auto const name = nameOf(*member);
        for (auto const& prefix : prefixes)
            offer(document, prefix.empty() ? name : prefix + "." + name, member, source);
    }
}

void PlainNames::offer(DocPtr const& document, std::string const& key, NodePtr const& node,
                       DocPtr const& source) {
    keys_.insert(key);
    auto const [entry, is_new] = caches_[document].try_emplace(key, node.get());
    auto const& here = document->getNamespace();
    if (is_new || commonRun(here, splitAtDots(key)) >= commonRun(here, source->getNamespace()))
        return;
    replacements_ += entry->second == node.get() ? 0 : 1;
    entry->second = node.get();
}

void PlainNames::copy(DocPtr const& to, DocPtr const& from) {
    auto const names = caches_[from];
    caches_[to] = names;
}

void PlainNames::clear(vec<DocPtr> const& documents) {
    for (auto const& document : documents)
        caches_.erase(document);
}

Node const* PlainNames::find(DocPtr const& document, std::string const& key) const {
    auto const cache = caches_.find(document);
    if (cache == caches_.end())
        return nullptr;
    auto const entry = cache->second.find(key);
    return entry == cache->second.end() ? nullptr : entry->second;
}

} // namespace Slate::Testing
