// The program itself: what it prints where, and how it ends.

#include "slate/testing/Cases.h"
#include "slate/testing/TemporaryTree.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <string>
#include <sys/wait.h>

namespace Slate::Testing {

namespace {

using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

/// What a run has written, and its status.
struct Finished {
    int status = -1;
    std::string output;
    std::string errors;
};

class Run : public testing::Test {
  protected:
    /// Runs the program in the temporary tree. `environment` stands in front of it, as the shell takes it.
    Finished run(std::string const& arguments,
                 std::string const& environment = "-u SLATE_BUNDLE_PATH") const {
        auto const status = std::system(("cd '" + tree.root().string() + "' && env " + environment +
                                         " '" SLATE_RUN "' " + arguments + " >output 2>errors")
                                            .c_str());
        return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, readFile(tree.path("output")),
                readFile(tree.path("errors"))};
    }

    TemporaryTree const tree;
};

TEST_F(Run, PrintsTheLastModelOrTheNamedOne) {
    tree.write("mill.slate", "Shaft:\n    length is Real: 1.5\nMill:\n    shaft is Shaft\n");
    auto const last = run("mill.slate");
    EXPECT_EQ(last.status, 0);
    EXPECT_THAT(last.errors, IsEmpty());
    EXPECT_THAT(last.output, StartsWith(R"({"__name":"Mill","__uuid":")"));
    // The parts in full, though they have a uuid.
    EXPECT_THAT(last.output, HasSubstr(R"("shaft":{"__name":"Mill.shaft","__uuid":")"));
    EXPECT_THAT(last.output, EndsWith(",\"length\":1.5}}\n"));

    auto const named = run("mill.slate Shaft");
    EXPECT_EQ(named.status, 0);
    EXPECT_THAT(named.output, StartsWith(R"({"__name":"Shaft",)"));
}

TEST_F(Run, WritesMistakesAndTheLogToStandardError) {
    tree.write("mill.slate", "Mill:\n"
                             "    fn weight() -> Real\n"
                             "    length is Real: 1 / 0\n"
                             "    load is Real: weight()\n"
                             "    width is Real: 2\n");
    auto const finished = run("mill.slate");
    EXPECT_EQ(finished.status, 1);
    EXPECT_EQ(finished.output,
              R"({"__name":"Mill","__uuid":"","__type_list":["Slate::Core::Object"],"width":2})"
              "\n");
    EXPECT_THAT(finished.errors, HasSubstr("mill.slate: 30001 3:25\n"));
    EXPECT_THAT(finished.errors, HasSubstr("mill.slate: 30006 4:19\n"));
    EXPECT_THAT(finished.errors, HasSubstr("weight was not found and will return Any::Undefined"));
}

TEST_F(Run, WithoutObjectPrintsNothing) {
    tree.write("mill.slate", "Mill:\n    length is Real:\n        .unit: \"mm\"\n");
    for (std::string const arguments : {"mill.slate", "mill.slate Shaft", "none.slate"}) {
        auto const finished = run(arguments);
        EXPECT_EQ(finished.status, 1) << arguments;
        EXPECT_THAT(finished.output, IsEmpty()) << arguments;
    }
    EXPECT_THAT(run("mill.slate Shaft").errors, HasSubstr("mill.slate: 30008 1:1 'Shaft'\n"));
    EXPECT_THAT(run("none.slate").errors, HasSubstr("none.slate: 30009 0:0 '"));
}

TEST_F(Run, FindsBundlesOnThePathsOfTheEnvironment) {
    tree.write("plant/config.slate", "config is BundleConfig:\n    name: \"plant\"\n"
                                     "    dependencies: [\"parts\"]\n    version: \"\"\n");
    tree.write("plant/mill.slate", "Mill:\n    gear is parts.Gear\n");
    tree.write("lib/parts/config.slate", "config is BundleConfig:\n    name: \"parts\"\n"
                                         "    dependencies: []\n    version: \"\"\n");
    tree.write("lib/parts/gear.slate", "Gear:\n    teeth is Int: 12\n");
    auto const found = run("plant/mill.slate", "SLATE_BUNDLE_PATH=lib");
    EXPECT_EQ(found.status, 0) << found.errors;
    EXPECT_THAT(found.output, EndsWith(",\"teeth\":12}}\n"));
    EXPECT_EQ(run("plant/mill.slate").status, 1);
}

TEST_F(Run, TellsHowItIsUsed) {
    for (std::string const arguments : {"", "a b c"}) {
        auto const finished = run(arguments);
        EXPECT_EQ(finished.status, 2);
        EXPECT_THAT(finished.errors, StartsWith("usage: ")) << arguments;
        EXPECT_THAT(finished.output, IsEmpty());
    }
}

TEST_F(Run, EndsWithWordsWhereAConfigurationIsBad) {
    tree.write("config.slate", "config is BundleConfig:\n    name: [\n");
    tree.write("mill.slate", "Mill\n");
    auto const finished = run("mill.slate");
    EXPECT_EQ(finished.status, 1);
    EXPECT_THAT(finished.errors, HasSubstr("slate-run: "));
    EXPECT_THAT(finished.output, IsEmpty());
}

} // namespace

} // namespace Slate::Testing
