"use strict";

const assert = require("node:assert/strict");
const test = require("node:test");
const { loadGrammar, tokenise } = require("./tokenise.js");

/** The kinds of the expectations, and the scopes that they stand for. */
const scopes = {
  model: "entity.name.type.model",
  global: "variable.other.global",
  base: "entity.other.inherited-class",
  namespace: "entity.name.namespace",
  type: "entity.name.type",
  primitive: "support.type.primitive",
  member: "variable.other.member",
  name: "variable.other",
  this: "variable.language.this",
  function: "entity.name.function",
  call: "entity.name.function.call",
  parameter: "variable.parameter",
  note: "entity.other.attribute-name.annotation",
  "note.": "punctuation.definition.annotation",
  integer: "constant.numeric.integer",
  real: "constant.numeric.real",
  mantissa: "constant.numeric",
  boolean: "constant.language.boolean",
  string: "string.quoted.double",
  file: "string.quoted.double.path",
  text: "string.quoted.triple",
  comment: "comment.line.number-sign",
  is: "keyword.declaration.is",
  becomes: "keyword.declaration.becomes",
  with: "keyword.declaration.with",
  delete: "keyword.declaration.delete",
  fn: "keyword.declaration.function",
  operator: "keyword.declaration.operator",
  symbol: "entity.name.operator",
  import: "keyword.control.import",
  as: "keyword.control.import.as",
  modifier: "storage.modifier",
  static: "storage.modifier.static",
  external: "storage.modifier.external",
  keyword: "keyword.other",
  "->": "keyword.operator.arrow",
  "+": "keyword.operator.arithmetic",
  "-": "keyword.operator.arithmetic",
  "*": "keyword.operator.arithmetic",
  "/": "keyword.operator.arithmetic",
  "(": "punctuation.section.parens",
  ")": "punctuation.section.parens",
  "[": "punctuation.section.brackets",
  "]": "punctuation.section.brackets",
  "{": "punctuation.section.braces",
  "}": "punctuation.section.braces",
  ":": "punctuation.separator.colon",
  ",": "punctuation.separator.comma",
  ".": "punctuation.accessor",
  illegal: "invalid.illegal",
  unclosed: "invalid.illegal.unclosed",
  exponent: "invalid.illegal.exponent",
};

/**
 * Each case: what it shows, the source, and all its tokens as `text‹kind›`, with `·` for a blank. A token without a
 * kind is of the kind that is called as it is.
 */
