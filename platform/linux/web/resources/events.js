// Runs after the record's script, in every frame of every page and in the same
// script world. It tells the program about focus, key and change events of links
// and form elements, and of whatever else gets the focus.
'use strict';
(() => {
  if (!globalThis.corvaneCaret || globalThis.corvaneListens) return;
  Object.defineProperty(globalThis, 'corvaneListens', {value: true});

  const {
    documentId, post, begin, clean, collapsed, attribute, characters, bodyOf, rootOf, innerTextOf,
    numberOf, classOf, hrefOf, isLink, isField, stateOf, describeField, describeLinks, maxValue,
    isRecorded, kindOf, share, sharedBy,
  } = globalThis.corvane.parts;
  const {ofEditor, lineOfEditor, lineOfArea, stepOf} = globalThis.corvaneCaret;
  const MOST_WORDS = 300;  // characters of what an element shows

  // --- what an element is to its user ------------------------------------------

  const activeIn = (root) => Object.getOwnPropertyDescriptor(
    (root instanceof Document ? Document : ShadowRoot).prototype, 'activeElement').get.call(root);
  const isPage = (element) => element === bodyOf(document) || element === rootOf(document);
  // The editable part of the page that the focus is in, where that is no field.
  const isEditor = (element) => element instanceof HTMLElement && element.isContentEditable &&
    !isField(element);

  // [selected characters, characters after the caret, whether that is known]
  const caretOf = (element) => {
    let start = null;
    let end = null;
    try {
      start = element.selectionStart ?? null;
      end = element.selectionEnd ?? null;
    } catch {
      // a field without a caret
    }
    if (start === null || end === null) return [0, 0, 0];
    const value = element.value;
    return [characters(value.slice(start, end)), characters(value.slice(end)), 1];
  };

  // Words for an element that is neither a link nor a field: its role or tag, and
  // the name that its author gave it or what it shows.
  const describeOther = (element) => {
    const role = attribute(element, 'role') || element.localName;
    const words = attribute(element, 'aria-label') || attribute(element, 'title') ||
      (element instanceof HTMLElement ? innerTextOf(element) : '');
    return [numberOf(element), classOf(element), clean(role, 100), '',
      collapsed(words.slice(0, MOST_WORDS)), '', '', '', 0, -1, [], [], '', ''];
  };
  // An editable part of the page is a text area to its user.
  const describeEditor = (element, state) => [numberOf(element), 'HTMLTextAreaElement', 'textarea',
    collapsed(attribute(element, 'aria-label')), '', '', '', ...state, '', ''];

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

  // Inputs that a step changes at once, and those of which a script cannot tell where
  // the caret is or which part of them has the focus: others have to look.
  const STEPPED = new Set(['range', 'number', 'color']);
  const PARTED = new Set(['date', 'time', 'datetime-local', 'month', 'week']);
  const WITHOUT_CARET = new Set(['number', 'email']);
  // A player's own controls lie where no script looks.
  const isPlayer = (element) => element instanceof HTMLMediaElement;
  const CONTROL = 3;

  // The line at the caret of what has several; another has to look where it may be
  // shown in more than one piece.
  const LINE_STEP = 2;
  const tellLine = (message, element) => {
    if (isEditor(element)) {
      message.line = lineOfEditor(element);
    } else if (element instanceof HTMLTextAreaElement) {
      const {line, fits} = lineOfArea(element);
      message.line = line;
      if (!fits && message.kind === 'keyup') message.look = 2;
    }
  };

  const told = new WeakSet();  // described in an event
  // What is to be told of an element; null for nothing.
  const messageOf = (kind, element, more) => {
    const field = isField(element);
    const editor = isEditor(element);
    const link = isLink(element);
    if (!field && !editor && !link && kind !== 'focus' && kind !== 'state') return null;
    begin();
    const message = {kind, document: documentId, number: numberOf(element), ...more};
    message.href = link ? hrefOf(element) : '';
    if (field || editor) {
      if (field) {
        message.state = stateOf(element);
        message.caret = caretOf(element);
      } else {
        const {value, caret} = ofEditor(element);
        message.state = [value, 0, -1, [], []];
        message.caret = caret;
      }
      if (kind === 'keyup') message.step = step;
      if (kind === 'state') message.edit = edit;
      if (kind === 'focus' || (kind === 'keyup' && step[0] === LINE_STEP)) tellLine(message, element);
      const what = kindOf(element);
      if (PARTED.has(what) || (kind === 'keyup' && WITHOUT_CARET.has(what))) message.look = 1;
    }
    if (isPlayer(element) && kind === 'focus') message.look = CONTROL;
    const chooses = kind === 'change' && element instanceof HTMLSelectElement;
    if (kind === 'focus' || kind === 'state' || chooses) {
      const {factsOf, timesOf} = globalThis.corvaneFacts;
      const times = kind === 'focus' && isPlayer(element) ? timesOf(element) : {};
      message.facts = {...factsOf(element), ...times, ...more.facts};
    }
    // An element that no record holds is described whole.
    if (!isRecorded(element) && (kind === 'focus' || !told.has(element))) {
      told.add(element);
      if (field) message.field = describeField(element, labelOf);
      else if (editor) message.field = describeEditor(element, message.state);
      else if (link) message.link = describeLinks([element], 1);
      else message.field = describeOther(element);
    }
    return JSON.stringify(message);
  };
  const tell = (kind, element, more = {}) => {
    const message = messageOf(kind, element, more);
    if (message !== null) post('event', message);
  };

  // Scripts move the focus, too. Of what they do the first few moves are told as
  // they come, then one now and again and ever more seldom, the last one always.
  const FREE_MOVES = 5;
  const MOVE_PAUSE = {first: 1000, longest: 60000};  // milliseconds
  const FOLLOWS = 5000;  // for so long a move may follow what the user has done
  let movesSinceInput = 0;
  let pause = MOVE_PAUSE.first;
  let waitingFocus = null;
  let lastMove = 0;
  let lastInput = -Infinity;
  const moved = (element, now) => {
    lastMove = now;
    tell('focus', element, {unasked: now - lastInput > FOLLOWS ? 1 : 0});
  };
  const tellFocus = (element) => {
    const now = performance.now();
    if (++movesSinceInput <= FREE_MOVES || (!waitingFocus && now - lastMove > pause)) {
      return moved(element, now);
    }
    if (!waitingFocus) {
      setTimeout(() => {
        const latest = waitingFocus;
        waitingFocus = null;
        moved(latest, performance.now());
      }, pause);
      pause = Math.min(2 * pause, MOVE_PAUSE.longest);
    }
    waitingFocus = element;
  };

  // A radio button that is reached with an arrow key has the focus a moment before it
  // is chosen; its choice is part of what is told of it.
  let arriving = null;
  const isRadio = (element) => element instanceof HTMLInputElement && element.type === 'radio';

  let latest = null;   // that has got the focus
  let telling = null;  // of it, in a moment
  const isStepped = (element) => element instanceof HTMLInputElement && STEPPED.has(element.type);
  const isSecret = (element) => element instanceof HTMLInputElement && element.type === 'password';

  // The program leads the user into an element of a page that does not have the keys yet:
  // the element is told of when they come, not twice.
  let entering = false;
  // Where the program follows the page's focus, that has been told.
  let ahead = {element: null, at: -Infinity};
  const AHEAD = 1000;  // milliseconds
  const wasToldAhead = (element) => element === ahead.element && performance.now() - ahead.at < AHEAD;
  const enter = () => { entering = !Document.prototype.hasFocus.call(document); };

  // The focus is told of when the page has done what it does with it: it may choose a
  // tab, or lead on at once.
  const comeTo = (element) => {
    latest = element;
    telling ??= setTimeout(() => {
      telling = arriving = null;
      tellFocus(globalThis.corvaneAttention?.arrive(latest) ?? latest);
    }, 0);
  };
  // A frame with nothing in it that takes the focus has it as a whole.
  const comeToFrame = () => {
    const page = bodyOf(document) ?? rootOf(document);
    const at = activeIn(document);
    if (window !== window.parent && page && (!at || isPage(at))) comeTo(page);
  };

  // `focus`, since an input of several parts has no `focusin`.
  const hearers = {
    focus: (element) => {
      if (isPage(element) && !isEditor(element)) return;
      if (entering && !Document.prototype.hasFocus.call(document)) return;
      entering = false;
      if (wasToldAhead(element)) return;
      if (isRadio(element)) arriving = element;
      comeTo(element);
    },
    blur: (element) => {
      if (isSecret(element)) tell('leave', element);
    },
    keyup: (element, event) => {
      if (isPlayer(element) && event.key === 'Tab') tell('state', element, {look: CONTROL, facts: globalThis.corvaneFacts.timesOf(element)});
      if (isTyping(event, element)) tell('keyup', element, {edit});
    },
    input: (element, event) => {
      edit = editOf(event);
      if (edit === 0 && isStepped(element)) tell('change', element);
    },
    change: (element) => {
      if (element !== arriving && !isStepped(element)) tell('change', element);
    },
  };
  const heard = (event) => {
    const target = event.isTrusted ? event.composedPath()[0] : null;
    if (target instanceof Element) hearers[event.type](target, event);
    // A document that is edited as a whole has the focus itself.
    else if (target === document && event.type === 'focus') hearers.focus(bodyOf(document) ?? rootOf(document));
    else if (target === window && event.type === 'focus') comeToFrame();
  };

  // The release of a key that was pressed elsewhere, such as the Tab that led
  // here, is no typing in this element; nor is that of a key that only modifies
  // others, such as the Control that silences the program.
  let pressedIn = null;
  let edit = 0;  // what the key that is down has done: 1 typed, 2 removed
  let step = [0, 0];  // and how far it leads, whether it selects
  const MODIFIERS = new Set(['Shift', 'Control', 'Alt', 'AltGraph', 'Meta', 'CapsLock', 'NumLock']);
  const isTyping = (event, element) => pressedIn === element && !MODIFIERS.has(event.key);
  const editOf = (event) => {
    if (!(event instanceof InputEvent)) return 0;
    if (event.inputType.startsWith('insert')) return 1;
    return event.inputType.startsWith('delete') ? 2 : 0;
  };
  // The user has done something in the page, by a key or through its text.
  const acted = () => {
    movesSinceInput = 0;
    pause = MOVE_PAUSE.first;
    lastInput = performance.now();
  };
  const input = (event) => {
    if (!event.isTrusted) return;
    acted();
    if (event.type === 'keydown') {
      pressedIn = event.composedPath()[0];
      if (!event.repeat) edit = 0;
      if (!MODIFIERS.has(event.key)) step = stepOf(event);
    }
  };
  for (const type of Object.keys(hearers)) {
    window.addEventListener(type, heard, {capture: true, passive: true});
  }
  for (const type of ['keydown', 'pointerdown']) {
    window.addEventListener(type, input, {capture: true, passive: true});
  }

  // --- where the focus is ----------------------------------------------------------

  const isFrame = (element) => element instanceof HTMLIFrameElement || element instanceof HTMLFrameElement;
  // The element that has the focus; null for the page as a whole.
  const inFocus = () => {
    let element = activeIn(document);
    while (element?.shadowRoot && activeIn(element.shadowRoot)) element = activeIn(element.shadowRoot);
    return element && (!isPage(element) || isEditor(element)) ? element : null;
  };
  // The keys are about to come to what has the focus, here or in a frame.
  const follow = (depth = 0) => {
    const element = inFocus();
    if (isFrame(element) && depth < 10) sharedBy(element.contentWindow).follow?.(depth + 1);
    else ahead = {element, at: performance.now()};
    return 'known';
  };
  share('follow', follow);
  // For who has to ask, since the document runs no scripts.
  const focus = (again) => {
    const element = inFocus();
    return element ? messageOf('focus', element, {again}) ?? '' : '';
  };
  // Tells once more of the element that has the focus, here or in a frame. What is about
  // to be told for the first time is not told before.
  const tellAgain = (depth = 0) => {
    if (!Document.prototype.hasFocus.call(document) || depth > 10 || telling !== null) return;
    const element = inFocus();
    if (!element) return;
    if (isFrame(element)) {
      sharedBy(element.contentWindow).tellAgain?.(depth + 1);
      return;
    }
    const target = globalThis.corvaneAttention?.arrive(element) ?? element;
    tell('focus', target, {unasked: 1, again: 1});
  };
  Object.defineProperty(globalThis, 'corvaneEvents',
    {value: Object.freeze({tellAgain, tell, tellFocus, focus, enter, follow, acted})});
  share('tellAgain', tellAgain);
})();
