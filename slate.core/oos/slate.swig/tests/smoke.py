"""The module on an interpreter that it is not made for first: does it load, does it work. Of the standard library alone."""

import gc
import os
import sys
import unittest

import CorePythonSwig as slate

SOURCE = """Shaft:
    length is Real: 2.5

Gear:
    shaft is Shaft
    teeth is Int: 20
    ratio is Real: shaft.length * 2
"""


class Smoke(unittest.TestCase):
    def setUp(self):
        self.context = slate.SlateContext(slate.StringVector())

    def test_the_module_is_the_one_built_for_this_interpreter(self):
        self.assertEqual(slate._CorePythonSwig.__file__, os.environ["SLATE_MODULE"])

    def test_a_model(self):
        gear = slate.loadModelFromString(SOURCE, None, self.context)
        self.assertEqual(list(self.context.getErrors()), [])
        self.assertEqual(gear.getNumber("ratio"), 5.0)
        self.assertEqual(gear.getDynamic("teeth").asInt(), 20)
        self.assertIn('"teeth":20', gear.toJson(True))

    def test_errors(self):
        self.assertIsNone(slate.loadModelFromString("", None, self.context))
        errors = self.context.getErrors()
        del self.context
        gc.collect()
        self.assertEqual([error.getSourceId() for error in errors], ["<no file>"])
        self.assertEqual(type(errors[0].getLine()).__name__, "SwigPyObject")
        with self.assertRaisesRegex(TypeError, "^Expected a string$"):
            slate.parseFromFile(3, slate.SlateContext())

    def test_vectors(self):
        vector = slate.IntVector([3, -1, 2**63 - 1])
        self.assertEqual(list(vector[::-1]), [2**63 - 1, -1, 3])
        self.assertEqual(vector.begin().value(), 3)
        with self.assertRaises(IndexError):
            vector[3]
        with self.assertRaises(OverflowError):
            vector.append(2**63)

    def test_references(self):
        """Each object that is made is freed: the interpreter's own count of its blocks stays where it is."""

        def work():
            gear = slate.loadModelFromString(SOURCE, None, slate.SlateContext(slate.StringVector()))
            return [gear.getDynamic("teeth"), gear.getType().getMembers(), list(gear.getTypeList()), str(gear)]

        for _ in range(20):
            work()
        gc.collect()
        before = sys.getallocatedblocks()
        for _ in range(200):
            work()
        gc.collect()
        self.assertLess(sys.getallocatedblocks() - before, 100)


if __name__ == "__main__":
    unittest.main()
