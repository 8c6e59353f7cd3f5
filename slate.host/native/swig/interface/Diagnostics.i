%pythonappend describe %{ val = [Diagnostic._of(*fields) for fields in val] %}
%pythonappend errorKinds %{ val = [ErrorKind(*fields) for fields in val] %}

%{
static PyObject* toPython(Slate::Host::Note const& note) { return tupleOf(note.message, note.place); }

static PyObject* toPython(Slate::Host::Diagnostic const& diagnostic) {
    return tupleOf(diagnostic.error_class, static_cast<std::uint64_t>(diagnostic.code), diagnostic.place,
                   diagnostic.strings, diagnostic.message, diagnostic.hint, diagnostic.notes, diagnostic.cause);
}

static PyObject* toPython(Slate::Host::ErrorKind const& kind) {
    return tupleOf(static_cast<std::uint64_t>(kind.code), kind.enumerator, kind.class_name, kind.summary, kind.rule,
                   kind.example, kind.cure);
}

static std::vector<Slate::Host::Diagnostic> describe(Slate::Core::Api::SlateContext const& context,
                                                    std::shared_ptr<Slate::Host::SourceTexts> const& texts) {
    Slate::Host::SourceTexts no_texts;
    return Slate::Host::describeErrors(context, texts ? *texts : no_texts);
}

static PyObject* errorKinds() { return listOf(Slate::Host::errorKinds()); }
%}

%feature("docstring") describe "describeErrors(context: SlateContext, texts: dict[str, str] | None = None) -> list[Diagnostic]

All errors of a context in words, in the order of their report.

:param texts: texts of sources that the context does not know, by their ids; all others are read from their files";
%rename(describeErrors) describe;
std::vector<Slate::Host::Diagnostic> describe(Slate::Core::Api::SlateContext const & context,
                                              std::shared_ptr<Slate::Host::SourceTexts> texts = nullptr);

%feature("docstring") errorKinds "errorKinds() -> list[ErrorKind]

All kinds of errors with what is to be said about them, in the order of their numbers.";
PyObject * errorKinds();