const cases = [
  ["a model without anything", "Shaft", "Shaft‹model›"],
  ["a model with a comment", "Shaft # bare", "Shaft‹model› #·bare‹comment›"],
  ["a model with a body", "Shaft:", "Shaft‹model› :"],
  ["a model with a base", "Gear is drives.Part:", "Gear‹model› is drives‹namespace› . Part‹base› :"],
  ["a base that is external", "Gear is external Part", "Gear‹model› is external Part‹base›"],
  ["a const model", "const Steel is Metal:", "const‹modifier› Steel‹model› is Metal‹base› :"],
  ["a trait", "trait Named:", "trait‹modifier› Named‹model› :"],
  ["a colon and a comment are a body", "Gear is Part: # or so", "Gear‹model› is Part‹base› : #·or·so‹comment›"],
  ["a variable", "Pi is Real: 3.14", "Pi‹global› is Real‹primitive› : 3.14‹real›"],
  ["a variable of a model's type", "A is b.C: d", "A‹global› is b‹namespace› . C‹type› : d‹name›"],
  ["a variable that is an array", "a is Int[]: [1]", "a‹global› is Int‹primitive› [ ] : [ 1‹integer› ]"],
  ["an attribute", "    mass is Real", "mass‹member› is Real‹primitive›"],
  ["an attribute with a comment", "    mass is Real # kg", "mass‹member› is Real‹primitive› #·kg‹comment›"],
  ["an attribute with a value", "    mass: 2", "mass‹member› : 2‹integer›"],
  ["a path", "    a.b.c: true", "a‹member› . b‹member› . c‹member› : true‹boolean›"],
  ["narrowing", "\tmotor becomes motors.Big:", "motor‹member› becomes motors‹namespace› . Big‹type› :"],
  ["an attribute that is an array", "    a is x.B[]", "a‹member› is x‹namespace› . B‹type› [ ]"],
  ["a primitive's name within a path", "    a is Real.Int", "a‹member› is Real‹namespace› . Int‹primitive›"],
  ["an annotation", '    .unit: "mm"', '.‹note.› unit‹note› : "mm"‹string›'],
  ["an annotation with a sign", "  .offset: -1.5", ".‹note.› offset‹note› : - 1.5‹real›"],
  ["a trait entry", "    with parts.Named # too", "with parts‹namespace› . Named‹base› #·too‹comment›"],
  ["a deletion", "    delete shaft.tag", "delete shaft‹member› . tag‹member›"],
  ["a method", "    fn torque(speed: Real) -> Real",
    "fn torque‹function› ( speed‹parameter› : Real‹primitive› ) -> Real‹primitive›"],
  ["a static method", "    static fn make(a: x.B[], c: Int,)",
    "static fn make‹function› ( a‹parameter› : x‹namespace› . B‹type› [ ] , c‹parameter› : Int‹primitive› , )"],
  ["a result on its own line", "    fn f()\n        -> Real # kg",
    "fn f‹function› ( ) -> Real‹primitive› #·kg‹comment›"],
  ["an overload", "operator + (lhs: A, rhs: B) -> C",
    "operator +‹symbol› ( lhs‹parameter› : A‹type› , rhs‹parameter› : B‹type› ) -> C‹type›"],
  ["an overload of the minus sign", "operator -(a: A)->A", "operator -‹symbol› ( a‹parameter› : A‹type› ) -> A‹type›"],
  ["an import", 'import "a.csv" as parts.list:\n    .sheet: 2',
    'import "a.csv"‹string› as parts‹namespace› . list‹namespace› : .‹note.› sheet‹note› : 2‹integer›'],
  ["a file beside the source", 'import @"a.csv"', 'import @"a.csv"‹file›'],
  ["calls and members", "    a: f(b.c, d.g(1)[0])",
    "a‹member› : f‹call› ( b‹name› . c‹member› , d‹name› . g‹call› ( 1‹integer› ) [ 0‹integer› ] )"],
  ["all operators", "    a: 1 + b - c * -d / 2", "a‹member› : 1‹integer› + b‹name› - c‹name› * - d‹name› / 2‹integer›"],
  ["this", "    width: this.width", "width‹member› : this . width‹member›"],
  ["initializers over lines", '    a: [\n        {"B1", .5},\n        {x, 3}\n    ]',
    'a‹member› : [ { "B1"‹string› , .5‹real› } , { x‹name› , 3‹integer› } ]'],
  ["numbers", "    a: [1, 1., 1.5, .5, 1e5, 1E-5, 2.5e3, .5e3]",
    "a‹member› : [ 1‹integer› , 1.‹real› , 1.5‹real› , .5‹real› , 1e5‹real› , 1E-5‹real› , 2.5e3‹real› , .5e3‹real› ]"],
  ["a number ends at its dot", "    a: 1.x", "a‹member› : 1.‹real› x‹name›"],
  ["a fraction is no member", "    a: b.1", "a‹member› : b‹name› .1‹real›"],
  ["digits in names", "    a1: b2", "a1‹member› : b2‹name›"],
  ["an exponent without digits", "    a: 1.5e+5 # b", "a‹member› : 1.5‹mantissa› e+5‹exponent› #·b‹comment›"],
  ["no escapes in strings", '    a: "b\\" # c', 'a‹member› : "b\\"‹string› #·c‹comment›'],
  ["a sign of a comment in a string", '    a: "#1"', 'a‹member› : "#1"‹string›'],
  ["an empty string", '    a: ""', 'a‹member› : ""‹string›'],
  ["text over lines", '    a: """x "y"\n# z\n""" + b',
    'a‹member› : """x·"y"‹text› #·z‹text› """‹text› + b‹name›'],
  ["a quoted name", "    `is`: `a b`.`c.d` + `#`", "`is`‹member› : `a·b`‹name› . `c.d`‹member› + `#`‹name›"],
  ["a quoted model", "`2nd: gear` is `base`:", "`2nd:·gear`‹model› is `base`‹base› :"],
  ["a quoted variable", "`a:b` is Int: 1", "`a:b`‹global› is Int‹primitive› : 1‹integer›"],
  ["keywords are words as a whole", "    isolated: without + trait_x",
    "isolated‹member› : without‹name› + trait_x‹name›"],
  ["keywords are lower case", "    Is is With", "Is‹member› is With‹type›"],
  ["a keyword as a name", "    is: 1", "is‹keyword› : 1‹integer›"],
  ["a keyword as a value", "    a: delete + b", "a‹member› : delete‹keyword› + b‹name›"],
  ["a keyword as a type", "    a is trait", "a‹member› is trait‹illegal›"],
  ["an unclosed string", '    a: "b\n    c: 1', 'a‹member› : "b‹unclosed› c‹member› : 1‹integer›'],
  ["an unclosed name", "    a: `b\n    c: 1", "a‹member› : `b‹unclosed› c‹member› : 1‹integer›"],
  ["an empty quoted name", "    a: ``", "a‹member› : ``‹unclosed›"],
  ["characters without meaning", "    a: b ? c", "a‹member› : b‹name› ?‹illegal› c‹name›"],
  ["a model's line with an unclosed string", 'Gear is "Part', 'Gear‹model› is "Part‹unclosed›'],
  ["an import that goes wrong", "import 5 # or so", "import 5‹illegal› #·or·so‹comment›"],
  ["a signature that goes wrong", "    fn f(a: 5) # m", "fn f‹function› ( a‹parameter› : 5‹illegal› ) #·m‹comment›"],
  ["a result that goes wrong", "    -> Real 5", "-> Real‹primitive› 5‹illegal›"],
  ["a trait entry that goes wrong", "    with 5", "with 5‹illegal›"],
  ["a deletion that goes wrong", "    delete a, b # c", "delete a‹member› ,‹illegal› b‹member› #·c‹comment›"],
  ["a type that goes wrong", "    a is 5", "a‹member› is 5‹illegal›"],
  ["a variable that is external", "A is external B: 1", "A‹global› is external B‹type› : 1‹integer›"],
  ["a member that is not finished", "    a: b.", "a‹member› : b‹name› ."],
  ["a model's line that goes wrong", "Gear is Part = 1", "Gear‹model› is Part‹base› =‹illegal› 1‹illegal›"],
];

function readExpectation(text) {
  return text.split(" ").map((token) => {
    const [, word, kind] = /^(.+?)(?:‹(.+)›)?$/.exec(token);
    assert.ok(scopes[kind ?? word], `no such kind: ${token}`);
    return `${word.replaceAll("·", " ")} → ${scopes[kind ?? word]}`;
  });
}

function describe({ text, scopes: path }) {
  return `${text} → ${path.at(-1)}`;
}

test("each kind of token has its scope", async (t) => {
  const grammar = await loadGrammar();
  for (const [title, source, expected] of cases) {
    await t.test(title, () => assert.deepEqual(tokenise(grammar, source).map(describe), readExpectation(expected)));
  }
});
