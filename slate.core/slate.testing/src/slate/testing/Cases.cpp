#include "slate/testing/Cases.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <ostream>
#include <stdexcept>

namespace Slate::Testing {

std::vector<Case> findCases(std::filesystem::path const& directory) {
    std::vector<Case> cases;
    for (auto const& entry : std::filesystem::directory_iterator(directory)) {
        auto const& path = entry.path();
        if (path.extension() == ".slate")
            cases.push_back(
                {path.stem().string(), path, std::filesystem::path(path).replace_extension(".expected")});
    }
    std::ranges::sort(cases, {}, &Case::name);
    return cases;
}

std::string readFile(std::filesystem::path const& path) {
    std::ifstream file(path, std::ios::binary);
    std::string text{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    if (!file)
        throw std::runtime_error("cannot read " + path.string());
    return text;
}

void checkExpectation(Case const& test_case, std::string const& actual) {
    if (std::getenv("SLATE_REWRITE_EXPECTATIONS") != nullptr) {
        std::ofstream(test_case.expected_path, std::ios::binary) << actual;
        return;
    }
    ASSERT_TRUE(std::filesystem::exists(test_case.expected_path)) << "no " << test_case.expected_path;
    EXPECT_EQ(readFile(test_case.expected_path), actual);
}

std::ostream& operator<<(std::ostream& out, Case const& test_case) { return out << test_case.name; }

} // namespace Slate::Testing
