#include "slate/SourceFile.h"

#include "slate/testing/TemporaryTree.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <ostream>

namespace Slate::Testing {

namespace {

using testing::StartsWith;

struct FileContent {
    std::string description;
    std::string bytes;
    std::string text;
};

std::ostream& operator<<(std::ostream& out, FileContent const& content) { return out << content.description; }

class SourceFileContent : public testing::TestWithParam<FileContent> {};

std::string const byte_order_mark = "\xEF\xBB\xBF";
std::string const many_lines = [] {
    std::string text;
    for (int line = 0; line < 20'000; ++line)
        text += "Body" + std::to_string(line) + " is Solid\n";
    return text;
}();

} // namespace

TEST_P(SourceFileContent, IsReadWithoutByteOrderMark) {
    TemporaryTree const tree;
    EXPECT_EQ(readSourceFile(tree.write("body.slate", GetParam().bytes)), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(
    All, SourceFileContent,
    testing::Values(FileContent{"empty", "", ""}, FileContent{"without mark", "Body\n", "Body\n"},
                    FileContent{"with mark", byte_order_mark + "Body\n", "Body\n"},
                    FileContent{"only a mark", byte_order_mark, ""},
                    FileContent{"half a mark", byte_order_mark.substr(0, 2), byte_order_mark.substr(0, 2)},
                    FileContent{"broken mark",
                                "\xEF\xBB"
                                "Body",
                                "\xEF\xBB"
                                "Body"},
                    FileContent{"two marks", byte_order_mark + byte_order_mark, byte_order_mark},
                    FileContent{"mark not at the start", " " + byte_order_mark, " " + byte_order_mark},
                    FileContent{"other line ends", "a\r\nb\r", "a\r\nb\r"},
                    FileContent{"NUL bytes", std::string("a\0b\0", 4), std::string("a\0b\0", 4)},
                    FileContent{"bytes that are no UTF-8", "\xFF\xFE\x80", "\xFF\xFE\x80"},
                    FileContent{"large", byte_order_mark + many_lines, many_lines}));

TEST(SourceFile, IsReadThroughALink) {
    TemporaryTree const tree;
    tree.write("deep/body.slate", "Body\n");
    std::filesystem::create_symlink("deep/body.slate", tree.path("link.slate"));
    EXPECT_EQ(readSourceFile(tree.path("link.slate")), "Body\n");
}

TEST(SourceFile, MayHaveBlanksAndOtherLettersInItsName) {
    TemporaryTree const tree;
    EXPECT_EQ(readSourceFile(tree.write("zwei Körper/größer als 体.slate", "Body\n")), "Body\n");
}

TEST(SourceFile, HoldsMoreThanItsSizeSays) {
    std::filesystem::path const status = "/proc/self/status";
    ASSERT_EQ(std::filesystem::file_size(status), 0U);
    EXPECT_THAT(readSourceFile(status), StartsWith("Name:"));
}

} // namespace Slate::Testing
