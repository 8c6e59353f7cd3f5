"""What hosts rely on: every constant with its value, every function, every class with its base and members."""

CONSTANTS = {"SHARED_PTR_DISOWN": 0} | {
    f"{enumeration}_{name}": value
    for enumeration, names in {
        "NodeType": "Document ModelDeclaration VarDeclaration VarAssignment BinaryOp MethodDeclaration Parameter"
        " Array ArrayType Constant Call MemberAccess PrimitiveType Unary Indexing OperatorOverload Annotation"
        " Import TraitImpl Initializer InitializerType Deletion",
        "AnyType": "Int Real Bool String Object Array Undefined",
    }.items()
    for value, name in enumerate(names.split())
}

# With the number of arguments, all of which are required.
FUNCTIONS = {
    "loadModelFromFile": 3,
    "loadModelFromString": 3,
    "loadModelFromDocument": 3,
    "analyzeAndEvaluate": 3,
    "analyze": 2,
    "parseFromFile": 2,
    "parseFromString": 2,
    "registerPlugin": 2,
    "getRegisteredPlugins": 1,
}

NODE_KINDS = (
    "Document ModelDeclaration VarDeclaration VarAssignment MethodDeclaration Parameter Constant BinaryOp Unary Array"
    " ArrayType MemberAccess Call PrimitiveType Type Indexing OperatorOverload Annotation Import TraitImpl"
    " Initializer InitializerType Deletion"
).split()

CLASSES = {
    "Token": """type lexeme line column Uninitialized Invalid Identifier _None Keyword Bool Real Int String
        extractString __eq__""",
    "Node": " ".join(f"is{kind} as{kind}" for kind in NODE_KINDS)
    + """ getNodeType isValid setValid accept unbind segmentsAsString segmentsAsStringSkipLast
        segmentsUpToAsString""",
    "Document": """create asDocument accept unbind appendToNamespace getNamespace copyNamespace joinNamespace
        joinNamespaceWithPrefix joinNamespaceSkipFirst compareNamespace cacheNsLookup nsLookup nsLookupConstOrVar
        copyNsCacheFrom clearNsCache appendToMembers getMembers removeMember removeInvalidMembers findImports
        findMembers findFirstMemberOfType findFirstMember findLastMemberOfType getSourceId setSourceId""",
    "ModelDeclaration": """create asModelDeclaration asType accept isAssignableTo toString toKey unbind
        getQualifierToken isConst isTrait getNameToken getName getNameWithNamespace getNameWithNamespaceWithPrefix
        getNameWithNamespaceSkipFirst getExtendsQualifierToken isExternal extendsSegmentsAsString
        getExtendsSegments replaceExternalExtendsSegments getExtends setExtends appendToAnnotations getAnnotations
        findModelAnnotations appendToTraits getTraits appendToDeletions getDeletions appendToMembers extendMembers
        getMembers getOuterMembers collapseMembers removeMember removeInvalidMembers findMembers findMembersOfType
        findAttributesInOrder findFirstMemberOfType findFirstMemberWithType findFirstMemberExcludeType
        findFirstMember countMembers isEmpty isInitializable setIsNewSymbol lookupDeclaration
        lookupDeclarationFromSegments hasNewSymbol setIsExtendedSymbol isExtendedSymbol getOwningDocument
        setOwningDocument getSourceIdOrDefault getTopologicalSort setTopologicalSort""",
    "Any": """__eq__ __ne__ fromString fromArray fromObject typeAsString typeToString getType isReal isInt isBool
        isString isObject isArray isUndefined asReal asInt asBool asString asObject asArray""",
    "Object": """on_init setDynamic extractObjectFieldsTo extractNestedObjectFieldsTo extractEntriesTo getDynamic
        callDynamic getName getUuid triggerOnInit getType getTypeList getOwner isDefault appendToAnnotations
        getAnnotations findAnnotations getObject getNumber getString getBool toJson __str__""",
    "Error": "create accept getErrorCode getLine getColumn getSourceId",
    "CycleFoundError": "create accept getModelName getCyclicNodesAsString",
    "StringParameterError": "create accept getStringParameter",
    "MissingAssignmentError": "create getVarDeclarationPath",
    "CircularDependency": "create getCycleAsString",
    "ModelDeclarationNotFound": "create getModelName",
    "TypeNotFound": "create getTypeSegments",
    "VariableNotFound": "create",
    "MethodNotFound": "create",
    "MemberNotFound": "create",
    "SymbolAlreadyDefined": "create",
    "SymbolAlreadyAssigned": "create",
    "ExpectedTrait": "create",
    "NoPluginForImportedFile": "create",
    "ImportedFileNotFound": "create",
    "FileNotFound": "create",
    "ModelNotInitializable": "create",
    "DependencyNotSatisfied": "create",
    "ErrorReporter": "reportError begin end getErrorCount getErrors",
    "EvaluatorContext": """registerFactory registerStaticMethod registerBinaryOperatorMethod
        registerUnaryOperatorMethod registerObject lookup callStaticMethod callBinaryOperator callUnaryOperator
        getRegisteredObjects""",
    "SlateContext": """deriveBundlePaths getErrors hasErrors getRegisteredObjects release
        setNestedDeclarationsAllowed isNestedDeclarationsAllowed""",
    "BundleConfig": "name config_file_path slate_files version dependencies resolved_dependencies",
    "DocumentContext": "bundle path source document",
    "BundleLookup": "bundle_name documents",
    "AnalysisContext": """primitive_type_real primitive_type_string primitive_type_int primitive_type_bool
        findAllDocuments getBundles cacheNsLookups clearNsLookups resolveNsPaths initSymbolTree getSymbolTree
        findModelDeclaration findType findModelDeclarationByNameIn findMembersInAllDocuments findTypeOf
        findFirstMissingType findBinaryOperator findUnaryOperator findTopoNodesFor getErrorReporter countSymbols
        release""",
    "RefactorReplaceOp": "source_id from_line from_column end_line end_column new_content",
    "RefactorToolkit": "renameModel moveModel moveAndRenameModel renameNamespace renameAttribute renameMethod",
    "Plugin": "parse extensions setPrecision keyShouldBeSource",
    "DocDocListPair": "first second",
}

