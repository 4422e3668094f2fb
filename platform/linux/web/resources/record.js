// Runs in every frame of every page, in a script world that the page cannot
// reach, and describes the document: the page record.
//
// A page may name its elements so that they hide properties of the document or
// of a form (<form name="body">, <input name="elements">). Properties that can be
// hidden so are therefore read through their prototypes only.
'use strict';
(() => {
  if (globalThis.corvane) return;

  // A page may be hostile; none of these limits is met by a page for people.
  const LIMIT = {
    links: 200000, anchors: 100000, forms: 20000, elements: 100000, options: 20000, frames: 500,
    depth: 10, text: 100000, value: 2000000, body: 32000000, total: 64000000, nearby: 10000,
    siblings: 1000, around: 200, label: 1000, labels: 10,
    language: 50,
  };
  const KNOWN_INPUT_TYPES = new Set(['text', 'password', 'checkbox', 'radio', 'submit', 'reset',
    'button', 'image', 'file', 'hidden']);

  const getter = (type, name) => {
    const read = Object.getOwnPropertyDescriptor(type.prototype, name).get;
    return (object) => read.call(object);
  };
  const titleOf = getter(Document, 'title');
  const bodyOf = getter(Document, 'body');
  const formsOf = getter(Document, 'forms');
  const rootOf = getter(Document, 'documentElement');
  const readyStateOf = getter(Document, 'readyState');
  const addressOf = getter(Document, 'URL');
  const elementsOf = getter(HTMLFormElement, 'elements');
  const innerTextOf = getter(HTMLElement, 'innerText');
  const all = (selector) => Document.prototype.querySelectorAll.call(document, selector);
  const channel = globalThis.webkit?.messageHandlers?.corvane;
  const post = (kind, text) => channel?.postMessage(`${kind}\n${text}`);

  // This document's name among all documents of all frames. Not from `crypto`, which
  // starts a thread in each document that asks it for anything.
  const documentId = Array.from({length: 3},
    () => Math.floor(Math.random() * 2 ** 32).toString(36)).join('-');

  // --- the page's other frames -------------------------------------------------

  // The scripts of a page's frames find each other here, of whatever origin they are.
  const frames = globalThis.corvaneFrames ?? new WeakMap();
  const viewOf = getter(Document, 'defaultView');
  const shared = {};  // what this frame's scripts have for the others'
  const share = (name, value) => { shared[name] = value; };
  frames.set(window, {shared, isThere: () => viewOf(document) !== null});
  /** What the scripts of the frame with that window share; nothing where none run. */
  const sharedBy = (view) => {
    const its = view ? frames.get(view) : null;
    return its?.isThere() ? its.shared : {};
  };

  // --- texts -----------------------------------------------------------------

  let budget = 0;  // characters that the present message may still hold
  const begin = () => { budget = LIMIT.total; };

  // A text as it may stand in a record: whole characters only, bounded.
  const clean = (text, limit) => {
    if (typeof text !== 'string') return '';
    const room = Math.min(limit, budget);
    const cut = text.length > room ? text.slice(0, room) : text;
    budget -= cut.length;
    return cut.isWellFormed() ? cut : cut.toWellFormed();
  };
  const plain = (text) => clean(text.trim(), LIMIT.text);
  const collapsed = (text) => clean(text.replace(/\s+/g, ' ').trim(), LIMIT.text);
  // An address is either whole or not there.
  const address = (text) => (text.length > LIMIT.value || text.length > budget ? ''
    : clean(text, LIMIT.value));
  const attribute = (element, name) => Element.prototype.getAttribute.call(element, name) ?? '';

  // The count of code points.
  const characters = (text) => {
    let count = text.length;
    for (let i = 1; i < text.length; i++) {
      const unit = text.charCodeAt(i);
      if (unit >= 0xDC00 && unit <= 0xDFFF) {
        const before = text.charCodeAt(i - 1);
        if (before >= 0xD800 && before <= 0xDBFF) count--;
      }
    }
    return count;
  };

  // --- elements --------------------------------------------------------------

  const numbers = new WeakMap();
  const recorded = new WeakSet();  // described in a record
  let lastNumber = 0;
  const numberOf = (element) => {
    let number = numbers.get(element);
    if (number === undefined) numbers.set(element, number = ++lastNumber);
    return number;
  };
  const classOf = (element) => Object.prototype.toString.call(element).slice(8, -1);
  const textOf = (element) => plain(element instanceof HTMLElement ? innerTextOf(element)
    : element.textContent ?? '');
  const hrefOf = (element) => {
    if (typeof element.href === 'string') return address(element.href);
    try {  // a link inside a drawing
      return address(new URL(element.href.baseVal, element.baseURI).href);
    } catch {
      return '';
    }
  };
  const isLink = (element) => (element instanceof HTMLAnchorElement ||
    element instanceof HTMLAreaElement || element instanceof SVGAElement);
  const isField = (element) => (element instanceof HTMLInputElement ||
    element instanceof HTMLSelectElement || element instanceof HTMLTextAreaElement ||
    element instanceof HTMLButtonElement);

  // The page text that touches the element on one side.
  const nearby = (element, side) => {
    const before = side === 'previousSibling';
    let text = '';
    let steps = 0;
    for (let node = element[side]; node && steps < LIMIT.siblings; node = node[side], steps++) {
      if (node.nodeType === Node.COMMENT_NODE) continue;
      if (node.nodeType !== Node.TEXT_NODE) break;
      const data = before ? node.data.slice(-LIMIT.nearby) : node.data.slice(0, LIMIT.nearby);
      text = before ? data + text : text + data;
      if (text.length >= LIMIT.nearby) break;
    }
    return collapsed(text);
  };

  const typeOf = (element) => {
    const type = typeof element.type === 'string' ? element.type : '';
    if (!(element instanceof HTMLInputElement)) return clean(type, 100);
    return KNOWN_INPUT_TYPES.has(type) ? type : 'text';
  };
  // What an input of a later type really is.
  const kindOf = (element) => (element instanceof HTMLInputElement &&
    !KNOWN_INPUT_TYPES.has(element.type) ? clean(element.type, 100) : '');

  // --- what authors call things -------------------------------------------------

  const elementById = (root, id) => (root instanceof Document ? Document : DocumentFragment)
    .prototype.getElementById.call(root, id);
  const wordsOf = (element) => (element instanceof HTMLElement ? innerTextOf(element)
    : element.textContent ?? '');
  const labelledBy = (element) => {
    const ids = attribute(element, 'aria-labelledby');
    if (ids === '') return '';
    const root = element.getRootNode();
    if (!(root instanceof Document || root instanceof DocumentFragment)) return '';
    return ids.trim().split(/\s+/).slice(0, LIMIT.labels)
      .map((id) => elementById(root, id)).filter(Boolean).map(wordsOf).join(' ');
  };
  const authorsName = (element) => labelledBy(element) || attribute(element, 'aria-label');
  // The words that stand for the pictures in an element.
  const pictures = (element) => {
    const found = Element.prototype.querySelectorAll.call(element, 'img[alt], svg > title, ' +
      '[role="img"][aria-label], input[type="image"][alt]');
    const words = [];
    for (let i = 0; i < found.length && i < LIMIT.labels; i++) {
      words.push(attribute(found[i], 'alt') || attribute(found[i], 'aria-label') ||
        (found[i].localName === 'title' ? found[i].textContent : ''));
    }
    return words.join(' ');
  };
  const labelWords = (text) => clean(text.slice(0, 2 * LIMIT.label).replace(/\s+/g, ' ').trim(),
    LIMIT.label);
  // What a link or button without text is called.
  const labelWithoutText = (element) => labelWords(authorsName(element) ||
    (element instanceof HTMLAreaElement ? attribute(element, 'alt') : pictures(element)) ||
    attribute(element, 'title') || globalThis.corvaneNames?.unseenWords(element) || '');
  const legendOf = (set) => {
    const legend = Array.prototype.find.call(set.children, (child) => child.localName === 'legend');
    return legend ? wordsOf(legend) : '';
  };
  // What a field is called where no text says so.
  const labelOfField = (field) => {
    if (field instanceof HTMLButtonElement) return labelWithoutText(field);
    return labelWords(authorsName(field) ||
      (field instanceof HTMLFieldSetElement ? legendOf(field) : attribute(field, 'alt')) ||
      attribute(field, 'title') || attribute(field, 'placeholder'));
  };

  // What may change while the page is used, as in an event's report.
  const stateOf = (element) => {
    const state = [];
    state.push(clean(typeof element.value === 'string' ? element.value : '', LIMIT.value));
    state.push(element.checked === true ? 1 : 0);
    const isSelect = element instanceof HTMLSelectElement;
    state.push(isSelect ? element.selectedIndex : -1);
    const options = [];
    const chosen = [];
    if (isSelect) {
      const list = element.options;
      const count = Math.min(list.length, LIMIT.options);
      for (let i = 0; i < count; i++) {
        options.push(clean(list[i].text, LIMIT.text));
        if (element.multiple && list[i].selected) chosen.push(i);
      }
    }
    state.push(options, chosen);
    return state;
  };

  // [number, class, type, name, text, before, after, value, checked, index, options,
  // chosen, kind, label]
  const describeField = (element, labelOf) => {
    let before = nearby(element, 'previousSibling');
    let after = nearby(element, 'nextSibling');
    const label = labelOf(element);
    if (label) {
      const afterwards = element.type === 'checkbox' || element.type === 'radio';
      if (afterwards && after === '') after = collapsed(innerTextOf(label));
      if (!afterwards && before === '') before = collapsed(innerTextOf(label));
    }
    return [numberOf(element), classOf(element), typeOf(element),
      clean(attribute(element, 'name'), LIMIT.text), textOf(element), before, after,
      ...stateOf(element), kindOf(element), labelOfField(element)];
  };

  // Tells the label of each labelled field. Asking every field for its labels would
  // search the whole document once a field.
  const labelsOfAll = () => {
    const labels = new Map();
    for (const label of all('label')) {
      const field = label.control;
      if (field && !labels.has(field)) labels.set(field, label);
    }
    return (field) => labels.get(field);
  };

  // --- the record ------------------------------------------------------------

  // [number, is area, text, address, name, label] for each link, in one flat list.
  const describeLinks = (elements, limit, remember = false) => {
    const list = [];
    const count = Math.min(elements.length, limit);
    for (let i = 0; i < count; i++) {
      const link = elements[i];
      if (remember) recorded.add(link);
      const text = textOf(link);
      list.push(numberOf(link), link instanceof HTMLAreaElement ? 1 : 0, text,
        hrefOf(link), clean(attribute(link, 'name'), LIMIT.text),
        text === '' ? labelWithoutText(link) : '');
    }
    return list;
  };

  // [place, language] of each link that lies in a part of the page with a language of its
  // own, in one flat list.
  const languagesOf = (links, limit) => {
    const list = [];
    if (Document.prototype.querySelector.call(document, 'body [lang]') === null) return list;
    const root = rootOf(document);
    const count = Math.min(links.length, limit);
    for (let i = 0; i < count; i++) {
      const part = Element.prototype.closest.call(links[i], '[lang]');
      if (part && part !== root) list.push(i, clean(attribute(part, 'lang'), LIMIT.language));
    }
    return list;
  };

  // What counts as a form's element. Kinds that came later than the others, such
  // as outputs and elements that the page defines itself, are ordinary content.
  const isListed = (element) => isField(element) || element instanceof HTMLFieldSetElement ||
    element instanceof HTMLObjectElement;

  const describeForms = (remember) => {
    const forms = [];
    const list = formsOf(document);
    if (list.length === 0) return forms;
    const labelOf = labelsOfAll();
    let room = LIMIT.elements;
    for (let i = 0; i < list.length && i < LIMIT.forms; i++) {
      const fields = [];
      for (const element of elementsOf(list[i])) {
        if (!isListed(element)) continue;
        if (room-- <= 0) break;
        if (remember) recorded.add(element);
        fields.push(describeField(element, labelOf));
      }
      forms.push(fields);
    }
    return forms;
  };

  // [title, address, silent] for each frame in this document, by its place;
  // silent frames run no scripts and never report themselves.
  const describeFrames = () => {
    const count = Math.min(window.length, LIMIT.frames);
    if (count === 0) return [];
    const places = new Map();
    for (let i = 0; i < count; i++) places.set(window[i], i);
    const frames = Array.from({length: count}, () => ['', '', 0]);
    for (const element of all('iframe, frame, object, embed')) {
      const place = places.get(element.contentWindow);
      if (place === undefined) continue;
      const silent = element instanceof HTMLIFrameElement &&
        Element.prototype.hasAttribute.call(element, 'sandbox') &&
        !element.sandbox.contains('allow-scripts');
      frames[place] = [
        plain(attribute(element, 'title') || attribute(element, 'name')),
        address(element.src || element.data || ''), silent ? 1 : 0,
      ];
    }
    return frames;
  };

  const placeOf = () => {
    const place = [];
    for (let at = window; at !== at.parent && place.length <= LIMIT.depth; at = at.parent) {
      const siblings = Math.min(at.parent.length, LIMIT.frames);
      let i = 0;
      while (i < siblings && at.parent[i] !== at) i++;
      place.unshift(i);
    }
    return place;
  };

  const fileName = (text) => {
    try {
      const url = new URL(text);
      if (!['http:', 'https:', 'file:', 'corvane:'].includes(url.protocol)) return '';
      return decodeURIComponent(url.pathname.split('/').pop());
    } catch {
      return '';
    }
  };

  const bodyText = () => {
    const body = bodyOf(document);
    if (body instanceof HTMLBodyElement) return clean(innerTextOf(body), LIMIT.body);
    const root = rootOf(document);
    // A document of another kind (a feed, a drawing) is read as its plain text.
    if (!root || root instanceof HTMLElement) return null;
    return clean(root.textContent.trim(), LIMIT.body);
  };

  const languageOf = () => {
    const root = rootOf(document);
    const said = root ? attribute(root, 'lang') || attribute(root, 'xml:lang') : '';
    const meta = said === '' ? all('meta[http-equiv="content-language" i]')[0] : null;
    return clean(meta ? attribute(meta, 'content').trim() : said, LIMIT.language);
  };

  // A document that runs no scripts hears nothing either, though what asks it from outside
  // runs there.
  const isSilent = () => {
    let heard = false;
    const target = new EventTarget();
    target.addEventListener('heard', () => { heard = true; });
    target.dispatchEvent(new Event('heard'));
    return !heard;
  };

  // What is remembered as described is not described again with its events.
  const describe = (remember = true) => {
    begin();
    const url = addressOf(document);
    const title = collapsed(titleOf(document));
    const ancestors = location.ancestorOrigins;
    const links = all('a[href], area[href]');
    return {
      id: documentId,
      place: placeOf(),
      silent: isSilent() ? 1 : 0,
      origin: self.origin,
      top: ancestors.length > 0 ? ancestors[ancestors.length - 1] : self.origin,
      title,
      name: title || collapsed(fileName(url)),
      language: languageOf(),
      url: address(url),
      body: bodyText(),
      links: describeLinks(links, LIMIT.links, remember),
      languages: languagesOf(links, LIMIT.links),
      anchors: describeLinks(all('a[name]'), LIMIT.anchors, remember),
      forms: describeForms(remember),
      frames: describeFrames(),
    };
  };

  // The records of this document and of every frame in it.
  const collect = (remember = true) => {
    const records = [];
    const visit = (view, depth) => {
      if (records.length > LIMIT.frames || depth > LIMIT.depth) return;
      const its = sharedBy(view).describe;
      if (its) records.push(its(remember));
      const count = Math.min(view.length, LIMIT.frames);
      for (let i = 0; i < count; i++) visit(view[i], depth + 1);
    };
    visit(window, 0);
    return JSON.stringify({records});
  };

  // Follows the first link with this address, as a click would; for addresses
  // that mean something in their page only.
  const follow = (href) => {
    const visit = (view, depth) => {
      if (depth > LIMIT.depth) return false;
      const link = sharedBy(view).findLink?.(href);
      if (link) {
        HTMLElement.prototype.click.call(link);
        return true;
      }
      const count = Math.min(view.length, LIMIT.frames);
      for (let i = 0; i < count; i++) if (visit(view[i], depth + 1)) return true;
      return false;
    };
    return String(visit(window, 0));
  };
  const findLink = (href) => Array.prototype.find.call(all('a[href], area[href]'),
    (link) => link.href === href);

  // The words around what is selected: its paragraph, or a part of a long one.
  const around = () => {
    const selection = getSelection();
    if (selection.rangeCount === 0) return '';
    begin();
    const range = selection.getRangeAt(0);
    const node = range.startContainer;
    let block = node.nodeType === Node.ELEMENT_NODE ? node : node.parentElement;
    while (block?.parentElement && getComputedStyle(block).display.startsWith('inline')) {
      block = block.parentElement;
    }
    const text = block instanceof HTMLElement ? collapsed(innerTextOf(block)) : '';
    if (text.length <= LIMIT.around || node.nodeType !== Node.TEXT_NODE) {
      return text.slice(0, LIMIT.around);
    }
    const start = Math.max(0, range.startOffset - LIMIT.around / 2);
    return collapsed(node.data.slice(start, start + LIMIT.around));
  };

  // What the script that listens to events needs of this one.
  const parts = Object.freeze({
    documentId, post, begin, clean, collapsed, attribute, characters, bodyOf, rootOf, innerTextOf,
    numberOf, classOf, hrefOf, isLink, isField, stateOf, describeField, describeLinks, kindOf,
    share, sharedBy, findLink, isSilent, maxValue: LIMIT.value, isRecorded: (element) => recorded.has(element),
  });
  Object.defineProperty(globalThis, 'corvane',
    {value: Object.freeze({collect, follow, around, parts})});
  share('describe', describe);
  share('findLink', findLink);

  // A frame reports itself where it comes or changes behind the page.
  share('isComplete', () => readyStateOf(document) === 'complete');
  const isCollected = () => sharedBy(window.top).isComplete?.() === false;
  const report = () => {
    if (isCollected()) return;
    const record = describe();
    post('record', JSON.stringify(record));
  };
  if (window !== window.top) {
    const soon = () => setTimeout(report, 0);  // after the page's own load handlers
    if (readyStateOf(document) === 'complete') soon();
    window.addEventListener('load', (event) => { if (event.isTrusted) soon(); });
    window.addEventListener('pageshow', (event) => {
      if (event.isTrusted && event.persisted) soon();
    });
  }
})();
