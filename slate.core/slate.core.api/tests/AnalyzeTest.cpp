#include "Loading.h"
#include "slate/ModelDeclaration.h"
#include "slate/SymbolTree.h"
#include "slate/TopologicalPath.h"
#include "slate/VarAssignment.h"

#include <gmock/gmock.h>

namespace Slate::Core::Api {

namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

class Analyze : public Loading {
  protected:
    static ModelDeclPtr lastModelOf(DocPtr const& document) {
        return document->findLastMemberOfType(NodeType::ModelDeclaration)->asModelDeclaration();
    }

    static Strings maxPathsOf(Analysis::AnalysisContext const& analysis) {
        Strings texts;
        for (auto const& path : analysis.getSymbolTree()->collectMaxPaths())
            texts.push_back(path->toFullString());
        return texts;
    }

    /// The errors in the log; a load writes other lines there.
    Strings loggedErrors() const {
        Strings texts;
        for (auto const& line : log.lines()) {
            if (line.level == "error")
                texts.push_back(line.function + ": " + line.text + " (" + line.file);
        }
        return texts;
    }

    /// A mill of parts from another bundle, which in turn reads what the mill's own bundle declares.
    DocPtr loadMill(SlateContext& context, std::string const& dependencies_of_parts = "") {
        bundle("mill", "mill", R"("parts")");
        tree.write("mill/oil.slate", "const Oil:\n    density is Real: 0.9\n");
        tree.write("mill/stages/mill.slate", "Mill:\n"
                                             "    gear is parts.Gear\n"
                                             "    gear.teeth: 30\n"
                                             "    oil is Real: Oil.density\n");
        bundle("libraries/parts", "parts", dependencies_of_parts);
        tree.write("libraries/parts/gear.slate", "Gear:\n"
                                                 "    teeth is Int: 20\n"
                                                 "    oil is mill.Oil\n");
        return load("mill/stages/mill.slate", context).first;
    }
};

constexpr auto shaft = "Shaft:\n"
                       "    length is Real: 1\n"
                       "    width is Real: length\n";

} // namespace

TEST_F(Analyze, WithAModelUnfoldsIt) {
    SlateContext context(paths({}));
    auto const document = parseFromString(std::string(shaft) + "Mill:\n    shaft is Shaft\n", context).first;
    auto const analysis = analyze(context, lastModelOf(document));
    ASSERT_TRUE(analysis);
    ASSERT_TRUE(analysis->getSymbolTree());
    EXPECT_THAT(maxPathsOf(*analysis), ElementsAre("Mill.shaft.Shaft.length", "Mill.shaft.Shaft.width"));
    EXPECT_FALSE(context.hasErrors());
    EXPECT_THAT(loggedErrors(), IsEmpty());
}

TEST_F(Analyze, WithAModelReportsWhatItMisses) {
    SlateContext context(paths({}));
    auto const document =
        parseFromString("Shaft:\n    length is Real\nMill:\n    width is Real\n", context).first;
    analyze(context, nullptr);
    EXPECT_THAT(errors(context), IsEmpty());
    analyze(context, lastModelOf(document));
    EXPECT_THAT(errors(context), ElementsAre("<no file>: 30003 4:5 'Mill.width'"));
}

TEST_F(Analyze, WithoutModelChecksTheDocumentsAndGrowsNoTree) {
    SlateContext context(paths({}));
    auto const document =
        parseFromString("Shaft:\n    length is Rael\n    width is Real: 1\n", context).first;
    auto const analysis = analyze(context, nullptr);
    ASSERT_TRUE(analysis);
    EXPECT_EQ(analysis->getSymbolTree(), nullptr);
    EXPECT_THAT(errors(context), ElementsAre("<no file>: 20001 2:15 'Rael'"));
    auto const width = lastModelOf(document)->findFirstMember("width")->asVarAssignment();
    ASSERT_TRUE(width && width->getType());
    EXPECT_EQ(width->getType()->toString(), "Real");
}

TEST_F(Analyze, LeavesTheOrderToTheSort) {
    SlateContext context(paths({}));
    auto const model = lastModelOf(parseFromString(shaft, context).first);
    analyze(context, model);
    EXPECT_THAT(model->getTopologicalSort(), IsEmpty());
}

TEST_F(Analyze, OfAnEmptyContextIsAnAnalysisOfNothing) {
    SlateContext context(paths({}));
    auto const analysis = analyze(context, nullptr);
    ASSERT_TRUE(analysis);
    EXPECT_THAT(analysis->findAllDocuments(), IsEmpty());
    EXPECT_EQ(context.getInternal().getAnalysisContext(), analysis);
}

