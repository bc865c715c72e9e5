"""The package's one exception: a failure of the language or of the mathematics."""


class QuillonError(Exception):
    """Carries the engine's own message, such as "syntax error: ...".

    Raised whenever the library answers with an error expression instead of a result.
    """
