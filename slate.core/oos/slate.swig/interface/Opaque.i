// Values without a wrapper: Python can hold them and pass them on, and frees them.

%fragment("Opaque", "header") {
template <typename Value>
static PyObject* deleteOpaque(PyObject*, PyObject* object) {
    delete static_cast<Value*>(reinterpret_cast<SwigPyObject*>(object)->ptr);
    Py_RETURN_NONE;
}

/// Hands a copy of the value over to Python. The generator knows how to free classes with a wrapper alone, so a
/// type without one gets its destructor here.
template <typename Value>
static PyObject* giveToPython(Value value, swig_type_info* type) {
    static PyMethodDef method = {"delete", deleteOpaque<Value>, METH_O, nullptr};
    static SwigPyClientData opaque = {};
    if (type->clientdata == nullptr) {
        opaque.destroy = PyCFunction_New(&method, nullptr);
        if (opaque.destroy == nullptr)
            return nullptr;
        type->clientdata = &opaque;
    }
    bool const is_wrapped = static_cast<SwigPyClientData*>(type->clientdata)->klass != nullptr;
    return SWIG_InternalNewPointerObj(new Value(std::move(value)), type,
                                      SWIG_POINTER_OWN | (is_wrapped ? 0 : SWIG_POINTER_NOSHADOW));
}
}

// By value, and by const reference too: as a copy it stays what it is when its owner goes or changes.
%typemap(out, fragment="Opaque") SWIGTYPE {
    $result = giveToPython<$1_ltype>($1, $&1_descriptor);
}
%typemap(out, fragment="Opaque") SWIGTYPE const & {
    $result = giveToPython<$*1_ltype>(*$1, $1_descriptor);
}

// Shared pointers to a class without a wrapper. An empty one is `None`, in both directions.
%define %opaque_shared_ptr(TYPE)
%shared_ptr(TYPE)
%typemap(out, fragment="Opaque") std::shared_ptr<TYPE> {
    std::shared_ptr<TYPE> const& pointer = $1;
    $result = pointer ? giveToPython(pointer, $descriptor(std::shared_ptr<TYPE> *)) : SWIG_Py_Void();
}
%typemap(out, fragment="Opaque") std::shared_ptr<TYPE> &, std::shared_ptr<TYPE> const & {
    $result = *$1 ? giveToPython<std::shared_ptr<TYPE>>(*$1, $descriptor(std::shared_ptr<TYPE> *)) : SWIG_Py_Void();
}
%enddef

// Where C++ converts one shared pointer into the other, so does a call from Python.
%define %converts(FROM, TO)
%types(std::shared_ptr<FROM> = std::shared_ptr<TO>) %{
    *newmemory = SWIG_CAST_NEW_MEMORY;
    return new std::shared_ptr<TO>(*static_cast<std::shared_ptr<FROM>*>($from));
%}
%enddef

// The classes that Python sees stand in the module of Python code, which registers them, and their destructors with
// them. For whoever uses this module alone there are plain ones.
%fragment("PlainClasses", "header") {
static bool registerPlainClass(PyObject* module, std::string const& name) {
    PyObject* const plain = PyObject_CallFunction(reinterpret_cast<PyObject*>(&PyType_Type), "s(){}", name.c_str());
    if (plain == nullptr)
        return false;
    if (auto* const destructor = PyObject_GetAttrString(module, ("delete_" + name).c_str())) {
        PyObject_SetAttrString(plain, "__swig_destroy__", destructor);
        Py_DECREF(destructor);
    } else {
        PyErr_Clear(); // a class of static functions alone
    }
    PyObject* const done = PyObject_CallMethod(module, (name + "_swigregister").c_str(), "O", plain);
    Py_DECREF(plain);
    Py_XDECREF(done);
    return done != nullptr;
}

static bool registerPlainClasses(PyObject* module) {
    static std::string const suffix = "_swigregister";
    PyObject* const names = PyDict_Keys(PyModule_GetDict(module));
    if (names == nullptr)
        return false;
    bool all_done = true;
    for (Py_ssize_t i = 0; i < PyList_GET_SIZE(names); ++i) {
        char const* const text = PyUnicode_AsUTF8(PyList_GET_ITEM(names, i));
        std::string const name = text == nullptr ? std::string() : text;
        if (name.size() > suffix.size() && name.ends_with(suffix))
            all_done = registerPlainClass(module, name.substr(0, name.size() - suffix.size())) && all_done;
    }
    Py_DECREF(names);
    return all_done;
}
}
%fragment("PlainClasses");

%init %{
    if (!registerPlainClasses(m))
        return nullptr;
%}
