// Runs behind text.js and changes.js, in the same script world. It does with an element
// of the page's text what the program's user wants there.
'use strict';
(() => {
  if (!globalThis.corvaneText || globalThis.corvaneTextUse) return;

  const {documentId, numberOf, bodyOf, rootOf, share, sharedBy} = globalThis.corvane.parts;
  const {isElement, elementAbove} = globalThis.corvaneNames;
  const DEPTH = 10;
  const FRAMES = 500;
  const CLOSES = 20;  // milliseconds
  const NEARBY = 2000;          // nodes that are looked through for words
  const NEARBY_TEXT = 200000;   // and their characters

  // Calls `work` with the element and its own window's scripts, wherever in the page's
  // frames it lies. Answers whether it is there.
  const find = (name, number, work) => {
    const visit = (view, depth) => {
      if (depth > DEPTH) return false;
      const its = sharedBy(view).textUse;
      if (its?.documentId === name) return its.withElement(number, work);
      const count = Math.min(view.length, FRAMES);
      for (let i = 0; i < count; i++) if (visit(view[i], depth + 1)) return true;
      return false;
    };
    return visit(window, 0);
  };
  const withElement = (number, work) => {
    const element = globalThis.corvaneText.elementOf(number);
    if (!isElement(element) || !element.isConnected) return false;
    work(element, own);
    return true;
  };

  const isIn = (element, other) => Node.prototype.contains.call(element, other);
  const focusOn = (element) => {
    const {focus} = element instanceof SVGElement ? SVGElement.prototype : HTMLElement.prototype;
    focus.call(element);
    const inFocus = activeOf(document);
    if (inFocus && isIn(element, inFocus)) return;
    const inner = Element.prototype.querySelector.call(element,
      'a[href], button, input, select, textarea, [tabindex]');
    if (inner instanceof HTMLElement) HTMLElement.prototype.focus.call(inner);
  };
  const clickOn = (element) => {
    if (element instanceof HTMLElement) return HTMLElement.prototype.click.call(element);
    return EventTarget.prototype.dispatchEvent.call(element,
      new MouseEvent('click', {bubbles: true, cancelable: true, composed: true, view: window}));
  };

  const channel = globalThis.webkit?.messageHandlers?.corvaneText;
  // A page that has put others in the place of its elements leaves nobody in silence.
  const told = (isThere) => {
    if (!isThere) channel?.postMessage('gone\n');
    return String(isThere);
  };
  const use = (name, number) => told(find(name, number, (element, its) => its.useOwn(element)));
  const focus = (name, number) => told(find(name, number, (element, its) => its.focusOwn(element)));
  const show = (name, number) => String(find(name, number, (element) =>
    Element.prototype.scrollIntoView.call(element, {block: 'center', behavior: 'instant'})));

  // Words are compared without blanks: a text loses some and gains others on its way to
  // who reads it.
  const withoutBlanks = (text) => text.replace(/\s+/g, '');
  const boxOf = (node, offset) => {
    const range = new Range();
    Range.prototype.setStart.call(range, node, offset);
    Range.prototype.setEnd.call(range, node, offset + 1);
    return Range.prototype.getBoundingClientRect.call(range);
  };
  // Where in the node the character stands that has so many in front of it.
  const offsetIn = (data, count) => {
    let offset = 0;
    for (let rest = count; offset < data.length; offset++) {
      if (/\s/.test(data[offset])) continue;
      if (rest-- === 0) break;
    }
    return Math.min(offset, data.length - 1);
  };
  const showWordsOwn = (start, words) => {
    const sought = withoutBlanks(words);
    if (sought === '') return;
    const walker = Document.prototype.createTreeWalker.call(document, rootOf(document), NodeFilter.SHOW_TEXT);
    walker.currentNode = start;
    let seen = '';
    const nodes = [];  // with where each begins in what was seen
    for (let count = 0; count < NEARBY && seen.length < NEARBY_TEXT; count++) {
      const node = walker.nextNode();
      if (!node) return;
      const holder = node.parentElement;
      if (!holder || !Element.prototype.checkVisibility.call(holder)) continue;
      nodes.push({node, at: seen.length});
      const from = Math.max(0, seen.length - sought.length);
      seen += withoutBlanks(node.data);
      const found = seen.indexOf(sought, from);
      if (found < 0) continue;
      const first = nodes.findLast(({at}) => at <= found);
      const box = boxOf(first.node, offsetIn(first.node.data, found - first.at));
      if (box.top >= 0 && box.bottom <= window.innerHeight) return;
      Element.prototype.scrollIntoView.call(first.node.parentElement, {block: 'nearest', behavior: 'instant'});
      const now = boxOf(first.node, offsetIn(first.node.data, found - first.at));
      if (now.top >= 0 && now.bottom <= window.innerHeight) return;
      window.scrollBy({top: now.top - window.innerHeight / 2, behavior: 'instant'});
      return;
    }
  };
  const showWords = (name, number, words) => {
    if (name === '') showWordsOwn(rootOf(document), words);
    else find(name, number, (element, its) => its.showWordsOwn(element, words));
    return '';
  };

  const own = Object.freeze({
    documentId, withElement, showWords, showWordsOwn, use, focus, show, elementAbove,
    focusOwn: (element) => {
      globalThis.corvaneEvents?.enter();
      focusOn(element);
    },
    // What follows is watched as if the user had clicked there.
    useOwn: (element) => {
      globalThis.corvaneEvents?.acted();
      globalThis.corvaneAttention?.acted();
      globalThis.corvaneChanges?.act(element, () => clickOn(element));
    },
  });
  Object.defineProperty(globalThis, 'corvaneTextUse', {value: own});
  share('textUse', own);

  // --- Escape leads back to the text ---------------------------------------------------

  const activeOf = (root) => Object.getOwnPropertyDescriptor(
    (root instanceof Document ? Document : ShadowRoot).prototype, 'activeElement').get.call(root);
  const active = () => {
    let element = activeOf(document);
    while (element?.shadowRoot && activeOf(element.shadowRoot)) element = activeOf(element.shadowRoot);
    return element;
  };
  const fullscreenOf = Object.getOwnPropertyDescriptor(Document.prototype, 'fullscreenElement').get;
  // What the page shows that an Escape may take away.
  const signs = () => {
    const element = active();
    return [element, element?.value, fullscreenOf.call(document),
      Document.prototype.querySelectorAll.call(document, ':popover-open, dialog[open]').length];
  };
  // The element, or what is nearest around it, that stands in the text. It may have come
  // after the text was put together.
  const inText = (element) => {
    const isPage = element === bodyOf(document) || element === rootOf(document);
    if (isElement(element) && !isPage && globalThis.corvaneText.elementOf(numberOf(element)) !== element) {
      globalThis.corvaneText.walk();
    }
    for (let at = element, i = 0; isElement(at) && i < 300; at = elementAbove(at), i++) {
      const number = numberOf(at);
      if (at !== rootOf(document) && globalThis.corvaneText.elementOf(number) === at) return number;
    }
    return isElement(element) && !isPage ? numberOf(element) : 0;
  };
  // A frame with nothing in it that could stand there is what its page has of it.
  share('placeOfFrame', (view) => {
    const frames = Document.prototype.querySelectorAll.call(document, 'iframe, frame, object');
    const frame = Array.prototype.find.call(frames, (each) => each.contentWindow === view);
    return frame ? [documentId, inText(frame)] : null;
  });
  const placeOf = (element) => {
    const number = inText(element);
    const isFrame = number === 0 && window !== window.parent;
    return (isFrame ? sharedBy(window.parent).placeOfFrame?.(window) : null) ?? [documentId, number];
  };

  // The page has the key first. It has used it when it says so, keeps it from others, or
  // does anything with it.
  let reached = null;
  window.addEventListener('keydown', (event) => {
    if (!event.isTrusted || event.key !== 'Escape' || event.isComposing) return;
    if (event.shiftKey || event.ctrlKey || event.altKey || event.metaKey) return;
    const before = signs();
    let changes = 0;
    const observer = new MutationObserver((list) => { changes += list.length; });
    observer.observe(document, {subtree: true, childList: true, characterData: true, attributes: true});
    reached = null;
    setTimeout(() => {
      changes += observer.takeRecords().length;
      observer.disconnect();
      if (event.defaultPrevented || reached !== event || changes > 0) return;
      // The engine closes a dialog a moment later.
      setTimeout(() => {
        if (signs().some((each, i) => each !== before[i])) return;
        channel?.postMessage(`escape\n${JSON.stringify(placeOf(before[0]))}`);
      }, CLOSES);
    }, 0);
  }, {capture: true, passive: true});
  window.addEventListener('keydown', (event) => { reached = event; }, {passive: true});
})();
