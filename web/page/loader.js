// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

const silence = 20000; // milliseconds without a byte after which a connection counts as lost
const attempts = 3;

// A problem whose message is meant for the player.
export class LoadError extends Error {}

// A WebAssembly module with one function, which makes a 128-bit vector.
const vectorModule = new Uint8Array([
  0, 97, 115, 109, 1, 0, 0, 0, 1, 5, 1, 96, 0, 1, 123, 3, 2, 1, 0, 10, 10, 1, 8, 0, 65, 0, 253, 15,
  253, 98, 11,
]);

export function checkBrowser() {
  if (typeof WebAssembly !== "object") {
    throw new LoadError("This browser has no WebAssembly, which the game needs. Every browser " +
      "of recent years has it, unless it was switched off.");
  }
  if (!WebAssembly.validate(vectorModule)) {
    throw new LoadError("The WebAssembly of this browser is too old for the game, which needs " +
      "Chromium 91, Firefox 89, Safari 16.4 or later.");
  }
}

// Fetches the listed files, { name, size } each. When a file fails, those that have arrived are
// kept, so that a second call of load() fetches only the rest.
export class Loader {
  constructor(base, files) {
    this.base = base;
    this.files = files;
    this.loaded = new Map(); // name -> bytes
    this.received = new Map(); // name -> number of bytes received
    this.onProgress = () => {}; // (bytes received, total bytes)
  }

  get total() {
    return this.files.reduce((sum, file) => sum + file.size, 0);
  }

  async load() {
    const missing = this.files.filter((file) => !this.loaded.has(file.name));
    await Promise.all(missing.map((file) => this.loadFile(file)));
    return this.loaded;
  }

  async loadFile(file) {
    for (let attempt = 1; ; ++attempt) {
      try {
        this.loaded.set(file.name, await this.fetchFile(file, attempt > 1));
        return;
      } catch (problem) {
        if (attempt === attempts || problem instanceof LoadError) throw problem;
      }
    }
  }

  async fetchFile(file, isAgain) {
    const aborter = new AbortController();
    let timer = setTimeout(() => aborter.abort(), silence);
    try {
      const response = await fetch(this.base + file.name,
        { signal: aborter.signal, cache: isAgain ? "reload" : "default" });
      if (!response.ok) {
        throw new LoadError(`A part of the game is missing on the server (${file.name}, ` +
          `status ${response.status}). Perhaps a new version has just been installed there.`);
      }
      const bytes = new Uint8Array(file.size);
      const reader = response.body.getReader();
      for (let at = 0; ;) {
        const { done, value } = await reader.read();
        clearTimeout(timer);
        timer = setTimeout(() => aborter.abort(), silence);
        if (done && at === file.size) return bytes;
        if (done || at + value.length > file.size) throw new Error("not the whole file");
        bytes.set(value, at);
        at += value.length;
        this.report(file, at);
      }
    } finally {
      clearTimeout(timer);
    }
  }

  report(file, bytes) {
    this.received.set(file.name, bytes);
    let sum = 0;
    for (const part of this.received.values()) sum += part;
    this.onProgress(sum, this.total);
  }
}
