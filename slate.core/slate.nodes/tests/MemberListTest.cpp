#include "slate/MemberList.h"

#include "Build.h"
#include "slate/MethodDeclaration.h"
#include "slate/ModelDeclaration.h"
#include "slate/VarAssignment.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace Slate {

namespace {

using namespace Testing;
using testing::ElementsAre;
using testing::IsEmpty;

/// Attributes by their path; methods have no name here.
std::optional<std::string> pathOf(Node& member) {
    auto const attribute = member.asVarAssignment();
    return attribute ? std::optional(attribute->getName()) : std::nullopt;
}

vec<NodePtr> attributes(std::vector<std::string> const& paths) {
    vec<NodePtr> result;
    for (auto const& path : paths)
        result.push_back(declaration(path));
    return result;
}

MemberList listOf(vec<NodePtr> members) { return {std::move(members), pathOf}; }

NodePtr first(MemberList const& list, std::string_view name) {
    return list.findFirst(name, [](Node const&) { return true; });
}

/// Members around the one length at which the look-up changes its way.
std::size_t const lengths[] = {0, 1, 2, 7, 8, 9, 10, 100, 1000};

} // namespace

TEST(MemberList, EachMemberIsFoundByItsNameWhateverTheLength) {
    for (auto const length : lengths) {
        vec<NodePtr> members;
        for (std::size_t i = 0; i < length; ++i)
            members.push_back(declaration("member" + std::to_string(i)));
        auto const list = listOf(members);
        EXPECT_EQ(list.getAll(), members);
        for (std::size_t i = 0; i < length; ++i) {
            EXPECT_EQ(first(list, "member" + std::to_string(i)), members[i]) << length;
            EXPECT_THAT(list.findAll("member" + std::to_string(i)), ElementsAre(members[i])) << length;
        }
        EXPECT_EQ(first(list, "absent"), nullptr);
        EXPECT_THAT(list.findAll("absent"), IsEmpty());
    }
}

TEST(MemberList, MembersOfOneNameAreFoundInOrderWhateverTheLength) {
    for (auto const length : lengths) {
        vec<NodePtr> members;
        for (std::size_t i = 0; i < 3 * length; ++i)
            members.push_back(declaration("member" + std::to_string(i % 3)));
        auto const list = listOf(members);
        for (std::size_t name = 0; name < 3; ++name) {
            vec<NodePtr> expected;
            for (std::size_t i = name; i < 3 * length; i += 3)
                expected.push_back(members[i]);
            EXPECT_EQ(list.findAll("member" + std::to_string(name)), expected) << length;
        }
    }
}

TEST(MemberList, ConditionPassesOverMembersOfTheName) {
    auto members = attributes({"a", "b", "a", "c", "d", "e", "f", "a", "g", "h"});
    members[0]->setValid(false);
    members[2]->setValid(false);
    auto const list = listOf(members);
    EXPECT_EQ(list.findFirst("a", [](Node const& member) { return member.isValid(); }), members[7]);
    EXPECT_EQ(list.findFirst("a", [](Node const&) { return false; }), nullptr);
}

TEST(MemberList, LookUpSeesWhatIsAppendedAfterIt) {
    auto list = listOf(attributes({"a", "b", "c", "d", "e", "f", "g"}));
    for (int i = 0; i < 5; ++i) {
        auto const count_before = list.findAll("a").size();
        auto const appended = declaration("a");
        list.append(appended);
        EXPECT_EQ(list.findAll("a").size(), count_before + 1);
        EXPECT_EQ(list.findAll("a").back(), appended);
    }
    EXPECT_EQ(list.getAll().size(), 12U);
}

TEST(MemberList, LookUpSeesWhatIsRemovedAfterIt) {
    auto const members = attributes({"a", "b", "a", "c", "d", "e", "f", "g", "h", "a"});
    auto list = listOf(members);
    EXPECT_THAT(list.findAll("a"), ElementsAre(members[0], members[2], members[9]));
    list.remove(members[0]);
    EXPECT_THAT(list.findAll("a"), ElementsAre(members[2], members[9]));
    EXPECT_EQ(first(list, "h"), members[8]);
    list.remove(members[2]);
    EXPECT_THAT(list.findAll("a"), ElementsAre(members[9]));
    list.remove(members[9]);
    EXPECT_EQ(first(list, "a"), nullptr);
    EXPECT_EQ(first(list, "h"), members[8]);
    EXPECT_THAT(names(list.getAll()), ElementsAre("b", "c", "d", "e", "f", "g", "h"));
}

TEST(MemberList, LookUpSeesWhatIsRemovedAsInvalidAfterIt) {
    auto const members = attributes({"a", "b", "a", "c", "d", "e", "f", "g", "h", "a"});
    auto list = listOf(members);
    EXPECT_EQ(first(list, "a"), members[0]);
    for (std::size_t const i : {0U, 3U, 9U})
        members[i]->setValid(false);
    EXPECT_EQ(first(list, "a"), members[0]);
    list.removeInvalid();
    EXPECT_THAT(list.findAll("a"), ElementsAre(members[2]));
    EXPECT_EQ(first(list, "c"), nullptr);
    EXPECT_THAT(names(list.getAll()), ElementsAre("b", "a", "d", "e", "f", "g", "h"));
}

TEST(MemberList, EntriesOfOneNodeAreAllRemoved) {
    auto members = attributes({"a", "b", "c", "d", "e", "f", "g", "h"});
    members.push_back(members[0]);
    members.push_back(members[0]);
    auto list = listOf(members);
    EXPECT_EQ(list.findAll("a").size(), 3U);
    list.remove(list.getAll().front());
    EXPECT_THAT(names(list.getAll()), ElementsAre("b", "c", "d", "e", "f", "g", "h"));
}

TEST(MemberList, EmptyNameIsANameAndNoNameIsNone) {
    for (auto const length : lengths) {
        vec<NodePtr> members = {method("f"), assignment("")};
        for (std::size_t i = 0; i < length; ++i)
            members.push_back(method("g"));
        auto const list = listOf(members);
        EXPECT_THAT(list.findAll(""), ElementsAre(members[1])) << length;
        EXPECT_EQ(first(list, "g"), nullptr) << length;
    }
}

TEST(MemberList, EmptyPointersAreNoMembers) {
    auto list = listOf({nullptr, declaration("a"), nullptr});
    list.append(nullptr);
    list.remove(nullptr);
    EXPECT_THAT(names(list.getAll()), ElementsAre("a"));
}

TEST(MemberList, LongListsOfModelsAreSearchedLikeShortOnes) {
    auto const body = model("Body");
    for (int i = 0; i < 100; ++i) {
        body->appendToMembers(assignment("a.b"));
        body->appendToMembers(method("a" + std::to_string(i)));
        body->appendToMembers(declaration("a" + std::to_string(i)));
    }
    EXPECT_EQ(body->findFirstMember("a"), nullptr);
    EXPECT_EQ(body->findFirstMember("a.b"), nullptr);
    for (std::size_t i = 0; i < 100; ++i) {
        auto const name = "a" + std::to_string(i);
        EXPECT_EQ(body->findFirstMember(name), body->getMembers()[3 * i + 1]);
        EXPECT_EQ(body->findFirstMemberWithType(name), body->getMembers()[3 * i + 2]);
        EXPECT_EQ(body->findMembers(name).size(), 2U);
    }
}

} // namespace Slate
