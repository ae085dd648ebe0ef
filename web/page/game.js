// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

import createProgram from "./morvane.js";

// Runs the game once, from the first frame to its end.
//   compiled: the WebAssembly module
//   data: a map from the names of the game's files to their bytes
//   page: the functions that the drivers in web/sdl call: now, sleep, open, present, nextEvent,
//         openAudio, closeAudio
//   onStart: called with the program
// Resolves with the messages that the game has written and whether it has failed.
export function play({ compiled, data, page, onStart }) {
  return new Promise((resolve, reject) => {
    const messages = [];
    const end = (status) => resolve({ messages, isFailure: status !== 0 });
    createProgram({
      page,
      noInitialRun: true,
      instantiateWasm(imports, receive) {
        WebAssembly.instantiate(compiled, imports).then(receive, reject);
        return {};
      },
      preRun: [(program) => {
        program.FS.mkdir("/data");
        for (const [name, bytes] of data) {
          program.FS.createDataFile("/data", name, bytes, true, false, true);
        }
      }],
      print: (text) => messages.push(text),
      printErr: (text) => messages.push(text),
      onExit: end,
      onAbort: (reason) => reject(new Error(String(reason))),
    }).then((program) => {
      onStart(program);
      program.callMain([]); // returns when the game sleeps for the first time
      if (!program.Asyncify.currData) return; // the game has already ended
      program.Asyncify.whenDone().then(end, (problem) => {
        if (problem.name === "ExitStatus") end(problem.status);
        else reject(problem);
      });
    }).catch(reject);
  });
}
