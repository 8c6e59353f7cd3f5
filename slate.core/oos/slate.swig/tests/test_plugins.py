"""What only native code can make: plug-ins and natives, of a small extension of its own."""

import gc

import CorePythonSwig as slate
import _TestPlugin as native
import pytest

SOURCE = 'import "{0}" as Imported\n\nShaft:\n    length is Real: 2.5\n'


@pytest.fixture
def plugin():
    return native.plugin(".csv")


def test_a_plugin(plugin):
    assert isinstance(plugin, slate.Plugin)
    assert list(plugin.extensions()) == [".csv", ".csv0"]
    plugin.setPrecision(3)
    assert list(plugin.extensions()) == [".csv", ".csv3"]
    assert plugin.keyShouldBeSource() is False


def test_registered_plugins(plugin, context):
    slate.registerPlugin(plugin, context)
    slate.registerPlugin(native.plugin(".step"), context)
    registered = slate.getRegisteredPlugins(context)
    assert isinstance(registered, slate.PluginVector)
    assert [list(p.extensions())[0] for p in registered] == [".csv", ".csv", ".step", ".step"]
    registered[0].setPrecision(7)
    assert list(plugin.extensions()) == [".csv", ".csv7"]
    registered.clear()
    assert len(slate.getRegisteredPlugins(context)) == 4


def test_imports(plugin, context, tmp_path):
    (tmp_path / "table.csv").write_text("1;2\n")
    source = tmp_path / "shaft.slate"
    source.write_text(SOURCE.format(tmp_path / "table.csv"))
    slate.registerPlugin(plugin, context)
    shaft = slate.loadModelFromFile(str(source), None, context)
    assert list(context.getErrors()) == []
    assert shaft.getNumber("length") == 2.5


def test_a_plugin_called_from_python(plugin, context):
    document, _ = slate.parseFromString('import "table.csv" as Table\n', context)
    node = document.findLastMemberOfType(slate.NodeType_Import).asImport()
    reporter = slate.ErrorReporter()
    assert plugin.parse("table", node, reporter).getSourceId() == "table"
    assert plugin.parse("broken", node, reporter) is None
    (error,) = reporter.getErrors()
    assert error.getSourceId() == "source"
    with pytest.raises(TypeError):
        plugin.parse("table", document, reporter)


def test_who_keeps_a_plugin_alive(context):
    gc.collect()
    before = native.livePlugins()
    plugin = native.plugin(".csv")
    slate.registerPlugin(plugin, context)
    del plugin
    assert native.livePlugins() == before + 1
    registered = slate.getRegisteredPlugins(context)
    context.release()
    del context
    gc.collect()
    assert list(registered[1].extensions()) == [".csv", ".csv0"]
    taken = registered[0]
    del registered
    assert native.livePlugins() == before + 1
    del taken
    gc.collect()


def test_a_plugin_goes_with_the_last_who_holds_it():
    gc.collect()
    before = native.livePlugins()
    for _ in range(1000):
        context = slate.SlateContext(slate.StringVector())
        slate.registerPlugin(native.plugin(".csv"), context)
        slate.getRegisteredPlugins(context)
    del context
    gc.collect()
    assert native.livePlugins() == before


def test_natives():
    context = slate.EvaluatorContext()
    twice, minus, negative, make = native.natives()
    context.registerStaticMethod("twice", twice)
    context.registerBinaryOperatorMethod("minus", minus)
    context.registerUnaryOperatorMethod("negative", negative)
    context.registerFactory("Made", make)
    assert context.callStaticMethod("twice", [slate.Any(3.5)]).asReal() == 7.0
    assert context.callBinaryOperator("minus", slate.Any(3.0), slate.Any(5.0)).asReal() == -2.0
    assert context.callUnaryOperator("negative", slate.Any(2.0)).asReal() == -2.0
    assert type(context.lookup("Made")).__name__ == "SwigPyObject"
    for register, key, wrong in [
        (context.registerStaticMethod, "key", minus),
        (context.registerFactory, "key", None),
        (context.registerFactory, None, make),
        (context.registerStaticMethod, None, twice),
        (context.registerBinaryOperatorMethod, 3, minus),
    ]:
        with pytest.raises((TypeError, ValueError)):
            register(key, wrong)


def test_what_a_native_throws_is_an_exception():
    context = slate.EvaluatorContext()
    context.registerStaticMethod("twice", native.natives()[0])
    with pytest.raises(IndexError):
        context.callStaticMethod("twice", [])
    with pytest.raises(RuntimeError, match="^Any does not represent a Real$"):
        context.callStaticMethod("twice", [slate.Any.fromString("a")])
