// The name caches share one table and work answers out on demand. Here they are compared with their plain
// form, which stands in PlainNames.cpp, over generated documents.

#include "NameWorld.h"
#include "Sources.h"
#include "slate/AnalysisContext.h"
#include "slate/Document.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace Slate {

namespace {

using namespace Testing;
using testing::IsEmpty;

constexpr std::mt19937::result_type worlds = 40;
constexpr int changes_of_a_world = 12;

struct History {
    std::string name;
    std::vector<Change> changes;
};

class NameComparison : public testing::TestWithParam<History> {};

/// Lets the changes happen to a world, comparing after each, up to the first difference.
void compareAfterEachChange(NameWorld& world, std::vector<Change> const& changes) {
    for (int i = 0; i < changes_of_a_world; ++i) {
        auto const change = world.drawOne(changes);
        world.apply(change);
        ASSERT_THAT(world.findDifferences(), IsEmpty()) << "after change " << i;
    }
}

std::vector<History> const histories{
    {"DocumentsAreCachedOnce", {Change::Cache}},
    {"DocumentsAreCachedTwiceInARow", {Change::CacheTwice}},
    {"DocumentsAreAddedBetweenCachings", {Change::Cache, Change::AddDocument}},
    {"MembersComeAndGoBetweenCachings",
     {Change::Cache, Change::AddMember, Change::RemoveMember, Change::RemoveInvalidMembers}},
    {"HostsOfferAndCopyByHand",
     {Change::OfferByHand, Change::Cache, Change::OfferByHand, Change::CopyByHand}},
    {"NamespacesChange", {Change::Cache, Change::ChangeNamespace, Change::OfferByHand}},
    {"CachesAreCleared", {Change::Cache, Change::Clear, Change::AddMember, Change::OfferByHand}},
    {"AnythingHappens",
     {Change::Cache, Change::Cache, Change::CacheTwice, Change::AddDocument, Change::AddMember,
      Change::RemoveMember, Change::RemoveInvalidMembers, Change::OfferByHand, Change::CopyByHand,
      Change::ChangeNamespace, Change::Clear}},
};

} // namespace

TEST_P(NameComparison, EveryKeyGivesWhatThePlainFormGives) {
    std::size_t replacements = 0;
    std::size_t found = 0;
    for (std::mt19937::result_type seed = 0; seed < worlds; ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        NameWorld world(seed);
        ASSERT_NO_FATAL_FAILURE(compareAfterEachChange(world, GetParam().changes));
        replacements += world.getPlainNames().countReplacements();
        found += world.countFoundNames();
    }
    EXPECT_GT(replacements, worlds) << "the worlds have too few clashes to tell anything";
    EXPECT_GT(found, worlds * 10U) << "the worlds have too few names to tell anything";
}

INSTANTIATE_TEST_SUITE_P(Histories, NameComparison, testing::ValuesIn(histories),
                         [](auto const& test) { return test.param.name; });

TEST(NameComparisonOfPrefixes, EveryPairOfNamespacesGivesWhatThePlainFormGives) {
    std::vector<std::vector<std::string>> const all{
        {}, {"a"}, {"a", "b"}, {"a", "b", "c"}, {"a", "c"}, {"b"}, {"b", "a"}, {"a.b"}, {""}, {"a", "", "b"}};
    for (auto const& target : all) {
        for (auto const& source : all)
            EXPECT_EQ(Analysis::AnalysisContext::resolveNsPaths(*document(target, ""), *document(source, "")),
                      plainPrefixes(target, source));
    }
}

} // namespace Slate
