// Evaluated objects as plain Python values, a whole tree in one call.

%{
#include "slate/Annotation.h"
#include "slate/AnnotationValue.h"
#include "slate/ModelDeclaration.h"
#include "slate/Object.h"
#include "slate/TraitImpl.h"
#include "slate/VarAssignment.h"

#include <algorithm>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <utility>
#include <vector>

namespace {

/// Thrown where a Python exception is pending.
struct PythonFailure {};

/// Takes over a new reference.
Reference checked(PyObject* reference) {
    if (reference == nullptr)
        throw PythonFailure();
    return Reference(reference);
}

void setItem(PyObject* dictionary, PyObject* key, Reference const& value) {
    if (PyDict_SetItem(dictionary, key, value.get()) != 0)
        throw PythonFailure();
}

void setItem(PyObject* dictionary, char const* key, Reference const& value) {
    if (PyDict_SetItemString(dictionary, key, value.get()) != 0)
        throw PythonFailure();
}

void append(PyObject* list, Reference const& value) {
    if (PyList_Append(list, value.get()) != 0)
        throw PythonFailure();
}

/// In which order people read the attributes of a model: as they are declared, those of a base first, those of traits
/// behind.
class DeclaredOrder {
  public:
    /// The names, each at the place where it counts; a name may come twice.
    std::vector<std::string> const& of(Slate::ModelDeclPtr const& model) {
        auto const [known, is_new] = names_.try_emplace(model.get());
        if (is_new && model) {
            append(known->second, *model);
            std::unordered_set<Slate::ModelDeclaration const*> seen;
            for (auto base = model; base && seen.insert(base.get()).second; base = base->getExtends()) {
                for (auto const& trait : base->getTraits()) {
                    if (auto const target = trait->getTraitDeclaration())
                        append(known->second, *target);
                }
            }
        }
        return known->second;
    }

  private:
    static void append(std::vector<std::string>& names, Slate::ModelDeclaration const& model) {
        for (auto const& attribute : model.findAttributesInOrder())
            names.push_back(attribute->getName());
    }

    std::unordered_map<Slate::ModelDeclaration const*, std::vector<std::string>> names_;
};

/// Fills the records of objects, one at a time, so that the depth of the tree is no depth of the stack.
class ObjectTreeReader {
  public:
    Reference read(Slate::Core::ObjectPtr const& root) {
        recordOf(root);
        for (std::size_t i = 0; i < objects_.size(); ++i)
            fill(objects_[i], PyList_GET_ITEM(records_.get(), static_cast<Py_ssize_t>(i)));
        return std::move(records_);
    }

  private:
    /// The record of an object, empty as long as its turn has not come.
    Reference recordOf(Slate::Core::ObjectPtr const& object) {
        auto const [known, is_new] = indices_.emplace(object.get(), objects_.size());
        if (is_new) {
            append(records_.get(), checked(PyDict_New()));
            objects_.push_back(object);
        }
        auto* const record = PyList_GET_ITEM(records_.get(), static_cast<Py_ssize_t>(known->second));
        Py_INCREF(record);
        return Reference(record);
    }

    Reference valueToPython(Slate::Core::Any const& value) {
        if (value.isObject() && value.asObject())
            return recordOf(value.asObject());
        return value.isArray() ? arrayToPython(value.asArray()) : checked(toPython(value));
    }

    Reference arrayToPython(std::vector<Slate::Core::Any> const& array) {
        Reference list = checked(PyList_New(0));
        for (auto const& element : array)
            append(list.get(), valueToPython(element));
        return list;
    }

    /// What is declared nowhere, such as a variable, comes last.
    std::vector<std::pair<std::string, Slate::Core::Any>> inDeclaredOrder(Slate::Core::Object const& object) {
        std::vector<std::pair<std::string, Slate::Core::Any>> entries;
        object.extractEntriesTo(entries);
        std::unordered_map<std::string_view, std::size_t> ranks;
        for (auto const& name : order_.of(object.getType()))
            ranks.try_emplace(name, ranks.size());
        auto const rank = [&ranks](auto const& entry) {
            auto const found = ranks.find(entry.first);
            return found == ranks.end() ? ranks.size() : found->second;
        };
        std::ranges::stable_sort(entries, {}, rank);
        return entries;
    }

    /// By value: the list of objects grows meanwhile.
    void fill(Slate::Core::ObjectPtr object, PyObject* record) {
        Reference const values = checked(PyDict_New());
        for (auto const& [key, value] : inDeclaredOrder(*object))
            setItem(values.get(), text(key).get(), valueToPython(value));
        Reference const annotations = checked(PyDict_New());
        for (auto const& annotation : object->getAnnotations()) {
            Reference const name = text(annotation->getName());
            // Of two with one name the nearer stands first, and counts.
            if (PyDict_Contains(annotations.get(), name.get()) == 0)
                setItem(annotations.get(), name.get(), valueToPython(Slate::Core::valueOf(*annotation)));
        }
        setItem(record, "name", text(object->getName()));
        setItem(record, "uuid", text(object->getUuid()));
        setItem(record, "model", text(object->getType() ? object->getType()->getNameWithNamespace(".") : ""));
        setItem(record, "values", values);
        setItem(record, "annotations", annotations);
    }

    static Reference text(std::string const& text) { return checked(::toPython(std::string_view(text))); }

    DeclaredOrder order_;
    Reference records_ = checked(PyList_New(0));
    std::vector<Slate::Core::ObjectPtr> objects_;
    std::unordered_map<Slate::Core::Object const*, std::size_t> indices_;
};

PyObject* readObjectTree(Slate::Core::ObjectPtr const& root) {
    if (!root)
        throw std::invalid_argument("an object is needed");
    try {
        return ObjectTreeReader().read(root).release();
    } catch (PythonFailure const&) {
        return nullptr;
    }
}

} // namespace
%}

%feature("docstring") readObjectTree "
readObjectTree(root: Object) -> list[dict[str, Any]]

All objects that can be reached from `root`, which comes first, each once: dictionaries with the keys `name`, `uuid`,
`model`, `values`, in the order in which the attributes are declared, and `annotations`. A value is a plain Python
value, a list of them, `None` where there is none, or for an object its dictionary itself, so that what is one object in
the core is one dictionary here.
";
PyObject* readObjectTree(std::shared_ptr<Slate::Core::Object> const& root);
