// Plain values. What is written here makes lists and tuples; `values.py` has the classes that these become.

%{
/// Owns a reference; empty after a failure, for which Python then has the exception.
class Reference {
  public:
    explicit Reference(PyObject* object = nullptr) : object_(object) {}
    Reference(Reference&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}
    Reference& operator=(Reference&& other) noexcept {
        std::swap(object_, other.object_);
        return *this;
    }
    ~Reference() { Py_XDECREF(object_); }

    PyObject* get() const { return object_; }
    PyObject* release() { return std::exchange(object_, nullptr); }
    explicit operator bool() const { return object_ != nullptr; }

  private:
    PyObject* object_;
};

// Bytes that are no text come back as they were when Python encodes the text.
static PyObject* toPython(std::string_view text) {
    return PyUnicode_DecodeUTF8(text.data(), static_cast<Py_ssize_t>(text.size()), "surrogateescape");
}

static PyObject* toPython(std::string const& text) { return toPython(std::string_view(text)); }

static PyObject* toPython(std::uint64_t number) { return PyLong_FromUnsignedLongLong(number); }

static PyObject* toPython(std::optional<std::size_t> const& number) {
    if (number)
        return PyLong_FromSize_t(*number);
    Py_RETURN_NONE;
}

// Before what makes lists and tuples of them.
static PyObject* toPython(Slate::Core::Any const& value);
static PyObject* toPython(Slate::Host::SourceRange const& range);
static PyObject* toPython(Slate::Host::TreeNode const& node);
static PyObject* toPython(Slate::Host::Note const& note);
static PyObject* toPython(Slate::Host::Diagnostic const& diagnostic);
static PyObject* toPython(Slate::Host::EvaluationStep const& step);
static PyObject* toPython(Slate::Host::ErrorKind const& kind);

template <typename Elements>
static PyObject* listOf(Elements const& elements) {
    Reference list(PyList_New(0));
    for (auto const& element : elements) {
        Reference const item(list ? toPython(element) : nullptr);
        if (!item || PyList_Append(list.get(), item.get()) != 0)
            return nullptr;
    }
    return list.release();
}

template <typename Element>
static PyObject* toPython(std::vector<Element> const& elements) {
    return listOf(elements);
}

template <typename... Values>
static PyObject* tupleOf(Values const&... values) {
    Reference items[] = {Reference(toPython(values))...};
    Reference tuple(PyTuple_New(sizeof...(Values)));
    for (Py_ssize_t i = 0; tuple && i < static_cast<Py_ssize_t>(sizeof...(Values)); ++i) {
        if (!items[i])
            return nullptr;
        PyTuple_SET_ITEM(tuple.get(), i, items[i].release());
    }
    return tuple.release();
}

static PyObject* toPython(Slate::Host::SourceRange const& range) {
    return tupleOf(range.source_id, range.line, range.column, range.end_line, range.end_column);
}

/// The text of a Python string, with the bytes that were no text; otherwise sets an exception.
static std::optional<std::string> textFromPython(PyObject* input) {
    if (!PyUnicode_Check(input)) {
        PyErr_Format(PyExc_TypeError, "expected a string, not %s", Py_TYPE(input)->tp_name);
        return {};
    }
    Reference const bytes(PyUnicode_AsEncodedString(input, "utf-8", "surrogateescape"));
    if (!bytes)
        return {};
    return std::string(PyBytes_AS_STRING(bytes.get()), static_cast<std::size_t>(PyBytes_GET_SIZE(bytes.get())));
}

/// The texts of a dictionary from source ids to texts, `None` for none; empty if it sets an exception.
static std::shared_ptr<Slate::Host::SourceTexts> textsFromPython(PyObject* input) {
    auto texts = std::make_shared<Slate::Host::SourceTexts>();
    if (input == Py_None)
        return texts;
    if (!PyDict_Check(input)) {
        PyErr_SetString(PyExc_TypeError, "expected a dictionary from source ids to texts");
        return {};
    }
    PyObject* key = nullptr;
    PyObject* value = nullptr;
    for (Py_ssize_t position = 0; PyDict_Next(input, &position, &key, &value) != 0;) {
        auto source_id = textFromPython(key);
        auto text = source_id ? textFromPython(value) : std::nullopt;
        if (!text)
            return {};
        texts->add(std::move(*source_id), std::move(*text));
    }
    return texts;
}
%}

%typemap(in) std::string const & (std::optional<std::string> text) {
    text = textFromPython($input);
    if (!text)
        SWIG_fail;
    $1 = &*text;
}
%typemap(freearg) std::string const & ""

%typemap(in) std::shared_ptr<Slate::Host::SourceTexts> {
    $1 = textsFromPython($input);
    if (!$1)
        SWIG_fail;
}
// Without it the generator would make one function for each number of arguments.
%feature("compactdefaultargs") describe;
%feature("compactdefaultargs") Slate::Host::viewDocument;
%feature("compactdefaultargs") Slate::Host::evaluationOrder;

%typemap(out) std::string, std::string_view {
    $result = toPython($1);
}
%typemap(out) Slate::Host::SourceRange, std::vector<Slate::Host::Diagnostic>, std::vector<Slate::Host::TreeNode>,
              std::vector<Slate::Host::EvaluationStep> {
    // Without a name of its own the value would be the generator's wrapper around it.
    auto const& value = static_cast<$1_ltype const&>($1);
    $result = toPython(value);
}
%typemap(out) std::optional<Slate::Host::TreeNode> {
    std::optional<Slate::Host::TreeNode> const& value = $1;
    $result = value ? toPython(*value) : SWIG_Py_Void();
}
