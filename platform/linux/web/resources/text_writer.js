// Runs behind facts.js, in the same script world. It puts a page's text together for
// text.js: what is written becomes lines as the page shows them, and each element's
// place in them is kept.
'use strict';
(() => {
  if (!globalThis.corvaneFacts || globalThis.corvaneTextWriter) return;

  // A page may be hostile; none of these limits is met by a page for people.
  const LIMIT = {text: 32000000, spans: 200000, line: 4000, nodes: 3000000, seconds: 5};
  const FIELDS = 8;  // numbers of one element: see `begin`
  const CELL = 7;    // numbers of one cell: see `endTable`

  // What an element is in the text, as the program numbers it.
  const KIND = {
    heading: 1, link: 2, button: 3, edit: 4, checkbox: 5, radio: 6, choice: 7, picture: 8, landmark: 9,
    list: 10, item: 11, table: 12, cell: 13, quotation: 14, frame: 15, language: 16, widget: 17, place: 18,
  };

  // The count of code points.
  const characters = (text) => (/[\uD800-\uDFFF]/.test(text)
    ? globalThis.corvane.parts.characters(text) : text.length);
  const whole = (text) => (text.isWellFormed() ? text : text.toWellFormed());
  // Whatever would not stand in a text box as it is.
  // eslint-disable-next-line no-control-regex
  const plain = (text) => whole(text.replace(/[\u0000-\u0008\u000B\u000C\u000E-\u001F\u007F]/g, '\uFFFD'));

  class Writer {
    constructor() {
      this.parts = [];
      this.length = 0;  // characters written
      this.line = 0;    // of them, on the present line
      this.ends = 0;    // line ends that were written last
      this.breaks = 0;  // line ends that are due before the next text
      this.gap = '';    // blanks that are due, unless a line ends
      this.spans = [];
      this.waiting = [];  // elements whose first character has not come
      this.details = [];
      this.tables = [];
      this.documents = [];
      this.document = 0;
      this.nodes = 0;
      this.until = performance.now() + LIMIT.seconds * 1000;
      this.gaveUp = false;
      // Where the page's selection begins, and what its address names.
      this.marks = {selected: -1, target: -1};
      this.marking = [];
    }
    // It begins with the next character.
    mark(name) {
      if (this.marks[name] < 0) this.marking.push(name);
    }
    // Whether there is more to do; asked once a node.
    goesOn() {
      if (++this.nodes % 1024 === 0) {
        this.gaveUp ||= performance.now() > this.until || this.nodes > LIMIT.nodes ||
          this.length > LIMIT.text;
      }
      return !this.gaveUp;
    }
    // What is written until `leave` belongs to the document with that name.
    enter(name) {
      const outer = this.document;
      this.document = this.documents.push(name) - 1;
      return outer;
    }
    leave(outer) {
      this.document = outer;
    }

    // An element begins: [kind, first character or -1, length, number, level, more,
    // document, detail]. `level` and `more` are what the kind has of numbers.
    begin(kind, number, level = 0, more = 0, detail = null) {
      const at = this.spans.length;
      if (at >= LIMIT.spans * FIELDS) return -1;
      const index = detail === null ? -1 : this.details.push(detail) - 1;
      this.spans.push(kind, -1, 0, number, level, more, this.document, index);
      this.waiting.push(at);
      return at;
    }
    // It ends. One that has no text has no place: false.
    end(at) {
      if (at < 0) return true;
      if (this.spans[at + 1] >= 0) {
        this.spans[at + 2] = this.length - this.spans[at + 1];
        return true;
      }
      while (this.waiting.length > 0 && this.waiting.at(-1) >= at) this.waiting.pop();
      return false;
    }
    // The cell of a table ends. Also one without text has a place: where it would stand
    // on its row's line. False where there is no text.
    endCell(at) {
      if (at < 0 || this.spans[at + 1] >= 0) return this.end(at);
      while (this.waiting.at(-1) > at) this.waiting.pop();
      const isOnLine = this.waiting.at(0) === at && this.line > 0 && this.breaks === 0;
      if (isOnLine) this.settleCells(at);
      return false;
    }
    // Gives what waits from `at` on the present place.
    settleCells(at) {
      while (this.waiting.length > 0 && this.waiting.at(-1) >= at) {
        this.spans[this.waiting.pop() + 1] = this.length;
      }
    }
    // A table ends: its size; its cells, seven numbers each, of which the first is what
    // `begin` answered for it: [at, row, column, rows, columns, heads, until]; and
    // headers: [index of a cell, indexes of those that it names ...].
    endTable(at, rows, columns, cells, headers) {
      if (!this.end(at) || at < 0) return;
      this.settleCells(at);
      this.spans[at + 4] = rows;
      this.spans[at + 5] = columns;
      if (cells.length > 0) this.tables.push({at, cells, headers});
    }
    isEmpty(at) {
      return at >= 0 && this.spans[at + 1] < 0;
    }

    // A block begins or ends: at least so many line ends.
    lines(count) {
      this.breaks = Math.max(this.breaks, count);
    }
    blank() {
      if (this.gap === '') this.gap = ' ';
    }
    cell() {
      this.gap = this.gap.startsWith('\t') ? `${this.gap}\t` : '\t';
    }
    lineEnd() {
      this.settle();
      if (this.length > 0) this.newline();
    }

    // Text whose blanks are shown as they stand.
    written(raw) {
      const text = plain(raw.replace(/\r\n?/g, '\n'));
      const first = /^\n+/.exec(text)?.[0].length ?? 0;
      for (let i = 0; i < first; i++) this.lineEnd();
      if (text.length > first) this.put(text.slice(first));
    }
    // Text whose blanks are run together.
    flowing(raw) {
      const text = plain(raw).replace(/[ \t\n\r\f]+/g, ' ');
      if (text === '') return;
      if (text === ' ') {
        this.blank();
        return;
      }
      if (text[0] === ' ') this.blank();
      this.put(text.trim() === text ? text : text.replace(/^ | $/g, ''));
      if (text.at(-1) === ' ') this.blank();
    }
    // The same, but for line ends.
    flowingLines(raw) {
      raw.replace(/\r\n?/g, '\n').split('\n').forEach((line, i) => {
        if (i > 0) {
          this.gap = '';
          this.lineEnd();
        }
        this.flowing(line);
      });
    }

    newline() {
      this.parts.push('\n');
      this.length += 1;
      this.line = 0;
      this.ends += 1;
    }
    settle() {
      if (this.length > 0) for (let due = this.breaks - this.ends; due > 0; due--) this.newline();
      if (this.line === 0 || this.breaks > 0) this.gap = '';
      this.breaks = 0;
    }
    put(text) {
      this.settle();
      if (this.gap !== '') this.add(this.gap);
      this.gap = '';
      if (this.marking.length > 0) {
        for (const name of this.marking.splice(0)) this.marks[name] = this.length;
      }
      for (const at of this.waiting) this.spans[at + 1] = this.length;
      this.waiting.length = 0;
      // A text view lays out one very long line for many seconds.
      let rest = text;
      while (this.line + rest.length > LIMIT.line) {
        const room = LIMIT.line - this.line;
        const end = rest.indexOf('\n');
        if (end >= 0 && end <= room) {
          this.add(rest.slice(0, end + 1));
          rest = rest.slice(end + 1);
          continue;
        }
        let cut = rest.lastIndexOf(' ', room - 1);
        const blank = cut >= 0;
        if (!blank) cut = this.line > 0 && rest.length <= LIMIT.line ? 0 : Math.max(room, 0);
        if (!blank && cut > 0 && /[\uDC00-\uDFFF]/.test(rest[cut] ?? '')) cut -= 1;
        if (cut > 0) this.add(rest.slice(0, cut));
        this.newline();
        rest = rest.slice(blank ? cut + 1 : cut);
      }
      if (rest !== '') this.add(rest);
    }
    add(text) {
      this.parts.push(text);
      const count = characters(text);
      this.length += count;
      const end = text.lastIndexOf('\n');
      this.line = end < 0 ? this.line + count : characters(text.slice(end + 1));
      this.ends = end === text.length - 1 ? /\n*$/.exec(text)[0].length : 0;
    }

    // Null where the page was more than can be put together.
    result() {
      if (this.gaveUp) return null;
      const {spans} = this;
      const list = [];
      const indexes = new Int32Array(spans.length / FIELDS).fill(-1);  // where each stands in the list
      for (let at = 0; at < spans.length; at += FIELDS) {
        if (spans[at + 1] >= 0) {
          indexes[at / FIELDS] = list.length / FIELDS;
          for (let i = 0; i < FIELDS; i++) list.push(spans[at + i]);
        }
      }
      const tables = this.tables.map(({at, cells, headers}) => [indexes[at / FIELDS],
        cells.map((number, i) => (i % CELL === 0 ? indexes[number / FIELDS] : number)), headers]);
      return {
        text: this.parts.join(''), documents: this.documents, spans: list, details: this.details, tables,
        ...this.marks,
      };
    }
  }

  Object.defineProperty(Writer, 'KIND', {value: Object.freeze(KIND)});
  Object.defineProperty(globalThis, 'corvaneTextWriter', {value: Writer});
})();
