// The trace: call sites document what the engine would log; the sink prints nothing.
#pragma once

namespace quillon {

template <class... Args>
inline void Trace(const char* /*format*/, const Args&... /*args*/) {}

}  // namespace quillon
