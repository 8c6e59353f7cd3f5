#include "Loading.h"
#include "TestPlugin.h"
#include "slate/testing/FileTrouble.h"

#include <gmock/gmock.h>

namespace Slate::Core::Api {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;
using Testing::WorkingDirectory;

/// Imports `.step` files by their path, and `.stl` files by their text.
class Imports : public Loading {
  protected:
    Imports() {
        tree.write("data.step", "step text");
        tree.write("data.stl", "stl text");
        registerPlugin(by_path, context);
        registerPlugin(by_text, context);
    }

    /// In the root of the tree.
    DocPtr loadText(std::string const& text) {
        WorkingDirectory const here(tree.root());
        return parseFromString(text, context).first;
    }

    std::shared_ptr<TestPlugin> const by_path = std::make_shared<TestPlugin>(StringVector{".step"});
    std::shared_ptr<TestPlugin> const by_text = std::make_shared<TestPlugin>(StringVector{".stl"}, true);
    SlateContext context = SlateContext(paths({}));
};

struct Alias {
    std::string text;
    std::string name_space;
};

std::ostream& operator<<(std::ostream& out, Alias const& alias) { return out << '"' << alias.text << '"'; }

class ImportAlias : public Imports, public testing::WithParamInterface<Alias> {};

} // namespace

TEST_F(Imports, APluginGetsThePathAsItIsWritten) {
    loadText("import \"data.step\"\nimport \"./data.step\"\nimport \"" + tree.path("data.step").string() +
             "\"\n");
    EXPECT_THAT(by_path->keys, ElementsAre("data.step", "./data.step", tree.path("data.step").string()));
    EXPECT_EQ(context.getInternal().getDocuments()[1]->source, "");
    EXPECT_EQ(context.getInternal().getDocuments()[2]->path, "./data.step");
}

TEST_F(Imports, APluginThatWantsTheTextGetsItWithoutByteOrderMark) {
    tree.write("marked.stl", "\xEF\xBB\xBFmarked text");
    loadText("import \"data.stl\"\nimport \"marked.stl\"\n");
    EXPECT_THAT(by_text->keys, ElementsAre("stl text", "marked text"));
    EXPECT_EQ(context.getInternal().getDocuments()[1]->source, "stl text");
    EXPECT_EQ(context.getInternal().getDocuments()[1]->path, "data.stl");
    EXPECT_EQ(context.getInternal().getDocuments()[2]->source, "marked text");
}

TEST_F(Imports, StandBehindAllSourcesInTheOrderFound) {
    bundle("shapes", "Shapes");
    tree.write("shapes/body.slate", "import \"data.stl\"\n");
    SlateContext searching(paths({"shapes"}));
    registerPlugin(by_path, searching);
    registerPlugin(by_text, searching);
    WorkingDirectory const here(tree.root());
    auto const all =
        parseFromString("import \"data.step\"\nx is Real: 1\nimport \"data.stl\"\n", searching).second;
    EXPECT_THAT(sources(searching), ElementsAre("<no file>: ", "ROOT/shapes/body.slate: Shapes",
                                                "data.step: ", "data.stl: ", "data.stl: Shapes"));
    EXPECT_EQ(all.back(), searching.getInternal().getDocuments().back()->document);
}

TEST_F(Imports, TheImportKnowsItsDocumentsBothWays) {
    DocPtr owner;
    std::string alias;
    by_path->make_document = [&](ImportPtr const& import, ErrorReporter& reporter) {
        EXPECT_EQ(&reporter, context.getInternal().getErrorReporter().get());
        owner = import->getOwningDocument();
        alias = import->getAliasSegments().at(0).lexeme;
        return Document::create("imported", {});
    };
    auto const document = loadText("import \"data.step\" as Data\n");
    EXPECT_EQ(owner, document);
    EXPECT_EQ(alias, "Data");
    ASSERT_THAT(document->findImports(), SizeIs(1));
    auto const imported = context.getInternal().getDocuments()[1]->document;
    EXPECT_EQ(document->findImports()[0]->getDocument(), imported);
    EXPECT_EQ(imported->getSourceId(), "imported");
}

