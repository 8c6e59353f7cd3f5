#pragma once

#include "BundleText.h"
#include "slate/FindBundle.h"
#include "slate/SourceFile.h"
#include "slate/testing/FileTrouble.h"
#include "slate/testing/LogCapture.h"
#include "slate/testing/TemporaryTree.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <functional>
#include <stdexcept>
#include <sys/stat.h>
#include <unistd.h>

namespace Slate::Bundle {

using Testing::Denied;
using Testing::thrownBy;

/// A tree with one bundle "Shapes" in `shapes`, and what each call throws on paths in it.
class FileTrouble : public testing::Test {
  protected:
    FileTrouble() { tree.write("shapes/config.slate", Testing::configText("Shapes")); }

    std::string text(std::string const& relative_path) const { return tree.path(relative_path).string(); }

    std::string cannotOpen(std::string const& relative_path) const {
        return "Failed to open file \"" + text(relative_path) + "\"";
    }

    std::string readSource(std::string const& relative_path) const {
        return thrownBy([&] { readSourceFile(tree.path(relative_path)); });
    }

    std::string findFrom(std::string const& relative_path) const {
        return thrownBy([&] { FindBundle::findBundleFrom(tree.path(relative_path)); });
    }

    std::string readShapes() const {
        return thrownBy([&] { readBundleConfig(tree.path("shapes/config.slate")); });
    }

    /// What both searches through a path throw.
    static std::string search(std::string const& path) {
        auto const by_name = thrownBy([&] { FindBundle::findBundle("Units", {path}); });
        auto const all = thrownBy([&] { FindBundle::resolveBundleConfigFromPaths({path}); });
        return by_name == all ? all : by_name + " but " + all;
    }

    void makePipe(std::string const& relative_path) const {
        ASSERT_EQ(mkfifo(text(relative_path).c_str(), 0666), 0);
    }

    void link(std::string const& target, std::string const& relative_path) const {
        std::filesystem::create_symlink(target, tree.path(relative_path));
    }

    Testing::TemporaryTree const tree;

  private:
    Testing::LogCapture const log_;
};

} // namespace Slate::Bundle
