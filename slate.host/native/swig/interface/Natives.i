// Natives that are Python callables. What the library keeps is a weak reference to a holder that belongs to the Python
// object of the context, so that the garbage collector sees who holds whom: a callable may well hold its own context.

%{
using Slate::Core::Any;
using Slate::Core::AnyType;
using Slate::Core::ObjectPtr;

static PyObject* toPython(ObjectPtr const& object) {
    return SWIG_NewPointerObj(new ObjectPtr(object), SWIG_TypeQuery("std::shared_ptr< Slate::Core::Object > *"),
                              SWIG_POINTER_OWN);
}

static PyObject* listOfValues(std::vector<Any> const& values) {
    // Values may be nested deeper than the stack is.
    if (Py_EnterRecursiveCall(" while converting an array") != 0)
        return nullptr;
    auto* const list = listOf(values);
    Py_LeaveRecursiveCall();
    return list;
}

static PyObject* toPython(Any const& value) {
    switch (value.getType()) {
    case AnyType::Int: return PyLong_FromLongLong(value.asInt());
    case AnyType::Real: return PyFloat_FromDouble(value.asReal());
    case AnyType::Bool: return PyBool_FromLong(value.asBool() ? 1 : 0);
    case AnyType::String: return toPython(value.asString());
    case AnyType::Object: return toPython(value.asObject());
    case AnyType::Array: return listOfValues(value.asArray());
    case AnyType::Undefined: break;
    }
    Py_RETURN_NONE;
}

static std::optional<Any> valueFromPython(PyObject* input);

static std::optional<Any> arrayFromPython(PyObject* input) {
    if (Py_EnterRecursiveCall(" while converting a list") != 0)
        return {};
    std::vector<Any> values;
    auto const size = PySequence_Fast_GET_SIZE(input);
    std::optional<Any> element = Any();
    for (Py_ssize_t i = 0; element && i < size; ++i) {
        element = valueFromPython(PySequence_Fast_GET_ITEM(input, i));
        if (element)
            values.push_back(std::move(*element));
    }
    Py_LeaveRecursiveCall();
    return element ? std::optional(Any(std::move(values))) : std::nullopt;
}

/// The shared pointer or value that a Python object of the core's module holds; null if it is no such object.
template <typename Value>
static std::unique_ptr<Value> unwrap(PyObject* input, char const* type_name) {
    void* found = nullptr;
    int memory = 0;
    auto* const type = SWIG_TypeQuery(type_name);
    if (input == Py_None || type == nullptr ||
        !SWIG_IsOK(SWIG_ConvertPtrAndOwn(input, &found, type, 0, &memory)) || found == nullptr)
        return {};
    auto* const value = static_cast<Value*>(found);
    bool const is_made_by_conversion = (memory & SWIG_CAST_NEW_MEMORY) != 0;
    return is_made_by_conversion ? std::unique_ptr<Value>(value) : std::make_unique<Value>(*value);
}

/// Empty, with an exception set, for what has no counterpart in the language.
static std::optional<Any> valueFromPython(PyObject* input) {
    if (input == Py_None)
        return Any();
    if (PyBool_Check(input))
        return Any(input == Py_True);
    if (PyLong_Check(input)) {
        auto const number = PyLong_AsLongLong(input);
        if (number == -1 && PyErr_Occurred() != nullptr)
            return {};
        return Any(static_cast<std::int64_t>(number));
    }
    if (PyFloat_Check(input))
        return Any(PyFloat_AS_DOUBLE(input));
    if (PyUnicode_Check(input)) {
        auto text = textFromPython(input);
        return text ? std::optional(Any(std::move(*text))) : std::nullopt;
    }
    if (PyList_Check(input) || PyTuple_Check(input))
        return arrayFromPython(input);
    if (auto const object = unwrap<ObjectPtr>(input, "std::shared_ptr< Slate::Core::Object > *"))
        return Any(*object);
    if (auto const value = unwrap<Any>(input, "Slate::Core::Any *"))
        return *value;
    PyErr_Format(PyExc_TypeError, "a native cannot answer with a value of type %s", Py_TYPE(input)->tp_name);
    return {};
}

static std::string tracebackText() {
    PyObject* type = nullptr;
    PyObject* value = nullptr;
    PyObject* traceback = nullptr;
    PyErr_Fetch(&type, &value, &traceback);
    PyErr_NormalizeException(&type, &value, &traceback);
    Reference const owned_type(type);
    Reference const owned_value(value);
    Reference const owned_traceback(traceback);
    Reference const module(PyImport_ImportModule("traceback"));
    Reference const lines(module ? PyObject_CallMethod(module.get(), "format_exception", "OOO", type,
                                                       value != nullptr ? value : Py_None,
                                                       traceback != nullptr ? traceback : Py_None)
                                 : nullptr);
    Reference const empty(PyUnicode_FromString(""));
    Reference const joined(lines && empty ? PyUnicode_Join(empty.get(), lines.get()) : nullptr);
    auto const text = joined ? textFromPython(joined.get()) : std::nullopt;
    PyErr_Clear();
    return text.value_or("an exception without a text");
}

/// Throws the exception that is set, as a text with its traceback: the library logs what natives throw.
[[noreturn]] static void throwException() {
    bool const is_interrupt = PyErr_ExceptionMatches(PyExc_KeyboardInterrupt) != 0;
    auto const text = tracebackText();
    // The interrupt is meant for the program: it is raised again once the call of the core is over.
    if (is_interrupt)
        PyErr_SetInterrupt();
    throw std::runtime_error(text);
}

/// What the callable answers; empty if it is gone.
static Reference callNative(SharedReference const& weak_holder, std::vector<Any> const& arguments) {
    Reference const holder(PyObject_CallObject(weak_holder.get(), nullptr));
    if (!holder || holder.get() == Py_None)
        return Reference();
    Reference const callable(PyObject_GetAttrString(holder.get(), "callable"));
    Reference const list(callable ? listOfValues(arguments) : nullptr);
    Reference const tuple(list ? PyList_AsTuple(list.get()) : nullptr);
    Reference result(tuple ? PyObject_CallObject(callable.get(), tuple.get()) : nullptr);
    if (!result)
        throwException();
    return result;
}

/// A callable for the library; `convert` turns the answer into its result.
template <typename Result, typename Convert>
static auto makeNative(PyObject* weak_holder, Convert convert) {
    return [holder = shareReference(weak_holder), convert](std::vector<Any> const& arguments) -> Result {
        if (!Py_IsInitialized())
            return {};
        InterpreterLock const lock;
        ExceptionAside const aside;
        Reference const answer = callNative(holder, arguments);
        if (!answer)
            return {};
        std::optional<Result> result = convert(answer.get());
        if (!result)
            throwException();
        return std::move(*result);
    };
}

static std::optional<ObjectPtr> objectFromPython(PyObject* input) {
    auto const object = unwrap<ObjectPtr>(input, "std::shared_ptr< Slate::Core::Object > *");
    if (object)
        return *object;
    PyErr_Format(PyExc_TypeError, "a factory must answer with an Object, not %s", Py_TYPE(input)->tp_name);
    return {};
}

using Slate::Core::Api::SlateContext;
using Slate::Host::NativeRegistration;

static NativeRegistration* enterStaticMethod(SlateContext const& context, std::string const& key, PyObject* weak_holder) {
    return new NativeRegistration(Slate::Host::registerStaticMethod(context.getEvaluatorContext(), key,
                                                                    makeNative<Any>(weak_holder, valueFromPython)));
}

static NativeRegistration* enterOperator(SlateContext const& context, std::string const& key, PyObject* weak_holder) {
    return new NativeRegistration(Slate::Host::registerOperator(context.getEvaluatorContext(), key,
                                                                makeNative<Any>(weak_holder, valueFromPython)));
}

static NativeRegistration* enterFactory(SlateContext const& context, std::string const& key, PyObject* weak_holder) {
    auto native = makeNative<ObjectPtr>(weak_holder, objectFromPython);
    return new NativeRegistration(Slate::Host::registerFactory(
        context.getEvaluatorContext(), key, [native = std::move(native)] { return native({}); }));
}

%}

%constant std::size_t maximum_natives = Slate::Host::maximum_natives;

namespace Slate::Host {

%rename(_NativeHandle) NativeRegistration;
%nodefaultctor NativeRegistration;
class NativeRegistration {
  public:
    void release();
    bool isActive() const;
    std::size_t getSlot() const;
};

} // namespace Slate::Host

%rename(_enterStaticMethod) enterStaticMethod;
%rename(_enterOperator) enterOperator;
%rename(_enterFactory) enterFactory;
%newobject enterStaticMethod;
%newobject enterOperator;
%newobject enterFactory;
Slate::Host::NativeRegistration * enterStaticMethod(Slate::Core::Api::SlateContext const & context,
                                                    std::string const & key, PyObject * weak_holder);
Slate::Host::NativeRegistration * enterOperator(Slate::Core::Api::SlateContext const & context,
                                                std::string const & key, PyObject * weak_holder);
Slate::Host::NativeRegistration * enterFactory(Slate::Core::Api::SlateContext const & context,
                                               std::string const & key, PyObject * weak_holder);

%pythoncode "interface/natives.py"
