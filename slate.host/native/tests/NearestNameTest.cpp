#include "slate/host/NearestName.h"

#include <gtest/gtest.h>

namespace Slate::Host {

namespace {

std::string nearest(std::string_view wanted, std::initializer_list<std::string_view> words) {
    NearestName name(wanted);
    for (auto const word : words)
        name.offer(word);
    return name.get();
}

TEST(EditDistance, CountsInsertedDroppedReplacedAndSwappedLetters) {
    EXPECT_EQ(editDistance("length", "length", 3), 0U);
    EXPECT_EQ(editDistance("lenght", "length", 3), 1U);
    EXPECT_EQ(editDistance("lngth", "length", 3), 1U);
    EXPECT_EQ(editDistance("leength", "length", 3), 1U);
    EXPECT_EQ(editDistance("kength", "length", 3), 1U);
    EXPECT_EQ(editDistance("", "abc", 3), 3U);
    EXPECT_EQ(editDistance("abc", "xyz", 1), 2U);
}

TEST(EditDistance, WordsOfMoreThan64LettersAreFarFromAll) {
    std::string const longest(64, 'a');
    EXPECT_EQ(editDistance(longest.substr(1), longest, 3), 1U);
    EXPECT_EQ(editDistance(longest, longest.substr(1) + "b", 3), 1U);
    EXPECT_EQ(editDistance(longest, longest + "a", 3), 4U);
    EXPECT_EQ(editDistance(longest + "a", longest + "a", 3), 4U);
}

TEST(NearestName, FindsWhatWasMeant) {
    EXPECT_EQ(nearest("lenght", {"width", "length", "height"}), "length");
    EXPECT_EQ(nearest("LENGTH", {"width", "length"}), "length");
    EXPECT_EQ(nearest("colour", {"colours", "color"}), "colours"); // of equals the first
    EXPECT_EQ(nearest("teeth", {"mass", "pitch"}), "");
    EXPECT_EQ(nearest("x", {"y"}), ""); // short names are all near one another
    EXPECT_EQ(nearest("same", {"same"}), "");
}

TEST(NearestName, KnowsTheTypesOfOtherLanguages) {
    EXPECT_EQ(builtInTypeFor("double"), "Real");
    EXPECT_EQ(builtInTypeFor("Boolean"), "Bool");
    EXPECT_EQ(builtInTypeFor("Gear"), "");
    NearestName name("Flaot");
    offerBuiltInTypes(name);
    EXPECT_EQ(name.get(), "Real");
}

} // namespace

} // namespace Slate::Host
