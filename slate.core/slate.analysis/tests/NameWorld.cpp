#include "NameWorld.h"

#include "Sources.h"
#include "slate/AnalysisContext.h"
#include "slate/Document.h"
#include "slate/ModelDeclaration.h"
#include "slate/VarAssignment.h"

#include <algorithm>

namespace Slate::Testing {

namespace {

std::vector<std::vector<std::string>> const namespaces{
    {},        {"a"},         {"a", "b"}, {"a", "b", "c"},      {"a", "c"},   {"b"}, {"b", "a"},
    {"a.b"},   {"a", "v1.2"}, {"v1.2"},   {"a", "v1", "2"},     {"a.b", "c"}, {""},  {"", "a"},
    {"a", ""}, {"a", "b"},    {"a"},      {"a", "b", "c", "d"},
};

std::vector<std::string> const names{"x", "y", "a", "b", "a.b", "b.x", ".x", "v1.2", "c"};

/// Prefixes that are reached, and some that are not.
std::vector<std::string> const prefixes{"",     "a.",   "a.b.",     "b.",    "c.",      "b.c.", "a.b.c.",
                                        "a.c.", "b.a.", "a.b.c.d.", "v1.2.", "a.v1.2.", "2.",   "v1.2.2.",
                                        ".",    "..",   "a..",      ".a.",   "d.",      "a.a.", "absent."};

/// `a.x: 1` as a member of a document, where no source can have it.
VarAssignPtr dottedVariable() { return VarAssignment::create(path("a x"), Token::None(), {}, {}, {}, {}); }

std::set<std::string> allKeys(std::set<std::string> keys) {
    for (auto const& prefix : prefixes) {
        for (auto const& name : names)
            keys.insert(prefix + name);
    }
    for (auto const& key : std::set<std::string>(keys))
        keys.insert(key + ".x");
    keys.insert({"", ".", "absent"});
    return keys;
}

} // namespace

NameWorld::NameWorld(std::mt19937::result_type seed) : random_(seed) {
    for (auto count = drawNumber(2, 8); count > 0; --count)
        documents_.push_back(makeDocument());
}

std::size_t NameWorld::drawNumber(std::size_t lowest, std::size_t highest) {
    return std::uniform_int_distribution<std::size_t>(lowest, highest)(random_);
}

std::string NameWorld::drawMember() {
    auto const name = "`" + draw(names) + "`";
    return draw(std::vector<std::string>{name + "\n", "const " + name + "\n", name + " is Real: 1\n",
                                         "import \"x\" as " + name + "\n", name + "\n"});
}

std::string NameWorld::drawKey() { return draw(prefixes) + draw(names); }

DocPtr NameWorld::makeDocument() {
    std::string source;
    for (auto count = drawNumber(0, 5); count > 0; --count)
        source += drawMember();
    return document(draw(namespaces), source);
}

void NameWorld::apply(Change change) {
    auto const& document = draw(documents_);
    switch (change) {
    case Change::Cache: return cache(1);
    case Change::CacheTwice: return cache(2);
    case Change::AddDocument: return documents_.push_back(makeDocument());
    case Change::AddMember: return addMember(document);
    case Change::RemoveMember:
        if (document->getNames() && !document->getMembers().empty())
            document->removeMember(draw(document->getMembers()));
        return;
    case Change::RemoveInvalidMembers:
        for (auto const& member : document->getMembers())
            member->setValid(!document->getNames() || drawNumber(0, 1) == 0);
        return document->removeInvalidMembers();
    case Change::OfferByHand: return offerByHand();
    case Change::CopyByHand: {
        auto const& source = draw(documents_);
        document->copyNsCacheFrom(*source);
        return plain_.copy(document, source);
    }
    case Change::ChangeNamespace: return changeNamespace(document);
    case Change::Clear: contextOf(documents_)->clearNsLookups(); return plain_.clear(documents_);
    }
}

/// By a context that is gone afterwards, over the documents in some order, spread over bundles; sometimes a
/// document is left out and sometimes one stands there twice.
void NameWorld::cache(std::size_t times) {
    auto order = documents_;
    std::ranges::shuffle(order, random_);
    if (drawNumber(0, 3) == 0)
        order.pop_back();
    if (drawNumber(0, 3) == 0)
        order.push_back(draw(documents_));

    auto const border = order.begin() + static_cast<std::ptrdiff_t>(drawNumber(0, order.size()));
    Analysis::AnalysisContext context({bundle("Shapes", vec<DocPtr>(order.begin(), border)),
                                       bundle("Solids", vec<DocPtr>(border, order.end()))},
                                      std::make_shared<ErrorReporter>());
    for (; times > 0; --times) {
        context.cacheNsLookups();
        plain_.cacheAll(order);
    }
}

void NameWorld::addMember(DocPtr const& document) {
    if (drawNumber(0, 4) == 0)
        return document->appendToMembers(dottedVariable());
    auto const parsed = Testing::document("", drawMember());
    document->appendToMembers(parsed->getMembers().front());
}

void NameWorld::offerByHand() {
    auto const& source = draw(documents_);
    if (source->getMembers().empty())
        return;
    auto const& member = draw(source->getMembers());
    auto const key = drawKey();
    auto const& document = draw(documents_);
    document->cacheNsLookup(key, member, source);
    plain_.offer(document, key, member, source);
}

void NameWorld::changeNamespace(DocPtr const& document) {
    document->copyNamespace(*draw(documents_));
    if (drawNumber(0, 1) == 0)
        document->appendToNamespace(draw(std::vector<std::string>{"a", "b", "c", "v1.2", ""}));
}

std::vector<std::string> NameWorld::findDifferences() const {
    std::vector<std::string> differences;
    auto const keys = allKeys(plain_.getKeys());
    for (auto const& document : documents_) {
        for (auto const& key : keys) {
            auto const found = document->nsLookup(key);
            auto const* const expected = plain_.find(document, key);
            if (found.get() == expected)
                continue;
            auto const* const fault = expected == nullptr ? "found" : found ? "another node" : "missing";
            differences.push_back("'" + key + "' in '" + document->joinNamespace("/") + "': " + fault);
        }
    }
    return differences;
}

std::size_t NameWorld::countFoundNames() const {
    std::size_t count = 0;
    for (auto const& document : documents_)
        count += static_cast<std::size_t>(std::ranges::count_if(
            plain_.getKeys(), [&](auto const& key) { return !!document->nsLookup(key); }));
    return count;
}

} // namespace Slate::Testing
