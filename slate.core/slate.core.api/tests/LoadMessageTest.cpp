#include "BundlePathVariable.h"
#include "Loading.h"
#include "TestPlugin.h"
#include "slate/LoadErrors.h"
#include "slate/testing/FileTrouble.h"

#include <gmock/gmock.h>

#include <functional>
#include <ostream>

namespace Slate::Core::Api {

namespace {

using testing::ElementsAre;
using testing::SizeIs;
using testing::StartsWith;

/// What a call logs and throws, in a tree with
///
///     main.slate              imports of `nowhere.step`, `main.slate` and `data.step`
///     shapes/config.slate     a bundle, with the one source
///     shapes/body.slate
struct Message {
    char const* description;
    std::function<void(Testing::TemporaryTree const&, SlateContext&)> call;
    char const* thrown;
    Strings lines; // "level function: text", the function within the namespace; of this library alone
};

std::ostream& operator<<(std::ostream& out, Message const& message) { return out << message.description; }

class LoadMessage : public Loading, public testing::WithParamInterface<Message> {
  protected:
    LoadMessage() {
        tree.write("data.step", "");
        tree.write("main.slate",
                   "import @\"nowhere.step\"\nx is Real: 1\nimport @\"main.slate\"\nimport @\"data.step\"\n");
        bundle("shapes", "Shapes");
        for (auto const* path : {"shapes/body.slate", "shapes/body.SLATE", "shapes/.slate"})
            tree.write(path, "");
        registerPlugin(std::make_shared<TestPlugin>(StringVector{".step"}), context);
    }

    Strings ownLines() const {
        std::string const name_space = "Slate::Core::Api::";
        Strings all;
        for (auto const& line : log.lines()) {
            if (!line.file.starts_with("slate.core/slate.core.api/src/slate/"))
                continue;
            EXPECT_THAT(line.function, StartsWith(name_space));
            all.push_back(line.level + " " + line.function.substr(name_space.size()) + ": " +
                          inTree(line.text));
        }
        return all;
    }

