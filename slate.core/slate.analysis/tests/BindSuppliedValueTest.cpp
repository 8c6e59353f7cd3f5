// The value that an attribute gets that has a const model as its type and no value.

#include "slate/Constant.h"
#include "slate/Document.h"
#include "slate/MemberAccess.h"
#include "slate/ModelDeclaration.h"
#include "slate/TraitImpl.h"
#include "slate/VarAssignment.h"
#include "slate/testing/Analyze.h"
#include "slate/testing/TreeDump.h"

#include <gtest/gtest.h>

#include <array>

namespace Slate::Testing {

namespace {

/// The names of a path with their places, outermost first.
std::string namesOf(ExpressionPtr const& expression) {
    if (!expression)
        return "none";
    if (auto const constant = expression->asConstant())
        return dumpToken(constant->getToken());
    auto const access = expression->asMemberAccess();
    return access ? namesOf(access->getLhs()) + " " + dumpToken(access->getNameToken()) : "no path";
}

VarAssignPtr attribute(Analyzed const& analyzed, char const* model, char const* name) {
    auto found = analyzed.findModel(model)->findFirstMemberWithType(name);
    EXPECT_TRUE(found) << name;
    return found;
}

/// A const model in a source of that path, which others use from a namespace of their own.
Analyzed analyzeUseOf(std::string const& path, std::string const& type) {
    return analyze(readAnalysisInput("=== " + path +
                                     "\n"
                                     "# for all beams\n"
                                     "const Steel:\n"
                                     "    density is Real: 7850.0\n"
                                     "=== tools/beam.slate\n"
                                     "Beam:\n"
                                     "    material is " +
                                     type + "\n"));
}

constexpr auto metals = R"(
    === metals/steel.slate
    const Steel:
        density is Real: 7850.0
    const Iron is Steel:
        density: 7870.0
    Alloy:
        density is Real: 1.0
    === use.slate
    trait Coated:
        coat is metals.Steel
    Part:
        spare is metals.Alloy
    Base:
        material is metals.Steel
    Beam is Base:
        with Coated
        supplied is metals.Steel
        own is metals.Steel: metals.Iron
        own_of_body is metals.Steel:
            .unit: "kg"
        plain is metals.Alloy
        array is metals.Steel[]: []
        number is Real: 1
        material becomes metals.Iron
        part is Part:
            inner is metals.Steel
)";

} // namespace

TEST(BindSuppliedValue, NamesTheModelAndHasOnlyThePlaceOfItsNameIfThereIsANamespace) {
    for (auto const& [path, type, names] : std::vector<std::array<char const*, 3>>{
             {"steel.slate", "Steel", "Steel@0:0"},
             {"metals/steel.slate", "metals.Steel", "metals@0:0 Steel@2:7"},
             {"plant/metals/steel.slate", "plant.metals.Steel", "plant@0:0 metals@0:0 Steel@2:7"},
             {"plant/stock/metals/steel.slate", "plant.stock.metals.Steel",
              "plant@0:0 stock@0:0 metals@0:0 Steel@2:7"},
             {"tools/steel.slate", "Steel", "tools@0:0 Steel@2:7"},
         }) {
        auto const analyzed = analyzeUseOf(path, type);
        EXPECT_EQ(analyzed.errors(), "") << path;
        auto const material = attribute(analyzed, "tools.Beam", "material");
        EXPECT_EQ(namesOf(material->getValue()), names) << path;
        EXPECT_TRUE(material->isValueSupplied()) << path;
        EXPECT_EQ(material->getValue()->getType(), material->getOwnType()) << path;
    }
}

TEST(BindSuppliedValue, OnlyDeclarationsOfConstTypeWithoutValueGetOne) {
    auto const analyzed = analyze(metals);
    auto const type = std::string("metals:?.Steel:metals.Steel");
    auto const value = [&](char const* name) {
        auto const node = attribute(analyzed, "Beam", name);
        return std::pair(node->isValueSupplied(), dumpTypes(node->getValue()));
    };
    EXPECT_EQ(value("supplied"), std::pair(true, type));
    EXPECT_EQ(value("own_of_body"), std::pair(true, type)) << "a body of annotations is no value";
    EXPECT_EQ(value("own"), std::pair(false, std::string("metals:?.Iron:metals.Iron")));
    EXPECT_EQ(value("plain"), std::pair(false, std::string("none")));
    EXPECT_EQ(value("array"), std::pair(false, std::string("[]:<anonymous array - no type known>")));
    EXPECT_EQ(value("number"), std::pair(false, std::string("1:Int")));
    EXPECT_EQ(value("material"), std::pair(true, std::string("metals:?.Iron:metals.Iron")));
    auto const nested = attribute(analyzed, "Beam", "part")->getMembers().front();
    EXPECT_EQ(nested->getValue(), nullptr) << "bodies are not gone through";
}

TEST(BindSuppliedValue, AttributeOfATraitHasItInEachCopy) {
    auto const analyzed = analyze(metals);
    auto const original = attribute(analyzed, "Coated", "coat");
    EXPECT_TRUE(original->isValueSupplied());
    EXPECT_EQ(dumpTypes(original->getValue()), "metals:?.Steel:?") << "types are bound in the copies alone";
    auto const copy =
        analyzed.findModel("Beam")->getTraits().front()->getMembers().front()->asVarAssignment();
    EXPECT_EQ(dumpTypes(copy->getValue()), "metals:?.Steel:metals.Steel");
    EXPECT_NE(copy->getValue(), original->getValue());
}

TEST(BindSuppliedValue, UnbindTakesItAwayAndLeavesAnOwnOne) {
    auto const analyzed = analyze(metals);
    auto const supplied = attribute(analyzed, "Beam", "supplied");
    auto const own = attribute(analyzed, "Beam", "own");
    auto const of_trait = attribute(analyzed, "Coated", "coat");
    auto const own_value = own->getValue();
    for (auto const& document : analyzed.documents)
        document->unbind();
    EXPECT_EQ(supplied->getValue(), nullptr);
    EXPECT_FALSE(supplied->isValueSupplied());
    EXPECT_EQ(of_trait->getValue(), nullptr);
    EXPECT_EQ(own->getValue(), own_value);
    EXPECT_EQ(dumpTypes(own_value), "metals:?.Iron:?");
}

TEST(BindSuppliedValue, SecondAnalysisSuppliesTheSameAgain) {
    auto analyzed = analyze(metals);
    auto const bindings = analyzed.bindings();
    for (auto const unbinds : {false, true}) {
        if (unbinds) {
            for (auto const& document : analyzed.documents)
                document->unbind();
        }
        analyzed.analyzeAgain();
        EXPECT_EQ(analyzed.bindings(), bindings);
        EXPECT_TRUE(attribute(analyzed, "Beam", "supplied")->isValueSupplied());
        EXPECT_FALSE(attribute(analyzed, "Beam", "own")->isValueSupplied());
    }
}

} // namespace Slate::Testing
