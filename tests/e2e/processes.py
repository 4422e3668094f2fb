"""The program's processes, as the system counts them."""
import ctypes
import pathlib
import re

_ADOPT_ORPHANS = 36  # PR_SET_CHILD_SUBREAPER

# The kernel cuts names after 15 characters.
PAGE, NETWORK = "WebKitWebProces", "WebKitNetworkPr"


def adopt_orphans():
    """From now on a process that its parent leaves behind becomes this one's child
    instead of vanishing from its descendants."""
    ctypes.CDLL(None).prctl(_ADOPT_ORPHANS, 1, 0, 0, 0)


def children(pid):
    try:
        tasks = list(pathlib.Path(f"/proc/{pid}/task").iterdir())
        return [int(child) for task in tasks for child in (task / "children").read_text().split()]
    except OSError:
        return []  # it has just ended


def family(pid):
    """A process and all its descendants that live."""
    found, todo = [], [pid]
    while todo:
        current = todo.pop()
        if is_alive(current):
            found.append(current)
        todo += children(current)
    return found


def is_alive(pid):
    """Not ended, nor ended and only not yet asked for its result."""
    try:
        return not re.search(r"^State:\s+Z", pathlib.Path(f"/proc/{pid}/status").read_text(), re.M)
    except OSError:
        return False


def name(pid):
    try:
        return pathlib.Path(f"/proc/{pid}/comm").read_text().strip()
    except OSError:
        return ""


def named(pid, wanted):
    """The descendants of a process that have that name."""
    return [child for child in family(pid)[1:] if name(child) == wanted]


def memory(pid, *kinds):
    """Proportional memory of one process in MB: all of it, or what belongs to the
    kinds named, such as "Anon" and "Shmem"."""
    try:
        rollup = pathlib.Path(f"/proc/{pid}/smaps_rollup").read_text()
    except OSError:
        return 0
    names = [f"Pss_{kind}" for kind in kinds] or ["Pss"]
    sizes = [re.search(rf"^{name}:\s+(\d+)", rollup, re.M) for name in names]
    return sum(int(size.group(1)) for size in sizes if size) / 1024


def own_memory(pid):
    """What the process has filled itself, in MB: without the files that are mapped
    into it, whose share depends on who else runs on the machine."""
    return memory(pid, "Anon", "Shmem")


def family_memory(pid):
    """The sum over a process and all its descendants, in MB."""
    return sum(memory(member) for member in family(pid))


def descriptors(pid):
    try:
        return len(list(pathlib.Path(f"/proc/{pid}/fd").iterdir()))
    except OSError:
        return 0


def threads(pid):
    try:
        return len(list(pathlib.Path(f"/proc/{pid}/task").iterdir()))
    except OSError:
        return 0


def parent(pid):
    return int(re.search(r"^PPid:\s+(\d+)", pathlib.Path(f"/proc/{pid}/status").read_text(), re.M).group(1))
