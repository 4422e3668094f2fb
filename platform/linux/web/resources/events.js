// Runs after the record's script, in every frame of every page and in the same
// script world. It tells the program about focus, key and change events of links
// and form elements, and of whatever else gets the focus.
'use strict';
(() => {
  if (!globalThis.corvane || globalThis.corvaneListens) return;
  Object.defineProperty(globalThis, 'corvaneListens', {value: true});

  const {
    documentId, post, begin, clean, collapsed, attribute, characters, bodyOf, rootOf, innerTextOf,
    numberOf, classOf, hrefOf, isLink, isField, stateOf, describeField, describeLinks, maxValue,
    isRecorded,
  } = globalThis.corvane.parts;
  const MOST_WORDS = 300;  // characters of what an element shows

  // --- what an element is to its user ------------------------------------------

  // The editable part of the page that the focus is in, where that is no field.
  const isEditor = (element) => element instanceof HTMLElement && element.isContentEditable &&
    !isField(element);

  // [selected characters, characters after the caret]
  const caretOf = (element) => {
    if (isEditor(element)) return caretOfEditor(element);
    let start = null;
    let end = null;
    try {
      start = element.selectionStart ?? null;
      end = element.selectionEnd ?? null;
    } catch {
      // a field without a caret
    }
    if (start === null || end === null) return [0, 0];
    const value = element.value;
    return [characters(value.slice(start, end)), characters(value.slice(end))];
  };
  const caretOfEditor = (editor) => {
    const selection = window.getSelection();
    if (!selection || selection.rangeCount === 0) return [0, 0];
    const selected = selection.getRangeAt(0);
    const after = document.createRange();
    after.selectNodeContents(editor);
    after.setStart(selected.endContainer, selected.endOffset);
    return [characters(selected.toString()), characters(after.toString())];
  };

  // Words for an element that is neither a link nor a field: its role or tag, and
  // the name that its author gave it or what it shows.
  const describeOther = (element) => {
    const role = attribute(element, 'role') || element.localName;
    const words = attribute(element, 'aria-label') || attribute(element, 'title') ||
      (element instanceof HTMLElement ? innerTextOf(element) : '');
    return [numberOf(element), classOf(element), clean(role, 100), '',
      collapsed(words.slice(0, MOST_WORDS)), '', '', '', 0, -1, []];
  };
  // An editable part of the page is a text area to its user.
  const describeEditor = (element) => [numberOf(element), 'HTMLTextAreaElement', 'textarea',
    collapsed(attribute(element, 'aria-label')), '', '', '', ...stateOfEditor(element)];
  const stateOfEditor = (element) => [clean(element.textContent, maxValue), 0, -1, []];

  // The label of one field. The document is searched for it only where an id could
  // lead from a label to the field, and not again while the label found stands.
  const labels = new WeakMap();
  const labelOf = (field) => {
    const known = labels.get(field)?.deref();
    if (known?.isConnected && known.control === field) return known;
    const around = field.closest('label');
    let label = around?.control === field ? around : undefined;
    if (!label && field.id !== '') {
      const root = field.getRootNode();
      const search = (root instanceof Document ? Document : DocumentFragment).prototype.querySelector;
      const named = search.call(root, `label[for="${CSS.escape(field.id)}"]`);
      if (named?.control === field) label = named;
    }
    if (label) labels.set(field, new WeakRef(label));
    return label;
  };

  // --- telling -------------------------------------------------------------------

  const kinds = {focusin: 'focus', keyup: 'keyup', change: 'change'};
  const told = new WeakSet();  // described in an event
  const tell = (kind, element) => {
    const field = isField(element);
    const editor = isEditor(element);
    const link = isLink(element);
    if (!field && !editor && !link && kind !== 'focus') return;
    begin();
    const message = {kind, document: documentId, number: numberOf(element)};
    message.href = link ? hrefOf(element) : '';
    if (field || editor) {
      message.state = field ? stateOf(element) : stateOfEditor(element);
      message.caret = caretOf(element);
    }
    // An element that no record holds is described whole.
    if (!isRecorded(element) && (kind === 'focus' || !told.has(element))) {
      told.add(element);
      if (field) message.field = describeField(element, labelOf);
      else if (editor) message.field = describeEditor(element);
      else if (link) message.link = describeLinks([element], 1);
      else message.field = describeOther(element);
    }
    post('event', JSON.stringify(message));
  };

  // Scripts move the focus, too. Of what they do the first few moves are told as
  // they come, then one now and again, the last one always.
  const FREE_MOVES = 5;
  const MOVE_PAUSE = 1000;  // milliseconds
  let movesSinceInput = 0;
  let waitingFocus = null;
  let lastMove = 0;
  const tellFocus = (element) => {
    const now = performance.now();
    if (++movesSinceInput <= FREE_MOVES || (!waitingFocus && now - lastMove > MOVE_PAUSE)) {
      lastMove = now;
      return tell('focus', element);
    }
    if (!waitingFocus) {
      setTimeout(() => {
        const latest = waitingFocus;
        waitingFocus = null;
        lastMove = performance.now();
        tell('focus', latest);
      }, MOVE_PAUSE);
    }
    waitingFocus = element;
  };

  // A radio button that is reached with an arrow key has the focus a moment
  // before it is chosen; it is told when it is.
  let arriving = null;
  const focused = (element) => {
    if (!(element instanceof HTMLInputElement) || element.type !== 'radio') {
      return tellFocus(element);
    }
    arriving = element;
    setTimeout(() => {
      if (arriving !== element) return;
      arriving = null;
      tellFocus(element);
    }, 0);
  };

  const heard = (event) => {
    if (!event.isTrusted) return;
    const element = event.composedPath()[0];
    if (!(element instanceof Element)) return;
    if (event.type === 'focusin') {
      if (element !== bodyOf(document) && element !== rootOf(document)) focused(element);
    } else if (event.type === 'keyup' ? isTyping(event, element) : element !== arriving) {
      tell(kinds[event.type], element);
    }
  };

  // The release of a key that was pressed elsewhere, such as the Tab that led
  // here, is no typing in this element; nor is that of a key that only modifies
  // others, such as the Control that silences the program.
  let pressedIn = null;
  const MODIFIERS = new Set(['Shift', 'Control', 'Alt', 'AltGraph', 'Meta', 'CapsLock', 'NumLock']);
  const isTyping = (event, element) => pressedIn === element && !MODIFIERS.has(event.key);
  const input = (event) => {
    if (!event.isTrusted) return;
    movesSinceInput = 0;
    if (event.type === 'keydown') pressedIn = event.composedPath()[0];
  };
  for (const type of Object.keys(kinds)) {
    window.addEventListener(type, heard, {capture: true, passive: true});
  }
  for (const type of ['keydown', 'pointerdown']) {
    window.addEventListener(type, input, {capture: true, passive: true});
  }
})();
