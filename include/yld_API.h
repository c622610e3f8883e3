#ifndef YLD_API_H
#define YLD_API_H

#include "platform/base/bas_Export.h"

/// Brackets all use of the library: a program calls yld_initializeAPI() before anything else of it and
/// yld_finalizeAPI() after everything else. Calls nest: the first start does the work, the last stop undoes
/// it, and one stop too many has no effect. A program that ends without the stop gets one from an exit
/// handler. Start, use and stop belong to one thread.
///
/// The start installs a yld_WipReporter on the standard error stream as the thread's reporter. It stays
/// behind the stop; a restart makes and installs another.
extern "C" YLD_API void yld_initializeAPI();
extern "C" YLD_API void yld_finalizeAPI();

/// The same for a program that starts several libraries with one token: the first of nested starts raises the
/// token by one for this library and by one for each library underneath, the last of nested stops lowers it
/// likewise. Installs no reporter and no exit handler.
YLD_API void yld_initialize(int& token);
YLD_API void yld_finalize(int& token);

#endif
