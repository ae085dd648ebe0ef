// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

// Stores the site for use without a network. A new version of it takes over once all of it has been
// stored, but not while a game is running: then the next visit does that.
export async function keepOffline(isPlaying) {
  const workers = navigator.serviceWorker;
  if (!workers) return;
  try {
    const registration = await workers.register("sw.js", { updateViaCache: "none" });
    const takeOver = () => {
      if (!registration.waiting || !workers.controller || isPlaying()) return;
      workers.addEventListener("controllerchange", () => window.location.reload());
      registration.waiting.postMessage("take over");
    };
    takeOver();
    registration.addEventListener("updatefound", () => {
      registration.installing.addEventListener("statechange", takeOver);
    });
  } catch (problem) {
    console.info("Not stored for use without a network:", String(problem));
  }
}
