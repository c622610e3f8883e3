#ifndef LOK_GLOBALLOCK_H
#define LOK_GLOBALLOCK_H

/// Holds the one lock of the process that guards the making and unmaking of other locks, for as long as the
/// object lives. Usable at any time from before main() to after exit().
class lok_GlobalLock
{
public:
    lok_GlobalLock();
    ~lok_GlobalLock();
    lok_GlobalLock(const lok_GlobalLock&) = delete;
    lok_GlobalLock& operator=(const lok_GlobalLock&) = delete;
};

#endif
