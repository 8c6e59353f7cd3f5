#include "Build.h"
#include "slate/Document.h"
#include "slate/MethodDeclaration.h"
#include "slate/ModelDeclaration.h"
#include "slate/VarAssignment.h"

#include <gtest/gtest.h>

namespace Slate {

namespace {

using namespace Testing;

struct Offer {
    std::string asking;
    std::string key;
    std::string offering;
    bool replaces;
};

} // namespace

TEST(DocumentCache, FirstOfferIsTaken) {
    auto const document = Testing::document("a.b");
    auto const body = model("Body");
    document->cacheNsLookup("Shapes.Body", body, Testing::document("Shapes"));
    EXPECT_EQ(document->nsLookup("Shapes.Body"), body);
    EXPECT_EQ(document->nsLookup("Body"), nullptr);
}

TEST(DocumentCache, OfferWithoutNodeOrWithoutSourceIsNone) {
    auto const document = Testing::document("a.b");
    auto const body = model("Body");
    document->cacheNsLookup("x", body, nullptr);
    EXPECT_EQ(document->nsLookup("x"), nullptr);
    document->cacheNsLookup("x", body, Testing::document("elsewhere"));
    document->cacheNsLookup("x", nullptr, Testing::document("a.b"));
    EXPECT_EQ(document->nsLookup("x"), body);
}

TEST(DocumentCache, LaterOfferIsTakenOnlyIfItsNamespaceIsNearerThanTheKey) {
    for (auto const& [asking, key, offering, replaces] : std::vector<Offer>{
             {"a.b", "x", "c", false},           // nothing in common against nothing
             {"a.b", "x", "a.z", true},          // one segment against none
             {"a.b", "x", "a.b", true},          // two against none
             {"a.b", "a.x", "a.z", false},       // one against one: the older stays
             {"a.b", "a.x", "a.b", true},        // two against one
             {"a.b", "a.b.x", "a.b", false},     // two against two
             {"a.b", "a.b", "a.b.c", false},     // no more than the asking namespace has
             {"a.b", "b.x", "b.b", false},       // only leading segments count
             {"a.b", "x", "ab", false},          // segments, not letters
             {"a.b", "a", "a", false},           // a key may be as long as one segment
             {"", "x", "a.b", false},            // an empty namespace is near to none
             {"a", "a.b.c.d", "a.b.c.d", false}, // up to the shorter of the two
             {"a.b.c", "a.x", "a.b.x", true},    // two against one
             {"a.b.c", "a..b", "a.b", true},     // an empty segment is one
         }) {
        auto const document = Testing::document(asking);
        auto const first = model("First");
        auto const second = model("Second");
        document->cacheNsLookup(key, first, Testing::document("elsewhere"));
        document->cacheNsLookup(key, second, Testing::document(offering));
        EXPECT_EQ(document->nsLookup(key), replaces ? second : first)
            << asking << " " << key << " " << offering;
    }
}

TEST(DocumentCache, SecondOfferOfTheSameNamespaceLeavesTheFirstForASpelledOutKeyAndAnEmptyNamespace) {
    auto const first = model("Body");
    auto const second = model("Body");
    for (auto const& [dotted_namespace, key] :
         std::vector<std::pair<std::string, std::string>>{{"", "Body"}, {"a.b", "a.b.Body"}}) {
        auto const document = Testing::document(dotted_namespace);
        auto const source = Testing::document(dotted_namespace);
        document->cacheNsLookup(key, first, source);
        document->cacheNsLookup(key, second, source);
        EXPECT_EQ(document->nsLookup(key), first) << key;
    }
}

TEST(DocumentCache, NearerNamespaceReplacesAndAnEquallyFarOneDoesNot) {
    auto const document = Testing::document("a.b");
    auto const first = model("First");
    auto const far = model("Far");
    auto const near = model("Near");
    document->cacheNsLookup("x", first, Testing::document("c"));
    document->cacheNsLookup("x", far, Testing::document("c"));
    EXPECT_EQ(document->nsLookup("x"), first);
    document->cacheNsLookup("x", near, Testing::document("a.z"));
    EXPECT_EQ(document->nsLookup("x"), near);
}

TEST(DocumentCache, WhereTheCachedNodeCameFromIsForgotten) {
    auto const document = Testing::document("a.b");
    auto const nearest = model("Nearest");
    auto const later = model("Later");
    document->cacheNsLookup("x", nearest, Testing::document("a.b"));
    document->cacheNsLookup("x", later, Testing::document("a"));
    EXPECT_EQ(document->nsLookup("x"), later);
}

TEST(DocumentCache, OnlyVariablesAndConstModelsAreSeenByExpressions) {
    auto const document = Testing::document("");
    auto const plain = model("Body");
    auto const trait = traitModel("Named");
    auto const earth = constModel("Earth");
    auto const gravity = declaration("gravity");
    auto const parameterless = method("grow");
    for (auto const& [key, node] : std::vector<std::pair<std::string, NodePtr>>{{"Body", plain},
                                                                                {"Named", trait},
                                                                                {"Earth", earth},
                                                                                {"gravity", gravity},
                                                                                {"grow", parameterless}})
        document->cacheNsLookup(key, node, document);

    EXPECT_EQ(document->nsLookup("Body"), plain);
    EXPECT_EQ(document->nsLookupConstOrVar("Body"), nullptr);
    EXPECT_EQ(document->nsLookupConstOrVar("Named"), nullptr);
    EXPECT_EQ(document->nsLookupConstOrVar("grow"), nullptr);
    EXPECT_EQ(document->nsLookupConstOrVar("absent"), nullptr);
    EXPECT_EQ(document->nsLookupConstOrVar("Earth"), earth);
    EXPECT_EQ(document->nsLookupConstOrVar("gravity"), gravity);
}

TEST(DocumentCache, CopyReplacesTheCacheAndClearEmptiesIt) {
    auto const body = model("Body");
    auto const solid = model("Solid");
    auto const source = Testing::document("");
    source->cacheNsLookup("Body", body, source);
    auto const document = Testing::document("");
    document->cacheNsLookup("Solid", solid, source);

    document->copyNsCacheFrom(*source);
    EXPECT_EQ(document->nsLookup("Body"), body);
    EXPECT_EQ(document->nsLookup("Solid"), nullptr);

    document->clearNsCache();
    EXPECT_EQ(document->nsLookup("Body"), nullptr);
    EXPECT_EQ(source->nsLookup("Body"), body);
}

TEST(DocumentCache, NameOfADroppedTreeReadsAsAbsentAndMayBeTakenAnew) {
    auto const document = Testing::document("");
    document->cacheNsLookup("Body", model("Dropped"), document);
    EXPECT_EQ(document->nsLookup("Body"), nullptr);
    EXPECT_EQ(document->nsLookupConstOrVar("Body"), nullptr);

    auto const body = model("Body");
    document->cacheNsLookup("Body", body, document);
    EXPECT_EQ(document->nsLookup("Body"), body);
}

TEST(DocumentCache, HoldsManyNames) {
    auto const document = Testing::document("");
    vec<NodePtr> models;
    for (int i = 0; i < 10'000; ++i) {
        models.push_back(model("Body" + std::to_string(i)));
        document->cacheNsLookup("Shapes.Body" + std::to_string(i), models.back(), document);
    }
    for (std::size_t i = 0; i < models.size(); ++i)
        EXPECT_EQ(document->nsLookup("Shapes.Body" + std::to_string(i)), models[i]);
}

} // namespace Slate
