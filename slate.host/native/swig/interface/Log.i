%{
/// A reference that may be shared and let go in any thread, and after the interpreter has ended.
using SharedReference = std::shared_ptr<PyObject>;

static SharedReference shareReference(PyObject* object) {
    Py_INCREF(object);
    return SharedReference(object, [](PyObject* shared) {
        if (!Py_IsInitialized())
            return; // nothing is left to be freed
        auto const state = PyGILState_Ensure();
        Py_DECREF(shared);
        PyGILState_Release(state);
    });
}

/// Holds the interpreter for as long as it lives.
class InterpreterLock {
  public:
    InterpreterLock() : state_(PyGILState_Ensure()) {}
    ~InterpreterLock() { PyGILState_Release(state_); }
    InterpreterLock(InterpreterLock const&) = delete;
    InterpreterLock& operator=(InterpreterLock const&) = delete;

  private:
    PyGILState_STATE state_;
};

/// Keeps the exception of the wrapper at work aside, since the core also logs while one is on its way.
class ExceptionAside {
  public:
    ExceptionAside() { PyErr_Fetch(&type_, &value_, &traceback_); }
    ~ExceptionAside() { PyErr_Restore(type_, value_, traceback_); }
    ExceptionAside(ExceptionAside const&) = delete;
    ExceptionAside& operator=(ExceptionAside const&) = delete;

  private:
    PyObject* type_ = nullptr;
    PyObject* value_ = nullptr;
    PyObject* traceback_ = nullptr;
};

/// Ends an exception where nobody can catch it.
static void dropException(PyObject* where) {
    if (PyErr_ExceptionMatches(PyExc_KeyboardInterrupt) == 0) {
        PyErr_WriteUnraisable(where);
        return;
    }
    // Meant for the program, which is interrupted once the call of the core is over.
    PyErr_Clear();
    PyErr_SetInterrupt();
}

static void setCallback(PyObject* callback) {
    if (callback == Py_None) {
        Slate::Host::setLogCallback({});
        return;
    }
    auto const shared = shareReference(callback);
    Slate::Host::setLogCallback([shared](std::string_view level, std::string_view text, std::string_view function) {
        if (!Py_IsInitialized())
            return;
        InterpreterLock const lock;
        ExceptionAside const aside;
        Reference const arguments(tupleOf(level, text, function));
        Reference const result(arguments ? PyObject_CallObject(shared.get(), arguments.get()) : nullptr);
        if (!result)
            dropException(shared.get());
    });
}
%}

namespace Slate::Host {

%feature("docstring") setLogLevel "setLogLevel(name: str) -> None

Lets through this level of the log and what is more important.

:param name: \"trace\", \"debug\", \"info\", \"warning\", \"error\", \"critical\" or \"off\"
:raises ValueError: for another name";
void setLogLevel(std::string const & name);

%feature("docstring") logToStandardError "logToStandardError() -> None

Writes the log to standard error.";
void logToStandardError();

%feature("docstring") resetLog "resetLog() -> None

Writes the log to standard output and from \"info\" on, as it is to begin with.";
void resetLog();

%feature("docstring") exitOnInterrupt "exitOnInterrupt() -> None

Lets an interrupt from the keyboard (SIGINT) end the process at once with status 130, also in the middle of a call of
the core. Nothing is cleaned up or flushed on the way.";
void exitOnInterrupt();

} // namespace Slate::Host

%rename(_setLogCallback) setCallback;
void setCallback(PyObject * callback);

%pythoncode %{
def setLogCallback(callback):
    """Hands each line of the log to a function instead of writing it.

    What the function itself causes to be logged is dropped; what it raises is printed by `sys.unraisablehook`.

    :param callback: called with the level, the text and the name of the function that wrote the line
    :raises TypeError: if it cannot be called
    """
    if not callable(callback):
        raise TypeError("expected something that can be called")
    _setLogCallback(callback)
    # The core may have something to log for longer than Python code can run.
    _atexit.unregister(_setLogCallback)
    _atexit.register(_setLogCallback, None)
%}
