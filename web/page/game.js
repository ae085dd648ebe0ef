// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

import createProgram from "./morvane.js";

// Runs the game once, from the first frame to its end.
//   compiled: the WebAssembly module
//   data: a map from the names of the game's files to their bytes
//   page: the functions that the drivers in web/sdl call
//   onStart: called with the program
// Returns the messages that the game has written and whether it has failed.
export async function play({ compiled, data, page, onStart }) {
  const messages = [];
  const program = await new Promise((resolve, reject) => {
    createProgram({
      page,
      noInitialRun: true,
      instantiateWasm(imports, receive) {
        WebAssembly.instantiate(compiled, imports).then(receive, reject);
        return {};
      },
      print: (text) => messages.push(text),
      printErr: (text) => messages.push(text),
    }).then(resolve, reject);
  });
  program.FS.mkdir("/data");
  for (const [name, bytes] of data) {
    program.FS.createDataFile("/data", name, bytes, true, false, true);
  }
  onStart(program);
  const status = await new Promise((resolve, reject) => {
    program.onExit = resolve;
    program.onAbort = (reason) => reject(new Error(reason));
    program.callMain([]); // returns when the game sleeps for the first time
    if (!program.Asyncify.currData) return; // the game has already ended
    program.Asyncify.whenDone().then(resolve, (problem) => {
      if (problem.name === "ExitStatus") resolve(problem.status);
      else reject(problem);
    });
  });
  return { messages, isFailure: status !== 0 };
}
