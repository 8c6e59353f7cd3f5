#include "slate/Document.h"
#include "slate/fuzz/ErrorPlaces.h"
#include "slate/fuzz/Properties.h"
#include "slate/testing/Parse.h"
#include "slate/testing/PrintSource.h"
#include "slate/testing/TreeDump.h"

#include <stdexcept>

namespace Slate::Fuzz {

namespace {

using namespace Testing;

constexpr char const* source_id = "fuzz/text.slate";

std::string check(std::string const& text) {
    auto const parsed = parse(text, source_id);
    auto const tree = dumpTree(*parsed.document);
    auto const again = parse(text, source_id);
    if (dumpTree(*again.document) != tree || again.errors() != parsed.errors())
        return "parsed again it differs:\n" + parsed.errors() + "\n" + again.errors();

    if (auto const misplaced = describeMisplaced(parsed.reporter->getErrors(), {{source_id, text}});
        !misplaced.empty())
        return "errors outside of the text:\n" + misplaced;

    auto const printed = printSource(*parsed.document);
    auto const reparsed = parse(printed, source_id);
    auto const plain_tree = dumpTree(*parsed.document, Positions::Hidden);
    auto const reparsed_tree = dumpTree(*reparsed.document, Positions::Hidden);
    if (plain_tree != reparsed_tree)
        return "printed and parsed again it differs:\n" + plain_tree + "\n" + printed + "\n" +
               reparsed.errors() + "\n" + reparsed_tree;
    return {};
}

} // namespace

std::string checkParsing(std::string const& text) {
    try {
        return check(text);
    } catch (std::exception const& exception) {
        return std::string("it throws: ") + exception.what();
    }
}

} // namespace Slate::Fuzz
