// Runs in every frame behind attention.js. A field with a list of suggestions shows them
// in a window of the engine's own, which no page and no reader sees: how many fit what
// is typed and which of them the arrows lead to is worked out here as the engine does.
'use strict';
(() => {
  if (!globalThis.corvaneEvents || !globalThis.corvaneNames || globalThis.corvaneSuggestions) return;

  const {tell} = globalThis.corvaneEvents;
  const {getter, typeOf, valueOf, short} = globalThis.corvaneNames;
  const MOST = 1000;  // options that are looked at
  const SOON = 100;   // milliseconds behind the words of a key
  const listOf = getter(HTMLInputElement, 'list');
  const optionsOf = getter(HTMLDataListElement, 'options');
  const TYPED = /^(text|search|url|tel|email|number)$/;

  // Those that begin with what is typed stand in front of those that hold it elsewhere.
  const fitting = (field) => {
    const list = listOf(field);
    if (!(list instanceof HTMLDataListElement)) return null;
    const typed = valueOf(field).toLowerCase();
    const first = [];
    const others = [];
    const options = optionsOf(list);
    for (let i = 0; i < options.length && i < MOST; i++) {
      const {value, label, disabled} = options[i];
      if (value === '' || disabled) continue;
      if (value.toLowerCase().startsWith(typed)) first.push(value);
      else if (value.toLowerCase().includes(typed) || label.toLowerCase().includes(typed)) others.push(value);
    }
    return [...first, ...others];
  };

  let field = null;
  let shown = [];
  let at = -1;  // the one that the arrows have reached
  const close = () => {
    field = null;
    shown = [];
    at = -1;
  };
  const fieldOf = (event) => {
    const [target] = event.isTrusted ? event.composedPath() : [];
    return target instanceof HTMLInputElement && TYPED.test(typeOf(target)) ? target : null;
  };

  let telling = null;
  window.addEventListener('input', (event) => {
    const target = fieldOf(event);
    const fits = target && fitting(target);
    close();
    // What is chosen from the list is a value, no search.
    if (!fits || !(event instanceof InputEvent) || event.inputType === 'insertReplacementText') return;
    field = target;
    shown = fits;
    clearTimeout(telling);
    telling = setTimeout(() => {
      if (field) tell('state', field, {fresh: 1, facts: {suggestions: shown.length + 1}});
    }, SOON);
  }, {capture: true, passive: true});

  window.addEventListener('keydown', (event) => {
    const target = fieldOf(event);
    if (!target || event.ctrlKey || event.altKey) return;
    if (/^(Enter|Escape|Tab)$/.test(event.key)) close();
    const step = {ArrowDown: 1, ArrowUp: -1}[event.key];
    if (!step || target !== field || shown.length === 0) return;
    at = at < 0 && step < 0 ? shown.length - 1 : (at + step + shown.length) % shown.length;
    tell('state', target, {facts: {suggestion: short(shown[at]), place: at + 1, size: shown.length}});
  }, {capture: true, passive: true});

  Object.defineProperty(globalThis, 'corvaneSuggestions', {value: true});
})();
