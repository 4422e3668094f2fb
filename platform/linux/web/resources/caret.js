// Runs in every frame behind record.js. It tells what an editable part of the page
// holds and where the caret is in it: its text with a line for each paragraph, list
// item, heading and cell, and the line at the caret as it is shown.
'use strict';
(() => {
  if (!globalThis.corvane || !globalThis.corvaneNames || globalThis.corvaneCaret) return;

  const {clean, characters, maxValue} = globalThis.corvane.parts;
  const {getter, isElement} = globalThis.corvaneNames;
  const firstOf = getter(Node, 'firstChild');
  const nextOf = getter(Node, 'nextSibling');
  const parentOf = getter(Node, 'parentElement');
  const childrenOf = getter(Node, 'childNodes');
  const MOST_NODES = 20000;
  const MOST_PIECES = 400;  // words of one line
  const LINE = 1000;        // characters of it

  const styleOf = (element) => window.getComputedStyle(element);
  const isBlock = (element) => !/^(inline|contents|none|ruby)/.test(styleOf(element).display);
  const isPre = (element) => styleOf(element).whiteSpace.startsWith('pre');

  // --- the text of an editor -----------------------------------------------------

  // The text, and for each of the points [node, offset] how much of it stands before.
  const layOut = (editor, points) => {
    let text = '';
    let used = false;     // something stands in the present line
    let broken = false;   // a line break waits for what follows it
    let nodes = 0;
    const places = points.map(() => -1);
    const start = () => {
      if (broken) text += '\n';
      broken = false;
    };
    const reach = (node, offset) => {
      points.forEach(([container, at], i) => {
        if (container === node && at === offset && places[i] < 0) places[i] = text.length + (broken ? 1 : 0);
      });
    };
    // Blanks count as they are shown.
    const shown = (data, pre) => {
      if (pre) return data;
      const collapsed = data.replace(/[ \n\r\t\f]+/g, ' ');
      return used && !broken && !text.endsWith(' ') ? collapsed : collapsed.replace(/^ /, '');
    };
    const endLine = () => {
      text = text.replace(/ +$/, '');
      places.forEach((place, i) => { places[i] = Math.min(place, text.length); });
      text += '\n';
      used = broken = false;
    };
    const visitText = (node, pre) => {
      const data = shown(node.data, pre);
      if (data !== '') start();
      points.forEach(([container, at], i) => {
        if (container === node) places[i] = text.length + shown(node.data.slice(0, at), pre).length;
      });
      text += data;
      used ||= data !== '';
    };
    const visit = (element, pre) => {
      let index = 0;
      for (let node = firstOf(element); node; node = nextOf(node)) {
        if (++nodes > MOST_NODES || text.length > maxValue) return;
        reach(element, index++);
        if (node instanceof Text) {
          visitText(node, pre);
        } else if (node instanceof HTMLBRElement) {
          start();
          used = broken = true;
        } else if (isElement(node) && styleOf(node).display !== 'none') {
          const block = isBlock(node);
          if (block && used) endLine();
          visit(node, isPre(node));
          if (block) {
            broken = false;
            used = true;
          }
        }
      }
      reach(element, index);
    };
    visit(editor, isPre(editor));
    return {text, places: places.map((place) => (place < 0 ? text.length : Math.min(place, text.length)))};
  };

  const selectionIn = (editor) => {
    const selection = window.getSelection();
    if (!selection || selection.rangeCount === 0) return null;
    const range = selection.getRangeAt(0);
    return Node.prototype.contains.call(editor, range.commonAncestorContainer) ? range : null;
  };

  // Of an editor: what it holds, and [selected characters, characters after the caret,
  // whether that is known].
  const ofEditor = (editor) => {
    const range = selectionIn(editor);
    const points = range
      ? [[range.startContainer, range.startOffset], [range.endContainer, range.endOffset]] : [];
    const {text, places: [from = 0, to = 0]} = layOut(editor, points);
    return {
      value: clean(text, maxValue),
      caret: [characters(text.slice(from, to)), characters(text.slice(to)), range ? 1 : 0],
    };
  };

  // --- the line at the caret -------------------------------------------------------

  const blockAround = (node, editor) => {
    let at = isElement(node) ? node : parentOf(node);
    while (at && at !== editor && !isBlock(at)) at = parentOf(at);
    return at ?? editor;
  };
  // The pieces of text that a line can be broken between: [node, begin, end].
  const piecesOf = (block) => {
    const pieces = [];
    const walker = Document.prototype.createTreeWalker.call(document, block, NodeFilter.SHOW_TEXT);
    for (let node = walker.nextNode(), nodes = 0; node && nodes < MOST_NODES; node = walker.nextNode(), nodes++) {
      if (blockAround(node, block) !== block) continue;
      for (const piece of node.data.matchAll(/\S+|\s+/g)) {
        pieces.push([node, piece.index, piece.index + piece[0].length]);
      }
    }
    return pieces;
  };
  const boxesOf = (node, begin, end) => {
    const range = new Range();
    range.setStart(node, begin);
    range.setEnd(node, end);
    return [...range.getClientRects()].filter((box) => box.height > 0);
  };
  const lineInBlock = (block, node, offset) => {
    const pieces = piecesOf(block);
    const here = pieces.findIndex(([text, begin, end]) => text === node && begin <= offset && offset < end);
    const behind = pieces.findIndex(([text, , end]) => text === node && end === offset);
    const at = here >= 0 ? here : behind;
    if (at < 0) return null;
    const [text, begin, end] = pieces[at];
    const [box] = here >= 0 ? boxesOf(text, offset, offset + 1) : boxesOf(text, end - 1, end);
    if (!box) return null;
    const middle = (box.top + box.bottom) / 2;
    // The part of a piece that stands in the line; all of most.
    const inLine = ([each, first, last]) => {
      const boxes = boxesOf(each, first, last);
      const fits = (one) => one.top <= middle && middle <= one.bottom;
      if (boxes.length === 0) return ' ';
      if (boxes.every(fits)) return each.data.slice(first, last);
      if (!boxes.some(fits)) return '';
      let words = '';
      for (let i = first; i < last && i - first < LINE; i++) {
        if (boxesOf(each, i, i + 1).some(fits)) words += each.data[i];
      }
      return words;
    };
    let line = inLine(pieces[at]) || text.data.slice(begin, end);
    for (const step of [-1, 1]) {
      for (let i = at + step, count = 0; pieces[i] && count < MOST_PIECES; i += step, count++) {
        const words = inLine(pieces[i]);
        if (words === '') break;
        line = step < 0 ? words + line : line + words;
      }
    }
    return line;
  };
  const shownLine = (editor) => {
    const range = selectionIn(editor);
    if (!range) return null;
    let {endContainer: node, endOffset: offset} = range;
    if (isElement(node)) {
      const child = childrenOf(node)[offset];
      const before = childrenOf(node)[offset - 1];
      if (child instanceof Text) [node, offset] = [child, 0];
      else if (before instanceof Text) [node, offset] = [before, before.data.length];
      else return null;
    }
    return lineInBlock(blockAround(node, editor), node, offset);
  };
  // The line in the editor's text where it cannot be told as it is shown.
  const writtenLine = (text, after) => {
    const place = text.length - after;
    const begin = text.lastIndexOf('\n', place - 1) + 1;
    const end = text.indexOf('\n', place);
    return text.slice(place === 0 ? 0 : begin, end < 0 ? text.length : end);
  };
  const tidy = (line) => clean(line.replace(/\s+/g, ' ').trim(), LINE);

  // Of an editor: the line at the caret as it is shown.
  const lineOfEditor = (editor) => {
    const shown = shownLine(editor);
    if (shown !== null) return tidy(shown);
    const range = selectionIn(editor);
    if (!range) return '';
    const {text, places: [place]} = layOut(editor, [[range.endContainer, range.endOffset]]);
    return tidy(writtenLine(text, text.length - place));
  };

  // Of a text area: its line up to the line breaks that were typed, and whether it is
  // sure to be shown in one piece.
  const pen = new OffscreenCanvas(1, 1).getContext('2d');
  const lineOfArea = (area) => {
    const {value, selectionEnd} = area;
    const line = writtenLine(value, value.length - selectionEnd);
    const style = styleOf(area);
    let fits = area.wrap === 'off' || line === '';
    if (!fits && pen && line.length < LINE) {
      pen.font = style.font;
      const room = area.clientWidth - parseFloat(style.paddingLeft) - parseFloat(style.paddingRight);
      const spaced = line.length * (parseFloat(style.letterSpacing) || 0);
      fits = !line.includes('\t') && pen.measureText(line).width * 1.02 + spaced < room;
    }
    return {line: tidy(line), fits};
  };

  // --- what a key does to the caret ----------------------------------------------------

  const STEPS = {
    ArrowLeft: 0, ArrowRight: 0, Home: 0, End: 0, ArrowUp: 2, ArrowDown: 2, PageUp: 2, PageDown: 2,
  };
  // [how far it goes: 0 a character, 1 a word, 2 a line, 3 a paragraph; whether it selects]
  const stepOf = (event) => {
    let step = STEPS[event.key] ?? 0;
    if (event.ctrlKey) {
      if (/^Arrow(Left|Right)$/.test(event.key)) step = 1;
      if (/^Arrow(Up|Down)$/.test(event.key)) step = 3;
      if (/^(Home|End)$/.test(event.key)) step = 2;
    }
    return [step, event.shiftKey && event.key in STEPS ? 1 : 0];
  };

  Object.defineProperty(globalThis, 'corvaneCaret',
    {value: Object.freeze({ofEditor, lineOfEditor, lineOfArea, stepOf})});
})();
