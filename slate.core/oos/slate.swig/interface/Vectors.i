// The containers. What they answer with is a copy, so that an element stays what it is when its vector grows or goes.

%{
namespace swig {

/// Where a slice begins and ends in a sequence, as lists have it. It goes before the generator's own template, by
/// which a slice that begins behind the end is the whole sequence.
inline void slice_adjust(std::ptrdiff_t i, std::ptrdiff_t j, Py_ssize_t step, std::size_t size, std::ptrdiff_t& begin,
                         std::ptrdiff_t& end, bool /*insert*/ = false) {
    if (step == 0)
        throw std::invalid_argument("slice step cannot be zero");
    auto const count = static_cast<std::ptrdiff_t>(size);
    auto const lowest = std::ptrdiff_t(step > 0 ? 0 : -1);
    auto const highest = step > 0 ? count : count - 1;
    begin = std::clamp(i, lowest, highest);
    end = std::clamp(j, lowest, highest);
    // Nothing lies between an end and what comes behind it.
    end = step > 0 ? std::max(begin, end) : std::min(begin, end);
}

} // namespace swig
%}

// The generator's own template reads the elements while it changes the vector, of which they may be.
%fragment("SetSlice", "header", fragment="SwigPySequence_Base") {
namespace swig {
template <typename Element>
void setslice(std::vector<Element>* vector, std::ptrdiff_t i, std::ptrdiff_t j, Py_ssize_t step,
              std::vector<Element> const& elements) {
    using Vector = std::vector<Element>;
    if (vector == &elements)
        setslice<Vector, std::ptrdiff_t, Vector>(vector, i, j, step, Vector(elements));
    else
        setslice<Vector, std::ptrdiff_t, Vector>(vector, i, j, step, elements);
}
}
}
%fragment("SetSlice");

// An empty pointer among others is `None`, for an iteration and in a list that becomes a vector too.
%fragment("SharedPtrFromElement", "header", fragment="StdTraits") {
namespace swig {
template <typename Type>
struct traits_from<std::shared_ptr<Type>> {
    static PyObject* from(std::shared_ptr<Type> const& element) {
        using Pointer = std::shared_ptr<Type>;
        return element ? traits_from_ptr<Pointer>::from(new Pointer(element), 1) : SWIG_Py_Void();
    }
};

template <typename Type>
struct traits_asptr<std::shared_ptr<Type>> {
    static int asptr(PyObject* object, std::shared_ptr<Type>** result) {
        using Pointer = std::shared_ptr<Type>;
        void* found = nullptr;
        int new_memory = 0;
        int const res = SWIG_ConvertPtrAndOwn(object, result == nullptr ? nullptr : &found, type_info<Pointer>(), 0,
                                              &new_memory);
        if (!SWIG_IsOK(res) || result == nullptr)
            return res;
        *result = found == nullptr ? new Pointer() : static_cast<Pointer*>(found);
        return found == nullptr || (new_memory & SWIG_CAST_NEW_MEMORY) != 0 ? SWIG_AddNewMask(res) : res;
    }
};
}
}
%fragment("SharedPtrFromElement");

%typemap(out) Slate::Token const &, Slate::Refactor::ReplaceOp const &, Slate::Token & __getitem__,
              Slate::Refactor::ReplaceOp & __getitem__ {
    $result = SWIG_NewPointerObj(new $*1_ltype(*$1), $1_descriptor, SWIG_POINTER_OWN);
}

// A vector that is a field is shared with the object it stands in, and keeps that alive.
%define %field_vector(TYPE, FIELD)
%typemap(out) TYPE *FIELD {
    $result = SWIG_NewPointerObj($1, $1_descriptor, 0);
    if ($result == nullptr || PyObject_SetAttrString($result, "_owner", swig_obj[0]) != 0)
        SWIG_fail;
}
%enddef
%field_vector(%arg(std::vector<std::shared_ptr<Slate::Document>>), second)
%field_vector(%arg(std::vector<Slate::Token>), dependencies)

// One without a wrapper is copied.
%typemap(out, fragment="Opaque") std::vector<std::filesystem::path> *slate_files,
                                 std::vector<Slate::Bundle::BundleConfig> *resolved_dependencies,
                                 std::vector<std::shared_ptr<Slate::DocumentContext>> *documents {
    $result = giveToPython<$*1_ltype>(*$1, $1_descriptor);
}

%define %vector(NAME, ELEMENT)
%vector_positions(std::vector<ELEMENT>)
%template(NAME) std::vector<ELEMENT>;
%enddef
%vector(TokenVector, Slate::Token)
%vector(DocumentVector, std::shared_ptr<Slate::Document>)
%vector(ObjectVector, std::shared_ptr<Slate::Core::Object>)
%vector(AnyVector, Slate::Core::Any)
%vector(StringVector, std::string)
%vector(DoubleVector, double)
%vector(BoolVector, bool)
%vector(UIntVector, uint64_t)
%vector(IntVector, int64_t)
%vector(PluginVector, std::shared_ptr<Slate::Plugin>)
%vector(ReplaceOpVector, Slate::Refactor::ReplaceOp)
%vector(ErrorVector, std::shared_ptr<Slate::Error>)

// Without an iterator of its own the pair would be read as a sequence without end.
%extend std::pair<std::shared_ptr<Slate::Document>, std::vector<std::shared_ptr<Slate::Document>>> {
%pythoncode %{
def __iter__(self):
    return iter((self.first, self.second))
%}
}
%template(DocDocListPair) std::pair<std::shared_ptr<Slate::Document>, std::vector<std::shared_ptr<Slate::Document>>>;

// Behind the template, which has one that makes a tuple.
%typemap(out, fragment="Opaque") std::pair<std::shared_ptr<Slate::Document>, std::vector<std::shared_ptr<Slate::Document>>> {
    $result = giveToPython<$1_ltype>($1, $&1_descriptor);
}
