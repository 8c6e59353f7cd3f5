#include "Sources.h"
#include "slate/AnalysisContext.h"
#include "slate/Document.h"
#include "slate/ModelDeclaration.h"
#include "slate/VarAssignment.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace Slate {

namespace {

using namespace Testing;
using Analysis::AnalysisContext;
using testing::ElementsAre;

} // namespace

TEST(NamePrefixes, NamespaceOfTheSourceIsLeftOutAsFarAsTheTargetSharesIt) {
    struct Row {
        char const* target;
        char const* source;
        std::vector<std::string> prefixes;
    };

    for (auto const& [target, source, prefixes] : std::vector<Row>{
             {"a.b", "a.c", {"c", "a.c"}},
             {"a.b", "a.b", {"", "b", "a.b"}},
             {"", "a.b", {"a.b"}},
             {"a.b", "", {""}},
             {"", "", {""}},
             {"a.b", "b", {"b"}},
             {"a", "a.b.c", {"b.c", "a.b.c"}},
             {"a.b.c", "a", {"", "a"}},
             {"b.a", "a.b", {"a.b"}},
         })
        EXPECT_EQ(AnalysisContext::resolveNsPaths(*document(target, ""), *document(source, "")), prefixes)
            << target << " " << source;
}

TEST(NameCache, EmptyNamespaceReachesNamesOfOthersOnlyBySpellingTheirNamespaceOut) {
    auto const viewer = document("", "");
    auto const source = document("a.b", "Body\n");
    EXPECT_THAT(AnalysisContext::resolveNsPaths(*viewer, *source), ElementsAre("a.b"));

    contextOf({viewer, source})->cacheNsLookups();
    EXPECT_EQ(viewer->nsLookup("a.b.Body"), modelAt(source, 0));
    for (auto const* key : {"Body", "b.Body", "a.Body", ".Body", "a.b.Body.x", "a.b"})
        EXPECT_EQ(viewer->nsLookup(key), nullptr) << key;
}

TEST(NameCache, ModelsAndVariablesAreSeenAndNothingElse) {
    auto const source = document("a", R"(
        import "x.slate" as Other
        Body:
            mass is Real: 1
        gravity is Real: 9.81
        operator + (lhs: Body, rhs: Body) -> Body
    )");
    contextOf({source})->cacheNsLookups();
    EXPECT_EQ(source->nsLookup("Body"), modelAt(source, 1));
    EXPECT_EQ(source->nsLookup("a.gravity"), variableAt(source, 2));
    for (auto const* key : {"Other", "mass", "Body.mass", "+", ""})
        EXPECT_EQ(source->nsLookup(key), nullptr) << key;
}

TEST(NameCache, OwnNamespaceComesBeforeOuterOnesAndLaterDocumentsOfItBeforeEarlier) {
    auto const outer = document("a", "Body\n");
    auto const first = document("a.b", "Body\n");
    auto const second = document("a.b", "Body\n");
    contextOf({outer, first, second})->cacheNsLookups();
    EXPECT_EQ(first->nsLookup("Body"), modelAt(second, 0));
    EXPECT_EQ(first->nsLookup("b.Body"), modelAt(second, 0));
    EXPECT_EQ(first->nsLookup("a.b.Body"), modelAt(first, 0)) << "a spelled out key stays with the first";
    EXPECT_EQ(outer->nsLookup("Body"), modelAt(outer, 0));
}

TEST(NameCache, LastOfTheNearerNamespacesWinsEvenOverTheNearest) {
    auto const viewer = document("a.b", "Body\n");
    auto const outer = document("a", "Body\n");
    contextOf({viewer, outer})->cacheNsLookups();
    EXPECT_EQ(viewer->nsLookup("Body"), modelAt(outer, 0));
}

TEST(NameCache, DocumentsOfOneNamespaceInDifferentBundlesShareTheCacheOfTheFirst) {
    auto const first = document("a", "Body\n");
    auto const other = document("b", "Solid\n");
    auto const second = document("a", "Cube\n");
    first->cacheNsLookup("onlyInTheFirst", modelAt(other, 0), other);
    second->cacheNsLookup("onlyInTheSecond", modelAt(other, 0), other);

    AnalysisContext context({bundle("Shapes", {first, other}), bundle("Solids", {second})},
                            std::make_shared<ErrorReporter>());
    context.cacheNsLookups();
    EXPECT_EQ(second->nsLookup("Body"), modelAt(first, 0));
    EXPECT_EQ(second->nsLookup("onlyInTheFirst"), modelAt(other, 0)) << "copied, so with what it held";
    EXPECT_EQ(second->nsLookup("onlyInTheSecond"), nullptr) << "copied, so without what was there";
}

