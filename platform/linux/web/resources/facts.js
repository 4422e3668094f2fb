// Runs behind names.js, in the same script world. It tells what an element is to its
// user besides its name: its states, its value, its place among its like, and the
// groups that it lies in.
'use strict';
(() => {
  if (!globalThis.corvaneNames || globalThis.corvaneFacts) return;

  const {
    nameOf, descriptionOf, roleOf, givenRole, isShown, isKeptBack, isElement, isInside, elementAbove,
    elementsBelow, named, attribute, has, matches, getter, short, typeOf, valueOf, tagOf, words, limit,
  } = globalThis.corvaneNames;
  const {likeBelow} = globalThis.corvaneLikeLists;
  const {gridOf} = globalThis.corvaneTableGrid;
  const {numberOf, share, sharedBy} = globalThis.corvane.parts;
  const MOST_GROUPS = 8;
  const ROWS_LOOKED = 20;   // of a table, for where a cell of it lies
  const MOST_COLUMNS = 500;

  const isField = (element) => element instanceof HTMLInputElement ||
    element instanceof HTMLSelectElement || element instanceof HTMLTextAreaElement ||
    element instanceof HTMLButtonElement;
  const whole = (text) => (/^\s*\d{1,9}\s*$/.test(text) ? Number(text) : 0);
  const one = (text, allowed) => (allowed.has(text.trim().toLowerCase()) ? text.trim().toLowerCase() : '');

  // --- states -----------------------------------------------------------------------

  const BOTH = words('true false');
  const THREE = words('true false mixed');
  const CHECKED = words('checkbox menuitemcheckbox menuitemradio radio switch option treeitem');
  const SELECTED = words('option tab row gridcell columnheader rowheader treeitem');
  const checkedOf = (element, role) => {
    if (element instanceof HTMLInputElement && /^(checkbox|radio)$/.test(typeOf(element))) {
      return element.indeterminate ? 'mixed' : String(element.checked);
    }
    if (!CHECKED.has(role)) return '';
    const said = one(attribute(element, 'aria-checked'), THREE);
    return said || (/^(checkbox|menuitemcheckbox|menuitemradio|radio|switch)$/.test(role) ? 'false' : '');
  };
  const selectedOf = (element, role) => {
    if (element instanceof HTMLOptionElement) return String(element.selected);
    return SELECTED.has(role) ? one(attribute(element, 'aria-selected'), BOTH) : '';
  };
  const expandedOf = (element, role) => {
    if (role === 'summary') {
      const parent = elementAbove(element);
      return parent instanceof HTMLDetailsElement ? String(parent.open) : '';
    }
    const said = one(attribute(element, 'aria-expanded'), BOTH);
    if (said || !(element instanceof HTMLButtonElement)) return said;
    // A button that shows and hides another part of the page.
    const [target] = named(element, attribute(element, 'popovertarget'));
    return target instanceof HTMLElement && has(target, 'popover')
      ? String(matches(target, ':popover-open')) : '';
  };
  const POPUPS = words('menu listbox tree grid dialog');
  const popupOf = (element) => {
    const said = attribute(element, 'aria-haspopup').trim().toLowerCase();
    return said === 'true' ? 'menu' : one(said, POPUPS);
  };
  const CURRENT = words('page step location date time true');
  const SORTED = words('ascending descending other');
  // A header is sorted; what is pressed for it may be a button within.
  const sortOf = (element) => {
    let at = element;
    for (let i = 0; at && i < 4; at = elementAbove(at), i++) {
      const said = one(attribute(at, 'aria-sort'), SORTED);
      if (said) return said;
    }
    return '';
  };
  const isDisabled = (element) => {
    if (isField(element) && matches(element, ':disabled')) return true;
    for (let at = element, i = 0; at && i < limit.above; at = elementAbove(at), i++) {
      const said = attribute(at, 'aria-disabled');
      if (said === 'true') return true;
      if (said === 'false') return false;
    }
    return false;
  };
  const WRITES = words('text search url tel email password date month week time datetime-local number');
  const isReadOnly = (element) => {
    if (element instanceof HTMLTextAreaElement) return element.readOnly;
    if (element instanceof HTMLInputElement && WRITES.has(typeOf(element))) return element.readOnly;
    return attribute(element, 'aria-readonly') === 'true';
  };
  const isRequired = (element) => attribute(element, 'aria-required') === 'true' ||
    (isField(element) && element.required === true);
  // A field that the user has not got wrong yet is not called so.
  const isInvalid = (element) => {
    const said = attribute(element, 'aria-invalid').trim().toLowerCase();
    if (said !== '') return said !== 'false';
    return isField(element) && matches(element, ':user-invalid');
  };
  const errorOf = (element) => {
    if (!isInvalid(element)) return '';
    const told = named(element, attribute(element, 'aria-errormessage')).filter(isShown)
      .map((each) => each.textContent ?? '').join(' ');
    return short(told) || (isField(element) ? short(element.validationMessage ?? '') : '');
  };

  // --- value ------------------------------------------------------------------------

  const RANGES = words('slider spinbutton scrollbar progressbar meter');
  const isNumber = (text) => text.trim() !== '' && Number.isFinite(Number(text));
  const percent = (now, least, most) => {
    const part = (now - least) / (most - least);
    return Number.isFinite(part) ? `${Math.round(part * 100)} percent` : String(now);
  };
  const rangeValue = (element, role) => {
    const said = short(attribute(element, 'aria-valuetext'));
    if (said) return said;
    if (element instanceof HTMLProgressElement) {
      return element.position < 0 ? '' : percent(element.value, 0, element.max);
    }
    if (element instanceof HTMLMeterElement) return String(element.value);
    if (element instanceof HTMLInputElement) return short(valueOf(element));
    const now = attribute(element, 'aria-valuenow');
    if (!isNumber(now)) return '';
    const least = Number(attribute(element, 'aria-valuemin') || 0);
    const most = Number(attribute(element, 'aria-valuemax') || 100);
    return role === 'progressbar' ? percent(Number(now), least, most) : short(now);
  };
  const chosenOf = (select) => Array.from(select.selectedOptions).slice(0, limit.ids)
    .map((option) => short(option.text)).join(', ');
  const playing = (player) => {
    if (player.error || player.networkState === HTMLMediaElement.NETWORK_NO_SOURCE) return 'cannot be played';
    return player.ended ? 'ended' : player.paused ? 'paused' : 'playing';
  };
  // Seconds; one more than that of the position, so that 0 is told, too.
  const timesOf = (player) => ({
    position: Math.floor(player.currentTime) + 1,
    duration: Number.isFinite(player.duration) ? Math.round(player.duration) : 0,
  });
  const valueFor = (element, role) => {
    if (RANGES.has(role)) return rangeValue(element, role);
    if (element instanceof HTMLSelectElement) return chosenOf(element);
    if (element instanceof HTMLTextAreaElement) return short(valueOf(element));
    if (role === 'separator' && has(element, 'aria-valuenow')) return rangeValue(element, role);
    if (element instanceof HTMLInputElement) {
      return /^(checkbox|radio|button|submit|reset|image|password|hidden)$/.test(typeOf(element))
        ? '' : short(valueOf(element));
    }
    if (element instanceof HTMLMediaElement) return playing(element);
    if (role === 'textbox' && !isField(element)) return short(element.textContent ?? '');
    if (role === 'combobox') {
      const text = element instanceof HTMLInputElement ? valueOf(element) : element.textContent ?? '';
      return short(text) === nameOf(element) ? '' : short(text);
    }
    return '';
  };

  // --- place ------------------------------------------------------------------------

  // What holds the like of an element: an option lies in a list box, a tab in a tab
  // list; between the two there may be anything that is nothing in particular.
  const HOLDERS = {
    option: 'listbox', tab: 'tablist', treeitem: 'tree', radio: 'radiogroup',
    menuitem: 'menu menubar', menuitemcheckbox: 'menu menubar', menuitemradio: 'menu menubar',
    listitem: 'list', row: 'table grid treegrid', article: 'feed',
  };
  const LIKE = {
    menuitem: words('menuitem menuitemcheckbox menuitemradio'),
    menuitemcheckbox: words('menuitem menuitemcheckbox menuitemradio'),
    menuitemradio: words('menuitem menuitemcheckbox menuitemradio'),
  };
  const searchIn = (root, method, selector) => {
    const type = root instanceof Document ? Document
      : root instanceof DocumentFragment ? DocumentFragment : Element;
    return type.prototype[method].call(root, selector);
  };
  const ownerOf = (element) => {
    const id = attribute(element, 'id');
    if (id === '' || id.length > 200) return null;
    const owner = searchIn(Node.prototype.getRootNode.call(element), 'querySelector',
      `[aria-owns~="${CSS.escape(id)}"]`);
    return owner && owner !== element && !Node.prototype.contains.call(element, owner) ? owner : null;
  };
  const holderOf = (element, role) => {
    const wanted = HOLDERS[role]?.split(' ');
    if (!wanted) return null;
    let at = ownerOf(element) ?? elementAbove(element);
    for (let i = 0; at && i < limit.above; i++) {
      const is = roleOf(at);
      if (wanted.includes(is)) return at;
      // A nested list is the next holder of what lies in it.
      if (is === role && role !== 'treeitem' && role !== 'listitem') return null;
      at = (is === 'group' ? ownerOf(at) : null) ?? elementAbove(at);
    }
    return null;
  };
  const NONE = {all: [], places: new Map()};
  const treeLevelOf = (element) => {
    let level = 1;
    let at = ownerOf(element) ?? elementAbove(element);
    for (let i = 0; at && i < limit.above; i++) {
      const role = roleOf(at);
      if (role === 'tree' || role === 'treegrid') break;
      if (role === 'group') level += 1;
      at = (role === 'group' ? ownerOf(at) : null) ?? elementAbove(at);
    }
    return level;
  };
  const siblingsOfTreeItem = (element) => {
    let at = ownerOf(element) ?? elementAbove(element);
    for (let i = 0; at && i < limit.above; at = elementAbove(at), i++) {
      const role = roleOf(at);
      if (role === 'group' || role === 'tree') return likeBelow(at, words('treeitem'), words('group'));
    }
    return NONE;
  };
  const formOf = getter(HTMLInputElement, 'form');
  const radiosLike = (radio) => {
    const name = attribute(radio, 'name');
    if (name === '') return NONE;
    const form = formOf(radio);
    const all = searchIn(form ?? Node.prototype.getRootNode.call(radio), 'querySelectorAll',
      `input[type=radio][name="${CSS.escape(name)}"]`);
    const like = Array.prototype.filter.call(all, (each) => formOf(each) === form && isShown(each));
    return {all: like, places: new Map(like.map((each, i) => [each, i + 1]))};
  };
  // [place, number of all]; 0 where it is not known.
  const placeOf = (element, role) => {
    const place = whole(attribute(element, 'aria-posinset'));
    const size = whole(attribute(element, 'aria-setsize'));
    if (place > 0) return [place, size];
    let like = NONE;
    if (element instanceof HTMLSelectElement) {
      return element.selectedIndex >= 0 ? [element.selectedIndex + 1, element.options.length] : [0, 0];
    }
    if (element instanceof HTMLInputElement && typeOf(element) === 'radio') like = radiosLike(element);
    else if (role === 'treeitem') like = siblingsOfTreeItem(element);
    else if (role in HOLDERS && role !== 'row' && role !== 'listitem') {
      const holder = holderOf(element, role);
      if (holder) {
        const inner = words(HOLDERS[role]);
        if (role === 'menuitemradio') inner.delete('group');
        like = likeBelow(holder, LIKE[role] ?? words(role), inner);
      }
    }
    const found = like.places.get(element);
    return found ? [found, size || like.all.length] : [0, 0];
  };
  const levelOf = (element, role) => {
    const said = whole(attribute(element, 'aria-level'));
    if (said > 0) return said;
    if (role === 'heading') return /^h[1-6]$/.test(tagOf(element)) ? Number(tagOf(element)[1]) : 2;
    return role === 'treeitem' ? treeLevelOf(element) : 0;
  };

  // --- tables -----------------------------------------------------------------------

  // A table that only puts things beside each other has neither headers nor a name.
  const isLayout = (element) => tagOf(element) === 'table' && givenRole(element) === '' &&
    searchIn(element, 'querySelector', 'caption, th, thead, tfoot, colgroup, td[scope], td[headers]') === null &&
    nameOf(element) === '';
  // Columns are counted as in the page's text: what a page hides is none.
  const cellsOf = (row) => elementsBelow(row).slice(0, MOST_COLUMNS).filter((each) =>
    /^(cell|gridcell|columnheader|rowheader)$/.test(roleOf(each)) && window.getComputedStyle(each).display !== 'none' &&
    !isKeptBack(each));
  const reachesDown = (row) => searchIn(row, 'querySelector', '[rowspan], [aria-rowspan]') !== null;
  const rowsOfTable = (table) => likeBelow(table, words('row'), words('table grid treegrid'));
  const sizeOfTable = (table) => {
    const rows = whole(attribute(table, 'aria-rowcount'));
    const columns = whole(attribute(table, 'aria-colcount'));
    const list = rowsOfTable(table).all;
    return [rows || list.length, columns || gridOf(list.slice(0, ROWS_LOOKED), cellsOf).columns];
  };
  const columnOf = (cell, row, rows) => {
    const at = rows.places.get(row) || 1;
    const above = rows.all.slice(Math.max(0, at - ROWS_LOOKED), at - 1);
    return gridOf(above.some(reachesDown) ? [...above, row] : [row], cellsOf).columnOf(cell);
  };
  const cellPlace = (cell) => {
    const row = elementAbove(cell);
    const table = row && isInside(cell, 'table, [role=table], [role=grid], [role=treegrid]');
    if (!table) return [0, 0];
    const rows = rowsOfTable(table);
    return [whole(attribute(cell, 'aria-rowindex')) || whole(attribute(row, 'aria-rowindex')) ||
        rows.places.get(row) || 0,
      whole(attribute(cell, 'aria-colindex')) || columnOf(cell, row, rows)];
  };

  // --- groups -----------------------------------------------------------------------

  // What is said on the way into it, with or without a name.
  const ALWAYS = words('dialog alertdialog listbox menu menubar tree treegrid grid table tablist ' +
    'toolbar radiogroup banner complementary contentinfo main navigation search');
  const WHEN_NAMED = words('group region form figure list tabpanel article feed application');
  // A frame is the group of all that is in it.
  const framesOf = () => Document.prototype.querySelectorAll.call(document, 'iframe, frame, object');
  share('nameOfFrame', (view) => {
    const frame = Array.prototype.find.call(framesOf(), (each) => each.contentWindow === view);
    return frame ? nameOf(frame) : null;
  });
  const titleOf = getter(Document, 'title');
  const nameOfOwnFrame = () => {
    if (window === window.parent) return null;
    const name = sharedBy(window.parent).nameOfFrame?.(window) ?? null;
    return name === '' ? short(titleOf(document)) : name;
  };
  const groupsOf = (element) => {
    const groups = [];
    // The options that a list's choice stands among.
    const section = element instanceof HTMLSelectElement && element.selectedIndex >= 0
      ? elementAbove(element.options[element.selectedIndex]) : null;
    if (section instanceof HTMLOptGroupElement) {
      groups.push([numberOf(section), 'group', short(section.label), '', 0, 0, '']);
    }
    let at = ownerOf(element) ?? elementAbove(element);
    for (let i = 0; at && i < limit.above && groups.length < MOST_GROUPS; i++) {
      const frame = at === document.documentElement ? nameOfOwnFrame() : null;
      if (frame !== null) {
        groups.unshift([numberOf(at), 'frame', frame, '', 0, 0, '']);
        break;
      }
      const role = isLayout(at) ? '' : roleOf(at);
      if (ALWAYS.has(role) || WHEN_NAMED.has(role)) {
        const name = nameOf(at);
        if (name !== '' || ALWAYS.has(role)) {
          const [rows, columns] = /^(table|grid|treegrid)$/.test(role) ? sizeOfTable(at) : [0, 0];
          groups.unshift([numberOf(at), role, name, short(attribute(at, 'aria-roledescription')), rows,
            columns, descriptionForGroup(at, role)]);
        }
        if (role === 'dialog' || role === 'alertdialog') break;
      }
      at = ownerOf(at) ?? elementAbove(at);
    }
    return groups;
  };
  const descriptionForGroup = (element, role) =>
    (role === 'dialog' || role === 'alertdialog' ? descriptionOf(element, nameOf(element)) : '');

  // --- all of it --------------------------------------------------------------------

  const CELLS = /^(cell|gridcell|columnheader|rowheader)$/;
  // Without what does not hold.
  const known = (facts) => {
    for (const key of Object.keys(facts)) {
      const value = facts[key];
      if (value === '' || value === false || value === 0 || value.length === 0) delete facts[key];
    }
    return facts;
  };
  // What it is by itself, wherever it lies.
  const ownFacts = (element, role, name) => ({
    number: numberOf(element), role, name, kind: short(attribute(element, 'aria-roledescription')),
    checked: checkedOf(element, role), pressed: one(attribute(element, 'aria-pressed'), THREE),
    expanded: expandedOf(element, role), selected: selectedOf(element, role),
    popup: popupOf(element), current: one(attribute(element, 'aria-current'), CURRENT),
    required: isRequired(element), invalid: isInvalid(element), disabled: isDisabled(element),
    readonly: isReadOnly(element), value: valueFor(element, role),
  });
  // What its author says; of what holds no word of it, the nearest around it.
  const languageOf = (element) => {
    for (let at = element, i = 0; at && i < limit.above; at = elementAbove(at), i++) {
      const language = attribute(at, 'lang');
      if (language !== '') return short(language);
    }
    return '';
  };
  const factsOf = (element) => {
    const role = roleOf(element);
    const name = nameOf(element);
    const [place, size] = placeOf(element, role);
    const [row, column] = CELLS.test(role) ? cellPlace(element) : [0, 0];
    return known({
      ...ownFacts(element, role, name), sort: sortOf(element),
      multiple: element instanceof HTMLSelectElement ? element.multiple
        : attribute(element, 'aria-multiselectable') === 'true',
      lines: element instanceof HTMLTextAreaElement || attribute(element, 'aria-multiline') === 'true',
      vertical: attribute(element, 'aria-orientation') === 'vertical' && /^(slider|separator)$/.test(role),
      level: levelOf(element, role), place, size, row, column,
      error: errorOf(element), description: descriptionOf(element, name), groups: groupsOf(element),
      language: languageOf(element),
    });
  };
  // The part of it that is quick to find, for many elements at once.
  const briefFactsOf = (element, role, name) => known(ownFacts(element, role, name));

  Object.defineProperty(globalThis, 'corvaneFacts', {value: Object.freeze({factsOf, briefFactsOf, timesOf, languageOf})});
})();
