// Prints what the editor's own engine makes of scripts: for each file its lines, each a list of [start, end, scopes].
// usage: node tokenize.js FOLDER_OF_NODE_MODULES GRAMMAR FILE... > tokens.json
'use strict';
const fs = require('fs');
const path = require('path');

const [modules, grammarFile, ...files] = process.argv.slice(2);
const load = (name) => require(path.join(modules, name));
const textmate = load('vscode-textmate');
const oniguruma = load('vscode-oniguruma');

async function loadGrammar() {
  await oniguruma.loadWASM(fs.readFileSync(path.join(modules, 'vscode-oniguruma/release/onig.wasm')));
  const registry = new textmate.Registry({
    onigLib: Promise.resolve({
      createOnigScanner: (patterns) => new oniguruma.OnigScanner(patterns),
      createOnigString: (text) => new oniguruma.OnigString(text),
    }),
    loadGrammar: async () => textmate.parseRawGrammar(fs.readFileSync(grammarFile, 'utf8'), grammarFile),
  });
  return registry.loadGrammar('source.talq');
}

function tokensOf(grammar, text) {
  let state = textmate.INITIAL;
  return text.split('\n').map((line) => {
    const {tokens, ruleStack} = grammar.tokenizeLine(line, state);
    state = ruleStack;
    return tokens.map(({startIndex, endIndex, scopes}) => [startIndex, Math.min(endIndex, line.length), scopes]);
  });
}

loadGrammar().then((grammar) => {
  const lines = files.map((file) => tokensOf(grammar, fs.readFileSync(file, 'utf8')));
  process.stdout.write(JSON.stringify(lines));
});