TEST(NameCache, NamespacesThatReadTheSameShareTheCacheOfTheFirst) {
    std::vector<std::string> const one_segment{"a.b"};
    auto const two_segments = document("a.b", "");
    auto const same_text = document(one_segment, "");
    auto const inner = document("a", "Body\n");
    contextOf({two_segments, inner, same_text})->cacheNsLookups();
    EXPECT_EQ(two_segments->nsLookup("Body"), modelAt(inner, 0));
    EXPECT_EQ(same_text->nsLookup("Body"), modelAt(inner, 0));
}

TEST(NameCache, EmptySegmentAtTheEndOfANamespaceAddsNoDot) {
    auto const unnamed_bundle = document(std::vector<std::string>{""}, "Body\n");
    auto const viewer = document("a", "");
    contextOf({viewer, unnamed_bundle})->cacheNsLookups();
    EXPECT_EQ(viewer->nsLookup("Body"), modelAt(unnamed_bundle, 0));
    EXPECT_EQ(viewer->nsLookup(".Body"), nullptr);
}

TEST(NameCache, DocumentsAddedAfterwardsAreSeenAtTheNextCaching) {
    auto const first = document("a", "Body\n");
    auto const second = document("a", "Body\nSolid\n");
    contextOf({first})->cacheNsLookups();
    contextOf({first, second})->cacheNsLookups();
    EXPECT_EQ(first->nsLookup("Solid"), modelAt(second, 1));
    EXPECT_EQ(first->nsLookup("Body"), modelAt(second, 0));
    EXPECT_EQ(first->nsLookup("a.Body"), modelAt(first, 0));
}

TEST(NameCache, RemovedMembersAreFoundUntilTheCachesAreCleared) {
    auto const source = document("a", "Body\nSolid\ngravity is Real: 1\n");
    auto const viewer = document("b", "");
    auto const context = contextOf({viewer, source});
    context->cacheNsLookups();
    auto const* const body = source->getMembers()[0].get();
    auto const* const solid = source->getMembers()[1].get();

    source->removeMember(source->getMembers()[0]);
    source->getMembers()[0]->setValid(false);
    source->removeInvalidMembers();
    EXPECT_EQ(viewer->nsLookup("a.Body").get(), body);
    EXPECT_EQ(source->nsLookup("Solid").get(), solid);

    context->cacheNsLookups();
    EXPECT_EQ(viewer->nsLookup("a.Body").get(), body);

    context->clearNsLookups();
    context->cacheNsLookups();
    EXPECT_EQ(viewer->nsLookup("a.Body"), nullptr);
    EXPECT_EQ(source->nsLookup("Solid"), nullptr);
    EXPECT_EQ(viewer->nsLookup("a.gravity"), variableAt(source, 0));
}

TEST(NameCache, LookUpsOutliveTheContextAndItsRelease) {
    auto const viewer = document("a", "");
    auto const source = document("b", "Body\n");
    {
        auto const context = contextOf({viewer, source});
        context->cacheNsLookups();
        context->release();
    }
    EXPECT_EQ(viewer->nsLookup("b.Body"), modelAt(source, 0));
}

TEST(NameCache, NamesReachedFromAnEarlierNamespaceStay) {
    auto const viewer = document("a", "");
    auto const source = document("a", "Body\n");
    auto const elsewhere = document("b", "");
    contextOf({viewer, source})->cacheNsLookups();
    viewer->copyNamespace(*elsewhere);
    EXPECT_EQ(viewer->nsLookup("Body"), modelAt(source, 0));

    contextOf({viewer, source})->cacheNsLookups();
    EXPECT_EQ(viewer->nsLookup("Body"), modelAt(source, 0));
    contextOf({viewer})->clearNsLookups();
    contextOf({viewer, source})->cacheNsLookups();
    EXPECT_EQ(viewer->nsLookup("Body"), nullptr);
    EXPECT_EQ(viewer->nsLookup("a.Body"), modelAt(source, 0));
}

TEST(NameCache, SourcesWithoutDocumentArePassedOver) {
    auto const first = document("a", "Body\n");
    auto const second = document("b", "Solid\n");
    AnalysisContext context(
        {bundle("Shapes", {nullptr, first}), {"Solids", {nullptr}}, bundle("Cubes", {second})},
        std::make_shared<ErrorReporter>());
    context.cacheNsLookups();
    EXPECT_EQ(first->nsLookup("b.Solid"), modelAt(second, 0));
    context.clearNsLookups();
    EXPECT_EQ(first->nsLookup("b.Solid"), nullptr);
}

} // namespace Slate
