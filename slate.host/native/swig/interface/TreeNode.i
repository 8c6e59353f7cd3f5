%pythonappend Slate::Host::TreeNode::getRange %{ val = SourceRange(*val) %}
%pythonappend Slate::Host::TreeNode::getNameRange %{ val = SourceRange(*val) %}
%pythonappend Slate::Host::evaluationOrder %{ val = [EvaluationStep(*fields) for fields in val] %}

namespace Slate::Host {

%nodefaultctor TreeNode;
%feature("docstring") TreeNode "Something that is written in a source: a declaration, an expression, a name of a path.

Read-only; it keeps its document alive, and answers as the document is now. Two are equal if they stand for the same
thing."
class TreeNode {
  public:
    %feature("docstring") getKind "getKind() -> str

What it is: \"model\", \"attribute\", \"assignment\", \"name\" and so on.";
    std::string_view getKind() const;
    %feature("docstring") getName "getName() -> str

The name, a path with its dots, the sign of an operator, a literal as written; \"\" where there is none.";
    std::string getName() const;
    %feature("docstring") getNameRange "getNameRange() -> SourceRange

Where that name is written, backquotes included; all numbers are 0 if there is none.";
    Slate::Host::SourceRange getNameRange() const;
    %feature("docstring") getRange "getRange() -> SourceRange

From the first to the last thing written that the tree keeps.";
    Slate::Host::SourceRange getRange() const;
    %feature("docstring") getTypeText "getTypeText() -> str

The type as text, \"mill.Gear[]\"; \"\" if none is known.";
    std::string getTypeText() const;
    %feature("docstring") getTarget "getTarget() -> TreeNode | None

What it refers to: the declaration of a name, the model of a type, the method of a call.";
    std::optional<Slate::Host::TreeNode> getTarget() const;
    %feature("docstring") getChildren "getChildren() -> list[TreeNode]

What it consists of, in source order.";
    std::vector<Slate::Host::TreeNode> getChildren() const;
    %feature("docstring") getDescendants "getDescendants() -> list[TreeNode]

All below, each in front of its children; for sources of any depth.";
    std::vector<Slate::Host::TreeNode> getDescendants() const;
    %feature("docstring") getSourceId "getSourceId() -> str

The id of the source in which it is written.";
    std::string getSourceId() const;
    %feature("docstring") getQualifiedName "getQualifiedName() -> str

The name of a model, attribute or method as the refactorings ask for it; \"\" for all else.";
    std::string getQualifiedName() const;
    %feature("docstring") getNativeKey "getNativeKey() -> str

The key under which the native of a model, static method or operator is registered; \"\" for all else.";
    std::string getNativeKey() const;
    %feature("docstring") isTrait "isTrait() -> bool

Is it a model that is a trait?";
    bool isTrait() const;
    %feature("docstring") isConst "isConst() -> bool

Is it a const model?";
    bool isConst() const;
    %feature("docstring") isExternal "isExternal() -> bool

Is it a model that extends something outside of the language?";
    bool isExternal() const;
    %feature("docstring") isStatic "isStatic() -> bool

Is it a static method?";
    bool isStatic() const;
    %feature("docstring") isRedeclaration "isRedeclaration() -> bool

Is it an attribute that is declared anew, with `becomes`?";
    bool isRedeclaration() const;
    %feature("docstring") isValid "isValid() -> bool

False for what the analysis has found to be wrong in itself.";
    bool isValid() const;
    %feature("docstring") isSame "isSame(other: TreeNode) -> bool

Do both stand for the same thing in the same tree? The same as `==`.";
    bool isSame(Slate::Host::TreeNode const & other) const;
    %rename(_hash) hash;
    std::size_t hash() const;

    %pythoncode %{
def __eq__(self, other):
    return self.isSame(other) if isinstance(other, TreeNode) else NotImplemented

def __hash__(self):
    return self._hash()

def __repr__(self):
    place = self.getRange()
    return f"<TreeNode {self.getKind()} {self.getName()!r} at {place.source_id}:{place.line}:{place.column}>"
%}
};

%feature("docstring") viewDocument "viewDocument(document: Document, texts: dict[str, str] | None = None) -> TreeNode

The root of a document's tree.

:param document: as the core has parsed it, better still analysed it
:param texts: texts of sources by their ids; all others are read from their files where they are needed, which is
    for the ends of names in backquotes";
std::optional<Slate::Host::TreeNode> viewDocument(std::shared_ptr<Slate::Document> const & document,
                                                  std::shared_ptr<Slate::Host::SourceTexts> texts = nullptr);

%feature("docstring") evaluationOrder "evaluationOrder(model: ModelDeclaration, texts: dict[str, str] | None = None) -> list[EvaluationStep]

The values of a model in the order in which they were evaluated; none unless it was evaluated itself.";
std::vector<Slate::Host::EvaluationStep> evaluationOrder(std::shared_ptr<Slate::ModelDeclaration> const & model,
                                                         std::shared_ptr<Slate::Host::SourceTexts> texts = nullptr);

} // namespace Slate::Host

%{
static PyObject* toPython(Slate::Host::TreeNode const& node) {
    return SWIG_NewPointerObj(new Slate::Host::TreeNode(node), SWIG_TypeQuery("Slate::Host::TreeNode *"),
                              SWIG_POINTER_OWN);
}

static PyObject* toPython(Slate::Host::EvaluationStep const& step) {
    return tupleOf(step.path, step.assignment, step.overridden);
}
%}
