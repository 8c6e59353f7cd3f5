// The names of all types, before anything is declared that uses them. `line_t`, `col_t`, `error_code_t` and
// `TokenType` are left out on purpose: what is unknown here is opaque in Python.

%opaque_shared_ptr(Slate::Type)
%opaque_shared_ptr(Slate::VarDeclaration)
%opaque_shared_ptr(Slate::VarAssignment)
%opaque_shared_ptr(Slate::MethodDeclaration)
%opaque_shared_ptr(Slate::Parameter)
%opaque_shared_ptr(Slate::Constant)
%opaque_shared_ptr(Slate::BinaryOp)
%opaque_shared_ptr(Slate::Unary)
%opaque_shared_ptr(Slate::Array)
%opaque_shared_ptr(Slate::ArrayType)
%opaque_shared_ptr(Slate::MemberAccess)
%opaque_shared_ptr(Slate::Call)
%opaque_shared_ptr(Slate::PrimitiveType)
%opaque_shared_ptr(Slate::Indexing)
%opaque_shared_ptr(Slate::OperatorOverload)
%opaque_shared_ptr(Slate::Annotation)
%opaque_shared_ptr(Slate::Import)
%opaque_shared_ptr(Slate::TraitImpl)
%opaque_shared_ptr(Slate::Initializer)
%opaque_shared_ptr(Slate::InitializerType)
%opaque_shared_ptr(Slate::Deletion)
%opaque_shared_ptr(Slate::TopologicalPath)
%opaque_shared_ptr(Slate::SymbolTree)

%shared_ptr(Slate::Node)
%shared_ptr(Slate::Document)
%shared_ptr(Slate::ModelDeclaration)
%shared_ptr(Slate::Core::Object)
%shared_ptr(Slate::Core::EvaluatorContext)
%shared_ptr(Slate::Analysis::AnalysisContext)
%shared_ptr(Slate::Plugin)
%shared_ptr(Slate::ErrorReporter)
%shared_ptr(Slate::Error)
%shared_ptr(Slate::CycleFoundError)
%shared_ptr(Slate::StringParameterError)
%shared_ptr(Slate::TypeNotFound)
%shared_ptr(Slate::VariableNotFound)
%shared_ptr(Slate::MethodNotFound)
%shared_ptr(Slate::MemberNotFound)
%shared_ptr(Slate::SymbolAlreadyDefined)
%shared_ptr(Slate::SymbolAlreadyAssigned)
%shared_ptr(Slate::ExpectedTrait)
%shared_ptr(Slate::MissingAssignmentError)
%shared_ptr(Slate::CircularDependency)
%shared_ptr(Slate::NoPluginForImportedFile)
%shared_ptr(Slate::ImportedFileNotFound)
%shared_ptr(Slate::ModelDeclarationNotFound)
%shared_ptr(Slate::FileNotFound)
%shared_ptr(Slate::ModelNotInitializable)
%shared_ptr(Slate::DependencyNotSatisfied)

%converts(Slate::ModelDeclaration, Slate::Type)
%converts(Slate::Type, Slate::Node)
%converts(Slate::VarAssignment, Slate::Node)
%converts(Slate::MethodDeclaration, Slate::Type)
%converts(Slate::MethodDeclaration, Slate::Node)
%converts(Slate::Parameter, Slate::Node)
%converts(Slate::Constant, Slate::Node)
%converts(Slate::BinaryOp, Slate::Node)
%converts(Slate::Unary, Slate::Node)
%converts(Slate::Array, Slate::Node)
%converts(Slate::ArrayType, Slate::Type)
%converts(Slate::ArrayType, Slate::Node)
%converts(Slate::MemberAccess, Slate::Node)
%converts(Slate::Call, Slate::Node)
%converts(Slate::PrimitiveType, Slate::Type)
%converts(Slate::PrimitiveType, Slate::Node)
%converts(Slate::Indexing, Slate::Node)
%converts(Slate::OperatorOverload, Slate::Node)
%converts(Slate::Annotation, Slate::Node)
%converts(Slate::Import, Slate::Node)
%converts(Slate::TraitImpl, Slate::Node)
%converts(Slate::Initializer, Slate::Node)
%converts(Slate::InitializerType, Slate::Type)
%converts(Slate::InitializerType, Slate::Node)
%converts(Slate::Deletion, Slate::Node)

