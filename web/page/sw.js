// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

// Stores one complete version of the site. Every file is compared with its SHA-256 before the
// version is used, and a page gets all its files from one version. web/assemble fills in the two
// constants.
const version = "morvane @VERSION@";
const files = "@FILES@"; // [[name, integrity], ...]

async function store() {
  const cache = await caches.open(version);
  // "no-cache": files that the page has just loaded are not transferred again if the server says
  // that they have not changed.
  await cache.addAll(files.map(([name, integrity]) =>
    new Request(name, { integrity, cache: "no-cache" })));
}

async function dropOthers() {
  const others = (await caches.keys())
    .filter((name) => name.startsWith("morvane ") && name !== version);
  await Promise.all(others.map((name) => caches.delete(name)));
  await self.clients.claim();
}

async function answer(request) {
  const cache = await caches.open(version);
  const stored = await cache.match(request.url.replace(/(index\.html)?([?#].*)?$/, ""));
  return stored || fetch(request);
}

self.addEventListener("install", (event) => event.waitUntil(store()));
self.addEventListener("activate", (event) => event.waitUntil(dropOthers()));
self.addEventListener("message", (event) => {
  if (event.data === "take over") self.skipWaiting();
});
self.addEventListener("fetch", (event) => {
  if (event.request.method === "GET") event.respondWith(answer(event.request));
});
