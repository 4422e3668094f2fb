// Runs in every frame behind events.js. The focus is one element; what its user
// attends to may be another within it, that a widget names by aria-activedescendant,
// and what that is changes under the user's keys: pressed, expanded, checked. This
// script tells the program of both, and of a page that takes away what has the focus.
'use strict';
(() => {
  if (!globalThis.corvaneEvents || !globalThis.corvaneFacts || globalThis.corvaneAttention) return;

  const {tell, tellFocus} = globalThis.corvaneEvents;
  const {referenced, nameOf, roleOf, isShown, elementAbove, attribute, getter, limit} = globalThis.corvaneNames;
  const STATES = ['aria-checked', 'aria-pressed', 'aria-expanded', 'aria-selected', 'aria-invalid',
    'aria-disabled', 'aria-sort', 'aria-current', 'aria-valuenow', 'aria-valuetext', 'open'];
  const MOVE = 'aria-activedescendant';
  const FOLLOWS = 2000;  // milliseconds in which a change follows what the user has done
  const AROUND = 3;      // elements above it that may hold a state of it
  const LOSS = 600;      // in which a page leads on from what it has taken away
  const ARRIVING = 300;  // in which a change belongs to what has just been said

  let focused = null;
  let active = null;  // within it
  let told = null;    // what was told of last
  let toldAt = -Infinity;
  let lastInput = -Infinity;
  let held = null;    // what had the focus last
  let around = [];    // what it lies in, from the inside
  let losing = null;
  let address = '';   // of the page when the user did something

  const {timesOf} = globalThis.corvaneFacts;
  const activeIn = (element) => {
    if (attribute(element, MOVE).trim() === '' && !('ariaActiveDescendantElement' in element)) return null;
    const [found] = referenced(element, MOVE, 'ariaActiveDescendantElement');
    return found && found !== element && isShown(found) ? found : null;
  };
  const attend = (element) => {
    told = element;
    toldAt = performance.now();
  };
  const watch = () => {
    observer.disconnect();
    for (const element of [focused, active]) {
      if (!element?.isConnected) continue;
      // A summary opens what is around it, a button in a header sorts its table.
      for (let at = element, i = 0; at && i <= AROUND; at = elementAbove(at), i++) {
        observer.observe(at, {attributes: true, attributeFilter: [MOVE, ...STATES]});
      }
    }
  };
  const types = (element) => /^(combobox|textbox|searchbox)$/.test(roleOf(element));
  const writes = (element) => types(element) &&
    (element instanceof HTMLInputElement || element.isContentEditable);
  const changed = (changes) => {
    if (!focused?.isConnected) return;
    const now = performance.now();
    const within = activeIn(focused);
    if (within !== active) {
      active = within;
      watch();
      // Out of a list that has closed it is back where it came from; a field goes on
      // being typed in.
      const reached = active ?? (writes(focused) ? null : focused);
      if (reached) {
        attend(reached);
        tellFocus(reached);
        return;
      }
    }
    if (now - lastInput > FOLLOWS) return;
    const element = active && changes.some((change) => change.target === active) ? active : focused;
    const fresh = element === told && now - toldAt < ARRIVING ? 1 : 0;
    tell('state', element, {fresh});
  };
  const observer = new MutationObserver(changed);

  // The element to tell of when the focus has come to this one. A widget that moves
  // within itself is heard as the group of where it is.
  const arrive = (element) => {
    focused = element;
    active = activeIn(element);
    watch();
    const target = active && !types(element) ? active : element;
    attend(target);
    held = element;
    around = [];
    for (let at = elementAbove(element); at && around.length < limit.above; at = elementAbove(at)) {
      around.push(at);
    }
    return target;
  };

  // The user has done something in the page through its text.
  const acted = () => { lastInput = performance.now(); };

  // Whether a change of this element is told here.
  const attends = (element) => element === focused || element === active ||
    (focused !== null && element instanceof HTMLDetailsElement && elementAbove(focused) === element);

  // A page that takes away what has the focus, as a row that is deleted, leaves its user
  // nowhere: what was around it is said.
  const activeOf = getter(Document, 'activeElement');
  const isGone = (element) => !element.isConnected || !isShown(element);
  const lookForLoss = () => {
    losing = null;
    const at = activeOf(document);
    const nowhere = at === null || at === document.body || at === document.documentElement;
    // Another page in its place is read.
    if (location.href !== address) return;
    if (!held || !isGone(held) || !nowhere || !Document.prototype.hasFocus.call(document)) return;
    const left = around.find((each) => !isGone(each) && roleOf(each) !== '' && nameOf(each) !== '');
    held = null;
    around = [];
    if (left) tell('focus', left);
    else globalThis.webkit?.messageHandlers?.corvaneChanges?.postMessage('lost\n');
  };

  for (const type of ['keydown', 'pointerdown']) {
    window.addEventListener(type, (event) => {
      if (!event.isTrusted) return;
      lastInput = performance.now();
      if (losing !== null) return;
      address = location.href;
      losing = setTimeout(lookForLoss, LOSS);
    }, {capture: true, passive: true});
  }
  // What a player's keys have done.
  const playerFacts = {
    play: () => ({}),
    pause: () => ({}),
    seeked: (player) => timesOf(player),
    volumechange: (player) => ({volume: player.muted ? 1 : Math.round(player.volume * 100) + 1}),
    error: () => ({}),
  };
  for (const type of Object.keys(playerFacts)) {
    window.addEventListener(type, (event) => {
      const [target] = event.isTrusted ? event.composedPath() : [];
      if (target !== focused || !(target instanceof HTMLMediaElement)) return;
      if (performance.now() - lastInput < FOLLOWS) tell('state', target, {facts: playerFacts[type](target)});
    }, {capture: true, passive: true});
  }
  window.addEventListener('blur', (event) => {
    if (!event.isTrusted || event.composedPath()[0] !== focused) return;
    focused = active = null;
    observer.disconnect();
  }, {capture: true, passive: true});

  Object.defineProperty(globalThis, 'corvaneAttention', {value: Object.freeze({arrive, attends, acted})});
})();
