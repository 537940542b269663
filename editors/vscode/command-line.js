// What runs a script, found without the editor's help.
'use strict';
const fs = require('fs');
const path = require('path');

// What each action asks of the program. Windows opens windows for every script.
const OPTIONS = {run: [], window: process.platform === 'win32' ? [] : ['--window'], check: ['--check']};

// The program of a folder: talq.exe as it is handed out and, on Linux, the project's ./run. Null if it has none.
function programIn(folder) {
  const name = process.platform === 'win32' ? 'talq.exe' : 'run';
  const file = path.join(folder, name);
  const isOurs = name === 'talq.exe' || fs.existsSync(path.join(folder, 'devhost'));
  return isOurs && fs.existsSync(file) ? file : null;
}

// The program that the settings name; when they name none, that of the nearest folder above the script; else what the
// PATH calls talq.
function findProgram(script, setting) {
  if (setting) return setting;
  for (let folder = path.dirname(script); ; folder = path.dirname(folder)) {
    const program = programIn(folder);
    if (program) return program;
    if (folder === path.dirname(folder)) return 'talq';
  }
}

// The program and its arguments for an action on a script.
function commandLine(action, script, setting) {
  return {program: findProgram(script, setting), args: [...OPTIONS[action], script]};
}

module.exports = {ACTIONS: Object.keys(OPTIONS), commandLine};
