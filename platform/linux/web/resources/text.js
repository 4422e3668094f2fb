// Runs behind text_tables.js, in the same script world, and is asked: the words of a
// page as they are shown, with where each element of it begins and ends in them.
//
// What the engine calls a page's inner text has no pictures' words and no fields, and
// does not say where anything stands in it; and to find each element's words in it again
// goes wrong wherever words repeat. So the page is walked once, and text and places come
// together.
'use strict';
(() => {
  if (!globalThis.corvaneTextTables || globalThis.corvaneText) return;

  const {
    nameOf, roleOf, isElement, isKeptBack, canHaveFocus, elementsBelow, attribute, has, getter, short, tagOf, words,
  } = globalThis.corvaneNames;
  const {briefFactsOf} = globalThis.corvaneFacts;
  const {numberOf, documentId, bodyOf, rootOf, hrefOf, share, sharedBy} = globalThis.corvane.parts;
  const Writer = globalThis.corvaneTextWriter;
  const {walkTable, walkPart} = globalThis.corvaneTextTables;
  const {KIND} = Writer;
  const DEPTH = 1000;  // of elements in each other
  const FRAMES = 10;   // of frames

  const KINDS_OF_ROLES = {
    heading: KIND.heading, link: KIND.link, button: KIND.button, summary: KIND.button,
    textbox: KIND.edit, searchbox: KIND.edit, spinbutton: KIND.edit, password: KIND.edit,
    date: KIND.edit, month: KIND.edit, week: KIND.edit, clock: KIND.edit, datetime: KIND.edit,
    checkbox: KIND.checkbox, switch: KIND.checkbox, menuitemcheckbox: KIND.checkbox,
    radio: KIND.radio, menuitemradio: KIND.radio, combobox: KIND.choice, listbox: KIND.choice,
    img: KIND.picture, banner: KIND.landmark, complementary: KIND.landmark,
    contentinfo: KIND.landmark, form: KIND.landmark, main: KIND.landmark,
    navigation: KIND.landmark, region: KIND.landmark, search: KIND.landmark, list: KIND.list,
    listitem: KIND.item, table: KIND.table, grid: KIND.table, treegrid: KIND.table,
    blockquote: KIND.quotation, frame: KIND.frame, audio: KIND.frame, video: KIND.frame,
    object: KIND.frame, slider: KIND.widget, menuitem: KIND.widget, option: KIND.widget,
    tab: KIND.widget, treeitem: KIND.widget, file: KIND.widget, color: KIND.widget,
  };
  // What stands for a field that is called nothing and holds nothing.
  const UNNAMED = {checkbox: '(check box)', radio: '(radio button)', combobox: '(combo box)',
    listbox: '(list box)', button: '(button)', switch: '(switch)', slider: '(slider)'};

  const UNREAD = words('script style template head title meta link base datalist option optgroup ' +
    'source track param desc defs symbol metadata rp');
  // Elements that are nothing in particular while their author does not say otherwise.
  const PLAIN = words('div span p b i u s em strong small br tbody thead tfoot tr dl dt dd section ' +
    'form fieldset font center pre code label abbr cite sub sup figure figcaption article');
  const INLINE = /^(inline|contents|ruby|ruby-text|math)/;
  const PARAGRAPHS = words('p h1 h2 h3 h4 h5 h6');
  const firstOf = getter(Node, 'firstChild');
  const nextOf = getter(Node, 'nextSibling');
  const nodeKindOf = getter(Node, 'nodeType');
  const dataOf = getter(CharacterData, 'data');
  const shadowOf = getter(Element, 'shadowRoot');
  const styleOf = (element) => window.getComputedStyle(element);
  const isSeen = (style) => style.visibility === 'visible';
  const searchIn = (element, selector) => Element.prototype.querySelector.call(element, selector);
  const isGivenName = (element) => has(element, 'aria-label') || has(element, 'aria-labelledby');

  const elements = new Map();  // by number, of the text that was made last
  let stands = false;          // it is right, as far as anybody has been told

  // --- words of elements without text ------------------------------------------------

  const endOfAddress = (address) => {
    try {
      const url = new URL(address);
      const path = url.pathname.split('/').filter(Boolean).pop();
      return short(path ? decodeURIComponent(path) : url.host || address);
    } catch {
      return short(address);
    }
  };
  const wordsOfLink = (link) => nameOf(link) || endOfAddress(hrefOf(link)) || 'link';

  // --- fields -------------------------------------------------------------------------

  const isWrittenIn = (element) => element instanceof HTMLInputElement ||
    element instanceof HTMLTextAreaElement || (element instanceof HTMLElement && element.isContentEditable);
  // A field that no key leads to and that stands beside the page, where nobody can scroll
  // to: something else has taken its place.
  const isSetAside = (element) => attribute(element, 'tabindex').trim().startsWith('-') &&
    Element.prototype.getBoundingClientRect.call(element).right + window.scrollX <= 0;

  // --- the walk -------------------------------------------------------------------------

  class Walk {
    constructor(out) {
      this.out = out;
      this.grid = null;  // of the table whose cells are looked for
    }

    // The nodes that an element shows, from the first on.
    below(element, depth) {
      if (depth > DEPTH) return;
      if (element instanceof HTMLSlotElement) {
        const given = HTMLSlotElement.prototype.assignedNodes.call(element);
        if (given.length > 0) {
          const style = styleOf(element);
          for (const node of given) this.node(node, element, style, depth);
          return;
        }
      }
      const closed = element instanceof HTMLDetailsElement && !element.open;
      let style = null;
      const shadow = shadowOf(element);
      // A page may give one to an element at any time, unseen by who watches its changes.
      if (shadow) globalThis.corvaneLive?.watchShadow(shadow);
      for (let node = firstOf(shadow ?? element); node; node = nextOf(node)) {
        if (!this.out.goesOn()) return;
        const kind = nodeKindOf(node);
        if (kind === Node.ELEMENT_NODE) {
          if (closed && tagOf(node) !== 'summary') continue;
          this.element(node, depth);
          if (closed) return;
        } else if (kind === Node.TEXT_NODE && !closed) {
          style ??= styleOf(element);
          this.textNode(node, style);
        }
      }
    }
    node(node, holder, style, depth) {
      if (isElement(node)) this.element(node, depth);
      else if (nodeKindOf(node) === Node.TEXT_NODE) this.textNode(node, style);
    }
    textNode(node, style) {
      const data = dataOf(node);
      if (node !== this.selected?.node) return this.text(data, style);
      this.text(data.slice(0, this.selected.offset), style);
      this.out.mark('selected');
      this.text(data.slice(this.selected.offset), style);
    }
    text(data, style) {
      const {out} = this;
      const way = style.whiteSpaceCollapse;
      if (way === 'collapse' && !/[^ \t\n\r\f]/.test(data)) {
        if (data !== '') out.blank();
        return;
      }
      if (!isSeen(style)) return;
      const change = style.textTransform;
      let shown = data;
      if (change === 'uppercase') shown = data.toLocaleUpperCase();
      else if (change === 'lowercase') shown = data.toLocaleLowerCase();
      if (way === 'collapse') out.flowing(shown);
      else if (way === 'preserve-breaks') out.flowingLines(shown);
      else out.written(shown);
    }
    element(element, depth) {
      if (element === this.target) this.out.mark('target');
      const tag = tagOf(element);
      if (UNREAD.has(tag)) return;
      const dressed = Element.prototype.hasAttributes.call(element);
      if (dressed && (isKeptBack(element) || has(element, 'inert'))) return;
      const style = styleOf(element);
      const {display} = style;
      if (display === 'none') return;
      const {out} = this;
      if (tag === 'br') {
        out.gap = '';
        out.lineEnd();
        return;
      }
      const lines = INLINE.test(display) ? 0 : 1;
      if (display === 'table-cell') {
        this.content(element, tag, dressed, style, depth);
        return out.cell();
      }
      if (lines > 0) out.lines(lines);
      const language = dressed && has(element, 'lang') ? this.language(element) : -1;
      this.content(element, tag, dressed, style, depth);
      if (language >= 0) out.end(language);
      if (lines > 0) out.lines(PARAGRAPHS.has(tag) ? 2 : 1);
    }
    language(element) {
      const name = short(attribute(element, 'lang'));
      return name === '' ? -1 : this.begin(KIND.language, element, 0, 0, {name});
    }
    begin(kind, element, level = 0, more = 0, detail = null) {
      const number = numberOf(element);
      elements.set(number, element);
      return this.out.begin(kind, number, level, more, detail);
    }

    content(element, tag, dressed, style, depth) {
      if (tag === 'svg') return this.drawing(element, style, depth);
      if (tag === 'label' && this.isSaidByItsField(element)) return this.controlIn(element, depth);
      if (tag === 'figcaption' && this.isPictures(element)) {
        return this.around(KIND.picture, element, depth, 0, 0, {role: 'img'});
      }
      const role = dressed || !PLAIN.has(tag) ? this.roleIn(element, tag) : '';
      if (this.grid && walkPart(this, element, tag, role, style, depth)) return;
      switch (KINDS_OF_ROLES[role]) {
        case undefined:
          if (dressed && has(element, 'tabindex')) return this.around(KIND.place, element, depth);
          if (dressed && (has(element, 'title') || has(element, 'aria-label'))) return this.sign(element, style, depth);
          return this.below(element, depth + 1);
        case KIND.link:
          return this.link(element, style, depth);
        case KIND.heading:
          return this.around(KIND.heading, element, depth, this.levelOf(element, tag));
        case KIND.picture:
          return this.picture(element, style, depth);
        case KIND.landmark:
          return this.around(KIND.landmark, element, depth, 0, 0,
            {role, name: isGivenName(element) || has(element, 'title') ? nameOf(element) : ''});
        case KIND.list:
          return this.around(KIND.list, element, depth, elementsBelow(element).filter((each) =>
            roleOf(each) === 'listitem' && styleOf(each).display !== 'none').length);
        case KIND.item:
          return this.around(KIND.item, element, depth, ...this.markerOf(element, style));
        case KIND.table:
          return this.table(element, role, depth);
        case KIND.quotation:
          return this.around(KIND.quotation, element, depth);
        case KIND.frame:
          return this.frame(element, role, style, depth);
        default:
          return this.field(element, tag, role, style, depth);
      }
    }
    // To find out what a cell heads takes a look at its whole row; the table knows.
    roleIn(element, tag) {
      return (tag === 'td' || tag === 'th') && !has(element, 'role') ? '' : roleOf(element);
    }
    // A sign is drawn by the page's style; what it stands for says its tip.
    sign(element, style, depth) {
      const before = this.out.length;
      this.below(element, depth + 1);
      if (this.out.length > before || !isSeen(style) || !this.isDrawn(element)) return;
      this.out.blank();
      this.out.flowing(short(attribute(element, 'aria-label').trim() || attribute(element, 'title')));
      this.out.blank();
    }
    // An icon that the page's style puts in front of nothing may have a box of its own only.
    isDrawn(element) {
      const box = Element.prototype.getBoundingClientRect.call(element);
      if (box.width >= 1 && box.height >= 1) return true;
      return ['::before', '::after'].some((part) =>
        !/^(none|normal)$/.test(window.getComputedStyle(element, part).content));
    }
    around(kind, element, depth, level = 0, more = 0, detail = null) {
      const at = this.begin(kind, element, level, more, detail);
      this.below(element, depth + 1);
      return this.out.end(at);
    }
    levelOf(element, tag) {
      const said = Number(attribute(element, 'aria-level'));
      if (said >= 1 && said <= 9) return Math.floor(said);
      return /^h[1-6]$/.test(tag) ? Number(tag[1]) : 2;
    }
    // [its number, or 0 where it has none, whether it is marked otherwise]
    markerOf(element, style) {
      const sign = style.listStyleType;
      if (!(element instanceof HTMLLIElement) || sign === 'none') return [0, 0];
      if (/^(disc|circle|square|disclosure-open|disclosure-closed|")/.test(sign)) return [0, 1];
      const list = element.parentNode;
      if (!(list instanceof HTMLOListElement)) return [0, 1];
      if (this.numbered?.list !== list) {
        this.numbered = {list, next: list.start, step: list.reversed ? -1 : 1};
      }
      const counter = this.numbered;
      if (has(element, 'value')) counter.next = element.value;
      const number = counter.next;
      counter.next += counter.step;
      return number > 0 ? [number, 0] : [0, 1];
    }

    // --- links, pictures ---

    link(element, style, depth) {
      const {out} = this;
      const apart = style.display !== 'inline';
      if (apart) out.blank();
      const stated = ['aria-current', 'aria-expanded', 'aria-haspopup', 'aria-disabled'].some((name) =>
        has(element, name));
      const at = this.begin(KIND.link, element, 0, 0, stated ? briefFactsOf(element, 'link', '') : null);
      const given = isGivenName(element) && !searchIn(element, 'button, input, select, textarea')
        ? nameOf(element) : '';
      if (given !== '') {
        if (isSeen(style)) this.out.flowing(given);
      } else {
        this.below(element, depth + 1);
        if (out.isEmpty(at) && isSeen(style) && this.hasBox(element)) out.flowing(wordsOfLink(element));
      }
      out.end(at);
      if (apart) out.blank();
    }
    // Whether there is anything to see of what has no words.
    hasBox(element) {
      if (Element.prototype.getClientRects.call(element).length > 0) return true;
      return styleOf(element).display === 'contents';
    }
    picture(element, style, depth) {
      const name = isSeen(style) ? nameOf(element) : '';
      if (name === '') {
        if (!(element instanceof HTMLImageElement)) return this.below(element, depth + 1);
      } else {
        const at = this.begin(KIND.picture, element);
        this.out.blank();
        this.out.flowing(name);
        this.out.blank();
        this.out.end(at);
      }
      return this.areas(element);
    }
    // The links of a picture that leads to several places.
    areas(element) {
      const name = attribute(element, 'usemap').replace(/^#/, '');
      if (name === '') return;
      const map = Document.prototype.querySelector.call(document, `map[name="${CSS.escape(name)}"]`);
      for (const area of map ? elementsBelow(map) : []) {
        if (!(area instanceof HTMLAreaElement) || !has(area, 'href')) continue;
        const at = this.begin(KIND.link, area);
        this.out.blank();
        this.out.flowing(wordsOfLink(area));
        this.out.blank();
        this.out.end(at);
      }
    }
    drawing(element, style, depth) {
      if (searchIn(element, 'a')) return this.below(element, depth + 1);
      if (isSeen(style)) this.picture(element, style, depth);
    }
    // A caption stands for the pictures beside it that have no words of their own.
    isPictures(caption) {
      const figure = caption.parentNode;
      if (!isElement(figure) || tagOf(figure) !== 'figure') return false;
      const shown = searchIn(figure, 'img, svg, canvas, video, [role=img]');
      return shown !== null && !(shown instanceof HTMLImageElement && attribute(shown, 'alt').trim() !== '');
    }

    // --- tables, frames ---

    // What a table's author says makes the difference between data and a layout.
    isData(table) {
      if (!(table instanceof HTMLTableElement) || has(table, 'role')) return true;
      return searchIn(table, 'table') === null &&
        searchIn(table, 'caption, th, thead, [scope], [headers]') !== null;
    }
    table(element, role, depth) {
      if (!this.isData(element)) return this.below(element, depth + 1);
      return walkTable(this, element, role, depth);
    }
    frame(element, role, style, depth) {
      const {out} = this;
      const box = Element.prototype.getBoundingClientRect.call(element);
      if (!isSeen(style) || box.width <= 1 || box.height <= 1) return;
      out.lines(1);
      const name = nameOf(element);
      const at = this.begin(KIND.frame, element, 0, 0, {role, name});
      if (role === 'frame' || element instanceof HTMLObjectElement) {
        sharedBy(element.contentWindow).writeText?.(out, this.depthOfFrames + 1);
      }
      if (out.isEmpty(at) && element instanceof HTMLObjectElement) this.below(element, depth + 1);
      if (out.isEmpty(at)) out.flowing(name || `(${role})`);
      out.end(at);
      out.lines(1);
    }

    // --- fields and buttons ---

    // A label whose field stands in the text is said there, as the field's name.
    isSaidByItsField(label) {
      const field = label.control;
      if (!(field instanceof HTMLElement) || isGivenName(field) || isGivenName(label)) return false;
      if (!/^(input|select|textarea|meter|progress|output|button)$/.test(tagOf(field))) return false;
      if (!KINDS_OF_ROLES[roleOf(field)] || !Element.prototype.checkVisibility.call(field,
        {visibilityProperty: true})) return false;
      const inside = Element.prototype.querySelectorAll.call(label,
        'a, button, input, select, textarea, iframe, img, svg, h1, h2, h3, h4, h5, h6, ul, ol, table, [role]');
      return Array.prototype.every.call(inside, (each) => each === field);
    }
    controlIn(label, depth) {
      if (Node.prototype.contains.call(label, label.control)) this.element(label.control, depth + 1);
    }
    field(element, tag, role, style, depth) {
      if (!isSeen(style)) return this.below(element, depth + 1);
      if (isSetAside(element)) return;
      const {out} = this;
      const kind = role === 'combobox' && isWrittenIn(element) ? KIND.edit : KINDS_OF_ROLES[role];
      // What holds text of its own, or others of its like, is read as it stands.
      const isOpen = !(element instanceof HTMLInputElement || element instanceof HTMLSelectElement ||
        element instanceof HTMLTextAreaElement) &&
        (kind === KIND.edit || kind === KIND.widget || role === 'listbox');
      const isRun = kind === KIND.button || kind === KIND.widget;
      if (!isRun) out.lines(1);
      out.blank();
      const name = nameOf(element);
      const facts = briefFactsOf(element, role, name);
      const at = this.begin(kind, element, 0, 0, facts);
      if (isOpen) this.below(element, depth + 1);
      if (!isOpen || out.isEmpty(at)) {
        const text = [name, facts.value ?? ''].filter((each) => each !== '').join(', ');
        // An entry with nothing in it is there for the page's style.
        if (text === '' && isOpen && kind === KIND.widget && !canHaveFocus(element)) return out.end(at);
        out.flowing(text || UNNAMED[role] || (kind === KIND.edit ? '(edit)' : '(field)'));
      }
      out.end(at);
      out.blank();
      if (!isRun) out.lines(1);
    }
  }

  // Where the selection begins in this document's text; null where nothing is selected.
  const selection = () => {
    const selected = window.getSelection();
    if (!selected || selected.rangeCount === 0) return null;
    const range = Selection.prototype.getRangeAt.call(selected, 0);
    return range.collapsed ? null : {node: range.startContainer, offset: range.startOffset};
  };

  // Writes this document's text: into what is being put together of a page.
  const write = (out, depthOfFrames) => {
    elements.clear();
    stands = true;
    if (depthOfFrames > FRAMES) return;
    const outer = out.enter(documentId);
    const walk = new Walk(out);
    walk.depthOfFrames = depthOfFrames;
    walk.selected = selection();
    walk.target = depthOfFrames === 0 ? Document.prototype.querySelector.call(document, ':target') : null;
    const body = bodyOf(document);
    const root = rootOf(document);
    const language = root instanceof HTMLElement ? walk.language(root) : -1;
    if (body instanceof HTMLElement) walk.element(body, 0);
    else if (!(root instanceof HTMLElement)) out.written(root?.textContent.trim() ?? '');
    if (language >= 0) out.end(language);
    out.leave(outer);
  };
  const describe = () => {
    const out = new Writer();
    write(out, 0);
    return JSON.stringify(out.result());
  };

  // Who has the text is told once that it is no longer right.
  const changed = () => {
    if (!stands) return;
    stands = false;
    globalThis.webkit?.messageHandlers?.corvaneText?.postMessage('changed\n');
  };
  // What stands in a frame has come later than the text around it, or in the place of
  // another.
  if (window !== window.parent) {
    window.addEventListener('load', (event) => {
      stands ||= event.isTrusted;
      changed();
    }, {once: true});
  }

  Object.defineProperty(globalThis, 'corvaneText', {value: Object.freeze({
    describe, changed, walk: () => write(new Writer(), 0), elementOf: (number) => elements.get(number),
  })});
  share('writeText', write);
})();
