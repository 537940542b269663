// Activates the extension on a stand-in for the editor, runs each of its commands on a script, and prints what the
// editor got: the commands, the tasks that were started and those that were offered.
// usage: node activate.js EXTENSION PLATFORM SCRIPT SETTING TASK_DEFINITION
'use strict';
const Module = require('module');
const path = require('path');

const [extension, platform, script, setting, definition] = process.argv.slice(2);
Object.defineProperty(process, 'platform', {value: platform});
const commands = {};
const started = [];
const errors = [];
const uri = (file) => ({fsPath: file});
let provider;
let saved = 0;

class Task {
  constructor(definition, scope, name, source, execution, matchers) {
    Object.assign(this, {definition, name, source, execution, matchers});
  }
}
class ProcessExecution {
  constructor(program, args, options) {
    Object.assign(this, {program, args, cwd: options.cwd});
  }
}
const vscode = {
  Task,
  ProcessExecution,
  TaskScope: {Workspace: 2},
  TaskRevealKind: {Always: 1},
  Uri: {file: uri},
  window: {
    activeTextEditor: {document: {languageId: 'talq', isUntitled: !script, uri: uri(script), save: async () => saved++}},
    showErrorMessage: (text) => errors.push(text),
  },
  workspace: {
    workspaceFolders: undefined,
    getWorkspaceFolder: () => undefined,
    getConfiguration: () => ({get: () => setting}),
  },
  tasks: {
    executeTask: async (task) => started.push(task),
    registerTaskProvider: (type, given) => (provider = given),
  },
  commands: {registerCommand: (name, run) => (commands[name] = run)},
};
const load = Module._load;
Module._load = (name, ...rest) => (name === 'vscode' ? vscode : load(name, ...rest));

async function main() {
  const context = {subscriptions: []};
  require(path.resolve(extension, 'extension.js')).activate(context);
  for (const run of Object.values(commands)) await run();
  const offered = provider.provideTasks();
  const resolved = definition ? provider.resolveTask({definition: JSON.parse(definition)}) : undefined;
  process.stdout.write(JSON.stringify({commands: Object.keys(commands), started, offered, resolved, errors, saved}));
}
main();
