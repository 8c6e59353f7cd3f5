// Whatever operation of the file system fails in a load: it ends in an exception or an error record, nothing
// leaks, no file stays open, and the context can be used or destroyed.

#include "Fault.h"
#include "slate/SlateCoreApi.h"
#include "slate/testing/TemporaryTree.h"

#include <gtest/gtest.h>
#include <spdlog/spdlog.h>

#include <algorithm>
#include <filesystem>
#include <stdexcept>

namespace Slate::Faults {

namespace {

using namespace Core::Api;

std::ptrdiff_t countOpenFiles() {
    std::filesystem::directory_iterator const files("/proc/self/fd");
    return std::distance(begin(files), end(files));
}

class FileFaults : public testing::Test {
  protected:
    FileFaults() {
        spdlog::set_level(spdlog::level::off);
        tree_.write("mill/config.slate", "config is BundleConfig:\n    name: \"mill\"\n"
                                         "    dependencies: [\"drives\", \"units==1\"]\n");
        tree_.write("mill/one.slate", "One:\n    two is inner.Two\n    motor is drives.Motor\n");
        tree_.write("mill/inner/two.slate", "Two:\n    a is units.Metre\n");
        tree_.write("lib/drives/config.slate", "config is BundleConfig:\n    name: \"drives\"\n");
        tree_.write("lib/drives/motor.slate", "Motor:\n    power is Real: 1.5\n");
        tree_.write("lib/units/config.slate",
                    "config is BundleConfig:\n    name: \"units\"\n    version: \"1\"\n");
        tree_.write("lib/units/metre.slate", "Metre:\n    value is Real: 1\n");
        tree_.write("alone.slate",
                    "import \"" + tree_.path("alone.slate").string() + "\"\nAlone:\n    a is Int: 1\n");
    }

    /// Loads on the context; true if it went through and left an object and no errors of this load.
    static bool load(SlateContext& context, std::filesystem::path const& file) {
        return loadModelFromFile(file, std::nullopt, context) != nullptr;
    }

    /// Lets each operation of a load fail in turn; answers how many there were.
    std::size_t failEach(std::filesystem::path const& file) {
        std::size_t number = 1;
        while (failOne(file, number) && !HasFailure())
            ++number;
        return number - 1;
    }

    Testing::TemporaryTree tree_;

  private:
    /// Answers false if there are no so many operations.
    bool failOne(std::filesystem::path const& file, std::size_t number) {
        auto const files_before = countOpenFiles();
        auto const live_before = countLiveBlocks();
        bool has_struck = false;
        {
            SlateContext context({tree_.path("lib").string()});
            {
                Fault const fault(Kind::File, number);
                try {
                    static_cast<void>(load(context, file));
                } catch (std::runtime_error const&) { // what the file system and bundles throw
                }
                has_struck = fault.hasStruck();
            }
            EXPECT_TRUE(load(context, file)) << "behind a fault of operation " << number;
        }
        EXPECT_EQ(countOpenFiles(), files_before) << "operation " << number;
        EXPECT_EQ(countLiveBlocks(), live_before) << "operation " << number;
        return has_struck;
    }
};

} // namespace

TEST_F(FileFaults, OfABundleWithDependencies) { EXPECT_GT(failEach(tree_.path("mill/one.slate")), 60U); }

TEST_F(FileFaults, OfAFileOfNoBundle) { EXPECT_GT(failEach(tree_.path("alone.slate")), 30U); }

TEST_F(FileFaults, OfARelativePath) {
    auto const before = std::filesystem::current_path();
    std::filesystem::current_path(tree_.root());
    EXPECT_GT(failEach("mill/one.slate"), 60U);
    std::filesystem::current_path(before);
}

} // namespace Slate::Faults