TEST_F(Analyze, ReplacesTheAnalysisOfTheContext) {
    SlateContext context(paths({}));
    auto const model = lastModelOf(parseFromString(shaft, context).first);
    auto const first = analyze(context, model);
    EXPECT_EQ(context.getInternal().getAnalysisContext(), first);
    EXPECT_EQ(first->getErrorReporter(), context.getInternal().getErrorReporter());
    auto const second = analyze(context, nullptr);
    EXPECT_NE(second, first);
    EXPECT_EQ(context.getInternal().getAnalysisContext(), second);
    EXPECT_EQ(second->getSymbolTree(), nullptr) << "of an earlier analysis nothing is left";
    EXPECT_TRUE(first->getSymbolTree()) << "a host may keep the earlier one";
}

TEST_F(Analyze, TwiceGivesTheSameForSourcesWithoutMistakes) {
    SlateContext context(paths({"libraries"}));
    auto const model = lastModelOf(loadMill(context));
    auto const first = maxPathsOf(*analyze(context, model));
    EXPECT_THAT(first, Contains("mill.stages.Mill.gear.teeth"));
    EXPECT_EQ(maxPathsOf(*analyze(context, model)), first);
    EXPECT_THAT(errors(context), IsEmpty());
    EXPECT_THAT(loggedErrors(), IsEmpty());
}

TEST_F(Analyze, TwiceAddsToTheErrorsOfTheContext) {
    SlateContext context(paths({}));
    auto const model =
        lastModelOf(parseFromString("Shaft:\n    length is Real\n    width is Real\n", context).first);
    analyze(context, model);
    Strings const once = {"<no file>: 30003 2:5 'Shaft.length'", "<no file>: 30003 3:5 'Shaft.width'"};
    ASSERT_EQ(errors(context), once);
    analyze(context, model);
    EXPECT_THAT(errors(context), ElementsAre(once[0], once[1], once[0], once[1]));
}

TEST_F(Analyze, ComesBehindWhatTheParserReported) {
    SlateContext context(paths({}));
    parseFromString("Shaft:\n    length is Rael\n    width is Real: $\n", context);
    auto const parser_errors = errors(context);
    ASSERT_FALSE(parser_errors.empty());
    analyze(context, nullptr);
    auto expected = parser_errors;
    expected.push_back("<no file>: 20001 2:15 'Rael'");
    EXPECT_EQ(errors(context), expected);
}

TEST_F(Analyze, RejectsNestedDeclarationsOnlyWhereTheyAreNotAllowed) {
    constexpr auto source =
        "Shaft:\n    length is Real: 1\nMill:\n    shaft is Shaft:\n        width is Real: 2\n";
    for (bool const allowed : {true, false}) {
        SlateContext context(paths({}));
        context.setNestedDeclarationsAllowed(allowed);
        auto const document = parseFromString(source, context).first;
        ASSERT_TRUE(analyze(context, lastModelOf(document)));
        EXPECT_EQ(errors(context), allowed ? Strings{} : Strings{"<no file>: 20014 5:9"});
    }
}

TEST_F(Analyze, AsksAnewWhetherNestedDeclarationsAreAllowed) {
    SlateContext context(paths({}));
    parseFromString("Shaft:\n    length is Real: 1\nMill:\n    shaft is Shaft:\n        width is Real: 2\n",
                    context);
    analyze(context, nullptr);
    EXPECT_THAT(errors(context), IsEmpty());
    context.setNestedDeclarationsAllowed(false);
    analyze(context, nullptr);
    EXPECT_THAT(errors(context), ElementsAre("<no file>: 20014 5:9"));
}

TEST_F(Analyze, BindsAcrossBundlesThatUseOneAnother) {
    SlateContext context(paths({"libraries"}));
    auto const mill = lastModelOf(loadMill(context));
    auto const analysis = analyze(context, mill);
    ASSERT_TRUE(analysis);
    EXPECT_THAT(errors(context), IsEmpty());
    EXPECT_THAT(maxPathsOf(*analysis), testing::UnorderedElementsAre(
                                           "mill.Oil.density", "mill.stages.Mill.gear.teeth",
                                           "mill.stages.Mill.gear.parts.Gear.oil", "mill.stages.Mill.oil"));
    auto const gear = mill->findFirstMemberWithType("gear")->getType();
    ASSERT_TRUE(gear);
    EXPECT_EQ(gear->toString(), "parts.Gear");
    EXPECT_EQ(gear->asModelDeclaration()->findFirstMemberWithType("oil")->getType()->toString(), "mill.Oil");
}