    SlateContext context = SlateContext(paths({}));
};

Message loadOf(char const* description, char const* path, char const* thrown, Strings lines) {
    return {description,
            [path](Testing::TemporaryTree const& tree, SlateContext& context) {
                parseFromFile(tree.path(path), context);
            },
            thrown, std::move(lines)};
}

Strings const parsed_shapes = {
    "debug SlateContextInternal::parseBundles: Parsing document ROOT/shapes/body.slate",
    "debug SlateContextInternal::parseBundles: Parsing complete of ROOT/shapes/body.slate",
};

} // namespace

TEST_P(LoadMessage, IsWordedToTheLetter) {
    EXPECT_EQ(inTree(Testing::thrownBy([&] { GetParam().call(tree, context); })), GetParam().thrown);
    EXPECT_EQ(ownLines(), GetParam().lines);
}

INSTANTIATE_TEST_SUITE_P(
    All, LoadMessage,
    testing::Values(
        Message{"variable unset",
                [](auto const& /*tree*/, auto& /*context*/) {
                    BundlePathVariable const unset(std::nullopt);
                    SlateContext::deriveBundlePaths();
                },
                "nothing",
                {"error SlateContext::deriveBundlePaths: SLATE_BUNDLE_PATH must be set"}},
        Message{"variable unset, context made",
                [](auto const& /*tree*/, auto& /*context*/) {
                    BundlePathVariable const unset(std::nullopt);
                    SlateContext const another;
                },
                "nothing",
                {"error SlateContext::deriveBundlePaths: SLATE_BUNDLE_PATH must be set"}},
        Message{"variable set",
                [](auto const& /*tree*/, auto& /*context*/) {
                    BundlePathVariable const variable("a;{};b");
                    SlateContext::deriveBundlePaths();
                },
                "nothing",
                {"debug SlateContext::deriveBundlePaths: Will load bundles from: a;{};b"}},
        Message{"paths given",
                [](auto const& /*tree*/, auto& /*context*/) { SlateContext::deriveBundlePaths(""); },
                "nothing",
                {"debug SlateContext::deriveBundlePaths: Will load bundles from: "}},
        Message{
            "plug-ins in conflict",
            [](auto const& /*tree*/, auto& context) {
                registerPlugin(std::make_shared<TestPlugin>(StringVector{".step"}), context);
            },
            "nothing",
            {"warning SlateContextInternal::registerPlugin: Conflicting plugins for file extension: .step"}},
        Message{"text",
                [](auto const& /*tree*/, auto& context) { parseFromString("", context); },
                "nothing",
                {"debug SlateContextInternal::parseBundles: Parsing document <no file>",
                 "debug SlateContextInternal::parseBundles: Parsing complete of <no file>"}},
        loadOf("no file", "nowhere.slate", "nothing", {}),
        loadOf("source of a bundle", "shapes/body.slate", "nothing", parsed_shapes),
        loadOf("configuration of a bundle", "shapes/config.slate",
               "Unexpected error - could not find file ROOT/shapes/config.slate in parsed bundle",
               parsed_shapes),
        loadOf("another extension", "shapes/body.SLATE",
               "Unexpected error - could not find file ROOT/shapes/body.SLATE in parsed bundle",
               parsed_shapes),
        loadOf("no extension", "shapes/.slate",
               "Unexpected error - could not find file ROOT/shapes/.slate in parsed bundle", parsed_shapes),
        loadOf("directory of a bundle", "shapes",
               "Unexpected error - could not find file ROOT/shapes in parsed bundle", parsed_shapes),
        loadOf("directory outside every bundle", "", "Failed to open file \"ROOT/\"", {}),
        loadOf("imports", "main.slate", "nothing",
               {"debug SlateContextInternal::parseBundles: Parsing document ROOT/main.slate",
                "debug SlateContextInternal::parseBundles: Parsing complete of ROOT/main.slate",
                "debug SlateContextInternal::parseBundles: Parsing imported document ROOT/main.slate",
                "debug SlateContextInternal::parseBundles: Parsing imported document ROOT/data.step"})));

TEST_F(LoadMessage, EachErrorHasItsClass) {
    load("nowhere.slate", context);
    load("main.slate", context);
    EXPECT_THAT(errors(context), ElementsAre("ROOT/nowhere.slate: 30009 0:0 'ROOT/nowhere.slate'",
                                             "ROOT/main.slate: 10023 1:8 'ROOT/nowhere.step'",
                                             "ROOT/main.slate: 10022 3:8 'ROOT/main.slate'"));
    auto const errors = context.getErrors();
    ASSERT_THAT(errors, SizeIs(3));
    EXPECT_NE(dynamic_cast<FileNotFound const*>(errors[0].get()), nullptr);
    EXPECT_NE(dynamic_cast<ImportedFileNotFound const*>(errors[1].get()), nullptr);
    EXPECT_NE(dynamic_cast<NoPluginForImportedFile const*>(errors[2].get()), nullptr);
}

TEST_F(LoadMessage, AMissingDependencyHasItsClassAndTheConfigurationAsSource) {
    bundle("users", "Users", R"("Shapes", "Units==2")");
    tree.write("users/user.slate", "");
    SlateContext searching(paths({"shapes"}));
    load("users/user.slate", searching);
    EXPECT_THAT(errors(searching), ElementsAre("ROOT/users/config.slate: 30011 3:30 'Units==2'"));
    EXPECT_NE(dynamic_cast<DependencyNotSatisfied const*>(searching.getErrors().at(0).get()), nullptr);
}

TEST_F(LoadMessage, ASecondLoadParsesEverythingAgain) {
    load("shapes/body.slate", context);
    load("shapes/body.slate", context);
    auto expected = parsed_shapes;
    for (int i = 0; i < 2; ++i)
        expected.insert(expected.end(), parsed_shapes.begin(), parsed_shapes.end());
    EXPECT_EQ(ownLines(), expected);
}

} // namespace Slate::Core::Api
