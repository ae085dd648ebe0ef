// SPDX-FileCopyrightText: 2026 The Morvane makers
// SPDX-License-Identifier: MIT

// Plays a script in the page on a virtual clock, exactly as record.c does in the game for Linux.

// Runs in the page. Keys, buttons, wheel and pointer arrive as DOM events where there is one that
// means just that, so the page's own handlers are tested, too.
/* eslint-env browser */
async function playInPage(script) {
  const { page, screen, input } = window.morvane;
  const canvas = document.getElementById("canvas");
  const frameTicks = 16, framesPerChunk = 12, framesPerTurn = 25, buttonKind = 3, sound = 6;
  const lines = [];
  let ticks = 0, frame = 0, at = 0, display = 0, mix = null;
  const hash = (words, mask) => {
    let h = 2166136261;
    for (let i = 0; i < words.length; ++i) h = Math.imul(h ^ words[i] & mask, 16777619);
    return (h >>> 0).toString(16).padStart(8, "0");
  };
  const names = { 8: "Backspace", 9: "Tab", 13: "Enter", 27: "Escape", 32: " ", 127: "Delete",
    273: "ArrowUp", 274: "ArrowDown", 275: "ArrowRight", 276: "ArrowLeft" };

  const sendKey = (isDown, symbol) => {
    const isLetter = symbol > 32 && symbol < 127;
    if (!isLetter && !names[symbol]) {
      input.send(symbol, isDown);
      return;
    }
    const name = isLetter ? String.fromCharCode(symbol) : names[symbol];
    const code = /[a-z]/.test(name) && isLetter ? `Key${name.toUpperCase()}` :
      name === " " ? "Space" : name;
    canvas.dispatchEvent(new KeyboardEvent(isDown ? "keydown" : "keyup",
      { key: name, code, bubbles: true, cancelable: true }));
  };
  // A wheel turns by a press and its release at once; scripts also have one without the other.
  const sendButton = (isDown, number) => {
    const [frame, kind, isNextDown, nextNumber] = script.events[at] || [];
    if (number > 3 && isDown && frame === script.events[at - 1][0] && kind === buttonKind &&
      !isNextDown && nextNumber === number) {
      ++at;
      canvas.dispatchEvent(new WheelEvent("wheel",
        { deltaY: number === 4 ? -100 : 100, cancelable: true }));
    } else {
      input.button(number, isDown);
    }
  };
  const sendMotion = (x, y) => {
    const box = canvas.getBoundingClientRect();
    canvas.dispatchEvent(new PointerEvent("pointermove", {
      clientX: box.left + (x + 0.5) * box.width / 800,
      clientY: box.top + (y + 0.5) * box.height / 600,
    }));
  };
  const send = [null, sendKey, sendMotion, sendButton, null, () => input.quit()];

  const endFrame = () => {
    const next = script.events[at];
    const isHeard = next && next[1] === sound && next[0] <= frame;
    const chunks = isHeard ? script.events[at++][2] : frame % framesPerChunk === 0 ? 1 : 0;
    lines.push(`f${display}`);
    for (let i = 0; i < chunks; ++i) {
      const chunk = mix();
      lines.push(`s${hash(new Uint16Array(chunk.buffer, chunk.byteOffset, chunk.length), 0xFFFF)}`);
    }
    ++frame;
  };

  const old = { ...page };
  const oldNow = Date.now;
  Date.now = () => script.seed * 1000;
  page.now = () => ticks;
  page.sleep = async (ms) => {
    for (let i = 0; i < ms; ++i) {
      if (++ticks % frameTicks !== 0) continue;
      endFrame();
      if (frame % framesPerTurn === 0) await new Promise((resolve) => setTimeout(resolve, 0));
    }
  };
  page.nextEvent = () => {
    while (at < script.events.length && script.events[at][0] <= frame &&
      script.events[at][1] !== sound) {
      const [, kind, a, b] = script.events[at++];
      send[kind](a, b);
    }
    return input.events.shift();
  };
  const shown = script.shown || [];
  const pictures = {};
  page.present = (pixels, width, height) => {
    display = hash(new Uint32Array(pixels.buffer, pixels.byteOffset, width * height), 0xFFFFFF);
    if (shown.includes(frame)) {
      screen.present(pixels, width, height);
      pictures[frame] = canvas.toDataURL();
      const back = screen.context.getImageData(0, 0, width, height).data;
      const again = hash(new Uint32Array(back.buffer, 0, width * height), 0xFFFFFF);
      if (again !== display) lines.push(`the canvas differs in frame ${frame}`);
    }
  };
  page.openAudio = (frequency, channels, samples, mixChunk) => {
    mix = mixChunk;
    return true;
  };
  page.closeAudio = () => {};
  try {
    await new Promise((resolve) => {
      new MutationObserver((_, observer) => {
        if (!document.body.classList.contains("ashore")) return;
        observer.disconnect();
        resolve();
      }).observe(document.body, { attributes: true });
      document.getElementById("play").click();
    });
  } finally {
    Object.assign(page, old);
    Date.now = oldNow;
  }
  return { lines, pictures, message: document.getElementById("message").textContent };
}

export function playVirtually(page, script) {
  return page.evaluate(playInPage, script);
}
