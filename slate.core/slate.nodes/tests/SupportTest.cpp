// What the nodes are built on: the hash of names, and the name of the function that logs.

#include "slate/Fnv1a.h"
#include "slate/Log.h"

#include <gtest/gtest.h>

#include <string>

namespace Slate {

TEST(Fnv1a, GivesThePublishedValues) {
    for (auto const& [text, hash] : std::vector<std::pair<std::string, std::uint64_t>>{
             {"", 0xcbf29ce484222325U},
             {"a", 0xaf63dc4c8601ec8cU},
             {"b", 0xaf63df4c8601f1a5U},
             {"foobar", 0x85944171f73967e8U},
         })
        EXPECT_EQ(Fnv1a()(text), hash) << text;
}

TEST(Fnv1a, TakesBytesAboveTheMiddleAsUnsigned) {
    EXPECT_EQ(Fnv1a()("\xff"), (0xcbf29ce484222325U ^ 0xffU) * 0x100000001b3U);
    EXPECT_NE(Fnv1a()(std::string("a\0b", 3)), Fnv1a()("a"));
}

TEST(StringMap, HasTheLoadFactorOfOne) {
    EXPECT_EQ(StringMap<int>().max_load_factor(), 1.0F);
    EXPECT_EQ(StringSet().max_load_factor(), 1.0F);
}

TEST(Log, QualifiedNameIsCutFromASignature) {
    for (auto const& [signature, name] : std::vector<std::pair<std::string, std::string>>{
             {Log::qualifiedName("void Slate::Core::f(const int&)").data(), "Slate::Core::f"},
             {Log::qualifiedName("int* Slate::f()").data(), "Slate::f"},
             {Log::qualifiedName("const std::string &Slate::Core::f() const").data(), "Slate::Core::f"},
             {Log::qualifiedName("Slate::Core::Object::Object(int)").data(), "Slate::Core::Object::Object"},
             {Log::qualifiedName("std::vector<std::pair<int, int> > Slate::f(int, int)").data(), "Slate::f"},
         })
        EXPECT_EQ(signature, name);
}

} // namespace Slate
