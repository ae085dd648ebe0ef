// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

// Stores one complete version of the site. Every file is compared with its SHA-256 before the
// version is used, and a page gets all its files from one version. web/assemble fills in the two
// constants.
const version = "@VERSION@";
const files = "@FILES@"; // [[name, integrity], ...]

const prefix = "morvane ";
const home = new URL("./", self.location).href;

async function store() {
  const cache = await caches.open(prefix + version);
  await Promise.all(files.map(async ([name, integrity]) => {
    const url = new URL(name, home).href;
    // The browser's own cache has the files that the page has just loaded. If a file there has
    // other contents, it is fetched from the server.
    let response = await fetch(url, { integrity }).catch(() => null);
    if (!response || !response.ok) response = await fetch(url, { integrity, cache: "reload" });
    if (!response.ok) throw new Error(`${name}: status ${response.status}`);
    await cache.put(url, response);
  }));
}

async function dropOthers() {
  const names = await caches.keys();
  await Promise.all(names.filter((name) => name.startsWith(prefix) && name !== prefix + version)
    .map((name) => caches.delete(name)));
  await self.clients.claim();
}

async function answer(request) {
  const url = new URL(request.url);
  url.search = "";
  url.hash = "";
  const name = request.mode === "navigate" && url.href === `${home}index.html` ? home : url.href;
  const cache = await caches.open(prefix + version);
  return await cache.match(name) || fetch(request);
}

self.addEventListener("install", (event) => event.waitUntil(store()));
self.addEventListener("activate", (event) => event.waitUntil(dropOthers()));
self.addEventListener("message", (event) => {
  if (event.data === "take over") self.skipWaiting();
});
self.addEventListener("fetch", (event) => {
  if (event.request.method === "GET" && event.request.url.startsWith(home)) {
    event.respondWith(answer(event.request));
  }
});
