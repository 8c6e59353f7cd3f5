#include "Loading.h"
#include "TestPlugin.h"
#include "slate/testing/FileTrouble.h"

#include <gmock/gmock.h>

namespace Slate::Core::Api {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

class Plugins : public Loading {
  protected:
    std::shared_ptr<TestPlugin> add(StringVector const& extensions) {
        auto plugin = std::make_shared<TestPlugin>(extensions);
        registerPlugin(plugin, context);
        return plugin;
    }

    static std::string conflict(std::string const& extension) {
        return "warning Slate::Core::Api::SlateContextInternal::registerPlugin: Conflicting plugins for file "
               "extension: " +
               extension;
    }

    SlateContext context = SlateContext(paths({}));
};

} // namespace

TEST_F(Plugins, StandOnceAnExtensionInTheOrderOfRegistration) {
    auto const first = add({".z", ".a"});
    auto const second = add({".m"});
    auto const third = add({".b"});
    EXPECT_THAT(getRegisteredPlugins(context), ElementsAre(first, first, second, third));
    EXPECT_THAT(log.lines(), IsEmpty());
}

TEST_F(Plugins, WithoutExtensionsAreNotRegistered) {
    add({});
    EXPECT_THAT(getRegisteredPlugins(context), IsEmpty());
    EXPECT_THAT(log.lines(), IsEmpty());
}

TEST_F(Plugins, AnEmptyPointerHasNoEffect) {
    registerPlugin(nullptr, context);
    EXPECT_THAT(getRegisteredPlugins(context), IsEmpty());
    EXPECT_THAT(log.lines(), IsEmpty());
}

TEST_F(Plugins, TheFirstKeepsAnExtension) {
    auto const first = add({".step"});
    add({".step"});
    EXPECT_THAT(getRegisteredPlugins(context), ElementsAre(first));
    EXPECT_THAT(log.texts(), ElementsAre(conflict(".step")));
}

TEST_F(Plugins, AConflictTakesOneExtensionAndLeavesTheOthers) {
    auto const first = add({".stl"});
    auto const second = add({".step", ".stl", ".iges"});
    EXPECT_THAT(getRegisteredPlugins(context), ElementsAre(first, second, second));
    EXPECT_THAT(log.texts(), ElementsAre(conflict(".stl")));
}

TEST_F(Plugins, ConflictWithThemselvesToo) {
    auto const plugin = add({".step", ".step"});
    registerPlugin(plugin, context);
    EXPECT_THAT(getRegisteredPlugins(context), ElementsAre(plugin));
    EXPECT_THAT(log.texts(), ElementsAre(conflict(".step"), conflict(".step"), conflict(".step")));
}

TEST_F(Plugins, ExtensionsDifferByCaseAndDot) {
    auto const first = add({".step"});
    auto const second = add({".STEP", "step"});
    EXPECT_THAT(getRegisteredPlugins(context), ElementsAre(first, second, second));
    EXPECT_THAT(log.lines(), IsEmpty());
}

TEST_F(Plugins, TheOneForAnExtensionIsAskedEvenBehindOthers) {
    auto const first = add({".step"});
    auto const second = add({".step", ".stl"});
    auto const path = tree.write("data", "").string();
    for (auto const* extension : {".step", ".stl"}) {
        tree.write(std::string("data") + extension, "");
        parseFromString("import \"" + path + extension + "\"\n", context);
    }
    EXPECT_THAT(first->keys, testing::Each(path + ".step"));
    EXPECT_THAT(first->keys, testing::Not(IsEmpty()));
    EXPECT_THAT(second->keys, ElementsAre(path + ".stl"));
}

TEST_F(Plugins, TheLastDotBeginsTheExtension) {
    auto const plugin = add({".gz", ""});
    auto const packed = tree.write("data.step.gz", "").string();
    auto const hidden = tree.write(".gz", "").string();
    parseFromString("import \"" + packed + "\"\nimport \"" + hidden + "\"\n", context);
    EXPECT_THAT(plugin->keys, ElementsAre(packed, hidden)) << "the second has an empty extension";
    EXPECT_FALSE(context.hasErrors());
}

TEST_F(Plugins, ServeImportsOfLaterLoadsOnly) {
    auto const path = tree.write("data.step", "").string();
    auto const import = "import \"" + path + "\"\n";
    parseFromString(import, context);
    EXPECT_THAT(context.getErrors(), SizeIs(1));
    auto const plugin = add({".step"});
    EXPECT_THAT(plugin->keys, IsEmpty());
    parseFromString("", context);
    EXPECT_THAT(plugin->keys, ElementsAre(path)) << "the first text is parsed again";
    EXPECT_THAT(context.getErrors(), SizeIs(1));
}

TEST_F(Plugins, LiveAsLongAsTheContext) {
    std::weak_ptr<TestPlugin> plugin;
    {
        SlateContext short_lived(paths({}));
        auto const registered = std::make_shared<TestPlugin>(StringVector{".step"});
        plugin = registered;
        registerPlugin(registered, short_lived);
        parseFromString("", short_lived);
        short_lived.release();
        EXPECT_GT(registered.use_count(), 1);
    }
    EXPECT_TRUE(plugin.expired());
}

TEST_F(Plugins, AreNeverToldAPrecision) {
    auto const plugin = add({".step"});
    parseFromString("import \"" + tree.write("data.step", "").string() + "\"\n", context);
    EXPECT_THAT(plugin->keys, SizeIs(1));
    EXPECT_FALSE(plugin->was_told_precision);
}

TEST_F(Plugins, ThatThrowEndTheLoadAndLeaveWhatWasLoaded) {
    auto const plugin = add({".step"});
    plugin->make_document = [](ImportPtr const& /*import*/, ErrorReporter& /*reporter*/) -> DocPtr {
        throw std::runtime_error("worn out");
    };
    auto const import = "import \"" + tree.write("data.step", "").string() + "\"\n";
    EXPECT_EQ(Testing::thrownBy([&] { parseFromString(import, context); }), "worn out");
    EXPECT_THAT(sources(context), ElementsAre("<no file>: "));
}

} // namespace Slate::Core::Api