TEST_P(ImportAlias, LeadsTheNamespaceButForItsLastSegment) {
    bundle("shapes", "Shapes");
    tree.write("shapes/sub/body.slate", "import \"data.step\"" + GetParam().text + "\n");
    WorkingDirectory const here(tree.root());
    load("shapes/sub/body.slate", context);
    EXPECT_THAT(sources(context),
                ElementsAre("ROOT/shapes/sub/body.slate: Shapes.sub", "data.step: " + GetParam().name_space));
}

INSTANTIATE_TEST_SUITE_P(All, ImportAlias,
                         testing::Values(Alias{"", "Shapes.sub"}, Alias{" as A", "Shapes.sub"},
                                         Alias{" as A.B", "Shapes.sub.A"},
                                         Alias{" as A.B.C", "Shapes.sub.A.B"}));

TEST_F(Imports, TheNamespaceThatAPluginGaveIsReplaced) {
    by_path->make_document = [](ImportPtr const& /*import*/, ErrorReporter& /*reporter*/) {
        auto document = Document::create("imported", {});
        document->appendToNamespace("Mine");
        return document;
    };
    loadText("import \"data.step\" as A.B\n");
    EXPECT_THAT(sources(context), ElementsAre("<no file>: ", "data.step: A"));
}

TEST_F(Imports, OfADependencyBelongToTheBundleThatIsLoaded) {
    bundle("main", "Main", R"("Units")");
    tree.write("main/main.slate", "import \"data.stl\"\n");
    bundle("libraries/units", "Units");
    tree.write("libraries/units/metre.slate", "import \"data.step\"\n");
    SlateContext searching(paths({"libraries"}));
    registerPlugin(by_path, searching);
    registerPlugin(by_text, searching);
    WorkingDirectory const here(tree.root());
    load("main/main.slate", searching);
    EXPECT_THAT(sources(searching),
                ElementsAre("ROOT/libraries/units/metre.slate: Units", "ROOT/main/main.slate: Main",
                            "data.step: Units", "data.stl: Main"));
    auto const known = bundles(searching);
    ASSERT_THAT(known, SizeIs(4));
    EXPECT_EQ(known[2]->name, "Main");
    EXPECT_EQ(known[1], known[2]);
    EXPECT_EQ(known[2], known[3]);
}

TEST_F(Imports, OfOneFileTwiceAreTwoDocuments) {
    loadText("import \"data.step\"\nimport \"data.step\"\n");
    auto const& known = context.getInternal().getDocuments();
    ASSERT_THAT(known, SizeIs(3));
    EXPECT_NE(known[1]->document, known[2]->document);
    EXPECT_THAT(by_path->keys, SizeIs(2));
}

TEST_F(Imports, InImportedDocumentsAreNotFollowed) {
    by_path->make_document = [](ImportPtr const& /*import*/, ErrorReporter& /*reporter*/) {
        auto const import = Import::create(Token::String("\"nowhere.step\""), {}, {});
        return Document::create("imported", {import});
    };
    loadText("import \"data.step\"\n");
    EXPECT_THAT(by_path->keys, SizeIs(1));
    EXPECT_FALSE(context.hasErrors());
}

TEST_F(Imports, OnALaterLoadAreParsedFromTheirTextAndMadeAgain) {
    tree.write("model.stl", "x is Real: 1\n");
    loadText("import \"model.stl\"\nimport \"data.step\"\n");
    loadText("");
    EXPECT_THAT(sources(context), ElementsAre("<no file>: ", "model.stl: ", "data.step: ", "<no file>: ",
                                              "model.stl: ", "data.step: "));
    auto const& known = context.getInternal().getDocuments();
    EXPECT_EQ(known[1]->document->getSourceId(), "model.stl");
    EXPECT_THAT(known[1]->document->findMembers("x"), SizeIs(1));
    EXPECT_EQ(known[2]->document->getSourceId(), "data.step");
    EXPECT_THAT(known[2]->document->getMembers(), IsEmpty());
    EXPECT_EQ(known[4]->document->getSourceId(), "imported");
    EXPECT_THAT(by_text->keys, SizeIs(2));
}

