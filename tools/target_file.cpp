#include "target_file.h"

#include "failure.h"

#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;

// What a signal handler has to remove: plain bytes, since it may not touch a string. The file itself, what
// the library may keep beside it while it writes, and the lock.
constexpr int numLeftovers = 3;
char leftovers[numLeftovers][4096];
std::atomic<bool> isWriting{false};
constexpr int signals[] = {SIGHUP, SIGINT, SIGTERM, SIGXFSZ};

void removeLeftovers()
{
    for (const char* const path : leftovers)
        if (path[0] != '\0') ::unlink(path);
}

extern "C" void tool_endBySignal(int signal)
{
    if (isWriting.load()) removeLeftovers();
    // Reset to the default by SA_RESETHAND: the caller sees that a signal ended us.
    ::raise(signal);
}

std::string reason(int error) { return std::strerror(error); }

void remember(int slot, const std::string& path)
{
    if (path.size() >= sizeof leftovers[slot]) throw tool_Failure("path is too long: " + path);
    std::memcpy(leftovers[slot], path.c_str(), path.size() + 1);
}

} // namespace

tool_TargetFile::tool_TargetFile(const std::string& target, const std::string& source, bool mayReplace)
    : m_target(target), m_mayReplace(mayReplace)
{
    const fs::path path(target);
    std::error_code error;
    if (fs::is_directory(path, error)) throw tool_Failure("target is a directory: " + target);
    const bool exists = fs::symlink_status(path, error).type() != fs::file_type::not_found && !error;
    if (exists) {
        if (fs::equivalent(path, fs::path(source), error) && !error)
            throw tool_Failure("source and target are the same file: " + target);
        if (!mayReplace) throw tool_Failure("target exists, --force replaces it: " + target);
        if (!fs::is_regular_file(path, error)) throw tool_Failure("target is no plain file: " + target);
    }
    if (path.filename().empty()) throw tool_Failure("target has no file name: " + target);
    const fs::path folder = path.has_parent_path() ? path.parent_path() : fs::path(".");
    if (!fs::exists(folder, error)) throw tool_Failure("folder of the target does not exist: " + target);
    if (!fs::is_directory(folder, error)) throw tool_Failure("folder of the target is no folder: " + target);

    const fs::path lock = folder / fs::path(path.filename()).replace_extension(".lck");
    if (exists && fs::exists(lock, error))
        throw tool_Failure("target is open for writing, its lock is " + lock.string() + ": " + target);

    std::string stem = ".";
    stem.append(path.stem().string()).append(".").append(std::to_string(::getpid()));
    m_path = (folder / (stem + ".yld")).string();
    remember(0, m_path);
    remember(1, m_path + "-journal");
    remember(2, (folder / (stem + ".lck")).string());
    isWriting = true;
    struct sigaction action = {};
    action.sa_handler = tool_endBySignal;
    action.sa_flags = SA_RESETHAND | SA_NODEFER;
    for (const int signal : signals) {
        struct sigaction before = {};
        // A signal that the caller has us ignore, as nohup does, stays ignored.
        if (::sigaction(signal, nullptr, &before) == 0 && before.sa_handler != SIG_IGN)
            ::sigaction(signal, &action, nullptr);
    }

    // Tried now: the reason is clearer here than after the work.
    const int file = ::open(m_path.c_str(), O_CREAT | O_EXCL | O_WRONLY | O_CLOEXEC, 0666);
    if (file < 0) {
        isWriting = false;
        throw tool_Failure("cannot write: " + target + ": " + reason(errno));
    }
    ::close(file);
    ::unlink(m_path.c_str());
}

tool_TargetFile::~tool_TargetFile()
{
    if (isWriting.exchange(false)) removeLeftovers();
}

void tool_TargetFile::commit()
{
    if (m_mayReplace) {
        if (::rename(m_path.c_str(), m_target.c_str()) != 0)
            throw tool_Failure("cannot write: " + m_target + ": " + reason(errno));
    } else if (::link(m_path.c_str(), m_target.c_str()) == 0) {
        // A link, unlike a rename, fails if somebody else made the target meanwhile.
        ::unlink(m_path.c_str());
    } else if (errno == EEXIST) {
        throw tool_Failure("target exists, --force replaces it: " + m_target);
    } else if (::access(m_target.c_str(), F_OK) == 0 || ::rename(m_path.c_str(), m_target.c_str()) != 0) {
        throw tool_Failure("cannot write: " + m_target + ": " + reason(errno));
    }
    isWriting = false;
    ::unlink(leftovers[2]);
}