%rename(RefactorReplaceOp) Slate::Refactor::ReplaceOp;
%rename(RefactorToolkit) Slate::Refactor::Toolkit;

namespace Slate {

enum class NodeType {
    Document,
    ModelDeclaration,
    VarDeclaration,
    VarAssignment,
    BinaryOp,
    MethodDeclaration,
    Parameter,
    Array,
    ArrayType,
    Constant,
    Call,
    MemberAccess,
    PrimitiveType,
    Unary,
    Indexing,
    OperatorOverload,
    Annotation,
    Import,
    TraitImpl,
    Initializer,
    InitializerType,
    Deletion,
};

struct Token;
class Node;
class Document;
class ModelDeclaration;
class Plugin;
class Error;
class ErrorReporter;

template <typename Element>
using vec = std::vector<Element>;

typedef std::shared_ptr<Slate::Node> NodePtr;
typedef std::shared_ptr<Slate::Document> DocPtr;
typedef std::shared_ptr<Slate::ModelDeclaration> ModelDeclPtr;
typedef std::shared_ptr<Slate::Type> TypePtr;
typedef std::shared_ptr<Slate::VarDeclaration> VarDeclPtr;
typedef std::shared_ptr<Slate::VarAssignment> VarAssignPtr;
typedef std::shared_ptr<Slate::MethodDeclaration> MethodDeclPtr;
typedef std::shared_ptr<Slate::Parameter> ParamPtr;
typedef std::shared_ptr<Slate::Constant> ConstantPtr;
typedef std::shared_ptr<Slate::BinaryOp> BinaryOpPtr;
typedef std::shared_ptr<Slate::Unary> UnaryPtr;
typedef std::shared_ptr<Slate::Array> ArrayPtr;
typedef std::shared_ptr<Slate::ArrayType> ArrayTypePtr;
typedef std::shared_ptr<Slate::MemberAccess> MemberAccessPtr;
typedef std::shared_ptr<Slate::Call> CallPtr;
typedef std::shared_ptr<Slate::PrimitiveType> PrimitiveTypePtr;
typedef std::shared_ptr<Slate::Indexing> IndexingPtr;
typedef std::shared_ptr<Slate::OperatorOverload> OpOverloadPtr;
typedef std::shared_ptr<Slate::Annotation> AnnotationPtr;
typedef std::shared_ptr<Slate::Import> ImportPtr;
typedef std::shared_ptr<Slate::TraitImpl> TraitImplPtr;
typedef std::shared_ptr<Slate::Initializer> InitializerPtr;
typedef std::shared_ptr<Slate::InitializerType> InitializerTypePtr;
typedef std::shared_ptr<Slate::Deletion> DeletionPtr;
typedef std::shared_ptr<Slate::TopologicalPath> TopoPathPtr;

typedef std::vector<Slate::Token> TokenVector;
typedef std::vector<std::string> StringVector;
typedef std::vector<std::shared_ptr<Slate::Plugin>> PluginVector;
typedef std::vector<std::shared_ptr<Slate::Error>> Errors;
typedef std::vector<std::shared_ptr<Slate::Error>> ErrorVector;

} // namespace Slate

namespace Slate::Core {

enum class AnyType { Int, Real, Bool, String, Object, Array, Undefined };

class Any;
class Object;

typedef std::shared_ptr<Slate::Core::Object> ObjectPtr;
typedef std::vector<Slate::Core::Any> AnyVector;
typedef std::vector<std::shared_ptr<Slate::Core::Object>> ObjectVector;

} // namespace Slate::Core

namespace Slate::Refactor {

struct ReplaceOp;

} // namespace Slate::Refactor

namespace Slate::Core::Api {

typedef std::pair<std::shared_ptr<Slate::Document>, std::vector<std::shared_ptr<Slate::Document>>> DocDocListPair;

} // namespace Slate::Core::Api