TEST_F(Imports, OnALaterLoadStandBelowTheBundleByTheirPlaceAlone) {
    bundle("shapes", "Shapes");
    auto const outside = tree.path("data.step").string();
    auto const inside = tree.write("shapes/parts/more.step", "").string();
    tree.write("shapes/body.slate",
               "import \"" + outside + "\" as A.B\nimport \"" + inside + "\"\nimport \"data.step\"\n");
    WorkingDirectory const here(tree.root());
    load("shapes/body.slate", context);
    auto const first = sources(context);
    EXPECT_THAT(first, ElementsAre("ROOT/shapes/body.slate: Shapes", "ROOT/data.step: Shapes.A",
                                   "ROOT/shapes/parts/more.step: Shapes", "data.step: Shapes"));
    parseFromString("", context);
    auto const second = sources(context);
    EXPECT_EQ(second[1], "ROOT/data.step: Shapes...");
    EXPECT_THAT(context.getInternal().getDocuments()[1]->document->getNamespace(),
                ElementsAre("Shapes", ".."));
    EXPECT_EQ(second[2], "ROOT/shapes/parts/more.step: Shapes.parts");
    EXPECT_EQ(second[3], "data.step: Shapes");
}

TEST_F(Imports, ThatFailAreReportedWhereTheyStandAndTheOthersGoOn) {
    tree.write("other.STEP", "");
    tree.write("plain", "");
    tree.write("main.slate",
               "import \"nowhere.step\"\nimport \"main.slate\" as Main\n"
               "x is Real: 1\nimport \"other.STEP\"\nimport \"\"\nimport \"plain\"\nimport \"data.step\"\n");
    WorkingDirectory const here(tree.root());
    load("main.slate", context);
    EXPECT_THAT(errors(context),
                ElementsAre("ROOT/main.slate: 10023 1:8 'nowhere.step'",
                            "ROOT/main.slate: 10022 2:8 'main.slate'",
                            "ROOT/main.slate: 10022 4:8 'other.STEP'", "ROOT/main.slate: 10023 5:8 ''",
                            "ROOT/main.slate: 10022 6:8 'plain'"));
    EXPECT_THAT(sources(context), ElementsAre("ROOT/main.slate: ", "data.step: "));
}

TEST_F(Imports, OfAPluginThatMakesNothingAddNothing) {
    by_path->make_document = [](ImportPtr const& import, ErrorReporter& reporter) {
        reporter.reportError(Error::create(5, import->getPathToken().line, 7, "data.step"));
        return DocPtr();
    };
    auto const document = loadText("import \"data.step\"\nimport \"data.stl\"\n");
    EXPECT_THAT(sources(context), ElementsAre("<no file>: ", "data.stl: "));
    EXPECT_THAT(errors(context), ElementsAre("data.step: 5 1:7"));
    EXPECT_EQ(document->findImports().at(0)->getDocument(), nullptr);
}

TEST_F(Imports, BesideTheSourceAreWrittenAsAtStrings) {
    tree.write("folder/near.step", "");
    tree.write("folder/main.slate", "import @\"near.step\"\nimport @\"far.step\"\n");
    load("folder/main.slate", context);
    EXPECT_THAT(by_path->keys, ElementsAre(tree.path("folder/near.step").string()));
    EXPECT_THAT(errors(context), ElementsAre("ROOT/folder/main.slate: 10023 2:8 'ROOT/folder/far.step'"));
}

TEST_F(Imports, WithBlanksAndOtherLettersAreFound) {
    tree.write("zwei Körper/体 1.stl", "größer");
    loadText("import \"zwei Körper/体 1.stl\"\n");
    EXPECT_THAT(by_text->keys, ElementsAre("größer"));
    EXPECT_THAT(sources(context), ElementsAre("<no file>: ", "zwei Körper/体 1.stl: "));
}

} // namespace Slate::Core::Api
