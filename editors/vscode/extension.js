// Runs and checks scripts as tasks of the editor, whose messages become problems.
'use strict';
const path = require('path');
const vscode = require('vscode');
const {ACTIONS, commandLine} = require('./command-line');

// A check prints errors of the language too.
const MATCHERS = {run: ['$talq'], window: ['$talq'], check: ['$talq', '$talq-check']};

// The script of the editor; undefined when it shows something else.
function openScript() {
  const document = vscode.window.activeTextEditor?.document;
  return document?.languageId === 'talq' && !document.isUntitled ? document.uri.fsPath : undefined;
}

// A task for the action on the script, in the script's workspace folder, else beside the script.
function makeTask(definition, script) {
  const uri = vscode.Uri.file(script);
  const folder = vscode.workspace.getWorkspaceFolder(uri);
  const setting = vscode.workspace.getConfiguration('talq', uri).get('program');
  const {program, args} = commandLine(definition.action, script, setting);
  const cwd = folder ? folder.uri.fsPath : path.dirname(script);
  const task = new vscode.Task(
    definition,
    folder ?? vscode.TaskScope.Workspace,
    `${definition.action} ${path.basename(script)}`,
    'talq',
    new vscode.ProcessExecution(program, args, {cwd}),
    MATCHERS[definition.action],
  );
  task.presentationOptions = {clear: true, reveal: vscode.TaskRevealKind.Always, showReuseMessage: false};
  return task;
}

async function start(action) {
  const script = openScript();
  if (!script) {
    vscode.window.showErrorMessage('Save the script as a file with the ending .talq first.');
    return;
  }
  await vscode.window.activeTextEditor.document.save();
  await vscode.tasks.executeTask(makeTask({type: 'talq', action}, script));
}

// Tasks for the script of the editor, and those that a tasks.json names.
const provider = {
  provideTasks() {
    const script = openScript();
    return script ? ACTIONS.map((action) => makeTask({type: 'talq', action}, script)) : [];
  },
  resolveTask(task) {
    const named = task.definition.script;
    const root = vscode.workspace.workspaceFolders?.[0]?.uri.fsPath ?? '';
    const script = named ? path.resolve(root, named.replace('${workspaceFolder}', root)) : openScript();
    return script && ACTIONS.includes(task.definition.action) ? makeTask(task.definition, script) : undefined;
  },
};

function activate(context) {
  context.subscriptions.push(vscode.tasks.registerTaskProvider('talq', provider));
  for (const action of ACTIONS) {
    context.subscriptions.push(vscode.commands.registerCommand(`talq.${action}`, () => start(action)));
  }
}

module.exports = {activate};
