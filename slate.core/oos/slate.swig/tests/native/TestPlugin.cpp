// A small extension of its own, as hosts with native code have one: what only such code can make, handed to
// Python as objects of the core's module through the types that both share at run time.

#define PY_SSIZE_T_CLEAN
#include "slate/Document.h"
#include "slate/ErrorReporter.h"
#include "slate/EvaluatorContext.h"
#include "slate/Import.h"
#include "slate/LoadErrors.h"
#include "slate/Plugin.h"

#include <Python.h>
#include <memory>
#include <string>
#include <swigpyrun.h>
#include <utility>

namespace {

using namespace Slate;

class TestPlugin : public Plugin {
  public:
    static int live_count;

    explicit TestPlugin(std::string extension) : extension_(std::move(extension)) { ++live_count; }

    ~TestPlugin() override { --live_count; }

    DocPtr parse(std::string const& key, ImportPtr import_node, ErrorReporter& error_reporter) override {
        if (key.find("broken") == std::string::npos)
            return Document::create(key, {});
        auto const& place = import_node->getPathToken();
        error_reporter.reportError(FileNotFound::create(place.line, place.column, "source", key));
        return nullptr;
    }

    StringVector extensions() override { return {extension_, extension_ + std::to_string(precision_)}; }

    void setPrecision(int precision) override { precision_ = precision; }

    bool keyShouldBeSource() override { return false; }

  private:
    std::string extension_;
    int precision_ = 0;
};

int TestPlugin::live_count = 0;

// NOLINTBEGIN(performance-unnecessary-value-param): the types of natives have their arguments by value
Core::Any twice(Core::AnyVector arguments) { return Core::Any(2 * arguments.at(0).asReal()); }

Core::Any minus(Core::Any lhs, Core::Any rhs) { return Core::Any(lhs.asReal() - rhs.asReal()); }

Core::Any negative(Core::Any operand) { return Core::Any(-operand.asReal()); }

// NOLINTEND(performance-unnecessary-value-param)

Core::ObjectPtr make() { return std::make_shared<Core::Object>("made"); }

/// The functions stay for the whole run, so Python does not own what points to them.
template <typename Function>
PyObject* functionToPython(Function* function, char const* type) {
    static Function* kept = nullptr;
    kept = function;
    return SWIG_NewPointerObj(&kept, SWIG_TypeQuery(type), 0);
}

PyObject* plugin(PyObject* /*module*/, PyObject* extension) {
    auto const made = std::make_shared<TestPlugin>(PyUnicode_AsUTF8(extension));
    return SWIG_NewPointerObj(new std::shared_ptr<Plugin>(made),
                              SWIG_TypeQuery("std::shared_ptr< Slate::Plugin > *"), SWIG_POINTER_OWN);
}

PyObject* livePlugins(PyObject* /*module*/, PyObject* /*none*/) {
    return PyLong_FromLong(TestPlugin::live_count);
}

PyObject* natives(PyObject* /*module*/, PyObject* /*none*/) {
    return Py_BuildValue("(NNNN)", functionToPython(twice, "StaticMethod *"),
                         functionToPython(minus, "BinaryOperatorMethod *"),
                         functionToPython(negative, "UnaryOperatorMethod *"),
                         functionToPython(make, "FactoryMethod *"));
}

} // namespace

// NOLINTNEXTLINE(bugprone-reserved-identifier,readability-identifier-naming): the interpreter asks for it
PyMODINIT_FUNC PyInit__TestPlugin() {
    static PyMethodDef methods[] = {
        {"plugin", plugin, METH_O, "A plug-in for files with that extension."},
        {"livePlugins", livePlugins, METH_NOARGS, "How many plug-ins there are."},
        {"natives", natives, METH_NOARGS, "A static method, a binary and a unary operator, and a factory."},
        {nullptr, nullptr, 0, nullptr},
    };
    static PyModuleDef definition = {
        PyModuleDef_HEAD_INIT, "_TestPlugin", nullptr, -1, methods, nullptr, nullptr, nullptr, nullptr};
    return PyModule_Create(&definition);
}
