// Paths, optional texts, and texts that a function consumes.

%fragment("PathFromPython", "header") {
/// The path of a Python string in `path`; otherwise sets an exception.
static bool pathFromPython(PyObject* input, std::filesystem::path& path) {
    if (!PyUnicode_Check(input)) {
        PyErr_SetString(PyExc_TypeError, "Expected a string");
        return false;
    }
    Py_ssize_t size = 0;
    char const* const text = PyUnicode_AsUTF8AndSize(input, &size);
    if (text == nullptr)
        return false;
    path = std::filesystem::path(std::string(text, static_cast<std::size_t>(size)));
    return true;
}
}

%typemap(in, fragment="PathFromPython") std::filesystem::path const & (std::filesystem::path path),
                                        std::filesystem::path * (std::filesystem::path path) {
    if (!pathFromPython($input, path))
        SWIG_fail;
    $1 = &path;
}
%typemap(in, fragment="PathFromPython") std::filesystem::path {
    std::filesystem::path path;
    if (!pathFromPython($input, path))
        SWIG_fail;
    $1 = path;
}
%typemap(typecheck, precedence=SWIG_TYPECHECK_STRING) std::filesystem::path, std::filesystem::path const & {
    $1 = PyUnicode_Check($input) ? 1 : 0;
}
%typemap(out, fragment="SWIG_FromCharPtrAndSize") std::filesystem::path {
    std::filesystem::path const& path = $1;
    $result = SWIG_FromCharPtrAndSize(path.native().data(), path.native().size());
}
%typemap(out, fragment="SWIG_FromCharPtrAndSize") std::filesystem::path const &, std::filesystem::path * {
    $result = SWIG_FromCharPtrAndSize($1->native().data(), $1->native().size());
}

%typemap(in, fragment="SWIG_AsPtr_std_string") std::optional<std::string> {
    // Never left out: the generator's variable is a wrapper that is no optional until it is assigned one.
    $1 = std::optional<std::string>();
    if ($input != Py_None) {
        std::string* text = nullptr;
        int const res = SWIG_AsPtr_std_string($input, &text);
        if (!SWIG_IsOK(res) || text == nullptr)
            %argument_fail(text == nullptr ? SWIG_TypeError : res, "$type", $symname, $argnum);
        $1 = std::optional<std::string>(*text);
        if (SWIG_IsNewObj(res))
            delete text;
    }
}

%typemap(in, fragment="SWIG_AsPtr_std_string") std::string && (std::string consumed) {
    std::string* text = nullptr;
    int const res = SWIG_AsPtr_std_string($input, &text);
    if (!SWIG_IsOK(res) || text == nullptr)
        %argument_fail(text == nullptr ? SWIG_TypeError : res, "$type", $symname, $argnum);
    consumed = *text;
    if (SWIG_IsNewObj(res))
        delete text;
    $1 = &consumed;
}
%typemap(freearg) std::string && ""
%typemap(typecheck, precedence=SWIG_TYPECHECK_STRING) std::string && {
    $1 = PyUnicode_Check($input) ? 1 : 0;
}
