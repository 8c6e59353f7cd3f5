#pragma once

#include "BundleText.h"
#include "slate/FindBundle.h"
#include "slate/SourceFile.h"
#include "slate/testing/LogCapture.h"
#include "slate/testing/TemporaryTree.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <functional>
#include <stdexcept>
#include <sys/stat.h>
#include <unistd.h>

namespace Slate::Bundle {

/// Takes rights to a path away for as long as it lives; from the superuser too, who acts as another
/// meanwhile.
class Denied {
  public:
    explicit Denied(std::filesystem::path path, std::filesystem::perms left = std::filesystem::perms::none)
        : path_(std::move(path)) {
        rights_before_ = std::filesystem::status(path_).permissions();
        std::filesystem::permissions(path_, left);
        if (user_before_ == 0 && seteuid(nobody) != 0)
            throw std::runtime_error("cannot act as another user");
    }

    ~Denied() {
        std::error_code ignored;
        if (user_before_ == 0 && seteuid(user_before_) != 0)
            std::abort();
        std::filesystem::permissions(path_, rights_before_, ignored);
    }

    Denied(Denied const&) = delete;
    Denied& operator=(Denied const&) = delete;

  private:
    static constexpr uid_t nobody = 65534;

    std::filesystem::path path_;
    std::filesystem::perms rights_before_ = std::filesystem::perms::none;
    uid_t user_before_ = geteuid();
};

/// "OPERATION PATH" for what the file system refused, else the text of the run-time error, else "nothing".
inline std::string thrownBy(std::function<void()> const& call) {
    try {
        call();
        return "nothing";
    } catch (std::filesystem::filesystem_error const& error) {
        std::string_view const introduction = "filesystem error: ";
        std::string const text = error.what();
        if (!text.starts_with(introduction))
            return text;
        auto const operation =
            text.substr(introduction.size(), text.find(": ", introduction.size()) - introduction.size());
        return operation + " " + error.path1().string();
    } catch (std::runtime_error const& error) {
        return error.what();
    }
}

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
