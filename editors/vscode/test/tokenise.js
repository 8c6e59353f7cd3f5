"use strict";

const fs = require("node:fs");
const path = require("node:path");
const oniguruma = require("vscode-oniguruma");
const textmate = require("vscode-textmate");

const grammarFile = path.join(__dirname, "..", "syntaxes", "slate.tmLanguage.json");

async function loadOniguruma() {
  const wasm = fs.readFileSync(require.resolve("vscode-oniguruma/release/onig.wasm"));
  await oniguruma.loadWASM(wasm);
  return {
    createOnigScanner: (patterns) => new oniguruma.OnigScanner(patterns),
    createOnigString: (text) => new oniguruma.OnigString(text),
  };
}

/** The grammar as the editor reads it. */
async function loadGrammar() {
  const registry = new textmate.Registry({
    onigLib: loadOniguruma(),
    loadGrammar: async () => textmate.parseRawGrammar(fs.readFileSync(grammarFile, "utf8"), grammarFile),
  });
  return registry.loadGrammar("source.slate");
}

/** Scopes as the tests name them: without that of the whole source, and quotes are of their string. */
function nameScopes(scopes) {
  return scopes
    .slice(1)
    .map((scope) => scope.replace(/\.slate$/, ""))
    .filter((scope) => !/^punctuation\.definition\.(string|comment)/.test(scope));
}

function isText(scopes) {
  return scopes.length > 0 && /^(string|comment)/.test(scopes.at(-1));
}

/** The tokens of one line, with a string or comment in one piece. */
function joinTexts(pieces) {
  const tokens = [];
  for (const piece of pieces) {
    const last = tokens.at(-1);
    if (last && isText(piece.scopes) && last.scopes.join() === piece.scopes.join()) {
      last.text += piece.text;
    } else {
      tokens.push({ ...piece });
    }
  }
  return tokens;
}

/** The tokens of a source that are not blank: `{ line, text, scopes }`, lines from 1. */
function tokenise(grammar, source) {
  let state = textmate.INITIAL;
  return source.split("\n").flatMap((text, index) => {
    const answer = grammar.tokenizeLine(text, state);
    state = answer.ruleStack;
    const pieces = answer.tokens.map(({ startIndex, endIndex, scopes }) => ({
      line: index + 1,
      text: text.slice(startIndex, endIndex),
      scopes: nameScopes(scopes),
    }));
    return joinTexts(pieces)
      .map((token) => ({ ...token, text: token.text.trim() }))
      .filter((token) => token.text !== "");
  });
}

module.exports = { loadGrammar, tokenise };
