"""The display that the program shows its windows on, asked without starting anything:
what measures a start must not take the processor from it."""
import ctypes
import ctypes.util
import time

_EVERYTHING = 1 << 16  # longs of a property; no list of windows is as long
_PAUSE = 0.001         # seconds between two looks
_CLIENT_MESSAGE = 33
_ABOUT_WINDOWS = 1 << 19  # what is sent to the root window about others
_LONGS_OF_AN_EVENT = 24


class _Message(ctypes.Structure):
    """A message between a window and its manager."""

    _fields_ = [("kind", ctypes.c_int), ("serial", ctypes.c_ulong), ("sent", ctypes.c_int),
                ("display", ctypes.c_void_p), ("window", ctypes.c_ulong), ("name", ctypes.c_ulong),
                ("format", ctypes.c_int), ("data", ctypes.c_long * 5), ("rest", ctypes.c_long * _LONGS_OF_AN_EVENT)]


class Screen:
    def __init__(self):
        self._x = ctypes.CDLL(ctypes.util.find_library("X11"))
        for name in ("XOpenDisplay", "XDefaultRootWindow", "XInternAtom"):
            getattr(self._x, name).restype = ctypes.c_void_p
        self._display = ctypes.c_void_p(self._x.XOpenDisplay(None))
        self._root = ctypes.c_void_p(self._x.XDefaultRootWindow(self._display))
        self._x.XSelectInput(self._display, self._root, ctypes.c_long(_ABOUT_WINDOWS))

    def _atom(self, name):
        return ctypes.c_void_p(self._x.XInternAtom(self._display, name, 0))

    def _windows(self, name):
        """The windows in a property that the window manager keeps."""
        kind, size, count, rest = ctypes.c_ulong(), ctypes.c_int(), ctypes.c_ulong(), ctypes.c_ulong()
        data = ctypes.POINTER(ctypes.c_ulong)()
        self._x.XGetWindowProperty(self._display, self._root, self._atom(name), ctypes.c_long(0),
                                   ctypes.c_long(_EVERYTHING), 0, ctypes.c_ulong(0), ctypes.byref(kind),
                                   ctypes.byref(size), ctypes.byref(count), ctypes.byref(rest), ctypes.byref(data))
        windows = {data[i] for i in range(count.value)} - {0}
        if data:
            self._x.XFree(data)
        return windows

    def windows(self):
        """Those that the window manager shows."""
        return self._windows(b"_NET_CLIENT_LIST")

    def active(self):
        """The one that takes the keys, in a set; an empty one where none does."""
        return self._windows(b"_NET_ACTIVE_WINDOW")

    @staticmethod
    def wait_for(asked, others, patience=60):
        """A window that `asked` tells of and that is not among the others."""
        end = time.monotonic() + patience
        while not asked() - others:
            if time.monotonic() > end:
                raise RuntimeError("no window")
            time.sleep(_PAUSE)
        return (asked() - others).pop()

    def wait_ready(self, window, patience=60):
        """Until the window answers what is sent to it now, as it would a key: what the
        display sends is taken in turn."""
        ping = self._atom(b"_NET_WM_PING")
        event = _Message(kind=_CLIENT_MESSAGE, window=window, name=self._atom(b"WM_PROTOCOLS").value, format=32)
        event.data[0], event.data[2] = ping.value, window
        self._x.XSendEvent(self._display, ctypes.c_ulong(window), 0, ctypes.c_long(0), ctypes.byref(event))
        self._x.XFlush(self._display)
        end = time.monotonic() + patience
        while time.monotonic() < end:
            while self._x.XPending(self._display):
                self._x.XNextEvent(self._display, ctypes.byref(event))
                if event.kind == _CLIENT_MESSAGE and event.data[0] == ping.value and event.data[2] == window:
                    return
            time.sleep(_PAUSE)
        raise RuntimeError("the window answers nothing")
