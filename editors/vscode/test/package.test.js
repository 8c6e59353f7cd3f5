"use strict";

const assert = require("node:assert/strict");
const fs = require("node:fs");
const path = require("node:path");
const test = require("node:test");

const folder = path.join(__dirname, "..");
const read = (...names) => fs.readFileSync(path.join(folder, ...names), "utf8");
const readJson = (name) => JSON.parse(read(name));

test("the extension has the version of the project", () => {
  const [, version] = /^project\(slate VERSION ([\d.]+)/m.exec(read("..", "..", "CMakeLists.txt"));
  assert.equal(readJson("package.json").version, version);
  assert.equal(readJson("package-lock.json").version, version);
});

test("what the manifest names is there", () => {
  const { languages, grammars } = readJson("package.json").contributes;
  assert.equal(readJson(grammars[0].path).scopeName, grammars[0].scopeName);
  assert.equal(grammars[0].language, languages[0].id);
  assert.ok(readJson(languages[0].configuration).comments);
});

test("the grammar knows the keywords of the language, at every place", () => {
  const header = read("..", "..", "slate.core", "slate.parser", "src", "slate", "Keywords.h");
  const keywords = [...header.matchAll(/Keyword\{"(\w+)"/g)].map(([, word]) => word);
  const lists = [...read("syntaxes", "slate.tmLanguage.json").matchAll(/\(\?!\(\?:([\w|]+)\)/g)];
  assert.ok(keywords.includes("is") && lists.length > 1);
  for (const [, list] of lists) {
    assert.equal(list, keywords.join("|"));
  }
});

test("the lock file names no host", () => {
  assert.doesNotMatch(read("package-lock.json"), /resolved|:\/\//);
});

test("a line that opens a body indents the next", () => {
  const { increaseIndentPattern } = readJson("language-configuration.json").indentationRules;
  const indents = (line) => new RegExp(increaseIndentPattern).test(line);
  for (const line of ["Shaft:", "Gear is Part: # bare", "    shaft is Shaft:", "    `a:b`:", "const Steel:   "]) {
    assert.ok(indents(line), line);
  }
  for (const line of ["Shaft", "    mass: 2", '    .note: ":"', "    # see:", '    a: "b:"', "    a: 1 # then:"]) {
    assert.ok(!indents(line), line);
  }
});

test("a double click takes a whole name", () => {
  const words = new RegExp(readJson("language-configuration.json").wordPattern, "g");
  assert.deepEqual("  shaft.`a b` + 2.5e-3 * x_1".match(words), ["shaft", "`a b`", "2.5e-3", "x_1"]);
});
