#pragma once

#include "slate/NodeVisitor.h"
#include "slate/refactor/ReplaceOp.h"

#include <string>
#include <vector>

namespace Slate {

struct Token;

} // namespace Slate

namespace Slate::Refactor {

/// A visitor that goes through the members of documents and collects edits of them.
class RefactoringVisitor : public NodeVisitor {
  public:
    void visitDocument(DocPtr const& node) override;

    /// Those of all documents visited, in the order of discovery.
    std::vector<ReplaceOp> const& getOps() const { return ops_; }

  protected:
    /// The one being visited; empty outside of any.
    DocPtr const& getDocument() const { return document_; }

    /// Appends an edit of the current document: the text from the first to the last of these tokens.
    void replace(Token const& first, Token const& last, std::string const& new_content);

    void replace(Token const& token, std::string const& new_content) { replace(token, token, new_content); }

    template <typename Element>
    void acceptAll(vec<Element> const& nodes) {
        for (auto const& node : nodes)
            node->accept(*this);
    }

  private:
    std::vector<ReplaceOp> ops_;
    DocPtr document_;
};

} // namespace Slate::Refactor
