// Every wrapper turns what the core throws into an exception of Python: what leaves a wrapper ends the process.

%{
/// Sets the Python exception for the C++ exception that is being handled.
static void raiseInPython() {
    try {
        throw;
    } catch (std::bad_alloc const&) {
        PyErr_NoMemory();
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
        PyErr_SetString(PyExc_RuntimeError, "unknown failure in the core");
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

// `None` in the place of an object that is called or looked at.
%typemap(check) SWIGTYPE *self {
    if ($1 == nullptr)
        %argument_nullref("$type", $symname, $argnum);
}
%typemap(check) std::shared_ptr<Slate::Error> error {
    if ($1 == nullptr)
        %argument_nullref("$type", $symname, $argnum);
}
