// Objects that Python holds keep the context of their load alive. Owners and parts hold one another, and it is the
// context that takes them apart when it goes: objects that outlived it would stay for good.

%fragment("Contexts", "header") {
static char const context_attribute[] = "_context";

/// Lets `result` keep the context alive. What is no object of a class with attributes is left alone.
static void keepContext(PyObject* result, PyObject* context) {
    if (result != nullptr && result != Py_None && PyObject_SetAttrString(result, context_attribute, context) != 0)
        PyErr_Clear();
}

/// Lets `result` keep what `source`, of which it was read, keeps.
static void keepContextOf(PyObject* result, PyObject* source) {
    PyObject* const attributes = PyObject_GenericGetDict(source, nullptr);
    if (attributes == nullptr) {
        PyErr_Clear();
        return;
    }
    if (PyObject* const context = PyDict_GetItemString(attributes, context_attribute))
        keepContext(result, context);
    Py_DECREF(attributes);
}
}
%fragment("Contexts");

%typemap(ret) Slate::Core::ObjectPtr loadModelFromFile, Slate::Core::ObjectPtr loadModelFromString,
              Slate::Core::ObjectPtr loadModelFromDocument {
    keepContext($result, swig_obj[2]);
}
%typemap(ret) Slate::Core::ObjectPtr analyzeAndEvaluate,
              std::vector<std::shared_ptr<Slate::Core::Object>> getRegisteredObjects {
    keepContext($result, swig_obj[0]);
}
%typemap(ret) Slate::Core::ObjectPtr getObject, Slate::Core::ObjectPtr getOwner, Slate::Core::ObjectPtr asObject,
              Slate::Core::Any getDynamic, Slate::Core::Any callDynamic, std::vector<Slate::Core::Any> const & asArray {
    keepContextOf($result, swig_obj[0]);
}

%typemap(ret) std::shared_ptr<Slate::Core::Object> pop, Slate::Core::Any pop {
    keepContextOf($result, swig_obj[0]);
}
// The generator has a `ret` of its own for elements.
%typemap(out) Slate::Core::Any const &, Slate::Core::Any & __getitem__ {
    $result = SWIG_NewPointerObj(new Slate::Core::Any(*$1), $1_descriptor, SWIG_POINTER_OWN);
    keepContextOf($result, swig_obj[0]);
}
%typemap(out) std::shared_ptr<Slate::Core::Object> const & __getitem__, std::shared_ptr<Slate::Core::Object> & __getitem__,
              std::shared_ptr<Slate::Core::Object> const & front, std::shared_ptr<Slate::Core::Object> & front,
              std::shared_ptr<Slate::Core::Object> const & back, std::shared_ptr<Slate::Core::Object> & back {
    auto* const copy = *$1 ? new std::shared_ptr<Slate::Core::Object>(*$1) : nullptr;
    $result = SWIG_NewPointerObj(copy, $descriptor(std::shared_ptr<Slate::Core::Object> *), SWIG_POINTER_OWN);
    keepContextOf($result, swig_obj[0]);
}
