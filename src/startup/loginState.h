#pragma once

namespace varnow {

/// How the login dialog is to run and how it ended; it outlives the window.
struct LoginState
{
    static inline int DatabaseMode = 0;        ///< 0 configuration database, 1 Velmora database
    static inline bool BadData = false;        ///< a required entry was empty at the last Login
    static inline bool SeriousProblem = false; ///< the configuration database's version could not be read
    static inline bool Canceled = false;       ///< the dialog was left with Cancel
};

} // namespace varnow
