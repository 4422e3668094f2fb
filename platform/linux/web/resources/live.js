// Runs in every frame behind names.js. It tells the program of words that a page
// says by itself: changes in its live regions, alerts and messages that appear,
// progress, and dialogs that open without taking the focus. What becomes of them,
// the program decides.
//
// A page may change without end: what is looked at in one turn is bounded, and of
// more messages than a person can hear only their number is told.
'use strict';
(() => {
  if (!globalThis.corvaneNames || globalThis.corvaneLive) return;

  const {
    nameOf, wordsOf, descriptionOf, roleOf, isShown, isElement, elementAbove, attribute, has, matches, canHaveFocus,
    getter, short, limit,
  } = globalThis.corvaneNames;
  const {share, sharedBy} = globalThis.corvane.parts;
  const channel = globalThis.webkit?.messageHandlers?.corvaneLive;
  if (!channel) return;

  const SOON = 50;         // milliseconds in which changes gather
  const FOCUS_TIME = 400;  // that a dialog has to take the focus
  const MOST = {regions: 1000, changes: 500, targets: 200, messages: 10, shadows: 500, inside: 50};
  const DIALOG_WORDS = 200;
  const REGIONS = '[aria-live], [role~=alert], [role~=status], [role~=log], [role~=timer], ' +
    '[role~=marquee], output, [role~=progressbar], progress';
  const DIALOGS = '[role~=dialog], [role~=alertdialog], dialog';
  const LEVELS = {alert: 'assertive', status: 'polite', log: 'polite', timer: 'off', marquee: 'off'};

  const all = (root, selector) => {
    const type = root instanceof Document ? Document : root instanceof DocumentFragment
      ? DocumentFragment : Element;
    return type.prototype.querySelectorAll.call(root, selector);
  };
  const parentOf = getter(Node, 'parentElement');
  const activeOf = getter(Document, 'activeElement');
  const shadowOf = getter(Element, 'shadowRoot');
  const editable = getter(HTMLElement, 'isContentEditable');

  // --- messages ----------------------------------------------------------------------

  let sent = 0;
  let left = 0;
  let rest = null;
  const post = (message) => {
    if (sent >= MOST.messages) {
      left += 1;
    } else {
      sent += 1;
      channel.postMessage(`live\n${JSON.stringify(message)}`);
    }
    rest ??= setTimeout(() => {
      rest = null;
      const more = left;
      sent = left = 0;
      if (more > 0) post({more});
    }, 1000);
  };
  const languageAt = (element) => globalThis.corvaneFacts?.languageOf(element) ?? '';
  const say = (words, level, element) => {
    if (words !== '') post({words, urgent: level === 'assertive', language: languageAt(element)});
  };

  // --- regions -----------------------------------------------------------------------

  const known = new Map();  // regions, and what stood in them when they were last looked at
  const tenths = new WeakMap();
  const dialogs = new WeakMap();  // whether they were shown

  const isProgress = (element) => element instanceof HTMLProgressElement ||
    roleOf(element) === 'progressbar';
  const ownLevel = (element) => {
    const said = attribute(element, 'aria-live').trim().toLowerCase();
    if (said === 'assertive' || said === 'polite' || said === 'off') return said;
    return LEVELS[roleOf(element)] ?? '';
  };
  const regionOf = (node) => {
    let at = isElement(node) ? node : parentOf(node);
    for (let i = 0; at && i < limit.above; at = elementAbove(at), i++) {
      const level = matches(at, REGIONS) ? ownLevel(at) : '';
      if (level === 'off') return null;
      if (level) return at;
    }
    return null;
  };
  const isBusy = (node) => {
    let at = isElement(node) ? node : parentOf(node);
    for (let i = 0; at && i < limit.above; at = elementAbove(at), i++) {
      if (attribute(at, 'aria-busy') === 'true') return true;
    }
    return false;
  };
  const atomicAround = (node, region) => {
    let at = isElement(node) ? node : parentOf(node);
    for (let i = 0; at && i < limit.above; at = elementAbove(at), i++) {
      const said = attribute(at, 'aria-atomic');
      if (said === 'true') return at;
      if (said === 'false') return null;
      if (at === region) return /^(alert|status)$/.test(roleOf(at)) ? at : null;
    }
    return null;
  };
  const meet = (region) => {
    if (known.has(region) || known.size >= MOST.regions || !ownLevel(region)) return false;
    known.set(region, '');
    return true;
  };
  // The words stand at the element, or all over the region.
  const tell = (region, words, element = region) => {
    known.set(region, wordsOf(region));
    if (ownLevel(region) !== 'off') say(words, ownLevel(region), element);
  };
  const progressed = (bar) => {
    if (!isShown(bar)) return;
    const now = bar instanceof HTMLProgressElement ? bar.position
      : (Number(attribute(bar, 'aria-valuenow')) - Number(attribute(bar, 'aria-valuemin') || 0)) /
        (Number(attribute(bar, 'aria-valuemax') || 100) - Number(attribute(bar, 'aria-valuemin') || 0));
    if (!Number.isFinite(now) || now < 0 || now > 1) return;
    const tenth = Math.floor(now * 10 + 1e-9);
    const before = tenths.get(bar);
    tenths.set(bar, tenth);
    if (before === undefined || before === tenth) return;
    const value = short(attribute(bar, 'aria-valuetext')) || `${Math.round(now * 100)} percent`;
    const name = nameOf(bar);
    say(name ? `${name}, ${value}` : value, 'polite', bar);
  };

  // --- dialogs -----------------------------------------------------------------------

  const hasFocus = (dialog) => {
    const active = activeOf(document);
    return active !== null && Node.prototype.contains.call(dialog, active);
  };
  let unentered = [];  // dialogs that have opened without taking the focus
  // Whoever goes into it goes to the first element that takes the focus; where there is
  // none, Tab goes on from there.
  const intoDialog = (dialog) => {
    const inside = Array.prototype.slice.call(all(dialog, '*'), 0, limit.nodes);
    const first = [dialog, ...inside].find((each) => canHaveFocus(each) && isShown(each) &&
      !matches(each, ':disabled, input[type=hidden]') && attribute(each, 'tabindex') !== '-1');
    if (first) return HTMLElement.prototype.focus.call(first);
    Selection.prototype.collapse.call(document.getSelection(), dialog, 0);
    const name = nameOf(dialog);
    post({dialog: roleOf(dialog), name, text: short(wordsOf(dialog).slice(0, DIALOG_WORDS)),
      language: languageAt(dialog)});
  };
  const enter = (depth = 0) => {
    for (const dialog of unentered.splice(0).reverse()) {
      if (!dialog.isConnected || !isShown(dialog) || hasFocus(dialog)) continue;
      intoDialog(dialog);
      return 'entered';
    }
    if (depth > 10) return undefined;
    for (let i = 0; i < window.length && i < MOST.inside; i++) {
      if (sharedBy(window[i]).enterDialog?.(depth + 1)) return 'entered';
    }
    return undefined;
  };
  const lookAtDialog = (dialog) => {
    const shown = isShown(dialog);
    const before = dialogs.get(dialog) ?? false;
    dialogs.set(dialog, shown);
    if (!shown || before) return;
    setTimeout(() => {
      if (!dialog.isConnected || !isShown(dialog) || hasFocus(dialog)) return;
      unentered = [...unentered.slice(-MOST.inside), dialog];
      const name = nameOf(dialog);
      const text = descriptionOf(dialog, name) || wordsOf(dialog);
      post({dialog: roleOf(dialog), name, text: short(text.slice(0, DIALOG_WORDS)),
        urgent: roleOf(dialog) === 'alertdialog', language: languageAt(dialog)});
    }, FOCUS_TIME);
  };

  // --- changes -----------------------------------------------------------------------

  let waiting = [];
  let more = false;
  let turn = null;
  const shadows = new WeakSet();
  let shadowCount = 0;

  const isTypedIn = (node) => {
    const element = isElement(node) ? node : parentOf(node);
    return element instanceof HTMLElement && editable(element);
  };
  // What a change adds to the region, as far as the page wants it heard.
  const newWords = (change, region) => {
    const relevant = attribute(region, 'aria-relevant').toLowerCase() || 'additions text';
    const wants = (kind) => relevant.includes(kind) || relevant.includes('all');
    if (change.type === 'characterData') return wants('text') ? short(change.target.data) : '';
    const words = [];
    if (wants('additions') || wants('text')) {
      for (const node of change.addedNodes) {
        if (node.parentNode !== change.target) continue;
        if (!isElement(node)) words.push(short(node.data ?? ''));
        else if (wants('additions')) words.push(wordsOf(node));
      }
    }
    if (wants('removals')) {
      for (const node of change.removedNodes) {
        const gone = short(node.textContent ?? '');
        if (gone) words.push(`${gone} removed`);
      }
    }
    return words.filter((each) => each).join(' ');
  };
  const adopt = (root) => {
    if (isElement(root)) {
      if (matches(root, REGIONS)) meet(root);
      if (matches(root, DIALOGS)) lookAtDialog(root);
    }
    let count = 0;
    for (const region of all(root, REGIONS)) {
      if (++count > MOST.regions) break;
      meet(region);
      if (isProgress(region)) progressed(region);
    }
    for (const dialog of Array.prototype.slice.call(all(root, DIALOGS), 0, MOST.inside)) lookAtDialog(dialog);
  };
  // Regions that were not there, or not to be seen, and now hold words.
  const appeared = (element) => {
    const inside = [element, ...Array.prototype.slice.call(all(element, REGIONS), 0, MOST.inside)];
    for (const region of inside) {
      if (!known.has(region) || isBusy(region) || isProgress(region)) continue;
      const words = wordsOf(region);
      if (words !== '' && known.get(region) === '') tell(region, words);
      else known.set(region, words);
    }
    if (matches(element, DIALOGS)) lookAtDialog(element);
    for (const dialog of Array.prototype.slice.call(all(element, DIALOGS), 0, MOST.inside)) lookAtDialog(dialog);
  };

  // The name that a part says before its words; its words are no name of it.
  const titleOf = (part) => (has(part, 'aria-label') || has(part, 'aria-labelledby') ? nameOf(part) : '');

  // The element that a change brings, or that it happens in.
  const placeOf = (change) => {
    const [node] = change.addedNodes;
    if (change.addedNodes.length === 1 && isElement(node)) return node;
    return isElement(change.target) ? change.target : parentOf(change.target);
  };

  // A part of a region that was there and is shown only now.
  const revealed = (part, told) => {
    const region = regionOf(part);
    if (!region || region === part || !known.has(region) || !isShown(part)) return;
    const words = wordsOf(part);
    const title = titleOf(part);
    // In the words of the region a part with a title is that alone.
    if (words === '' || known.get(region).includes(title || words)) return;
    const before = told.get(region) ?? {words: [], whole: null, at: part};
    const text = short([title, words].filter((each) => each).join(' '));
    before.whole ??= atomicAround(part, region);
    if (!before.words.includes(text)) before.words.push(text);
    told.set(region, before);
  };

  // Whether the page's text may be another one by it. What only dresses an element changes
  // without end on many a page; it counts where it follows what the user has done.
  const isInText = (change) => change.type !== 'attributes' ||
    /^(hidden|aria-hidden|open|popover)$/.test(change.attributeName) ||
    (/^(class|style)$/.test(change.attributeName) && globalThis.corvaneChanges?.isActing() === true);

  const look = () => {
    turn = null;
    const changes = waiting;
    waiting = [];
    if (more) post({more: 1});
    more = false;
    const told = new Map();  // region -> words, or the part that is told whole
    const shownAnew = new Set();
    for (const change of changes) {
      const target = change.target;
      if (!target.isConnected || isTypedIn(target)) continue;
      if (change.type === 'attributes') {
        if (/^(aria-valuenow|aria-valuetext|value)$/.test(change.attributeName)) {
          if (isProgress(target)) progressed(target);
          continue;
        }
        if (change.attributeName === 'role' || change.attributeName === 'aria-live') meet(target);
        if (shownAnew.size < MOST.targets) shownAnew.add(target);
        revealed(target, told);
        continue;
      }
      const region = regionOf(target);
      for (const node of change.addedNodes) {
        if (!isElement(node) || !node.isConnected) continue;
        watchShadows(node);
        adopt(node);
        if (!region && shownAnew.size < MOST.targets) shownAnew.add(node);
      }
      if (!region || isProgress(region)) continue;
      meet(region);
      if (isBusy(target)) {
        known.set(region, '');  // all of it is new once the page is done
        continue;
      }
      if (!isShown(region)) continue;
      const atomic = atomicAround(target, region);
      const before = told.get(region) ?? {words: [], whole: null, at: placeOf(change)};
      if (atomic) before.whole = atomic;
      else before.words.push(newWords(change, region));
      told.set(region, before);
    }
    for (const [region, {words, whole, at}] of told) {
      shownAnew.delete(region);
      const parts = whole ? [titleOf(whole), wordsOf(whole)] : words;
      tell(region, short(parts.filter((each) => each).join(' ')), whole ?? at ?? region);
    }
    for (const element of shownAnew) if (element.isConnected) appeared(element);
    // Where it follows what the user has done, what that has done is told first.
    if (changes.some(isInText) && !globalThis.corvaneChanges?.touch()) globalThis.corvaneText?.changed();
    if (known.size < MOST.regions) return;
    for (const region of known.keys()) if (!region.isConnected) known.delete(region);
  };

  const observer = new MutationObserver((changes) => {
    for (const change of changes) {
      if (waiting.length >= MOST.changes) {
        more ||= change.type !== 'attributes' && regionOf(change.target) !== null;
        break;
      }
      waiting.push(change);
    }
    turn ??= setTimeout(look, SOON);
  });
  const watch = (root) => observer.observe(root, {
    subtree: true, childList: true, characterData: true, attributes: true,
    attributeFilter: ['class', 'style', 'hidden', 'aria-hidden', 'aria-busy', 'role', 'aria-live',
      'aria-valuenow', 'aria-valuetext', 'value', 'open', 'popover'],
  });
  // What lies in shadow trees is watched by itself. By a walker: a list of all elements
  // keeps the whole document when it is left, 0.2 MB and more a page.
  const watchShadows = (root) => {
    const walker = Document.prototype.createTreeWalker.call(document, root, NodeFilter.SHOW_ELEMENT);
    for (let element = isElement(root) ? root : walker.nextNode(); element; element = walker.nextNode()) {
      const shadow = shadowOf(element);
      if (shadow) watchShadow(shadow);
    }
  };
  const watchShadow = (shadow) => {
    if (shadowCount >= MOST.shadows || shadows.has(shadow)) return;
    shadows.add(shadow);
    shadowCount += 1;
    watch(shadow);
    adopt(shadow);
    watchShadows(shadow);
  };

  // What is there when the page has come is part of the page.
  const start = () => {
    const root = document.documentElement;
    if (!(root instanceof Element)) return;
    watch(root);
    watchShadows(root);
    adopt(document);
    for (const region of known.keys()) known.set(region, isProgress(region) ? '' : wordsOf(region));
  };
  if (document.readyState === 'complete') start();
  else window.addEventListener('load', (event) => { if (event.isTrusted) start(); }, {once: true});

  Object.defineProperty(globalThis, 'corvaneLive', {value: Object.freeze({enter, watchShadow})});
  share('enterDialog', enter);
})();
