// Runs behind names.js, in the same script world: the elements of some kind below another,
// by which facts.js tells the place of one among its like.
'use strict';
(() => {
  if (!globalThis.corvaneNames || globalThis.corvaneLikeLists) return;

  const {roleOf, isShown, isKeptBack, elementAbove, elementsBelow, named, attribute, limit} = globalThis.corvaneNames;
  const MOST_LIKE = 20000;  // elements looked at to find a place among the like

  // The elements of these roles below a holder, those of holders within it left out.
  const collectLike = (holder, roles, inner) => {
    const found = [];
    let seen = 0;
    const visit = (element) => {
      for (const child of [...elementsBelow(element), ...named(element, attribute(element, 'aria-owns'))]) {
        if (++seen > MOST_LIKE) return;
        if (isKeptBack(child) || (!isShown(child) && !(child instanceof HTMLOptionElement))) continue;
        const role = roleOf(child);
        if (roles.has(role)) found.push(child);
        else if (!inner.has(role)) visit(child);
      }
    };
    visit(holder);
    return found;
  };

  // What was found below a holder, until something there changes that counts. Who goes
  // through a long list asks for it at each step, and what the list marks as reached
  // changes its looks each time.
  const LIST_TIME = 2000;  // milliseconds; a style sheet may hide elements unseen
  const MOST_LISTS = 6;
  const MOST_CHANGES = 50;
  const lists = [];
  class LikeList {
    constructor(holder, roles, inner) {
      this.holder = holder;
      this.roles = roles;
      this.key = LikeList.keyOf(roles, inner);
      this.all = collectLike(holder, roles, inner);
      this.places = new Map(this.all.map((element, i) => [element, i + 1]));
      this.made = performance.now();
      this.valid = true;
      this.observer = new MutationObserver((changes) => this.check(changes));
      this.observer.observe(holder, {subtree: true, childList: true, attributes: true,
        attributeFilter: ['class', 'style', 'hidden', 'role', 'aria-hidden', 'aria-owns']});
    }
    static keyOf(roles, inner) {
      return `${[...roles].join(' ')}/${[...inner].join(' ')}`;
    }
    check(changes) {
      if (!this.valid) return;
      this.valid = changes.length <= MOST_CHANGES && changes.every((change) => this.keeps(change));
    }
    // Whether all stays in its place: what lies within one of the elements does not count.
    keeps({type, target}) {
      if (this.places.has(target)) {
        return type === 'childList' || (isShown(target) && !isKeptBack(target) && this.roles.has(roleOf(target)));
      }
      for (let at = elementAbove(target), i = 0; at && at !== this.holder && i < limit.above; i++) {
        if (this.places.has(at)) return true;
        at = elementAbove(at);
      }
      return type !== 'childList' && target !== this.holder && elementsBelow(target).length === 0 &&
        !this.roles.has(roleOf(target));
    }
    isFresh() {
      this.check(this.observer.takeRecords());
      return this.valid && performance.now() - this.made < LIST_TIME;
    }
  }
  const likeBelow = (holder, roles, inner) => {
    const key = LikeList.keyOf(roles, inner);
    const at = lists.findIndex((list) => list.holder === holder && list.key === key);
    if (at >= 0 && lists[at].isFresh()) return lists[at];
    const old = at >= 0 ? lists.splice(at, 1) : lists.splice(0, Math.max(0, lists.length - MOST_LISTS + 1));
    for (const list of old) list.observer.disconnect();
    const list = new LikeList(holder, roles, inner);
    lists.push(list);
    return list;
  };

  Object.defineProperty(globalThis, 'corvaneLikeLists', {value: Object.freeze({likeBelow})});
})();