TEST_F(Analyze, OfBundlesThatDependOnOneAnotherMeetsTheSourcesOfTheFirstTwice) {
    SlateContext context(paths({"libraries", "mill"}));
    auto const mill = lastModelOf(loadMill(context, R"("mill")"));
    EXPECT_TRUE(analyze(context, mill));
    std::string const oil = "ROOT/mill/oil.slate: 20006 1:7 'mill.Oil'";
    std::string const machine = "ROOT/mill/stages/mill.slate: 20006 1:1 'mill.stages.Mill'";
    EXPECT_THAT(errors(context), testing::UnorderedElementsAre(oil, machine, oil, machine));
}

TEST_F(Analyze, ReportsMistakesOfOtherBundlesWithTheirSource) {
    bundle("mill", "mill", R"("parts")");
    tree.write("mill/mill.slate", "Mill:\n    gear is parts.Gear\n    rack is parts.Rack\n");
    bundle("libraries/parts", "parts");
    tree.write("libraries/parts/gear.slate", "Gear:\n    teeth is Int: 1.5\n    oil is Oil\n");
    tree.write("libraries/parts/other/unused.slate", "Unused is Nothing\n");
    SlateContext context(paths({"libraries"}));
    auto const document = load("mill/mill.slate", context).first;
    analyze(context, lastModelOf(document));
    EXPECT_THAT(errors(context),
                testing::UnorderedElementsAre("ROOT/libraries/parts/gear.slate: 20001 3:12 'Oil'",
                                              "ROOT/libraries/parts/gear.slate: 20005 2:19",
                                              "ROOT/libraries/parts/other/unused.slate: 20001 1:11 'Nothing'",
                                              "ROOT/mill/mill.slate: 20001 3:13 'parts.Rack'"));
    EXPECT_THAT(loggedErrors(), IsEmpty());
}

TEST_F(Analyze, OfAModelOfAnotherBundleUnfoldsThat) {
    SlateContext context(paths({"libraries"}));
    loadMill(context);
    ModelDeclPtr gear;
    for (auto const& source : context.getInternal().getDocuments()) {
        if (auto const found = source->document->findFirstMember("Gear"))
            gear = found->asModelDeclaration();
    }
    ASSERT_TRUE(gear);
    EXPECT_THAT(maxPathsOf(*analyze(context, gear)),
                testing::UnorderedElementsAre("mill.Oil.density", "parts.Gear.teeth", "parts.Gear.oil"));
}

TEST_F(Analyze, OfASourceWithoutDocumentIsLoggedAndGivesNothing) {
    bundle("mill", "mill");
    for (auto const* name : {"a", "b", "c"})
        tree.write(std::string("mill/") + name + ".slate",
                   "Shaft_" + std::string(name) + ":\n    length is Rael\n");
    SlateContext context(paths({}));
    load("mill/a.slate", context);
    auto const before = analyze(context, nullptr);
    ASSERT_EQ(context.getErrors().size(), 3U);
    auto const sources = context.getInternal().getDocuments();
    ASSERT_EQ(sources.size(), 3U);
    for (auto const& source : sources)
        source->document->unbind();
    auto const hidden = sources[1]->document;
    sources[1]->document = nullptr;
    auto const model_of = [](DocPtr const& document) {
        return document->getMembers().front()->asModelDeclaration();
    };

    EXPECT_EQ(analyze(context, model_of(sources[0]->document)), nullptr);
    ASSERT_EQ(loggedErrors().size(), 1U);
    EXPECT_THAT(
        loggedErrors().front(),
        testing::StartsWith("Slate::Core::Api::analyze: Corrupt slate context (slate.core/slate.core.api/"));
    EXPECT_EQ(context.getErrors().size(), 3U) << "no mistake in a source";

    // The first pass went up to the hole, no other began.
    EXPECT_EQ(model_of(sources[0]->document)->getOwningDocument(), sources[0]->document);
    EXPECT_EQ(model_of(hidden)->getOwningDocument(), nullptr);
    EXPECT_EQ(model_of(sources[2]->document)->getOwningDocument(), nullptr);
    auto const analysis = context.getInternal().getAnalysisContext();
    EXPECT_NE(analysis, before) << "replaced all the same";
    ASSERT_TRUE(analysis);
    EXPECT_EQ(analysis->getSymbolTree(), nullptr);

    sources[1]->document = hidden;
    EXPECT_TRUE(analyze(context, nullptr)) << "usable again";
}

TEST_F(Analyze, OfAFirstSourceWithoutDocumentVisitsNothing) {
    SlateContext context(paths({}));
    auto const document = parseFromString(shaft, context).first;
    context.getInternal().getDocuments().front()->document = nullptr;
    EXPECT_EQ(analyze(context, nullptr), nullptr);
    EXPECT_EQ(lastModelOf(document)->getOwningDocument(), nullptr);
    EXPECT_THAT(errors(context), IsEmpty());
    EXPECT_THAT(loggedErrors(), testing::SizeIs(1));
}

} // namespace Slate::Core::Api
