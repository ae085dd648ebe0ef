// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

const silence = 20000; // milliseconds without a byte after which a connection counts as lost

// A problem whose message is meant for the player.
export class LoadError extends Error {}

// Fetches the listed files, { name, size } each. Files that have arrived are kept, so that a second
// call of load() fetches only the rest.
export class Loader {
  constructor(base, files) {
    this.base = base;
    this.files = files;
    this.loaded = new Map(); // name -> bytes
    this.onProgress = () => {}; // (bytes received, total bytes)
  }

  async load() {
    const aborter = new AbortController();
    const sum = (files) => files.reduce((bytes, file) => bytes + file.size, 0);
    const missing = this.files.filter((file) => !this.loaded.has(file.name));
    const total = sum(this.files);
    let received = total - sum(missing), timer = 0;
    const count = (bytes) => {
      received += bytes;
      clearTimeout(timer);
      timer = setTimeout(() => aborter.abort(), silence);
      this.onProgress(received, total);
    };
    count(0);
    const { signal } = aborter;
    const attempt = (file, cache) => this.fetchFile(file, { signal, cache }, count);
    // The second attempt is for a short interruption, or for a damaged file in the browser's cache.
    const results = await Promise.allSettled(missing.map((file) =>
      attempt(file, "default").catch(() => attempt(file, "reload"))));
    clearTimeout(timer);
    const failure = results.find((result) => result.status === "rejected");
    if (failure) throw failure.reason;
    return this.loaded;
  }

  async fetchFile(file, options, count) {
    const response = await fetch(this.base + file.name, options);
    if (!response.ok) {
      throw new LoadError(`A part of the game is missing on the server (${file.name}, ` +
        `status ${response.status}). Perhaps a new version has just been installed there.`);
    }
    const bytes = new Uint8Array(file.size);
    const reader = response.body.getReader();
    let at = 0;
    try {
      for (let part = await reader.read(); !part.done; part = await reader.read()) {
        bytes.set(part.value, at);
        at += part.value.length;
        count(part.value.length);
      }
      if (at !== file.size) throw new Error("not the whole file");
    } catch (problem) {
      count(-at); // the next attempt begins anew
      throw problem;
    }
    this.loaded.set(file.name, bytes);
  }
}
