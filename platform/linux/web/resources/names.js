// Runs behind the record's script, in the same script world. It tells what an element
// is and what it is called: its role, and its name and description by the rules that
// browsers share for assistive technologies (Accessible Name and Description
// Computation 1.2, HTML Accessibility API Mappings).
//
// Pages are hostile: properties that a page could hide behind names of its own are
// read through their prototypes, and every walk has an end.
'use strict';
(() => {
  if (!globalThis.corvane || globalThis.corvaneNames) return;

  const LIMIT = {name: 1000, loose: 300, nodes: 3000, depth: 60, ids: 50, siblings: 5000, above: 300,
    beside: 6};

  // --- the tree as it is shown ---------------------------------------------------

  const getter = (type, name) => {
    const read = Object.getOwnPropertyDescriptor(type.prototype, name)?.get;
    return (object) => read?.call(object);
  };
  const parentNodeOf = getter(Node, 'parentNode');
  const firstOf = getter(Node, 'firstChild');
  const nextOf = getter(Node, 'nextSibling');
  const kindOf = getter(Node, 'nodeType');
  const dataOf = getter(CharacterData, 'data');
  const tagOf = getter(Element, 'localName');
  const shadowOf = getter(Element, 'shadowRoot');
  const slotOf = getter(Element, 'assignedSlot');
  const textSlotOf = getter(Text, 'assignedSlot');
  const hostOf = getter(ShadowRoot, 'host');
  const editable = getter(HTMLElement, 'isContentEditable');
  const rootNodeOf = (node) => Node.prototype.getRootNode.call(node);
  const attribute = (element, name) => Element.prototype.getAttribute.call(element, name) ?? '';
  const has = (element, name) => Element.prototype.hasAttribute.call(element, name);
  const matches = (element, selector) => Element.prototype.matches.call(element, selector);
  const isElement = (node) => node !== null && node !== undefined && kindOf(node) === Node.ELEMENT_NODE;
  const isText = (node) => kindOf(node) === Node.TEXT_NODE;
  const styleOf = (element, part) => window.getComputedStyle(element, part);
  const isSvg = (element) => element instanceof SVGElement;

  const above = (node) => {
    const slot = isElement(node) ? slotOf(node) : isText(node) ? textSlotOf(node) : null;
    const parent = slot ?? parentNodeOf(node);
    return parent instanceof ShadowRoot ? hostOf(parent) : parent;
  };
  const elementAbove = (node) => {
    const parent = above(node);
    return isElement(parent) ? parent : null;
  };
  const nodesBelow = function* below(element) {
    if (element instanceof HTMLSlotElement) {
      const given = HTMLSlotElement.prototype.assignedNodes.call(element);
      if (given.length > 0) {
        yield* given;
        return;
      }
    }
    const shadow = shadowOf(element);
    for (let node = firstOf(shadow ?? element); node; node = nextOf(node)) yield node;
  };
  const elementsBelow = (element) => {
    const list = [];
    for (const node of nodesBelow(element)) {
      if (isElement(node)) list.push(node);
      if (list.length >= LIMIT.siblings) break;
    }
    return list;
  };

  const named = (element, ids) => {
    const root = rootNodeOf(element);
    const find = root instanceof Document ? Document.prototype.getElementById
      : root instanceof DocumentFragment ? DocumentFragment.prototype.getElementById : null;
    if (!find) return [];
    return ids.trim().split(/\s+/, LIMIT.ids).map((id) => (id ? find.call(root, id) : null))
      .filter((found) => found !== null);
  };
  const referenced = (element, name, property) => {
    if (property in Element.prototype) {
      const value = getter(Element, property)(element);
      if (value instanceof Element) return [value];
      if (Array.isArray(value) && value.length > 0) return value.slice(0, LIMIT.ids);
    }
    return named(element, attribute(element, name));
  };

  // An element without a box of its own is shown where what it lies in is.
  const isShown = (element) => {
    let at = element;
    for (let i = 0; at && i < LIMIT.above; at = elementAbove(at), i++) {
      if (Element.prototype.checkVisibility.call(at, {visibilityProperty: true})) return true;
      if (styleOf(at).display !== 'contents') return false;
    }
    return true;
  };
  // Whether the page keeps the element from whoever cannot see it; its own word only.
  const isKeptBack = (element) => attribute(element, 'aria-hidden') === 'true';

  // --- roles -----------------------------------------------------------------------

  const words = (text) => new Set(text.split(' '));
  const ROLES = words('alert alertdialog application article banner blockquote button caption cell ' +
    'checkbox code columnheader combobox complementary contentinfo definition deletion dialog ' +
    'directory document emphasis feed figure form generic grid gridcell group heading img image ' +
    'insertion link list listbox listitem log main mark marquee math menu menubar menuitem ' +
    'menuitemcheckbox menuitemradio meter navigation none note option paragraph presentation ' +
    'progressbar radio radiogroup region row rowgroup rowheader scrollbar search searchbox ' +
    'separator slider spinbutton status strong subscript superscript switch tab table tablist ' +
    'tabpanel term textbox time timer toolbar tooltip tree treegrid treeitem');
  const FROM_CONTENT = words('button cell checkbox columnheader gridcell heading link menuitem ' +
    'menuitemcheckbox menuitemradio option radio row rowheader switch tab tooltip treeitem summary');
  // What lies below them in their widget lies within them in the page, and is no part
  // of their name.
  const HOLDING = words('treeitem menuitem menuitemcheckbox menuitemradio');
  // Never named by the author or by anything else.
  const UNNAMED = words('caption code definition deletion emphasis generic insertion none paragraph ' +
    'presentation strong subscript superscript term time');
  const GLOBAL = ['aria-atomic', 'aria-busy', 'aria-controls', 'aria-current', 'aria-describedby',
    'aria-description', 'aria-details', 'aria-dropeffect', 'aria-flowto', 'aria-grabbed',
    'aria-keyshortcuts', 'aria-label', 'aria-labelledby', 'aria-live', 'aria-owns', 'aria-relevant',
    'aria-roledescription'];
  const SECTIONS = 'article, aside, main, nav, section, [role=article], [role=complementary], ' +
    '[role=main], [role=navigation], [role=region]';

  const isEditingHost = (element) => element instanceof HTMLElement && editable(element) &&
    !(elementAbove(element) instanceof HTMLElement && editable(elementAbove(element)));
  const canHaveFocus = (element) => has(element, 'tabindex') || isEditingHost(element) ||
    matches(element, 'a[href], area[href], button, input, select, textarea, iframe, summary, ' +
      'audio[controls], video[controls]');

  const INPUTS = {
    button: 'button', image: 'button', reset: 'button', submit: 'button', checkbox: 'checkbox',
    radio: 'radio', range: 'slider', number: 'spinbutton', search: 'searchbox', password: 'password',
    date: 'date', month: 'month', week: 'week', time: 'clock', 'datetime-local': 'datetime',
    color: 'color', file: 'file', hidden: '',
  };
  const typeOf = getter(HTMLInputElement, 'type');
  const listOf = getter(HTMLInputElement, 'list');
  const multipleOf = getter(HTMLSelectElement, 'multiple');
  const sizeOf = getter(HTMLSelectElement, 'size');
  const roleOfInput = (input) => {
    const type = typeOf(input);
    if (type === 'checkbox' && has(input, 'switch')) return 'switch';
    const role = INPUTS[type] ?? 'textbox';
    return (role === 'textbox' || role === 'searchbox') && listOf(input) ? 'combobox' : role;
  };
  const TAGS = {
    article: 'article', aside: 'complementary', blockquote: 'blockquote', button: 'button',
    caption: 'caption', code: 'code', dd: 'definition', del: 'deletion', details: 'group',
    dfn: 'term', dialog: 'dialog', dt: 'term', em: 'emphasis', fieldset: 'group', figure: 'figure',
    h1: 'heading', h2: 'heading', h3: 'heading', h4: 'heading', h5: 'heading', h6: 'heading',
    hr: 'separator', iframe: 'frame', frame: 'frame', ins: 'insertion', li: 'listitem',
    main: 'main', mark: 'mark', math: 'math', menu: 'list', meter: 'meter', nav: 'navigation',
    ol: 'list', optgroup: 'group', option: 'option', output: 'status', p: 'paragraph',
    progress: 'progressbar', search: 'search', strong: 'strong', sub: 'subscript',
    summary: 'summary', sup: 'superscript', table: 'table', tbody: 'rowgroup',
    textarea: 'textbox', tfoot: 'rowgroup', thead: 'rowgroup', time: 'time', tr: 'row', ul: 'list',
    audio: 'audio', video: 'video', object: 'object', embed: 'object',
  };
  const isInside = (element, selector) => {
    let at = elementAbove(element);
    for (let i = 0; at && i < LIMIT.above; at = elementAbove(at), i++) {
      if (matches(at, selector)) return at;
    }
    return null;
  };
  const nativeRole = (element) => {
    const tag = tagOf(element);
    if (isSvg(element)) {
      if (element instanceof SVGAElement) return 'link';
      return tag === 'svg' ? 'img' : '';
    }
    switch (tag) {
      case 'a': case 'area':
        return has(element, 'href') ? 'link' : '';
      case 'input':
        return roleOfInput(element);
      case 'select':
        return multipleOf(element) || sizeOf(element) > 1 ? 'listbox' : 'combobox';
      case 'img':
        return has(element, 'alt') && attribute(element, 'alt').trim() === '' &&
          !attribute(element, 'aria-label').trim() && !attribute(element, 'title').trim()
          ? 'presentation' : 'img';
      case 'header':
        return isInside(element, SECTIONS) ? '' : 'banner';
      case 'footer':
        return isInside(element, SECTIONS) ? '' : 'contentinfo';
      case 'section':
        return attribute(element, 'aria-label').trim() || attribute(element, 'aria-labelledby').trim() ||
          attribute(element, 'title').trim() ? 'region' : '';
      case 'form':
        return attribute(element, 'aria-label').trim() || attribute(element, 'aria-labelledby').trim() ||
          attribute(element, 'title').trim() ? 'form' : '';
      case 'td': case 'th': {
        const table = isInside(element, 'table');
        const grid = table && /^(grid|treegrid)$/.test(givenRole(table));
        if (tag === 'td') return grid ? 'gridcell' : 'cell';
        const scope = attribute(element, 'scope').toLowerCase();
        if (scope === 'row' || scope === 'rowgroup') return 'rowheader';
        if (scope === 'col' || scope === 'colgroup') return 'columnheader';
        const row = elementAbove(element);
        const beside = row ? elementsBelow(row).filter((each) => tagOf(each) === 'td').length : 0;
        return beside > 0 ? 'rowheader' : 'columnheader';
      }
      default:
        return Object.hasOwn(TAGS, tag) ? TAGS[tag] : '';
    }
  };
  const givenRole = (element) => {
    for (const token of attribute(element, 'role').toLowerCase().trim().split(/\s+/, 20)) {
      if (!ROLES.has(token)) continue;
      if (token === 'none' || token === 'presentation') {
        if (canHaveFocus(element) || GLOBAL.some((name) => has(element, name))) continue;
      }
      return token === 'image' ? 'img' : token;
    }
    return '';
  };
  const roleOf = (element) => {
    const role = givenRole(element) || nativeRole(element);
    return role === '' && isEditingHost(element) ? 'textbox' : role;
  };

  // --- names -----------------------------------------------------------------------

  // One computation of a name; it ends when it has seen enough.
  class Walk {
    constructor() {
      this.nodes = 0;
      this.length = 0;
      this.seen = new Set();
    }
    enter(node, depth) {
      return !this.seen.has(node) && depth < LIMIT.depth && this.nodes++ < LIMIT.nodes &&
        this.length < LIMIT.name * 2;
    }
    take(text) {
      this.length += text.length;
      return text;
    }
  }
  // Signs of private use are pictures that a page's own font draws; they have no name.
  const PICTURES = /[\ue000-\uf8ff\u{f0000}-\u{ffffd}\u{100000}-\u{10fffd}]+/gu;
  const flat = (text) => text.replace(PICTURES, ' ').replace(/[\s\u00a0]+/g, ' ').trim();

  // What a style sheet puts before or after an element: its texts, or those that
  // stand for it when it is spoken.
  const generated = (element, part) => {
    const {content, display} = styleOf(element, part);
    if (!content || content === 'none' || content === 'normal' || display === 'none') return '';
    const spoken = content.includes('" / ') ? content.slice(content.indexOf('" / ') + 3)
      : content.startsWith('url(') && content.includes(') / ') ? content.slice(content.indexOf(') / ') + 3)
        : content;
    const texts = spoken.match(/"(?:[^"\\]|\\.)*"/g) ?? [];
    const text = texts.map((each) => each.slice(1, -1).replace(/\\(.)/g, '$1')).join('');
    return display.startsWith('inline') ? text : ` ${text} `;
  };

  const labelsOf = (element) => {
    if (element instanceof HTMLInputElement && typeOf(element) === 'hidden') return [];
    const list = element.labels;
    return list instanceof NodeList ? Array.prototype.slice.call(list, 0, LIMIT.ids) : [];
  };
  const firstChild = (element, tag) => elementsBelow(element).find((each) => tagOf(each) === tag);
  const valueOf = (field) => (typeof field.value === 'string' ? field.value : '');
  const joined = (nodes, walk, how, depth) =>
    nodes.map((node) => flat(textOf(node, walk, how, depth))).filter((text) => text).join(' ');

  // What the element's kind has for a name: label, alternative text, legend, caption ...
  // Undefined where it has none, so that other ways are tried.
  const nativeName = (element, walk, depth) => {
    const labelled = element instanceof HTMLInputElement || element instanceof HTMLSelectElement ||
      element instanceof HTMLTextAreaElement || element instanceof HTMLButtonElement ||
      element instanceof HTMLMeterElement || element instanceof HTMLProgressElement ||
      element instanceof HTMLOutputElement;
    if (labelled) {
      const type = element instanceof HTMLInputElement ? typeOf(element) : '';
      if (type === 'submit' || type === 'reset' || type === 'button') {
        const value = flat(attribute(element, 'value'));
        if (value) return value;
        if (type !== 'button' && !has(element, 'value')) return type === 'submit' ? 'Submit' : 'Reset';
        return undefined;
      }
      const labels = labelsOf(element);
      const text = joined(labels, walk, {label: true, field: element}, depth);
      if (text) return text;
      if (type === 'image') {
        return flat(attribute(element, 'alt')) || flat(attribute(element, 'value')) || undefined;
      }
      return undefined;
    }
    const tag = tagOf(element);
    const part = {fieldset: 'legend', table: 'caption', figure: 'figcaption'}[tag];
    if (part) {
      const child = firstChild(element, part);
      return child ? flat(textOf(child, walk, {content: true}, depth)) || undefined : undefined;
    }
    if (tag === 'img' || tag === 'area') return has(element, 'alt') ? flat(attribute(element, 'alt')) : undefined;
    if (tag === 'optgroup' || tag === 'option' || tag === 'track') return flat(attribute(element, 'label')) || undefined;
    if (isSvg(element)) {
      const title = firstChild(element, 'title');
      return title ? flat(title.textContent ?? '') || undefined : undefined;
    }
    return undefined;
  };

  // The value of a control that stands inside what names another one.
  const embedded = (element, role) => {
    if (role === 'textbox' || role === 'searchbox') {
      return element instanceof HTMLInputElement || element instanceof HTMLTextAreaElement
        ? valueOf(element) : element.textContent ?? '';
    }
    if (role === 'combobox' || role === 'listbox') {
      if (element instanceof HTMLSelectElement) {
        return Array.from(element.selectedOptions).slice(0, LIMIT.ids).map((each) => flat(each.text)).join(' ');
      }
      if (element instanceof HTMLInputElement) return valueOf(element);
      return elementsBelow(element).filter((each) => attribute(each, 'aria-selected') === 'true')
        .map((each) => flat(each.textContent ?? '')).join(' ');
    }
    if (role === 'slider' || role === 'spinbutton' || role === 'scrollbar' || role === 'progressbar' ||
        role === 'meter') {
      return attribute(element, 'aria-valuetext') || attribute(element, 'aria-valuenow') || valueOf(element);
    }
    return undefined;
  };

  // how the walk has come to a node:
  //   root       it is the element whose name is wanted
  //   reference  by an id; self: by its own
  //   label      by a label, of the field `field`
  //   content    as a part of what names
  //   hidden     within a part that is hidden and names all the same
  //   unseen     what is not shown counts, too
  const textOf = (node, walk, how, depth) => {
    if (isText(node)) return walk.take(dataOf(node).slice(0, LIMIT.name * 2));
    if (!isElement(node) || matches(node, 'script, style, template') || !walk.enter(node, depth)) {
      return '';
    }
    const isUnseen = !how.root && !how.hidden && (isKeptBack(node) || !(how.unseen || isShown(node)));
    if (isUnseen && how.content) return '';
    const hidden = how.hidden || isUnseen;
    walk.seen.add(node);
    const text = referencedText(node, walk, how, depth) || ownText(node, walk, {...how, hidden}, depth);
    walk.seen.delete(node);
    return text;
  };
  // An element may name itself along with others.
  const referencedText = (node, walk, how, depth) => {
    if (how.reference) return '';
    const parts = referenced(node, 'aria-labelledby', 'ariaLabelledByElements').map((each) => {
      const self = each === node;
      if (self) walk.seen.delete(node);
      const text = flat(textOf(each, walk, {reference: true, self}, depth + 1));
      walk.seen.add(node);
      return text;
    });
    return parts.filter((text) => text).join(' ');
  };
  const ownText = (node, walk, how, depth) => {
    const role = roleOf(node);
    const isPart = !how.root && !how.self && node !== how.field;
    const value = isPart ? embedded(node, role) : undefined;
    if (value) return walk.take(` ${value} `);
    const label = flat(attribute(node, 'aria-label'));
    if (label) return walk.take(label);
    if (role !== 'presentation' && role !== 'none') {
      const native = nativeName(node, walk, depth + 1);
      if (native !== undefined) return walk.take(native);
    }
    if (isPart || FROM_CONTENT.has(role) || how.loose) {
      const apart = HOLDING.has(role);
      const text = contentOf(node, walk,
        {content: true, hidden: how.hidden, unseen: how.unseen, field: how.field, apart}, depth + 1);
      if (flat(text)) return text;
    }
    // The words of a sign are no part of the word beside it.
    const tip = flat(attribute(node, 'title'));
    return walk.take(how.content && tip ? ` ${tip} ` : tip);
  };
  const contentOf = (node, walk, how, depth) => {
    let text = generated(node, '::before');
    for (const child of nodesBelow(node)) {
      text += piece(child, walk, how, depth);
      if (walk.length > LIMIT.name * 2) break;
    }
    for (const owned of named(node, attribute(node, 'aria-owns'))) {
      text += ` ${piece(owned, walk, how, depth)} `;
    }
    return text + generated(node, '::after');
  };
  // Words of parts that stand apart are apart.
  const piece = (node, walk, how, depth) => {
    if (!isElement(node)) return textOf(node, walk, how, depth);
    if (node === how.field || tagOf(node) === 'br') return ' ';
    if (how.apart && /^(group|menu|tree)$/.test(roleOf(node))) return '';
    const text = textOf(node, walk, how, depth);
    if (text === '') return text;
    const display = styleOf(node).display;
    return display === 'inline' || display === 'contents' ? text : ` ${text} `;
  };

  const short = (text) => {
    const cut = flat(text).slice(0, LIMIT.name);
    return cut.isWellFormed() ? cut : cut.toWellFormed();
  };
  const hintOf = (field) => short(attribute(field, 'placeholder') || attribute(field, 'aria-placeholder'));
  const isWrittenIn = (field) => (field instanceof HTMLInputElement || field instanceof HTMLTextAreaElement
    ? field.value : field.textContent) !== '';
  // A page that is short of room shows a sign in place of a control's words and hides
  // those in it. They are better than nothing.
  const ACTS = words('button link menuitem menuitemcheckbox menuitemradio option summary switch tab');
  const unseenWords = (element) => short(
    contentOf(element, new Walk(), {content: true, unseen: true, apart: true}, 0).slice(0, LIMIT.loose));
  // A script that puts a field of its own in the place of the page's takes that one out
  // of reach; the label stays with it.
  const STANDS_IN = words('textbox searchbox combobox listbox spinbutton');
  const isOutOfReach = (field) => !isShown(field) || attribute(field, 'tabindex').trim().startsWith('-');
  const labelOfReplaced = (field) => {
    let at = elementAbove(field);
    for (let i = 0; at && i < LIMIT.beside; at = elementAbove(at), i++) {
      const labels = Element.prototype.querySelectorAll.call(at, 'label');
      if (labels.length === 0) continue;
      const other = labels[0].control;
      if (labels.length > 1 || !other || other === field || !isOutOfReach(other)) return '';
      return short(textOf(labels[0], new Walk(), {label: true, field: other}, 0));
    }
    return '';
  };
  const lastResort = (element, role) => {
    if (ACTS.has(role)) return canHaveFocus(element) ? unseenWords(element) : '';
    return STANDS_IN.has(role) ? labelOfReplaced(element) : '';
  };
  // What gets the focus and is nothing in particular is called by what it shows.
  const nameOf = (element) => {
    const role = roleOf(element);
    if (UNNAMED.has(role)) return '';
    const loose = role === '' && canHaveFocus(element);
    const text = short(textOf(element, new Walk(), {root: true, loose}, 0)) || hintOf(element);
    return (loose ? short(text.slice(0, LIMIT.loose)) : text) || lastResort(element, role);
  };
  // What an element says to whoever reads it: its content, alternative texts in it.
  const wordsOf = (element) => short(isKeptBack(element) || !isShown(element) ? ''
    : contentOf(element, new Walk(), {content: true}, 0));
  const descriptionOf = (element, name) => {
    const by = referenced(element, 'aria-describedby', 'ariaDescribedByElements');
    let text = short(joined(by, new Walk(), {reference: true}, 0));
    if (text === '') text = short(attribute(element, 'aria-description'));
    if (text === '') {
      const title = short(attribute(element, 'title'));
      if (title !== name) text = title;
    }
    const hint = isWrittenIn(element) ? '' : hintOf(element);
    return short([hint, text].filter((each) => each !== '' && each !== name).join(', '));
  };

  Object.defineProperty(globalThis, 'corvaneNames', {value: Object.freeze({
    nameOf, wordsOf, unseenWords, descriptionOf, roleOf, givenRole, isShown, isKeptBack, isElement, isEditingHost, canHaveFocus, isInside,
    elementAbove, elementsBelow, nodesBelow, named, referenced, attribute, has, matches, getter, short,
    flat, typeOf, valueOf, tagOf, words, limit: LIMIT,
  })});
})();
