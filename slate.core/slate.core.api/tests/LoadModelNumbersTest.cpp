// The whole way of numbers, from a source to the printed text, in other locales than that of the sources.

#include "ModelLoading.h"

#include <clocale>
#include <locale>
#include <sstream>

namespace Slate::Core::Api {

namespace {

/// Writes 1234567.5 as "1.234.567,5".
class CommaPunctuation : public std::numpunct<char> {
  protected:
    char do_decimal_point() const override { return ','; }

    char do_thousands_sep() const override { return '.'; }

    std::string do_grouping() const override { return "\3"; }
};

/// As long as this lives, the process has a locale with a decimal comma: that of the streams in any case,
/// that of the C library where one is installed.
class CommaLocale {
  public:
    CommaLocale()
        : before_(std::locale::global(std::locale(std::locale::classic(), new CommaPunctuation))),
          c_before_(std::setlocale(LC_ALL, nullptr)) {
        for (auto const* const name : {"de_DE.UTF-8", "de_DE.utf8", "fr_FR.UTF-8", "nl_NL.UTF-8"}) {
            if (std::setlocale(LC_ALL, name) != nullptr)
                break;
        }
    }

    ~CommaLocale() {
        std::setlocale(LC_ALL, c_before_.c_str());
        std::locale::global(before_);
    }

    CommaLocale(CommaLocale const&) = delete;
    CommaLocale& operator=(CommaLocale const&) = delete;

  private:
    std::locale before_;
    std::string c_before_;
};

constexpr auto scale = "Scale:\n"
                       "    .ratio: 1234.5\n"
                       "    .count: -12345\n"
                       "    large is Int: 1234567\n"
                       "    real is Real: 1234.5\n"
                       "    tiny is Real: 2.5e-7\n"
                       "    huge is Real: 1.5e300\n"
                       "    half is Real: .5\n"
                       "    third is Real: 1000 / 3\n"
                       "    sum is Real: large + 0.25\n"
                       "    far is Real: 1.5e999\n"
                       "    list is Real[]: [1234.5, 1234567]\n"
                       "    last is Real: list[2]\n";

using LoadModelNumbers = ModelLoading;

} // namespace

TEST_F(LoadModelNumbers, AreTheSameInEveryLocaleOfTheProcess) {
    CommaLocale const comma;
    std::ostringstream out;
    out << 1234.5;
    ASSERT_EQ(out.str(), "1.234,5") << "the locale is in force";

    SlateContext context(StringVector{});
    auto const root = loadText(scale, context);
    ASSERT_TRUE(root);
    EXPECT_EQ(root->toJson(true), R"({"__name":"Scale","__uuid":"","__type_list":["Slate::Core::Object"],)"
                                  R"("list":[1234.5,1234567],"third":333.333,"half":0.5,"huge":1.5e+300,)"
                                  R"("tiny":2.5e-07,"real":1234.5,"large":1234567,"sum":1.23457e+06,)"
                                  R"(".ratio":1234.5,".count":-12345})");
    EXPECT_EQ(root->getNumber(".ratio"), 1234.5);
    EXPECT_EQ(root->getNumber("sum"), 1234567.25);
    EXPECT_EQ(errors(context), (Strings{"<no file>: 30005 13:24", "<no file>: 30007 11:18"}));
}

} // namespace Slate::Core::Api
