// Runs behind names.js, in the same script world: in which row and column of its table a
// cell lies, how far it reaches, and of which cells it is the header.
//
// The rows are counted as they are shown, so that who walks the table meets no row that
// is not there; where a page shows a part of a table and says which (aria-rowindex), its
// numbers hold.
'use strict';
(() => {
  if (!globalThis.corvaneNames || globalThis.corvaneTableGrid) return;

  const {attribute, getter, has, isElement, named, tagOf} = globalThis.corvaneNames;
  const LIMIT = {
    span: 1000,       // columns that a cell may reach over; the engine's own bound, too
    rows: 65534,      // rows, likewise
    growing: 500,     // cells that reach into further rows, at a time
    index: 10000000,  // the highest number of a row or column
    headers: 20,      // that a cell may name
  };
  const HEADS = {columns: 1, rows: 2};
  const columnsOf = getter(HTMLTableCellElement, 'colSpan');
  const rowsOf = getter(HTMLTableCellElement, 'rowSpan');

  const numberIn = (element, name, most) => {
    const number = Math.floor(Number(attribute(element, name)));
    return number >= 1 ? Math.min(number, most) : 0;
  };
  const isCell = (element) => element instanceof HTMLTableCellElement;

  class Grid {
    constructor() {
      this.cells = [];
      this.row = 0;       // the present one, from 1
      this.rows = 0;      // how many there are
      this.inRow = false;
      this.first = 0;     // the first cell of the present row, of the present group
      this.firstOfGroup = 0;
      this.growing = [];  // what reaches into the present row, by columns
      this.added = [];    // to it, by the row before
      this.isHead = false;
    }

    // What an element is in the table, by its tag and role; empty for nothing.
    partOf(tag, role) {
      if (this.inRow) {
        if (role === '' && (tag === 'td' || tag === 'th')) return 'cell';
        return /^(cell|gridcell|columnheader|rowheader)$/.test(role) ? 'cell' : '';
      }
      if (role === 'row' || (role === '' && tag === 'tr')) return 'row';
      return role === 'rowgroup' || (role === '' && /^t(body|head|foot)$/.test(tag)) ? 'group' : '';
    }

    beginGroup(tag) {
      this.endGroup();
      this.isHead = tag === 'thead';
    }
    // What would reach beyond the group ends with it.
    endGroup() {
      for (let i = this.firstOfGroup; i < this.cells.length; i++) {
        const cell = this.cells[i];
        cell.rows = Math.min(cell.rows, this.row - cell.row + 1);
        if (cell.ofGroup) cell.until = this.row + 1;
      }
      this.firstOfGroup = this.cells.length;
      this.growing = [];
      this.added = [];
      this.isHead = false;
    }

    beginRow(row) {
      this.row = Math.max(this.row + 1, numberIn(row, 'aria-rowindex', LIMIT.index));
      this.rows += 1;
      this.inRow = true;
      this.first = this.cells.length;
      this.column = 1;
      this.passed = 0;  // of those that reach into the row
      const all = this.growing.filter((each) => each.row + each.rows > this.row);
      const room = Math.max(LIMIT.growing - all.length, 0);
      this.growing = this.added.length === 0 ? all
        : all.concat(this.added.splice(0, room)).sort((a, b) => a.column - b.column);
      this.added = [];
    }
    // A cell that says nothing of what it heads heads its column when there is nothing
    // beside it but others of its kind.
    endRow() {
      this.inRow = false;
      const row = this.cells.slice(this.first);
      const heads = this.isHead || row.every((cell) => cell.heads !== 0 || cell.isEmpty)
        ? HEADS.columns : HEADS.rows;
      for (const cell of row) {
        if (cell.heads < 0) cell.heads = heads;
        if (cell.rows > 1) this.added.push(cell);
      }
    }

    // `at`: its place with the writer.
    add(element, role, at, isEmpty) {
      const isNative = isCell(element);
      const rows = isNative && !has(element, 'aria-rowspan') ? rowsOf(element) || LIMIT.rows
        : numberIn(element, 'aria-rowspan', LIMIT.rows) || 1;
      const columns = isNative && !has(element, 'aria-colspan') ? columnsOf(element)
        : numberIn(element, 'aria-colspan', LIMIT.span) || 1;
      const scope = attribute(element, 'scope').trim().toLowerCase();
      let column = Math.max(this.column, numberIn(element, 'aria-colindex', LIMIT.index));
      for (; this.passed < this.growing.length; this.passed++) {
        const above = this.growing[this.passed];
        if (above.column > column) break;
        column = Math.max(column, above.column + above.columns);
      }
      this.column = column + columns;
      this.cells.push({
        at, element, isEmpty, row: this.row, column, rows, columns, until: 0,
        heads: this.headsOf(element, role, scope), ofGroup: scope === 'rowgroup',
      });
    }
    // Below 0: that is decided when the row is known.
    headsOf(element, role, scope) {
      if (role === 'columnheader') return HEADS.columns;
      if (role === 'rowheader') return HEADS.rows;
      if (scope === 'col' || scope === 'colgroup') return HEADS.columns;
      if (scope === 'row' || scope === 'rowgroup') return HEADS.rows;
      return role === '' && isCell(element) && tagOf(element) === 'th' ? -1 : 0;
    }

    // For the writer: the cells, seven numbers each, and for those that name their headers
    // [its index, the headers' indexes ...].
    finish() {
      this.endGroup();
      // Many a page has a cell reach over more columns than there are.
      const widest = this.cells.reduce((most, cell) => Math.max(most, cell.column), 0);
      const cells = [];
      for (const cell of this.cells) {
        const columns = Math.min(cell.columns, widest - cell.column + 1);
        cells.push(cell.at, cell.row, cell.column, cell.rows, columns, cell.heads, cell.until);
      }
      return {cells, headers: this.namedHeaders(), columns: widest};
    }
    namedHeaders() {
      const naming = this.cells.filter(({element}) => isCell(element) && has(element, 'headers'));
      if (naming.length === 0) return [];
      const places = new Map(this.cells.map(({element}, i) => [element, i]));
      return naming.map(({element}) => {
        const headers = named(element, attribute(element, 'headers')).slice(0, LIMIT.headers)
          .filter((each) => each !== element && places.has(each));
        return [places.get(element), ...headers.map((each) => places.get(each))];
      }).filter((list) => list.length > 1);
    }
  }

  // Where the cells of some rows that follow each other lie.
  const gridOf = (rows, cellsOf) => {
    const grid = new Grid();
    let group = null;
    for (const row of rows) {
      const around = row.parentNode;
      if (around !== group) grid.beginGroup(isElement(around) ? tagOf(around) : '');
      group = around;
      grid.beginRow(row);
      for (const cell of cellsOf(row)) grid.add(cell, attribute(cell, 'role'), 0, false);
      grid.endRow();
    }
    return {columns: grid.finish().columns, columnOf: (cell) =>
      grid.cells.find(({element}) => element === cell)?.column ?? 0};
  };

  Object.defineProperty(globalThis, 'corvaneTableGrid', {value: Object.freeze({Grid, gridOf, numberIn, LIMIT})});
})();
