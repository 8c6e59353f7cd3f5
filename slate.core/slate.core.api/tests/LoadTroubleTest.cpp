#include "Loading.h"
#include "LogAction.h"
#include "TestPlugin.h"
#include "slate/testing/FileTrouble.h"

#include <gmock/gmock.h>

#include <functional>
#include <ostream>
#include <sys/stat.h>

namespace Slate::Core::Api {

namespace {

using Testing::Denied;
using testing::ElementsAre;
using testing::IsEmpty;
using Testing::thrownBy;
using Testing::WorkingDirectory;

namespace fs = std::filesystem;

/// What can stand where a source is expected.
using Make = void (*)(fs::path const&);

void makeDirectory(fs::path const& path) { fs::create_directory(path); }

void makePipe(fs::path const& path) {
    if (mkfifo(path.c_str(), 0666) != 0)
        throw std::runtime_error("no pipe");
}

void linkToItself(fs::path const& path) { fs::create_symlink(path.filename(), path); }

void linkToNowhere(fs::path const& path) { fs::create_symlink("nowhere", path); }

struct Trouble {
    char const* description;
    Make make;
    char const* request;
    char const* thrown;
    Strings errors = {};
};

std::ostream& operator<<(std::ostream& out, Trouble const& trouble) { return out << trouble.description; }

class LoadTrouble : public Loading {
  protected:
    LoadTrouble() {
        bundle("shapes", "Shapes");
        registerPlugin(std::make_shared<TestPlugin>(StringVector{".stl"}, true), context);
    }

    std::string loadThrows(std::string const& relative_path) {
        return inTree(thrownBy([&] { load(relative_path, context); }));
    }

    std::string textThrows(std::string const& text) {
        return inTree(thrownBy([&] { parseFromString(text, context); }));
    }

    std::string importing(std::string const& relative_path) const {
        return "import \"" + tree.path(relative_path).string() + "\"\n";
    }

    /// That a later load works, and parses what the failed one left.
    void expectUsable() {
        EXPECT_EQ(textThrows("x is Real: 1\n"), "nothing");
        EXPECT_THAT(sources(context), testing::Contains("<no file>: "));
        EXPECT_THAT(sources(context), testing::Not(testing::Contains(testing::HasSubstr("not parsed"))));
    }

