#ifndef YLD_API_H
#define YLD_API_H

#include "platform/base/bas_Export.h"

/// A program calls yld_initializeAPI() before it uses anything else of the library, and yld_finalizeAPI() when it
/// is done with it. Calls nest: the first start does the work, the last stop undoes it, and a stop too many does
/// nothing. The last stop closes every database that is open, without saving. A program that ends without it gets
/// it from an exit handler. Start, use and stop belong to one thread.
///
/// The start installs a yld_WipReporter on the standard error stream as the reporter of the calling thread, which
/// prints warnings there. The reporter stays installed after the stop; another start installs a new one.
extern "C" YLD_API void yld_initializeAPI();
extern "C" YLD_API void yld_finalizeAPI();

/// The same for a program that starts several libraries with one token: the first of nested starts raises the
/// token by one for this library and by one for each library underneath, the last of nested stops lowers it
/// likewise. Installs no reporter and no exit handler.
YLD_API void yld_initialize(int& token);
YLD_API void yld_finalize(int& token);

#endif
