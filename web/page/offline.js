// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

// Stores the site for use without a network, and offers a new version once all of it has been
// stored. An open page uses its own version until it is loaded again.
export async function keepOffline(onNewVersion) {
  if (!("serviceWorker" in navigator)) return;
  try {
    const registration =
      await navigator.serviceWorker.register("sw.js", { updateViaCache: "none" });
    const offer = () => {
      const { waiting } = registration;
      if (waiting && navigator.serviceWorker.controller) {
        onNewVersion(() => waiting.postMessage("take over"));
      }
    };
    offer();
    registration.addEventListener("updatefound", () => {
      registration.installing.addEventListener("statechange", offer);
    });
  } catch (problem) {
    console.info("Not stored for use without a network:", String(problem));
  }
}
