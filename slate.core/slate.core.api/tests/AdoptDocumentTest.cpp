#include "Loading.h"

#include <gmock/gmock.h>

namespace Slate::Core::Api {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class AdoptDocument : public Loading {
  protected:
    AdoptDocument() {
        bundle("shapes", "Shapes");
        tree.write("shapes/body.slate", "");
        ready->appendToNamespace("Ready");
    }

    DocPtr const ready = Document::create("made by hand", {});
};

} // namespace

TEST_F(AdoptDocument, TakesTheDocumentAsItIsBehindAllBundlesOnThePaths) {
    SlateContext const context(paths({"shapes"}));
    auto& internal = context.getInternal();
    EXPECT_EQ(internal.adoptDocument(ready), ready);
    EXPECT_THAT(sources(context), ElementsAre("ROOT/shapes/body.slate: Shapes", "<document>: Ready"));
    EXPECT_EQ(internal.getDocuments().back()->document, ready);
    EXPECT_EQ(internal.getDocuments().back()->source, "<no file>");
    EXPECT_EQ(ready->getSourceId(), "made by hand");
    EXPECT_FALSE(context.hasErrors());
}

TEST_F(AdoptDocument, ItsBundleIsMadeUpAndKnowsItsDependencies) {
    SlateContext const context(paths({"shapes"}));
    context.getInternal().adoptDocument(ready);
    auto const& made_up = *bundles(context).back();
    EXPECT_EQ(made_up.name, "<default>");
    EXPECT_TRUE(made_up.config_file_path.empty());
    EXPECT_THAT(made_up.slate_files, IsEmpty());
    EXPECT_THAT(names(made_up.resolved_dependencies), ElementsAre("Shapes"));
}

TEST_F(AdoptDocument, IsReplacedByTheNextLoad) {
    SlateContext context(paths({}));
    context.getInternal().adoptDocument(ready);
    auto const [document, all] = parseFromString("", context);
    EXPECT_THAT(sources(context), ElementsAre("<document>: ", "<no file>: "));
    EXPECT_THAT(all, ElementsAre(testing::Ne(ready), document));
    EXPECT_THAT(all[0]->findMembers("o"), testing::SizeIs(1)) << "from the text \"<no file>\"";
    EXPECT_THAT(errors(context), ElementsAre("<document>: 10004 1:2", "<document>: 10004 1:10",
                                             "<document>: 10006 1:3", "<document>: 10007 1:5"));
}

TEST_F(AdoptDocument, TwiceIsTwoEntriesOfWhichOneIsReplaced) {
    SlateContext const context(paths({}));
    context.getInternal().adoptDocument(ready);
    context.getInternal().adoptDocument(ready);
    EXPECT_THAT(sources(context), ElementsAre("<document>: ", "<document>: Ready"));
}

TEST_F(AdoptDocument, AnEmptyPointerHasNoEffect) {
    SlateContext const context(paths({"shapes", "nowhere"}));
    EXPECT_EQ(context.getInternal().adoptDocument({}), nullptr);
    EXPECT_THAT(sources(context), IsEmpty());
}

TEST_F(AdoptDocument, IsNotEnteredIfTheSearchFails) {
    SlateContext const context(paths({"nowhere"}));
    EXPECT_THROW(context.getInternal().adoptDocument(ready), std::filesystem::filesystem_error);
    EXPECT_THAT(sources(context), IsEmpty());
}

} // namespace Slate::Core::Api
