// Every wrapper turns what the library throws into an exception of Python, as the core's module does; arguments that
// make no sense are a `ValueError`.

%{
/// Sets the Python exception for the C++ exception that is being handled.
static void raiseInPython() {
    try {
        throw;
    } catch (std::bad_alloc const&) {
        PyErr_NoMemory();
    } catch (std::invalid_argument const& failure) {
        PyErr_SetString(PyExc_ValueError, failure.what());
    } catch (std::out_of_range const& failure) {
        PyErr_SetString(PyExc_IndexError, failure.what());
    } catch (std::system_error const& failure) {
        // With the number Python picks the class: `FileNotFoundError`, `PermissionError` and so on.
        if (auto* const arguments = Py_BuildValue("(is)", failure.code().value(), failure.what())) {
            PyErr_SetObject(PyExc_OSError, arguments);
            Py_DECREF(arguments);
        }
    } catch (std::exception const& failure) {
        PyErr_SetString(PyExc_RuntimeError, failure.what());
    } catch (...) {
        PyErr_SetString(PyExc_RuntimeError, "unknown failure in the library");
    }
}
%}

%exception {
    try {
        $action
    } catch (...) {
        raiseInPython();
        SWIG_fail;
    }
}

// `None` in the place of what is looked at.
%typemap(check) std::shared_ptr<Slate::Document> const & document,
                std::shared_ptr<Slate::ModelDeclaration> const & model {
    if (!*$1)
        SWIG_exception_fail(SWIG_ValueError, "in method '$symname', argument $argnum must not be None");
}
