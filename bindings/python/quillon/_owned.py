"""The life cycle shared by every Python object that owns something of the library."""

from . import _library


class Owned:
    """Owns one library object, freed exactly once: by close(), at the end of a with block, or
    when the Python object goes. Subclasses set _handle and say how to free it in _release."""

    _handle = None
    _noun = "object"

    @property
    def handle(self):
        if self._handle is None:
            raise ValueError(f"{self._noun} is closed")
        return self._handle

    @property
    def closed(self):
        return self._handle is None

    def _release(self, handle):
        raise NotImplementedError

    def close(self):
        handle, self._handle = self._handle, None
        if handle is not None:
            self._release(handle)

    def __enter__(self):
        return self

    def __exit__(self, *exc):
        self.close()

    def __del__(self):
        # At interpreter exit the library module may be gone before this object.
        if _library.lib is not None:
            self.close()
