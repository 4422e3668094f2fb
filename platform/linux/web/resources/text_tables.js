// Runs behind text_writer.js, in the same script world, for text.js: writes what lies where
// in a table behind its text.
'use strict';
(() => {
  if (!globalThis.corvaneTextWriter || globalThis.corvaneTextTables) return;

  const {attribute, nameOf} = globalThis.corvaneNames;
  const {KIND} = globalThis.corvaneTextWriter;
  const {Grid, LIMIT, numberIn} = globalThis.corvaneTableGrid;

  // Walks a table.
  const walkTable = (walk, element, role, depth) => {
    const at = walk.begin(KIND.table, element, 0, 0, {role, name: nameOf(element)});
    const outer = walk.grid;
    const grid = new Grid();
    walk.grid = grid;
    walk.below(element, depth + 1);
    walk.grid = outer;
    const {cells, headers, columns} = grid.finish();
    walk.out.endTable(at, numberIn(element, 'aria-rowcount', LIMIT.index) || grid.rows,
      numberIn(element, 'aria-colcount', LIMIT.index) || columns, cells, headers);
  };
  const walkCell = (walk, element, role, style, depth) => {
    const {out, grid} = walk;
    const isInline = style.display === 'inline';
    if (isInline) out.blank();
    const at = walk.begin(KIND.cell, element);
    walk.grid = null;
    walk.below(element, depth + 1);
    walk.grid = grid;
    const isEmpty = !out.endCell(at);
    if (isInline) out.blank();
    if (at >= 0) grid.add(element, role, at, isEmpty);
  };
  // Walks an element that is a part of the table that is being walked; false, and nothing
  // done, where it is none.
  const walkPart = (walk, element, tag, role, style, depth) => {
    const {grid} = walk;
    const part = grid.partOf(tag, role);
    if (part === '') return false;
    if (part === 'cell') {
      walkCell(walk, element, role, style, depth);
    } else if (part === 'row') {
      grid.beginRow(element);
      walk.below(element, depth + 1);
      grid.endRow();
    } else {
      grid.beginGroup(tag);
      walk.below(element, depth + 1);
      grid.endGroup();
    }
    return true;
  };

  Object.defineProperty(globalThis, 'corvaneTextTables', {value: Object.freeze({walkTable, walkPart})});
})();
