// Arguments and results are converted around the call that `%exception` is about, and this allocates. Therefore each
// method of a module is called through a function that catches as well, with the module's `raiseInPython`. A macro: a
// module that imports another one does not include again what that has included.

%{
#include <iterator>
#include <utility>
%}

%define %guard_methods()
%{
/// The method of one place in the module's table; the interpreter calls it without anything to tell it by.
template <std::size_t place>
struct GuardedMethod {
    static inline PyCFunction method = nullptr;

    static PyObject* call(PyObject* self, PyObject* arguments) {
        try {
            return method(self, arguments);
        } catch (...) {
            raiseInPython();
            return nullptr;
        }
    }
};

template <std::size_t place>
void guardMethod(PyMethodDef& entry) {
    using Guarded = GuardedMethod<place>;
    bool const is_last = entry.ml_meth == nullptr;
    bool const takes_keywords = (entry.ml_flags & METH_KEYWORDS) != 0; // and so has another type
    bool const is_guarded = entry.ml_meth == &Guarded::call;           // by an earlier import
    if (is_last || takes_keywords || is_guarded)
        return;
    Guarded::method = entry.ml_meth;
    entry.ml_meth = &Guarded::call;
}

template <std::size_t... places>
void guardMethods(PyMethodDef* methods, std::index_sequence<places...>) {
    (guardMethod<places>(methods[places]), ...);
}
%}

%init %{
    guardMethods(SwigMethods, std::make_index_sequence<std::size(SwigMethods)>());
%}
%enddef
