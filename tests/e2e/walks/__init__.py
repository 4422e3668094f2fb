"""The walks over the pages in patterns/, one module for each kind of widget."""
