#ifndef FIO_SHARINGVFS_H
#define FIO_SHARINGVFS_H

/// The name of a layer between SQLite and the disk for connections that write, made on first use.
///
/// SQLite shuts readers out of the file from the first page of a transaction that goes to disk to the end of its last
/// sync, although nearly all those pages lie past the end of the saved file, where no reader looks. This layer lets
/// the new pages and their sync go by while readers read, keeps the few changed old pages back, and shuts readers out
/// only to write these. The journal has been synced by then, as SQLite sees to, so a crash at any instant rolls back as
/// ever; the file and its locks are SQLite's own, and readers need no such layer.
const char* fio_sharingVfs();

/// The longest wait for another process that holds the file; what comes after it is an error.
constexpr int fio_longestWaitMilliseconds = 10000;
/// Sleeps before another try to get at the file: SQLite's busy handler. Waits start short, since a save shuts readers
/// out for less than a millisecond, and grow so that a stuck peer costs no processor time.
/// @param attempt  how often this was tried before  @return 0 when it was tried long enough
int fio_waitForPeer(void*, int attempt);

#endif