BASES = {
    "Document": "Node",
    "ModelDeclaration": "Node",
    "CycleFoundError": "Error",
    "StringParameterError": "Error",
} | {
    name: "StringParameterError"
    for name in """MissingAssignmentError CircularDependency ModelDeclarationNotFound TypeNotFound VariableNotFound
        MethodNotFound MemberNotFound SymbolAlreadyDefined SymbolAlreadyAssigned ExpectedTrait
        NoPluginForImportedFile ImportedFileNotFound FileNotFound ModelNotInitializable
        DependencyNotSatisfied""".split()
}

# Made by factories or by the core alone.
WITHOUT_CONSTRUCTOR = set(BASES) | {"Node", "AnalysisContext", "Plugin", "RefactorToolkit", "Error"}

VECTORS = """TokenVector DocumentVector ObjectVector AnyVector StringVector DoubleVector BoolVector UIntVector IntVector
    PluginVector ReplaceOpVector ErrorVector""".split()

VECTOR_MEMBERS = """iterator __nonzero__ __bool__ __len__ __getslice__ __setslice__ __delslice__ __delitem__ __getitem__
    __setitem__ pop append empty size swap begin end rbegin rend clear get_allocator pop_back erase push_back front back
    assign resize insert reserve capacity""".split()

# What the generator adds to classes.
GENERATED = {"thisown", "this", "__iter__", "__swig_destroy__"}

# Beyond the members above: a pair also unpacks.
BEYOND = {
    "DocDocListPair": {"__len__", "__getitem__", "__setitem__"},
}
