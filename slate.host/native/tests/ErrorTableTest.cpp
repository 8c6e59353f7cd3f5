// Every number has a row, every example raises its error and no other, and no cured text raises any.

#include "slate/host/ErrorTable.h"

#include "Loaded.h"
#include "slate/Error.h"
#include "slate/host/SourceTexts.h"

#include <gtest/gtest.h>

#include <cctype>
#include <map>
#include <ostream>
#include <string>

namespace Slate::Host {

static void PrintTo(ErrorKind const& kind, std::ostream* out) { *out << kind.enumerator; }

namespace {

/// The enumerators of `ErrorCode` as its header has them.
std::map<error_code_t, std::string> declaredCodes() {
    std::map<error_code_t, std::string> codes;
    SourceTexts texts;
    auto const* const header = texts.find(SLATE_ERROR_CODES);
    for (line_t line = 1; header != nullptr && line <= header->countLines(); ++line) {
        auto text = header->getLine(line);
        text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
        auto const sign = text.find(" = ");
        if (text.starts_with("Err") && sign != std::string_view::npos)
            codes.emplace(std::stoul(std::string(text.substr(sign + 3))), text.substr(0, sign));
    }
    return codes;
}

TEST(ErrorTable, HasARowForEveryEnumerator) {
    auto const declared = declaredCodes();
    EXPECT_GT(declared.size(), 50U);
    for (auto const& [code, enumerator] : declared) {
        auto const* const kind = findErrorKind(code);
        ASSERT_NE(kind, nullptr) << enumerator;
        EXPECT_EQ(kind->enumerator, enumerator);
    }
    EXPECT_EQ(errorKinds().size(), declared.size());
    EXPECT_EQ(findErrorKind(10001), nullptr);
    EXPECT_EQ(findErrorKind(0), nullptr);
}

class ErrorKinds : public testing::TestWithParam<ErrorKind> {};

TEST_P(ErrorKinds, AreWorded) {
    auto const& kind = GetParam();
    for (auto const& text : {kind.summary, kind.words, kind.rule}) {
        ASSERT_FALSE(text.empty());
        EXPECT_EQ(text.find('\n'), std::string_view::npos) << text;
        EXPECT_FALSE(text.ends_with('.')) << text;
        EXPECT_FALSE(std::isupper(static_cast<unsigned char>(text.front())) != 0) << text;
    }
    EXPECT_FALSE(kind.class_name.empty());
}

TEST_P(ErrorKinds, AreRaisedByTheirExampleAlone) {
    auto const& kind = GetParam();
    Loaded const loaded({kind.example, kind.setup.file, kind.setup.model, kind.setup.plugin_extension, "",
                         kind.setup.nested_declarations_allowed});
    auto const& context = loaded.context();
    EXPECT_TRUE(context.hasErrors());
    for (auto const& error : context.getErrors())
        EXPECT_EQ(error->getErrorCode(), kind.code) << loaded.errors();
}

TEST_P(ErrorKinds, AreGoneFromTheCuredText) {
    auto const& kind = GetParam();
    Loaded const loaded({kind.cure, kind.setup.cured_file, kind.setup.cured_model,
                         kind.setup.plugin_extension, kind.setup.cured_native,
                         kind.setup.nested_declarations_allowed});
    EXPECT_EQ(loaded.errors(), "");
}

INSTANTIATE_TEST_SUITE_P(All, ErrorKinds, testing::ValuesIn(errorKinds().begin(), errorKinds().end()),
                         [](auto const& instance) { return std::string(instance.param.enumerator); });

} // namespace

} // namespace Slate::Host
