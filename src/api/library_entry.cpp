// The shared library's own translation unit. Loading the library and attaching threads do no
// work: all state comes into being on the first call that needs it.
