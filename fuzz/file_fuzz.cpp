// Any bytes, opened as a database and walked whole: data or one exception of ours.

#include "platform/text/exc_Exception.h"
#include "store/sample_states.h"
#include "store/walk_everything.h"

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <string>
#include <unistd.h>

namespace {

// In memory where the machine has such a folder; of this process alone, since fuzzers run side by side.
struct OwnFile
{
    OwnFile()
        : path(std::string(access("/dev/shm", W_OK) == 0 ? "/dev/shm" : "/tmp") + "/yld-fuzz-" +
               std::to_string(getpid()) + ".yld")
    {
    }
    ~OwnFile()
    {
        unlink(path.c_str());
        unlink((path + "-journal").c_str());
    }
    const std::string path;
};

const std::string& path()
{
    static const OwnFile file;
    return file.path;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t count)
{
    const int file = open(path().c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
    if (file < 0 || write(file, bytes, count) != static_cast<ssize_t>(count)) std::abort();
    close(file);
    try {
        WalkEverything::from<sample_Book>(path());
    } catch (const exc_Exception& failure) {
        // The text names the file.
        if (std::string(failure.what()).compare(0, path().size(), path()) != 0) std::abort();
    }
    return 0;
}
