// Texts cut short, on the line and behind it; at-strings; and what becomes of the reporter.

#include "slate/Parser.h"

#include "slate/Document.h"
#include "slate/ModelDeclaration.h"
#include "slate/testing/ErrorDump.h"
#include "slate/testing/Parse.h"

#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <vector>

namespace Slate::Testing {

namespace {

/// A text that ends early, and what it gives.
struct EndRow {
    std::string name;
    std::string source;
    std::string errors;
    std::string tree;
};

void PrintTo(EndRow const& row, std::ostream* out) { *out << row.name; }

class TextEnds : public testing::TestWithParam<EndRow> {};

TEST_P(TextEnds, InErrorsAndATree) {
    auto const parsed = parse(GetParam().source);
    EXPECT_EQ(parsed.errors(), GetParam().errors);
    EXPECT_EQ(parsed.tree(), GetParam().tree);
}

std::string const foo = "model Foo@1:1\n";
std::string const variable = "attribute a@1:1 is@1:3 A@1:6\n";
std::string const array_variable = "attribute a@1:1 is@1:3 A@1:6.[@1:7.]@1:8\n";
std::string const typed_member = foo + "  attribute x@2:2 is@2:4 A@2:7\n";

std::vector<EndRow> const top_level_rows{
    {"Nothing", "", "", ""},
    {"LineFeed", "\n", "", ""},
    {"Name", "Foo", "10014 1:4\n", foo},
    {"NameLine", "Foo\n", "", foo},
    {"NameLineWithBlanksBehindIt", "Foo\n  ", "", foo},
    {"Qualifier", "const", "10007 1:6\n", ""},
    {"QualifierLine", "const\n", "10020 1:1\n", ""},
    {"QualifiedName", "trait Foo", "10014 1:10\n", "model trait@1:1 Foo@1:7\n"},
    {"Is", "Foo is", "10010 1:8\n", foo},
    {"IsLine", "Foo is\n", "10010 1:8\n", foo},
    {"External", "Foo is external", "10010 1:8\n", foo},
    {"Parent", "Foo is A", "", "model Foo@1:1 is A@1:8\n"},
    {"ParentDot", "Foo is A.", "10005 1:10\n", foo},
    {"ParentBracket", "Foo is A[", "10007 1:10\n", foo},
    {"ParentBracketLine", "Foo is A[\n", "10007 2:1\n", foo},
    {"ArrayParent", "Foo is A[]", "10015 1:11\n", ""},
    {"Colon", "Foo:", "10003 1:5\n", ""},
    {"ColonLine", "Foo:\n", "10003 2:1\n", ""},
    {"ColonLineWithBlanksBehindIt", "Foo:\n  ", "10002 2:3\n", foo},
    {"ParentColon", "a is A:", "10016 1:8\n", variable},
    {"ParentColonLine", "a is A:\n", "10003 2:1\n", ""},
    {"ParentColonLineWithABlankBehindIt", "a is A:\n ", "10002 2:2\n", "model a@1:1 is A@1:6\n"},
    {"ArrayColon", "a is A[]:", "10016 1:10\n", array_variable},
    {"ArrayColonLine", "a is A[]:\n", "10011 1:9\n", array_variable},
    {"ArrayColonLineWithABlankBehindIt", "a is A[]:\n ", "10014 1:2\n", array_variable},
    {"QualifiedParentColon", "const a is A:", "10020 1:1\n", ""},
    {"QualifiedParentColonLine", "const a is A:\n", "10003 2:1\n", ""},
    {"QualifiedArrayColonLine", "const a is A[]:\n", "10020 1:1\n", ""},
};

std::vector<EndRow> const value_rows{
    {"Value", "a is A: 1", "", "attribute a@1:1 is@1:3 A@1:6: 1@1:9\n"},
    {"Minus", "a is A: -", "10016 1:10\n", variable},
    {"Plus", "a is A: 1 +", "10016 1:12\n", variable},
    {"Parenthesis", "a is A: (", "10016 1:10\n", variable},
    {"ParenthesisLineReportsTheLineReached", "a is A: (\n", "10016 1:1\n", variable},
    {"ParenthesisAndNumber", "a is A: (1", "10016 1:11\n", variable},
    {"ParenthesisAndNumberLine", "a is A: (1\n", "10016 1:11\n", variable},
    {"Index", "a is A: b[", "10016 1:11\n", variable},
    {"IndexLine", "a is A: b[\n   ", "10016 1:11\n", variable},
    {"IndexAndNumber", "a is A: b[1", "10007 1:12\n", variable},
    {"IndexAndNumberLine", "a is A: b[1\n", "10016 1:12\n", variable},
    {"MemberDot", "a is A: b.", "10016 1:11\n", variable},
    {"OpenCall", "a is A: f(1,", "10016 1:13\n", variable},
};

std::vector<EndRow> const import_and_operator_rows{
    {"Import", "import", "10007 1:7\n", ""},
    {"ImportLine", "import\n", "10007 2:1\n", ""},
    {"ImportAs", "import \"a.slate\" as", "10005 1:21\n", ""},
    {"ImportColon", "import \"a\":", "", "import \"a\"@1:8\n"},
    {"ImportAnnotation", "import \"a\":\n.b:", "10016 2:4\n", "import \"a\"@1:8\n"},
    {"Operator", "operator", "10018 1:10\n", ""},
    {"OperatorSymbol", "operator +", "10007 1:11\n", ""},
    {"OperatorParenthesis", "operator + (", "10014 1:13\n", ""},
    {"OperatorParenthesisLine", "operator + (\n", "10008 1:13\n", ""},
    {"OperatorParameterName", "operator + (a", "10015 1:14\n", ""},
    {"OperatorParameterColon", "operator + (a:", "10013 1:14\n", ""},
    {"OperatorParameterDot", "operator + (a: A.", "10005 1:18\n", ""},
    {"OperatorParameter", "operator + (a: A", "10014 1:17\n", ""},
    {"OperatorParameterLine", "operator + (a: A\n", "10008 1:17\n", ""},
    {"OperatorComma", "operator + (a: A,", "10014 1:18\n", ""},
    {"OperatorCommaLine", "operator + (a: A,\n", "10008 1:18\n", ""},
    {"OperatorArrow", "operator + () ->", "10009 1:19\n", ""},
};

std::vector<EndRow> const member_rows{
    {"Name", "Foo:\n x", "10012 2:3\n", foo},
    {"NameLine", "Foo:\n x\n", "10012 2:4\n", foo},
    {"PathIsDroppedInSilence", "Foo:\n x.y", "", foo},
    {"PathLine", "Foo:\n x.y\n", "10014 2:5\n", foo},
    {"PathDot", "Foo:\n x.", "10005 2:4\n", foo},
    {"Colon", "Foo:\n x:", "10016 2:4\n", foo},
    {"ColonLine", "Foo:\n x:\n", "10011 2:5\n", foo},
    {"ColonLineWithBlanksBehindIt", "Foo:\n x:\n   ", "10011 2:5\n", foo},
    {"Is", "Foo:\n x is", "10013 2:7\n", foo},
    {"IsLine", "Foo:\n x is\n", "10013 2:7\n", foo},
    {"Becomes", "Foo:\n x becomes", "10013 2:12\n", foo},
    {"Type", "Foo:\n x is A", "", typed_member},
    {"TypeColon", "Foo:\n x is A:", "10016 2:9\n", typed_member},
    {"TypeColonLine", "Foo:\n x is A:\n", "10011 2:10\n", typed_member},
    {"Static", "Foo:\n static", "10007 2:8\n", foo},
    {"StaticLine", "Foo:\n static\n", "10008 2:8\n", foo},
    {"Fn", "Foo:\n fn", "10005 2:5\n", foo},
    {"FnName", "Foo:\n fn f", "10007 2:6\n", foo},
    {"FnParenthesis", "Foo:\n fn f(", "10014 2:7\n", foo},
    {"FnParenthesisLine", "Foo:\n fn f(\n", "10008 2:7\n", foo},
    {"FnArrow", "Foo:\n fn f() ->", "10009 2:13\n", foo},
    {"With", "Foo:\n with", "10005 2:7\n", foo},
    {"Delete", "Foo:\n delete", "10005 2:9\n", foo},
    {"Dot", "Foo:\n .", "10007 2:2\n", foo},
    {"AnnotationName", "Foo:\n .a", "10015 2:4\n", foo},
    {"AnnotationColon", "Foo:\n .a:", "10016 2:5\n", foo},
    {"AnnotationColonLine", "Foo:\n .a:\n", "10016 2:5\n", foo},
    {"NestedName", "Foo:\n x:\n  y", "10007 3:3\n", foo},
};

std::string nameOf(testing::TestParamInfo<EndRow> const& instance) { return instance.param.name; }

INSTANTIATE_TEST_SUITE_P(BehindTopLevel, TextEnds, testing::ValuesIn(top_level_rows), nameOf);
INSTANTIATE_TEST_SUITE_P(BehindValue, TextEnds, testing::ValuesIn(value_rows), nameOf);
INSTANTIATE_TEST_SUITE_P(BehindImportOrOperator, TextEnds, testing::ValuesIn(import_and_operator_rows),
                         nameOf);
INSTANTIATE_TEST_SUITE_P(BehindMember, TextEnds, testing::ValuesIn(member_rows), nameOf);

TEST(Parser, KeepsExternalOnlyWithAParent) {
    auto const extends_qualifier_of = [](std::string const& source) {
        auto const parsed = parse(source);
        return parsed.document->getMembers().front()->asModelDeclaration()->getExtendsQualifierToken();
    };
    EXPECT_EQ(extends_qualifier_of("Foo is external A\n"), Token(TokenType::External, "external", 1, 8));
    EXPECT_EQ(extends_qualifier_of("Foo is external A:\n  x: 1\n"),
              Token(TokenType::External, "external", 1, 8));
    EXPECT_EQ(extends_qualifier_of("Foo is external\n"), Token::None());
    EXPECT_EQ(extends_qualifier_of("Foo is external A.\n"), Token::None());
    EXPECT_EQ(extends_qualifier_of("Foo is external [5]\n"), Token::None());
    EXPECT_EQ(extends_qualifier_of("Foo\n"), Token::None());
}

TEST(Parser, ResolvesAtStringsBesideTheSource) {
    auto const import_in = [](std::string const& source_id) {
        return parse("import @\"d.txt\"\n", source_id).tree();
    };
    EXPECT_EQ(import_in("a/b/c.slate"), "import \"a/b/d.txt\"@1:8\n");
    EXPECT_EQ(import_in("a\\b\\c.slate"), "import \"a\\b\\d.txt\"@1:8\n");
    EXPECT_EQ(import_in("a/b\\c.slate"), "import \"a/b\\d.txt\"@1:8\n");
    EXPECT_EQ(import_in("a\\b/c.slate"), "import \"a\\b/d.txt\"@1:8\n");
    EXPECT_EQ(import_in("/c.slate"), "import \"/d.txt\"@1:8\n");
    EXPECT_EQ(import_in("a/"), "import \"a/d.txt\"@1:8\n");
    EXPECT_EQ(import_in("c.slate"), "import \"d.txt\"@1:8\n");
    EXPECT_EQ(import_in(""), "import \"d.txt\"@1:8\n");
}

TEST(Parser, ResolvesAtStringsInValuesAndAnnotations) {
    auto const parsed = parse(unindent(R"(
        Foo:
            .icon: @"i.png"
            x is String: (@"x.txt") + @""
    )"),
                              "a/b/c.slate");
    EXPECT_EQ(parsed.tree(), unindent(R"(
        model Foo@1:1
          annotation icon@2:6: "a/b/i.png"@2:12
          attribute x@3:5 is@3:7 String@3:10: (+ "a/b/x.txt"@3:19[3:18-3:27] "a/b/"@3:31)@3:18-3:31
    )"));
    EXPECT_EQ(parsed.errors(), "");
}

TEST(Parser, LooksForTheFaultBehindTheAtStringAsWritten) {
    EXPECT_EQ(parse("x is A: (@\"d\" 1\n", "some/longer/path/c.slate").errors(), "10016 1:14\n");
}

TEST(Parser, NamesTheSourceInTheDocumentAndItsErrors) {
    auto const parsed = parse("Foo:\n$", "a/b/c.slate");
    EXPECT_EQ(parsed.document->getSourceId(), "a/b/c.slate");
    ASSERT_EQ(parsed.reporter->getErrorCount(), 2U);
    EXPECT_EQ(dumpError(*parsed.reporter->getErrors()[0], true), "a/b/c.slate: 10004 2:2");
    EXPECT_EQ(dumpError(*parsed.reporter->getErrors()[1], true), "a/b/c.slate: 10002 2:3");
}

TEST(Parser, AppendsToTheReporterOfTheCaller) {
    auto const reporter = std::make_shared<ErrorReporter>();
    Parser::parse("1\n", "first.slate", reporter);
    Parser::parse("Foo\n\n2\n", "second.slate", reporter);
    ASSERT_EQ(reporter->getErrorCount(), 2U);
    EXPECT_EQ(dumpError(*reporter->getErrors()[0], true), "first.slate: 10007 1:1");
    EXPECT_EQ(dumpError(*reporter->getErrors()[1], true), "second.slate: 10007 3:1");
}

} // namespace

} // namespace Slate::Testing
