#pragma once

#include "slate/CompactPath.h"
#include "slate/Expression.h"
#include "slate/OperatorToken.h"

#include <memory>
#include <string>
#include <vector>

namespace Slate {

/// An attribute of a model, or a top-level variable: `x is Real: 1` declares, `x becomes Body` declares an
/// inherited attribute anew with a narrower type, `x: 1` and `x.y: 1` assign to what is declared elsewhere.
class VarAssignment : public Node, public std::enable_shared_from_this<VarAssignment> {
  public:
    static VarAssignPtr create(TokenVector segments, Token operator_token, TokenVector type_segments,
                               vec<AnnotationPtr> annotations, vec<VarAssignPtr> members, ExpressionPtr value,
                               ObjectPool* pool = nullptr);
    static VarAssignPtr create(CompactPath path, Token operator_token, CompactPath type_path,
                               vec<AnnotationPtr> annotations, vec<VarAssignPtr> members, ExpressionPtr value,
                               ObjectPool* pool = nullptr);

    VarAssignment(CreateKey, CompactPath&& path, Token&& operator_token, CompactPath&& type_path,
                  vec<AnnotationPtr>&& annotations, vec<VarAssignPtr>&& members, ExpressionPtr&& value);

    VarAssignPtr asVarAssignment() override { return shared_from_this(); }

    void accept(NodeVisitor& visitor) override;
    void unbind() override;

    /// The target path, `a` or `a.b.c`.
    TokenVector getSegments() const { return path_.getTokens(); }

    /// The same path as it is kept.
    CompactPath const& getPath() const { return path_; }

    /// `is`, `becomes` or `None`.
    Token getOperatorToken() const { return operator_token_.get(); }

    /// That of the operator token, without its text.
    TokenType getOperatorType() const { return operator_token_.type(); }

    /// The declared type; may end in the two tokens `[` and `]`; empty without one.
    TokenVector getTypeSegments() const { return type_path_.getTokens(); }

    /// The same path as it is kept.
    CompactPath const& getTypePath() const { return type_path_; }

    vec<AnnotationPtr> const& getAnnotations() const;

    /// The nested attributes of the indented body.
    vec<VarAssignPtr> const& getMembers() const;

    /// The expression behind the colon, else the supplied value; empty without both.
    ExpressionPtr const& getValue() const { return value_; }

    /// Gives an attribute without value one that no source holds; `unbind` takes it away again.
    void setSuppliedValue(ExpressionPtr value);

    /// Is the value, if there is one, a supplied one?
    bool isValueSupplied() const { return is_value_supplied_; }

    /// A copy with all that it holds and all that is bound to this node but the target declarations. Nested
    /// attributes are copied with their copy as the enclosing one, annotations with their copy as the owner,
    /// and expressions unbound. All copies are valid, and expressions keep their spans.
    VarAssignPtr copy() const;

    std::string getName() const;
    std::string getNameUpTo(std::size_t index) const;

    /// For a top-level variable of one segment with an owning document: the document's namespace, the
    /// separator (also behind an empty namespace) and the name. Empty for all else.
    std::string getNameWithNamespace(std::string const& separator) const;

    /// From the owning document, else the owning model, else the enclosing attribute; empty without any.
    std::string getSourceId() const;

    /// The bound type of the attribute's own; empty for a plain assignment.
    TypePtr getOwnType() const { return type_.get(); }

    /// The bound type, else that of the last of the target declarations; empty without both.
    TypePtr getType() const;
    void setType(TypePtr const& type);

    /// The bound type, else that of the target declaration at `index`; empty without both.
    TypePtr getTypeOfSegment(std::size_t index) const;

    /// The declarations reached along the target path, one a segment, outermost first.
    vec<VarAssignPtr> getTargetDeclarations() const;

    bool hasTargetDeclarations() const { return targets_itself_ || hasOtherTargets(); }

    void setTargetDeclarations(vec<VarAssignPtr> const& target_declarations);

    /// This attribute is the one declaration that its target path reaches.
    void setTargetsItself();

    DocPtr getOwningDocument() const { return owning_document_.lock(); }

    void setOwningDocument(DocPtr const& owning_document) { owning_document_ = owning_document; }

    ModelDeclPtr getOwningModel() const { return owning_model_.lock(); }

    void setOwningModel(ModelDeclPtr const& owning_model) { owning_model_ = owning_model; }

    /// The enclosing attribute of a nested one.
    VarAssignPtr getParent() const { return extras().parent.lock(); }

    void setParent(VarAssignPtr const& parent);

    bool isDeclaration() const { return !type_path_.empty(); }

    bool isTopLevel() const { return owning_model_.expired(); }

    /// A declaration of one segment that stands directly in its model.
    bool isTopDeclaration() const;

    /// Has an operator or a type in a place where only assignments may stand: in the body of another
    /// attribute, or with a target path of more than one segment.
    bool isNestedDeclaration() const;

    /// Some attribute of the body, at any depth, is a nested declaration.
    bool hasNestedDeclaration() const;

    /// This node for `is`; for `becomes` that of the first target declaration; empty for a plain assignment.
    VarAssignPtr getOwningDeclaration();

  private:
    /// What most attributes have nothing of.
    struct Extras {
        vec<AnnotationPtr> const annotations{};
        vec<VarAssignPtr> const members{};

        // Where an assignment stands and leads that is no declaration in a model.
        std::weak_ptr<VarAssignment> parent{};
        std::vector<std::weak_ptr<VarAssignment>> target_declarations{};
    };

    static Extras const& noExtras();

    Extras const& extras() const { return extras_ ? *extras_ : noExtras(); }

    Extras& makeExtras();

    bool hasParent() const { return extras_ && !extras_->parent.expired(); }

    bool hasOtherTargets() const { return extras_ && !extras_->target_declarations.empty(); }

    VarAssignPtr targetAt(std::size_t index) const;

    // What most walks over attributes ask for comes first: these walks wait for memory more than for anything
    // else.
    CompactPath const path_;
    std::unique_ptr<Extras> extras_;
    ExpressionPtr value_;
    [[no_unique_address]] TypeLink type_; // the next two stand in its padding
    bool targets_itself_ = false;         // then there are no others
    bool is_value_supplied_ = false;
    std::weak_ptr<ModelDeclaration> owning_model_;
    std::weak_ptr<Document> owning_document_;
    CompactPath const type_path_;
    OperatorToken const operator_token_;
};

/// The attribute that a node is, else null; for those who look at it and do not keep it. `asVarAssignment`
/// makes another owner, which takes an atomic operation.
inline VarAssignment* attributeIn(Node* node) {
    return node != nullptr && node->isVarAssignment() ? static_cast<VarAssignment*>(node) : nullptr;
}

} // namespace Slate