    SlateContext context = SlateContext(paths({}));
};

/// Something stands at `trouble.slate`, `trouble.stl` and `shapes/trouble.slate`.
class SourceTrouble : public LoadTrouble, public testing::WithParamInterface<Trouble> {};

} // namespace

TEST_P(SourceTrouble, EndsTheLoadAndLeavesTheContextUsable) {
    tree.write("shapes/body.slate", "");
    tree.write("main.slate", importing("trouble.stl"));
    Strings const troubles = {"trouble.slate", "trouble.stl", "shapes/trouble.slate"};
    for (auto const& path : troubles)
        GetParam().make(tree.path(path));

    EXPECT_EQ(loadThrows(GetParam().request), GetParam().thrown);
    EXPECT_EQ(errors(context), GetParam().errors);
    for (auto const& path : troubles)
        fs::remove(tree.path(path));
    tree.write("trouble.stl", "");
    expectUsable();
}

INSTANTIATE_TEST_SUITE_P(
    All, SourceTrouble,
    testing::Values(
        Trouble{"directory", makeDirectory, "trouble.slate", "Failed to open file \"ROOT/trouble.slate\""},
        Trouble{"directory in a bundle", makeDirectory, "shapes/trouble.slate",
                "Unexpected error - could not find file ROOT/shapes/trouble.slate in parsed bundle"},
        Trouble{"directory imported", makeDirectory, "main.slate",
                "Failed to open file \"ROOT/trouble.stl\""},
        Trouble{"directory beside a source", makeDirectory, "shapes/body.slate", "nothing"},
        Trouble{"pipe", makePipe, "trouble.slate", "Failed to open file \"ROOT/trouble.slate\""},
        Trouble{"pipe imported", makePipe, "main.slate", "Failed to open file \"ROOT/trouble.stl\""},
        Trouble{"pipe among the sources", makePipe, "shapes/body.slate",
                "Failed to open file \"ROOT/shapes/trouble.slate\""},
        Trouble{"link to itself", linkToItself, "trouble.slate", "exists ROOT/trouble.slate"},
        Trouble{"link to itself imported", linkToItself, "main.slate", "exists ROOT/trouble.stl"},
        Trouble{"link to itself among the sources", linkToItself, "shapes/body.slate",
                "status ROOT/shapes/trouble.slate"},
        Trouble{"link to nowhere",
                linkToNowhere,
                "trouble.slate",
                "nothing",
                {"ROOT/trouble.slate: 30009 0:0 'ROOT/trouble.slate'"}},
        Trouble{"link to nowhere imported",
                linkToNowhere,
                "main.slate",
                "nothing",
                {"ROOT/main.slate: 10023 1:8 'ROOT/trouble.stl'"}},
        Trouble{"link to nowhere among the sources", linkToNowhere, "shapes/body.slate",
                "Failed to open file \"ROOT/shapes/trouble.slate\""}));

TEST_F(LoadTrouble, AFileWithoutRightsCannotBeOpened) {
    tree.write("main.slate", "");
    tree.write("data.stl", "");
    tree.write("shapes/body.slate", "");
    for (auto const* path : {"main.slate", "shapes/body.slate"}) {
        Denied const denied(tree.path(path));
        EXPECT_EQ(loadThrows(path), std::string("Failed to open file \"ROOT/") + path + "\"");
    }
    {
        Denied const denied(tree.path("data.stl"));
        EXPECT_EQ(textThrows(importing("data.stl")), "Failed to open file \"ROOT/data.stl\"");
    }
    expectUsable();
}

TEST_F(LoadTrouble, ADirectoryWithoutRightsRefusesTheQuestionWhatExists) {
    tree.write("closed/main.slate", "");
    tree.write("closed/data.stl", "");
    {
        Denied const denied(tree.path("closed"));
        EXPECT_EQ(loadThrows("closed/main.slate"), "exists ROOT/closed/main.slate");
        EXPECT_EQ(textThrows(importing("closed/data.stl")), "exists ROOT/closed/data.stl");
    }
    expectUsable();
}

TEST_F(LoadTrouble, ANameThatIsTooLongIsNotFound) {
    std::string const name(300, 'x');
    EXPECT_EQ(loadThrows(name), "nothing");
    EXPECT_EQ(textThrows("import \"" + name + "\"\n"), "nothing");
    EXPECT_THAT(errors(context), ElementsAre("ROOT/" + name + ": 30009 0:0 'ROOT/" + name + "'",
                                             "<no file>: 10023 1:8 '" + name + "'"));
    expectUsable();
}

TEST_F(LoadTrouble, AFileTakenForADirectoryIsNotFound) {
    tree.write("main.slate", "");
    EXPECT_EQ(loadThrows("main.slate/body.slate"), "nothing");
    EXPECT_THAT(errors(context),
                ElementsAre("ROOT/main.slate/body.slate: 30009 0:0 'ROOT/main.slate/body.slate'"));
}

TEST_F(LoadTrouble, ARelativePathWithoutWorkingDirectoryIsRefusedAsAbsolute) {
    {
        WorkingDirectory const here(tree.makeDirectory("gone"));
        fs::remove(tree.path("gone"));
        EXPECT_EQ(thrownBy([&] { parseFromFile("main.slate", context); }), "absolute main.slate");
    }
    EXPECT_THAT(errors(context), IsEmpty());
    expectUsable();
}

TEST_F(LoadTrouble, AFileThatVanishesBeforeItIsReadCannotBeOpened) {
    auto const main = tree.write("main.slate", "");
    LogAction const vanish("No bundle found from: " + main.string(), [&] { fs::remove(main); });
    EXPECT_EQ(loadThrows("main.slate"), "Failed to open file \"ROOT/main.slate\"");
    expectUsable();
}

TEST_F(LoadTrouble, ASourceThatVanishesAfterTheListingCannotBeOpened) {
    auto const body = tree.write("shapes/body.slate", "");
    {
        LogAction const vanish("Found slate file for bundle Shapes: " + body.string(),
                               [&] { fs::remove(body); });
        EXPECT_EQ(loadThrows("shapes/body.slate"), "Failed to open file \"ROOT/shapes/body.slate\"");
    }
    expectUsable();
}

TEST_F(LoadTrouble, AnImportThatVanishesBeforeItIsReadCannotBeOpened) {
    auto const data = tree.write("data.stl", "");
    {
        LogAction const vanish("Parsing imported document " + data.string(), [&] { fs::remove(data); });
        EXPECT_EQ(textThrows(importing("data.stl")), "Failed to open file \"ROOT/data.stl\"");
    }
    expectUsable();
    EXPECT_THAT(errors(context), ElementsAre("<no file>: 10023 1:8 'ROOT/data.stl'"));
}

TEST_F(LoadTrouble, AnImportThatAPluginDeletesIsNotFound) {
    tree.write("first.step", "");
    auto const second = tree.write("second.step", "");
    auto const plugin = std::make_shared<TestPlugin>(StringVector{".step"});
    plugin->make_document = [&](ImportPtr const& /*import*/, ErrorReporter& /*reporter*/) {
        fs::remove(second);
        return Document::create("first", {});
    };
    registerPlugin(plugin, context);
    EXPECT_EQ(textThrows(importing("first.step") + importing("second.step")), "nothing");
    EXPECT_THAT(errors(context), ElementsAre("<no file>: 10023 2:8 'ROOT/second.step'"));
    EXPECT_THAT(sources(context), ElementsAre("<no file>: ", "ROOT/first.step: "));
}

} // namespace Slate::Core::Api
