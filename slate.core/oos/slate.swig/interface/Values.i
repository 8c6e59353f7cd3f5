namespace Slate::Core {

// An integer chooses `int64_t` whatever its size, so that one beyond 64 bits fails instead of becoming a `Real`.
%typemap(typecheck, precedence=SWIG_TYPECHECK_INT64) int64_t value {
    $1 = PyLong_Check($input) ? 1 : 0;
}
%typemap(typecheck, precedence=SWIG_TYPECHECK_DOUBLE) double value {
    $1 = PyFloat_Check($input) ? 1 : 0;
}

%nodefaultctor Any;
class Any {
  public:
    Any(double value);
    Any(int64_t value);
    Any(bool value);

    static Any fromString(std::string value);
    static Any fromArray(std::vector<Slate::Core::Any> value);
    static Any fromObject(ObjectPtr value);

    bool operator==(Any const & other) const;
    %extend {
        bool operator!=(Any const & other) const {
            return !(*$self == other);
        }
    }

    std::string typeAsString() const;
    static std::string typeToString(AnyType type);
    AnyType getType() const;

    bool isReal() const;
    bool isInt() const;
    bool isBool() const;
    bool isString() const;
    bool isObject() const;
    bool isArray() const;
    bool isUndefined() const;

    double asReal() const;
    int64_t asInt() const;
    bool asBool() const;
    std::string asString() const;
    ObjectPtr asObject() const;
    std::vector<Slate::Core::Any> const & asArray() const;
};

%clear int64_t value;
%clear double value;

class Object {
  public:
    Object();
    explicit Object(std::string name);
    virtual ~Object();

    virtual void on_init();
    virtual void setDynamic(std::string const & key, Any value);
    virtual void extractObjectFieldsTo(std::vector<std::shared_ptr<Slate::Core::Object>> & output) const;
    void extractNestedObjectFieldsTo(std::unordered_set<ObjectPtr> & output) const;
    virtual void extractEntriesTo(std::vector<std::pair<std::string, Any>> & output) const;
    virtual Any getDynamic(std::string const & key) const;
    virtual Any callDynamic(std::string const & key, std::vector<Slate::Core::Any> const & args);
    std::string getName() const;
    std::string getUuid() const;
    virtual void triggerOnInit();
    ModelDeclPtr getType() const;
    std::vector<std::string> const & getTypeList() const;
    ObjectPtr getOwner() const;
    bool isDefault(std::string const & key) const;
    void appendToAnnotations(AnnotationPtr annotation);
    vec<AnnotationPtr> const & getAnnotations() const;
    vec<AnnotationPtr> findAnnotations(std::string const & name) const;

    ObjectPtr getObject(std::string const & key) const;
    double getNumber(std::string const & key) const;
    std::string getString(std::string const & key) const;
    bool getBool(std::string const & key) const;

    std::string toJson(bool follow_refs = false) const;
    std::string __str__() const;
};

%typemap(check) char const *key, char const *className {
    if ($1 == nullptr)
        %argument_nullref("$type", $symname, $argnum);
}

// Natives are functions of C++: what Python registers it was given by a library.
class EvaluatorContext {
  public:
    EvaluatorContext();

    void registerFactory(char const * className, FactoryMethod createMethod);
    void registerStaticMethod(char const * key, StaticMethod static_method);
    void registerBinaryOperatorMethod(char const * key, BinaryOperatorMethod bin_op_method);
    void registerUnaryOperatorMethod(char const * key, UnaryOperatorMethod unary_op_method);
    void registerObject(ObjectPtr object);
    std::optional<FactoryMethod> lookup(std::string className) const;
    Any callStaticMethod(std::string key, std::vector<Slate::Core::Any> args) const;
    Any callBinaryOperator(std::string key, Any lhs, Any rhs) const;
    Any callUnaryOperator(std::string key, Any operand) const;
    std::unordered_set<ObjectPtr> const & getRegisteredObjects() const;
};

} // namespace Slate::Core
