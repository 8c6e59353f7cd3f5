// Where one is in a vector: iteration, and the places for `insert` and `erase`. The generator's own hold C++ iterators,
// which dangle as soon as the vector grows or goes. Here it is a number, which is checked at each use, and the vector is
// kept alive.

%fragment("VectorPosition", "header", fragment="SwigPyIterator", fragment="StdTraits", fragment="Contexts") {
namespace swig {

template <typename Vector>
class VectorPosition : public SwigPyIterator {
  public:
    enum class Direction { Forward, Backward };

    /// @param object what Python knows the vector as
    VectorPosition(PyObject* object, Vector& vector, std::size_t index, Direction direction = Direction::Forward)
        : SwigPyIterator(object), object_(object), vector_(&vector), index_(static_cast<std::ptrdiff_t>(index)), direction_(direction) {}

    PyObject* value() const override {
        if (index_ >= size())
            throw stop_iteration();
        auto const index = direction_ == Direction::Forward ? index_ : size() - 1 - index_;
        auto* const element =
            swig::from(static_cast<typename Vector::value_type>((*vector_)[static_cast<std::size_t>(index)]));
        if constexpr (std::is_same_v<typename Vector::value_type, Slate::Core::ObjectPtr> ||
                      std::is_same_v<typename Vector::value_type, Slate::Core::Any>)
            keepContextOf(element, object_);
        return element;
    }

    SwigPyIterator* incr(std::size_t steps = 1) override {
        if (index_ > size() || steps > static_cast<std::size_t>(size() - index_)) {
            index_ = std::max(index_, size());
            throw stop_iteration();
        }
        index_ += static_cast<std::ptrdiff_t>(steps);
        return this;
    }

    SwigPyIterator* decr(std::size_t steps = 1) override {
        if (steps > static_cast<std::size_t>(index_)) {
            index_ = 0;
            throw stop_iteration();
        }
        index_ -= static_cast<std::ptrdiff_t>(steps);
        return this;
    }

    std::ptrdiff_t distance(SwigPyIterator const& other) const override { return comparable(other).index_ - index_; }

    bool equal(SwigPyIterator const& other) const override { return comparable(other).index_ == index_; }

    SwigPyIterator* copy() const override { return new VectorPosition(*this); }

    /// The index that `position` stands for in `vector`, which may be the one behind the last element.
    /// @throws std::out_of_range if it is none of this vector
    static std::ptrdiff_t indexIn(Vector const& vector, SwigPyIterator const& position) {
        auto const* const own = dynamic_cast<VectorPosition const*>(&position);
        if (own == nullptr || own->vector_ != &vector || own->direction_ != Direction::Forward ||
            own->index_ > own->size())
            throw std::out_of_range("not a position in this vector");
        return own->index_;
    }

  private:
    std::ptrdiff_t size() const { return static_cast<std::ptrdiff_t>(vector_->size()); }

    VectorPosition const& comparable(SwigPyIterator const& other) const {
        auto const* const own = dynamic_cast<VectorPosition const*>(&other);
        if (own == nullptr || own->vector_ != vector_ || own->direction_ != direction_)
            throw std::invalid_argument("positions of different vectors");
        return *own;
    }

    PyObject* object_; // counted by the base class
    Vector* vector_;
    std::ptrdiff_t index_;
    Direction direction_;
};

} // namespace swig
}

// For what C++ takes for granted, that there is an element.
#define %on_an_element {                                    \
    try {                                                   \
        if (arg1->empty())                                  \
            throw std::out_of_range("the vector is empty"); \
        $action                                             \
    } catch (...) {                                         \
        raiseInPython();                                    \
        SWIG_fail;                                          \
    }                                                       \
}

%define %vector_positions(VECTOR...)
%newobject VECTOR::iterator(PyObject **PYTHON_SELF);
%newobject VECTOR::begin(PyObject **PYTHON_SELF);
%newobject VECTOR::end(PyObject **PYTHON_SELF);
%newobject VECTOR::rbegin(PyObject **PYTHON_SELF);
%newobject VECTOR::rend(PyObject **PYTHON_SELF);
%newobject VECTOR::erase(PyObject **PYTHON_SELF, swig::SwigPyIterator const & pos);
%newobject VECTOR::erase(PyObject **PYTHON_SELF, swig::SwigPyIterator const & first,
                         swig::SwigPyIterator const & last);
%newobject VECTOR::insert(PyObject **PYTHON_SELF, swig::SwigPyIterator const & pos, value_type const & x);

%fragment("VectorPosition");
%extend VECTOR {
    swig::SwigPyIterator* iterator(PyObject **PYTHON_SELF) {
        return new swig::VectorPosition<VECTOR>(*PYTHON_SELF, *$self, 0);
    }
    %pythoncode %{
def __iter__(self):
    return self.iterator()
%}
    swig::SwigPyIterator* begin(PyObject **PYTHON_SELF) {
        return new swig::VectorPosition<VECTOR>(*PYTHON_SELF, *$self, 0);
    }
    swig::SwigPyIterator* end(PyObject **PYTHON_SELF) {
        return new swig::VectorPosition<VECTOR>(*PYTHON_SELF, *$self, $self->size());
    }
    swig::SwigPyIterator* rbegin(PyObject **PYTHON_SELF) {
        using Position = swig::VectorPosition<VECTOR>;
        return new Position(*PYTHON_SELF, *$self, 0, Position::Direction::Backward);
    }
    swig::SwigPyIterator* rend(PyObject **PYTHON_SELF) {
        using Position = swig::VectorPosition<VECTOR>;
        return new Position(*PYTHON_SELF, *$self, $self->size(), Position::Direction::Backward);
    }
    swig::SwigPyIterator* erase(PyObject **PYTHON_SELF, swig::SwigPyIterator const & pos) {
        auto const index = swig::VectorPosition<VECTOR>::indexIn(*$self, pos);
        if (static_cast<std::size_t>(index) == $self->size())
            throw std::out_of_range("no element at this position");
        $self->erase($self->begin() + index);
        return new swig::VectorPosition<VECTOR>(*PYTHON_SELF, *$self, static_cast<std::size_t>(index));
    }
    swig::SwigPyIterator* erase(PyObject **PYTHON_SELF, swig::SwigPyIterator const & first,
                                swig::SwigPyIterator const & last) {
        auto const begin = swig::VectorPosition<VECTOR>::indexIn(*$self, first);
        auto const end = swig::VectorPosition<VECTOR>::indexIn(*$self, last);
        if (begin > end)
            throw std::out_of_range("the first position is behind the last");
        $self->erase($self->begin() + begin, $self->begin() + end);
        return new swig::VectorPosition<VECTOR>(*PYTHON_SELF, *$self, static_cast<std::size_t>(begin));
    }
    swig::SwigPyIterator* insert(PyObject **PYTHON_SELF, swig::SwigPyIterator const & pos, value_type const & x) {
        auto const index = swig::VectorPosition<VECTOR>::indexIn(*$self, pos);
        $self->insert($self->begin() + index, x);
        return new swig::VectorPosition<VECTOR>(*PYTHON_SELF, *$self, static_cast<std::size_t>(index));
    }
    void insert(swig::SwigPyIterator const & pos, size_type n, value_type const & x) {
        $self->insert($self->begin() + swig::VectorPosition<VECTOR>::indexIn(*$self, pos), n, x);
    }
}

%exception VECTOR::front %on_an_element
%exception VECTOR::back %on_an_element
%exception VECTOR::pop_back %on_an_element
%enddef
