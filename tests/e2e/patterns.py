"""Walks with the keyboard over the pages in patterns/, and what must be conveyed
at every stop. Plain data: how it is conveyed is not told here.

WALKS maps the name of a page (patterns/NAME.html, served as /patterns/NAME.html)
to its steps in order. A walk begins when the page has loaded and nothing in it has
the focus. Keys go to the page as they are. A step is a dict of

  key          the key as xdotool names it, such as "Down", "shift+Tab" or "b"; None
               for what cannot have the focus: it is met in reading on through the
               page, in the order of the page, and the focus stays
  role         the ARIA role of the element where the user now is: the one with the
               focus, or the one that aria-activedescendant names. Left out where
               HTML gives the element no ARIA role, such as a field for a date
  name         its accessible name
  states       states and properties as ARIA tokens without "aria-": those that have
               to be told here; others may be told
  value        of a field, slider or the like, as the user is to hear it
  description  its accessible description
  place        "2 of 5" among its like
  level        of a heading or tree item
  row, column  "2 of 5" within a table or grid; header: the column's header
  enters       the groups that the step enters, outermost first, each (role, name)
               or (role, name, description): landmarks, dialogs, widgets made of
               items, and groups with a name; the role is empty for a frame. Lists of
               plain text are left out, except where the caret comes into one
  roledescription  the word that stands for the role of the innermost group entered,
               or of the element where no group is entered
  stays        the user is where he was before: states, value and the like hold only
               what the key has changed, and the rest needs no repeating
  text         in an editor, the line to which the caret comes with Up and Down, the
               letter to which it comes with Left and Right, the letter that goes with
               BackSpace
  error        the text that aria-errormessage names, of a field that is invalid
  live         the words that a live region brings; a list where there are several
  progress     name and new value of a progress bar elsewhere: may be told, need not
  title        the document's new title
  silent       nothing changes and nothing is to be told

Every key but "key" stands only where it applies.
"""
from walks import choosing, live, menus, native, opening, structures, values

MODULES = opening, choosing, menus, values, structures, native, live
WALKS = {page: steps for module in MODULES for page, steps in module.WALKS.items()}
