#include "platform/base/lok_ThreadSingleton.h"

#include <sys/syscall.h>
#include <unistd.h>

bool lok_isFirstThread() { return syscall(SYS_gettid) == getpid(); }
