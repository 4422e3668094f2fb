// Runs in every frame beside the page script. Tells the program, once, that something in
// the page was to sound by itself and does not, because the engine holds it back until the
// user does something. Sound that only the page's scripts begin is held back in silence:
// it has no element that this script could see, or cannot be told from what never began.
'use strict';
(() => {
  if (globalThis.corvaneMedia) return;
  globalThis.corvaneMedia = true;

  const MOMENT = 500;  // milliseconds in which what may sound has begun

  const channel = globalThis.webkit?.messageHandlers?.corvaneMedia;
  let told = false;

  const waits = (media) => media.autoplay && media.paused && !media.ended && !media.muted &&
    media.volume > 0 && media.played.length === 0;

  document.addEventListener('canplay', ({target}) => {
    if (told || !(target instanceof HTMLMediaElement) || !waits(target)) return;
    setTimeout(() => {
      if (told || !waits(target)) return;
      told = true;
      channel?.postMessage('held\n');
    }, MOMENT);
  }, true);
})();
