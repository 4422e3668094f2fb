// Runs in every frame beside the page script. Today's pages change in place: their
// scripts fill an empty document after it has loaded, show another "page" under
// another address without loading anything, or add to what is there. This script
// tells the program of it; what becomes of that, the program decides.
//
// Nothing is watched but what follows something that the user does (a click, or a
// key that makes one), and the first content of a page that came empty.
'use strict';
(() => {
  if (globalThis.corvaneChanges) return;

  const QUIET = 400;      // milliseconds without a change until a change is over
  const RESTLESS = 2000;  // how long changes that never end are waited for
  const WATCHED = 10000;  // after what the user did
  const FILLED = {still: 1500, quiet: 300, longest: 4000};  // the wait for first content
  const NEWS = 40;        // characters that make a change worth a word
  const WORDS = 200;
  const OPENS = 2000;     // how soon after the user's doing a part of the page appears
  const LOOKED = 3000;    // elements that are looked at for parts that are hidden
  const PARTS = 200;

  const channel = globalThis.webkit?.messageHandlers?.corvaneChanges;
  const post = (kind, text = '') => channel?.postMessage(`${kind}\n${text}`);
  const elementById = (id) => Document.prototype.getElementById.call(document, id);
  const all = (selector) => Document.prototype.querySelectorAll.call(document, selector);
  const activeElement = () => Object.getOwnPropertyDescriptor(Document.prototype, 'activeElement')
    .get.call(document);
  const root = () => Object.getOwnPropertyDescriptor(Document.prototype, 'documentElement')
    .get.call(document);
  const words = (text) => {
    const short = text.replace(/\s+/g, ' ').trim().slice(0, WORDS);
    return short.isWellFormed() ? short : short.toWellFormed();
  };

  // --- a page that comes empty -------------------------------------------------

  // Answers once the document has got its first content and stands still, or does
  // not seem to get any.
  const filled = () => new Promise((done) => {
    if (all('script').length === 0) {
      done('plain');
      return;
    }
    let timer;
    const end = () => {
      observer.disconnect();
      clearTimeout(timer);
      clearTimeout(last);
      done('filled');
    };
    const wait = (time) => {
      clearTimeout(timer);
      timer = setTimeout(end, time);
    };
    const observer = new MutationObserver(() => wait(FILLED.quiet));
    const last = setTimeout(end, FILLED.longest);
    observer.observe(root() ?? document, {subtree: true, childList: true, characterData: true});
    wait(FILLED.still);
  });

  // --- what follows something that the user does -------------------------------

  // The address without what names a place in the same page.
  const pageOf = (address) => {
    const url = new URL(address);
    if (!/^#[!/]/.test(url.hash)) url.hash = '';
    return url.href;
  };

  let action = null;  // what the user did last, while its consequences are watched

  const stateOf = (element) => {
    for (const name of ['aria-expanded', 'aria-pressed', 'aria-checked', 'aria-selected']) {
      const value = Element.prototype.getAttribute.call(element, name);
      if (value === 'true' || value === 'false') return `${name.slice(5)} ${value}`;
    }
    return element instanceof HTMLDetailsElement ? `expanded ${element.open}` : '';
  };

  // How many characters of text a change has added.
  const added = (change) => {
    if (change.type === 'characterData') return change.target.data.length;
    let count = 0;
    for (const node of change.addedNodes) {
      if (node instanceof HTMLScriptElement || node instanceof HTMLStyleElement) continue;
      count += (node.textContent ?? '').trim().length;
    }
    return count;
  };

  // --- parts that appear ----------------------------------------------------------

  const FIELDS = 'input:not([type="hidden"]), select, textarea';
  const select = (element, selector) => Element.prototype.querySelector.call(element, selector);
  const attribute = (element, name) => Element.prototype.getAttribute.call(element, name) ?? '';
  const isShown = (element) => Element.prototype.checkVisibility.call(element,
    {visibilityProperty: true});
  // What comes and goes by itself, or is not meant to be read.
  const isAside = (element) => element instanceof HTMLScriptElement ||
    element instanceof HTMLStyleElement || element instanceof HTMLTemplateElement ||
    /^(tooltip|progressbar|status|alert|presentation|none)$/.test(attribute(element, 'role')) ||
    attribute(element, 'aria-hidden') === 'true' || attribute(element, 'aria-busy') === 'true';

  // What a live region says by itself to those who hear such words.
  const isLive = (element) =>
    Element.prototype.closest.call(element, '[aria-live="polite"], [aria-live="assertive"]') !== null;

  // The parts of the page below an element that are hidden now, without what is in them.
  const collectHidden = (top, parts) => {
    const walker = Document.prototype.createTreeWalker.call(document, top, NodeFilter.SHOW_ELEMENT);
    let node = walker.nextNode();
    for (let looked = 0; node && looked < LOOKED && parts.size < PARTS; looked++) {
      if (isShown(node)) {
        node = walker.nextNode();
        continue;
      }
      if (!isAside(node)) parts.add(node);
      node = walker.nextSibling();
      while (!node && walker.parentNode()) node = walker.nextSibling();
    }
  };
  // First those around what the user presses: a long page is not looked at to its end.
  const hiddenParts = (element) => {
    const parts = new Set();
    let around = element;
    for (let i = 0; i < 3 && around?.parentElement; i++) around = around.parentElement;
    if (around) collectHidden(around, parts);
    const page = root();
    if (page && page !== around) collectHidden(page, parts);
    return parts;
  };
  // What a part that has appeared is called: its first words, else those of its first
  // field; nothing where there are none.
  const wordsOfPart = (part) => {
    const named = attribute(part, 'aria-label');
    if (named) return words(named);
    const own = part instanceof HTMLElement ? words(part.innerText.trim().split('\n')[0]) : '';
    if (own) return own;
    const field = part.matches(FIELDS) ? part : select(part, FIELDS);
    return field ? words(attribute(field, 'aria-label') || attribute(field, 'title') ||
      attribute(field, 'placeholder')) : '';
  };

  class Action {
    // `inText`: the user has done it where the page's text is read, which follows the page.
    constructor(element, inText = false) {
      this.element = element;
      this.inText = inText;
      this.page = pageOf(location.href);
      this.state = element ? stateOf(element) : '';
      this.focus = activeElement();
      this.hidden = hiddenParts(element);
      this.began = performance.now();
      this.text = 0;
      this.told = false;
      this.toldLive = false;
      this.restless = 0;
      this.fresh = true;  // the text of the page does not have what has changed
      this.observer = new MutationObserver((changes) => this.changed(changes));
      this.observer.observe(root() ?? document,
        {subtree: true, childList: true, characterData: true});
      this.wait();
    }
    changed(changes) {
      if (this.text < NEWS) for (const change of changes) this.text += added(change);
      for (const change of changes) this.note(change.addedNodes);
      this.touch();
    }
    touch() {
      this.restless ||= performance.now();
      this.fresh = true;
      if (performance.now() - this.restless < RESTLESS) this.wait();
    }
    // New elements with a field in them are a part that appears, too.
    note(nodes) {
      for (const node of nodes) {
        if (this.hidden.size >= PARTS) return;
        const fits = node instanceof Element && (node.matches(FIELDS) || select(node, FIELDS));
        if (fits && !isAside(node)) this.hidden.add(node);
      }
    }
    wait() {
      clearTimeout(this.timer);
      this.timer = setTimeout(() => this.look(), QUIET);
    }
    // The document stands still, or it never does.
    look() {
      this.restless = 0;
      if (window === window.top && pageOf(location.href) !== this.page) {
        this.end();
        post('moved');
        return;
      }
      this.tellState();
      this.tellOpened();
      // A box may be checked without any change of the document.
      if (this.fresh) globalThis.corvaneText?.changed();
      this.fresh = false;
      if (!this.told && this.text >= NEWS) {
        this.told = true;
        // Who is led to the new part hears it by its focus.
        if (activeElement() === this.focus && !this.inText) post('changed');
      }
      if (performance.now() - this.began < WATCHED) this.wait();
      else this.end();
    }
    tellState() {
      const state = this.element?.isConnected ? stateOf(this.element) : '';
      if (state === this.state || state === '') return;
      this.state = state;
      this.told = true;  // it says enough
      // Of the element that has the focus it is told as it happens; who is led on has
      // heard where to.
      if (globalThis.corvaneAttention?.attends(this.element) || activeElement() !== this.focus) return;
      post('state', state);
    }
    // Who is led to the part hears it by its focus.
    tellOpened() {
      if (this.told || performance.now() - this.began > OPENS || activeElement() !== this.focus) return;
      for (const part of this.hidden) {
        const text = part.isConnected && isShown(part) ? wordsOfPart(part) : '';
        const live = text !== '' && isLive(part);
        if (text === '' || (live && this.toldLive)) continue;
        if (live) {
          this.toldLive = true;
          post('opened in live region', text);
          continue;
        }
        this.told = true;
        post('opened', text);
        return;
      }
    }
    end() {
      clearTimeout(this.timer);
      this.observer.disconnect();
      if (action === this) action = null;
    }
  }

  // --- places in the page ------------------------------------------------------

  const getter = (type, name) => {
    const read = Object.getOwnPropertyDescriptor(type.prototype, name).get;
    return (object) => read.call(object);
  };
  const parentOf = getter(Node, 'parentNode');
  const previousOf = getter(Node, 'previousSibling');
  const innerTextOf = getter(HTMLElement, 'innerText');

  const shownText = (node) => {
    if (node instanceof Text) return node.data;
    if (!(node instanceof Element) || !Element.prototype.checkVisibility.call(node)) return '';
    return node instanceof HTMLElement ? innerTextOf(node) : node.textContent;
  };

  // How many characters of the page's text stand in front of the node. Blanks are left
  // out: a text loses some and gains others on its way to who reads it.
  const charactersBefore = (target) => {
    const uncounted = /[ \t\n\v\f\r\u00A0\uDC00-\uDFFF]+/g;  // and the second half of a pair
    let count = 0;
    for (let node = target; node; node = parentOf(node)) {
      if (node instanceof HTMLBodyElement) return count;
      for (let near = previousOf(node); near; near = previousOf(near)) {
        count += shownText(near).replace(uncounted, '').length;
      }
    }
    return 0;  // beside the body
  };

  // The first words at the place; none when the focus goes there and is told by itself.
  const wordsAt = (target) => {
    if (activeElement() === target && Document.prototype.hasFocus.call(document)) return '';
    if (target instanceof HTMLElement) {
      const own = words(innerTextOf(target).trim().split('\n')[0]);
      if (own) return own;
    }
    const walker = Document.prototype.createTreeWalker.call(document, root(), NodeFilter.SHOW_TEXT);
    walker.currentNode = target;
    for (let node = walker.nextNode(); node; node = walker.nextNode()) {
      const text = words(node.data);
      if (text && node.parentElement?.checkVisibility()) return text;
    }
    return '';
  };

  // Tells of the place that an address within the page names; false where there is none.
  const tellPlace = (hash) => {
    let id = hash.slice(1);
    try {
      id = decodeURIComponent(id);
    } catch {
      // taken as it stands
    }
    const target = elementById(id) ??
      Array.prototype.find.call(all('a[name]'), (anchor) => anchor.name === id);
    if (target) {
      post('jumped', `${charactersBefore(target)}\n${wordsAt(target)}`);
    } else if (id === '' || id === 'top') {
      post('top');
    } else {
      return false;
    }
    return true;
  };

  // The name of the place in this page that an address leads to, from its "#" on; null
  // for any other address.
  const placeIn = (address) => {
    const url = new URL(address);
    const here = new URL(location.href);
    const {hash} = url;
    if (/^#[!/]/.test(hash) || !address.includes('#')) return null;
    url.hash = here.hash = '';
    return url.href === here.href ? hash : null;
  };

  // The page goes where its link leads when its scripts have had their say.
  const followed = (event, link) => {
    const place = placeIn(link.href);
    if (place === null) return;
    setTimeout(() => {
      if (!event.defaultPrevented) tellPlace(place);
    }, 0);
  };

  const placeOfLink = (element) => {
    try {
      return element instanceof HTMLAnchorElement ? placeIn(element.href) : null;
    } catch {
      return null;  // an address that is none
    }
  };
  // Watches what follows `work`, which the program does with an element for its user.
  const act = (element, work) => {
    action?.end();
    action = new Action(element.localName === 'summary' ? element.parentElement : element, true);
    const place = placeOfLink(element);
    let click = null;
    const notice = (event) => { click = event; };
    window.addEventListener('click', notice, {capture: true, passive: true});
    work();
    window.removeEventListener('click', notice, {capture: true});
    if (place === null) return;
    setTimeout(() => {
      if (click && !click.defaultPrevented) tellPlace(place);
    }, 0);
  };

  // Goes to a place in this page as the link that leads there would.
  const jump = (address) => {
    const link = globalThis.corvane.parts.findLink(address);
    const click = new MouseEvent('click', {bubbles: true, cancelable: true, composed: true});
    action?.end();
    action = new Action(link ?? null);
    if (link) EventTarget.prototype.dispatchEvent.call(link, click);
    else location.assign(address);
    // Not later: a document that runs no scripts knows no later.
    if (!click.defaultPrevented && !tellPlace(placeIn(address) ?? '')) post('nowhere');
    return 'done';
  };

  const acted = (event) => {
    if (!event.isTrusted) return;
    const target = event.composedPath()[0];
    const element = target instanceof Element
      ? target.closest('a[href], button, summary, [role], [aria-expanded]') : null;
    action?.end();
    action = new Action(element instanceof Element && element.localName === 'summary'
      ? element.parentElement : element);
    const link = target instanceof Element ? target.closest('a[href]') : null;
    if (event.type === 'click' && link instanceof HTMLAnchorElement) {
      try {
        followed(event, link);
      } catch {
        // an address that is none
      }
    }
  };
  window.addEventListener('click', acted, {capture: true, passive: true});
  window.addEventListener('keydown', (event) => {
    const target = event.composedPath()[0];
    const writes = target instanceof HTMLTextAreaElement || target.isContentEditable ||
      (target instanceof HTMLInputElement && event.key === ' ');
    if (!writes && (event.key === 'Enter' || event.key === ' ')) acted(event);
  }, {capture: true, passive: true});

  // Whether what happens now may follow something that the user has done.
  const isActing = () => action !== null;
  // The same, told of something that the document's own changes do not show.
  const touch = () => {
    action?.touch();
    return isActing();
  };

  Object.defineProperty(globalThis, 'corvaneChanges',
    {value: Object.freeze({filled, jump, act, isActing, touch})});
})();
