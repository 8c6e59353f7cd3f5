#include "slate/fuzz/UnfoldingSize.h"

#include "slate/Array.h"
#include "slate/BinaryOp.h"
#include "slate/Call.h"
#include "slate/Constant.h"
#include "slate/Document.h"
#include "slate/Indexing.h"
#include "slate/Initializer.h"
#include "slate/MemberAccess.h"
#include "slate/ModelDeclaration.h"
#include "slate/NodeVisitor.h"
#include "slate/TraitImpl.h"
#include "slate/Unary.h"
#include "slate/VarAssignment.h"

#include <algorithm>
#include <map>
#include <string>

namespace Slate::Fuzz {

namespace {

/// For each name the names of all that it is made of, once for each time.
using Parts = std::map<std::string, std::vector<std::string>>;

/// Appends what the lists and initializers of a value are made of.
class ValueVisitor : public NodeVisitor {
  public:
    explicit ValueVisitor(std::vector<std::string>& parts) : parts_(parts) {}

    void take(Expression& value) {
        steps_ = {{&value, false}};
        while (!steps_.empty()) {
            auto const step = steps_.back();
            steps_.pop_back();
            is_in_list_ = step.is_in_list;
            step.expression->accept(*this);
        }
    }

    void visitConstant(ConstantPtr const& node) override {
        if (is_in_list_)
            parts_.push_back(node->getToken().lexeme);
    }

    void visitUnary(UnaryPtr const& node) override { push(node->getOperand(), is_in_list_); }

    void visitBinaryOp(BinaryOpPtr const& node) override {
        push(node->getLhs(), is_in_list_);
        push(node->getRhs(), is_in_list_);
    }

    void visitArray(ArrayPtr const& node) override { pushAll(node->getElements()); }

    void visitInitializer(InitializerPtr const& node) override { pushAll(node->getElements()); }

    void visitCall(CallPtr const& node) override { pushAll(node->getArguments()); }

    void visitMemberAccess(MemberAccessPtr const& node) override {
        if (is_in_list_)
            parts_.push_back(node->getNameToken().lexeme);
        push(node->getLhs(), is_in_list_);
    }

    void visitIndexing(IndexingPtr const& node) override {
        push(node->getLhs(), is_in_list_);
        push(node->getIndex(), is_in_list_);
    }

  private:
    struct Step {
        Expression* expression;
        bool is_in_list;
    };

    void push(ExpressionPtr const& expression, bool is_in_list) {
        steps_.push_back({expression.get(), is_in_list});
    }

    void pushAll(vec<ExpressionPtr> const& expressions) {
        for (auto const& expression : expressions)
            push(expression, true);
    }

    std::vector<std::string>& parts_;
    std::vector<Step> steps_;
    bool is_in_list_ = false;
};

class PartsVisitor : public NodeVisitor {
  public:
    explicit PartsVisitor(Parts& parts) : parts_(parts) {}

    void visitDocument(DocPtr const& node) override {
        for (auto const& member : node->getMembers())
            member->accept(*this);
    }

    void visitModelDeclaration(ModelDeclPtr const& node) override {
        owner_ = node->getName();
        addLastOf(node->getExtendsSegments());
        for (auto const& trait : node->getTraits())
            addLastOf(trait->getSegments());
        for (auto const& member : node->getMembers())
            member->accept(*this);
        owner_.clear();
    }

    void visitVarAssignment(VarAssignPtr const& node) override {
        std::string const name(node->getPath().back().lexeme());
        if (!owner_.empty())
            parts_[owner_].push_back(name);
        auto& parts = parts_[name];
        for (auto const& segment : node->getTypeSegments()) {
            if (segment.type == TokenType::Identifier)
                parts.push_back(segment.lexeme);
        }
        if (node->getValue())
            ValueVisitor(parts).take(*node->getValue());
        for (auto const& member : node->getMembers())
            member->accept(*this);
    }

  private:
    void addLastOf(TokenVector const& path) {
        if (!path.empty())
            parts_[owner_].push_back(path.back().lexeme);
    }

    Parts& parts_;
    std::string owner_;
};

} // namespace

bool unfoldsTooFar(vec<DocPtr> const& documents) {
    Parts parts;
    PartsVisitor visitor(parts);
    for (auto const& document : documents)
        document->accept(visitor);

    // Rings unfold until they close, so no further than there are names.
    std::map<std::string, std::size_t> sizes;
    for (std::size_t round = 0; round < parts.size(); ++round) {
        auto const sizes_before = sizes;
        for (auto const& [name, names] : parts) {
            std::size_t size = 1;
            for (auto const& part : names) {
                auto const found = sizes_before.find(part);
                size += found == sizes_before.end() ? 1 : found->second;
            }
            if (size > greatest_unfolding)
                return true;
            sizes[name] = size;
        }
        if (sizes == sizes_before)
            break;
    }
    return false;
}

} // namespace Slate::Fuzz
