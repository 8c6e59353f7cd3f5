class _NativeHolder:
    """What keeps a callable: owned by the Python object of its context."""

    __slots__ = ("callable", "__weakref__")

    def __init__(self, callable):
        self.callable = callable


class Registration:
    """A native that was registered. To let this go has no effect: the native stays as long as its context."""

    def __init__(self, handle, natives):
        self._handle = handle
        self._natives = _weakref.ref(natives)

    def release(self):
        """Lets the callable go; what calls it then gets no value. A second time has no effect."""
        natives = self._natives()
        if natives is not None and self._handle.isActive():
            natives.pop(self._handle.getSlot(), None)
        self._handle.release()

    def isActive(self):
        """Is the native neither released, nor replaced, nor gone with its context?"""
        return self._natives() is not None and self._handle.isActive()


class _Natives(dict):
    """The holders of one context, by their places in the library's table."""

    __slots__ = ("__weakref__",)


def _register(enter, context, key, native):
    if not callable(native):
        raise TypeError("expected something that can be called")
    if not isinstance(context, _core.SlateContext):
        raise TypeError("expected a SlateContext")
    holder = _NativeHolder(native)
    handle = enter(context, key, _weakref.ref(holder))
    natives = context.__dict__.setdefault("_natives", _Natives())
    natives[handle.getSlot()] = holder
    return Registration(handle, natives)


def registerStaticMethod(context, key, callable):
    """Registers what a static method does.

    The callable gets plain values, and an `Object` for each object; it answers with such a value, a list of them, or
    `None` for no value. What it raises is logged with its traceback, and there is no value.

    :param context: the SlateContext that calls it; the native stays as long as this Python object
    :param key: the model with its namespace and the method, "mill::Gear::make"
    :param callable: what is called; it replaces what was registered under the key
    :raises RuntimeError: if there are too many natives at a time, see `maximum_natives`
    :raises TypeError: if it cannot be called
    :raises ValueError: for an empty key
    """
    return _register(_enterStaticMethod, context, key, callable)


def registerOperator(context, key, callable):
    """Registers what an operator does, with one or two operands as its key says; see `registerStaticMethod`.

    :param key: "mill::operator_+::mill.Gear::Real", as `TreeNode.getNativeKey` of the operator gives it
    :raises ValueError: for a key that is none of an operator
    """
    return _register(_enterOperator, context, key, callable)


def registerFactory(context, key, callable):
    """Registers what makes the objects of a model; see `registerStaticMethod`.

    :param key: the model with its namespace, "mill::Gear"
    :param callable: answers with a new `Object`; after a failure the model has plain objects
    """
    return _register(_enterFactory, context, key, callable)
